// The room types, room uses, load parameters and hourly schedules "qkdb init" builds from data/, read
// back through the library and through "qkdb rooms", and compared with the data files row by row.

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cmath>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include "BuiltDatabaseFixture.h"
#include "DataCsv.h"
#include "rooms/CQKRULoadParam.h"
#include "rooms/CQKRoomType.h"
#include "rooms/CQKRoomUse.h"

namespace {

using nlohmann::json;
using Cell = std::optional<double>;

// Every row of sql on the SQLite file at path, each column a number or nothing for NULL.
std::vector<std::vector<Cell>> Numbers(const std::string& path, const std::string& sql) {
  sqlite3* db = nullptr;
  sqlite3_stmt* stmt = nullptr;
  std::vector<std::vector<Cell>> rows;
  if (sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READONLY, nullptr) == SQLITE_OK &&
      sqlite3_prepare_v2(db, sql.c_str(), -1, &stmt, nullptr) == SQLITE_OK) {
    while (sqlite3_step(stmt) == SQLITE_ROW) {
      std::vector<Cell> row;
      for (int c = 0; c < sqlite3_column_count(stmt); ++c)
        row.push_back(sqlite3_column_type(stmt, c) == SQLITE_NULL ? Cell() : Cell(sqlite3_column_double(stmt, c)));
      rows.push_back(std::move(row));
    }
  }
  EXPECT_NE(stmt, nullptr) << sql << ": " << (db ? sqlite3_errmsg(db) : "");
  sqlite3_finalize(stmt);
  sqlite3_close(db);
  return rows;
}

// The field as a number, nothing when it is empty.
Cell Field(const DataCsv& csv, std::size_t r, const std::string& column) {
  return csv(r, column).empty() ? Cell() : Cell(csv.Number(r, column));
}

std::string Shown(const Cell& c) { return c ? std::to_string(*c) : "NULL"; }

class QkdbRooms : public BuiltDatabaseFixture {
 protected:
  // The ID of the room use of that name in the room type of that name, found through the records.
  static long RoomUseId(const std::string& type, const std::string& use) {
    CQKRoomType t;
    t.Name = CString::FromUtf8(type);
    EXPECT_EQ(t.IsExist(nullptr), QKLoad::DBS_EXIST) << type;
    CQKRoomUse u;
    u.RTId = t.GetID();
    u.Name = CString::FromUtf8(use);
    EXPECT_EQ(u.IsExist(nullptr), QKLoad::DBS_EXIST) << type << " " << use;
    return u.GetID();
  }

  // The stored parameters of a room use, in the order of the columns asked for.
  static std::vector<Cell> Stored(long roomUse, const std::string& columns) {
    const auto rows = Numbers(s_path, "SELECT " + columns + " FROM RULoadParam WHERE RUId = " + std::to_string(roomUse));
    EXPECT_EQ(rows.size(), 1u) << roomUse;
    return rows.empty() ? std::vector<Cell>() : rows.front();
  }

};

constexpr const char* kJgjColumns = "RenYuanMD, ZhaoMingBZ, SheBeiBZ, XinFengL, DongJiSNSJWD, XiaJiSNSJWD, ShenTouL";
const char* const kJgjFields[] = {"area_per_person_m2",    "lighting_w_m2",     "equipment_w_m2",
                                  "fresh_air_m3_h_person", "heating_setpoint_c", "cooling_setpoint_c",
                                  "infiltration_m3_s_per_m2_exterior"};

TEST_F(QkdbRooms, EveryJgjRoomIsARoomUseWithTheParametersOfItsDataRow) {
  const DataCsv rooms("room_uses_jgjt449_2018.csv");
  ASSERT_EQ(rooms.Size(), 196u);
  for (std::size_t r = 0; r < rooms.Size(); ++r) {
    const std::string name = rooms(r, "room_type") + " " + rooms(r, "room_use");
    const std::vector<Cell> stored = Stored(RoomUseId(rooms(r, "room_type"), rooms(r, "room_use")), kJgjColumns);
    ASSERT_EQ(stored.size(), std::size(kJgjFields));
    for (std::size_t c = 0; c < stored.size(); ++c)
      EXPECT_EQ(stored[c], Field(rooms, r, kJgjFields[c])) << name << " " << kJgjFields[c] << ": " << Shown(stored[c]);
  }
}

