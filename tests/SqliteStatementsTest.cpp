// The SQLite connection keeps its prepared statements: one statement serves every id, a schema
// changed by anyone is read as it is now, and the cache stays within its bound.

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cwchar>
#include <string>

#include "TestDatabase.h"
#include "tablekit/CADODatabase.h"
#include "tablekit/CADORecordset.h"
#include "tablekit/sqlite/StatementCache.h"

namespace {

const char* kSchema = "CREATE TABLE T (ID INTEGER PRIMARY KEY AUTOINCREMENT, Name TEXT COLLATE NOCASE);"
                      "INSERT INTO T (Name) VALUES ('甲'), ('乙'), ('丙');";

class SqliteStatements : public testing::Test {
 protected:
  void SetUp() override {
    path = dir.File("t.db");
    CreateDatabase(path, kSchema);
    ASSERT_TRUE(db.OpenAccess(path, L"", L""));
  }

  // The name of row id read through the library, or "<failed>".
  CString NameOf(int id) {
    CString sql, name;
    sql.Format(L"select * from T where ID=%d", id);
    CADORecordset rs(&db);
    if (!rs.Open(sql) || !rs.GetFieldValue(L"Name", name)) return L"<failed>";
    return name;
  }

  // Runs sql on a connection of its own, as another program would.
  void Elsewhere(const std::string& sql) {
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(path.ToUtf8().c_str(), &other), SQLITE_OK);
    char* error = nullptr;
    EXPECT_EQ(sqlite3_exec(other, sql.c_str(), nullptr, nullptr, &error), SQLITE_OK) << (error ? error : "");
    sqlite3_free(error);
    sqlite3_close(other);
  }

  TempDir dir;
  CString path;
  CADODatabase db;
};

sqlite3_stmt* PrepareOn(sqlite3* db, const char* sql) {
  sqlite3_stmt* st = nullptr;
  EXPECT_EQ(sqlite3_prepare_v2(db, sql, -1, &st, nullptr), SQLITE_OK);
  return st;
}

}  // namespace

TEST_F(SqliteStatements, OneStatementReadsEachIdItsOwnRow) {
  EXPECT_EQ(NameOf(3), CString(L"丙"));
  EXPECT_EQ(NameOf(1), CString(L"甲"));
  EXPECT_EQ(NameOf(2), CString(L"乙"));
  EXPECT_EQ(NameOf(3), CString(L"丙"));
  EXPECT_EQ(NameOf(4), CString(L"<failed>"));
}

TEST_F(SqliteStatements, ColumnAddedByAnotherProgramIsRead) {
  EXPECT_EQ(NameOf(1), CString(L"甲"));
  Elsewhere("ALTER TABLE T ADD COLUMN Extra TEXT; UPDATE T SET Extra = '新' WHERE ID = 1;");
  CADORecordset rs(&db);
  ASSERT_TRUE(rs.Open(L"select * from T where ID=1"));
  EXPECT_EQ(rs.GetFieldCount(), 3);
  CString extra;
  EXPECT_TRUE(rs.GetFieldValue(L"Extra", extra));
  EXPECT_EQ(extra, CString(L"新"));
}

TEST_F(SqliteStatements, TableDroppedByAnotherProgramFailsTheQueryUntilItIsBack) {
  EXPECT_EQ(NameOf(1), CString(L"甲"));
  Elsewhere("DROP TABLE T;");
  CADORecordset rs(&db);
  EXPECT_FALSE(rs.Open(L"select * from T where ID=1"));
  EXPECT_NE(rs.GetLastError().ToUtf8().find("no such table"), std::string::npos) << rs.GetLastError().ToUtf8();
  Elsewhere("CREATE TABLE T (ID INTEGER PRIMARY KEY, Name TEXT); INSERT INTO T VALUES (1, '丁');");
  EXPECT_EQ(NameOf(1), CString(L"丁"));
}

