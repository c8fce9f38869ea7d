// The city: a name within its province, carrying its own key in the read-only item "Id".

#include <gtest/gtest.h>

#include "GeographyFixture.h"
#include "datakit/CAMemoryDataProp.h"
#include "geography/CQKCity.h"

using namespace QKLoad;

namespace {

using CQKCityTest = GeographyFixture;

struct RedirectedCity : CQKCity {
  CString GetTableName() override { return L"OtherCity"; }
};

CQKCity City(long pId, const wchar_t* name) {
  CQKCity c;
  c.PId = pId;
  c.Name = name;
  return c;
}

}  // namespace

TEST(CQKCityData, DefaultsAreZeroAndEmpty) {
  CQKCityData c;
  EXPECT_EQ(c.PId, 0);
  EXPECT_EQ(c.Name, L"");
  EXPECT_EQ(c.Id, 0);
}

TEST(CQKCityData, StreamHoldsProvinceThenNameThenId) {
  CQKCityData out;
  out.PId = 4;
  out.Name = L"广州";
  out.Id = 120;
  CADataStream stream;
  ASSERT_EQ(out.DataOutPut(stream), ADataDef::AD_OK);
  long pId = 0, id = 0;
  CString name;
  ASSERT_EQ(stream.ReadItem(&pId), 0);
  ASSERT_EQ(stream.ReadItem(&name), 0);
  ASSERT_EQ(stream.ReadItem(&id), 0);
  EXPECT_EQ(pId, 4);
  EXPECT_EQ(name, L"广州");
  EXPECT_EQ(id, 120);
  EXPECT_EQ(stream.GetRemaining(), 0u);
}

TEST(CQKCityData, StreamRoundTripCarriesEveryField) {
  CQKCityData out;
  out.PId = 2;
  out.Name = L"乌鲁木齐";
  out.Id = 33;
  CADataStream stream;
  out.DataOutPut(stream);
  CQKCityData in;
  ASSERT_EQ(in.DataInPut(stream), ADataDef::AD_OK);
  EXPECT_EQ(in.PId, 2);
  EXPECT_EQ(in.Name, L"乌鲁木齐");
  EXPECT_EQ(in.Id, 33);
}

TEST(CQKCityData, ExchangeWritesNameAndProvinceButNotId) {
  CQKCityData out;
  out.PId = 4;
  out.Name = L"广州";
  out.Id = 120;
  CAMemoryDataProp store;
  ASSERT_EQ(out.DataOutPro(CADataExchange(store)), ADataDef::AD_OK);
  ASSERT_EQ(store.GetCount(), 2);
  EXPECT_EQ(store.GetName(0), L"Name");
  EXPECT_EQ(store.GetName(1), L"PId");
}

TEST(CQKCityData, ExchangeReadsIdNameAndProvince) {
  CAMemoryDataProp store;
  CADataExchange exchange(store);
  exchange.WriteItem(L"Id", 120L);
  exchange.WriteItem(L"Name", CString(L"广州"));
  exchange.WriteItem(L"PId", 4L);
  CQKCityData in;
  ASSERT_EQ(in.DataInPro(exchange), ADataDef::AD_OK);
  EXPECT_EQ(in.Id, 120);
  EXPECT_EQ(in.Name, L"广州");
  EXPECT_EQ(in.PId, 4);
}

TEST_P(CQKCityTest, LoadingACityFillsIdWithItsKey) {
  Seed("INSERT INTO City (PId, Name) VALUES (1, '北京'), (1, '天津');");
  CQKCity c = City(1, L"天津");
  ASSERT_EQ(c.IsExist(&db), DBS_EXIST);
  EXPECT_EQ(c.GetID(), 2);
  EXPECT_EQ(c.Id, 2);
}

TEST_P(CQKCityTest, WritingACityBackNeverTouchesItsKey) {
  Seed("INSERT INTO City (PId, Name) VALUES (1, '北京');");
  CQKCity c = City(1, L"北京");
  ASSERT_EQ(c.IsExist(&db), DBS_EXIST);
  c.Id = 999;
  c.Name = L"北京市";
  EXPECT_EQ(c.UpdateIfNoOther(&db, 0), DBS_UPDATED);
  EXPECT_EQ(Query("select ID || ':' || Name from City"), "1:北京市");
}

TEST_P(CQKCityTest, AddedCityKeepsTheIdItHadBeforeTheInsert) {
  CQKCity c = City(1, L"上海");
  c.Id = 55;
  ASSERT_EQ(c.AddIfNotExist(&db, 0), DBS_ADDED);
  EXPECT_EQ(c.GetID(), 1);
  EXPECT_EQ(c.Id, 55);
}

