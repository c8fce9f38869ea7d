#pragma once
// The envelope catalogue: first the ASHRAE Handbook of Fundamentals 2005 data, then the Chinese
// materials and wall build-ups (reference/ChineseCatalogue.h).
//
// From the handbook: every material as a
// construction (grouped into construction types by the handbook's letter groups), and the handbook's
// layered constructions as envelope codes with their bounding structures, under envelope types and
// categories by what they are (exterior wall, roof, partition, floor, furnishings).
//
// An air space has only a thermal resistance R in the source. It is stored as a mass-less construction
// (density and specific heat 0) whose conductivity field holds its conductance 1/R, W/(m²·K), which
// is how the wall calculation reads a mass-less layer; its layer thickness is 0 mm, as the source gives
// none and the calculation ignores it. Written through CQKTimberingType, CQKTimbering, CQKBSCategory,
// CQKBSType, CQKBSCode and CQKBoundingStructure, bound to the database beforehand.

#include <filesystem>

class CADODatabase;

namespace qkdb {

// Throws DataError for data that cannot be used, a name that repeats, or a row that cannot be written.
// db is a connection on the same database, for the category order, which the category record does
// not write.
void LoadCatalogue(const std::filesystem::path& dataDir, CADODatabase& db);

}  // namespace qkdb
