#pragma once
// CQKCityData: the fields of a city, filed under a province by the province's ID (PId).
// Ordered stream: PId, Name, Id. Named items read: "Id", "Name", "PId"; written: "Name", "PId".
// "Id" is the row's own key column ("ID": column names ignore case), so a loaded city carries its key
// into the stream and the clipboard; it is never written back. A plain value; copies share nothing.

#include "QKExport.h"
#include "datakit/CAData.h"
#include "mfc/CString.h"

class QK_EXPORT CQKCityData : public CAData {
 public:
  CQKCityData();
  CQKCityData(const CQKCityData&) = default;
  CQKCityData& operator=(const CQKCityData&) = default;
  ~CQKCityData() override = default;

  // Each returns 0; an item that cannot be read leaves its field as it was.
  ADataDef::ErrorCode DataInPut(CADataStream stream) override;
  ADataDef::ErrorCode DataOutPut(CADataStream stream) override;
  ADataDef::ErrorCode DataInPro(CADataExchange exchange) override;
  ADataDef::ErrorCode DataOutPro(CADataExchange exchange) override;
  // PId 0, Name "", Id 0.
  void Init() override;

  long PId;      // ID of the province; (PId, Name) is the natural key
  CString Name;
  long Id;       // the row's key as last read from the table; read only
};
