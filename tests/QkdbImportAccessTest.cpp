// qkdb import-access, run as a user runs it on the Access sample files (skipped when they are absent),
// then the SQLite file it made read with SQLite directly; and its refusals of damaged, cut and foreign
// files, which must leave nothing behind.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "QkdbRun.h"
#include "Samples.h"
#include "TestDatabase.h"

namespace fs = std::filesystem;

namespace {

// One line on standard error, as every refusal of the tool is.
bool IsRefusal(const std::string& text) { return text.starts_with("qkdb: ") && IsOneLine(text); }

std::vector<std::string> Entries(const fs::path& dir) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(dir)) names.push_back(entry.path().filename().string());
  return names;
}

// The report line of a table: its name, then columns, rows read and rows written.
bool Reports(const std::string& out, const std::string& table, int columns, int rows) {
  const std::regex line("(^|\n)" + table + " +" + std::to_string(columns) + " +" + std::to_string(rows) + " +" +
                        std::to_string(rows) + "(\n|$)");
  return std::regex_search(out, line);
}

// An Access date from its stored day count (days since 1899-12-30, whole days here), found by walking
// the calendar a day at a time: a different road from the tool's, to the same dates.
std::string WalkedDate(long days) {
  const auto leap = [](int y) { return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0; };
  const auto length = [&](int y, int m) {
    static const int lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return m == 2 && leap(y) ? 29 : lengths[m - 1];
  };
  int y = 1899, m = 12, d = 30;
  for (; days > 0; --days)
    if (++d > length(y, m)) {
      d = 1;
      if (++m > 12) m = 1, ++y;
    }
  for (; days < 0; ++days)
    if (--d < 1) {
      if (--m < 1) m = 12, --y;
      d = length(y, m);
    }
  char text[32];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d 00:00:00", y, m, d);
  return text;
}

class QkdbImportAccessTest : public ::testing::Test {
 protected:
  // Imports the sample file into out.db of the test's folder; skips the test when the sample is absent.
  ToolRun Import(const std::string& sample, const std::string& options = "", const std::string& env = "") {
    m_db = (m_dir.path() / "out.db").string();
    return Qkdb("import-access '" + SampleFile(sample).string() + "' --db '" + m_db + "' " + options, env);
  }
  std::string Query(const std::string& sql) const { return QueryOne(CString::FromUtf8(m_db), sql); }

  TempDir m_dir;
  std::string m_db;
};

TEST_F(QkdbImportAccessTest, NorthwindEveryTableWithAllItsRows) {
  QK_NEED_SAMPLE(SampleFile("nwind.mdb"));
  const ToolRun run = Import("nwind.mdb");
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(Query("SELECT COUNT(*) FROM sqlite_master WHERE type = 'table'"), "9");
  const std::pair<const char*, int> counts[] = {{"Order Details", 2155}, {"Orders", 830},    {"Products", 77},
                                                {"Shippers", 3},         {"Categories", 8},  {"Customers", 91},
                                                {"Employees", 9},        {"Suppliers", 29}, {"Umsätze", 830}};
  for (const auto& [table, rows] : counts)
    EXPECT_EQ(Query(std::string("SELECT COUNT(*) FROM \"") + table + "\""), std::to_string(rows)) << table;
  EXPECT_TRUE(Reports(run.out, "Order Details", 5, 2155)) << run.out;
  EXPECT_TRUE(Reports(run.out, "Umsätze", 14, 830)) << run.out;
  EXPECT_TRUE(Reports(run.out, "Employees", 17, 9)) << run.out;
}

