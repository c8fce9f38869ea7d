#include "reference/rooms/RoomLoader.h"

#include <string>
#include <vector>

#include "text/CsvTable.h"
#include "reference/RowNulls.h"
#include "rooms/CQKRULoadParam.h"
#include "rooms/CQKRoomType.h"
#include "rooms/CQKRoomUse.h"

namespace qkdb {

namespace {

// Items no source gives for any room use: the noise level, the load indices (results of a load
// calculation, not inputs) and the labour intensity (no citable table ties the sources' W/person to
// its five names; docs/rooms.md).
const std::vector<std::string> kNeverGiven = {"ZaoYin",   "ZongLengZB", "ZongReZB",   "WeiHuLZB",   "RenYuanLZB", "XinFengLZB",
                                              "QiTaLZB",  "WeiHuRZB",   "RenYuanRZB", "XinFengRZB", "LaoDongQD"};

// The load parameters of one data row: each item from its column, or null when the column is empty.
class Parameters {
 public:
  Parameters(const CsvTable& table, std::size_t row) : m_table(table), m_row(row), m_null(kNeverGiven) {}

  void Take(const std::string& column, const std::string& item, double& field, double scale = 1.0) {
    if (m_table.Number(m_row, column, field))
      field *= scale;
    else
      m_null.push_back(item);
  }
  void Null(const std::string& item) { m_null.push_back(item); }
  const std::vector<std::string>& NullItems() const { return m_null; }

 private:
  const CsvTable& m_table;
  std::size_t m_row;
  std::vector<std::string> m_null;
};

class RoomWriter {
 public:
  explicit RoomWriter(CADODatabase& db) : m_db(db) {}

  long Type(const std::string& name, const std::string& where) {
    CQKRoomType type;
    type.Name = CString::FromUtf8(name);
    CheckWritten(type.AddIfNotExist(nullptr, 1) != QKLoad::DBS_ERROR, where);
    return type.GetID();
  }

  // Writes the room use and its parameters; its ID.
  long Use(long typeId, const std::string& name, CQKRULoadParam& load, const Parameters& given, const std::string& where) {
    CQKRoomUse use;
    use.RTId = typeId;
    use.Name = CString::FromUtf8(name);
    const QKLoad::DBStatusCode added = use.AddIfNotExist(nullptr, 0);
    if (added == QKLoad::DBS_EXIST)
      throw DataError(where + ": the room use \"" + name + "\" is already in its room type; names must be unique there");
    CheckWritten(added == QKLoad::DBS_ADDED, where);
    load.RUId = use.GetID();
    CheckWritten(load.AddOrUpdate(nullptr) == 0, where);
    // A room use's parameters are deleted by their row's own ID, which must therefore be the room use's.
    if (load.GetID() != use.GetID())
      throw DataError(where + ": the load parameters of \"" + name + "\" did not get the room use's ID");
    ClearColumns(m_db, "RULoadParam", load.GetID(), given.NullItems());
    return use.GetID();
  }

 private:
  CADODatabase& m_db;
};

void LoadBuildingTypes(const CsvTable& types, RoomWriter& writer, RoomUseIds& ids) {
  const std::string separator = "——";
  for (std::size_t r = 0; r < types.Size(); ++r) {
    const std::string& source = types.Field(r, "building_type_cn");
    const std::size_t split = source.find(separator);
    const std::string typeName = source.substr(0, split);
    const std::string useName = split == std::string::npos ? source : source.substr(split + separator.size());

    CQKRULoadParam load;
    Parameters given(types, r);
    given.Take("occupant_area_m2_per_person", "RenYuanMD", load.RenYuanMD);
    given.Take("lighting_power_density_w_m2", "ZhaoMingBZ", load.ZhaoMingBZ);
    given.Take("equipment_power_density_w_m2", "SheBeiBZ", load.SheBeiBZ);
    given.Take("heating_setpoint_c", "DongJiSNSJWD", load.DongJiSNSJWD);
    given.Take("cooling_setpoint_c", "XiaJiSNSJWD", load.XiaJiSNSJWD);
    given.Take("fresh_air_m3_h_person", "XinFengL", load.XinFengL);
    for (const char* item : {"DongJiSNSJXDSD", "XiaJiSNSJXDSD", "ShenTouL"}) given.Null(item);
    ids[{typeName, useName}] = writer.Use(writer.Type(typeName, types.Where(r)), useName, load, given, types.Where(r));
  }
}

void LoadJgjRooms(const CsvTable& rooms, RoomWriter& writer, RoomUseIds& ids) {
  for (std::size_t r = 0; r < rooms.Size(); ++r) {
    CQKRULoadParam load;
    Parameters given(rooms, r);
    given.Take("area_per_person_m2", "RenYuanMD", load.RenYuanMD);
    given.Take("lighting_w_m2", "ZhaoMingBZ", load.ZhaoMingBZ);
    given.Take("equipment_w_m2", "SheBeiBZ", load.SheBeiBZ);
    given.Take("fresh_air_m3_h_person", "XinFengL", load.XinFengL);
    given.Take("heating_setpoint_c", "DongJiSNSJWD", load.DongJiSNSJWD);
    given.Take("cooling_setpoint_c", "XiaJiSNSJWD", load.XiaJiSNSJWD);
    // The value holds a humidity as a fraction; the table stores percent.
    given.Take("winter_rh_pct", "DongJiSNSJXDSD", load.DongJiSNSJXDSD, 0.01);
    given.Take("summer_rh_pct", "XiaJiSNSJXDSD", load.XiaJiSNSJXDSD, 0.01);
    given.Take("infiltration_m3_s_per_m2_exterior", "ShenTouL", load.ShenTouL);
    const std::string& typeName = rooms.Field(r, "room_type");
    const std::string& useName = rooms.Field(r, "room_use");
    ids[{typeName, useName}] = writer.Use(writer.Type(typeName, rooms.Where(r)), useName, load, given, rooms.Where(r));
  }
}

}  // namespace

RoomUseIds LoadRooms(const std::filesystem::path& dataDir, CADODatabase& db) {
  RoomWriter writer(db);
  RoomUseIds ids;
  LoadBuildingTypes(CsvTable(dataDir / "room_types_gb55015.csv"), writer, ids);
  LoadJgjRooms(CsvTable(dataDir / "room_uses_jgjt449_2018.csv"), writer, ids);
  return ids;
}

}  // namespace qkdb
