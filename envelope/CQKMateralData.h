#pragma once
// CQKMateralData: a building material: its thermophysical properties, which give the heat conduction
// through a layer, and its surface optical properties (absorptance, transmittance, reflectance,
// emissivity), which give its radiation. A plain value, creatable by class name. A construction
// (CQKTimbering) is a material with a row key, so the catalogue's bounding structures keep their
// layers as materials.
//
// The optical defaults are those of clear glass even for an opaque material; values read from the
// database or a stream replace them. Setters store what they are given (no range check) and return
// ET_OK.
//
// Stream: version 2, StuffID, GMD, DrXs, BRr, StuffName, Roughness, then the twelve optical values.
// A stream of version 3 or newer is refused (23) before any field is read.
// Named items: "Name", "GMD", "DrXs", "BRr", "Roughness", then the optical values under their field
// names. Reading also takes "Id" into StuffID and writing never gives it: loaded through the
// construction record, the row key becomes the material's identity without being written back as a
// column of its own.

#include "QKExport.h"
#include "datakit/CAData.h"
#include "foundation/QKLoad.h"
#include "mfc/CString.h"

class QK_EXPORT CQKMateralData : public CAData {
  DECLARE_DYNCREATE(CQKMateralData)

 public:
  CQKMateralData();
  CQKMateralData(const CQKMateralData&) = default;
  CQKMateralData& operator=(const CQKMateralData&) = default;
  ~CQKMateralData() override = default;

  // Assigns the material part of other (a CQKMateralData or any class derived from it, a
  // construction included); 23 and nothing changed for any other class or a null other.
  ADataDef::ErrorCode Copy(const CAData* other) override;
  // Back to the defaults.
  void Init() override;
  // 23 for a stream of version 3 or newer (nothing read past the version), else 0.
  ADataDef::ErrorCode DataInPut(CADataStream stream) override;
  ADataDef::ErrorCode DataOutPut(CADataStream stream) override;
  ADataDef::ErrorCode DataInPro(CADataExchange exchange) override;
  ADataDef::ErrorCode DataOutPro(CADataExchange exchange) override;

  long GetStuffID() const { return StuffID; }
  QKLoad::ErrorType SetStuffID(long id);
  CString GetStuffName() { return StuffName; }
  QKLoad::ErrorType SetStuffName(const wchar_t* name);
  double GetGMD() const { return GMD; }
  QKLoad::ErrorType SetGMD(double v);
  double GetDrXs() const { return DrXs; }
  QKLoad::ErrorType SetDrXs(double v);
  double GetBRr() const { return BRr; }
  QKLoad::ErrorType SetBRr(double v);
  int GetRoughness() const { return Roughness; }
  QKLoad::ErrorType SetRoughness(int v);
  double GetTheAbs() const { return TheAbs; }
  QKLoad::ErrorType SetTheAbs(double v);
  double GetSolAbs() const { return SolAbs; }
  QKLoad::ErrorType SetSolAbs(double v);
  double GetVisAbs() const { return VisAbs; }
  QKLoad::ErrorType SetVisAbs(double v);
  double GetSolarT() const { return SolarT; }
  QKLoad::ErrorType SetSolarT(double v);
  double GetSolarRFront() const { return SolarRFront; }
  QKLoad::ErrorType SetSolarRFront(double v);
  double GetSolarRBack() const { return SolarRBack; }
  QKLoad::ErrorType SetSolarRBack(double v);
  double GetVisibleT() const { return VisibleT; }
  QKLoad::ErrorType SetVisibleT(double v);
  double GetVisibleRFront() const { return VisibleRFront; }
  QKLoad::ErrorType SetVisibleRFront(double v);
  double GetVisibleRBack() const { return VisibleRBack; }
  QKLoad::ErrorType SetVisibleRBack(double v);
  double GetInfraredT() const { return InfraredT; }
  QKLoad::ErrorType SetInfraredT(double v);
  double GetInfraredEFront() const { return InfraredEFront; }
  QKLoad::ErrorType SetInfraredEFront(double v);
  double GetInfraredEBack() const { return InfraredEBack; }
  QKLoad::ErrorType SetInfraredERBack(double v);  // the setter of InfraredEBack, so spelled

  // The stream version DataOutPut writes.
  static const unsigned long kCurrentVersionNumber;

 protected:
  long StuffID;          // identity; a construction's row key when loaded through the record
  double GMD;            // density, kg/m³
  double DrXs;           // thermal conductivity, W/(m·K)
  double BRr;            // specific heat, kJ/(kg·K)
  CString StuffName;
  int Roughness;         // surface roughness class
  double TheAbs;         // thermal absorptance
  double SolAbs;         // solar absorptance
  double VisAbs;         // visible absorptance
  double SolarT;         // solar transmittance
  double SolarRFront;    // solar reflectance, front side
  double SolarRBack;     // solar reflectance, back side
  double VisibleT;       // visible transmittance
  double VisibleRFront;  // visible reflectance, front side
  double VisibleRBack;   // visible reflectance, back side
  double InfraredT;      // infrared transmittance
  double InfraredEFront; // infrared emissivity, front side
  double InfraredEBack;  // infrared emissivity, back side

 private:
  void InitData();
  // Visits the twelve optical values with their item names, in stream and exchange order.
  template <class Visit>
  void WalkOptics(Visit&& visit);
};
