// The wall data: layers with their materials side by side, the inside, summer-outside and
// winter-outside coefficients, which calculation each change runs, the default wall, the thickness a
// layer needs for a target U, the ordered stream, the named exchange (whose "An" and "Aw" are shared
// with the wall character), copying and creation by class name.
//
// Layers used below: brick 0.24 m, λ 0.81 W/(m·K), ρ 1800 kg/m³, c 1.05 kJ/(kg·K); insulation
// 0.05 m, λ 0.04, ρ 30, c 1.38; plaster 0.02 m, λ 0.87, ρ 1700, c 1.05. Coefficients in W/(m²·K).

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "construction/CQKStuTimeberingName.h"
#include "construction/CQKTimberingData.h"
#include "construction/CQKWallData.h"
#include "construction/tagQKWALLCHARACTER.h"
#include "datakit/ADataDef.h"
#include "datakit/CAData.h"
#include "datakit/CADataExchange.h"
#include "datakit/CADataStream.h"
#include "datakit/CAMemoryDataProp.h"
#include "foundation/CLxArray.h"
#include "foundation/QKLoad.h"
#include "mfc/CObject.h"
#include "mfc/CString.h"

namespace {

constexpr double kTol = 1e-12;
constexpr double kTwoPi = 6.283185307179586;

// Σ δ/λ of brick, insulation and plaster, m²·K/W.
constexpr double kLayersR = 0.24 / 0.81 + 0.05 / 0.04 + 0.02 / 0.87;

CQKTimberingData Layer(double thick, double conductivity, double density, double specificHeat, int id,
                       const wchar_t* name) {
  CQKTimberingData d;
  d.SetThick(thick);
  d.SetDrXs(conductivity);
  d.SetGMD(density);
  d.SetBRr(specificHeat);
  d.SetStuffID(id);
  d.SetStuffName(name);
  return d;
}

CQKTimberingData Brick() { return Layer(0.24, 0.81, 1800.0, 1.05, 1, L"黏土砖"); }
CQKTimberingData Insulation() { return Layer(0.05, 0.04, 30.0, 1.38, 2, L"聚苯板"); }
CQKTimberingData Plaster() { return Layer(0.02, 0.87, 1700.0, 1.05, 3, L"石灰砂浆"); }

CLxArray<CQKTimberingData> ThreeLayers() {
  CLxArray<CQKTimberingData> a;
  a.Add(Brick());
  a.Add(Insulation());
  a.Add(Plaster());
  return a;
}

CLxArray<CQKTimberingData> OneLayer(const CQKTimberingData& layer) {
  CLxArray<CQKTimberingData> a;
  a.Add(layer);
  return a;
}

// A wall of the three layers with every other field set by hand, no calculation run.
CQKWallData FullWall() {
  CQKWallData w;
  w.SetTimbering(ThreeLayers(), false);
  w.ID = 17;
  w.Name = L"外墙一";
  w.SetNHrXsData(7.5, false);
  w.SetWHrXsData(20.0, false);
  w.SetDjWHrXsData(25.0, false);
  w.SetNHrXs(7.5, false);
  w.SetWHrXs(20.0, false);
  w.CrXs = 0.61;
  w.CrSj = 12.5;
  w.CrYc = 9.25;
  w.Harmonic2[3] = 1.25;
  w.Response3[7] = -0.125;
  w.DjCrXs = 0.63;
  w.NCrXs = 0.55;
  return w;
}

// The material list is protected: a member pointer named through a derived class reaches it.
struct NamesAccess : CQKWallData {
  static const CLxArray<CQKStuTimeberingName>& Of(const CQKWallData& w) {
    return w.*(&NamesAccess::m_arrTimberingName);
  }
};
const CLxArray<CQKStuTimeberingName>& NamesOf(const CQKWallData& w) { return NamesAccess::Of(w); }

int LayerCount(const CQKWallData& w) { return w.GetTimberingData().GetSize(); }

std::vector<std::wstring> Names(const CAMemoryDataProp& store) {
  std::vector<std::wstring> names;
  for (int i = 0; i < store.GetCount(); ++i) names.emplace_back(store.GetName(i).GetString());
  return names;
}

// Everything FullWall set.
void ExpectFullWall(const CQKWallData& w) {
  EXPECT_EQ(w.ID, 17);
  EXPECT_EQ(w.Name, L"外墙一");
  EXPECT_EQ(w.GetNHrXsData(), 7.5);
  EXPECT_EQ(w.GetWHrXsData(), 20.0);
  EXPECT_EQ(w.GetDjWHrXsData(), 25.0);
  EXPECT_EQ(w.GetNHrXs(), 7.5);
  EXPECT_EQ(w.GetWHrXs(), 20.0);
  EXPECT_EQ(w.CrXs, 0.61);
  EXPECT_EQ(w.CrSj, 12.5);
  EXPECT_EQ(w.CrYc, 9.25);
  EXPECT_EQ(w.Harmonic2[3], 1.25);
  EXPECT_EQ(w.Response3[7], -0.125);
  EXPECT_EQ(w.DjCrXs, 0.63);
  EXPECT_EQ(w.NCrXs, 0.55);
  const CQKLayerArray layers = w.GetTimberingData();
  ASSERT_EQ(layers.GetSize(), 3);
  EXPECT_EQ(layers[0].Thick, 0.24);
  EXPECT_EQ(layers[1].DrXs, 0.04);
  EXPECT_EQ(layers[2].GMD, 1700.0);
  const CLxArray<CQKStuTimeberingName>& names = NamesOf(w);
  ASSERT_EQ(names.GetSize(), 3);
  EXPECT_EQ(names[0].TimberingID, 1);
  EXPECT_EQ(names[1].TimberingName, L"聚苯板");
  EXPECT_EQ(names[2].TimberingID, 3);
}

}  // namespace

