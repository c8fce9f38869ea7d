#pragma once
// What the module postgresql offers the library: one function that opens a connection. The library
// finds it by name (kPgOpenSymbol) once the module is loaded; both sides are built from this tree
// together, so C++ types may cross (the module checks nothing but the version, ModuleLoader.h).

#include <string>

class CADOConnection;

namespace tablekit {

// The open connection, owned by the caller, or null with the reason in error.
using PgOpenFunction = CADOConnection* (*)(const std::string& uri, const std::string& user,
                                           const std::string& password, std::string& error);
inline constexpr const char* kPgOpenSymbol = "QKOpenPostgres";

}  // namespace tablekit
