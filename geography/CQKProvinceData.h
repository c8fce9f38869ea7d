#pragma once
// CQKProvinceData: the fields of a province, filed under a country by the country's ID (CId).
// Ordered stream: CId, Name, m_lTag. Named items (the table's columns besides "ID"): "Name", "CId".
// A plain value; copies share nothing.

#include "QKExport.h"
#include "datakit/CAData.h"
#include "mfc/CString.h"

class QK_EXPORT CQKProvinceData : public CAData {
 public:
  CQKProvinceData();
  CQKProvinceData(const CQKProvinceData&) = default;
  CQKProvinceData& operator=(const CQKProvinceData&) = default;
  ~CQKProvinceData() override = default;

  // Each returns 0; an item that cannot be read leaves its field as it was.
  ADataDef::ErrorCode DataInPut(CADataStream stream) override;
  ADataDef::ErrorCode DataOutPut(CADataStream stream) override;
  ADataDef::ErrorCode DataInPro(CADataExchange exchange) override;
  ADataDef::ErrorCode DataOutPro(CADataExchange exchange) override;
  // CId 0, Name "", m_lTag 0.
  void Init() override;

  long CId;      // ID of the country; (CId, Name) is the natural key
  CString Name;
  long m_lTag;   // travels in the ordered stream only; not a column
};
