#include "construction/CQKStuTimeberingName.h"

ADataDef::ErrorCode CQKStuTimeberingName::DataInPut(CADataStream stream) {
  CAData::DataInPut(stream);
  stream.ReadItem(&TimberingID);
  stream.ReadItem(&TimberingName);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKStuTimeberingName::DataOutPut(CADataStream stream) {
  CAData::DataOutPut(stream);
  stream.WriteItem(TimberingID);
  stream.WriteItem(TimberingName);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKStuTimeberingName::DataInPro(CADataExchange exchange) {
  CAData::DataInPro(exchange);
  exchange.ReadItem(L"TimberingID", &TimberingID);
  exchange.ReadItem(L"TimberingName", &TimberingName);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKStuTimeberingName::DataOutPro(CADataExchange exchange) {
  CAData::DataOutPro(exchange);
  exchange.WriteItem(L"TimberingID", TimberingID);
  exchange.WriteItem(L"TimberingName", TimberingName);
  return ADataDef::AD_OK;
}
