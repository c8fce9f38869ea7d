#pragma once
// The reference rows are written through the record classes, which write every named item: an item
// the data does not give would be stored as the value class's default (Beijing's climate, a load of
// 0). ClearColumns then stores null in those columns, so the table says "not given" instead.

#include <string>
#include <vector>

class CADODatabase;

namespace qkdb {

// Throws DataError "cannot write <what>" unless ok: the record verbs' results, checked as rows go in.
void CheckWritten(bool ok, const std::string& what);
// Sets columns of the row with key id in table to null. Throws DataError when the statement fails.
void ClearColumns(CADODatabase& db, const std::string& table, long id, const std::vector<std::string>& columns);

}  // namespace qkdb
