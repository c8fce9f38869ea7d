#include "geography/CQKCountryData.h"

// Init by its own name: while this constructor runs, only this class's defaults exist.
CQKCountryData::CQKCountryData() { CQKCountryData::Init(); }

ADataDef::ErrorCode CQKCountryData::DataInPut(CADataStream stream) {
  CAData::DataInPut(stream);
  stream.ReadItem(&Name);
  stream.ReadItem(&m_lTag);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKCountryData::DataOutPut(CADataStream stream) {
  CAData::DataOutPut(stream);
  stream.WriteItem(Name);
  stream.WriteItem(m_lTag);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKCountryData::DataInPro(CADataExchange exchange) {
  CAData::DataInPro(exchange);
  exchange.ReadItem(L"Name", &Name);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKCountryData::DataOutPro(CADataExchange exchange) {
  CAData::DataOutPro(exchange);
  exchange.WriteItem(L"Name", Name);
  return ADataDef::AD_OK;
}

void CQKCountryData::Init() {
  m_lTag = 0;
  Name = L"";
}
