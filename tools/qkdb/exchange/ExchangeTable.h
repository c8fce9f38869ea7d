#pragma once
// ExchangeTable: the rows "qkdb export" writes and "qkdb import" reads, one kind of data at a time
// (weather, constructions, walls, rooms), as CSV or as JSON. Every value is as the database table
// keeps it, in the column's unit; a value the table leaves NULL is an empty CSV field or JSON null,
// never a default. Rows name the rows they belong to by name, never by ID, so that a file moves
// between databases.
//
// CSV: a header row of ExchangeColumn::Header cells, then one line per row; a field holding a comma,
// a double quote or a line break is quoted, the quote doubled (RFC 4180). UTF-8, lines ending in LF.
// JSON: {"kind", "columns": [{"item", "label", "unit"}], "rows": [{item: value}]}, UTF-8.

#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <vector>

#include "exchange/ExchangeColumn.h"

namespace qkdb {

class ExchangeTable {
 public:
  ExchangeTable(std::string kind, std::vector<ExchangeColumn> columns)
      : m_kind(std::move(kind)), m_columns(std::move(columns)) {}

  const std::string& Kind() const { return m_kind; }
  const std::vector<ExchangeColumn>& Columns() const { return m_columns; }
  std::size_t Size() const { return m_rows.size(); }
  // Row r as {item: value}: a string for a text column, a number or null for the others.
  const nlohmann::ordered_json& Row(std::size_t r) const { return m_rows.at(r); }
  // Where row r stands in the file it was read from, for messages: "walls.csv:12" or "walls.json row 3".
  const std::string& Where(std::size_t r) const { return m_where.at(r); }

  // Adds a row; items the row lacks are null ("" for a text column).
  void Add(const nlohmann::ordered_json& row, const std::string& where = "");

  void WriteCsv(std::ostream& out) const;
  void WriteJson(std::ostream& out) const;

  // Reads text, a file named name, as a table of kind with these columns: JSON when json is true,
  // else CSV. Throws DataError naming the file and line for text that is not such a table: malformed
  // CSV or JSON, another kind, a column missing or one not of the kind, a value of the wrong type.
  static ExchangeTable Read(const std::string& text, const std::string& name, bool json, const std::string& kind,
                            const std::vector<ExchangeColumn>& columns);

 private:
  void ReadCsv(const std::string& text, const std::string& name);
  void ReadJson(const std::string& text, const std::string& name);

  std::string m_kind;
  std::vector<ExchangeColumn> m_columns;
  std::vector<nlohmann::ordered_json> m_rows;
  std::vector<std::string> m_where;
};

}  // namespace qkdb
