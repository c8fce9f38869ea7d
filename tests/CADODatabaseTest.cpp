// Opening, closing and running statements, on an SQLite file and on a PostgreSQL server.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "BackendDatabase.h"
#include "TestDatabase.h"
#include "tablekit/CADOConnection.h"
#include "tablekit/CADODatabase.h"
#include "tablekit/CADORecordset.h"

namespace {

const char* kSchema = "CREATE TABLE T (ID INTEGER PRIMARY KEY AUTOINCREMENT, Name TEXT COLLATE NOCASE);"
                      "INSERT INTO T (Name) VALUES ('甲'), ('乙');";

// Nothing listens on port 1; the timeout keeps a filtered port from holding the test up.
const wchar_t* kUnreachableServer = L"postgresql://127.0.0.1:1/x?connect_timeout=2";

// The URI of another database, name, on the server of uri.
CString OnTheSameServer(const CString& uri, const std::string& name) {
  std::string text = uri.ToUtf8();
  const std::size_t query = text.find('?');
  const std::size_t slash = text.rfind('/', query);
  text.replace(slash + 1, (query == std::string::npos ? text.size() : query) - slash - 1, name);
  return CString::FromUtf8(text);
}

class CADODatabaseTest : public BackendFixture {
 protected:
  void SetUp() override {
    BackendFixture::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    Seed(kSchema);
  }

  // What this backend cannot open: a file that is not there, or a server that does not answer.
  CString Unopenable() const { return OnSQLite() ? dir.File("missing.db") : CString(kUnreachableServer); }
};

}  // namespace

// ---- without a database -----------------------------------------------------------------------------

TEST(CADODatabase, NewConnectionIsNotOpen) {
  CADODatabase db;
  EXPECT_FALSE(db.IsOpen());
  EXPECT_EQ(db.GetActiveConnection(), nullptr);
  EXPECT_EQ(db.GetCurrentConnectType(), CADODatabase::connectTypeNone);
}

TEST(CADODatabase, EmptyPathFailsToOpen) {
  CADODatabase db;
  EXPECT_FALSE(db.OpenAccess(L"", L"", L""));
  EXPECT_FALSE(db.OpenAccess(nullptr, L"", L""));
  EXPECT_FALSE(db.IsOpen());
}

TEST(CADODatabase, ExecuteOnClosedConnectionFails) {
  CADODatabase db;
  EXPECT_FALSE(db.Execute(L"delete from T"));
}

TEST(CADODatabase, AnUnreachableServerIsAFailedOpenWithAReason) {
  CADODatabase db;
  EXPECT_FALSE(db.OpenAccess(kUnreachableServer, L"", L""));
  EXPECT_FALSE(db.IsOpen());
  EXPECT_EQ(db.GetCurrentConnectType(), CADODatabase::connectTypeNone);
  EXPECT_FALSE(db.GetLastError().IsEmpty());
}

TEST(CADODatabase, AMalformedUriIsAFailedOpenWithAReason) {
  CADODatabase db;
  EXPECT_FALSE(db.OpenAccess(L"postgresql://127.0.0.1:notaport/x", L"", L""));
  EXPECT_FALSE(db.IsOpen());
  EXPECT_NE(db.GetLastError().Find(L"notaport"), -1) << db.GetLastError().ToUtf8();
}

// ---- opening ----------------------------------------------------------------------------------------

TEST_P(CADODatabaseTest, OpensAnExistingDatabase) {
  CADODatabase other;
  EXPECT_TRUE(other.OpenAccess(path, L"", L"")) << other.GetLastError().ToUtf8();
  EXPECT_TRUE(other.IsOpen());
  EXPECT_NE(other.GetActiveConnection(), nullptr);
  EXPECT_EQ(other.GetCurrentConnectType(),
            OnSQLite() ? CADODatabase::connectTypeSQLite : CADODatabase::connectTypePostgreSQL);
  EXPECT_TRUE(other.GetLastError().IsEmpty());
  EXPECT_EQ(other.GetPath(), path);
}

TEST_P(CADODatabaseTest, OpensAPathWithChineseCharacters) {
  QK_SQLITE_ONLY();
  CString chinese = dir.File("参考数据库.db");
  CreateDatabase(chinese, kSchema);
  CADODatabase other;
  EXPECT_TRUE(other.OpenAccess(chinese, L"", L""));
}

TEST_P(CADODatabaseTest, MissingFileFailsAndIsNotCreated) {
  QK_SQLITE_ONLY();
  CADODatabase other;
  EXPECT_FALSE(other.OpenAccess(dir.File("missing.db"), L"", L""));
  EXPECT_FALSE(other.IsOpen());
  EXPECT_FALSE(other.GetLastError().IsEmpty());
  EXPECT_FALSE(std::filesystem::exists(dir.path() / "missing.db"));
}

TEST_P(CADODatabaseTest, MissingDatabaseOnTheServerFailsWithAReasonAndIsNotCreated) {
  if (OnSQLite()) GTEST_SKIP() << "a property of the server (a missing SQLite file is tested above)";
  CADODatabase other;
  EXPECT_FALSE(other.OpenAccess(OnTheSameServer(path, "qk_no_such_database"), L"", L""));
  EXPECT_FALSE(other.IsOpen());
  EXPECT_NE(other.GetLastError().Find(L"qk_no_such_database"), -1) << other.GetLastError().ToUtf8();
  EXPECT_EQ(Query("select count(*) from pg_database where datname='qk_no_such_database'"), "0");
}

