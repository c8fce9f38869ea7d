// The weather value: Beijing defaults, the climate-zone names, the orientation table, the ordered
// stream (pressures in hPa and humidities in percent, DjKtSwXdSd written as held but read as percent,
// optional blocks by version) and the named exchange (the weather table's columns, in order).

#include <gtest/gtest.h>

#include <cstddef>
#include <numbers>
#include <string>
#include <vector>

#include "datakit/ADataDef.h"
#include "datakit/CAData.h"
#include "datakit/CADataExchange.h"
#include "datakit/CADataProp.h"
#include "datakit/CADataStream.h"
#include "mfc/CString.h"
#include "weather/CQKDesignData.h"
#include "weather/CQKWeatherData.h"

namespace {

constexpr double kDegree = std::numbers::pi / 180.0;

// The stream version is shared by the whole process: a test that changes it puts it back.
struct VersionGuard {
  VersionGuard() : saved(CAData::kCurrentVersionNumber) {}
  ~VersionGuard() { CAData::kCurrentVersionNumber = saved; }
  VersionGuard(const VersionGuard&) = delete;
  VersionGuard& operator=(const VersionGuard&) = delete;
  unsigned long saved;
};

// ---- an in-memory store that keeps names exactly as written ------------------------------------
//
// Items keep the order of their first writing and the kind of call that wrote them; a name is found
// only when spelled exactly the same, so every item the value writes stays an item of its own. The
// value has two items whose names differ only in case, "DjSwZdFxPjFs" and "Djswzdfxpjfs"; a store
// that ignores case (CAMemoryDataProp, a database table) would merge them into one.
class ExactNameStore {
 public:
  enum class Kind { Int, Int32, Double, Text, Other };
  struct Item {
    std::wstring name;
    Kind kind;
    double number = 0.0;
    std::wstring text;
  };

  std::vector<Item> items;

  const Item* Find(const wchar_t* name) const {
    for (const Item& item : items) {
      if (item.name == name) return &item;
    }
    return nullptr;
  }
  std::vector<std::wstring> Names() const {
    std::vector<std::wstring> names;
    for (const Item& item : items) names.push_back(item.name);
    return names;
  }
  std::vector<Kind> Kinds() const {
    std::vector<Kind> kinds;
    for (const Item& item : items) kinds.push_back(item.kind);
    return kinds;
  }

  int readInt(const wchar_t* n, int* v) { return ReadNumber(n, v); }
  int writeInt(const wchar_t* n, int v) { return Write(n, Kind::Int, v); }
  int readInt32(const wchar_t* n, long* v) { return ReadNumber(n, v); }
  int writeInt32(const wchar_t* n, long v) { return Write(n, Kind::Int32, static_cast<double>(v)); }
  int readDouble(const wchar_t* n, double* v) { return ReadNumber(n, v); }
  int writeDouble(const wchar_t* n, double v) { return Write(n, Kind::Double, v); }
  int readString(const wchar_t* n, wchar_t** v) {
    const Item* item = Find(n);
    if (item == nullptr || item->kind != Kind::Text) return ADataDef::AD_NOITEM;
    // The exchange frees this with delete[].
    auto* copy = new wchar_t[item->text.size() + 1];
    item->text.copy(copy, item->text.size());
    copy[item->text.size()] = L'\0';
    *v = copy;
    return 0;
  }
  int writeString(const wchar_t* n, const wchar_t* v) {
    Item& item = Slot(n, Kind::Text);
    item.text = v ? v : L"";
    return 0;
  }
  // The weather value uses none of these; they are here because the adapter needs them.
  int readChar(const wchar_t* n, char* v) { return ReadNumber(n, v); }
  int writeChar(const wchar_t* n, char v) { return Write(n, Kind::Other, v); }
  int readInt16(const wchar_t* n, short* v) { return ReadNumber(n, v); }
  int writeInt16(const wchar_t* n, short v) { return Write(n, Kind::Other, v); }
  int readUInt32(const wchar_t* n, unsigned long* v) { return ReadNumber(n, v); }
  int writeUInt32(const wchar_t* n, unsigned long v) { return Write(n, Kind::Other, static_cast<double>(v)); }
  int readUInt16(const wchar_t* n, unsigned short* v) { return ReadNumber(n, v); }
  int writeUInt16(const wchar_t* n, unsigned short v) { return Write(n, Kind::Other, v); }
  int readBool(const wchar_t* n, bool* v) { return ReadNumber(n, v); }
  int writeBool(const wchar_t* n, bool v) { return Write(n, Kind::Other, v ? 1.0 : 0.0); }
  int readBytes(const wchar_t*, void*, unsigned long) { return ADataDef::AD_NOITEM; }
  int writeBytes(const wchar_t* n, const void*, unsigned long) { return Write(n, Kind::Other, 0.0); }

