// The qkdb commands that read the reference database ("weather", "tree", "walls"), run as a user runs
// them on a small database built here from the schema: what they print, and the one-line refusals.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <nlohmann/json.hpp>
#include <numbers>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "QkdbRun.h"
#include "TestDatabase.h"
#include "datakit/CADataExchange.h"
#include "datakit/CADataProp.h"
#include "weather/CQKWeatherData.h"

namespace {

using nlohmann::json;

constexpr double kDegree = std::numbers::pi / 180.0;

// The line of text that starts with start followed by a blank; "" when there is none.
std::string LineStarting(const std::string& text, const std::string& start) {
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);)
    if (line.rfind(start + " ", 0) == 0) return line;
  return "";
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

// Great-circle distance in km on a sphere of 6371 km, positions in degrees (the atan2 form of the
// haversine).
double GreatCircleKm(double lon1, double lat1, double lon2, double lat2) {
  const double dLat = (lat2 - lat1) * kDegree;
  const double dLon = (lon2 - lon1) * kDegree;
  const double a = std::pow(std::sin(dLat / 2), 2) +
                   std::cos(lat1 * kDegree) * std::cos(lat2 * kDegree) * std::pow(std::sin(dLon / 2), 2);
  return 6371.0 * 2.0 * std::atan2(std::sqrt(a), std::sqrt(1.0 - a));
}

// A double as SQL text that reads back as the same double.
std::string Exact(double v) {
  char text[32];
  std::snprintf(text, sizeof text, "%.17g", v);
  return text;
}

// Records the name of every item a value's named exchange writes, case kept.
struct NameRecorder {
  std::vector<std::string> names;
  int Keep(const wchar_t* name) {
    names.push_back(CString(name).ToUtf8());
    return 0;
  }
  int writeChar(const wchar_t* n, char) { return Keep(n); }
  int writeString(const wchar_t* n, const wchar_t*) { return Keep(n); }
  int writeInt32(const wchar_t* n, long) { return Keep(n); }
  int writeInt16(const wchar_t* n, short) { return Keep(n); }
  int writeUInt32(const wchar_t* n, unsigned long) { return Keep(n); }
  int writeUInt16(const wchar_t* n, unsigned short) { return Keep(n); }
  int writeInt(const wchar_t* n, int) { return Keep(n); }
  int writeBool(const wchar_t* n, bool) { return Keep(n); }
  int writeDouble(const wchar_t* n, double) { return Keep(n); }
  int writeBytes(const wchar_t* n, const void*, unsigned long) { return Keep(n); }
  int readChar(const wchar_t*, char*) { return 1; }
  int readString(const wchar_t*, wchar_t**) { return 1; }
  int readInt32(const wchar_t*, long*) { return 1; }
  int readInt16(const wchar_t*, short*) { return 1; }
  int readUInt32(const wchar_t*, unsigned long*) { return 1; }
  int readUInt16(const wchar_t*, unsigned short*) { return 1; }
  int readInt(const wchar_t*, int*) { return 1; }
  int readBool(const wchar_t*, bool*) { return 1; }
  int readDouble(const wchar_t*, double*) { return 1; }
  int readBytes(const wchar_t*, void*, unsigned long) { return 1; }
};

std::set<std::string> WeatherItemNames() {
  NameRecorder recorder;
  CQKWeatherData value;
  value.DataOutPro(CADataExchange(CADataProp<NameRecorder>(&recorder)));
  return {recorder.names.begin(), recorder.names.end()};
}

std::set<std::string> Keys(const json& object) {
  std::set<std::string> keys;
  for (const auto& [key, value] : object.items()) keys.insert(key);
  return keys;
}

// Positions of the stations, degrees east and north.
constexpr double kBeijingLon = 116.47, kBeijingLat = 39.8;
constexpr double kZhengzhouLon = 113.65, kZhengzhouLat = 34.72;
constexpr double kLuoyangLon = 112.45, kLuoyangLat = 34.62;
constexpr double kKaifengLon = 114.35, kKaifengLat = 34.8;

// The layers of "Light Exterior Wall", outside to inside: mm, W/(m·K).
constexpr double kPlasterMm = 20.0, kPlasterLambda = 0.81;
constexpr double kBrickMm = 240.0, kBrickLambda = 0.87;
constexpr double kAirR = 0.15;  // m²·K/W, an air space stored by its conductance 1/R

