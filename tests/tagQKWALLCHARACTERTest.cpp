// The wall character: layers between an outside (index 0) and an inside surface coefficient. Its
// defaults, U of a layer list (a mass-less layer counts by its conductance, not its thickness), the
// inertia index, the two thickness solvers, when the setters recalculate, the ordered stream with its
// layers, the named exchange, and the working list with the two surface layers.
//
// Layers used below: brick 0.24 m, λ 0.81 W/(m·K), ρ 1800 kg/m³, c 1.05 kJ/(kg·K); insulation
// 0.05 m, λ 0.04, ρ 30, c 1.38; plaster 0.02 m, λ 0.87, ρ 1700, c 1.05; an air gap has ρ = c = 0 and
// its conductance (W/(m²·K)) in the conductivity field.

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "construction/CQKTheroyArray.h"
#include "construction/tagQKTIMBERINGCHARACTER.h"
#include "construction/tagQKWALLCHARACTER.h"
#include "datakit/ADataDef.h"
#include "datakit/CADataExchange.h"
#include "datakit/CADataStream.h"
#include "datakit/CAMemoryDataProp.h"

namespace {

constexpr double kTol = 1e-12;
constexpr double kTwoPi = 6.283185307179586;

tagQKTIMBERINGCHARACTER Massive(double thick, double conductivity, double density, double specificHeat) {
  tagQKTIMBERINGCHARACTER t;
  t.Thick = thick;
  t.DrXs = conductivity;
  t.GMD = density;
  t.BRr = specificHeat;
  return t;
}

tagQKTIMBERINGCHARACTER Brick(double thick = 0.24) { return Massive(thick, 0.81, 1800.0, 1.05); }
tagQKTIMBERINGCHARACTER Insulation(double thick = 0.05) { return Massive(thick, 0.04, 30.0, 1.38); }
tagQKTIMBERINGCHARACTER Plaster(double thick = 0.02) { return Massive(thick, 0.87, 1700.0, 1.05); }
tagQKTIMBERINGCHARACTER AirGap(double thick, double conductance) { return Massive(thick, conductance, 0.0, 0.0); }

CQKLayerArray List(std::initializer_list<tagQKTIMBERINGCHARACTER> layers) {
  CQKLayerArray a;
  for (const tagQKTIMBERINGCHARACTER& t : layers) a.Add(t);
  return a;
}

// Brick, insulation, plaster, outside to inside.
CQKLayerArray ThreeLayers() { return List({Brick(), Insulation(), Plaster()}); }

// U of the three layers between 18.6 outside and 8.7 inside, summed by hand.
double ThreeLayersK() { return 1.0 / (1.0 / 18.6 + 0.24 / 0.81 + 0.05 / 0.04 + 0.02 / 0.87 + 1.0 / 8.7); }

std::vector<std::wstring> Names(const CAMemoryDataProp& store) {
  std::vector<std::wstring> names;
  for (int i = 0; i < store.GetCount(); ++i) names.emplace_back(store.GetName(i).GetString());
  return names;
}

// The stream of one layer, item by item (version 2 unless told).
void WriteLayer(CADataStream& s, double thick, int version = 2) {
  s.WriteItem(version);
  s.WriteItem(thick);
  s.WriteItem(1800.0);
  s.WriteItem(0.81);
  s.WriteItem(1.05);
  s.WriteItem(1.0);
  s.WriteItem(1.0);
  s.WriteItem(1);
  for (int i = 0; i < 12; ++i) s.WriteItem(0.5);
}

// A wall stream up to its layer count: 147 result doubles, NHrXs, WHrXs, the count.
CADataStream WallHead(int layerCount) {
  CADataStream s;
  for (int i = 0; i < 147; ++i) s.WriteItem(0.0);
  s.WriteItem(7.5);
  s.WriteItem(20.0);
  s.WriteItem(layerCount);
  return s;
}

// Reaches the protected working list.
struct WallProbe : tagQKWALLCHARACTER {
  CQKLayerArray Working() const {
    CQKLayerArray working;
    ModifyAirFloorWall(working);
    return working;
  }
  void WorkingInto(CQKLayerArray& working) const { ModifyAirFloorWall(working); }
};

}  // namespace

// ---- defaults -------------------------------------------------------------------------------------

TEST(tagQKWALLCHARACTER, DefaultInsideCoefficientIs8_7) {
  tagQKWALLCHARACTER w;

  EXPECT_EQ(w.GetNHrXs(), 8.7);
}

