#include "commands/lookup/WeatherCommand.h"

#include <CLI/CLI.hpp>
#include <cmath>
#include <cstdlib>
#include <iostream>
#include <vector>

#include "text/Output.h"
#include "answers/WeatherAnswer.h"
#include "answers/WeatherItems.h"
#include "files/ReferenceDatabase.h"

namespace qkdb {

namespace {

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

int Print(const WeatherAnswer& answer, bool json) {
  if (json) {
    std::cout << answer.json.dump(2) << '\n';
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
  CommandDatabase db;
  if (const int status = OpenChosenDatabase(m_db, db)) return status;
  const WeatherAnswer answer = near ? ClimateNear(lon, lat) : byName ? ClimateByName(m_name) : ClimateById(m_id);
  if (!answer.refused.empty()) return Tell(1, answer.refused);
  return Print(answer, m_json);
}

}  // namespace qkdb
