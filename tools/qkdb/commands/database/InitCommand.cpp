#include "commands/database/InitCommand.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <sqlite3.h>

#include "files/AtomicFile.h"
#include "files/OpenFiles.h"
#include "text/BoundedRead.h"
#include "reference/catalogue/CatalogueLoader.h"
#include "text/CsvTable.h"
#include "reference/places/PlaceLoader.h"
#include "files/ReferenceDatabase.h"
#include "reference/rooms/RoomLoader.h"
#include "files/SqliteFile.h"
#include "reference/places/CityAliases.h"
#include "reference/rooms/RoomSchedules.h"
#include "mfc/CString.h"
#include "tablekit/CADODatabase.h"
#include "tablekit/CADORecordset.h"

namespace qkdb {

namespace {

namespace fs = std::filesystem;

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
  static const char* const tables[] = {"Country",   "Province",      "City",          "Weather",
                                       "WeatherFileSource", "CityAlias", "TimberingType", "Timbering",
                                       "BSCategory", "BSType",   "BSCode",        "BoundingStructure",
                                       "RoomType",  "RoomUse",       "RULoadParam", "RoomUseSchedule"};
  for (const char* table : tables) {
    CADORecordset rs(&db);
    long count = -1;
    if (!rs.Open(CString::FromUtf8(std::string("SELECT COUNT(*) AS N FROM ") + table)) ||
        !rs.GetFieldValue(L"N", count))
      throw DataError(std::string("cannot count the rows of ") + table);
    std::printf("  %-18s %6ld\n", table, count);
  }
}

}  // namespace

InitCommand::InitCommand(CLI::App& parent) {
  m_app = parent.add_subcommand("init", "Build the reference database from the shipped data (data/*.csv)");
  m_app->add_option("--db", m_db, "The database file to build (default: $QKDB_DATABASE, else " +
                                       DefaultDatabasePath() + ")");
  m_app->add_flag("--force", m_force, "Replace the file when it exists and no other program has it open");
  m_app->add_flag("--even-if-open", m_evenIfOpen, "With --force: replace it even while other programs have it open")
      ->needs("--force");
  m_app->add_option("--data", m_data, "The folder of schema.sql and the CSV files")->default_str(DefaultDataFolder());
}

bool InitCommand::Chosen() const { return m_app->parsed(); }

int InitCommand::Run() const {
  const std::string path = ChooseDatabase(m_db);
  const fs::path data = m_data.empty() ? fs::path(DefaultDataFolder()) : fs::path(m_data);
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
  if (fs::exists(target, ec) && !m_evenIfOpen) {
    if (const std::string held = RefuseToReplaceHeld(target, "--even-if-open"); !held.empty()) {
      std::cerr << "qkdb: " << held << "\n";
      return 1;
    }
  }

  try {
    // The record classes each write on a connection of their own, and SQLite waits for the disk at
    // every commit: some 2000 waits for a build. The temporary file is thrown away unless the build
    // finishes, so its writes need not reach the disk one by one (WriteWithoutWaiting); Commit makes
    // them durable once, before the rename.
    AtomicFile building(target, "building");
    CreateSchema(building.Path(), ReadWhole(data / "schema.sql", kDataFileLimit));
    BindRecordClasses(building.Path());
    WriteWithoutWaiting();
    CADODatabase db;
    if (!db.OpenAccess(CString::FromUtf8(building.Path()), L"", L""))
      throw DataError("cannot open " + building.Path() + ": " + db.GetLastError().ToUtf8());
    db.Execute(L"PRAGMA synchronous = OFF");
    const Places places = LoadPlaces(data, db);
    // The tables beside the library's, which no record class writes, go in on a connection of their own.
    SqliteFile beside(building.Path());
    LoadCityAliases(data, beside, places.cityOf, places.files);
    LoadCatalogue(data, db);
    LoadRoomSchedules(data, beside, LoadRooms(data, db));
    std::printf("Built %s from %s:\n", path.c_str(), data.string().c_str());
    ReportCounts(db);
    db.Close();
    building.Commit();
  } catch (const DataError& e) {
    std::cerr << "qkdb: " << e.what() << "\n";
    return 1;
  }
  return 0;
}

}  // namespace qkdb