TEST(tagQKWALLCHARACTER, DefaultOutsideCoefficientIs18_6) {
  tagQKWALLCHARACTER w;

  EXPECT_EQ(w.GetWHrXs(), 18.6);
}

TEST(tagQKWALLCHARACTER, DefaultResultsAreZero) {
  tagQKWALLCHARACTER w;

  EXPECT_EQ(w.CrXs, 0.0);
  EXPECT_EQ(w.CrSj, 0.0);
  EXPECT_EQ(w.CrYc, 0.0);
  EXPECT_EQ(w.Harmonic1[0], 0.0);
  EXPECT_EQ(w.Response2[0], 0.0);
}

TEST(tagQKWALLCHARACTER, DefaultHasNoLayers) {
  tagQKWALLCHARACTER w;

  EXPECT_EQ(w.GetTimberingData().GetSize(), 0);
}

// ---- K --------------------------------------------------------------------------------------------

TEST(tagQKWALLCHARACTER, KOfOneBrickLayerIsTheInverseOfTheSeriesResistance) {
  const CQKLayerArray layers = List({Brick(0.24)});

  const double k = tagQKWALLCHARACTER::K(layers, 18.6, 8.7);

  EXPECT_NEAR(k, 1.0 / (1.0 / 18.6 + 0.24 / 0.81 + 1.0 / 8.7), kTol);
}

TEST(tagQKWALLCHARACTER, KOfNoLayersIsTheTwoSurfacesInSeries) {
  const CQKLayerArray layers;

  const double k = tagQKWALLCHARACTER::K(layers, 18.6, 8.7);

  EXPECT_NEAR(k, 1.0 / (1.0 / 18.6 + 1.0 / 8.7), kTol);
}

TEST(tagQKWALLCHARACTER, KAppliesTheConductivityCorrection) {
  tagQKTIMBERINGCHARACTER brick = Brick(0.24);
  brick.DrXsXz = 1.25;
  const CQKLayerArray layers = List({brick});

  const double k = tagQKWALLCHARACTER::K(layers, 18.6, 8.7);

  EXPECT_NEAR(k, 1.0 / (1.0 / 18.6 + 0.24 / (0.81 * 1.25) + 1.0 / 8.7), kTol);
}

TEST(tagQKWALLCHARACTER, KCountsAnAirGapByItsConductanceWhateverItsThickness) {
  // 6.25 W/(m²·K): R = 0.16 m²·K/W for a gap of 5 cm or of 50 cm alike.
  const double expected = 1.0 / (1.0 / 18.6 + 1.0 / 6.25 + 1.0 / 8.7);

  const double thin = tagQKWALLCHARACTER::K(List({AirGap(0.05, 6.25)}), 18.6, 8.7);
  const double thick = tagQKWALLCHARACTER::K(List({AirGap(0.5, 6.25)}), 18.6, 8.7);

  EXPECT_NEAR(thin, expected, kTol);
  EXPECT_NEAR(thick, expected, kTol);
}

TEST(tagQKWALLCHARACTER, KTreatsALayerWithZeroDensityCorrectionAsMassless) {
  // ρ·b·c/3.6 is 0 with b = 0, so the brick's 0.81 is taken as a conductance: R = 1/0.81.
  tagQKTIMBERINGCHARACTER brick = Brick(0.24);
  brick.GMCXz = 0.0;

  const double k = tagQKWALLCHARACTER::K(List({brick}), 18.6, 8.7);

  EXPECT_NEAR(k, 1.0 / (1.0 / 18.6 + 1.0 / 0.81 + 1.0 / 8.7), kTol);
}

TEST(tagQKWALLCHARACTER, KOfALayerWithZeroConductivityIsZero) {
  // δ/0 is an infinite resistance.
  const CQKLayerArray layers = List({Brick(), Massive(0.1, 0.0, 1800.0, 1.05)});

  const double k = tagQKWALLCHARACTER::K(layers, 18.6, 8.7);

  EXPECT_EQ(k, 0.0);
}

TEST(tagQKWALLCHARACTER, KOfThreeLayersSumsEveryResistance) {
  const double k = tagQKWALLCHARACTER::K(ThreeLayers(), 18.6, 8.7);

  EXPECT_NEAR(k, ThreeLayersK(), kTol);
}

// ---- D --------------------------------------------------------------------------------------------

