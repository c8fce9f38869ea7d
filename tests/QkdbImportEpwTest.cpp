// qkdb import-epw, run as a user runs it: on the CSWD file of Zhengzhou from the shared samples (skipped
// when absent) and on small EPW files written here, including malformed ones. The database is read
// back with SQLite and through the library.

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <sstream>
#include <string>
#include <vector>

#include "EpwText.h"
#include "GeographyFixture.h"
#include "QkdbRun.h"
#include "Samples.h"
#include "TestDatabase.h"
#include "geography/CQKCity.h"
#include "weather/CQKWeather.h"
#include "weather/CQKWeatherData.h"
#include "weather/CQKWeatherDataAdmin.h"

namespace fs = std::filesystem;

namespace {

constexpr double kDegree = std::numbers::pi / 180.0;
const fs::path kSampleEpw = SampleFile("CHN_Henan.Zhengzhou.570830_CSWD.epw");

// A small reference database: 中国 with 河南 (郑州 with the sample's weather file and some design
// items, 新乡 without a file of its own) and 北京 (北京 with a file of another station).
std::string SeedSql() {
  auto rad = [](double degrees) {
    std::ostringstream text;
    text.precision(17);
    text << degrees * kDegree;
    return text.str();
  };
  return "INSERT INTO Country (Name) VALUES ('中国');"
         "INSERT INTO Province (CId, Name) VALUES (1, '河南'), (1, '北京');"
         "INSERT INTO City (PId, Name) VALUES (1, '郑州'), (1, '新乡'), (2, '北京');"
         "INSERT INTO Weather (CId, JD, WD, DjDqy, ZlYPjXdSd, XjKtSwGqWd, Elevation, EpwName) VALUES (1, " +
         rad(113.65) + ", " + rad(34.7167) + ", 1013.3, 61, 34.9, 110.4, 'CHN_Henan.Zhengzhou.570830_CSWD.epw');"
         "INSERT INTO Weather (CId, JD, WD, XjKtSwGqWd) VALUES (2, " + rad(113.8833) + ", " + rad(35.3167) + ", 34.4);"
         "INSERT INTO Weather (CId, JD, WD, EpwName) VALUES (3, " + rad(116.47) + ", " + rad(39.8) +
         ", 'CHN_Beijing.Beijing.545110_CSWD.epw');";
}

class QkdbImportEpw : public testing::Test {
 protected:
  void SetUp() override {
    db = CreateReferenceDatabase(dir).ToUtf8();
    CreateDatabase(CString::FromUtf8(db), SeedSql());
  }
  void TearDown() override {
    ForgetClassTable<CQKCountry>();
    ForgetClassTable<CQKProvince>();
    ForgetClassTable<CQKCity>();
    ForgetClassTable<CQKWeather>();
  }

  // Writes an EPW file named name into the test's folder; returns its path.
  std::string Write(const std::string& name, const std::string& text) {
    const std::string path = (dir.path() / name).string();
    std::ofstream(path, std::ios::binary) << text;
    return path;
  }
  ToolRun Import(const std::string& file, const std::string& extra = "") {
    return Qkdb("import-epw '" + file + "' --db '" + db + "'" + extra);
  }
  std::string Query(const std::string& sql) const { return QueryOne(CString::FromUtf8(db), sql); }
  double Number(const std::string& sql) const { return std::stod(Query(sql)); }
  // The files in the test's folder other than the database and the EPW files: a temporary copy left
  // behind would show here.
  std::vector<std::string> Leftovers() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(dir.path())) {
      const std::string name = entry.path().filename().string();
      if (name != "reference.db" && entry.path().extension() != ".epw") names.push_back(name);
    }
    return names;
  }
  // A refusal: nothing on standard output, one line naming the problem on standard error, the
  // database byte for byte as it was, and no temporary file left.
  void ExpectRefused(const ToolRun& run, int status, const std::string& message, const std::string& before) {
    EXPECT_EQ(run.status, status) << run.err;
    EXPECT_TRUE(run.out.empty()) << run.out;
    EXPECT_TRUE(IsOneLine(run.err)) << run.err;
    EXPECT_NE(run.err.find(message), std::string::npos) << run.err;
    EXPECT_TRUE(Slurp(db) == before) << "the database changed";
    EXPECT_TRUE(Leftovers().empty());
  }

  TempDir dir;
  std::string db;
};

