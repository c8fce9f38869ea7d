// qkdb init, run as a user runs it, then the built reference database read through the library.

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <memory>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "DataCsv.h"
#include "GeographyFixture.h"
#include "QkdbRun.h"
#include "TestDatabase.h"
#include "construction/CQKTimbering.h"
#include "construction/CQKTimberingType.h"
#include "envelope/CQKBSCategory.h"
#include "envelope/CQKBSCode.h"
#include "envelope/CQKBSDataAdmin.h"
#include "envelope/CQKBSType.h"
#include "envelope/CQKBoundingStructure.h"
#include "geography/CQKCity.h"
#include "tablekit/CADODatabase.h"
#include "weather/CQKWeather.h"
#include "weather/CQKWeatherDataAdmin.h"

namespace fs = std::filesystem;

namespace {

int RunQkdb(const std::string& args) {
  const std::string command = std::string(QKDB_PATH) + " " + args + " >/dev/null 2>&1";
  const int status = std::system(command.c_str());
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// The data rows of a shipped CSV file.
long DataRows(const std::string& file) { return static_cast<long>(DataCsv(file).Size()); }

std::string Text(const CString& s) { return s.ToUtf8(); }

// The children of a tree node, for range loops.
template <class Node>
std::vector<Node*> Children(const Node* node) {
  std::vector<Node*> children;
  for (int i = 0; i < node->arrChild.GetSize(); ++i) children.push_back(node->arrChild[i]);
  return children;
}

// One database built by `qkdb init` for the whole suite; every record class bound to it.
class QkdbInitTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    s_dir = std::make_unique<TempDir>();
    s_path = (s_dir->path() / "reference.db").string();
    s_status = RunQkdb("init --db " + s_path);
  }
  static void TearDownTestSuite() { s_dir.reset(); }

  void SetUp() override {
    ASSERT_EQ(s_status, 0);
    const CString path = CString::FromUtf8(s_path);
    CQKCountry::S_Init(path, L"Country");
    CQKProvince::S_Init(path, L"Province");
    CQKCity::S_Init(path, L"City");
    CQKWeather::S_Init(path, L"Weather");
    CQKTimberingType::S_Init(path, L"TimberingType");
    CQKTimbering::S_Init(path, L"Timbering");
    CQKBSCategory::S_Init(path, L"BSCategory");
    CQKBSType::S_Init(path, L"BSType");
    CQKBSCode::S_Init(path, L"BSCode");
    CQKBoundingStructure::S_Init(path, L"BoundingStructure");
  }
  void TearDown() override {
    ForgetClassTable<CQKCountry>();
    ForgetClassTable<CQKProvince>();
    ForgetClassTable<CQKCity>();
    ForgetClassTable<CQKWeather>();
    ForgetClassTable<CQKTimberingType>();
    ForgetClassTable<CQKTimbering>();
    ForgetClassTable<CQKBSCategory>();
    ForgetClassTable<CQKBSType>();
    ForgetClassTable<CQKBSCode>();
    ForgetClassTable<CQKBoundingStructure>();
  }

  static std::string Query(const std::string& sql) { return QueryOne(CString::FromUtf8(s_path), sql); }

  // The climate GetWeatherByCityId gives for the city of that name.
  static CQKWeather ClimateOf(const wchar_t* name, int* result = nullptr) {
    CQKCity city;
    city.Name = name;
    EXPECT_EQ(CQKWeatherDataAdmin::GetCityIdByName(city), 1);
    EXPECT_EQ(city.Name, CString(name));
    CQKWeather weather;
    weather.CId = city.GetID();
    const int r = CQKWeatherDataAdmin::GetWeatherByCityId(weather);
    if (result) *result = r;
    return weather;
  }

  static std::unique_ptr<TempDir> s_dir;
  static std::string s_path;
  static int s_status;
};

std::unique_ptr<TempDir> QkdbInitTest::s_dir;
std::string QkdbInitTest::s_path;
int QkdbInitTest::s_status = -1;

