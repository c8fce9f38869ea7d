#pragma once
// The database tests run once per backend: on an SQLite file and on a PostgreSQL server
// (PgTestServer.h says which server, and when a missing one skips or fails). BackendFixture makes a
// reference database from the schema on the test's backend; the test seeds it and reads it back in
// SQL (written for SQLite; the server is given group_concat, round(real, digits) and typeof to match).
//
//   class CQKCountryTest : public BackendFixture {};
//   TEST_P(CQKCountryTest, ...) { ... }
//   QK_ON_BOTH_BACKENDS(CQKCountryTest);

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "PgTestServer.h"
#include "TestDatabase.h"
#include "mfc/CString.h"
#include "tablekit/CADODatabase.h"

enum class Backend { SQLite, PostgreSQL };

// A reference database made from the schema on one backend.
class ReferenceDatabase {
 public:
  ReferenceDatabase(Backend backend, const TempDir& dir, const std::string& name = "reference.db");
  bool Available() const { return m_backend == Backend::SQLite || m_pg->Available(); }
  std::string Why() const { return m_pg ? m_pg->Why() : std::string(); }
  // What OpenAccess and S_Init take: the file's path, or the server database's URI.
  CString Path() const { return m_path; }
  // Runs a script; fails the calling test on an error.
  void Seed(const std::string& sql) const;
  // One value as text, as SQLite prints it.
  std::string Query(const std::string& sql) const;

 private:
  Backend m_backend;
  CString m_path;
  std::unique_ptr<PgTestDatabase> m_pg;
};

class BackendFixture : public ::testing::TestWithParam<Backend> {
 protected:
  void SetUp() override;

  void Seed(const std::string& sql) { reference->Seed(sql); }
  std::string Query(const std::string& sql) const { return reference->Query(sql); }
  // A second reference database on the same backend.
  std::unique_ptr<ReferenceDatabase> Another(const std::string& name) const;
  bool OnSQLite() const { return GetParam() == Backend::SQLite; }

  TempDir dir;
  std::unique_ptr<ReferenceDatabase> reference;
  CString path;     // reference->Path()
  CADODatabase db;  // the test's own connection on it
};

std::string BackendName(const ::testing::TestParamInfo<Backend>& info);

#define QK_ON_BOTH_BACKENDS(Suite) \
  INSTANTIATE_TEST_SUITE_P(Backends, Suite, ::testing::Values(Backend::SQLite, Backend::PostgreSQL), BackendName)

// In a test body: the behaviour tested is SQLite's own (file permissions, a missing file, a locked
// file) and has no meaning on a server.
#define QK_SQLITE_ONLY() \
  if (!OnSQLite()) GTEST_SKIP() << "a property of the SQLite file"
