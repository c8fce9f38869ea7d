#pragma once
// CQKCountry: a country as a row of the country table. It adds no fields to CQKCountryData; it binds
// them to the table named by S_Init, in the database file named there, through one connection that
// every country object shares (QKRecordTable.h). The row's "ID" is the record's key (GetID); the
// natural key is Name.
//
// Verbs given a null connection use the class-wide one. Names go into the SQL between double quotes
// without escaping: a name holding a double quote fails its query (DBS_ERROR) and writes nothing.
// Not safe for concurrent use.

#include "QKExport.h"
#include "foundation/QKLoad.h"
#include "foundation/QKRecordTable.h"
#include "geography/CQKCountryData.h"
#include "tablekit/tagDBSTRUCT.h"

class QK_EXPORT CQKCountry : public tagDBSTRUCT, public CQKCountryData {
  QK_DECLARE_RECORD_TABLE(CQKCountry)

 public:
  CQKCountry() = default;
  CQKCountry(const CQKCountry&) = default;
  CQKCountry& operator=(const CQKCountry&) = default;
  ~CQKCountry() override = default;

  // Looks the name up in the table of S_Init (db as given). DBS_EXIST, and this record becomes the
  // first matching row, its ID included; DBS_NOTEXIST; DBS_ERROR when the query fails.
  QKLoad::DBStatusCode IsExist(CADODatabase* db);
  // Inserts this record unless its name is stored: DBS_ADDED (the new ID is taken), DBS_EXIST (this
  // record becomes the stored one only when bTakeExisting is nonzero), DBS_ERROR.
  QKLoad::DBStatusCode AddIfNotExist(CADODatabase* db, int bTakeExisting);
  // Writes this record into its row (by ID) unless another row holds its name: DBS_UPDATED,
  // DBS_EXIST (nothing written; this record becomes that row when bTakeOther is nonzero), DBS_ERROR.
  QKLoad::DBStatusCode UpdateIfNoOther(CADODatabase* db, int bTakeOther);
  // Re-reads this record's ID from the row that holds its name, in the table GetTableName gives; no
  // such row leaves it unchanged.
  void UpdateTableData(CADODatabase* db);

  // Does nothing, whatever it is given; kept as an entry point for hosts.
  static void UpdateCountryTableData(CADODatabase* from, CADODatabase* to);

 private:
  // A fresh record carrying this one's natural key, for the lookups of the insert and update verbs.
  CQKCountry KeyProbe() const;
};
