#pragma once
// The places and their design climate: country 中国, its provinces and cities, and one weather row per
// station of the outdoor design table (data/cn_outdoor_design_gb50736.csv), after the corrections of
// data/station_corrections.csv. Written through CQKCountry, CQKProvince, CQKCity and CQKWeather, which
// must already be bound to the database (BindRecordClasses).
//
// A city the standard gives several stations (呼伦贝尔: 满洲里 and 海拉尔) takes the first listed as its
// own; each further station becomes a city of its own in the same province, named after the station,
// so that every station's row can be found by a city.

#include <filesystem>

class CADODatabase;

namespace qkdb {

// Throws DataError for data that cannot be used or a row that cannot be written. db is a connection
// on the same database, for clearing the columns the data does not give.
void LoadPlaces(const std::filesystem::path& dataDir, CADODatabase& db);

}  // namespace qkdb