TEST_F(QkdbImportEpw, SampleUpdatesZhengzhouWithItsLocationAndDesignDays) {
  QK_NEED_SAMPLE(kSampleEpw);
  ToolRun run = Import(kSampleEpw.string());
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find("郑州, 河南, 中国 (city ID 1)"), std::string::npos) << run.out;
  EXPECT_EQ(Query("SELECT COUNT(*) FROM Weather"), "3");  // updated, not added
  EXPECT_EQ(Query("SELECT EpwName FROM Weather WHERE CId = 1"), "CHN_Henan.Zhengzhou.570830_CSWD.epw");
  // The LOCATION line: 34.72° N, 113.65° E, UTC+8, 110.4 m; the table holds radians.
  EXPECT_DOUBLE_EQ(Number("SELECT printf('%.17g', WD) FROM Weather WHERE CId = 1"), 34.72 * kDegree);
  EXPECT_DOUBLE_EQ(Number("SELECT printf('%.17g', JD) FROM Weather WHERE CId = 1"), 113.65 * kDegree);
  EXPECT_EQ(Number("SELECT TimeZone FROM Weather WHERE CId = 1"), 8.0);
  EXPECT_EQ(Number("SELECT Elevation FROM Weather WHERE CId = 1"), 110.4);
  // Cooling 0.4 %: hottest month 7, range 7.8 K, 35.1 °C with 23.8 °C wet-bulb, 3.2 m/s from 180°.
  EXPECT_EQ(Query("SELECT SumMonth || '/' || SumDayOfMonth || ' ' || SumDayType || ' ' || SumHumIndType FROM Weather WHERE CId = 1"),
            "7/21 1 0");
  EXPECT_EQ(Number("SELECT SumMaxDryBulbTemp FROM Weather WHERE CId = 1"), 35.1);
  EXPECT_EQ(Number("SELECT SumDailyTempRange FROM Weather WHERE CId = 1"), 7.8);
  EXPECT_EQ(Number("SELECT SumHumMaxDryBulb FROM Weather WHERE CId = 1"), 23.8);
  EXPECT_EQ(Number("SELECT SumWindSpeed FROM Weather WHERE CId = 1"), 3.2);
  EXPECT_EQ(Number("SELECT SumWindDirection FROM Weather WHERE CId = 1"), 180.0);
  EXPECT_EQ(Number("SELECT SumSkyClearness FROM Weather WHERE CId = 1"), 1.0);
  // Heating 99.6 %: coldest month 1, -6.7 °C held all day, 1.2 m/s from 180°.
  EXPECT_EQ(Query("SELECT WinMonth || '/' || WinDayOfMonth || ' ' || WinDayType FROM Weather WHERE CId = 1"), "1/21 0");
  EXPECT_EQ(Number("SELECT WinMaxDryBulbTemp FROM Weather WHERE CId = 1"), -6.7);
  EXPECT_EQ(Number("SELECT WinDailyTempRange FROM Weather WHERE CId = 1"), 0.0);
  EXPECT_EQ(Number("SELECT WinHumMaxDryBulb FROM Weather WHERE CId = 1"), -6.7);
  EXPECT_EQ(Number("SELECT WinWindSpeed FROM Weather WHERE CId = 1"), 1.2);
  EXPECT_EQ(Number("SELECT WinWindDirection FROM Weather WHERE CId = 1"), 180.0);
  EXPECT_EQ(Number("SELECT WinSkyClearness FROM Weather WHERE CId = 1"), 0.0);
}

