#include "envelope/CQKMateralData.h"

IMPLEMENT_DYNCREATE(CQKMateralData, CAData)

const unsigned long CQKMateralData::kCurrentVersionNumber = 2;

template <class Visit>
void CQKMateralData::WalkOptics(Visit&& visit) {
  visit(L"TheAbs", TheAbs);
  visit(L"SolAbs", SolAbs);
  visit(L"VisAbs", VisAbs);
  visit(L"SolarT", SolarT);
  visit(L"SolarRFront", SolarRFront);
  visit(L"SolarRBack", SolarRBack);
  visit(L"VisibleT", VisibleT);
  visit(L"VisibleRFront", VisibleRFront);
  visit(L"VisibleRBack", VisibleRBack);
  visit(L"InfraredT", InfraredT);
  visit(L"InfraredEFront", InfraredEFront);
  visit(L"InfraredEBack", InfraredEBack);
}

// InitData by name: the constructor sets this class's defaults whatever a derived Init would do.
CQKMateralData::CQKMateralData() { InitData(); }

void CQKMateralData::Init() { InitData(); }

void CQKMateralData::InitData() {
  StuffID = 0;
  GMD = 0.0;
  DrXs = 0.0;
  BRr = 0.0;
  StuffName = L"";
  Roughness = 0;
  TheAbs = 0.8;
  SolAbs = 0.8;
  VisAbs = 0.8;
  SolarT = 0.85;
  SolarRFront = 0.075;
  SolarRBack = 0.075;
  VisibleT = 0.901;
  VisibleRFront = 0.081;
  VisibleRBack = 0.081;
  InfraredT = 0.0;
  InfraredEFront = 0.84;
  InfraredEBack = 0.84;
}

ADataDef::ErrorCode CQKMateralData::Copy(const CAData* other) {
  if (other == nullptr || !other->IsKindOf(RUNTIME_CLASS(CQKMateralData))) return ADataDef::AD_INCOMPATIBLE;
  // Only the material part: a construction copied into a material gives its key and type nothing.
  *this = *static_cast<const CQKMateralData*>(other);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKMateralData::DataInPut(CADataStream stream) {
  CAData::DataInPut(stream);
  int version = 0;
  stream.ReadItem(&version);
  if (version >= 3) return ADataDef::AD_INCOMPATIBLE;
  // Versions 0, 1 and 2 hold the same items.
  stream.ReadItem(&StuffID);
  stream.ReadItem(&GMD);
  stream.ReadItem(&DrXs);
  stream.ReadItem(&BRr);
  stream.ReadItem(&StuffName);
  stream.ReadItem(&Roughness);
  WalkOptics([&stream](const wchar_t*, double& field) { stream.ReadItem(&field); });
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKMateralData::DataOutPut(CADataStream stream) {
  CAData::DataOutPut(stream);
  stream.WriteItem(static_cast<int>(kCurrentVersionNumber));
  stream.WriteItem(StuffID);
  stream.WriteItem(GMD);
  stream.WriteItem(DrXs);
  stream.WriteItem(BRr);
  stream.WriteItem(StuffName);
  stream.WriteItem(Roughness);
  WalkOptics([&stream](const wchar_t*, double& field) { stream.WriteItem(field); });
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKMateralData::DataInPro(CADataExchange exchange) {
  CAData::DataInPro(exchange);
  exchange.ReadItem(L"Id", &StuffID);
  exchange.ReadItem(L"Name", &StuffName);
  exchange.ReadItem(L"GMD", &GMD);
  exchange.ReadItem(L"DrXs", &DrXs);
  exchange.ReadItem(L"BRr", &BRr);
  exchange.ReadItem(L"Roughness", &Roughness);
  WalkOptics([&exchange](const wchar_t* name, double& field) { exchange.ReadItem(name, &field); });
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKMateralData::DataOutPro(CADataExchange exchange) {
  CAData::DataOutPro(exchange);
  exchange.WriteItem(L"Name", StuffName);
  exchange.WriteItem(L"GMD", GMD);
  exchange.WriteItem(L"DrXs", DrXs);
  exchange.WriteItem(L"BRr", BRr);
  exchange.WriteItem(L"Roughness", Roughness);
  WalkOptics([&exchange](const wchar_t* name, double& field) { exchange.WriteItem(name, field); });
  return ADataDef::AD_OK;
}

QKLoad::ErrorType CQKMateralData::SetStuffName(const wchar_t* name) {
  StuffName = name;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKMateralData::SetStuffID(long v) {
  StuffID = v;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKMateralData::SetGMD(double v) {
  GMD = v;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKMateralData::SetDrXs(double v) {
  DrXs = v;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKMateralData::SetBRr(double v) {
  BRr = v;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKMateralData::SetRoughness(int v) {
  Roughness = v;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKMateralData::SetTheAbs(double v) {
  TheAbs = v;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKMateralData::SetSolAbs(double v) {
  SolAbs = v;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKMateralData::SetVisAbs(double v) {
  VisAbs = v;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKMateralData::SetSolarT(double v) {
  SolarT = v;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKMateralData::SetSolarRFront(double v) {
  SolarRFront = v;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKMateralData::SetSolarRBack(double v) {
  SolarRBack = v;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKMateralData::SetVisibleT(double v) {
  VisibleT = v;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKMateralData::SetVisibleRFront(double v) {
  VisibleRFront = v;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKMateralData::SetVisibleRBack(double v) {
  VisibleRBack = v;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKMateralData::SetInfraredT(double v) {
  InfraredT = v;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKMateralData::SetInfraredEFront(double v) {
  InfraredEFront = v;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKMateralData::SetInfraredERBack(double v) {
  InfraredEBack = v;
  return QKLoad::ET_OK;
}
