// The PostgreSQL backend: the library's records, lookups, trees and deletions on a server, through
// the same interface and query texts as on SQLite.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>

#include "GeographyFixture.h"
#include "PgTestServer.h"
#include "rooms/CQKRULoadParam.h"
#include "rooms/CQKRoomUseDataAdmin.h"
#include "tablekit/CADODatabase.h"
#include "tablekit/CADORecordset.h"
#include "weather/CQKWeatherDataAdmin.h"

using namespace QKLoad;

namespace {

class PgBackendTest : public ::testing::Test {
 protected:
  void SetUp() override {
    QK_REQUIRE_PG(server);
    CQKCountry::S_Init(server.Uri(), L"Country");
    CQKProvince::S_Init(server.Uri(), L"Province");
    CQKCity::S_Init(server.Uri(), L"City");
    CQKWeather::S_Init(server.Uri(), L"Weather");
    CQKRoomType::S_Init(server.Uri(), L"RoomType");
    CQKRoomUse::S_Init(server.Uri(), L"RoomUse");
    CQKRULoadParam::S_Init(server.Uri(), L"RULoadParam");
  }
  void TearDown() override {
    ForgetClassTable<CQKCountry>();
    ForgetClassTable<CQKProvince>();
    ForgetClassTable<CQKCity>();
    ForgetClassTable<CQKWeather>();
    ForgetClassTable<CQKRoomType>();
    ForgetClassTable<CQKRoomUse>();
    ForgetClassTable<CQKRULoadParam>();
  }
  // 中国 > 广东省 > 广州 (1), 深圳 (2); 湖南省 > 长沙 (3).
  void SeedPlaces() {
    server.Run("INSERT INTO Country (Name) VALUES ('中国');"
               "INSERT INTO Province (CId, Name) VALUES (1, '广东省'), (1, '湖南省');"
               "INSERT INTO City (PId, Name) VALUES (1, '广州'), (1, '深圳'), (2, '长沙');");
  }

  PgTestDatabase server;
};

// The URI with its user part taken out.
CString WithoutUser(const CString& uri) {
  std::string text = uri.ToUtf8();
  const std::size_t start = text.find("://") + 3;
  const std::size_t at = text.find('@', start);
  if (at != std::string::npos) text.erase(start, at + 1 - start);
  return CString::FromUtf8(text);
}

}  // namespace

TEST_F(PgBackendTest, AUriOpensTheServer) {
  CADODatabase db;
  ASSERT_TRUE(db.OpenAccess(server.Uri(), L"", L"")) << db.GetLastError().ToUtf8();
  EXPECT_EQ(db.GetCurrentConnectType(), CADODatabase::connectTypePostgreSQL);
}

TEST_F(PgBackendTest, TheUserGivenFillsInWhatTheUriLeavesOut) {
  const std::string uri = server.Uri().ToUtf8();
  const std::size_t start = uri.find("://") + 3;
  const std::size_t at = uri.find('@', start);
  if (at == std::string::npos) GTEST_SKIP() << "the server URI names no user";
  const std::string user = uri.substr(start, uri.find_first_of(":@", start) - start);
  CADODatabase db;
  EXPECT_TRUE(db.OpenAccess(WithoutUser(server.Uri()), CString::FromUtf8(user), L"")) << db.GetLastError().ToUtf8();
  CADODatabase stranger;
  EXPECT_FALSE(stranger.OpenAccess(WithoutUser(server.Uri()), L"qk_no_such_role", L""));
  EXPECT_NE(stranger.GetLastError(), L"");
}

TEST_F(PgBackendTest, AServerThatDoesNotAnswerIsAFailedOpen) {
  CADODatabase db;
  EXPECT_FALSE(db.OpenAccess(L"postgresql://127.0.0.1:1/none?connect_timeout=2", L"", L""));
  EXPECT_FALSE(db.IsOpen());
  EXPECT_NE(db.GetLastError(), L"");
}

TEST_F(PgBackendTest, NamesCompareIgnoringCaseAsInAccess) {
  CQKCountry added;
  added.Name = L"France";
  ASSERT_EQ(added.AddIfNotExist(nullptr, 0), DBS_ADDED);
  EXPECT_EQ(added.GetID(), 1);
  CQKCountry found;
  found.Name = L"FRANCE";
  EXPECT_EQ(found.IsExist(nullptr), DBS_EXIST);
  EXPECT_EQ(found.Name, L"France");
  EXPECT_EQ(found.GetID(), 1);
}

