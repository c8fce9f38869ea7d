// The weather administration: which climate a city gets (its own or the nearest neighbour's), the
// place tree with and without the weather filter, the node lookups and the deletions.

#include <gtest/gtest.h>

#include "WeatherFixture.h"
#include "weather/CQKWeatherDataAdmin.h"

using Node = CQKWeatherDataAdmin::tagCityNode;

namespace {

class CQKWeatherDataAdminTest : public WeatherFixture {
 protected:
  // 中国 (1) with 广东省 (1: 广州 1, 深圳 2) and 湖南省 (2: 长沙 3), 日本 (2) with 东京都 (3: 东京 4).
  void SeedPlaces() {
    Seed("INSERT INTO Country (Name) VALUES ('中国'), ('日本');"
         "INSERT INTO Province (CId, Name) VALUES (1, '广东省'), (1, '湖南省'), (2, '东京都');"
         "INSERT INTO City (PId, Name) VALUES (1, '广州'), (1, '深圳'), (2, '长沙'), (3, '东京');");
  }

  static CQKWeather WeatherOf(long cityId) {
    CQKWeather w;
    w.CId = cityId;
    return w;
  }
  static CQKCountry CountryRef(const wchar_t* name, long id) {
    CQKCountry c;
    c.Name = name;
    c.SetID(id);
    return c;
  }
  static CQKProvince ProvinceRef(const wchar_t* name, long id) {
    CQKProvince p;
    p.Name = name;
    p.SetID(id);
    return p;
  }
  static CQKCity CityRef(const wchar_t* name, long id) {
    CQKCity c;
    c.Name = name;
    c.SetID(id);
    return c;
  }
  // The names of node's children, joined by ",".
  static CString Children(const Node* node) {
    CString names;
    for (int i = 0; node && i < node->arrChild.GetSize(); ++i) {
      if (i) names += L",";
      names += node->arrChild[i]->strName;
    }
    return names;
  }
  std::string Rows(const std::string& table) { return Query("select count(*) from " + table); }

  CQKWeatherDataAdmin admin;
};

}  // namespace

// ----- The climate of a city -----

TEST_P(CQKWeatherDataAdminTest, ACityWithItsOwnWeatherFileGetsItsRowAndZero) {
  SeedPlaces();
  AddWeather(3, 1.96, 0.49, "CHN_Hunan.Changsha.576870_CSWD.epw", 35.8);
  CQKWeather w = WeatherOf(3);
  EXPECT_EQ(CQKWeatherDataAdmin::GetWeatherByCityId(w), 0);
  EXPECT_EQ(w.XjKtSwGqWd, 35.8);
  EXPECT_EQ(w.EpwName, L"CHN_Hunan.Changsha.576870_CSWD.epw");
  EXPECT_EQ(w.GetID(), 1);
  EXPECT_EQ(w.CityName, L"长沙");
  EXPECT_EQ(w.ProvinceName, L"湖南省");
  EXPECT_EQ(w.CountryName, L"中国");
}

TEST_P(CQKWeatherDataAdminTest, ACityWithoutAWeatherFileTakesTheNearerNeighbourAndItsNames) {
  SeedPlaces();
  AddWeather(1, 2.000, 0.400, "", 0.0);       // 广州: no file
  AddWeather(2, 2.300, 0.400, "far.epw", 31.0);  // 深圳: 0.3 away
  AddWeather(3, 2.000, 0.500, "near.epw", 32.0); // 长沙: 0.1 away
  CQKWeather w = WeatherOf(1);
  EXPECT_EQ(CQKWeatherDataAdmin::GetWeatherByCityId(w), 1);
  EXPECT_EQ(w.XjKtSwGqWd, 32.0);
  EXPECT_EQ(w.EpwName, L"near.epw");
  EXPECT_EQ(w.CId, 3);
  EXPECT_EQ(w.GetID(), 3);
  EXPECT_EQ(w.CityName, L"长沙");
  EXPECT_EQ(w.ProvinceName, L"湖南省");
  EXPECT_EQ(w.CountryName, L"中国");
}

