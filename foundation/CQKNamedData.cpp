#include "foundation/CQKNamedData.h"

ADataDef::ErrorCode CQKNamedData::DataInPut(CADataStream stream) {
  CAData::DataInPut(stream);
  stream.ReadItem(&Name);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKNamedData::DataOutPut(CADataStream stream) {
  CAData::DataOutPut(stream);
  stream.WriteItem(Name);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKNamedData::DataInPro(CADataExchange exchange) {
  CAData::DataInPro(exchange);
  exchange.ReadItem(L"Name", &Name);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKNamedData::DataOutPro(CADataExchange exchange) {
  CAData::DataOutPro(exchange);
  exchange.WriteItem(L"Name", Name);
  return ADataDef::AD_OK;
}

void CQKNamedData::Init() { Name = L""; }