TEST_F(QkdbInitTest, EveryTableHoldsTheRowsOfItsData) {
  EXPECT_EQ(Query("SELECT COUNT(*) FROM Country"), "1");
  EXPECT_EQ(Query("SELECT Name FROM Country"), "中国");
  EXPECT_EQ(Query("SELECT COUNT(*) FROM Province"), std::to_string(DataRows("cn_provinces.csv")));
  // One weather row per station, and a city for each: the cities of the list, plus one for every
  // further station of a city that has several.
  EXPECT_EQ(Query("SELECT COUNT(*) FROM Weather"), std::to_string(DataRows("cn_outdoor_design_gb50736.csv")));
  EXPECT_EQ(Query("SELECT COUNT(*) FROM City"), std::to_string(DataRows("cn_outdoor_design_gb50736.csv")));
  EXPECT_EQ(Query("SELECT COUNT(DISTINCT CId) FROM Weather"), Query("SELECT COUNT(*) FROM City"));
  // Every material of the three material files but the rows decided "left out" (the six loose fills
  // of the GB 50176-93 table, which give no specific heat).
  EXPECT_EQ(Query("SELECT COUNT(*) FROM Timbering"),
            std::to_string(DataRows("materials_ashrae_hof_2005.csv") + DataRows("materials_cn_gb50176_93_era.csv") - 6 +
                           DataRows("materials_09j908_3_gudaostudio.csv")));
  // The 15 handbook constructions and the 754 atlas walls.
  EXPECT_EQ(Query("SELECT COUNT(*) FROM BSCode"), std::to_string(15 + DataRows("constructions_09j908_3_gudaostudio.csv")));
  EXPECT_EQ(Query("SELECT COUNT(*) FROM BoundingStructure"), Query("SELECT COUNT(*) FROM BSCode"));
  EXPECT_EQ(Query("SELECT COUNT(*) FROM RULoadParam"),
            std::to_string(DataRows("room_types_gb55015.csv") + DataRows("room_uses_jgjt449_2018.csv")));
  EXPECT_EQ(Query("PRAGMA integrity_check"), "ok");
}

TEST_F(QkdbInitTest, BeijingCarriesTheStandardsValues) {
  int result = -1;
  CQKWeather beijing = ClimateOf(L"北京", &result);
  EXPECT_EQ(result, 0);  // its own row, with its own weather file
  EXPECT_EQ(Text(beijing.CityName), "北京");
  EXPECT_EQ(Text(beijing.ProvinceName), "北京");
  EXPECT_EQ(Text(beijing.CountryName), "中国");
  EXPECT_DOUBLE_EQ(beijing.DjCnSwGqWd, -7.6);
  EXPECT_DOUBLE_EQ(beijing.XjKtSwGqWd, 33.5);
  EXPECT_DOUBLE_EQ(beijing.XjKtSwSqWd, 26.4);
  EXPECT_NEAR(beijing.DjDqy, 102170.0, 1e-6);  // Pa in memory
  EXPECT_NEAR(beijing.DjKtSwXdSd, 0.44, 1e-12);
  // 39°48' N, 116°28' E.
  EXPECT_NEAR(beijing.WD, (39.0 + 48.0 / 60.0) * M_PI / 180.0, 1e-6);
  EXPECT_NEAR(beijing.JD, (116.0 + 28.0 / 60.0) * M_PI / 180.0, 1e-6);
  EXPECT_EQ(Text(beijing.EpwName), "CHN_Beijing.Beijing.545110_CSWD.epw");
  EXPECT_DOUBLE_EQ(beijing.TimeZone, 8.0);
  // The table keeps the exchange's units: hPa and percent.
  const std::string row = " FROM Weather WHERE CId = (SELECT ID FROM City WHERE Name = '北京')";
  EXPECT_EQ(Query("SELECT DjDqy" + row), "1021.7");
  EXPECT_EQ(Query("SELECT DjKtSwXdSd" + row), "44.0");
  EXPECT_EQ(Query("SELECT SumWindDef || ' ' || WinWindDef || ' ' || Xjzdfx || ' ' || Djzdfx" + row), "SW N 225.0 0.0");
}

TEST_F(QkdbInitTest, TheSummerDailyRangeFollowsFromTheTwoSummerTemperatures) {
  // Beijing: (33.5 - 29.6) / 0.52 = 7.5 K.
  CQKWeather beijing = ClimateOf(L"北京");
  EXPECT_NEAR(beijing.XjJsRJC, (33.5 - 29.6) / 0.52, 0.05);
}

