// Opening, closing and running statements on real SQLite files.

#include <gtest/gtest.h>

#include <fstream>

#include "TestDatabase.h"
#include "tablekit/CADODatabase.h"
#include "tablekit/CADORecordset.h"

namespace {

const char* kSchema = "CREATE TABLE T (ID INTEGER PRIMARY KEY AUTOINCREMENT, Name TEXT COLLATE NOCASE);"
                      "INSERT INTO T (Name) VALUES ('甲'), ('乙');";

}  // namespace

TEST(CADODatabase, NewConnectionIsNotOpen) {
  CADODatabase db;
  EXPECT_FALSE(db.IsOpen());
  EXPECT_EQ(db.GetActiveConnection(), nullptr);
  EXPECT_EQ(db.GetCurrentConnectType(), CADODatabase::connectTypeNone);
}

TEST(CADODatabase, OpensAnExistingDatabase) {
  TempDir dir;
  CreateDatabase(dir.File("a.db"), kSchema);
  CADODatabase db;
  EXPECT_TRUE(db.OpenAccess(dir.File("a.db"), L"", L""));
  EXPECT_TRUE(db.IsOpen());
  EXPECT_NE(db.GetActiveConnection(), nullptr);
  EXPECT_EQ(db.GetCurrentConnectType(), CADODatabase::connectTypeSQLite);
  EXPECT_TRUE(db.GetLastError().IsEmpty());
}

TEST(CADODatabase, OpensAPathWithChineseCharacters) {
  TempDir dir;
  CString path = dir.File("参考数据库.db");
  CreateDatabase(path, kSchema);
  CADODatabase db;
  EXPECT_TRUE(db.OpenAccess(path, L"", L""));
}

TEST(CADODatabase, MissingFileFailsAndIsNotCreated) {
  TempDir dir;
  CADODatabase db;
  EXPECT_FALSE(db.OpenAccess(dir.File("missing.db"), L"", L""));
  EXPECT_FALSE(db.IsOpen());
  EXPECT_FALSE(db.GetLastError().IsEmpty());
  EXPECT_FALSE(std::filesystem::exists(dir.path() / "missing.db"));
}

TEST(CADODatabase, EmptyPathFailsToOpen) {
  CADODatabase db;
  EXPECT_FALSE(db.OpenAccess(L"", L"", L""));
  EXPECT_FALSE(db.OpenAccess(nullptr, L"", L""));
  EXPECT_FALSE(db.IsOpen());
}

TEST(CADODatabase, InMemoryNameIsNoFileAndFailsToOpen) {
  CADODatabase db;
  EXPECT_FALSE(db.OpenAccess(L":memory:", L"", L""));
  EXPECT_FALSE(db.IsOpen());
}

TEST(CADODatabase, FileThatIsNotADatabaseFailsToOpen) {
  TempDir dir;
  std::ofstream(dir.path() / "garbage.db") << "this is not a database, just some text that is long enough";
  CADODatabase db;
  EXPECT_FALSE(db.OpenAccess(dir.File("garbage.db"), L"", L""));
  EXPECT_FALSE(db.IsOpen());
}

TEST(CADODatabase, ReadOnlyFileReadsButRefusesWrites) {
  TempDir dir;
  CString path = CreateReadOnlyDatabase(dir, "ro.db", kSchema);
  // 1: open failed, 2: read failed, 3: the write went through.
  int result = RunUnprivileged([&] {
    CADODatabase db;
    if (!db.OpenAccess(path, L"", L"")) return 1;
    CADORecordset rs(&db);
    if (!rs.Open(L"select * from T") || rs.GetRecordCount() != 2) return 2;
    return db.Execute(L"delete from T") ? 3 : 0;
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(QueryOne(path, "SELECT count(*) FROM T"), "2");
}

TEST(CADODatabase, ExecuteRunsAStatement) {
  TempDir dir;
  CString path = dir.File("a.db");
  CreateDatabase(path, kSchema);
  CADODatabase db;
  ASSERT_TRUE(db.OpenAccess(path, L"", L""));
  EXPECT_TRUE(db.Execute(L"delete from T where Name=\"甲\""));
  EXPECT_EQ(QueryOne(path, "SELECT count(*) FROM T"), "1");
}

TEST(CADODatabase, ExecuteOfBadStatementFailsWithReason) {
  TempDir dir;
  CreateDatabase(dir.File("a.db"), kSchema);
  CADODatabase db;
  ASSERT_TRUE(db.OpenAccess(dir.File("a.db"), L"", L""));
  EXPECT_FALSE(db.Execute(L"delete from NoSuchTable"));
  EXPECT_NE(db.GetLastError().Find(L"NoSuchTable"), -1);
}

TEST(CADODatabase, ExecuteOnClosedConnectionFails) {
  CADODatabase db;
  EXPECT_FALSE(db.Execute(L"delete from T"));
}

TEST(CADODatabase, CloseEndsTheConnection) {
  TempDir dir;
  CreateDatabase(dir.File("a.db"), kSchema);
  CADODatabase db;
  ASSERT_TRUE(db.OpenAccess(dir.File("a.db"), L"", L""));
  db.Close();
  EXPECT_FALSE(db.IsOpen());
  CADORecordset rs(&db);
  EXPECT_FALSE(rs.Open(L"select * from T"));
}

TEST(CADODatabase, ReopeningSwitchesToTheNewFile) {
  TempDir dir;
  CreateDatabase(dir.File("a.db"), kSchema);
  CreateDatabase(dir.File("b.db"), "CREATE TABLE T (ID INTEGER PRIMARY KEY, Name TEXT);");
  CADODatabase db;
  ASSERT_TRUE(db.OpenAccess(dir.File("a.db"), L"", L""));
  ASSERT_TRUE(db.OpenAccess(dir.File("b.db"), L"", L""));
  CADORecordset rs(&db);
  ASSERT_TRUE(rs.Open(L"select * from T"));
  EXPECT_EQ(rs.GetRecordCount(), 0u);
  EXPECT_EQ(db.GetPath(), dir.File("b.db"));
}

TEST(CADODatabase, FailedReopenLeavesItClosed) {
  TempDir dir;
  CreateDatabase(dir.File("a.db"), kSchema);
  CADODatabase db;
  ASSERT_TRUE(db.OpenAccess(dir.File("a.db"), L"", L""));
  EXPECT_FALSE(db.OpenAccess(dir.File("missing.db"), L"", L""));
  EXPECT_FALSE(db.IsOpen());
}