// ---- defaults -------------------------------------------------------------------------------------

TEST(CQKWallData, DefaultIdIsZero) {
  CQKWallData w;

  EXPECT_EQ(w.ID, 0);
}

TEST(CQKWallData, DefaultNameIsEmpty) {
  CQKWallData w;

  EXPECT_TRUE(w.Name.IsEmpty());
}

TEST(CQKWallData, DefaultInsideCoefficientIs8_7) {
  CQKWallData w;

  EXPECT_EQ(w.GetNHrXsData(), 8.7);
}

TEST(CQKWallData, DefaultSummerOutsideCoefficientIs18_6) {
  CQKWallData w;

  EXPECT_EQ(w.GetWHrXsData(), 18.6);
}

TEST(CQKWallData, DefaultWinterOutsideCoefficientIs23) {
  CQKWallData w;

  EXPECT_EQ(w.GetDjWHrXsData(), 23.0);
}

TEST(CQKWallData, DefaultWinterAndInternalResultsAreZero) {
  CQKWallData w;

  EXPECT_EQ(w.DjCrXs, 0.0);
  EXPECT_EQ(w.NCrXs, 0.0);
}

TEST(CQKWallData, DefaultHasNoLayersAndNoNames) {
  CQKWallData w;

  EXPECT_EQ(LayerCount(w), 0);
  EXPECT_EQ(NamesOf(w).GetSize(), 0);
}

// ---- coefficient setters --------------------------------------------------------------------------

TEST(CQKWallData, SetWHrXsDataRefusesZero) {
  CQKWallData w;
  w.SetTimbering(ThreeLayers(), false);

  const bool accepted = w.SetWHrXsData(0.0, true);

  EXPECT_FALSE(accepted);
  EXPECT_EQ(w.GetWHrXsData(), 18.6);
  EXPECT_EQ(w.CrXs, 0.0);
  EXPECT_EQ(w.NCrXs, 0.0);
}

TEST(CQKWallData, SetWHrXsDataRefusesANegativeValue) {
  CQKWallData w;
  w.SetTimbering(ThreeLayers(), false);

  const bool accepted = w.SetWHrXsData(-18.6, true);

  EXPECT_FALSE(accepted);
  EXPECT_EQ(w.GetWHrXsData(), 18.6);
  EXPECT_EQ(w.CrXs, 0.0);
}

TEST(CQKWallData, SetNHrXsDataRefusesZero) {
  CQKWallData w;
  w.SetTimbering(ThreeLayers(), false);

  const bool accepted = w.SetNHrXsData(0.0, true);

  EXPECT_FALSE(accepted);
  EXPECT_EQ(w.GetNHrXsData(), 8.7);
  EXPECT_EQ(w.CrXs, 0.0);
  EXPECT_EQ(w.DjCrXs, 0.0);
  EXPECT_EQ(w.NCrXs, 0.0);
}

TEST(CQKWallData, SetNHrXsDataRefusesANegativeValue) {
  CQKWallData w;
  w.SetTimbering(ThreeLayers(), false);

  const bool accepted = w.SetNHrXsData(-1.0, true);

  EXPECT_FALSE(accepted);
  EXPECT_EQ(w.GetNHrXsData(), 8.7);
  EXPECT_EQ(w.DjCrXs, 0.0);
}

TEST(CQKWallData, SetDjWHrXsDataRefusesZero) {
  CQKWallData w;
  w.SetTimbering(ThreeLayers(), false);

  const bool accepted = w.SetDjWHrXsData(0.0, true);

  EXPECT_FALSE(accepted);
  EXPECT_EQ(w.GetDjWHrXsData(), 23.0);
  EXPECT_EQ(w.DjCrXs, 0.0);
  EXPECT_EQ(w.NCrXs, 0.0);
}

TEST(CQKWallData, SetDjWHrXsDataRefusesANegativeValue) {
  CQKWallData w;
  w.SetTimbering(ThreeLayers(), false);

  const bool accepted = w.SetDjWHrXsData(-23.0, true);

  EXPECT_FALSE(accepted);
  EXPECT_EQ(w.GetDjWHrXsData(), 23.0);
  EXPECT_EQ(w.DjCrXs, 0.0);
}

