#pragma once
// qkdb.open(): the reference database bound for every record class, and what a script asks of it.

#include <pybind11/pybind11.h>

namespace qkdbpy {

void DefineDatabase(pybind11::module_& module);

}  // namespace qkdbpy