TEST_F(SqliteStatements, SchemaChangedThroughTheSameConnectionIsRead) {
  EXPECT_EQ(NameOf(2), CString(L"乙"));
  ASSERT_TRUE(db.Execute(L"alter table T add column Code integer"));
  ASSERT_TRUE(db.Execute(L"update T set Code=42 where ID=2"));
  CADORecordset rs(&db);
  ASSERT_TRUE(rs.Open(L"select * from T where ID=2"));
  long code = 0;
  EXPECT_TRUE(rs.GetFieldValue(L"Code", code));
  EXPECT_EQ(code, 42);
}

TEST_F(SqliteStatements, RowWrittenByAnotherProgramIsReadAtOnce) {
  EXPECT_EQ(NameOf(1), CString(L"甲"));
  Elsewhere("UPDATE T SET Name = '戊' WHERE ID = 1;");
  EXPECT_EQ(NameOf(1), CString(L"戊"));
}

TEST_F(SqliteStatements, ManyDistinctQueriesAllAnswerRight) {
  // More distinct texts than the connection keeps: the ones let go are prepared again.
  for (int round = 0; round < 2; ++round) {
    for (int i = 0; i < 200; ++i) {
      CString sql, name;
      sql.Format(L"select Name, %d as K from T where ID=1", i);
      CADORecordset rs(&db);
      ASSERT_TRUE(rs.Open(sql)) << i;
      long k = -1;
      EXPECT_TRUE(rs.GetFieldValue(L"K", k));
      EXPECT_EQ(k, i);
    }
  }
}

// A record set remembers where it found a name by the name's address; a buffer that holds another
// name the next time must still find that name's column.
TEST_F(SqliteStatements, NameAskedFromABufferThatChangedFindsItsOwnColumn) {
  CADORecordset rs(&db);
  ASSERT_TRUE(rs.Open(L"select ID, Name, Name as Alias from T where ID=2"));
  wchar_t name[16] = L"Name";
  CString text;
  EXPECT_TRUE(rs.GetFieldValue(name, text));
  EXPECT_EQ(text, CString(L"乙"));
  std::wcscpy(name, L"ID");
  long id = 0;
  EXPECT_TRUE(rs.GetFieldValue(name, id));
  EXPECT_EQ(id, 2);
  std::wcscpy(name, L"Missing");
  EXPECT_FALSE(rs.GetFieldValue(name, text));
  std::wcscpy(name, L"alias");
  EXPECT_TRUE(rs.GetFieldValue(name, text));
  EXPECT_EQ(text, CString(L"乙"));
}

TEST(StatementCache, LetsTheLeastRecentlyUsedGoWhenFull) {
  sqlite3* db = nullptr;
  ASSERT_EQ(sqlite3_open(":memory:", &db), SQLITE_OK);
  {
    tablekit::StatementCache cache(2);
    sqlite3_stmt* a = PrepareOn(db, "select 1");
    sqlite3_stmt* b = PrepareOn(db, "select 2");
    cache.Keep("select 1", a);
    cache.Keep("select 2", b);
    EXPECT_EQ(cache.Find("select 1")->statement, a);  // now the most recently used
    cache.Keep("select 3", PrepareOn(db, "select 3"));
    EXPECT_EQ(cache.Size(), 2u);
    EXPECT_EQ(cache.Find("select 2"), nullptr);
    EXPECT_EQ(cache.Find("select 1")->statement, a);
    EXPECT_NE(cache.Find("select 3"), nullptr);
    cache.Drop("select 1");
    EXPECT_EQ(cache.Find("select 1"), nullptr);
    EXPECT_EQ(cache.Size(), 1u);
    cache.Clear();
    EXPECT_EQ(cache.Size(), 0u);
    cache.Keep("select 2", PrepareOn(db, "select 2"));
  }
  // The cache finalised every statement it held: the database closes.
  EXPECT_EQ(sqlite3_close(db), SQLITE_OK);
}
