#include "text/CsvTable.h"

#include <charconv>

#include "text/BoundedRead.h"

namespace qkdb {

namespace {

// Splits text into records of fields. lines receives the line each record starts on (1-based).
std::vector<std::vector<std::string>> Parse(const std::string& text, const std::string& name,
                                            std::vector<std::size_t>& lines) {
  std::vector<std::vector<std::string>> records;
  std::vector<std::string> record;
  std::string field;
  bool quoted = false;
  bool fieldStarted = false;
  std::size_t line = 1;
  std::size_t recordLine = 1;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (quoted) {
      if (c == '"' && i + 1 < text.size() && text[i + 1] == '"') {
        field += '"';
        ++i;
      } else if (c == '"') {
        quoted = false;
      } else {
        if (c == '\n') ++line;
        field += c;
      }
      continue;
    }
    if (c == '"' && !fieldStarted) {
      quoted = fieldStarted = true;
    } else if (c == ',') {
      record.push_back(std::move(field));
      field.clear();
      fieldStarted = false;
    } else if (c == '\n' || c == '\r') {
      if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
      record.push_back(std::move(field));
      field.clear();
      fieldStarted = false;
      records.push_back(std::move(record));
      record.clear();
      lines.push_back(recordLine);
      recordLine = ++line;
    } else {
      field += c;
      fieldStarted = true;
    }
  }
  if (quoted) throw DataError(name + ":" + std::to_string(recordLine) + ": a quoted field is not closed");
  if (fieldStarted || !record.empty()) {
    record.push_back(std::move(field));
    records.push_back(std::move(record));
    lines.push_back(recordLine);
  }
  return records;
}

}  // namespace

std::vector<std::vector<std::string>> CsvTable::Records(const std::string& text, const std::string& name,
                                                       std::vector<std::size_t>& lines) {
  return Parse(text, name, lines);
}

std::string ReadWhole(const std::filesystem::path& path, std::uintmax_t limit) {
  std::string text;
  if (std::string refused = ReadFile(path, limit, path.string(), text); !refused.empty()) throw DataError(refused);
  return text;
}

CsvTable::CsvTable(const std::filesystem::path& path) : m_name(path.filename().string()) {
  std::vector<std::size_t> lines;
  auto records = Parse(ReadWhole(path, kDataFileLimit), m_name, lines);
  if (records.empty()) throw DataError(m_name + ": no header row");
  const auto& header = records.front();
  for (std::size_t i = 0; i < header.size(); ++i) m_columns[header[i]] = i;
  for (std::size_t r = 1; r < records.size(); ++r) {
    if (records[r].size() != header.size())
      throw DataError(m_name + ":" + std::to_string(lines[r]) + ": " + std::to_string(records[r].size()) +
                      " fields where the header has " + std::to_string(header.size()));
    m_rows.push_back(std::move(records[r]));
    m_lines.push_back(lines[r]);
  }
}

const std::string& CsvTable::Field(std::size_t row, const std::string& column) const {
  auto found = m_columns.find(column);
  if (found == m_columns.end()) throw DataError(m_name + ": no column \"" + column + "\"");
  return m_rows.at(row)[found->second];
}

bool CsvTable::Number(std::size_t row, const std::string& column, double& value) const {
  const std::string& text = Field(row, column);
  if (text.empty()) return false;
  const char* end = text.data() + text.size();
  auto [stop, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc() || stop != end)
    throw DataError(Where(row) + ": \"" + text + "\" in column \"" + column + "\" is not a number");
  return true;
}

std::string CsvTable::Where(std::size_t row) const { return m_name + ":" + std::to_string(m_lines.at(row)); }

}  // namespace qkdb
