// One construction layer: its defaults, the 19-argument constructor (conductivity before density),
// the resistance, storage coefficient and inertia index, the versioned ordered stream and the named
// exchange.

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "construction/tagQKTIMBERINGCHARACTER.h"
#include "datakit/ADataDef.h"
#include "datakit/CADataExchange.h"
#include "datakit/CADataStream.h"
#include "datakit/CAMemoryDataProp.h"

namespace {

// A layer whose 19 fields all differ, so a value landing in the wrong field shows.
tagQKTIMBERINGCHARACTER DistinctLayer() {
  tagQKTIMBERINGCHARACTER t;
  t.Thick = 0.24;
  t.GMD = 1800.0;
  t.DrXs = 0.81;
  t.BRr = 1.05;
  t.DrXsXz = 1.1;
  t.GMCXz = 1.2;
  t.Roughness = 3;
  t.TheAbs = 0.91;
  t.SolAbs = 0.62;
  t.VisAbs = 0.63;
  t.SolarT = 0.11;
  t.SolarRFront = 0.12;
  t.SolarRBack = 0.13;
  t.VisibleT = 0.14;
  t.VisibleRFront = 0.15;
  t.VisibleRBack = 0.16;
  t.InfraredT = 0.17;
  t.InfraredEFront = 0.18;
  t.InfraredEBack = 0.19;
  return t;
}

// The stream of one layer, written item by item: the version, 6 doubles, the roughness as an int and
// the 12 optical doubles.
CADataStream HandWrittenLayer(int version, double thick) {
  CADataStream s;
  s.WriteItem(version);
  s.WriteItem(thick);   // Thick
  s.WriteItem(1400.0);  // GMD
  s.WriteItem(0.58);    // DrXs
  s.WriteItem(1.01);    // BRr
  s.WriteItem(1.05);    // DrXsXz
  s.WriteItem(0.95);    // GMCXz
  s.WriteItem(2);       // Roughness
  for (int i = 0; i < 12; ++i) s.WriteItem(0.3 + 0.01 * i);
  return s;
}

std::vector<std::wstring> Names(const CAMemoryDataProp& store) {
  std::vector<std::wstring> names;
  for (int i = 0; i < store.GetCount(); ++i) names.emplace_back(store.GetName(i).GetString());
  return names;
}

}  // namespace

// ---- defaults -------------------------------------------------------------------------------------

TEST(tagQKTIMBERINGCHARACTER, DefaultHasNoThicknessDensityConductivityOrSpecificHeat) {
  tagQKTIMBERINGCHARACTER t;

  EXPECT_EQ(t.Thick, 0.0);
  EXPECT_EQ(t.GMD, 0.0);
  EXPECT_EQ(t.DrXs, 0.0);
  EXPECT_EQ(t.BRr, 0.0);
}

TEST(tagQKTIMBERINGCHARACTER, DefaultCorrectionFactorsAreOne) {
  tagQKTIMBERINGCHARACTER t;

  EXPECT_EQ(t.DrXsXz, 1.0);
  EXPECT_EQ(t.GMCXz, 1.0);
}

TEST(tagQKTIMBERINGCHARACTER, DefaultRoughnessIsOne) {
  tagQKTIMBERINGCHARACTER t;

  EXPECT_EQ(t.Roughness, 1);
}

TEST(tagQKTIMBERINGCHARACTER, DefaultOpticalValuesAreThoseOfAClearPane) {
  tagQKTIMBERINGCHARACTER t;

  EXPECT_EQ(t.TheAbs, 0.9);
  EXPECT_EQ(t.SolAbs, 0.7);
  EXPECT_EQ(t.VisAbs, 0.7);
  EXPECT_EQ(t.SolarT, 0.85);
  EXPECT_EQ(t.SolarRFront, 0.075);
  EXPECT_EQ(t.SolarRBack, 0.075);
  EXPECT_EQ(t.VisibleT, 0.901);
  EXPECT_EQ(t.VisibleRFront, 0.081);
  EXPECT_EQ(t.VisibleRBack, 0.081);
  EXPECT_EQ(t.InfraredT, 0.0);
  EXPECT_EQ(t.InfraredEFront, 0.84);
  EXPECT_EQ(t.InfraredEBack, 0.84);
}

TEST(tagQKTIMBERINGCHARACTER, DefaultLayerHasResistanceMinusOne) {
  tagQKTIMBERINGCHARACTER t;

  EXPECT_EQ(t.GetRZ(), -1.0);
}

// ---- the full constructor -------------------------------------------------------------------------

