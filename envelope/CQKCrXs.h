#pragma once
// CQKCrXs: the surface heat-transfer coefficients with which the envelope catalogue computes its walls
// (CQKBSDataAdmin::GetBSCodeCWallDataAry), in W/(m²·K). Not stored and not streamed. The five
// spare values are kept and copied; nothing in the library reads them.

#include "QKExport.h"

class QK_EXPORT CQKCrXs {
 public:
  CQKCrXs() { Init(); }
  CQKCrXs(const CQKCrXs&) = default;
  CQKCrXs& operator=(const CQKCrXs&) = default;
  virtual ~CQKCrXs() = default;

  // 18.6, 23.0, 8.7 and five zeros.
  void Init();

  double WHrXs;    // outside surface, summer
  double DjWHrXs;  // outside surface, winter
  double NHrXs;    // inside surface
  double Spare1;
  double Spare2;
  double Spare3;
  double Spare4;
  double Spare5;
};
