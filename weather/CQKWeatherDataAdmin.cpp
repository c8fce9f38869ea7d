#include "weather/CQKWeatherDataAdmin.h"

#include <cmath>
#include <unordered_map>
#include <vector>

#include "foundation/QKRecordVerbs.h"
#include "tablekit/CADORecordset.h"
#include "tablekit/RvAfxMessageBox.h"
#include "tablekit/reads/ReadScope.h"

namespace {

constexpr unsigned int kErrorIcon = 16;  // MB_ICONERROR
constexpr double kNeighbourHalfWidth = 1.0;

// No correction for latitude: the search square and this distance are in the stored unit of JD, WD.
double PlanarDistance(const CQKWeather& w, double jd, double wd) {
  return std::sqrt((w.JD - jd) * (w.JD - jd) + (w.WD - wd) * (w.WD - wd));
}

}  // namespace

CString CQKWeatherDataAdmin::s_m_sEpwDir;
CString CQKWeatherDataAdmin::s_m_sReprotDir;

CQKWeatherDataAdmin::tagCityNode::tagCityNode(const wchar_t* name, long id, int flag, tagCityNode* parent)
    : strName(name), nFlag(flag), nId(id), pParent(parent) {
  if (parent != nullptr) parent->arrChild.Add(this);
}

CQKWeatherDataAdmin::CQKWeatherDataAdmin(const CQKWeatherDataAdmin& other) { *this = other; }

CQKWeatherDataAdmin& CQKWeatherDataAdmin::operator=(const CQKWeatherDataAdmin& other) {
  if (this == &other) return *this;
  ReleaseAll();
  if (other.m_pCityRoot == nullptr) return *this;
  // Copied level by level with a work list of (source, copy) pairs, children in their order.
  const tagCityNode* from = other.m_pCityRoot;
  m_pCityRoot = new tagCityNode(from->strName, from->nId, from->nFlag, nullptr);
  std::vector<std::pair<const tagCityNode*, tagCityNode*>> work{{from, m_pCityRoot}};
  while (!work.empty()) {
    auto [source, copy] = work.back();
    work.pop_back();
    for (int i = 0; i < source->arrChild.GetSize(); ++i) {
      const tagCityNode* child = source->arrChild[i];
      work.emplace_back(child, new tagCityNode(child->strName, child->nId, child->nFlag, copy));
    }
  }
  return *this;
}

CQKWeatherDataAdmin::~CQKWeatherDataAdmin() { ReleaseAll(); }

void CQKWeatherDataAdmin::ReleaseAll() {
  if (m_pCityRoot != nullptr) ReleaseCityNodes(m_pCityRoot);
  for (int i = 0; i < m_arrOrphan.GetSize(); ++i) ReleaseCityNodes(m_arrOrphan[i]);
  m_arrOrphan.RemoveAll();
}

void CQKWeatherDataAdmin::ReleaseCityNodes(tagCityNode* node) {
  if (node != nullptr) {
    for (int i = 0; i < node->arrChild.GetSize(); ++i) ReleaseCityNodes(node->arrChild[i]);
    delete node;
  }
  m_pCityRoot = nullptr;
}

CQKWeatherDataAdmin::tagCityNode* CQKWeatherDataAdmin::GetCityNodes(int bRefresh, bool bWeatherOnly) {
  if (bRefresh == 0 && m_pCityRoot != nullptr) return m_pCityRoot;
  ReleaseAll();
  MakeCityNodes(bWeatherOnly);
  return m_pCityRoot;
}

