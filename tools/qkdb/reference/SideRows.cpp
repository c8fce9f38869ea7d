#include "reference/SideRows.h"

#include "files/ReferenceDatabase.h"
#include "tablekit/CADOConnection.h"
#include "tablekit/CADODatabase.h"
#include "text/CsvTable.h"

namespace qkdb {

namespace {

// The row writes quote their names, and the server keeps the schema's unquoted names in lower case;
// SQLite ignores the case of a name, quoted or not. So lower case names the table on both.
std::string Lower(std::string name) {
  for (char& c : name)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return name;
}

tablekit::FieldValue Field(const SideRows::Value& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return tablekit::FieldValue::Text(CString::FromUtf8(*text));
  if (const auto* real = std::get_if<double>(&value)) return tablekit::FieldValue::Real(*real);
  if (const auto* integer = std::get_if<long long>(&value)) return tablekit::FieldValue::Int(*integer);
  return tablekit::FieldValue();
}

}  // namespace

void SideRows::Insert(const std::string& table, const Row& row, const std::string& what) {
  CADOConnection* connection = m_db.GetActiveConnection();
  if (connection == nullptr) throw DataError("cannot " + what + ": the database is not open");
  tablekit::ColumnValues values;
  for (const auto& [column, value] : row) values.emplace_back(Lower(column), Field(value));
  long long key = 0;
  std::string error;
  if (!connection->InsertRow(Lower(table), values, key, error)) throw DataError("cannot " + what + ": " + OneLine(error));
}

}  // namespace qkdb
