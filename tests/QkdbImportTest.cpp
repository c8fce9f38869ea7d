// "qkdb import": what "qkdb export" writes, brought into an empty database and back out byte for
// byte; rows updated; and every refusal (a refused row, a malformed or missing file, another kind)
// leaving the database exactly as it was.

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "BuiltDatabaseFixture.h"

namespace {

// Every row of every table of the SQLite file at path, as text: what a change would show in.
std::string Dump(const std::string& path) {
  sqlite3* db = nullptr;
  std::string text;
  if (sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK) return "<cannot open>";
  std::vector<std::string> tables;
  sqlite3_stmt* stmt = nullptr;
  sqlite3_prepare_v2(db, "SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name", -1, &stmt, nullptr);
  while (sqlite3_step(stmt) == SQLITE_ROW) tables.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(stmt, 0)));
  sqlite3_finalize(stmt);
  for (const std::string& table : tables) {
    text += "[" + table + "]\n";
    sqlite3_prepare_v2(db, ("SELECT * FROM \"" + table + "\" ORDER BY rowid").c_str(), -1, &stmt, nullptr);
    while (stmt && sqlite3_step(stmt) == SQLITE_ROW) {
      for (int c = 0; c < sqlite3_column_count(stmt); ++c) {
        const unsigned char* v = sqlite3_column_text(stmt, c);
        text += v ? reinterpret_cast<const char*>(v) : "<null>";
        text += "|";
      }
      text += "\n";
    }
    sqlite3_finalize(stmt);
  }
  sqlite3_close(db);
  return text;
}

class QkdbImport : public BuiltDatabaseFixture {
 public:
  void SetUp() override {
    BuiltDatabaseFixture::SetUp();
    empty = CreateReferenceDatabase(dir, "empty.db").ToUtf8();
  }

  std::string Write(const std::string& name, const std::string& text) {
    const std::string path = (dir.path() / name).string();
    std::ofstream(path, std::ios::binary) << text;
    return path;
  }
  // Exports kind of the built database into a file of the test's folder; its path.
  std::string Exported(const std::string& kind, const std::string& format) {
    const std::string path = (dir.path() / (kind + "." + format)).string();
    const ToolRun run = Run("export " + kind + " --format " + format + " -o '" + path + "'");
    EXPECT_EQ(run.status, 0) << run.err;
    return path;
  }
  ToolRun Import(const std::string& kind, const std::string& file, const std::string& env = "") {
    return Qkdb("import " + kind + " '" + file + "' --db '" + empty + "'", env);
  }
  ToolRun ExportEmpty(const std::string& kind, const std::string& format) {
    return Qkdb("export " + kind + " --format " + format + " --db '" + empty + "'");
  }
  // The export's header line with one row after it.
  std::string ConstructionsCsv(const std::string& row) {
    const std::string all = Slurp(Exported("constructions", "csv"));
    return all.substr(0, all.find('\n') + 1) + row + "\n";
  }
  // A refusal: status, one line on standard error beginning "qkdb import: " and holding message, and
  // the database as it was.
  void ExpectRefused(const ToolRun& run, int status, const std::string& message, const std::string& before) {
    EXPECT_EQ(run.status, status) << run.out << run.err;
    EXPECT_TRUE(IsOneLine(run.err)) << run.err;
    EXPECT_EQ(run.err.rfind("qkdb import: ", 0), 0u) << run.err;
    EXPECT_NE((run.out + run.err).find(message), std::string::npos) << run.out << run.err;
    EXPECT_EQ(Dump(empty), before) << "the database changed";
  }

  TempDir dir;
  std::string empty;
};

void ExpectRoundTrip(QkdbImport& test, const std::vector<std::string>& kinds, const std::string& format) {
  for (const std::string& kind : kinds) {
    const std::string file = test.Exported(kind, format);
    const ToolRun imported = test.Import(kind, file);
    ASSERT_EQ(imported.status, 0) << kind << ": " << imported.err << imported.out.substr(0, 2000);
    EXPECT_NE(imported.out.find(" added, 0 updated, 0 unchanged\n"), std::string::npos) << imported.out.substr(imported.out.size() - 200);
  }
  const std::string& kind = kinds.back();
  const ToolRun again = test.ExportEmpty(kind, format);
  ASSERT_EQ(again.status, 0) << again.err;
  EXPECT_TRUE(again.out == Slurp((test.dir.path() / (kind + "." + format)).string()))
      << kind << " " << format << ": the export of the imported database differs";
}

