#pragma once
// Twenty walls and the list of every result the wall calculation gives for each, in a fixed order.
// The regression test compares that list bit for bit with tests/data/wall_regression.txt, which the
// capture program (WallRegressionCapture.cpp) wrote from the same list. Both share this file so that
// the walls and the order of the results cannot drift apart.
//
// Units: m, W/(m·K), kg/m³, kJ/(kg·K), W/(m²·K). Layer 0 is the outside face.

#include <ostream>
#include <string>
#include <vector>

#include "construction/CQKWallData.h"
#include "construction/tagQKWALL.h"

struct RegressionLayer {
  double thick;
  double conductivity;  // for a mass-less layer (an air gap) its conductance, W/(m²·K)
  double density;
  double specificHeat;
  double conductivityCorrection = 1.0;
  double densityCorrection = 1.0;
};

struct RegressionWall {
  std::string name;  // one word, as it appears in the data file
  std::vector<RegressionLayer> layers;
  double inside = 8.7;
  double outsideSummer = 18.6;
  double outsideWinter = 23.0;
};

// A test names a wall by its name; without this GoogleTest would print the object's bytes, padding and
// unused string room included, which memcheck rightly reports as uninitialised.
inline void PrintTo(const RegressionWall& wall, std::ostream* out) { *out << wall.name; }

struct RegressionResult {
  std::string item;  // "CrXs", "Response2[5]", ...
  double value;
};

std::vector<RegressionWall> RegressionWalls();

// The wall with its layers and its three coefficients, not calculated yet.
CQKWallData MakeRegressionWall(const RegressionWall& wall);

// The results of tagQKWALL in the order of its fields: CrXs, CrSj, CrYc, Harmonic1..4, Response1..4.
void AppendCharacterResults(const tagQKWALL& results, std::vector<RegressionResult>& out);

// Runs the wall's calculation as the tool and the catalogue do (winter, then summer) and lists every
// result it exposes: those of tagQKWALL, DjCrXs, NCrXs, D, and the thickness the most insulating
// layer needs for U = 0.5 with the summer and with the winter coefficient.
std::vector<RegressionResult> CalculatedResults(CQKWallData& wall);
