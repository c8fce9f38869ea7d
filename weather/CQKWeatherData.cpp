#include "weather/CQKWeatherData.h"

#include <cstring>
#include <numbers>

#include "foundation/QKLoad.h"

namespace {

constexpr double kDegree = std::numbers::pi / 180.0;

// Compass suffixes of the eight "DjLfStCxXz_…" items, in the order of the factors.
constexpr const wchar_t* kDirectionItems[8] = {
    L"DjLfStCxXz_N", L"DjLfStCxXz_NE", L"DjLfStCxXz_E", L"DjLfStCxXz_SE",
    L"DjLfStCxXz_S", L"DjLfStCxXz_SW", L"DjLfStCxXz_W", L"DjLfStCxXz_NW"};

constexpr const wchar_t* kZoneNames[11] = {L"严寒A区", L"严寒B区", L"严寒C区", L"寒冷A区",
                                           L"寒冷B区", L"夏热冬冷A区", L"夏热冬冷B区", L"夏热冬暖A区",
                                           L"夏热冬暖B区", L"温和A区", L"温和B区"};

// Pressures travel in hPa, relative humidities in percent: the powers of ten that take the value's
// Pa and fractions there. The scaling moves the decimal point (QKLoad::ScaleByPowerOfTen), so 58 %
// is held as 0.58 and travels as 58 again, not as 57.99999999999999.
constexpr int kToHPa = -2;
constexpr int kToPercent = 2;

double Scale(double value, int exponent) { return QKLoad::ScaleByPowerOfTen(value, exponent); }

// The stream's two directions. A walk names each item once, in order; Scaled gives the power of ten
// applied on writing and the one applied after reading, which are inverse except where the format
// says not.
struct StreamWriter {
  CADataStream& stream;
  template <class T>
  void Item(T& field) { stream.WriteItem(field); }
  void Scaled(double& field, int written, int) { stream.WriteItem(Scale(field, written)); }
  void Day(CQKDesignData& day) { day.DataOutPut(stream); }
};

struct StreamReader {
  CADataStream& stream;
  template <class T>
  void Item(T& field) { stream.ReadItem(&field); }
  // A failed read leaves the field as it was.
  void Scaled(double& field, int, int read) {
    double value = 0.0;
    if (stream.ReadItem(&value) == 0) field = Scale(value, read);
  }
  void Day(CQKDesignData& day) { day.DataInPut(stream); }
};

struct ExchangeWriter {
  CADataExchange& exchange;
  template <class T>
  void Item(const wchar_t* name, T& field) { exchange.WriteItem(name, field); }
  void Scaled(const wchar_t* name, double& field, int written) { exchange.WriteItem(name, Scale(field, written)); }
};

struct ExchangeReader {
  CADataExchange& exchange;
  template <class T>
  void Item(const wchar_t* name, T& field) { exchange.ReadItem(name, &field); }
  // A store reports no failed read (a null column, say): it leaves the target as it was. The target
  // therefore starts as the field's own value in the exchange's unit, and a target that comes back
  // bit for bit unchanged leaves the field exactly as it was, rather than scaling it there and back.
  void Scaled(const wchar_t* name, double& field, int written) {
    const double before = Scale(field, written);
    double value = before;
    if (exchange.ReadItem(name, &value) != 0) return;
    if (std::memcmp(&value, &before, sizeof value) != 0) field = Scale(value, -written);
  }
};

// The fourteen design-day fields exchanged by name under a prefix ("Sum" for the summer day, "Win"
// for the winter one), in the exchange's order, which differs from the design day's own stream order.
// The names are spelled out rather than joined, since a row is read item by item.
template <class Visit>
void WalkDesignDayItems(Visit& v, bool summer, CQKDesignData& day) {
  v.Item(summer ? L"SumMaxDryBulbTemp" : L"WinMaxDryBulbTemp", day.MaxDryBulbTemp);
  v.Item(summer ? L"SumDailyTempRange" : L"WinDailyTempRange", day.DailyTempRange);
  v.Item(summer ? L"SumHumMaxDryBulb" : L"WinHumMaxDryBulb", day.HumMaxDryBulb);
  v.Item(summer ? L"SumBarPress" : L"WinBarPress", day.BarPress);
  v.Item(summer ? L"SumWindSpeed" : L"WinWindSpeed", day.WindSpeed);
  v.Item(summer ? L"SumWindDirection" : L"WinWindDirection", day.WindDirection);
  v.Item(summer ? L"SumSkyClearness" : L"WinSkyClearness", day.SkyClearness);
  v.Item(summer ? L"SumRainIndicator" : L"WinRainIndicator", day.RainIndicator);
  v.Item(summer ? L"SumSnowIndicator" : L"WinSnowIndicator", day.SnowIndicator);
  v.Item(summer ? L"SumDayOfMonth" : L"WinDayOfMonth", day.DayOfMonth);
  v.Item(summer ? L"SumMonth" : L"WinMonth", day.Month);
  v.Item(summer ? L"SumDayType" : L"WinDayType", day.DayType);
  v.Item(summer ? L"SumDSTIndicator" : L"WinDSTIndicator", day.DSTIndicator);
  v.Item(summer ? L"SumHumIndType" : L"WinHumIndType", day.HumIndType);
}

// The ordered stream, after the CAData items.
template <class Visit>
void WalkStream(Visit& v, CQKWeatherData& w, unsigned long version) {
  v.Item(w.CId);
  v.Item(w.CountryName);
  v.Item(w.ProvinceName);
  v.Item(w.CityName);
  v.Item(w.JD);
  v.Item(w.WD);
  v.Scaled(w.XjDqy, kToHPa, -kToHPa);
  v.Item(w.XjKtSwGqWd);
  v.Item(w.XjKtSwSqWd);
  v.Item(w.XjKtRPjWd);
  v.Item(w.XjJsRJC);
  v.Item(w.XjSwPjFs);
  v.Item(w.XjKtDqTmDDj);
  v.Scaled(w.ZRYPjXdSd, kToPercent, -kToPercent);
  v.Item(w.XjTfSwGqWd);
  v.Scaled(w.XjTfSwXdSd, kToPercent, -kToPercent);
  if (version >= 2) {
    v.Item(w.Xjzdfx);
    v.Item(w.Xjswzdfxpjfs);
    v.Item(w.Djzdfx);
    v.Item(w.Djswzdfxpjfs);
  }
  v.Scaled(w.DjDqy, kToHPa, -kToHPa);
  v.Item(w.DjCnSwGqWd);
  v.Item(w.DjKtSwGqWd);
  v.Item(w.DjSwZdFxPjFs);
  v.Scaled(w.ZlYPjXdSd, kToPercent, -kToPercent);
  v.Item(w.DjTfSwGqWd);
  // Written as the fraction it is, read as if it were percent: stored streams have it so.
  v.Scaled(w.DjKtSwXdSd, 0, -kToPercent);
  v.Item(w.DjSwPjFs);
  for (double& factor : w.DjLfStCxXz) v.Item(factor);
  v.Item(w.DistrictCode);
  v.Item(w.DBMNPJWD);
  v.Item(w.DBMZRYPJWD);
  v.Item(w.DBMZLYPJWD);
  v.Item(w.Aux1);
  v.Item(w.Aux2);
  for (int k = 0; k < 9; ++k) {
    v.Item(w.LfStCxAngle[k]);
    v.Item(w.LfStCxXz[k]);
  }
  for (double& t : w.MonthTemp1) v.Item(t);
  v.Item(w.EpwName);
  v.Item(w.EpwType);
  v.Item(w.TimeZone);
  v.Item(w.Elevation);
  v.Item(w.CityType);
  v.Day(w.SumDesignDay);
  v.Day(w.WinDesignDay);
  if (version >= 3) {
    for (double& t : w.MonthTemp2) v.Item(t);
  }
  if (version >= 4) {
    v.Item(w.SumWindDef);
    v.Item(w.WinWindDef);
  }
}

// The named exchange (the weather table's columns), after the CAData items. Here every scaling is
// symmetric, DjKtSwXdSd's included.
template <class Visit>
void WalkExchange(Visit& v, CQKWeatherData& w, unsigned long version) {
  v.Item(L"CId", w.CId);
  v.Item(L"DistrictCode", w.DistrictCode);
  v.Item(L"WD", w.WD);
  v.Item(L"JD", w.JD);
  v.Scaled(L"DjDqy", w.DjDqy, kToHPa);
  v.Scaled(L"XjDqy", w.XjDqy, kToHPa);
  v.Item(L"DjCnSwGqWd", w.DjCnSwGqWd);
  v.Item(L"DjKtSwGqWd", w.DjKtSwGqWd);
  v.Item(L"XjKtSwGqWd", w.XjKtSwGqWd);
  v.Item(L"XjKtRPjWd", w.XjKtRPjWd);
  v.Item(L"XjJsRJC", w.XjJsRJC);
  v.Item(L"XjKtSwSqWd", w.XjKtSwSqWd);
  if (version >= 2) {
    v.Item(L"Xjzdfx", w.Xjzdfx);
    v.Item(L"Xjswzdfxpjfs", w.Xjswzdfxpjfs);
    v.Item(L"Djzdfx", w.Djzdfx);
    v.Item(L"Djswzdfxpjfs", w.Djswzdfxpjfs);
  }
  v.Scaled(L"ZlYPjXdSd", w.ZlYPjXdSd, kToPercent);
  v.Scaled(L"ZRYPjXdSd", w.ZRYPjXdSd, kToPercent);
  v.Item(L"DjSwZdFxPjFs", w.DjSwZdFxPjFs);
  v.Item(L"XjSwPjFs", w.XjSwPjFs);
  v.Item(L"XjKtDqTmDDj", w.XjKtDqTmDDj);
  v.Item(L"XjTfSwGqWd", w.XjTfSwGqWd);
  v.Scaled(L"XjTfSwXdSd", w.XjTfSwXdSd, kToPercent);
  v.Item(L"DjTfSwGqWd", w.DjTfSwGqWd);
  v.Scaled(L"DjKtSwXdSd", w.DjKtSwXdSd, kToPercent);
  v.Item(L"DjSwPjFs", w.DjSwPjFs);
  for (int k = 0; k < 8; ++k) v.Item(kDirectionItems[k], w.DjLfStCxXz[k]);
  v.Item(L"DBMNPJWD", w.DBMNPJWD);
  v.Item(L"DBMZRYPJWD", w.DBMZRYPJWD);
  v.Item(L"DBMZLYPJWD", w.DBMZLYPJWD);
  v.Item(L"CityType", w.CityType);
  v.Item(L"EpwName", w.EpwName);
  v.Item(L"EpwType", w.EpwType);
  v.Item(L"Elevation", w.Elevation);
  v.Item(L"TimeZone", w.TimeZone);
  WalkDesignDayItems(v, true, w.SumDesignDay);
  WalkDesignDayItems(v, false, w.WinDesignDay);
  v.Item(L"SumWindDef", w.SumWindDef);
  v.Item(L"WinWindDef", w.WinWindDef);
}

void SetDesignDay(CQKDesignData& day, double maxDryBulb, double range, double humMaxDryBulb,
                  double windSpeed, double windDirection, double skyClearness, int month,
                  int dayType) {
  day.MaxDryBulbTemp = maxDryBulb;
  day.DailyTempRange = range;
  day.HumMaxDryBulb = humMaxDryBulb;
  day.BarPress = 100950.0;
  day.WindSpeed = windSpeed;
  day.WindDirection = windDirection;
  day.SkyClearness = skyClearness;
  day.RainIndicator = 0;
  day.SnowIndicator = 0;
  day.DayOfMonth = 21;
  day.Month = month;
  day.DayType = dayType;
  day.DSTIndicator = 0;
  day.HumIndType = 0;
}

template <std::size_t N>
void CopyArray(double (&to)[N], const double (&from)[N]) {
  for (std::size_t i = 0; i < N; ++i) to[i] = from[i];
}

}  // namespace

