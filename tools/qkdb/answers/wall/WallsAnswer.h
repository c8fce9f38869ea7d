#pragma once
// The walls of an envelope type: each code of the type made into a wall with the standard surface
// coefficients (8.7 inside; 18.6 outside in summer, 23.0 in winter, W/(m²·K)), and a wall as the JSON
// "qkdb wall" reads (answers/wall/WallInput.h). Shared by "qkdb walls" and the Python package.

#include <nlohmann/json.hpp>
#include <string>

#include "construction/CQKWallData.h"
#include "foundation/CLxArray.h"

namespace qkdb {

struct WallsAnswer {
  std::string refused;  // why there is no answer ("no envelope type named …"); empty when there is one
  CLxArray<CQKWallData> walls;  // in code ID order, calculated when asked
};

// The record classes must be bound to a database. calculate: winter then summer, as CalculateWall.
WallsAnswer TypeWalls(const std::string& typeName, bool calculate);

// wall's code, surface coefficients and layers (thickness m, λ, ρ, c kJ/(kg·K), corrections), as
// ParseWall reads them back.
nlohmann::ordered_json WallJson(CQKWallData& wall);

}  // namespace qkdb
