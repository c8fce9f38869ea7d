#include "InitCommand.h"

#include <CLI/CLI.hpp>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sqlite3.h>
#include <sstream>
#include <unistd.h>

#include "CatalogueLoader.h"
#include "CsvTable.h"
#include "PlaceLoader.h"
#include "ReferenceDatabase.h"
#include "RoomLoader.h"
#include "mfc/CString.h"
#include "tablekit/CADODatabase.h"
#include "tablekit/CADORecordset.h"

namespace qkdb {

namespace {

namespace fs = std::filesystem;

// The temporary file being built, for the signal handler: a fixed buffer, as a handler may not
// allocate. Empty when no build is under way.
char g_building[4096];
char g_journal[4096 + 16];

void RemoveTemporary() {
  if (g_building[0]) {
    unlink(g_building);
    unlink(g_journal);
  }
}

// Ctrl-C, a hang-up or a polite kill removes the temporary file before the process ends. A SIGKILL
// cannot be caught: the temporary file then stays beside PATH (its name says what it is), and PATH is
// still untouched.
extern "C" void OnSignal(int signal) {
  RemoveTemporary();
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

std::string ReadText(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw DataError("cannot read " + path.string());
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
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

// The rows of every table, as the closing report of a build.
void ReportCounts(CADODatabase& db) {
  static const char* const tables[] = {"Country",      "Province",      "City",       "Weather",
                                       "TimberingType", "Timbering",    "BSCategory", "BSType",
                                       "BSCode",       "BoundingStructure", "RoomType", "RoomUse",
                                       "RULoadParam"};
  for (const char* table : tables) {
    CADORecordset rs(&db);
    long count = -1;
    if (!rs.Open(CString::FromUtf8(std::string("SELECT COUNT(*) AS N FROM ") + table)) ||
        !rs.GetFieldValue(L"N", count))
      throw DataError(std::string("cannot count the rows of ") + table);
    std::printf("  %-18s %6ld\n", table, count);
  }
}

// The record classes each write on a connection of their own, and SQLite waits for the disk at every
// commit: some 2000 waits for a build. The temporary file is thrown away when the build does not
// finish, so its writes need not reach the disk one by one (WriteWithoutWaiting); FlushFile makes them
// durable once, before the rename.
void FlushFile(const std::string& path) {
  int fd = open(path.c_str(), O_RDWR);
  if (fd < 0 || fsync(fd) != 0) {
    if (fd >= 0) close(fd);
    throw DataError("cannot write " + path + " to disk: " + std::strerror(errno));
  }
  close(fd);
}

// Flushes the folder's entry for the renamed file, so the rename itself survives a power cut.
void SyncFolder(const fs::path& folder) {
  int fd = open(folder.c_str(), O_RDONLY | O_DIRECTORY);
  if (fd >= 0) {
    fsync(fd);
    close(fd);
  }
}

}  // namespace

InitCommand::InitCommand(CLI::App& parent) {
  m_app = parent.add_subcommand("init", "Build the reference database from the shipped data (data/*.csv)");
  m_app->add_option("--db", m_db, "The database file to build (default: $QKDB_DATABASE, else " +
                                       DefaultDatabasePath() + ")");
  m_app->add_flag("--force", m_force, "Replace the file when it exists");
  m_app->add_option("--data", m_data, "The folder of schema.sql and the CSV files")->default_str(QKDB_DATA_DIR);
}

bool InitCommand::Chosen() const { return m_app->parsed(); }

int InitCommand::Run() const {
  const std::string path = ChooseDatabase(m_db);
  const fs::path data = m_data.empty() ? fs::path(QKDB_DATA_DIR) : fs::path(m_data);
  if (path.find("://") != std::string::npos) {
    std::fputs("qkdb: init builds an SQLite file; give --db a file path\n", stderr);
    return 2;
  }
  std::error_code ec;
  const fs::path target = fs::absolute(path, ec);
  if (fs::exists(target, ec) && !m_force) {
    std::cerr << "qkdb: " << path << " already exists (--force replaces it)\n";
    return 1;
  }
  if (!fs::is_directory(target.parent_path(), ec)) {
    std::cerr << "qkdb: no folder " << target.parent_path().string() << " to build " << path << " in\n";
    return 1;
  }

  // The temporary file stands in PATH's folder, so the final rename stays on one file system.
  std::string temporary = target.string() + ".building-XXXXXX";
  if (temporary.size() >= sizeof g_building) {
    std::cerr << "qkdb: the path " << path << " is too long\n";
    return 2;
  }
  // The signals wait while the file is made and named, so the handler never sees it half-named.
  sigset_t signals, previous;
  sigemptyset(&signals);
  for (int signal : {SIGINT, SIGTERM, SIGHUP}) {
    sigaddset(&signals, signal);
    std::signal(signal, OnSignal);
  }
  sigprocmask(SIG_BLOCK, &signals, &previous);
  std::strcpy(g_building, temporary.c_str());
  const int fd = mkstemp(g_building);
  const int error = errno;
  if (fd < 0)
    g_building[0] = '\0';
  else
    std::snprintf(g_journal, sizeof g_journal, "%s-journal", g_building);
  sigprocmask(SIG_SETMASK, &previous, nullptr);
  if (fd < 0) {
    std::cerr << "qkdb: cannot create a file beside " << path << ": " << std::strerror(error) << "\n";
    return 1;
  }
  close(fd);
  temporary = g_building;

  try {
    CreateSchema(temporary, ReadText(data / "schema.sql"));
    BindRecordClasses(temporary);
    WriteWithoutWaiting();
    CADODatabase db;
    if (!db.OpenAccess(CString::FromUtf8(temporary), L"", L""))
      throw DataError("cannot open " + temporary + ": " + db.GetLastError().ToUtf8());
    db.Execute(L"PRAGMA synchronous = OFF");
    LoadPlaces(data, db);
    LoadCatalogue(data, db);
    LoadRooms(data, db);
    std::printf("Built %s from %s:\n", path.c_str(), data.string().c_str());
    ReportCounts(db);
    FlushFile(temporary);
    if (std::rename(temporary.c_str(), target.c_str()) != 0)
      throw DataError("cannot move the built database onto " + path + ": " + std::strerror(errno));
    g_building[0] = '\0';
    SyncFolder(target.parent_path());
  } catch (const DataError& e) {
    RemoveTemporary();
    g_building[0] = '\0';
    std::cerr << "qkdb: " << e.what() << "\n";
    return 1;
  }
  return 0;
}

}  // namespace qkdb
