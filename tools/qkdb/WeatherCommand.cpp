#include "WeatherCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iostream>
#include <nlohmann/json.hpp>
#include <numbers>
#include <optional>
#include <vector>

#include "CityNames.h"
#include "GreatCircle.h"
#include "Output.h"
#include "RowItems.h"
#include "WeatherItems.h"
#include "geography/CQKCity.h"
#include "geography/CQKCountry.h"
#include "geography/CQKProvince.h"
#include "tablekit/CADORecordset.h"
#include "weather/CQKWeatherDataAdmin.h"

namespace qkdb {

namespace {

using nlohmann::ordered_json;

constexpr double kRadiansPerDegree = std::numbers::pi / 180.0;
// --near looks at the cities within 10° of longitude and of latitude of the point (the library's
// search square, which it takes in radians): wide enough for the sparse stations of western China,
// narrow enough that a point far from every station gets no answer rather than one a continent away.
constexpr double kNearHalfWidthDegrees = 10.0;

// Kilometres to the metre: finer would only be noise from the positions' own rounding.
double RoundKm(double km) { return std::round(km * 1000.0) / 1000.0; }

std::string Position(double jd, double wd) {
  const double lon = jd / kRadiansPerDegree;
  const double lat = wd / kRadiansPerDegree;
  return Fixed(std::fabs(lon), 4) + "° " + (lon < 0 ? "W" : "E") + ", " + Fixed(std::fabs(lat), 4) + "° " +
         (lat < 0 ? "S" : "N");
}

struct Place {
  long id = 0;
  std::string city;
  std::string province;
  std::string country;

