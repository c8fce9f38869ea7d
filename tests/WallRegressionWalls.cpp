#include "WallRegressionWalls.h"

#include <string>
#include <vector>

#include "construction/CQKTimberingData.h"
#include "construction/tagQKTIMBERINGCHARACTER.h"

namespace {

// Materials: (thickness) → layer. Specific heats of the atlas and ASHRAE rows are given there in
// J/(kg·K) and written here in kJ/(kg·K).
RegressionLayer Steel(double t) { return {t, 58.2, 7850.0, 0.48}; }
RegressionLayer Polyurethane(double t) { return {t, 0.033, 40.0, 1.38}; }
RegressionLayer CementMortar(double t) { return {t, 0.93, 1800.0, 1.05}; }
RegressionLayer Brick(double t) { return {t, 0.81, 1800.0, 1.05}; }
RegressionLayer LimePlaster(double t) { return {t, 0.81, 1600.0, 1.05}; }
RegressionLayer Concrete(double t) { return {t, 1.74, 2500.0, 0.92}; }
// Expanded polystyrene with its conductivity corrected by 1.2 (ageing, moisture).
RegressionLayer CorrectedEps(double t) { return {t, 0.041, 20.0, 1.38, 1.2}; }
RegressionLayer Xps(double t) { return {t, 0.030, 30.0, 1.38}; }
// Mineral wool with a density correction of 1.1, so the capacity carries a correction too.
RegressionLayer MineralWool(double t) { return {t, 0.045, 100.0, 0.75, 1.0, 1.1}; }
RegressionLayer GypsumBoard(double t) { return {t, 0.33, 1050.0, 1.05}; }
// An air gap of resistance r: mass-less, its conductance in the conductivity field. Its thickness
// is ignored by the calculation; some gaps below carry one on purpose.
RegressionLayer AirGap(double thick, double r) { return {thick, 1.0 / r, 0.0, 0.0}; }

// data/materials_09j908_3_gudaostudio.csv
RegressionLayer AtlasCrackResistantMortar(double t) { return {t, 0.87, 1700.0, 1.05}; }
RegressionLayer AtlasEps(double t) { return {t, 0.041, 20.0, 1.38}; }
RegressionLayer AtlasXps(double t) { return {t, 0.03, 28.0, 1.38}; }
RegressionLayer AtlasPuBoard(double t) { return {t, 0.03, 30.0, 1.38}; }
RegressionLayer AtlasPolystyreneMortar(double t) { return {t, 0.059, 230.0, 1.11}; }
RegressionLayer AtlasClayPorousBrick(double t) { return {t, 0.64, 1400.0, 1.1062}; }
RegressionLayer AtlasAeratedConcrete(double t) { return {t, 0.2, 600.0, 1.05}; }
RegressionLayer AtlasReinforcedConcrete(double t) { return {t, 1.74, 2500.0, 0.92}; }
RegressionLayer AtlasCementMortar(double t) { return {t, 0.93, 1800.0, 1.062}; }
RegressionLayer AtlasGypsumPlaster(double t) { return {t, 0.76, 1500.0, 1.05}; }

// data/materials_ashrae_hof_2005.csv
RegressionLayer AshraeMetalSurface() { return {0.0008, 45.28, 7824.0, 0.5}; }
RegressionLayer AshraeInsulationBoard50() { return {0.0508, 0.03, 43.0, 1.21}; }
RegressionLayer AshraeWallAirSpace() { return AirGap(0.0, 0.15); }
RegressionLayer AshraeCeilingAirSpace() { return AirGap(0.0, 0.18); }
RegressionLayer AshraeGypsumBoard19() { return {0.019, 0.16, 800.0, 1.09}; }
RegressionLayer AshraeBrick100() { return {0.1016, 0.89, 1920.0, 0.79}; }
RegressionLayer AshraeHeavyConcrete100() { return {0.1016, 1.95, 2240.0, 0.9}; }
RegressionLayer AshraeHeavyConcrete200() { return {0.2032, 1.95, 2240.0, 0.9}; }
RegressionLayer AshraeAcousticTile() { return {0.0191, 0.06, 368.0, 0.59}; }
RegressionLayer AshraeSlateOrTile() { return {0.0127, 1.59, 1920.0, 1.26}; }

std::vector<RegressionLayer> SprayedPuOnConcrete() {
  return {AtlasCrackResistantMortar(0.05), AtlasPolystyreneMortar(0.03), AtlasPuBoard(0.03),
          AtlasReinforcedConcrete(0.2), AtlasGypsumPlaster(0.07)};
}

std::vector<RegressionLayer> FortyThinLayers() {
  std::vector<RegressionLayer> layers;
  for (int i = 0; i < 20; ++i) {
    layers.push_back(CementMortar(0.01));
    layers.push_back(CorrectedEps(0.01));
  }
  return layers;
}

std::vector<RegressionLayer> Reversed(std::vector<RegressionLayer> layers) { return {layers.rbegin(), layers.rend()}; }

}  // namespace

