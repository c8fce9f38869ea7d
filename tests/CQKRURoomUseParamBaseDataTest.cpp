// The load parameters of a room use as a plain value: defaults, the shared labour-intensity table,
// the ordered stream (humidities as fractions) and the named exchange (humidities in percent, the
// labour intensity as its int id, the name winning over the id).

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "datakit/ADataDef.h"
#include "datakit/CADataExchange.h"
#include "datakit/CADataProp.h"
#include "datakit/CADataStream.h"
#include "datakit/CAMemoryDataProp.h"
#include "foundation/QKLoad.h"
#include "mfc/CString.h"
#include "rooms/CQKRURoomUseParamBaseData.h"

using namespace QKLoad;

namespace {

using Value = CQKRURoomUseParamBaseData;

constexpr auto kUnknownLabour = static_cast<EQKLdQdType>(7);  // in no row of the labour table

// The labour table is shared by the whole process. A test that changes it puts the five rows back
// on the way out by constructing a value, which rebuilds the table.
struct LabourTableGuard {
  LabourTableGuard() = default;
  ~LabourTableGuard() { Value rebuild; }
  LabourTableGuard(const LabourTableGuard&) = delete;
  LabourTableGuard& operator=(const LabourTableGuard&) = delete;
};

// A value with every field away from its default.
Value Office() {
  Value v;
  v.RUId = 42;
  v.DongJiSNSJWD = 18.5;
  v.DongJiSNSJXDSD = 0.45;
  v.XiaJiSNSJWD = 26.5;
  v.XiaJiSNSJXDSD = 0.55;
  v.RenYuanMD = 0.2;
  v.ZhaoMingBZ = 11.0;
  v.SheBeiBZ = 15.0;
  v.XinFengL = 30.0;
  v.ZaoYin = 45;
  v.ZongLengZB = 120.5;
  v.ZongReZB = 80.25;
  v.WeiHuLZB = 40.5;
  v.RenYuanLZB = 30.25;
  v.XinFengLZB = 25.75;
  v.QiTaLZB = 24.0;
  v.WeiHuRZB = 50.5;
  v.RenYuanRZB = 10.25;
  v.XinFengRZB = 19.5;
  v.LaoDongQD = L"中等劳动";
  v.ShenTouL = 0.5;
  v.ParamAux = -9;
  v.LDQDId = LdQdModerate;
  return v;
}

// ---- a store that remembers with which type each item was written --------------------------------
//
// The items themselves live in a CAMemoryDataProp; beside them the store notes, per written item, the
// kind of write call, so a test can tell an int item from a double one.
enum class Kind { Int, Int32, Double, Text, Other };

struct KindRecordingStore {
  CAMemoryDataProp items;
  std::vector<std::pair<std::wstring, Kind>> writes;

