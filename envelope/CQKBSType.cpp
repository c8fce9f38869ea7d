#include "envelope/CQKBSType.h"

#include "foundation/QKRecordVerbs.h"

QK_IMPLEMENT_RECORD_TABLE(CQKBSType, CQKNamedData)
QK_IMPLEMENT_VERBS_BY_NAME(CQKBSType, GetTableName(), Name, L"select * from %s where Name=\"%s\"")

void CQKBSType::Init() {
  ID = 0;
  CQKNamedData::Init();
  BSDLId = 0;
}

ADataDef::ErrorCode CQKBSType::DataInPut(CADataStream stream) {
  CQKNamedData::DataInPut(stream);
  stream.ReadItem(&BSDLId);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKBSType::DataOutPut(CADataStream stream) {
  CQKNamedData::DataOutPut(stream);
  stream.WriteItem(BSDLId);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKBSType::DataInPro(CADataExchange exchange) {
  CQKNamedData::DataInPro(exchange);
  exchange.ReadItem(L"BSDLId", &BSDLId);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKBSType::DataOutPro(CADataExchange exchange) {
  CQKNamedData::DataOutPro(exchange);
  exchange.WriteItem(L"BSDLId", BSDLId);
  return ADataDef::AD_OK;
}

