#pragma once
// What every import checks and compares row by row: names the record classes can look up, a file's
// value against the value stored, and a file's value as the column value written.

#include <nlohmann/json.hpp>
#include <string>

#include "tablekit/FieldValue.h"

namespace qkdb {

// Why name cannot be the name of a row ("" when it can): empty, or holding a double quote (the
// records look names up between double quotes, unescaped, so such a row could never be found again).
// what names the row's kind in the reason: "construction".
std::string NameProblem(const std::string& name, const std::string& what);

// The name folded as the tables compare names (case ignored), for finding a name given twice.
std::wstring NameKey(const std::string& name);

// True when the file's value (a number, text or null) is what the table stores.
bool SameValue(const nlohmann::ordered_json& file, const tablekit::FieldValue& stored);

// The file's value as written into the column: null, an integer, a real or text.
tablekit::FieldValue ColumnValue(const nlohmann::ordered_json& file);

}  // namespace qkdb
