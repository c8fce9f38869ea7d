#pragma once
// The dialect layer's second form (see AccessDialect.h): a statement for SQLite whose literal values
// stand apart from its text, so that one prepared statement serves every id and every name. Internal
// to the record-access library (exported for its tests only).

#include <string>
#include <vector>

#include "QKExport.h"
#include "tablekit/FieldValue.h"

namespace tablekit {

// text holds a "?" where each value stood, values the values in that order.
struct BoundSql {
  std::string text;
  std::vector<FieldValue> values;
};

// As TranslateAccessSql for SQLite, with the literals of search conditions taken out as values: a
// whole number or a text next to a comparison (=, <>, <, >, <=, >=, !=, like, between, ...) after
// where, on or having. Everything else stays in the text, where a bound value could change what the
// statement means or what its columns are called: the select list (a column is named after its
// expression), order by and group by (a number there is a column position), top, and decimal
// numbers (SQLite reads a decimal literal with a conversion of its own, which need not round as
// strtod does). The same statements fail, with the same reasons, as with TranslateAccessSql.
QK_EXPORT bool TranslateAccessSqlBound(const wchar_t* accessSql, BoundSql& out, std::string& error);

}  // namespace tablekit
