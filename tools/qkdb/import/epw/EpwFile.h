#pragma once
// EpwFile: what qkdb takes from an EnergyPlus weather file (EPW): the station (LOCATION line) and the
// ASHRAE heating and cooling design values (DESIGN CONDITIONS line). The rest of the eight-line header
// is checked for its keywords, and the hourly records are counted against the DATA PERIODS line, so a
// truncated download is refused rather than imported. Lines may end in LF or CRLF.

#include <filesystem>
#include <optional>
#include <string>

namespace qkdb {

struct EpwLocation {
  std::string city, region, country, source, wmo;
  double latitude = 0.0;   // degrees, north positive
  double longitude = 0.0;  // degrees, east positive
  double timeZone = 0.0;   // hours east of UTC
  double elevation = 0.0;  // m above sea level
};

// The 99.6 % heating conditions, read by their place after the word "Heating" in the order of the
// ASHRAE Handbook's climatic design tables (2009 edition, which CSWD, IWEC and TMY3 files carry).
struct EpwHeating {
  int coldestMonth = 0;
  double dryBulb = 0.0;          // DB 99.6 %, °C
  double windSpeed = 0.0;        // mean coincident wind speed to DB 99.6 %, m/s
  double windDirection = 0.0;    // prevailing coincident wind direction to DB 99.6 %, degrees from north
};

// The 0.4 % cooling conditions, read by their place after the word "Cooling".
struct EpwCooling {
  int hottestMonth = 0;
  double dailyRange = 0.0;       // mean daily dry-bulb range of the hottest month, K
  double dryBulb = 0.0;          // DB 0.4 %, °C
  double wetBulb = 0.0;          // mean coincident wet-bulb to DB 0.4 %, °C
  double windSpeed = 0.0;        // mean coincident wind speed to DB 0.4 %, m/s
  double windDirection = 0.0;    // prevailing coincident wind direction to DB 0.4 %, degrees from north
};

struct EpwFile {
  EpwLocation location;
  std::optional<EpwHeating> heating;  // absent when the file gives no design conditions
  std::optional<EpwCooling> cooling;
  long records = 0;                   // hourly (or sub-hourly) data records

  // Reads path. Throws DataError "<file>:<line>: <what is wrong>" for a missing file, a header line
  // out of place or cut short, a field that is not a number or out of range, or data records fewer
  // or more than the data periods hold.
  static EpwFile Read(const std::filesystem::path& path);
  // The same for the text of a file, named name in the messages.
  static EpwFile Parse(const std::string& name, const std::string& contents);
};

}  // namespace qkdb