TEST_F(QkdbImportEpw, SampleKeepsTheItemsTheFileDoesNotGiveExactlyAndNullsNull) {
  QK_NEED_SAMPLE(kSampleEpw);
  ASSERT_EQ(Import(kSampleEpw.string()).status, 0);
  // Written through the record and back, 61 % would pass through 0.61 and come back 61.000000000000007.
  EXPECT_EQ(Query("SELECT DjDqy = 1013.3 AND ZlYPjXdSd = 61 AND XjKtSwGqWd = 34.9 FROM Weather WHERE CId = 1"), "1");
  EXPECT_EQ(Query("SELECT DistrictCode FROM Weather WHERE CId = 1"), "<null>");
  EXPECT_EQ(Query("SELECT XjDqy FROM Weather WHERE CId = 1"), "<null>");
  // The other rows are untouched.
  EXPECT_EQ(Query("SELECT EpwName IS NULL AND XjKtSwGqWd = 34.4 AND SumMonth IS NULL FROM Weather WHERE CId = 2"), "1");
}

TEST_F(QkdbImportEpw, SampleClimateReadsBackThroughTheLibrary) {
  QK_NEED_SAMPLE(kSampleEpw);
  ASSERT_EQ(Import(kSampleEpw.string()).status, 0);
  const CString path = CString::FromUtf8(db);
  CQKCountry::S_Init(path, L"Country");
  CQKProvince::S_Init(path, L"Province");
  CQKCity::S_Init(path, L"City");
  CQKWeather::S_Init(path, L"Weather");
  CQKWeather weather;
  weather.CId = 1;
  ASSERT_EQ(CQKWeatherDataAdmin::GetWeatherByCityId(weather), 0);  // 0: the city's own climate
  EXPECT_EQ(weather.EpwName, L"CHN_Henan.Zhengzhou.570830_CSWD.epw");
  EXPECT_DOUBLE_EQ(weather.WD, 34.72 * kDegree);
  EXPECT_EQ(weather.SumDesignDay.MaxDryBulbTemp, 35.1);
  EXPECT_EQ(weather.WinDesignDay.Month, 1);
  EXPECT_DOUBLE_EQ(weather.DjDqy, 101330.0);  // 1013.3 hPa in the table, Pa in memory
}

// The design day's pressure is the standard atmosphere's at the station's height. Checked against
// values printed elsewhere: the weather value's own default day, 100950 Pa for Beijing's 31.3 m, and
// ASHRAE Fundamentals' table of the standard atmosphere, 89.875 kPa at 1000 m, within 1 Pa: the table
// and the import both round to whole pascals.
TEST_F(QkdbImportEpw, DesignDayPressureIsTheStandardAtmosphereAtTheStationsElevation) {
  const CQKWeatherData defaults;
  ASSERT_EQ(Import(Write("a.epw", EpwText("LOCATION,Beijing,Beijing,CHN,CSWD,545110,39.80,116.47,8.0,31.3"))).status, 0);
  EXPECT_EQ(Number("SELECT SumBarPress FROM Weather WHERE CId = 3"), defaults.SumDesignDay.BarPress);
  EXPECT_EQ(Number("SELECT WinBarPress FROM Weather WHERE CId = 3"), defaults.WinDesignDay.BarPress);
  ASSERT_EQ(Import(Write("b.epw", EpwText("LOCATION,Hill,Nowhere,XXX,TEST,999991,10.0,10.0,1.0,1000"))).status, 0);
  EXPECT_NEAR(Number("SELECT SumBarPress FROM Weather WHERE EpwName = 'b.epw'"), 89875.0, 1.0);
}

TEST_F(QkdbImportEpw, LfAndCrlfFilesImportTheSameRow) {
  const std::string columns = "SELECT JD || WD || TimeZone || Elevation || SumMaxDryBulbTemp || WinWindSpeed FROM Weather WHERE CId = 1";
  ASSERT_EQ(Import(Write("CHN_Henan.Zhengzhou.570830_CSWD.epw", EpwText(kZhengzhouLocation))).status, 0);
  const std::string lf = Query(columns);
  CreateDatabase(CString::FromUtf8(db), "UPDATE Weather SET JD = 0, WD = 0, SumMaxDryBulbTemp = 0 WHERE CId = 1");
  ASSERT_EQ(Import(Write("CHN_Henan.Zhengzhou.570830_CSWD.epw", EpwText(kZhengzhouLocation, kDesignConditions, 8760, "\r\n"))).status, 0);
  EXPECT_EQ(Query(columns), lf);
  EXPECT_EQ(Number("SELECT SumMaxDryBulbTemp FROM Weather WHERE CId = 1"), 35.1);
}

