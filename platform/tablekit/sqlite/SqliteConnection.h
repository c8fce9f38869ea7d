#pragma once
// The SQLite backend: a connection to one existing database file.
//
// Open never creates a file: a missing file, or one that is not an SQLite database, fails. A file the
// process may only read opens read-only (queries work, writes fail). A database locked by another
// writer is waited for up to kBusyTimeoutMs, then the statement fails.

#include <memory>
#include <string>

#include "tablekit/CADOConnection.h"

struct sqlite3;

namespace tablekit {

class SqliteConnection : public CADOConnection {
 public:
  static constexpr int kBusyTimeoutMs = 2000;

  // The open connection, or null with the reason in error.
  static std::unique_ptr<SqliteConnection> Open(const std::string& pathUtf8, std::string& error);
  ~SqliteConnection() override;

  int GetConnectType() const override;
  bool Query(const std::string& sql, ResultSet& result, std::string& error) override;
  bool Execute(const std::string& sql, std::string& error) override;
  bool InsertRow(const std::string& table, const ColumnValues& values, long long& newKey,
                 std::string& error) override;
  bool UpdateRow(const std::string& table, const std::string& keyColumn, long long key,
                 const ColumnValues& values, std::string& error) override;

 private:
  explicit SqliteConnection(sqlite3* db) : m_db(db) {}
  sqlite3* m_db;
};

}  // namespace tablekit
