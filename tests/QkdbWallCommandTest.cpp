// The qkdb "wall" and "thickness" commands, run as a user runs them: JSON in (a file or standard
// input), JSON out, a one-line message and exit status 2 for input they cannot use.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <fstream>
#include <nlohmann/json.hpp>
#include <numbers>
#include <sstream>
#include <string>

#include "QkdbRun.h"
#include "construction/CQKTimberingData.h"
#include "construction/CQKWallData.h"

namespace {

using nlohmann::json;

// A file of this test's own, so tests running in parallel never share one.
std::string TempPath(const std::string& suffix) {
  const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
  std::string name = std::string(test->test_suite_name()) + "_" + test->name();
  for (char& c : name)
    if (c == '/') c = '_';
  return testing::TempDir() + "qkdb_" + name + "_" + std::to_string(getpid()) + suffix;
}

std::string WriteTemp(const std::string& suffix, const std::string& text) {
  std::string path = TempPath(suffix);
  std::ofstream(path, std::ios::binary) << text;
  return path;
}

// Runs "qkdb args" with input on standard input.
ToolRun QkdbWithInput(const std::string& args, const std::string& input = "") {
  const std::string in = WriteTemp(".in", input);
  ToolRun run = RunShell("\"$QKDB\" " + args + " <'" + in + "'");
  std::remove(in.c_str());
  return run;
}

const char* kBrick = R"({"layers": [{"name": "brick", "thickness": 0.24, "conductivity": 0.81, "density": 1800,
                                     "specific_heat": 1.05}]})";

// Outside to inside: cement mortar, EPS board, brick, lime plaster.
const char* kInsulated = R"({"layers": [
  {"name": "cement mortar", "thickness": 0.02, "conductivity": 0.93, "density": 1800, "specific_heat": 1.05},
  {"name": "EPS", "thickness": 0.05, "conductivity": 0.042, "density": 20, "specific_heat": 1.38},
  {"name": "brick", "thickness": 0.24, "conductivity": 0.81, "density": 1800, "specific_heat": 1.05},
  {"name": "lime plaster", "thickness": 0.02, "conductivity": 0.81, "density": 1600, "specific_heat": 1.05}]})";

json Parsed(const ToolRun& run) { return json::parse(run.out); }

}  // namespace

// --- the command line ----------------------------------------------------------------------------

TEST(QkdbCommandLine, NamesAnUnknownCommand) {
  ToolRun run = QkdbWithInput("frobnicate");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err.rfind("qkdb: unknown command \"frobnicate\"\n", 0), 0u) << run.err;
}

TEST(QkdbCommandLine, NamesAnUnknownOption) {
  ToolRun run = QkdbWithInput("--frobnicate");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err.rfind("qkdb: unknown option \"--frobnicate\"\n", 0), 0u) << run.err;
}

TEST(QkdbCommandLine, WithoutACommandPrintsTheUsageAndFails) {
  ToolRun run = QkdbWithInput("");
  EXPECT_EQ(run.status, 2);
  EXPECT_TRUE(run.out.empty());
  EXPECT_NE(run.err.find("wall"), std::string::npos) << run.err;
}

// --- wall: the output ----------------------------------------------------------------------------

TEST(QkdbWall, PrintsEveryResultKey) {
  ToolRun run = QkdbWithInput("wall --json", kBrick);
  ASSERT_EQ(run.status, 0) << run.err;
  json out = Parsed(run);
  for (const char* key : {"U", "U_winter", "U_internal", "D", "decrement", "delay_h", "harmonics", "response"})
    EXPECT_TRUE(out.contains(key)) << key;
  for (const char* key : {"inside", "through", "inside_ramp", "inside_step"})
    EXPECT_TRUE(out["response"].contains(key)) << key;
}

