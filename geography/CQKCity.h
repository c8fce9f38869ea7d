#pragma once
// CQKCity: a city as a row of the city table. It adds no fields to CQKCityData; it binds them to the
// table named by S_Init, in the database file named there, through one connection that every city
// object shares. The row's "ID" is the record's key (GetID); its natural key is its name within its
// province (PId, Name). No check is made that the province exists: PId 0 is a key like any other.
//
// Call S_Init once before the first database use. The class-wide connection is opened on first use
// and kept for the life of the process; the library never closes it, and a path given to S_Init
// after it opened does not move it. Verbs given a null connection use that one. Names go into the
// SQL between double quotes without escaping: a name holding a double quote fails its query
// (DBS_ERROR). Not safe for concurrent use.

#include "QKExport.h"
#include "foundation/QKLoad.h"
#include "geography/CQKCityData.h"
#include "tablekit/tagDBSTRUCT.h"

class CADODatabase;
class CADORecordset;

class QK_EXPORT CQKCity : public CQKCityData, public tagDBSTRUCT {
 public:
  CQKCity() = default;
  CQKCity(const CQKCity&) = default;
  CQKCity& operator=(const CQKCity&) = default;
  ~CQKCity() override = default;

  // The class-wide connection, opened on S_Init's path whenever it is found closed. Returned even
  // when it could not be opened (the next query on it fails); null only if it could not be made.
  CADODatabase* GetUserDatabase() const override;
  CString GetTableName() override;
  CString GetDataBasePath() override;

  // Loads the current row of rs into this record; nonzero on success.
  int MakeObjectFromRS(CADORecordset& rs);

  // Looks (PId, Name) up in the table of S_Init (db as given; null is the class's connection).
  // DBS_EXIST and this record becomes the first matching row, its ID included; DBS_NOTEXIST;
  // DBS_ERROR when the query fails.
  QKLoad::DBStatusCode IsExist(CADODatabase* db);
  // Inserts this record unless its (PId, Name) is stored: DBS_ADDED (the new ID is taken), DBS_EXIST (this
  // record becomes the stored one only when bTakeExisting is nonzero), DBS_ERROR.
  QKLoad::DBStatusCode AddIfNotExist(CADODatabase* db, int bTakeExisting);
  // Writes this record into its row (by ID) unless another row holds its (PId, Name): DBS_UPDATED,
  // DBS_EXIST (nothing written; this record becomes that row when bTakeOther is nonzero), DBS_ERROR.
  QKLoad::DBStatusCode UpdateIfNoOther(CADODatabase* db, int bTakeOther);
  // Re-reads this record's ID from the row that holds its (PId, Name), in the table of S_Init (as
  // IsExist does); no such row leaves it unchanged.
  void UpdateTableData(CADODatabase* db);

  // Where the table lives. Both are empty until S_Init.
  static void S_Init(const wchar_t* dataBasePath, const wchar_t* tableName);
  // Does nothing, whatever it is given; kept as an entry point for hosts.
  static void UpdateCityTableData(CADODatabase* from, CADODatabase* to);

  static CString s_m_strDataBasePath;
  static CString s_m_strTableName;
  static CADODatabase* m_pADODatabase;  // the class-wide connection; never closed by the library

 protected:
  int GetDataFromRecordSet(CADORecordset& rs) override;
  int SetDataToRecordSet(CADORecordset& rs) override;

 private:
  // A fresh record carrying this one's natural key, for the lookups of the insert and update verbs.
  CQKCity KeyProbe() const;
};
