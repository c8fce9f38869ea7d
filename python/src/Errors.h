#pragma once
// What the package raises besides ValueError: LookupError for a name or ID the database does not have
// (a city, an envelope type, a room use), with the tool's one-line message.

#include <stdexcept>

namespace qkdbpy {

struct NotFound : std::runtime_error {
  using std::runtime_error::runtime_error;
};

}  // namespace qkdbpy
