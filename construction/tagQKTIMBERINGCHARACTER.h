#pragma once
// tagQKTIMBERINGCHARACTER: one construction layer as the wall calculation sees it: thickness,
// density, conductivity, specific heat, their two correction factors, and the surface and optical
// properties the load programs read. A plain value: copies share nothing.
//
// Units: thickness m, density kg/m³, conductivity W/(m·K) (for a mass-less layer, an air gap or a
// surface, its conductance W/(m²·K)), specific heat kJ/(kg·K).
//
// The ordered stream begins with a format version (2). Reading refuses a newer version (23) and then
// leaves the layer as it was, so a later format is never misread.

#include "QKExport.h"
#include "datakit/CAData.h"

struct QK_EXPORT tagQKTIMBERINGCHARACTER : public CAData {
  // Thickness, density, conductivity and specific heat 0, corrections 1.0, roughness 1, and the
  // optical defaults of a clear single pane.
  tagQKTIMBERINGCHARACTER();
  // The arguments come in this order, not the fields' order: conductivity before density.
  tagQKTIMBERINGCHARACTER(double thick, double drXs, double bRr, double gMD, double drXsXz, double gMCXz,
                          int roughness, double theAbs, double solAbs, double visAbs, double solarT,
                          double solarRFront, double solarRBack, double visibleT, double visibleRFront,
                          double visibleRBack, double infraredT, double infraredEFront, double infraredEBack);
  tagQKTIMBERINGCHARACTER(const tagQKTIMBERINGCHARACTER&) = default;
  tagQKTIMBERINGCHARACTER& operator=(const tagQKTIMBERINGCHARACTER&) = default;
  ~tagQKTIMBERINGCHARACTER() override = default;

  // 0, or 23 (nothing read after the version) for a stream of a newer format.
  ADataDef::ErrorCode DataInPut(CADataStream stream) override;
  ADataDef::ErrorCode DataOutPut(CADataStream stream) override;
  ADataDef::ErrorCode DataInPro(CADataExchange exchange) override;
  ADataDef::ErrorCode DataOutPro(CADataExchange exchange) override;

  // Thermal resistance Thick / (DrXs·DrXsXz), m²·K/W; -1.0 when the corrected conductivity is not
  // positive.
  double GetRZ() const;
  // Heat storage coefficient for the 24-hour period, √(2π·λ·a·c·ρ / 86.4), W/(m²·K). It leaves out the
  // density correction GMCXz, which the periodic wall calculation does apply.
  double GetS() const;
  // Thermal inertia index GetRZ()·GetS() (so -S for a layer without conductivity).
  double GetD() const;

  double Thick;          // m
  double GMD;            // density, kg/m³
  double DrXs;           // conductivity λ, W/(m·K); conductance of a mass-less layer, W/(m²·K)
  double BRr;            // specific heat, kJ/(kg·K)
  double DrXsXz;         // correction factor of the conductivity
  double GMCXz;          // correction factor of the density, in the periodic calculation
  int Roughness;         // surface roughness class
  double TheAbs;         // long-wave absorptance
  double SolAbs;         // solar absorptance
  double VisAbs;         // visible absorptance
  double SolarT;         // solar transmittance
  double SolarRFront;    // solar reflectance, front
  double SolarRBack;     // solar reflectance, back
  double VisibleT;       // visible transmittance
  double VisibleRFront;  // visible reflectance, front
  double VisibleRBack;   // visible reflectance, back
  double InfraredT;      // infrared transmittance
  double InfraredEFront; // infrared emissivity, front
  double InfraredEBack;  // infrared emissivity, back
};