TEST_P(CQKWeatherDataAdminTest, NeighboursAtEqualDistanceGoToTheEarlierRow) {
  SeedPlaces();
  AddWeather(1, 2.0, 0.5, "", 0.0);
  AddWeather(2, 2.25, 0.5, "east.epw", 31.0);  // 0.25 east
  AddWeather(3, 1.75, 0.5, "west.epw", 32.0);  // 0.25 west: the same distance, a later row
  CQKWeather w = WeatherOf(1);
  EXPECT_EQ(CQKWeatherDataAdmin::GetWeatherByCityId(w), 1);
  EXPECT_EQ(w.EpwName, L"east.epw");
  EXPECT_EQ(w.CId, 2);
}

TEST_P(CQKWeatherDataAdminTest, ANeighbourOutsideTheSquareOfOneIsNotTaken) {
  SeedPlaces();
  AddWeather(1, 2.0, 0.5, "", 0.0);
  AddWeather(2, 3.5, 0.5, "far.epw", 31.0);  // 1.5 east: outside the half-width 1.0
  CQKWeather w = WeatherOf(1);
  EXPECT_EQ(CQKWeatherDataAdmin::GetWeatherByCityId(w), 0);
  EXPECT_EQ(w.EpwName, L"");
  EXPECT_EQ(w.CId, 1);
  EXPECT_EQ(w.CityName, L"广州");
}

TEST_P(CQKWeatherDataAdminTest, RowsInTheSquareWithoutAnyWeatherFileLeaveTheRecordAsItWas) {
  SeedPlaces();
  AddWeather(1, 2.0, 0.5, "", 27.0);
  AddWeather(2, 2.1, 0.5, "", 31.0);
  CQKWeather w = WeatherOf(1);
  EXPECT_EQ(CQKWeatherDataAdmin::GetWeatherByCityId(w), 0);
  EXPECT_EQ(w.XjKtSwGqWd, 27.0);  // its own row, loaded before the search
  EXPECT_EQ(w.CId, 1);
  EXPECT_EQ(w.GetID(), 1);
  EXPECT_EQ(w.CityName, L"广州");
}

TEST_P(CQKWeatherDataAdminTest, ACityWithoutAWeatherRowKeepsTheRecordsClimateAndGetsZero) {
  SeedPlaces();
  AddWeather(2, 2.0, 0.5, "shenzhen.epw", 31.0);
  CQKWeather w = WeatherOf(1);
  EXPECT_EQ(CQKWeatherDataAdmin::GetWeatherByCityId(w), 0);
  // The Beijing defaults name a weather file, so no neighbour is searched.
  EXPECT_EQ(w.EpwName, L"CHN_Beijing.Beijing.545110_CSWD.epw");
  EXPECT_EQ(w.XjKtSwGqWd, 33.2);
  EXPECT_EQ(w.CId, 1);
  EXPECT_EQ(w.GetID(), 0);
  EXPECT_EQ(w.CityName, L"广州");
  EXPECT_EQ(w.ProvinceName, L"广东省");
}

TEST_P(CQKWeatherDataAdminTest, ACityThatIsNowhereGetsEmptyNames) {
  CQKWeather w = WeatherOf(42);
  EXPECT_EQ(CQKWeatherDataAdmin::GetWeatherByCityId(w), 0);
  EXPECT_EQ(w.CityName, L"");
  EXPECT_EQ(w.ProvinceName, L"");
  EXPECT_EQ(w.CountryName, L"");
  EXPECT_EQ(w.XjKtSwGqWd, 33.2);
}

TEST_P(CQKWeatherDataAdminTest, LookupWithoutTheWeatherTableGivesZeroAndChangesNothing) {
  SeedPlaces();
  CQKWeather::S_Init(path, L"NoSuchTable");
  CQKWeather w = WeatherOf(1);
  EXPECT_EQ(CQKWeatherDataAdmin::GetWeatherByCityId(w), 0);
  EXPECT_EQ(w.CityName, L"北 京");
  EXPECT_EQ(w.CId, 1);
}