TEST(tagQKWALLCHARACTER, DIsThePlainSumOfEachLayersRTimesS) {
  const double d = tagQKWALLCHARACTER::D(ThreeLayers());

  // R·S per layer, S = √(2π·λ·c·ρ/86.4); no surface layers
  const double brick = 0.24 / 0.81 * std::sqrt(kTwoPi * 0.81 * 1.05 * 1800.0 / 86.4);
  const double insulation = 0.05 / 0.04 * std::sqrt(kTwoPi * 0.04 * 1.38 * 30.0 / 86.4);
  const double plaster = 0.02 / 0.87 * std::sqrt(kTwoPi * 0.87 * 1.05 * 1700.0 / 86.4);
  EXPECT_NEAR(d, brick + insulation + plaster, kTol);
}

TEST(tagQKWALLCHARACTER, DOfNoLayersIsZero) {
  EXPECT_EQ(tagQKWALLCHARACTER::D(CQKLayerArray()), 0.0);
}

// ---- inversion ------------------------------------------------------------------------------------

TEST(tagQKWALLCHARACTER, InversionTimberingOnceReversesTheLayers) {
  tagQKWALLCHARACTER w;
  w.SetTimberingData(ThreeLayers(), false);

  w.InversionTimbering(false);

  const CQKLayerArray layers = w.GetTimberingData();
  ASSERT_EQ(layers.GetSize(), 3);
  EXPECT_EQ(layers[0].Thick, 0.02);  // plaster
  EXPECT_EQ(layers[1].Thick, 0.05);  // insulation
  EXPECT_EQ(layers[2].Thick, 0.24);  // brick
}

TEST(tagQKWALLCHARACTER, InversionTimberingTwiceRestoresTheOrder) {
  tagQKWALLCHARACTER w;
  w.SetTimberingData(ThreeLayers(), false);

  w.InversionTimbering(false);
  w.InversionTimbering(false);

  const CQKLayerArray layers = w.GetTimberingData();
  ASSERT_EQ(layers.GetSize(), 3);
  EXPECT_EQ(layers[0].Thick, 0.24);
  EXPECT_EQ(layers[1].Thick, 0.05);
  EXPECT_EQ(layers[2].Thick, 0.02);
}

TEST(tagQKWALLCHARACTER, KOfTheInvertedLayersIsUnchanged) {
  tagQKWALLCHARACTER w;
  w.SetTimberingData(ThreeLayers(), false);
  w.InversionTimbering(false);

  const double k = tagQKWALLCHARACTER::K(w.GetTimberingData(), 18.6, 8.7);

  EXPECT_NEAR(k, ThreeLayersK(), kTol);
}

TEST(tagQKWALLCHARACTER, DOfTheInvertedLayersIsUnchanged) {
  tagQKWALLCHARACTER w;
  w.SetTimberingData(ThreeLayers(), false);
  w.InversionTimbering(false);

  const double d = tagQKWALLCHARACTER::D(w.GetTimberingData());

  const double brick = 0.24 / 0.81 * std::sqrt(kTwoPi * 0.81 * 1.05 * 1800.0 / 86.4);
  const double insulation = 0.05 / 0.04 * std::sqrt(kTwoPi * 0.04 * 1.38 * 30.0 / 86.4);
  const double plaster = 0.02 / 0.87 * std::sqrt(kTwoPi * 0.87 * 1.05 * 1700.0 / 86.4);
  EXPECT_NEAR(d, brick + insulation + plaster, kTol);
}

TEST(tagQKWALLCHARACTER, InversionTimberingWithoutRecalculationLeavesTheResults) {
  tagQKWALLCHARACTER w;
  w.SetTimberingData(ThreeLayers(), false);

  w.InversionTimbering(false);

  EXPECT_EQ(w.CrXs, 0.0);
}

TEST(tagQKWALLCHARACTER, InversionTimberingWithRecalculationSetsCrXs) {
  tagQKWALLCHARACTER w;
  w.SetTimberingData(ThreeLayers(), false);

  w.InversionTimbering(true);

  EXPECT_NEAR(w.CrXs, ThreeLayersK(), kTol);
}

// ---- Thick ----------------------------------------------------------------------------------------

TEST(tagQKWALLCHARACTER, ThickOnAnEmptyListReturnsMinusOne) {
  CQKLayerArray layers;

  const int index = tagQKWALLCHARACTER::Thick(layers, 0.5, 18.6, 8.7);

  EXPECT_EQ(index, -1);
  EXPECT_EQ(layers.GetSize(), 0);
}

TEST(tagQKWALLCHARACTER, ThickChoosesTheLayerWithTheSmallestConductivity) {
  CQKLayerArray layers = ThreeLayers();

  const int index = tagQKWALLCHARACTER::Thick(layers, 0.5, 18.6, 8.7);

  EXPECT_EQ(index, 1);  // insulation, λ 0.04
}

