#include "construction/CQKTimberingData.h"

IMPLEMENT_DYNCREATE(CQKTimberingData, CAData)

void CQKTimberingData::Init() { InitData(); }

void CQKTimberingData::InitData() {
  m_Timber = tagQKTIMBERINGCHARACTER();
  m_Name = CQKStuTimeberingName();
}

ADataDef::ErrorCode CQKTimberingData::DataInPut(CADataStream stream) {
  CAData::DataInPut(stream);
  const ADataDef::ErrorCode result = m_Timber.DataInPut(stream);
  if (result != ADataDef::AD_OK) return result;
  return m_Name.DataInPut(stream);
}

ADataDef::ErrorCode CQKTimberingData::DataOutPut(CADataStream stream) {
  CAData::DataOutPut(stream);
  m_Timber.DataOutPut(stream);
  return m_Name.DataOutPut(stream);
}

ADataDef::ErrorCode CQKTimberingData::DataInPro(CADataExchange exchange) { return CAData::DataInPro(exchange); }

ADataDef::ErrorCode CQKTimberingData::DataOutPro(CADataExchange exchange) { return CAData::DataOutPro(exchange); }

QKLoad::ErrorType CQKTimberingData::SetTimberData(const tagQKTIMBERINGCHARACTER& timber) {
  m_Timber = timber;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKTimberingData::SetTimberNameStruct(const CQKStuTimeberingName& name) {
  m_Name = name;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKTimberingData::SetStuffID(int id) {
  m_Name.TimberingID = id;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKTimberingData::SetStuffName(const wchar_t* name) {
  m_Name.TimberingName = name;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKTimberingData::SetThick(double v) {
  m_Timber.Thick = v;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKTimberingData::SetGMD(double v) {
  m_Timber.GMD = v;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKTimberingData::SetDrXs(double v) {
  m_Timber.DrXs = v;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKTimberingData::SetBRr(double v) {
  m_Timber.BRr = v;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKTimberingData::SetDrXsXz(double v) {
  m_Timber.DrXsXz = v;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKTimberingData::SetRoughness(int v) {
  m_Timber.Roughness = v;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKTimberingData::SetTheAbs(double v) {
  m_Timber.TheAbs = v;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKTimberingData::SetSolAbs(double v) {
  m_Timber.SolAbs = v;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKTimberingData::SetVisAbs(double v) {
  m_Timber.VisAbs = v;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKTimberingData::SetSolarT(double v) {
  m_Timber.SolarT = v;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKTimberingData::SetSolarRFront(double v) {
  m_Timber.SolarRFront = v;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKTimberingData::SetSolarRBack(double v) {
  m_Timber.SolarRBack = v;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKTimberingData::SetVisibleT(double v) {
  m_Timber.VisibleT = v;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKTimberingData::SetVisibleRFront(double v) {
  m_Timber.VisibleRFront = v;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKTimberingData::SetVisibleRBack(double v) {
  m_Timber.VisibleRBack = v;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKTimberingData::SetInfraredT(double v) {
  m_Timber.InfraredT = v;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKTimberingData::SetInfraredEFront(double v) {
  m_Timber.InfraredEFront = v;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKTimberingData::SetInfraredERBack(double v) {
  m_Timber.InfraredEBack = v;
  return QKLoad::ET_OK;
}