TEST_F(QkdbImportEpw, AnotherFileOfTheSameStationIsRecognisedByItsWmoId) {
  ToolRun run = Import(Write("CHN_Henan.Zhengzhou.570830_IWEC.epw", EpwText(kZhengzhouLocation)));
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find("WMO station 570830"), std::string::npos) << run.out;
  EXPECT_EQ(Query("SELECT EpwName FROM Weather WHERE CId = 1"), "CHN_Henan.Zhengzhou.570830_IWEC.epw");
  EXPECT_EQ(Query("SELECT COUNT(*) FROM City"), "3");
}

TEST_F(QkdbImportEpw, AStationWithoutAFileIsRecognisedByItsPosition) {
  // 新乡 stands at 35.3167° N, 113.8833° E; the file says 35.32, 113.88.
  ToolRun run = Import(Write("CHN_Henan.Xinxiang.539860_CSWD.epw",
                             EpwText("LOCATION,Xinxiang,Henan,CHN,CSWD,539860,35.32,113.88,8.0,72.7")));
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find("新乡, 河南, 中国 (city ID 2), found by its position"), std::string::npos) << run.out;
  EXPECT_EQ(Query("SELECT EpwName FROM Weather WHERE CId = 2"), "CHN_Henan.Xinxiang.539860_CSWD.epw");
  EXPECT_EQ(Query("SELECT XjKtSwGqWd FROM Weather WHERE CId = 2"), "34.4");
}

// 新乡 names 郑州's file as the nearest it has (WeatherFileSource: not its own), and its weather row
// comes before 郑州's: the file still lands on 郑州, its own station, and 新乡's row stays as it was.
TEST_F(QkdbImportEpw, AFileANeighbourNamesAsItsNearestLandsOnItsOwnStationsCity) {
  const std::string file = "CHN_Henan.Zhengzhou.570830_CSWD.epw";
  CreateDatabase(CString::FromUtf8(db),
                 "UPDATE Weather SET EpwName = '" + file + "' WHERE CId = 2;"
                 "INSERT INTO Weather (CId, JD, WD, XjKtSwGqWd, EpwName) SELECT CId, JD, WD, XjKtSwGqWd, EpwName "
                 "FROM Weather WHERE CId = 1;"
                 "DELETE FROM Weather WHERE ID = 1;"
                 "INSERT INTO WeatherFileSource (CId, EpwName, WmoId, Station, Source, DistanceKm, Own) VALUES "
                 "(2, '" + file + "', '570830', '郑州', 'CSWD', 67.1, 0), (1, '" + file + "', '570830', '郑州', 'CSWD', 0, 1);");
  const std::string neighbour = "SELECT quote(JD) || quote(WD) || quote(XjKtSwGqWd) || quote(EpwName) || "
                                "quote(Elevation) || quote(SumMaxDryBulbTemp) FROM Weather WHERE CId = 2";
  const std::string before = Query(neighbour);
  ToolRun run = Import(kSampleEpw.string());
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find("郑州, 河南, 中国 (city ID 1)"), std::string::npos) << run.out;
  EXPECT_EQ(Query(neighbour), before);
  EXPECT_EQ(Query("SELECT SumMaxDryBulbTemp FROM Weather WHERE CId = 1"), "35.1");
  EXPECT_EQ(Query("SELECT COUNT(*) FROM City"), "3");
}

