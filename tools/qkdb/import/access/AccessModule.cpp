// The module qkdb-access: the Access reader (AccessFile over mdbtools and glib), loaded by import-access
// only (AccessReader.h). CString comes from the library's exported symbols.

#include <exception>
#include <type_traits>

#include "import/access/AccessFile.h"
#include "tablekit/ModuleLoader.h"

QK_MODULE_VERSION_FUNCTION

QK_MODULE_ENTRY qkdb::AccessReader* QKOpenAccessFile(const std::string& path, std::string& error) {
  // The tool calls this through AccessOpenFunction: the two must agree.
  static_assert(std::is_same_v<decltype(&QKOpenAccessFile), qkdb::AccessOpenFunction>);
  // Opening fails with a reason, not an exception: only the reader's own calls throw into the tool.
  try {
    return new qkdb::AccessFile(path);
  } catch (const std::exception& e) {
    error = e.what();
    return nullptr;
  }
}
