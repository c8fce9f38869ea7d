#pragma once
// The SQL dialect layer: the one place where the Access SQL that the library's classes format is
// turned into SQL that the database backends run. Every statement goes through it.
//
//   "text"          a double-quoted text is a string literal in Access: it becomes 'text' (a single
//                   quote inside is doubled). There is no escape inside it, so a text that holds a
//                   double quote ends early and the statement fails: the library never escapes names.
//   'text'          kept as it is ('' is a quote inside it).
//   [name]          a bracketed name becomes the standard quoted identifier "name"; for PostgreSQL,
//                   which folds unquoted names to lower case, "name" in lower case, so that [City]
//                   and City name the same table there too.
//   select top N    becomes a LIMIT N at the end of the statement (only for the outermost select;
//                   "top N percent" is refused).
//   order by a=b    Access sorts a comparison as a number, true (-1) before false (0); each order-by
//                   term that is a comparison becomes CASE WHEN a=b THEN 0 ELSE 1 END, which sorts
//                   the same way on every backend.
//   ;               ends the statement; anything but blanks after it is refused, never run.
//   -- /* `         refused outside texts and names: Access has no comments and no backquoted
//                   names, and the backends would read them as such, so a ";" the layer takes for
//                   part of a text could end the statement there.
// Text comparison ignoring case is the schema's business (text columns are COLLATE NOCASE).

#include <string>

#include "QKExport.h"

namespace tablekit {

// The backend a statement is translated for.
enum class SqlDialect { SQLite, PostgreSQL };

// Translates one Access statement to UTF-8 SQL. Returns false with a reason in error (and out
// unspecified) for an empty statement, an unterminated text or name, a second statement, a comment
// or a backquote, or an unsupported "top".
QK_EXPORT bool TranslateAccessSql(const wchar_t* accessSql, std::string& out, std::string& error,
                                  SqlDialect dialect = SqlDialect::SQLite);

}  // namespace tablekit
