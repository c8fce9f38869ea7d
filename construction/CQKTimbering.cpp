#include "construction/CQKTimbering.h"

#include "foundation/QKRecordVerbs.h"

QK_IMPLEMENT_RECORD_TABLE(CQKTimbering, CQKTimbering)
// The doubled blank before Name is how this query has always read; it changes nothing.
QK_IMPLEMENT_VERBS_BY_NAME(CQKTimbering, s_m_strTableName, StuffName, L"select * from %s where  Name=\"%s\"")

IMPLEMENT_DYNCREATE(CQKTimbering, CQKMateralData)

void CQKTimbering::Init() { CQKMateralData::Init(); }

ADataDef::ErrorCode CQKTimbering::Copy(const CAData* other) {
  const auto* construction = dynamic_cast<const CQKTimbering*>(other);
  if (construction == nullptr) return CQKMateralData::Copy(other);
  if (construction != this) *this = *construction;
  return ADataDef::AD_OK;
}

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

int CQKTimbering::HasTimbering(const wchar_t* name, CADODatabase* db) {
  return static_cast<int>(QKRecordVerbs::FirstIdByName(s_m_strTableName, name, db ? db : m_pADODatabase));
}

void CQKTimbering::UpdateTimberingTableData(CADODatabase*, CADODatabase*) {}