// A city whose file is a neighbour's is recognised by its position, and the imported file becomes its
// own, in WeatherFileSource too.
TEST_F(QkdbImportEpw, ACityWithANeighboursFileTakesAFileOfItsOwnStation) {
  CreateDatabase(CString::FromUtf8(db),
                 "UPDATE Weather SET EpwName = 'CHN_Henan.Zhengzhou.570830_CSWD.epw' WHERE CId = 2;"
                 "INSERT INTO WeatherFileSource (CId, EpwName, WmoId, Station, Source, DistanceKm, Own) VALUES "
                 "(2, 'CHN_Henan.Zhengzhou.570830_CSWD.epw', '570830', '郑州', 'CSWD', 67.1, 0);");
  ToolRun run = Import(Write("CHN_Henan.Xinxiang.539860_CSWD.epw",
                             EpwText("LOCATION,Xinxiang,Henan,CHN,CSWD,539860,35.32,113.88,8.0,72.7")));
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find("新乡, 河南, 中国 (city ID 2), found by its position"), std::string::npos) << run.out;
  EXPECT_EQ(Query("SELECT EpwName FROM Weather WHERE CId = 2"), "CHN_Henan.Xinxiang.539860_CSWD.epw");
  EXPECT_EQ(Query("SELECT EpwName || ' ' || WmoId || ' ' || Station || ' ' || Source || ' ' || Own "
                  "FROM WeatherFileSource WHERE CId = 2"),
            "CHN_Henan.Xinxiang.539860_CSWD.epw 539860 Xinxiang CSWD 1");
  EXPECT_EQ(Query("SELECT COUNT(*) FROM WeatherFileSource WHERE CId = 2"), "1");
}

TEST_F(QkdbImportEpw, AStationTooFarFromEveryRowIsAddedUnderItsOwnNames) {
  // 0.06° north of 新乡: beyond the 0.05° within which two rows are taken for one station.
  ToolRun run = Import(Write("x.epw", EpwText("LOCATION,Xi'an,Shaanxi,CHN,CSWD,570360,35.3767,113.8833,8.0,397.5")));
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find("city added, province added, country added"), std::string::npos) << run.out;
  EXPECT_EQ(Query("SELECT c.Name || '/' || p.Name || '/' || k.Name FROM City c JOIN Province p ON p.ID = c.PId "
                  "JOIN Country k ON k.ID = p.CId WHERE c.ID = 4"),
            "Xi'an/Shaanxi/CHN");
  EXPECT_EQ(Query("SELECT CId FROM Weather WHERE EpwName = 'x.epw'"), "4");
  // What the file does not give is stored as not given, not as Beijing's defaults.
  EXPECT_EQ(Query("SELECT DjDqy IS NULL AND DistrictCode IS NULL AND XjKtSwGqWd IS NULL FROM Weather WHERE CId = 4"), "1");
}

TEST_F(QkdbImportEpw, NamesFromTheCommandLineChooseTheCity) {
  ToolRun run = Import(Write("CHN_Henan.Zhengzhou.570830_CSWD.epw", EpwText(kZhengzhouLocation)),
                       " --city 新乡 --province 河南 --country 中国");
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find("city found, province found, country found"), std::string::npos) << run.out;
  EXPECT_EQ(Query("SELECT COUNT(*) FROM Weather WHERE EpwName = 'CHN_Henan.Zhengzhou.570830_CSWD.epw'"), "2");
  EXPECT_EQ(Query("SELECT SumMaxDryBulbTemp FROM Weather WHERE CId = 2"), "35.1");
}

TEST_F(QkdbImportEpw, FileWithoutDesignConditionsKeepsTheDesignDays) {
  CreateDatabase(CString::FromUtf8(db), "UPDATE Weather SET SumMaxDryBulbTemp = 33.3, WinMonth = 12 WHERE CId = 1");
  ToolRun run = Import(Write("z.epw", EpwText(kZhengzhouLocation, "DESIGN CONDITIONS,0")));
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find("no heating or cooling design conditions"), std::string::npos) << run.out;
  EXPECT_EQ(Query("SELECT SumMaxDryBulbTemp || ' ' || WinMonth || ' ' || EpwName FROM Weather WHERE CId = 1"), "33.3 12 z.epw");
}