  int Note(const wchar_t* name, Kind kind, int result) {
    writes.emplace_back(name, kind);
    return result;
  }
  int readChar(const wchar_t* n, char* v) { return items.readChar(n, v); }
  int writeChar(const wchar_t* n, char v) { return Note(n, Kind::Other, items.writeChar(n, v)); }
  int readString(const wchar_t* n, wchar_t** v) { return items.readString(n, v); }
  int writeString(const wchar_t* n, const wchar_t* v) { return Note(n, Kind::Text, items.writeString(n, v)); }
  int readInt32(const wchar_t* n, long* v) { return items.readInt32(n, v); }
  int writeInt32(const wchar_t* n, long v) { return Note(n, Kind::Int32, items.writeInt32(n, v)); }
  int readInt16(const wchar_t* n, short* v) { return items.readInt16(n, v); }
  int writeInt16(const wchar_t* n, short v) { return Note(n, Kind::Other, items.writeInt16(n, v)); }
  int readUInt32(const wchar_t* n, unsigned long* v) { return items.readUInt32(n, v); }
  int writeUInt32(const wchar_t* n, unsigned long v) { return Note(n, Kind::Other, items.writeUInt32(n, v)); }
  int readUInt16(const wchar_t* n, unsigned short* v) { return items.readUInt16(n, v); }
  int writeUInt16(const wchar_t* n, unsigned short v) { return Note(n, Kind::Other, items.writeUInt16(n, v)); }
  int readInt(const wchar_t* n, int* v) { return items.readInt(n, v); }
  int writeInt(const wchar_t* n, int v) { return Note(n, Kind::Int, items.writeInt(n, v)); }
  int readBool(const wchar_t* n, bool* v) { return items.readBool(n, v); }
  int writeBool(const wchar_t* n, bool v) { return Note(n, Kind::Other, items.writeBool(n, v)); }
  int readDouble(const wchar_t* n, double* v) { return items.readDouble(n, v); }
  int writeDouble(const wchar_t* n, double v) { return Note(n, Kind::Double, items.writeDouble(n, v)); }
  int readBytes(const wchar_t* n, void* b, unsigned long s) { return items.readBytes(n, b, s); }
  int writeBytes(const wchar_t* n, const void* b, unsigned long s) {
    return Note(n, Kind::Other, items.writeBytes(n, b, s));
  }
};

std::vector<std::wstring> NamesOf(const CAMemoryDataProp& store) {
  std::vector<std::wstring> names;
  for (int i = 0; i < store.GetCount(); ++i) names.emplace_back(store.GetName(i).GetString());
  return names;
}

double DoubleItem(CAMemoryDataProp& store, const wchar_t* name) {
  double value = -12345.0;
  EXPECT_EQ(store.readDouble(name, &value), 0) << "no item " << CString(name).ToUtf8();
  return value;
}

int IntItem(CAMemoryDataProp& store, const wchar_t* name) {
  int value = -12345;
  EXPECT_EQ(store.readInt(name, &value), 0) << "no item " << CString(name).ToUtf8();
  return value;
}

// An exchange over store that holds only a labour intensity.
CADataExchange LabourRow(CAMemoryDataProp& store, int labour) {
  CADataExchange exchange(store);
  exchange.WriteItem(L"LaoDongQD", labour);
  return exchange;
}

}  // namespace

// ---- defaults ------------------------------------------------------------------------------------

TEST(CQKRURoomUseParamBaseData, NewValueHoldsTheDefaultOfEveryField) {
  Value v;

  EXPECT_EQ(v.RUId, 0);
  EXPECT_EQ(v.DongJiSNSJWD, 20.0);
  EXPECT_EQ(v.DongJiSNSJXDSD, 0.6);
  EXPECT_EQ(v.XiaJiSNSJWD, 25.0);
  EXPECT_EQ(v.XiaJiSNSJXDSD, 0.6);
  EXPECT_EQ(v.RenYuanMD, 0.0);
  EXPECT_EQ(v.ZhaoMingBZ, 0.0);
  EXPECT_EQ(v.SheBeiBZ, 0.0);
  EXPECT_EQ(v.XinFengL, 0.0);
  EXPECT_EQ(v.ZaoYin, 0);
  EXPECT_EQ(v.ZongLengZB, 0.0);
  EXPECT_EQ(v.ZongReZB, 0.0);
  EXPECT_EQ(v.WeiHuLZB, 0.0);
  EXPECT_EQ(v.RenYuanLZB, 0.0);
  EXPECT_EQ(v.XinFengLZB, 0.0);
  EXPECT_EQ(v.QiTaLZB, 0.0);
  EXPECT_EQ(v.WeiHuRZB, 0.0);
  EXPECT_EQ(v.RenYuanRZB, 0.0);
  EXPECT_EQ(v.XinFengRZB, 0.0);
  EXPECT_EQ(v.LaoDongQD, L"静坐");
  EXPECT_EQ(v.ShenTouL, 0.0);
  EXPECT_EQ(v.ParamAux, 0);
  EXPECT_EQ(v.LDQDId, LdQdSitting);
}

TEST(CQKRURoomUseParamBaseData, InitRestoresTheDefaults) {
  Value v = Office();

  v.Init();

  EXPECT_EQ(v.RUId, 0);
  EXPECT_EQ(v.DongJiSNSJXDSD, 0.6);
  EXPECT_EQ(v.XiaJiSNSJWD, 25.0);
  EXPECT_EQ(v.ZaoYin, 0);
  EXPECT_EQ(v.XinFengRZB, 0.0);
  EXPECT_EQ(v.LaoDongQD, L"静坐");
  EXPECT_EQ(v.ParamAux, 0);
  EXPECT_EQ(v.LDQDId, LdQdSitting);
}

// ---- the labour-intensity table ------------------------------------------------------------------