TEST_P(CQKWeatherDataAdminTest, SearchByPositionKeepsTheNamesOfTheAskedCity) {
  SeedPlaces();
  AddWeather(2, 2.05, 0.5, "shenzhen.epw", 31.0);
  CQKWeather w = WeatherOf(1);
  w.JD = 2.0;
  w.WD = 0.5;
  w.CityName = L"旧名";
  EXPECT_EQ(CQKWeatherDataAdmin::GetWeatherByJWD(w, 0.1), 1);
  EXPECT_EQ(w.EpwName, L"shenzhen.epw");
  EXPECT_EQ(w.XjKtSwGqWd, 31.0);
  EXPECT_EQ(w.CId, 2);  // the climate's city...
  EXPECT_EQ(w.CityName, L"广州");  // ...but the names of the city asked for
  EXPECT_EQ(w.ProvinceName, L"广东省");
  EXPECT_EQ(w.CountryName, L"中国");
}

TEST_P(CQKWeatherDataAdminTest, SearchByPositionForAnUnknownCityGivesZeroAndChangesNothing) {
  AddWeather(2, 2.0, 0.5, "shenzhen.epw", 31.0);
  CQKWeather w = WeatherOf(9);
  w.JD = 2.0;
  w.WD = 0.5;
  EXPECT_EQ(CQKWeatherDataAdmin::GetWeatherByJWD(w, 1.0), 0);
  EXPECT_EQ(w.EpwName, L"CHN_Beijing.Beijing.545110_CSWD.epw");
  EXPECT_EQ(w.CId, 9);
}

TEST_P(CQKWeatherDataAdminTest, SearchByPositionWithAnEmptySquareGivesZero) {
  SeedPlaces();
  AddWeather(2, 2.0, 0.5, "shenzhen.epw", 31.0);
  CQKWeather w = WeatherOf(1);
  w.JD = 0.0;
  w.WD = 0.0;
  EXPECT_EQ(CQKWeatherDataAdmin::GetWeatherByJWD(w, 0.1), 0);
  EXPECT_EQ(w.CId, 1);
  EXPECT_EQ(w.XjKtSwGqWd, 33.2);
}

TEST_P(CQKWeatherDataAdminTest, SearchByPositionTakesTheClimateButGivesZeroWhenTheProvinceIsMissing) {
  Seed("INSERT INTO City (PId, Name) VALUES (7, '孤城');");
  AddWeather(2, 2.0, 0.5, "other.epw", 31.0);
  CQKWeather w = WeatherOf(1);
  w.JD = 2.0;
  w.WD = 0.5;
  w.ProvinceName = L"原省";
  EXPECT_EQ(CQKWeatherDataAdmin::GetWeatherByJWD(w, 0.1), 0);
  EXPECT_EQ(w.EpwName, L"other.epw");
  EXPECT_EQ(w.CityName, L"孤城");
  // The names are not in the weather row: those of the taken climate are a fresh record's.
  EXPECT_EQ(w.ProvinceName, L"北京市");
}

TEST_P(CQKWeatherDataAdminTest, CityIdByNameFindsTheMatchingCityWhereverItIs) {
  SeedPlaces();
  CQKCity c;
  c.Name = L"长沙";
  EXPECT_EQ(CQKWeatherDataAdmin::GetCityIdByName(c), 1);
  EXPECT_EQ(c.GetID(), 3);
}

TEST_P(CQKWeatherDataAdminTest, CityIdByNameForAnUnknownNameTakesTheFirstCity) {
  SeedPlaces();
  CQKCity c;
  c.Name = L"拉萨";
  c.SetID(99);
  EXPECT_EQ(CQKWeatherDataAdmin::GetCityIdByName(c), 1);
  EXPECT_EQ(c.GetID(), 1);
}

TEST_P(CQKWeatherDataAdminTest, CityIdByNameOnAnEmptyTableSetsZero) {
  CQKCity c;
  c.Name = L"广州";
  c.SetID(99);
  EXPECT_EQ(CQKWeatherDataAdmin::GetCityIdByName(c), 1);
  EXPECT_EQ(c.GetID(), 0);
}

