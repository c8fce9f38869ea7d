// "qkdb export": the weather, constructions, walls and rooms of the database "qkdb init" builds,
// as CSV and JSON, checked against the tables and against the commands that read them.

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <numbers>
#include <string>
#include <vector>

#include "BuiltDatabaseFixture.h"
#include "text/CsvTable.h"

namespace {

using nlohmann::json;
namespace fs = std::filesystem;

std::vector<std::vector<std::string>> Csv(const std::string& text) {
  std::vector<std::size_t> lines;
  return qkdb::CsvTable::Records(text, "export.csv", lines);
}

std::size_t Column(const std::vector<std::string>& header, const std::string& cell) {
  for (std::size_t i = 0; i < header.size(); ++i)
    if (header[i] == cell) return i;
  ADD_FAILURE() << "no column " << cell;
  return 0;
}

class QkdbExport : public BuiltDatabaseFixture {
 protected:
  static json Json(const std::string& kind) {
    const ToolRun run = Run("export " + kind + " --format json");
    EXPECT_EQ(run.status, 0) << run.err;
    return json::parse(run.out);
  }
};

TEST_F(QkdbExport, WeatherHasOneRowPerWeatherRowWithUnitsInTheHeaderAndDegreesBesideRadians) {
  const ToolRun run = Run("export weather");
  ASSERT_EQ(run.status, 0) << run.err;
  const auto rows = Csv(run.out);
  ASSERT_FALSE(rows.empty());
  EXPECT_EQ(std::to_string(rows.size() - 1), Query("SELECT COUNT(*) FROM Weather"));
  const auto& header = rows[0];
  const std::size_t wd = Column(header, "WD (纬度 / latitude, rad)");
  const std::size_t deg = Column(header, "WD_deg (纬度 / latitude, °)");
  EXPECT_EQ(deg, wd + 1);
  Column(header, "DjDqy (冬季大气压力 / winter atmospheric pressure, hPa)");
  Column(header, "City.Name (城市 / city)");
  for (std::size_t r = 1; r < rows.size(); ++r) {
    if (rows[r][wd].empty()) {
      EXPECT_TRUE(rows[r][deg].empty());
      continue;
    }
    EXPECT_NEAR(std::stod(rows[r][deg]), std::stod(rows[r][wd]) * 180.0 / std::numbers::pi, 1e-6) << r;
  }
}

TEST_F(QkdbExport, WeatherItemsAreWhatTheWeatherCommandAnswersNullsIncluded) {
  const json rows = Json("weather")["rows"];
  const ToolRun weather = Run("weather 郑州 --json");
  ASSERT_EQ(weather.status, 0) << weather.err;
  const json answer = json::parse(weather.out);
  const json* zhengzhou = nullptr;
  for (const json& row : rows)
    if (row["City.Name"] == "郑州") zhengzhou = &row;
  ASSERT_NE(zhengzhou, nullptr);
  std::size_t compared = 0, nulls = 0;
  for (const auto& [item, value] : zhengzhou->items()) {
    if (!answer.contains(item)) continue;
    EXPECT_EQ(value, answer[item]) << item;
    ++compared;
    nulls += value.is_null();
  }
  EXPECT_GT(compared, 60u);
  EXPECT_EQ((*zhengzhou)["Province.Name"], answer["ProvinceName"]);
}

TEST_F(QkdbExport, ConstructionsAreEveryConstructionWithItsStoredValues) {
  const json table = Json("constructions");
  EXPECT_EQ(table["kind"], "constructions");
  std::size_t named = 0;
  for (const json& row : table["rows"]) {
    if (row["Name"] == "") continue;
    ++named;
    if (named % 50 != 1) continue;  // a sample, each checked against the table by name
    const std::string name = row["Name"];
    EXPECT_EQ(std::stod(Query("SELECT GMD FROM Timbering WHERE Name = '" + name + "'")), row["GMD"].get<double>()) << name;
    EXPECT_EQ(Query("SELECT t.Name FROM Timbering m JOIN TimberingType t ON t.ID = m.TTId WHERE m.Name = '" + name + "'"),
              row["TimberingType.Name"].get<std::string>());
  }
  EXPECT_EQ(std::to_string(named), Query("SELECT COUNT(*) FROM Timbering"));
  EXPECT_EQ(table["columns"][2]["item"], "GMD");
  EXPECT_EQ(table["columns"][2]["unit"], "kg/m³");
}

TEST_F(QkdbExport, WallsListEveryCodesLayersOutsideFirstByConstructionName) {
  const ToolRun run = Run("export walls");
  ASSERT_EQ(run.status, 0) << run.err;
  const auto rows = Csv(run.out);
  const std::size_t code = Column(rows[0], "BSCode.Name (围护结构编号 / envelope code)");
  const std::size_t layer = Column(rows[0], "Layer (层 / layer, 1 the outermost)");
  const std::size_t construction = Column(rows[0], "TIdS (构造 / the layer's construction, by name)");
  const std::size_t thickness = Column(rows[0], "HouDuS (厚度 / thickness, mm)");
  std::size_t layers = 0;
  std::string checked;
  for (std::size_t r = 1; r < rows.size(); ++r) {
    if (rows[r][layer] != "1" || !checked.empty()) {
      layers += !rows[r][layer].empty();
      continue;
    }
    ++layers;
    checked = rows[r][code];
    // The first layer of the first code, as its bounding structure lists it.
    const std::string id = Query("SELECT substr(TIdS, 1, instr(TIdS || ',', ',') - 1) FROM BoundingStructure b JOIN "
                                 "BSCode c ON c.ID = b.BSCId WHERE c.Name = '" + checked + "'");
    EXPECT_EQ(rows[r][construction], Query("SELECT Name FROM Timbering WHERE ID = " + id));
    EXPECT_EQ(std::stod(rows[r][thickness]),
              std::stod(Query("SELECT substr(HouDuS, 1, instr(HouDuS || ',', ',') - 1) FROM BoundingStructure b JOIN "
                              "BSCode c ON c.ID = b.BSCId WHERE c.Name = '" + checked + "'")));
  }
  EXPECT_FALSE(checked.empty());
  EXPECT_EQ(std::to_string(layers),
            Query("SELECT SUM(length(TIdS) - length(replace(TIdS, ',', '')) + 1) FROM BoundingStructure WHERE TIdS <> ''"));
}

TEST_F(QkdbExport, RoomParametersTheTableLeavesNullAreEmptyAndNullNeverDefaults) {
  const ToolRun csv = Run("export rooms");
  ASSERT_EQ(csv.status, 0) << csv.err;
  const auto rows = Csv(csv.out);
  const std::size_t humidity = Column(rows[0], "DongJiSNSJXDSD (冬季室内设计相对湿度 / winter indoor design relative humidity, %)");
  const std::size_t labour = Column(rows[0], "LaoDongQD (劳动强度 / labour intensity, id 0 静坐 … 4 重度劳动)");
  const std::string nullHumidities = Query("SELECT COUNT(*) FROM RULoadParam WHERE DongJiSNSJXDSD IS NULL");
  std::size_t empty = 0;
  for (std::size_t r = 1; r < rows.size(); ++r) {
    empty += rows[r][humidity].empty();
    EXPECT_TRUE(rows[r][labour].empty()) << "the shipped data gives no labour intensity";
  }
  EXPECT_EQ(std::to_string(empty), nullHumidities);
  EXPECT_NE(nullHumidities, "0");
  std::size_t nulls = 0;
  const json rooms = Json("rooms");
  for (const json& row : rooms["rows"]) nulls += row["DongJiSNSJXDSD"].is_null();
  EXPECT_EQ(nulls, empty);
}

TEST_F(QkdbExport, OutputFileHoldsWhatStandardOutputGetsAndAFailedOneLeavesNothing) {
  TempDir dir;
  const std::string file = (dir.path() / "rooms.json").string();
  const ToolRun written = Run("export rooms --format json -o '" + file + "'");
  ASSERT_EQ(written.status, 0) << written.err;
  EXPECT_TRUE(written.out.empty());
  EXPECT_EQ(Slurp(file), Run("export rooms --format json").out);

  const std::string nowhere = (dir.path() / "missing" / "rooms.csv").string();
  const ToolRun failed = Run("export rooms -o '" + nowhere + "'");
  EXPECT_EQ(failed.status, 1);
  EXPECT_TRUE(IsOneLine(failed.err)) << failed.err;
  EXPECT_EQ(failed.err.rfind("qkdb export: ", 0), 0u) << failed.err;
  EXPECT_FALSE(fs::exists(dir.path() / "missing"));
  std::size_t files = 0;
  for ([[maybe_unused]] const auto& entry : fs::directory_iterator(dir.path())) ++files;
  EXPECT_EQ(files, 1u) << "a temporary file was left";
}

TEST_F(QkdbExport, UnknownKindOrFormatIsRefused) {
  EXPECT_EQ(Run("export rooms --format xml").status, 2);
  EXPECT_EQ(Run("export cities").status, 2);
}

}  // namespace
