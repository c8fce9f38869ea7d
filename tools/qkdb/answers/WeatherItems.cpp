#include "answers/WeatherItems.h"

#include <numbers>
#include <string_view>

#include "text/Output.h"
#include "datakit/CADataExchange.h"
#include "datakit/CADataProp.h"
#include "weather/CQKWeatherData.h"

namespace qkdb {

namespace {

enum class Unit { None, Radian, HPa, Pa, Percent, Celsius, Kelvin, Speed, Degree, Metre, Hour, Zone };

struct Item {
  std::string_view name;
  std::string_view chinese;
  std::string_view english;
  Unit unit;
};

constexpr Item kItems[] = {
    {"CId", "城市编号", "city ID", Unit::None},
    {"DistrictCode", "建筑气候区", "building climate zone", Unit::Zone},
    {"WD", "纬度", "latitude", Unit::Radian},
    {"JD", "经度", "longitude", Unit::Radian},
    {"DjDqy", "冬季大气压力", "winter atmospheric pressure", Unit::HPa},
    {"XjDqy", "夏季大气压力", "summer atmospheric pressure", Unit::HPa},
    {"DjCnSwGqWd", "冬季采暖室外计算温度", "winter heating outdoor design temperature", Unit::Celsius},
    {"DjKtSwGqWd", "冬季空调室外计算温度", "winter air-conditioning outdoor design temperature", Unit::Celsius},
    {"XjKtSwGqWd", "夏季空调室外计算干球温度", "summer air-conditioning outdoor dry-bulb", Unit::Celsius},
    {"XjKtRPjWd", "夏季空调室外计算日平均温度", "summer air-conditioning outdoor daily mean", Unit::Celsius},
    {"XjJsRJC", "夏季室外计算平均日较差", "summer design daily range", Unit::Kelvin},
    {"XjKtSwSqWd", "夏季空调室外计算湿球温度", "summer air-conditioning outdoor wet-bulb", Unit::Celsius},
    {"Xjzdfx", "夏季最多风向", "summer most frequent wind direction", Unit::Degree},
    {"Xjswzdfxpjfs", "夏季最多风向平均风速", "summer mean speed of the most frequent direction", Unit::Speed},
    {"Djzdfx", "冬季最多风向", "winter most frequent wind direction", Unit::Degree},
    {"Djswzdfxpjfs", "冬季最多风向平均风速", "winter mean speed of the most frequent direction", Unit::Speed},
    {"ZlYPjXdSd", "最冷月月平均相对湿度", "coldest-month mean relative humidity", Unit::Percent},
    {"ZRYPjXdSd", "最热月月平均相对湿度", "hottest-month mean relative humidity", Unit::Percent},
    {"DjSwZdFxPjFs", "冬季室外最多风向平均风速", "winter mean speed of the most frequent direction", Unit::Speed},
    {"XjSwPjFs", "夏季室外平均风速", "summer outdoor mean wind speed", Unit::Speed},
    {"XjKtDqTmDDj", "夏季大气透明度等级", "summer atmospheric transparency grade", Unit::None},
    {"XjTfSwGqWd", "夏季通风室外计算温度", "summer ventilation outdoor temperature", Unit::Celsius},
    {"XjTfSwXdSd", "夏季通风室外计算相对湿度", "summer ventilation outdoor relative humidity", Unit::Percent},
    {"DjTfSwGqWd", "冬季通风室外计算温度", "winter ventilation outdoor temperature", Unit::Celsius},
    {"DjKtSwXdSd", "冬季空调室外计算相对湿度", "winter air-conditioning outdoor relative humidity", Unit::Percent},
    {"DjSwPjFs", "冬季室外平均风速", "winter outdoor mean wind speed", Unit::Speed},
    {"DjLfStCxXz_N", "冬季冷风渗透朝向修正系数 北", "winter infiltration orientation factor, N", Unit::None},
    {"DjLfStCxXz_NE", "冬季冷风渗透朝向修正系数 东北", "winter infiltration orientation factor, NE", Unit::None},
    {"DjLfStCxXz_E", "冬季冷风渗透朝向修正系数 东", "winter infiltration orientation factor, E", Unit::None},
    {"DjLfStCxXz_SE", "冬季冷风渗透朝向修正系数 东南", "winter infiltration orientation factor, SE", Unit::None},
    {"DjLfStCxXz_S", "冬季冷风渗透朝向修正系数 南", "winter infiltration orientation factor, S", Unit::None},
    {"DjLfStCxXz_SW", "冬季冷风渗透朝向修正系数 西南", "winter infiltration orientation factor, SW", Unit::None},
    {"DjLfStCxXz_W", "冬季冷风渗透朝向修正系数 西", "winter infiltration orientation factor, W", Unit::None},
    {"DjLfStCxXz_NW", "冬季冷风渗透朝向修正系数 西北", "winter infiltration orientation factor, NW", Unit::None},
    {"DBMNPJWD", "地表面年平均温度", "annual mean ground-surface temperature", Unit::Celsius},
    {"DBMZRYPJWD", "最热月地表面平均温度", "hottest-month mean ground-surface temperature", Unit::Celsius},
    {"DBMZLYPJWD", "最冷月地表面平均温度", "coldest-month mean ground-surface temperature", Unit::Celsius},
    {"CityType", "城市类型", "city type", Unit::None},
    {"EpwName", "EPW 气象文件", "EPW weather file", Unit::None},
    {"EpwType", "EPW 文件类型", "EPW file type", Unit::None},
    {"Elevation", "海拔", "elevation", Unit::Metre},
    {"TimeZone", "时区", "time zone, east of UTC", Unit::Hour},
    {"SumWindDef", "夏季最多风向（方位）", "summer most frequent wind direction, compass", Unit::None},
    {"WinWindDef", "冬季最多风向（方位）", "winter most frequent wind direction, compass", Unit::None},
};

// The design days' items: "Sum" or "Win" followed by one of these.
constexpr Item kDayItems[] = {
    {"MaxDryBulbTemp", "最高干球温度", "maximum dry-bulb", Unit::Celsius},
    {"DailyTempRange", "日较差", "daily range", Unit::Kelvin},
    {"HumMaxDryBulb", "最高干球温度时的湿度指标", "humidity indicator at the maximum dry-bulb", Unit::None},
    {"BarPress", "大气压力", "atmospheric pressure", Unit::Pa},
    {"WindSpeed", "风速", "wind speed", Unit::Speed},
    {"WindDirection", "风向", "wind direction", Unit::Degree},
    {"SkyClearness", "晴空指数", "sky clearness", Unit::None},
    {"RainIndicator", "雨", "rain indicator", Unit::None},
    {"SnowIndicator", "雪", "snow indicator", Unit::None},
    {"DayOfMonth", "日", "day of month", Unit::None},
    {"Month", "月", "month", Unit::None},
    {"DayType", "日类型", "day type", Unit::None},
    {"DSTIndicator", "夏令时", "daylight saving", Unit::None},
    {"HumIndType", "湿度指标类型", "kind of humidity indicator", Unit::None},
};

struct Found {
  std::string chinese;
  std::string english;
  Unit unit = Unit::None;
  bool known = false;
};

Found Find(const std::string& name) {
  for (const Item& item : kItems)
    if (item.name == name) return {std::string(item.chinese), std::string(item.english), item.unit, true};
  const std::string_view prefix = std::string_view(name).substr(0, 3);
  if (prefix == "Sum" || prefix == "Win") {
    const bool summer = prefix == "Sum";
    for (const Item& item : kDayItems) {
      if (item.name != std::string_view(name).substr(3)) continue;
      return {std::string(summer ? "夏季设计日" : "冬季设计日") + std::string(item.chinese),
              std::string(summer ? "summer design day, " : "winter design day, ") + std::string(item.english),
              item.unit, true};
    }
  }
  return {};
}

// A write-only store for a named exchange that keeps each item as JSON. The library's memory store
// would fold the two names that differ only in case into one item, and forget which items are whole
// numbers.
struct JsonStore {
  nlohmann::ordered_json items = nlohmann::ordered_json::object();

