#include "construction/CQKTimbering.h"

#include "foundation/QKRecordVerbs.h"

QK_IMPLEMENT_RECORD_TABLE(CQKTimbering, CQKTimbering)

CQKTimbering CQKTimbering::KeyProbe() const {
  CQKTimbering probe;
  probe.StuffName = StuffName;
  return probe;
}

void CQKTimbering::Init() { CQKMateralData::Init(); }

ADataDef::ErrorCode CQKTimbering::DataInPut(CADataStream stream) {
  const ADataDef::ErrorCode material = CQKMateralData::DataInPut(stream);
  if (material != ADataDef::AD_OK) return material;
  stream.ReadItem(&TTId);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKTimbering::DataOutPut(CADataStream stream) {
  CQKMateralData::DataOutPut(stream);
  stream.WriteItem(TTId);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKTimbering::DataInPro(CADataExchange exchange) {
  CQKMateralData::DataInPro(exchange);
  exchange.ReadItem(L"TTId", &TTId);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKTimbering::DataOutPro(CADataExchange exchange) {
  CQKMateralData::DataOutPro(exchange);
  exchange.WriteItem(L"TTId", TTId);
  return ADataDef::AD_OK;
}

QKLoad::DBStatusCode CQKTimbering::IsExist(CADODatabase* db) {
  CString sql;
  // The doubled blank before Name is how this query has always read; it changes nothing. The class
  // table, not the virtual GetTableName: a subclass that redirects its row operations still looks
  // the name up where the catalogue keeps its constructions.
  sql.Format(L"select * from %s where  Name=\"%s\"", s_m_strTableName.GetString(), StuffName.GetString());
  return QKRecordVerbs::LoadFirst(*this, sql, db);
}

QKLoad::DBStatusCode CQKTimbering::AddIfNotExist(CADODatabase* db, int bTakeExisting) {
  return QKRecordVerbs::AddIfNotExist(*this, KeyProbe(), db, bTakeExisting);
}

QKLoad::DBStatusCode CQKTimbering::UpdateIfNoOther(CADODatabase* db, int bTakeOther) {
  return QKRecordVerbs::UpdateIfNoOther(*this, KeyProbe(), db, bTakeOther);
}

int CQKTimbering::HasTimbering(const wchar_t* name, CADODatabase* db) {
  return static_cast<int>(QKRecordVerbs::FirstIdByName(s_m_strTableName, name, db ? db : m_pADODatabase));
}

void CQKTimbering::UpdateTimberingTableData(CADODatabase*, CADODatabase*) {}