 private:
  Item& Slot(const wchar_t* name, Kind kind) {
    for (Item& item : items) {
      if (item.name == name) {
        item.kind = kind;
        return item;
      }
    }
    items.push_back(Item{name, kind, 0.0, {}});
    return items.back();
  }
  int Write(const wchar_t* name, Kind kind, double value) {
    Slot(name, kind).number = value;
    return 0;
  }
  template <class T>
  int ReadNumber(const wchar_t* name, T* value) {
    const Item* item = Find(name);
    if (item == nullptr || item->kind == Kind::Text) return ADataDef::AD_NOITEM;
    *value = static_cast<T>(item->number);
    return 0;
  }
};

using Kind = ExactNameStore::Kind;

CADataExchange ExchangeOver(ExactNameStore& store) {
  return CADataExchange(CADataProp<ExactNameStore>(&store));
}

double Number(const ExactNameStore& store, const wchar_t* name) {
  const ExactNameStore::Item* item = store.Find(name);
  EXPECT_NE(item, nullptr) << "no item named " << CString(name).ToUtf8();
  return item ? item->number : -12345.0;
}

// ---- the items of the named exchange, in their order ---------------------------------------------

struct NamedItem {
  std::wstring name;
  Kind kind;
};

std::vector<NamedItem> ExpectedItems(bool withMostFrequentWind) {
  std::vector<NamedItem> items = {
      {L"CId", Kind::Int32},        {L"DistrictCode", Kind::Int}, {L"WD", Kind::Double},
      {L"JD", Kind::Double},        {L"DjDqy", Kind::Double},     {L"XjDqy", Kind::Double},
      {L"DjCnSwGqWd", Kind::Double}, {L"DjKtSwGqWd", Kind::Double}, {L"XjKtSwGqWd", Kind::Double},
      {L"XjKtRPjWd", Kind::Double}, {L"XjJsRJC", Kind::Double},   {L"XjKtSwSqWd", Kind::Double}};
  if (withMostFrequentWind) {
    items.insert(items.end(), {{L"Xjzdfx", Kind::Double},
                               {L"Xjswzdfxpjfs", Kind::Double},
                               {L"Djzdfx", Kind::Double},
                               {L"Djswzdfxpjfs", Kind::Double}});
  }
  items.insert(items.end(),
               {{L"ZlYPjXdSd", Kind::Double},    {L"ZRYPjXdSd", Kind::Double},
                {L"DjSwZdFxPjFs", Kind::Double}, {L"XjSwPjFs", Kind::Double},
                {L"XjKtDqTmDDj", Kind::Int},     {L"XjTfSwGqWd", Kind::Double},
                {L"XjTfSwXdSd", Kind::Double},   {L"DjTfSwGqWd", Kind::Double},
                {L"DjKtSwXdSd", Kind::Double},   {L"DjSwPjFs", Kind::Double},
                {L"DjLfStCxXz_N", Kind::Double}, {L"DjLfStCxXz_NE", Kind::Double},
                {L"DjLfStCxXz_E", Kind::Double}, {L"DjLfStCxXz_SE", Kind::Double},
                {L"DjLfStCxXz_S", Kind::Double}, {L"DjLfStCxXz_SW", Kind::Double},
                {L"DjLfStCxXz_W", Kind::Double}, {L"DjLfStCxXz_NW", Kind::Double},
                {L"DBMNPJWD", Kind::Double},     {L"DBMZRYPJWD", Kind::Double},
                {L"DBMZLYPJWD", Kind::Double},   {L"CityType", Kind::Int},
                {L"EpwName", Kind::Text},        {L"EpwType", Kind::Int},
                {L"Elevation", Kind::Double},    {L"TimeZone", Kind::Double}});
  for (const wchar_t* prefix : {L"Sum", L"Win"}) {
    const std::wstring p = prefix;
    items.insert(items.end(), {{p + L"MaxDryBulbTemp", Kind::Double},
                               {p + L"DailyTempRange", Kind::Double},
                               {p + L"HumMaxDryBulb", Kind::Double},
                               {p + L"BarPress", Kind::Double},
                               {p + L"WindSpeed", Kind::Double},
                               {p + L"WindDirection", Kind::Double},
                               {p + L"SkyClearness", Kind::Double},
                               {p + L"RainIndicator", Kind::Int},
                               {p + L"SnowIndicator", Kind::Int},
                               {p + L"DayOfMonth", Kind::Int},
                               {p + L"Month", Kind::Int},
                               {p + L"DayType", Kind::Int},
                               {p + L"DSTIndicator", Kind::Int},
                               {p + L"HumIndType", Kind::Int}});
  }
  items.insert(items.end(), {{L"SumWindDef", Kind::Text}, {L"WinWindDef", Kind::Text}});
  return items;
}

std::vector<std::wstring> NamesOf(const std::vector<NamedItem>& items) {
  std::vector<std::wstring> names;
  for (const NamedItem& item : items) names.push_back(item.name);
  return names;
}

std::vector<Kind> KindsOf(const std::vector<NamedItem>& items) {
  std::vector<Kind> kinds;
  for (const NamedItem& item : items) kinds.push_back(item.kind);
  return kinds;
}

// ---- a value that differs from the defaults in every field --------------------------------------

void FillDesignDay(CQKDesignData& d, double base, const wchar_t* tag) {
  d.Month = 3;
  d.DayOfMonth = 9;
  d.DayType = 2;
  d.MaxDryBulbTemp = base + 0.1;
  d.DailyTempRange = base + 0.2;
  d.ExtraText1 = CString(tag) + L"一";
  d.ExtraText2 = CString(tag) + L"二";
  d.HumIndType = 3;
  d.ExtraValue1 = base + 0.3;
  d.ExtraText3 = CString(tag) + L"三";
  d.HumMaxDryBulb = base + 0.4;
  d.ExtraValue2 = base + 0.5;
  d.ExtraValue3 = base + 0.6;
  d.BarPress = 98000.0 + base;  // Pa
  d.WindSpeed = base + 0.7;
  d.WindDirection = base + 0.8;
  d.RainIndicator = 1;
  d.SnowIndicator = 1;
  d.DSTIndicator = 1;
  d.ExtraText4 = CString(tag) + L"四";
  d.ExtraText5 = CString(tag) + L"五";
  d.ExtraText6 = CString(tag) + L"六";
  d.ExtraValue4 = base + 0.9;
  d.ExtraValue5 = base + 1.1;
  d.SkyClearness = 0.85;
}

CQKWeatherData Guangzhou() {
  CQKWeatherData w;
  w.CId = 321;
  w.CountryName = L"中华人民共和国";
  w.ProvinceName = L"广东省";
  w.CityName = L"广州";
  w.JD = 113.3 * kDegree;
  w.WD = 23.13 * kDegree;
  w.XjDqy = 100450.0;  // Pa
  w.XjKtSwGqWd = 34.2;
  w.XjKtSwSqWd = 27.8;
  w.XjKtRPjWd = 30.7;
  w.XjJsRJC = 6.5;
  w.XjSwPjFs = 1.5;
  w.XjKtDqTmDDj = 5;
  w.ZRYPjXdSd = 0.83;
  w.XjTfSwGqWd = 31.8;
  w.XjTfSwXdSd = 0.68;
  w.Xjzdfx = 157.5;
  w.Xjswzdfxpjfs = 2.3;
  w.DjDqy = 101950.0;  // Pa
  w.DjCnSwGqWd = 8.0;
  w.DjKtSwGqWd = 5.2;
  w.DjSwZdFxPjFs = 2.4;
  w.ZlYPjXdSd = 0.72;
  w.DjTfSwGqWd = 13.6;
  w.DjKtSwXdSd = 0.71;
  w.DjSwPjFs = 1.7;
  w.Djzdfx = 22.5;
  w.Djswzdfxpjfs = 2.9;
  w.SumWindDef = L"SE";
  w.WinWindDef = L"NNE";
  for (int k = 0; k < 8; ++k) w.DjLfStCxXz[k] = 1.05 + 0.1 * k;
  w.DistrictCode = 9;
  w.DBMNPJWD = 23.4;
  w.DBMZRYPJWD = 31.2;
  w.DBMZLYPJWD = 14.9;
  for (int m = 0; m < 12; ++m) w.MonthTemp1[m] = 20.0 + 0.5 * m;
  for (int m = 0; m < 12; ++m) w.MonthTemp2[m] = 10.0 + 1.25 * m;
  w.Aux1 = 77;
  w.Aux2 = -3;
  for (int k = 0; k < 9; ++k) w.LfStCxAngle[k] = -170.0 + 40.0 * k;
  for (int k = 0; k < 9; ++k) w.LfStCxXz[k] = 0.5 + 0.05 * k;
  w.EpwName = L"广州_气象.epw";
  w.EpwType = 3;
  w.TimeZone = 7.5;
  w.Elevation = 41.7;
  w.CityType = 4;
  FillDesignDay(w.SumDesignDay, 35.0, L"夏");
  FillDesignDay(w.WinDesignDay, 4.0, L"冬");
  return w;
}

// ---- comparisons ---------------------------------------------------------------------------------

void ExpectSameNamedDesignDayFields(const CQKDesignData& e, const CQKDesignData& a, const char* which) {
  SCOPED_TRACE(which);
  EXPECT_DOUBLE_EQ(a.MaxDryBulbTemp, e.MaxDryBulbTemp);
  EXPECT_DOUBLE_EQ(a.DailyTempRange, e.DailyTempRange);
  EXPECT_DOUBLE_EQ(a.HumMaxDryBulb, e.HumMaxDryBulb);
  EXPECT_DOUBLE_EQ(a.BarPress, e.BarPress);
  EXPECT_DOUBLE_EQ(a.WindSpeed, e.WindSpeed);
  EXPECT_DOUBLE_EQ(a.WindDirection, e.WindDirection);
  EXPECT_DOUBLE_EQ(a.SkyClearness, e.SkyClearness);
  EXPECT_EQ(a.RainIndicator, e.RainIndicator);
  EXPECT_EQ(a.SnowIndicator, e.SnowIndicator);
  EXPECT_EQ(a.DayOfMonth, e.DayOfMonth);
  EXPECT_EQ(a.Month, e.Month);
  EXPECT_EQ(a.DayType, e.DayType);
  EXPECT_EQ(a.DSTIndicator, e.DSTIndicator);
  EXPECT_EQ(a.HumIndType, e.HumIndType);
}

void ExpectSameExtraDesignDayFields(const CQKDesignData& e, const CQKDesignData& a, const char* which) {
  SCOPED_TRACE(which);
  EXPECT_EQ(a.ExtraText1, e.ExtraText1);
  EXPECT_EQ(a.ExtraText2, e.ExtraText2);
  EXPECT_EQ(a.ExtraText3, e.ExtraText3);
  EXPECT_EQ(a.ExtraText4, e.ExtraText4);
  EXPECT_EQ(a.ExtraText5, e.ExtraText5);
  EXPECT_EQ(a.ExtraText6, e.ExtraText6);
  EXPECT_DOUBLE_EQ(a.ExtraValue1, e.ExtraValue1);
  EXPECT_DOUBLE_EQ(a.ExtraValue2, e.ExtraValue2);
  EXPECT_DOUBLE_EQ(a.ExtraValue3, e.ExtraValue3);
  EXPECT_DOUBLE_EQ(a.ExtraValue4, e.ExtraValue4);
  EXPECT_DOUBLE_EQ(a.ExtraValue5, e.ExtraValue5);
}

enum class Humidity { Compare, Skip };

// The fields that have a named item (the weather table's columns). DjKtSwXdSd can be left out for
// the stream, which does not bring it back as it was.
void ExpectSameExchangedFields(const CQKWeatherData& e, const CQKWeatherData& a,
                               Humidity djKtSwXdSd = Humidity::Compare) {
  EXPECT_EQ(a.CId, e.CId);
  EXPECT_DOUBLE_EQ(a.JD, e.JD);
  EXPECT_DOUBLE_EQ(a.WD, e.WD);
  EXPECT_DOUBLE_EQ(a.XjDqy, e.XjDqy);
  EXPECT_DOUBLE_EQ(a.XjKtSwGqWd, e.XjKtSwGqWd);
  EXPECT_DOUBLE_EQ(a.XjKtSwSqWd, e.XjKtSwSqWd);
  EXPECT_DOUBLE_EQ(a.XjKtRPjWd, e.XjKtRPjWd);
  EXPECT_DOUBLE_EQ(a.XjJsRJC, e.XjJsRJC);
  EXPECT_DOUBLE_EQ(a.XjSwPjFs, e.XjSwPjFs);
  EXPECT_EQ(a.XjKtDqTmDDj, e.XjKtDqTmDDj);
  EXPECT_DOUBLE_EQ(a.ZRYPjXdSd, e.ZRYPjXdSd);
  EXPECT_DOUBLE_EQ(a.XjTfSwGqWd, e.XjTfSwGqWd);
  EXPECT_DOUBLE_EQ(a.XjTfSwXdSd, e.XjTfSwXdSd);
  EXPECT_DOUBLE_EQ(a.Xjzdfx, e.Xjzdfx);
  EXPECT_DOUBLE_EQ(a.Xjswzdfxpjfs, e.Xjswzdfxpjfs);
  EXPECT_DOUBLE_EQ(a.DjDqy, e.DjDqy);
  EXPECT_DOUBLE_EQ(a.DjCnSwGqWd, e.DjCnSwGqWd);
  EXPECT_DOUBLE_EQ(a.DjKtSwGqWd, e.DjKtSwGqWd);
  EXPECT_DOUBLE_EQ(a.DjSwZdFxPjFs, e.DjSwZdFxPjFs);
  EXPECT_DOUBLE_EQ(a.ZlYPjXdSd, e.ZlYPjXdSd);
  EXPECT_DOUBLE_EQ(a.DjTfSwGqWd, e.DjTfSwGqWd);
  if (djKtSwXdSd == Humidity::Compare) {
    EXPECT_DOUBLE_EQ(a.DjKtSwXdSd, e.DjKtSwXdSd);
  }
  EXPECT_DOUBLE_EQ(a.DjSwPjFs, e.DjSwPjFs);
  EXPECT_DOUBLE_EQ(a.Djzdfx, e.Djzdfx);
  EXPECT_DOUBLE_EQ(a.Djswzdfxpjfs, e.Djswzdfxpjfs);
  EXPECT_EQ(a.SumWindDef, e.SumWindDef);
  EXPECT_EQ(a.WinWindDef, e.WinWindDef);
  for (int k = 0; k < 8; ++k) EXPECT_DOUBLE_EQ(a.DjLfStCxXz[k], e.DjLfStCxXz[k]) << "direction " << k;
  EXPECT_EQ(a.DistrictCode, e.DistrictCode);
  EXPECT_DOUBLE_EQ(a.DBMNPJWD, e.DBMNPJWD);
  EXPECT_DOUBLE_EQ(a.DBMZRYPJWD, e.DBMZRYPJWD);
  EXPECT_DOUBLE_EQ(a.DBMZLYPJWD, e.DBMZLYPJWD);
  EXPECT_EQ(a.EpwName, e.EpwName);
  EXPECT_EQ(a.EpwType, e.EpwType);
  EXPECT_DOUBLE_EQ(a.TimeZone, e.TimeZone);
  EXPECT_DOUBLE_EQ(a.Elevation, e.Elevation);
  EXPECT_EQ(a.CityType, e.CityType);
  ExpectSameNamedDesignDayFields(e.SumDesignDay, a.SumDesignDay, "summer design day");
  ExpectSameNamedDesignDayFields(e.WinDesignDay, a.WinDesignDay, "winter design day");
}

// The fields that are carried and streamed but have no named item.
void ExpectSameUnexchangedFields(const CQKWeatherData& e, const CQKWeatherData& a) {
  EXPECT_EQ(a.CountryName, e.CountryName);
  EXPECT_EQ(a.ProvinceName, e.ProvinceName);
  EXPECT_EQ(a.CityName, e.CityName);
  for (int m = 0; m < 12; ++m) EXPECT_DOUBLE_EQ(a.MonthTemp1[m], e.MonthTemp1[m]) << "month " << m;
  for (int m = 0; m < 12; ++m) EXPECT_DOUBLE_EQ(a.MonthTemp2[m], e.MonthTemp2[m]) << "month " << m;
  EXPECT_EQ(a.Aux1, e.Aux1);
  EXPECT_EQ(a.Aux2, e.Aux2);
  for (int k = 0; k < 9; ++k) EXPECT_DOUBLE_EQ(a.LfStCxAngle[k], e.LfStCxAngle[k]) << "point " << k;
  for (int k = 0; k < 9; ++k) EXPECT_DOUBLE_EQ(a.LfStCxXz[k], e.LfStCxXz[k]) << "point " << k;
  ExpectSameExtraDesignDayFields(e.SumDesignDay, a.SumDesignDay, "summer design day");
  ExpectSameExtraDesignDayFields(e.WinDesignDay, a.WinDesignDay, "winter design day");
}

void ExpectSameEveryField(const CQKWeatherData& e, const CQKWeatherData& a) {
  ExpectSameExchangedFields(e, a);
  ExpectSameUnexchangedFields(e, a);
}

// ---- the stream read back by hand ----------------------------------------------------------------

// The stream's items from CId up to DjSwPjFs, each read with its own type.
struct StreamHead {
  long cId = -1;
  CString country, province, city;
  double jd = -1, wd = -1, xjDqy = -1, xjKtSwGqWd = -1, xjKtSwSqWd = -1, xjKtRPjWd = -1;
  double xjJsRJC = -1, xjSwPjFs = -1;
  int xjKtDqTmDDj = -1;
  double zryPjXdSd = -1, xjTfSwGqWd = -1, xjTfSwXdSd = -1;
  double mostFrequentWind[4] = {-1, -1, -1, -1};
  double djDqy = -1, djCnSwGqWd = -1, djKtSwGqWd = -1, djSwZdFxPjFs = -1, zlYPjXdSd = -1;
  double djTfSwGqWd = -1, djKtSwXdSd = -1, djSwPjFs = -1;
  int failures = 0;
};

StreamHead ReadHead(CADataStream& s, bool withMostFrequentWind) {
  StreamHead h;
  auto read = [&](auto* target) { h.failures += s.ReadItem(target) != 0 ? 1 : 0; };
  read(&h.cId);
  read(&h.country);
  read(&h.province);
  read(&h.city);
  read(&h.jd);
  read(&h.wd);
  read(&h.xjDqy);
  read(&h.xjKtSwGqWd);
  read(&h.xjKtSwSqWd);
  read(&h.xjKtRPjWd);
  read(&h.xjJsRJC);
  read(&h.xjSwPjFs);
  read(&h.xjKtDqTmDDj);
  read(&h.zryPjXdSd);
  read(&h.xjTfSwGqWd);
  read(&h.xjTfSwXdSd);
  if (withMostFrequentWind) {
    for (double& v : h.mostFrequentWind) read(&v);
  }
  read(&h.djDqy);
  read(&h.djCnSwGqWd);
  read(&h.djKtSwGqWd);
  read(&h.djSwZdFxPjFs);
  read(&h.zlYPjXdSd);
  read(&h.djTfSwGqWd);
  read(&h.djKtSwXdSd);
  read(&h.djSwPjFs);
  return h;
}

// The stream of value written at the given version.
CADataStream StreamAt(int version, CQKWeatherData value) {
  VersionGuard guard;
  CQKWeatherData::SetCurVersion(version);
  CADataStream stream;
  EXPECT_EQ(value.DataOutPut(stream), ADataDef::AD_OK);
  return stream;
}

// What a stream written at version makes of a fresh value read at the same version.
CQKWeatherData ReadBackAt(int version, const CQKWeatherData& value) {
  CADataStream stream = StreamAt(version, value);
  VersionGuard guard;
  CQKWeatherData::SetCurVersion(version);
  CQKWeatherData in;
  EXPECT_EQ(in.DataInPut(stream), ADataDef::AD_OK);
  EXPECT_EQ(stream.GetRemaining(), 0u);
  return in;
}

std::size_t StringBytes(const CString& a, const CString& b) {
  CADataStream s;
  s.WriteItem(a);
  s.WriteItem(b);
  return s.GetSize();
}

}  // namespace

