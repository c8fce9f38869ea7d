#include "reference/places/PlaceLoader.h"

#include <array>
#include <cmath>
#include <map>
#include <numbers>
#include <sstream>
#include <string>
#include <vector>

#include "text/CsvTable.h"
#include "reference/RowNulls.h"
#include "reference/SideRows.h"
#include "foundation/QKLoad.h"
#include "geography/CQKCity.h"
#include "geography/CQKCountry.h"
#include "geography/CQKProvince.h"
#include "reference/places/WeatherFiles.h"
#include "tablekit/CADODatabase.h"
#include "weather/CQKWeather.h"

namespace qkdb {

namespace {

using Corrections = std::map<std::pair<std::string, std::string>, std::string>;  // (station, column) → value

// The weather items the outdoor design table has nothing for: stored as null in every row. The design
// days come from a station's EPW file, which the shipped data does not include.
const std::vector<std::string> kNeverGiven = {
    "DistrictCode", "ZlYPjXdSd", "ZRYPjXdSd", "XjKtDqTmDDj", "DjLfStCxXz_N", "DjLfStCxXz_NE", "DjLfStCxXz_E",
    "DjLfStCxXz_SE", "DjLfStCxXz_S", "DjLfStCxXz_SW", "DjLfStCxXz_W", "DjLfStCxXz_NW", "DBMNPJWD", "DBMZRYPJWD",
    "DBMZLYPJWD", "CityType", "EpwType", "SumMaxDryBulbTemp", "SumDailyTempRange", "SumHumMaxDryBulb",
    "SumBarPress", "SumWindSpeed", "SumWindDirection", "SumSkyClearness", "SumRainIndicator", "SumSnowIndicator",
    "SumDayOfMonth", "SumMonth", "SumDayType", "SumDSTIndicator", "SumHumIndType", "WinMaxDryBulbTemp",
    "WinDailyTempRange", "WinHumMaxDryBulb", "WinBarPress", "WinWindSpeed", "WinWindDirection", "WinSkyClearness",
    "WinRainIndicator", "WinSnowIndicator", "WinDayOfMonth", "WinMonth", "WinDayType", "WinDSTIndicator",
    "WinHumIndType"};

// The 16 compass points, clockwise from north, 22.5° apart.
const std::array<const char*, 16> kCompass = {"N", "NNE", "NE", "ENE", "E", "ESE", "SE", "SSE",
                                              "S", "SSW", "SW", "WSW", "W", "WNW", "NW", "NNW"};

double CompassDegrees(const std::string& point) {
  for (std::size_t i = 0; i < kCompass.size(); ++i)
    if (point == kCompass[i]) return 22.5 * static_cast<double>(i);
  return -1.0;
}

double Radians(double degrees) { return degrees * std::numbers::pi / 180.0; }

std::vector<std::string> Words(const std::string& text) {
  std::istringstream in(text);
  std::vector<std::string> words;
  for (std::string word; in >> word;) words.push_back(word);
  return words;
}

Corrections ReadCorrections(const CsvTable& table) {
  Corrections corrections;
  for (std::size_t r = 0; r < table.Size(); ++r)
    corrections[{table.Field(r, "station_id"), table.Field(r, "column")}] = table.Field(r, "value");
  return corrections;
}

// One station's row of the outdoor design table as a weather record, and the columns it leaves null.
class StationRow {
 public:
  StationRow(const CsvTable& table, std::size_t row, const Corrections& corrections)
      : m_table(table), m_row(row), m_station(table.Field(row, "station_id")), m_corrections(corrections) {}

  // value from column, or false (and item recorded as not given) when the column is empty or a
  // correction left it out.
  bool Take(const std::string& column, const std::string& item, double& value) {
    double v = 0.0;
    auto fix = m_corrections.find({m_station, column});
    bool given = fix == m_corrections.end() ? m_table.Number(m_row, column, v) : !fix->second.empty();
    if (given && fix != m_corrections.end()) v = std::stod(fix->second);
    if (!given) {
      m_null.push_back(item);
      return false;
    }
    value = v;
    return true;
  }
  // The value times 10^exponent, its decimal point moved: 58 % is 0.58, so that the weather table
  // stores 58 again (QKLoad::ScaleByPowerOfTen).
  void TakeScaled(const std::string& column, const std::string& item, double& value, int exponent) {
    if (Take(column, item, value)) value = QKLoad::ScaleByPowerOfTen(value, exponent);
  }
  void Leave(const std::string& item) { m_null.push_back(item); }
  const std::string& Text(const std::string& column) const { return m_table.Field(m_row, column); }
  const std::vector<std::string>& Null() const { return m_null; }