TEST_F(QkdbImportEpw, HeatingConditionsAloneSetOnlyTheWinterDay) {
  CreateDatabase(CString::FromUtf8(db), "UPDATE Weather SET SumMaxDryBulbTemp = 33.3 WHERE CId = 1");
  const std::string heating = kDesignConditions.substr(0, kDesignConditions.find(",Cooling"));
  ASSERT_EQ(Import(Write("h.epw", EpwText(kZhengzhouLocation, heating))).status, 0);
  EXPECT_EQ(Query("SELECT SumMaxDryBulbTemp || ' ' || WinMaxDryBulbTemp FROM Weather WHERE CId = 1"), "33.3 -6.7");
}

TEST_F(QkdbImportEpw, TruncatedHeaderIsRefusedNamingTheMissingLine) {
  const std::string before = Slurp(db);
  std::string text = EpwText(kZhengzhouLocation);
  for (int i = 0; i < 3; ++i) text = text.substr(text.find('\n') + 1);  // keep the first three lines
  text = EpwText(kZhengzhouLocation).substr(0, EpwText(kZhengzhouLocation).size() - text.size());
  ExpectRefused(Import(Write("t.epw", text)), 2, "t.epw:4: the file ends before the GROUND TEMPERATURES line", before);
}

TEST_F(QkdbImportEpw, NonNumericLatitudeIsRefusedNamingTheLine) {
  const std::string before = Slurp(db);
  ExpectRefused(Import(Write("n.epw", EpwText("LOCATION,Zhengzhou,Henan,CHN,CSWD,570830,34.7x,113.65,8.0,110.4"))), 2,
                "n.epw:1: the latitude \"34.7x\" is not a number", before);
}

TEST_F(QkdbImportEpw, LatitudeOutOfRangeIsRefused) {
  const std::string before = Slurp(db);
  ExpectRefused(Import(Write("r.epw", EpwText("LOCATION,Zhengzhou,Henan,CHN,CSWD,570830,134.72,113.65,8.0,110.4"))), 2,
                "r.epw:1: the latitude 134.72 is outside -90 to 90", before);
}

TEST_F(QkdbImportEpw, MissingDesignConditionsLineIsRefused) {
  const std::string before = Slurp(db);
  std::string text = EpwText(kZhengzhouLocation);
  text.erase(text.find("DESIGN CONDITIONS"), kDesignConditions.size() + 1);
  ExpectRefused(Import(Write("d.epw", text)), 2, "d.epw:2: expected the DESIGN CONDITIONS line, found \"TYPICAL/EXTREME PERIODS\"",
                before);
}

TEST_F(QkdbImportEpw, DesignConditionsCutShortAreRefusedNamingTheValue) {
  const std::string before = Slurp(db);
  const std::string cut = kDesignConditions.substr(0, kDesignConditions.find(",3.2,180"));
  ExpectRefused(Import(Write("c.epw", EpwText(kZhengzhouLocation, cut))), 2,
                "c.epw:2: the line ends before the wind speed coincident with cooling 0.4 %", before);
}

TEST_F(QkdbImportEpw, DesignConditionsWithoutHeatingOrCoolingAreRefused) {
  const std::string before = Slurp(db);
  ExpectRefused(Import(Write("e.epw", EpwText(kZhengzhouLocation, "DESIGN CONDITIONS,1,Some Source,,Extremes,8.4"))), 2,
                "e.epw:2: the design conditions give neither Heating nor Cooling values", before);
}

TEST_F(QkdbImportEpw, MissingHourlyRecordsAreRefused) {
  const std::string before = Slurp(db);
  ExpectRefused(Import(Write("s.epw", EpwText(kZhengzhouLocation, kDesignConditions, 8000))), 2,
                "s.epw:8008: the file holds 8000 data records, its data periods hold 8760", before);
}

TEST_F(QkdbImportEpw, RecordCutMidLineIsRefused) {
  const std::string before = Slurp(db);
  std::string text = EpwText(kZhengzhouLocation);
  text.resize(text.size() - 40);
  ExpectRefused(Import(Write("m.epw", text)), 2, "m.epw:8768: a data record needs 35 fields", before);
}

