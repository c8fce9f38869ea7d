#pragma once
// The rows an export reads besides the records' items: keys and names in the order the catalogue
// lists them, run through a record's own connection (the record classes bound beforehand).

#include <string>
#include <vector>

struct tagDBSTRUCT;

namespace qkdb {

// The rows of sql (the library's SQL), each value as text, "" for null. Throws DataError when the
// query fails.
std::vector<std::vector<std::string>> StoredRows(tagDBSTRUCT& record, const std::string& sql);

}  // namespace qkdb
