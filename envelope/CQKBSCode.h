#pragma once
// CQKBSCode: an envelope code (one build-up of an envelope type, for example a 240 mm brick wall with
// 20 mm plaster on both faces), the lowest level of the envelope catalogue, as a row of the code
// table. BSTId is the ID of its type; the record does not check that the type exists. Each code owns
// one bounding structure (CQKBoundingStructure, found by its "BSCId").
//
// The natural key is Name over the whole table, not within the type: two codes of one name under
// different types are one code to IsExist and AddIfNotExist. Names go into the SQL between double
// quotes without escaping: a name holding a double quote fails its query and writes nothing. The
// type's and the code's names name the code's demonstration picture, so they must be usable as file
// names. Not safe for concurrent use.
//
// Stream: Name, BSTId (long). Named items and columns: "Name", "BSTId" (besides "ID").

#include "QKExport.h"
#include "foundation/CQKNamedData.h"
#include "foundation/QKLoad.h"
#include "foundation/QKRecordTable.h"
#include "tablekit/tagDBSTRUCT.h"

class QK_EXPORT CQKBSCode : public tagDBSTRUCT, public CQKNamedData {
  QK_DECLARE_RECORD_TABLE(CQKBSCode)

 public:
  CQKBSCode() = default;
  CQKBSCode(const CQKBSCode&) = default;
  CQKBSCode& operator=(const CQKBSCode&) = default;
  ~CQKBSCode() override = default;

  // ID 0, Name "", BSTId 0.
  void Init() override;
  ADataDef::ErrorCode DataInPut(CADataStream stream) override;
  ADataDef::ErrorCode DataOutPut(CADataStream stream) override;
  ADataDef::ErrorCode DataInPro(CADataExchange exchange) override;
  ADataDef::ErrorCode DataOutPro(CADataExchange exchange) override;

  // The verbs by name; IsExist looks in the table GetTableName gives.
  QK_DECLARE_VERBS_BY_NAME(CQKBSCode)

  // The ID of the first code named name: 0 when there is none, -1 when the query cannot run. A null
  // db is the class-wide connection as it stands: it is not opened here.
  static int HasBSCode(const wchar_t* name, CADODatabase* db);
  // Does nothing, whatever it is given; kept as an entry point for hosts.
  static void UpdateBSCodeTableData(CADODatabase* from, CADODatabase* to);

  long BSTId = 0;  // the type's ID
};
