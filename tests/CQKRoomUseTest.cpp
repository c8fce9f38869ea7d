// The room use: a name under a room type (RTId).

#include <gtest/gtest.h>

#include "RoomsFixture.h"
#include "datakit/CAMemoryDataProp.h"
#include "rooms/CQKRoomUse.h"

using namespace QKLoad;

namespace {

using CQKRoomUseTest = RoomsFixture;

CQKRoomUse RoomUse(long rtId, const wchar_t* name) {
  CQKRoomUse u;
  u.RTId = rtId;
  u.Name = name;
  return u;
}

}  // namespace

TEST(CQKRoomUseData, DefaultsAreZeroAndEmpty) {
  CQKRoomUseData u;
  EXPECT_EQ(u.RTId, 0);
  EXPECT_EQ(u.Name, L"");
  EXPECT_EQ(u.m_lTag, 0);
}

TEST(CQKRoomUseData, StreamHoldsTypeThenNameThenTag) {
  CQKRoomUseData out;
  out.RTId = 3;
  out.Name = L"普通办公室";
  out.m_lTag = 8;
  CADataStream stream;
  out.DataOutPut(stream);
  long rtId = 0, tag = 0;
  CString name;
  ASSERT_EQ(stream.ReadItem(&rtId), 0);
  ASSERT_EQ(stream.ReadItem(&name), 0);
  ASSERT_EQ(stream.ReadItem(&tag), 0);
  EXPECT_EQ(rtId, 3);
  EXPECT_EQ(name, L"普通办公室");
  EXPECT_EQ(tag, 8);
  EXPECT_EQ(stream.GetRemaining(), 0u);
}

TEST(CQKRoomUseData, ExchangeCarriesTheNameThenTheType) {
  CQKRoomUseData out;
  out.RTId = 5;
  out.Name = L"病房";
  out.m_lTag = 2;
  CAMemoryDataProp items;
  out.DataOutPro(CADataExchange(items));
  ASSERT_EQ(items.GetCount(), 2);
  EXPECT_EQ(items.GetName(0), L"Name");
  EXPECT_EQ(items.GetName(1), L"RTId");
  CQKRoomUseData in;
  in.DataInPro(CADataExchange(items));
  EXPECT_EQ(in.RTId, 5);
  EXPECT_EQ(in.Name, L"病房");
  EXPECT_EQ(in.m_lTag, 0);
}

TEST_P(CQKRoomUseTest, IsExistMatchesTypeAndName) {
  Seed("INSERT INTO RoomUse (RTId, Name) VALUES (1, '会议室'), (2, '会议室');");
  CQKRoomUse u = RoomUse(2, L"会议室");
  EXPECT_EQ(u.IsExist(nullptr), DBS_EXIST);
  EXPECT_EQ(u.GetID(), 2);
}

TEST_P(CQKRoomUseTest, IsExistUnderAnotherTypeIsNotExist) {
  Seed("INSERT INTO RoomUse (RTId, Name) VALUES (1, '会议室');");
  CQKRoomUse u = RoomUse(2, L"会议室");
  EXPECT_EQ(u.IsExist(nullptr), DBS_NOTEXIST);
}

TEST_P(CQKRoomUseTest, AddIfNotExistInsertsTheTypeAndName) {
  CQKRoomUse u = RoomUse(4, L"手术室");
  EXPECT_EQ(u.AddIfNotExist(nullptr, 0), DBS_ADDED);
  EXPECT_EQ(u.GetID(), 1);
  EXPECT_EQ(Query("select RTId || ':' || Name from RoomUse"), "4:手术室");
}

TEST_P(CQKRoomUseTest, UpdateIfNoOtherMovesAUseToAnotherType) {
  Seed("INSERT INTO RoomUse (RTId, Name) VALUES (1, '会议室');");
  CQKRoomUse u = RoomUse(3, L"会议室");
  u.SetID(1);
  EXPECT_EQ(u.UpdateIfNoOther(nullptr, 0), DBS_UPDATED);
  EXPECT_EQ(Query("select RTId from RoomUse where ID=1"), "3");
}

TEST_P(CQKRoomUseTest, UpdateTableDataReadsTheKeyByTypeAndName) {
  Seed("INSERT INTO RoomUse (RTId, Name) VALUES (1, '会议室'), (2, '会议室');");
  CQKRoomUse u = RoomUse(2, L"会议室");
  u.UpdateTableData(nullptr);
  EXPECT_EQ(u.GetID(), 2);
}

TEST_P(CQKRoomUseTest, UpdateDataWithoutADatabaseWritesTheRecordsOwn) {
  Seed("INSERT INTO RoomUse (RTId, Name) VALUES (1, '会议室');");
  CQKRoomUse u = RoomUse(1, L"大会议室");
  EXPECT_TRUE(u.UpdateData(1L, nullptr));
  EXPECT_EQ(Query("select Name from RoomUse where ID=1"), "大会议室");
}

TEST_P(CQKRoomUseTest, UpdateDataByNameSucceedsAndWritesNothing) {
  Seed("INSERT INTO RoomUse (RTId, Name) VALUES (1, '会议室');");
  CQKRoomUse u = RoomUse(1, L"大会议室");
  u.SetID(1);
  EXPECT_EQ(u.UpdateData(L"会议室", &db), 1);
  EXPECT_EQ(Query("select Name from RoomUse where ID=1"), "会议室");
}

TEST_P(CQKRoomUseTest, HasRoomUseFindsTheNameUnderAnyTypeAndGivesTheFirstId) {
  Seed("INSERT INTO RoomUse (RTId, Name) VALUES (1, '走廊'), (7, '会议室'), (2, '会议室');");
  EXPECT_EQ(CQKRoomUse::HasRoomUse(L"会议室", &db), 2);
}

TEST_P(CQKRoomUseTest, HasRoomUseOfAnUnknownNameIsZero) {
  EXPECT_EQ(CQKRoomUse::HasRoomUse(L"会议室", &db), 0);
}

TEST_P(CQKRoomUseTest, HasRoomUseBeforeTheClassConnectionIsOpenIsMinusOne) {
  Seed("INSERT INTO RoomUse (RTId, Name) VALUES (1, '会议室');");
  EXPECT_EQ(CQKRoomUse::HasRoomUse(L"会议室", nullptr), -1);
}

TEST_P(CQKRoomUseTest, AReadOnlyDatabaseRefusesAnInsertAndKeepsItsRows) {
  const CString readOnly = CreateReadOnlyDatabase(dir, "readonly.db",
                                                  "CREATE TABLE RoomUse (ID INTEGER PRIMARY KEY AUTOINCREMENT, "
                                                  "RTId INTEGER, Name TEXT);"
                                                  "INSERT INTO RoomUse (RTId, Name) VALUES (1, '会议室');");
  const int result = RunUnprivileged([&] {
    CADODatabase ro;
    if (!ro.OpenAccess(readOnly, L"", L"")) return 10;
    CQKRoomUse stored = RoomUse(1, L"会议室");
    if (stored.IsExist(&ro) != DBS_EXIST) return 11;
    CQKRoomUse added = RoomUse(1, L"走廊");
    if (added.AddIfNotExist(&ro, 0) != DBS_ERROR) return 12;
    return 0;
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(QueryOne(readOnly, "select group_concat(Name) from RoomUse"), "会议室");
}

QK_ON_BOTH_BACKENDS(CQKRoomUseTest);
