#include "commands/wall/WallReport.h"

#include <string>
#include <vector>

#include "answers/wall/WallAnswer.h"
#include "text/Output.h"

namespace qkdb {

namespace {

using Rows = std::vector<std::vector<std::string>>;

void PrintLayers(std::ostream& out, const CLxArray<CQKTimberingData>& layers) {
  Rows rows{{"i", "Layer", "d m", "λ W/(m·K)", "ρ kg/m³", "c kJ/(kg·K)", "R m²·K/W", "D"}};
  double thickness = 0.0;
  for (int i = 0; i < layers.GetSize(); ++i) {
    const tagQKTIMBERINGCHARACTER layer = layers[i].GetTimberData();
    const bool massless = IsMassless(layer);
    if (!massless) thickness += layer.Thick;
    const std::string name = layers[i].GetStuffName().ToUtf8();
    rows.push_back({std::to_string(i), name.empty() ? "—" : name,
                    massless ? "—" : Fixed(layer.Thick, 3),
                    // A mass-less layer's conductivity field is its conductance, which R shows.
                    massless ? "—" : Number(layer.DrXs * layer.DrXsXz), Number(layer.GMD * layer.GMCXz),
                    Number(layer.BRr), Fixed(LayerResistance(layer), 3), massless ? "—" : Fixed(layer.GetD(), 2)});
  }
  out << layers.GetSize() << " layers, " << Fixed(thickness, 3)
      << " m, outside first (i counts from 0, as \"thickness --layer\" does; λ and ρ corrected):\n";
  PrintColumns(out, rows);
}

void PrintFigures(std::ostream& out, const CQKWallData& wall) {
  double layersR = 0.0;
  const CQKLayerArray layers = wall.GetTimberingData();
  for (int i = 0; i < layers.GetSize(); ++i) layersR += LayerResistance(layers[i]);
  const std::string inside = Number(wall.GetNHrXsData());
  const std::string outside = Number(wall.GetWHrXsData());
  const std::string winter = Number(wall.GetDjWHrXsData());
  out << "Surface coefficients, W/(m²·K): α_i " << inside << " inside; α_e " << outside << " outside in summer, "
      << winter << " in winter.\n";
  const Rows rows{
      {"Thermal resistance of the layers R", Fixed(layersR, 3) + " m²·K/W"},
      {"Heat transfer coefficient U, summer (α_e " + outside + ")", Fixed(wall.CrXs, 3) + " W/(m²·K)"},
      {"Heat transfer coefficient U, winter (α_e " + winter + ")", Fixed(wall.DjCrXs, 3) + " W/(m²·K)"},
      {"Heat transfer coefficient U, between rooms (α_i " + inside + " on both faces)", Fixed(wall.NCrXs, 3) + " W/(m²·K)"},
      {"Thermal inertia index D = Σ R·S24", Fixed(wall.CalD(), 2)},
      {"Decrement factor f (ISO 13786, daily wave, summer)", Fixed(wall.CrSj, 4)},
      {"Time shift of f (ISO 13786)", Fixed(wall.CrYc, 2) + " h"},
      {"衰减倍数 ν = α_i/(f·U) (GB 50176: outside air over inside surface)", Fixed(Nu(wall), 2)},
      {"延迟时间 ξ (GB 50176: inside surface behind outside air)", Fixed(wall.CrYc, 2) + " h"},
  };
  PrintColumns(out, rows);
}

void PrintResponses(std::ostream& out, const CQKWallData& wall) {
  out << "Hourly response terms of the summer wall to a one-hour triangular pulse outside, periodic over 24 h:\n"
         "  inside: of the inside surface; through: through the wall, over U (the 24 sum to 1);\n"
         "  ramp and step: of the inside surface to the ramp and step sums.\n";
  Rows rows{{"h", "inside", "through", "ramp", "step"}};
  for (int j = 0; j < 24; ++j)
    rows.push_back({std::to_string(j), Fixed(wall.Response1[j], 6), Fixed(wall.Response2[j], 6),
                    Fixed(wall.Response3[j], 6), Fixed(wall.Response4[j], 6)});
  PrintColumns(out, rows);
}

}  // namespace

void PrintWallReport(std::ostream& out, const CQKWallData& wall) {
  if (!wall.Name.IsEmpty()) out << "Wall " << Quoted(wall.Name.ToUtf8()) << "\n";
  CQKWallData copy = wall;  // the layers with their names come only from a non-const call
  PrintLayers(out, copy.GetTimbering());
  out << "\n";
  PrintFigures(out, wall);
  out << "\n";
  PrintResponses(out, wall);
  out << "\nThe delays are the same quantity: the inside surface follows the heat flux through α_i. Both "
         "come\nfrom the wall's exact transfer matrix, not GB 50176's approximate formulas. --json prints every "
         "digit.\n";
}

}  // namespace qkdb