// ==== defaults ====================================================================================

TEST(CQKWeatherData, FreshObjectHasTheBeijingDefaults) {
  const CQKWeatherData w;

  EXPECT_EQ(w.CId, 8);
  EXPECT_EQ(w.CountryName, L"中国");
  EXPECT_EQ(w.ProvinceName, L"北京市");
  EXPECT_EQ(w.CityName, L"北 京");
  EXPECT_DOUBLE_EQ(w.XjDqy, 99860.0);
  EXPECT_DOUBLE_EQ(w.XjKtSwGqWd, 33.2);
  EXPECT_DOUBLE_EQ(w.XjKtSwSqWd, 26.4);
  EXPECT_DOUBLE_EQ(w.XjKtRPjWd, 28.6);
  EXPECT_DOUBLE_EQ(w.XjJsRJC, 8.8);
  EXPECT_DOUBLE_EQ(w.XjSwPjFs, 1.9);
  EXPECT_EQ(w.XjKtDqTmDDj, 4);
  EXPECT_DOUBLE_EQ(w.ZRYPjXdSd, 0.6);
  EXPECT_DOUBLE_EQ(w.XjTfSwGqWd, 30.0);
  EXPECT_DOUBLE_EQ(w.XjTfSwXdSd, 0.58);
  EXPECT_DOUBLE_EQ(w.Xjzdfx, 45.0);
  EXPECT_DOUBLE_EQ(w.Xjswzdfxpjfs, 0.58);
  EXPECT_DOUBLE_EQ(w.DjDqy, 102040.0);
  EXPECT_DOUBLE_EQ(w.DjCnSwGqWd, -9.0);
  EXPECT_DOUBLE_EQ(w.DjKtSwGqWd, -12.0);
  EXPECT_DOUBLE_EQ(w.DjSwZdFxPjFs, 4.8);
  EXPECT_DOUBLE_EQ(w.ZlYPjXdSd, 0.45);
  EXPECT_DOUBLE_EQ(w.DjTfSwGqWd, -7.6);
  EXPECT_DOUBLE_EQ(w.DjKtSwXdSd, 0.37);
  EXPECT_DOUBLE_EQ(w.DjSwPjFs, 2.7);
  EXPECT_DOUBLE_EQ(w.Djzdfx, 45.0);
  EXPECT_DOUBLE_EQ(w.Djswzdfxpjfs, 2.7);
  EXPECT_EQ(w.SumWindDef, L"N");
  EXPECT_EQ(w.WinWindDef, L"N");
  for (int k = 0; k < 8; ++k) EXPECT_DOUBLE_EQ(w.DjLfStCxXz[k], 1.0) << "direction " << k;
  EXPECT_EQ(w.DistrictCode, 5);
  EXPECT_DOUBLE_EQ(w.DBMNPJWD, 13.7);
  EXPECT_DOUBLE_EQ(w.DBMZRYPJWD, 29.4);
  EXPECT_DOUBLE_EQ(w.DBMZLYPJWD, -5.4);
  const double month1[12] = {8.36, 6.12, 5.63, 6.31, 9.68, 13.3, 16.62, 18.93, 19.47, 18.16, 15.28, 11.76};
  const double month2[12] = {0.14, -1.08, 1.09, 4.49, 13.37, 20.22, 24.85, 26.25, 23.86, 18.53, 11.42, 4.82};
  for (int m = 0; m < 12; ++m) EXPECT_DOUBLE_EQ(w.MonthTemp1[m], month1[m]) << "month " << m;
  for (int m = 0; m < 12; ++m) EXPECT_DOUBLE_EQ(w.MonthTemp2[m], month2[m]) << "month " << m;
  EXPECT_EQ(w.Aux1, 0);
  EXPECT_EQ(w.Aux2, 0);
  const double angles[9] = {-180.0, -135.0, -90.0, -45.0, 0.0, 45.0, 90.0, 135.0, 180.0};
  for (int k = 0; k < 9; ++k) EXPECT_DOUBLE_EQ(w.LfStCxAngle[k], angles[k]) << "point " << k;
  EXPECT_EQ(w.EpwName, L"CHN_Beijing.Beijing.545110_CSWD.epw");
  EXPECT_EQ(w.EpwType, 0);
  EXPECT_DOUBLE_EQ(w.TimeZone, 8.0);
  EXPECT_DOUBLE_EQ(w.Elevation, 31.3);
  EXPECT_EQ(w.CityType, 2);
}

