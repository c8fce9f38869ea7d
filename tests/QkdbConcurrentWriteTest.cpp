// qkdb import-epw against other writers and against a crash, on SQLite and on PostgreSQL: imports that
// run at the same moment all land, a host writing cities through the library meanwhile loses nothing,
// an import killed anywhere in its transaction leaves the database as it was, and one that finds the
// database locked for longer than it may wait gives up in one line, nothing changed.

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <atomic>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <memory>
#include <numbers>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "EpwText.h"
#include "GeographyFixture.h"
#include "PgTestServer.h"
#include "QkdbRun.h"
#include "TestDatabase.h"
#include "geography/CQKCity.h"
#include "tablekit/CADOConnection.h"
#include "tablekit/CADODatabase.h"

namespace fs = std::filesystem;

namespace {

const std::string kZhengzhouFile = "CHN_Henan.Zhengzhou.570830_CSWD.epw";
const std::string kJinanFile = "CHN_Shandong.Jinan.548230_CSWD.epw";

std::string Radians(double degrees) {
  std::ostringstream text;
  text.precision(17);
  text << degrees * std::numbers::pi / 180.0;
  return text.str();
}

// 中国 with 郑州 and 济南, each with a weather row naming its station's file, as the reference database
// has them, and design items of their own that no EPW file gives.
std::string SeedSql() {
  return "INSERT INTO Country (Name) VALUES ('中国');"
         "INSERT INTO Province (CId, Name) VALUES (1, '河南'), (1, '山东');"
         "INSERT INTO City (PId, Name) VALUES (1, '郑州'), (2, '济南');"
         "INSERT INTO Weather (CId, JD, WD, DjDqy, ZlYPjXdSd, EpwName) VALUES (1, " + Radians(113.65) + ", " +
         Radians(34.72) + ", 1013.3, 61, '" + kZhengzhouFile + "'), (2, " + Radians(117.05) + ", " + Radians(36.6) +
         ", 998.5, 58, '" + kJinanFile + "');";
}

// The tables an import writes, in the order the dumps list them.
const char* const kImportedTables[] = {"Country", "Province", "City", "Weather", "WeatherFileSource"};

// Every row of the tables an import writes, each value with its type, read with SQLite itself. The file
// is opened for writing, so that a transaction a killed process left in its journal is rolled back
// first, as the next program to open the file does.
std::string SqliteDump(const std::string& path) {
  sqlite3* db = nullptr;
  std::ostringstream out;
  if (sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE, nullptr) != SQLITE_OK) {
    sqlite3_close(db);
    return "<cannot open>";
  }
  out.precision(17);
  for (const char* table : kImportedTables) {
    sqlite3_stmt* stmt = nullptr;
    if (sqlite3_prepare_v2(db, ("SELECT * FROM " + std::string(table) + " ORDER BY ID").c_str(), -1, &stmt,
                           nullptr) != SQLITE_OK) {
      out << "<" << sqlite3_errmsg(db) << ">";
      continue;
    }
    out << table << ":\n";
    while (sqlite3_step(stmt) == SQLITE_ROW) {
      for (int c = 0; c < sqlite3_column_count(stmt); ++c) {
        switch (sqlite3_column_type(stmt, c)) {
          case SQLITE_NULL: out << "null"; break;
          case SQLITE_INTEGER: out << "i" << sqlite3_column_int64(stmt, c); break;
          case SQLITE_FLOAT: out << "r" << sqlite3_column_double(stmt, c); break;
          default: out << "t" << reinterpret_cast<const char*>(sqlite3_column_text(stmt, c));
        }
        out << "|";
      }
      out << "\n";
    }
    sqlite3_finalize(stmt);
  }
  sqlite3_close(db);
  return out.str();
}

std::string Quoted(const std::string& text) { return "'" + text + "'"; }

// One database of one backend for a test: SQLite files in the test's folder, or databases of their own
// on the throw-away PostgreSQL server.
class ConcurrentWrite : public testing::TestWithParam<bool> {
 protected:
  bool OnServer() const { return GetParam(); }

  void SetUp() override {
    if (OnServer()) {
      m_probe = std::make_unique<PgTestDatabase>();
      QK_REQUIRE_PG(*m_probe);
    }
  }
  void TearDown() override { ForgetClassTable<CQKCity>(); }