int CQKWeatherDataAdmin::MakeCityNodes(bool bWeatherOnly) {
  tablekit::ReadScope reading;  // one read transaction for the whole build
  m_pCityRoot = new tagCityNode(L"*", -1, 1, nullptr);
  // A node whose parent is missing is made outside the tree; it is kept aside to be freed with it.
  auto makeNode = [this](const CString& name, long id, int flag, tagCityNode* parent) {
    tagCityNode* node = new tagCityNode(name, id, flag, parent);
    if (parent == nullptr) m_arrOrphan.Add(node);
  };

  CQKCountry country;
  CQKProvince province;
  CQKCity city;
  const CString weatherTable = CQKWeather().GetTableName();
  CString sql;

  CADORecordset countries;
  if (bWeatherOnly) {
    sql.Format(L"Select Id,Name From %s Where id in( Select Distinct cid From %s Where id in( Select Distinct pid "
               L"From %s Where id in(Select cid as id From %s where epwName is not null)))",
               country.GetTableName().GetString(), province.GetTableName().GetString(),
               city.GetTableName().GetString(), weatherTable.GetString());
  } else {
    sql.Format(L"select Id,Name from %s order by Id", country.GetTableName().GetString());
  }
  if (!country.ExecSql(sql, &countries, nullptr) || countries.GetRecordCount() == 0) return 0;
  for (; !countries.IsEOF(); countries.MoveNext()) {
    long id = 0;
    CString name;
    countries.GetFieldValue(0, id);
    countries.GetFieldValue(1, name);
    makeNode(name, id, 1, m_pCityRoot);
  }

  // Provinces come grouped by country (or, filtered, in row order): the country node is looked up
  // again whenever the country id changes.
  CADORecordset provinces;
  if (bWeatherOnly) {
    sql.Format(L"Select Id,CId,Name From %s Where id in( Select Distinct pid From %s Where id in(Select cid as id "
               L"From %s where epwName is not null))",
               province.GetTableName().GetString(), city.GetTableName().GetString(), weatherTable.GetString());
  } else {
    sql.Format(L"select Id,CId,Name from %s order by CId,Id", province.GetTableName().GetString());
  }
  if (!province.ExecSql(sql, &provinces, nullptr) || provinces.GetRecordCount() == 0) return 0;
  long lastCountryId = 0;
  tagCityNode* countryNode = nullptr;
  // What each province row said, for the cities below. Read moments before (on SQLite in the same
  // transaction), a row is what reading that province again by its id would give, so only a province
  // not among them is read.
  struct ProvinceRow {
    CString name;
    long countryId;
  };
  std::unordered_map<long, ProvinceRow> provinceRows;
  for (; !provinces.IsEOF(); provinces.MoveNext()) {
    long id = 0, countryId = 0;
    CString name;
    provinces.GetFieldValue(0, id);
    provinces.GetFieldValue(1, countryId);
    provinces.GetFieldValue(2, name);
    provinceRows.emplace(id, ProvinceRow{name, countryId});
    if (countryId != lastCountryId) {
      CQKCountry owner;
      owner.SetID(countryId);
      countryNode = FindCountryNode(owner);
      if (countryNode == nullptr) RvAfxMessageBox(L"国家信息丢失？！", kErrorIcon);
      lastCountryId = countryId;
    }
    makeNode(name, id, 0, countryNode);
  }

  CADORecordset cities;
  if (bWeatherOnly) {
    sql.Format(L"Select Id,PId,Name From %s Where id in(Select cid as id From %s where epwName is not null)",
               city.GetTableName().GetString(), weatherTable.GetString());
  } else {
    sql.Format(L"select Id,PId,Name from %s order by PId,Id", city.GetTableName().GetString());
  }
  if (!city.ExecSql(sql, &cities, nullptr)) return 0;
  long lastProvinceId = 0;
  tagCityNode* provinceNode = nullptr;
  for (; !cities.IsEOF(); cities.MoveNext()) {
    long id = 0, provinceId = 0;
    CString name;
    cities.GetFieldValue(0, id);
    cities.GetFieldValue(1, provinceId);
    cities.GetFieldValue(2, name);
    if (provinceId != lastProvinceId) {
      CQKProvince owner;
      const auto row = provinceRows.find(provinceId);
      if (row != provinceRows.end()) {
        owner.SetID(provinceId);
        owner.Name = row->second.name;
        owner.CId = row->second.countryId;
      } else {
        owner.ReadData(provinceId);
      }
      CQKCountry ownersCountry;
      ownersCountry.SetID(owner.CId);
      provinceNode = FindProvinceNode(ownersCountry, owner);
      if (provinceNode == nullptr) RvAfxMessageBox(L"省份丢失？！", kErrorIcon);
      lastProvinceId = provinceId;
    }
    makeNode(name, id, 1, provinceNode);
  }
  return 1;
}