TEST(QkdbWall, PrintsTwelveHarmonicsNumberedFromOne) {
  json out = Parsed(QkdbWithInput("wall --json", kBrick));
  ASSERT_EQ(out["harmonics"].size(), 12u);
  for (int i = 0; i < 12; ++i) {
    const json& h = out["harmonics"][i];
    EXPECT_EQ(h["n"], i + 1);
    for (const char* key : {"attenuation_multiple", "phase", "inside_modulus", "inside_phase"})
      EXPECT_TRUE(h[key].is_number()) << "harmonic " << i + 1 << " " << key;
  }
}

TEST(QkdbWall, PrintsTwentyFourTermsOfEachResponse) {
  json out = Parsed(QkdbWithInput("wall --json", kBrick));
  for (const char* key : {"inside", "through", "inside_ramp", "inside_step"}) {
    ASSERT_EQ(out["response"][key].size(), 24u) << key;
    for (const json& term : out["response"][key]) EXPECT_TRUE(term.is_number()) << key;
  }
}

TEST(QkdbWall, SummerUOfOneBrickLayerIsOneOverTheResistances) {
  json out = Parsed(QkdbWithInput("wall --json", kBrick));
  double expected = 1.0 / (1.0 / 18.6 + 0.24 / 0.81 + 1.0 / 8.7);
  EXPECT_NEAR(out["U"].get<double>(), expected, 1e-12 * expected);
}

TEST(QkdbWall, WinterUUsesTheWinterOutsideCoefficient) {
  json out = Parsed(QkdbWithInput("wall --json", kBrick));
  double expected = 1.0 / (1.0 / 23.0 + 0.24 / 0.81 + 1.0 / 8.7);
  EXPECT_NEAR(out["U_winter"].get<double>(), expected, 1e-12 * expected);
}

TEST(QkdbWall, InternalUHasTheInsideCoefficientOnBothFaces) {
  json out = Parsed(QkdbWithInput("wall --json", kBrick));
  double expected = 1.0 / (2.0 / 8.7 + 0.24 / 0.81);
  EXPECT_NEAR(out["U_internal"].get<double>(), expected, 1e-12 * expected);
}

TEST(QkdbWall, UsesTheSurfaceCoefficientsGiven) {
  json out = Parsed(QkdbWithInput("wall --json", R"({"inside": 7.0, "outside": 25.0, "outside_winter": 30.0, "layers": [
      {"thickness": 0.24, "conductivity": 0.81, "density": 1800, "specific_heat": 1.05}]})"));
  double summer = 1.0 / (1.0 / 25.0 + 0.24 / 0.81 + 1.0 / 7.0);
  double winter = 1.0 / (1.0 / 30.0 + 0.24 / 0.81 + 1.0 / 7.0);
  EXPECT_NEAR(out["U"].get<double>(), summer, 1e-12 * summer);
  EXPECT_NEAR(out["U_winter"].get<double>(), winter, 1e-12 * winter);
}

TEST(QkdbWall, AppliesTheConductivityCorrection) {
  json out = Parsed(QkdbWithInput("wall --json", R"({"layers": [{"thickness": 0.24, "conductivity": 0.81, "density": 1800,
      "specific_heat": 1.05, "conductivity_correction": 1.25}]})"));
  double expected = 1.0 / (1.0 / 18.6 + 0.24 / (0.81 * 1.25) + 1.0 / 8.7);
  EXPECT_NEAR(out["U"].get<double>(), expected, 1e-12 * expected);
}

TEST(QkdbWall, InertiaIndexIsResistanceTimesStorageCoefficient) {
  json out = Parsed(QkdbWithInput("wall --json", kBrick));
  // S of the 24-hour period, W/(m²·K): 86.4 turns kJ and a day in seconds into W.
  double s = std::sqrt(2.0 * std::numbers::pi * 0.81 * 1.05 * 1800.0 / 86.4);
  double expected = 0.24 / 0.81 * s;
  EXPECT_NEAR(out["D"].get<double>(), expected, 1e-12 * expected);
}

