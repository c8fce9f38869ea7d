#pragma once
// The places and their design climate: country 中国, its provinces and cities, and one weather row per
// station of the outdoor design table (data/cn_outdoor_design_gb50736.csv), after the corrections of
// data/station_corrections.csv. Written through CQKCountry, CQKProvince, CQKCity and CQKWeather, which
// must already be bound to the database (SharedConnection). Each station gets an hourly weather file
// (reference/WeatherFiles.h), and where it comes from is recorded in WeatherFileSource.
//
// A city the standard gives several stations (呼伦贝尔: 满洲里 and 海拉尔) takes the first listed as its
// own; each further station becomes a city of its own in the same province, named after the station,
// so that every station's row can be found by a city.

#include <filesystem>
#include <map>
#include <string>

#include "reference/places/WeatherFiles.h"

class CADODatabase;

namespace qkdb {

struct Places {
  std::map<std::string, long> cityOf;             // station id → city ID
  std::map<std::string, WeatherFile> files;       // station id → its weather file
};

// Throws DataError for data that cannot be used or a row that cannot be written. db is a connection
// on the same database, for clearing the columns the data does not give.
Places LoadPlaces(const std::filesystem::path& dataDir, CADODatabase& db);

}  // namespace qkdb