TEST(CQKWallData, SetWHrXsDataWithoutRecalculationOnlyStores) {
  CQKWallData w;
  w.SetTimbering(ThreeLayers(), false);

  const bool accepted = w.SetWHrXsData(20.0, false);

  EXPECT_TRUE(accepted);
  EXPECT_EQ(w.GetWHrXsData(), 20.0);
  EXPECT_EQ(w.CrXs, 0.0);
}

TEST(CQKWallData, SetWHrXsDataWithRecalculationRunsTheSummerCalculationOnly) {
  CQKWallData w;
  w.SetTimbering(ThreeLayers(), false);

  w.SetWHrXsData(20.0, true);

  EXPECT_NEAR(w.CrXs, 1.0 / (1.0 / 20.0 + kLayersR + 1.0 / 8.7), kTol);
  EXPECT_EQ(w.DjCrXs, 0.0);
}

TEST(CQKWallData, SetDjWHrXsDataWithRecalculationRunsTheWinterCalculationOnly) {
  CQKWallData w;
  w.SetTimbering(ThreeLayers(), false);

  w.SetDjWHrXsData(25.0, true);

  EXPECT_NEAR(w.DjCrXs, 1.0 / (1.0 / 25.0 + kLayersR + 1.0 / 8.7), kTol);
  EXPECT_EQ(w.CrXs, 0.0);
}

TEST(CQKWallData, SetNHrXsDataWithRecalculationRunsWinterAndSummer) {
  CQKWallData w;
  w.SetTimbering(ThreeLayers(), false);

  w.SetNHrXsData(7.5, true);

  EXPECT_NEAR(w.DjCrXs, 1.0 / (1.0 / 23.0 + kLayersR + 1.0 / 7.5), kTol);
  EXPECT_NEAR(w.CrXs, 1.0 / (1.0 / 18.6 + kLayersR + 1.0 / 7.5), kTol);
  EXPECT_NEAR(w.NCrXs, 1.0 / (1.0 / 7.5 + kLayersR + 1.0 / 7.5), kTol);
}

TEST(CQKWallData, SetNHrXsDataWithRecalculationLeavesTheCharacterWithTheSummerValues) {
  CQKWallData w;
  w.SetTimbering(ThreeLayers(), false);

  w.SetNHrXsData(7.5, true);

  EXPECT_EQ(w.GetNHrXs(), 7.5);
  EXPECT_EQ(w.GetWHrXs(), 18.6);
}

// ---- the default wall -----------------------------------------------------------------------------

TEST(CQKWallData, DefaultWallHasOneLayerAndOneName) {
  CQKWallData w;

  w.SetDefaultWall(false);

  EXPECT_EQ(LayerCount(w), 1);
  EXPECT_EQ(NamesOf(w).GetSize(), 1);
}

TEST(CQKWallData, DefaultWallLayerIsMasslessWithConductanceOne) {
  CQKWallData w;

  w.SetDefaultWall(false);

  const CQKLayerArray layers = w.GetTimberingData();
  ASSERT_EQ(layers.GetSize(), 1);
  EXPECT_EQ(layers[0].Thick, 0.0);
  EXPECT_EQ(layers[0].GMD, 0.0);
  EXPECT_EQ(layers[0].BRr, 0.0);
  EXPECT_EQ(layers[0].DrXs, 1.0);
}

TEST(CQKWallData, DefaultWallNCrXsIsOneOverTwoInsideSurfacesAndOne) {
  CQKWallData w;

  w.SetDefaultWall(false);

  EXPECT_NEAR(w.NCrXs, 1.0 / (1.0 / 8.7 + 1.0 + 1.0 / 8.7), kTol);
}

TEST(CQKWallData, DefaultWallIsCalculatedEvenWithoutTheFlag) {
  CQKWallData w;

  w.SetDefaultWall(false);

  EXPECT_NEAR(w.CrXs, 1.0 / (1.0 / 18.6 + 1.0 + 1.0 / 8.7), kTol);
  EXPECT_NEAR(w.DjCrXs, 1.0 / (1.0 / 23.0 + 1.0 + 1.0 / 8.7), kTol);
}

TEST(CQKWallData, SetDefaultWallClearsTheLayersButNotTheNames) {
  CQKWallData w;
  w.SetTimbering(ThreeLayers(), false);

  w.SetDefaultWall(false);

  EXPECT_EQ(LayerCount(w), 1);
  EXPECT_EQ(NamesOf(w).GetSize(), 4);
}

// ---- built from a layer list ----------------------------------------------------------------------

TEST(CQKWallData, WallBuiltFromLayersHasDjCrXsMinusOne) {
  CQKWallData w(ThreeLayers());

  EXPECT_EQ(w.DjCrXs, -1.0);
}