TEST_P(CQKWeatherDataAdminTest, CityIdByNameWithAQuoteInTheNameFailsWithoutHarm) {
  SeedPlaces();
  CQKCity c;
  c.Name = L"x' or 1=1; drop table City; --";
  c.SetID(99);
  EXPECT_EQ(CQKWeatherDataAdmin::GetCityIdByName(c), 0);
  EXPECT_EQ(c.GetID(), 99);
  EXPECT_EQ(Rows("City"), "4");
}

// ----- The place tree -----

TEST_P(CQKWeatherDataAdminTest, TheTreeHoldsEveryPlaceInIdOrderWithItsFlags) {
  SeedPlaces();
  Node* root = admin.GetCityNodes(1, false);
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(root->strName, L"*");
  EXPECT_EQ(root->nId, -1);
  EXPECT_EQ(root->nFlag, 1);
  EXPECT_EQ(root->pParent, nullptr);
  EXPECT_EQ(Children(root), L"中国,日本");
  Node* china = root->arrChild[0];
  EXPECT_EQ(china->nFlag, 1);
  EXPECT_EQ(china->nId, 1);
  EXPECT_EQ(china->pParent, root);
  EXPECT_EQ(Children(china), L"广东省,湖南省");
  Node* guangdong = china->arrChild[0];
  EXPECT_EQ(guangdong->nFlag, 0);
  EXPECT_EQ(guangdong->nId, 1);
  EXPECT_EQ(Children(guangdong), L"广州,深圳");
  Node* guangzhou = guangdong->arrChild[0];
  EXPECT_EQ(guangzhou->nFlag, 1);
  EXPECT_EQ(guangzhou->nId, 1);
  EXPECT_EQ(guangzhou->pParent, guangdong);
  EXPECT_EQ(Children(root->arrChild[1]->arrChild[0]), L"东京");
  EXPECT_TRUE(messages.empty());
}

TEST_P(CQKWeatherDataAdminTest, ProvincesAndCitiesAreGroupedUnderTheirParentsWhateverTheirRowOrder) {
  Seed("INSERT INTO Country (Name) VALUES ('中国'), ('日本');"
       "INSERT INTO Province (CId, Name) VALUES (2, '大阪府'), (1, '广东省'), (2, '东京都');"
       "INSERT INTO City (PId, Name) VALUES (3, '东京'), (2, '广州'), (1, '大阪'), (3, '八王子');");
  Node* root = admin.GetCityNodes(1, false);
  EXPECT_EQ(Children(root->arrChild[0]), L"广东省");
  EXPECT_EQ(Children(root->arrChild[1]), L"大阪府,东京都");
  EXPECT_EQ(Children(root->arrChild[1]->arrChild[1]), L"东京,八王子");
  EXPECT_TRUE(messages.empty());
}

TEST_P(CQKWeatherDataAdminTest, TheFilteredTreeListsOnlyPlacesWithAWeatherFile) {
  SeedPlaces();
  AddWeather(2, 2.0, 0.4, "shenzhen.epw", 31.0);  // 深圳 in 广东省 in 中国
  AddWeather(3, 2.0, 0.5, "", 32.0);              // 长沙: a row, but no file
  Node* root = admin.GetCityNodes(1, true);
  EXPECT_EQ(Children(root), L"中国");
  EXPECT_EQ(Children(root->arrChild[0]), L"广东省");
  EXPECT_EQ(Children(root->arrChild[0]->arrChild[0]), L"深圳");
  EXPECT_TRUE(messages.empty());
}

TEST_P(CQKWeatherDataAdminTest, TheFilteredTreeOfADatabaseWithoutWeatherFilesIsAnEmptyRoot) {
  SeedPlaces();
  Node* root = admin.GetCityNodes(1, true);
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(root->arrChild.GetSize(), 0);
}

TEST_P(CQKWeatherDataAdminTest, AnEmptyCountryTableGivesARootWithoutChildren) {
  Seed("INSERT INTO Province (CId, Name) VALUES (1, '广东省');");
  Node* root = admin.GetCityNodes(1, false);
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(root->strName, L"*");
  EXPECT_EQ(root->arrChild.GetSize(), 0);
  EXPECT_TRUE(messages.empty());  // the provinces were never read
}