// Every number must read back as the very double the library computed, not a rounded neighbour.
TEST(QkdbWall, PrintsTheLibrarysDoublesExactly) {
  CQKWallData wall;
  ASSERT_TRUE(wall.SetNHrXsData(8.7, false));
  ASSERT_TRUE(wall.SetWHrXsData(18.6, false));
  ASSERT_TRUE(wall.SetDjWHrXsData(23.0, false));
  struct Layer {
    double thick, conductivity, density, heat;
  };
  for (const Layer& l : {Layer{0.02, 0.93, 1800, 1.05}, Layer{0.05, 0.042, 20, 1.38}, Layer{0.24, 0.81, 1800, 1.05},
                         Layer{0.02, 0.81, 1600, 1.05}}) {
    CQKTimberingData layer;
    layer.SetThick(l.thick);
    layer.SetDrXs(l.conductivity);
    layer.SetGMD(l.density);
    layer.SetBRr(l.heat);
    layer.SetDrXsXz(1.0);
    wall.AddTimberingData(layer, false);
  }
  wall.Cal(1);
  wall.Cal(0);

  json out = Parsed(QkdbWithInput("wall --json", kInsulated));
  EXPECT_EQ(out["U"].get<double>(), wall.CrXs);
  EXPECT_EQ(out["U_winter"].get<double>(), wall.DjCrXs);
  EXPECT_EQ(out["decrement"].get<double>(), wall.CrSj);
  EXPECT_EQ(out["delay_h"].get<double>(), wall.CrYc);
  for (int i = 0; i < 12; ++i) EXPECT_EQ(out["harmonics"][i]["phase"].get<double>(), wall.Harmonic2[i]) << i;
  for (int j = 0; j < 24; ++j) EXPECT_EQ(out["response"]["through"][j].get<double>(), wall.Response2[j]) << j;
}

TEST(QkdbWall, ReadsTheSameWallFromAFileAsFromStandardInput) {
  std::string file = WriteTemp(".json", kInsulated);
  ToolRun fromFile = QkdbWithInput("wall --json '" + file + "'");
  ToolRun fromStdin = QkdbWithInput("wall --json", kInsulated);
  std::remove(file.c_str());
  ASSERT_EQ(fromFile.status, 0) << fromFile.err;
  EXPECT_EQ(fromFile.out, fromStdin.out);
}

TEST(QkdbWall, ReadsStandardInputForADash) {
  EXPECT_EQ(QkdbWithInput("wall --json -", kInsulated).out, QkdbWithInput("wall --json", kInsulated).out);
}

TEST(QkdbWall, AcceptsAChineseLayerName) {
  ToolRun run = QkdbWithInput("wall --json", R"({"layers": [{"name": "黏土实心砖", "thickness": 0.24, "conductivity": 0.81,
      "density": 1800, "specific_heat": 1.05}]})");
  EXPECT_EQ(run.status, 0) << run.err;
}

// --- wall: input it refuses ----------------------------------------------------------------------

TEST(QkdbWall, RefusesMalformedJson) {
  ToolRun run = QkdbWithInput("wall --json", R"({"layers": [)");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err.rfind("qkdb wall: the input is not valid JSON: ", 0), 0u) << run.err;
  EXPECT_TRUE(IsOneLine(run.err)) << run.err;
  EXPECT_TRUE(run.out.empty());
}

TEST(QkdbWall, RefusesEmptyInput) {
  ToolRun run = QkdbWithInput("wall --json", "");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err.rfind("qkdb wall: the input is not valid JSON: ", 0), 0u) << run.err;
}

TEST(QkdbWall, RefusesInputThatIsNotAnObject) {
  ToolRun run = QkdbWithInput("wall --json", "[1, 2]");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "qkdb wall: the input is not a JSON object\n");
}

