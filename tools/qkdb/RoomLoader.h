#pragma once
// Room types and room uses with the load parameters the building-type table of GB 55015-2021 gives:
// floor area per person (stored as RenYuanMD, m² per person), lighting power density (ZhaoMingBZ,
// W/m²) and equipment power density (SheBeiBZ, W/m²). A source name "医院建筑——门诊楼" is the room type
// 医院建筑 with the room use 门诊楼; a name without "——" is a room type with one use of the same name.
// Every other load parameter is stored as null: the data does not give it. Written through
// CQKRoomType, CQKRoomUse and CQKRULoadParam, bound to the database beforehand.

#include <filesystem>

class CADODatabase;

namespace qkdb {

// Throws DataError for data that cannot be used or a row that cannot be written. db is a connection
// on the same database, for clearing the parameters not given.
void LoadRooms(const std::filesystem::path& dataDir, CADODatabase& db);

}  // namespace qkdb
