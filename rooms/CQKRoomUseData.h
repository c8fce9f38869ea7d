#pragma once
// CQKRoomUseData: a room use (open-plan office, single ward...), filed under a room type by the type's
// ID (RTId). Ordered stream: RTId, Name, m_lTag. Named items: "Name", "RTId". A plain value.

#include "QKExport.h"
#include "datakit/CAData.h"
#include "mfc/CString.h"

class QK_EXPORT CQKRoomUseData : public CAData {
 public:
  CQKRoomUseData();
  CQKRoomUseData(const CQKRoomUseData&) = default;
  CQKRoomUseData& operator=(const CQKRoomUseData&) = default;
  ~CQKRoomUseData() override = default;

  // Each returns 0; an item that cannot be read leaves its field as it was.
  ADataDef::ErrorCode DataInPut(CADataStream stream) override;
  ADataDef::ErrorCode DataOutPut(CADataStream stream) override;
  ADataDef::ErrorCode DataInPro(CADataExchange exchange) override;
  ADataDef::ErrorCode DataOutPro(CADataExchange exchange) override;
  // RTId 0, Name "", m_lTag 0.
  void Init() override;

  long RTId;     // ID of the room type; (RTId, Name) is the natural key
  CString Name;
  long m_lTag;   // travels in the ordered stream only; not a column
};