TEST(tagQKTIMBERINGCHARACTER, FullConstructorTakesConductivityAndSpecificHeatBeforeDensity) {
  // thickness, conductivity, specific heat, density, conductivity correction, density correction, roughness
  tagQKTIMBERINGCHARACTER t(0.24, 0.81, 1.05, 1800.0, 1.1, 1.2, 3, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);

  EXPECT_EQ(t.Thick, 0.24);
  EXPECT_EQ(t.DrXs, 0.81);
  EXPECT_EQ(t.BRr, 1.05);
  EXPECT_EQ(t.GMD, 1800.0);
  EXPECT_EQ(t.DrXsXz, 1.1);
  EXPECT_EQ(t.GMCXz, 1.2);
  EXPECT_EQ(t.Roughness, 3);
}

TEST(tagQKTIMBERINGCHARACTER, FullConstructorTakesTheTwelveOpticalValuesInFieldOrder) {
  tagQKTIMBERINGCHARACTER t(0, 0, 0, 0, 1, 1, 1, 0.91, 0.62, 0.63, 0.11, 0.12, 0.13, 0.14, 0.15, 0.16, 0.17, 0.18,
                            0.19);

  EXPECT_EQ(t.TheAbs, 0.91);
  EXPECT_EQ(t.SolAbs, 0.62);
  EXPECT_EQ(t.VisAbs, 0.63);
  EXPECT_EQ(t.SolarT, 0.11);
  EXPECT_EQ(t.SolarRFront, 0.12);
  EXPECT_EQ(t.SolarRBack, 0.13);
  EXPECT_EQ(t.VisibleT, 0.14);
  EXPECT_EQ(t.VisibleRFront, 0.15);
  EXPECT_EQ(t.VisibleRBack, 0.16);
  EXPECT_EQ(t.InfraredT, 0.17);
  EXPECT_EQ(t.InfraredEFront, 0.18);
  EXPECT_EQ(t.InfraredEBack, 0.19);
}

// ---- derived values -------------------------------------------------------------------------------

TEST(tagQKTIMBERINGCHARACTER, GetRZIsThicknessOverCorrectedConductivity) {
  tagQKTIMBERINGCHARACTER t;
  t.Thick = 0.24;
  t.DrXs = 0.81;
  t.DrXsXz = 1.25;

  const double r = t.GetRZ();

  EXPECT_DOUBLE_EQ(r, 0.24 / (0.81 * 1.25));  // 0.237037… m²·K/W
}

TEST(tagQKTIMBERINGCHARACTER, GetRZOfNegativeCorrectedConductivityIsMinusOne) {
  tagQKTIMBERINGCHARACTER t;
  t.Thick = 0.24;
  t.DrXs = 0.81;
  t.DrXsXz = -1.0;

  EXPECT_EQ(t.GetRZ(), -1.0);
}

TEST(tagQKTIMBERINGCHARACTER, GetSIsTheDailyStorageCoefficient) {
  tagQKTIMBERINGCHARACTER t;
  t.DrXs = 0.81;
  t.DrXsXz = 1.25;
  t.BRr = 1.05;
  t.GMD = 1800.0;

  const double s = t.GetS();

  // S = √(2π·λ·a·c·ρ / 86.4), 86.4 = 3.6·24 for a 24-hour period with c in kJ/(kg·K)
  EXPECT_DOUBLE_EQ(s, std::sqrt(6.283185307179586 * 0.81 * 1.25 * 1.05 * 1800.0 / 86.4));
}

TEST(tagQKTIMBERINGCHARACTER, GetSLeavesOutTheDensityCorrection) {
  tagQKTIMBERINGCHARACTER t;
  t.DrXs = 0.81;
  t.BRr = 1.05;
  t.GMD = 1800.0;
  t.GMCXz = 2.0;

  const double s = t.GetS();

  EXPECT_DOUBLE_EQ(s, std::sqrt(6.283185307179586 * 0.81 * 1.05 * 1800.0 / 86.4));  // no factor 2
}

TEST(tagQKTIMBERINGCHARACTER, GetDIsResistanceTimesStorageCoefficient) {
  tagQKTIMBERINGCHARACTER t;
  t.Thick = 0.24;
  t.DrXs = 0.81;
  t.BRr = 1.05;
  t.GMD = 1800.0;

  const double d = t.GetD();

  const double r = 0.24 / 0.81;
  const double s = std::sqrt(6.283185307179586 * 0.81 * 1.05 * 1800.0 / 86.4);
  EXPECT_DOUBLE_EQ(d, r * s);
}