// One country; provinces 北京 and 河南; cities 北京 and 郑州 with weather files of their own, 洛阳
// with EpwName '' and 开封 with EpwName NULL (both borrow), 安阳 without a weather row. Columns left out
// of an INSERT are NULL. Two envelope categories with a type each, the first type with two codes
// (plaster, brick, plaster; and brick alone); two construction types; one room type with two uses.
std::string SeedSql() {
  auto rad = [](double degrees) { return Exact(degrees * kDegree); };
  return "INSERT INTO Country (Name) VALUES ('中国');"
         "INSERT INTO Province (CId, Name) VALUES (1, '北京'), (1, '河南');"
         "INSERT INTO City (PId, Name) VALUES (1, '北京'), (2, '郑州'), (2, '洛阳'), (2, '开封'), (2, '安阳');"
         "INSERT INTO Weather (CId, JD, WD, DjDqy, XjDqy, ZlYPjXdSd, ZRYPjXdSd, XjTfSwXdSd, DjKtSwXdSd, XjKtSwGqWd,"
         " DistrictCode, EpwName, DBMNPJWD) VALUES (1, " +
         rad(kBeijingLon) + ", " + rad(kBeijingLat) +
         ", 1021.7, 1000.2, 44, 78, 58, 44, 33.5, 5, 'CHN_Beijing.epw', 13.7);"
         "INSERT INTO Weather (CId, JD, WD, DjDqy, XjDqy, ZlYPjXdSd, XjKtSwGqWd, DistrictCode, EpwName) VALUES (2, " +
         rad(kZhengzhouLon) + ", " + rad(kZhengzhouLat) + ", 1013.3, 992.3, 61, 34.9, 4, 'CHN_Zhengzhou.epw');"
         "INSERT INTO Weather (CId, JD, WD, XjKtSwGqWd, EpwName) VALUES (3, " +
         rad(kLuoyangLon) + ", " + rad(kLuoyangLat) + ", 35.4, '');"
         "INSERT INTO Weather (CId, JD, WD, XjKtSwGqWd) VALUES (4, " +
         rad(kKaifengLon) + ", " + rad(kKaifengLat) + ", 35.1);"
         "INSERT INTO TimberingType (Name) VALUES ('砖'), ('抹灰');"
         "INSERT INTO Timbering (TTId, Name, GMD, DrXs, BRr) VALUES (1, '黏土砖', 1800, " + Exact(kBrickLambda) +
         ", 1.05), (2, '石灰砂浆', 1600, " + Exact(kPlasterLambda) + ", 1.05), (2, 'Air space', 0, " +
         Exact(1.0 / kAirR) + ", 0);"
         "INSERT INTO BSCategory (Name, OrderId) VALUES ('外墙', 1), ('屋面', 2);"
         "INSERT INTO BSType (Name, BSDLId) VALUES ('ASHRAE外墙', 1), ('ASHRAE屋面', 2);"
         "INSERT INTO BSCode (BSTId, Name) VALUES (1, 'Light Exterior Wall'), (1, 'Heavy Exterior Wall');"
         "INSERT INTO BoundingStructure (BSCId, TIdS, HouDuS, XzXsS) VALUES (1, '2,1,2', '" + Exact(kPlasterMm) +
         "," + Exact(kBrickMm) + "," + Exact(kPlasterMm) + "', '1,1,1'), (2, '1', '370', '1');"
         "INSERT INTO RoomType (Name) VALUES ('办公建筑');"
         "INSERT INTO RoomUse (RTId, Name) VALUES (1, '办公室'), (1, '会议室');"
         "INSERT INTO RULoadParam (RUId, DongJiSNSJXDSD, ZhaoMingBZ, LaoDongQD) VALUES (1, 55, 9, 2);";
}

class QkdbReadCommands : public testing::Test {
 protected:
  void SetUp() override {
    db = CreateReferenceDatabase(dir).ToUtf8();
    CreateDatabase(CString::FromUtf8(db), SeedSql());
  }

  ToolRun Run(const std::string& args) { return Qkdb(args + " --db '" + db + "'"); }
  // Writes text to a file of that name in the test's folder; its path.
  std::string Write(const std::string& name, const std::string& text) {
    const std::string path = (dir.path() / name).string();
    std::ofstream(path) << text;
    return path;
  }
  json Json(const std::string& args) {
    ToolRun run = Run(args + " --json");
    EXPECT_EQ(run.status, 0) << run.err;
    return json::parse(run.out);
  }
  // A refusal: nothing on standard output, one line on standard error.
  void ExpectRefused(const ToolRun& run, int status) {
    EXPECT_EQ(run.status, status) << run.err;
    EXPECT_TRUE(run.out.empty()) << run.out;
    EXPECT_TRUE(IsOneLine(run.err)) << run.err;
    EXPECT_EQ(run.err.rfind("qkdb: ", 0), 0u) << run.err;
  }

  TempDir dir;
  std::string db;
};

}  // namespace

// --- weather: the readable table -------------------------------------------------------------------

