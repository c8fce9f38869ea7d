// The generic row operations of the record base, on a small record class made for the test, on a
// real database of each backend.

#include <gtest/gtest.h>

#include "BackendDatabase.h"
#include "TestDatabase.h"
#include "tablekit/CADODatabase.h"
#include "tablekit/CADORecordset.h"
#include "tablekit/tagDBSTRUCT.h"

namespace {

// A record with three fields, moved column by column the way the library's records move theirs:
// the key through the base first, then each column, ignoring a column the table lacks.
struct StationRecord : tagDBSTRUCT {
  CString Name;
  double Height = 0.0;
  int Code = 0;

  static CADODatabase* s_db;
  CADODatabase* GetUserDatabase() const override { return s_db; }
  CString GetTableName() override { return L"Station"; }

 protected:
  int GetDataFromRecordSet(CADORecordset& rs) override {
    if (!tagDBSTRUCT::GetDataFromRecordSet(rs)) return 0;
    rs.GetFieldValue(L"Name", Name);
    rs.GetFieldValue(L"Height", Height);
    rs.GetFieldValue(L"Code", Code);
    return 1;
  }
  int SetDataToRecordSet(CADORecordset& rs) override {
    if (!tagDBSTRUCT::SetDataToRecordSet(rs)) return 0;
    rs.SetFieldValue(L"Name", Name);
    rs.SetFieldValue(L"Height", Height);
    rs.SetFieldValue(L"Code", Code);
    return 1;
  }
};
CADODatabase* StationRecord::s_db = nullptr;

const char* kSchema =
    "CREATE TABLE Station (ID INTEGER PRIMARY KEY AUTOINCREMENT, Name TEXT COLLATE NOCASE, Height REAL, Code INTEGER);"
    "INSERT INTO Station (Name, Height, Code) VALUES ('北京', 31.3, 54511), ('上海', 2.8, 58362);";

// The test's own table, beside the reference ones.
class TagDbStructTest : public BackendFixture {
 protected:
  void SetUp() override {
    BackendFixture::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    Seed(kSchema);
    StationRecord::s_db = &db;
  }
  void TearDown() override { StationRecord::s_db = nullptr; }
};

}  // namespace

TEST(TagDbStruct, NewRecordHasKeyZero) {
  StationRecord r;
  EXPECT_EQ(r.GetID(), 0);
  r.SetID(12);
  EXPECT_EQ(r.GetID(), 12);
}

TEST(TagDbStruct, CopyCarriesTheKey) {
  StationRecord r;
  r.SetID(7);
  StationRecord copy(r);
  EXPECT_EQ(copy.GetID(), 7);
  StationRecord assigned;
  assigned = r;
  EXPECT_EQ(assigned.GetID(), 7);
}

TEST_P(TagDbStructTest, InsertDataSetsTheNewKey) {
  StationRecord r;
  r.Name = L"广州";
  r.Height = 41.0;
  r.Code = 59287;
  r.SetID(1);  // a stale key is not reused: the database gives the key
  ASSERT_TRUE(r.InsertData());
  EXPECT_EQ(r.GetID(), 3);
  EXPECT_EQ(Query("SELECT Name || '/' || Code FROM Station WHERE ID=3"), "广州/59287");
  EXPECT_EQ(Query("SELECT Name FROM Station WHERE ID=1"), "北京");
}

TEST_P(TagDbStructTest, ReadDataLoadsTheRowWithThatKey) {
  StationRecord r;
  ASSERT_TRUE(r.ReadData(2));
  EXPECT_EQ(r.GetID(), 2);
  EXPECT_EQ(r.Name, L"上海");
  EXPECT_DOUBLE_EQ(r.Height, 2.8);
  EXPECT_EQ(r.Code, 58362);
}

TEST_P(TagDbStructTest, ReadDataOfMissingKeyFailsAndChangesNothing) {
  StationRecord r;
  r.Name = L"unchanged";
  EXPECT_FALSE(r.ReadData(99));
  EXPECT_EQ(r.Name, L"unchanged");
}

