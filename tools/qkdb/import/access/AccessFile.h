#pragma once
// AccessFile: an Access database opened for reading with mdbtools, inside the module qkdb-access
// (AccessReader.h). It lists the user tables and opens them as AccessTable readers; the mdbtools
// handle is closed with the object.
//
// mdbtools trusts the offsets it finds in the file, so a damaged file can make it read out of its
// buffers: callers that must survive damaged files read them in a child process (ChildProcess.h).

#include <memory>
#include <string>
#include <vector>

#include "import/access/AccessReader.h"

namespace qkdb {

class AccessFile final : public AccessReader {
 public:
  // Opens path and reads its catalogue. Throws DataError when the file cannot be opened or its
  // catalogue cannot be read in full.
  explicit AccessFile(const std::string& path);
  ~AccessFile() override;
  AccessFile(const AccessFile&) = delete;
  AccessFile& operator=(const AccessFile&) = delete;

  const std::vector<std::string>& UserTables() const override { return m_tables; }
  std::unique_ptr<AccessRows> OpenTable(const std::string& name) const override;

 private:
  struct Handle;
  std::unique_ptr<Handle> m_handle;
  std::string m_path;
  std::vector<std::string> m_tables;
};

}  // namespace qkdb