TEST_P(CQKCityTest, ACityWithProvinceZeroIsLookedUpAmongCitiesOfProvinceZero) {
  Seed("INSERT INTO City (PId, Name) VALUES (3, '三亚'), (0, '三亚');");
  CQKCity c = City(0, L"三亚");
  EXPECT_EQ(c.IsExist(&db), DBS_EXIST);
  EXPECT_EQ(c.GetID(), 2);
}

TEST_P(CQKCityTest, ACityOfAProvinceThatDoesNotExistIsStoredAsGiven) {
  CQKCity c = City(0, L"三亚");
  EXPECT_EQ(c.AddIfNotExist(&db, 0), DBS_ADDED);
  EXPECT_EQ(Query("select PId from City where ID=1"), "0");
}

TEST_P(CQKCityTest, CitiesOfTheSameNameInDifferentProvincesAreDifferentRecords) {
  CQKCity a = City(1, L"朝阳");
  CQKCity b = City(2, L"朝阳");
  EXPECT_EQ(a.AddIfNotExist(&db, 0), DBS_ADDED);
  EXPECT_EQ(b.AddIfNotExist(&db, 0), DBS_ADDED);
  EXPECT_EQ(Query("select count(*) from City"), "2");
}

TEST_P(CQKCityTest, UpdateIfNoOtherOnANameHeldByAnotherCityOfTheProvinceWritesNothing) {
  Seed("INSERT INTO City (PId, Name) VALUES (1, '北京'), (1, '天津');");
  CQKCity c = City(1, L"北京");
  c.SetID(2);
  EXPECT_EQ(c.UpdateIfNoOther(&db, 0), DBS_EXIST);
  EXPECT_EQ(Query("select Name from City where ID=2"), "天津");
}

TEST_P(CQKCityTest, UpdateTableDataFindsTheKeyByProvinceAndName) {
  Seed("INSERT INTO City (PId, Name) VALUES (1, '北京'), (2, '北京');");
  CQKCity c = City(2, L"北京");
  c.UpdateTableData(&db);
  EXPECT_EQ(c.GetID(), 2);
  EXPECT_EQ(c.Id, 0);  // only the key is read
}

TEST_P(CQKCityTest, UpdateTableDataLooksInTheClassTableNotTheVirtualOne) {
  Seed("CREATE TABLE OtherCity (ID INTEGER PRIMARY KEY, PId INTEGER, Name TEXT);"
       "INSERT INTO OtherCity (ID, PId, Name) VALUES (70, 1, '北京');"
       "INSERT INTO City (PId, Name) VALUES (1, '北京');");
  RedirectedCity c;
  c.PId = 1;
  c.Name = L"北京";
  c.UpdateTableData(&db);
  EXPECT_EQ(c.GetID(), 1);
}

TEST_P(CQKCityTest, UpdateTableDataOfAnUnstoredCityKeepsTheKey) {
  CQKCity c = City(1, L"北京");
  c.SetID(8);
  c.UpdateTableData(&db);
  EXPECT_EQ(c.GetID(), 8);
}

TEST_P(CQKCityTest, ANameWithADoubleQuoteIsAnError) {
  CQKCity c = City(1, L"北\"京");
  EXPECT_EQ(c.IsExist(&db), DBS_ERROR);
  EXPECT_EQ(c.AddIfNotExist(&db, 0), DBS_ERROR);
  EXPECT_EQ(Query("select count(*) from City"), "0");
}

TEST_P(CQKCityTest, UpdateCityTableDataDoesNothing) {
  Seed("INSERT INTO City (PId, Name) VALUES (1, '北京');");
  CQKCity::UpdateCityTableData(&db, &db);
  CQKCity::UpdateCityTableData(nullptr, nullptr);
  EXPECT_EQ(Query("select group_concat(PId || Name) from City"), "1北京");
}

TEST_P(CQKCityTest, ACountryProvinceAndCityChainIsBuiltWithTheParentKeys) {
  CQKCountry country;
  country.Name = L"中国";
  ASSERT_EQ(country.AddIfNotExist(nullptr, 1), DBS_ADDED);
  CQKProvince province;
  province.CId = country.GetID();
  province.Name = L"广东";
  ASSERT_EQ(province.AddIfNotExist(nullptr, 1), DBS_ADDED);
  CQKCity city;
  city.PId = province.GetID();
  city.Name = L"广州";
  ASSERT_EQ(city.AddIfNotExist(nullptr, 1), DBS_ADDED);
  EXPECT_EQ(Query("select Country.Name || '/' || Province.Name || '/' || City.Name from City "
                  "join Province on Province.ID = City.PId join Country on Country.ID = Province.CId"),
            "中国/广东/广州");
}

QK_ON_BOTH_BACKENDS(CQKCityTest);
