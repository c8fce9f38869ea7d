// Every result of the wall calculation, for twenty walls, held bit for bit to values captured from
// the calculation as it stood before it was made faster (the library of commit 0bc8b41). A change
// meant only to make the calculation faster must leave every bit of every result as it was: an
// operation regrouped, a different but "equal" formula or a fused multiply-add shows up here as a
// failure naming the wall, the item and both bit patterns.
//
// The values in data/wall_regression.txt were captured on x86-64 with glibc 2.36, RelWithDebInfo, by
// running the capture program of this tree against the library built from 0bc8b41:
//   git worktree add /tmp/wall-before 0bc8b41
//   (cd /tmp/wall-before && cmake --preset default && cmake --build build/default -j1 --target QKModelDataBase)
//   cmake --build build/default -j1 --target qk_wall_regression_capture
//   export LD_LIBRARY_PATH=/tmp/wall-before/build/default
//   build/default/tests/qk_wall_regression_capture > tests/data/wall_regression.txt
// The last bits of exp, sin and cos are those of the platform's libm: on another libm, capture the
// file anew the same way.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "WallRegressionWalls.h"
#include "construction/tagQKWALLCHARACTER.h"

namespace {

struct CapturedResult {
  std::string item;
  std::uint64_t bits;
};

using Captured = std::map<std::string, std::vector<CapturedResult>>;

// The data file by wall, in file order; lines starting with '#' are comments.
const Captured& CapturedResults() {
  static const Captured captured = [] {
    Captured byWall;
    std::ifstream file(QK_WALL_REGRESSION_FILE);
    std::string line;
    while (std::getline(file, line)) {
      if (line.empty() || line[0] == '#') continue;
      std::istringstream fields(line);
      std::string wall, item, hex;
      fields >> wall >> item >> hex;
      byWall[wall].push_back({item, std::stoull(hex, nullptr, 16)});
    }
    return byWall;
  }();
  return captured;
}

std::uint64_t Bits(double value) {
  std::uint64_t bits = 0;
  std::memcpy(&bits, &value, sizeof bits);
  return bits;
}

double Value(std::uint64_t bits) {
  double value = 0.0;
  std::memcpy(&value, &bits, sizeof value);
  return value;
}

std::string Hex(std::uint64_t bits) {
  char text[19];
  std::snprintf(text, sizeof text, "0x%016llx", static_cast<unsigned long long>(bits));
  return text;
}

std::string Decimal(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.17g", value);
  return text;
}

// The last bits of sin, cos and exp belong to the libm that computes them, not to the wall
// calculation: glibc 2.36 on x86-64 takes variants that use FMA where the processor has it, and the
// memcheck run turns them off (GLIBC_TUNABLES=glibc.cpu.hwcaps=-AVX2), which changes some last bits.
// The captured values hold for the libm they were captured with; this is its fingerprint, a hash of
// the bits of sin, cos and exp at 20 000 points, worked out by LibmFingerprint on that machine.
constexpr std::uint64_t kCapturedLibm = 0x6260c7374d42ca24;

// Worked out once per run: every test of the suite asks.
std::uint64_t LibmFingerprint() {
  static const std::uint64_t fingerprint = [] {
    std::uint64_t hash = 1469598103934665603ull;  // FNV-1a over the 64-bit patterns
    for (int i = 1; i <= 20000; ++i) {
      volatile double x = i * 0.00731;  // volatile: computed at run time, by this libm
      for (double value : {std::sin(x), std::cos(x), std::exp(-x)}) hash = (hash ^ Bits(value)) * 1099511628211ull;
    }
    return hash;
  }();
  return fingerprint;
}

// Skips a test whose captured values do not apply to this libm.
#define SKIP_ON_ANOTHER_LIBM()                                                                              \
  if (LibmFingerprint() != kCapturedLibm)                                                                   \
  GTEST_SKIP() << "this libm rounds sin, cos or exp otherwise than the one the values were captured with " \
               << "(fingerprint " << Hex(LibmFingerprint()) << ", captured " << Hex(kCapturedLibm) << ")"

// Compares the first actual.size() captured results of the wall with actual, item by item.
void ExpectSameBits(const std::string& wall, const std::vector<RegressionResult>& actual) {
  const auto found = CapturedResults().find(wall);
  ASSERT_NE(found, CapturedResults().end()) << "no captured results for " << wall;
  const std::vector<CapturedResult>& expected = found->second;
  ASSERT_LE(actual.size(), expected.size()) << wall;
  for (std::size_t i = 0; i < actual.size(); ++i) {
    ASSERT_EQ(expected[i].item, actual[i].item) << wall << ": the results are listed in another order";
    const std::uint64_t bits = Bits(actual[i].value);
    if (bits != expected[i].bits) {
      ADD_FAILURE() << wall << " " << actual[i].item << ": expected " << Hex(expected[i].bits) << " ("
                    << Decimal(Value(expected[i].bits)) << "), got " << Hex(bits) << " (" << Decimal(actual[i].value)
                    << "), bits differing " << Hex(bits ^ expected[i].bits);
    }
  }
}

// The wall character with its two steps open, to run them one after the other by hand.
struct SeparateSteps : tagQKWALLCHARACTER {
  using tagQKWALLCHARACTER::nuxi;
  using tagQKWALLCHARACTER::RESP;
};

class WallRegression : public testing::TestWithParam<RegressionWall> {};

TEST_P(WallRegression, EveryResultKeepsItsCapturedBits) {
  SKIP_ON_ANOTHER_LIBM();
  CQKWallData wall = MakeRegressionWall(GetParam());
  const std::vector<RegressionResult> actual = CalculatedResults(wall);
  ASSERT_EQ(actual.size(), CapturedResults().at(GetParam().name).size());
  ExpectSameBits(GetParam().name, actual);
}

TEST_P(WallRegression, NuxiThenRespCalledAloneKeepTheCapturedBits) {
  SKIP_ON_ANOTHER_LIBM();
  const RegressionWall& w = GetParam();
  SeparateSteps wall;
  wall.SetTimberingData(MakeRegressionWall(w).GetTimberingData(), false);
  wall.SetNHrXs(w.inside, false);
  wall.SetWHrXs(w.outsideSummer, false);
  wall.nuxi();
  wall.RESP();
  std::vector<RegressionResult> actual;
  AppendCharacterResults(wall, actual);
  ExpectSameBits(w.name, actual);
}

INSTANTIATE_TEST_SUITE_P(Walls, WallRegression, testing::ValuesIn(RegressionWalls()),
                         [](const testing::TestParamInfo<RegressionWall>& info) { return info.param.name; });

TEST(WallRegressionData, HoldsTheResultsOfEveryWallAndNoOther) {
  std::vector<std::string> listed, captured;
  for (const RegressionWall& w : RegressionWalls()) listed.push_back(w.name);
  for (const auto& [wall, results] : CapturedResults()) captured.push_back(wall);
  std::sort(listed.begin(), listed.end());
  EXPECT_EQ(listed.size(), 20u);
  EXPECT_EQ(listed, captured);
}

}  // namespace
