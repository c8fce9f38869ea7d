#pragma once
// CADORecordset: the rows of one query, with a current row, and the buffer through which a record
// writes a row back.
//
// Open runs the query (through the Access dialect layer) and reads every row at once, so the count is
// known at once and no database lock is held while the caller walks the rows. Columns are found by
// name ignoring ASCII case, as Access does: "Id" finds the key column "ID".
//
// Reading: GetFieldValue converts the stored value to the type asked for and returns nonzero; it
// returns 0 and leaves the target unchanged for a missing column, no current row, or a value with no
// such reading (a null number, text that is not a number, a number outside the type's 32-bit range).
// A null text reads as "". A real read as an integer is rounded to nearest.
//
// Writing: AddNew starts a new row, Edit (or the first SetFieldValue on a current row) starts
// changing it, Update writes the change as one statement with bound values, CancelUpdate drops it.
// SetFieldValue returns 0 for a column the result lacks; the other columns are still written. The key
// column "ID" belongs to the database: a value set for it is accepted and not written (a new row gets
// its key from the database, and after Update the current row is the new row with that key). Only a
// result whose columns all come from one table can be written; booleans are stored as 1 and 0.
// The connection must stay open while a record set writes through it. Not safe for concurrent use.

#include <memory>
#include <string>

#include "QKExport.h"
#include "mfc/CString.h"
#include "tablekit/CADOOP.h"

class CADOConnection;
class CADODatabase;

class QK_EXPORT CADORecordset {
 public:
  CADORecordset();
  explicit CADORecordset(CADODatabase* db);
  CADORecordset(const CADORecordset&) = delete;
  CADORecordset& operator=(const CADORecordset&) = delete;
  virtual ~CADORecordset();

  // Runs sql on the database given at construction. Nonzero on success, also for an empty result.
  int Open(const wchar_t* sql, const CADOOP& options = CADOOP());
  // Runs sql directly on a connection (from CADODatabase::GetActiveConnection); connectType must be
  // the connection's kind. The last argument is carried for the interface and unused.
  int Open(CADOConnection* connection, const CADOOP& options, int connectType, const wchar_t* sql, int unused);
  int IsOpen() const;
  void Close();

  unsigned long GetRecordCount() const;
  // Nonzero past the last row / before the first; both for an empty or closed record set.
  int IsEOF() const;
  int IsBOF() const;
  void MoveFirst();
  void MoveNext();

  int GetFieldCount() const;
  CString GetFieldName(int index) const;  // "" outside the range

  int GetFieldValue(const wchar_t* column, CString& value) const;
  int GetFieldValue(const wchar_t* column, double& value) const;
  int GetFieldValue(const wchar_t* column, bool& value) const;
  int GetFieldValue(const wchar_t* column, unsigned long& value) const;
  int GetFieldValue(const wchar_t* column, long& value) const;
  int GetFieldValue(const wchar_t* column, int& value) const;
  int GetFieldValue(int index, CString& value) const;
  int GetFieldValue(int index, double& value) const;
  int GetFieldValue(int index, bool& value) const;
  int GetFieldValue(int index, unsigned long& value) const;
  int GetFieldValue(int index, long& value) const;
  int GetFieldValue(int index, int& value) const;

  int SetFieldValue(const wchar_t* column, const CString& value);
  int SetFieldValue(const wchar_t* column, const wchar_t* value);
  int SetFieldValue(const wchar_t* column, double value);
  int SetFieldValue(const wchar_t* column, bool value);
  int SetFieldValue(const wchar_t* column, unsigned long value);
  int SetFieldValue(const wchar_t* column, long value);
  int SetFieldValue(const wchar_t* column, int value);

  int AddNew();
  int Edit();
  int Update();
  void CancelUpdate();

  // The reason of the last failure of Open, SetFieldValue or Update ("" after a success).
  CString GetLastError() const;

 private:
  struct State;
  std::unique_ptr<State> m_state;
  CADODatabase* m_pDatabase = nullptr;
};
