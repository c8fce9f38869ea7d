#include "files/ReferenceDatabase.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "text/CsvTable.h"
#include "binding/QKReferenceDatabase.h"
#include "mfc/CString.h"
#include "tablekit/CADODatabase.h"

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


}  // namespace

void BindRecordClasses(const std::string& path) {
  CString error;
  if (!QKReferenceDatabase::Bind(CString::FromUtf8(path), &error)) throw DataError(OneLine(error.ToUtf8()));
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