TEST_F(PgBackendTest, AddIfNotExistOfAStoredCityFindsItAndAddsNothing) {
  SeedPlaces();
  CQKCity city;
  city.PId = 1;
  city.Name = L"深圳";
  EXPECT_EQ(city.AddIfNotExist(nullptr, 1), DBS_EXIST);
  EXPECT_EQ(city.GetID(), 2);
  EXPECT_EQ(server.QueryOne("select count(*) from City"), "3");
}

TEST_F(PgBackendTest, UpdateIfNoOtherRenamesInPlace) {
  SeedPlaces();
  CQKCity city;
  city.PId = 1;
  city.Name = L"佛山";
  city.SetID(2);
  EXPECT_EQ(city.UpdateIfNoOther(nullptr, 0), DBS_UPDATED);
  EXPECT_EQ(server.QueryOne("select Name from City where ID=2"), "佛山");
}

TEST_F(PgBackendTest, ANameWithASingleQuoteIsOnlyAName) {
  CQKCountry c;
  c.Name = L"Côte d'Ivoire";
  EXPECT_EQ(c.AddIfNotExist(nullptr, 0), DBS_ADDED);
  EXPECT_EQ(server.QueryOne("select Name from Country"), "Côte d'Ivoire");
}

TEST_F(PgBackendTest, ASecondStatementIsNeverRun) {
  SeedPlaces();
  CADODatabase db;
  ASSERT_TRUE(db.OpenAccess(server.Uri(), L"", L""));
  EXPECT_FALSE(db.Execute(L"delete from Country; drop table City"));
  EXPECT_EQ(server.QueryOne("select count(*) from City"), "3");
  EXPECT_EQ(server.QueryOne("select count(*) from Country"), "1");
}

TEST_F(PgBackendTest, SelectTopBecomesALimit) {
  SeedPlaces();
  CADODatabase db;
  ASSERT_TRUE(db.OpenAccess(server.Uri(), L"", L""));
  CADORecordset rs(&db);
  ASSERT_TRUE(rs.Open(L"select top 2 * from [City] order by ID"));
  EXPECT_EQ(rs.GetRecordCount(), 2u);
}

TEST_F(PgBackendTest, ColumnsAreFoundWhateverCaseTheServerReports) {
  SeedPlaces();
  CADODatabase db;
  ASSERT_TRUE(db.OpenAccess(server.Uri(), L"", L""));
  CADORecordset rs(&db);
  ASSERT_TRUE(rs.Open(L"select * from City where Name=\"长沙\""));
  long pId = 0;
  EXPECT_TRUE(rs.GetFieldValue(L"PId", pId));
  EXPECT_EQ(pId, 2);
}

TEST_F(PgBackendTest, AFullClimateRoundTripsInTheTablesUnits) {
  CQKWeather out;
  out.CId = 3;
  out.DjKtSwXdSd = 0.68;
  out.XjDqy = 100450.0;
  out.EpwName = L"CHN_Hunan.Changsha.576870_CSWD.epw";
  out.WinWindDef = L"NNE";
  ASSERT_EQ(out.AddIfNotExist(nullptr, 0), DBS_ADDED);
  EXPECT_EQ(server.QueryOne("select DjKtSwXdSd from Weather"), "68.0");
  EXPECT_EQ(server.QueryOne("select XjDqy from Weather"), "1004.5");
  CQKWeather in;
  ASSERT_TRUE(in.ReadData(out.GetID(), nullptr));
  EXPECT_NEAR(in.DjKtSwXdSd, 0.68, 1e-15);
  EXPECT_EQ(in.XjDqy, 100450.0);
  EXPECT_EQ(in.EpwName, out.EpwName);
  EXPECT_EQ(in.WinWindDef, L"NNE");
  EXPECT_EQ(in.JD, out.JD);
}

TEST_F(PgBackendTest, ACityWithoutAWeatherFileBorrowsTheNearerNeighbour) {
  SeedPlaces();
  server.Run("INSERT INTO Weather (CId, JD, WD, EpwName, XjKtSwGqWd) VALUES"
             " (1, 2.0, 0.4, NULL, 0), (2, 2.3, 0.4, 'far.epw', 31), (3, 2.0, 0.5, 'near.epw', 32);");
  CQKWeather w;
  w.CId = 1;
  EXPECT_EQ(CQKWeatherDataAdmin::GetWeatherByCityId(w), 1);
  EXPECT_EQ(w.EpwName, L"near.epw");
  EXPECT_EQ(w.CId, 3);
  EXPECT_EQ(w.CityName, L"长沙");
  EXPECT_EQ(w.ProvinceName, L"湖南省");
}

TEST_F(PgBackendTest, CityIdByNameSortsTheMatchingCityFirst) {
  SeedPlaces();
  CQKCity c;
  c.Name = L"长沙";
  EXPECT_EQ(CQKWeatherDataAdmin::GetCityIdByName(c), 1);
  EXPECT_EQ(c.GetID(), 3);
}

