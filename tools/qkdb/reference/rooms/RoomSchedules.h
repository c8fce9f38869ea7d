#pragma once
// The hourly schedules of the room uses (data/room_schedules.csv) into RoomUseSchedule, a table the
// library does not read: one row per room use, kind and day type (a data row names several day types
// that share one day's values), 24 hourly values, null where the data leaves a value out.

#include <filesystem>

#include "reference/rooms/RoomLoader.h"

namespace qkdb {

class SideRows;

// Written through rows, in the build's transaction. Throws DataError for a row naming a room use that
// was not written, a kind, unit or value that cannot be used, or a row that cannot be written.
void LoadRoomSchedules(const std::filesystem::path& dataDir, SideRows& rows, const RoomUseIds& roomUses);

}  // namespace qkdb
