#pragma once
// qkdb init [--db PATH|URI] [--force [--even-if-open]] [--data DIR] [--wait SECONDS]: builds the
// reference database from data/schema.sql and the CSV files of data/, through the library's record
// classes.
//
// An SQLite file is built in a temporary file beside PATH and renamed onto PATH only when complete,
// so an interrupted build (a crash, a kill, a full disk) never leaves a half-built database at PATH;
// an existing PATH is replaced only with --force, and stays as it was when the build fails. Not while
// another program has PATH open (it would go on writing the old, unlinked file and lose its writes),
// unless --even-if-open says so.
//
// A postgresql:// URI is built on the server in one transaction: the tables of the schema, then every
// row. A failure, or a kill, anywhere before the commit leaves the server database as it was. A
// database that already holds any of the tables is refused unless --force, which drops and rebuilds
// them in the same transaction.

#include <string>

namespace CLI {
class App;
}

namespace qkdb {

class InitCommand {
 public:
  explicit InitCommand(CLI::App& parent);
  bool Chosen() const;
  // The exit status: 0 built; 1 the build failed or was refused (nothing changed at PATH or on the
  // server); 2 unusable arguments.
  int Run() const;

 private:
  int BuildFile(const std::string& path) const;
  int BuildOnServer(const std::string& uri) const;

  CLI::App* m_app;
  std::string m_db;
  std::string m_data;
  bool m_force = false;
  bool m_evenIfOpen = false;
  double m_wait = 30;
};

}  // namespace qkdb