TEST_P(CADODatabaseTest, InMemoryNameIsNoFileAndFailsToOpen) {
  QK_SQLITE_ONLY();
  CADODatabase other;
  EXPECT_FALSE(other.OpenAccess(L":memory:", L"", L""));
  EXPECT_FALSE(other.IsOpen());
}

TEST_P(CADODatabaseTest, FileThatIsNotADatabaseFailsToOpen) {
  QK_SQLITE_ONLY();
  std::ofstream(dir.path() / "garbage.db") << "this is not a database, just some text that is long enough";
  CADODatabase other;
  EXPECT_FALSE(other.OpenAccess(dir.File("garbage.db"), L"", L""));
  EXPECT_FALSE(other.IsOpen());
}

TEST_P(CADODatabaseTest, ReadOnlyFileReadsButRefusesWrites) {
  QK_SQLITE_ONLY();
  CString readOnly = CreateReadOnlyDatabase(dir, "ro.db", kSchema);
  // 1: open failed, 2: read failed, 3: the write went through.
  int result = RunUnprivileged([&] {
    CADODatabase other;
    if (!other.OpenAccess(readOnly, L"", L"")) return 1;
    CADORecordset rs(&other);
    if (!rs.Open(L"select * from T") || rs.GetRecordCount() != 2) return 2;
    return other.Execute(L"delete from T") ? 3 : 0;
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(QueryOne(readOnly, "SELECT count(*) FROM T"), "2");
}

TEST_P(CADODatabaseTest, AReadOnlySessionOnTheServerReadsButRefusesWrites) {
  if (OnSQLite()) GTEST_SKIP() << "a property of the server (a read-only SQLite file is tested above)";
  std::string uri = path.ToUtf8();
  uri += (uri.find('?') == std::string::npos ? "?" : "&");
  uri += "options=-c%20default_transaction_read_only%3Don";
  CADODatabase other;
  ASSERT_TRUE(other.OpenAccess(CString::FromUtf8(uri), L"", L"")) << other.GetLastError().ToUtf8();
  CADORecordset rs(&other);
  ASSERT_TRUE(rs.Open(L"select * from T"));
  EXPECT_EQ(rs.GetRecordCount(), 2u);
  EXPECT_FALSE(other.Execute(L"delete from T"));
  EXPECT_FALSE(other.GetLastError().IsEmpty());
  EXPECT_EQ(Query("SELECT count(*) FROM T"), "2");
}

// ---- statements -------------------------------------------------------------------------------------

TEST_P(CADODatabaseTest, ExecuteRunsAStatement) {
  EXPECT_TRUE(db.Execute(L"delete from T where Name=\"甲\"")) << db.GetLastError().ToUtf8();
  EXPECT_EQ(Query("SELECT count(*) FROM T"), "1");
}

TEST_P(CADODatabaseTest, ExecuteOfBadStatementFailsWithReason) {
  EXPECT_FALSE(db.Execute(L"delete from NoSuchTable"));
  // The server folds an unquoted name to lower case before it looks the table up, and names the
  // table it did not find that way.
  EXPECT_NE(db.GetLastError().Find(OnSQLite() ? L"NoSuchTable" : L"nosuchtable"), -1) << db.GetLastError().ToUtf8();
}

TEST_P(CADODatabaseTest, ExecuteOfTwoStatementsRunsNeither) {
  EXPECT_FALSE(db.Execute(L"delete from T where Name=\"甲\"; delete from T where Name=\"乙\""));
  EXPECT_FALSE(db.GetLastError().IsEmpty());
  EXPECT_EQ(Query("SELECT count(*) FROM T"), "2");
}

TEST_P(CADODatabaseTest, TheConnectionItselfRunsNeitherOfTwoStatements) {
  // Below the dialect layer, which refuses a second statement before the backend sees it.
  CADOConnection* connection = db.GetActiveConnection();
  ASSERT_NE(connection, nullptr);
  std::string error;
  EXPECT_FALSE(connection->Execute("delete from T where ID=1; delete from T where ID=2", error));
  EXPECT_FALSE(error.empty());
  EXPECT_EQ(Query("SELECT count(*) FROM T"), "2");
}

// ---- closing and reopening --------------------------------------------------------------------------

TEST_P(CADODatabaseTest, CloseEndsTheConnection) {
  db.Close();
  EXPECT_FALSE(db.IsOpen());
  EXPECT_EQ(db.GetCurrentConnectType(), CADODatabase::connectTypeNone);
  CADORecordset rs(&db);
  EXPECT_FALSE(rs.Open(L"select * from T"));
}

TEST_P(CADODatabaseTest, ReopeningSwitchesToTheNewDatabase) {
  std::unique_ptr<ReferenceDatabase> b = Another("b.db");
  ASSERT_TRUE(b->Available()) << b->Why();
  b->Seed("CREATE TABLE T (ID INTEGER PRIMARY KEY, Name TEXT);");
  ASSERT_TRUE(db.OpenAccess(b->Path(), L"", L"")) << db.GetLastError().ToUtf8();
  CADORecordset rs(&db);
  ASSERT_TRUE(rs.Open(L"select * from T"));
  EXPECT_EQ(rs.GetRecordCount(), 0u);
  EXPECT_EQ(db.GetPath(), b->Path());
}

TEST_P(CADODatabaseTest, FailedReopenLeavesItClosedWithAReason) {
  EXPECT_FALSE(db.OpenAccess(Unopenable(), L"", L""));
  EXPECT_FALSE(db.IsOpen());
  EXPECT_EQ(db.GetCurrentConnectType(), CADODatabase::connectTypeNone);
  EXPECT_FALSE(db.GetLastError().IsEmpty());
}

QK_ON_BOTH_BACKENDS(CADODatabaseTest);
