#pragma once
// qkdb import-access FILE --db OUT [--tables A,B] [--force [--even-if-open]]: copies the user tables of an Access
// file (.mdb or .accdb) - columns, types and rows - into a new SQLite file OUT, one SQLite table per
// Access table with the same table and column names. The type of each column is in AccessReader.h.
//
// OUT is written in a temporary file beside it and renamed onto it only when every table has been
// copied in full, so a failed import leaves nothing behind; an existing OUT is replaced only with
// --force, and not while another program has it open unless --even-if-open says so. The Access file is read in a child process (ChildProcess.h): mdbtools, which reads it,
// can crash on a damaged file, and that must end in a one-line message, not a crash of qkdb.

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace qkdb {

class ImportAccessCommand {
 public:
  explicit ImportAccessCommand(CLI::App& parent);
  bool Chosen() const;
  // The exit status: 0 imported; 1 the file cannot be read or OUT cannot be written (nothing changed
  // at OUT); 2 unusable arguments (a table the file lacks, OUT not a file path).
  int Run() const;

 private:
  CLI::App* m_app;
  std::string m_file;
  std::string m_db;
  std::vector<std::string> m_tables;
  bool m_force = false;
  bool m_evenIfOpen = false;
};

}  // namespace qkdb
