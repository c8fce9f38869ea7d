// CQKDBGlobalSetting: the process-wide instance, its COM bracket and the shared load-parameter
// connection, on an SQLite file and on a PostgreSQL server.

#include <gtest/gtest.h>

#include <memory>

#include "BackendDatabase.h"
#include "TestDatabase.h"
#include "foundation/CQKDBGlobalSetting.h"
#include "mfc/ComShims.h"
#include "tablekit/CADODatabase.h"

namespace {

const char* kSchema = "CREATE TABLE T (ID INTEGER PRIMARY KEY AUTOINCREMENT, Name TEXT COLLATE NOCASE);";

// Every test leaves no instance behind, whatever it did.
class CQKDBGlobalSettingInstanceTest : public ::testing::Test {
 protected:
  void TearDown() override { CQKDBGlobalSetting::RemoveGlobalSetting(); }
};

// The same, with a reference database (path) on the test's backend, and a second one on demand.
class CQKDBGlobalSettingTest : public BackendFixture {
 protected:
  void SetUp() override {
    BackendFixture::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    Seed(kSchema);
  }
  void TearDown() override { CQKDBGlobalSetting::RemoveGlobalSetting(); }

  // A second database with the table; fails the test when it cannot be made.
  CString Second() {
    second = Another("second.db");
    if (!second->Available()) {
      ADD_FAILURE() << second->Why();
      return CString();
    }
    second->Seed(kSchema);
    return second->Path();
  }
  // What this backend cannot open: a file that is not there, or a server that does not answer.
  CString Unopenable() const {
    return OnSQLite() ? dir.File("missing.db") : CString(L"postgresql://127.0.0.1:1/x?connect_timeout=2");
  }

  std::unique_ptr<ReferenceDatabase> second;
};

}  // namespace

// ---- the instance -----------------------------------------------------------------------------------

TEST_F(CQKDBGlobalSettingInstanceTest, GetGlobalSettingReturnsTheSameInstance) {
  CQKDBGlobalSetting* first = CQKDBGlobalSetting::GetGlobalSetting();

  CQKDBGlobalSetting* second = CQKDBGlobalSetting::GetGlobalSetting();

  ASSERT_NE(first, nullptr);
  EXPECT_EQ(second, first);
}

TEST_F(CQKDBGlobalSettingInstanceTest, GetGlobalSettingInitialisesComOnce) {
  int before = QKComInitDepth();

  CQKDBGlobalSetting::GetGlobalSetting();
  CQKDBGlobalSetting::GetGlobalSetting();

  EXPECT_EQ(QKComInitDepth(), before + 1);
}

TEST_F(CQKDBGlobalSettingInstanceTest, RemoveGlobalSettingBalancesCom) {
  int before = QKComInitDepth();
  CQKDBGlobalSetting::GetGlobalSetting();

  CQKDBGlobalSetting::RemoveGlobalSetting();

  EXPECT_EQ(QKComInitDepth(), before);
}

TEST_F(CQKDBGlobalSettingInstanceTest, RemoveGlobalSettingWithNoInstanceDoesNothing) {
  CQKDBGlobalSetting::RemoveGlobalSetting();
  int before = QKComInitDepth();

  CQKDBGlobalSetting::RemoveGlobalSetting();

  EXPECT_EQ(QKComInitDepth(), before);
}

TEST_F(CQKDBGlobalSettingInstanceTest, AccessConnectStrEndsWithThePath) {
  CString path(L"D:\\负荷\\参数.mdb");

  CString text = CQKDBGlobalSetting::GetGlobalSetting()->GetAccessConnectStr(path);

  EXPECT_EQ(text.str(), L"Provider=Microsoft.ACE.OLEDB.12.0;Persist Security Info=False;Data Source=D:\\负荷\\参数.mdb");
  EXPECT_EQ(path.str(), L"D:\\负荷\\参数.mdb");
}

