#pragma once
// Room types and room uses with their load parameters (docs/rooms.md):
//   - the building types of GB 55015-2021 Appendix C (data/room_types_gb55015.csv): a source name
//     "医院建筑——门诊楼" is the room type 医院建筑 with the room use 门诊楼, a name without "——" a room type
//     with one use of the same name; floor area per person, lighting and equipment power density, and
//     the set-points and fresh air of the same tables as an hourly model encodes them;
//   - the rooms of JGJ/T 449-2018 Appendix C (data/room_uses_jgjt449_2018.csv) as room uses of those
//     types.
// A parameter no source gives is stored as null. Written through CQKRoomType, CQKRoomUse and
// CQKRULoadParam, bound to the database beforehand; each room use's parameter row gets the same ID as
// the room use, as the deletion of a room use expects.

#include <filesystem>
#include <map>
#include <string>
#include <utility>

class CADODatabase;

namespace qkdb {

// The IDs of the room uses written, by room type and room use name: for the hourly schedules.
using RoomUseIds = std::map<std::pair<std::string, std::string>, long>;

// Throws DataError for data that cannot be used, a room-use name that repeats within its type, or a row
// that cannot be written. db is a connection on the same database, for clearing the parameters not given.
RoomUseIds LoadRooms(const std::filesystem::path& dataDir, CADODatabase& db);

}  // namespace qkdb
