#pragma once
// tagDBSTRUCT: the base of every record class. It carries the row key ID and the generic row
// operations on the record's table (GetTableName) of a connection: the one given, or, when null, the
// record's own (GetUserDatabase). The operations move the fields through the virtual
// GetDataFromRecordSet / SetDataToRecordSet, which derived records extend with their columns.
//
// The key belongs to the database: InsertData lets it assign a new ID and stores it with SetID;
// UpdateData writes the row with the given ID and no other. Table names are bracketed in the SQL
// built here, so they may hold blanks. Every operation returns nonzero on success and 0 on failure.

#include "QKExport.h"
#include "mfc/CString.h"

class CADODatabase;
class CADORecordset;

struct QK_EXPORT tagDBSTRUCT {
  tagDBSTRUCT() = default;
  tagDBSTRUCT(const tagDBSTRUCT&) = default;
  tagDBSTRUCT& operator=(const tagDBSTRUCT&) = default;
  virtual ~tagDBSTRUCT() = default;

  long GetID() const { return ID; }
  void SetID(long id) { ID = id; }

  // The record's own connection; none (null) at this level.
  virtual CADODatabase* GetUserDatabase() const;
  virtual CString GetTableName();
  virtual CString GetDataBasePath();
  // Nonzero: rows of this table are identified and ordered by their key.
  virtual int IsIDSort() const;
  // Loads the row with key id into this record.
  virtual int ReadData(long id, CADODatabase* db = nullptr);
  // Writes this record into the row with key id (which must exist).
  virtual int UpdateData(long id, CADODatabase* db = nullptr);
  // Appends this record as a new row and takes the key the database gave it.
  virtual int InsertData(CADODatabase* db = nullptr);
  // Deletes the row with key id (succeeds also when there is none).
  virtual int RemoveData(long id, CADODatabase* db = nullptr);
  // Gives this record's row the key id, and this record with it.
  virtual int UpdateID(long id, CADODatabase* db = nullptr);
  // Nonzero for a record that holds shipped default data; this backend keeps no such mark: 0.
  virtual int IsDefaultData() const;

  // Runs sql: into rs when one is given (a query), else as a statement without rows.
  int ExecSql(const wchar_t* sql, CADORecordset* rs, CADODatabase* db);

 protected:
  // Marks this record as the user's own data; with no such mark kept here, it only succeeds.
  virtual int AsUserVerData();
  // Move the "ID" column between the current row and this record.
  virtual int GetDataFromRecordSet(CADORecordset& rs);
  virtual int SetDataToRecordSet(CADORecordset& rs);
  // Opens rs on the result of sql; nonzero on success, also for an empty result.
  int ReadRecords(const wchar_t* sql, CADORecordset& rs, CADODatabase* db);

  long ID = 0;

 private:
  CADODatabase* Resolve(CADODatabase* db) const;
  // The query for the row with key id of this record's table.
  CString SelectRow(long id);
};
