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

  // The verbs by name; IsExist looks in the table GetTableName gives.
  QK_DECLARE_VERBS_BY_NAME(CQKBSType)

  int BSDLId = 0;  // the category's ID
};
