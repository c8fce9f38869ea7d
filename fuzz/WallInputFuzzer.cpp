// The JSON of `qkdb wall` from arbitrary bytes, then the wall calculation the command runs on it. A
// bad input must end in an InputError (the command's one-line refusal); any other exception, a crash
// or a hang is a finding.

#include <cstddef>
#include <cstdint>
#include <string>

#include "answers/wall/WallInput.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  CQKWallData wall;
  try {
    wall = qkdb::ParseWall(std::string(reinterpret_cast<const char*>(data), size));
  } catch (const qkdb::InputError&) {
    return 0;
  }
  wall.Cal(1);
  wall.Cal(0);
  return 0;
}
