#pragma once
// CQKWeatherData: the design climate of one city: position, the outdoor design conditions of winter
// (Dj) and summer (Xj) for heating and air-conditioning loads, ground-surface temperatures, monthly
// temperatures, the winter infiltration factor per orientation, the climate zone, the city's EPW
// weather file and its two design days. Defaults are Beijing's. A plain value: copies share nothing.
//
// Units in memory: angles of position in radians, pressures in Pa, relative humidities as fractions
// 0..1. The ordered stream and the named exchange carry pressures in hPa and humidities in percent,
// with one deliberate exception: the stream writes DjKtSwXdSd as the fraction it holds but divides
// what it reads by 100, so that value comes back a hundredth of itself through the stream. Stored
// streams depend on that; the named exchange (the database row) scales it symmetrically.
//
// Which optional blocks the stream and the exchange move depends on the shared version number
// CAData::kCurrentVersionNumber (SetCurVersion): the four most-frequent-wind items from version 2,
// MonthTemp2 from version 3, the two wind-direction words from version 4.
//
// The named items are exactly the columns of the weather table besides its "ID"; the three place
// names, Aux1, Aux2, the orientation table and the monthly tables are not among them.

#include "QKExport.h"
#include "datakit/CAData.h"
#include "mfc/CString.h"
#include "weather/CQKDesignData.h"

class QK_EXPORT CQKWeatherData : public CAData {
 public:
  CQKWeatherData();
  CQKWeatherData(const CQKWeatherData&) = default;
  CQKWeatherData& operator=(const CQKWeatherData&) = default;
  ~CQKWeatherData() override = default;

  // Sets every default (Beijing); leaves LfStCxXz as it is.
  void Init() override;
  // Sets the stream version shared by every value of the library.
  static void SetCurVersion(int version);

  // Each returns 0; an item that cannot be read leaves its field as it was.
  ADataDef::ErrorCode DataInPut(CADataStream stream) override;
  ADataDef::ErrorCode DataOutPut(CADataStream stream) override;
  ADataDef::ErrorCode DataInPro(CADataExchange exchange) override;
  ADataDef::ErrorCode DataOutPro(CADataExchange exchange) override;

  // Copies the eight factors N..NW into LfStCxXz[0..7] and N again into LfStCxXz[8], so the table
  // closes the circle from -180° to 180°.
  void FlushDjLfStCxXz();
  // 1.0 for every azimuth: the orientation factor is deliberately not applied through this accessor.
  double GetDjLfStCxXz(double azimuthDegrees);
  // Writes 0.0 into all 24 hours.
  void GetSwZsGqWd(double hourly[24]) const;
  // Hourly design temperature, wet-bulb temperature and relative humidity: these leave the caller's
  // 24 values as they were.
  void GetSwZsJsWd(double hourly[24]) const;
  void GetSwZsSqWd(double hourly[24]) const;
  void GetSwZsXdSd(double hourly[24]);

  // The climate zone named by code 1..11 ("严寒A区" .. "温和B区"); "" for any other code.
  static CString DistrictCodeToStr(int code);
  // The code whose zone name equals name exactly; -1 when none does (and for null).
  static int StrToDistrictCode(const wchar_t* name);

  long CId;               // ID of the city whose climate this is
  CString CountryName;
  CString ProvinceName;
  CString CityName;
  double JD;              // longitude, rad
  double WD;              // latitude, rad
  double XjDqy;           // summer atmospheric pressure, Pa
  double XjKtSwGqWd;      // summer air-conditioning outdoor dry-bulb, °C
  double XjKtSwSqWd;      // summer air-conditioning outdoor wet-bulb, °C
  double XjKtRPjWd;       // summer air-conditioning outdoor daily mean, °C
  double XjJsRJC;         // summer design daily range, K
  double XjSwPjFs;        // summer outdoor mean wind speed, m/s
  int XjKtDqTmDDj;        // summer atmospheric transparency grade
  double ZRYPjXdSd;       // hottest-month mean relative humidity, fraction
  double XjTfSwGqWd;      // summer ventilation outdoor dry-bulb, °C
  double XjTfSwXdSd;      // summer ventilation outdoor relative humidity, fraction
  double Xjzdfx;          // summer most frequent wind direction, degrees
  double Xjswzdfxpjfs;    // summer mean speed of the most frequent direction, m/s
  double DjDqy;           // winter atmospheric pressure, Pa
  double DjCnSwGqWd;      // winter heating outdoor dry-bulb, °C
  double DjKtSwGqWd;      // winter air-conditioning outdoor dry-bulb, °C
  double DjSwZdFxPjFs;    // winter mean speed of the most frequent direction, m/s
  double ZlYPjXdSd;       // coldest-month mean relative humidity, fraction
  double DjTfSwGqWd;      // winter ventilation outdoor dry-bulb, °C
  double DjKtSwXdSd;      // winter air-conditioning outdoor relative humidity, fraction
  double DjSwPjFs;        // winter outdoor mean wind speed, m/s
  double Djzdfx;          // winter most frequent wind direction, degrees
  double Djswzdfxpjfs;    // winter mean speed of the most frequent direction, m/s
  CString SumWindDef;     // summer most frequent wind direction as a compass word
  CString WinWindDef;     // winter most frequent wind direction as a compass word
  double DjLfStCxXz[8];   // winter infiltration factor, N, NE, E, SE, S, SW, W, NW
  int DistrictCode;       // building climate zone 1..11
  double DBMNPJWD;        // annual mean ground-surface temperature, °C
  double DBMZRYPJWD;      // hottest-month mean ground-surface temperature, °C
  double DBMZLYPJWD;      // coldest-month mean ground-surface temperature, °C
  double MonthTemp1[12];  // first monthly temperature table, January..December, °C
  double MonthTemp2[12];  // second monthly temperature table, January..December, °C
  long Aux1;              // carried only
  int Aux2;               // carried only; the weather record's constructor sets it
  double LfStCxAngle[9];  // azimuths of the orientation table, degrees, south 0, west positive
  double LfStCxXz[9];     // the factors at those azimuths, as FlushDjLfStCxXz left them
  CString EpwName;        // file name of the city's EPW weather file; "" when it has none
  int EpwType;
  double TimeZone;        // hours east of UTC
  double Elevation;       // m
  int CityType;
  CQKDesignData SumDesignDay;
  CQKDesignData WinDesignDay;
};
