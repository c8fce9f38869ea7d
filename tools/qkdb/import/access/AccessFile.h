#pragma once
// AccessFile: an Access database (.mdb from Jet 3 and 4, .accdb from Access 2007 on) opened for
// reading with mdbtools. It lists the user tables and opens them as AccessTable readers; the
// mdbtools handle is closed with the object.
//
// mdbtools trusts the offsets it finds in the file, so a damaged file can make it read out of its
// buffers: callers that must survive damaged files read them in a child process (ChildProcess.h).

#include <memory>
#include <string>
#include <vector>

#include "import/access/AccessTable.h"

namespace qkdb {

class AccessFile {
 public:
  // Opens path and reads its catalogue. Throws DataError when the file cannot be opened or its
  // catalogue cannot be read in full.
  explicit AccessFile(const std::string& path);
  ~AccessFile();
  AccessFile(const AccessFile&) = delete;
  AccessFile& operator=(const AccessFile&) = delete;

  // The names of the tables the file's users made, in catalogue order (system tables left out).
  const std::vector<std::string>& UserTables() const { return m_tables; }
  // The table of that exact name, ready to read from its first row. Throws DataError when its
  // definition cannot be read.
  AccessTable OpenTable(const std::string& name) const;

 private:
  struct Handle;
  std::unique_ptr<Handle> m_handle;
  std::string m_path;
  std::vector<std::string> m_tables;
};

}  // namespace qkdb
