#pragma once
// CQKCountryData: the fields of a country, the top level of the geography under which design
// weather is filed. It knows nothing of databases: it writes itself to an ordered stream (Name,
// m_lTag) and to a named exchange ("Name", the table's one column besides "ID").
// A plain value; copies share nothing.

#include "QKExport.h"
#include "datakit/CAData.h"
#include "mfc/CString.h"

class QK_EXPORT CQKCountryData : public CAData {
 public:
  CQKCountryData();
  CQKCountryData(const CQKCountryData&) = default;
  CQKCountryData& operator=(const CQKCountryData&) = default;
  ~CQKCountryData() override = default;

  // Each returns 0; an item that cannot be read leaves its field as it was.
  ADataDef::ErrorCode DataInPut(CADataStream stream) override;
  ADataDef::ErrorCode DataOutPut(CADataStream stream) override;
  ADataDef::ErrorCode DataInPro(CADataExchange exchange) override;
  ADataDef::ErrorCode DataOutPro(CADataExchange exchange) override;
  // Name "" and m_lTag 0.
  void Init() override;

  CString Name;  // the natural key of the country's table
  long m_lTag;   // travels in the ordered stream only; not a column
};
