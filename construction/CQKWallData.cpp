#include "construction/CQKWallData.h"

IMPLEMENT_DYNCREATE(CQKWallData, tagQKWALLCHARACTER)

// Init by its own name: while this constructor runs, only this class's defaults exist.
CQKWallData::CQKWallData() { CQKWallData::InitData(); }

CQKWallData::CQKWallData(const CLxArray<CQKTimberingData>& layers) {
  CQKWallData::InitData();
  SetTimbering(layers, true);
  DjCrXs = -1.0;  // marked as not calculated: Cal(1) gives it
}

void CQKWallData::Init() { InitData(); }

void CQKWallData::InitData() {
  ID = 0;
  Name = L"";
  NHrXsData = 8.7;
  WHrXsData = 18.6;
  DjWHrXsData = 23.0;
  DjCrXs = 0.0;
  NCrXs = 0.0;
  CrXs = 0.0;
  CrSj = 0.0;
  CrYc = 0.0;
  m_arrTimbering.RemoveAll();
  m_arrTimberingName.RemoveAll();
}

ADataDef::ErrorCode CQKWallData::Copy(const CAData* other) {
  // The stream appends layers on reading, so a copy through it would add to this wall's own: copy by
  // assignment instead.
  const auto* wall = dynamic_cast<const CQKWallData*>(other);
  if (wall == nullptr) return ADataDef::AD_INCOMPATIBLE;
  if (wall != this) *this = *wall;
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKWallData::DataInPut(CADataStream stream) {
  const ADataDef::ErrorCode layers = tagQKWALLCHARACTER::DataInPut(stream);
  if (layers != ADataDef::AD_OK) return layers;
  stream.ReadItem(&ID);
  stream.ReadItem(&Name);
  stream.ReadItem(&DjCrXs);
  stream.ReadItem(&NCrXs);
  stream.ReadItem(&NHrXsData);
  stream.ReadItem(&WHrXsData);
  stream.ReadItem(&DjWHrXsData);
  int count = 0;
  stream.ReadItem(&count);
  // A name takes at least its ID and an empty text: refuse a count the stream cannot hold.
  constexpr std::size_t kMinNameBytes = 4 + 4;
  if (count < 0 || static_cast<std::size_t>(count) > stream.GetRemaining() / kMinNameBytes)
    return ADataDef::AD_BADCOUNT;
  for (int i = 0; i < count; ++i) {
    CQKStuTimeberingName name;
    name.DataInPut(stream);
    m_arrTimberingName.Add(name);
  }
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKWallData::DataOutPut(CADataStream stream) {
  tagQKWALLCHARACTER::DataOutPut(stream);
  stream.WriteItem(ID);
  stream.WriteItem(Name);
  stream.WriteItem(DjCrXs);
  stream.WriteItem(NCrXs);
  stream.WriteItem(NHrXsData);
  stream.WriteItem(WHrXsData);
  stream.WriteItem(DjWHrXsData);
  stream.WriteItem(m_arrTimberingName.GetSize());
  for (int i = 0; i < m_arrTimberingName.GetSize(); ++i) m_arrTimberingName[i].DataOutPut(stream);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKWallData::DataInPro(CADataExchange exchange) {
  tagQKWALLCHARACTER::DataInPro(exchange);
  exchange.ReadItem(L"ID", &ID);
  exchange.ReadItem(L"Name", &Name);
  exchange.ReadItem(L"DjCrXs", &DjCrXs);
  exchange.ReadItem(L"NCrXs", &NCrXs);
  exchange.ReadItem(L"An", &NHrXsData);
  exchange.ReadItem(L"Aw", &WHrXsData);
  exchange.ReadItem(L"DjAw", &DjWHrXsData);
  // Each name present reads the same two items: the count is not exchanged.
  for (int i = 0; i < m_arrTimberingName.GetSize(); ++i) m_arrTimberingName[i].DataInPro(exchange);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKWallData::DataOutPro(CADataExchange exchange) {
  tagQKWALLCHARACTER::DataOutPro(exchange);
  exchange.WriteItem(L"ID", ID);
  exchange.WriteItem(L"Name", Name);
  exchange.WriteItem(L"DjCrXs", DjCrXs);
  exchange.WriteItem(L"NCrXs", NCrXs);
  exchange.WriteItem(L"An", NHrXsData);
  exchange.WriteItem(L"Aw", WHrXsData);
  exchange.WriteItem(L"DjAw", DjWHrXsData);
  for (int i = 0; i < m_arrTimberingName.GetSize(); ++i) m_arrTimberingName[i].DataOutPro(exchange);
  return ADataDef::AD_OK;
}

bool CQKWallData::SetNHrXsData(double value, bool bCal) {
  if (value <= 0.0) return false;
  NHrXsData = value;
  if (bCal) CalWinterThenSummer();
  return true;
}

bool CQKWallData::SetWHrXsData(double value, bool bCal) {
  if (value <= 0.0) return false;
  WHrXsData = value;
  if (bCal) Cal(0);
  return true;
}

bool CQKWallData::SetDjWHrXsData(double value, bool bCal) {
  if (value <= 0.0) return false;
  DjWHrXsData = value;
  if (bCal) Cal(1);
  return true;
}

void CQKWallData::AddTimberingData(const CQKTimberingData& layer, bool bCal) {
  m_arrTimbering.Add(layer.GetTimberData());
  m_arrTimberingName.Add(layer.GetTimberNameStruct());
  if (bCal) CalWinterThenSummer();
}

void CQKWallData::SetTimbering(const CLxArray<CQKTimberingData>& layers, bool bCal) {
  m_arrTimbering.RemoveAll();
  m_arrTimberingName.RemoveAll();
  for (int i = 0; i < layers.GetSize(); ++i) AddTimberingData(layers[i], false);
  if (bCal) CalWinterThenSummer();
}

CLxArray<CQKTimberingData> CQKWallData::GetTimbering() {
  CLxArray<CQKTimberingData> layers;
  for (int i = 0; i < m_arrTimbering.GetSize(); ++i) {
    CQKTimberingData layer;
    layer.SetTimberData(m_arrTimbering[i]);
    if (i < m_arrTimberingName.GetSize()) layer.SetTimberNameStruct(m_arrTimberingName[i]);
    layers.Add(layer);
  }
  return layers;
}

void CQKWallData::SetDefaultWall(bool bCal) {
  m_arrTimbering.RemoveAll();  // the materials stay: only the layers are cleared
  CQKTimberingData layer;
  layer.SetGMD(0.0);
  layer.SetBRr(0.0);
  layer.SetThick(0.0);
  layer.SetDrXs(0.0);
  layer.SetDrXs(1.0);
  AddTimberingData(layer, true);
  if (bCal) CalWinterThenSummer();
}

QKLoad::ErrorType CQKWallData::Cal(int mode) {
  if (mode == 0) {
    SetNHrXs(NHrXsData, false);
    SetWHrXs(WHrXsData, true);
  } else {
    CalDjCrXs();
  }
  CalNCrxs();
  return QKLoad::ET_OK;
}

void CQKWallData::CalWinterThenSummer() {
  Cal(1);
  Cal(0);
}

void CQKWallData::CalDjCrXs() { DjCrXs = K(m_arrTimbering, DjWHrXsData, NHrXsData); }

void CQKWallData::CalNCrxs() { NCrXs = K(m_arrTimbering, NHrXsData, NHrXsData); }

double CQKWallData::CalD() const { return D(m_arrTimbering); }

QKLoad::ErrorType CQKWallData::CorrectThickness(double outside, double targetK, int& index, double& thickness) const {
  CQKLayerArray layers = m_arrTimbering;
  index = Thick(layers, targetK, outside, NHrXsData);
  if (index == -1) return QKLoad::ET_NOLAYER;
  thickness = layers[index].Thick;
  return QKLoad::ET_OK;
}

QKLoad::ErrorType CQKWallData::CurrectThick(double targetK, int& index, double& thickness) const {
  return CorrectThickness(WHrXsData, targetK, index, thickness);
}

QKLoad::ErrorType CQKWallData::CurrectDjThick(double targetK, int& index, double& thickness) const {
  return CorrectThickness(DjWHrXsData, targetK, index, thickness);
}
