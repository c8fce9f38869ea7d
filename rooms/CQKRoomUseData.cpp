#include "rooms/CQKRoomUseData.h"

// Init by its own name: while this constructor runs, only this class's defaults exist.
CQKRoomUseData::CQKRoomUseData() { CQKRoomUseData::Init(); }

ADataDef::ErrorCode CQKRoomUseData::DataInPut(CADataStream stream) {
  CAData::DataInPut(stream);
  stream.ReadItem(&RTId);
  stream.ReadItem(&Name);
  stream.ReadItem(&m_lTag);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKRoomUseData::DataOutPut(CADataStream stream) {
  CAData::DataOutPut(stream);
  stream.WriteItem(RTId);
  stream.WriteItem(Name);
  stream.WriteItem(m_lTag);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKRoomUseData::DataInPro(CADataExchange exchange) {
  CAData::DataInPro(exchange);
  exchange.ReadItem(L"Name", &Name);
  exchange.ReadItem(L"RTId", &RTId);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKRoomUseData::DataOutPro(CADataExchange exchange) {
  CAData::DataOutPro(exchange);
  exchange.WriteItem(L"Name", Name);
  exchange.WriteItem(L"RTId", RTId);
  return ADataDef::AD_OK;
}

void CQKRoomUseData::Init() {
  RTId = 0;
  Name = L"";
  m_lTag = 0;
}