  template <class T>
  int Keep(const wchar_t* name, const T& value) {
    items[CString(name).ToUtf8()] = value;
    return ADataDef::AD_OK;
  }
  int writeChar(const wchar_t* n, char v) { return Keep(n, static_cast<int>(v)); }
  int writeString(const wchar_t* n, const wchar_t* v) { return Keep(n, CString(v).ToUtf8()); }
  int writeInt32(const wchar_t* n, long v) { return Keep(n, v); }
  int writeInt16(const wchar_t* n, short v) { return Keep(n, v); }
  int writeUInt32(const wchar_t* n, unsigned long v) { return Keep(n, v); }
  int writeUInt16(const wchar_t* n, unsigned short v) { return Keep(n, v); }
  int writeInt(const wchar_t* n, int v) { return Keep(n, v); }
  int writeBool(const wchar_t* n, bool v) { return Keep(n, v); }
  // The value holds Pa and fractions: the hPa and percent it writes may be a last bit off the stored
  // decimal (AsStored). Every other number is written exactly as held.
  int writeDouble(const wchar_t* n, double v) {
    const Unit unit = Find(CString(n).ToUtf8()).unit;
    return Keep(n, unit == Unit::HPa || unit == Unit::Percent ? AsStored(v) : v);
  }
  int writeBytes(const wchar_t*, const void*, unsigned long) { return ADataDef::AD_WRONGTYPE; }
  // Nothing is read back through this store.
  int readChar(const wchar_t*, char*) { return ADataDef::AD_NOITEM; }
  int readString(const wchar_t*, wchar_t**) { return ADataDef::AD_NOITEM; }
  int readInt32(const wchar_t*, long*) { return ADataDef::AD_NOITEM; }
  int readInt16(const wchar_t*, short*) { return ADataDef::AD_NOITEM; }
  int readUInt32(const wchar_t*, unsigned long*) { return ADataDef::AD_NOITEM; }
  int readUInt16(const wchar_t*, unsigned short*) { return ADataDef::AD_NOITEM; }
  int readInt(const wchar_t*, int*) { return ADataDef::AD_NOITEM; }
  int readBool(const wchar_t*, bool*) { return ADataDef::AD_NOITEM; }
  int readDouble(const wchar_t*, double*) { return ADataDef::AD_NOITEM; }
  int readBytes(const wchar_t*, void*, unsigned long) { return ADataDef::AD_NOITEM; }
};

}  // namespace

nlohmann::ordered_json NamedItems(CAData& value) {
  JsonStore store;
  value.DataOutPro(CADataExchange(CADataProp<JsonStore>(&store)));
  return store.items;
}

std::string WeatherItemLabel(const std::string& item) {
  const Found found = Find(item);
  return found.known ? found.chinese + " / " + found.english : "";
}

std::string WeatherItemUnit(const std::string& item) {
  switch (Find(item).unit) {
    case Unit::Radian: return "rad";
    case Unit::HPa: return "hPa";
    case Unit::Pa: return "Pa";
    case Unit::Percent: return "%";
    case Unit::Celsius: return "°C";
    case Unit::Kelvin: return "K";
    case Unit::Speed: return "m/s";
    case Unit::Degree: return "°";
    case Unit::Metre: return "m";
    case Unit::Hour: return "h";
    case Unit::Zone:
    case Unit::None: break;
  }
  return "";
}

std::string WeatherItemText(const std::string& item, const nlohmann::ordered_json& value) {
  if (value.is_null()) return "—";
  if (value.is_string()) return value.get<std::string>();
  const double v = value.get<double>();
  const std::string number = value.is_number_integer() ? std::to_string(value.get<long long>()) : Number(v);
  switch (Find(item).unit) {
    case Unit::Radian:
      return number + " rad (" + Fixed(v * 180.0 / std::numbers::pi, 4) + "°)";
    case Unit::HPa: return number + " hPa";
    case Unit::Pa: return number + " Pa";
    case Unit::Percent: return number + " %";
    case Unit::Celsius: return number + " °C";
    case Unit::Kelvin: return number + " K";
    case Unit::Speed: return number + " m/s";
    case Unit::Degree: return number + "°";
    case Unit::Metre: return number + " m";
    case Unit::Hour: return number + " h";
    case Unit::Zone: {
      const std::string zone = CQKWeatherData::DistrictCodeToStr(static_cast<int>(v)).ToUtf8();
      return zone.empty() ? number : number + " (" + zone + ")";
    }
    case Unit::None: break;
  }
  return number;
}

}  // namespace qkdb