TEST_P(CQKWeatherDataAdminTest, AnEmptyCityTableLeavesTheProvincesWithoutChildren) {
  Seed("INSERT INTO Country (Name) VALUES ('中国');"
       "INSERT INTO Province (CId, Name) VALUES (1, '广东省');");
  Node* root = admin.GetCityNodes(1, false);
  EXPECT_EQ(Children(root), L"中国");
  EXPECT_EQ(Children(root->arrChild[0]), L"广东省");
  EXPECT_EQ(root->arrChild[0]->arrChild[0]->arrChild.GetSize(), 0);
}

TEST_P(CQKWeatherDataAdminTest, AProvinceOfAMissingCountryIsMadeOutsideTheTreeAfterOneMessage) {
  Seed("INSERT INTO Country (Name) VALUES ('中国');"
       "INSERT INTO Province (CId, Name) VALUES (1, '广东省'), (5, '失落省'), (5, '另一省');"
       "INSERT INTO City (PId, Name) VALUES (2, '失落城');");
  Node* root = admin.GetCityNodes(1, false);
  EXPECT_EQ(Children(root), L"中国");
  EXPECT_EQ(Children(root->arrChild[0]), L"广东省");
  // One message for the two provinces of country 5, one for the city whose province is not in the
  // tree.
  ASSERT_EQ(messages.size(), 2u);
  EXPECT_EQ(messages[0].first, L"国家信息丢失？！");
  EXPECT_EQ(messages[0].second, 16u);
  EXPECT_EQ(messages[1].first, L"省份丢失？！");
  EXPECT_EQ(messages[1].second, 16u);
}

TEST_P(CQKWeatherDataAdminTest, ACityOfAMissingProvinceIsReportedOnce) {
  SeedPlaces();
  Seed("INSERT INTO City (PId, Name) VALUES (9, '孤城甲'), (9, '孤城乙');");
  Node* root = admin.GetCityNodes(1, false);
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].first, L"省份丢失？！");
  EXPECT_EQ(messages[0].second, 16u);
  EXPECT_EQ(Children(root->arrChild[0]->arrChild[0]), L"广州,深圳");
}

TEST_P(CQKWeatherDataAdminTest, WithoutTheCountryTableTheTreeIsAnEmptyRoot) {
  SeedPlaces();
  CQKCountry::S_Init(path, L"NoSuchTable");
  Node* root = admin.GetCityNodes(1, false);
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(root->arrChild.GetSize(), 0);
}

TEST_P(CQKWeatherDataAdminTest, WithoutTheCityTableTheTreeStopsAtTheProvinces) {
  SeedPlaces();
  CQKCity::S_Init(path, L"NoSuchTable");
  Node* root = admin.GetCityNodes(1, false);
  EXPECT_EQ(Children(root->arrChild[0]), L"广东省,湖南省");
  EXPECT_EQ(root->arrChild[0]->arrChild[0]->arrChild.GetSize(), 0);
}

TEST_P(CQKWeatherDataAdminTest, GetCityNodesWithoutRefreshReturnsTheSameTree) {
  SeedPlaces();
  Node* first = admin.GetCityNodes(0, false);
  Seed("INSERT INTO Country (Name) VALUES ('法国');");
  Node* second = admin.GetCityNodes(0, true);  // the filter is ignored: the tree exists
  EXPECT_EQ(first, second);
  EXPECT_EQ(Children(second), L"中国,日本");
}

TEST_P(CQKWeatherDataAdminTest, GetCityNodesWithRefreshRebuildsTheTree) {
  SeedPlaces();
  admin.GetCityNodes(0, false);
  Seed("INSERT INTO Country (Name) VALUES ('法国');");
  Node* rebuilt = admin.GetCityNodes(1, false);
  EXPECT_EQ(Children(rebuilt), L"中国,日本,法国");
}

TEST_P(CQKWeatherDataAdminTest, ACopyHasItsOwnNodes) {
  SeedPlaces();
  admin.GetCityNodes(1, false);
  CQKWeatherDataAdmin copy(admin);
  admin.GetCityNodes(1, true);  // the source's tree is released and rebuilt
  Node* root = copy.GetCityNodes(0, false);
  EXPECT_EQ(Children(root), L"中国,日本");
  EXPECT_EQ(Children(root->arrChild[0]->arrChild[0]), L"广州,深圳");
  EXPECT_EQ(root->arrChild[0]->arrChild[0]->pParent, root->arrChild[0]);
}

