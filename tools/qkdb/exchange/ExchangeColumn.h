#pragma once
// ExchangeColumn: one column of what "qkdb export" writes and "qkdb import" reads: the item (the
// database column, or Table.Name for the name of a row it belongs to), what it means in Chinese and
// English, its unit as the table keeps it, and the kind of value it holds.

#include <string>

namespace qkdb {

class ExchangeColumn {
 public:
  enum class Type { Text, Real, Integer };

  std::string item;
  std::string label;  // "中文 / English"
  std::string unit;   // "" for a name, a code or a count
  Type type = Type::Real;

  // The CSV header cell: "GMD (密度 / density, kg/m³)", or "Name (材料 / construction)" without a unit.
  std::string Header() const;
  // The item a header cell names: the text before " (", so that a file whose header carries the item
  // alone reads too.
  static std::string ItemOfHeader(const std::string& header);
};

}  // namespace qkdb
