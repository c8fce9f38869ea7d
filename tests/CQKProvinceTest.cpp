// The province: a name within its country.

#include <gtest/gtest.h>

#include "GeographyFixture.h"
#include "datakit/CAMemoryDataProp.h"
#include "geography/CQKProvince.h"

using namespace QKLoad;

namespace {

using CQKProvinceTest = GeographyFixture;

struct RedirectedProvince : CQKProvince {
  CString GetTableName() override { return L"OtherProvince"; }
};

CQKProvince Province(long cId, const wchar_t* name) {
  CQKProvince p;
  p.CId = cId;
  p.Name = name;
  return p;
}

}  // namespace

TEST(CQKProvinceData, DefaultsAreZeroAndEmpty) {
  CQKProvinceData p;
  EXPECT_EQ(p.CId, 0);
  EXPECT_EQ(p.Name, L"");
  EXPECT_EQ(p.m_lTag, 0);
}

TEST(CQKProvinceData, StreamHoldsCountryThenNameThenTag) {
  CQKProvinceData out;
  out.CId = 3;
  out.Name = L"广东";
  out.m_lTag = 9;
  CADataStream stream;
  ASSERT_EQ(out.DataOutPut(stream), ADataDef::AD_OK);
  long cId = 0, tag = 0;
  CString name;
  ASSERT_EQ(stream.ReadItem(&cId), 0);
  ASSERT_EQ(stream.ReadItem(&name), 0);
  ASSERT_EQ(stream.ReadItem(&tag), 0);
  EXPECT_EQ(cId, 3);
  EXPECT_EQ(name, L"广东");
  EXPECT_EQ(tag, 9);
  EXPECT_EQ(stream.GetRemaining(), 0u);
}

TEST(CQKProvinceData, StreamRoundTripCarriesEveryField) {
  CQKProvinceData out;
  out.CId = 1;
  out.Name = L"四川";
  out.m_lTag = -2;
  CADataStream stream;
  out.DataOutPut(stream);
  CQKProvinceData in;
  ASSERT_EQ(in.DataInPut(stream), ADataDef::AD_OK);
  EXPECT_EQ(in.CId, 1);
  EXPECT_EQ(in.Name, L"四川");
  EXPECT_EQ(in.m_lTag, -2);
}

TEST(CQKProvinceData, ExchangeWritesNameThenCountry) {
  CQKProvinceData out;
  out.CId = 7;
  out.Name = L"云南";
  out.m_lTag = 5;
  CAMemoryDataProp store;
  ASSERT_EQ(out.DataOutPro(CADataExchange(store)), ADataDef::AD_OK);
  ASSERT_EQ(store.GetCount(), 2);
  EXPECT_EQ(store.GetName(0), L"Name");
  EXPECT_EQ(store.GetName(1), L"CId");
  CQKProvinceData in;
  ASSERT_EQ(in.DataInPro(CADataExchange(store)), ADataDef::AD_OK);
  EXPECT_EQ(in.CId, 7);
  EXPECT_EQ(in.Name, L"云南");
  EXPECT_EQ(in.m_lTag, 0);
}

TEST_P(CQKProvinceTest, ProvincesOfTheSameNameUnderDifferentCountriesAreDifferentRecords) {
  CQKProvince first = Province(1, L"Georgia");
  ASSERT_EQ(first.AddIfNotExist(&db, 0), DBS_ADDED);
  CQKProvince second = Province(2, L"Georgia");
  EXPECT_EQ(second.AddIfNotExist(&db, 0), DBS_ADDED);
  EXPECT_NE(second.GetID(), first.GetID());
  EXPECT_EQ(Query("select count(*) from Province where Name='Georgia'"), "2");
}

TEST_P(CQKProvinceTest, IsExistMatchesCountryAndName) {
  Seed("INSERT INTO Province (CId, Name) VALUES (1, '广东'), (2, '广东');");
  CQKProvince p = Province(2, L"广东");
  EXPECT_EQ(p.IsExist(&db), DBS_EXIST);
  EXPECT_EQ(p.GetID(), 2);
  CQKProvince elsewhere = Province(3, L"广东");
  EXPECT_EQ(elsewhere.IsExist(&db), DBS_NOTEXIST);
}

TEST_P(CQKProvinceTest, AddIfNotExistWithTakingBecomesTheStoredProvince) {
  Seed("INSERT INTO Province (CId, Name) VALUES (1, '广东');");
  CQKProvince p = Province(1, L"广东");
  p.m_lTag = 4;
  EXPECT_EQ(p.AddIfNotExist(&db, 1), DBS_EXIST);
  EXPECT_EQ(p.GetID(), 1);
  EXPECT_EQ(p.m_lTag, 0);
}