TEST_F(QkdbReadCommands, WeatherTableShowsThePlaceItsPositionAndTheStoredValuesInTableUnits) {
  ToolRun run = Run("weather 郑州");
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find("郑州, 河南, 中国"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("113.6500° E, 34.7200° N"), std::string::npos) << run.out;
  EXPECT_NE(LineStarting(run.out, "DjDqy").find("1013.3 hPa"), std::string::npos) << run.out;
  EXPECT_NE(LineStarting(run.out, "XjDqy").find("992.3 hPa"), std::string::npos) << run.out;
  EXPECT_NE(LineStarting(run.out, "ZlYPjXdSd").find("61 %"), std::string::npos) << run.out;
  EXPECT_NE(LineStarting(run.out, "XjKtSwGqWd").find("34.9 °C"), std::string::npos) << run.out;
  EXPECT_NE(LineStarting(run.out, "JD").find("(113.6500°)"), std::string::npos) << run.out;
  const std::string zone = CQKWeatherData::DistrictCodeToStr(4).ToUtf8();
  EXPECT_NE(LineStarting(run.out, "DistrictCode").find("4 (" + zone + ")"), std::string::npos) << run.out;
  EXPECT_NE(LineStarting(run.out, "EpwName").find("CHN_Zhengzhou.epw"), std::string::npos) << run.out;
}

TEST_F(QkdbReadCommands, WeatherTableShowsANullColumnAsNotGivenRatherThanTheDefault) {
  ToolRun run = Run("weather 郑州");
  ASSERT_EQ(run.status, 0) << run.err;
  for (const char* item : {"ZRYPjXdSd", "DBMNPJWD", "DjLfStCxXz_N", "XjKtDqTmDDj", "SumWindDef"}) {
    const std::string line = LineStarting(run.out, item);
    ASSERT_FALSE(line.empty()) << item << "\n" << run.out;
    EXPECT_NE(line.find("—"), std::string::npos) << line;
  }
  // The same column with a value in another row is shown.
  EXPECT_NE(LineStarting(Run("weather 北京").out, "ZRYPjXdSd").find("78 %"), std::string::npos);
}

TEST_F(QkdbReadCommands, WeatherTableHasOneLineForEveryItem) {
  ToolRun run = Run("weather 北京");
  ASSERT_EQ(run.status, 0) << run.err;
  for (const std::string& item : WeatherItemNames()) EXPECT_FALSE(LineStarting(run.out, item).empty()) << item;
}

// --- weather: JSON ----------------------------------------------------------------------------------

TEST_F(QkdbReadCommands, WeatherJsonHasExactlyTheItemNamesThePlaceNamesAndTheWeatherFilesSource) {
  json out = Json("weather 郑州");
  std::set<std::string> expected = WeatherItemNames();
  expected.insert({"CityName", "ProvinceName", "CountryName", "EpwOwn", "EpwStation", "EpwDistanceKm"});
  EXPECT_EQ(Keys(out), expected);
  EXPECT_EQ(out["CityName"], "郑州");
  EXPECT_EQ(out["ProvinceName"], "河南");
  EXPECT_EQ(out["CountryName"], "中国");
}

TEST_F(QkdbReadCommands, WeatherJsonHoldsPressuresInHPaAndHumiditiesInPercentAsStored) {
  json out = Json("weather 北京");
  EXPECT_EQ(out["CId"], 1);
  EXPECT_DOUBLE_EQ(out["DjDqy"].get<double>(), 1021.7);
  EXPECT_DOUBLE_EQ(out["XjDqy"].get<double>(), 1000.2);
  EXPECT_DOUBLE_EQ(out["ZlYPjXdSd"].get<double>(), 44.0);
  EXPECT_DOUBLE_EQ(out["ZRYPjXdSd"].get<double>(), 78.0);
  EXPECT_DOUBLE_EQ(out["XjTfSwXdSd"].get<double>(), 58.0);
  EXPECT_DOUBLE_EQ(out["DjKtSwXdSd"].get<double>(), 44.0);
  EXPECT_DOUBLE_EQ(out["JD"].get<double>(), kBeijingLon * kDegree);
  EXPECT_DOUBLE_EQ(out["WD"].get<double>(), kBeijingLat * kDegree);
  EXPECT_EQ(out["DistrictCode"], 5);
  EXPECT_EQ(out["EpwName"], "CHN_Beijing.epw");
}

TEST_F(QkdbReadCommands, WeatherJsonGivesNullForANullColumn) {
  json out = Json("weather 郑州");
  for (const char* item : {"ZRYPjXdSd", "DBMNPJWD", "DjLfStCxXz_N", "DjLfStCxXz_NW", "XjKtDqTmDDj", "SumBarPress",
                           "SumWindDef", "WinWindDef", "Elevation"})
    EXPECT_TRUE(out[item].is_null()) << item << " = " << out[item];
  EXPECT_DOUBLE_EQ(out["ZlYPjXdSd"].get<double>(), 61.0);
}