TEST(tagQKWALLCHARACTER, ThickComparesConductivityTimesCorrection) {
  // λ 0.04 with a correction of 1.5 is 0.06: the plain 0.05 layer is the more insulating.
  tagQKTIMBERINGCHARACTER corrected = Insulation();
  corrected.DrXsXz = 1.5;
  CQKLayerArray layers = List({corrected, Massive(0.05, 0.05, 30.0, 1.38)});

  const int index = tagQKWALLCHARACTER::Thick(layers, 0.5, 18.6, 8.7);

  EXPECT_EQ(index, 1);
}

TEST(tagQKWALLCHARACTER, ThickSizesTheChosenLayerToReachTheTarget) {
  CQKLayerArray layers = ThreeLayers();

  tagQKWALLCHARACTER::Thick(layers, 0.5, 18.6, 8.7);

  // (1/K − Σ δ/λa of the others − 1/c1 − 1/c2)·λa
  const double expected = (1.0 / 0.5 - 0.24 / 0.81 - 0.02 / 0.87 - 1.0 / 18.6 - 1.0 / 8.7) * 0.04;
  EXPECT_NEAR(layers[1].Thick, expected, kTol);
}

TEST(tagQKWALLCHARACTER, ThickLeavesTheOtherLayers) {
  CQKLayerArray layers = ThreeLayers();

  tagQKWALLCHARACTER::Thick(layers, 0.5, 18.6, 8.7);

  EXPECT_EQ(layers[0].Thick, 0.24);
  EXPECT_EQ(layers[2].Thick, 0.02);
}

TEST(tagQKWALLCHARACTER, ThickOnEqualLayersAdjustsTheFirst) {
  CQKLayerArray layers = List({Massive(0.1, 0.5, 1000.0, 1.0), Massive(0.2, 0.5, 1000.0, 1.0)});

  const int index = tagQKWALLCHARACTER::Thick(layers, 0.8, 18.6, 8.7);

  EXPECT_EQ(index, 0);
  EXPECT_NEAR(layers[0].Thick, (1.0 / 0.8 - 0.2 / 0.5 - 1.0 / 18.6 - 1.0 / 8.7) * 0.5, kTol);
  EXPECT_EQ(layers[1].Thick, 0.2);
}

TEST(tagQKWALLCHARACTER, ThickIgnoresCoefficientsOfZeroOrBelow) {
  CQKLayerArray layers = ThreeLayers();

  tagQKWALLCHARACTER::Thick(layers, 0.5, 0.0, -8.7);

  const double expected = (1.0 / 0.5 - 0.24 / 0.81 - 0.02 / 0.87) * 0.04;
  EXPECT_NEAR(layers[1].Thick, expected, kTol);
}

TEST(tagQKWALLCHARACTER, ThickCountsAnAirGapByItsThicknessOverConductance) {
  // Unlike K: the solver takes δ/λa for every other layer, mass-less or not.
  CQKLayerArray layers = List({AirGap(0.05, 6.25), Insulation()});

  tagQKWALLCHARACTER::Thick(layers, 0.5, 18.6, 8.7);

  const double expected = (1.0 / 0.5 - 0.05 / 6.25 - 1.0 / 18.6 - 1.0 / 8.7) * 0.04;
  EXPECT_NEAR(layers[1].Thick, expected, kTol);
}

TEST(tagQKWALLCHARACTER, ThickGoesNegativeWhenTheOthersAloneResistTooMuch) {
  CQKLayerArray layers = List({Brick(), Insulation()});

  tagQKWALLCHARACTER::Thick(layers, 5.0, 18.6, 8.7);

  // 1/5 = 0.2 m²·K/W is less than brick and surfaces alone (0.296 + 0.054 + 0.115)
  const double expected = (1.0 / 5.0 - 0.24 / 0.81 - 1.0 / 18.6 - 1.0 / 8.7) * 0.04;
  EXPECT_NEAR(layers[1].Thick, expected, kTol);
  EXPECT_LT(layers[1].Thick, 0.0);
}

// ---- ThickEx --------------------------------------------------------------------------------------

TEST(tagQKWALLCHARACTER, ThickExOnAnEmptyListDoesNothing) {
  CQKLayerArray layers;

  tagQKWALLCHARACTER::ThickEx(layers, 0.5, 18.6, 8.7);

  EXPECT_EQ(layers.GetSize(), 0);
}