TEST_F(QkdbImport, ConstructionsCsvIntoAnEmptyDatabaseExportTheSameBytes) { ExpectRoundTrip(*this, {"constructions"}, "csv"); }
TEST_F(QkdbImport, ConstructionsJsonIntoAnEmptyDatabaseExportTheSameBytes) { ExpectRoundTrip(*this, {"constructions"}, "json"); }
TEST_F(QkdbImport, WallsCsvIntoAnEmptyDatabaseExportTheSameBytes) { ExpectRoundTrip(*this, {"constructions", "walls"}, "csv"); }
TEST_F(QkdbImport, WallsJsonIntoAnEmptyDatabaseExportTheSameBytes) { ExpectRoundTrip(*this, {"constructions", "walls"}, "json"); }
TEST_F(QkdbImport, RoomsCsvIntoAnEmptyDatabaseExportTheSameBytes) { ExpectRoundTrip(*this, {"rooms"}, "csv"); }
TEST_F(QkdbImport, RoomsJsonIntoAnEmptyDatabaseExportTheSameBytes) { ExpectRoundTrip(*this, {"rooms"}, "json"); }

TEST_F(QkdbImport, ImportingTheSameFileAgainChangesNothing) {
  const std::string file = Exported("rooms", "csv");
  ASSERT_EQ(Import("rooms", file).status, 0);
  const std::string before = Dump(empty);
  const ToolRun again = Import("rooms", file);
  ASSERT_EQ(again.status, 0) << again.err;
  EXPECT_NE(again.out.find("0 added, 0 updated, "), std::string::npos) << again.out;
  EXPECT_EQ(Dump(empty), before);
}

TEST_F(QkdbImport, AChangedValueUpdatesTheStoredRowAndSaysWhat) {
  ASSERT_EQ(Import("constructions", Exported("constructions", "csv")).status, 0);
  const std::string name = QueryOne(CString::FromUtf8(empty), "SELECT Name FROM Timbering WHERE ID = 1");
  const std::string type = QueryOne(CString::FromUtf8(empty), "SELECT t.Name FROM TimberingType t JOIN Timbering m ON m.TTId = t.ID WHERE m.ID = 1");
  ASSERT_EQ(name.find_first_of(",\"\n"), std::string::npos);
  const std::string row = type + "," + name + ",1234.5,0.5,1.05,3,0.9,0.7,0.7,0,0,0,0,0,0,0,0.9,0.9";
  const ToolRun run = Import("constructions", Write("one.csv", ConstructionsCsv(row)));
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find("updated construction \"" + name + "\""), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("GMD"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("0 added, 1 updated, 0 unchanged"), std::string::npos) << run.out;
  EXPECT_EQ(QueryOne(CString::FromUtf8(empty), "SELECT GMD FROM Timbering WHERE ID = 1"), "1234.5");
  EXPECT_EQ(QueryOne(CString::FromUtf8(empty), "SELECT COUNT(*) FROM Timbering WHERE Name = '" + name + "'"), "1");
}

TEST_F(QkdbImport, ARoomParameterSetToEmptyIsStoredAsNull) {
  ASSERT_EQ(Import("rooms", Exported("rooms", "csv")).status, 0);
  const std::string csv = Slurp((dir.path() / "rooms.csv").string());
  const std::string header = csv.substr(0, csv.find('\n') + 1);
  const std::string type = QueryOne(CString::FromUtf8(empty), "SELECT t.Name FROM RoomType t JOIN RoomUse u ON u.RTId = t.ID WHERE u.ID = 1");
  const std::string use = QueryOne(CString::FromUtf8(empty), "SELECT Name FROM RoomUse WHERE ID = 1");
  // Every parameter null but the winter set-point, 18 °C, and the humidity, 40 %.
  const ToolRun run = Import("rooms", Write("one.csv", header + type + "," + use + ",18,40,,,,,,,,,,,,,,,,,,\n"));
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find("updated room use"), std::string::npos) << run.out;
  const CString db = CString::FromUtf8(empty);
  EXPECT_EQ(QueryOne(db, "SELECT DongJiSNSJWD FROM RULoadParam WHERE RUId = 1"), "18.0");
  EXPECT_EQ(QueryOne(db, "SELECT DongJiSNSJXDSD FROM RULoadParam WHERE RUId = 1"), "40.0");
  EXPECT_EQ(QueryOne(db, "SELECT ZhaoMingBZ FROM RULoadParam WHERE RUId = 1"), "<null>");
}

