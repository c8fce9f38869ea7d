#include "tablekit/sqlite/SqliteConnection.h"

#include <sqlite3.h>

#include "tablekit/CADODatabase.h"

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

}  // namespace

std::unique_ptr<SqliteConnection> SqliteConnection::Open(const std::string& pathUtf8, std::string& error) {
  // For these two names SQLite makes a fresh database of its own (temporary, or in memory) instead of
  // opening a file: that would be an open that "succeeds" on no data.
  if (pathUtf8.empty() || pathUtf8 == ":memory:") {
    error = "no database file named";
    return nullptr;
  }
  sqlite3* db = nullptr;
  int rc = sqlite3_open_v2(pathUtf8.c_str(), &db, SQLITE_OPEN_READWRITE, nullptr);
  std::unique_ptr<SqliteConnection> conn(new SqliteConnection(db));  // closes db on every failure below
  if (rc != SQLITE_OK) {
    error = db ? sqlite3_errmsg(db) : "out of memory";
    return nullptr;
  }
  sqlite3_busy_timeout(db, kBusyTimeoutMs);
  sqlite3_extended_result_codes(db, 1);
  // Opening is lazy in SQLite; reading the schema proves the file is a database.
  if (sqlite3_exec(db, "SELECT count(*) FROM sqlite_master", nullptr, nullptr, nullptr) != SQLITE_OK) {
    error = sqlite3_errmsg(db);
    return nullptr;
  }
  return conn;
}

SqliteConnection::~SqliteConnection() { sqlite3_close_v2(m_db); }

int SqliteConnection::GetConnectType() const { return CADODatabase::connectTypeSQLite; }

bool SqliteConnection::Query(const std::string& sql, ResultSet& result, std::string& error) {
  Statement st;
  if (!Prepare(m_db, sql, st, error)) return false;
  int n = sqlite3_column_count(st.stmt);
  result = ResultSet();
  for (int i = 0; i < n; ++i) {
    const char* name = sqlite3_column_name(st.stmt, i);
    result.columns.push_back(CString::FromUtf8(name ? name : ""));
    const char* table = sqlite3_column_table_name(st.stmt, i);
    if (i == 0) {
      result.table = table ? table : "";
    } else if (!table || result.table != table) {
      result.table.clear();
    }
  }
  int rc;
  while ((rc = sqlite3_step(st.stmt)) == SQLITE_ROW) {
    std::vector<FieldValue> row;
    row.reserve(static_cast<std::size_t>(n));
    for (int i = 0; i < n; ++i) row.push_back(ReadColumn(st.stmt, i));
    result.rows.push_back(std::move(row));
  }
  return rc == SQLITE_DONE || Fail(m_db, error);
}

bool SqliteConnection::Execute(const std::string& sql, std::string& error) {
  Statement st;
  return Prepare(m_db, sql, st, error) && RunToEnd(m_db, st.stmt, error);
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
  Statement st;
  if (!Prepare(m_db, sql, st, error)) return false;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (!Bind(m_db, st.stmt, static_cast<int>(i) + 1, values[i].second, error)) return false;
  }
  if (!RunToEnd(m_db, st.stmt, error)) return false;
  newKey = sqlite3_last_insert_rowid(m_db);
  return true;
}

bool SqliteConnection::UpdateRow(const std::string& table, const std::string& keyColumn, long long key,
                                 const ColumnValues& values, std::string& error) {
  if (values.empty()) return true;
  std::string sets;
  for (const auto& [name, value] : values) sets += (sets.empty() ? "" : ", ") + QuoteIdentifier(name) + " = ?";
  std::string sql = "UPDATE " + QuoteIdentifier(table) + " SET " + sets + " WHERE " + QuoteIdentifier(keyColumn) + " = ?";
  Statement st;
  if (!Prepare(m_db, sql, st, error)) return false;
  int index = 1;
  for (const auto& [name, value] : values) {
    if (!Bind(m_db, st.stmt, index++, value, error)) return false;
  }
  if (sqlite3_bind_int64(st.stmt, index, key) != SQLITE_OK) return Fail(m_db, error);
  if (!RunToEnd(m_db, st.stmt, error)) return false;
  if (sqlite3_changes(m_db) == 0) {
    error = "no row with key " + std::to_string(key);
    return false;
  }
  return true;
}

}  // namespace tablekit