TEST_P(CQKWeatherDataAdminTest, FindNodesByNameOrById) {
  SeedPlaces();
  admin.GetCityNodes(1, false);
  CQKCountry china = CountryRef(L"中国", 0);
  CQKCountry japanById = CountryRef(L"", 2);
  CQKProvince hunan = ProvinceRef(L"湖南省", 0);
  CQKCity changsha = CityRef(L"", 3);
  ASSERT_NE(admin.FindCountryNode(china), nullptr);
  EXPECT_EQ(admin.FindCountryNode(china)->nId, 1);
  EXPECT_EQ(admin.FindCountryNode(japanById)->strName, L"日本");
  EXPECT_EQ(admin.FindProvinceNode(china, hunan)->nId, 2);
  Node* city = admin.FindCityNode(china, hunan, changsha);
  ASSERT_NE(city, nullptr);
  EXPECT_EQ(city->strName, L"长沙");
}

TEST_P(CQKWeatherDataAdminTest, AStaleIdWithAKnownNameStillFindsTheNode) {
  SeedPlaces();
  admin.GetCityNodes(1, false);
  CQKCountry japan = CountryRef(L"日本", 77);
  EXPECT_EQ(admin.FindCountryNode(japan)->nId, 2);
}

TEST_P(CQKWeatherDataAdminTest, TheFirstMatchInChildOrderWins) {
  SeedPlaces();
  admin.GetCityNodes(1, false);
  CQKCountry ambiguous = CountryRef(L"日本", 1);  // the name is 日本's, the id 中国's, which comes first
  EXPECT_EQ(admin.FindCountryNode(ambiguous)->strName, L"中国");
}

TEST_P(CQKWeatherDataAdminTest, NamesMatchExactlyIncludingCase) {
  Seed("INSERT INTO Country (Name) VALUES ('France');");
  admin.GetCityNodes(1, false);
  CQKCountry lower = CountryRef(L"france", 9);
  EXPECT_EQ(admin.FindCountryNode(lower), nullptr);
}

TEST_P(CQKWeatherDataAdminTest, FindingWithoutATreeGivesNull) {
  CQKCountry china = CountryRef(L"中国", 1);
  CQKProvince guangdong = ProvinceRef(L"广东省", 1);
  CQKCity guangzhou = CityRef(L"广州", 1);
  EXPECT_EQ(admin.FindCountryNode(china), nullptr);
  EXPECT_EQ(admin.FindProvinceNode(china, guangdong), nullptr);
  EXPECT_EQ(admin.FindCityNode(china, guangdong, guangzhou), nullptr);
}

TEST_P(CQKWeatherDataAdminTest, AProvinceUnderAnUnknownCountryIsNotFound) {
  SeedPlaces();
  admin.GetCityNodes(1, false);
  CQKCountry nowhere = CountryRef(L"法国", 9);
  CQKProvince guangdong = ProvinceRef(L"广东省", 1);
  EXPECT_EQ(admin.FindProvinceNode(nowhere, guangdong), nullptr);
}

// ----- Deletions -----

TEST_P(CQKWeatherDataAdminTest, DeleteWeatherOfCityDeletesTheCityRowAndKeepsItsWeather) {
  SeedPlaces();
  AddWeather(2, 2.0, 0.4, "shenzhen.epw", 31.0);
  CQKCity shenzhen = CityRef(L"深圳", 2);
  EXPECT_EQ(admin.DeleteWeatherofCity(shenzhen), 1);
  EXPECT_EQ(Query("select group_concat(Name) from City"), "广州,长沙,东京");
  EXPECT_EQ(Rows("Weather"), "1");
  EXPECT_TRUE(messages.empty());
}

TEST_P(CQKWeatherDataAdminTest, DeleteWeatherOfCityFailureShowsTheTableWithTheErrorIcon) {
  CQKCity::S_Init(path, L"NoCity");
  CQKCity c = CityRef(L"广州", 1);
  EXPECT_EQ(admin.DeleteWeatherofCity(c), 0);
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].first, L"删除表 \"NoCity\" 时出错!");
  EXPECT_EQ(messages[0].second, 16u);
}