TEST_F(QkdbInitTest, WhatTheDataDoesNotGiveIsNull) {
  EXPECT_EQ(Query("SELECT COUNT(*) FROM Weather WHERE ZlYPjXdSd IS NOT NULL OR DBMNPJWD IS NOT NULL "
                  "OR DistrictCode IS NOT NULL OR SumMonth IS NOT NULL"),
            "0");
  // The standard has no wet-bulb record for 罗甸.
  EXPECT_EQ(Query("SELECT XjKtSwSqWd IS NULL FROM Weather WHERE CId = (SELECT ID FROM City WHERE Name = '黔南州')"), "1");
  // GB 55015 gives the residential building no set-points and no fresh air per person.
  EXPECT_EQ(Query("SELECT XinFengL IS NULL AND DongJiSNSJWD IS NULL AND XiaJiSNSJWD IS NULL FROM RULoadParam "
                  "WHERE RUId = (SELECT ID FROM RoomUse WHERE Name = '居住建筑')"),
            "1");
}

TEST_F(QkdbInitTest, DoubtfulValuesAreLeftOut) {
  auto of = [&](const char* city, const char* column) {
    return Query(std::string("SELECT ") + column + " IS NULL FROM Weather WHERE CId = (SELECT ID FROM City WHERE Name = '" +
                 city + "')");
  };
  EXPECT_EQ(of("山南地区", "Elevation"), "1");  // 错那: 9280 m
  EXPECT_EQ(of("山南地区", "DjCnSwGqWd"), "0");
  EXPECT_EQ(of("安庆", "DjKtSwGqWd"), "1");      // +2.9 °C, warmer than its heating temperature
  EXPECT_EQ(of("安庆", "DjCnSwGqWd"), "0");
  EXPECT_EQ(of("红河州", "DjDqy"), "1");          // 蒙自: summer pressure above winter
  EXPECT_EQ(of("红河州", "XjDqy"), "1");
}

TEST_F(QkdbInitTest, PositionsASecondSourceDecidesAreKeptOrCorrected) {
  auto degrees = [&](const char* city, const char* column) {
    return Query(std::string("SELECT round(") + column + " * 180 / pi(), 4) FROM Weather WHERE CId = (SELECT ID FROM City "
                 "WHERE Name = '" + city + "')");
  };
  // The EPW list disagrees, the ISD station list agrees with the standard: kept as printed.
  EXPECT_EQ(degrees("锦州", "WD"), "41.1333");
  EXPECT_EQ(degrees("白山", "WD"), "41.8");     // 临江
  EXPECT_EQ(degrees("南京", "WD"), "32.0");     // the SWERA file of the same station agrees
  // One degree lost in the transcription, the minutes kept: 钟祥 30°10' → 31°10', 枣阳 30°09' → 32°09'.
  EXPECT_EQ(degrees("荆门", "WD"), "31.1667");  // 钟祥
  EXPECT_EQ(degrees("荆门", "JD"), "112.5667");
  EXPECT_EQ(degrees("襄樊", "WD"), "32.15");    // 枣阳
  EXPECT_EQ(degrees("十堰", "WD"), "32.0333");  // 房县
}

TEST_F(QkdbInitTest, PressuresAndHumiditiesAreStoredAsPrinted) {
  // 郑州: 1013.3 / 992.3 hPa; 北京: 58 % summer ventilation humidity (61 in the data is 郑州's).
  EXPECT_EQ(Query("SELECT DjDqy || ' ' || XjDqy FROM Weather w JOIN City c ON c.ID = w.CId WHERE c.Name = '郑州'"),
            "1013.3 992.3");
  EXPECT_EQ(Query("SELECT COUNT(*) FROM Weather WHERE DjDqy <> round(DjDqy, 1) OR XjDqy <> round(XjDqy, 1) OR "
                  "DjKtSwXdSd <> round(DjKtSwXdSd) OR XjTfSwXdSd <> round(XjTfSwXdSd)"),
            "0");
}

