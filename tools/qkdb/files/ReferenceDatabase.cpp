#include "files/ReferenceDatabase.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "binding/QKReferenceDatabase.h"
#include "binding/ReferenceTables.h"
#include "files/SharedConnection.h"
#include "mfc/CString.h"
#include "tablekit/CADODatabase.h"
#include "text/CsvTable.h"

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

// The folder ShareFolder() names, looked for.
std::filesystem::path FindShareFolder() {
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

}  // namespace

std::filesystem::path ShareFolder() {
  static const std::filesystem::path folder = FindShareFolder();  // the commands' help texts name it too
  return folder;
}

std::string DefaultDatabasePath() { return (ShareFolder() / "reference.db").string(); }

std::string DefaultDataFolder() { return (ShareFolder() / "data").string(); }

std::string ChooseDatabase(const std::string& option) {
  if (!option.empty()) return option;
  const char* env = std::getenv("QKDB_DATABASE");
  if (env && *env) return env;
  return DefaultDatabasePath();
}

void RequireReferenceTables(CADODatabase& db) {
  if (const CString missing = MissingReferenceTable(db); !missing.IsEmpty()) throw DataError(OneLine(missing.ToUtf8()));
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

CommandDatabase::CommandDatabase() = default;

CommandDatabase::~CommandDatabase() {
  m_shared.reset();  // the record classes get their own connections back before this one closes
  m_db.reset();
}

std::string CommandDatabase::Open(const std::string& path) {
  m_shared.reset();
  m_db.reset();
  if (std::string problem = NotADatabase(path); !problem.empty()) return problem;
  auto db = std::make_unique<CADODatabase>();
  // The words QKReferenceDatabase::Bind would use, so a command says the same as the Python package.
  if (!db->OpenAccess(CString::FromUtf8(path), L"", L""))
    return OneLine("cannot open " + path + ": " + db->GetLastError().ToUtf8());
  if (const CString missing = MissingReferenceTable(*db); !missing.IsEmpty()) return OneLine(missing.ToUtf8());
  m_db = std::move(db);
  m_shared = std::make_unique<SharedConnection>(*m_db, path);
  return "";
}

}  // namespace qkdb