TEST_F(QkdbReadCommands, WeatherByIdIsTheSameAsByName) {
  EXPECT_EQ(Json("weather --id 2"), Json("weather 郑州"));
  EXPECT_EQ(Json("weather --id 1")["CityName"], "北京");
}

// --- weather: a borrowed climate -------------------------------------------------------------------

TEST_F(QkdbReadCommands, ABorrowedClimateNamesItsSourceAndTheDistance) {
  const double km = GreatCircleKm(kLuoyangLon, kLuoyangLat, kZhengzhouLon, kZhengzhouLat);
  ToolRun run = Run("weather 洛阳");
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find("borrowed from 郑州"), std::string::npos) << run.out;
  std::smatch said;
  ASSERT_TRUE(std::regex_search(run.out, said, std::regex("([0-9.]+) km away"))) << run.out;
  EXPECT_NEAR(std::stod(said[1]), km, 0.5);
  // The table is the source's row, not the city's own.
  EXPECT_NE(LineStarting(run.out, "XjKtSwGqWd").find("34.9 °C"), std::string::npos) << run.out;

  json out = Json("weather 洛阳");
  EXPECT_EQ(out["CityName"], "郑州");
  EXPECT_EQ(out["CId"], 2);
  EXPECT_EQ(out["BorrowedFrom"], "郑州");
  EXPECT_EQ(out["BorrowedFor"], "洛阳");
  EXPECT_NEAR(out["DistanceKm"].get<double>(), km, 0.5);
  EXPECT_DOUBLE_EQ(out["XjKtSwGqWd"].get<double>(), 34.9);
}

TEST_F(QkdbReadCommands, ACityWhoseWeatherFileIsNullBorrowsToo) {
  json out = Json("weather 开封");
  EXPECT_EQ(out["BorrowedFrom"], "郑州");
  EXPECT_NEAR(out["DistanceKm"].get<double>(), GreatCircleKm(kKaifengLon, kKaifengLat, kZhengzhouLon, kZhengzhouLat),
              0.5);
}

TEST_F(QkdbReadCommands, AClimateOfItsOwnSaysNothingOfBorrowing) {
  json out = Json("weather 郑州");
  EXPECT_FALSE(out.contains("BorrowedFrom"));
  EXPECT_FALSE(out.contains("DistanceKm"));
  EXPECT_EQ(Run("weather 郑州").out.find("borrowed"), std::string::npos);
}

// --- weather --near --------------------------------------------------------------------------------

TEST_F(QkdbReadCommands, NearFindsTheNearestCityWithAWeatherFile) {
  // Nearest to 洛阳, which has no weather file: the answer is 郑州.
  json out = Json("weather --near 112.4,34.6");
  EXPECT_EQ(out["CityName"], "郑州");
  EXPECT_EQ(out["ProvinceName"], "河南");
  EXPECT_NEAR(out["DistanceKm"].get<double>(), GreatCircleKm(112.4, 34.6, kZhengzhouLon, kZhengzhouLat), 0.5);

  json north = Json("weather --near 116.0,40.2");
  EXPECT_EQ(north["CityName"], "北京");
  EXPECT_EQ(north["CId"], 1);
  EXPECT_NEAR(north["DistanceKm"].get<double>(), GreatCircleKm(116.0, 40.2, kBeijingLon, kBeijingLat), 0.5);

  ToolRun run = Run("weather --near 116.0,40.2");
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find("北京, 北京, 中国"), std::string::npos) << run.out;
}

TEST_F(QkdbReadCommands, NearAPointFarFromEveryStationHasNoAnswer) { ExpectRefused(Run("weather --near 0,0"), 1); }

// --- weather: refusals -----------------------------------------------------------------------------

TEST_F(QkdbReadCommands, AnUnknownCityIsNamedInOneLine) {
  ToolRun run = Run("weather 上海");
  ExpectRefused(run, 1);
  EXPECT_EQ(run.err, "qkdb: no city named \"上海\"\n");
  ExpectRefused(Run("weather --id 99"), 1);
}

TEST_F(QkdbReadCommands, ACityWithoutAnyWeatherRowHasNoAnswer) { ExpectRefused(Run("weather 安阳"), 1); }

TEST_F(QkdbReadCommands, ABadNearIsRefused) {
  for (const char* near : {"abc", "113.6", "113.6,", "113.6,34.7,5", "200,34", "113,95"})
    ExpectRefused(Run(std::string("weather --near '") + near + "'"), 2);
}

