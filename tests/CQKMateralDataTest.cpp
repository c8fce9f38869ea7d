// The material value: thermophysical properties (density kg/m³, conductivity W/(m·K), specific heat
// kJ/(kg·K)), roughness class and the twelve surface optical values. Its defaults (clear glass optics
// even for an opaque material), its setters (stored unchecked), the versioned ordered stream, the named
// items (read with "Id", written without), copying, cloning and creation by class name.

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <memory>
#include <string>

#include "construction/CQKTimbering.h"
#include "construction/CQKTimberingData.h"
#include "datakit/ADataDef.h"
#include "datakit/CAData.h"
#include "datakit/CADataExchange.h"
#include "datakit/CADataStream.h"
#include "datakit/CAMemoryDataProp.h"
#include "envelope/CQKMateralData.h"
#include "foundation/QKLoad.h"
#include "mfc/CObject.h"
#include "mfc/CString.h"

namespace {

// The twelve optical values in their stream and exchange order.
constexpr int kOptics = 12;
const std::array<const wchar_t*, kOptics> kOpticNames = {
    L"TheAbs",    L"SolAbs",        L"VisAbs",       L"SolarT",    L"SolarRFront",    L"SolarRBack",
    L"VisibleT",  L"VisibleRFront", L"VisibleRBack", L"InfraredT", L"InfraredEFront", L"InfraredEBack"};

// Every field of a material, read through its getters.
struct Fields {
  long stuffId = 0;
  CString name;
  double gmd = 0.0, drxs = 0.0, brr = 0.0;
  int roughness = 0;
  std::array<double, kOptics> optics{};
};

Fields Read(CQKMateralData& m) {
  Fields f;
  f.stuffId = m.GetStuffID();
  f.name = m.GetStuffName();
  f.gmd = m.GetGMD();
  f.drxs = m.GetDrXs();
  f.brr = m.GetBRr();
  f.roughness = m.GetRoughness();
  f.optics = {m.GetTheAbs(),        m.GetSolAbs(),        m.GetVisAbs(),    m.GetSolarT(),
              m.GetSolarRFront(),   m.GetSolarRBack(),    m.GetVisibleT(),  m.GetVisibleRFront(),
              m.GetVisibleRBack(),  m.GetInfraredT(),     m.GetInfraredEFront(), m.GetInfraredEBack()};
  return f;
}

void ExpectFields(const Fields& actual, const Fields& expected) {
  EXPECT_EQ(actual.stuffId, expected.stuffId) << "StuffID";
  EXPECT_EQ(actual.name, expected.name) << "StuffName";
  EXPECT_EQ(actual.gmd, expected.gmd) << "GMD";
  EXPECT_EQ(actual.drxs, expected.drxs) << "DrXs";
  EXPECT_EQ(actual.brr, expected.brr) << "BRr";
  EXPECT_EQ(actual.roughness, expected.roughness) << "Roughness";
  for (int i = 0; i < kOptics; ++i)
    EXPECT_EQ(actual.optics[i], expected.optics[i]) << CString(kOpticNames[i]).ToUtf8();
}

// The defaults as documented: no identity, no thermal properties, clear-glass optics.
Fields DocumentedDefaults() {
  Fields f;
  f.optics = {0.8, 0.8, 0.8, 0.85, 0.075, 0.075, 0.901, 0.081, 0.081, 0.0, 0.84, 0.84};
  return f;
}

// A brick, every value differing from the defaults and from each other.
Fields BrickFields() {
  Fields f;
  f.stuffId = 12;
  f.name = L"重砂浆黏土砖砌体";
  f.gmd = 1800.0;
  f.drxs = 0.81;
  f.brr = 1.05;
  f.roughness = 3;
  f.optics = {0.91, 0.62, 0.63, 0.11, 0.12, 0.13, 0.14, 0.15, 0.16, 0.17, 0.18, 0.19};
  return f;
}

void Assign(CQKMateralData& m, const Fields& f) {
  m.SetStuffID(f.stuffId);
  m.SetStuffName(f.name);
  m.SetGMD(f.gmd);
  m.SetDrXs(f.drxs);
  m.SetBRr(f.brr);
  m.SetRoughness(f.roughness);
  m.SetTheAbs(f.optics[0]);
  m.SetSolAbs(f.optics[1]);
  m.SetVisAbs(f.optics[2]);
  m.SetSolarT(f.optics[3]);
  m.SetSolarRFront(f.optics[4]);
  m.SetSolarRBack(f.optics[5]);
  m.SetVisibleT(f.optics[6]);
  m.SetVisibleRFront(f.optics[7]);
  m.SetVisibleRBack(f.optics[8]);
  m.SetInfraredT(f.optics[9]);
  m.SetInfraredEFront(f.optics[10]);
  m.SetInfraredERBack(f.optics[11]);
}

CQKMateralData Brick() {
  CQKMateralData b;
  Assign(b, BrickFields());
  return b;
}

// A stream as a writer of the given version lays it out: the version, then the items of version 2.
CADataStream StreamOfVersion(int version, const Fields& f) {
  CADataStream s;
  s.WriteItem(version);
  s.WriteItem(f.stuffId);
  s.WriteItem(f.gmd);
  s.WriteItem(f.drxs);
  s.WriteItem(f.brr);
  s.WriteItem(f.name);
  s.WriteItem(f.roughness);
  for (double v : f.optics) s.WriteItem(v);
  return s;
}

// A mineral wool board, every value unlike the brick's.
Fields WoolFields() {
  Fields f;
  f.stuffId = 40;
  f.name = L"岩棉板";
  f.gmd = 120.0;
  f.drxs = 0.041;
  f.brr = 0.75;
  f.roughness = 5;
  f.optics = {0.51, 0.52, 0.53, 0.54, 0.55, 0.56, 0.57, 0.58, 0.59, 0.6, 0.61, 0.62};
  return f;
}

}  // namespace

