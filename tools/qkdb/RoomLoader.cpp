#include "RoomLoader.h"

#include <string>
#include <vector>

#include "CsvTable.h"
#include "RowNulls.h"
#include "rooms/CQKRULoadParam.h"
#include "rooms/CQKRoomType.h"
#include "rooms/CQKRoomUse.h"

namespace qkdb {

namespace {

const std::vector<std::string> kNotGiven = {
    "DongJiSNSJWD", "DongJiSNSJXDSD", "XiaJiSNSJWD", "XiaJiSNSJXDSD", "XinFengL",   "ZaoYin",
    "ZongLengZB",   "ZongReZB",       "WeiHuLZB",    "RenYuanLZB",    "XinFengLZB", "QiTaLZB",
    "WeiHuRZB",     "RenYuanRZB",     "XinFengRZB",  "LaoDongQD",     "ShenTouL"};

}  // namespace

void LoadRooms(const std::filesystem::path& dataDir, CADODatabase& db) {
  const CsvTable types(dataDir / "room_types_gb55015.csv");
  const std::string separator = "——";
  for (std::size_t r = 0; r < types.Size(); ++r) {
    const std::string& source = types.Field(r, "building_type_cn");
    const std::size_t split = source.find(separator);
    const std::string typeName = source.substr(0, split);
    const std::string useName = split == std::string::npos ? source : source.substr(split + separator.size());

    CQKRoomType type;
    type.Name = CString::FromUtf8(typeName);
    CheckWritten(type.AddIfNotExist(nullptr, 1) != QKLoad::DBS_ERROR, types.Where(r));
    CQKRoomUse use;
    use.RTId = type.GetID();
    use.Name = CString::FromUtf8(useName);
    CheckWritten(use.AddIfNotExist(nullptr, 1) != QKLoad::DBS_ERROR, types.Where(r));

    CQKRULoadParam load;
    load.RUId = use.GetID();
    std::vector<std::string> null = kNotGiven;
    if (!types.Number(r, "occupant_area_m2_per_person", load.RenYuanMD)) null.push_back("RenYuanMD");
    if (!types.Number(r, "lighting_power_density_w_m2", load.ZhaoMingBZ)) null.push_back("ZhaoMingBZ");
    if (!types.Number(r, "equipment_power_density_w_m2", load.SheBeiBZ)) null.push_back("SheBeiBZ");
    CheckWritten(load.AddOrUpdate(nullptr) != 1, types.Where(r));
    ClearColumns(db, "RULoadParam", load.GetID(), null);
  }
}

}  // namespace qkdb