TEST_P(TagDbStructTest, UpdateDataWritesTheRowWithThatKeyOnly) {
  StationRecord r;
  ASSERT_TRUE(r.ReadData(1));
  r.Height = 44.0;
  ASSERT_TRUE(r.UpdateData(1));
  EXPECT_EQ(Query("SELECT Height FROM Station WHERE ID=1"), "44.0");
  EXPECT_EQ(Query("SELECT Height FROM Station WHERE ID=2"), "2.8");
  EXPECT_EQ(Query("SELECT count(*) FROM Station"), "2");
}

TEST_P(TagDbStructTest, UpdateDataOfMissingKeyFailsAndAddsNothing) {
  StationRecord r;
  r.Name = L"nowhere";
  EXPECT_FALSE(r.UpdateData(42));
  EXPECT_EQ(Query("SELECT count(*) FROM Station"), "2");
}

TEST_P(TagDbStructTest, UpdateDataOnTheGivenConnection) {
  auto other = Another("other.db");
  other->Seed(kSchema);
  CADODatabase otherDb;
  ASSERT_TRUE(otherDb.OpenAccess(other->Path(), L"", L""));
  StationRecord r;
  ASSERT_TRUE(r.ReadData(2));
  r.Code = 1;
  ASSERT_TRUE(r.UpdateData(2, &otherDb));
  EXPECT_EQ(other->Query("SELECT Code FROM Station WHERE ID=2"), "1");
  EXPECT_EQ(Query("SELECT Code FROM Station WHERE ID=2"), "58362");
}

TEST_P(TagDbStructTest, WritingToATableWithoutOneColumnStoresTheOthers) {
  Seed("CREATE TABLE Narrow (ID INTEGER PRIMARY KEY AUTOINCREMENT, Name TEXT, Code INTEGER);");
  struct NarrowRecord : StationRecord {
    CString GetTableName() override { return L"Narrow"; }
  } r;
  r.Name = L"哈尔滨";
  r.Height = 142.3;  // Narrow has no Height column
  r.Code = 50953;
  ASSERT_TRUE(r.InsertData());
  EXPECT_EQ(Query("SELECT Name || '/' || Code FROM Narrow WHERE ID=" + std::to_string(r.GetID())),
            "哈尔滨/50953");
}

TEST_P(TagDbStructTest, ReadingFromATableWithoutOneColumnLeavesThatField) {
  Seed("CREATE TABLE Narrow (ID INTEGER PRIMARY KEY, Name TEXT, Code INTEGER);"
       "INSERT INTO Narrow VALUES (5, '昆明', 56778);");
  struct NarrowRecord : StationRecord {
    CString GetTableName() override { return L"Narrow"; }
  } r;
  r.Height = 1891.4;
  ASSERT_TRUE(r.ReadData(5));
  EXPECT_EQ(r.Name, L"昆明");
  EXPECT_EQ(r.Height, 1891.4);
}

TEST_P(TagDbStructTest, RemoveDataDeletesThatRow) {
  StationRecord r;
  ASSERT_TRUE(r.RemoveData(1));
  EXPECT_EQ(Query("SELECT count(*) FROM Station"), "1");
  EXPECT_EQ(Query("SELECT Name FROM Station"), "上海");
}

TEST_P(TagDbStructTest, UpdateIdMovesTheRowToTheNewKey) {
  StationRecord r;
  ASSERT_TRUE(r.ReadData(2));
  ASSERT_TRUE(r.UpdateID(20));
  EXPECT_EQ(r.GetID(), 20);
  EXPECT_EQ(Query("SELECT Name FROM Station WHERE ID=20"), "上海");
}

