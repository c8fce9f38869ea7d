#include "tablekit/postgres/PgBackend.h"

#include "tablekit/CADOConnection.h"
#include "tablekit/ModuleLoader.h"
#include "tablekit/postgres/PgModule.h"

namespace tablekit {

bool IsPostgresUri(const std::string& pathUtf8) {
  return pathUtf8.rfind("postgresql://", 0) == 0 || pathUtf8.rfind("postgres://", 0) == 0;
}

std::unique_ptr<CADOConnection> OpenPostgres(const std::string& uri, const std::string& user,
                                             const std::string& password, std::string& error) {
  std::string why;
  const auto open = ModuleFunction<PgOpenFunction>("postgresql", kPgOpenSymbol, why);
  if (open == nullptr) {
    error = "PostgreSQL cannot be used: " + why;
    return nullptr;
  }
  return std::unique_ptr<CADOConnection>(open(uri, user, password, error));
}

}  // namespace tablekit
