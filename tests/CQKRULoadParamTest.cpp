// The load parameters of a room use as a row of the load-parameter table, filed by the room use's ID:
// the labour intensity kept by name, AddOrUpdate with its own codes (0 inserted, 2 updated, 1 failed),
// IsExist, ReadDataByRUId and the name lookup, on real databases built from the schema.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "BackendDatabase.h"
#include "MessageCapture.h"
#include "GeographyFixture.h"
#include "TestDatabase.h"
#include "foundation/QKLoad.h"
#include "mfc/CString.h"
#include "rooms/CQKRULoadParam.h"
#include "tablekit/CADODatabase.h"

using namespace QKLoad;

namespace {

constexpr auto kUnknownLabour = static_cast<EQKLdQdType>(7);  // in no row of the labour table

// A record with every stored field away from its default, for room use ruId.
CQKRULoadParam MeetingRoom(long ruId) {
  CQKRULoadParam p;
  p.RUId = ruId;
  p.DongJiSNSJWD = 18.5;
  p.DongJiSNSJXDSD = 0.45;
  p.XiaJiSNSJWD = 26.5;
  p.XiaJiSNSJXDSD = 0.55;
  p.RenYuanMD = 0.4;
  p.ZhaoMingBZ = 11.0;
  p.SheBeiBZ = 5.0;
  p.XinFengL = 30.0;
  p.ZaoYin = 40;
  p.ZongLengZB = 180.5;
  p.ZongReZB = 90.25;
  p.WeiHuLZB = 50.5;
  p.RenYuanLZB = 70.25;
  p.XinFengLZB = 40.75;
  p.QiTaLZB = 19.0;
  p.WeiHuRZB = 45.5;
  p.RenYuanRZB = 15.25;
  p.XinFengRZB = 29.5;
  p.LaoDongQD = L"极轻劳动";
  p.LDQDId = LdQdVeryLight;
  p.ShenTouL = 0.5;
  return p;
}

CQKRULoadParam ForRoomUse(long ruId) {
  CQKRULoadParam p;
  p.RUId = ruId;
  return p;
}

// A load-parameter table in the schema's form, for databases made outside the reference schema.
const std::string kLoadParamTable =
    "CREATE TABLE RULoadParam (ID INTEGER PRIMARY KEY AUTOINCREMENT, RUId INTEGER NOT NULL DEFAULT 0,"
    " DongJiSNSJWD REAL, DongJiSNSJXDSD REAL, XiaJiSNSJWD REAL, XiaJiSNSJXDSD REAL, RenYuanMD REAL,"
    " ZhaoMingBZ REAL, SheBeiBZ REAL, XinFengL REAL, ZaoYin INTEGER, ZongLengZB REAL, ZongReZB REAL,"
    " WeiHuLZB REAL, RenYuanLZB REAL, XinFengLZB REAL, QiTaLZB REAL, WeiHuRZB REAL, RenYuanRZB REAL,"
    " XinFengRZB REAL, LaoDongQD INTEGER, ShenTouL REAL);";

// A reference database with the load-parameter record pointed at its table and a connection of the
// test's own on it. Message boxes are caught, so a test can tell that none was shown.
class CQKRULoadParamTest : public BackendFixture {
 protected:
  void SetUp() override {
    BackendFixture::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    CQKRULoadParam::S_Init(path, L"RULoadParam");
  }
  void TearDown() override {
    ForgetClassTable<CQKRULoadParam>();
  }

  std::string RowCount() const { return Query("select count(*) from RULoadParam"); }

  MessageCapture capture;  // a test can tell that no message was shown
};

}  // namespace

// ---- the labour intensity of the record ------------------------------------------------------------

TEST(CQKRULoadParam, SetLDQDIdStoresTheRecordsIdAndTheName) {
  CQKRULoadParam p;

  ErrorType result = p.SetLDQDId(LdQdModerate);

  EXPECT_EQ(result, ET_OK);
  EXPECT_EQ(p.LoadParamLDQDId, 3);
  EXPECT_EQ(p.LaoDongQD, L"中等劳动");
  EXPECT_EQ(p.LDQDId, LdQdSitting);
}

