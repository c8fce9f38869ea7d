#pragma once
// CsvTable: one CSV file of the reference data, read whole: a header row, then rows of text fields.
// Comma-separated, UTF-8, fields optionally in double quotes (a doubled quote inside stands for one;
// quoted fields may hold commas and line breaks), lines ending in LF or CRLF. Small enough to hand-write:
// the data files are a few hundred rows, and the rules above are all they use.

#include <cstdint>
#include <filesystem>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace qkdb {

// A file that cannot be read or used, with its name and line in the message.
class DataError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The whole of path, read within limit bytes (BoundedRead.h); throws DataError with the reason when
// it is missing, not a regular file or too large.
std::string ReadWhole(const std::filesystem::path& path, std::uintmax_t limit);

class CsvTable {
 public:
  // Reads path; throws DataError for a missing file, an unterminated quote, or a row whose field count
  // differs from the header's.
  explicit CsvTable(const std::filesystem::path& path);

  std::size_t Size() const { return m_rows.size(); }
  // The field of row (0 = the first row after the header) in column; throws DataError for a column
  // the header lacks.
  const std::string& Field(std::size_t row, const std::string& column) const;
  // The field as a number into value: false (value untouched) when the field is empty. Throws
  // DataError, naming the file, line and column, for a field that is not a number in C notation.
  bool Number(std::size_t row, const std::string& column, double& value) const;
  // Where row stands in the file, for messages: "name.csv:12".
  std::string Where(std::size_t row) const;

  // The records of CSV text, header included, by the rules above; lines receives the line each record
  // starts on. Throws DataError, naming name and the line, for an unterminated quote.
  static std::vector<std::vector<std::string>> Records(const std::string& text, const std::string& name,
                                                       std::vector<std::size_t>& lines);

 private:
  std::string m_name;
  std::map<std::string, std::size_t> m_columns;
  std::vector<std::vector<std::string>> m_rows;
  std::vector<std::size_t> m_lines;  // the file line each row starts on
};

}  // namespace qkdb