TEST(CQKWallData, WallBuiltFromLayersGetsItsWinterKFromCalOne) {
  CQKWallData w(ThreeLayers());

  w.Cal(1);

  EXPECT_NEAR(w.DjCrXs, 1.0 / (1.0 / 23.0 + kLayersR + 1.0 / 8.7), kTol);
}

TEST(CQKWallData, WallBuiltFromLayersIsCalculatedForSummer) {
  CQKWallData w(ThreeLayers());

  EXPECT_NEAR(w.CrXs, 1.0 / (1.0 / 18.6 + kLayersR + 1.0 / 8.7), kTol);
  EXPECT_NEAR(w.NCrXs, 1.0 / (1.0 / 8.7 + kLayersR + 1.0 / 8.7), kTol);
}

TEST(CQKWallData, WallBuiltFromLayersHoldsLayersAndNamesInOrder) {
  CQKWallData w(ThreeLayers());

  const CQKLayerArray layers = w.GetTimberingData();
  const CLxArray<CQKStuTimeberingName>& names = NamesOf(w);
  ASSERT_EQ(layers.GetSize(), 3);
  ASSERT_EQ(names.GetSize(), 3);
  EXPECT_EQ(layers[0].Thick, 0.24);
  EXPECT_EQ(layers[2].Thick, 0.02);
  EXPECT_EQ(names[0].TimberingName, L"黏土砖");
  EXPECT_EQ(names[2].TimberingName, L"石灰砂浆");
}

// ---- Cal and CalD ---------------------------------------------------------------------------------

TEST(CQKWallData, CalReturnsOk) {
  CQKWallData w;
  w.SetTimbering(ThreeLayers(), false);

  EXPECT_EQ(w.Cal(0), QKLoad::ET_OK);
  EXPECT_EQ(w.Cal(1), QKLoad::ET_OK);
}

TEST(CQKWallData, CalZeroSetsCrXsWithTheSummerOutsideCoefficient) {
  CQKWallData w;
  w.SetTimbering(ThreeLayers(), false);
  w.SetWHrXsData(20.0, false);

  w.Cal(0);

  EXPECT_NEAR(w.CrXs, 1.0 / (1.0 / 20.0 + kLayersR + 1.0 / 8.7), kTol);
}

TEST(CQKWallData, CalZeroSetsNCrXs) {
  CQKWallData w;
  w.SetTimbering(ThreeLayers(), false);
  w.SetNHrXsData(7.5, false);

  w.Cal(0);

  EXPECT_NEAR(w.NCrXs, 1.0 / (1.0 / 7.5 + kLayersR + 1.0 / 7.5), kTol);
}

TEST(CQKWallData, CalZeroHandsTheCoefficientsToTheCharacter) {
  CQKWallData w;
  w.SetTimbering(ThreeLayers(), false);
  w.SetNHrXsData(7.5, false);
  w.SetWHrXsData(20.0, false);

  w.Cal(0);

  EXPECT_EQ(w.GetNHrXs(), 7.5);
  EXPECT_EQ(w.GetWHrXs(), 20.0);
}

TEST(CQKWallData, CalZeroLeavesDjCrXs) {
  CQKWallData w;
  w.SetTimbering(ThreeLayers(), false);

  w.Cal(0);

  EXPECT_EQ(w.DjCrXs, 0.0);
}

TEST(CQKWallData, CalOneSetsDjCrXsWithTheWinterOutsideCoefficient) {
  CQKWallData w;
  w.SetTimbering(ThreeLayers(), false);
  w.SetDjWHrXsData(25.0, false);

  w.Cal(1);

  EXPECT_NEAR(w.DjCrXs, 1.0 / (1.0 / 25.0 + kLayersR + 1.0 / 8.7), kTol);
}

TEST(CQKWallData, CalOneSetsNCrXs) {
  CQKWallData w;
  w.SetTimbering(ThreeLayers(), false);

  w.Cal(1);

  EXPECT_NEAR(w.NCrXs, 1.0 / (1.0 / 8.7 + kLayersR + 1.0 / 8.7), kTol);
}

TEST(CQKWallData, CalOneLeavesCrXs) {
  CQKWallData w;
  w.SetTimbering(ThreeLayers(), false);

  w.Cal(1);

  EXPECT_EQ(w.CrXs, 0.0);
}

TEST(CQKWallData, CalOfAnyOtherModeIsTheWinterCalculation) {
  CQKWallData w;
  w.SetTimbering(ThreeLayers(), false);

  w.Cal(7);

  EXPECT_NEAR(w.DjCrXs, 1.0 / (1.0 / 23.0 + kLayersR + 1.0 / 8.7), kTol);
  EXPECT_EQ(w.CrXs, 0.0);
}

