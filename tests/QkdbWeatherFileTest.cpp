// qkdb weather on a small database built here from the schema: where a city's hourly weather file
// comes from (WeatherFileSource), and the other names a city is found by (CityAlias).

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <numbers>
#include <string>

#include "QkdbRun.h"
#include "TestDatabase.h"

namespace {

using nlohmann::json;

// 郑州 with a file of its own station; 洛阳 with 郑州's file as the nearest one, and design values of
// its own; 福州 and 抚州 share an English name. Positions in radians, as the weather table holds them.
std::string SeedSql() {
  auto rad = [](double degrees) { return std::to_string(degrees * std::numbers::pi / 180.0); };
  const std::string zhengzhou = "'CHN_Henan.Zhengzhou.570830_CSWD.epw'";
  return "INSERT INTO Country (Name) VALUES ('中国');"
         "INSERT INTO Province (CId, Name) VALUES (1, '河南'), (1, '福建'), (1, '江西');"
         "INSERT INTO City (PId, Name) VALUES (1, '郑州'), (1, '洛阳'), (2, '福州'), (3, '抚州');"
         "INSERT INTO Weather (CId, JD, WD, DjCnSwGqWd, EpwName) VALUES (1, " + rad(113.65) + ", " + rad(34.72) +
         ", -3.8, " + zhengzhou + "), (2, " + rad(112.45) + ", " + rad(34.62) + ", -3.0, " + zhengzhou + ");"
         "INSERT INTO WeatherFileSource (CId, EpwName, WmoId, Station, Source, DistanceKm, Own) VALUES "
         "(1, " + zhengzhou + ", '570830', '郑州', 'CSWD', 0.3, 1), (2, " + zhengzhou + ", '570830', '郑州', 'CSWD', 110.2, 0);"
         "INSERT INTO CityAlias (CId, Alias, Kind, Source) VALUES (1, '郑州市', 'official name', 'test'), "
         "(1, 'Zhengzhou', 'English (Hanyu Pinyin)', 'test'), (2, '洛阳市', 'official name', 'test'), "
         "(3, 'Fuzhou', 'English (Hanyu Pinyin)', 'test'), (4, 'Fuzhou', 'English (Hanyu Pinyin)', 'test');";
}

class QkdbWeatherFile : public testing::Test {
 protected:
  void SetUp() override {
    db = CreateReferenceDatabase(dir).ToUtf8();
    CreateDatabase(CString::FromUtf8(db), SeedSql());
  }
  ToolRun Run(const std::string& args) { return Qkdb(args + " --db '" + db + "'"); }
  json Json(const std::string& args) {
    ToolRun run = Run(args + " --json");
    EXPECT_EQ(run.status, 0) << run.err;
    return run.status == 0 ? json::parse(run.out) : json();
  }
  void Seed(const std::string& sql) { CreateDatabase(CString::FromUtf8(db), sql); }
  void ExpectRefused(const ToolRun& run, const std::string& message) {
    EXPECT_EQ(run.status, 1) << run.err;
    EXPECT_TRUE(run.out.empty()) << run.out;
    EXPECT_TRUE(IsOneLine(run.err)) << run.err;
    EXPECT_NE(run.err.find(message), std::string::npos) << run.err;
  }

  TempDir dir;
  std::string db;
};

TEST_F(QkdbWeatherFile, AFileOfTheCitysOwnStationIsSaidToBeSo) {
  ToolRun run = Run("weather 郑州");
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find("Weather file: CHN_Henan.Zhengzhou.570830_CSWD.epw (CSWD, station 郑州): own station, 0.3 km away"),
            std::string::npos)
      << run.out;
  const json j = Json("weather 郑州");
  EXPECT_EQ(j["EpwOwn"], true);
  EXPECT_EQ(j["EpwStation"], "郑州");
  EXPECT_EQ(j["EpwDistanceKm"], 0.3);
}