TEST(CQKRULoadParam, SetLDQDIdOfAnIdOutsideTheTableKeepsTheName) {
  CQKRULoadParam p;
  p.LaoDongQD = L"轻度劳动";

  p.SetLDQDId(kUnknownLabour);

  EXPECT_EQ(p.LoadParamLDQDId, 7);
  EXPECT_EQ(p.LaoDongQD, L"轻度劳动");
}

TEST(CQKRULoadParam, GetLDQDIdIsTheIdOfTheStoredName) {
  CQKRULoadParam p;
  p.LaoDongQD = L"轻度劳动";
  p.LDQDId = LdQdHeavy;
  p.LoadParamLDQDId = 3;

  EQKLdQdType id = p.GetLDQDId();

  EXPECT_EQ(id, LdQdLight);
}

TEST(CQKRULoadParam, GetLDQDIdOfANameOutsideTheTableIsSitting) {
  CQKRULoadParam p;
  p.LaoDongQD = L"自定义";
  p.LDQDId = LdQdHeavy;
  p.LoadParamLDQDId = 4;

  EQKLdQdType id = p.GetLDQDId();

  EXPECT_EQ(id, LdQdSitting);
}

TEST(CQKRULoadParam, CopyCarriesTheKeyTheFieldsAndTheRecordsLabourId) {
  CQKRULoadParam original = MeetingRoom(8);
  original.SetID(21);
  original.SetLDQDId(LdQdHeavy);

  CQKRULoadParam copy(original);
  CQKRULoadParam assigned;
  assigned = original;

  for (const CQKRULoadParam* p : {&copy, &assigned}) {
    EXPECT_EQ(p->GetID(), 21);
    EXPECT_EQ(p->RUId, 8);
    EXPECT_EQ(p->ZongLengZB, 180.5);
    EXPECT_EQ(p->LaoDongQD, L"重度劳动");
    EXPECT_EQ(p->LoadParamLDQDId, 4);
  }
}

// ---- AddOrUpdate ----------------------------------------------------------------------------------

TEST_P(CQKRULoadParamTest, AddOrUpdateOfANewRoomUseInsertsARowAndReturnsZero) {
  CQKRULoadParam p = ForRoomUse(5);

  int result = p.AddOrUpdate(&db);

  EXPECT_EQ(result, 0);
  EXPECT_EQ(RowCount(), "1");
  EXPECT_EQ(Query("select RUId from RULoadParam"), "5");
}

TEST_P(CQKRULoadParamTest, AddOrUpdateStoresHumiditiesInPercent) {
  CQKRULoadParam p = ForRoomUse(5);  // both humidities 0.6

  p.AddOrUpdate(&db);

  EXPECT_EQ(Query("select DongJiSNSJXDSD from RULoadParam where RUId=5"), "60.0");
  EXPECT_EQ(Query("select XiaJiSNSJXDSD from RULoadParam where RUId=5"), "60.0");
}

TEST_P(CQKRULoadParamTest, AddOrUpdateStoresTheLabourIntensityAsAnInteger) {
  CQKRULoadParam p = ForRoomUse(5);
  p.LaoDongQD = L"中等劳动";

  p.AddOrUpdate(&db);

  EXPECT_EQ(Query("select typeof(LaoDongQD) || ':' || LaoDongQD from RULoadParam where RUId=5"), "integer:3");
}

TEST_P(CQKRULoadParamTest, AddOrUpdateTakesTheKeyOfTheInsertedRow) {
  Seed("INSERT INTO RULoadParam (RUId) VALUES (1), (2);");
  CQKRULoadParam p = ForRoomUse(5);

  p.AddOrUpdate(&db);

  EXPECT_EQ(p.GetID(), 3);
}

TEST_P(CQKRULoadParamTest, AddOrUpdateOfAStoredRoomUseUpdatesItsRowAndReturnsTwo) {
  Seed("INSERT INTO RULoadParam (RUId, ZhaoMingBZ) VALUES (4, 9.0), (5, 9.0);");
  CQKRULoadParam p = ForRoomUse(5);
  p.ZhaoMingBZ = 12.5;

  int result = p.AddOrUpdate(&db);

  EXPECT_EQ(result, 2);
  EXPECT_EQ(p.GetID(), 2);
  EXPECT_EQ(RowCount(), "2");
  EXPECT_EQ(Query("select ZhaoMingBZ from RULoadParam where RUId=5"), "12.5");
  EXPECT_EQ(Query("select ZhaoMingBZ from RULoadParam where RUId=4"), "9.0");
}