TEST_P(CQKProvinceTest, UpdateIfNoOtherMovesAProvinceToACountryWhereItsNameIsFree) {
  Seed("INSERT INTO Province (CId, Name) VALUES (1, '广东'), (2, '广西');");
  CQKProvince p = Province(2, L"广东");
  p.SetID(1);
  EXPECT_EQ(p.UpdateIfNoOther(&db, 0), DBS_UPDATED);
  EXPECT_EQ(Query("select CId from Province where ID=1"), "2");
  EXPECT_EQ(Query("select count(*) from Province"), "2");
}

TEST_P(CQKProvinceTest, UpdateIfNoOtherDoesNotMoveAProvinceOntoATakenName) {
  Seed("INSERT INTO Province (CId, Name) VALUES (1, '广东'), (2, '广东');");
  CQKProvince p = Province(2, L"广东");
  p.SetID(1);
  EXPECT_EQ(p.UpdateIfNoOther(&db, 1), DBS_EXIST);
  EXPECT_EQ(p.GetID(), 2);
  EXPECT_EQ(Query("select CId from Province where ID=1"), "1");
}

TEST_P(CQKProvinceTest, UpdateTableDataFindsTheKeyByCountryAndName) {
  Seed("INSERT INTO Province (CId, Name) VALUES (1, '广东'), (2, '广东');");
  CQKProvince p = Province(2, L"广东");
  p.UpdateTableData(&db);
  EXPECT_EQ(p.GetID(), 2);
}

TEST_P(CQKProvinceTest, UpdateTableDataLooksInTheVirtualTable) {
  Seed("CREATE TABLE OtherProvince (ID INTEGER PRIMARY KEY, CId INTEGER, Name TEXT);"
       "INSERT INTO OtherProvince (ID, CId, Name) VALUES (80, 1, '广东');"
       "INSERT INTO Province (CId, Name) VALUES (1, '广东');");
  RedirectedProvince p;
  p.CId = 1;
  p.Name = L"广东";
  p.UpdateTableData(&db);
  EXPECT_EQ(p.GetID(), 80);
}

TEST_P(CQKProvinceTest, UpdateTableDataOfAnUnstoredProvinceKeepsTheKey) {
  CQKProvince p = Province(1, L"广东");
  p.SetID(6);
  p.UpdateTableData(&db);
  EXPECT_EQ(p.GetID(), 6);
}

TEST_P(CQKProvinceTest, WritingToATableWithoutTheCountryColumnStoresTheName) {
  Seed("CREATE TABLE BareProvince (ID INTEGER PRIMARY KEY AUTOINCREMENT, Name TEXT);");
  CQKProvince::S_Init(path, L"BareProvince");
  CQKProvince p = Province(4, L"海南");
  ASSERT_TRUE(p.InsertData(&db));
  p.Name = L"海南省";
  ASSERT_TRUE(p.UpdateData(p.GetID(), &db));
  EXPECT_EQ(Query("select Name from BareProvince where ID=1"), "海南省");
}

TEST_P(CQKProvinceTest, LookingUpInATableWithoutTheCountryColumnIsAnError) {
  Seed("CREATE TABLE BareProvince (ID INTEGER PRIMARY KEY AUTOINCREMENT, Name TEXT);");
  CQKProvince::S_Init(path, L"BareProvince");
  CQKProvince p = Province(4, L"海南");
  EXPECT_EQ(p.AddIfNotExist(&db, 0), DBS_ERROR);
  EXPECT_EQ(Query("select count(*) from BareProvince"), "0");
}

TEST_P(CQKProvinceTest, ReadingFromATableWithoutTheCountryColumnKeepsTheField) {
  Seed("CREATE TABLE BareProvince (ID INTEGER PRIMARY KEY AUTOINCREMENT, Name TEXT);"
       "INSERT INTO BareProvince (Name) VALUES ('海南');");
  CQKProvince p;
  p.CId = 5;
  CQKProvince::S_Init(path, L"BareProvince");
  ASSERT_TRUE(p.ReadData(1, &db));
  EXPECT_EQ(p.Name, L"海南");
  EXPECT_EQ(p.CId, 5);
}

TEST_P(CQKProvinceTest, ANameWithADoubleQuoteIsAnError) {
  CQKProvince p = Province(1, L"\"广东");
  EXPECT_EQ(p.AddIfNotExist(&db, 0), DBS_ERROR);
  EXPECT_EQ(Query("select count(*) from Province"), "0");
}

TEST_P(CQKProvinceTest, UpdateProvinceTableDataDoesNothing) {
  Seed("INSERT INTO Province (CId, Name) VALUES (1, '广东');");
  CQKProvince::UpdateProvinceTableData(&db, &db);
  CQKProvince::UpdateProvinceTableData(nullptr, nullptr);
  EXPECT_EQ(Query("select group_concat(CId || Name) from Province"), "1广东");
}

QK_ON_BOTH_BACKENDS(CQKProvinceTest);
