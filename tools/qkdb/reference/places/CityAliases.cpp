#include "reference/places/CityAliases.h"

#include <set>
#include <utility>
#include <vector>

#include "text/CsvTable.h"
#include "reference/SideRows.h"

namespace qkdb {

namespace {

// ASCII letters folded to lower case: aliases compare as the table's NOCASE collation does.
std::string Folded(std::string text) {
  for (char& c : text)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return text;
}

class AliasWriter {
 public:
  explicit AliasWriter(SideRows& rows) : m_rows(rows) {}

  void Add(long cityId, const std::string& cityName, const std::string& alias, const std::string& kind,
           const std::string& source) {
    if (alias.empty() || Folded(alias) == Folded(cityName)) return;
    if (!m_seen.insert({cityId, Folded(alias)}).second) return;
    m_rows.Insert("CityAlias", {{"CId", static_cast<long long>(cityId)}, {"Alias", alias}, {"Kind", kind}, {"Source", source}},
                  "write the city alias " + alias);
  }

 private:
  SideRows& m_rows;
  std::set<std::pair<long, std::string>> m_seen;
};

// The source writes pinyin a syllable at a time in lower case ("san ya"); a place name writes its
// syllables together with a capital first letter ("Sanya").
std::string Romanised(const std::string& syllables) {
  std::string name;
  for (char c : syllables)
    if (c != ' ') name += name.empty() && c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  return name;
}

std::string Source(const CsvTable& table, std::size_t r) {
  return table.Field(r, "source_repo") + " " + table.Field(r, "source_path") + " @ " + table.Field(r, "source_commit");
}

}  // namespace

void LoadCityAliases(const std::filesystem::path& dataDir, SideRows& rows, const std::map<std::string, long>& cityOf,
                     const std::map<std::string, WeatherFile>& files) {
  const CsvTable cities(dataDir / "cn_cities.csv");
  const CsvTable stations(dataDir / "cn_outdoor_design_gb50736.csv");
  const CsvTable official(dataDir / "cn_city_official_names.csv");
  const CsvTable pinyin(dataDir / "cn_city_pinyin.csv");
  const CsvTable list(dataDir / "cn_epw_stations.csv");

  // The data's city_id → the database's city, through the city's first station.
  std::map<std::string, std::pair<long, std::string>> cityById;
  for (std::size_t r = 0; r < cities.Size(); ++r) {
    const std::string& ids = cities.Field(r, "station_ids_gb50736");
    auto found = cityOf.find(ids.substr(0, ids.find(' ')));
    if (found == cityOf.end()) throw DataError(cities.Where(r) + ": a city without a station of the outdoor design table");
    cityById[cities.Field(r, "city_id")] = {found->second, cities.Field(r, "city_name")};
  }
  auto cityOfRow = [&](const CsvTable& table, std::size_t r) {
    auto found = cityById.find(table.Field(r, "city_id"));
    if (found == cityById.end() || found->second.second != table.Field(r, "city_name"))
      throw DataError(table.Where(r) + ": a city_id and city_name that cn_cities.csv does not have");
    return found->second;
  };

  AliasWriter aliases(rows);
  for (std::size_t r = 0; r < official.Size(); ++r) {
    const auto [id, name] = cityOfRow(official, r);
    const std::string& match = official.Field(r, "match");
    const char* kind = match == "renamed" || match == "county-level" ? "today's name" : "official name";
    const std::string& full = official.Field(r, "official_name");
    aliases.Add(id, name, full, kind, Source(official, r));
    // The name without 市, as a city is called in speech: 襄阳 for 襄阳市, 毕节 for 毕节市.
    const std::string shi = "市";
    if (full.size() > shi.size() && full.ends_with(shi))
      aliases.Add(id, name, full.substr(0, full.size() - shi.size()), kind, Source(official, r));
  }
  for (std::size_t r = 0; r < stations.Size(); ++r) {
    const long id = cityOf.at(stations.Field(r, "station_id"));
    aliases.Add(id, stations.Field(r, "city"), stations.Field(r, "station_name"), "station",
                "GB 50736-2012 Appendix A, station " + stations.Field(r, "station_id"));
  }
  // The English name of a city's own file: the list's station name up to its first "_" (the rest
  // names a district or an older spelling: Chongqing_Shapingba, NANJING_NANKING).
  std::map<std::string, std::string> englishOf;  // file → name
  for (std::size_t r = 0; r < list.Size(); ++r)
    englishOf[list.Field(r, "epw_file_name")] = list.Field(r, "station_name_en").substr(0, list.Field(r, "station_name_en").find('_'));
  for (std::size_t r = 0; r < stations.Size(); ++r) {
    auto file = files.find(stations.Field(r, "station_id"));
    if (file == files.end() || !file->second.own) continue;
    aliases.Add(cityOf.at(stations.Field(r, "station_id")), stations.Field(r, "city"), englishOf[file->second.file],
                "English (EPW station list)", "ladybug-tools/epwmap data/doe.csv @ 4a8173c44458115b2cbf545eb86ffaeb08c7c79c");
  }
  for (std::size_t r = 0; r < pinyin.Size(); ++r) {
    const auto [id, name] = cityOfRow(pinyin, r);
    aliases.Add(id, name, Romanised(pinyin.Field(r, "pinyin")), "English (Hanyu Pinyin)", Source(pinyin, r));
  }
}

}  // namespace qkdb
