#pragma once
// qkdb import constructions|walls|rooms FILE [--db DB] [--wait S]: brings back what "qkdb export"
// wrote (CSV or JSON, by the file's extension, else by its first character), adding the rows the
// database lacks and updating those that differ, through the library's record classes.
//
// All or nothing: the whole file goes in in one transaction (WriteTransaction), and a single row
// that cannot be taken (a name the library cannot look up, a value missing, a layer's construction
// not in the database, a name given twice) refuses the whole import: the report names every refused
// row and its reason, and the database is left as it was. A database locked by another writer is
// waited for --wait seconds (30 unless told), then the import gives up, nothing changed.

#include <string>

namespace CLI {
class App;
}

namespace qkdb {

class ImportCommand {
 public:
  explicit ImportCommand(CLI::App& parent);
  bool Chosen() const;
  // The exit status: 0 imported; 1 rows refused or a database that cannot take the change (nothing
  // changed); 2 unusable arguments, or a file that cannot be read as an export of that kind.
  int Run() const;

 private:
  CLI::App* m_app;
  std::string m_kind;
  std::string m_file;
  std::string m_db;
  double m_wait = 30;
};

}  // namespace qkdb