TEST(QkdbWall, NamesAMissingRequiredFieldAndItsLayer) {
  ToolRun run = QkdbWithInput("wall --json", R"({"layers": [
      {"thickness": 0.24, "conductivity": 0.81, "density": 1800, "specific_heat": 1.05},
      {"thickness": 0.02, "density": 1600, "specific_heat": 1.05}]})");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "qkdb wall: layer 2: \"conductivity\" is missing\n");
}

TEST(QkdbWall, NamesTheLayerByItsNameWhenItHasOne) {
  ToolRun run = QkdbWithInput("wall --json", R"({"layers": [{"name": "石灰砂浆", "thickness": 0.02, "conductivity": 0.81,
      "specific_heat": 1.05}]})");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "qkdb wall: layer 1 \"石灰砂浆\": \"density\" is missing\n");
}

TEST(QkdbWall, KeepsTheMessageOnOneLineForANameWithALineBreak) {
  ToolRun run = QkdbWithInput("wall --json", R"({"layers": [{"name": "lime\nplaster", "thickness": 0.02}]})");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "qkdb wall: layer 1 \"lime\\nplaster\": \"conductivity\" is missing\n");
}

TEST(QkdbWall, ReadsAFileThatBeginsWithAByteOrderMark) {
  std::string file = WriteTemp(".json", std::string("\xEF\xBB\xBF") + kBrick);
  ToolRun withMark = QkdbWithInput("wall --json '" + file + "'");
  std::remove(file.c_str());
  EXPECT_EQ(withMark.status, 0) << withMark.err;
  EXPECT_EQ(withMark.out, QkdbWithInput("wall --json", kBrick).out);
}

TEST(QkdbWall, RefusesANonNumberWhereANumberIsRequired) {
  ToolRun run = QkdbWithInput("wall --json", R"({"layers": [{"thickness": "0.24", "conductivity": 0.81, "density": 1800,
      "specific_heat": 1.05}]})");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "qkdb wall: layer 1: \"thickness\" is not a number (got \"0.24\")\n");
}

TEST(QkdbWall, RefusesANonNumberCoefficient) {
  ToolRun run = QkdbWithInput("wall --json", R"({"outside": null, "layers": [{"thickness": 0.24, "conductivity": 0.81,
      "density": 1800, "specific_heat": 1.05}]})");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "qkdb wall: \"outside\" is not a number (got null)\n");
}

class QkdbWallCoefficient : public testing::TestWithParam<const char*> {};

TEST_P(QkdbWallCoefficient, RefusesAZeroCoefficient) {
  std::string input = std::string("{\"") + GetParam() +
                      R"(": 0, "layers": [{"thickness": 0.24, "conductivity": 0.81, "density": 1800,
                      "specific_heat": 1.05}]})";
  ToolRun run = QkdbWithInput("wall --json", input);
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, std::string("qkdb wall: \"") + GetParam() + "\" must be positive (got 0)\n");
}

TEST_P(QkdbWallCoefficient, RefusesANegativeCoefficient) {
  std::string input = std::string("{\"") + GetParam() +
                      R"(": -8.7, "layers": [{"thickness": 0.24, "conductivity": 0.81, "density": 1800,
                      "specific_heat": 1.05}]})";
  ToolRun run = QkdbWithInput("wall --json", input);
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, std::string("qkdb wall: \"") + GetParam() + "\" must be positive (got -8.7)\n");
}

INSTANTIATE_TEST_SUITE_P(EachSurface, QkdbWallCoefficient, testing::Values("inside", "outside", "outside_winter"));

TEST(QkdbWall, RefusesAZeroConductivity) {
  ToolRun run = QkdbWithInput("wall --json", R"({"layers": [{"thickness": 0.24, "conductivity": 0, "density": 1800,
      "specific_heat": 1.05}]})");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "qkdb wall: layer 1: \"conductivity\" must be positive (got 0)\n");
}