TEST(tagQKTIMBERINGCHARACTER, GetDWithoutConductivityIsMinusS) {
  // R is -1 then; S carries λ too, so -S is a negative zero.
  tagQKTIMBERINGCHARACTER t;
  t.Thick = 0.24;
  t.DrXs = 0.0;
  t.BRr = 1.05;
  t.GMD = 1800.0;

  const double d = t.GetD();

  const double s = std::sqrt(6.283185307179586 * 0.0 * 1.05 * 1800.0 / 86.4);
  EXPECT_EQ(d, -s);
  EXPECT_TRUE(std::signbit(d));
}

// ---- ordered stream -------------------------------------------------------------------------------

TEST(tagQKTIMBERINGCHARACTER, StreamRoundTripKeepsAll19Fields) {
  tagQKTIMBERINGCHARACTER out = DistinctLayer();
  CADataStream stream;
  out.DataOutPut(stream);
  tagQKTIMBERINGCHARACTER in;

  const ADataDef::ErrorCode rc = in.DataInPut(stream);

  EXPECT_EQ(rc, ADataDef::AD_OK);
  EXPECT_EQ(in.Thick, 0.24);
  EXPECT_EQ(in.GMD, 1800.0);
  EXPECT_EQ(in.DrXs, 0.81);
  EXPECT_EQ(in.BRr, 1.05);
  EXPECT_EQ(in.DrXsXz, 1.1);
  EXPECT_EQ(in.GMCXz, 1.2);
  EXPECT_EQ(in.Roughness, 3);
  EXPECT_EQ(in.TheAbs, 0.91);
  EXPECT_EQ(in.SolAbs, 0.62);
  EXPECT_EQ(in.VisAbs, 0.63);
  EXPECT_EQ(in.SolarT, 0.11);
  EXPECT_EQ(in.SolarRFront, 0.12);
  EXPECT_EQ(in.SolarRBack, 0.13);
  EXPECT_EQ(in.VisibleT, 0.14);
  EXPECT_EQ(in.VisibleRFront, 0.15);
  EXPECT_EQ(in.VisibleRBack, 0.16);
  EXPECT_EQ(in.InfraredT, 0.17);
  EXPECT_EQ(in.InfraredEFront, 0.18);
  EXPECT_EQ(in.InfraredEBack, 0.19);
}

TEST(tagQKTIMBERINGCHARACTER, StreamBeginsWithVersionTwo) {
  tagQKTIMBERINGCHARACTER out = DistinctLayer();
  CADataStream stream;

  out.DataOutPut(stream);

  int version = 0;
  ASSERT_EQ(stream.ReadItem(&version), 0);
  EXPECT_EQ(version, 2);
}

TEST(tagQKTIMBERINGCHARACTER, StreamWritesVersionTwoAfterReadingVersionOne) {
  tagQKTIMBERINGCHARACTER t;
  ASSERT_EQ(t.DataInPut(HandWrittenLayer(1, 0.12)), ADataDef::AD_OK);
  CADataStream stream;

  t.DataOutPut(stream);

  int version = 0;
  ASSERT_EQ(stream.ReadItem(&version), 0);
  EXPECT_EQ(version, 2);
}

TEST(tagQKTIMBERINGCHARACTER, StreamHoldsSixDoublesAnIntAndTwelveDoublesInFieldOrder) {
  tagQKTIMBERINGCHARACTER out = DistinctLayer();
  CADataStream stream;

  out.DataOutPut(stream);

  // 4 (version) + 6·8 + 4 (roughness) + 12·8 bytes
  ASSERT_EQ(stream.GetSize(), 4u + 6u * 8u + 4u + 12u * 8u);
  int version = 0;
  stream.ReadItem(&version);
  double d[6] = {};
  for (double& v : d) ASSERT_EQ(stream.ReadItem(&v), 0);
  EXPECT_EQ(d[0], 0.24);    // Thick
  EXPECT_EQ(d[1], 1800.0);  // GMD
  EXPECT_EQ(d[2], 0.81);    // DrXs
  EXPECT_EQ(d[3], 1.05);    // BRr
  EXPECT_EQ(d[4], 1.1);     // DrXsXz
  EXPECT_EQ(d[5], 1.2);     // GMCXz
  int roughness = 0;
  ASSERT_EQ(stream.ReadItem(&roughness), 0);
  EXPECT_EQ(roughness, 3);
  const double optical[12] = {0.91, 0.62, 0.63, 0.11, 0.12, 0.13, 0.14, 0.15, 0.16, 0.17, 0.18, 0.19};
  for (double expected : optical) {
    double v = 0.0;
    ASSERT_EQ(stream.ReadItem(&v), 0);
    EXPECT_EQ(v, expected);
  }
}

