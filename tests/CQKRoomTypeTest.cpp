// The room type: a name, the upper level of the room classification.

#include <gtest/gtest.h>

#include "RoomsFixture.h"
#include "datakit/CAMemoryDataProp.h"
#include "rooms/CQKRoomType.h"

using namespace QKLoad;

namespace {

using CQKRoomTypeTest = RoomsFixture;

struct RedirectedRoomType : CQKRoomType {
  CString GetTableName() override { return L"OtherRoomType"; }
};

CQKRoomType RoomType(const wchar_t* name) {
  CQKRoomType t;
  t.Name = name;
  return t;
}

}  // namespace

TEST(CQKRoomTypeData, DefaultsAreTagZeroAndAnEmptyName) {
  CQKRoomTypeData t;
  EXPECT_EQ(t.m_lTag, 0);
  EXPECT_EQ(t.Name, L"");
}

TEST(CQKRoomTypeData, StreamHoldsTheTagThenTheName) {
  CQKRoomTypeData out;
  out.m_lTag = 9;
  out.Name = L"办公建筑";
  CADataStream stream;
  out.DataOutPut(stream);
  long tag = 0;
  CString name;
  ASSERT_EQ(stream.ReadItem(&tag), 0);
  ASSERT_EQ(stream.ReadItem(&name), 0);
  EXPECT_EQ(tag, 9);
  EXPECT_EQ(name, L"办公建筑");
  EXPECT_EQ(stream.GetRemaining(), 0u);
}

TEST(CQKRoomTypeData, StreamRoundTripCarriesBothFields) {
  CQKRoomTypeData out;
  out.m_lTag = -4;
  out.Name = L"医院";
  CADataStream stream;
  out.DataOutPut(stream);
  CQKRoomTypeData in;
  in.DataInPut(stream);
  EXPECT_EQ(in.m_lTag, -4);
  EXPECT_EQ(in.Name, L"医院");
}

TEST(CQKRoomTypeData, ExchangeCarriesOnlyTheName) {
  CQKRoomTypeData out;
  out.m_lTag = 3;
  out.Name = L"学校";
  CAMemoryDataProp items;
  out.DataOutPro(CADataExchange(items));
  ASSERT_EQ(items.GetCount(), 1);
  EXPECT_EQ(items.GetName(0), L"Name");
  CQKRoomTypeData in;
  in.DataInPro(CADataExchange(items));
  EXPECT_EQ(in.Name, L"学校");
  EXPECT_EQ(in.m_lTag, 0);
}

TEST_P(CQKRoomTypeTest, AddIfNotExistInsertsAndTakesTheNewKey) {
  CQKRoomType t = RoomType(L"办公建筑");
  EXPECT_EQ(t.AddIfNotExist(nullptr, 0), DBS_ADDED);
  EXPECT_EQ(t.GetID(), 1);
  EXPECT_EQ(Query("select Name from RoomType where ID=1"), "办公建筑");
}

TEST_P(CQKRoomTypeTest, IsExistLoadsTheStoredRowWithItsKey) {
  Seed("INSERT INTO RoomType (Name) VALUES ('商场'), ('办公建筑');");
  CQKRoomType t = RoomType(L"办公建筑");
  EXPECT_EQ(t.IsExist(&db), DBS_EXIST);
  EXPECT_EQ(t.GetID(), 2);
}

TEST_P(CQKRoomTypeTest, IsExistOfAnUnstoredNameIsNotExist) {
  CQKRoomType t = RoomType(L"体育馆");
  EXPECT_EQ(t.IsExist(nullptr), DBS_NOTEXIST);
  EXPECT_EQ(t.GetID(), 0);
}

TEST_P(CQKRoomTypeTest, IsExistLooksInTheVirtualTable) {
  Seed("CREATE TABLE OtherRoomType (ID INTEGER PRIMARY KEY, Name TEXT);"
       "INSERT INTO OtherRoomType (ID, Name) VALUES (40, '旅馆');");
  RedirectedRoomType t;
  t.Name = L"旅馆";
  EXPECT_EQ(t.IsExist(&db), DBS_EXIST);
  EXPECT_EQ(t.GetID(), 40);
}

TEST_P(CQKRoomTypeTest, IsExistOfAMissingTableIsAnError) {
  CQKRoomType::S_Init(path, L"NoSuchTable");
  CQKRoomType t = RoomType(L"办公建筑");
  EXPECT_EQ(t.IsExist(nullptr), DBS_ERROR);
}