TEST(CQKWallData, CalDIsTheSumOfEachLayersRTimesS) {
  CQKWallData w;
  w.SetTimbering(ThreeLayers(), false);

  const double d = w.CalD();

  const double brick = 0.24 / 0.81 * std::sqrt(kTwoPi * 0.81 * 1.05 * 1800.0 / 86.4);
  const double insulation = 0.05 / 0.04 * std::sqrt(kTwoPi * 0.04 * 1.38 * 30.0 / 86.4);
  const double plaster = 0.02 / 0.87 * std::sqrt(kTwoPi * 0.87 * 1.05 * 1700.0 / 86.4);
  EXPECT_NEAR(d, brick + insulation + plaster, kTol);
}

// ---- thickness for a target U ---------------------------------------------------------------------

TEST(CQKWallData, CurrectThickOnAnEmptyWallReturnsNoLayer) {
  CQKWallData w;
  int index = 5;
  double thickness = 0.123;

  const QKLoad::ErrorType rc = w.CurrectThick(0.5, index, thickness);

  EXPECT_EQ(rc, QKLoad::ET_NOLAYER);
}

TEST(CQKWallData, CurrectThickOnAnEmptyWallGivesIndexMinusOneAndLeavesTheThickness) {
  CQKWallData w;
  int index = 5;
  double thickness = 0.123;

  w.CurrectThick(0.5, index, thickness);

  EXPECT_EQ(index, -1);
  EXPECT_EQ(thickness, 0.123);
}

TEST(CQKWallData, CurrectThickReturnsOkForAWallWithLayers) {
  CQKWallData w(ThreeLayers());
  int index = -1;
  double thickness = 0.0;

  const QKLoad::ErrorType rc = w.CurrectThick(0.5, index, thickness);

  EXPECT_EQ(rc, QKLoad::ET_OK);
}

TEST(CQKWallData, CurrectThickChoosesTheLayerWithTheSmallestConductivity) {
  CQKWallData w(ThreeLayers());
  int index = -1;
  double thickness = 0.0;

  w.CurrectThick(0.5, index, thickness);

  EXPECT_EQ(index, 1);  // insulation
}

TEST(CQKWallData, CurrectThickGivesTheThicknessThatReachesTheTarget) {
  CQKWallData w(ThreeLayers());
  int index = -1;
  double thickness = 0.0;

  w.CurrectThick(0.5, index, thickness);

  const double expected = (1.0 / 0.5 - 0.24 / 0.81 - 0.02 / 0.87 - 1.0 / 18.6 - 1.0 / 8.7) * 0.04;
  EXPECT_NEAR(thickness, expected, kTol);
  // and with it the wall's U is the target
  EXPECT_NEAR(1.0 / (1.0 / 18.6 + 0.24 / 0.81 + thickness / 0.04 + 0.02 / 0.87 + 1.0 / 8.7), 0.5, 1e-12);
}

TEST(CQKWallData, CurrectThickUsesTheInsideCoefficientOfTheWallData) {
  CQKWallData w(ThreeLayers());
  w.SetNHrXsData(7.5, false);  // the character's own NHrXs stays 8.7
  int index = -1;
  double thickness = 0.0;

  w.CurrectThick(0.5, index, thickness);

  EXPECT_NEAR(thickness, (1.0 / 0.5 - 0.24 / 0.81 - 0.02 / 0.87 - 1.0 / 18.6 - 1.0 / 7.5) * 0.04, kTol);
}

TEST(CQKWallData, CurrectThickLeavesTheWallsLayers) {
  CQKWallData w(ThreeLayers());
  int index = -1;
  double thickness = 0.0;

  w.CurrectThick(0.5, index, thickness);

  const CQKLayerArray layers = w.GetTimberingData();
  EXPECT_EQ(layers[0].Thick, 0.24);
  EXPECT_EQ(layers[1].Thick, 0.05);
  EXPECT_EQ(layers[2].Thick, 0.02);
}

TEST(CQKWallData, CurrectDjThickUsesTheWinterOutsideCoefficient) {
  CQKWallData w(ThreeLayers());
  int index = -1;
  double thickness = 0.0;

  w.CurrectDjThick(0.5, index, thickness);

  EXPECT_EQ(index, 1);
  EXPECT_NEAR(thickness, (1.0 / 0.5 - 0.24 / 0.81 - 0.02 / 0.87 - 1.0 / 23.0 - 1.0 / 8.7) * 0.04, kTol);
}

TEST(CQKWallData, CurrectDjThickOnAnEmptyWallReturnsNoLayer) {
  CQKWallData w;
  int index = 5;
  double thickness = 0.123;

  const QKLoad::ErrorType rc = w.CurrectDjThick(0.5, index, thickness);

  EXPECT_EQ(rc, QKLoad::ET_NOLAYER);
  EXPECT_EQ(index, -1);
  EXPECT_EQ(thickness, 0.123);
}

// ---- layers and materials side by side ------------------------------------------------------------