TEST_F(QkdbReadCommands, WeatherTakesExactlyOneOfNameIdAndNear) {
  ExpectRefused(Run("weather 郑州 --id 2"), 2);
  ExpectRefused(Run("weather 郑州 --near 113,34"), 2);
  ExpectRefused(Run("weather"), 2);
}

TEST(QkdbReadDatabase, AMissingDatabaseIsRefusedInOneLineByEveryCommand) {
  for (const char* command : {"weather 郑州", "tree weather", "walls --type ASHRAE外墙"}) {
    ToolRun run = Qkdb(std::string(command) + " --db /nonexistent/reference.db");
    EXPECT_EQ(run.status, 2) << command;
    EXPECT_TRUE(IsOneLine(run.err)) << command << ": " << run.err;
    EXPECT_NE(run.err.find("/nonexistent/reference.db"), std::string::npos) << run.err;
  }
}

TEST(QkdbReadDatabase, AFileThatIsNotADatabaseIsRefusedInOneLine) {
  TempDir dir;
  const std::string path = (dir.path() / "notes.db").string();
  std::ofstream(path) << "not a database\n";
  for (const char* command : {"weather 郑州", "tree rooms", "walls --type ASHRAE外墙"}) {
    ToolRun run = Qkdb(std::string(command) + " --db '" + path + "'");
    EXPECT_EQ(run.status, 2) << command;
    EXPECT_TRUE(IsOneLine(run.err)) << command << ": " << run.err;
  }
}

TEST_F(QkdbReadCommands, TheEnvironmentChoosesTheDatabaseWhenDbIsAbsent) {
  ToolRun run = Qkdb("weather 郑州 --json", "QKDB_DATABASE='" + db + "' ");
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(json::parse(run.out)["CityName"], "郑州");
  // --db comes first.
  ToolRun overridden = Qkdb("weather 郑州 --json --db '" + db + "'", "QKDB_DATABASE=/nonexistent/reference.db ");
  EXPECT_EQ(overridden.status, 0) << overridden.err;
  ToolRun missing = Qkdb("weather 郑州", "QKDB_DATABASE=/nonexistent/reference.db ");
  EXPECT_EQ(missing.status, 2);
  EXPECT_NE(missing.err.find("/nonexistent/reference.db"), std::string::npos) << missing.err;
}

// --- tree ------------------------------------------------------------------------------------------

TEST_F(QkdbReadCommands, TheWeatherTreeListsCountriesProvincesAndCities) {
  ToolRun run = Run("tree weather");
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "中国\n  北京\n    北京\n  河南\n    郑州\n    洛阳\n    开封\n    安阳\n");
}

TEST_F(QkdbReadCommands, TheFilteredWeatherTreeLeavesOutCitiesWithoutAWeatherFile) {
  ToolRun run = Run("tree weather --with-weather");
  ASSERT_EQ(run.status, 0) << run.err;
  const std::vector<std::string> lines = Lines(run.out);
  auto has = [&lines](const std::string& line) { return std::find(lines.begin(), lines.end(), line) != lines.end(); };
  EXPECT_TRUE(has("中国") && has("  北京") && has("    北京") && has("  河南") && has("    郑州")) << run.out;
  EXPECT_FALSE(has("    开封")) << run.out;  // EpwName NULL
  EXPECT_FALSE(has("    安阳")) << run.out;  // no weather row
}

TEST_F(QkdbReadCommands, TheEnvelopeTreeListsCategoriesTypesAndCodes) {
  ToolRun run = Run("tree envelope");
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "外墙\n  ASHRAE外墙\n    Light Exterior Wall\n    Heavy Exterior Wall\n屋面\n  ASHRAE屋面\n");
}

TEST_F(QkdbReadCommands, TheConstructionAndRoomTreesListWhatTheRowsSay) {
  ToolRun constructions = Run("tree constructions");
  ASSERT_EQ(constructions.status, 0) << constructions.err;
  EXPECT_EQ(constructions.out, "砖\n  黏土砖\n抹灰\n  石灰砂浆\n  Air space\n");
  ToolRun rooms = Run("tree rooms");
  ASSERT_EQ(rooms.status, 0) << rooms.err;
  EXPECT_EQ(rooms.out, "办公建筑\n  办公室\n  会议室\n");
}

// The IDs are the rows' own: 开封 is city 4, the brick-only code 2, 会议室 room use 2.
TEST_F(QkdbReadCommands, IdsPutEachRowsIdBeforeItsName) {
  ToolRun run = Run("tree envelope --ids");
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out,
            "[1] 外墙\n  [1] ASHRAE外墙\n    [1] Light Exterior Wall\n    [2] Heavy Exterior Wall\n[2] 屋面\n"
            "  [2] ASHRAE屋面\n");
  run = Run("tree weather --ids");
  EXPECT_NE(run.out.find("\n    [4] 开封\n"), std::string::npos) << run.out;
  EXPECT_EQ(Run("tree rooms --ids").out, "[1] 办公建筑\n  [1] 办公室\n  [2] 会议室\n");
}