TEST_F(QkdbRooms, TheBuildingTypesOfGb55015KeepTheirRoomUsesWithSetPointsAndFreshAir) {
  const DataCsv types("room_types_gb55015.csv");
  for (std::size_t r = 0; r < types.Size(); ++r) {
    const std::string source = types(r, "building_type_cn");
    const std::size_t split = source.find("——");
    const std::string type = source.substr(0, split);
    const std::string use = split == std::string::npos ? source : source.substr(split + std::string("——").size());
    const std::vector<Cell> stored =
        Stored(RoomUseId(type, use), "RenYuanMD, ZhaoMingBZ, SheBeiBZ, DongJiSNSJWD, XiaJiSNSJWD, XinFengL");
    const char* fields[] = {"occupant_area_m2_per_person", "lighting_power_density_w_m2", "equipment_power_density_w_m2",
                            "heating_setpoint_c",          "cooling_setpoint_c",          "fresh_air_m3_h_person"};
    for (std::size_t c = 0; c < std::size(fields); ++c)
      EXPECT_EQ(stored[c], Field(types, r, fields[c])) << source << " " << fields[c];
  }
}

TEST_F(QkdbRooms, WhatNoSourceGivesIsNull) {
  EXPECT_EQ(Query("SELECT COUNT(*) FROM RULoadParam WHERE DongJiSNSJXDSD IS NOT NULL OR XiaJiSNSJXDSD IS NOT NULL "
                  "OR ZaoYin IS NOT NULL OR ZongLengZB IS NOT NULL OR XinFengRZB IS NOT NULL OR LaoDongQD IS NOT NULL"),
            "0");
  // The rooms the source codes as without occupants (5000 m² per person) have no floor area per person.
  EXPECT_EQ(Stored(RoomUseId("办公建筑", "楼梯间（内区）"), "RenYuanMD").at(0), Cell());
}

TEST_F(QkdbRooms, EachRoomUseHasOneParameterRowUnderItsOwnId) {
  // The deletion of a room use removes the parameter row whose own ID is the room use's.
  const std::string uses = Query("SELECT COUNT(*) FROM RoomUse");
  EXPECT_EQ(uses, std::to_string(8 + 196));
  EXPECT_EQ(Query("SELECT COUNT(*) FROM RULoadParam p JOIN RoomUse u ON p.ID = u.ID AND p.RUId = u.ID"), uses);
  EXPECT_EQ(Query("SELECT COUNT(*) FROM RoomType"), "7");
  EXPECT_EQ(Query("SELECT COUNT(*) FROM (SELECT RTId, Name FROM RoomUse GROUP BY RTId, Name)"), uses);
}

TEST_F(QkdbRooms, TheLibraryReadsAGuestRoomsParameters) {
  CQKRULoadParam load;
  ASSERT_EQ(load.ReadDataByRUId(static_cast<int>(RoomUseId("旅馆建筑", "客房"))), 1);
  const DataCsv rooms("room_uses_jgjt449_2018.csv");
  std::size_t r = 0;
  while (rooms(r, "room_use") != "客房") ++r;
  EXPECT_EQ(load.RenYuanMD, rooms.Number(r, "area_per_person_m2"));
  EXPECT_EQ(load.ZhaoMingBZ, rooms.Number(r, "lighting_w_m2"));
  EXPECT_EQ(load.XinFengL, rooms.Number(r, "fresh_air_m3_h_person"));
  EXPECT_EQ(load.DongJiSNSJWD, rooms.Number(r, "heating_setpoint_c"));
  EXPECT_EQ(load.XiaJiSNSJWD, rooms.Number(r, "cooling_setpoint_c"));
}

