#pragma once
// tagQKWALL: the thermal characteristics of a wall as its calculation leaves them: the steady
// heat-transfer coefficient, the decrement and delay of the daily outside temperature wave, the
// first twelve harmonics of the daily period, and 24 hourly response terms for load calculation.
// A plain value; tagQKWALLCHARACTER computes it.
//
// Ordered stream: CrXs, CrSj, CrYc, the four harmonic arrays interleaved element by element, then the
// four response arrays the same way. Named exchange: "CrXs", "CrSj", "CrYc" only.

#include "QKExport.h"
#include "datakit/CAData.h"

struct QK_EXPORT tagQKWALL : public CAData {
  tagQKWALL() = default;
  tagQKWALL(const tagQKWALL&) = default;
  tagQKWALL& operator=(const tagQKWALL&) = default;
  ~tagQKWALL() override = default;

  // Each returns 0; an item that cannot be read leaves its field as it was.
  ADataDef::ErrorCode DataInPut(CADataStream stream) override;
  ADataDef::ErrorCode DataOutPut(CADataStream stream) override;
  ADataDef::ErrorCode DataInPro(CADataExchange exchange) override;
  ADataDef::ErrorCode DataOutPro(CADataExchange exchange) override;

  double CrXs = 0.0;  // heat-transfer coefficient U with both surface resistances, W/(m²·K)
  double CrSj = 0.0;  // decrement factor of the 24-hour outside temperature wave
  double CrYc = 0.0;  // delay of that wave, h

  // Harmonic n = 1..12 of the daily period (index n - 1), from the wall's transfer element B_n:
  double Harmonic1[12] = {};  // attenuation multiple CrXs·|B_n| (the inverse of the decrement)
  double Harmonic2[12] = {};  // phase of B_n, rad in [0, 2π)
  double Harmonic3[12] = {};  // 1/|W_n|, W_n the inside-surface response
  double Harmonic4[12] = {};  // phase of W_n, rad in [0, 2π)

  // Hourly terms j = 0..23, periodic over 24 h, for a triangular pulse of one hour's rise and fall:
  double Response1[24] = {};  // inside-surface response
  double Response2[24] = {};  // through-wall response divided by CrXs (the terms sum to 1)
  double Response3[24] = {};  // inside-surface response to the ramp sums
  double Response4[24] = {};  // inside-surface response to the step sums
};