TEST(tagQKWALLCHARACTER, ThickExSizesTheMostInsulatingLayerWhenItCan) {
  CQKLayerArray layers = ThreeLayers();

  tagQKWALLCHARACTER::ThickEx(layers, 0.5, 18.6, 8.7);

  const double expected = (1.0 / 0.5 - 0.24 / 0.81 - 0.02 / 0.87 - 1.0 / 18.6 - 1.0 / 8.7) * 0.04;
  EXPECT_NEAR(layers[1].Thick, expected, kTol);
  EXPECT_EQ(layers[0].Thick, 0.24);
  EXPECT_EQ(layers[2].Thick, 0.02);
}

TEST(tagQKWALLCHARACTER, ThickExCutsLayersToATenthOfAMillimetreBeforeSizingOne) {
  // Concrete 2 m (λ 1.74), insulation 1 cm (λ 0.04), wood 1 cm (λ 0.14), target 1/K = 1.0:
  // order by λa is insulation, wood, concrete.
  //   insulation: others 2/1.74 + 0.01/0.14 + 1/18.6 + 1/8.7 = 1.39 > 1 → 0.0001 m
  //   wood:       others 2/1.74 + 0.0001/0.04 + surfaces        = 1.32 > 1 → 0.0001 m
  //   concrete:   others 0.0001/0.04 + 0.0001/0.14 + surfaces   = 0.17     → sized
  CQKLayerArray layers =
      List({Massive(2.0, 1.74, 2500.0, 0.92), Massive(0.01, 0.04, 30.0, 1.38), Massive(0.01, 0.14, 500.0, 2.51)});

  tagQKWALLCHARACTER::ThickEx(layers, 1.0, 18.6, 8.7);

  EXPECT_EQ(layers[1].Thick, 0.0001);
  EXPECT_EQ(layers[2].Thick, 0.0001);
  const double expected = (1.0 / 1.0 - 0.0001 / 0.04 - 0.0001 / 0.14 - 1.0 / 18.6 - 1.0 / 8.7) * 1.74;
  EXPECT_NEAR(layers[0].Thick, expected, kTol);
}

TEST(tagQKWALLCHARACTER, ThickExNeverGoesBelowATenthOfAMillimetre) {
  // 1/K = 0.1 is less than the two surfaces alone: no layer can be sized.
  CQKLayerArray layers = List({Brick(), Insulation()});

  tagQKWALLCHARACTER::ThickEx(layers, 10.0, 18.6, 8.7);

  EXPECT_EQ(layers[0].Thick, 0.0001);
  EXPECT_EQ(layers[1].Thick, 0.0001);
}

// ---- setters and recalculation --------------------------------------------------------------------

TEST(tagQKWALLCHARACTER, CoefficientSettersReturnTrue) {
  tagQKWALLCHARACTER w;

  EXPECT_TRUE(w.SetNHrXs(7.0, false));
  EXPECT_TRUE(w.SetWHrXs(-3.0, false));
}

TEST(tagQKWALLCHARACTER, SetNHrXsStoresTheInsideCoefficient) {
  tagQKWALLCHARACTER w;

  w.SetNHrXs(7.0, false);

  EXPECT_EQ(w.GetNHrXs(), 7.0);
}

TEST(tagQKWALLCHARACTER, SetWHrXsStoresTheOutsideCoefficient) {
  tagQKWALLCHARACTER w;

  w.SetWHrXs(23.0, false);

  EXPECT_EQ(w.GetWHrXs(), 23.0);
}

TEST(tagQKWALLCHARACTER, SetNHrXsWithoutRecalculationLeavesTheResultsAtZero) {
  tagQKWALLCHARACTER w;
  w.SetTimberingData(ThreeLayers(), false);

  w.SetNHrXs(7.0, false);

  EXPECT_EQ(w.CrXs, 0.0);
  EXPECT_EQ(w.CrSj, 0.0);
  EXPECT_EQ(w.CrYc, 0.0);
}

TEST(tagQKWALLCHARACTER, SetNHrXsWithRecalculationSetsCrXsToK) {
  tagQKWALLCHARACTER w;
  w.SetTimberingData(ThreeLayers(), false);

  w.SetNHrXs(7.0, true);

  EXPECT_NEAR(w.CrXs, 1.0 / (1.0 / 18.6 + 0.24 / 0.81 + 0.05 / 0.04 + 0.02 / 0.87 + 1.0 / 7.0), kTol);
}

TEST(tagQKWALLCHARACTER, SetWHrXsWithoutRecalculationLeavesTheResultsAtZero) {
  tagQKWALLCHARACTER w;
  w.SetTimberingData(ThreeLayers(), false);

  w.SetWHrXs(23.0, false);

  EXPECT_EQ(w.CrXs, 0.0);
  EXPECT_EQ(w.CrSj, 0.0);
}