TEST_F(CQKDBGlobalSettingInstanceTest, AccessConnectStrOfEmptyPathEndsWithDataSource) {
  CString path;

  CString text = CQKDBGlobalSetting::GetGlobalSetting()->GetAccessConnectStr(path);

  EXPECT_EQ(text.str(), L"Provider=Microsoft.ACE.OLEDB.12.0;Persist Security Info=False;Data Source=");
}

// ---- the load-parameter connection ------------------------------------------------------------------

TEST_P(CQKDBGlobalSettingTest, LoadParamDatabaseOpensTheGivenDatabase) {
  CADODatabase* db = CQKDBGlobalSetting::GetGlobalSetting()->GetLoadParamDatabase(path);

  ASSERT_NE(db, nullptr);
  EXPECT_TRUE(db->IsOpen());
  EXPECT_EQ(db->GetPath().str(), path.str());
  EXPECT_EQ(db->GetCurrentConnectType(),
            OnSQLite() ? CADODatabase::connectTypeSQLite : CADODatabase::connectTypePostgreSQL);
}

TEST_P(CQKDBGlobalSettingTest, SecondPathGetsTheConnectionOpenedOnTheFirst) {
  CString secondPath = Second();
  CQKDBGlobalSetting* settings = CQKDBGlobalSetting::GetGlobalSetting();

  CADODatabase* first = settings->GetLoadParamDatabase(path);
  CADODatabase* second = settings->GetLoadParamDatabase(secondPath);

  ASSERT_NE(first, nullptr);
  EXPECT_EQ(second, first);
  EXPECT_TRUE(second->IsOpen());
  EXPECT_EQ(second->GetPath().str(), path.str());
}

TEST_P(CQKDBGlobalSettingTest, UnopenableFirstPathIsReturnedClosed) {
  CADODatabase* db = CQKDBGlobalSetting::GetGlobalSetting()->GetLoadParamDatabase(Unopenable());

  ASSERT_NE(db, nullptr);
  EXPECT_FALSE(db->IsOpen());
}

TEST_P(CQKDBGlobalSettingTest, GoodPathAfterAnUnopenableOneOpensTheGoodOne) {
  CQKDBGlobalSetting* settings = CQKDBGlobalSetting::GetGlobalSetting();
  CADODatabase* failed = settings->GetLoadParamDatabase(Unopenable());

  CADODatabase* db = settings->GetLoadParamDatabase(path);

  EXPECT_EQ(db, failed);
  ASSERT_NE(db, nullptr);
  EXPECT_TRUE(db->IsOpen());
  EXPECT_EQ(db->GetPath().str(), path.str());
}

TEST_P(CQKDBGlobalSettingTest, EmptyFirstPathDoesNotTieTheConnectionToNoDatabase) {
  CQKDBGlobalSetting* settings = CQKDBGlobalSetting::GetGlobalSetting();

  CADODatabase* empty = settings->GetLoadParamDatabase(L"");
  CADODatabase* db = settings->GetLoadParamDatabase(path);

  ASSERT_NE(empty, nullptr);
  EXPECT_EQ(db, empty);
  EXPECT_TRUE(db->IsOpen());
  EXPECT_EQ(db->GetPath().str(), path.str());
}

TEST_P(CQKDBGlobalSettingTest, FreshInstanceAfterRemoveOpensANewPath) {
  CString secondPath = Second();
  CQKDBGlobalSetting::GetGlobalSetting()->GetLoadParamDatabase(path);
  CQKDBGlobalSetting::RemoveGlobalSetting();

  CADODatabase* db = CQKDBGlobalSetting::GetGlobalSetting()->GetLoadParamDatabase(secondPath);

  ASSERT_NE(db, nullptr);
  EXPECT_TRUE(db->IsOpen());
  EXPECT_EQ(db->GetPath().str(), secondPath.str());
}

QK_ON_BOTH_BACKENDS(CQKDBGlobalSettingTest);
