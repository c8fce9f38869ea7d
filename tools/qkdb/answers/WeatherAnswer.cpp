#include "answers/WeatherAnswer.h"

#include <cmath>
#include <numbers>
#include <optional>

#include "places/CityNames.h"
#include "places/GreatCircle.h"
#include "text/Output.h"
#include "answers/RowItems.h"
#include "geography/CQKCity.h"
#include "geography/CQKCountry.h"
#include "geography/CQKProvince.h"
#include "tablekit/CADORecordset.h"
#include "weather/CQKWeatherDataAdmin.h"

namespace qkdb {

namespace {

using nlohmann::ordered_json;

constexpr double kRadiansPerDegree = std::numbers::pi / 180.0;

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

// The answer as it is built: the climate's items, the place whose climate it is, what is said before
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

WeatherAnswer Refused(const std::string& reason) {
  WeatherAnswer refused;
  refused.refused = reason;
  return refused;
}

WeatherAnswer Finished(const Answer& answer) {
  WeatherAnswer done;
  done.heading = answer.heading;
  done.items = answer.items;
  done.json = answer.items;
  done.json["CityName"] = answer.place.city;
  done.json["ProvinceName"] = answer.place.province;
  done.json["CountryName"] = answer.place.country;
  for (const auto& [key, value] : answer.extra.items()) done.json[key] = value;
  return done;
}

}  // namespace

WeatherAnswer ClimateOfCity(long cityId, const std::string& alias) {
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
  if (weather.GetID() == 0) return Refused("no climate stored for " + asked.city + " (" + asked.province + ")");

  Answer answer;
  if (!RowItems(weather, weather, answer.items)) return Refused("cannot read the weather row of " + asked.city);
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
  return Finished(answer);
}

WeatherAnswer ClimateNear(double lon, double lat) {
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
    return Refused("no city with a weather file within " + Number(kNearHalfWidthDegrees) + "° of " + point);

  Answer answer;
  answer.place = PlaceOfCity(weather.CId);
  if (!RowItems(weather, weather, answer.items)) return Refused("cannot read the weather row of " + answer.place.city);
  const double km = RoundKm(GreatCircleKm(lon * kRadiansPerDegree, lat * kRadiansPerDegree, weather.JD, weather.WD));
  answer.heading.push_back("Nearest city with a weather file to " + point + ": " + answer.place.Text() + ", " +
                           Fixed(km, 1) + " km away");
  answer.heading.push_back("Position: " + Position(weather.JD, weather.WD));
  answer.extra["DistanceKm"] = km;
  TellFileSource(answer, weather, weather.CId, answer.place.city);
  return Finished(answer);
}

WeatherAnswer ClimateByName(const std::string& name) {
  const CityByName found = FindCity(name);
  if (found.id) return ClimateOfCity(found.id, found.alias);
  std::string names;
  for (const std::string& candidate : found.candidates) names += (names.empty() ? "" : ", ") + candidate;
  if (found.ambiguous) return Refused(Quoted(name) + " is another name of several cities: " + names + "; give one of them");
  return Refused("no city named " + Quoted(name) + (names.empty() ? "" : " (did you mean " + names + "?)"));
}

WeatherAnswer ClimateById(long cityId) {
  CQKCity city;
  if (!city.ReadData(cityId)) return Refused("no city with ID " + std::to_string(cityId));
  return ClimateOfCity(city.GetID(), "");
}

}  // namespace qkdb