TEST_F(QkdbInitTest, EachFurtherStationOfACityIsACityOfItsOwn) {
  // 呼伦贝尔 has 满洲里 and 海拉尔: the city keeps the first, 海拉尔 stands beside it.
  CQKWeather hailar = ClimateOf(L"海拉尔");
  EXPECT_EQ(Text(hailar.ProvinceName), "内蒙古");
  EXPECT_EQ(Text(hailar.EpwName), "CHN_Nei.Mongol.Hailar.505270_CSWD.epw");
  CQKWeather hulunbuir = ClimateOf(L"呼伦贝尔");
  EXPECT_EQ(Text(hulunbuir.EpwName), "CHN_Nei.Mongol.Manzhouli.505140_CSWD.epw");
}

TEST_F(QkdbInitTest, EveryStationHasAWeatherFileWithItsSource) {
  EXPECT_EQ(Query("SELECT COUNT(*) FROM Weather WHERE EpwName IS NULL OR EpwName = ''"), "0");
  EXPECT_EQ(Query("SELECT COUNT(*) FROM WeatherFileSource"), Query("SELECT COUNT(*) FROM Weather"));
  EXPECT_EQ(Query("SELECT COUNT(*) FROM Weather w JOIN WeatherFileSource s ON s.CId = w.CId AND s.EpwName = w.EpwName"),
            Query("SELECT COUNT(*) FROM Weather"));
  // 146 stations have a file of their station's WMO id, CSWD first (143 CSWD, 2 SWERA only, 1 IWEC
  // only); two more one within 20 km.
  EXPECT_EQ(Query("SELECT COUNT(*) FROM WeatherFileSource WHERE Own = 1"), "148");
  EXPECT_EQ(Query("SELECT COUNT(*) FROM WeatherFileSource WHERE Own = 1 AND EpwName LIKE '%CSWD.epw'"), "145");
}

// Every station, asked for by its name in the standard, answers with its own heating temperature
// through the tool, exactly as the data file prints it.
TEST_F(QkdbInitTest, EveryStationAnswersWithItsOwnHeatingTemperature) {
  const DataCsv csv("cn_outdoor_design_gb50736.csv");
  int stations = 0;
  for (std::size_t r = 0; r < csv.Size(); ++r) {
    const std::string name = csv(r, "station_name");
    const std::string command = std::string(QKDB_PATH) + " weather '" + name + "' --json --db '" + s_path + "'";
    std::string out;
    if (FILE* pipe = popen(command.c_str(), "r")) {
      char buffer[4096];
      for (std::size_t n; (n = fread(buffer, 1, sizeof buffer, pipe)) > 0;) out.append(buffer, n);
      EXPECT_EQ(pclose(pipe), 0) << name;
    }
    const nlohmann::json answer = nlohmann::json::parse(out, nullptr, false);
    ASSERT_TRUE(answer.is_object()) << name << ": " << out;
    EXPECT_EQ(answer["DjCnSwGqWd"], csv.Number(r, "heating_db_c")) << name;
    EXPECT_NE(answer["EpwName"], nullptr) << name;
    ++stations;
  }
  EXPECT_EQ(stations, DataRows("cn_outdoor_design_gb50736.csv"));
}

TEST_F(QkdbInitTest, ANearbyFileOfAnotherWmoIdIsTheStationsOwn) {
  auto source = [&](const char* city) {
    return Query(std::string("SELECT s.EpwName || ' ' || s.Own || ' ' || s.DistanceKm FROM WeatherFileSource s JOIN City c "
                             "ON c.ID = s.CId WHERE c.Name = '") + city + "'");
  };
  EXPECT_EQ(source("重庆"), "CHN_Chongqing.Chongqing.Shapingba.575160_CSWD.epw 1 7.2");
  EXPECT_EQ(source("长沙"), "CHN_Hunan.Changsha.576870_CSWD.epw 1 16.2");
}