TEST(CQKWeatherData, LongitudeAndLatitudeAreHeldInRadians) {
  const CQKWeatherData w;

  EXPECT_DOUBLE_EQ(w.JD, 116.47 * std::numbers::pi / 180.0);
  EXPECT_DOUBLE_EQ(w.WD, 39.8 * std::numbers::pi / 180.0);
}

TEST(CQKWeatherData, FreshSummerDesignDayHasItsDefaults) {
  const CQKWeatherData w;

  const CQKDesignData& d = w.SumDesignDay;
  EXPECT_DOUBLE_EQ(d.MaxDryBulbTemp, 34.9);
  EXPECT_DOUBLE_EQ(d.DailyTempRange, 8.9);
  EXPECT_DOUBLE_EQ(d.HumMaxDryBulb, 22.2);
  EXPECT_DOUBLE_EQ(d.BarPress, 100950.0);
  EXPECT_DOUBLE_EQ(d.WindSpeed, 3.4);
  EXPECT_DOUBLE_EQ(d.WindDirection, 180.0);
  EXPECT_DOUBLE_EQ(d.SkyClearness, 1.0);
  EXPECT_EQ(d.RainIndicator, 0);
  EXPECT_EQ(d.SnowIndicator, 0);
  EXPECT_EQ(d.DayOfMonth, 21);
  EXPECT_EQ(d.Month, 7);
  EXPECT_EQ(d.DayType, 1);
  EXPECT_EQ(d.DSTIndicator, 0);
  EXPECT_EQ(d.HumIndType, 0);
}