TEST(QkdbWall, RefusesANegativeThickness) {
  ToolRun run = QkdbWithInput("wall --json", R"({"layers": [{"thickness": -0.24, "conductivity": 0.81, "density": 1800,
      "specific_heat": 1.05}]})");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "qkdb wall: layer 1: \"thickness\" must not be negative (got -0.24)\n");
}

TEST(QkdbWall, RefusesAnEmptyLayerArray) {
  ToolRun run = QkdbWithInput("wall --json", R"({"inside": 8.7, "layers": []})");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "qkdb wall: \"layers\" is empty: a wall needs at least one layer\n");
}

TEST(QkdbWall, RefusesAWallWithoutLayers) {
  ToolRun run = QkdbWithInput("wall --json", R"({"inside": 8.7})");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "qkdb wall: \"layers\" is missing\n");
}

TEST(QkdbWall, RefusesLayersThatAreNotAnArray) {
  ToolRun run = QkdbWithInput("wall --json", R"({"layers": {"thickness": 0.24}})");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "qkdb wall: \"layers\" is not an array\n");
}

TEST(QkdbWall, RefusesALayerThatIsNotAnObject) {
  ToolRun run = QkdbWithInput("wall --json", R"({"layers": [0.24]})");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "qkdb wall: layer 1: not a JSON object\n");
}

// A misspelt optional key would otherwise fall back to its default without a word.
TEST(QkdbWall, RefusesAnUnknownKey) {
  ToolRun run = QkdbWithInput("wall --json", R"({"layers": [{"thickness": 0.24, "conductivity": 0.81, "density": 1800,
      "specific_heat": 1.05, "density_corection": 0.9}]})");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "qkdb wall: layer 1: unknown key \"density_corection\"\n");
}

TEST(QkdbWall, RefusesAMissingFile) {
  std::string missing = TempPath(".does-not-exist");
  ToolRun run = QkdbWithInput("wall --json '" + missing + "'");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "qkdb wall: cannot read \"" + missing + "\": No such file or directory\n");
}

TEST(QkdbWall, RefusesADirectoryAsFile) {
  ToolRun run = QkdbWithInput("wall --json /");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "qkdb wall: cannot read \"/\": Is a directory\n");
}

// --- bounded input ------------------------------------------------------------------------------

// The stream tests run under a 10 s timeout: a tool that kept reading would be killed (status 124).
TEST(QkdbWall, RefusesADeviceGivenAsFileBeforeReadingIt) {
  ToolRun run = QkdbWithInput("wall --json /dev/zero");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "qkdb wall: \"/dev/zero\" is not a regular file\n");
}

TEST(QkdbWall, RefusesADeviceAsStandardInput) {
  ToolRun run = RunShell("timeout 10 \"$QKDB\" wall < /dev/zero");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "qkdb wall: standard input is a device, not a file\n");
}

TEST(QkdbWall, RefusesAnEndlessPipeOnceItPassesTheLimit) {
  ToolRun run = RunShell("yes | timeout 10 \"$QKDB\" wall");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "qkdb wall: standard input holds more than 64 KiB\n");
}

TEST(QkdbWall, RefusesAFileLargerThanAWallCanBe) {
  const std::string big = WriteTemp(".json", std::string(kBrick) + std::string(64 * 1024, ' '));
  ToolRun run = QkdbWithInput("wall --json '" + big + "'");
  std::remove(big.c_str());
  EXPECT_EQ(run.status, 2);
  EXPECT_NE(run.err.find("is larger than 64 KiB (" + std::to_string(std::string(kBrick).size() + 64 * 1024) + " bytes)"),
            std::string::npos)
      << run.err;
  EXPECT_TRUE(IsOneLine(run.err)) << run.err;
}