TEST_P(CQKRULoadParamTest, AddOrUpdateWithoutAConnectionWritesThroughTheClassConnection) {
  CQKRULoadParam p = ForRoomUse(6);

  int result = p.AddOrUpdate(nullptr);

  EXPECT_EQ(result, 0);
  EXPECT_EQ(Query("select count(*) from RULoadParam where RUId=6"), "1");
}

TEST_P(CQKRULoadParamTest, EveryStoredFieldComesBackFromTheDatabase) {
  CQKRULoadParam stored = MeetingRoom(12);
  ASSERT_EQ(stored.AddOrUpdate(&db), 0);
  CQKRULoadParam read;

  ASSERT_EQ(read.ReadDataByRUId(12), 1);

  EXPECT_EQ(read.GetID(), stored.GetID());
  EXPECT_EQ(read.RUId, 12);
  EXPECT_EQ(read.DongJiSNSJWD, 18.5);
  EXPECT_DOUBLE_EQ(read.DongJiSNSJXDSD, 0.45);
  EXPECT_EQ(read.XiaJiSNSJWD, 26.5);
  EXPECT_DOUBLE_EQ(read.XiaJiSNSJXDSD, 0.55);
  EXPECT_EQ(read.RenYuanMD, 0.4);
  EXPECT_EQ(read.ZhaoMingBZ, 11.0);
  EXPECT_EQ(read.SheBeiBZ, 5.0);
  EXPECT_EQ(read.XinFengL, 30.0);
  EXPECT_EQ(read.ZaoYin, 40);
  EXPECT_EQ(read.ZongLengZB, 180.5);
  EXPECT_EQ(read.ZongReZB, 90.25);
  EXPECT_EQ(read.WeiHuLZB, 50.5);
  EXPECT_EQ(read.RenYuanLZB, 70.25);
  EXPECT_EQ(read.XinFengLZB, 40.75);
  EXPECT_EQ(read.QiTaLZB, 19.0);
  EXPECT_EQ(read.WeiHuRZB, 45.5);
  EXPECT_EQ(read.RenYuanRZB, 15.25);
  EXPECT_EQ(read.XinFengRZB, 29.5);
  EXPECT_EQ(read.LaoDongQD, L"极轻劳动");
  EXPECT_EQ(read.LDQDId, LdQdVeryLight);
  EXPECT_EQ(read.ShenTouL, 0.5);
}

TEST_P(CQKRULoadParamTest, HumiditiesOfAFullRecordAreStoredInPercent) {
  CQKRULoadParam stored = MeetingRoom(12);  // 0.45 in winter, 0.55 in summer

  stored.AddOrUpdate(&db);

  EXPECT_EQ(Query("select DongJiSNSJXDSD from RULoadParam where RUId=12"), "45.0");
  EXPECT_EQ(Query("select XiaJiSNSJXDSD from RULoadParam where RUId=12"), "55.0");
}

TEST_P(CQKRULoadParamTest, AddOrUpdateOfAMissingTableReturnsOneAndWritesNothing) {
  CQKRULoadParam::S_Init(path, L"NoSuchTable");
  CQKRULoadParam p = ForRoomUse(5);

  int result = p.AddOrUpdate(&db);

  EXPECT_EQ(result, 1);
  EXPECT_EQ(RowCount(), "0");
  EXPECT_EQ(Query(OnSQLite() ? "select count(*) from sqlite_master where lower(name)='nosuchtable'"
                             : "select count(*) from information_schema.tables where table_name='nosuchtable'"),
            "0");
}

TEST_P(CQKRULoadParamTest, AFailedAddOrUpdateShowsNoMessage) {
  CQKRULoadParam::S_Init(path, L"NoSuchTable");
  CQKRULoadParam p = ForRoomUse(5);

  p.AddOrUpdate(&db);

  EXPECT_TRUE(capture.shown.empty());
}

