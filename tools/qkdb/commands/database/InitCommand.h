#pragma once
// qkdb init [--db PATH] [--force [--even-if-open]] [--data DIR]: builds the reference database from data/schema.sql and
// the CSV files of data/, through the library's record classes. The database is built in a temporary
// file beside PATH and renamed onto PATH only when complete, so an interrupted build (a crash, a kill,
// a full disk) never leaves a half-built database at PATH; an existing PATH is replaced only with
// --force, and stays as it was when the build fails. Not while another program has PATH open (it would
// go on writing the old, unlinked file and lose its writes), unless --even-if-open says so.

#include <string>

namespace CLI {
class App;
}

namespace qkdb {

class InitCommand {
 public:
  explicit InitCommand(CLI::App& parent);
  bool Chosen() const;
  // The exit status: 0 built; 1 the build failed (nothing changed at PATH); 2 unusable arguments.
  int Run() const;

 private:
  CLI::App* m_app;
  std::string m_db;
  std::string m_data;
  bool m_force = false;
  bool m_evenIfOpen = false;
};

}  // namespace qkdb