// ---- defaults ------------------------------------------------------------------------------------

TEST(CQKMateralData, DefaultHasNoIdentityNameOrThermalProperties) {
  CQKMateralData m;
  EXPECT_EQ(m.GetStuffID(), 0);
  EXPECT_EQ(m.GetStuffName(), L"");
  EXPECT_EQ(m.GetGMD(), 0.0);
  EXPECT_EQ(m.GetDrXs(), 0.0);
  EXPECT_EQ(m.GetBRr(), 0.0);
  EXPECT_EQ(m.GetRoughness(), 0);
}

TEST(CQKMateralData, DefaultAbsorptancesAreEightTenths) {
  CQKMateralData m;
  EXPECT_EQ(m.GetTheAbs(), 0.8);
  EXPECT_EQ(m.GetSolAbs(), 0.8);
  EXPECT_EQ(m.GetVisAbs(), 0.8);
}

TEST(CQKMateralData, DefaultSolarOpticsAreThoseOfClearGlass) {
  CQKMateralData m;
  EXPECT_EQ(m.GetSolarT(), 0.85);
  EXPECT_EQ(m.GetSolarRFront(), 0.075);
  EXPECT_EQ(m.GetSolarRBack(), 0.075);
}

TEST(CQKMateralData, DefaultVisibleOpticsAreThoseOfClearGlass) {
  CQKMateralData m;
  EXPECT_EQ(m.GetVisibleT(), 0.901);
  EXPECT_EQ(m.GetVisibleRFront(), 0.081);
  EXPECT_EQ(m.GetVisibleRBack(), 0.081);
}

TEST(CQKMateralData, DefaultInfraredIsOpaqueWithEmissivity084) {
  CQKMateralData m;
  EXPECT_EQ(m.GetInfraredT(), 0.0);
  EXPECT_EQ(m.GetInfraredEFront(), 0.84);
  EXPECT_EQ(m.GetInfraredEBack(), 0.84);
}

TEST(CQKMateralData, InitRestoresEveryDefault) {
  CQKMateralData m = Brick();

  m.Init();

  ExpectFields(Read(m), DocumentedDefaults());
}

TEST(CQKMateralData, InitThroughTheBaseRestoresTheDefaults) {
  CQKMateralData m = Brick();
  CAData& asData = m;

  asData.Init();

  ExpectFields(Read(m), DocumentedDefaults());
}

TEST(CQKMateralData, StreamVersionIsTwo) {
  EXPECT_EQ(CQKMateralData::kCurrentVersionNumber, 2u);
}

// ---- setters: stored as given, ET_OK, no other field touched -----------------------------------------

