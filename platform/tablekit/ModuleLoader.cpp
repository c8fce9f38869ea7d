#include "tablekit/ModuleLoader.h"

#include <cstring>
#include <filesystem>
#include <map>
#include <mutex>

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace tablekit {

namespace {

#if defined(_WIN32)
constexpr const char* kModuleSuffix = ".dll";
#else
constexpr const char* kModuleSuffix = ".so";
#endif

// An object of the library, whose address tells which file the library was loaded from.
const char kInTheLibrary = 0;

// The file of the shared library this is compiled into.
std::filesystem::path LibraryFile() {
#if defined(_WIN32)
  HMODULE self = nullptr;
  wchar_t name[MAX_PATH] = {};
  if (!GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                          reinterpret_cast<LPCWSTR>(&kInTheLibrary), &self) ||
      GetModuleFileNameW(self, name, MAX_PATH) == 0)
    return {};
  return std::filesystem::path(name);
#else
  Dl_info info{};
  if (dladdr(&kInTheLibrary, &info) == 0 || info.dli_fname == nullptr) return {};
  // The library may be reached through a link (libQKModelDataBase.so.0 in another folder): the modules
  // are installed beside the file itself.
  std::error_code ec;
  const std::filesystem::path named(info.dli_fname);
  const std::filesystem::path real = std::filesystem::canonical(named, ec);
  return ec ? named : real;
#endif
}

struct Loaded {
  void* handle = nullptr;
  std::string error;  // why the module cannot be used; "" once loaded
};

// Loading and its failures are both kept: a process does not gain a missing library while it runs,
// and every later open then fails at once with the same words.
std::mutex g_mutex;
std::map<std::string, Loaded> g_modules;

std::string LastLoadError() {
#if defined(_WIN32)
  return "error " + std::to_string(GetLastError());
#else
  const char* text = dlerror();
  return text ? text : "unknown error";
#endif
}

void* Symbol(void* handle, const char* symbol) {
#if defined(_WIN32)
  const FARPROC address = GetProcAddress(static_cast<HMODULE>(handle), symbol);
  void* object = nullptr;
  std::memcpy(&object, &address, sizeof object);
  return object;
#else
  return dlsym(handle, symbol);
#endif
}

// The folder of the modules, kept as a path: on Windows its text in the narrow code page may not
// name it.
const std::filesystem::path& ModulePath() {
  static const std::filesystem::path folder = LibraryFile().parent_path() / QK_MODULE_FOLDER;
  return folder;
}

Loaded Load(const std::string& module) {
  const std::filesystem::path file = ModulePath() / (module + kModuleSuffix);
  Loaded loaded;
  std::error_code ec;
  if (!std::filesystem::exists(file, ec)) {
    loaded.error = "the module " + file.string() + " is not installed";
    return loaded;
  }
#if defined(_WIN32)
  // The libraries the module needs (libpq.dll) are looked for beside it first.
  void* handle = LoadLibraryExW(file.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
#else
  // Every symbol resolved now, so a module that does not fit fails here, not in the middle of a call.
  void* handle = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
#endif
  if (handle == nullptr) {
    loaded.error = "cannot load " + file.string() + ": " + LastLoadError();
    return loaded;
  }
  using Version = const char* (*)();
  void* address = Symbol(handle, "QKModuleVersion");
  Version version = nullptr;
  std::memcpy(&version, &address, sizeof version);
  // A module that fails here is left loaded: unloading code whose static objects may have run is not
  // worth the risk.
  if (version == nullptr) {
    loaded.error = file.string() + " is not a module of this library";
    return loaded;
  }
  if (std::string(version()) != QK_VERSION) {
    loaded.error = file.string() + " was built for version " + version() + " of the library, this is " + QK_VERSION;
    return loaded;
  }
  loaded.handle = handle;
  return loaded;
}

}  // namespace

std::string ModuleFolder() { return ModulePath().string(); }

void* ModuleSymbol(const std::string& module, const char* symbol, std::string& error) {
  std::lock_guard<std::mutex> lock(g_mutex);
  auto found = g_modules.find(module);
  if (found == g_modules.end()) found = g_modules.emplace(module, Load(module)).first;
  const Loaded& loaded = found->second;
  if (loaded.handle == nullptr) {
    error = loaded.error;
    return nullptr;
  }
  void* address = Symbol(loaded.handle, symbol);
  if (address == nullptr) error = "the module " + module + " has no " + symbol;
  return address;
}

}  // namespace tablekit
