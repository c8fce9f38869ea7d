#include "exchange/ExchangeTable.h"

#include <charconv>
#include <cmath>
#include <map>
#include <set>

#include "text/CsvTable.h"
#include "files/ReferenceDatabase.h"
#include "text/Output.h"

namespace qkdb {

namespace {

using nlohmann::ordered_json;
using Type = ExchangeColumn::Type;

std::string CsvField(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string out = "\"";
  for (char c : text) {
    if (c == '"') out += '"';
    out += c;
  }
  return out + "\"";
}

std::string CsvValue(const ordered_json& value) {
  if (value.is_null()) return "";
  if (value.is_string()) return CsvField(value.get<std::string>());
  if (value.is_number_integer()) return std::to_string(value.get<long long>());
  return Number(value.get<double>());
}

// A CSV field as the column's value; throws DataError naming where.
ordered_json FromCsv(const std::string& text, const ExchangeColumn& column, const std::string& where) {
  if (column.type == Type::Text) return text;
  if (text.empty()) return nullptr;
  const char* end = text.data() + text.size();
  if (column.type == Type::Integer) {
    long long v = 0;
    auto [stop, error] = std::from_chars(text.data(), end, v);
    if (error == std::errc() && stop == end) return v;
  } else {
    double v = 0.0;
    auto [stop, error] = std::from_chars(text.data(), end, v);
    if (error == std::errc() && stop == end && std::isfinite(v)) return v;
  }
  throw DataError(where + ": " + Quoted(text) + " in column " + column.item + " is not " +
                  (column.type == Type::Integer ? "a whole number" : "a number"));
}

// A JSON value checked against the column's type; throws DataError naming where.
ordered_json FromJson(const ordered_json& value, const ExchangeColumn& column, const std::string& where) {
  switch (column.type) {
    case Type::Text:
      if (value.is_string()) return value;
      break;
    case Type::Integer:
      if (value.is_null() || value.is_number_integer()) return value;
      break;
    case Type::Real:
      if (value.is_null()) return value;
      if (value.is_number()) return value.get<double>();
      break;
  }
  const char* wanted = column.type == Type::Text ? "text" : column.type == Type::Integer ? "a whole number or null"
                                                                                      : "a number or null";
  throw DataError(where + ": " + column.item + " is " + value.dump() + ", not " + wanted);
}

}  // namespace

void ExchangeTable::Add(const ordered_json& row, const std::string& where) {
  ordered_json full = ordered_json::object();
  for (const ExchangeColumn& c : m_columns) {
    const auto found = row.find(c.item);
    full[c.item] = found != row.end() ? *found : c.type == Type::Text ? ordered_json("") : ordered_json();
  }
  m_rows.push_back(std::move(full));
  m_where.push_back(where);
}

void ExchangeTable::WriteCsv(std::ostream& out) const {
  for (std::size_t c = 0; c < m_columns.size(); ++c) out << (c ? "," : "") << CsvField(m_columns[c].Header());
  out << '\n';
  for (const ordered_json& row : m_rows) {
    for (std::size_t c = 0; c < m_columns.size(); ++c) out << (c ? "," : "") << CsvValue(row[m_columns[c].item]);
    out << '\n';
  }
}

void ExchangeTable::WriteJson(std::ostream& out) const {
  ordered_json columns = ordered_json::array();
  for (const ExchangeColumn& c : m_columns)
    columns.push_back({{"item", c.item}, {"label", c.label}, {"unit", c.unit.empty() ? ordered_json() : ordered_json(c.unit)}});
  ordered_json rows = ordered_json::array();
  for (const ordered_json& row : m_rows) rows.push_back(row);
  const ordered_json whole = {{"kind", m_kind}, {"columns", std::move(columns)}, {"rows", std::move(rows)}};
  // A name the database holds in broken UTF-8 is written with U+FFFD rather than failing the export.
  out << whole.dump(2, ' ', false, ordered_json::error_handler_t::replace) << '\n';
}

ExchangeTable ExchangeTable::Read(const std::string& text, const std::string& name, bool json, const std::string& kind,
                                  const std::vector<ExchangeColumn>& columns) {
  ExchangeTable table(kind, columns);
  if (json)
    table.ReadJson(text, name);
  else
    table.ReadCsv(text, name);
  return table;
}

void ExchangeTable::ReadCsv(const std::string& text, const std::string& name) {
  // A spreadsheet may save UTF-8 with a byte-order mark before the header.
  const std::string body = text.starts_with("\xEF\xBB\xBF") ? text.substr(3) : text;
  std::vector<std::size_t> lines;
  const auto records = CsvTable::Records(body, name, lines);
  if (records.empty()) throw DataError(name + ": empty file, no header row");
  std::map<std::string, std::size_t> known;
  for (std::size_t c = 0; c < m_columns.size(); ++c) known[m_columns[c].item] = c;
  std::vector<std::size_t> position(records[0].size());
  std::set<std::size_t> seen;
  for (std::size_t f = 0; f < records[0].size(); ++f) {
    const std::string item = ExchangeColumn::ItemOfHeader(records[0][f]);
    const auto found = known.find(item);
    if (found == known.end())
      throw DataError(name + ":1: the column " + Quoted(records[0][f]) + " is not one of " + m_kind +
                      " (is this an export of another kind?)");
    if (!seen.insert(found->second).second) throw DataError(name + ":1: the column " + item + " appears twice");
    position[f] = found->second;
  }
  for (const ExchangeColumn& c : m_columns)
    if (!known.contains(c.item) || !seen.contains(known[c.item]))
      throw DataError(name + ":1: no column " + c.item + " (is this an export of another kind?)");
  for (std::size_t r = 1; r < records.size(); ++r) {
    const std::string where = name + ":" + std::to_string(lines[r]);
    if (records[r].size() == 1 && records[r][0].empty()) continue;  // a blank line
    if (records[r].size() != position.size())
      throw DataError(where + ": " + std::to_string(records[r].size()) + " fields where the header has " +
                      std::to_string(position.size()));
    ordered_json row = ordered_json::object();
    for (const ExchangeColumn& c : m_columns) row[c.item] = nullptr;
    for (std::size_t f = 0; f < position.size(); ++f) {
      const ExchangeColumn& column = m_columns[position[f]];
      row[column.item] = FromCsv(records[r][f], column, where);
    }
    Add(row, where);
  }
}

void ExchangeTable::ReadJson(const std::string& text, const std::string& name) {
  ordered_json whole;
  try {
    whole = ordered_json::parse(text);
  } catch (const ordered_json::exception& e) {
    throw DataError(name + ": not JSON: " + OneLine(e.what()));
  }
  if (!whole.is_object() || !whole.contains("rows") || !whole["rows"].is_array())
    throw DataError(name + ": not an export of qkdb (no \"rows\" array)");
  if (whole.contains("kind") && whole["kind"] != m_kind)
    throw DataError(name + ": an export of " + (whole["kind"].is_string() ? whole["kind"].get<std::string>() : "?") +
                    ", not of " + m_kind);
  const ordered_json& rows = whole["rows"];
  for (std::size_t r = 0; r < rows.size(); ++r) {
    const std::string where = name + " row " + std::to_string(r + 1);
    if (!rows[r].is_object()) throw DataError(where + ": not an object");
    for (const auto& [item, value] : rows[r].items()) {
      bool ours = false;
      for (const ExchangeColumn& c : m_columns) ours = ours || c.item == item;
      if (!ours) throw DataError(where + ": " + Quoted(item) + " is not an item of " + m_kind);
    }
    ordered_json row = ordered_json::object();
    for (const ExchangeColumn& c : m_columns) {
      if (!rows[r].contains(c.item)) throw DataError(where + ": no " + c.item);
      row[c.item] = FromJson(rows[r][c.item], c, where);
    }
    Add(row, where);
  }
}

}  // namespace qkdb
