// Arbitrary statement text (UTF-8) through the Access dialect translation, for SQLite and for
// PostgreSQL. A translation may be refused; one that is accepted must hold at most one statement:
// the dialect drops a closing ";" and refuses anything after it, so no ";" may remain that SQLite
// would read as the end of a statement. sqlite3_complete tells, on each prefix that ends in a ";",
// whether SQLite's own tokenizer (which knows its strings, quoted names and comments) sees a
// statement end there. The PostgreSQL translation is held to the same test, which is close but not
// exact for the server's lexer; there PQexecParams runs one statement per call whatever the text.

#include <sqlite3.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "mfc/CString.h"
#include "tablekit/AccessDialect.h"

namespace {

void CheckOneStatement(const std::string& source, const std::string& sql) {
  for (std::size_t i = sql.find(';'); i != std::string::npos; i = sql.find(';', i + 1)) {
    if (sqlite3_complete(sql.substr(0, i + 1).c_str())) {
      std::fprintf(stderr, "a statement ends inside the translation of \"%s\": \"%s\"\n", source.c_str(), sql.c_str());
      std::abort();
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string source(reinterpret_cast<const char*>(data), size);
  const CString statement = CString::FromUtf8(source);
  for (tablekit::SqlDialect dialect : {tablekit::SqlDialect::SQLite, tablekit::SqlDialect::PostgreSQL}) {
    std::string out, error;
    if (tablekit::TranslateAccessSql(statement.GetString(), out, error, dialect)) CheckOneStatement(source, out);
  }
  return 0;
}
