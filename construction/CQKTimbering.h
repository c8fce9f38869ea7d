#pragma once
// CQKTimbering: a construction as a row of the construction table: a material (its value part comes
// first) with the row key and the construction type it belongs to (TTId). The row carries the
// material's named items as columns, plus "TTId"; reading a row also takes its key into StuffID
// (the material's "Id" item), so a loaded construction names itself in both.
//
// The natural key is the material name alone: two constructions of one name in different types are
// one construction to IsExist, AddIfNotExist and UpdateIfNoOther. Names go into the SQL between
// double quotes without escaping: a name holding a double quote fails its query and writes nothing.
// Not safe for concurrent use.
//
// Stream: the material's stream, then TTId. Named items: the material's, then "TTId". Creatable by
// class name, so Clone gives a whole construction.

#include "QKExport.h"
#include "envelope/CQKMateralData.h"
#include "foundation/QKLoad.h"
#include "foundation/QKRecordTable.h"
#include "tablekit/tagDBSTRUCT.h"

class QK_EXPORT CQKTimbering : public CQKMateralData, public tagDBSTRUCT {
  QK_DECLARE_RECORD_TABLE(CQKTimbering)
  DECLARE_DYNCREATE(CQKTimbering)

 public:
  CQKTimbering() = default;
  CQKTimbering(const CQKTimbering&) = default;
  CQKTimbering& operator=(const CQKTimbering&) = default;
  ~CQKTimbering() override = default;

  // The material's defaults; the key and TTId stay as they are.
  void Init() override;
  // From another construction: the whole record, key and TTId included. From any other material: its
  // material part only (the key and TTId stay). 23 for any other class or a null other.
  ADataDef::ErrorCode Copy(const CAData* other) override;
  // The material's result (23 for a newer material format, and TTId then stays unread), else 0.
  ADataDef::ErrorCode DataInPut(CADataStream stream) override;
  ADataDef::ErrorCode DataOutPut(CADataStream stream) override;
  ADataDef::ErrorCode DataInPro(CADataExchange exchange) override;
  ADataDef::ErrorCode DataOutPro(CADataExchange exchange) override;

  // The verbs by name; IsExist looks in the class table (s_m_strTableName), whatever a subclass's
  // GetTableName says.
  QK_DECLARE_VERBS_BY_NAME(CQKTimbering)

  // The ID of the first construction named name: 0 when there is none, -1 when the query cannot run.
  // A null db is the class-wide connection as it stands: it is not opened here.
  static int HasTimbering(const wchar_t* name, CADODatabase* db);
  // Does nothing, whatever it is given; kept as an entry point for hosts.
  static void UpdateTimberingTableData(CADODatabase* from, CADODatabase* to);

  // The construction type; 0 until set or read (Init leaves it alone).
  int TTId = 0;
};