TEST(CQKWeatherData, FreshWinterDesignDayHasItsDefaults) {
  const CQKWeatherData w;

  const CQKDesignData& d = w.WinDesignDay;
  EXPECT_DOUBLE_EQ(d.MaxDryBulbTemp, -10.8);
  EXPECT_DOUBLE_EQ(d.DailyTempRange, 0.0);
  EXPECT_DOUBLE_EQ(d.HumMaxDryBulb, -10.8);
  EXPECT_DOUBLE_EQ(d.BarPress, 100950.0);
  EXPECT_DOUBLE_EQ(d.WindSpeed, 2.2);
  EXPECT_DOUBLE_EQ(d.WindDirection, 340.0);
  EXPECT_DOUBLE_EQ(d.SkyClearness, 0.0);
  EXPECT_EQ(d.RainIndicator, 0);
  EXPECT_EQ(d.SnowIndicator, 0);
  EXPECT_EQ(d.DayOfMonth, 21);
  EXPECT_EQ(d.Month, 1);
  EXPECT_EQ(d.DayType, 0);
  EXPECT_EQ(d.DSTIndicator, 0);
  EXPECT_EQ(d.HumIndType, 0);
}

TEST(CQKWeatherData, FreshOrientationTableIsZeroUntilTheFirstFlush) {
  const CQKWeatherData w;

  for (int k = 0; k < 9; ++k) EXPECT_EQ(w.LfStCxXz[k], 0.0) << "point " << k;
}

TEST(CQKWeatherData, InitRestoresTheDefaultsButLeavesTheOrientationTable) {
  CQKWeatherData w = Guangzhou();
  for (int k = 0; k < 9; ++k) w.LfStCxXz[k] = 7.0 + k;

  w.Init();

  EXPECT_EQ(w.CId, 8);  // Init did run
  EXPECT_EQ(w.CityName, L"北 京");
  for (int k = 0; k < 9; ++k) EXPECT_EQ(w.LfStCxXz[k], 7.0 + k) << "point " << k;
}

// ==== climate zones ===============================================================================

TEST(CQKWeatherData, DistrictCodeToStrNamesEachZone) {
  const wchar_t* names[12] = {nullptr,        L"严寒A区",     L"严寒B区",     L"严寒C区",
                              L"寒冷A区",     L"寒冷B区",     L"夏热冬冷A区", L"夏热冬冷B区",
                              L"夏热冬暖A区", L"夏热冬暖B区", L"温和A区",     L"温和B区"};

  for (int code = 1; code <= 11; ++code) {
    EXPECT_EQ(CQKWeatherData::DistrictCodeToStr(code), names[code]) << "code " << code;
  }
}

TEST(CQKWeatherData, DistrictCodeToStrIsEmptyOutside1To11) {
  const CString zero = CQKWeatherData::DistrictCodeToStr(0);
  const CString twelve = CQKWeatherData::DistrictCodeToStr(12);
  const CString negative = CQKWeatherData::DistrictCodeToStr(-1);

  EXPECT_EQ(zero, L"");
  EXPECT_EQ(twelve, L"");
  EXPECT_EQ(negative, L"");
}

TEST(CQKWeatherData, StrToDistrictCodeOfTheEmptyNameIsMinusOne) {
  EXPECT_EQ(CQKWeatherData::StrToDistrictCode(L""), -1);
}

TEST(CQKWeatherData, StrToDistrictCodeOfAnUnknownNameIsMinusOne) {
  EXPECT_EQ(CQKWeatherData::StrToDistrictCode(L"寒冷C区"), -1);
  EXPECT_EQ(CQKWeatherData::StrToDistrictCode(L"寒冷B"), -1);      // a prefix is not the name
  EXPECT_EQ(CQKWeatherData::StrToDistrictCode(L"寒冷B区 "), -1);  // nor is the name with a blank
}

TEST(CQKWeatherData, StrToDistrictCodeOfNullIsMinusOne) {
  EXPECT_EQ(CQKWeatherData::StrToDistrictCode(nullptr), -1);
}

TEST(CQKWeatherData, StrToDistrictCodeInvertsDistrictCodeToStr) {
  for (int code = 1; code <= 11; ++code) {
    const CString name = CQKWeatherData::DistrictCodeToStr(code);

    EXPECT_EQ(CQKWeatherData::StrToDistrictCode(name), code) << "code " << code;
  }
}

// ==== orientation and hourly values ===============================================================