TEST(tagQKWALLCHARACTER, SetWHrXsWithRecalculationSetsCrXsToK) {
  tagQKWALLCHARACTER w;
  w.SetTimberingData(ThreeLayers(), false);

  w.SetWHrXs(23.0, true);

  EXPECT_NEAR(w.CrXs, 1.0 / (1.0 / 23.0 + 0.24 / 0.81 + 0.05 / 0.04 + 0.02 / 0.87 + 1.0 / 8.7), kTol);
}

TEST(tagQKWALLCHARACTER, SetTimberingDataWithoutRecalculationLeavesTheResultsAtZero) {
  tagQKWALLCHARACTER w;

  w.SetTimberingData(ThreeLayers(), false);

  EXPECT_EQ(w.CrXs, 0.0);
  EXPECT_EQ(w.CrSj, 0.0);
}

TEST(tagQKWALLCHARACTER, SetTimberingDataWithRecalculationSetsCrXsToK) {
  tagQKWALLCHARACTER w;

  w.SetTimberingData(ThreeLayers(), true);

  EXPECT_NEAR(w.CrXs, ThreeLayersK(), kTol);
}

TEST(tagQKWALLCHARACTER, SetTimberingDataReplacesTheLayers) {
  tagQKWALLCHARACTER w;
  w.SetTimberingData(ThreeLayers(), false);

  w.SetTimberingData(List({Plaster(0.03)}), false);

  const CQKLayerArray layers = w.GetTimberingData();
  ASSERT_EQ(layers.GetSize(), 1);
  EXPECT_EQ(layers[0].Thick, 0.03);
}

TEST(tagQKWALLCHARACTER, WallWithoutLayersGetsCrXsOnly) {
  tagQKWALLCHARACTER w;
  w.CrSj = 7.0;
  w.CrYc = 6.0;
  w.Harmonic1[0] = 5.0;
  w.Response1[0] = 4.0;
  w.Response2[0] = 3.0;

  w.SetNHrXs(8.7, true);

  EXPECT_NEAR(w.CrXs, 1.0 / (1.0 / 18.6 + 1.0 / 8.7), kTol);
  EXPECT_EQ(w.CrSj, 7.0);
  EXPECT_EQ(w.CrYc, 6.0);
  EXPECT_EQ(w.Harmonic1[0], 5.0);
  EXPECT_EQ(w.Response1[0], 4.0);
  EXPECT_EQ(w.Response2[0], 3.0);
}

TEST(tagQKWALLCHARACTER, WallOfMasslessLayersGetsCrXsOnly) {
  tagQKWALLCHARACTER w;
  w.SetTimberingData(List({AirGap(0.05, 6.25), AirGap(0.0, 1.0)}), false);
  w.CrSj = 7.0;
  w.CrYc = 6.0;
  w.Harmonic3[0] = 5.0;
  w.Response1[0] = 4.0;
  w.Response4[0] = 3.0;

  w.SetWHrXs(18.6, true);

  EXPECT_NEAR(w.CrXs, 1.0 / (1.0 / 18.6 + 1.0 / 6.25 + 1.0 / 1.0 + 1.0 / 8.7), kTol);
  EXPECT_EQ(w.CrSj, 7.0);
  EXPECT_EQ(w.CrYc, 6.0);
  EXPECT_EQ(w.Harmonic3[0], 5.0);
  EXPECT_EQ(w.Response1[0], 4.0);
  EXPECT_EQ(w.Response4[0], 3.0);
}

// ---- copies ---------------------------------------------------------------------------------------

TEST(tagQKWALLCHARACTER, CopyConstructedWallHasItsOwnLayers) {
  tagQKWALLCHARACTER source;
  source.SetTimberingData(ThreeLayers(), false);
  tagQKWALLCHARACTER copy(source);

  source.InversionTimbering(false);
  source.SetTimberingData(List({Plaster()}), false);

  const CQKLayerArray layers = copy.GetTimberingData();
  ASSERT_EQ(layers.GetSize(), 3);
  EXPECT_EQ(layers[0].Thick, 0.24);
}

// ---- ordered stream -------------------------------------------------------------------------------

