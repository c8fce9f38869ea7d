// examples/wall.cpp
// A wall built in code, no database needed: 20 mm cement mortar outside, 240 mm clay brick, 20 mm lime
// plaster inside (docs/examples/plastered-brick-wall.json), computed with the standard surface
// coefficients: U, the thermal inertia index D, the decrement factor and the time lag of the daily wave.

#include <cmath>
#include <cstdio>

#include "construction/CQKTimberingData.h"
#include "construction/CQKWallData.h"
#include "foundation/CLxArray.h"
#include "mfc/CString.h"

namespace {

// Thickness m, conductivity W/(m·K), density kg/m³, heat capacity kJ/(kg·K).
CQKTimberingData Layer(const wchar_t* name, double thickness, double conductivity, double density, double heat) {
  CQKTimberingData layer;
  layer.SetStuffName(name);
  layer.SetThick(thickness);
  layer.SetDrXs(conductivity);
  layer.SetGMD(density);
  layer.SetBRr(heat);
  return layer;
}

}  // namespace

int main() {
  CQKWallData wall;  // surface coefficients 8.7 inside, 18.6 outside in summer, 23.0 in winter, W/(m²·K)
  // Each layer goes inside the ones added before it; the last call computes winter, then summer.
  wall.AddTimberingData(Layer(L"水泥砂浆", 0.02, 0.93, 1800.0, 1.05), false);
  wall.AddTimberingData(Layer(L"重砂浆砌筑黏土砖砌体", 0.24, 0.81, 1800.0, 1.05), false);
  wall.AddTimberingData(Layer(L"石灰砂浆", 0.02, 0.81, 1600.0, 1.05), true);
  if (!(wall.CrXs > 0.0) || !std::isfinite(wall.CrSj) || !std::isfinite(wall.CrYc)) {
    std::fprintf(stderr, "wall: the calculation gave no usable result\n");
    return 1;
  }

  const CLxArray<CQKTimberingData> layers = wall.GetTimbering();
  for (int i = 0; i < layers.GetSize(); ++i)
    std::printf("layer %d: %s, %.0f mm\n", i + 1, layers[i].GetStuffName().ToUtf8().c_str(),
                layers[i].GetThick() * 1000.0);
  std::printf("U: %.3f W/(m²·K) in summer, %.3f W/(m²·K) in winter\n", wall.CrXs, wall.DjCrXs);
  std::printf("thermal inertia index D: %.2f\n", wall.CalD());
  std::printf("decrement factor: %.3f\n", wall.CrSj);
  std::printf("time lag: %.1f h\n", wall.CrYc);
  return 0;
}
