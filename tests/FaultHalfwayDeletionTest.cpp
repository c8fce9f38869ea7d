// The deletions that take several statements, each committed on its own, stopped part-way: a trigger
// makes one table refuse deletes (as a host's guard or a damaged table would), so the statements
// before it have taken effect and those from it on have not. Each test pins exactly which rows are
// gone and which remain, and what the caller is told.

#include <gtest/gtest.h>

#include <string>

#include "FaultDatabase.h"
#include "envelope/CQKBSDataAdmin.h"
#include "geography/CQKCountry.h"
#include "geography/CQKProvince.h"
#include "rooms/CQKRoomType.h"
#include "rooms/CQKRoomUse.h"
#include "rooms/CQKRoomUseDataAdmin.h"
#include "weather/CQKWeatherDataAdmin.h"

namespace {

class FaultHalfwayDeletion : public FaultFixture {
 protected:
  // Makes every delete from table fail, as the library's later statement meets it.
  void RefuseDeletes(const std::string& table) {
    Alter("CREATE TRIGGER Refuse" + table + " BEFORE DELETE ON " + table +
          " BEGIN SELECT RAISE(ABORT, 'refused'); END;");
  }
  std::string Count(const std::string& table, const std::string& where) {
    return QueryOne(path, "SELECT count(*) FROM " + table + " WHERE " + where);
  }
  std::string Shown() {
    std::string out;
    for (const auto& [text, style] : capture.shown) out += "[" + std::to_string(style) + "] " + text.ToUtf8() + ";";
    return out;
  }
};

TEST_F(FaultHalfwayDeletion, CityWeatherGoneWhenItsCityRowRefuses) {
  RefuseDeletes("City");
  CQKWeatherDataAdmin places;
  CString error;
  EXPECT_EQ(places.DeleteWeatherByCityID(2, error), 0);
  EXPECT_EQ(error.ToUtf8(), "删除表 \"City\" 时出错!");
  EXPECT_EQ(Count("Weather", "CId = 2"), "0");
  EXPECT_EQ(Count("City", "ID = 2"), "1");
  EXPECT_EQ(Shown(), "");
}

TEST_F(FaultHalfwayDeletion, CityKeptWholeWhenItsWeatherRefuses) {
  RefuseDeletes("Weather");
  CQKWeatherDataAdmin places;
  CString error;
  EXPECT_EQ(places.DeleteWeatherByCityID(2, error), 0);
  EXPECT_EQ(error.ToUtf8(), "删除表 \"Weather\" 时出错!");
  EXPECT_EQ(Count("Weather", "CId = 2"), "1");
  EXPECT_EQ(Count("City", "ID = 2"), "1");
}

TEST_F(FaultHalfwayDeletion, ProvinceCitiesGoneWhenItsProvinceRowRefuses) {
  RefuseDeletes("Province");
  CQKWeatherDataAdmin places;
  places.GetCityNodes(1, false);
  CQKCountry country;
  country.SetID(1);
  CQKProvince province;
  province.SetID(1);
  EXPECT_EQ(places.DeleteWeatherOfProvince(country, province), 0);
  EXPECT_EQ(Shown(), "[0] 删除表 \"Province\" 时出错!;");
  EXPECT_EQ(Count("City", "PId = 1"), "0");
  EXPECT_EQ(Count("Province", "ID = 1"), "1");
  EXPECT_EQ(Count("Weather", "1"), "2");
}

TEST_F(FaultHalfwayDeletion, ProvinceGoneAndItsCitiesKeptWhenTheCitiesRefuse) {
  RefuseDeletes("City");
  CQKWeatherDataAdmin places;
  places.GetCityNodes(1, false);
  CQKCountry country;
  country.SetID(1);
  CQKProvince province;
  province.SetID(1);
  EXPECT_EQ(places.DeleteWeatherOfProvince(country, province), 1);
  EXPECT_EQ(Shown(), "[16] 删除表 \"City\" 时出错!;[16] 删除表 \"City\" 时出错!;");
  EXPECT_EQ(Count("City", "PId = 1"), "2");
  EXPECT_EQ(Count("Province", "ID = 1"), "0");
}

TEST_F(FaultHalfwayDeletion, CodeGoneAndItsStructureKeptWhenTheStructuresRefuse) {
  RefuseDeletes("BoundingStructure");
  CQKBSDataAdmin envelope;
  CQKBSCode code;
  code.SetID(2);
  CString message;
  EXPECT_EQ(envelope.DeleteBSCode(code, message), 1);
  EXPECT_EQ(message.ToUtf8(), "删除表 \"BoundingStructure\" 时出错！");
  EXPECT_EQ(Count("BSCode", "ID = 2"), "0");
  EXPECT_EQ(Count("BoundingStructure", "BSCId = 2"), "1");
}

TEST_F(FaultHalfwayDeletion, TypeGoneAndItsCodesKeptWhenTheCodesRefuse) {
  RefuseDeletes("BSCode");
  CQKBSDataAdmin envelope;
  CQKBSType type;
  type.SetID(1);
  EXPECT_EQ(envelope.DeleteBSType(type), 1);
  EXPECT_EQ(Shown(), "[16] 删除表 \"BSCode\" 时出错！;[16] 删除表 \"BSCode\" 时出错！;");
  EXPECT_EQ(Count("BSType", "ID = 1"), "0");
  EXPECT_EQ(Count("BSCode", "BSTId = 1"), "2");
  EXPECT_EQ(Count("BoundingStructure", "1"), "2");
}

TEST_F(FaultHalfwayDeletion, TypeGoneSilentlyWhenItsCodesCannotBeListed) {
  Alter("DROP INDEX BSCodeTypeId; ALTER TABLE BSCode DROP COLUMN BSTId;");
  CQKBSDataAdmin envelope;
  CQKBSType type;
  type.SetID(1);
  EXPECT_EQ(envelope.DeleteBSType(type), 1);
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(Count("BSType", "ID = 1"), "0");
  EXPECT_EQ(Count("BSCode", "1"), "2");
}

TEST_F(FaultHalfwayDeletion, RoomUseParametersGoneWhenItsRowRefuses) {
  RefuseDeletes("RoomUse");
  CQKRoomUseDataAdmin rooms;
  CQKRoomUse use;
  use.SetID(2);
  EXPECT_EQ(rooms.DeleteRoomUse(use), 0);
  EXPECT_EQ(Shown(), "[16] 删除表 \"RoomUse\" 时出错!;");
  EXPECT_EQ(Count("RULoadParam", "ID = 2"), "0");
  EXPECT_EQ(Count("RoomUse", "ID = 2"), "1");
}

TEST_F(FaultHalfwayDeletion, RoomTypeGoneAndItsUsesKeptWhenTheUsesRefuse) {
  RefuseDeletes("RoomUse");
  CQKRoomUseDataAdmin rooms;
  rooms.GetRoomUseNodes(1);
  CQKRoomType type;
  type.SetID(1);
  type.Name = L"办公";
  EXPECT_EQ(rooms.DeleteRoomType(type), 1);
  EXPECT_EQ(Shown(), "[16] 删除表 \"RoomUse\" 时出错!;[16] 删除表 \"RoomUse\" 时出错!;");
  EXPECT_EQ(Count("RoomType", "ID = 1"), "0");
  EXPECT_EQ(Count("RoomUse", "RTId = 1"), "2");
  EXPECT_EQ(Count("RULoadParam", "1"), "0");
}

TEST_F(FaultHalfwayDeletion, RoomUsesGoneWhenTheTypeRowRefuses) {
  RefuseDeletes("RoomType");
  CQKRoomUseDataAdmin rooms;
  rooms.GetRoomUseNodes(1);
  CQKRoomType type;
  type.SetID(1);
  type.Name = L"办公";
  EXPECT_EQ(rooms.DeleteRoomType(type), 0);
  EXPECT_EQ(Shown(), "[16] 删除表 \"RoomType\" 时出错!;");
  EXPECT_EQ(Count("RoomUse", "RTId = 1"), "0");
  EXPECT_EQ(Count("RULoadParam", "1"), "0");
  EXPECT_EQ(Count("RoomType", "ID = 1"), "1");
}

}  // namespace
