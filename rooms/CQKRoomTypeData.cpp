#include "rooms/CQKRoomTypeData.h"

// Init by its own name: while this constructor runs, only this class's defaults exist.
CQKRoomTypeData::CQKRoomTypeData() { CQKRoomTypeData::Init(); }

ADataDef::ErrorCode CQKRoomTypeData::DataInPut(CADataStream stream) {
  CAData::DataInPut(stream);
  stream.ReadItem(&m_lTag);
  stream.ReadItem(&Name);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKRoomTypeData::DataOutPut(CADataStream stream) {
  CAData::DataOutPut(stream);
  stream.WriteItem(m_lTag);
  stream.WriteItem(Name);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKRoomTypeData::DataInPro(CADataExchange exchange) {
  CAData::DataInPro(exchange);
  exchange.ReadItem(L"Name", &Name);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKRoomTypeData::DataOutPro(CADataExchange exchange) {
  CAData::DataOutPro(exchange);
  exchange.WriteItem(L"Name", Name);
  return ADataDef::AD_OK;
}

void CQKRoomTypeData::Init() {
  m_lTag = 0;
  Name = L"";
}