TEST_P(CQKRoomTypeTest, AddIfNotExistOfAStoredNameWithTakingBecomesTheStoredRecord) {
  Seed("INSERT INTO RoomType (Name) VALUES ('办公建筑');");
  CQKRoomType t = RoomType(L"办公建筑");
  EXPECT_EQ(t.AddIfNotExist(nullptr, 1), DBS_EXIST);
  EXPECT_EQ(t.GetID(), 1);
  EXPECT_EQ(Query("select count(*) from RoomType"), "1");
}

TEST_P(CQKRoomTypeTest, UpdateIfNoOtherOnANameHeldByAnotherRowWritesNothing) {
  Seed("INSERT INTO RoomType (Name) VALUES ('办公建筑'), ('医院');");
  CQKRoomType t = RoomType(L"医院");
  t.SetID(1);
  EXPECT_EQ(t.UpdateIfNoOther(nullptr, 0), DBS_EXIST);
  EXPECT_EQ(Query("select group_concat(Name) from RoomType"), "办公建筑,医院");
}

TEST_P(CQKRoomTypeTest, UpdateIfNoOtherWithAFreeNameRenamesTheRow) {
  Seed("INSERT INTO RoomType (Name) VALUES ('办公建筑');");
  CQKRoomType t = RoomType(L"办公楼");
  t.SetID(1);
  EXPECT_EQ(t.UpdateIfNoOther(nullptr, 0), DBS_UPDATED);
  EXPECT_EQ(Query("select Name from RoomType where ID=1"), "办公楼");
}

TEST_P(CQKRoomTypeTest, UpdateTableDataReadsTheKeyOfTheRowWithTheName) {
  Seed("INSERT INTO RoomType (Name) VALUES ('商场'), ('医院');");
  CQKRoomType t = RoomType(L"医院");
  t.UpdateTableData(nullptr);
  EXPECT_EQ(t.GetID(), 2);
}

TEST_P(CQKRoomTypeTest, UpdateDataWithoutADatabaseWritesTheRecordsOwn) {
  Seed("INSERT INTO RoomType (Name) VALUES ('商场');");
  CQKRoomType t = RoomType(L"购物中心");
  EXPECT_TRUE(t.UpdateData(1, nullptr));
  EXPECT_EQ(Query("select Name from RoomType where ID=1"), "购物中心");
}

TEST_P(CQKRoomTypeTest, UpdateDataOfAMissingRowFails) {
  CQKRoomType t = RoomType(L"商场");
  EXPECT_FALSE(t.UpdateData(3, nullptr));
}

TEST_P(CQKRoomTypeTest, HasRoomTypeGivesTheFirstIdOfTheName) {
  Seed("INSERT INTO RoomType (Name) VALUES ('商场'), ('医院'), ('医院');");
  EXPECT_EQ(CQKRoomType::HasRoomType(L"医院", &db), 2);
}

TEST_P(CQKRoomTypeTest, HasRoomTypeOfAnUnknownNameIsZero) {
  Seed("INSERT INTO RoomType (Name) VALUES ('商场');");
  EXPECT_EQ(CQKRoomType::HasRoomType(L"医院", &db), 0);
}

TEST_P(CQKRoomTypeTest, HasRoomTypeWithoutAConnectionUsesTheClassOneAsItStands) {
  Seed("INSERT INTO RoomType (Name) VALUES ('商场');");
  ForgetClassTable<CQKRoomType>();  // closed: the lookup does not open it
  CQKRoomType::S_Init(path, L"RoomType");
  EXPECT_EQ(CQKRoomType::HasRoomType(L"商场", nullptr), -1);
  CQKRoomType().GetUserDatabase();  // any use of the class opens it
  EXPECT_EQ(CQKRoomType::HasRoomType(L"商场", nullptr), 1);
}

TEST_P(CQKRoomTypeTest, HasRoomTypeOnAMissingTableIsMinusOne) {
  CQKRoomType::S_Init(path, L"NoSuchTable");
  EXPECT_EQ(CQKRoomType::HasRoomType(L"商场", &db), -1);
}

TEST_P(CQKRoomTypeTest, ANameWithADoubleQuoteFailsWithoutHarm) {
  Seed("INSERT INTO RoomType (Name) VALUES ('商场');");
  CQKRoomType t = RoomType(L"x\"; drop table RoomType; --");
  EXPECT_EQ(t.AddIfNotExist(nullptr, 0), DBS_ERROR);
  EXPECT_EQ(CQKRoomType::HasRoomType(t.Name, &db), -1);
  EXPECT_EQ(Query("select count(*) from RoomType"), "1");
}

QK_ON_BOTH_BACKENDS(CQKRoomTypeTest);
