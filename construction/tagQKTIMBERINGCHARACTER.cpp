#include "construction/tagQKTIMBERINGCHARACTER.h"

#include <cmath>

namespace {

constexpr int kStreamVersion = 2;
constexpr double kTwoPi = 6.283185307179586;
constexpr double kDailyPeriodFactor = 86.4;  // 3.6 · 24: the 24-hour period, with c in kJ/(kg·K)

// The 19 fields with their item names, in field order (the stream's and the exchange's).
template <class Visit>
void WalkFields(tagQKTIMBERINGCHARACTER& t, Visit&& v) {
  v(L"Thick", t.Thick);
  v(L"GMD", t.GMD);
  v(L"DrXs", t.DrXs);
  v(L"BRr", t.BRr);
  v(L"DrXsXz", t.DrXsXz);
  v(L"GMCXz", t.GMCXz);
  v(L"Roughness", t.Roughness);
  v(L"TheAbs", t.TheAbs);
  v(L"SolAbs", t.SolAbs);
  v(L"VisAbs", t.VisAbs);
  v(L"SolarT", t.SolarT);
  v(L"SolarRFront", t.SolarRFront);
  v(L"SolarRBack", t.SolarRBack);
  v(L"VisibleT", t.VisibleT);
  v(L"VisibleRFront", t.VisibleRFront);
  v(L"VisibleRBack", t.VisibleRBack);
  v(L"InfraredT", t.InfraredT);
  v(L"InfraredEFront", t.InfraredEFront);
  v(L"InfraredEBack", t.InfraredEBack);
}

}  // namespace

tagQKTIMBERINGCHARACTER::tagQKTIMBERINGCHARACTER()
    : tagQKTIMBERINGCHARACTER(0.0, 0.0, 0.0, 0.0, 1.0, 1.0, 1, 0.9, 0.7, 0.7, 0.85, 0.075, 0.075, 0.901, 0.081,
                              0.081, 0.0, 0.84, 0.84) {}

tagQKTIMBERINGCHARACTER::tagQKTIMBERINGCHARACTER(double thick, double drXs, double bRr, double gMD, double drXsXz,
                                                 double gMCXz, int roughness, double theAbs, double solAbs,
                                                 double visAbs, double solarT, double solarRFront,
                                                 double solarRBack, double visibleT, double visibleRFront,
                                                 double visibleRBack, double infraredT, double infraredEFront,
                                                 double infraredEBack)
    : Thick(thick),
      GMD(gMD),
      DrXs(drXs),
      BRr(bRr),
      DrXsXz(drXsXz),
      GMCXz(gMCXz),
      Roughness(roughness),
      TheAbs(theAbs),
      SolAbs(solAbs),
      VisAbs(visAbs),
      SolarT(solarT),
      SolarRFront(solarRFront),
      SolarRBack(solarRBack),
      VisibleT(visibleT),
      VisibleRFront(visibleRFront),
      VisibleRBack(visibleRBack),
      InfraredT(infraredT),
      InfraredEFront(infraredEFront),
      InfraredEBack(infraredEBack) {}

ADataDef::ErrorCode tagQKTIMBERINGCHARACTER::DataInPut(CADataStream stream) {
  CAData::DataInPut(stream);
  int version = 0;
  stream.ReadItem(&version);
  if (version > kStreamVersion) return ADataDef::AD_INCOMPATIBLE;
  WalkFields(*this, [&stream](const wchar_t*, auto& field) { stream.ReadItem(&field); });
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode tagQKTIMBERINGCHARACTER::DataOutPut(CADataStream stream) {
  CAData::DataOutPut(stream);
  stream.WriteItem(kStreamVersion);
  WalkFields(*this, [&stream](const wchar_t*, auto& field) { stream.WriteItem(field); });
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode tagQKTIMBERINGCHARACTER::DataInPro(CADataExchange exchange) {
  CAData::DataInPro(exchange);
  WalkFields(*this, [&exchange](const wchar_t* name, auto& field) { exchange.ReadItem(name, &field); });
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode tagQKTIMBERINGCHARACTER::DataOutPro(CADataExchange exchange) {
  CAData::DataOutPro(exchange);
  WalkFields(*this, [&exchange](const wchar_t* name, auto& field) { exchange.WriteItem(name, field); });
  return ADataDef::AD_OK;
}

double tagQKTIMBERINGCHARACTER::GetRZ() const {
  const double conductivity = DrXs * DrXsXz;
  return conductivity > 0.0 ? Thick / conductivity : -1.0;
}

double tagQKTIMBERINGCHARACTER::GetS() const {
  return std::sqrt(kTwoPi * DrXs * DrXsXz * BRr * GMD / kDailyPeriodFactor);
}

double tagQKTIMBERINGCHARACTER::GetD() const { return GetRZ() * GetS(); }