TEST_P(TagDbStructTest, UpdateIdToATakenKeyFailsAndKeepsTheKey) {
  StationRecord r;
  ASSERT_TRUE(r.ReadData(2));
  EXPECT_FALSE(r.UpdateID(1));
  EXPECT_EQ(r.GetID(), 2);
}

TEST_P(TagDbStructTest, ExecSqlFillsARecordSetOrRunsAStatement) {
  StationRecord r;
  CADORecordset rs;
  ASSERT_TRUE(r.ExecSql(L"select * from Station where Code>55000", &rs, nullptr));
  EXPECT_EQ(rs.GetRecordCount(), 1u);
  ASSERT_TRUE(r.ExecSql(L"delete from Station where Code>55000", nullptr, nullptr));
  EXPECT_EQ(Query("SELECT count(*) FROM Station"), "1");
}

TEST_P(TagDbStructTest, WithoutAConnectionEveryOperationFails) {
  StationRecord::s_db = nullptr;
  StationRecord r;
  r.Name = L"x";
  EXPECT_FALSE(r.InsertData());
  EXPECT_FALSE(r.ReadData(1));
  EXPECT_FALSE(r.UpdateData(1));
  EXPECT_FALSE(r.RemoveData(1));
  EXPECT_FALSE(r.ExecSql(L"delete from Station", nullptr, nullptr));
  EXPECT_EQ(Query("SELECT count(*) FROM Station"), "2");
}

TEST(TagDbStruct, ClosedConnectionFailsEveryOperation) {
  CADODatabase closed;
  StationRecord r;
  EXPECT_FALSE(r.InsertData(&closed));
  EXPECT_FALSE(r.ReadData(1, &closed));
}

TEST_P(TagDbStructTest, MissingTableFailsWithoutCrash) {
  struct Lost : StationRecord {
    CString GetTableName() override { return L"NoSuchTable"; }
  } r;
  EXPECT_FALSE(r.InsertData());
  EXPECT_FALSE(r.ReadData(1));
  EXPECT_FALSE(r.UpdateData(1));
}

TEST(TagDbStruct, BaseRecordHasNoConnectionOrTable) {
  tagDBSTRUCT base;
  EXPECT_EQ(base.GetUserDatabase(), nullptr);
  EXPECT_TRUE(base.GetTableName().IsEmpty());
  EXPECT_TRUE(base.GetDataBasePath().IsEmpty());
  EXPECT_FALSE(base.InsertData());
}

TEST_P(TagDbStructTest, MissingDatabaseFileFailsEveryOperation) {
  QK_SQLITE_ONLY();
  CADODatabase missing;
  EXPECT_FALSE(missing.OpenAccess(dir.File("missing.db"), L"", L""));
  StationRecord r;
  r.Name = L"x";
  EXPECT_FALSE(r.InsertData(&missing));
  EXPECT_FALSE(r.ReadData(1, &missing));
  EXPECT_FALSE(r.UpdateData(1, &missing));
  EXPECT_FALSE(r.RemoveData(1, &missing));
  EXPECT_EQ(r.GetID(), 0);
}

TEST_P(TagDbStructTest, ReadOnlyDatabaseFileRefusesWritesAndKeepsItsRows) {
  QK_SQLITE_ONLY();
  CString roPath = CreateReadOnlyDatabase(dir, "ro.db", kSchema);
  // 0: every write refused; otherwise the number of the step that went wrong.
  int result = RunUnprivileged([&] {
    CADODatabase ro;
    if (!ro.OpenAccess(roPath, L"", L"")) return 1;
    StationRecord r;
    if (!r.ReadData(1, &ro)) return 2;
    r.Height = 0.0;
    if (r.UpdateData(1, &ro)) return 3;
    if (r.InsertData(&ro)) return 4;
    if (r.RemoveData(1, &ro)) return 5;
    return 0;
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(QueryOne(roPath, "SELECT count(*) || '/' || sum(Height) FROM Station"), "2/34.1");
}

QK_ON_BOTH_BACKENDS(TagDbStructTest);
