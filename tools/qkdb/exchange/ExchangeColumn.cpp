#include "exchange/ExchangeColumn.h"

namespace qkdb {

std::string ExchangeColumn::Header() const {
  if (label.empty()) return item;
  return item + " (" + label + (unit.empty() ? "" : ", " + unit) + ")";
}

std::string ExchangeColumn::ItemOfHeader(const std::string& header) {
  std::string item = header.substr(0, header.find(" ("));
  while (!item.empty() && (item.back() == ' ' || item.back() == '\t')) item.pop_back();
  return item;
}

}  // namespace qkdb
