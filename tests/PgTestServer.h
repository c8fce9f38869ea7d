#pragma once
// A database of its own on the PostgreSQL server named by the environment, for one test: created from
// the reference schema in SetUp, dropped in TearDown.
//
// QK_PG_URI names the server's maintenance database (postgresql://user@host:port/postgres). Without it
// the PostgreSQL tests are skipped, unless QK_PG_REQUIRED is set (as CI sets it), where they fail:
// a server that CI could not start must not pass as tested.

#include <gtest/gtest.h>

#include <string>

#include "mfc/CString.h"

// Runs sql (one statement or a script) on the database at uri: "" on success, else the server's reason.
std::string PgExec(const std::string& uri, const std::string& sql);

class PgTestDatabase {
 public:
  // The reference schema (with the functions the tests' SQLite-flavoured SQL needs), or nothing: a
  // database as a user's server hands it out, for building the reference database on.
  enum class Contents { kReferenceSchema, kEmpty };

  // Creates the database, or records why not (Available() is then false).
  explicit PgTestDatabase(Contents contents = Contents::kReferenceSchema);
  ~PgTestDatabase();
  PgTestDatabase(const PgTestDatabase&) = delete;
  PgTestDatabase& operator=(const PgTestDatabase&) = delete;

  bool Available() const { return !m_uri.empty(); }
  const std::string& Why() const { return m_why; }
  // The URI of the test's database, as the library takes it.
  CString Uri() const { return CString::FromUtf8(m_uri); }
  // The same URI, as a command line takes it.
  const std::string& UriText() const { return m_uri; }
  // Runs a script of statements on the test's database, its SQLite column forms rewritten for the
  // server (PostgresStatements); fails the calling test on an error.
  void Run(const std::string& sql) const;
  // A single value as text, as SQLite's would read (15 significant digits, "45.0" for a whole real);
  // "<null>" for null, "<error: ...>" on failure, "<error: no row>" for no row.
  std::string QueryOne(const std::string& sql) const;

 private:
  std::string m_server;  // maintenance URI
  std::string m_name;
  std::string m_uri;
  std::string m_why;
};

// In a fixture's SetUp: skips the test, or fails it when a server is required.
#define QK_REQUIRE_PG(database)                                                            \
  do {                                                                                      \
    if (!(database).Available()) {                                                          \
      if (std::getenv("QK_PG_REQUIRED")) FAIL() << "PostgreSQL required: " << (database).Why(); \
      GTEST_SKIP() << (database).Why();                                                     \
    }                                                                                       \
  } while (0)