TEST_F(QkdbInitTest, AStationWithoutAFileTakesTheFileOfTheNearestStationThatHasOne) {
  EXPECT_EQ(Query("SELECT s.EpwName || ' ' || s.Station || ' ' || s.Own || ' ' || s.DistanceKm FROM WeatherFileSource s "
                  "JOIN City c ON c.ID = s.CId WHERE c.Name = '三亚'"),
            "CHN_Hainan.Haikou.597580_CSWD.epw 海口 0 218.5");
  // The nearest by great-circle distance among the stations with a file of their own, worked out
  // here from the stored positions with the spherical law of cosines.
  const std::string nearest = Query(
      "SELECT w.EpwName FROM Weather w JOIN WeatherFileSource s ON s.CId = w.CId AND s.Own = 1, "
      "(SELECT JD AS x, WD AS y FROM Weather WHERE CId = (SELECT ID FROM City WHERE Name = '唐山')) t "
      "ORDER BY acos(min(1, sin(w.WD) * sin(t.y) + cos(w.WD) * cos(t.y) * cos(w.JD - t.x))) LIMIT 1");
  EXPECT_EQ(Query("SELECT EpwName FROM Weather w JOIN City c ON c.ID = w.CId WHERE c.Name = '唐山'"), nearest);
}

TEST_F(QkdbInitTest, NoCityOfTheStandardBorrowsAClimate) {
  for (long id = 1; id <= std::stol(Query("SELECT MAX(ID) FROM City")); ++id) {
    CQKWeather weather;
    weather.CId = id;
    EXPECT_EQ(CQKWeatherDataAdmin::GetWeatherByCityId(weather), 0) << id;
    EXPECT_EQ(weather.CId, id);
  }
  int result = -1;
  CQKWeather sanya = ClimateOf(L"三亚", &result);
  EXPECT_EQ(result, 0);
  EXPECT_EQ(Text(sanya.CityName), "三亚");
  EXPECT_DOUBLE_EQ(sanya.DjCnSwGqWd, 17.9);  // GB 50736's 三亚, not 海口's 12.6
  EXPECT_EQ(Text(sanya.EpwName), "CHN_Hainan.Haikou.597580_CSWD.epw");
}

TEST_F(QkdbInitTest, TheFilteredWeatherTreeListsOnlyPlacesWithWeather) {
  CQKWeatherDataAdmin admin;
  CQKWeatherDataAdmin::tagCityNode* root = admin.GetCityNodes(1, true);
  ASSERT_NE(root, nullptr);
  std::set<long> listed;
  for (auto* country : Children(root))
    for (auto* province : Children(country))
      for (auto* city : Children(province)) listed.insert(city->nId);
  EXPECT_EQ(static_cast<long>(listed.size()), std::stol(Query("SELECT COUNT(*) FROM Weather WHERE EpwName <> ''")));
  for (long id : listed)
    EXPECT_EQ(Query("SELECT EpwName <> '' FROM Weather WHERE CId = " + std::to_string(id)), "1") << id;
  CQKWeatherDataAdmin all;
  long cities = 0;
  for (auto* country : Children(all.GetCityNodes(1, false)))
    for (auto* province : Children(country)) cities += province->arrChild.GetSize();
  EXPECT_EQ(cities, std::stol(Query("SELECT COUNT(*) FROM City")));
}

TEST_F(QkdbInitTest, EveryEnvelopeCodeComputesWithAPositiveU) {
  CQKBSDataAdmin admin;
  CQKBSDataAdmin::tagBSNode* root = admin.GetBSNodes(1);
  ASSERT_NE(root, nullptr);
  long walls = 0;
  for (auto* category : Children(root))
    for (auto* typeNode : Children(category)) {
      CQKBSType type;
      type.Name = typeNode->strName;
      type.SetID(typeNode->nId);
      CLxArray<CQKWallData> out;
      admin.GetBSCodeCWallDataAry(type, out, true, CQKCrXs());
      for (int i = 0; i < out.GetSize(); ++i, ++walls) {
        EXPECT_GT(out[i].CrXs, 0.0) << Text(out[i].Name);
        EXPECT_GT(out[i].DjCrXs, 0.0) << Text(out[i].Name);
        EXPECT_TRUE(std::isfinite(out[i].CrSj) && std::isfinite(out[i].CrYc)) << Text(out[i].Name);
      }
    }
  EXPECT_EQ(walls, 15 + DataRows("constructions_09j908_3_gudaostudio.csv"));
}