TEST(CQKRURoomUseParamBaseData, LabourTableHoldsFiveRowsHoweverManyValuesAreMade) {
  std::vector<std::unique_ptr<Value>> values;

  for (int i = 0; i < 7; ++i) values.push_back(std::make_unique<Value>());

  EXPECT_EQ(Value::s_m_mapLDQD.GetCount(), 5);
}

TEST(CQKRURoomUseParamBaseData, ConstructingAValueRebuildsTheLabourTableAHostChanged) {
  LabourTableGuard guard;
  Value::s_m_mapLDQD.RemoveKey(LdQdLight);
  Value::s_m_mapLDQD.SetAt(kUnknownLabour, L"加班");
  Value::s_m_mapLDQD.SetAt(LdQdHeavy, L"搬运");

  Value v;

  CString light, heavy, extra;
  EXPECT_EQ(Value::s_m_mapLDQD.GetCount(), 5);
  EXPECT_TRUE(Value::s_m_mapLDQD.Lookup(LdQdLight, light));
  EXPECT_EQ(light, L"轻度劳动");
  EXPECT_TRUE(Value::s_m_mapLDQD.Lookup(LdQdHeavy, heavy));
  EXPECT_EQ(heavy, L"重度劳动");
  EXPECT_FALSE(Value::s_m_mapLDQD.Lookup(kUnknownLabour, extra));
}

TEST(CQKRURoomUseParamBaseData, LDQDId2NameNamesTheFiveLabourIntensities) {
  Value make;  // a value builds the table
  const std::vector<std::pair<EQKLdQdType, const wchar_t*>> rows = {
      {LdQdSitting, L"静坐"},        {LdQdVeryLight, L"极轻劳动"}, {LdQdLight, L"轻度劳动"},
      {LdQdModerate, L"中等劳动"}, {LdQdHeavy, L"重度劳动"}};

  for (const auto& [id, expected] : rows) {
    CString name = L"unset";
    EXPECT_EQ(Value::LDQDId2Name(id, name), 1) << "id " << id;
    EXPECT_EQ(name, expected) << "id " << id;
  }
}

TEST(CQKRURoomUseParamBaseData, LDQDId2NameOfAnIdOutsideTheTableLeavesTheName) {
  Value make;
  CString name = L"自定义";

  int found = Value::LDQDId2Name(kUnknownLabour, name);

  EXPECT_EQ(found, 0);
  EXPECT_EQ(name, L"自定义");
}

TEST(CQKRURoomUseParamBaseData, LDQDName2IdFindsSitting) {
  Value make;
  EQKLdQdType id = LdQdHeavy;

  int found = Value::LDQDName2Id(id, L"静坐");

  EXPECT_EQ(found, 1);
  EXPECT_EQ(id, LdQdSitting);
}

TEST(CQKRURoomUseParamBaseData, LDQDName2IdOfANameWithABlankLeavesTheId) {
  Value make;
  EQKLdQdType id = LdQdModerate;

  int found = Value::LDQDName2Id(id, L"静 坐");

  EXPECT_EQ(found, 0);
  EXPECT_EQ(id, LdQdModerate);
}

TEST(CQKRURoomUseParamBaseData, LDQDName2IdIgnoresTheCaseOfLatinLetters) {
  LabourTableGuard guard;
  Value make;
  const auto overtime = static_cast<EQKLdQdType>(5);
  Value::s_m_mapLDQD.SetAt(overtime, L"Overtime Shift");
  EQKLdQdType id = LdQdSitting;

  int found = Value::LDQDName2Id(id, L"OVERTIME shift");

  EXPECT_EQ(found, 1);
  EXPECT_EQ(id, overtime);
}

TEST(CQKRURoomUseParamBaseData, SetLDQDIdStoresTheIdAndKeepsTheName) {
  Value v;
  v.LaoDongQD = L"极轻劳动";

  ErrorType result = v.SetLDQDId(LdQdHeavy);

  EXPECT_EQ(result, ET_OK);
  EXPECT_EQ(v.GetLDQDId(), LdQdHeavy);
  EXPECT_EQ(v.LDQDId, LdQdHeavy);
  EXPECT_EQ(v.LaoDongQD, L"极轻劳动");
}

// ---- the ordered stream --------------------------------------------------------------------------

