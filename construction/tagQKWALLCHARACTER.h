#pragma once
// tagQKWALLCHARACTER: a wall (or roof, floor) as a list of layers between two surface coefficients,
// and the calculation of its thermal characteristics (tagQKWALL) from them: U, and by the harmonic
// and response-factor methods the decrement, the delay, 12 harmonics and 24 hourly response terms.
//
// Layer 0 is the outside face, the last layer the inside face. A layer whose volumetric heat capacity
// ρ·b·c/3.6 is at most 1e-9 W·h/(m³·K) is mass-less (an air gap): its conductivity field then holds its
// conductance and its thickness is ignored. Results are as fresh as the last call that recalculated:
// setters recalculate only when asked, so set several inputs with false and the last with true.
// Units: m, kg/m³, W/(m·K), kJ/(kg·K), W/(m²·K), h.

#include "QKExport.h"
#include "construction/CQKTheroyArray.h"
#include "construction/tagQKTIMBERINGCHARACTER.h"
#include "construction/tagQKWALL.h"

using CQKLayerArray = CQKTheroyArray<tagQKTIMBERINGCHARACTER>;

struct QK_EXPORT tagQKWALLCHARACTER : public tagQKWALL {
  tagQKWALLCHARACTER() = default;
  tagQKWALLCHARACTER(const tagQKWALLCHARACTER&) = default;
  tagQKWALLCHARACTER& operator=(const tagQKWALLCHARACTER&) = default;
  ~tagQKWALLCHARACTER() override = default;

  // Stream: the results, NHrXs, WHrXs, a 32-bit layer count and each layer; reading appends the layers
  // read to the list. A negative count, or one the rest of the stream cannot hold, reads no layer and
  // gives AD_BADCOUNT; a layer of a newer format stops the reading with its 23. Exchange: the results'
  // names, then "An" and "Aw".
  ADataDef::ErrorCode DataInPut(CADataStream stream) override;
  ADataDef::ErrorCode DataOutPut(CADataStream stream) override;
  ADataDef::ErrorCode DataInPro(CADataExchange exchange) override;
  ADataDef::ErrorCode DataOutPro(CADataExchange exchange) override;

  // Store a surface coefficient and, when bCal is true, recalculate (nuxi, then RESP). Always true.
  bool SetNHrXs(double value, bool bCal);
  double GetNHrXs() const { return NHrXs; }
  bool SetWHrXs(double value, bool bCal);
  double GetWHrXs() const { return WHrXs; }

  // Replaces the layers with a copy of layers; recalculates when bCal is true.
  void SetTimberingData(const CQKLayerArray& layers, bool bCal);
  CQKLayerArray GetTimberingData() const { return m_arrTimbering; }
  // Reverses the layers in place, to use the construction from its other face.
  void InversionTimbering(bool bCal);

  // U of the layers between an outside and an inside surface coefficient, 1/ΣR, W/(m²·K).
  static double K(const CQKLayerArray& layers, double outside, double inside);
  // Thermal inertia index: the sum of the layers' GetD (no surfaces).
  static double D(const CQKLayerArray& layers);
  // Sets the thickness of the layer with the smallest λ·a (the first of equals) so that the wall
  // reaches targetK; coefficients ≤ 0 are left out of the resistance. Returns that index, or -1 for
  // no layers. The thickness may come out negative when the others alone resist too much.
  static int Thick(CQKLayerArray& layers, double targetK, double coefficient1, double coefficient2);
  // As Thick, but in order of ascending λ·a: a layer that would need a thickness ≤ 0 is set to
  // 0.0001 m and the next one is tried, on the thicknesses as already changed.
  static void ThickEx(CQKLayerArray& layers, double targetK, double coefficient1, double coefficient2);

  double NHrXs = 8.7;   // inside surface coefficient α_i, W/(m²·K); item "An"
  double WHrXs = 18.6;  // outside surface coefficient α_e, W/(m²·K); item "Aw"

 protected:
  // The layers with the outside surface (conductance WHrXs) first and the inside one (NHrXs) last.
  void ModifyAirFloorWall(CQKLayerArray& working) const;
  // U, the harmonics, the decrement and delay, and response array 1. A wall without layers, or
  // without massive ones, gets CrXs only; the rest stays as it was.
  void nuxi();
  // Response arrays 2 to 4 (after nuxi, which it does not repeat).
  void RESP();
  // What a setter asked to recalculate runs: the results of nuxi then RESP, bit for bit, with the
  // work the two have in common done once and their root searches run side by side.
  void Recalculate();

  CQKLayerArray m_arrTimbering;  // index 0 outside
};
