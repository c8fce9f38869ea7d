// What "qkdb wall" reports by default, GB 50176's 衰减倍数 against a calculation by hand, the layer
// "qkdb thickness --layer" resizes, and the values both commands refuse as typed in another unit.

#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <complex>
#include <cstdio>
#include <fstream>
#include <nlohmann/json.hpp>
#include <numbers>
#include <string>
#include <vector>

#include "QkdbRun.h"

namespace {

using nlohmann::json;

// Runs "qkdb args" with input on standard input, from a file of this test's own.
ToolRun WithInput(const std::string& args, const std::string& input) {
  const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
  const std::string path = testing::TempDir() + "qkdb_" + test->name() + "_" + std::to_string(getpid()) + ".json";
  std::ofstream(path, std::ios::binary) << input;
  ToolRun run = RunShell("\"$QKDB\" " + args + " <'" + path + "'");
  std::remove(path.c_str());
  return run;
}

std::string Decimals(double v, int decimals) {
  char text[64];
  std::snprintf(text, sizeof text, "%.*f", decimals, v);
  return text;
}

// The README's wall (docs/examples/plastered-brick-wall.json): cement mortar, brick, lime plaster.
const char* kPlasteredBrick = R"({"inside": 8.7, "outside": 18.6, "outside_winter": 23.0, "layers": [
  {"name": "水泥砂浆", "thickness": 0.02, "conductivity": 0.93, "density": 1800, "specific_heat": 1.05},
  {"name": "重砂浆砌筑黏土砖砌体", "thickness": 0.24, "conductivity": 0.81, "density": 1800, "specific_heat": 1.05},
  {"name": "石灰砂浆", "thickness": 0.02, "conductivity": 0.81, "density": 1600, "specific_heat": 1.05}]})";

struct Layer {
  double d, lambda, rho, c;  // m, W/(m·K), kg/m³, J/(kg·K)
};

using Complex = std::complex<double>;
struct Matrix {
  Complex a, b, c, d;  // [[a, b], [c, d]]
};
Matrix operator*(const Matrix& x, const Matrix& y) {
  return {x.a * y.a + x.b * y.c, x.a * y.b + x.b * y.d, x.c * y.a + x.d * y.c, x.c * y.b + x.d * y.d};
}

// ISO 13786's heat transfer matrix of a wall for the daily period, written out here from the
// standard's formulas (periodic penetration depth δ = √(λT/(πρc)), ξ = d/δ), not from the library.
// Returns |Z_12|, the modulus of the element that links the outside temperature to the inside flux.
double TransferModulus(const std::vector<Layer>& layers, double inside, double outside) {
  const double period = 86400.0;  // s
  const Matrix insideSurface{1.0, -1.0 / inside, 0.0, 1.0};
  const Matrix outsideSurface{1.0, -1.0 / outside, 0.0, 1.0};
  Matrix m = insideSurface;
  for (auto it = layers.rbegin(); it != layers.rend(); ++it) {
    const double delta = std::sqrt(it->lambda * period / (std::numbers::pi * it->rho * it->c));
    const Complex k = Complex(1.0, 1.0) * (it->d / delta);
    const Complex z = Complex(1.0, 1.0) * it->lambda / delta;
    m = m * Matrix{std::cosh(k), -std::sinh(k) / z, -z * std::sinh(k), std::cosh(k)};
  }
  m = m * outsideSurface;
  return std::abs(m.b);
}

}  // namespace

// ν = α_i·|Z_12| = α_i/(f·U), since f·U = 1/|Z_12|. The README wall gives 15.8, where 1/f is 3.55.
// Both sides evaluate the same closed form in doubles, so they agree to rounding: 1e-9 relative.
TEST(QkdbWallReport, NuOfTheReadmeWallIsTheHandCalculatedOne) {
  const std::vector<Layer> layers{{0.02, 0.93, 1800, 1050}, {0.24, 0.81, 1800, 1050}, {0.02, 0.81, 1600, 1050}};
  const double byHand = 8.7 * TransferModulus(layers, 8.7, 18.6);
  const double u = 1.0 / (1.0 / 18.6 + 0.02 / 0.93 + 0.24 / 0.81 + 0.02 / 0.81 + 1.0 / 8.7);
  const ToolRun run = WithInput("wall --json", kPlasteredBrick);
  ASSERT_EQ(run.status, 0) << run.err;
  const json out = json::parse(run.out);
  EXPECT_NEAR(out["nu"].get<double>(), byHand, byHand * 1e-9);
  EXPECT_NEAR(out["decrement"].get<double>(), 1.0 / (TransferModulus(layers, 8.7, 18.6) * u), 1e-9);
  EXPECT_NEAR(byHand, 15.77, 0.01);  // the value the report prints, to its two decimals
  EXPECT_NEAR(1.0 / out["decrement"].get<double>(), 3.55, 0.01);
}

