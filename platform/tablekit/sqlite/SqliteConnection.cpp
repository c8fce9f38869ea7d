#include "tablekit/sqlite/SqliteConnection.h"

#include <sqlite3.h>

#include <chrono>
#include <thread>
#include <utility>

#include "tablekit/CADODatabase.h"
#include "tablekit/reads/ReadScope.h"

namespace tablekit {
namespace {

// RAII for a prepared statement.
struct Statement {
  sqlite3_stmt* stmt = nullptr;
  ~Statement() { sqlite3_finalize(stmt); }
};

bool Fail(sqlite3* db, std::string& error) {
  error = sqlite3_errmsg(db);
  return false;
}

// Prepares exactly one statement; text after it (other than blanks and comments) is refused, so a
// second statement is never run even if the dialect layer let one through.
bool Prepare(sqlite3* db, const std::string& sql, Statement& st, std::string& error) {
  const char* tail = nullptr;
  if (sqlite3_prepare_v2(db, sql.c_str(), static_cast<int>(sql.size()), &st.stmt, &tail) != SQLITE_OK)
    return Fail(db, error);
  if (st.stmt == nullptr) {
    error = "empty statement";
    return false;
  }
  if (tail && *tail) {
    sqlite3_stmt* extra = nullptr;
    const char* rest = nullptr;
    int rc = sqlite3_prepare_v2(db, tail, -1, &extra, &rest);
    bool another = rc != SQLITE_OK || extra != nullptr;
    sqlite3_finalize(extra);
    if (another) {
      error = "more than one statement";
      return false;
    }
  }
  return true;
}

bool Bind(sqlite3* db, sqlite3_stmt* st, int index, const FieldValue& v, std::string& error) {
  int rc = SQLITE_OK;
  std::string text;
  switch (v.kind) {
    case FieldValue::Kind::Null: rc = sqlite3_bind_null(st, index); break;
    case FieldValue::Kind::Integer: rc = sqlite3_bind_int64(st, index, v.integer); break;
    case FieldValue::Kind::Real: rc = sqlite3_bind_double(st, index, v.real); break;
    case FieldValue::Kind::Text:
      text = v.text.ToUtf8();
      rc = sqlite3_bind_text(st, index, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
      break;
    case FieldValue::Kind::Blob:
      rc = sqlite3_bind_blob(st, index, v.blob.data(), static_cast<int>(v.blob.size()), SQLITE_TRANSIENT);
      break;
  }
  return rc == SQLITE_OK || Fail(db, error);
}

FieldValue ReadColumn(sqlite3_stmt* st, int i) {
  FieldValue v;
  switch (sqlite3_column_type(st, i)) {
    case SQLITE_INTEGER: v = FieldValue::Int(sqlite3_column_int64(st, i)); break;
    case SQLITE_FLOAT: v = FieldValue::Real(sqlite3_column_double(st, i)); break;
    case SQLITE_TEXT: {
      auto p = reinterpret_cast<const char*>(sqlite3_column_text(st, i));
      v = FieldValue::Text(CString::FromUtf8(std::string_view(p, static_cast<std::size_t>(sqlite3_column_bytes(st, i)))));
      break;
    }
    case SQLITE_BLOB: {
      auto p = static_cast<const std::uint8_t*>(sqlite3_column_blob(st, i));
      v.kind = FieldValue::Kind::Blob;
      v.blob.assign(p, p + sqlite3_column_bytes(st, i));
      break;
    }
    default: break;
  }
  return v;
}

bool RunToEnd(sqlite3* db, sqlite3_stmt* st, std::string& error) {
  int rc;
  while ((rc = sqlite3_step(st)) == SQLITE_ROW) {
  }
  return rc == SQLITE_DONE || Fail(db, error);
}

// Collects every row of the kept statement, then gives the names of its columns: after stepping,
// because a statement that SQLite prepared again for a schema another connection changed may have
// other columns than before. The names are read from SQLite only then, and kept with the statement.
bool ReadRows(sqlite3* db, StatementCache::Kept& kept, ResultSet& result, std::string& error) {
  sqlite3_stmt* st = kept.statement;
  result = ResultSet();
  int n = -1;
  int rc;
  while ((rc = sqlite3_step(st)) == SQLITE_ROW) {
    if (n < 0) n = sqlite3_column_count(st);
    std::vector<FieldValue> row;
    row.reserve(static_cast<std::size_t>(n));
    for (int i = 0; i < n; ++i) row.push_back(ReadColumn(st, i));
    result.rows.push_back(std::move(row));
  }
  if (rc != SQLITE_DONE) return Fail(db, error);
  const int preparation = sqlite3_stmt_status(st, SQLITE_STMTSTATUS_REPREPARE, 0);
  if (kept.preparation != preparation) {
    kept.columns.clear();
    kept.table.clear();
    for (int i = 0; i < sqlite3_column_count(st); ++i) {
      const char* name = sqlite3_column_name(st, i);
      kept.columns.push_back(CString::FromUtf8(name ? name : ""));
      const char* table = sqlite3_column_table_name(st, i);
      if (i == 0) {
        kept.table = table ? table : "";
      } else if (!table || kept.table != table) {
        kept.table.clear();
      }
    }
    kept.preparation = preparation;
  }
  result.columns = kept.columns;
  result.table = kept.table;
  return true;
}

// Whether a statement of ours changes the schema (the kept statements are then let go).
bool ChangesSchema(const std::string& sql) {
  std::size_t start = sql.find_first_not_of(" \t\r\n");
  if (start == std::string::npos) return false;
  for (const char* word : {"create", "drop", "alter"}) {
    std::size_t i = 0;
    while (word[i] && start + i < sql.size() && (sql[start + i] | 0x20) == word[i]) ++i;
    if (word[i] == '\0') return true;
  }
  return false;
}

}  // namespace

std::unique_ptr<SqliteConnection> SqliteConnection::Open(const std::string& pathUtf8, std::string& error) {
  // For these two names SQLite makes a fresh database of its own (temporary, or in memory) instead of
  // opening a file: that would be an open that "succeeds" on no data.
  if (pathUtf8.empty() || pathUtf8 == ":memory:") {
    error = "no database file named";
    return nullptr;
  }
  sqlite3* db = nullptr;
  // No mutex: a connection is used by one thread at a time (CADODatabase is not for concurrent use),
  // and SQLite would otherwise lock one around every call, each column of each row included.
  int rc = sqlite3_open_v2(pathUtf8.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
  std::unique_ptr<SqliteConnection> conn(new SqliteConnection(db));  // closes db on every failure below
  if (rc != SQLITE_OK) {
    error = db ? sqlite3_errmsg(db) : "out of memory";
    return nullptr;
  }
  sqlite3_busy_handler(db, &SqliteConnection::WaitWhileBusy, conn.get());
  sqlite3_extended_result_codes(db, 1);
  // Opening is lazy in SQLite; reading the schema proves the file is a database.
  if (sqlite3_exec(db, "SELECT count(*) FROM sqlite_master", nullptr, nullptr, nullptr) != SQLITE_OK) {
    error = sqlite3_errmsg(db);
    return nullptr;
  }
  return conn;
}

int SqliteConnection::WaitWhileBusy(void* self, int tries) {
  using Clock = std::chrono::steady_clock;
  SqliteConnection& connection = *static_cast<SqliteConnection*>(self);
  if (tries == 0) connection.m_busySince = Clock::now();
  if (Clock::now() - connection.m_busySince >= std::chrono::milliseconds(connection.m_lockWaitMs)) return 0;
  std::this_thread::sleep_for(std::chrono::microseconds(kBusyPollUs));
  return 1;
}

SqliteConnection::~SqliteConnection() {
  LeaveReadScope();
  m_statements.Clear();  // SQLite closes a database only once its statements are gone
  sqlite3_close_v2(m_db);
}

int SqliteConnection::GetConnectType() const { return CADODatabase::connectTypeSQLite; }

StatementCache::Kept* SqliteConnection::Prepared(const std::string& sql, std::string& error) {
  if (StatementCache::Kept* kept = m_statements.Find(sql)) return kept;
  Statement fresh;
  if (!Prepare(m_db, sql, fresh, error)) return nullptr;
  return &m_statements.Keep(sql, std::exchange(fresh.stmt, nullptr));
}

bool SqliteConnection::Query(const std::string& sql, ResultSet& result, std::string& error) {
  return QueryBound(sql, {}, result, error);
}

bool SqliteConnection::QueryBound(const std::string& sql, const std::vector<FieldValue>& values, ResultSet& result,
                                  std::string& error) {
  JoinReadScope();
  StatementCache::Kept* kept = Prepared(sql, error);
  if (kept == nullptr) return false;
  sqlite3_stmt* st = kept->statement;
  bool ok = true;
  for (std::size_t i = 0; ok && i < values.size(); ++i) ok = Bind(m_db, st, static_cast<int>(i) + 1, values[i], error);
  ok = ok && ReadRows(m_db, *kept, result, error);
  sqlite3_reset(st);  // lets go of the statement's hold on the database at once
  if (!ok) m_statements.Drop(sql);
  return ok;
}

bool SqliteConnection::Execute(const std::string& sql, std::string& error) {
  LeaveReadScope();
  Statement st;
  const bool ok = Prepare(m_db, sql, st, error) && RunToEnd(m_db, st.stmt, error);
  if (ChangesSchema(sql)) m_statements.Clear();
  return ok;
}

void SqliteConnection::JoinReadScope() {
  if (m_inReadScope || !ReadScope::Active() || !sqlite3_get_autocommit(m_db)) return;
  // Deferred: the first read takes the shared lock. If BEGIN fails the queries run on their own.
  if (!RunKept("BEGIN")) return;
  m_inReadScope = true;
  ReadScope::Joined(this);
}

void SqliteConnection::EndReadScope() {
  if (!m_inReadScope) return;
  m_inReadScope = false;
  // Only reads ran inside (a write ends the transaction first), so ending it loses nothing.
  if (!RunKept("COMMIT")) RunKept("ROLLBACK");
}

bool SqliteConnection::RunKept(const std::string& sql) {
  std::string error;
  StatementCache::Kept* kept = Prepared(sql, error);
  if (kept == nullptr) return false;
  const bool ok = RunToEnd(m_db, kept->statement, error);
  sqlite3_reset(kept->statement);
  return ok;
}

void SqliteConnection::LeaveReadScope() {
  if (!m_inReadScope) return;
  EndReadScope();
  ReadScope::Left(this);
}

bool SqliteConnection::InsertRow(const std::string& table, const ColumnValues& values, long long& newKey,
                                 std::string& error) {
  std::string sql = "INSERT INTO " + QuoteIdentifier(table);
  if (values.empty()) {
    sql += " DEFAULT VALUES";
  } else {
    std::string names, marks;
    for (const auto& [name, value] : values) {
      names += (names.empty() ? "" : ", ") + QuoteIdentifier(name);
      marks += marks.empty() ? "?" : ", ?";
    }
    sql += " (" + names + ") VALUES (" + marks + ")";
  }
  LeaveReadScope();
  StatementCache::Kept* kept = Prepared(sql, error);
  if (kept == nullptr) return false;
  sqlite3_stmt* st = kept->statement;
  bool ok = true;
  for (std::size_t i = 0; ok && i < values.size(); ++i) ok = Bind(m_db, st, static_cast<int>(i) + 1, values[i].second, error);
  ok = ok && RunToEnd(m_db, st, error);
  sqlite3_reset(st);
  if (!ok) return false;
  newKey = sqlite3_last_insert_rowid(m_db);
  return true;
}

bool SqliteConnection::UpdateRow(const std::string& table, const std::string& keyColumn, long long key,
                                 const ColumnValues& values, std::string& error) {
  if (values.empty()) return true;
  std::string sets;
  for (const auto& [name, value] : values) sets += (sets.empty() ? "" : ", ") + QuoteIdentifier(name) + " = ?";
  std::string sql = "UPDATE " + QuoteIdentifier(table) + " SET " + sets + " WHERE " + QuoteIdentifier(keyColumn) + " = ?";
  LeaveReadScope();
  StatementCache::Kept* kept = Prepared(sql, error);
  if (kept == nullptr) return false;
  sqlite3_stmt* st = kept->statement;
  bool ok = true;
  int index = 1;
  for (auto it = values.begin(); ok && it != values.end(); ++it) ok = Bind(m_db, st, index++, it->second, error);
  ok = ok && (sqlite3_bind_int64(st, index, key) == SQLITE_OK || Fail(m_db, error)) && RunToEnd(m_db, st, error);
  sqlite3_reset(st);
  if (!ok) return false;
  if (sqlite3_changes(m_db) == 0) {
    error = "no row with key " + std::to_string(key);
    return false;
  }
  return true;
}

}  // namespace tablekit