namespace {

struct SetterCase {
  const char* label;
  std::function<QKLoad::ErrorType(CQKMateralData&)> set;
  std::function<void(Fields&)> change;  // what the setter must change in the defaults
};

class CQKMateralDataSetter : public ::testing::TestWithParam<SetterCase> {};

std::string SetterName(const ::testing::TestParamInfo<SetterCase>& info) { return info.param.label; }

}  // namespace

TEST_P(CQKMateralDataSetter, StoresTheValueUncheckedReturnsOkAndTouchesNothingElse) {
  CQKMateralData m;
  Fields expected = DocumentedDefaults();
  GetParam().change(expected);

  const QKLoad::ErrorType rc = GetParam().set(m);

  EXPECT_EQ(rc, QKLoad::ET_OK);
  ExpectFields(Read(m), expected);
}

// Values outside what the quantity allows (negative density, transmittance above 1, negative
// emissivity...) are stored as given: a setter never checks.
INSTANTIATE_TEST_SUITE_P(
    Each, CQKMateralDataSetter,
    ::testing::Values(
        SetterCase{"SetStuffIDNegative", [](CQKMateralData& m) { return m.SetStuffID(-3); },
                   [](Fields& f) { f.stuffId = -3; }},
        SetterCase{"SetStuffName", [](CQKMateralData& m) { return m.SetStuffName(L"聚苯乙烯泡沫塑料"); },
                   [](Fields& f) { f.name = L"聚苯乙烯泡沫塑料"; }},
        SetterCase{"SetGMDNegative", [](CQKMateralData& m) { return m.SetGMD(-20.0); },
                   [](Fields& f) { f.gmd = -20.0; }},
        SetterCase{"SetDrXs", [](CQKMateralData& m) { return m.SetDrXs(0.042); },
                   [](Fields& f) { f.drxs = 0.042; }},
        SetterCase{"SetBRrNegative", [](CQKMateralData& m) { return m.SetBRr(-1.38); },
                   [](Fields& f) { f.brr = -1.38; }},
        SetterCase{"SetRoughnessNegative", [](CQKMateralData& m) { return m.SetRoughness(-1); },
                   [](Fields& f) { f.roughness = -1; }},
        SetterCase{"SetTheAbsNegative", [](CQKMateralData& m) { return m.SetTheAbs(-0.2); },
                   [](Fields& f) { f.optics[0] = -0.2; }},
        SetterCase{"SetSolAbsAboveOne", [](CQKMateralData& m) { return m.SetSolAbs(1.4); },
                   [](Fields& f) { f.optics[1] = 1.4; }},
        SetterCase{"SetVisAbsNegative", [](CQKMateralData& m) { return m.SetVisAbs(-1.0); },
                   [](Fields& f) { f.optics[2] = -1.0; }},
        SetterCase{"SetSolarTAboveOne", [](CQKMateralData& m) { return m.SetSolarT(1.7); },
                   [](Fields& f) { f.optics[3] = 1.7; }},
        SetterCase{"SetSolarRFrontNegative", [](CQKMateralData& m) { return m.SetSolarRFront(-0.05); },
                   [](Fields& f) { f.optics[4] = -0.05; }},
        SetterCase{"SetSolarRBackAboveOne", [](CQKMateralData& m) { return m.SetSolarRBack(2.5); },
                   [](Fields& f) { f.optics[5] = 2.5; }},
        SetterCase{"SetVisibleTNegative", [](CQKMateralData& m) { return m.SetVisibleT(-0.3); },
                   [](Fields& f) { f.optics[6] = -0.3; }},
        SetterCase{"SetVisibleRFrontAboveOne", [](CQKMateralData& m) { return m.SetVisibleRFront(1.01); },
                   [](Fields& f) { f.optics[7] = 1.01; }},
        SetterCase{"SetVisibleRBackNegative", [](CQKMateralData& m) { return m.SetVisibleRBack(-0.081); },
                   [](Fields& f) { f.optics[8] = -0.081; }},
        SetterCase{"SetInfraredTAboveOne", [](CQKMateralData& m) { return m.SetInfraredT(3.0); },
                   [](Fields& f) { f.optics[9] = 3.0; }},
        SetterCase{"SetInfraredEFrontNegative", [](CQKMateralData& m) { return m.SetInfraredEFront(-0.84); },
                   [](Fields& f) { f.optics[10] = -0.84; }},
        SetterCase{"SetInfraredERBackAboveOne", [](CQKMateralData& m) { return m.SetInfraredERBack(1.5); },
                   [](Fields& f) { f.optics[11] = 1.5; }}),
    SetterName);