// What follows label on its line, the column blanks skipped; "" when label is not in report.
std::string After(const std::string& report, const std::string& label) {
  std::size_t at = report.find(label);
  if (at == std::string::npos) return "";
  at = report.find_first_not_of(' ', at + label.size());
  return report.substr(at, report.find('\n', at) - at);
}

// Every figure appears with the quantity it is, its unit and the value the JSON holds, rounded.
TEST(QkdbWallReport, TheDefaultReportLabelsEveryQuantity) {
  const json figures = json::parse(WithInput("wall --json", kPlasteredBrick).out);
  const ToolRun run = WithInput("wall", kPlasteredBrick);
  ASSERT_EQ(run.status, 0) << run.err;
  const std::string& r = run.out;
  EXPECT_EQ(After(r, "Heat transfer coefficient U, summer (α_e 18.6)"), Decimals(figures["U"], 3) + " W/(m²·K)");
  EXPECT_EQ(After(r, "Heat transfer coefficient U, winter (α_e 23)"), Decimals(figures["U_winter"], 3) + " W/(m²·K)");
  EXPECT_EQ(After(r, "Heat transfer coefficient U, between rooms (α_i 8.7 on both faces)"),
            Decimals(figures["U_internal"], 3) + " W/(m²·K)");
  EXPECT_EQ(After(r, "Thermal inertia index D = Σ R·S24"), Decimals(figures["D"], 2));
  EXPECT_EQ(After(r, "Decrement factor f (ISO 13786, daily wave, summer)"), Decimals(figures["decrement"], 4));
  EXPECT_EQ(After(r, "Time shift of f (ISO 13786)"), Decimals(figures["delay_h"], 2) + " h");
  EXPECT_EQ(After(r, "衰减倍数 ν = α_i/(f·U) (GB 50176: outside air over inside surface)"), "15.77");
  EXPECT_EQ(After(r, "延迟时间 ξ (GB 50176: inside surface behind outside air)"), Decimals(figures["delay_h"], 2) + " h");
  // 0.02/0.93 + 0.24/0.81 + 0.02/0.81 = 0.3418
  EXPECT_EQ(After(r, "Thermal resistance of the layers R"), "0.342 m²·K/W");
  EXPECT_EQ(After(r, "1  重砂浆砌筑黏土砖砌体"), "0.240  0.81       1800     1.05         0.296     3.13") << r;
  EXPECT_EQ(After(r, "\n23  "), Decimals(figures["response"]["inside"][23], 6) + "  " +
                                    Decimals(figures["response"]["through"][23], 6) + "  " +
                                    Decimals(figures["response"]["inside_ramp"][23], 6) + "  " +
                                    Decimals(figures["response"]["inside_step"][23], 6));
}