TEST(tagQKWALLCHARACTER, StreamRoundTripKeepsResultsCoefficientsAndLayers) {
  tagQKWALLCHARACTER out;
  out.SetTimberingData(ThreeLayers(), false);
  out.SetNHrXs(7.5, false);
  out.SetWHrXs(20.0, false);
  out.CrXs = 0.61;
  out.CrSj = 12.5;
  out.Response4[23] = -0.25;
  CADataStream stream;
  out.DataOutPut(stream);
  tagQKWALLCHARACTER in;

  const ADataDef::ErrorCode rc = in.DataInPut(stream);

  EXPECT_EQ(rc, ADataDef::AD_OK);
  EXPECT_EQ(in.CrXs, 0.61);
  EXPECT_EQ(in.CrSj, 12.5);
  EXPECT_EQ(in.Response4[23], -0.25);
  EXPECT_EQ(in.GetNHrXs(), 7.5);
  EXPECT_EQ(in.GetWHrXs(), 20.0);
  const CQKLayerArray layers = in.GetTimberingData();
  ASSERT_EQ(layers.GetSize(), 3);
  EXPECT_EQ(layers[0].Thick, 0.24);
  EXPECT_EQ(layers[1].DrXs, 0.04);
  EXPECT_EQ(layers[2].GMD, 1700.0);
}

TEST(tagQKWALLCHARACTER, StreamHoldsTheCoefficientsThenTheLayerCountThenTheLayers) {
  tagQKWALLCHARACTER out;
  out.SetTimberingData(List({Brick(), Insulation()}), false);
  out.SetNHrXs(7.5, false);
  out.SetWHrXs(20.0, false);
  CADataStream stream;

  out.DataOutPut(stream);

  ASSERT_TRUE(stream.Seek(147 * 8));  // past the results
  double inside = 0.0, outside = 0.0;
  int count = 0, version = 0;
  double thick = 0.0;
  stream.ReadItem(&inside);
  stream.ReadItem(&outside);
  stream.ReadItem(&count);
  stream.ReadItem(&version);
  stream.ReadItem(&thick);
  EXPECT_EQ(inside, 7.5);
  EXPECT_EQ(outside, 20.0);
  EXPECT_EQ(count, 2);
  EXPECT_EQ(version, 2);
  EXPECT_EQ(thick, 0.24);
  // each layer: version, 18 doubles, roughness
  EXPECT_EQ(stream.GetSize(), 147u * 8u + 8u + 8u + 4u + 2u * (4u + 18u * 8u + 4u));
}

TEST(tagQKWALLCHARACTER, StreamReadingAppendsToTheLayersHeld) {
  tagQKWALLCHARACTER out;
  out.SetTimberingData(List({Insulation(), Plaster()}), false);
  CADataStream stream;
  out.DataOutPut(stream);
  tagQKWALLCHARACTER in;
  in.SetTimberingData(List({Brick()}), false);

  in.DataInPut(stream);

  const CQKLayerArray layers = in.GetTimberingData();
  ASSERT_EQ(layers.GetSize(), 3);
  EXPECT_EQ(layers[0].Thick, 0.24);
  EXPECT_EQ(layers[1].Thick, 0.05);
  EXPECT_EQ(layers[2].Thick, 0.02);
}

TEST(tagQKWALLCHARACTER, StreamWithANegativeLayerCountGivesBadCount) {
  CADataStream stream = WallHead(-1);
  WriteLayer(stream, 0.24);
  tagQKWALLCHARACTER in;

  const ADataDef::ErrorCode rc = in.DataInPut(stream);

  EXPECT_EQ(rc, ADataDef::AD_BADCOUNT);
  EXPECT_EQ(rc, 2);
}

TEST(tagQKWALLCHARACTER, StreamWithANegativeLayerCountReadsNoLayer) {
  CADataStream stream = WallHead(-1);
  WriteLayer(stream, 0.24);
  tagQKWALLCHARACTER in;

  in.DataInPut(stream);

  EXPECT_EQ(in.GetTimberingData().GetSize(), 0);
}

TEST(tagQKWALLCHARACTER, StreamWithMoreLayersCountedThanHeldGivesBadCount) {
  CADataStream stream = WallHead(2);
  WriteLayer(stream, 0.24);  // only one follows
  tagQKWALLCHARACTER in;

  const ADataDef::ErrorCode rc = in.DataInPut(stream);

  EXPECT_EQ(rc, ADataDef::AD_BADCOUNT);
}

TEST(tagQKWALLCHARACTER, StreamWithMoreLayersCountedThanHeldReadsNoLayer) {
  CADataStream stream = WallHead(2);
  WriteLayer(stream, 0.24);
  tagQKWALLCHARACTER in;

  in.DataInPut(stream);

  EXPECT_EQ(in.GetTimberingData().GetSize(), 0);
}