TEST(CQKMateralData, SetInfraredERBackChangesOnlyTheBackEmissivity) {
  CQKMateralData m;

  m.SetInfraredERBack(0.9);

  EXPECT_EQ(m.GetInfraredEBack(), 0.9);
  EXPECT_EQ(m.GetInfraredEFront(), 0.84);
}

TEST(CQKMateralData, SettersOverwriteEachOther) {
  CQKMateralData m;

  m.SetGMD(1800.0);
  m.SetGMD(2400.0);

  EXPECT_EQ(m.GetGMD(), 2400.0);
}

// ---- ordered stream --------------------------------------------------------------------------------

TEST(CQKMateralData, StreamBeginsWithVersionTwo) {
  CQKMateralData out = Brick();
  CADataStream stream;

  out.DataOutPut(stream);

  int version = -1;
  ASSERT_EQ(stream.ReadItem(&version), 0);
  EXPECT_EQ(version, 2);
}

TEST(CQKMateralData, StreamHoldsEveryItemInItsOrder) {
  CQKMateralData out = Brick();
  CADataStream stream;

  EXPECT_EQ(out.DataOutPut(stream), ADataDef::AD_OK);

  int version = 0;
  long id = 0;
  double gmd = 0.0, drxs = 0.0, brr = 0.0;
  CString name;
  int roughness = 0;
  ASSERT_EQ(stream.ReadItem(&version), 0);
  ASSERT_EQ(stream.ReadItem(&id), 0);
  ASSERT_EQ(stream.ReadItem(&gmd), 0);
  ASSERT_EQ(stream.ReadItem(&drxs), 0);
  ASSERT_EQ(stream.ReadItem(&brr), 0);
  ASSERT_EQ(stream.ReadItem(&name), 0);
  ASSERT_EQ(stream.ReadItem(&roughness), 0);
  EXPECT_EQ(version, 2);
  EXPECT_EQ(id, 12);
  EXPECT_EQ(gmd, 1800.0);
  EXPECT_EQ(drxs, 0.81);
  EXPECT_EQ(brr, 1.05);
  EXPECT_EQ(name, L"重砂浆黏土砖砌体");
  EXPECT_EQ(roughness, 3);
  const Fields brick = BrickFields();
  for (int i = 0; i < kOptics; ++i) {
    double v = -1.0;
    ASSERT_EQ(stream.ReadItem(&v), 0) << CString(kOpticNames[i]).ToUtf8();
    EXPECT_EQ(v, brick.optics[i]) << CString(kOpticNames[i]).ToUtf8();
  }
  EXPECT_EQ(stream.GetRemaining(), 0u);
}

TEST(CQKMateralData, StreamByteLengthIsThatOfItsItems) {
  CQKMateralData out = Brick();  // a name of 8 UTF-16 units
  CADataStream stream;

  out.DataOutPut(stream);

  // version 4, StuffID 4, three doubles 24, name 4 + 2·8, roughness 4, twelve doubles 96
  EXPECT_EQ(stream.GetSize(), 4u + 4u + 24u + 4u + 16u + 4u + 96u);
}

TEST(CQKMateralData, StreamVersionIgnoresTheLibraryWideVersion) {
  const unsigned long saved = CAData::kCurrentVersionNumber;
  CAData::kCurrentVersionNumber = 7;  // a host may raise the version shared by every value
  CQKMateralData out;
  CADataStream stream;

  out.DataOutPut(stream);
  CAData::kCurrentVersionNumber = saved;

  int version = 0;
  ASSERT_EQ(stream.ReadItem(&version), 0);
  EXPECT_EQ(version, 2);
}

TEST(CQKMateralData, StreamRoundTripRestoresEveryField) {
  CQKMateralData out = Brick();
  CADataStream stream;
  out.DataOutPut(stream);
  CQKMateralData in;

  const ADataDef::ErrorCode rc = in.DataInPut(stream);

  EXPECT_EQ(rc, ADataDef::AD_OK);
  ExpectFields(Read(in), BrickFields());
  EXPECT_EQ(stream.GetRemaining(), 0u);
}

