#include "ReferenceDatabase.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "CsvTable.h"
#include "binding/QKReferenceDatabase.h"
#include "construction/CQKTimbering.h"
#include "construction/CQKTimberingType.h"
#include "envelope/CQKBSCategory.h"
#include "envelope/CQKBSCode.h"
#include "envelope/CQKBSType.h"
#include "envelope/CQKBoundingStructure.h"
#include "geography/CQKCity.h"
#include "geography/CQKCountry.h"
#include "geography/CQKProvince.h"
#include "mfc/CString.h"
#include "rooms/CQKRULoadParam.h"
#include "rooms/CQKRoomType.h"
#include "rooms/CQKRoomUse.h"
#include "tablekit/CADODatabase.h"
#include "weather/CQKWeather.h"

namespace qkdb {

namespace {

bool IsServerUri(const std::string& path) {
  return path.starts_with("postgresql://") || path.starts_with("postgres://");
}

// The first bytes of every SQLite 3 database file.
bool LooksLikeSqlite(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  char header[16] = {};
  file.read(header, sizeof header);
  return file.gcount() == sizeof header && std::string(header, sizeof header) == std::string("SQLite format 3\0", 16);
}

}  // namespace

std::filesystem::path ShareFolder() {
  namespace fs = std::filesystem;
  std::error_code ec;
#ifdef __linux__
  const fs::path self = fs::read_symlink("/proc/self/exe", ec);
#else
  const fs::path self;  // elsewhere the folder is found from the current one, like a relative --db
#endif
  const fs::path bin = self.parent_path();
  const fs::path installed = bin / ".." / "share" / "QKModelDataBase";
  for (const fs::path& candidate : {installed, bin / ".." / ".." / "share" / "QKModelDataBase"})
    if (fs::is_directory(candidate, ec)) return fs::weakly_canonical(candidate, ec);
  return fs::weakly_canonical(installed, ec);
}

std::string DefaultDatabasePath() { return (ShareFolder() / "reference.db").string(); }

std::string DefaultDataFolder() { return (ShareFolder() / "data").string(); }

std::string ChooseDatabase(const std::string& option) {
  if (!option.empty()) return option;
  const char* env = std::getenv("QKDB_DATABASE");
  if (env && *env) return env;
  return DefaultDatabasePath();
}

namespace {

// Each record class with its table in the shipped schema, as QKReferenceDatabase::Bind binds them.
template <typename Visit>
void ForEachRecordClass(Visit visit) {
  visit.template operator()<CQKCountry>(L"Country");
  visit.template operator()<CQKProvince>(L"Province");
  visit.template operator()<CQKCity>(L"City");
  visit.template operator()<CQKWeather>(L"Weather");
  visit.template operator()<CQKTimberingType>(L"TimberingType");
  visit.template operator()<CQKTimbering>(L"Timbering");
  visit.template operator()<CQKBSCategory>(L"BSCategory");
  visit.template operator()<CQKBSType>(L"BSType");
  visit.template operator()<CQKBSCode>(L"BSCode");
  visit.template operator()<CQKBoundingStructure>(L"BoundingStructure");
  visit.template operator()<CQKRoomType>(L"RoomType");
  visit.template operator()<CQKRoomUse>(L"RoomUse");
  visit.template operator()<CQKRULoadParam>(L"RULoadParam");
}

}  // namespace

void BindRecordClasses(const std::string& path) {
  CString error;
  if (!QKReferenceDatabase::Bind(CString::FromUtf8(path), &error)) throw DataError(OneLine(error.ToUtf8()));
}

void WriteWithoutWaiting() {
  ForEachRecordClass([]<typename Record>(const wchar_t*) {
    Record().GetUserDatabase()->Execute(L"PRAGMA synchronous = OFF");
  });
}

std::string OneLine(const std::string& message) {
  std::string out;
  bool pendingBreak = false;
  for (char c : message) {
    if (c == '\n' || c == '\r') {
      pendingBreak = true;
      continue;
    }
    if (pendingBreak && (c == ' ' || c == '\t')) continue;
    if (pendingBreak) {
      while (!out.empty() && (out.back() == ' ' || out.back() == '\t')) out.pop_back();
      out += ' ';
      pendingBreak = false;
    }
    out += c;
  }
  while (!out.empty() && (out.back() == ' ' || out.back() == '\t')) out.pop_back();
  return out;
}

std::string NotADatabase(const std::string& path) {
  if (IsServerUri(path)) return "";
  std::error_code ec;
  if (!std::filesystem::exists(path, ec))
    return "no reference database at " + path + " (build it with \"qkdb init\", or choose one with --db)";
  if (!std::filesystem::is_regular_file(path, ec) || !LooksLikeSqlite(path)) return path + " is not an SQLite database";
  return "";
}

std::string OpenForReading(const std::string& path) {
  if (std::string problem = NotADatabase(path); !problem.empty()) return problem;
  CString error;
  if (!QKReferenceDatabase::Bind(CString::FromUtf8(path), &error)) return OneLine(error.ToUtf8());
  return "";
}

}  // namespace qkdb