TEST(CQKWeatherData, FlushDjLfStCxXzFillsTheNinePointTableClosingWithNorth) {
  CQKWeatherData w;
  for (int k = 0; k < 8; ++k) w.DjLfStCxXz[k] = 1.1 + 0.1 * k;  // N 1.1 .. NW 1.8

  w.FlushDjLfStCxXz();

  const double expected[9] = {1.1, 1.2, 1.3, 1.4, 1.5, 1.6, 1.7, 1.8, 1.1};
  for (int k = 0; k < 9; ++k) EXPECT_DOUBLE_EQ(w.LfStCxXz[k], expected[k]) << "point " << k;
}

TEST(CQKWeatherData, GetDjLfStCxXzIsOneForEveryAzimuthWhateverTheFactors) {
  CQKWeatherData w;
  for (int k = 0; k < 8; ++k) w.DjLfStCxXz[k] = 1.1 + 0.1 * k;
  w.FlushDjLfStCxXz();

  for (double azimuth : {-180.0, -135.0, -100.0, 0.0, 30.0, 90.0, 180.0}) {
    EXPECT_EQ(w.GetDjLfStCxXz(azimuth), 1.0) << "azimuth " << azimuth;
  }
}

TEST(CQKWeatherData, GetSwZsGqWdWritesZeroIntoAll24Hours) {
  const CQKWeatherData w;
  double hourly[24];
  for (double& h : hourly) h = 5.5;

  w.GetSwZsGqWd(hourly);

  for (int h = 0; h < 24; ++h) EXPECT_EQ(hourly[h], 0.0) << "hour " << h;
}

TEST(CQKWeatherData, GetSwZsJsWdLeavesTheHoursAsTheyWere) {
  const CQKWeatherData w;
  double hourly[24];
  for (int h = 0; h < 24; ++h) hourly[h] = 10.0 + h;

  w.GetSwZsJsWd(hourly);

  for (int h = 0; h < 24; ++h) EXPECT_EQ(hourly[h], 10.0 + h) << "hour " << h;
}

TEST(CQKWeatherData, GetSwZsSqWdLeavesTheHoursAsTheyWere) {
  const CQKWeatherData w;
  double hourly[24];
  for (int h = 0; h < 24; ++h) hourly[h] = 10.0 + h;

  w.GetSwZsSqWd(hourly);

  for (int h = 0; h < 24; ++h) EXPECT_EQ(hourly[h], 10.0 + h) << "hour " << h;
}

TEST(CQKWeatherData, GetSwZsXdSdLeavesTheHoursAsTheyWere) {
  CQKWeatherData w;
  double hourly[24];
  for (int h = 0; h < 24; ++h) hourly[h] = 10.0 + h;

  w.GetSwZsXdSd(hourly);

  for (int h = 0; h < 24; ++h) EXPECT_EQ(hourly[h], 10.0 + h) << "hour " << h;
}

// ==== version ======================================================================================

TEST(CQKWeatherData, SetCurVersionSetsTheSharedStreamVersion) {
  VersionGuard guard;

  CQKWeatherData::SetCurVersion(2);

  EXPECT_EQ(CAData::kCurrentVersionNumber, 2u);
}

// ==== ordered stream ==============================================================================

TEST(CQKWeatherData, StreamRoundTripKeepsEveryFieldButDjKtSwXdSd) {
  CQKWeatherData out = Guangzhou();
  ASSERT_EQ(CAData::kCurrentVersionNumber, 4u);
  CADataStream stream;
  ASSERT_EQ(out.DataOutPut(stream), ADataDef::AD_OK);
  CQKWeatherData in;

  ASSERT_EQ(in.DataInPut(stream), ADataDef::AD_OK);

  ExpectSameExchangedFields(out, in, Humidity::Skip);
  ExpectSameUnexchangedFields(out, in);
  EXPECT_EQ(stream.GetRemaining(), 0u);
}

TEST(CQKWeatherData, StreamBringsDjKtSwXdSdBackAHundredthOfItself) {
  CQKWeatherData out;
  out.DjKtSwXdSd = 0.37;
  CADataStream stream;
  ASSERT_EQ(out.DataOutPut(stream), ADataDef::AD_OK);
  CQKWeatherData in;

  ASSERT_EQ(in.DataInPut(stream), ADataDef::AD_OK);

  EXPECT_DOUBLE_EQ(in.DjKtSwXdSd, 0.0037);
}

TEST(CQKWeatherData, StreamWritesPressuresInHPa) {
  CQKWeatherData out = Guangzhou();
  CADataStream stream;

  ASSERT_EQ(out.DataOutPut(stream), ADataDef::AD_OK);

  const StreamHead head = ReadHead(stream, true);
  ASSERT_EQ(head.failures, 0);
  EXPECT_DOUBLE_EQ(head.xjDqy, 1004.5);
  EXPECT_DOUBLE_EQ(head.djDqy, 1019.5);
}

TEST(CQKWeatherData, StreamWritesThreeHumiditiesInPercent) {
  CQKWeatherData out = Guangzhou();
  CADataStream stream;

  ASSERT_EQ(out.DataOutPut(stream), ADataDef::AD_OK);

  const StreamHead head = ReadHead(stream, true);
  ASSERT_EQ(head.failures, 0);
  EXPECT_DOUBLE_EQ(head.zryPjXdSd, 83.0);
  EXPECT_DOUBLE_EQ(head.xjTfSwXdSd, 68.0);
  EXPECT_DOUBLE_EQ(head.zlYPjXdSd, 72.0);
}

TEST(CQKWeatherData, StreamWritesDjKtSwXdSdAsTheFractionItHolds) {
  CQKWeatherData out = Guangzhou();
  CADataStream stream;

  ASSERT_EQ(out.DataOutPut(stream), ADataDef::AD_OK);

  const StreamHead head = ReadHead(stream, true);
  ASSERT_EQ(head.failures, 0);
  EXPECT_DOUBLE_EQ(head.djKtSwXdSd, 0.71);
}

TEST(CQKWeatherData, StreamHoldsTheItemsUpToDjSwPjFsInTheirOrder) {
  CQKWeatherData out = Guangzhou();
  CADataStream stream;

  ASSERT_EQ(out.DataOutPut(stream), ADataDef::AD_OK);

  const StreamHead h = ReadHead(stream, true);
  ASSERT_EQ(h.failures, 0);
  EXPECT_EQ(h.cId, 321);
  EXPECT_EQ(h.country, L"中华人民共和国");
  EXPECT_EQ(h.province, L"广东省");
  EXPECT_EQ(h.city, L"广州");
  EXPECT_DOUBLE_EQ(h.jd, 113.3 * kDegree);
  EXPECT_DOUBLE_EQ(h.wd, 23.13 * kDegree);
  EXPECT_DOUBLE_EQ(h.xjKtSwGqWd, 34.2);
  EXPECT_DOUBLE_EQ(h.xjKtSwSqWd, 27.8);
  EXPECT_DOUBLE_EQ(h.xjKtRPjWd, 30.7);
  EXPECT_DOUBLE_EQ(h.xjJsRJC, 6.5);
  EXPECT_DOUBLE_EQ(h.xjSwPjFs, 1.5);
  EXPECT_EQ(h.xjKtDqTmDDj, 5);
  EXPECT_DOUBLE_EQ(h.xjTfSwGqWd, 31.8);
  EXPECT_DOUBLE_EQ(h.mostFrequentWind[0], 157.5);  // Xjzdfx
  EXPECT_DOUBLE_EQ(h.mostFrequentWind[1], 2.3);    // Xjswzdfxpjfs
  EXPECT_DOUBLE_EQ(h.mostFrequentWind[2], 22.5);   // Djzdfx
  EXPECT_DOUBLE_EQ(h.mostFrequentWind[3], 2.9);    // Djswzdfxpjfs
  EXPECT_DOUBLE_EQ(h.djCnSwGqWd, 8.0);
  EXPECT_DOUBLE_EQ(h.djKtSwGqWd, 5.2);
  EXPECT_DOUBLE_EQ(h.djSwZdFxPjFs, 2.4);
  EXPECT_DOUBLE_EQ(h.djTfSwGqWd, 13.6);
  EXPECT_DOUBLE_EQ(h.djSwPjFs, 1.7);
}

