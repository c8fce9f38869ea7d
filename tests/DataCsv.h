#pragma once
// The shipped data files (data/*.csv) as the tests read them, independently of the tool's own reader:
// a header row, then one row per line, fields separated by commas, a field in double quotes may hold
// commas (the files hold no line breaks inside fields).

#include <map>
#include <string>
#include <vector>

class DataCsv {
 public:
  // file is a name in data/ ("materials_cn_gb50176_93_era.csv").
  explicit DataCsv(const std::string& file);

  std::size_t Size() const { return m_rows.size(); }
  // The field of row (0 = the first after the header) in column; std::out_of_range for a column the
  // header lacks.
  const std::string& operator()(std::size_t row, const std::string& column) const;
  // The field as a number (std::invalid_argument when it is empty or not one).
  double Number(std::size_t row, const std::string& column) const;

 private:
  std::map<std::string, std::size_t> m_columns;
  std::vector<std::vector<std::string>> m_rows;
};
