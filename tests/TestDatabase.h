#pragma once
// Helpers for tests that need real SQLite files: a temporary folder removed at the end of the test,
// and a database file built in it from SQL text.

#include <filesystem>
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

// A single value read straight from a database with SQLite (not through the library), as text;
// "<null>" for null, "<error: ...>" on failure.
std::string QueryOne(const CString& path, const std::string& sql);