TEST(CQKWeatherData, StreamAtVersion1IsShorterByTheWindItemsMonthTemp2AndTheWindWords) {
  const CQKWeatherData w = Guangzhou();

  const std::size_t v1 = StreamAt(1, w).GetSize();
  const std::size_t v4 = StreamAt(4, w).GetSize();

  EXPECT_EQ(v4 - v1, 4 * sizeof(double) + 12 * sizeof(double) + StringBytes(w.SumWindDef, w.WinWindDef));
}

TEST(CQKWeatherData, StreamAtVersion1GoesFromXjTfSwXdSdStraightToDjDqy) {
  CADataStream stream = StreamAt(1, Guangzhou());

  const StreamHead head = ReadHead(stream, false);

  ASSERT_EQ(head.failures, 0);
  EXPECT_DOUBLE_EQ(head.xjTfSwXdSd, 68.0);
  EXPECT_DOUBLE_EQ(head.djDqy, 1019.5);
  EXPECT_DOUBLE_EQ(head.djSwPjFs, 1.7);
}

TEST(CQKWeatherData, ReadingAVersion1StreamLeavesWindItemsMonthTemp2AndWindWordsAtDefaults) {
  const CQKWeatherData out = Guangzhou();
  const CQKWeatherData defaults;

  const CQKWeatherData in = ReadBackAt(1, out);

  EXPECT_DOUBLE_EQ(in.Xjzdfx, defaults.Xjzdfx);
  EXPECT_DOUBLE_EQ(in.Xjswzdfxpjfs, defaults.Xjswzdfxpjfs);
  EXPECT_DOUBLE_EQ(in.Djzdfx, defaults.Djzdfx);
  EXPECT_DOUBLE_EQ(in.Djswzdfxpjfs, defaults.Djswzdfxpjfs);
  for (int m = 0; m < 12; ++m) EXPECT_DOUBLE_EQ(in.MonthTemp2[m], defaults.MonthTemp2[m]) << "month " << m;
  EXPECT_EQ(in.SumWindDef, L"N");
  EXPECT_EQ(in.WinWindDef, L"N");
  // The items that are there still land in their fields, up to the last one.
  EXPECT_DOUBLE_EQ(in.DjDqy, out.DjDqy);
  EXPECT_DOUBLE_EQ(in.WinDesignDay.SkyClearness, out.WinDesignDay.SkyClearness);
}

TEST(CQKWeatherData, StreamAtVersion2AddsExactlyTheFourWindItemsAfterXjTfSwXdSd) {
  const CQKWeatherData w = Guangzhou();
  const std::size_t v1 = StreamAt(1, w).GetSize();

  CADataStream v2 = StreamAt(2, w);

  EXPECT_EQ(v2.GetSize() - v1, 4 * sizeof(double));
  const StreamHead head = ReadHead(v2, true);
  ASSERT_EQ(head.failures, 0);
  EXPECT_DOUBLE_EQ(head.mostFrequentWind[0], 157.5);
  EXPECT_DOUBLE_EQ(head.mostFrequentWind[1], 2.3);
  EXPECT_DOUBLE_EQ(head.mostFrequentWind[2], 22.5);
  EXPECT_DOUBLE_EQ(head.mostFrequentWind[3], 2.9);
}

TEST(CQKWeatherData, ReadingAVersion2StreamTakesTheWindItemsButLeavesMonthTemp2AndWindWords) {
  const CQKWeatherData out = Guangzhou();
  const CQKWeatherData defaults;

  const CQKWeatherData in = ReadBackAt(2, out);

  EXPECT_DOUBLE_EQ(in.Xjzdfx, 157.5);
  EXPECT_DOUBLE_EQ(in.Xjswzdfxpjfs, 2.3);
  EXPECT_DOUBLE_EQ(in.Djzdfx, 22.5);
  EXPECT_DOUBLE_EQ(in.Djswzdfxpjfs, 2.9);
  for (int m = 0; m < 12; ++m) EXPECT_DOUBLE_EQ(in.MonthTemp2[m], defaults.MonthTemp2[m]) << "month " << m;
  EXPECT_EQ(in.SumWindDef, L"N");
  EXPECT_EQ(in.WinWindDef, L"N");
}

TEST(CQKWeatherData, StreamAtVersion3AddsExactlyMonthTemp2AfterTheDesignDays) {
  const CQKWeatherData w = Guangzhou();
  const std::size_t v2 = StreamAt(2, w).GetSize();

  CADataStream v3 = StreamAt(3, w);

  ASSERT_EQ(v3.GetSize() - v2, 12 * sizeof(double));
  ASSERT_TRUE(v3.Seek(v2));
  for (int m = 0; m < 12; ++m) {
    double t = -1.0;
    ASSERT_EQ(v3.ReadItem(&t), 0);
    EXPECT_DOUBLE_EQ(t, 10.0 + 1.25 * m) << "month " << m;
  }
}

TEST(CQKWeatherData, ReadingAVersion3StreamTakesMonthTemp2ButLeavesTheWindWords) {
  const CQKWeatherData out = Guangzhou();

  const CQKWeatherData in = ReadBackAt(3, out);

  for (int m = 0; m < 12; ++m) EXPECT_DOUBLE_EQ(in.MonthTemp2[m], out.MonthTemp2[m]) << "month " << m;
  EXPECT_EQ(in.SumWindDef, L"N");
  EXPECT_EQ(in.WinWindDef, L"N");
}

TEST(CQKWeatherData, StreamAtVersion4EndsWithTheTwoWindWords) {
  const CQKWeatherData w = Guangzhou();
  const std::size_t v3 = StreamAt(3, w).GetSize();

  CADataStream v4 = StreamAt(4, w);

  ASSERT_EQ(v4.GetSize() - v3, StringBytes(L"SE", L"NNE"));
  ASSERT_TRUE(v4.Seek(v3));
  CString sum, win;
  ASSERT_EQ(v4.ReadItem(&sum), 0);
  ASSERT_EQ(v4.ReadItem(&win), 0);
  EXPECT_EQ(sum, L"SE");
  EXPECT_EQ(win, L"NNE");
}

// ==== named exchange ==============================================================================