TEST_F(QkdbImport, CommasQuotesAndLineBreaksInNamesTravelInQuotedFields) {
  const std::string row = "\"砖, 红色\",\"Brick, \"\"red\"\"\nsecond line\",1800,0.81,1.05,0,0.8,0.8,0.8,0.85,0.075,0.075,0.901,0.081,0.081,0,0.84,0.84";
  // A double quote in a name cannot be looked up by the library: refused, nothing written.
  const std::string before = Dump(empty);
  ExpectRefused(Import("constructions", Write("quoted.csv", ConstructionsCsv(row))), 1, "double quote", before);

  const std::string commas = "\"砖, 红色\",\"Brick, red\nsecond line\",1800,0.81,1.05,0,0.8,0.8,0.8,0.85,0.075,0.075,0.901,0.081,0.081,0,0.84,0.84";
  const ToolRun run = Import("constructions", Write("commas.csv", ConstructionsCsv(commas)));
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(QueryOne(CString::FromUtf8(empty), "SELECT Name FROM Timbering"), "Brick, red\nsecond line");
  const ToolRun csv = ExportEmpty("constructions", "csv");
  EXPECT_EQ(csv.out.substr(csv.out.find('\n') + 1), commas + "\n");
  const ToolRun json = ExportEmpty("constructions", "json");
  EXPECT_NE(json.out.find("\"Name\": \"Brick, red\\nsecond line\""), std::string::npos) << json.out;
}

TEST_F(QkdbImport, OneRefusedRowLeavesTheDatabaseAsItWasAndNamesEveryReason) {
  ASSERT_EQ(Import("constructions", Exported("constructions", "csv")).status, 0);
  const std::string before = Dump(empty);
  const std::string good = "新类型,新材料,1800,0.81,1.05,0,0.8,0.8,0.8,0.85,0.075,0.075,0.901,0.081,0.081,0,0.84,0.84";
  const std::string noDensity = "新类型,缺密度,,0.81,1.05,0,0.8,0.8,0.8,0.85,0.075,0.075,0.901,0.081,0.081,0,0.84,0.84";
  const std::string file = Write("mixed.csv", ConstructionsCsv(good + "\n" + noDensity));
  const ToolRun run = Import("constructions", file);
  ExpectRefused(run, 1, "GMD is not given", before);
  EXPECT_NE(run.out.find("refused mixed.csv:3: GMD is not given"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("1 refused; nothing was changed"), std::string::npos) << run.out;
  EXPECT_EQ(run.out.find("added construction"), std::string::npos) << "a refused import lists only the refusals";
}

TEST_F(QkdbImport, WallsWhoseConstructionsAreMissingAreRefused) {
  const std::string before = Dump(empty);
  const ToolRun run = Import("walls", Exported("walls", "json"));
  ExpectRefused(run, 1, "import the constructions first", before);
}

TEST_F(QkdbImport, KilledBeforeItsCommitTheImportLeavesNothing) {
  const std::string before = Dump(empty);
  const ToolRun run = Import("rooms", Exported("rooms", "csv"), "QKDB_KILL_AT=before-commit ");
  // Killed by SIGKILL: the shell that ran it says 128 + 9.
  EXPECT_EQ(run.status, 137) << "the fault point did not stop the import: " << run.out;
  EXPECT_EQ(Dump(empty), before);
}

TEST_F(QkdbImport, MalformedCsvIsRefusedNamingTheLine) {
  const std::string before = Dump(empty);
  ExpectRefused(Import("constructions", Write("open.csv", ConstructionsCsv("a,\"b,1"))), 2, "open.csv:2", before);
  ExpectRefused(Import("constructions", Write("short.csv", ConstructionsCsv("a,b,1"))), 2, "3 fields where the header has 18", before);
  ExpectRefused(Import("constructions", Write("letters.csv", ConstructionsCsv("a,b,heavy,0.81,1.05,0,0.8,0.8,0.8,0.85,0.075,0.075,0.901,0.081,0.081,0,0.84,0.84"))),
                2, "\"heavy\" in column GMD is not a number", before);
  ExpectRefused(Import("constructions", Write("empty.csv", "")), 2, "no header row", before);
}

TEST_F(QkdbImport, MalformedJsonIsRefused) {
  const std::string before = Dump(empty);
  ExpectRefused(Import("rooms", Write("cut.json", "{\"kind\": \"rooms\", \"rows\": [")), 2, "not JSON", before);
  ExpectRefused(Import("rooms", Write("text.json", "{\"kind\": \"rooms\", \"rows\": [{\"RoomType.Name\": 5}]}")), 2,
                "text.json row 1", before);
}

TEST_F(QkdbImport, AnExportOfAnotherKindIsRefused) {
  const std::string before = Dump(empty);
  ExpectRefused(Import("constructions", Exported("rooms", "csv")), 2, "is not one of constructions", before);
  ExpectRefused(Import("walls", Exported("rooms", "json")), 2, "an export of rooms, not of walls", before);
}

TEST_F(QkdbImport, MissingFileIsRefused) {
  const std::string before = Dump(empty);
  ExpectRefused(Import("rooms", (dir.path() / "nowhere.csv").string()), 2, "nowhere.csv", before);
}

}  // namespace