TEST_P(CQKRULoadParamTest, AddOrUpdateOfANewRoomUseOnAReadOnlyDatabaseReturnsOne) {
  CString readOnly = CreateReadOnlyDatabase(dir, "readonly.db", kLoadParamTable +
                                                                   "INSERT INTO RULoadParam (RUId) VALUES (3);");

  int result = RunUnprivileged([&] {
    CADODatabase ro;
    if (!ro.OpenAccess(readOnly, L"", L"")) return -2;
    CQKRULoadParam p = ForRoomUse(5);
    return p.AddOrUpdate(&ro);
  });

  EXPECT_EQ(result, 1);
  EXPECT_EQ(QueryOne(readOnly, "select group_concat(RUId) from RULoadParam"), "3");
}

TEST_P(CQKRULoadParamTest, AddOrUpdateOfAStoredRoomUseOnAReadOnlyDatabaseReturnsOne) {
  CString readOnly = CreateReadOnlyDatabase(
      dir, "readonly.db", kLoadParamTable + "INSERT INTO RULoadParam (RUId, ZhaoMingBZ) VALUES (5, 9.0);");

  int result = RunUnprivileged([&] {
    CADODatabase ro;
    if (!ro.OpenAccess(readOnly, L"", L"")) return -2;
    CQKRULoadParam p = ForRoomUse(5);
    p.ZhaoMingBZ = 12.5;
    return p.AddOrUpdate(&ro);
  });

  EXPECT_EQ(result, 1);
  EXPECT_EQ(QueryOne(readOnly, "select count(*) || ':' || ZhaoMingBZ from RULoadParam"), "1:9.0");
}

// ---- ReadDataByRUId -------------------------------------------------------------------------------

TEST_P(CQKRULoadParamTest, ReadDataByRUIdLoadsTheRowOfThatRoomUse) {
  Seed("INSERT INTO RULoadParam (RUId, ZaoYin, LaoDongQD) VALUES (4, 35, 1), (5, 50, 2);");
  CQKRULoadParam p;

  int result = p.ReadDataByRUId(5);

  EXPECT_EQ(result, 1);
  EXPECT_EQ(p.GetID(), 2);
  EXPECT_EQ(p.RUId, 5);
  EXPECT_EQ(p.ZaoYin, 50);
  EXPECT_EQ(p.LaoDongQD, L"轻度劳动");
}

TEST_P(CQKRULoadParamTest, ReadDataByRUIdOfARoomUseWithoutParametersReturnsZeroAndChangesNothing) {
  Seed("INSERT INTO RULoadParam (RUId, ZaoYin) VALUES (4, 35);");
  CQKRULoadParam p = MeetingRoom(9);
  p.SetID(17);

  int result = p.ReadDataByRUId(5);

  EXPECT_EQ(result, 0);
  EXPECT_EQ(p.GetID(), 17);
  EXPECT_EQ(p.RUId, 9);
  EXPECT_EQ(p.ZaoYin, 40);
  EXPECT_EQ(p.DongJiSNSJXDSD, 0.45);
  EXPECT_EQ(p.LaoDongQD, L"极轻劳动");
}

TEST_P(CQKRULoadParamTest, ReadDataByRUIdOfAStoredLabourIdOutsideTheTableKeepsTheName) {
  Seed("INSERT INTO RULoadParam (RUId, LaoDongQD) VALUES (5, 7);");
  CQKRULoadParam p;
  p.LaoDongQD = L"中等劳动";

  p.ReadDataByRUId(5);

  EXPECT_EQ(p.LDQDId, kUnknownLabour);
  EXPECT_EQ(p.LaoDongQD, L"中等劳动");
}

// ---- IsExist ---------------------------------------------------------------------------------------

TEST_P(CQKRULoadParamTest, IsExistOfARoomUseWithoutRowReturnsZero) {
  Seed("INSERT INTO RULoadParam (RUId) VALUES (4);");
  CQKRULoadParam p = ForRoomUse(5);
  p.SetID(30);

  int result = p.IsExist(&db);

  EXPECT_EQ(result, 0);
  EXPECT_EQ(p.GetID(), 30);
}

