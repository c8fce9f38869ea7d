#include "reference/rooms/RoomSchedules.h"

#include <set>
#include <sstream>
#include <string>

#include "text/CsvTable.h"
#include "reference/SideRows.h"

namespace qkdb {

namespace {

const std::set<std::string> kKinds = {"occupancy",   "lighting",         "equipment",
                                      "ventilation", "heating_setpoint", "cooling_setpoint"};
const std::set<std::string> kDayTypes = {"monday", "tuesday",  "wednesday", "thursday",          "friday",
                                         "saturday", "sunday", "holiday",   "summer_design_day", "winter_design_day"};

// Whether value is possible in unit: a fraction lies in [0, 1], an on/off value is 0 or 1, a set-point
// lies within the sources' -50 °C (not heated) and 50 °C (not cooled).
bool Plausible(const std::string& unit, double value) {
  if (unit == "fraction") return value >= 0.0 && value <= 1.0;
  if (unit == "on_off") return value == 0.0 || value == 1.0;
  if (unit == "degC") return value >= -50.0 && value <= 50.0;
  return false;
}

std::string Hour(int h) { return (h < 10 ? "h0" : "h") + std::to_string(h); }

}  // namespace

void LoadRoomSchedules(const std::filesystem::path& dataDir, SideRows& rows, const RoomUseIds& roomUses) {
  const CsvTable schedules(dataDir / "room_schedules.csv");
  for (std::size_t r = 0; r < schedules.Size(); ++r) {
    const std::string where = schedules.Where(r);
    auto use = roomUses.find({schedules.Field(r, "room_type"), schedules.Field(r, "room_use")});
    if (use == roomUses.end())
      throw DataError(where + ": no room use \"" + schedules.Field(r, "room_use") + "\" in the room type \"" +
                      schedules.Field(r, "room_type") + "\"");
    const std::string& kind = schedules.Field(r, "kind");
    const std::string& unit = schedules.Field(r, "unit");
    if (!kKinds.count(kind)) throw DataError(where + ": unknown kind of schedule \"" + kind + "\"");

    // The columns in the table's order; the day type (index 2) is filled in per day below.
    SideRows::Row row = {{"RUId", static_cast<long long>(use->second)}, {"Kind", kind}, {"DayType", {}}, {"Unit", unit}};
    for (int h = 1; h <= 24; ++h) {
      double value = 0.0;
      const std::string column = "H" + Hour(h).substr(1);
      if (!schedules.Number(r, Hour(h), value)) {
        row.emplace_back(column, SideRows::Value());  // left out: null
        continue;
      }
      if (!Plausible(unit, value))
        throw DataError(where + ": " + Hour(h) + " = " + schedules.Field(r, Hour(h)) + " is no value in " +
                        (unit.empty() ? "an empty unit" : unit));
      row.emplace_back(column, value);
    }
    row.emplace_back("Source", schedules.Field(r, "source"));
    row.emplace_back("Note", schedules.Field(r, "note"));

    std::istringstream days(schedules.Field(r, "day_types"));
    int written = 0;
    for (std::string day; days >> day; ++written) {
      if (!kDayTypes.count(day)) throw DataError(where + ": unknown day type \"" + day + "\"");
      row[2].second = day;
      rows.Insert("RoomUseSchedule", row, "write " + where);
    }
    if (written == 0) throw DataError(where + ": a schedule for no day type");
  }
}

}  // namespace qkdb