TEST(CQKWallData, AddTimberingDataAppendsTheLayerAndItsMaterial) {
  CQKWallData w;
  w.AddTimberingData(Brick(), false);

  w.AddTimberingData(Insulation(), false);

  const CQKLayerArray layers = w.GetTimberingData();
  const CLxArray<CQKStuTimeberingName>& names = NamesOf(w);
  ASSERT_EQ(layers.GetSize(), 2);
  ASSERT_EQ(names.GetSize(), 2);
  EXPECT_EQ(layers[1].DrXs, 0.04);
  EXPECT_EQ(names[1].TimberingID, 2);
  EXPECT_EQ(names[1].TimberingName, L"聚苯板");
}

TEST(CQKWallData, AddTimberingDataWithoutRecalculationLeavesTheResults) {
  CQKWallData w;

  w.AddTimberingData(Brick(), false);

  EXPECT_EQ(w.CrXs, 0.0);
  EXPECT_EQ(w.DjCrXs, 0.0);
  EXPECT_EQ(w.NCrXs, 0.0);
}

TEST(CQKWallData, AddTimberingDataWithRecalculationRunsWinterAndSummer) {
  CQKWallData w;

  w.AddTimberingData(Brick(), true);

  EXPECT_NEAR(w.CrXs, 1.0 / (1.0 / 18.6 + 0.24 / 0.81 + 1.0 / 8.7), kTol);
  EXPECT_NEAR(w.DjCrXs, 1.0 / (1.0 / 23.0 + 0.24 / 0.81 + 1.0 / 8.7), kTol);
  EXPECT_NEAR(w.NCrXs, 1.0 / (1.0 / 8.7 + 0.24 / 0.81 + 1.0 / 8.7), kTol);
}

TEST(CQKWallData, SetTimberingReplacesBothLayersAndMaterials) {
  CQKWallData w;
  w.SetTimbering(ThreeLayers(), false);

  w.SetTimbering(OneLayer(Plaster()), false);

  const CQKLayerArray layers = w.GetTimberingData();
  ASSERT_EQ(layers.GetSize(), 1);
  ASSERT_EQ(NamesOf(w).GetSize(), 1);
  EXPECT_EQ(layers[0].Thick, 0.02);
  EXPECT_EQ(NamesOf(w)[0].TimberingID, 3);
}

TEST(CQKWallData, SetTimberingWithRecalculationRunsWinterAndSummer) {
  CQKWallData w;

  w.SetTimbering(ThreeLayers(), true);

  EXPECT_NEAR(w.CrXs, 1.0 / (1.0 / 18.6 + kLayersR + 1.0 / 8.7), kTol);
  EXPECT_NEAR(w.DjCrXs, 1.0 / (1.0 / 23.0 + kLayersR + 1.0 / 8.7), kTol);
}

TEST(CQKWallData, GetTimberingPairsEachLayerWithItsMaterial) {
  CQKWallData w;
  w.SetTimbering(ThreeLayers(), false);

  const CLxArray<CQKTimberingData> layers = w.GetTimbering();

  ASSERT_EQ(layers.GetSize(), 3);
  EXPECT_EQ(layers[0].GetThick(), 0.24);
  EXPECT_EQ(layers[0].GetStuffName(), L"黏土砖");
  EXPECT_EQ(layers[1].GetDrXs(), 0.04);
  EXPECT_EQ(layers[1].GetStuffID(), 2);
  EXPECT_EQ(layers[2].GetGMD(), 1700.0);
  EXPECT_EQ(layers[2].GetStuffName(), L"石灰砂浆");
}

// ---- Init -----------------------------------------------------------------------------------------

TEST(CQKWallData, InitResetsTheWall) {
  CQKWallData w = FullWall();

  w.Init();

  EXPECT_EQ(w.ID, 0);
  EXPECT_TRUE(w.Name.IsEmpty());
  EXPECT_EQ(w.GetNHrXsData(), 8.7);
  EXPECT_EQ(w.GetWHrXsData(), 18.6);
  EXPECT_EQ(w.GetDjWHrXsData(), 23.0);
  EXPECT_EQ(w.CrXs, 0.0);
  EXPECT_EQ(w.CrSj, 0.0);
  EXPECT_EQ(w.CrYc, 0.0);
  EXPECT_EQ(w.DjCrXs, 0.0);
  EXPECT_EQ(w.NCrXs, 0.0);
  EXPECT_EQ(LayerCount(w), 0);
  EXPECT_EQ(NamesOf(w).GetSize(), 0);
}

// ---- ordered stream -------------------------------------------------------------------------------

TEST(CQKWallData, StreamRoundTripKeepsTheWholeWall) {
  CQKWallData out = FullWall();
  CADataStream stream;
  out.DataOutPut(stream);
  CQKWallData in;

  const ADataDef::ErrorCode rc = in.DataInPut(stream);

  EXPECT_EQ(rc, ADataDef::AD_OK);
  ExpectFullWall(in);
}

