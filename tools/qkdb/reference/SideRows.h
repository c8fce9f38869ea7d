#pragma once
// SideRows: rows of the tables beside the library's, which no record class writes (WeatherFileSource,
// CityAlias, RoomUseSchedule), inserted on the connection the record classes write on
// (SharedConnection.h): in the same transaction as theirs, on a file or on a server alike. Values are
// bound, never spliced into the statement.

#include <string>
#include <utility>
#include <variant>
#include <vector>

class CADODatabase;

namespace qkdb {

class SideRows {
 public:
  // Null (the default), a text, a real, or an integer (keys, flags).
  using Value = std::variant<std::monostate, std::string, double, long long>;
  using Row = std::vector<std::pair<std::string, Value>>;  // column name, value

  explicit SideRows(CADODatabase& db) : m_db(db) {}

  // Inserts row into table; throws DataError "cannot <what>: <the backend's reason>".
  void Insert(const std::string& table, const Row& row, const std::string& what);

 private:
  CADODatabase& m_db;
};

}  // namespace qkdb