TEST(QkdbWallReport, TheWallsHelpGivesGb50176sNuNotOneOverF) {
  const ToolRun run = Qkdb("walls --help");
  EXPECT_EQ(run.out.find("ν = 1/f"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("ν = α_i/(f·U)"), std::string::npos) << run.out;
}

// The brick (layer 1) resized to reach U = 1.5: the wall made with that thickness has that U.
TEST(QkdbThicknessLayer, TheLayerAskedForIsResizedToTheTarget) {
  for (const auto& [args, outside] : {std::pair{std::string("--layer 1"), std::string("U")},
                                      std::pair{std::string("--layer 0 --winter"), std::string("U_winter")}}) {
    const ToolRun run = WithInput("thickness --target-u 1.5 " + args, kPlasteredBrick);
    ASSERT_EQ(run.status, 0) << run.err;
    const json answer = json::parse(run.out);
    const int layer = args.find("--layer 1") == 0 ? 1 : 0;
    EXPECT_EQ(answer["layer"], layer);
    json wall = json::parse(kPlasteredBrick);
    wall["layers"][layer]["thickness"] = answer["thickness"];
    const json sized = json::parse(WithInput("wall --json", wall.dump()).out);
    EXPECT_NEAR(sized[outside].get<double>(), 1.5, 1e-12) << args;
  }
}

TEST(QkdbThicknessLayer, WithoutLayerTheSmallestLambdaTimesDiffusivityIsResized) {
  // λ·a = λ²/(ρc): mortar 4.6e-4, brick 3.5e-4, plaster 3.9e-4 (per kJ): the brick.
  EXPECT_EQ(json::parse(WithInput("thickness --target-u 1.5", kPlasteredBrick).out)["layer"], 1);
  const ToolRun help = Qkdb("thickness --help");
  EXPECT_NE(help.out.find("smallest λ·a"), std::string::npos) << help.out;
  EXPECT_NE(help.out.find("GB 55015"), std::string::npos) << help.out;
}

TEST(QkdbThicknessLayer, ALayerTheWallDoesNotHaveOrAnAirGapIsRefusedInOneLine) {
  ToolRun run = WithInput("thickness --target-u 1.5 --layer 3", kPlasteredBrick);
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "qkdb thickness: layer 3 is not a layer of this wall (0 to 2)\n");
  run = WithInput("thickness --target-u 1.5 --layer -1", kPlasteredBrick);
  EXPECT_EQ(run.status, 2);
  EXPECT_TRUE(IsOneLine(run.err)) << run.err;
  run = WithInput("thickness --target-u 1.5 --layer 1", R"({"layers": [
      {"thickness": 0.24, "conductivity": 0.81, "density": 1800, "specific_heat": 1.05},
      {"name": "air", "thickness": 0.05, "conductivity": 6.25, "density": 0, "specific_heat": 0}]})");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "qkdb thickness: layer 1 has no mass: its thickness does not count\n");
}

// A thickness typed in mm or a specific heat in J/(kg·K) gives U = 0.0025 or D = 104860 without a
// word unless refused.
TEST(QkdbPlausibility, AValueInAnotherUnitIsRefusedWithAHintUnlessForced) {
  struct Case {
    const char* key;
    double value;
    const char* hint;
  };
  for (const Case& c : {Case{"thickness", 200, "thickness is in metres"},
                        Case{"conductivity", 810, "conductivity is in W/(m·K)"},
                        Case{"density", 180000, "density is in kg/m³"},
                        Case{"specific_heat", 1050, "specific heat is in kJ/(kg·K)"}}) {
    json wall = json::parse(kPlasteredBrick);
    wall["layers"][1][c.key] = c.value;
    for (const char* command : {"wall", "thickness --target-u 1.5"}) {
      const ToolRun refused = WithInput(command, wall.dump());
      EXPECT_EQ(refused.status, 2) << c.key;
      EXPECT_TRUE(IsOneLine(refused.err)) << refused.err;
      EXPECT_NE(refused.err.find("layer 2 \"重砂浆砌筑黏土砖砌体\": \"" + std::string(c.key) + "\""), std::string::npos)
          << refused.err;
      EXPECT_NE(refused.err.find(c.hint), std::string::npos) << refused.err;
      EXPECT_TRUE(refused.out.empty());
      EXPECT_EQ(WithInput(std::string(command) + " --force", wall.dump()).status, 0) << c.key;
    }
  }
}

TEST(QkdbPlausibility, TheLimitsThemselvesAreTaken) {
  json wall = json::parse(kPlasteredBrick);
  wall["layers"][1]["thickness"] = 2.0;
  wall["layers"][1]["conductivity"] = 500.0;
  wall["layers"][1]["density"] = 25000.0;
  wall["layers"][1]["specific_heat"] = 10.0;
  const ToolRun run = WithInput("wall", wall.dump());
  EXPECT_EQ(run.status, 0) << run.err;
}