TEST(CQKMateralData, StreamOfVersionZeroReadsLikeVersionTwo) {
  CADataStream stream = StreamOfVersion(0, BrickFields());
  CQKMateralData in;

  const ADataDef::ErrorCode rc = in.DataInPut(stream);

  EXPECT_EQ(rc, ADataDef::AD_OK);
  ExpectFields(Read(in), BrickFields());
}

TEST(CQKMateralData, StreamOfVersionOneReadsLikeVersionTwo) {
  CADataStream stream = StreamOfVersion(1, BrickFields());
  CQKMateralData in;

  const ADataDef::ErrorCode rc = in.DataInPut(stream);

  EXPECT_EQ(rc, ADataDef::AD_OK);
  ExpectFields(Read(in), BrickFields());
}

TEST(CQKMateralData, StreamOfVersionThreeIsRefusedWith23AndChangesNothing) {
  CADataStream stream = StreamOfVersion(3, WoolFields());
  CQKMateralData in = Brick();

  const ADataDef::ErrorCode rc = in.DataInPut(stream);

  EXPECT_EQ(rc, 23);
  ExpectFields(Read(in), BrickFields());
}

TEST(CQKMateralData, RefusedStreamIsReadNoFurtherThanItsVersion) {
  CADataStream stream = StreamOfVersion(3, WoolFields());
  CQKMateralData in;

  in.DataInPut(stream);

  EXPECT_EQ(stream.GetPosition(), 4u);
}

TEST(CQKMateralData, StreamOfAFarNewerVersionIsRefusedWith23) {
  CADataStream stream = StreamOfVersion(40, WoolFields());
  CQKMateralData in = Brick();

  const ADataDef::ErrorCode rc = in.DataInPut(stream);

  EXPECT_EQ(rc, ADataDef::AD_INCOMPATIBLE);
  ExpectFields(Read(in), BrickFields());
}

TEST(CQKMateralData, StreamWrittenThroughACopyLandsInTheCallersStream) {
  // Streams are passed by value; a copy shares the buffer.
  CQKMateralData out = Brick();
  CADataStream stream;
  CADataStream handle(stream);

  out.DataOutPut(handle);

  EXPECT_GT(stream.GetSize(), 0u);
  CQKMateralData in;
  EXPECT_EQ(in.DataInPut(stream), ADataDef::AD_OK);
  EXPECT_EQ(in.GetStuffName(), L"重砂浆黏土砖砌体");
}

// ---- named items ---------------------------------------------------------------------------------

TEST(CQKMateralData, ExchangeWritesExactlyTheseNamesInThisOrder) {
  CQKMateralData out = Brick();
  CAMemoryDataProp store;

  EXPECT_EQ(out.DataOutPro(CADataExchange(store)), ADataDef::AD_OK);

  const wchar_t* expected[] = {L"Name",         L"GMD",          L"DrXs",          L"BRr",
                               L"Roughness",    L"TheAbs",       L"SolAbs",        L"VisAbs",
                               L"SolarT",       L"SolarRFront",  L"SolarRBack",    L"VisibleT",
                               L"VisibleRFront", L"VisibleRBack", L"InfraredT",    L"InfraredEFront",
                               L"InfraredEBack"};
  ASSERT_EQ(store.GetCount(), 17);
  for (int i = 0; i < 17; ++i) EXPECT_EQ(store.GetName(i), expected[i]) << "item " << i;
}

TEST(CQKMateralData, ExchangeNeverWritesId) {
  CQKMateralData out = Brick();  // StuffID 12
  CAMemoryDataProp store;

  out.DataOutPro(CADataExchange(store));

  EXPECT_FALSE(store.HasItem(L"Id"));
  EXPECT_FALSE(store.HasItem(L"StuffID"));
}

