#pragma once
// A record's row as the commands show it: the named items of its value, with null where the table
// leaves the column NULL. The value classes keep their defaults for a NULL number (20 °C, 60 %) and
// read NULL text as "", so only the table can tell a value from "not given".

#include <nlohmann/json.hpp>
#include <vector>

#include "mfc/CString.h"

class CAData;
struct tagDBSTRUCT;

namespace qkdb {

// Which of columns are NULL in the row rowId of record's table. Empty when the row cannot be read.
std::vector<bool> NullColumns(tagDBSTRUCT& record, long rowId, const std::vector<CString>& columns);

// The named items of value (NamedItems, WeatherItems.h), each the column of record's current row of
// the same name; null for what the row leaves NULL. record and value are the same object seen as its
// row and as its value. False when the row cannot be read.
bool RowItems(tagDBSTRUCT& record, CAData& value, nlohmann::ordered_json& items);

}  // namespace qkdb
