#include "rooms/CQKRURoomUseParamBaseData.h"

#include <type_traits>

IMPLEMENT_DYNCREATE(CQKRURoomUseParamBaseData, CAData)

CLxMap<QKLoad::EQKLdQdType, CString> CQKRURoomUseParamBaseData::s_m_mapLDQD;

namespace {

constexpr double kPercentPerFraction = 100.0;

// The items from "DongJiSNSJWD" to "XinFengRZB", which the stream and the exchange hold in the same
// order; scaled marks the two humidities, percent in the exchange.
template <class Visit>
void WalkIndices(CQKRURoomUseParamBaseData& p, Visit&& v) {
  v(L"DongJiSNSJWD", p.DongJiSNSJWD, false);
  v(L"DongJiSNSJXDSD", p.DongJiSNSJXDSD, true);
  v(L"XiaJiSNSJWD", p.XiaJiSNSJWD, false);
  v(L"XiaJiSNSJXDSD", p.XiaJiSNSJXDSD, true);
  v(L"RenYuanMD", p.RenYuanMD, false);
  v(L"ZhaoMingBZ", p.ZhaoMingBZ, false);
  v(L"SheBeiBZ", p.SheBeiBZ, false);
  v(L"XinFengL", p.XinFengL, false);
  v(L"ZaoYin", p.ZaoYin, false);
  v(L"ZongLengZB", p.ZongLengZB, false);
  v(L"ZongReZB", p.ZongReZB, false);
  v(L"WeiHuLZB", p.WeiHuLZB, false);
  v(L"RenYuanLZB", p.RenYuanLZB, false);
  v(L"XinFengLZB", p.XinFengLZB, false);
  v(L"QiTaLZB", p.QiTaLZB, false);
  v(L"WeiHuRZB", p.WeiHuRZB, false);
  v(L"RenYuanRZB", p.RenYuanRZB, false);
  v(L"XinFengRZB", p.XinFengRZB, false);
}

}  // namespace

CQKRURoomUseParamBaseData::CQKRURoomUseParamBaseData() {
  CQKRURoomUseParamBaseData::initData();
  RebuildLabourTable();
}

void CQKRURoomUseParamBaseData::RebuildLabourTable() {
  s_m_mapLDQD.RemoveAll();
  s_m_mapLDQD.SetAt(QKLoad::LdQdSitting, L"静坐");
  s_m_mapLDQD.SetAt(QKLoad::LdQdVeryLight, L"极轻劳动");
  s_m_mapLDQD.SetAt(QKLoad::LdQdLight, L"轻度劳动");
  s_m_mapLDQD.SetAt(QKLoad::LdQdModerate, L"中等劳动");
  s_m_mapLDQD.SetAt(QKLoad::LdQdHeavy, L"重度劳动");
}

void CQKRURoomUseParamBaseData::Init() { initData(); }

void CQKRURoomUseParamBaseData::initData() {
  RUId = 0;
  DongJiSNSJWD = 20.0;
  DongJiSNSJXDSD = 0.6;
  XiaJiSNSJWD = 25.0;
  XiaJiSNSJXDSD = 0.6;
  RenYuanMD = 0.0;
  ZhaoMingBZ = 0.0;
  SheBeiBZ = 0.0;
  XinFengL = 0.0;
  ZaoYin = 0;
  ZongLengZB = 0.0;
  ZongReZB = 0.0;
  WeiHuLZB = 0.0;
  RenYuanLZB = 0.0;
  XinFengLZB = 0.0;
  QiTaLZB = 0.0;
  WeiHuRZB = 0.0;
  RenYuanRZB = 0.0;
  XinFengRZB = 0.0;
  LaoDongQD = L"静坐";
  ShenTouL = 0.0;
  ParamAux = 0;
  LDQDId = QKLoad::LdQdSitting;
}

ADataDef::ErrorCode CQKRURoomUseParamBaseData::DataInPut(CADataStream stream) {
  CAData::DataInPut(stream);
  stream.ReadItem(&RUId);
  WalkIndices(*this, [&stream](const wchar_t*, auto& field, bool) { stream.ReadItem(&field); });
  stream.ReadItem(&LaoDongQD);
  stream.ReadItem(&ShenTouL);
  stream.ReadItem(&ParamAux);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKRURoomUseParamBaseData::DataOutPut(CADataStream stream) {
  CAData::DataOutPut(stream);
  stream.WriteItem(RUId);
  WalkIndices(*this, [&stream](const wchar_t*, auto& field, bool) { stream.WriteItem(field); });
  stream.WriteItem(LaoDongQD);
  stream.WriteItem(ShenTouL);
  stream.WriteItem(ParamAux);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKRURoomUseParamBaseData::DataInPro(CADataExchange exchange) {
  CAData::DataInPro(exchange);
  exchange.ReadItem(L"RUId", &RUId);
  WalkIndices(*this, [&exchange](const wchar_t* name, auto& field, bool percent) {
    using Field = std::remove_reference_t<decltype(field)>;
    Field value = field;
    if (exchange.ReadItem(name, &value) == 0) field = percent ? static_cast<Field>(value / kPercentPerFraction) : value;
  });
  int labour = LDQDId;
  if (exchange.ReadItem(L"LaoDongQD", &labour) == 0) LDQDId = static_cast<QKLoad::EQKLdQdType>(labour);
  exchange.ReadItem(L"ShenTouL", &ShenTouL);
  LDQDId2Name(LDQDId, LaoDongQD);  // an id outside the table keeps the name
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKRURoomUseParamBaseData::DataOutPro(CADataExchange exchange) {
  CAData::DataOutPro(exchange);
  exchange.WriteItem(L"RUId", RUId);
  WalkIndices(*this, [&exchange](const wchar_t* name, auto& field, bool percent) {
    using Field = std::remove_reference_t<decltype(field)>;
    exchange.WriteItem(name, percent ? static_cast<Field>(field * kPercentPerFraction) : field);
  });
  QKLoad::EQKLdQdType labour = LDQDId;
  LDQDName2Id(labour, LaoDongQD);  // the name wins when the table knows it
  exchange.WriteItem(L"LaoDongQD", static_cast<int>(labour));
  exchange.WriteItem(L"ShenTouL", ShenTouL);
  return ADataDef::AD_OK;
}

QKLoad::ErrorType CQKRURoomUseParamBaseData::SetLDQDId(QKLoad::EQKLdQdType id) {
  LDQDId = id;
  return QKLoad::ET_OK;
}

int CQKRURoomUseParamBaseData::LDQDId2Name(const QKLoad::EQKLdQdType& id, CString& name) {
  CString found;
  if (!s_m_mapLDQD.Lookup(id, found)) return 0;
  name = found;
  return 1;
}

int CQKRURoomUseParamBaseData::LDQDName2Id(QKLoad::EQKLdQdType& id, const CString& name) {
  for (POSITION pos = s_m_mapLDQD.GetStartPosition(); pos != nullptr;) {
    QKLoad::EQKLdQdType key;
    CString value;
    s_m_mapLDQD.GetNextAssoc(pos, key, value);
    if (value.CompareNoCase(name) == 0) {
      id = key;
      return 1;
    }
  }
  return 0;
}
