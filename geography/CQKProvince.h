#pragma once
// CQKProvince: a province as a row of the province table, bound to it as CQKCountry is to its own.
// The natural key is the name within the country, (CId, Name): two countries may each have a
// province of the same name. The verbs are the country's with that key.

#include "QKExport.h"
#include "foundation/QKLoad.h"
#include "foundation/QKRecordTable.h"
#include "geography/CQKProvinceData.h"
#include "tablekit/tagDBSTRUCT.h"

class QK_EXPORT CQKProvince : public tagDBSTRUCT, public CQKProvinceData {
  QK_DECLARE_RECORD_TABLE(CQKProvince)

 public:
  CQKProvince() = default;
  CQKProvince(const CQKProvince&) = default;
  CQKProvince& operator=(const CQKProvince&) = default;
  ~CQKProvince() override = default;

  // Looks (CId, Name) up in the table of S_Init: DBS_EXIST (this record becomes the first matching
  // row), DBS_NOTEXIST, DBS_ERROR.
  QKLoad::DBStatusCode IsExist(CADODatabase* db);
  // DBS_ADDED, DBS_EXIST (taken when bTakeExisting is nonzero), DBS_ERROR.
  QKLoad::DBStatusCode AddIfNotExist(CADODatabase* db, int bTakeExisting);
  // DBS_UPDATED, DBS_EXIST when another row holds (CId, Name), DBS_ERROR. Changing CId to a country
  // where the name is free moves the province.
  QKLoad::DBStatusCode UpdateIfNoOther(CADODatabase* db, int bTakeOther);
  // Re-reads this record's ID by (CId, Name), in the table GetTableName gives.
  void UpdateTableData(CADODatabase* db);

  // Does nothing, whatever it is given; kept as an entry point for hosts.
  static void UpdateProvinceTableData(CADODatabase* from, CADODatabase* to);

 private:
  CQKProvince KeyProbe() const;
};
