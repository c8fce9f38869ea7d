#pragma once
// CQKBSType: an envelope type (for example one family of brick walls), the middle level of the
// envelope catalogue, as a row of the type table. BSDLId is the ID of its category; the record does
// not check that the category exists.
//
// The natural key is Name over the whole table: a type name is unique in the catalogue, not only
// within its category. Names go into the SQL between double quotes without escaping: a name holding
// a double quote fails its query and writes nothing. The name also names the type's demonstration
// picture, so it must be usable as a file name. Not safe for concurrent use.
//
// Stream: Name, BSDLId (int). Named items and columns: "Name", "BSDLId" (besides "ID").

#include "QKExport.h"
#include "foundation/CQKNamedData.h"
#include "foundation/QKLoad.h"
#include "foundation/QKRecordTable.h"
#include "tablekit/tagDBSTRUCT.h"

class QK_EXPORT CQKBSType : public tagDBSTRUCT, public CQKNamedData {
  QK_DECLARE_RECORD_TABLE(CQKBSType)

 public:
  CQKBSType() = default;
  CQKBSType(const CQKBSType&) = default;
  CQKBSType& operator=(const CQKBSType&) = default;
  ~CQKBSType() override = default;

  // ID 0, Name "", BSDLId 0.
  void Init() override;
  ADataDef::ErrorCode DataInPut(CADataStream stream) override;
  ADataDef::ErrorCode DataOutPut(CADataStream stream) override;
  ADataDef::ErrorCode DataInPro(CADataExchange exchange) override;
  ADataDef::ErrorCode DataOutPro(CADataExchange exchange) override;

  // Looks the name up: DBS_EXIST (this record becomes the first matching row, its ID included),
  // DBS_NOTEXIST, DBS_ERROR.
  QKLoad::DBStatusCode IsExist(CADODatabase* db);
  // DBS_ADDED, DBS_EXIST (taken when bTakeExisting is nonzero), DBS_ERROR.
  QKLoad::DBStatusCode AddIfNotExist(CADODatabase* db, int bTakeExisting);
  // DBS_UPDATED, DBS_EXIST when another row holds the name, DBS_ERROR.
  QKLoad::DBStatusCode UpdateIfNoOther(CADODatabase* db, int bTakeOther);

  int BSDLId = 0;  // the category's ID

 private:
  CQKBSType KeyProbe() const;
};