TEST_P(CQKRULoadParamTest, IsExistOfARoomUseWithOneRowReturnsTwoAndTakesItsKey) {
  Seed("INSERT INTO RULoadParam (RUId) VALUES (4), (5);");
  CQKRULoadParam p = ForRoomUse(5);

  int result = p.IsExist(&db);

  EXPECT_EQ(result, 2);
  EXPECT_EQ(p.GetID(), 2);
}

TEST_P(CQKRULoadParamTest, IsExistOfARoomUseWithOneRowLeavesTheFields) {
  Seed("INSERT INTO RULoadParam (RUId, ZaoYin) VALUES (5, 55);");
  CQKRULoadParam p = ForRoomUse(5);
  p.ZaoYin = 30;

  p.IsExist(&db);

  EXPECT_EQ(p.ZaoYin, 30);
}

TEST_P(CQKRULoadParamTest, IsExistOfARoomUseWithTwoRowsReturnsTwoAndLeavesTheKey) {
  Seed("INSERT INTO RULoadParam (RUId) VALUES (5), (4), (5);");
  CQKRULoadParam p = ForRoomUse(5);
  p.SetID(30);

  int result = p.IsExist(&db);

  EXPECT_EQ(result, 2);
  EXPECT_EQ(p.GetID(), 30);
}

TEST_P(CQKRULoadParamTest, IsExistOfAMissingTableReturnsOne) {
  CQKRULoadParam::S_Init(path, L"NoSuchTable");
  CQKRULoadParam p = ForRoomUse(5);

  int result = p.IsExist(&db);

  EXPECT_EQ(result, 1);
}

// ---- HasRULoadParam --------------------------------------------------------------------------------

TEST_P(CQKRULoadParamTest, HasRULoadParamWithoutAnyConnectionIsMinusOne) {
  CADODatabase* classConnection = CQKRULoadParam::m_pADODatabase;
  CQKRULoadParam::m_pADODatabase = nullptr;  // as before the class ever opened one

  int id = CQKRULoadParam::HasRULoadParam(L"办公室", nullptr);

  CQKRULoadParam::m_pADODatabase = classConnection;
  EXPECT_EQ(id, -1);
}

TEST_P(CQKRULoadParamTest, HasRULoadParamOnTheShippedTableIsMinusOne) {
  Seed("INSERT INTO RULoadParam (RUId) VALUES (5);");

  int id = CQKRULoadParam::HasRULoadParam(L"办公室", &db);

  EXPECT_EQ(id, -1);
}

TEST_P(CQKRULoadParamTest, HasRULoadParamGivesTheFirstKeyOfTheNameOnATableWithNames) {
  Seed("CREATE TABLE NamedLoadParam (ID INTEGER PRIMARY KEY, Name TEXT);"
       "INSERT INTO NamedLoadParam (ID, Name) VALUES (7, '会议室'), (9, '办公室'), (12, '办公室');");
  CQKRULoadParam::S_Init(path, L"NamedLoadParam");

  int id = CQKRULoadParam::HasRULoadParam(L"办公室", &db);

  EXPECT_EQ(id, 9);
}

TEST_P(CQKRULoadParamTest, HasRULoadParamOfAnUnstoredNameOnATableWithNamesIsZero) {
  Seed("CREATE TABLE NamedLoadParam (ID INTEGER PRIMARY KEY, Name TEXT);"
       "INSERT INTO NamedLoadParam (ID, Name) VALUES (7, '会议室');");
  CQKRULoadParam::S_Init(path, L"NamedLoadParam");

  int id = CQKRULoadParam::HasRULoadParam(L"办公室", &db);

  EXPECT_EQ(id, 0);
}

TEST_P(CQKRULoadParamTest, HasRULoadParamWithoutAConnectionUsesTheClassConnectionOnceOpened) {
  Seed("CREATE TABLE NamedLoadParam (ID INTEGER PRIMARY KEY, Name TEXT);"
       "INSERT INTO NamedLoadParam (ID, Name) VALUES (7, '会议室');");
  CQKRULoadParam::S_Init(path, L"NamedLoadParam");
  ASSERT_NE(CQKRULoadParam().GetUserDatabase(), nullptr);  // opens the class connection

  int id = CQKRULoadParam::HasRULoadParam(L"会议室", nullptr);

  EXPECT_EQ(id, 7);
}

QK_ON_BOTH_BACKENDS(CQKRULoadParamTest);