 private:
  const CsvTable& m_table;
  std::size_t m_row;
  std::string m_station;
  const Corrections& m_corrections;
  std::vector<std::string> m_null;
};

// The most frequent wind direction without calm: its compass word and degrees, and the mean speed.
void TakeWind(StationRow& row, const std::string& season, CString& word, double& degrees, double& speed,
              const std::string& wordItem, const std::string& degreesItem, const std::string& speedItem) {
  const std::string& point = row.Text(season + "_prevailing_dir_nocalm");
  if (CompassDegrees(point) >= 0.0) {
    word = CString::FromUtf8(point);
    degrees = CompassDegrees(point);
  } else {
    row.Leave(wordItem);
    row.Leave(degreesItem);
  }
  row.Take(season + "_prevailing_dir_wind_ms", speedItem, speed);
}

void FillWeather(StationRow& row, CQKWeather& w, const WeatherFile* file) {
  double lat = 0.0;
  double lon = 0.0;
  if (row.Take("latitude_deg", "WD", lat)) w.WD = Radians(lat);
  if (row.Take("longitude_deg", "JD", lon)) w.JD = Radians(lon);
  row.TakeScaled("pressure_winter_hpa", "DjDqy", w.DjDqy, 2);  // hPa in the data, Pa in memory
  row.TakeScaled("pressure_summer_hpa", "XjDqy", w.XjDqy, 2);
  row.Take("heating_db_c", "DjCnSwGqWd", w.DjCnSwGqWd);
  row.Take("winter_ac_db_c", "DjKtSwGqWd", w.DjKtSwGqWd);
  row.TakeScaled("winter_ac_rh_pct", "DjKtSwXdSd", w.DjKtSwXdSd, -2);  // percent in the data, fraction in memory
  row.Take("winter_vent_db_c", "DjTfSwGqWd", w.DjTfSwGqWd);
  row.Take("winter_mean_wind_ms", "DjSwPjFs", w.DjSwPjFs);
  const bool dryBulb = row.Take("summer_ac_db_c", "XjKtSwGqWd", w.XjKtSwGqWd);
  row.Take("summer_ac_wb_c", "XjKtSwSqWd", w.XjKtSwSqWd);
  const bool dailyMean = row.Take("summer_ac_daily_mean_db_c", "XjKtRPjWd", w.XjKtRPjWd);
  row.Take("summer_vent_db_c", "XjTfSwGqWd", w.XjTfSwGqWd);
  row.TakeScaled("summer_vent_rh_pct", "XjTfSwXdSd", w.XjTfSwXdSd, -2);
  row.Take("summer_mean_wind_ms", "XjSwPjFs", w.XjSwPjFs);
  // The summer design daily range follows from the two summer temperatures by the standard's own
  // relation t_wg = t_wp + 0.52·Δt_r (the dry-bulb design temperature is the daily mean plus 0.52 of
  // the range), rounded to 0.1 K as the standard prints temperatures.
  if (dryBulb && dailyMean)
    w.XjJsRJC = std::round((w.XjKtSwGqWd - w.XjKtRPjWd) / 0.52 * 10.0) / 10.0;
  else
    row.Leave("XjJsRJC");
  TakeWind(row, "summer", w.SumWindDef, w.Xjzdfx, w.Xjswzdfxpjfs, "SumWindDef", "Xjzdfx", "Xjswzdfxpjfs");
  TakeWind(row, "winter", w.WinWindDef, w.Djzdfx, w.DjSwZdFxPjFs, "WinWindDef", "Djzdfx", "DjSwZdFxPjFs");
  w.Djswzdfxpjfs = w.DjSwZdFxPjFs;  // one column holds both (see the schema)
  row.Take("elevation_m", "Elevation", w.Elevation);
  w.TimeZone = 8.0;  // all of China keeps Beijing time, UTC+8
  // Every station of the data gets a file (its own or its nearest neighbour's); one that got none
  // (no position to measure from) has a null EpwName, and the lookups borrow a neighbour's climate.
  if (file)
    w.EpwName = CString::FromUtf8(file->file);
  else
    row.Leave("EpwName");
}

// The station's position in degrees, after the corrections; unknown where the data leaves it out.
Station PlaceOf(const CsvTable& stations, std::size_t r, const Corrections& corrections) {
  StationRow row(stations, r, corrections);
  Station s{stations.Field(r, "station_id"), stations.Field(r, "station_name"), std::nullopt, std::nullopt};
  double degrees = 0.0;
  if (row.Take("latitude_deg", "WD", degrees)) s.latitude = degrees;
  if (row.Take("longitude_deg", "JD", degrees)) s.longitude = degrees;
  return s;
}

// Where the city's weather file comes from, one row of WeatherFileSource.
void RecordSource(SideRows& rows, long cityId, const WeatherFile& w) {
  SideRows::Row row = {{"CId", static_cast<long long>(cityId)}, {"EpwName", w.file}, {"WmoId", w.wmo},
                       {"Station", w.station},                  {"Source", w.source}, {"Own", w.own ? 1LL : 0LL}};
  // 0.1 km: the positions are printed to 1'; null when the city's position is not known.
  if (w.distanceKm) row.emplace_back("DistanceKm", std::round(*w.distanceKm * 10.0) / 10.0);
  rows.Insert("WeatherFileSource", row, "record where the weather file of city " + std::to_string(cityId) + " comes from");
}

}  // namespace

Places LoadPlaces(const std::filesystem::path& dataDir, CADODatabase& db) {
  const CsvTable provinces(dataDir / "cn_provinces.csv");
  const CsvTable cities(dataDir / "cn_cities.csv");
  const CsvTable stations(dataDir / "cn_outdoor_design_gb50736.csv");
  const Corrections corrections = ReadCorrections(CsvTable(dataDir / "station_corrections.csv"));
  std::vector<Station> places;
  for (std::size_t r = 0; r < stations.Size(); ++r) places.push_back(PlaceOf(stations, r, corrections));
  const std::map<std::string, WeatherFile> files = ChooseWeatherFiles(places, CsvTable(dataDir / "cn_epw_stations.csv"));
  // Written row by row between the records' writes, on their connection.
  SideRows sources(db);

  CQKCountry country;
  country.Name = L"中国";
  CheckWritten(country.AddIfNotExist(nullptr, 1) != QKLoad::DBS_ERROR, "the country 中国");

  std::map<std::string, long> provinceIds;
  for (std::size_t r = 0; r < provinces.Size(); ++r) {
    CQKProvince province;
    province.CId = country.GetID();
    province.Name = CString::FromUtf8(provinces.Field(r, "province_name"));
    CheckWritten(province.AddIfNotExist(nullptr, 1) != QKLoad::DBS_ERROR, provinces.Where(r));
    provinceIds[provinces.Field(r, "province_name")] = province.GetID();
  }
  auto provinceOf = [&](const CsvTable& table, std::size_t r, const std::string& column) {
    auto found = provinceIds.find(table.Field(r, column));
    if (found == provinceIds.end()) throw DataError(table.Where(r) + ": a province cn_provinces.csv does not have");
    return found->second;
  };
  auto addCity = [&](long provinceId, const std::string& name, const std::string& where) {
    CQKCity city;
    city.PId = provinceId;
    city.Name = CString::FromUtf8(name);
    CheckWritten(city.AddIfNotExist(nullptr, 1) != QKLoad::DBS_ERROR, where);
    return city.GetID();
  };

  std::map<std::string, long> cityOfStation;  // the station a city takes as its own
  for (std::size_t r = 0; r < cities.Size(); ++r) {
    const long id = addCity(provinceOf(cities, r, "province_name"), cities.Field(r, "city_name"), cities.Where(r));
    const auto ids = Words(cities.Field(r, "station_ids_gb50736"));
    if (!ids.empty()) cityOfStation[ids.front()] = id;
  }

  std::map<std::string, long> cityOf;  // every station's city
  for (std::size_t r = 0; r < stations.Size(); ++r) {
    const std::string& id = stations.Field(r, "station_id");
    auto own = cityOfStation.find(id);
    const long cityId = own != cityOfStation.end()
                            ? own->second
                            : addCity(provinceOf(stations, r, "province"), stations.Field(r, "station_name"), stations.Where(r));
    cityOf[id] = cityId;
    CQKWeather weather;
    weather.CId = cityId;
    StationRow row(stations, r, corrections);
    auto file = files.find(id);
    FillWeather(row, weather, file != files.end() ? &file->second : nullptr);
    if (file != files.end()) RecordSource(sources, cityId, file->second);
    CheckWritten(weather.AddIfNotExist(nullptr, 1) != QKLoad::DBS_ERROR, stations.Where(r));
    std::vector<std::string> null = kNeverGiven;
    null.insert(null.end(), row.Null().begin(), row.Null().end());
    ClearColumns(db, "Weather", weather.GetID(), null);
  }
  return {cityOf, files};
}

}  // namespace qkdb