TEST_F(QkdbImportAccessTest, NorthwindValuesKeepTheirTypes) {
  QK_NEED_SAMPLE(SampleFile("nwind.mdb"));
  ASSERT_EQ(Import("nwind.mdb").status, 0);
  EXPECT_EQ(Query("SELECT CompanyName FROM Customers WHERE CustomerID = 'ALFKI'"), "Alfreds Futterkiste");
  EXPECT_EQ(Query("SELECT name FROM sqlite_master WHERE name LIKE 'Ums%'"), "Umsätze");
  EXPECT_EQ(Query("SELECT CompanyName FROM Suppliers WHERE SupplierID = 9"), "PB Knäckebröd AB");
  // Currency: exact amounts, whole ones as integers.
  EXPECT_EQ(Query("SELECT typeof(UnitPrice) || ' ' || UnitPrice FROM Products WHERE ProductName = 'Chai'"),
            "integer 18");
  EXPECT_EQ(Query("SELECT UnitPrice FROM Products WHERE ProductName = 'Pavlova'"), "17.45");
  EXPECT_EQ(Query("SELECT UnitPrice FROM \"Order Details\" WHERE OrderID = 10248 AND ProductID = 42"), "9.8");
  // A Single keeps the decimal Access shows, not the float's expansion.
  EXPECT_EQ(Query("SELECT Discount = 0.15 FROM \"Order Details\" WHERE OrderID = 10250 AND ProductID = 51"), "1");
  EXPECT_EQ(Query("SELECT OrderDate FROM Orders WHERE OrderID = 10248"), "1994-08-04 00:00:00");
  EXPECT_EQ(Query("SELECT BirthDate FROM Employees WHERE EmployeeID = 4"), "1937-09-19 00:00:00");
  EXPECT_EQ(Query("SELECT COUNT(*) FROM Products WHERE Discontinued = 1"), "8");
  EXPECT_EQ(Query("SELECT Discontinued FROM Products WHERE ProductName = 'Chai'"), "0");
  // Null stays null; none of these fields holds an empty text.
  EXPECT_EQ(Query("SELECT COUNT(*) FROM Customers WHERE Region IS NULL"), "60");
  EXPECT_EQ(Query("SELECT COUNT(*) FROM Customers WHERE Region = ''"), "0");
  EXPECT_EQ(Query("SELECT COUNT(*) FROM Customers WHERE Fax IS NULL"), "22");
  // OLE objects whole (a chain of 2 KiB pages), with the OLE header's signature 0x1C15 first.
  EXPECT_EQ(Query("SELECT typeof(Photo) || ' ' || length(Photo) || ' ' || hex(substr(Photo, 1, 2)) FROM Employees "
                  "WHERE EmployeeID = 1"),
            "blob 21626 151C");
  EXPECT_EQ(Query("SELECT length(Notes) FROM Employees WHERE EmployeeID = 2"), "448");
  EXPECT_EQ(Query("SELECT group_concat(type, ' ') FROM pragma_table_info('Order Details')"),
            "INTEGER INTEGER NUMERIC INTEGER REAL");
  EXPECT_EQ(Query("SELECT group_concat(type, ' ') FROM pragma_table_info('Categories')"), "INTEGER TEXT TEXT BLOB");
  EXPECT_EQ(Query("SELECT type FROM pragma_table_info('Orders') WHERE name = 'OrderDate'"), "TEXT");
}

TEST_F(QkdbImportAccessTest, DatesBeforeNineteenHundredAndInYear9999) {
  QK_NEED_SAMPLE(SampleFile("DateTestDatabase.mdb"));
  const ToolRun run = Import("DateTestDatabase.mdb");
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_TRUE(Reports(run.out, "DateTest", 6, 6)) << run.out;
  EXPECT_EQ(Query("SELECT group_concat(name) FROM sqlite_master"), "DateTest");
  // The day counts the file stores (read from its pages once, by hand): DateTimeCol, DateCol, TimeCol.
  const long stored[6][3] = {{44532, 44532, 44532},          {2958101, 2958101, 2958101}, {-728, -363, 2},
                             {-463126, -462760, -462395}, {44532, 44532, 44532},       {44532, 44532, 44532}};
  const char* columns[] = {"DateTimeCol", "DateCol", "TimeCol"};
  for (int id = 1; id <= 6; ++id)
    for (int c = 0; c < 3; ++c)
      EXPECT_EQ(Query(std::string("SELECT ") + columns[c] + " FROM DateTest WHERE IDCol = " + std::to_string(id)),
                WalkedDate(stored[id - 1][c]))
          << columns[c] << " of row " << id;
  EXPECT_EQ(Query("SELECT DateTimeCol FROM DateTest WHERE IDCol = 3"), "1898-01-01 00:00:00");
  EXPECT_EQ(Query("SELECT DateTimeCol FROM DateTest WHERE IDCol = 2"), "9999-01-01 00:00:00");
  EXPECT_EQ(Query("SELECT LongTextCol FROM DateTest WHERE IDCol = 6"), "New line\r\nin field");
  EXPECT_EQ(Query("SELECT ShortTextCol FROM DateTest WHERE IDCol = 5"), "Escaped new line \\r\\n in field");
}

TEST_F(QkdbImportAccessTest, AccdbAssetItems) {
  QK_NEED_SAMPLE(SampleFile("ASampleDatabase.accdb"));
  const ToolRun run = Import("ASampleDatabase.accdb");
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_TRUE(Reports(run.out, "Asset Items", 13, 65)) << run.out;
  EXPECT_EQ(Query("SELECT group_concat(name) FROM sqlite_master"), "Asset Items");
  EXPECT_EQ(Query("SELECT COUNT(*) FROM \"Asset Items\""), "65");
  EXPECT_EQ(Query("SELECT Make || '|' || Model || '|' || Acquired || '|' || Cost FROM \"Asset Items\" "
                  "WHERE \"Asset No\" = '30050'"),
            "GEO Rocket|220ZX|1997-09-02 00:00:00|1995.5");
  EXPECT_EQ(Query("SELECT \"Serial No\" FROM \"Asset Items\" WHERE \"Asset No\" = '30052'"), "FC776445");
  EXPECT_EQ(Query("SELECT COUNT(*) FROM \"Asset Items\" WHERE Comments IS NULL"), "65");
}

