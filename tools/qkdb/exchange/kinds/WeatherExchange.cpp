#include "exchange/kinds/WeatherExchange.h"

#include <cmath>
#include <map>
#include <numbers>

#include "answers/RowItems.h"
#include "answers/WeatherItems.h"
#include "exchange/StoredRows.h"
#include "text/CsvTable.h"
#include "weather/CQKWeather.h"

namespace qkdb {

namespace {

using nlohmann::ordered_json;
using Type = ExchangeColumn::Type;

// The degrees column beside a position in radians: to 1e-7°, about 1 cm, finer than any station's
// position is known.
const std::map<std::string, std::string> kDegreeColumns = {{"JD", "JD_deg"}, {"WD", "WD_deg"}};

double Degrees(double radians) { return std::round(radians * 180.0 / std::numbers::pi * 1e7) / 1e7; }

// The weather items, in the order the weather value names them, without the city's ID (the names say
// which city).
std::vector<ExchangeColumn> Columns() {
  std::vector<ExchangeColumn> columns = {{"Country.Name", "国家 / country", "", Type::Text},
                                         {"Province.Name", "省份 / province", "", Type::Text},
                                         {"City.Name", "城市 / city", "", Type::Text}};
  CQKWeather blank;
  const ordered_json items = NamedItems(blank);
  for (const auto& [item, value] : items.items()) {
    if (item == "CId") continue;
    const Type type = value.is_string() ? Type::Text : value.is_number_integer() ? Type::Integer : Type::Real;
    columns.push_back({item, WeatherItemLabel(item), WeatherItemUnit(item), type});
    if (auto degrees = kDegreeColumns.find(item); degrees != kDegreeColumns.end())
      columns.push_back({degrees->second, WeatherItemLabel(item), "°", Type::Real});
  }
  return columns;
}

}  // namespace

ExchangeTable ExportWeather() {
  ExchangeTable table("weather", Columns());
  CQKWeather reader;
  std::map<std::string, std::vector<std::string>> cities, provinces, countries;
  for (auto& row : StoredRows(reader, "select ID, PId, Name from City")) cities[row[0]] = row;
  for (auto& row : StoredRows(reader, "select ID, CId, Name from Province")) provinces[row[0]] = row;
  for (auto& row : StoredRows(reader, "select ID, Name from Country")) countries[row[0]] = row;
  const auto name = [](const auto& map, const std::string& id, std::size_t column) {
    const auto found = map.find(id);
    return found == map.end() ? std::string() : found->second[column];
  };
  for (const auto& ids : StoredRows(reader, "select ID, CId from Weather order by CId, ID")) {
    CQKWeather weather;
    ordered_json items;
    if (!weather.ReadData(std::stol(ids[0])) || !RowItems(weather, weather, items))
      throw DataError("cannot read the weather row with ID " + ids[0]);
    const std::string province = name(cities, ids[1], 1);
    const std::string country = name(provinces, province, 1);
    ordered_json row = {{"Country.Name", name(countries, country, 1)},
                        {"Province.Name", name(provinces, province, 2)},
                        {"City.Name", name(cities, ids[1], 2)}};
    for (const auto& [item, value] : items.items()) {
      if (item == "CId") continue;
      row[item] = value;
      if (auto degrees = kDegreeColumns.find(item); degrees != kDegreeColumns.end())
        row[degrees->second] = value.is_number() ? ordered_json(Degrees(value.get<double>())) : ordered_json();
    }
    table.Add(row);
  }
  return table;
}

}  // namespace qkdb