namespace {

// The first child of parent whose name is name or whose id is id; null for a null parent.
CQKWeatherDataAdmin::tagCityNode* FindChild(CQKWeatherDataAdmin::tagCityNode* parent, const CString& name, long id) {
  if (parent == nullptr) return nullptr;
  for (int i = 0; i < parent->arrChild.GetSize(); ++i) {
    CQKWeatherDataAdmin::tagCityNode* child = parent->arrChild[i];
    if (child->strName == name || child->nId == id) return child;
  }
  return nullptr;
}

}  // namespace

CQKWeatherDataAdmin::tagCityNode* CQKWeatherDataAdmin::FindCountryNode(CQKCountry& country) {
  return FindChild(m_pCityRoot, country.Name, country.GetID());
}

CQKWeatherDataAdmin::tagCityNode* CQKWeatherDataAdmin::FindProvinceNode(CQKCountry& country, CQKProvince& province) {
  return FindChild(FindCountryNode(country), province.Name, province.GetID());
}

CQKWeatherDataAdmin::tagCityNode* CQKWeatherDataAdmin::FindCityNode(CQKCountry& country, CQKProvince& province,
                                                                    CQKCity& city) {
  return FindChild(FindProvinceNode(country, province), city.Name, city.GetID());
}

int CQKWeatherDataAdmin::DeleteWeatherofCity(CQKCity& city) {
  return QKRecordVerbs::DeleteRowOrTell(city, city.GetTableName(), city.GetID(), city.GetUserDatabase(),
                                        kErrorIcon);
}

int CQKWeatherDataAdmin::DeleteWeatherByCityID(long id, CString& strError) {
  CQKWeather weather;
  CADODatabase* db = weather.GetUserDatabase();
  const CString weatherTable = weather.GetTableName();
  const CString cityTable = CQKCity().GetTableName();
  CString sql;
  sql.Format(L"DELETE FROM %s WHERE CId=%d", weatherTable.GetString(), static_cast<int>(id));
  if (!weather.ExecSql(sql, nullptr, db)) {
    strError = QKRecordVerbs::DeleteFailedText(weatherTable);
    return 0;
  }
  sql.Format(L"DELETE FROM %s WHERE id=%d", cityTable.GetString(), static_cast<int>(id));
  if (!weather.ExecSql(sql, nullptr, db)) {
    strError = QKRecordVerbs::DeleteFailedText(cityTable);
    return 0;
  }
  return 1;
}

int CQKWeatherDataAdmin::DeleteWeatherOfProvince(CQKCountry& country, CQKProvince& province) {
  if (tagCityNode* node = FindProvinceNode(country, province)) {
    for (int i = 0; i < node->arrChild.GetSize(); ++i) {
      CQKCity city;
      city.SetID(node->arrChild[i]->nId);
      DeleteWeatherofCity(city);
    }
  }
  // The province is deleted on the country class's connection, and its failure shows no icon.
  return QKRecordVerbs::DeleteRowOrTell(province, province.GetTableName(), province.GetID(),
                                        country.GetUserDatabase(), 0);
}

int CQKWeatherDataAdmin::DeleteCountry(CQKCountry& country) {
  return QKRecordVerbs::DeleteRowOrTell(country, country.GetTableName(), country.GetID(),
                                        country.GetUserDatabase(), kErrorIcon);
}