// Every data row of the schedules, once for each of its day types, with its 24 values (null where the
// data leaves one out).
TEST_F(QkdbRooms, EveryScheduleRowIsStoredForEachOfItsDayTypes) {
  std::map<std::tuple<long, std::string, std::string>, std::vector<Cell>> stored;
  sqlite3* db = nullptr;
  sqlite3_stmt* stmt = nullptr;
  ASSERT_EQ(sqlite3_open_v2(s_path.c_str(), &db, SQLITE_OPEN_READONLY, nullptr), SQLITE_OK);
  std::string sql = "SELECT RUId, Kind, DayType";
  for (int h = 1; h <= 24; ++h) sql += (h < 10 ? ", H0" : ", H") + std::to_string(h);
  ASSERT_EQ(sqlite3_prepare_v2(db, (sql + " FROM RoomUseSchedule").c_str(), -1, &stmt, nullptr), SQLITE_OK);
  while (sqlite3_step(stmt) == SQLITE_ROW) {
    std::vector<Cell> hours;
    for (int c = 3; c < 27; ++c)
      hours.push_back(sqlite3_column_type(stmt, c) == SQLITE_NULL ? Cell() : Cell(sqlite3_column_double(stmt, c)));
    auto key = std::make_tuple(static_cast<long>(sqlite3_column_int64(stmt, 0)),
                               std::string(reinterpret_cast<const char*>(sqlite3_column_text(stmt, 1))),
                               std::string(reinterpret_cast<const char*>(sqlite3_column_text(stmt, 2))));
    EXPECT_TRUE(stored.emplace(key, std::move(hours)).second) << "a day type stored twice";
  }
  sqlite3_finalize(stmt);
  sqlite3_close(db);

  const DataCsv schedules("room_schedules.csv");
  std::map<std::pair<std::string, std::string>, long> ids;
  std::size_t expected = 0;
  for (std::size_t r = 0; r < schedules.Size(); ++r) {
    const auto use = std::make_pair(schedules(r, "room_type"), schedules(r, "room_use"));
    if (!ids.count(use)) ids[use] = RoomUseId(use.first, use.second);
    std::istringstream days(schedules(r, "day_types"));
    for (std::string day; days >> day; ++expected) {
      auto found = stored.find({ids[use], schedules(r, "kind"), day});
      ASSERT_NE(found, stored.end()) << use.first << " " << use.second << " " << schedules(r, "kind") << " " << day;
      for (int h = 1; h <= 24; ++h)
        EXPECT_EQ(found->second[static_cast<std::size_t>(h - 1)], Field(schedules, r, (h < 10 ? "h0" : "h") + std::to_string(h)))
            << use.second << " " << schedules(r, "kind") << " " << day << " hour " << h;
    }
  }
  EXPECT_EQ(stored.size(), expected);
}

// --- qkdb rooms ------------------------------------------------------------------------------------

TEST_F(QkdbRooms, RoomsListsEveryTypeWithItsUses) {
  ToolRun run = Run("rooms --json");
  ASSERT_EQ(run.status, 0) << run.err;
  const json list = json::parse(run.out);
  ASSERT_EQ(list.size(), 7u);
  std::size_t uses = 0;
  for (const json& type : list) uses += type["RoomUses"].size();
  EXPECT_EQ(uses, 204u);
  EXPECT_EQ(list[0]["RoomType"], "办公建筑");
  ToolRun text = Run("rooms --type 旅馆建筑");
  ASSERT_EQ(text.status, 0) << text.err;
  EXPECT_EQ(text.out.rfind("旅馆建筑 (30)\n  旅馆建筑\n", 0), 0u) << text.out;
}

TEST_F(QkdbRooms, RoomsGivesAGuestRoomsParametersAsTheSourceGivesThem) {
  ToolRun run = Run("rooms 客房 --json");
  ASSERT_EQ(run.status, 0) << run.err;
  const json room = json::parse(run.out);
  EXPECT_EQ(room["RoomType"], "旅馆建筑");
  EXPECT_EQ(room["RoomUse"], "客房");
  // JGJ/T 449-2018 Appendix C, hotel guest room: 0.0333 persons/m² (30 m² each), 7 W/m² lighting,
  // 15 W/m² equipment, 30 m³/(h·person) fresh air, 22 °C heating and 25 °C cooling set-points.
  EXPECT_EQ(room["RenYuanMD"], 30.0);
  EXPECT_EQ(room["ZhaoMingBZ"], 7.0);
  EXPECT_EQ(room["SheBeiBZ"], 15.0);
  EXPECT_EQ(room["XinFengL"], 30.0);
  EXPECT_EQ(room["DongJiSNSJWD"], 22.0);
  EXPECT_EQ(room["XiaJiSNSJWD"], 25.0);
  EXPECT_EQ(room["ShenTouL"], 0.0003);
  EXPECT_TRUE(room["DongJiSNSJXDSD"].is_null());
  EXPECT_TRUE(room["LaoDongQD"].is_null());
  EXPECT_TRUE(room["LaoDongQDName"].is_null());
  ToolRun text = Run("rooms 客房");
  ASSERT_EQ(text.status, 0) << text.err;
  EXPECT_NE(text.out.find("冬季室内设计温度 / winter indoor design temperature  22 °C"), std::string::npos) << text.out;
  EXPECT_NE(text.out.find("0.0003 m³/(s·m²)"), std::string::npos) << text.out;
  EXPECT_NE(text.out.find("冬季室内相对湿度 / winter indoor relative humidity   —"), std::string::npos) << text.out;
}