// Init by its own name: while this constructor runs, only this class's defaults exist.
CQKWeatherData::CQKWeatherData() : LfStCxXz{} { CQKWeatherData::Init(); }

void CQKWeatherData::Init() {
  CId = 8;
  CountryName = L"中国";
  ProvinceName = L"北京市";
  CityName = L"北 京";  // the blank between the characters is in the shipped default
  JD = 116.47 * kDegree;
  WD = 39.8 * kDegree;
  XjDqy = 99860.0;
  XjKtSwGqWd = 33.2;
  XjKtSwSqWd = 26.4;
  XjKtRPjWd = 28.6;
  XjJsRJC = 8.8;
  XjSwPjFs = 1.9;
  XjKtDqTmDDj = 4;
  ZRYPjXdSd = 0.6;
  XjTfSwGqWd = 30.0;
  XjTfSwXdSd = 0.58;
  Xjzdfx = 45.0;
  Xjswzdfxpjfs = 0.58;  // small, but it is the value shipped
  DjDqy = 102040.0;
  DjCnSwGqWd = -9.0;
  DjKtSwGqWd = -12.0;
  DjSwZdFxPjFs = 4.8;
  ZlYPjXdSd = 0.45;
  DjTfSwGqWd = -7.6;
  DjKtSwXdSd = 0.37;
  DjSwPjFs = 2.7;
  Djzdfx = 45.0;
  Djswzdfxpjfs = 2.7;
  SumWindDef = L"N";
  WinWindDef = L"N";
  for (double& factor : DjLfStCxXz) factor = 1.0;
  DistrictCode = 5;  // 寒冷B区
  DBMNPJWD = 13.7;
  DBMZRYPJWD = 29.4;
  DBMZLYPJWD = -5.4;
  CopyArray(MonthTemp1, {8.36, 6.12, 5.63, 6.31, 9.68, 13.3, 16.62, 18.93, 19.47, 18.16, 15.28, 11.76});
  CopyArray(MonthTemp2, {0.14, -1.08, 1.09, 4.49, 13.37, 20.22, 24.85, 26.25, 23.86, 18.53, 11.42, 4.82});
  Aux1 = 0;
  Aux2 = 0;
  CopyArray(LfStCxAngle, {-180.0, -135.0, -90.0, -45.0, 0.0, 45.0, 90.0, 135.0, 180.0});
  EpwName = L"CHN_Beijing.Beijing.545110_CSWD.epw";
  EpwType = 0;
  TimeZone = 8.0;
  Elevation = 31.3;
  CityType = 2;
  SetDesignDay(SumDesignDay, 34.9, 8.9, 22.2, 3.4, 180.0, 1.0, 7, 1);
  SetDesignDay(WinDesignDay, -10.8, 0.0, -10.8, 2.2, 340.0, 0.0, 1, 0);
}