TEST_F(QkdbInitTest, TheMediumExteriorWallMatchesItsHandbookLayers) {
  // Outside to inside: 101.6 mm brick λ 0.89, 50.8 mm insulation board λ 0.03, an air space of
  // R 0.15 m²·K/W, 19 mm gypsum board λ 0.16 (the handbook values of data/materials…csv). With the
  // surface coefficients 18.6 (summer outside) and 8.7: U = 1 / (1/18.6 + Σ d/λ + 0.15 + 1/8.7).
  const double layers = 0.1016 / 0.89 + 0.0508 / 0.03 + 0.15 + 0.019 / 0.16;
  const double expected = 1.0 / (1.0 / 18.6 + layers + 1.0 / 8.7);
  CQKBSDataAdmin admin;
  CQKBSType type;
  type.Name = L"ASHRAE外墙";
  ASSERT_EQ(type.IsExist(nullptr), QKLoad::DBS_EXIST);
  CLxArray<CQKWallData> out;
  admin.GetBSCodeCWallDataAry(type, out, true, CQKCrXs());
  ASSERT_EQ(out.GetSize(), 3);
  EXPECT_EQ(Text(out[1].Name), "Medium Exterior Wall");
  // The only approximations are the mm rounding of the layer lists (none here) and double arithmetic.
  EXPECT_NEAR(out[1].CrXs, expected, expected * 1e-9);
  EXPECT_NEAR(out[1].DjCrXs, 1.0 / (1.0 / 23.0 + layers + 1.0 / 8.7), expected * 1e-9);
}

TEST(QkdbInit, AnExistingFileIsReplacedOnlyWithForce) {
  TempDir dir;
  const std::string path = (dir.path() / "ref.db").string();
  { std::ofstream(path) << "keep me"; }
  EXPECT_EQ(RunQkdb("init --db " + path), 1);
  EXPECT_EQ(Slurp(path), "keep me");  // read and closed: a file this process holds open is not replaced
  EXPECT_EQ(RunQkdb("init --force --db " + path), 0);
  EXPECT_EQ(QueryOne(CString::FromUtf8(path), "SELECT COUNT(*) FROM Country"), "1");
}

// This test process holds the file open, as a host program holding the reference database would: the
// replaced file would live on for it, unlinked, and its writes would vanish.
TEST(QkdbInit, AFileAnotherProgramHasOpenIsReplacedOnlyWhenToldEvenIfOpen) {
  TempDir dir;
  const CString path = dir.File("ref.db");
  CreateDatabase(path, "CREATE TABLE Kept (x); INSERT INTO Kept VALUES (1)");
  CADODatabase holder;
  ASSERT_TRUE(holder.OpenAccess(path, L"", L""));
  const ToolRun refused = Qkdb("init --force --db '" + path.ToUtf8() + "'");
  EXPECT_EQ(refused.status, 1);
  EXPECT_TRUE(IsOneLine(refused.err)) << refused.err;
  EXPECT_NE(refused.err.find("is open in another program (pid " + std::to_string(getpid()) + " "), std::string::npos)
      << refused.err;
  EXPECT_EQ(QueryOne(path, "SELECT x FROM Kept"), "1");
  EXPECT_EQ(Qkdb("init --force --even-if-open --db '" + path.ToUtf8() + "'").status, 0);
  EXPECT_EQ(QueryOne(path, "SELECT COUNT(*) FROM Country"), "1");
}

// mkstemp makes the file being built 0600; the finished database must be readable as any file the user
// makes is, or another user of a shared database reads "… is not an SQLite database".
TEST(QkdbInit, ANewDatabaseGetsTheModeTheUmaskGives) {
  TempDir dir;
  for (const auto& [umask, mode] : {std::pair{"022", fs::perms(0644)}, std::pair{"027", fs::perms(0640)}}) {
    const std::string path = (dir.path() / (std::string("ref-") + umask + ".db")).string();
    const ToolRun run = RunShell(std::string("umask ") + umask + "; \"$QKDB\" init --db '" + path + "'");
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(fs::status(path).permissions(), mode) << "umask " << umask;
  }
}

TEST(QkdbInit, AReplacedDatabaseKeepsItsMode) {
  TempDir dir;
  const std::string path = (dir.path() / "ref.db").string();
  ASSERT_EQ(RunQkdb("init --db " + path), 0);
  fs::permissions(path, fs::perms(0664));
  const ToolRun run = RunShell("umask 077; \"$QKDB\" init --force --db '" + path + "'");
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(fs::status(path).permissions(), fs::perms(0664));
}