TEST(CQKWallData, StreamHoldsTheWallFieldsAndMaterialsAfterTheLayers) {
  CQKWallData out = FullWall();
  CADataStream stream;

  out.DataOutPut(stream);

  // 147 results, NHrXs, WHrXs, the count, 3 layers of version + 18 doubles + roughness
  ASSERT_TRUE(stream.Seek(147 * 8 + 8 + 8 + 4 + 3 * (4 + 18 * 8 + 4)));
  int id = 0, count = 0, firstId = 0;
  CString name, firstName;
  double dj = 0.0, n = 0.0, an = 0.0, aw = 0.0, djAw = 0.0;
  stream.ReadItem(&id);
  stream.ReadItem(&name);
  stream.ReadItem(&dj);
  stream.ReadItem(&n);
  stream.ReadItem(&an);
  stream.ReadItem(&aw);
  stream.ReadItem(&djAw);
  stream.ReadItem(&count);
  stream.ReadItem(&firstId);
  stream.ReadItem(&firstName);
  EXPECT_EQ(id, 17);
  EXPECT_EQ(name, L"外墙一");
  EXPECT_EQ(dj, 0.63);
  EXPECT_EQ(n, 0.55);
  EXPECT_EQ(an, 7.5);
  EXPECT_EQ(aw, 20.0);
  EXPECT_EQ(djAw, 25.0);
  EXPECT_EQ(count, 3);
  EXPECT_EQ(firstId, 1);
  EXPECT_EQ(firstName, L"黏土砖");
}

TEST(CQKWallData, StreamReadingAppendsLayersAndMaterials) {
  CQKWallData out;
  out.SetTimbering(ThreeLayers(), false);
  CADataStream stream;
  out.DataOutPut(stream);
  CQKWallData in;
  in.SetTimbering(OneLayer(Brick()), false);

  in.DataInPut(stream);

  EXPECT_EQ(LayerCount(in), 4);
  EXPECT_EQ(NamesOf(in).GetSize(), 4);
}

// ---- named exchange -------------------------------------------------------------------------------

TEST(CQKWallData, ExchangeWritesTheWallNamesAfterTheCharacterNames) {
  CQKWallData w;  // no materials
  CAMemoryDataProp store;

  w.DataOutPro(CADataExchange(store));

  // "An" and "Aw" are written twice, keeping their first place
  EXPECT_EQ(Names(store), (std::vector<std::wstring>{L"CrXs", L"CrSj", L"CrYc", L"An", L"Aw", L"ID", L"Name",
                                                      L"DjCrXs", L"NCrXs", L"DjAw"}));
}

TEST(CQKWallData, ExchangeReadGivesBothCopiesOfAnTheSameValue) {
  CAMemoryDataProp store;
  CADataExchange exchange(store);
  exchange.WriteItem(L"An", 7.5);
  CQKWallData w;

  w.DataInPro(exchange);

  EXPECT_EQ(w.GetNHrXs(), 7.5);
  EXPECT_EQ(w.GetNHrXsData(), 7.5);
}

TEST(CQKWallData, ExchangeReadGivesBothCopiesOfAwTheSameValue) {
  CAMemoryDataProp store;
  CADataExchange exchange(store);
  exchange.WriteItem(L"Aw", 20.0);
  CQKWallData w;

  w.DataInPro(exchange);

  EXPECT_EQ(w.GetWHrXs(), 20.0);
  EXPECT_EQ(w.GetWHrXsData(), 20.0);
}

TEST(CQKWallData, ExchangeRoundTripKeepsTheWallFields) {
  CQKWallData out = FullWall();
  CAMemoryDataProp store;
  out.DataOutPro(CADataExchange(store));
  CQKWallData in;

  in.DataInPro(CADataExchange(store));

  EXPECT_EQ(in.ID, 17);
  EXPECT_EQ(in.Name, L"外墙一");
  EXPECT_EQ(in.DjCrXs, 0.63);
  EXPECT_EQ(in.NCrXs, 0.55);
  EXPECT_EQ(in.GetDjWHrXsData(), 25.0);
  EXPECT_EQ(in.CrXs, 0.61);
}

TEST(CQKWallData, ExchangeWritesEachMaterialsIdAndName) {
  CQKWallData w;
  w.SetTimbering(OneLayer(Insulation()), false);
  CAMemoryDataProp store;
  CADataExchange exchange(store);

  w.DataOutPro(exchange);

  int id = 0;
  CString name;
  ASSERT_EQ(exchange.ReadItem(L"TimberingID", &id), 0);
  ASSERT_EQ(exchange.ReadItem(L"TimberingName", &name), 0);
  EXPECT_EQ(id, 2);
  EXPECT_EQ(name, L"聚苯板");
  EXPECT_EQ(Names(store).back(), L"TimberingName");
}