  std::string Text() const { return city + ", " + province + ", " + country + " (city ID " + std::to_string(id) + ")"; }
};

// The names of city cityId, its province and its country; "" for a name that cannot be read.
Place PlaceOfCity(long cityId) {
  Place place;
  place.id = cityId;
  CQKCity city;
  if (!city.ReadData(cityId)) return place;
  place.city = city.Name.ToUtf8();
  CQKProvince province;
  if (!province.ReadData(city.PId)) return place;
  place.province = province.Name.ToUtf8();
  CQKCountry country;
  if (country.ReadData(province.CId)) place.country = country.Name.ToUtf8();
  return place;
}

// What the command answers: the climate's items, the place whose climate it is, what is said before
// the table, and the JSON keys besides the items and the names.
struct Answer {
  ordered_json items;
  Place place;
  std::vector<std::string> heading;
  ordered_json extra = ordered_json::object();
};

// Where the weather file of cityId comes from (WeatherFileSource), when the table has a row for the
// file the city's weather row names: a database built before the table, or a file changed since,
// has none.
struct FileSource {
  std::string station;
  std::string source;
  std::optional<double> km;
  bool own = false;
};

std::optional<FileSource> SourceOfFile(CQKWeather& weather, long cityId, const CString& epwName) {
  CString sql;
  sql.Format(L"select EpwName, Station, Source, DistanceKm, Own from WeatherFileSource where CId=%ld", cityId);
  CADORecordset rs;
  if (epwName.IsEmpty() || !weather.ExecSql(sql, &rs, nullptr) || rs.IsEOF()) return std::nullopt;
  CString file, station, source;
  rs.GetFieldValue(0, file);
  if (file.CompareNoCase(epwName) != 0) return std::nullopt;
  rs.GetFieldValue(1, station);
  rs.GetFieldValue(2, source);
  FileSource found{station.ToUtf8(), source.ToUtf8(), std::nullopt, false};
  double km = 0.0;
  if (rs.GetFieldValue(3, km)) found.km = km;
  int own = 0;
  found.own = rs.GetFieldValue(4, own) && own != 0;
  return found;
}

// The weather file's line of the heading and its JSON keys, for a climate that is cityName's own.
void TellFileSource(Answer& answer, CQKWeather& weather, long cityId, const std::string& cityName) {
  const std::optional<FileSource> from = SourceOfFile(weather, cityId, weather.EpwName);
  answer.extra["EpwOwn"] = from ? ordered_json(from->own) : ordered_json();
  answer.extra["EpwStation"] = from ? ordered_json(from->station) : ordered_json();
  answer.extra["EpwDistanceKm"] = from && from->km ? ordered_json(*from->km) : ordered_json();
  if (!from) return;
  // A file of the city's own WMO station stands where the city does: no distance to tell.
  const std::string km = from->km && *from->km > 0.0 ? ", " + Fixed(*from->km, 1) + " km away" : "";
  answer.heading.push_back("Weather file: " + weather.EpwName.ToUtf8() + " (" + from->source + ", station " +
                           from->station + "): " +
                           (from->own ? "own station" + km
                                      : "hourly weather file from " + from->station + km + "; design conditions are " +
                                            cityName + "'s own"));
}

// "LON,LAT" in degrees, east longitude and north latitude.
bool ParseNear(const std::string& text, double& lon, double& lat) {
  const std::size_t comma = text.find(',');
  if (comma == std::string::npos) return false;
  auto number = [](const std::string& part, double& out) {
    const char* begin = part.c_str();
    char* end = nullptr;
    out = std::strtod(begin, &end);
    while (end != begin && *end == ' ') ++end;
    return end != begin && *end == '\0' && std::isfinite(out);
  };
  return number(text.substr(0, comma), lon) && number(text.substr(comma + 1), lat) && std::fabs(lon) <= 180.0 &&
         std::fabs(lat) <= 90.0;
}

int Print(const Answer& answer, bool json) {
  if (json) {
    ordered_json out = answer.items;
    out["CityName"] = answer.place.city;
    out["ProvinceName"] = answer.place.province;
    out["CountryName"] = answer.place.country;
    for (const auto& [key, value] : answer.extra.items()) out[key] = value;
    std::cout << out.dump(2) << '\n';
    return 0;
  }
  for (const std::string& line : answer.heading) std::cout << line << '\n';
  std::cout << '\n';
  std::vector<std::vector<std::string>> rows{{"Item", "Value", "说明 / Meaning"}};
  for (const auto& [item, value] : answer.items.items())
    rows.push_back({item, WeatherItemText(item, value), WeatherItemLabel(item)});
  PrintColumns(std::cout, rows);
  return 0;
}

int ClimateOfCity(long cityId, const std::string& alias, bool json) {
  const Place asked = PlaceOfCity(cityId);
  // The city's own row, for its position: after a borrowing the record holds the neighbour's.
  CQKWeather own;
  own.CId = cityId;
  const bool hasOwnRow = own.IsExist(nullptr) == QKLoad::DBS_EXIST && own.ReadData(own.GetID());
  const std::vector<bool> ownNulls = hasOwnRow ? NullColumns(own, own.GetID(), {L"JD", L"WD"}) : std::vector<bool>{};
  const bool hasPosition = ownNulls.size() == 2 && !ownNulls[0] && !ownNulls[1];

  CQKWeather weather;
  weather.CId = cityId;
  CQKWeatherDataAdmin::GetWeatherByCityId(weather);
  if (weather.GetID() == 0) return Tell(1, "no climate stored for " + asked.city + " (" + asked.province + ")");

  Answer answer;
  if (!RowItems(weather, weather, answer.items)) return Tell(1, "cannot read the weather row of " + asked.city);
  answer.place = {weather.CId, weather.CityName.ToUtf8(), weather.ProvinceName.ToUtf8(),
                  weather.CountryName.ToUtf8()};
  answer.heading.push_back(asked.Text() + (alias.empty() ? "" : ", found by its other name " + alias));
  answer.heading.push_back("Position: " + (hasPosition ? Position(own.JD, own.WD) : std::string("not stored")));
  if (weather.CId != cityId) {
    // The library borrowed the nearest city's climate: say whose, and how far away it is.
    std::string distance = "at an unknown distance (the position of " + asked.city + " is not stored)";
    ordered_json km;
    if (hasPosition) {
      km = RoundKm(GreatCircleKm(own.JD, own.WD, weather.JD, weather.WD));
      distance = Fixed(km.get<double>(), 1) + " km away";
    }
    answer.heading.push_back("Climate borrowed from " + answer.place.Text() + ", " + distance + ": " + asked.city +
                             " has no weather file of its own.");
    answer.extra["BorrowedFrom"] = answer.place.city;
    answer.extra["BorrowedFor"] = asked.city;
    answer.extra["DistanceKm"] = km;
    // The hourly file, like the whole climate, is the neighbour's.
    answer.extra["EpwOwn"] = false;
    answer.extra["EpwStation"] = answer.place.city;
    answer.extra["EpwDistanceKm"] = km;
  } else if (weather.EpwName.IsEmpty()) {
    answer.heading.push_back(asked.city + " has no weather file of its own and no city with one is near enough to "
                             "borrow from: these are its own row's values.");
    TellFileSource(answer, weather, cityId, asked.city);
  } else {
    TellFileSource(answer, weather, cityId, asked.city);
  }
  return Print(answer, json);
}

int ClimateNear(double lon, double lat, bool json) {
  CQKWeather weather;
  // The library names the climate it finds after the city the record held before, and takes nothing
  // unless that city exists. A point has no city: any city will do, and the names are read afterwards
  // for the city whose climate was taken. A name no city has gives the first city of the table.
  CQKCity any;
  CQKWeatherDataAdmin::GetCityIdByName(any);
  weather.CId = any.GetID();
  weather.JD = lon * kRadiansPerDegree;
  weather.WD = lat * kRadiansPerDegree;
  CQKWeatherDataAdmin::GetWeatherByJWD(weather, kNearHalfWidthDegrees * kRadiansPerDegree);
  const std::string point = Position(lon * kRadiansPerDegree, lat * kRadiansPerDegree);
  if (weather.GetID() == 0)
    return Tell(1, "no city with a weather file within " + Number(kNearHalfWidthDegrees) + "° of " + point);

  Answer answer;
  answer.place = PlaceOfCity(weather.CId);
  if (!RowItems(weather, weather, answer.items)) return Tell(1, "cannot read the weather row of " + answer.place.city);
  const double km = RoundKm(GreatCircleKm(lon * kRadiansPerDegree, lat * kRadiansPerDegree, weather.JD, weather.WD));
  answer.heading.push_back("Nearest city with a weather file to " + point + ": " + answer.place.Text() + ", " +
                           Fixed(km, 1) + " km away");
  answer.heading.push_back("Position: " + Position(weather.JD, weather.WD));
  answer.extra["DistanceKm"] = km;
  TellFileSource(answer, weather, weather.CId, answer.place.city);
  return Print(answer, json);
}

}  // namespace

WeatherCommand::WeatherCommand(CLI::App& parent) {
  m_app = parent.add_subcommand("weather", "The design climate of a city, or of the city with a weather file nearest a point");
  m_app->add_option("NAME", m_name, "The city's name as stored (e.g. 郑州), or another name of it (郑州市, Zhengzhou)");
  m_app->add_option("--id", m_id, "The city's ID instead of its name");
  m_app->add_option("--near", m_near, "LON,LAT in degrees (east longitude, north latitude): the nearest city with a weather file");
  m_app->add_flag("--json", m_json, "Print one JSON object instead of the table");
  m_app->add_option("--db", m_db, "The reference database (default: $QKDB_DATABASE, else the one \"qkdb init\" built)");
  m_app->footer(
      "Give exactly one of NAME, --id and --near. NAME is the stored name or another name of the city: its\n"
      "official name (重庆市, 恩施土家族苗族自治州), today's name of a renamed city (襄阳), a station of GB 50736\n"
      "(库尔勒, 马坡岭) or an English name (Sanya, Chongqing; case ignored). A name that finds nothing is\n"
      "answered with the nearest names.\n"
      "Every city of the shipped database has its own design conditions and an hourly weather file: its own\n"
      "station's, or the nearest station's that has one (the answer says which, and how far away it is). A\n"
      "city a host added without a file borrows the whole climate of the nearest city that has one; the\n"
      "answer then names that city and its great-circle distance. --near looks within 10° of longitude and\n"
      "latitude of the point.\n"
      "Values are in the weather table's units: pressures hPa (design days Pa), relative humidities %, °C,\n"
      "m/s, m; JD/WD in radians (the table also shows degrees). A column the table leaves NULL is \"—\".\n"
      "--json: the keys are the weather table's item names, null where NULL (DjSwZdFxPjFs and Djswzdfxpjfs\n"
      "are one column and carry the same value), then CityName, ProvinceName and CountryName of the city\n"
      "whose climate it is; EpwOwn (true: the file of the city's own station), EpwStation (the file's station)\n"
      "and EpwDistanceKm (from the city to that station), null where not known; for a borrowed climate also\n"
      "BorrowedFrom (that city), BorrowedFor (the city asked for) and DistanceKm between the two (null when\n"
      "the position of the city asked for is not stored); for --near, DistanceKm from the point.\n"
      "Exit status: 1 no such city, or no climate for it; 2 a command line or database that cannot be used.");
}

bool WeatherCommand::Chosen() const { return m_app->parsed(); }

int WeatherCommand::Run() const {
  const bool byName = m_app->count("NAME") > 0;
  const bool byId = m_app->count("--id") > 0;
  const bool near = m_app->count("--near") > 0;
  if (byName + byId + near != 1) return Tell(2, "give exactly one of NAME, --id and --near (see \"qkdb weather --help\")");
  double lon = 0.0, lat = 0.0;
  if (near && !ParseNear(m_near, lon, lat))
    return Tell(2, "--near takes LON,LAT in degrees (east longitude, north latitude), not \"" + m_near + "\"");
  if (const int status = OpenChosenDatabase(m_db)) return status;
  if (near) return ClimateNear(lon, lat, m_json);

  if (byName) {
    const CityByName found = FindCity(m_name);
    if (found.id) return ClimateOfCity(found.id, found.alias, m_json);
    std::string names;
    for (const std::string& candidate : found.candidates) names += (names.empty() ? "" : ", ") + candidate;
    if (found.ambiguous) return Tell(1, "\"" + m_name + "\" is another name of several cities: " + names + "; give one of them");
    return Tell(1, "no city named \"" + m_name + "\"" + (names.empty() ? "" : " (did you mean " + names + "?)"));
  }
  CQKCity city;
  if (!city.ReadData(m_id)) return Tell(1, "no city with ID " + std::to_string(m_id));
  return ClimateOfCity(city.GetID(), "", m_json);
}

}  // namespace qkdb
