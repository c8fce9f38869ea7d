#pragma once
// CQKCity: a city as a row of the city table, bound to it as CQKCountry is to its own. The natural key
// is the name within the province, (PId, Name). No check is made that the province exists: PId 0 is
// a key like any other. The verbs are the country's with that key.

#include "QKExport.h"
#include "foundation/QKLoad.h"
#include "foundation/QKRecordTable.h"
#include "geography/CQKCityData.h"
#include "tablekit/tagDBSTRUCT.h"

class QK_EXPORT CQKCity : public CQKCityData, public tagDBSTRUCT {
  QK_DECLARE_RECORD_TABLE(CQKCity)

 public:
  CQKCity() = default;
  CQKCity(const CQKCity&) = default;
  CQKCity& operator=(const CQKCity&) = default;
  ~CQKCity() override = default;

  // Looks (PId, Name) up in the table of S_Init: DBS_EXIST (this record becomes the first matching
  // row; Id then equals its ID), DBS_NOTEXIST, DBS_ERROR.
  QKLoad::DBStatusCode IsExist(CADODatabase* db);
  // DBS_ADDED, DBS_EXIST (taken when bTakeExisting is nonzero), DBS_ERROR.
  QKLoad::DBStatusCode AddIfNotExist(CADODatabase* db, int bTakeExisting);
  // DBS_UPDATED, DBS_EXIST when another row holds (PId, Name), DBS_ERROR. Id is never written.
  QKLoad::DBStatusCode UpdateIfNoOther(CADODatabase* db, int bTakeOther);
  // Re-reads this record's ID by (PId, Name), in the table of S_Init (as IsExist), not the one
  // GetTableName gives.
  void UpdateTableData(CADODatabase* db);

  // Does nothing, whatever it is given; kept as an entry point for hosts.
  static void UpdateCityTableData(CADODatabase* from, CADODatabase* to);

 private:
  CQKCity KeyProbe() const;
};