TEST_P(CQKWeatherDataAdminTest, DeleteWeatherByCityIdDeletesTheWeatherRowsThenTheCity) {
  SeedPlaces();
  AddWeather(2, 2.0, 0.4, "a.epw", 31.0);
  AddWeather(2, 2.0, 0.4, "b.epw", 31.0);
  AddWeather(3, 2.0, 0.5, "c.epw", 32.0);
  CString error = L"untouched";
  EXPECT_EQ(admin.DeleteWeatherByCityID(2, error), 1);
  EXPECT_EQ(error, L"untouched");
  EXPECT_EQ(Query("select group_concat(CId) from Weather"), "3");
  EXPECT_EQ(Query("select group_concat(Name) from City"), "广州,长沙,东京");
  EXPECT_TRUE(messages.empty());
}

TEST_P(CQKWeatherDataAdminTest, DeleteWeatherByCityIdWithoutAWeatherRowStillDeletesTheCity) {
  SeedPlaces();
  CString error;
  EXPECT_EQ(admin.DeleteWeatherByCityID(4, error), 1);
  EXPECT_EQ(Query("select group_concat(Name) from City"), "广州,深圳,长沙");
}

TEST_P(CQKWeatherDataAdminTest, DeleteWeatherByCityIdNamesTheWeatherTableWhenItFails) {
  SeedPlaces();
  CQKWeather::S_Init(path, L"NoWeather");
  CString error;
  EXPECT_EQ(admin.DeleteWeatherByCityID(2, error), 0);
  EXPECT_EQ(error, L"删除表 \"NoWeather\" 时出错!");
  EXPECT_EQ(Rows("City"), "4");  // the city is not reached
  EXPECT_TRUE(messages.empty());
}

TEST_P(CQKWeatherDataAdminTest, DeleteWeatherByCityIdNamesTheCityTableWhenItFails) {
  SeedPlaces();
  AddWeather(2, 2.0, 0.4, "a.epw", 31.0);
  CQKCity::S_Init(path, L"NoCity");
  CString error;
  EXPECT_EQ(admin.DeleteWeatherByCityID(2, error), 0);
  EXPECT_EQ(error, L"删除表 \"NoCity\" 时出错!");
  EXPECT_EQ(Rows("Weather"), "0");  // the first statement stands: the weather rows are gone
  EXPECT_EQ(Rows("City"), "4");
  EXPECT_TRUE(messages.empty());
}

TEST_P(CQKWeatherDataAdminTest, DeleteWeatherOfProvinceDeletesItsCitiesInTheTreeAndItsRow) {
  SeedPlaces();
  AddWeather(1, 2.0, 0.4, "a.epw", 31.0);
  admin.GetCityNodes(1, false);
  CQKCountry china = CountryRef(L"中国", 1);
  CQKProvince guangdong = ProvinceRef(L"广东省", 1);
  EXPECT_EQ(admin.DeleteWeatherOfProvince(china, guangdong), 1);
  EXPECT_EQ(Query("select group_concat(Name) from Province"), "湖南省,东京都");
  EXPECT_EQ(Query("select group_concat(Name) from City"), "长沙,东京");
  EXPECT_EQ(Rows("Weather"), "1");
  // The tree is the host's to rebuild.
  EXPECT_EQ(Children(admin.GetCityNodes(0, false)->arrChild[0]), L"广东省,湖南省");
}

TEST_P(CQKWeatherDataAdminTest, DeleteWeatherOfProvinceWithoutATreeDeletesOnlyTheProvince) {
  SeedPlaces();
  CQKCountry china = CountryRef(L"中国", 1);
  CQKProvince guangdong = ProvinceRef(L"广东省", 1);
  EXPECT_EQ(admin.DeleteWeatherOfProvince(china, guangdong), 1);
  EXPECT_EQ(Query("select group_concat(Name) from Province"), "湖南省,东京都");
  EXPECT_EQ(Rows("City"), "4");
}

