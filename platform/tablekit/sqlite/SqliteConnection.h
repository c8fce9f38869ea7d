#pragma once
// The SQLite backend: a connection to one existing database file.
//
// Open never creates a file: a missing file, or one that is not an SQLite database, fails. A file the
// process may only read opens read-only (queries work, writes fail). A database locked by another
// writer is waited for up to kBusyTimeoutMs (or what SetLockWait says), then the statement fails.
//
// Queries are prepared once and kept (StatementCache); their values come bound (QueryBound). Inside
// a ReadScope a query begins a read transaction when the connection is in none.

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "tablekit/CADOConnection.h"
#include "tablekit/sqlite/StatementCache.h"

struct sqlite3;
struct sqlite3_stmt;

namespace tablekit {

class SqliteConnection : public CADOConnection {
 public:
  static constexpr int kBusyTimeoutMs = 2000;
  // How often a lock another connection holds is asked for again while waiting. SQLite's own wait
  // backs off to 100 ms between tries, and SQLite keeps no queue: a program that writes row after row
  // leaves gaps of microseconds between its commits, which tries that far apart nearly always miss.
  static constexpr int kBusyPollUs = 200;
  // Prepared queries kept per connection: more than the distinct queries of any one call of the
  // library, few enough that the memory they hold stays small.
  static constexpr std::size_t kKeptStatements = 64;

  // The open connection, or null with the reason in error.
  static std::unique_ptr<SqliteConnection> Open(const std::string& pathUtf8, std::string& error);
  ~SqliteConnection() override;

  int GetConnectType() const override;
  bool Query(const std::string& sql, ResultSet& result, std::string& error) override;
  bool BindsLiterals() const override { return true; }
  bool QueryBound(const std::string& sql, const std::vector<FieldValue>& values, ResultSet& result,
                  std::string& error) override;
  void SetLockWait(int milliseconds) override { m_lockWaitMs = milliseconds; }
  void EndReadScope() override;
  bool Execute(const std::string& sql, std::string& error) override;
  bool InsertRow(const std::string& table, const ColumnValues& values, long long& newKey,
                 std::string& error) override;
  bool UpdateRow(const std::string& table, const std::string& keyColumn, long long key,
                 const ColumnValues& values, std::string& error) override;

 private:
  explicit SqliteConnection(sqlite3* db) : m_db(db), m_statements(kKeptStatements) {}
  // SQLite's busy handler: true (try again) every kBusyPollUs until the lock wait has passed.
  static int WaitWhileBusy(void* self, int tries);
  // The kept statement for sql, prepared now if it is not kept yet; null with the reason in error.
  StatementCache::Kept* Prepared(const std::string& sql, std::string& error);
  // Runs a statement without rows or values through the kept statements (BEGIN and COMMIT of the
  // read transactions, which a call may make many times); true on success.
  bool RunKept(const std::string& sql);
  // Begins the read transaction of a live ReadScope, when the connection is in no transaction.
  void JoinReadScope();
  // Ends this connection's read transaction before a write, so that the write is not inside it.
  void LeaveReadScope();

  sqlite3* m_db;
  StatementCache m_statements;
  bool m_inReadScope = false;  // in a read transaction it began for a ReadScope
  std::chrono::steady_clock::time_point m_busySince;  // when the present wait for a lock began
  int m_lockWaitMs = kBusyTimeoutMs;
};

}  // namespace tablekit