TEST_F(QkdbImportAccessTest, TablesPicksOnlyThose) {
  QK_NEED_SAMPLE(SampleFile("nwind.mdb"));
  const ToolRun run = Import("nwind.mdb", "--tables Shippers,categories");
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(Query("SELECT group_concat(name, ',') FROM (SELECT name FROM sqlite_master ORDER BY name)"),
            "Categories,Shippers");
  EXPECT_TRUE(Reports(run.out, "Shippers", 3, 3)) << run.out;
  EXPECT_TRUE(Reports(run.out, "Categories", 4, 8)) << run.out;
  EXPECT_EQ(run.out.find("Orders"), std::string::npos);
}

// MDBICONV makes mdbtools give Jet 3 text in another character set; the SQLite file must get UTF-8.
TEST_F(QkdbImportAccessTest, JetThreeTextIsUtf8WhateverTheEnvironment) {
  QK_NEED_SAMPLE(SampleFile("nwind.mdb"));
  ASSERT_EQ(Import("nwind.mdb", "--tables Suppliers", "MDBICONV=ISO-8859-1 ").status, 0);
  EXPECT_EQ(Query("SELECT CompanyName FROM Suppliers WHERE SupplierID = 9"), "PB Knäckebröd AB");
}

TEST_F(QkdbImportAccessTest, AnUnknownTableIsRefusedAndNothingWritten) {
  QK_NEED_SAMPLE(SampleFile("nwind.mdb"));
  const ToolRun run = Import("nwind.mdb", "--tables Shippers,Invoices");
  EXPECT_EQ(run.status, 2);
  EXPECT_TRUE(IsRefusal(run.err)) << run.err;
  EXPECT_NE(run.err.find("\"Invoices\""), std::string::npos) << run.err;
  EXPECT_EQ(run.out, "");
  EXPECT_TRUE(Entries(m_dir.path()).empty());
}

TEST_F(QkdbImportAccessTest, AnExistingFileIsReplacedOnlyWithForce) {
  QK_NEED_SAMPLE(SampleFile("nwind.mdb"));
  const fs::path out = m_dir.path() / "out.db";
  std::ofstream(out) << "keep me";
  ToolRun run = Import("nwind.mdb");
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(IsRefusal(run.err)) << run.err;
  EXPECT_NE(run.err.find("--force"), std::string::npos) << run.err;
  EXPECT_EQ(Slurp(out), "keep me");
  EXPECT_EQ(Entries(m_dir.path()).size(), 1u);

  run = Import("nwind.mdb", "--tables Shippers --force");
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(Query("SELECT COUNT(*) FROM Shippers"), "3");
  EXPECT_EQ(Entries(m_dir.path()).size(), 1u);
}

// The file an import writes is made beside its target (0600, as mkstemp makes it) and renamed onto it:
// it must end with the mode of the file it replaces, or the umask's for a new one. The Access file is
// the one the README's example reads, so the test never skips.
TEST_F(QkdbImportAccessTest, TheWrittenFileGetsTheUmasksModeOrKeepsTheReplacedOnes) {
  const std::string mdb = (fs::path(QK_DATA_DIR).parent_path() / "docs" / "examples" / "DateTestDatabase.mdb").string();
  const std::string out = (m_dir.path() / "out.db").string();
  ToolRun run = RunShell("umask 022; \"$QKDB\" import-access '" + mdb + "' --db '" + out + "'");
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(fs::status(out).permissions(), fs::perms(0644));
  fs::permissions(out, fs::perms(0660));
  run = RunShell("umask 077; \"$QKDB\" import-access '" + mdb + "' --db '" + out + "' --force");
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(fs::status(out).permissions(), fs::perms(0660));
}

TEST_F(QkdbImportAccessTest, APostgresUriIsRefused) {
  const ToolRun run = Qkdb("import-access x.mdb --db postgresql://localhost/qk");
  EXPECT_EQ(run.status, 2);
  EXPECT_TRUE(IsRefusal(run.err)) << run.err;
}