void CQKWeatherData::SetCurVersion(int version) {
  CAData::kCurrentVersionNumber = static_cast<unsigned long>(version);
}

ADataDef::ErrorCode CQKWeatherData::DataInPut(CADataStream stream) {
  CAData::DataInPut(stream);
  StreamReader reader{stream};
  WalkStream(reader, *this, kCurrentVersionNumber);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKWeatherData::DataOutPut(CADataStream stream) {
  CAData::DataOutPut(stream);
  StreamWriter writer{stream};
  WalkStream(writer, *this, kCurrentVersionNumber);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKWeatherData::DataInPro(CADataExchange exchange) {
  CAData::DataInPro(exchange);
  ExchangeReader reader{exchange};
  WalkExchange(reader, *this, kCurrentVersionNumber);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKWeatherData::DataOutPro(CADataExchange exchange) {
  CAData::DataOutPro(exchange);
  ExchangeWriter writer{exchange};
  WalkExchange(writer, *this, kCurrentVersionNumber);
  return ADataDef::AD_OK;
}

void CQKWeatherData::FlushDjLfStCxXz() {
  for (int k = 0; k < 8; ++k) LfStCxXz[k] = DjLfStCxXz[k];
  LfStCxXz[8] = DjLfStCxXz[0];
}

double CQKWeatherData::GetDjLfStCxXz(double) { return 1.0; }

void CQKWeatherData::GetSwZsGqWd(double hourly[24]) const {
  for (int h = 0; h < 24; ++h) hourly[h] = 0.0;
}

void CQKWeatherData::GetSwZsJsWd(double[24]) const {}
void CQKWeatherData::GetSwZsSqWd(double[24]) const {}
void CQKWeatherData::GetSwZsXdSd(double[24]) {}

CString CQKWeatherData::DistrictCodeToStr(int code) {
  if (code < 1 || code > 11) return CString();
  return kZoneNames[code - 1];
}

int CQKWeatherData::StrToDistrictCode(const wchar_t* name) {
  if (name == nullptr) return -1;
  for (int code = 1; code <= 11; ++code) {
    if (CString(kZoneNames[code - 1]) == name) return code;
  }
  return -1;
}