  // A new database seeded with SeedSql: a file path or a server URI.
  std::string NewDatabase() {
    if (!OnServer()) {
      const std::string name = "r" + std::to_string(m_count++) + ".db";
      const CString path = CreateReferenceDatabase(m_dir, name);
      CreateDatabase(path, SeedSql());
      return path.ToUtf8();
    }
    auto& pg = m_servers.emplace_back(std::make_unique<PgTestDatabase>());
    pg->Run(SeedSql());
    return pg->Uri().ToUtf8();
  }
  std::string Query(const std::string& db, const std::string& sql) const {
    if (!OnServer()) return QueryOne(CString::FromUtf8(db), sql);
    for (const auto& pg : m_servers)
      if (pg->Uri().ToUtf8() == db) return pg->QueryOne(sql);
    return "<no such database>";
  }
  // Every row of the tables an import writes.
  std::string Dump(const std::string& db) const {
    if (!OnServer()) return SqliteDump(db);
    std::string out;
    for (const char* table : kImportedTables)
      out += std::string(table) + ":\n" +
             Query(db, "SELECT string_agg(t::text, E'\\n' ORDER BY t.id) FROM " + std::string(table) + " t") + "\n";
    return out;
  }
  // Writes an EPW file of the station at location into the test's folder; returns its path.
  std::string Epw(const std::string& name, const std::string& location) {
    const fs::path path = m_dir.path() / name;
    if (!fs::exists(path)) std::ofstream(path, std::ios::binary) << EpwText(location);
    return path.string();
  }
  std::string ZhengzhouEpw() { return Epw(kZhengzhouFile, kZhengzhouLocation); }
  std::string JinanEpw() { return Epw(kJinanFile, "LOCATION,Jinan,Shandong,CHN,CSWD,548230,36.60,117.05,8.0,170.3"); }
  // The file of test station i of a country that the seed lacks, far from every other station.
  std::string StationEpw(int i) {
    const std::string n = std::to_string(i);
    return Epw("TST_Region.Station" + n + ".99000" + n + "_TEST.epw",
               "LOCATION,Station" + n + ",Region,XXX,TEST,99000" + n + "," + std::to_string(-40 + 10 * i) +
                   ".0,10.0,1.0,10");
  }
  // A shell command that imports file into db, saying on standard error when it fails; env is put before
  // the tool ("NAME=value ").
  static std::string ImportLine(const std::string& file, const std::string& db, const std::string& extra = "",
                                const std::string& env = "") {
    return "{ " + env + "\"$QKDB\" import-epw " + Quoted(file) + " --db " + Quoted(db) + extra + " >/dev/null </dev/null || echo " +
           Quoted("failed: " + fs::path(file).filename().string()) + " >&2; }";
  }
  // Runs the imports of files into db all at once; returns what they said on standard error.
  static std::string ImportAtOnce(const std::vector<std::string>& files, const std::string& db) {
    std::string line;
    for (const auto& file : files) line += ImportLine(file, db) + " & ";
    return RunShell(line + "wait").err;
  }

  TempDir m_dir;
  std::unique_ptr<PgTestDatabase> m_probe;
  std::vector<std::unique_ptr<PgTestDatabase>> m_servers;
  int m_count = 0;
};

// The race of the two imports a user met: each copied the database, and the last rename won. Both
// must land in every one of 100 tries, each on a fresh database.
TEST_P(ConcurrentWrite, TwoImportsAtOnceBothLand) {
  const int tries = 100;
  const std::string zhengzhou = ZhengzhouEpw();
  const std::string jinan = JinanEpw();
  int bothLanded = 0;
  for (int t = 0; t < tries; ++t) {
    const std::string db = NewDatabase();
    const std::string said = ImportAtOnce({zhengzhou, jinan}, db);
    EXPECT_EQ(said, "") << "try " << t;
    const std::string landed = Query(db, "SELECT COUNT(*) FROM Weather WHERE SumMonth = 7 AND WinMonth = 1");
    EXPECT_EQ(landed, "2") << "try " << t;
    bothLanded += landed == "2";
    // The items no EPW file gives are still the rows' own.
    EXPECT_EQ(Query(db, "SELECT COUNT(*) FROM Weather WHERE DjDqy IN (1013.3, 998.5) AND ZlYPjXdSd IN (61, 58)"), "2");
  }
  EXPECT_EQ(bothLanded, tries);
}

