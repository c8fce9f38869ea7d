#include "geography/CQKCityData.h"

// Init by its own name: while this constructor runs, only this class's defaults exist.
CQKCityData::CQKCityData() { CQKCityData::Init(); }

ADataDef::ErrorCode CQKCityData::DataInPut(CADataStream stream) {
  CAData::DataInPut(stream);
  stream.ReadItem(&PId);
  stream.ReadItem(&Name);
  stream.ReadItem(&Id);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKCityData::DataOutPut(CADataStream stream) {
  CAData::DataOutPut(stream);
  stream.WriteItem(PId);
  stream.WriteItem(Name);
  stream.WriteItem(Id);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKCityData::DataInPro(CADataExchange exchange) {
  CAData::DataInPro(exchange);
  exchange.ReadItem(L"Id", &Id);
  exchange.ReadItem(L"Name", &Name);
  exchange.ReadItem(L"PId", &PId);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKCityData::DataOutPro(CADataExchange exchange) {
  CAData::DataOutPro(exchange);
  exchange.WriteItem(L"Name", Name);
  exchange.WriteItem(L"PId", PId);
  return ADataDef::AD_OK;
}

void CQKCityData::Init() {
  PId = 0;
  Name = L"";
  Id = 0;
}