TEST_F(QkdbWeatherFile, ANeighboursFileIsNamedWithItsDistanceAndTheDesignConditionsStayTheCitysOwn) {
  ToolRun run = Run("weather 洛阳");
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find("hourly weather file from 郑州, 110.2 km away; design conditions are 洛阳's own"),
            std::string::npos)
      << run.out;
  EXPECT_EQ(run.out.find("borrowed"), std::string::npos) << run.out;
  const json j = Json("weather 洛阳");
  EXPECT_EQ(j["CityName"], "洛阳");
  EXPECT_EQ(j["DjCnSwGqWd"], -3.0);
  EXPECT_EQ(j["EpwOwn"], false);
  EXPECT_EQ(j["EpwStation"], "郑州");
  EXPECT_EQ(j["EpwDistanceKm"], 110.2);
}

TEST_F(QkdbWeatherFile, ASourceRowOfAnotherFileIsNotShown) {
  Seed("UPDATE WeatherFileSource SET EpwName = 'CHN_Other.epw' WHERE CId = 1;");
  const json j = Json("weather 郑州");
  EXPECT_TRUE(j["EpwOwn"].is_null());
  EXPECT_TRUE(j["EpwStation"].is_null());
  EXPECT_TRUE(j["EpwDistanceKm"].is_null());
}

TEST_F(QkdbWeatherFile, ADatabaseWithoutTheNewTablesStillAnswersByTheStoredName) {
  Seed("DROP TABLE WeatherFileSource; DROP TABLE CityAlias;");
  const json j = Json("weather 郑州");
  EXPECT_EQ(j["DjCnSwGqWd"], -3.8);
  EXPECT_TRUE(j["EpwOwn"].is_null());
  ExpectRefused(Run("weather 郑州市"), "did you mean 郑州?");
}

TEST_F(QkdbWeatherFile, AnOtherNameFindsItsCityAndTheAnswerSaysSo) {
  ToolRun run = Run("weather 郑州市");
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find("郑州, 河南, 中国 (city ID 1), found by its other name 郑州市 (official name)"), std::string::npos)
      << run.out;
  EXPECT_EQ(Json("weather 郑州市")["DjCnSwGqWd"], -3.8);
}

TEST_F(QkdbWeatherFile, EnglishNamesIgnoreCase) {
  EXPECT_EQ(Json("weather zhengzhou")["CityName"], "郑州");
  EXPECT_EQ(Json("weather ZHENGZHOU")["CityName"], "郑州");
}

TEST_F(QkdbWeatherFile, TheStoredNameWinsOverAnAlias) {
  Seed("INSERT INTO CityAlias (CId, Alias, Kind, Source) VALUES (1, '洛阳', 'station', 'test');");
  EXPECT_EQ(Json("weather 洛阳")["CityName"], "洛阳");
}

TEST_F(QkdbWeatherFile, AnAliasOfTwoCitiesIsRefusedNamingBoth) {
  ExpectRefused(Run("weather Fuzhou"), "\"Fuzhou\" is another name of several cities: 福州 (Fuzhou), 抚州 (Fuzhou)");
}

TEST_F(QkdbWeatherFile, AnUnknownNameSuggestsTheNearestNames) {
  ExpectRefused(Run("weather 郑洲"), "no city named \"郑洲\" (did you mean 郑州?)");
  ExpectRefused(Run("weather 洛阳县"), "did you mean 洛阳, 洛阳 (洛阳市)?");
}

TEST_F(QkdbWeatherFile, ANameNothingIsNearIsRefusedWithoutSuggestions) {
  ToolRun run = Run("weather Atlantis");
  ExpectRefused(run, "no city named \"Atlantis\"");
  EXPECT_EQ(run.err.find("did you mean"), std::string::npos) << run.err;
}

TEST_F(QkdbWeatherFile, NamesWithQuotesAreRefusedInOneLine) {
  ExpectRefused(Run("weather '郑\"州'"), "no city named");
  ExpectRefused(Run("weather \"郑'州\""), "no city named");
}

}  // namespace