std::vector<RegressionWall> RegressionWalls() {
  std::vector<RegressionWall> walls = {
      // The three walls of bench/WallBench.cpp.
      {"light_steel_sandwich", {Steel(0.0006), Polyurethane(0.100), Steel(0.0006)}},
      {"medium_brick_240", {CementMortar(0.020), Brick(0.240), LimePlaster(0.020)}},
      {"heavy_concrete_600", {CementMortar(0.020), Concrete(0.600), LimePlaster(0.020)}},
      // One layer.
      {"single_brick_240", {Brick(0.24)}},
      // data/constructions_09j908_3_gudaostudio.csv: p17 K0.22, p46 K0.52 (five layers), p26 K0.19.
      {"atlas_eps_on_porous_brick",
       {AtlasCrackResistantMortar(0.05), AtlasEps(0.16), AtlasClayPorousBrick(0.24), AtlasCementMortar(0.14)}},
      {"atlas_sprayed_pu_on_concrete", SprayedPuOnConcrete()},
      {"atlas_xps_on_aerated_concrete",
       {AtlasCrackResistantMortar(0.05), AtlasXps(0.11), AtlasAeratedConcrete(0.25), AtlasGypsumPlaster(0.1)}},
      // data/constructions_ashrae_hof_2005.csv, with their air spaces. The partition has a room on
      // both faces.
      {"ashrae_light_exterior_wall",
       {AshraeMetalSurface(), AshraeInsulationBoard50(), AshraeWallAirSpace(), AshraeGypsumBoard19()}},
      {"ashrae_heavy_exterior_wall",
       {AshraeBrick100(), AshraeHeavyConcrete200(), AshraeInsulationBoard50(), AshraeWallAirSpace(),
        AshraeGypsumBoard19()}},
      {"ashrae_medium_roof", {AshraeHeavyConcrete100(), AshraeCeilingAirSpace(), AshraeAcousticTile()}},
      {"ashrae_light_partition",
       {AshraeGypsumBoard19(), AshraeWallAirSpace(), AshraeGypsumBoard19()},
       8.7,
       8.7,
       8.7},
      // Extremes: one very thin, very conductive layer; one very thick layer (gravel concrete of
      // data/materials_cn_gb50176_93_era.csv); a very low conductivity.
      {"thin_steel_sheet_1mm", {Steel(0.001)}},
      {"thick_gravel_concrete_1000", {{1.0, 1.51, 2300.0, 0.92}}},
      {"low_conductivity_eps_300", {CementMortar(0.005), CorrectedEps(0.30), CementMortar(0.005)}},
      // Corrections on conductivity and density, and an air gap that has a thickness.
      {"dry_lined_brick_with_gap",
       {CementMortar(0.02), Brick(0.24), AirGap(0.05, 0.18), MineralWool(0.05), GypsumBoard(0.012)}},
      // Ten layers with an air gap at each face: next to the inside surface as on either side.
      {"ten_layers_gaps_at_both_faces",
       {AirGap(0.03, 0.15), AshraeSlateOrTile(), CementMortar(0.02), Brick(0.12), Xps(0.05), Concrete(0.16),
        MineralWool(0.04), GypsumBoard(0.0127), LimePlaster(0.015), AirGap(0.04, 0.18)}},
      // More layers than the calculation keeps without the heap.
      {"forty_thin_layers", FortyThinLayers()},
      // Other surface coefficients (a roof: a larger inside one, a windier outside).
      {"brick_other_coefficients", {CementMortar(0.020), Brick(0.240), LimePlaster(0.020)}, 12.0, 19.0, 25.0},
      // The same layers from the other face.
      {"internally_insulated_concrete", {CementMortar(0.02), Concrete(0.20), CorrectedEps(0.08), CementMortar(0.02)}},
      {"atlas_sprayed_pu_from_inside", Reversed(SprayedPuOnConcrete())},
  };
  return walls;
}

CQKWallData MakeRegressionWall(const RegressionWall& wall) {
  CQKWallData result;
  result.SetNHrXsData(wall.inside, false);
  result.SetWHrXsData(wall.outsideSummer, false);
  result.SetDjWHrXsData(wall.outsideWinter, false);
  for (const RegressionLayer& l : wall.layers) {
    tagQKTIMBERINGCHARACTER values;
    values.Thick = l.thick;
    values.DrXs = l.conductivity;
    values.GMD = l.density;
    values.BRr = l.specificHeat;
    values.DrXsXz = l.conductivityCorrection;
    values.GMCXz = l.densityCorrection;
    CQKTimberingData layer;
    layer.SetTimberData(values);
    result.AddTimberingData(layer, false);
  }
  return result;
}

namespace {

void AppendArray(const char* name, const double* values, int count, std::vector<RegressionResult>& out) {
  for (int i = 0; i < count; ++i) out.push_back({std::string(name) + "[" + std::to_string(i) + "]", values[i]});
}

}  // namespace

void AppendCharacterResults(const tagQKWALL& results, std::vector<RegressionResult>& out) {
  out.push_back({"CrXs", results.CrXs});
  out.push_back({"CrSj", results.CrSj});
  out.push_back({"CrYc", results.CrYc});
  AppendArray("Harmonic1", results.Harmonic1, 12, out);
  AppendArray("Harmonic2", results.Harmonic2, 12, out);
  AppendArray("Harmonic3", results.Harmonic3, 12, out);
  AppendArray("Harmonic4", results.Harmonic4, 12, out);
  AppendArray("Response1", results.Response1, 24, out);
  AppendArray("Response2", results.Response2, 24, out);
  AppendArray("Response3", results.Response3, 24, out);
  AppendArray("Response4", results.Response4, 24, out);
}

std::vector<RegressionResult> CalculatedResults(CQKWallData& wall) {
  wall.Cal(1);
  wall.Cal(0);
  std::vector<RegressionResult> out;
  AppendCharacterResults(wall, out);
  out.push_back({"DjCrXs", wall.DjCrXs});
  out.push_back({"NCrXs", wall.NCrXs});
  out.push_back({"D", wall.CalD()});
  int index = -1;
  double thickness = 0.0;
  wall.CurrectThick(0.5, index, thickness);
  out.push_back({"CurrectThick.index", static_cast<double>(index)});
  out.push_back({"CurrectThick.thickness", thickness});
  wall.CurrectDjThick(0.5, index, thickness);
  out.push_back({"CurrectDjThick.index", static_cast<double>(index)});
  out.push_back({"CurrectDjThick.thickness", thickness});
  return out;
}
