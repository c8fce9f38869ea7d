// CQKDBGlobalSetting: the process-wide instance, its COM bracket and the shared load-parameter
// connection, on real SQLite files.

#include <gtest/gtest.h>

#include "TestDatabase.h"
#include "foundation/CQKDBGlobalSetting.h"
#include "mfc/ComShims.h"
#include "tablekit/CADODatabase.h"

namespace {

const char* kSchema = "CREATE TABLE T (ID INTEGER PRIMARY KEY AUTOINCREMENT, Name TEXT COLLATE NOCASE);";

// Every test leaves no instance behind, whatever it did.
class CQKDBGlobalSettingTest : public ::testing::Test {
 protected:
  void TearDown() override { CQKDBGlobalSetting::RemoveGlobalSetting(); }
};

}  // namespace

TEST_F(CQKDBGlobalSettingTest, GetGlobalSettingReturnsTheSameInstance) {
  CQKDBGlobalSetting* first = CQKDBGlobalSetting::GetGlobalSetting();

  CQKDBGlobalSetting* second = CQKDBGlobalSetting::GetGlobalSetting();

  ASSERT_NE(first, nullptr);
  EXPECT_EQ(second, first);
}

TEST_F(CQKDBGlobalSettingTest, GetGlobalSettingInitialisesComOnce) {
  int before = QKComInitDepth();

  CQKDBGlobalSetting::GetGlobalSetting();
  CQKDBGlobalSetting::GetGlobalSetting();

  EXPECT_EQ(QKComInitDepth(), before + 1);
}

TEST_F(CQKDBGlobalSettingTest, RemoveGlobalSettingBalancesCom) {
  int before = QKComInitDepth();
  CQKDBGlobalSetting::GetGlobalSetting();

  CQKDBGlobalSetting::RemoveGlobalSetting();

  EXPECT_EQ(QKComInitDepth(), before);
}

TEST_F(CQKDBGlobalSettingTest, RemoveGlobalSettingWithNoInstanceDoesNothing) {
  CQKDBGlobalSetting::RemoveGlobalSetting();
  int before = QKComInitDepth();

  CQKDBGlobalSetting::RemoveGlobalSetting();

  EXPECT_EQ(QKComInitDepth(), before);
}

TEST_F(CQKDBGlobalSettingTest, LoadParamDatabaseOpensTheGivenFile) {
  TempDir dir;
  CreateDatabase(dir.File("load.db"), kSchema);

  CADODatabase* db = CQKDBGlobalSetting::GetGlobalSetting()->GetLoadParamDatabase(dir.File("load.db"));

  ASSERT_NE(db, nullptr);
  EXPECT_TRUE(db->IsOpen());
  EXPECT_EQ(db->GetPath().str(), dir.File("load.db").str());
}

TEST_F(CQKDBGlobalSettingTest, SecondPathGetsTheConnectionOpenedOnTheFirst) {
  TempDir dir;
  CreateDatabase(dir.File("first.db"), kSchema);
  CreateDatabase(dir.File("second.db"), kSchema);
  CQKDBGlobalSetting* settings = CQKDBGlobalSetting::GetGlobalSetting();

  CADODatabase* first = settings->GetLoadParamDatabase(dir.File("first.db"));
  CADODatabase* second = settings->GetLoadParamDatabase(dir.File("second.db"));

  ASSERT_NE(first, nullptr);
  EXPECT_EQ(second, first);
  EXPECT_TRUE(second->IsOpen());
  EXPECT_EQ(second->GetPath().str(), dir.File("first.db").str());
}

TEST_F(CQKDBGlobalSettingTest, UnopenableFirstPathIsReturnedClosed) {
  TempDir dir;

  CADODatabase* db = CQKDBGlobalSetting::GetGlobalSetting()->GetLoadParamDatabase(dir.File("missing.db"));

  ASSERT_NE(db, nullptr);
  EXPECT_FALSE(db->IsOpen());
}

TEST_F(CQKDBGlobalSettingTest, GoodPathAfterAnUnopenableOneOpensTheGoodOne) {
  TempDir dir;
  CreateDatabase(dir.File("good.db"), kSchema);
  CQKDBGlobalSetting* settings = CQKDBGlobalSetting::GetGlobalSetting();
  CADODatabase* failed = settings->GetLoadParamDatabase(dir.File("missing.db"));

  CADODatabase* db = settings->GetLoadParamDatabase(dir.File("good.db"));

  EXPECT_EQ(db, failed);
  ASSERT_NE(db, nullptr);
  EXPECT_TRUE(db->IsOpen());
  EXPECT_EQ(db->GetPath().str(), dir.File("good.db").str());
}

TEST_F(CQKDBGlobalSettingTest, EmptyFirstPathDoesNotTieTheConnectionToNoFile) {
  TempDir dir;
  CreateDatabase(dir.File("good.db"), kSchema);
  CQKDBGlobalSetting* settings = CQKDBGlobalSetting::GetGlobalSetting();

  CADODatabase* empty = settings->GetLoadParamDatabase(L"");
  CADODatabase* db = settings->GetLoadParamDatabase(dir.File("good.db"));

  ASSERT_NE(empty, nullptr);
  EXPECT_EQ(db, empty);
  EXPECT_TRUE(db->IsOpen());
  EXPECT_EQ(db->GetPath().str(), dir.File("good.db").str());
}

TEST_F(CQKDBGlobalSettingTest, FreshInstanceAfterRemoveOpensANewPath) {
  TempDir dir;
  CreateDatabase(dir.File("first.db"), kSchema);
  CreateDatabase(dir.File("second.db"), kSchema);
  CQKDBGlobalSetting::GetGlobalSetting()->GetLoadParamDatabase(dir.File("first.db"));
  CQKDBGlobalSetting::RemoveGlobalSetting();

  CADODatabase* db = CQKDBGlobalSetting::GetGlobalSetting()->GetLoadParamDatabase(dir.File("second.db"));

  ASSERT_NE(db, nullptr);
  EXPECT_TRUE(db->IsOpen());
  EXPECT_EQ(db->GetPath().str(), dir.File("second.db").str());
}

TEST_F(CQKDBGlobalSettingTest, AccessConnectStrEndsWithThePath) {
  CString path(L"D:\\负荷\\参数.mdb");

  CString text = CQKDBGlobalSetting::GetGlobalSetting()->GetAccessConnectStr(path);

  EXPECT_EQ(text.str(), L"Provider=Microsoft.ACE.OLEDB.12.0;Persist Security Info=False;Data Source=D:\\负荷\\参数.mdb");
  EXPECT_EQ(path.str(), L"D:\\负荷\\参数.mdb");
}

TEST_F(CQKDBGlobalSettingTest, AccessConnectStrOfEmptyPathEndsWithDataSource) {
  CString path;

  CString text = CQKDBGlobalSetting::GetGlobalSetting()->GetAccessConnectStr(path);

  EXPECT_EQ(text.str(), L"Provider=Microsoft.ACE.OLEDB.12.0;Persist Security Info=False;Data Source=");
}
