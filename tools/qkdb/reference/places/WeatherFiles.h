#pragma once
// The hourly weather file (EPW) of every station of the outdoor design table, chosen from the
// archive's station list (data/cn_epw_stations.csv):
//   1. the station's own: a file whose WMO id (its first five digits) is the station's, else the
//      nearest file within 20 km of the station;
//   2. else the file of the nearest station that has one of its own, measured station to station:
//      the representative hourly weather an engineer would take for that city. Its design conditions
//      stay the city's own; only the hourly file is a neighbour's.
// When several files qualify for rule 1, CSWD wins over IWEC, IWEC over SWERA, SWERA over any other
// source, and the nearer file wins within one source (see docs/reference-data.md).

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace qkdb {

class CsvTable;

// A station of the outdoor design table: its id (WMO, five digits), its name, and its position in
// degrees (north, east), when known.
struct Station {
  std::string id;
  std::string name;
  std::optional<double> latitude;
  std::optional<double> longitude;
};

struct WeatherFile {
  std::string file;     // the EPW file name
  std::string wmo;      // the WMO id of the file's station, as the list gives it (six digits)
  std::string station;  // the file station's name: the standard's, else the list's English one
  std::string source;   // CSWD, IWEC, SWERA, …
  // Great-circle, from the station to the file's station: 0 for a file of its own WMO id; to the
  // standard's position of the file's station when that is a station of the standard, else to the
  // list's position of the file. Unknown when a position is.
  std::optional<double> distanceKm;
  bool own = false;     // rule 1; false for a neighbour's file
};

// Files within this distance of a station count as its own, km: the Chongqing file (Shapingba,
// 575160) stands 7 km from the standard's 重庆 (57515), Changsha's (576870) 16 km from 马坡岭 (57679);
// two stations of the national network stand farther apart than that.
constexpr double kOwnFileKm = 20.0;

// The file of each station, by station id. A station without a file of its own and without a known
// position gets none.
std::map<std::string, WeatherFile> ChooseWeatherFiles(const std::vector<Station>& stations, const CsvTable& epwList);

}  // namespace qkdb