TEST(CQKMateralData, ExchangeWritesTheFieldValues) {
  CQKMateralData out = Brick();
  CAMemoryDataProp store;
  out.DataOutPro(CADataExchange(store));
  CADataExchange x(store);

  CString name;
  double gmd = 0.0, drxs = 0.0, brr = 0.0;
  int roughness = 0;
  ASSERT_EQ(x.ReadItem(L"Name", &name), 0);
  ASSERT_EQ(x.ReadItem(L"GMD", &gmd), 0);
  ASSERT_EQ(x.ReadItem(L"DrXs", &drxs), 0);
  ASSERT_EQ(x.ReadItem(L"BRr", &brr), 0);
  ASSERT_EQ(x.ReadItem(L"Roughness", &roughness), 0);
  EXPECT_EQ(name, L"重砂浆黏土砖砌体");
  EXPECT_EQ(gmd, 1800.0);
  EXPECT_EQ(drxs, 0.81);
  EXPECT_EQ(brr, 1.05);
  EXPECT_EQ(roughness, 3);
  const Fields brick = BrickFields();
  for (int i = 0; i < kOptics; ++i) {
    double v = -1.0;
    ASSERT_EQ(x.ReadItem(kOpticNames[i], &v), 0) << CString(kOpticNames[i]).ToUtf8();
    EXPECT_EQ(v, brick.optics[i]) << CString(kOpticNames[i]).ToUtf8();
  }
}

TEST(CQKMateralData, ReadingIdSetsStuffId) {
  CAMemoryDataProp store;
  CADataExchange(store).WriteItem(L"Id", 77L);
  CQKMateralData in;

  EXPECT_EQ(in.DataInPro(CADataExchange(store)), ADataDef::AD_OK);

  EXPECT_EQ(in.GetStuffID(), 77);
}

TEST(CQKMateralData, ReadingWithoutIdKeepsStuffId) {
  CQKMateralData out = Brick();
  CAMemoryDataProp store;
  out.DataOutPro(CADataExchange(store));
  CQKMateralData in;
  in.SetStuffID(5);

  in.DataInPro(CADataExchange(store));

  EXPECT_EQ(in.GetStuffID(), 5);
  EXPECT_EQ(in.GetStuffName(), L"重砂浆黏土砖砌体");
}

TEST(CQKMateralData, ReadingTakesEveryNamedItem) {
  const Fields wool = WoolFields();
  CAMemoryDataProp store;
  CADataExchange x(store);
  x.WriteItem(L"Id", wool.stuffId);
  x.WriteItem(L"Name", wool.name);
  x.WriteItem(L"GMD", wool.gmd);
  x.WriteItem(L"DrXs", wool.drxs);
  x.WriteItem(L"BRr", wool.brr);
  x.WriteItem(L"Roughness", wool.roughness);
  for (int i = 0; i < kOptics; ++i) x.WriteItem(kOpticNames[i], wool.optics[i]);
  CQKMateralData in = Brick();

  in.DataInPro(CADataExchange(store));

  ExpectFields(Read(in), wool);
}

TEST(CQKMateralData, ReadingAnEmptyStoreChangesNothing) {
  CAMemoryDataProp store;
  CQKMateralData in = Brick();

  EXPECT_EQ(in.DataInPro(CADataExchange(store)), ADataDef::AD_OK);

  ExpectFields(Read(in), BrickFields());
}

TEST(CQKMateralData, ExchangeRoundTripKeepsAllButTheIdentity) {
  CQKMateralData out = Brick();
  CAMemoryDataProp store;
  out.DataOutPro(CADataExchange(store));
  CQKMateralData in;

  in.DataInPro(CADataExchange(store));

  Fields expected = BrickFields();
  expected.stuffId = 0;  // not an item that is written
  ExpectFields(Read(in), expected);
}

// ---- copies, clone and creation by name ------------------------------------------------------------

TEST(CQKMateralData, CopyTakesEveryField) {
  CQKMateralData source = Brick();
  CQKMateralData target;

  EXPECT_EQ(target.Copy(&source), ADataDef::AD_OK);

  ExpectFields(Read(target), BrickFields());
}

TEST(CQKMateralData, CopyFromAnUnrelatedValueClassIs23AndChangesNothing) {
  CQKTimberingData layer;  // a value of the data-object library, but no material
  layer.SetStuffID(99);
  layer.SetStuffName(L"别的");
  CQKMateralData target = Brick();

  EXPECT_EQ(target.Copy(&layer), 23);

  ExpectFields(Read(target), BrickFields());
}

TEST(CQKMateralData, CopyFromAPlainValueIs23AndChangesNothing) {
  CAData plain;
  CQKMateralData target = Brick();

  EXPECT_EQ(target.Copy(&plain), ADataDef::AD_INCOMPATIBLE);

  ExpectFields(Read(target), BrickFields());
}