TEST(CQKRURoomUseParamBaseData, StreamHoldsEveryItemInOrderWithItsType) {
  Value v = Office();
  CADataStream stream;

  ASSERT_EQ(v.DataOutPut(stream), ADataDef::AD_OK);

  long ruId = 0, aux = 0;
  int noise = 0;
  double d[18] = {};
  CString labour;
  ASSERT_EQ(stream.ReadItem(&ruId), 0);
  for (int i = 0; i < 8; ++i) ASSERT_EQ(stream.ReadItem(&d[i]), 0) << "double " << i;
  ASSERT_EQ(stream.ReadItem(&noise), 0);
  for (int i = 8; i < 17; ++i) ASSERT_EQ(stream.ReadItem(&d[i]), 0) << "double " << i;
  ASSERT_EQ(stream.ReadItem(&labour), 0);
  ASSERT_EQ(stream.ReadItem(&d[17]), 0);
  ASSERT_EQ(stream.ReadItem(&aux), 0);
  EXPECT_EQ(ruId, 42);
  EXPECT_EQ(d[0], 18.5);
  EXPECT_EQ(d[1], 0.45);
  EXPECT_EQ(d[2], 26.5);
  EXPECT_EQ(d[3], 0.55);
  EXPECT_EQ(d[4], 0.2);
  EXPECT_EQ(d[5], 11.0);
  EXPECT_EQ(d[6], 15.0);
  EXPECT_EQ(d[7], 30.0);
  EXPECT_EQ(noise, 45);
  EXPECT_EQ(d[8], 120.5);
  EXPECT_EQ(d[9], 80.25);
  EXPECT_EQ(d[10], 40.5);
  EXPECT_EQ(d[11], 30.25);
  EXPECT_EQ(d[12], 25.75);
  EXPECT_EQ(d[13], 24.0);
  EXPECT_EQ(d[14], 50.5);
  EXPECT_EQ(d[15], 10.25);
  EXPECT_EQ(d[16], 19.5);
  EXPECT_EQ(labour, L"中等劳动");
  EXPECT_EQ(d[17], 0.5);
  EXPECT_EQ(aux, -9);
  EXPECT_EQ(stream.GetRemaining(), 0u);
}

TEST(CQKRURoomUseParamBaseData, StreamSizeIsThatOfItsItemsWithoutTheLabourId) {
  Value v;  // LaoDongQD 静坐: two UTF-16 units
  CADataStream stream;

  v.DataOutPut(stream);

  // RUId 4, eight doubles, ZaoYin 4, nine doubles, the name (count 4 + 2 units), ShenTouL 8, ParamAux 4
  EXPECT_EQ(stream.GetSize(), 4u + 8 * 8 + 4 + 9 * 8 + (4 + 2 * 2) + 8 + 4);
}

TEST(CQKRURoomUseParamBaseData, StreamKeepsHumiditiesAsFractions) {
  Value v;
  v.DongJiSNSJXDSD = 0.35;
  v.XiaJiSNSJXDSD = 0.65;
  CADataStream stream;

  v.DataOutPut(stream);

  long ruId = 0;
  double winterTemperature = 0, winterHumidity = 0, summerTemperature = 0, summerHumidity = 0;
  stream.ReadItem(&ruId);
  stream.ReadItem(&winterTemperature);
  stream.ReadItem(&winterHumidity);
  stream.ReadItem(&summerTemperature);
  stream.ReadItem(&summerHumidity);
  EXPECT_EQ(winterHumidity, 0.35);
  EXPECT_EQ(summerHumidity, 0.65);
}

TEST(CQKRURoomUseParamBaseData, StreamRoundTripRestoresEveryStreamedField) {
  Value out = Office();
  CADataStream stream;
  out.DataOutPut(stream);
  Value in;

  ASSERT_EQ(in.DataInPut(stream), ADataDef::AD_OK);

  EXPECT_EQ(in.RUId, 42);
  EXPECT_EQ(in.DongJiSNSJWD, 18.5);
  EXPECT_EQ(in.DongJiSNSJXDSD, 0.45);
  EXPECT_EQ(in.XiaJiSNSJWD, 26.5);
  EXPECT_EQ(in.XiaJiSNSJXDSD, 0.55);
  EXPECT_EQ(in.RenYuanMD, 0.2);
  EXPECT_EQ(in.ZhaoMingBZ, 11.0);
  EXPECT_EQ(in.SheBeiBZ, 15.0);
  EXPECT_EQ(in.XinFengL, 30.0);
  EXPECT_EQ(in.ZaoYin, 45);
  EXPECT_EQ(in.ZongLengZB, 120.5);
  EXPECT_EQ(in.ZongReZB, 80.25);
  EXPECT_EQ(in.WeiHuLZB, 40.5);
  EXPECT_EQ(in.RenYuanLZB, 30.25);
  EXPECT_EQ(in.XinFengLZB, 25.75);
  EXPECT_EQ(in.QiTaLZB, 24.0);
  EXPECT_EQ(in.WeiHuRZB, 50.5);
  EXPECT_EQ(in.RenYuanRZB, 10.25);
  EXPECT_EQ(in.XinFengRZB, 19.5);
  EXPECT_EQ(in.LaoDongQD, L"中等劳动");
  EXPECT_EQ(in.ShenTouL, 0.5);
  EXPECT_EQ(in.ParamAux, -9);
  EXPECT_EQ(stream.GetRemaining(), 0u);
}

TEST(CQKRURoomUseParamBaseData, StreamRoundTripLeavesTheLabourIdOfTheReader) {
  Value out;
  out.LDQDId = LdQdHeavy;
  CADataStream stream;
  out.DataOutPut(stream);
  Value in;
  in.LDQDId = LdQdVeryLight;

  in.DataInPut(stream);

  EXPECT_EQ(in.LDQDId, LdQdVeryLight);
}

// ---- the named exchange --------------------------------------------------------------------------

TEST(CQKRURoomUseParamBaseData, ExchangeWritesTheItemNamesInOrder) {
  Value v = Office();
  CAMemoryDataProp store;

  ASSERT_EQ(v.DataOutPro(CADataExchange(store)), ADataDef::AD_OK);

  const std::vector<std::wstring> expected = {
      L"RUId",       L"DongJiSNSJWD", L"DongJiSNSJXDSD", L"XiaJiSNSJWD", L"XiaJiSNSJXDSD", L"RenYuanMD",
      L"ZhaoMingBZ", L"SheBeiBZ",     L"XinFengL",       L"ZaoYin",      L"ZongLengZB",    L"ZongReZB",
      L"WeiHuLZB",   L"RenYuanLZB",   L"XinFengLZB",     L"QiTaLZB",     L"WeiHuRZB",      L"RenYuanRZB",
      L"XinFengRZB", L"LaoDongQD",    L"ShenTouL"};
  EXPECT_EQ(NamesOf(store), expected);
}

TEST(CQKRURoomUseParamBaseData, ExchangeWritesEachItemWithItsType) {
  Value v = Office();
  KindRecordingStore store;

  v.DataOutPro(CADataExchange(CADataProp<KindRecordingStore>(&store)));

  std::vector<std::pair<std::wstring, Kind>> expected = {
      {L"RUId", Kind::Int32},         {L"DongJiSNSJWD", Kind::Double}, {L"DongJiSNSJXDSD", Kind::Double},
      {L"XiaJiSNSJWD", Kind::Double}, {L"XiaJiSNSJXDSD", Kind::Double}, {L"RenYuanMD", Kind::Double},
      {L"ZhaoMingBZ", Kind::Double},  {L"SheBeiBZ", Kind::Double},     {L"XinFengL", Kind::Double},
      {L"ZaoYin", Kind::Int},         {L"ZongLengZB", Kind::Double},   {L"ZongReZB", Kind::Double},
      {L"WeiHuLZB", Kind::Double},    {L"RenYuanLZB", Kind::Double},   {L"XinFengLZB", Kind::Double},
      {L"QiTaLZB", Kind::Double},     {L"WeiHuRZB", Kind::Double},     {L"RenYuanRZB", Kind::Double},
      {L"XinFengRZB", Kind::Double},  {L"LaoDongQD", Kind::Int},       {L"ShenTouL", Kind::Double}};
  EXPECT_EQ(store.writes, expected);
}