TEST_F(QkdbReadCommands, TheJsonTreeHasIdsNamesAndLevels) {
  const json weather = Json("tree weather");
  ASSERT_EQ(weather.size(), 1u);
  EXPECT_EQ(weather[0]["level"], "country");
  const json& henan = weather[0]["children"][1];
  EXPECT_EQ(henan["id"], 2);
  EXPECT_EQ(henan["name"], "河南");
  EXPECT_EQ(henan["level"], "province");
  ASSERT_EQ(henan["children"].size(), 4u);
  EXPECT_EQ(henan["children"][2], json::parse(R"({"id": 4, "name": "开封", "level": "city", "children": []})"));
  const json envelope = Json("tree envelope");
  EXPECT_EQ(envelope[0]["children"][0]["level"], "type");
  EXPECT_EQ(envelope[0]["children"][0]["children"][1],
            json::parse(R"({"id": 2, "name": "Heavy Exterior Wall", "level": "code", "children": []})"));
  EXPECT_EQ(Json("tree constructions")[1]["children"][1]["level"], "construction");
  EXPECT_EQ(Json("tree rooms")[0]["children"][1], json::parse(R"({"id": 2, "name": "会议室", "level": "room use", "children": []})"));
  // The filter holds in JSON too.
  EXPECT_EQ(Json("tree weather --with-weather")[0]["children"][1]["children"].size(), 2u);
}

TEST_F(QkdbReadCommands, IdsAreForTheTextOnly) { ExpectRefused(Run("tree weather --ids --json"), 2); }

TEST_F(QkdbReadCommands, WithWeatherBelongsToTheWeatherTreeOnly) {
  ExpectRefused(Run("tree envelope --with-weather"), 2);
}

// --- walls -----------------------------------------------------------------------------------------

TEST_F(QkdbReadCommands, WallsPrintsOneLinePerCodeWithAPositiveU) {
  ToolRun run = Run("walls --type ASHRAE外墙");
  ASSERT_EQ(run.status, 0) << run.err;
  const std::vector<std::string> lines = Lines(run.out);
  ASSERT_EQ(lines.size(), 3u) << run.out;  // the heading and the two codes
  const char* codes[] = {"Light Exterior Wall", "Heavy Exterior Wall"};
  for (int i = 0; i < 2; ++i) {
    const std::string& line = lines[i + 1];
    ASSERT_EQ(line.rfind(std::string(codes[i]) + "  ", 0), 0u) << line;
    const std::string rest = line.substr(std::string(codes[i]).size());
    EXPECT_GT(std::stod(rest), 0.0) << line;  // U in summer, the first number after the name
  }
  EXPECT_NE(lines[1].find("黏土砖 240 mm"), std::string::npos) << lines[1];
}

TEST_F(QkdbReadCommands, WallsUOfACodeWithoutAirLayersIsOneOverItsResistances) {
  ToolRun run = Run("walls --type ASHRAE外墙 --json");
  ASSERT_EQ(run.status, 0) << run.err;
  json out = json::parse(run.out);
  ASSERT_EQ(out.size(), 2u);
  const json& light = out[0];
  EXPECT_EQ(light["code"], "Light Exterior Wall");
  const double layers = 2 * kPlasterMm / 1000.0 / kPlasterLambda + kBrickMm / 1000.0 / kBrickLambda;
  const double summer = 1.0 / (1.0 / 8.7 + layers + 1.0 / 18.6);
  const double winter = 1.0 / (1.0 / 8.7 + layers + 1.0 / 23.0);
  EXPECT_NEAR(light["U"].get<double>(), summer, 1e-9 * summer);
  EXPECT_NEAR(light["U_winter"].get<double>(), winter, 1e-9 * winter);
  ASSERT_EQ(light["layers"].size(), 3u);
  EXPECT_EQ(light["layers"][1]["name"], "黏土砖");
  const json& brick = light["layers"][1];
  EXPECT_DOUBLE_EQ(brick["thickness"].get<double>(), kBrickMm / 1000.0);
  EXPECT_DOUBLE_EQ(brick["conductivity"].get<double>(), kBrickLambda);
  EXPECT_DOUBLE_EQ(brick["density"].get<double>(), 1800.0);
  EXPECT_DOUBLE_EQ(brick["specific_heat"].get<double>(), 1.05);
  EXPECT_DOUBLE_EQ(brick["conductivity_correction"].get<double>(), 1.0);
  EXPECT_DOUBLE_EQ(brick["density_correction"].get<double>(), 1.0);
  EXPECT_EQ(light["inside"], 8.7);
  EXPECT_EQ(light["outside"], 18.6);
  EXPECT_EQ(light["outside_winter"], 23.0);
  EXPECT_GT(light["D"].get<double>(), 0.0);
  EXPECT_GT(light["decrement"].get<double>(), 0.0);
  EXPECT_LT(light["decrement"].get<double>(), 1.0);
  EXPECT_GT(light["delay_h"].get<double>(), 0.0);
  EXPECT_EQ(out[1]["code"], "Heavy Exterior Wall");
  // 370 mm of brick resist more than 240 mm with plaster.
  EXPECT_LT(out[1]["U"].get<double>(), light["U"].get<double>());
}

