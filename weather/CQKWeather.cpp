#include "weather/CQKWeather.h"

#include "foundation/QKRecordVerbs.h"

QK_IMPLEMENT_RECORD_TABLE(CQKWeather, CQKWeatherData)

CQKWeather::CQKWeather(int aux) { Aux2 = aux; }

QKLoad::DBStatusCode CQKWeather::IsExist(CADODatabase* db) {
  CString sql;
  sql.Format(L"select ID from %s where CId=%d", GetTableName().GetString(), static_cast<int>(CId));
  const long rows = QKRecordVerbs::CountKeyRows(*this, sql, db);
  if (rows < 0) return QKLoad::DBS_ERROR;
  return rows == 0 ? QKLoad::DBS_NOTEXIST : QKLoad::DBS_EXIST;
}

QKLoad::DBStatusCode CQKWeather::AddIfNotExist(CADODatabase* db, int bUpdate) {
  if (db == nullptr) db = GetUserDatabase();
  const QKLoad::DBStatusCode found = IsExist(db);
  if (found == QKLoad::DBS_EXIST && bUpdate) {
    tagDBSTRUCT::UpdateData(GetID(), nullptr);  // the record's own database, on purpose
    return QKLoad::DBS_EXIST;
  }
  if (found != QKLoad::DBS_NOTEXIST) return found;
  return InsertData(db) ? QKLoad::DBS_ADDED : QKLoad::DBS_ERROR;
}

int CQKWeather::UpdateData(long id, CADODatabase* db) {
  if (db == nullptr) db = GetUserDatabase();
  return tagDBSTRUCT::UpdateData(id, db);
}

void CQKWeather::UpdateWeatherTableData(CADODatabase*, CADODatabase*) {}

// Called by name only, as its declaration says; clang warns at the definition too.
#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wclass-conversion"
#endif
CQKWeather::operator CQKWeatherData() const {
  CQKWeatherData v;
  v.CId = CId;
  v.CountryName = CountryName;
  v.ProvinceName = ProvinceName;
  v.CityName = CityName;
  v.JD = JD;
  v.WD = WD;
  v.XjDqy = XjDqy;
  v.XjKtSwGqWd = XjKtSwGqWd;
  v.XjKtSwSqWd = XjKtSwSqWd;
  v.XjKtRPjWd = XjKtRPjWd;
  v.XjJsRJC = XjJsRJC;
  v.XjSwPjFs = XjSwPjFs;
  v.XjKtDqTmDDj = XjKtDqTmDDj;
  v.ZRYPjXdSd = ZRYPjXdSd;
  v.XjTfSwGqWd = XjTfSwGqWd;
  v.XjTfSwXdSd = XjTfSwXdSd;
  v.DjDqy = DjDqy;
  v.DjCnSwGqWd = DjCnSwGqWd;
  v.DjKtSwGqWd = DjKtSwGqWd;
  v.DjSwZdFxPjFs = DjSwZdFxPjFs;
  v.ZlYPjXdSd = ZlYPjXdSd;
  v.DjTfSwGqWd = DjTfSwGqWd;
  v.DjKtSwXdSd = DjKtSwXdSd;
  v.DjSwPjFs = DjSwPjFs;
  for (int k = 0; k < 8; ++k) v.DjLfStCxXz[k] = DjLfStCxXz[k];
  v.DistrictCode = DistrictCode;
  v.DBMNPJWD = DBMNPJWD;
  v.DBMZRYPJWD = DBMZRYPJWD;
  v.DBMZLYPJWD = DBMZLYPJWD;
  v.Aux2 = Aux2;
  v.EpwName = EpwName;
  v.TimeZone = TimeZone;
  v.Elevation = Elevation;
  v.CityType = CityType;
  v.SumDesignDay = SumDesignDay;
  v.WinDesignDay = WinDesignDay;
  return v;
}
#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif
