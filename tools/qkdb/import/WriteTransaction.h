#pragma once
// WriteTransaction: a change to an existing reference database made in place, in one transaction that
// holds the database's write lock from its first statement to its commit, so that nothing another
// program writes meanwhile is lost and an interrupted change leaves nothing behind: the database's
// own atomic commit, not a copy renamed over the file, makes it all or nothing.
//
// On SQLite the transaction is BEGIN IMMEDIATE: the write lock is taken at once, readers go on.
// On PostgreSQL it is a transaction that first takes a lock every qkdb writer takes (an advisory
// transaction lock), so two changes by the tool never interleave; readers and the library's own
// single-statement writes go on. Either way a lock held by someone else is waited for at most the
// given time, after which the constructor throws DatabaseBusy and nothing has changed.
//
// The record classes write through Database(), passed as their db argument; the steps they have no
// verb for run as plain SQL through Rows and Execute, on the same connection. Destroying a
// transaction that was not committed rolls it back.

#include <string>
#include <vector>

#include "text/CsvTable.h"
#include "tablekit/CADODatabase.h"
#include "tablekit/CADOConnection.h"

namespace qkdb {

// The database stayed locked by another writer for the whole wait.
class DatabaseBusy : public DataError {
 public:
  using DataError::DataError;
};

class WriteTransaction {
 public:
  // Opens the database at path (an SQLite file or a postgresql:// URI) and begins the transaction,
  // waiting at most waitSeconds for the write lock. Throws DatabaseBusy when the lock stays taken,
  // DataError when the database cannot be opened.
  WriteTransaction(const std::string& path, double waitSeconds);
  ~WriteTransaction();
  WriteTransaction(const WriteTransaction&) = delete;
  WriteTransaction& operator=(const WriteTransaction&) = delete;

  CADODatabase* Database() { return &m_db; }
  bool IsServer() const;
  // The rows of sql (the backend's own SQL, not the Access dialect), every value as text: "" for null,
  // reals with 17 significant digits. Throws DataError "cannot <what>: <reason>".
  std::vector<std::vector<std::string>> Rows(const std::string& sql, const std::string& what);
  // The result of sql with its values as the backend gave them, and the column names.
  tablekit::ResultSet Values(const std::string& sql, const std::string& what);
  void Execute(const std::string& sql, const std::string& what);
  // Writes values (their columns named as Values gave them) into the row of table whose ID is id, with
  // bound values.
  void UpdateRow(const std::string& table, long id, const tablekit::ColumnValues& values, const std::string& what);
  // True when the database has a table of that name (tables the tool added later may be missing from
  // a database built before them). Asked of the catalogue, so that no failing statement aborts the
  // transaction on PostgreSQL.
  bool HasTable(const std::string& name);
  // Commits: from here on the change is in the database. Throws DataError when the commit fails; the
  // change is then rolled back.
  void Commit();

  // text as an SQL string literal, a single quote inside doubled; a number as a literal that reads back
  // as the same double.
  static std::string Literal(const std::string& text);
  static std::string Literal(double number);

 private:
  CADOConnection& Connection();

  CADODatabase m_db;
  bool m_open = false;
};

// A point of a change where a test may have the process killed: when the environment variable
// QKDB_KILL_AT names point, the process sends itself SIGKILL there. Only builds made with the test
// suite have these points (QKDB_FAULT_POINTS); elsewhere it does nothing.
void FaultPoint(const char* point);

}  // namespace qkdb