TEST(CQKWeatherData, ExchangeWritesTheItemsInOrderUnderTheirNames) {
  CQKWeatherData out = Guangzhou();
  ExactNameStore store;

  ASSERT_EQ(out.DataOutPro(ExchangeOver(store)), ADataDef::AD_OK);

  EXPECT_EQ(store.Names(), NamesOf(ExpectedItems(true)));
}

TEST(CQKWeatherData, ExchangeWritesEachItemWithItsOwnType) {
  CQKWeatherData out = Guangzhou();
  ExactNameStore store;

  ASSERT_EQ(out.DataOutPro(ExchangeOver(store)), ADataDef::AD_OK);

  ASSERT_EQ(store.items.size(), ExpectedItems(true).size());
  EXPECT_EQ(store.Kinds(), KindsOf(ExpectedItems(true)));
}

TEST(CQKWeatherData, ExchangeWritesPressuresInHPa) {
  CQKWeatherData out = Guangzhou();
  ExactNameStore store;

  ASSERT_EQ(out.DataOutPro(ExchangeOver(store)), ADataDef::AD_OK);

  EXPECT_DOUBLE_EQ(Number(store, L"DjDqy"), 1019.5);
  EXPECT_DOUBLE_EQ(Number(store, L"XjDqy"), 1004.5);
}

TEST(CQKWeatherData, ExchangeWritesAllFourHumiditiesInPercent) {
  CQKWeatherData out = Guangzhou();
  ExactNameStore store;

  ASSERT_EQ(out.DataOutPro(ExchangeOver(store)), ADataDef::AD_OK);

  EXPECT_DOUBLE_EQ(Number(store, L"ZlYPjXdSd"), 72.0);
  EXPECT_DOUBLE_EQ(Number(store, L"ZRYPjXdSd"), 83.0);
  EXPECT_DOUBLE_EQ(Number(store, L"XjTfSwXdSd"), 68.0);
  EXPECT_DOUBLE_EQ(Number(store, L"DjKtSwXdSd"), 71.0);
}

TEST(CQKWeatherData, ExchangeWritesDesignDayBarPressInPa) {
  CQKWeatherData out = Guangzhou();
  ExactNameStore store;

  ASSERT_EQ(out.DataOutPro(ExchangeOver(store)), ADataDef::AD_OK);

  EXPECT_DOUBLE_EQ(Number(store, L"SumBarPress"), 98035.0);
  EXPECT_DOUBLE_EQ(Number(store, L"WinBarPress"), 98004.0);
}

TEST(CQKWeatherData, ExchangeRoundTripRestoresEveryExchangedField) {
  CQKWeatherData out = Guangzhou();
  ExactNameStore store;
  ASSERT_EQ(out.DataOutPro(ExchangeOver(store)), ADataDef::AD_OK);
  CQKWeatherData in;

  ASSERT_EQ(in.DataInPro(ExchangeOver(store)), ADataDef::AD_OK);

  ExpectSameExchangedFields(out, in);
}

TEST(CQKWeatherData, DataInProLeavesTheFieldsWithoutItemsUntouched) {
  CQKWeatherData out = Guangzhou();
  ExactNameStore store;
  ASSERT_EQ(out.DataOutPro(ExchangeOver(store)), ADataDef::AD_OK);
  CQKWeatherData in;
  in.FlushDjLfStCxXz();  // so the orientation table is not all zero
  const CQKWeatherData before(in);

  ASSERT_EQ(in.DataInPro(ExchangeOver(store)), ADataDef::AD_OK);

  ExpectSameUnexchangedFields(before, in);
}

TEST(CQKWeatherData, ExchangeAtVersion1LeavesOutOnlyTheFourMostFrequentWindItems) {
  VersionGuard guard;
  CQKWeatherData::SetCurVersion(1);
  CQKWeatherData out = Guangzhou();
  ExactNameStore store;

  ASSERT_EQ(out.DataOutPro(ExchangeOver(store)), ADataDef::AD_OK);

  EXPECT_EQ(store.Names(), NamesOf(ExpectedItems(false)));
}

TEST(CQKWeatherData, DataInProAtVersion1DoesNotReadTheFourMostFrequentWindItems) {
  CQKWeatherData out = Guangzhou();
  ExactNameStore store;
  ASSERT_EQ(out.DataOutPro(ExchangeOver(store)), ADataDef::AD_OK);  // at version 4: all items
  VersionGuard guard;
  CQKWeatherData::SetCurVersion(1);
  CQKWeatherData in;

  ASSERT_EQ(in.DataInPro(ExchangeOver(store)), ADataDef::AD_OK);

  EXPECT_DOUBLE_EQ(in.Xjzdfx, 45.0);
  EXPECT_DOUBLE_EQ(in.Xjswzdfxpjfs, 0.58);
  EXPECT_DOUBLE_EQ(in.Djzdfx, 45.0);
  EXPECT_DOUBLE_EQ(in.Djswzdfxpjfs, 2.7);
}

TEST(CQKWeatherData, ExchangeAtVersion1StillCarriesTheWindWords) {
  VersionGuard guard;
  CQKWeatherData::SetCurVersion(1);
  CQKWeatherData out = Guangzhou();
  ExactNameStore store;
  ASSERT_EQ(out.DataOutPro(ExchangeOver(store)), ADataDef::AD_OK);
  CQKWeatherData in;

  ASSERT_EQ(in.DataInPro(ExchangeOver(store)), ADataDef::AD_OK);

  EXPECT_EQ(in.SumWindDef, L"SE");
  EXPECT_EQ(in.WinWindDef, L"NNE");
}

// ==== copies =======================================================================================

TEST(CQKWeatherData, CopyConstructorCopiesEveryFieldAndBothDesignDays) {
  const CQKWeatherData source = Guangzhou();

  const CQKWeatherData copy(source);

  ExpectSameEveryField(source, copy);
}

TEST(CQKWeatherData, AssignmentCopiesEveryFieldAndBothDesignDays) {
  const CQKWeatherData source = Guangzhou();
  CQKWeatherData target;

  target = source;

  ExpectSameEveryField(source, target);
}

TEST(CQKWeatherData, ChangingACopyLeavesItsSourceUnchanged) {
  const CQKWeatherData source = Guangzhou();
  CQKWeatherData copy(source);

  copy.CityName = L"深圳";
  copy.EpwName = L"别的.epw";
  copy.SumDesignDay.ExtraText1 = L"改";
  copy.SumDesignDay.BarPress = 1.0;
  copy.WinDesignDay.ExtraText6 = L"改";
  copy.WinDesignDay.Month = 11;
  copy.MonthTemp1[0] = -40.0;
  copy.DjLfStCxXz[3] = 9.0;

  ExpectSameEveryField(Guangzhou(), source);
}

TEST(CQKWeatherData, ChangingAnAssignedCopyLeavesItsSourceUnchanged) {
  const CQKWeatherData source = Guangzhou();
  CQKWeatherData target;
  target = source;

  target.CountryName = L"别国";
  target.SumWindDef = L"W";
  target.SumDesignDay.ExtraText3 = L"改";
  target.WinDesignDay.SkyClearness = 0.1;
  target.WinDesignDay.ExtraText2 = L"改";
  target.LfStCxXz[8] = -1.0;

  ExpectSameEveryField(Guangzhou(), source);
}