TEST(CQKRURoomUseParamBaseData, ExchangeWritesHumiditiesInPercent) {
  Value v;
  v.DongJiSNSJXDSD = 0.45;
  v.XiaJiSNSJXDSD = 0.55;
  CAMemoryDataProp store;

  v.DataOutPro(CADataExchange(store));

  EXPECT_DOUBLE_EQ(DoubleItem(store, L"DongJiSNSJXDSD"), 45.0);
  EXPECT_DOUBLE_EQ(DoubleItem(store, L"XiaJiSNSJXDSD"), 55.0);
}

TEST(CQKRURoomUseParamBaseData, ExchangeWritesTheOtherNumbersAsHeld) {
  Value v = Office();
  CAMemoryDataProp store;

  v.DataOutPro(CADataExchange(store));

  EXPECT_EQ(IntItem(store, L"RUId"), 42);
  EXPECT_EQ(DoubleItem(store, L"DongJiSNSJWD"), 18.5);
  EXPECT_EQ(DoubleItem(store, L"XiaJiSNSJWD"), 26.5);
  EXPECT_EQ(DoubleItem(store, L"RenYuanMD"), 0.2);
  EXPECT_EQ(IntItem(store, L"ZaoYin"), 45);
  EXPECT_EQ(DoubleItem(store, L"QiTaLZB"), 24.0);
  EXPECT_EQ(DoubleItem(store, L"XinFengRZB"), 19.5);
  EXPECT_EQ(DoubleItem(store, L"ShenTouL"), 0.5);
}

TEST(CQKRURoomUseParamBaseData, ExchangeWritesTheIdOfAKnownNameOverTheLabourId) {
  Value v;
  v.LaoDongQD = L"重度劳动";
  v.LDQDId = LdQdVeryLight;
  CAMemoryDataProp store;

  v.DataOutPro(CADataExchange(store));

  EXPECT_EQ(IntItem(store, L"LaoDongQD"), 4);
}

TEST(CQKRURoomUseParamBaseData, ExchangeWritesTheLabourIdForANameOutsideTheTable) {
  Value v;
  v.LaoDongQD = L"自定义";
  v.LDQDId = LdQdModerate;
  CAMemoryDataProp store;

  v.DataOutPro(CADataExchange(store));

  EXPECT_EQ(IntItem(store, L"LaoDongQD"), 3);
}

TEST(CQKRURoomUseParamBaseData, ExchangeReadsHumiditiesFromPercent) {
  CAMemoryDataProp store;
  CADataExchange row(store);
  row.WriteItem(L"DongJiSNSJXDSD", 45.0);
  row.WriteItem(L"XiaJiSNSJXDSD", 70.0);
  Value v;

  v.DataInPro(row);

  EXPECT_DOUBLE_EQ(v.DongJiSNSJXDSD, 0.45);
  EXPECT_DOUBLE_EQ(v.XiaJiSNSJXDSD, 0.7);
}

TEST(CQKRURoomUseParamBaseData, ExchangeReadingAKnownLabourIdSetsTheIdAndItsName) {
  CAMemoryDataProp store;
  Value v;

  v.DataInPro(LabourRow(store, 2));

  EXPECT_EQ(v.LDQDId, LdQdLight);
  EXPECT_EQ(v.LaoDongQD, L"轻度劳动");
}

TEST(CQKRURoomUseParamBaseData, ExchangeReadingALabourIdOutsideTheTableKeepsTheName) {
  CAMemoryDataProp store;
  Value v;
  v.LaoDongQD = L"中等劳动";
  v.LDQDId = LdQdModerate;

  v.DataInPro(LabourRow(store, 7));

  EXPECT_EQ(v.LDQDId, kUnknownLabour);
  EXPECT_EQ(v.LaoDongQD, L"中等劳动");
}

