#include "import/WriteTransaction.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cctype>
#include <cmath>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <thread>

#include "files/ReferenceDatabase.h"
#include "mfc/CString.h"

namespace qkdb {

namespace {

// The advisory lock every qkdb writer takes on PostgreSQL: "qkdb" in ASCII.
constexpr long long kWriterLock = 0x716B6462;

std::string Text(const tablekit::FieldValue& value) {
  switch (value.kind) {
    case tablekit::FieldValue::Kind::Integer:
      return std::to_string(value.integer);
    case tablekit::FieldValue::Kind::Real:
      return WriteTransaction::Literal(value.real);
    case tablekit::FieldValue::Kind::Text:
      return value.text.ToUtf8();
    default:
      return "";
  }
}

// SQLite says "database is locked" when its busy wait runs out; PostgreSQL "canceling statement due
// to lock timeout".
bool IsBusy(const std::string& error) {
  return error.find("locked") != std::string::npos || error.find("lock timeout") != std::string::npos ||
         error.find("busy") != std::string::npos;
}

}  // namespace

WriteTransaction::WriteTransaction(const std::string& path, double waitSeconds) {
  using Clock = std::chrono::steady_clock;
  const auto wait = std::chrono::milliseconds(std::llround(std::max(0.0, waitSeconds) * 1000.0));
  const auto deadline = Clock::now() + wait;
  char seconds[32];
  std::snprintf(seconds, sizeof seconds, "%g", waitSeconds);
  const std::string busy = path + " is being changed by another program and stayed locked for " + seconds +
                           " s; nothing was changed (try again, or wait longer with --wait)";
  // Opening an SQLite file reads its schema, which a writer in the middle of its commit holds off; the
  // library waits 2 s for that, the tool as long as it was told.
  while (!m_db.OpenAccess(CString::FromUtf8(path), L"", L"")) {
    const std::string error = OneLine(m_db.GetLastError().ToUtf8());
    if (!IsBusy(error)) throw DataError("cannot open " + path + ": " + error);
    if (Clock::now() >= deadline) throw DatabaseBusy(busy);
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  const auto msLeft = [&] {
    return std::max<long long>(1, std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count());
  };
  std::string error;
  bool begun = false;
  if (IsServer()) {
    tablekit::ResultSet locked;
    begun = Connection().Execute("BEGIN", error) &&
            Connection().Execute("SET LOCAL lock_timeout = " + std::to_string(msLeft()), error) &&
            Connection().Query("SELECT pg_advisory_xact_lock(" + std::to_string(kWriterLock) + ")", locked, error);
    m_open = true;  // BEGIN ran: a failure after it is rolled back by the destructor
  } else {
    // The library's own wait asks for the lock every 0.2 ms (SQLite keeps no queue, and a host that
    // writes row after row leaves only short gaps); here it lasts as long as the tool was told.
    Connection().SetLockWait(static_cast<int>(msLeft()));
    begun = Connection().Execute("BEGIN IMMEDIATE", error);
    m_open = begun;
  }
  if (begun) return;
  if (IsBusy(error)) throw DatabaseBusy(busy);
  throw DataError("cannot begin a change of " + path + ": " + OneLine(error));
}

WriteTransaction::~WriteTransaction() {
  if (!m_open) return;
  std::string ignored;
  Connection().Execute("ROLLBACK", ignored);
}

bool WriteTransaction::IsServer() const { return m_db.GetCurrentConnectType() == CADODatabase::connectTypePostgreSQL; }

CADOConnection& WriteTransaction::Connection() { return *m_db.GetActiveConnection(); }

tablekit::ResultSet WriteTransaction::Values(const std::string& sql, const std::string& what) {
  tablekit::ResultSet result;
  std::string error;
  if (!Connection().Query(sql, result, error)) throw DataError("cannot " + what + ": " + OneLine(error));
  return result;
}

std::vector<std::vector<std::string>> WriteTransaction::Rows(const std::string& sql, const std::string& what) {
  std::vector<std::vector<std::string>> rows;
  for (const auto& row : Values(sql, what).rows) {
    std::vector<std::string>& texts = rows.emplace_back();
    for (const auto& value : row) texts.push_back(Text(value));
  }
  return rows;
}

void WriteTransaction::Execute(const std::string& sql, const std::string& what) {
  std::string error;
  if (!Connection().Execute(sql, error)) throw DataError("cannot " + what + ": " + OneLine(error));
}

void WriteTransaction::UpdateRow(const std::string& table, long id, const tablekit::ColumnValues& values,
                                 const std::string& what) {
  // The server folds the unquoted names of the schema to lower case; the row writer quotes them.
  std::string name = table;
  if (IsServer())
    for (char& c : name) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  std::string error;
  if (!Connection().UpdateRow(name, IsServer() ? "id" : "ID", id, values, error))
    throw DataError("cannot " + what + ": " + OneLine(error));
}

bool WriteTransaction::HasTable(const std::string& name) {
  const std::string sql =
      IsServer() ? "SELECT COUNT(*) FROM information_schema.tables WHERE table_schema = current_schema() AND "
                   "lower(table_name) = lower(" + Literal(name) + ")"
                 : "SELECT COUNT(*) FROM sqlite_master WHERE type = 'table' AND name = " + Literal(name) +
                       " COLLATE NOCASE";
  return Rows(sql, "look for the table " + name).at(0).at(0) != "0";
}

void WriteTransaction::Commit() {
  std::string error;
  if (!Connection().Execute("COMMIT", error)) throw DataError("cannot commit the change: " + OneLine(error));
  m_open = false;
}

std::string WriteTransaction::Literal(const std::string& text) {
  std::string out = "'";
  for (char c : text) {
    if (c == '\'') out += '\'';
    out += c;
  }
  return out + "'";
}

std::string WriteTransaction::Literal(double number) {
  char text[32];
  const auto end = std::to_chars(text, text + sizeof text, number).ptr;  // shortest form that reads back
  return std::string(text, end);
}

void FaultPoint([[maybe_unused]] const char* point) {
#if defined(QKDB_FAULT_POINTS) && !defined(_WIN32)
  const char* chosen = std::getenv("QKDB_KILL_AT");
  if (chosen && std::strcmp(chosen, point) == 0) std::raise(SIGKILL);
#endif
}

}  // namespace qkdb
