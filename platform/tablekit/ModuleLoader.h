#pragma once
// Modules: parts that are loaded only when first needed, so that a program which never needs them never
// pays for loading their libraries. The PostgreSQL backend is one (libpq brings TLS, Kerberos and LDAP
// with it: about 3 ms at every start of a program that reads an SQLite file); qkdb's Access reader is
// another. Internal to the project, not installed: exported only for qkdb.
//
// Modules sit in the folder QKModelDataBase beside the shared library itself (installed:
// lib/QKModelDataBase/; in the build tree: <build>/QKModelDataBase/), found from where the library was
// loaded, never from a path fixed at build time. A module is loaded once and stays loaded for the life
// of the process: the objects it makes (connections) carry its code. Safe to call from several threads.

#include <cstring>
#include <string>

#include "QKExport.h"

namespace tablekit {

// The folder the modules are loaded from.
QK_EXPORT std::string ModuleFolder();

// The address of symbol in the module named module ("postgresql" is postgresql.so on Linux), loading
// the module on first use. Null with one line in error when the module is missing, cannot be loaded
// (a library it needs is missing), was built for another version of the library, or lacks symbol.
// Every module defines QKModuleVersion (QK_MODULE_VERSION_FUNCTION) for that check.
QK_EXPORT void* ModuleSymbol(const std::string& module, const char* symbol, std::string& error);

// ModuleSymbol for a function: its address as a pointer of type Function (null on failure).
template <typename Function>
Function ModuleFunction(const std::string& module, const char* symbol, std::string& error) {
  void* address = ModuleSymbol(module, symbol, error);
  // POSIX makes a symbol's address usable as a function pointer; C++ leaves the cast to the compiler,
  // so the bits are copied instead.
  Function function = nullptr;
  static_assert(sizeof function == sizeof address);
  std::memcpy(&function, &address, sizeof function);
  return function;
}

}  // namespace tablekit

// What a module offers, found by name: QK_MODULE_ENTRY Type Name(...). A module is no part of the
// library, so QK_EXPORT (which imports on Windows) does not fit it.
#if defined(_WIN32)
#  define QK_MODULE_ENTRY extern "C" __declspec(dllexport)
#else
#  define QK_MODULE_ENTRY extern "C" __attribute__((visibility("default")))
#endif

// Put once in every module's sources: the version the module was built for (QK_VERSION, set by
// qk_module), which ModuleSymbol compares with the library's before it uses the module.
#define QK_MODULE_VERSION_FUNCTION \
  QK_MODULE_ENTRY const char* QKModuleVersion() { return QK_VERSION; }
