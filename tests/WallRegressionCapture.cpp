// Writes, on standard output, every result of the wall calculation for the walls of
// WallRegressionWalls.cpp as IEEE 754 bit patterns, in the format WallRegressionTest.cpp reads:
//   <wall> <item> <16 hex digits>
// Run it only to pin the results of a calculation that is known to be right; the test then holds
// every later change of the code to those bits.

#include <cstdint>
#include <cstdio>
#include <cstring>

#include "WallRegressionWalls.h"

int main() {
  std::printf("# The wall calculation's results for the walls of tests/WallRegressionWalls.cpp, bit for bit.\n");
  std::printf("# One line per value: <wall> <item> <IEEE 754 bit pattern in hex>.\n");
  std::printf("# Written by qk_wall_regression_capture (tests/WallRegressionCapture.cpp).\n");
  for (const RegressionWall& w : RegressionWalls()) {
    CQKWallData wall = MakeRegressionWall(w);
    for (const RegressionResult& r : CalculatedResults(wall)) {
      std::uint64_t bits = 0;
      std::memcpy(&bits, &r.value, sizeof bits);
      std::printf("%s %s %016llx\n", w.name.c_str(), r.item.c_str(), static_cast<unsigned long long>(bits));
    }
  }
  return 0;
}
