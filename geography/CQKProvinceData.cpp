#include "geography/CQKProvinceData.h"

// Init by its own name: while this constructor runs, only this class's defaults exist.
CQKProvinceData::CQKProvinceData() { CQKProvinceData::Init(); }

ADataDef::ErrorCode CQKProvinceData::DataInPut(CADataStream stream) {
  CAData::DataInPut(stream);
  stream.ReadItem(&CId);
  stream.ReadItem(&Name);
  stream.ReadItem(&m_lTag);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKProvinceData::DataOutPut(CADataStream stream) {
  CAData::DataOutPut(stream);
  stream.WriteItem(CId);
  stream.WriteItem(Name);
  stream.WriteItem(m_lTag);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKProvinceData::DataInPro(CADataExchange exchange) {
  CAData::DataInPro(exchange);
  exchange.ReadItem(L"Name", &Name);
  exchange.ReadItem(L"CId", &CId);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKProvinceData::DataOutPro(CADataExchange exchange) {
  CAData::DataOutPro(exchange);
  exchange.WriteItem(L"Name", Name);
  exchange.WriteItem(L"CId", CId);
  return ADataDef::AD_OK;
}

void CQKProvinceData::Init() {
  CId = 0;
  Name = L"";
  m_lTag = 0;
}
