#pragma once
// SqliteFile: an SQLite file opened by the tool on a connection of its own (not the library's), for
// the steps the record classes have no verb for: copying a database, lookups with bound parameters,
// statements on a copy being built.
// Every failure throws DataError "cannot <what>: <SQLite's message>".

#include <string>
#include <variant>
#include <vector>

struct sqlite3;

namespace qkdb {

class SqliteFile {
 public:
  // A parameter bound to a statement: null (the default), texts as texts, numbers as numbers (SQLite
  // compares a number with a text by type, not by value).
  using Value = std::variant<std::monostate, std::string, double>;

  // Opens the existing database at path, for reading and writing unless readOnly.
  explicit SqliteFile(const std::string& path, bool readOnly = false);
  ~SqliteFile();
  SqliteFile(const SqliteFile&) = delete;
  SqliteFile& operator=(const SqliteFile&) = delete;

  sqlite3* Handle() const { return m_db; }
  // Runs sql (one statement or several, without results).
  void Execute(const std::string& sql, const std::string& what);
  // The rows of sql with values bound to ?1, ?2, …, each row as its columns' texts ("" for null).
  std::vector<std::vector<std::string>> Rows(const std::string& sql, const std::vector<Value>& values,
                                             const std::string& what);
  // True when the database has a table of that name (tables the tool added later may be missing
  // from a database built before them).
  bool HasTable(const std::string& name);
  [[noreturn]] void Fail(const std::string& what) const;

 private:
  sqlite3* m_db = nullptr;
};

}  // namespace qkdb
