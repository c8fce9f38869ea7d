#include "weather/CQKWeatherData.h"

#include <numbers>

namespace {

constexpr double kDegree = std::numbers::pi / 180.0;
constexpr double kPaPerHPa = 100.0;
constexpr double kPercentPerFraction = 100.0;

// Compass suffixes of the eight "DjLfStCxXz_…" items, in the order of the factors.
constexpr const wchar_t* kDirectionItems[8] = {
    L"DjLfStCxXz_N", L"DjLfStCxXz_NE", L"DjLfStCxXz_E", L"DjLfStCxXz_SE",
    L"DjLfStCxXz_S", L"DjLfStCxXz_SW", L"DjLfStCxXz_W", L"DjLfStCxXz_NW"};

constexpr const wchar_t* kZoneNames[11] = {L"严寒A区", L"严寒B区", L"严寒C区", L"寒冷A区",
                                           L"寒冷B区", L"夏热冬冷A区", L"夏热冬冷B区", L"夏热冬暖A区",
                                           L"夏热冬暖B区", L"温和A区", L"温和B区"};

unsigned long Version() { return CAData::kCurrentVersionNumber; }

// Reads one double and stores it times factor; a failed read leaves the field as it was.
void ReadScaled(CADataStream& stream, double& field, double factor) {
  double read = 0.0;
  if (stream.ReadItem(&read) == 0) field = read * factor;
}

void ReadScaled(CADataExchange& exchange, const wchar_t* name, double& field, double factor) {
  double read = 0.0;
  if (exchange.ReadItem(name, &read) == 0) field = read * factor;
}

// The fourteen design-day fields exchanged by name under a prefix ("Sum" or "Win"), in the
// exchange's order, which differs from the design day's own stream order.
template <class Visit>
void EachDesignDayItem(CQKDesignData& day, Visit&& visit) {
  visit(L"MaxDryBulbTemp", day.MaxDryBulbTemp);
  visit(L"DailyTempRange", day.DailyTempRange);
  visit(L"HumMaxDryBulb", day.HumMaxDryBulb);
  visit(L"BarPress", day.BarPress);
  visit(L"WindSpeed", day.WindSpeed);
  visit(L"WindDirection", day.WindDirection);
  visit(L"SkyClearness", day.SkyClearness);
  visit(L"RainIndicator", day.RainIndicator);
  visit(L"SnowIndicator", day.SnowIndicator);
  visit(L"DayOfMonth", day.DayOfMonth);
  visit(L"Month", day.Month);
  visit(L"DayType", day.DayType);
  visit(L"DSTIndicator", day.DSTIndicator);
  visit(L"HumIndType", day.HumIndType);
}

void ReadDesignDay(CADataExchange& exchange, const wchar_t* prefix, CQKDesignData& day) {
  EachDesignDayItem(day, [&](const wchar_t* item, auto& field) {
    exchange.ReadItem(CString(prefix) + item, &field);
  });
}

void WriteDesignDay(CADataExchange& exchange, const wchar_t* prefix, CQKDesignData& day) {
  EachDesignDayItem(day, [&](const wchar_t* item, auto& field) {
    exchange.WriteItem(CString(prefix) + item, field);
  });
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
  const unsigned long v = Version();
  stream.ReadItem(&CId);
  stream.ReadItem(&CountryName);
  stream.ReadItem(&ProvinceName);
  stream.ReadItem(&CityName);
  stream.ReadItem(&JD);
  stream.ReadItem(&WD);
  ReadScaled(stream, XjDqy, kPaPerHPa);
  stream.ReadItem(&XjKtSwGqWd);
  stream.ReadItem(&XjKtSwSqWd);
  stream.ReadItem(&XjKtRPjWd);
  stream.ReadItem(&XjJsRJC);
  stream.ReadItem(&XjSwPjFs);
  stream.ReadItem(&XjKtDqTmDDj);
  ReadScaled(stream, ZRYPjXdSd, 1.0 / kPercentPerFraction);
  stream.ReadItem(&XjTfSwGqWd);
  ReadScaled(stream, XjTfSwXdSd, 1.0 / kPercentPerFraction);
  if (v >= 2) {
    stream.ReadItem(&Xjzdfx);
    stream.ReadItem(&Xjswzdfxpjfs);
    stream.ReadItem(&Djzdfx);
    stream.ReadItem(&Djswzdfxpjfs);
  }
  ReadScaled(stream, DjDqy, kPaPerHPa);
  stream.ReadItem(&DjCnSwGqWd);
  stream.ReadItem(&DjKtSwGqWd);
  stream.ReadItem(&DjSwZdFxPjFs);
  ReadScaled(stream, ZlYPjXdSd, 1.0 / kPercentPerFraction);
  stream.ReadItem(&DjTfSwGqWd);
  // Written as the fraction it is, read as if it were percent: the stream format has it so.
  ReadScaled(stream, DjKtSwXdSd, 1.0 / kPercentPerFraction);
  stream.ReadItem(&DjSwPjFs);
  for (double& factor : DjLfStCxXz) stream.ReadItem(&factor);
  stream.ReadItem(&DistrictCode);
  stream.ReadItem(&DBMNPJWD);
  stream.ReadItem(&DBMZRYPJWD);
  stream.ReadItem(&DBMZLYPJWD);
  stream.ReadItem(&Aux1);
  stream.ReadItem(&Aux2);
  for (int k = 0; k < 9; ++k) {
    stream.ReadItem(&LfStCxAngle[k]);
    stream.ReadItem(&LfStCxXz[k]);
  }
  for (double& t : MonthTemp1) stream.ReadItem(&t);
  stream.ReadItem(&EpwName);
  stream.ReadItem(&EpwType);
  stream.ReadItem(&TimeZone);
  stream.ReadItem(&Elevation);
  stream.ReadItem(&CityType);
  SumDesignDay.DataInPut(stream);
  WinDesignDay.DataInPut(stream);
  if (v >= 3) {
    for (double& t : MonthTemp2) stream.ReadItem(&t);
  }
  if (v >= 4) {
    stream.ReadItem(&SumWindDef);
    stream.ReadItem(&WinWindDef);
  }
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKWeatherData::DataOutPut(CADataStream stream) {
  CAData::DataOutPut(stream);
  const unsigned long v = Version();
  stream.WriteItem(CId);
  stream.WriteItem(CountryName);
  stream.WriteItem(ProvinceName);
  stream.WriteItem(CityName);
  stream.WriteItem(JD);
  stream.WriteItem(WD);
  stream.WriteItem(XjDqy / kPaPerHPa);
  stream.WriteItem(XjKtSwGqWd);
  stream.WriteItem(XjKtSwSqWd);
  stream.WriteItem(XjKtRPjWd);
  stream.WriteItem(XjJsRJC);
  stream.WriteItem(XjSwPjFs);
  stream.WriteItem(XjKtDqTmDDj);
  stream.WriteItem(ZRYPjXdSd * kPercentPerFraction);
  stream.WriteItem(XjTfSwGqWd);
  stream.WriteItem(XjTfSwXdSd * kPercentPerFraction);
  if (v >= 2) {
    stream.WriteItem(Xjzdfx);
    stream.WriteItem(Xjswzdfxpjfs);
    stream.WriteItem(Djzdfx);
    stream.WriteItem(Djswzdfxpjfs);
  }
  stream.WriteItem(DjDqy / kPaPerHPa);
  stream.WriteItem(DjCnSwGqWd);
  stream.WriteItem(DjKtSwGqWd);
  stream.WriteItem(DjSwZdFxPjFs);
  stream.WriteItem(ZlYPjXdSd * kPercentPerFraction);
  stream.WriteItem(DjTfSwGqWd);
  stream.WriteItem(DjKtSwXdSd);  // as held, unlike the other humidities (see DataInPut)
  stream.WriteItem(DjSwPjFs);
  for (double factor : DjLfStCxXz) stream.WriteItem(factor);
  stream.WriteItem(DistrictCode);
  stream.WriteItem(DBMNPJWD);
  stream.WriteItem(DBMZRYPJWD);
  stream.WriteItem(DBMZLYPJWD);
  stream.WriteItem(Aux1);
  stream.WriteItem(Aux2);
  for (int k = 0; k < 9; ++k) {
    stream.WriteItem(LfStCxAngle[k]);
    stream.WriteItem(LfStCxXz[k]);
  }
  for (double t : MonthTemp1) stream.WriteItem(t);
  stream.WriteItem(EpwName);
  stream.WriteItem(EpwType);
  stream.WriteItem(TimeZone);
  stream.WriteItem(Elevation);
  stream.WriteItem(CityType);
  SumDesignDay.DataOutPut(stream);
  WinDesignDay.DataOutPut(stream);
  if (v >= 3) {
    for (double t : MonthTemp2) stream.WriteItem(t);
  }
  if (v >= 4) {
    stream.WriteItem(SumWindDef);
    stream.WriteItem(WinWindDef);
  }
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKWeatherData::DataInPro(CADataExchange exchange) {
  CAData::DataInPro(exchange);
  exchange.ReadItem(L"CId", &CId);
  exchange.ReadItem(L"DistrictCode", &DistrictCode);
  exchange.ReadItem(L"WD", &WD);
  exchange.ReadItem(L"JD", &JD);
  ReadScaled(exchange, L"DjDqy", DjDqy, kPaPerHPa);
  ReadScaled(exchange, L"XjDqy", XjDqy, kPaPerHPa);
  exchange.ReadItem(L"DjCnSwGqWd", &DjCnSwGqWd);
  exchange.ReadItem(L"DjKtSwGqWd", &DjKtSwGqWd);
  exchange.ReadItem(L"XjKtSwGqWd", &XjKtSwGqWd);
  exchange.ReadItem(L"XjKtRPjWd", &XjKtRPjWd);
  exchange.ReadItem(L"XjJsRJC", &XjJsRJC);
  exchange.ReadItem(L"XjKtSwSqWd", &XjKtSwSqWd);
  if (Version() >= 2) {
    exchange.ReadItem(L"Xjzdfx", &Xjzdfx);
    exchange.ReadItem(L"Xjswzdfxpjfs", &Xjswzdfxpjfs);
    exchange.ReadItem(L"Djzdfx", &Djzdfx);
    exchange.ReadItem(L"Djswzdfxpjfs", &Djswzdfxpjfs);
  }
  ReadScaled(exchange, L"ZlYPjXdSd", ZlYPjXdSd, 1.0 / kPercentPerFraction);
  ReadScaled(exchange, L"ZRYPjXdSd", ZRYPjXdSd, 1.0 / kPercentPerFraction);
  exchange.ReadItem(L"DjSwZdFxPjFs", &DjSwZdFxPjFs);
  exchange.ReadItem(L"XjSwPjFs", &XjSwPjFs);
  exchange.ReadItem(L"XjKtDqTmDDj", &XjKtDqTmDDj);
  exchange.ReadItem(L"XjTfSwGqWd", &XjTfSwGqWd);
  ReadScaled(exchange, L"XjTfSwXdSd", XjTfSwXdSd, 1.0 / kPercentPerFraction);
  exchange.ReadItem(L"DjTfSwGqWd", &DjTfSwGqWd);
  ReadScaled(exchange, L"DjKtSwXdSd", DjKtSwXdSd, 1.0 / kPercentPerFraction);
  exchange.ReadItem(L"DjSwPjFs", &DjSwPjFs);
  for (int k = 0; k < 8; ++k) exchange.ReadItem(kDirectionItems[k], &DjLfStCxXz[k]);
  exchange.ReadItem(L"DBMNPJWD", &DBMNPJWD);
  exchange.ReadItem(L"DBMZRYPJWD", &DBMZRYPJWD);
  exchange.ReadItem(L"DBMZLYPJWD", &DBMZLYPJWD);
  exchange.ReadItem(L"CityType", &CityType);
  exchange.ReadItem(L"EpwName", &EpwName);
  exchange.ReadItem(L"EpwType", &EpwType);
  exchange.ReadItem(L"Elevation", &Elevation);
  exchange.ReadItem(L"TimeZone", &TimeZone);
  ReadDesignDay(exchange, L"Sum", SumDesignDay);
  ReadDesignDay(exchange, L"Win", WinDesignDay);
  exchange.ReadItem(L"SumWindDef", &SumWindDef);
  exchange.ReadItem(L"WinWindDef", &WinWindDef);
  return ADataDef::AD_OK;
}

ADataDef::ErrorCode CQKWeatherData::DataOutPro(CADataExchange exchange) {
  CAData::DataOutPro(exchange);
  exchange.WriteItem(L"CId", CId);
  exchange.WriteItem(L"DistrictCode", DistrictCode);
  exchange.WriteItem(L"WD", WD);
  exchange.WriteItem(L"JD", JD);
  exchange.WriteItem(L"DjDqy", DjDqy / kPaPerHPa);
  exchange.WriteItem(L"XjDqy", XjDqy / kPaPerHPa);
  exchange.WriteItem(L"DjCnSwGqWd", DjCnSwGqWd);
  exchange.WriteItem(L"DjKtSwGqWd", DjKtSwGqWd);
  exchange.WriteItem(L"XjKtSwGqWd", XjKtSwGqWd);
  exchange.WriteItem(L"XjKtRPjWd", XjKtRPjWd);
  exchange.WriteItem(L"XjJsRJC", XjJsRJC);
  exchange.WriteItem(L"XjKtSwSqWd", XjKtSwSqWd);
  if (Version() >= 2) {
    exchange.WriteItem(L"Xjzdfx", Xjzdfx);
    exchange.WriteItem(L"Xjswzdfxpjfs", Xjswzdfxpjfs);
    exchange.WriteItem(L"Djzdfx", Djzdfx);
    exchange.WriteItem(L"Djswzdfxpjfs", Djswzdfxpjfs);
  }
  exchange.WriteItem(L"ZlYPjXdSd", ZlYPjXdSd * kPercentPerFraction);
  exchange.WriteItem(L"ZRYPjXdSd", ZRYPjXdSd * kPercentPerFraction);
  exchange.WriteItem(L"DjSwZdFxPjFs", DjSwZdFxPjFs);
  exchange.WriteItem(L"XjSwPjFs", XjSwPjFs);
  exchange.WriteItem(L"XjKtDqTmDDj", XjKtDqTmDDj);
  exchange.WriteItem(L"XjTfSwGqWd", XjTfSwGqWd);
  exchange.WriteItem(L"XjTfSwXdSd", XjTfSwXdSd * kPercentPerFraction);
  exchange.WriteItem(L"DjTfSwGqWd", DjTfSwGqWd);
  exchange.WriteItem(L"DjKtSwXdSd", DjKtSwXdSd * kPercentPerFraction);
  exchange.WriteItem(L"DjSwPjFs", DjSwPjFs);
  for (int k = 0; k < 8; ++k) exchange.WriteItem(kDirectionItems[k], DjLfStCxXz[k]);
  exchange.WriteItem(L"DBMNPJWD", DBMNPJWD);
  exchange.WriteItem(L"DBMZRYPJWD", DBMZRYPJWD);
  exchange.WriteItem(L"DBMZLYPJWD", DBMZLYPJWD);
  exchange.WriteItem(L"CityType", CityType);
  exchange.WriteItem(L"EpwName", EpwName);
  exchange.WriteItem(L"EpwType", EpwType);
  exchange.WriteItem(L"Elevation", Elevation);
  exchange.WriteItem(L"TimeZone", TimeZone);
  WriteDesignDay(exchange, L"Sum", SumDesignDay);
  WriteDesignDay(exchange, L"Win", WinDesignDay);
  exchange.WriteItem(L"SumWindDef", SumWindDef);
  exchange.WriteItem(L"WinWindDef", WinWindDef);
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
