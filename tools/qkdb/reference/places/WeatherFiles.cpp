#include "reference/places/WeatherFiles.h"

#include <limits>
#include <numbers>
#include <tuple>

#include "text/CsvTable.h"
#include "places/GreatCircle.h"

namespace qkdb {

namespace {

struct ListedFile {
  std::string file, wmo, nameEn, source;
  double latitude = 0.0, longitude = 0.0;  // degrees
  int rank = 0;                            // the source's place in the order of preference
};

// CSWD was made for building simulation in China from the national network's records; IWEC is
// ASHRAE's typical year from fewer, mostly airport, records; SWERA the UNEP project's.
int SourceRank(const std::string& source) {
  if (source == "CSWD") return 0;
  if (source == "IWEC") return 1;
  if (source == "SWERA") return 2;
  return 3;
}

std::vector<ListedFile> ReadList(const CsvTable& list) {
  std::vector<ListedFile> files;
  for (std::size_t r = 0; r < list.Size(); ++r) {
    ListedFile f{list.Field(r, "epw_file_name"), list.Field(r, "wmo_id"), list.Field(r, "station_name_en"),
                 list.Field(r, "data_source")};
    if (!list.Number(r, "latitude_deg", f.latitude) || !list.Number(r, "longitude_deg", f.longitude))
      throw DataError(list.Where(r) + ": a weather file without a position");
    f.rank = SourceRank(f.source);
    files.push_back(f);
  }
  return files;
}

double Radians(double degrees) { return degrees * std::numbers::pi / 180.0; }

bool Placed(const Station& s) { return s.latitude && s.longitude; }

double Km(const Station& s, double latitude, double longitude) {
  return GreatCircleKm(Radians(*s.longitude), Radians(*s.latitude), Radians(longitude), Radians(latitude));
}

}  // namespace

std::map<std::string, WeatherFile> ChooseWeatherFiles(const std::vector<Station>& stations, const CsvTable& epwList) {
  const std::vector<ListedFile> files = ReadList(epwList);
  std::map<std::string, const Station*> byId;
  for (const Station& s : stations) byId[s.id] = &s;

  // The file's station is named and placed as the standard has it when it is one of its stations (the
  // list's positions of some are off by up to a degree: 南京's CSWD file stands at 32.83° N in the
  // list, the station at 32.00° N), else as the list has it.
  auto choice = [&](const Station& s, const ListedFile& f, bool own) {
    WeatherFile w{f.file, f.wmo, f.nameEn, f.source, std::nullopt, own};
    const auto found = byId.find(f.wmo.substr(0, 5));
    const Station* station = found != byId.end() ? found->second : nullptr;
    if (station) w.station = station->name;
    if (Placed(s) && station && Placed(*station))
      w.distanceKm = Km(s, *station->latitude, *station->longitude);
    else if (Placed(s) && !station)
      w.distanceKm = Km(s, f.latitude, f.longitude);
    return w;
  };

  std::map<std::string, WeatherFile> chosen;
  for (const Station& s : stations) {
    // Rule 1: the best (source, then distance) of the station's files, else of those within 20 km.
    const ListedFile* best = nullptr;
    std::tuple<bool, int, double> bestKey{};
    for (const ListedFile& f : files) {
      const bool sameId = f.wmo.substr(0, 5) == s.id;
      const double km = Placed(s) ? Km(s, f.latitude, f.longitude) : 0.0;
      if (!sameId && !(Placed(s) && km <= kOwnFileKm)) continue;
      const std::tuple<bool, int, double> key{!sameId, f.rank, km};
      if (!best || key < bestKey) {
        best = &f;
        bestKey = key;
      }
    }
    if (best) chosen[s.id] = choice(s, *best, true);
  }

  // Rule 2: the nearest station with a file of its own; the earlier in the table on equal distance.
  std::map<std::string, WeatherFile> borrowed;
  for (const Station& s : stations) {
    if (chosen.count(s.id) || !Placed(s)) continue;
    const Station* nearest = nullptr;
    double nearestKm = std::numeric_limits<double>::infinity();
    for (const Station& t : stations) {
      if (!chosen.count(t.id) || !Placed(t)) continue;
      const double km = Km(s, *t.latitude, *t.longitude);
      if (km < nearestKm) {
        nearest = &t;
        nearestKm = km;
      }
    }
    if (!nearest) continue;
    const WeatherFile& theirs = chosen.at(nearest->id);
    for (const ListedFile& f : files)
      if (f.file == theirs.file) borrowed[s.id] = choice(s, f, false);
  }
  chosen.merge(borrowed);
  return chosen;
}

}  // namespace qkdb
