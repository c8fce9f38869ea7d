#pragma once
// The report "qkdb wall" prints by default: a calculated wall as an engineer reads it, every figure
// labelled with the quantity it is and its unit, rounded as a design report rounds.

#include <ostream>

#include "construction/CQKWallData.h"

namespace qkdb {

// wall must be calculated (CalculateWall).
void PrintWallReport(std::ostream& out, const CQKWallData& wall);

}  // namespace qkdb
