#pragma once
// CQKStuTimeberingName: which catalogue material a layer is made of, by its ID and name. ID -1 and an
// empty name stand for no material. A plain value.

#include "QKExport.h"
#include "datakit/CAData.h"
#include "mfc/CString.h"

class QK_EXPORT CQKStuTimeberingName : public CAData {
 public:
  CQKStuTimeberingName() = default;
  CQKStuTimeberingName(const CQKStuTimeberingName&) = default;
  CQKStuTimeberingName& operator=(const CQKStuTimeberingName&) = default;
  ~CQKStuTimeberingName() override = default;

  // Stream: the ID, then the name. Items "TimberingID", "TimberingName". Each returns 0.
  ADataDef::ErrorCode DataInPut(CADataStream stream) override;
  ADataDef::ErrorCode DataOutPut(CADataStream stream) override;
  ADataDef::ErrorCode DataInPro(CADataExchange exchange) override;
  ADataDef::ErrorCode DataOutPro(CADataExchange exchange) override;

  int TimberingID = -1;
  CString TimberingName;
};
