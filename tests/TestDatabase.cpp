#include "TestDatabase.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <system_error>

TempDir::TempDir() {
  std::string pattern = (std::filesystem::temp_directory_path() / "qktest-XXXXXX").string();
  char* made = mkdtemp(pattern.data());
  if (made == nullptr) throw std::system_error(errno, std::generic_category(), "mkdtemp");
  m_path = made;
}

TempDir::~TempDir() {
  std::error_code ec;
  // A test may have made files or folders read-only; give the owner back write access first.
  for (auto& entry : std::filesystem::recursive_directory_iterator(m_path, ec)) {
    std::filesystem::permissions(entry.path(), std::filesystem::perms::owner_all, std::filesystem::perm_options::add, ec);
  }
  std::filesystem::permissions(m_path, std::filesystem::perms::owner_all, std::filesystem::perm_options::add, ec);
  std::filesystem::remove_all(m_path, ec);
}

CString TempDir::File(const std::string& name) const { return CString::FromUtf8((m_path / name).string()); }

void CreateDatabase(const CString& path, const std::string& sql) {
  sqlite3* db = nullptr;
  ASSERT_EQ(sqlite3_open(path.ToUtf8().c_str(), &db), SQLITE_OK);
  char* error = nullptr;
  int rc = sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &error);
  std::string message = error ? error : "";
  sqlite3_free(error);
  sqlite3_close(db);
  ASSERT_EQ(rc, SQLITE_OK) << message;
}

CString CreateReferenceDatabase(const TempDir& dir, const std::string& name) {
  std::ifstream file(QK_SCHEMA_FILE);
  std::ostringstream sql;
  sql << file.rdbuf();
  EXPECT_TRUE(file.is_open()) << "cannot read " << QK_SCHEMA_FILE;
  CString path = dir.File(name);
  CreateDatabase(path, sql.str());
  return path;
}

CString CreateReadOnlyDatabase(const TempDir& dir, const std::string& name, const std::string& sql) {
  CString path = dir.File(name);
  CreateDatabase(path, sql);
  chmod(dir.path().c_str(), 0755);
  chmod(path.ToUtf8().c_str(), 0444);
  return path;
}

std::string QueryOne(const CString& path, const std::string& sql) {
  sqlite3* db = nullptr;
  if (sqlite3_open_v2(path.ToUtf8().c_str(), &db, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK) {
    sqlite3_close(db);
    return "<error: open>";
  }
  sqlite3_stmt* st = nullptr;
  std::string out;
  if (sqlite3_prepare_v2(db, sql.c_str(), -1, &st, nullptr) != SQLITE_OK) {
    out = std::string("<error: ") + sqlite3_errmsg(db) + ">";
  } else if (sqlite3_step(st) != SQLITE_ROW) {
    out = "<error: no row>";
  } else if (sqlite3_column_type(st, 0) == SQLITE_NULL) {
    out = "<null>";
  } else {
    out = reinterpret_cast<const char*>(sqlite3_column_text(st, 0));
  }
  sqlite3_finalize(st);
  sqlite3_close(db);
  return out;
}

int RunUnprivileged(const std::function<int()>& body) {
  std::fflush(nullptr);
  pid_t pid = fork();
  if (pid < 0) return -1;
  if (pid == 0) {
    if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) _exit(126);
    _exit(body());
  }
  int status = 0;
  if (waitpid(pid, &status, 0) != pid || !WIFEXITED(status)) return -1;
  return WEXITSTATUS(status);
}