// A catalogue wall goes on to "wall" and "thickness" as "walls --json" prints it, and comes out with
// the same numbers: the same layers and coefficients reach the same calculation.
TEST_F(QkdbReadCommands, AWallOfWallsJsonIsComputedAgainByWallWithTheSameResults) {
  const json walls = Json("walls --type ASHRAE外墙");
  ASSERT_EQ(walls.size(), 2u);
  for (const json& wall : walls) {
    ToolRun run = Qkdb("wall --json '" + Write("wall.json", wall.dump()) + "'");
    ASSERT_EQ(run.status, 0) << run.err;
    const json again = json::parse(run.out);
    EXPECT_EQ(again["U"], wall["U"]) << wall["code"];
    EXPECT_EQ(again["U_winter"], wall["U_winter"]) << wall["code"];
    EXPECT_EQ(again["D"], wall["D"]) << wall["code"];
    EXPECT_EQ(again["decrement"], wall["decrement"]) << wall["code"];
    EXPECT_EQ(again["delay_h"], wall["delay_h"]) << wall["code"];
  }
}

TEST_F(QkdbReadCommands, AWallOfWallsJsonIsSizedByThicknessForTheUAskedFor) {
  json light = Json("walls --type ASHRAE外墙")[0];
  // Half the U needs more of one layer; that layer at the thickness found, put back into the wall,
  // gives the U asked for.
  const double target = light["U"].get<double>() / 2.0;
  ToolRun run = Qkdb("thickness --target-u " + Exact(target) + " '" + Write("wall.json", light.dump()) + "'");
  ASSERT_EQ(run.status, 0) << run.err;
  const json sized = json::parse(run.out);
  const std::size_t layer = sized["layer"].get<std::size_t>();
  ASSERT_LT(layer, light["layers"].size());
  EXPECT_GT(sized["thickness"].get<double>(), light["layers"][layer]["thickness"].get<double>());
  light["layers"][layer]["thickness"] = sized["thickness"];
  ToolRun again = Qkdb("wall --json '" + Write("sized.json", light.dump()) + "'");
  ASSERT_EQ(again.status, 0) << again.err;
  EXPECT_NEAR(json::parse(again.out)["U"].get<double>(), target, 1e-9 * target);
}

TEST_F(QkdbReadCommands, TheResultsOfAWallsElementAreNotRead) {
  json light = Json("walls --type ASHRAE外墙")[0];
  const json u = light["U"];
  light["U"] = 99.0;  // a stale or edited result changes nothing
  ToolRun run = Qkdb("wall --json '" + Write("wall.json", light.dump()) + "'");
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(json::parse(run.out)["U"], u);
  light["code"] = 7;
  ToolRun refused = Qkdb("wall --json '" + Write("bad.json", light.dump()) + "'");
  EXPECT_EQ(refused.status, 2);
  EXPECT_NE(refused.err.find("\"code\" is not a string"), std::string::npos) << refused.err;
}

// --- materials -------------------------------------------------------------------------------------

TEST_F(QkdbReadCommands, MaterialsListsEveryConstructionWithItsTypeAndProperties) {
  const json all = Json("materials");
  ASSERT_EQ(all.size(), 3u);
  const json& brick = all[0];
  EXPECT_EQ(brick["name"], "黏土砖");
  EXPECT_EQ(brick["type"], "砖");
  EXPECT_EQ(brick["id"], 1);
  EXPECT_DOUBLE_EQ(brick["density_kg_m3"].get<double>(), 1800.0);
  EXPECT_DOUBLE_EQ(brick["conductivity_w_mk"].get<double>(), kBrickLambda);
  EXPECT_DOUBLE_EQ(brick["specific_heat_kj_kgk"].get<double>(), 1.05);
  // S24 = √(2π·λ·c·ρ / T), T = 24 h = 86.4 ks with c in kJ/(kg·K): GB 50176's heat-storage coefficient.
  const double s = std::sqrt(2.0 * std::numbers::pi * kBrickLambda * 1.05 * 1800.0 / 86.4);
  EXPECT_NEAR(brick["s24_w_m2k"].get<double>(), s, 1e-12 * s);
  EXPECT_TRUE(brick["thermal_resistance_m2k_w"].is_null());
}

