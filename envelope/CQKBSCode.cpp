#include "envelope/CQKBSCode.h"

#include "foundation/QKRecordVerbs.h"

QK_IMPLEMENT_RECORD_TABLE(CQKBSCode, CQKNamedData)
QK_IMPLEMENT_VERBS_BY_NAME(CQKBSCode, GetTableName(), Name, L"select * from %s where Name=\"%s\"")

void CQKBSCode::Init() {
  ID = 0;
  CQKNamedData::Init();
  BSTId = 0;
}

ADataDef::ErrorCode CQKBSCode::DataInPut(CADataStream stream) {
  CQKNamedData::DataInPut(stream);
  stream.ReadItem(&BSTId);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKBSCode::DataOutPut(CADataStream stream) {
  CQKNamedData::DataOutPut(stream);
  stream.WriteItem(BSTId);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKBSCode::DataInPro(CADataExchange exchange) {
  CQKNamedData::DataInPro(exchange);
  exchange.ReadItem(L"BSTId", &BSTId);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKBSCode::DataOutPro(CADataExchange exchange) {
  CQKNamedData::DataOutPro(exchange);
  exchange.WriteItem(L"BSTId", BSTId);
  return ADataDef::AD_OK;
}

int CQKBSCode::HasBSCode(const wchar_t* name, CADODatabase* db) {
  return static_cast<int>(QKRecordVerbs::FirstIdByName(s_m_strTableName, name, db ? db : m_pADODatabase));
}

void CQKBSCode::UpdateBSCodeTableData(CADODatabase*, CADODatabase*) {}
