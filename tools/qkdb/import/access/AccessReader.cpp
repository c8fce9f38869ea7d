#include "import/access/AccessReader.h"

#include "tablekit/ModuleLoader.h"
#include "text/CsvTable.h"

namespace qkdb {

std::unique_ptr<AccessReader> OpenAccessFile(const std::string& path) {
  std::string error;
  const auto open = tablekit::ModuleFunction<AccessOpenFunction>("qkdb-access", kAccessOpenSymbol, error);
  if (open == nullptr) throw DataError("Access files cannot be read: " + error);
  std::unique_ptr<AccessReader> file(open(path, error));
  if (!file) throw DataError(error);
  return file;
}

}  // namespace qkdb