TEST(tagQKWALLCHARACTER, StreamWithALayerOfANewerFormatGives23) {
  CADataStream stream = WallHead(1);
  WriteLayer(stream, 0.24, 3);
  tagQKWALLCHARACTER in;

  const ADataDef::ErrorCode rc = in.DataInPut(stream);

  EXPECT_EQ(rc, 23);
  EXPECT_EQ(in.GetTimberingData().GetSize(), 0);
}

// ---- named exchange -------------------------------------------------------------------------------

TEST(tagQKWALLCHARACTER, ExchangeWritesAnAndAwAfterTheResultNames) {
  tagQKWALLCHARACTER w;
  w.SetTimberingData(ThreeLayers(), false);
  CAMemoryDataProp store;

  w.DataOutPro(CADataExchange(store));

  EXPECT_EQ(Names(store), (std::vector<std::wstring>{L"CrXs", L"CrSj", L"CrYc", L"An", L"Aw"}));
}

TEST(tagQKWALLCHARACTER, ExchangeRoundTripKeepsTheCoefficients) {
  tagQKWALLCHARACTER out;
  out.SetNHrXs(7.5, false);
  out.SetWHrXs(20.0, false);
  out.CrXs = 0.61;
  CAMemoryDataProp store;
  out.DataOutPro(CADataExchange(store));
  tagQKWALLCHARACTER in;

  in.DataInPro(CADataExchange(store));

  EXPECT_EQ(in.GetNHrXs(), 7.5);
  EXPECT_EQ(in.GetWHrXs(), 20.0);
  EXPECT_EQ(in.CrXs, 0.61);
}

// ---- the working list -----------------------------------------------------------------------------

TEST(tagQKWALLCHARACTER, WorkingListHasTheLayersBetweenTwoSurfaces) {
  WallProbe w;
  w.SetTimberingData(ThreeLayers(), false);

  const CQKLayerArray working = w.Working();

  ASSERT_EQ(working.GetSize(), 5);
  EXPECT_EQ(working[1].Thick, 0.24);
  EXPECT_EQ(working[2].Thick, 0.05);
  EXPECT_EQ(working[3].Thick, 0.02);
}

TEST(tagQKWALLCHARACTER, WorkingListStartsWithTheOutsideSurface) {
  WallProbe w;
  w.SetTimberingData(ThreeLayers(), false);
  w.SetWHrXs(20.0, false);

  const CQKLayerArray working = w.Working();

  EXPECT_EQ(working[0].DrXs, 20.0);
}

TEST(tagQKWALLCHARACTER, WorkingListEndsWithTheInsideSurface) {
  WallProbe w;
  w.SetTimberingData(ThreeLayers(), false);
  w.SetNHrXs(7.5, false);

  const CQKLayerArray working = w.Working();

  EXPECT_EQ(working[working.GetSize() - 1].DrXs, 7.5);
}

TEST(tagQKWALLCHARACTER, WorkingListSurfacesHaveNoThicknessDensityOrSpecificHeat) {
  WallProbe w;
  w.SetTimberingData(ThreeLayers(), false);

  const CQKLayerArray working = w.Working();

  for (int i : {0, working.GetSize() - 1}) {
    EXPECT_EQ(working[i].Thick, 0.0) << i;
    EXPECT_EQ(working[i].GMD, 0.0) << i;
    EXPECT_EQ(working[i].BRr, 0.0) << i;
  }
}

TEST(tagQKWALLCHARACTER, WorkingListSurfacesHaveCorrectionsOfOne) {
  WallProbe w;
  w.SetTimberingData(ThreeLayers(), false);

  const CQKLayerArray working = w.Working();

  for (int i : {0, working.GetSize() - 1}) {
    EXPECT_EQ(working[i].DrXsXz, 1.0) << i;
    EXPECT_EQ(working[i].GMCXz, 1.0) << i;
  }
}

TEST(tagQKWALLCHARACTER, WorkingListReplacesWhatTheOutputHeld) {
  WallProbe w;
  w.SetTimberingData(List({Brick()}), false);
  CQKLayerArray working = ThreeLayers();

  w.WorkingInto(working);

  ASSERT_EQ(working.GetSize(), 3);
  EXPECT_EQ(working[0].DrXs, 18.6);
  EXPECT_EQ(working[1].Thick, 0.24);
  EXPECT_EQ(working[2].DrXs, 8.7);
}

TEST(tagQKWALLCHARACTER, WorkingListLeavesTheWallsLayers) {
  WallProbe w;
  w.SetTimberingData(ThreeLayers(), false);

  (void)w.Working();

  EXPECT_EQ(w.GetTimberingData().GetSize(), 3);
}