TEST_P(CQKWeatherDataAdminTest, DeleteWeatherOfProvinceFailureShowsTheTableWithoutAnIcon) {
  SeedPlaces();
  CQKProvince::S_Init(path, L"NoProvince");
  CQKCountry china = CountryRef(L"中国", 1);
  CQKProvince p = ProvinceRef(L"广东省", 1);
  EXPECT_EQ(admin.DeleteWeatherOfProvince(china, p), 0);
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].first, L"删除表 \"NoProvince\" 时出错!");
  EXPECT_EQ(messages[0].second, 0u);
}

TEST_P(CQKWeatherDataAdminTest, DeleteCountryDeletesOnlyTheCountryRow) {
  SeedPlaces();
  CQKCountry japan = CountryRef(L"日本", 2);
  EXPECT_EQ(admin.DeleteCountry(japan), 1);
  EXPECT_EQ(Query("select group_concat(Name) from Country"), "中国");
  EXPECT_EQ(Rows("Province"), "3");
  EXPECT_EQ(Rows("City"), "4");
}

TEST_P(CQKWeatherDataAdminTest, DeleteCountryFailureShowsTheTableWithTheErrorIcon) {
  CQKCountry::S_Init(path, L"NoCountry");
  CQKCountry c = CountryRef(L"中国", 1);
  EXPECT_EQ(admin.DeleteCountry(c), 0);
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].first, L"删除表 \"NoCountry\" 时出错!");
  EXPECT_EQ(messages[0].second, 16u);
}

TEST_P(CQKWeatherDataAdminTest, DeletionsOnAReadOnlyDatabaseFailAndKeepEveryRow) {
  const CString readOnly = CreateReadOnlyDatabase(
      dir, "readonly.db",
      "CREATE TABLE Country (ID INTEGER PRIMARY KEY AUTOINCREMENT, Name TEXT);"
      "CREATE TABLE City (ID INTEGER PRIMARY KEY AUTOINCREMENT, PId INTEGER, Name TEXT);"
      "CREATE TABLE Weather (ID INTEGER PRIMARY KEY AUTOINCREMENT, CId INTEGER);"
      "INSERT INTO Country (Name) VALUES ('中国'); INSERT INTO City (PId, Name) VALUES (1, '广州');"
      "INSERT INTO Weather (CId) VALUES (1);");
  const int result = RunUnprivileged([&] {
    ForgetClassTable<CQKCountry>();
    ForgetClassTable<CQKCity>();
    ForgetClassTable<CQKWeather>();
    CQKCountry::S_Init(readOnly, L"Country");
    CQKCity::S_Init(readOnly, L"City");
    CQKWeather::S_Init(readOnly, L"Weather");
    CQKWeatherDataAdmin ro;
    CQKCountry china = CountryRef(L"中国", 1);
    CQKCity guangzhou = CityRef(L"广州", 1);
    CString error;
    if (ro.DeleteCountry(china) != 0) return 11;
    if (ro.DeleteWeatherofCity(guangzhou) != 0) return 12;
    if (ro.DeleteWeatherByCityID(1, error) != 0) return 13;
    if (error != L"删除表 \"Weather\" 时出错!") return 14;
    return 0;
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(QueryOne(readOnly, "select count(*) from Country"), "1");
  EXPECT_EQ(QueryOne(readOnly, "select count(*) from City"), "1");
  EXPECT_EQ(QueryOne(readOnly, "select count(*) from Weather"), "1");
}

TEST(CQKWeatherDataAdmin, FolderNamesAreTheHostsToSetAndRead) {
  CQKWeatherDataAdmin::s_m_sEpwDir = L"/data/epw/";
  CQKWeatherDataAdmin::s_m_sReprotDir = L"/data/报告/";
  EXPECT_EQ(CQKWeatherDataAdmin::s_m_sEpwDir, L"/data/epw/");
  EXPECT_EQ(CQKWeatherDataAdmin::s_m_sReprotDir, L"/data/报告/");
  CQKWeatherDataAdmin::s_m_sEpwDir = L"";
  CQKWeatherDataAdmin::s_m_sReprotDir = L"";
}

QK_ON_BOTH_BACKENDS(CQKWeatherDataAdminTest);