TEST(QkdbInit, EvenIfOpenNeedsForce) {
  TempDir dir;
  EXPECT_EQ(Qkdb("init --even-if-open --db '" + dir.File("ref.db").ToUtf8() + "'").status, 2);
  EXPECT_FALSE(fs::exists(dir.path() / "ref.db"));
}

TEST(QkdbInit, BadDataLeavesTheExistingFileAndNoTemporary) {
  TempDir dir;
  const fs::path data = dir.path() / "data";
  fs::copy(QK_DATA_DIR, data);
  { std::ofstream(data / "room_types_gb55015.csv", std::ios::app) << "only,three,fields\n"; }
  const std::string path = (dir.path() / "ref.db").string();
  { std::ofstream(path) << "keep me"; }
  EXPECT_EQ(RunQkdb("init --force --data " + data.string() + " --db " + path), 1);
  std::ifstream in(path);
  std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  EXPECT_EQ(text, "keep me");
  long files = 0;
  for (const auto& entry : fs::directory_iterator(dir.path())) files += entry.is_regular_file();
  EXPECT_EQ(files, 1);  // ref.db alone: the half-built file is gone
}

// A construction's name is its key over the whole table: a data row repeating a name would make two
// materials one, so the build refuses it, naming the row.
TEST(QkdbInit, AMaterialNameThatRepeatsIsRefusedWithItsRow) {
  TempDir dir;
  const fs::path data = dir.path() / "data";
  fs::copy(QK_DATA_DIR, data);
  const fs::path file = data / "materials_09j908_3_gudaostudio.csv";
  std::string text = Slurp(file.string());
  const std::string eps = "模塑聚苯板 EPS,";
  ASSERT_NE(text.find(eps), std::string::npos);
  text.replace(text.find(eps), eps.size(), "钢筋混凝土,");  // the name of a GB 50176-93 row
  { std::ofstream(file) << text; }
  ToolRun run = Qkdb("init --data '" + data.string() + "' --db '" + (dir.path() / "ref.db").string() + "'");
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(IsOneLine(run.err)) << run.err;
  EXPECT_NE(run.err.find("materials_09j908_3_gudaostudio.csv:"), std::string::npos) << run.err;
  EXPECT_NE(run.err.find("\"钢筋混凝土\" is taken"), std::string::npos) << run.err;
  EXPECT_FALSE(fs::exists(dir.path() / "ref.db"));
}

TEST(QkdbInit, AMissingFolderIsRefused) {
  TempDir dir;
  EXPECT_EQ(RunQkdb("init --db " + (dir.path() / "no" / "ref.db").string()), 1);
  EXPECT_FALSE(fs::exists(dir.path() / "no"));
}

// Starts `qkdb init --db path` and kills it with signal as soon as its temporary file exists. True
// when the kill came before the build finished (the process died of the signal).
bool KillMidway(const fs::path& folder, const std::string& path, int signal) {
  const pid_t child = fork();
  if (child == 0) {
    execl(QKDB_PATH, QKDB_PATH, "init", "--db", path.c_str(), static_cast<char*>(nullptr));
    _exit(127);
  }
  for (int i = 0; i < 100000; ++i) {
    bool building = false;
    for (const auto& entry : fs::directory_iterator(folder))
      building |= entry.path().filename().string().find(".building-") != std::string::npos;
    if (building) break;
    std::this_thread::sleep_for(std::chrono::microseconds(50));
  }
  kill(child, signal);
  int status = 0;
  waitpid(child, &status, 0);
  return WIFSIGNALED(status);
}

TEST(QkdbInit, AKilledBuildLeavesNoFileAtThePath) {
  TempDir dir;
  const std::string path = (dir.path() / "ref.db").string();
  ASSERT_TRUE(KillMidway(dir.path(), path, SIGKILL));
  EXPECT_FALSE(fs::exists(path));
}

TEST(QkdbInit, AnInterruptedBuildAlsoRemovesItsTemporaryFile) {
  TempDir dir;
  const std::string path = (dir.path() / "ref.db").string();
  ASSERT_TRUE(KillMidway(dir.path(), path, SIGTERM));
  EXPECT_TRUE(fs::is_empty(dir.path()));
}

}  // namespace