TEST(CQKWallData, ExchangeReadFillsTheMaterialsHeld) {
  CAMemoryDataProp store;
  CADataExchange exchange(store);
  exchange.WriteItem(L"TimberingID", 9);
  exchange.WriteItem(L"TimberingName", CString(L"岩棉板"));
  CQKWallData w;
  w.SetTimbering(OneLayer(Brick()), false);

  w.DataInPro(exchange);

  ASSERT_EQ(NamesOf(w).GetSize(), 1);
  EXPECT_EQ(NamesOf(w)[0].TimberingID, 9);
  EXPECT_EQ(NamesOf(w)[0].TimberingName, L"岩棉板");
}

TEST(CQKWallData, ExchangeReadAddsNoMaterials) {
  CAMemoryDataProp store;
  CADataExchange exchange(store);
  exchange.WriteItem(L"TimberingID", 9);
  CQKWallData w;

  w.DataInPro(exchange);

  EXPECT_EQ(NamesOf(w).GetSize(), 0);
}

// ---- copies and creation by name ------------------------------------------------------------------

TEST(CQKWallData, CopyFromAnUnrelatedValueReturns23) {
  CQKWallData w;
  CQKTimberingData layer = Brick();

  const ADataDef::ErrorCode rc = w.Copy(&layer);

  EXPECT_EQ(rc, 23);
}

TEST(CQKWallData, CopyFromAnUnrelatedValueLeavesTheWall) {
  CQKWallData w = FullWall();
  CQKTimberingData layer = Brick();

  w.Copy(&layer);

  ExpectFullWall(w);
}

TEST(CQKWallData, CopyFromAnotherWallGivesItsContent) {
  CQKWallData source = FullWall();
  CQKWallData target;

  const ADataDef::ErrorCode rc = target.Copy(&source);

  EXPECT_EQ(rc, ADataDef::AD_OK);
  ExpectFullWall(target);
}

TEST(CQKWallData, CopyOntoAWallWithLayersEndsWithExactlyTheSourceLayers) {
  CQKWallData source = FullWall();
  CQKWallData target;
  target.SetTimbering(OneLayer(Brick()), true);
  target.AddTimberingData(Plaster(), false);

  target.Copy(&source);

  ExpectFullWall(target);
}

TEST(CQKWallData, CopyIsIndependentOfItsSource) {
  CQKWallData source = FullWall();
  CQKWallData target;
  target.Copy(&source);

  source.SetTimbering(OneLayer(Brick()), false);
  source.ID = 99;

  ExpectFullWall(target);
}

TEST(CQKWallData, CloneIsAWallWithTheSameContent) {
  CQKWallData source = FullWall();

  std::unique_ptr<CAData> clone(source.Clone());

  auto* wall = dynamic_cast<CQKWallData*>(clone.get());
  ASSERT_NE(wall, nullptr);
  ExpectFullWall(*wall);
}

TEST(CQKWallData, IsCreatedByClassName) {
  std::unique_ptr<CObject> created(CRuntimeClass::CreateObject("CQKWallData"));

  auto* wall = dynamic_cast<CQKWallData*>(created.get());
  ASSERT_NE(wall, nullptr);
  EXPECT_EQ(wall->GetDjWHrXsData(), 23.0);
  EXPECT_EQ(LayerCount(*wall), 0);
}

TEST(CQKWallData, ANameCountTheStreamCannotHoldIsRefused) {
  CQKWallData out;
  out.SetTimbering(OneLayer(Brick()), false);
  CADataStream stream;
  out.DataOutPut(stream);
  // Replace the trailing name count and its one name by a count of a million and nothing after it.
  std::vector<std::uint8_t> bytes = stream.GetBytes();
  CQKStuTimeberingName name = out.GetTimbering()[0].GetTimberNameStruct();
  CADataStream nameBytes;
  name.DataOutPut(nameBytes);
  bytes.resize(bytes.size() - nameBytes.GetSize() - 4);
  const std::uint32_t huge = 1000000;
  for (int i = 0; i < 4; ++i) bytes.push_back(static_cast<std::uint8_t>(huge >> (8 * i)));
  CADataStream damaged(bytes.data(), bytes.size());
  CQKWallData in;
  EXPECT_EQ(in.DataInPut(damaged), ADataDef::AD_BADCOUNT);
  EXPECT_EQ(in.GetTimbering().GetSize(), 1);  // the layer was read before the names
}

TEST(CQKWallData, ALayerOfNegativeConductivityEndsTheCalculationWithFiniteU) {
  // R·C·δ < 0 makes the root search meet a non-finite step: it must stop, not loop.
  CQKWallData w;
  w.AddTimberingData(Brick(), false);
  w.AddTimberingData(Layer(0.02, -0.87, 1700.0, 1.05, 4, L"负"), false);
  EXPECT_EQ(w.Cal(0), QKLoad::ET_OK);
  const double r = 1.0 / 18.6 + 0.24 / 0.81 - 0.02 / 0.87 + 1.0 / 8.7;
  EXPECT_NEAR(w.CrXs, 1.0 / r, 1e-12);
}