// A host holding the write lock (several verbs in one transaction): the import waits --wait seconds,
// then gives up in one line with nothing changed, and goes through once the lock is let go.
TEST_F(QkdbImport, ADatabaseLockedLongerThanTheWaitIsLeftAsItWas) {
  const std::string file = Exported("constructions", "csv");
  const std::string before = Dump(empty);
  sqlite3* holder = nullptr;
  ASSERT_EQ(sqlite3_open(empty.c_str(), &holder), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(holder, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
  const ToolRun run = Qkdb("import constructions '" + file + "' --db '" + empty + "' --wait 0.5");
  sqlite3_exec(holder, "ROLLBACK", nullptr, nullptr, nullptr);
  sqlite3_close(holder);
  EXPECT_EQ(run.status, 1) << run.out << run.err;
  EXPECT_TRUE(IsOneLine(run.err)) << run.err;
  EXPECT_NE(run.err.find("locked"), std::string::npos) << run.err;
  EXPECT_EQ(Dump(empty), before);
  EXPECT_EQ(Import("constructions", file).status, 0);
}

// The file's size is bounded before it is read: a 3 GB sparse file costs nothing and changes nothing.
TEST_F(QkdbImport, AFileBeyondTheLimitIsRefusedUnread) {
  const std::string file = (dir.path() / "huge.csv").string();
  { std::ofstream(file) << "x"; }
  std::filesystem::resize_file(file, 3ull << 30);
  const std::string before = Dump(empty);
  const ToolRun run = Import("constructions", file);
  EXPECT_EQ(run.status, 2) << run.out << run.err;
  EXPECT_TRUE(IsOneLine(run.err)) << run.err;
  EXPECT_EQ(Dump(empty), before);
}

// A construction's λ, ρ or c typed in another unit would go into every wall built of it: refused with
// the unit, nothing written.
TEST_F(QkdbImport, AValueInAnotherUnitIsRefusedWithTheUnit) {
  const std::string before = Dump(empty);
  const std::string inGrams = "砖,毫克砖,1800000,0.81,1.05,0,0.8,0.8,0.8,0.85,0.075,0.075,0.901,0.081,0.081,0,0.84,0.84";
  const std::string inJoules = "砖,焦耳砖,1800,0.81,1050,0,0.8,0.8,0.8,0.85,0.075,0.075,0.901,0.081,0.081,0,0.84,0.84";
  const ToolRun run = Import("constructions", Write("units.csv", ConstructionsCsv(inGrams + "\n" + inJoules)));
  ExpectRefused(run, 1, "density is in kg/m³", before);
  EXPECT_NE(run.out.find("refused units.csv:2: GMD 1800000 is implausible: density is in kg/m³"), std::string::npos)
      << run.out;
  EXPECT_NE(run.out.find("refused units.csv:3: BRr 1050 is implausible: specific heat is in kJ/(kg·K)"),
            std::string::npos)
      << run.out;
}
