// The module postgresql: the PostgreSQL backend (PgConnection over libpq), loaded by the library on the
// first postgresql:// URI it opens. It takes CString and the rest of the platform layer from the
// library's exported symbols, so there is one copy of each in the process.

#include <type_traits>

#include "tablekit/ModuleLoader.h"
#include "tablekit/postgres/PgConnection.h"
#include "tablekit/postgres/PgModule.h"

QK_MODULE_VERSION_FUNCTION

QK_MODULE_ENTRY CADOConnection* QKOpenPostgres(const std::string& uri, const std::string& user,
                                               const std::string& password, std::string& error) {
  // The library calls this through PgOpenFunction: the two must agree.
  static_assert(std::is_same_v<decltype(&QKOpenPostgres), tablekit::PgOpenFunction>);
  return tablekit::PgConnection::Open(uri, user, password, error).release();
}