// Each input in a folder of its own, the output in the test's folder: which must stay empty.
class QkdbImportAccessRefusalTest : public QkdbImportAccessTest {
 protected:
  void ExpectRefused(const fs::path& input, const std::string& what) {
    const ToolRun run = Qkdb("import-access '" + input.string() + "' --db '" + (m_dir.path() / "out.db").string() + "'");
    EXPECT_EQ(run.status, 1) << what << ": " << run.err;
    EXPECT_TRUE(IsRefusal(run.err)) << what << ": " << run.err;
    EXPECT_EQ(run.out, "") << what;
    EXPECT_TRUE(Entries(m_dir.path()).empty()) << what << " left " << Entries(m_dir.path()).front();
  }
  fs::path Write(const std::string& name, const std::string& bytes) {
    const fs::path path = m_inputs.path() / name;
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
  }
  // The first size bytes of the sample, then zeros up to pad bytes.
  fs::path Cut(const std::string& sample, std::size_t size, std::size_t pad = 0) {
    std::string bytes = Slurp(SampleFile(sample)).substr(0, size);
    bytes.resize(std::max(size, pad), '\0');
    return Write(sample + "." + std::to_string(size), bytes);
  }

  TempDir m_inputs;
};

TEST_F(QkdbImportAccessRefusalTest, MissingFolderEmptyForeignAndGarbage) {
  ExpectRefused(m_inputs.path() / "none.mdb", "a missing file");
  ExpectRefused(m_inputs.path(), "a folder");
  ExpectRefused(Write("empty.mdb", ""), "an empty file");
  ExpectRefused(Write("notes.mdb", "Just some text, not a database.\n"), "a text file");
  std::string garbage(64 * 1024, '\0');
  unsigned x = 12345;
  for (char& c : garbage) c = static_cast<char>((x = x * 1103515245u + 12345u) >> 16);
  ExpectRefused(Write("garbage.mdb", garbage), "garbage bytes");
  // Garbage behind a genuine Jet 4 signature, so that mdbtools itself must read it.
  std::string jet = std::string("\0\1\0\0Standard Jet DB\0\1", 21) + garbage.substr(21);
  ExpectRefused(Write("garbage-jet.mdb", jet), "garbage with an Access signature");
}

TEST_F(QkdbImportAccessRefusalTest, ADeviceOrAFifoIsRefusedBeforeReadingIt) {
  ExpectRefused("/dev/zero", "a device");
  const fs::path fifo = m_inputs.path() / "pipe.mdb";
  ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
  ExpectRefused(fifo, "a FIFO, which would wait for a writer");
}

TEST_F(QkdbImportAccessRefusalTest, CopiesCutShort) {
  QK_NEED_SAMPLE(SampleFile("nwind.mdb"));
  QK_NEED_SAMPLE(SampleFile("DateTestDatabase.mdb"));
  QK_NEED_SAMPLE(SampleFile("ASampleDatabase.accdb"));
  // At a page boundary (2 KiB pages in the Jet 3 nwind.mdb, 4 KiB in the others) and inside a page.
  ExpectRefused(Cut("nwind.mdb", 12 * 2048), "nwind.mdb cut in its catalogue");
  ExpectRefused(Cut("nwind.mdb", 489 * 2048), "nwind.mdb cut in half");
  ExpectRefused(Cut("nwind.mdb", 732 * 2048), "nwind.mdb cut before its last table");
  ExpectRefused(Cut("nwind.mdb", 1500000), "nwind.mdb cut inside a page");
  ExpectRefused(Cut("DateTestDatabase.mdb", 4096), "DateTestDatabase.mdb cut after one page");
  ExpectRefused(Cut("DateTestDatabase.mdb", 32 * 4096), "DateTestDatabase.mdb cut before its rows");
  ExpectRefused(Cut("DateTestDatabase.mdb", 37 * 4096), "DateTestDatabase.mdb cut in a table");
  ExpectRefused(Cut("DateTestDatabase.mdb", 100000), "DateTestDatabase.mdb cut inside a page");
  ExpectRefused(Cut("ASampleDatabase.accdb", 50 * 4096), "ASampleDatabase.accdb cut in half");
  ExpectRefused(Cut("ASampleDatabase.accdb", 100 * 4096), "ASampleDatabase.accdb cut before its last pages");
  ExpectRefused(Cut("ASampleDatabase.accdb", 300001), "ASampleDatabase.accdb cut inside a page");
}

// This cut, padded back to a whole page with zeros, sends mdbtools into an endless loop: the reader is
// killed after its silence limit (10 s) and the import refused.
TEST_F(QkdbImportAccessRefusalTest, ACopyThatHangsTheReader) {
  QK_NEED_SAMPLE(SampleFile("DateTestDatabase.mdb"));
  ExpectRefused(Cut("DateTestDatabase.mdb", 150000, 37 * 4096), "DateTestDatabase.mdb cut and padded");
}

}  // namespace
