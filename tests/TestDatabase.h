#pragma once
// Helpers for tests that need real SQLite files: a temporary folder removed at the end of the test,
// and a database file built in it from SQL text.

#include <filesystem>
#include <functional>
#include <string>

#include "mfc/CString.h"

class TempDir {
 public:
  TempDir();
  ~TempDir();
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;

  const std::filesystem::path& path() const { return m_path; }
  // The full path of name inside the folder, as the library takes it.
  CString File(const std::string& name) const;

 private:
  std::filesystem::path m_path;
};

// Creates (or extends) the SQLite database at path by running the statements of sql. Fails the
// calling test on an SQL error.
void CreateDatabase(const CString& path, const std::string& sql);

// Creates the database name in dir from the project's schema (data/schema.sql), with every table of
// the reference database and no rows. Returns its path.
CString CreateReferenceDatabase(const TempDir& dir, const std::string& name = "reference.db");

// Creates the database name in dir from sql, then makes the file read-only (0444) and the folder
// reachable by any user (0755), for RunUnprivileged. Returns the file's path.
CString CreateReadOnlyDatabase(const TempDir& dir, const std::string& name, const std::string& sql);

// A single value read straight from a database with SQLite (not through the library), as text;
// "<null>" for null, "<error: ...>" on failure.
std::string QueryOne(const CString& path, const std::string& sql);

// Runs body in a child process that, when the tests run as root, first drops to the unprivileged
// user "nobody" (uid 65534), so that file permissions hold as they would for an engineer. Returns
// body's result, or -1 when the child could not run it. Folders the child must reach need o+x.
int RunUnprivileged(const std::function<int()>& body);
