#pragma once
// The readable side of the weather table's items (the named items of CQKWeatherData, one column
// each): a Chinese and English label per item, and a value shown with its unit as the table keeps it
// (hPa, %, °C, m/s, m; positions in radians, shown also in degrees).

#include <nlohmann/json.hpp>
#include <string>

class CAData;

namespace qkdb {

// Every item value's named exchange writes, under its name as written (case kept), in writing order:
// integer items as integers, other numbers as doubles (pressures in hPa and humidities in percent
// rounded as AsStored says), texts as strings. The weather value writes
// "DjSwZdFxPjFs" and "Djswzdfxpjfs", which differ only in case: both appear, as the table's one
// column (column names ignore case) stands for both.
nlohmann::ordered_json NamedItems(CAData& value);

// "中文 / English" for the item; "" for an item this tool has no label for.
std::string WeatherItemLabel(const std::string& item);
// The unit the table keeps the item in ("hPa", "rad", "°C"); "" for a count, a code or a text.
std::string WeatherItemUnit(const std::string& item);
// The item's value (in the table's units; null for a NULL column) as text with its unit, "—" for
// null: "1013.3 hPa", "0.605974 rad (34.7200°)", "4 (寒冷A区)".
std::string WeatherItemText(const std::string& item, const nlohmann::ordered_json& value);

}  // namespace qkdb