// Eight imports of eight stations at once, while this process, a host, adds cities through the
// library (AddIfNotExist, one statement at a time) until they are done; three rounds.
TEST_P(ConcurrentWrite, EightImportsAndALibraryWriterLoseNothing) {
  std::vector<std::string> files;
  for (int i = 0; i < 8; ++i) files.push_back(StationEpw(i));
  for (int round = 0; round < 3; ++round) {
    const std::string db = NewDatabase();
    CQKCity::S_Init(CString::FromUtf8(db), L"City");
    std::atomic<bool> done = false;
    std::string said;
    std::thread imports([&] {
      said = ImportAtOnce(files, db);
      done = true;
    });
    int written = 0, failed = 0;
    while (!done || written < 10) {
      CQKCity city;
      city.PId = 1;
      city.Name.Format(L"写入城市%d", written + failed);
      (city.AddIfNotExist(nullptr, 0) == QKLoad::DBS_ADDED ? written : failed) += 1;
    }
    imports.join();
    ForgetClassTable<CQKCity>();
    EXPECT_EQ(said, "") << "round " << round;
    EXPECT_EQ(failed, 0) << "round " << round;
    EXPECT_EQ(Query(db, "SELECT COUNT(*) FROM City WHERE Name LIKE '写入城市%'"), std::to_string(written));
    EXPECT_EQ(Query(db, "SELECT COUNT(*) FROM Weather WHERE EpwName LIKE 'TST_Region.Station%' AND SumMonth = 7"), "8");
    // The imports found or added the new country and province one after the other: once each.
    EXPECT_EQ(Query(db, "SELECT COUNT(*) FROM Country WHERE Name = 'XXX'"), "1");
    EXPECT_EQ(Query(db, "SELECT COUNT(*) FROM Province WHERE Name = 'Region'"), "1");
    EXPECT_EQ(Query(db, "SELECT COUNT(*) FROM City WHERE Name LIKE 'Station%'"), "8");
  }
}

// The points of an import's transaction where it is killed: after taking the lock, after writing the
// place, after overwriting the weather row (before its other columns are put back), after the weather
// row is complete, just before the commit.
const char* const kKillPoints[] = {"begun", "place-written", "weather-written", "weather-kept", "before-commit"};

TEST_P(ConcurrentWrite, AnImportKilledAnywhereInItsTransactionChangesNothing) {
  for (const std::string& file : {StationEpw(0), ZhengzhouEpw()}) {
    for (const char* point : kKillPoints) {
      const std::string db = NewDatabase();
      const std::string before = Dump(db);
      const ToolRun run = RunShell(ImportLine(file, db, "", "QKDB_KILL_AT=" + std::string(point) + " "));
      EXPECT_NE(run.err.find("failed: "), std::string::npos) << point << ": the import was not killed";
      EXPECT_EQ(Dump(db), before) << fs::path(file).filename() << " killed at " << point;
      if (!OnServer()) {
        EXPECT_EQ(QueryOne(CString::FromUtf8(db), "PRAGMA integrity_check"), "ok");
      }
      // Nothing of the killed import holds the database: the next import goes through at once.
      EXPECT_EQ(RunShell(ImportLine(file, db, " --wait 5")).err, "") << point;
    }
  }
}

// The lock every qkdb writer takes on the server (an advisory lock, "qkdb" in ASCII); on SQLite the
// database's own write lock.
constexpr long long kServerWriterLock = 0x716B6462;

TEST_P(ConcurrentWrite, AnImportThatFindsTheDatabaseLockedGivesUpInOneLineNothingChanged) {
  const std::string db = NewDatabase();
  const std::string before = Dump(db);
  CADODatabase holder;
  ASSERT_TRUE(holder.OpenAccess(CString::FromUtf8(db), L"", L""));
  std::string error;
  tablekit::ResultSet ignored;
  CADOConnection& connection = *holder.GetActiveConnection();
  if (OnServer())
    ASSERT_TRUE(connection.Execute("BEGIN", error) &&
                connection.Query("SELECT pg_advisory_xact_lock(" + std::to_string(kServerWriterLock) + ")", ignored,
                                 error))
        << error;
  else  // as a host brackets several verbs in one transaction
    ASSERT_TRUE(holder.Execute(L"BEGIN IMMEDIATE")) << holder.GetLastError().ToUtf8();

  const ToolRun run = Qkdb("import-epw " + Quoted(StationEpw(1)) + " --db " + Quoted(db) + " --wait 0.5");
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(run.out.empty()) << run.out;
  EXPECT_TRUE(IsOneLine(run.err)) << run.err;
  EXPECT_NE(run.err.find("stayed locked for 0.5 s; nothing was changed"), std::string::npos) << run.err;
  ASSERT_TRUE(connection.Execute("ROLLBACK", error)) << error;
  holder.Close();
  EXPECT_EQ(Dump(db), before);
}

INSTANTIATE_TEST_SUITE_P(Backends, ConcurrentWrite, testing::Values(false, true),
                         [](const testing::TestParamInfo<bool>& info) { return info.param ? "PostgreSQL" : "SQLite"; });

}  // namespace