TEST_F(QkdbImportEpw, LeapYearFileIsAccepted) {
  ASSERT_EQ(Import(Write("l.epw", EpwText(kZhengzhouLocation, kDesignConditions, 8784))).status, 0);
}

TEST_F(QkdbImportEpw, MissingEpwFileIsRefused) {
  const std::string before = Slurp(db);
  ExpectRefused(Import((dir.path() / "none.epw").string()), 2, "cannot read", before);
}

TEST_F(QkdbImportEpw, ADeviceIsRefusedBeforeReadingIt) {
  const std::string before = Slurp(db);
  ExpectRefused(Import("/dev/zero"), 2, "/dev/zero is not a regular file", before);
}

TEST_F(QkdbImportEpw, AFileLargerThanAnEpwFileCanBeIsRefused) {
  const std::string before = Slurp(db);
  const std::string big = (dir.path() / "big.epw").string();
  std::filesystem::resize_file(Write("big.epw", EpwText(kZhengzhouLocation)), 3 * 1024 * 1024 + 1);
  ExpectRefused(Import(big), 2, "is larger than 3 MiB (3145729 bytes)", before);
}

TEST_F(QkdbImportEpw, MissingDatabaseIsRefusedAndNotCreated) {
  const std::string file = Write("z.epw", EpwText(kZhengzhouLocation));
  ToolRun run = Qkdb("import-epw '" + file + "' --db '" + (dir.path() / "none.db").string() + "'");
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.err.find("no reference database at"), std::string::npos) << run.err;
  EXPECT_FALSE(fs::exists(dir.path() / "none.db"));
}

TEST_F(QkdbImportEpw, DatabaseWithoutTheReferenceTablesIsRefusedUnchanged) {
  CreateDatabase(dir.File("other.db"), "CREATE TABLE T (x)");
  const std::string other = (dir.path() / "other.db").string();
  const std::string before = Slurp(other);
  ToolRun run = Qkdb("import-epw '" + Write("z.epw", EpwText(kZhengzhouLocation)) + "' --db '" + other + "'");
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(IsOneLine(run.err)) << run.err;
  EXPECT_TRUE(Slurp(other) == before) << "the database changed";
}

TEST_F(QkdbImportEpw, NameWithADoubleQuoteIsRefused) {
  const std::string before = Slurp(db);
  ExpectRefused(Import(Write("q.epw", EpwText(kZhengzhouLocation)), " --city 'Zheng\"zhou'"), 1, "holds a double quote", before);
}

TEST_F(QkdbImportEpw, CityWithTwoWeatherRowsIsRefused) {
  CreateDatabase(CString::FromUtf8(db), "INSERT INTO Weather (CId, EpwName) VALUES (1, 'other.epw')");
  const std::string before = Slurp(db);
  ExpectRefused(Import(Write("CHN_Henan.Zhengzhou.570830_CSWD.epw", EpwText(kZhengzhouLocation))), 1,
                "several weather rows", before);
}

// The place is written before the weather row: when the weather row cannot be written, the city added
// just before must not stay behind.
TEST_F(QkdbImportEpw, FailedWeatherWriteLeavesNoNewCity) {
  CreateDatabase(CString::FromUtf8(db),
                 "CREATE TRIGGER NoNewWeather BEFORE INSERT ON Weather BEGIN SELECT RAISE(ABORT, 'refused'); END");
  const std::string before = Slurp(db);
  ExpectRefused(Import(Write("x.epw", EpwText("LOCATION,Far,Away,XXX,TEST,999992,-33.9,18.6,2.0,42"))), 1,
                "cannot add the weather row", before);
}

// The server's own message spans two lines; the tool says it in one.
TEST_F(QkdbImportEpw, AServerThatCannotBeReachedIsRefusedInOneLine) {
  ToolRun run = Qkdb("import-epw '" + Write("z.epw", EpwText(kZhengzhouLocation)) + "' --db postgresql://qk@127.0.0.1:1/x");
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(IsOneLine(run.err)) << run.err;
  EXPECT_NE(run.err.find("cannot open postgresql://qk@127.0.0.1:1/x"), std::string::npos) << run.err;
}

}  // namespace
