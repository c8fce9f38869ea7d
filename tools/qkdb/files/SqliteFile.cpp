#include "files/SqliteFile.h"

#include <sqlite3.h>

#include "text/CsvTable.h"

namespace qkdb {

SqliteFile::SqliteFile(const std::string& path, bool readOnly) {
  if (sqlite3_open_v2(path.c_str(), &m_db, readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE, nullptr) !=
      SQLITE_OK)
    Fail("open " + path);
}

SqliteFile::~SqliteFile() { sqlite3_close(m_db); }

void SqliteFile::Fail(const std::string& what) const {
  throw DataError("cannot " + what + ": " + (m_db ? sqlite3_errmsg(m_db) : "out of memory"));
}

void SqliteFile::Execute(const std::string& sql, const std::string& what) {
  if (sqlite3_exec(m_db, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) Fail(what);
}

std::vector<std::vector<std::string>> SqliteFile::Rows(const std::string& sql, const std::vector<Value>& values,
                                                             const std::string& what) {
  sqlite3_stmt* stmt = nullptr;
  if (sqlite3_prepare_v2(m_db, sql.c_str(), -1, &stmt, nullptr) != SQLITE_OK) Fail(what);
  for (std::size_t i = 0; i < values.size(); ++i) {
    const int at = static_cast<int>(i + 1);
    if (const auto* text = std::get_if<std::string>(&values[i]))
      sqlite3_bind_text(stmt, at, text->c_str(), -1, SQLITE_TRANSIENT);
    else if (const auto* number = std::get_if<double>(&values[i]))
      sqlite3_bind_double(stmt, at, *number);
    else
      sqlite3_bind_null(stmt, at);
  }
  std::vector<std::vector<std::string>> rows;
  int rc = SQLITE_ROW;
  while ((rc = sqlite3_step(stmt)) == SQLITE_ROW) {
    std::vector<std::string> row;
    for (int c = 0; c < sqlite3_column_count(stmt); ++c) {
      const auto* text = sqlite3_column_text(stmt, c);
      row.emplace_back(text ? reinterpret_cast<const char*>(text) : "");
    }
    rows.push_back(std::move(row));
  }
  sqlite3_finalize(stmt);
  if (rc != SQLITE_DONE) Fail(what);
  return rows;
}

bool SqliteFile::HasTable(const std::string& name) {
  return !Rows("SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = ?1", {name}, "look for the table " + name)
              .empty();
}

}  // namespace qkdb