int CQKWeatherDataAdmin::GetWeatherByCityId(CQKWeather& weather) {
  tablekit::ReadScope reading;  // one read transaction for the climate and the three names
  int result = 0;
  CString sql;
  sql.Format(L"select * from %s where CId=%d", weather.GetTableName().GetString(), static_cast<int>(weather.CId));
  CADORecordset rs;
  if (!weather.ExecSql(sql, &rs, nullptr)) return 0;
  if (!rs.IsEOF()) weather.MakeObjectFromRS(rs);
  rs.Close();
  if (weather.EpwName.IsEmpty()) result = GetWeatherByJWD(weather, kNeighbourHalfWidth);

  // The names of the city the record now stands for; a read that fails leaves a fresh record's "".
  CQKCity city;
  CQKProvince province;
  CQKCountry country;
  city.ReadData(weather.CId);
  province.ReadData(city.PId);
  country.ReadData(province.CId);
  weather.CityName = city.Name;
  weather.ProvinceName = province.Name;
  weather.CountryName = country.Name;
  return result;
}

int CQKWeatherDataAdmin::GetWeatherByJWD(CQKWeather& weather, double halfWidth) {
  CString sql;
  sql.Format(L"select * from %s where JD between %f and %f and WD between %f and %f",
             weather.GetTableName().GetString(), weather.JD - halfWidth, weather.JD + halfWidth,
             weather.WD - halfWidth, weather.WD + halfWidth);
  return GetWeather(sql, weather);
}

int CQKWeatherDataAdmin::GetWeather(CString sql, CQKWeather& weather) {
  tablekit::ReadScope reading;  // one read transaction for the city and the stations
  const double targetJD = weather.JD;
  const double targetWD = weather.WD;
  CQKCity asked;
  if (!asked.ReadData(weather.CId)) return 0;

  CADORecordset rs;
  if (!weather.ExecSql(sql, &rs, nullptr) || rs.IsEOF()) return 0;
  CLxArray<CQKWeather> candidates;
  candidates.SetSize(0, static_cast<int>(rs.GetRecordCount()));  // one allocation for every row
  for (; !rs.IsEOF(); rs.MoveNext()) {
    CQKWeather row(0);
    row.MakeObjectFromRS(rs);
    if (!row.EpwName.IsEmpty()) candidates.Add(row);
  }
  rs.Close();
  // Rows in the square but none with a weather file: no climate is taken. (Reaching for the first
  // candidate of an empty list would throw here; the library lets no exception out, so the record is
  // simply left as it was.)
  if (candidates.GetSize() == 0) return 0;

  // Plain planar distance in the stored coordinates; a later row must be strictly nearer to win.
  int best = 0;
  double bestDistance = PlanarDistance(candidates[0], targetJD, targetWD);
  for (int i = 1; i < candidates.GetSize(); ++i) {
    const double distance = PlanarDistance(candidates[i], targetJD, targetWD);
    if (distance < bestDistance) {
      best = i;
      bestDistance = distance;
    }
  }
  weather = candidates[best];

  weather.CityName = asked.Name;
  CQKProvince province;
  if (!province.ReadData(asked.PId)) return 0;
  weather.ProvinceName = province.Name;
  CQKCountry country;
  if (!country.ReadData(province.CId)) return 0;
  weather.CountryName = country.Name;
  return 1;
}

int CQKWeatherDataAdmin::GetCityIdByName(CQKCity& city) {
  // Ordered by the truth of the comparison, not filtered by it: the matching city sorts first, and
  // with no match the first city of the table still comes back.
  CString sql;
  sql.Format(L"select Id from %s order by Name='%s'", city.GetTableName().GetString(), city.Name.GetString());
  CADORecordset rs;
  if (!city.ExecSql(sql, &rs, nullptr)) return 0;
  long id = 0;
  rs.GetFieldValue(0, id);
  city.SetID(id);
  return 1;
}