TEST_F(QkdbReadCommands, MaterialsShowsAnAirSpaceByItsResistance) {
  const json air = Json("materials --search AIR");  // Latin letters in any case
  ASSERT_EQ(air.size(), 1u);
  EXPECT_EQ(air[0]["name"], "Air space");
  EXPECT_NEAR(air[0]["thermal_resistance_m2k_w"].get<double>(), kAirR, 1e-12);
  for (const char* key : {"density_kg_m3", "conductivity_w_mk", "specific_heat_kj_kgk", "s24_w_m2k"})
    EXPECT_TRUE(air[0][key].is_null()) << key;
  ToolRun text = Run("materials --search air");
  ASSERT_EQ(text.status, 0) << text.err;
  EXPECT_NE(text.out.find("0.150"), std::string::npos) << text.out;
}

TEST_F(QkdbReadCommands, MaterialsOfATypeAndBySearch) {
  const json plaster = Json("materials --type 抹灰");
  ASSERT_EQ(plaster.size(), 2u);
  EXPECT_EQ(plaster[0]["name"], "石灰砂浆");
  EXPECT_EQ(Json("materials --search 砖").size(), 1u);
  EXPECT_EQ(Json("materials --type 抹灰 --search 砖").size(), 0u);
  ToolRun none = Run("materials --search 聚苯");
  ASSERT_EQ(none.status, 0) << none.err;
  EXPECT_EQ(none.out, "no construction matches\n");
  ToolRun table = Run("materials --type 砖");
  ASSERT_EQ(table.status, 0) << table.err;
  const std::vector<std::string> lines = Lines(table.out);
  ASSERT_EQ(lines.size(), 2u) << table.out;
  EXPECT_NE(lines[0].find("S24 W/(m²·K)"), std::string::npos) << lines[0];
  EXPECT_NE(lines[1].find("黏土砖"), std::string::npos) << lines[1];
  char s24[32];
  std::snprintf(s24, sizeof s24, "%.2f", std::sqrt(2.0 * std::numbers::pi * kBrickLambda * 1.05 * 1800.0 / 86.4));
  EXPECT_NE(lines[1].find(s24), std::string::npos) << lines[1];
}

TEST_F(QkdbReadCommands, MaterialsOfAnUnknownTypeIsRefused) { ExpectRefused(Run("materials --type 玻璃"), 1); }

// --- rooms -----------------------------------------------------------------------------------------

TEST_F(QkdbReadCommands, RoomsShowsTheLabourIntensityByItsIdAndNameAndHumidityInPercent) {
  const json office = Json("rooms 办公室");
  EXPECT_EQ(office["LaoDongQD"], 2);
  EXPECT_EQ(office["LaoDongQDName"], "轻度劳动");  // 2 is the third of 静坐, 极轻劳动, 轻度劳动, 中等劳动, 重度劳动
  EXPECT_EQ(office["DongJiSNSJXDSD"], 55.0);      // stored in percent, held as a fraction, shown in percent
  EXPECT_EQ(office["ZhaoMingBZ"], 9.0);
  EXPECT_TRUE(office["DongJiSNSJWD"].is_null());  // not the value class's default of 20 °C
  ToolRun text = Run("rooms 办公室");
  ASSERT_EQ(text.status, 0) << text.err;
  EXPECT_NE(text.out.find("2 (轻度劳动)"), std::string::npos) << text.out;
  EXPECT_NE(text.out.find("55 %"), std::string::npos) << text.out;
}

TEST_F(QkdbReadCommands, ARoomUseWithoutParametersIsSaidSo) { ExpectRefused(Run("rooms 会议室"), 1); }

// A name is quoted in a message with JSON's escapes: one typed with a line break stays one line.
TEST_F(QkdbReadCommands, ANameWithALineBreakIsRefusedInOneLine) {
  for (const char* command : {"weather", "rooms", "materials --type", "walls --type", "rooms 办公室 --type"}) {
    ToolRun run = Run(std::string(command) + " \"$(printf 'a\\nb')\"");
    EXPECT_EQ(run.status, 1) << command;
    EXPECT_TRUE(IsOneLine(run.err)) << command << ": " << run.err;
    EXPECT_NE(run.err.find("\"a\\nb\""), std::string::npos) << command << ": " << run.err;
  }
}

TEST_F(QkdbReadCommands, WallsOfAnUnknownTypeIsRefused) {
  ToolRun run = Run("walls --type 玻璃幕墙");
  ExpectRefused(run, 1);
  EXPECT_EQ(run.err, "qkdb: no envelope type named \"玻璃幕墙\"\n");
}