TEST_F(QkdbRooms, ANameOfSeveralTypesNeedsTheType) {
  // 楼梯间 is a room use of the hotel, the commercial and the school buildings.
  ToolRun several = Run("rooms 楼梯间");
  EXPECT_EQ(several.status, 1);
  EXPECT_EQ(several.err,
            "qkdb: \"楼梯间\" is a room use of several room types: 旅馆建筑, 商业建筑, 学校建筑; choose one with --type\n");
  ToolRun school = Run("rooms 楼梯间 --type 学校建筑 --json");
  ASSERT_EQ(school.status, 0) << school.err;
  EXPECT_EQ(json::parse(school.out)["RoomType"], "学校建筑");
  // Office rooms carry their zone: the plain name suggests both.
  ToolRun hotel = Run("rooms 会议室 --type 旅馆建筑 --json");
  ASSERT_EQ(hotel.status, 0) << hotel.err;
  EXPECT_EQ(json::parse(hotel.out)["RoomType"], "旅馆建筑");
  ToolRun office = Run("rooms 会议室 --type 办公建筑");
  EXPECT_EQ(office.status, 1);
  EXPECT_TRUE(IsOneLine(office.err)) << office.err;
  EXPECT_NE(office.err.find("did you mean 会议室（内区） (办公建筑), 会议室（外区） (办公建筑)?"), std::string::npos) << office.err;
}

TEST_F(QkdbRooms, AnUnknownNameSuggestsNearOnes) {
  ToolRun run = Run("rooms 客防");
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(run.out.empty()) << run.out;
  EXPECT_EQ(run.err, "qkdb: no room use named \"客防\"; did you mean 客房 (旅馆建筑)?\n");
  ToolRun type = Run("rooms --type 体育建筑");
  EXPECT_EQ(type.status, 1);
  EXPECT_TRUE(IsOneLine(type.err)) << type.err;
  EXPECT_EQ(Run("rooms --schedules").status, 2);
}

TEST_F(QkdbRooms, RoomsShowsTheHourlySchedulesOnRequest) {
  ToolRun run = Run("rooms 客房 --schedules --json");
  ASSERT_EQ(run.status, 0) << run.err;
  const json schedules = json::parse(run.out)["Schedules"];
  // Six kinds, ten day types each.
  ASSERT_EQ(schedules.size(), 60u);
  const DataCsv data("room_schedules.csv");
  std::size_t r = 0;
  while (!(data(r, "room_use") == "客房" && data(r, "kind") == "occupancy")) ++r;
  std::istringstream days(data(r, "day_types"));
  std::string day;
  days >> day;
  bool found = false;
  for (const json& s : schedules) {
    if (s["kind"] != "occupancy" || s["day_type"] != day) continue;
    found = true;
    EXPECT_EQ(s["unit"], "fraction");
    ASSERT_EQ(s["hours"].size(), 24u);
    for (int h = 0; h < 24; ++h)
      EXPECT_EQ(s["hours"][h].get<double>(), data.Number(r, (h < 9 ? "h0" : "h") + std::to_string(h + 1))) << h;
  }
  EXPECT_TRUE(found) << day;
  ToolRun text = Run("rooms 客房 --schedules");
  ASSERT_EQ(text.status, 0) << text.err;
  EXPECT_NE(text.out.find("occupancy"), std::string::npos) << text.out;
}

TEST(QkdbRoomsOldDatabase, ADatabaseWithoutSchedulesSaysSo) {
  TempDir dir;
  const std::string path = (dir.path() / "ref.db").string();
  ASSERT_EQ(Qkdb("init --db '" + path + "'").status, 0);
  sqlite3* db = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &db), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(db, "DROP TABLE RoomUseSchedule", nullptr, nullptr, nullptr), SQLITE_OK);
  sqlite3_close(db);
  ToolRun run = Qkdb("rooms 客房 --schedules --db '" + path + "'");
  ASSERT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find("This database keeps no hourly schedules."), std::string::npos) << run.out;
  ToolRun json = Qkdb("rooms 客房 --schedules --json --db '" + path + "'");
  ASSERT_EQ(json.status, 0) << json.err;
  EXPECT_TRUE(nlohmann::json::parse(json.out)["Schedules"].is_null());
}

}  // namespace