TEST_F(PgBackendTest, TheFilteredPlaceTreeListsOnlyPlacesWithWeather) {
  SeedPlaces();
  server.Run("INSERT INTO Weather (CId, EpwName) VALUES (2, 'shenzhen.epw');");
  CQKWeatherDataAdmin admin;
  CQKWeatherDataAdmin::tagCityNode* root = admin.GetCityNodes(1, true);
  ASSERT_EQ(root->arrChild.GetSize(), 1);
  ASSERT_EQ(root->arrChild[0]->arrChild.GetSize(), 1);
  EXPECT_EQ(root->arrChild[0]->arrChild[0]->strName, L"广东省");
  ASSERT_EQ(root->arrChild[0]->arrChild[0]->arrChild.GetSize(), 1);
  EXPECT_EQ(root->arrChild[0]->arrChild[0]->arrChild[0]->strName, L"深圳");
}

TEST_F(PgBackendTest, DeletingARoomTypeCascadesThroughItsUses) {
  server.Run("INSERT INTO RoomType (Name) VALUES ('办公建筑'), ('医院');"
             "INSERT INTO RoomUse (RTId, Name) VALUES (1, '普通办公室'), (2, '病房'), (1, '会议室');"
             "INSERT INTO RULoadParam (RUId) VALUES (1), (2), (3);");
  CQKRoomUseDataAdmin admin;
  admin.GetRoomUseNodes(1);
  CQKRoomType office;
  office.Name = L"办公建筑";
  office.SetID(1);
  EXPECT_EQ(admin.DeleteRoomType(office), 1);
  EXPECT_EQ(server.QueryOne("select string_agg(Name::text, ',') from RoomUse"), "病房");
  EXPECT_EQ(server.QueryOne("select string_agg(ID::text, ',') from RULoadParam"), "2");
}

TEST_F(PgBackendTest, LoadParametersAreStoredInPercentAndUpdatedInPlace) {
  CQKRULoadParam p;
  p.RUId = 7;
  p.DongJiSNSJXDSD = 0.45;
  p.LaoDongQD = L"中等劳动";
  EXPECT_EQ(p.AddOrUpdate(nullptr), 0);
  EXPECT_EQ(server.QueryOne("select DongJiSNSJXDSD from RULoadParam"), "45.0");
  EXPECT_EQ(server.QueryOne("select LaoDongQD from RULoadParam"), "3");
  p.XinFengL = 30.0;
  EXPECT_EQ(p.AddOrUpdate(nullptr), 2);
  EXPECT_EQ(server.QueryOne("select count(*) || ':' || max(XinFengL) from RULoadParam"), "1:30");
}

TEST_F(PgBackendTest, ConcurrentProcessesLoseNoRow) {
  // Each process opens its own connection and adds, then renames, its own cities of one province.
  constexpr int kProcesses = 4;
  constexpr int kRows = 50;
  const CString uri = server.Uri();
  std::vector<pid_t> children;
  for (int p = 0; p < kProcesses; ++p) {
    const pid_t pid = fork();
    ASSERT_GE(pid, 0);
    if (pid == 0) {
      // A connection the parent opened is not the child's to use, nor to close (closing would end
      // the parent's session on the shared socket): the child makes its own, and keeps the parent's
      // where a leak check at the child's exit still finds it.
      static CADODatabase* volatile parentsConnection;
      parentsConnection = CQKCity::m_pADODatabase;
      CQKCity::m_pADODatabase = nullptr;
      CQKCity::S_Init(uri, L"City");
      int failures = 0;
      for (int i = 0; i < kRows; ++i) {
        CQKCity city;
        city.PId = 1;
        city.Name.Format(L"城%d_%d", p, i);
        if (city.AddIfNotExist(nullptr, 0) != DBS_ADDED) ++failures;
        city.Name.Format(L"市%d_%d", p, i);
        if (city.UpdateIfNoOther(nullptr, 0) != DBS_UPDATED) ++failures;
      }
      _exit(failures == 0 ? 0 : 1);
    }
    children.push_back(pid);
  }
  for (pid_t pid : children) {
    int status = 0;
    waitpid(pid, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  }
  EXPECT_EQ(server.QueryOne("select count(*) from City"), std::to_string(kProcesses * kRows));
  EXPECT_EQ(server.QueryOne("select count(*) from City where Name like '市%'"), std::to_string(kProcesses * kRows));
  EXPECT_EQ(server.QueryOne("select count(distinct Name) from City"), std::to_string(kProcesses * kRows));
}
