#pragma once
// CADODatabase: a connection to one database. The library's record classes each keep one for the
// life of the process; destroying it closes it.
//
// OpenAccess opens an existing SQLite database file (the reference database that stands where the
// Access file stood), or, when the path is a connection URI (postgresql://…), a database on a
// PostgreSQL server. It never creates a file: a missing file, or one that is not a database, is a
// failed open. User and password fill in what a URI leaves out; SQLite does not use them. The
// PostgreSQL backend is a module loaded on the first URI (tablekit/ModuleLoader.h): when it or libpq
// is missing, that open fails and GetLastError says so.
// Every statement passes the Access dialect layer (AccessDialect.h) first. Failures return 0; the
// reason is kept for GetLastError. Not safe for concurrent use.

#include <memory>
#include <string>

#include "QKExport.h"
#include "mfc/CString.h"
#include "tablekit/AccessDialect.h"
#include "tablekit/CADOOP.h"

class CADOConnection;

class QK_EXPORT CADODatabase {
 public:
  enum ConnectType { connectTypeNone = 0, connectTypeSQLite = 1, connectTypePostgreSQL = 2 };

  CADODatabase();
  CADODatabase(const CADODatabase&) = delete;
  CADODatabase& operator=(const CADODatabase&) = delete;
  virtual ~CADODatabase();

  // Nonzero on success. Closes any connection this object had first.
  int OpenAccess(const wchar_t* path, const wchar_t* user, const wchar_t* password);
  // Nonzero while the connection is open.
  int IsOpen() const;
  void Close();
  // Runs one statement that returns no rows; nonzero on success.
  int Execute(const wchar_t* sql);

  // The live connection (null while closed), the option block for record sets opened directly on it,
  // and its kind (connectTypeNone while closed).
  CADOConnection* GetActiveConnection() const;
  CADOOP GetActiveAdoap() const;
  int GetCurrentConnectType() const;
  // The dialect of the open connection's backend (SQLite while closed).
  tablekit::SqlDialect GetDialect() const;

  // The path of the last OpenAccess, and the reason of the last failure ("" after a success).
  CString GetPath() const { return m_strPath; }
  CString GetLastError() const { return m_strLastError; }

 private:
  friend class CADORecordset;
  void SetLastError(const std::string& reasonUtf8);

  std::unique_ptr<CADOConnection> m_pConnection;
  CString m_strPath;
  CString m_strLastError;
};
