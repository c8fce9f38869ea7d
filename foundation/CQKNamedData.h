#pragma once
// CQKNamedData: the value part of the records that hold a name and little else: the envelope
// category, type and code, and the construction type. Ordered stream: Name. Named item: "Name". A
// plain value; the records add their parent keys after it.

#include "QKExport.h"
#include "datakit/CAData.h"
#include "mfc/CString.h"

class QK_EXPORT CQKNamedData : public CAData {
 public:
  CQKNamedData() = default;
  CQKNamedData(const CQKNamedData&) = default;
  CQKNamedData& operator=(const CQKNamedData&) = default;
  ~CQKNamedData() override = default;

  // Each returns 0; an item that cannot be read leaves Name as it was.
  ADataDef::ErrorCode DataInPut(CADataStream stream) override;
  ADataDef::ErrorCode DataOutPut(CADataStream stream) override;
  ADataDef::ErrorCode DataInPro(CADataExchange exchange) override;
  ADataDef::ErrorCode DataOutPro(CADataExchange exchange) override;
  // Name "".
  void Init() override;

  CString Name;  // the natural key of the record's table
};