TEST(CQKRURoomUseParamBaseData, ExchangeRoundTripRestoresEveryExchangedField) {
  Value out = Office();
  CAMemoryDataProp store;
  out.DataOutPro(CADataExchange(store));
  Value in;

  ASSERT_EQ(in.DataInPro(CADataExchange(store)), ADataDef::AD_OK);

  EXPECT_EQ(in.RUId, 42);
  EXPECT_EQ(in.DongJiSNSJWD, 18.5);
  EXPECT_DOUBLE_EQ(in.DongJiSNSJXDSD, 0.45);
  EXPECT_EQ(in.XiaJiSNSJWD, 26.5);
  EXPECT_DOUBLE_EQ(in.XiaJiSNSJXDSD, 0.55);
  EXPECT_EQ(in.RenYuanMD, 0.2);
  EXPECT_EQ(in.ZhaoMingBZ, 11.0);
  EXPECT_EQ(in.SheBeiBZ, 15.0);
  EXPECT_EQ(in.XinFengL, 30.0);
  EXPECT_EQ(in.ZaoYin, 45);
  EXPECT_EQ(in.ZongLengZB, 120.5);
  EXPECT_EQ(in.ZongReZB, 80.25);
  EXPECT_EQ(in.WeiHuLZB, 40.5);
  EXPECT_EQ(in.RenYuanLZB, 30.25);
  EXPECT_EQ(in.XinFengLZB, 25.75);
  EXPECT_EQ(in.QiTaLZB, 24.0);
  EXPECT_EQ(in.WeiHuRZB, 50.5);
  EXPECT_EQ(in.RenYuanRZB, 10.25);
  EXPECT_EQ(in.XinFengRZB, 19.5);
  EXPECT_EQ(in.LaoDongQD, L"中等劳动");
  EXPECT_EQ(in.LDQDId, LdQdModerate);
  EXPECT_EQ(in.ShenTouL, 0.5);
  EXPECT_EQ(in.ParamAux, 0);  // not an exchanged item
}

// ---- copies and creation by class name -----------------------------------------------------------

TEST(CQKRURoomUseParamBaseData, CopyConstructorTakesEveryFieldWithTheLabourId) {
  Value original = Office();

  Value copy(original);

  EXPECT_EQ(copy.RUId, 42);
  EXPECT_EQ(copy.XiaJiSNSJXDSD, 0.55);
  EXPECT_EQ(copy.ZaoYin, 45);
  EXPECT_EQ(copy.LaoDongQD, L"中等劳动");
  EXPECT_EQ(copy.ParamAux, -9);
  EXPECT_EQ(copy.LDQDId, LdQdModerate);
}

TEST(CQKRURoomUseParamBaseData, CopyTakesTheStreamedFields) {
  Value original = Office();
  Value target;

  ASSERT_EQ(target.Copy(&original), ADataDef::AD_OK);

  EXPECT_EQ(target.RUId, 42);
  EXPECT_EQ(target.DongJiSNSJXDSD, 0.45);
  EXPECT_EQ(target.ZaoYin, 45);
  EXPECT_EQ(target.XinFengRZB, 19.5);
  EXPECT_EQ(target.LaoDongQD, L"中等劳动");
  EXPECT_EQ(target.ShenTouL, 0.5);
  EXPECT_EQ(target.ParamAux, -9);
}

TEST(CQKRURoomUseParamBaseData, CopyDoesNotCarryTheUnstreamedLabourId) {
  Value original = Office();  // LDQDId LdQdModerate
  Value target;

  target.Copy(&original);

  EXPECT_EQ(target.LDQDId, LdQdSitting);
}

TEST(CQKRURoomUseParamBaseData, CloneIsALoadParameterValueWithTheStreamedFields) {
  Value original = Office();

  std::unique_ptr<CAData> clone(original.Clone());

  ASSERT_NE(clone, nullptr);
  auto* value = dynamic_cast<Value*>(clone.get());
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(value->RUId, 42);
  EXPECT_EQ(value->SheBeiBZ, 15.0);
  EXPECT_EQ(value->LaoDongQD, L"中等劳动");
  EXPECT_EQ(value->ParamAux, -9);
}

TEST(CQKRURoomUseParamBaseData, CanBeCreatedByClassNameWithItsDefaults) {
  std::unique_ptr<CObject> created(CRuntimeClass::CreateObject("CQKRURoomUseParamBaseData"));

  ASSERT_NE(created, nullptr);
  auto* value = dynamic_cast<Value*>(created.get());
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(value->DongJiSNSJWD, 20.0);
  EXPECT_EQ(value->LaoDongQD, L"静坐");
}

TEST(CQKRURoomUseParamBaseData, RuntimeClassIsNamedAfterTheValueClass) {
  Value v;

  const CRuntimeClass* cls = v.GetRuntimeClass();

  EXPECT_STREQ(cls->m_lpszClassName, "CQKRURoomUseParamBaseData");
  EXPECT_EQ(cls->m_pBaseClass, RUNTIME_CLASS(CAData));
}
