#include "DataCsv.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace {

std::vector<std::string> Fields(const std::string& line) {
  std::vector<std::string> fields(1);
  bool quoted = false;
  for (char c : line) {
    if (c == '"')
      quoted = !quoted;
    else if (c == ',' && !quoted)
      fields.emplace_back();
    else if (c != '\r')
      fields.back() += c;
  }
  return fields;
}

}  // namespace

DataCsv::DataCsv(const std::string& file) {
  std::ifstream in(std::filesystem::path(QK_DATA_DIR) / file);
  if (!in) throw std::runtime_error("cannot read data/" + file);
  std::string line;
  std::getline(in, line);
  const std::vector<std::string> header = Fields(line);
  for (std::size_t i = 0; i < header.size(); ++i) m_columns[header[i]] = i;
  while (std::getline(in, line))
    if (!line.empty()) m_rows.push_back(Fields(line));
}

const std::string& DataCsv::operator()(std::size_t row, const std::string& column) const {
  return m_rows.at(row).at(m_columns.at(column));
}

double DataCsv::Number(std::size_t row, const std::string& column) const {
  const std::string& text = (*this)(row, column);
  std::size_t used = 0;
  const double value = std::stod(text, &used);
  if (used != text.size()) throw std::invalid_argument(column + " \"" + text + "\" is not a number");
  return value;
}
