#pragma once
// CQKRoomTypeData: a room type (office, ward, classroom...), the upper level of the room
// classification. Ordered stream: m_lTag, Name. Named item: "Name". A plain value.

#include "QKExport.h"
#include "datakit/CAData.h"
#include "mfc/CString.h"

class QK_EXPORT CQKRoomTypeData : public CAData {
 public:
  CQKRoomTypeData();
  CQKRoomTypeData(const CQKRoomTypeData&) = default;
  CQKRoomTypeData& operator=(const CQKRoomTypeData&) = default;
  ~CQKRoomTypeData() override = default;

  // Each returns 0; an item that cannot be read leaves its field as it was.
  ADataDef::ErrorCode DataInPut(CADataStream stream) override;
  ADataDef::ErrorCode DataOutPut(CADataStream stream) override;
  ADataDef::ErrorCode DataInPro(CADataExchange exchange) override;
  ADataDef::ErrorCode DataOutPro(CADataExchange exchange) override;
  // m_lTag 0, Name "".
  void Init() override;

  long m_lTag;   // travels in the ordered stream only; not a column
  CString Name;  // the natural key of the room-type table
};
