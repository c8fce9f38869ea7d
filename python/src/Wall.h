#pragma once
// qkdb.Wall: a wall of layers computed as "qkdb wall" computes it (the library's CQKWallData).

#include <pybind11/pybind11.h>

namespace qkdbpy {

void DefineWall(pybind11::module_& module);

}  // namespace qkdbpy