TEST(CQKMateralData, CopyFromNothingIs23AndChangesNothing) {
  CQKMateralData target = Brick();

  EXPECT_EQ(target.Copy(nullptr), ADataDef::AD_INCOMPATIBLE);

  ExpectFields(Read(target), BrickFields());
}

TEST(CQKMateralData, CopyFromAConstructionTakesItsMaterialPart) {
  CQKTimbering construction;
  Assign(construction, WoolFields());
  construction.TTId = 6;
  construction.SetID(31);
  CQKMateralData target = Brick();

  EXPECT_EQ(target.Copy(&construction), ADataDef::AD_OK);

  ExpectFields(Read(target), WoolFields());
}

TEST(CQKMateralData, CopyOfItselfChangesNothing) {
  CQKMateralData m = Brick();

  EXPECT_EQ(m.Copy(&m), ADataDef::AD_OK);

  ExpectFields(Read(m), BrickFields());
}

TEST(CQKMateralData, CloneIsAMaterialWithEveryField) {
  CQKMateralData source = Brick();

  std::unique_ptr<CAData> clone(source.Clone());

  ASSERT_NE(clone, nullptr);
  EXPECT_EQ(clone->GetRuntimeClass(), RUNTIME_CLASS(CQKMateralData));
  auto* material = dynamic_cast<CQKMateralData*>(clone.get());
  ASSERT_NE(material, nullptr);
  ExpectFields(Read(*material), BrickFields());
}

TEST(CQKMateralData, CloneIsIndependentOfItsSource) {
  CQKMateralData source = Brick();
  std::unique_ptr<CAData> clone(source.Clone());
  ASSERT_NE(clone, nullptr);

  source.SetDrXs(2.0);
  source.SetStuffName(L"别的");

  auto* material = static_cast<CQKMateralData*>(clone.get());
  EXPECT_EQ(material->GetDrXs(), 0.81);
  EXPECT_EQ(material->GetStuffName(), L"重砂浆黏土砖砌体");
}

TEST(CQKMateralData, CopyConstructionTakesEveryFieldAndIsIndependent) {
  CQKMateralData source = Brick();
  CQKMateralData copy(source);

  source.SetSolarT(0.5);
  source.SetStuffID(1);

  ExpectFields(Read(copy), BrickFields());
}

TEST(CQKMateralData, AssignmentTakesEveryFieldAndIsIndependent) {
  CQKMateralData source = Brick();
  CQKMateralData copy;
  copy = source;

  source.SetVisibleT(0.5);
  source.SetRoughness(1);

  ExpectFields(Read(copy), BrickFields());
}

TEST(CQKMateralData, IsCreatedByClassNameWithItsDefaults) {
  std::unique_ptr<CObject> created(CRuntimeClass::CreateObject("CQKMateralData"));

  auto* material = dynamic_cast<CQKMateralData*>(created.get());
  ASSERT_NE(material, nullptr);
  ExpectFields(Read(*material), DocumentedDefaults());
}

TEST(CQKMateralData, IsCreatedByWideClassName) {
  std::unique_ptr<CObject> created(CRuntimeClass::CreateObject(L"CQKMateralData"));

  EXPECT_NE(dynamic_cast<CQKMateralData*>(created.get()), nullptr);
}

TEST(CQKMateralData, ClassRecordIsNamedAndDerivesFromTheValueBase) {
  const CRuntimeClass* cls = CRuntimeClass::FromName("CQKMateralData");

  ASSERT_EQ(cls, &CQKMateralData::classCQKMateralData);
  EXPECT_STREQ(cls->m_lpszClassName, "CQKMateralData");
  EXPECT_EQ(cls->m_pBaseClass, RUNTIME_CLASS(CAData));
  EXPECT_NE(cls->m_pfnCreateObject, nullptr);
}

TEST(CQKMateralData, ObjectReportsItsOwnClassRecord) {
  CQKMateralData m;
  const CObject& asObject = m;

  EXPECT_EQ(asObject.GetRuntimeClass(), RUNTIME_CLASS(CQKMateralData));
  EXPECT_TRUE(m.IsKindOf(RUNTIME_CLASS(CAData)));
}

TEST(CQKMateralData, AConstructionIsAKindOfMaterial) {
  CQKTimbering construction;

  EXPECT_TRUE(construction.IsKindOf(RUNTIME_CLASS(CQKMateralData)));
}
