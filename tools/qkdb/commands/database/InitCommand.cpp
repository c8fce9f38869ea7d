#include "commands/database/InitCommand.h"

#include <CLI/CLI.hpp>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <sqlite3.h>

#include "files/AtomicFile.h"
#include "files/OpenFiles.h"
#include "files/ReferenceDatabase.h"
#include "import/WriteTransaction.h"
#include "reference/ReferenceLoader.h"
#include "reference/SchemaStatements.h"
#include "tablekit/postgres/PgSchema.h"
#include "text/BoundedRead.h"
#include "text/CsvTable.h"

namespace qkdb {

namespace {

namespace fs = std::filesystem;

bool IsServerUri(const std::string& path) {
  return path.starts_with("postgresql://") || path.starts_with("postgres://");
}

// The URI as printed: a password in it replaced by "***", so that a report pasted into a ticket does
// not give it away.
std::string Shown(const std::string& uri) {
  const std::size_t start = uri.find("://") + 3;
  const std::size_t at = uri.find('@', start);
  const std::size_t colon = uri.find(':', start);
  if (at == std::string::npos || colon == std::string::npos || colon > at) return uri;
  return uri.substr(0, colon + 1) + "***" + uri.substr(at);
}

void CreateSchema(const std::string& path, const std::string& schema) {
  sqlite3* db = nullptr;
  int rc = sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE, nullptr);
  char* error = nullptr;
  if (rc == SQLITE_OK) rc = sqlite3_exec(db, schema.c_str(), nullptr, nullptr, &error);
  std::string message = error ? error : (db ? sqlite3_errmsg(db) : "out of memory");
  sqlite3_free(error);
  sqlite3_close(db);
  if (rc != SQLITE_OK) throw DataError("cannot create the tables of schema.sql: " + message);
}

// Which of tables the database already has.
std::vector<std::string> Present(WriteTransaction& tx, const std::vector<std::string>& tables) {
  std::vector<std::string> present;
  for (const std::string& table : tables)
    if (tx.HasTable(table)) present.push_back(table);
  return present;
}

// names joined by ", "; after the first most, "…".
std::string Joined(const std::vector<std::string>& names, std::size_t most = SIZE_MAX) {
  std::string out;
  for (std::size_t i = 0; i < names.size() && i < most; ++i) out += (i ? ", " : "") + names[i];
  return names.size() > most ? out + ", …" : out;
}

}  // namespace

InitCommand::InitCommand(CLI::App& parent) {
  m_app = parent.add_subcommand("init", "Build the reference database from the shipped data, in a file or on a PostgreSQL server");
  m_app->add_option("--db", m_db, "The database file to build, or a postgresql:// URI of a server database (default: "
                                  "$QKDB_DATABASE, else " + DefaultDatabasePath() + ")");
  m_app->add_flag("--force", m_force,
                  "Replace the file when it exists and no other program has it open; on a server, drop and "
                  "rebuild the tables");
  m_app->add_flag("--even-if-open", m_evenIfOpen, "With --force: replace it even while other programs have it open")
      ->needs("--force");
  m_app->add_option("--data", m_data, "The folder of schema.sql and the CSV files")->default_str(DefaultDataFolder());
  m_app->add_option("--wait", m_wait, "On a server: seconds to wait while another program is changing the database")
      ->check(CLI::Range(0.0, 3600.0))
      ->default_val(30);
}

bool InitCommand::Chosen() const { return m_app->parsed(); }

int InitCommand::Run() const {
  const std::string path = ChooseDatabase(m_db);
  if (IsServerUri(path)) return BuildOnServer(path);
  if (path.find("://") != std::string::npos) {
    std::fputs("qkdb: init builds an SQLite file or a database on a PostgreSQL server (postgresql://…)\n", stderr);
    return 2;
  }
  return BuildFile(path);
}

int InitCommand::BuildFile(const std::string& path) const {
  const fs::path data = m_data.empty() ? fs::path(DefaultDataFolder()) : fs::path(m_data);
  std::error_code ec;
  const fs::path target = fs::absolute(path, ec);
  if (fs::exists(target, ec) && !m_force) {
    std::cerr << "qkdb: " << path << " already exists (--force replaces it)\n";
    return 1;
  }
  if (fs::exists(target, ec) && !m_evenIfOpen) {
    if (const std::string held = RefuseToReplaceHeld(target, "--even-if-open"); !held.empty()) {
      std::cerr << "qkdb: " << held << "\n";
      return 1;
    }
  }

  try {
    // The whole build is one transaction on one connection (ReferenceLoader.h), as on a server: one
    // wait for the disk at its commit instead of one per row. The temporary file is thrown away unless
    // the build finishes; AtomicFile's Commit makes it durable before the rename.
    AtomicFile building(target, "building");
    CreateSchema(building.Path(), ReadWhole(data / "schema.sql", kDataFileLimit));
    std::vector<std::pair<std::string, long>> counts;
    {
      WriteTransaction tx(building.Path(), 0);
      LoadReference(data, *tx.Database(), building.Path());
      counts = CountRows(*tx.Database());
      tx.Commit();
    }
    building.Commit();
    std::printf("Built %s from %s:\n", path.c_str(), data.string().c_str());
    PrintCounts(counts);
  } catch (const DataError& e) {
    std::cerr << "qkdb: " << e.what() << "\n";
    return 1;
  }
  return 0;
}

int InitCommand::BuildOnServer(const std::string& uri) const {
  const fs::path data = m_data.empty() ? fs::path(DefaultDataFolder()) : fs::path(m_data);
  try {
    const std::string schema = ReadWhole(data / "schema.sql", kDataFileLimit);
    const std::vector<std::string> tables = CreatedTables(schema);
    // One transaction from the first check to the commit: a failure anywhere (a broken CSV file, a
    // refused row, a lost connection, a kill) rolls back the dropped and the new tables alike, and
    // other programs see the old tables, or none, until the commit. It takes the lock every qkdb
    // writer takes, so an import waits for the build rather than writing into the tables it drops.
    WriteTransaction tx(uri, m_wait);
    tx.Execute("SET LOCAL client_min_messages = warning", "quiet the server's notices");  // "already exists, skipping"
    if (const std::vector<std::string> present = Present(tx, tables); !present.empty()) {
      if (!m_force) {
        std::cerr << "qkdb: " << Shown(uri) << " already has " << present.size() << " of the " << tables.size()
                  << " reference tables (" << Joined(present, 3) << "); --force drops and rebuilds them\n";
        return 1;
      }
      tx.Execute("DROP TABLE IF EXISTS " + Joined(tables) + " CASCADE", "drop the old tables");
    }
    for (const std::string& statement : SplitStatements(tablekit::PostgresSchema(schema)))
      tx.Execute(statement, "create the tables of schema.sql");
    LoadReference(data, *tx.Database(), uri);
    FaultPoint("init-loaded");
    const std::vector<std::pair<std::string, long>> counts = CountRows(*tx.Database());
    tx.Commit();
    std::printf("Built %s from %s:\n", Shown(uri).c_str(), data.string().c_str());
    PrintCounts(counts);
  } catch (const DataError& e) {
    std::string message = OneLine(e.what());
    if (const std::size_t at = message.find(uri); at != std::string::npos) message.replace(at, uri.size(), Shown(uri));
    std::cerr << "qkdb: " << message << "\n";
    return 1;
  }
  return 0;
}

}  // namespace qkdb