TEST(tagQKTIMBERINGCHARACTER, StreamOfVersionThreeIsRefusedWith23) {
  tagQKTIMBERINGCHARACTER t;

  const ADataDef::ErrorCode rc = t.DataInPut(HandWrittenLayer(3, 0.12));

  EXPECT_EQ(rc, 23);
}

TEST(tagQKTIMBERINGCHARACTER, StreamOfVersionThreeLeavesTheLayerAsItWas) {
  tagQKTIMBERINGCHARACTER t = DistinctLayer();

  t.DataInPut(HandWrittenLayer(3, 0.12));

  EXPECT_EQ(t.Thick, 0.24);
  EXPECT_EQ(t.GMD, 1800.0);
  EXPECT_EQ(t.DrXs, 0.81);
  EXPECT_EQ(t.Roughness, 3);
  EXPECT_EQ(t.TheAbs, 0.91);
  EXPECT_EQ(t.InfraredEBack, 0.19);
}

TEST(tagQKTIMBERINGCHARACTER, StreamOfVersionOneIsRead) {
  tagQKTIMBERINGCHARACTER t;

  const ADataDef::ErrorCode rc = t.DataInPut(HandWrittenLayer(1, 0.12));

  EXPECT_EQ(rc, ADataDef::AD_OK);
  EXPECT_EQ(t.Thick, 0.12);
  EXPECT_EQ(t.GMD, 1400.0);
  EXPECT_EQ(t.DrXs, 0.58);
  EXPECT_EQ(t.Roughness, 2);
  EXPECT_EQ(t.InfraredEBack, 0.3 + 0.01 * 11);
}

TEST(tagQKTIMBERINGCHARACTER, StreamOfVersionZeroIsRead) {
  tagQKTIMBERINGCHARACTER t;

  const ADataDef::ErrorCode rc = t.DataInPut(HandWrittenLayer(0, 0.37));

  EXPECT_EQ(rc, ADataDef::AD_OK);
  EXPECT_EQ(t.Thick, 0.37);
  EXPECT_EQ(t.BRr, 1.01);
  EXPECT_EQ(t.GMCXz, 0.95);
  EXPECT_EQ(t.TheAbs, 0.3);
}

// ---- named exchange -------------------------------------------------------------------------------

TEST(tagQKTIMBERINGCHARACTER, ExchangeWrites19NamesInFieldOrder) {
  tagQKTIMBERINGCHARACTER t = DistinctLayer();
  CAMemoryDataProp store;

  t.DataOutPro(CADataExchange(store));

  const std::vector<std::wstring> expected = {
      L"Thick",       L"GMD",          L"DrXs",          L"BRr",          L"DrXsXz",
      L"GMCXz",       L"Roughness",    L"TheAbs",        L"SolAbs",       L"VisAbs",
      L"SolarT",      L"SolarRFront",  L"SolarRBack",    L"VisibleT",     L"VisibleRFront",
      L"VisibleRBack", L"InfraredT",   L"InfraredEFront", L"InfraredEBack"};
  EXPECT_EQ(Names(store), expected);
}

TEST(tagQKTIMBERINGCHARACTER, ExchangeRoundTripKeepsAll19Fields) {
  tagQKTIMBERINGCHARACTER out = DistinctLayer();
  CAMemoryDataProp store;
  out.DataOutPro(CADataExchange(store));
  tagQKTIMBERINGCHARACTER in;

  in.DataInPro(CADataExchange(store));

  EXPECT_EQ(in.Thick, 0.24);
  EXPECT_EQ(in.GMD, 1800.0);
  EXPECT_EQ(in.DrXs, 0.81);
  EXPECT_EQ(in.BRr, 1.05);
  EXPECT_EQ(in.DrXsXz, 1.1);
  EXPECT_EQ(in.GMCXz, 1.2);
  EXPECT_EQ(in.Roughness, 3);
  EXPECT_EQ(in.TheAbs, 0.91);
  EXPECT_EQ(in.SolAbs, 0.62);
  EXPECT_EQ(in.VisAbs, 0.63);
  EXPECT_EQ(in.SolarT, 0.11);
  EXPECT_EQ(in.SolarRFront, 0.12);
  EXPECT_EQ(in.SolarRBack, 0.13);
  EXPECT_EQ(in.VisibleT, 0.14);
  EXPECT_EQ(in.VisibleRFront, 0.15);
  EXPECT_EQ(in.VisibleRBack, 0.16);
  EXPECT_EQ(in.InfraredT, 0.17);
  EXPECT_EQ(in.InfraredEFront, 0.18);
  EXPECT_EQ(in.InfraredEBack, 0.19);
}
