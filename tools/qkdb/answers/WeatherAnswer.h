#pragma once
// The design climate of a city, as "qkdb weather" and the Python module answer it: the climate the
// library finds (a city without a weather file of its own borrows its nearest neighbour's), its items
// in the weather table's units with null for a NULL column, the place whose climate it is and where
// its hourly weather file comes from. The record classes must be bound to the database.

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace qkdb {

// The cities within this many degrees of longitude and of latitude of a point are searched for the
// nearest one with a weather file (the library's search square): wide enough for the sparse stations
// of western China, narrow enough that a point far from every station gets no answer.
constexpr double kNearHalfWidthDegrees = 10.0;

struct WeatherAnswer {
  std::string refused;               // "" when answered, else one line saying why not
  std::vector<std::string> heading;  // what is said before the items
  nlohmann::ordered_json items;      // the weather table's items, null for a NULL column
  // The items, then CityName, ProvinceName, CountryName of the city whose climate it is, EpwOwn,
  // EpwStation, EpwDistanceKm, and for a borrowed climate BorrowedFrom, BorrowedFor, DistanceKm (for
  // a point, DistanceKm from it): what "qkdb weather --json" prints.
  nlohmann::ordered_json json;
};

// By the stored name or another name of the city (CityNames.h); a name that finds nothing is refused
// with the nearest names.
WeatherAnswer ClimateByName(const std::string& name);
WeatherAnswer ClimateById(long cityId);
// The city with a weather file nearest the point, degrees east and north.
WeatherAnswer ClimateNear(double lon, double lat);
// cityId's climate; alias says how the city was found ("" by its stored name).
WeatherAnswer ClimateOfCity(long cityId, const std::string& alias);

}  // namespace qkdb
