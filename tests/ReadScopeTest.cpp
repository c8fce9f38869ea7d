// One read transaction for the length of a call: the lock is held from the first query to the end
// of the outermost scope, and never around a write, a host's own transaction or a message box.

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>

#include "TestDatabase.h"
#include "tablekit/CADODatabase.h"
#include "tablekit/CADORecordset.h"
#include "tablekit/RvAfxMessageBox.h"
#include "tablekit/reads/ReadScope.h"

namespace {

const char* kSchema = "CREATE TABLE T (ID INTEGER PRIMARY KEY AUTOINCREMENT, Name TEXT COLLATE NOCASE);"
                      "INSERT INTO T (Name) VALUES ('甲'), ('乙');";

class ReadScopeTest : public testing::Test {
 protected:
  void SetUp() override {
    path = dir.File("t.db");
    CreateDatabase(path, kSchema);
    ASSERT_TRUE(db.OpenAccess(path, L"", L""));
  }

  void Read() {
    CADORecordset rs(&db);
    ASSERT_TRUE(rs.Open(L"select * from T where ID=1"));
  }

  // Whether another program can write a row and commit it now, without waiting: not while a reader
  // holds the database.
  bool OtherProgramCanCommit() {
    sqlite3* other = nullptr;
    sqlite3_open(path.ToUtf8().c_str(), &other);
    bool committed = sqlite3_exec(other, "BEGIN IMMEDIATE; INSERT INTO T (Name) VALUES ('外');", nullptr, nullptr,
                                  nullptr) == SQLITE_OK &&
                     sqlite3_exec(other, "COMMIT", nullptr, nullptr, nullptr) == SQLITE_OK;
    if (!committed) sqlite3_exec(other, "ROLLBACK", nullptr, nullptr, nullptr);
    sqlite3_close(other);
    return committed;
  }

  TempDir dir;
  CString path;
  CADODatabase db;
};

}  // namespace

TEST_F(ReadScopeTest, WithoutAScopeAQueryHoldsNothingAfterwards) {
  Read();
  EXPECT_TRUE(OtherProgramCanCommit());
}

TEST_F(ReadScopeTest, HoldsOneReadTransactionUntilItEnds) {
  {
    tablekit::ReadScope scope;
    Read();
    EXPECT_FALSE(OtherProgramCanCommit());
    Read();
  }
  EXPECT_TRUE(OtherProgramCanCommit());
}

TEST_F(ReadScopeTest, InnerScopeLeavesTheTransactionToTheOuter) {
  tablekit::ReadScope outer;
  {
    tablekit::ReadScope inner;
    Read();
  }
  EXPECT_FALSE(OtherProgramCanCommit());
}

TEST_F(ReadScopeTest, HostsOwnTransactionIsLeftOpen) {
  ASSERT_TRUE(db.Execute(L"begin"));
  {
    tablekit::ReadScope scope;
    Read();
  }
  // Still the host's: it ends it, and only then is the row it wrote there for others.
  ASSERT_TRUE(db.Execute(L"insert into T (Name) values (\"丙\")"));
  EXPECT_EQ(QueryOne(path, "SELECT COUNT(*) FROM T"), "2");
  EXPECT_TRUE(db.Execute(L"commit"));
  EXPECT_EQ(QueryOne(path, "SELECT COUNT(*) FROM T"), "3");
}

TEST_F(ReadScopeTest, WriteInsideAScopeIsCommittedAtOnce) {
  tablekit::ReadScope scope;
  Read();
  ASSERT_TRUE(db.Execute(L"insert into T (Name) values (\"丙\")"));
  EXPECT_EQ(QueryOne(path, "SELECT COUNT(*) FROM T"), "3");
  // The next query begins a read transaction again.
  Read();
  EXPECT_FALSE(OtherProgramCanCommit());
}

TEST_F(ReadScopeTest, MessageBoxHoldsNoLock) {
  bool couldCommit = false;
  RvMessageBoxHandler previous = SetRvAfxMessageBoxHandler([&](const wchar_t*, unsigned int, HWND) {
    couldCommit = OtherProgramCanCommit();
    return IDOK;
  });
  {
    tablekit::ReadScope scope;
    Read();
    RvAfxMessageBox(L"省份丢失？！", 16, nullptr);
  }
  SetRvAfxMessageBoxHandler(previous);
  EXPECT_TRUE(couldCommit);
}

TEST_F(ReadScopeTest, ClosingTheDatabaseInsideAScopeEndsItsTransaction) {
  {
    tablekit::ReadScope scope;
    Read();
    db.Close();
    EXPECT_TRUE(OtherProgramCanCommit());
  }
  EXPECT_TRUE(OtherProgramCanCommit());
}