TEST(QkdbWall, TakesAWallOfExactlyTheLimit) {
  const std::string text = std::string(kBrick) + std::string(64 * 1024 - std::string(kBrick).size(), ' ');
  const std::string file = WriteTemp(".json", text);
  ToolRun fromFile = QkdbWithInput("wall --json '" + file + "'");
  std::remove(file.c_str());
  EXPECT_EQ(fromFile.status, 0) << fromFile.err;
  ToolRun fromInput = QkdbWithInput("wall --json", text);
  EXPECT_EQ(fromInput.status, 0) << fromInput.err;
}

// --- thickness -----------------------------------------------------------------------------------

namespace {

// U of kInsulated with layer 1 (the EPS) at thickness eps, by hand.
double InsulatedU(double eps, double outside) {
  return 1.0 / (1.0 / outside + 0.02 / 0.93 + eps / 0.042 + 0.24 / 0.81 + 0.02 / 0.81 + 1.0 / 8.7);
}

}  // namespace

TEST(QkdbThickness, ChangesTheLayerOfLowestConductivity) {
  ToolRun run = QkdbWithInput("thickness --target-u 0.4", kInsulated);
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(Parsed(run)["layer"], 1);
}

TEST(QkdbThickness, GivesAThicknessThatReachesTheTargetInSummer) {
  json out = Parsed(QkdbWithInput("thickness --target-u 0.4", kInsulated));
  double thickness = out["thickness"].get<double>();
  EXPECT_GT(thickness, 0.05);
  EXPECT_NEAR(InsulatedU(thickness, 18.6), 0.4, 0.4 * 1e-12);
}

TEST(QkdbThickness, UsesTheWinterOutsideCoefficientWhenAsked) {
  json out = Parsed(QkdbWithInput("thickness --target-u 0.4 --winter", kInsulated));
  double thickness = out["thickness"].get<double>();
  EXPECT_NEAR(InsulatedU(thickness, 23.0), 0.4, 0.4 * 1e-12);
  EXPECT_GT(std::abs(InsulatedU(thickness, 18.6) - 0.4), 1e-6);
}

TEST(QkdbThickness, ReadsTheWallFromAFile) {
  std::string file = WriteTemp(".json", kInsulated);
  ToolRun fromFile = QkdbWithInput("thickness --target-u 0.4 '" + file + "'");
  std::remove(file.c_str());
  EXPECT_EQ(fromFile.out, QkdbWithInput("thickness --target-u 0.4", kInsulated).out);
}

TEST(QkdbThickness, RefusesAZeroTarget) {
  ToolRun run = QkdbWithInput("thickness --target-u 0", kInsulated);
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "qkdb thickness: --target-u must be a positive U in W/(m²·K) (got 0)\n");
}

TEST(QkdbThickness, RefusesANegativeTarget) {
  ToolRun run = QkdbWithInput("thickness --target-u -0.5", kInsulated);
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "qkdb thickness: --target-u must be a positive U in W/(m²·K) (got -0.5)\n");
}

TEST(QkdbThickness, RefusesAWallWithoutLayers) {
  ToolRun run = QkdbWithInput("thickness --target-u 0.4", R"({"layers": []})");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.err, "qkdb thickness: \"layers\" is empty: a wall needs at least one layer\n");
}

TEST(QkdbThickness, NeedsATarget) {
  ToolRun run = QkdbWithInput("thickness", kInsulated);
  EXPECT_EQ(run.status, 2);
  EXPECT_NE(run.err.find("--target-u"), std::string::npos) << run.err;
}

// 10 W/(m²·K) is more than the two surface coefficients alone let through (about 5.9).
TEST(QkdbThickness, FailsWithTheNegativeAnswerForAnUnreachableTarget) {
  ToolRun run = QkdbWithInput("thickness --target-u 10", kInsulated);
  EXPECT_EQ(run.status, 1);
  EXPECT_LT(Parsed(run)["thickness"].get<double>(), 0.0);
  EXPECT_TRUE(IsOneLine(run.err)) << run.err;
}
