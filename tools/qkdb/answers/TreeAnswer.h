#pragma once
// One of the library's display trees as JSON, the library's own root left out: an array of nodes
// {"id", "name", "level", "children"}, "level" naming what the node is. The tool prints it as text or
// JSON; the Python package returns it as lists of dicts.
//   weather        country > province > city (weatherOnly: only the places with a weather file)
//   envelope       category > type > code
//   constructions  construction type > construction
//   rooms          room type > room use

#include <nlohmann/json.hpp>
#include <string>

namespace qkdb {

// which is one of the four names above; any other gives an empty array. The record classes must be
// bound to a database.
nlohmann::ordered_json Tree(const std::string& which, bool weatherOnly);

}  // namespace qkdb
