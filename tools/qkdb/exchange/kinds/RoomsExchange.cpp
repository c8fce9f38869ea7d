#include "exchange/kinds/RoomsExchange.h"

#include <map>

#include "answers/RowItems.h"
#include "exchange/GroupIds.h"
#include "exchange/ImportValues.h"
#include "exchange/StoredRows.h"
#include "import/WriteTransaction.h"
#include "rooms/CQKRULoadParam.h"
#include "rooms/CQKRoomType.h"
#include "rooms/CQKRoomUse.h"
#include "text/Output.h"

namespace qkdb {

namespace {

using nlohmann::ordered_json;
using Type = ExchangeColumn::Type;

constexpr const char* kType = "RoomType.Name";
constexpr const char* kUse = "RoomUse.Name";
const char* const kHumidities[] = {"DongJiSNSJXDSD", "XiaJiSNSJXDSD"};

// The parameters, in the order of the table's columns.
std::vector<ExchangeColumn> Parameters() {
  return {
      {"DongJiSNSJWD", "冬季室内设计温度 / winter indoor design temperature", "°C", Type::Real},
      {"DongJiSNSJXDSD", "冬季室内设计相对湿度 / winter indoor design relative humidity", "%", Type::Real},
      {"XiaJiSNSJWD", "夏季室内设计温度 / summer indoor design temperature", "°C", Type::Real},
      {"XiaJiSNSJXDSD", "夏季室内设计相对湿度 / summer indoor design relative humidity", "%", Type::Real},
      {"RenYuanMD", "人均面积 / floor area per person", "m²/person", Type::Real},
      {"ZhaoMingBZ", "照明功率密度 / lighting power density", "W/m²", Type::Real},
      {"SheBeiBZ", "设备功率密度 / equipment power density", "W/m²", Type::Real},
      {"XinFengL", "人均新风量 / fresh air per person", "m³/(h·person)", Type::Real},
      {"ZaoYin", "噪声 / noise level", "dB(A)", Type::Integer},
      {"ZongLengZB", "总冷指标 / total cooling index", "W/m²", Type::Real},
      {"ZongReZB", "总热指标 / total heating index", "W/m²", Type::Real},
      {"WeiHuLZB", "围护结构冷指标 / envelope cooling index", "W/m²", Type::Real},
      {"RenYuanLZB", "人员冷指标 / occupant cooling index", "W/m²", Type::Real},
      {"XinFengLZB", "新风冷指标 / fresh-air cooling index", "W/m²", Type::Real},
      {"QiTaLZB", "其他冷指标 / other cooling index", "W/m²", Type::Real},
      {"WeiHuRZB", "围护结构热指标 / envelope heating index", "W/m²", Type::Real},
      {"RenYuanRZB", "人员热指标 / occupant heating index", "W/m²", Type::Real},
      {"XinFengRZB", "新风热指标 / fresh-air heating index", "W/m²", Type::Real},
      {"LaoDongQD", "劳动强度 / labour intensity, id 0 静坐 … 4 重度劳动", "", Type::Integer},
      {"ShenTouL", "渗透风量 / infiltration per m² of exterior surface", "m³/(s·m²)", Type::Real},
  };
}

// Sets the value's item from the file's number: the value holds humidities as fractions and the
// labour intensity through its id. Items the file leaves null keep the value's default here; the
// exact values, null included, are stored after the record's write.
void Fill(CQKRULoadParam& load, const ordered_json& row) {
  const auto take = [&row](const char* item, double& field, double scale = 1.0) {
    if (row[item].is_number()) field = row[item].get<double>() * scale;
  };
  take("DongJiSNSJWD", load.DongJiSNSJWD);
  take("DongJiSNSJXDSD", load.DongJiSNSJXDSD, 0.01);
  take("XiaJiSNSJWD", load.XiaJiSNSJWD);
  take("XiaJiSNSJXDSD", load.XiaJiSNSJXDSD, 0.01);
  take("RenYuanMD", load.RenYuanMD);
  take("ZhaoMingBZ", load.ZhaoMingBZ);
  take("SheBeiBZ", load.SheBeiBZ);
  take("XinFengL", load.XinFengL);
  take("ZongLengZB", load.ZongLengZB);
  take("ZongReZB", load.ZongReZB);
  take("WeiHuLZB", load.WeiHuLZB);
  take("RenYuanLZB", load.RenYuanLZB);
  take("XinFengLZB", load.XinFengLZB);
  take("QiTaLZB", load.QiTaLZB);
  take("WeiHuRZB", load.WeiHuRZB);
  take("RenYuanRZB", load.RenYuanRZB);
  take("XinFengRZB", load.XinFengRZB);
  take("ShenTouL", load.ShenTouL);
  if (row["ZaoYin"].is_number()) load.ZaoYin = row["ZaoYin"].get<int>();
  if (row["LaoDongQD"].is_number()) load.SetLDQDId(static_cast<QKLoad::EQKLdQdType>(row["LaoDongQD"].get<int>()));
}

class Importer {
 public:
  Importer(WriteTransaction& tx, ImportReport& report)
      : m_tx(tx), m_report(report), m_typeIds(tx, report, "room type") {}

  void Row(const ordered_json& row, const std::string& where) {
    const std::string typeName = row[kType].get<std::string>();
    const std::string useName = row[kUse].get<std::string>();
    if (const std::string problem = NameProblem(typeName, "room type"); !problem.empty())
      return m_report.Refused(where, problem);
    if (useName.empty()) {
      for (const ExchangeColumn& c : Parameters())
        if (!row[c.item].is_null()) return m_report.Refused(where, "load parameters without a room use");
      m_typeIds(typeName);
      return;
    }
    if (const std::string problem = NameProblem(useName, "room use"); !problem.empty())
      return m_report.Refused(where, problem);
    if (auto [first, fresh] = m_seen.emplace(NameKey(typeName) + L"\n" + NameKey(useName), where); !fresh)
      return m_report.Refused(where, "the room use " + Quoted(useName) + " of " + Quoted(typeName) +
                                         " is given twice (also " + first->second + ")");
    if (row["LaoDongQD"].is_number()) {
      const long long id = row["LaoDongQD"].get<long long>();
      CString labour;
      if (id < 0 || id > 4 || !CQKRULoadParam::LDQDId2Name(static_cast<QKLoad::EQKLdQdType>(id), labour))
        return m_report.Refused(where, "LaoDongQD must be a labour intensity id, 0 to 4");
    }

    CQKRoomUse use;
    use.RTId = m_typeIds(typeName);
    use.Name = CString::FromUtf8(useName);
    const std::string what = "room use " + Quoted(useName) + " (" + typeName + ")";
    const QKLoad::DBStatusCode found = use.IsExist(m_tx.Database());
    if (found == QKLoad::DBS_ERROR) throw DataError("cannot look up the " + what);
    if (found == QKLoad::DBS_NOTEXIST && use.AddIfNotExist(m_tx.Database(), 0) != QKLoad::DBS_ADDED)
      throw DataError("cannot add the " + what);

    const std::string changed = found == QKLoad::DBS_EXIST ? Changes(use.GetID(), row) : "";
    if (found == QKLoad::DBS_EXIST && changed.empty()) return m_report.Unchanged();
    CQKRULoadParam load;
    Fill(load, row);
    load.RUId = use.GetID();
    const int written = load.AddOrUpdate(m_tx.Database());
    if (written == 1) throw DataError("cannot write the load parameters of the " + what);
    // A room use's parameters are deleted by their row's own ID, which must therefore be the room use's.
    if (written == 0 && load.GetID() != use.GetID() && !load.UpdateID(use.GetID(), m_tx.Database()))
      return m_report.Refused(where, "the load parameters of the " + what + " cannot take the room use's ID " +
                                         std::to_string(use.GetID()) + ": another row holds it");
    tablekit::ColumnValues exact;
    for (const ExchangeColumn& c : Parameters()) exact.emplace_back(c.item, ColumnValue(row[c.item]));
    m_tx.UpdateRow("RULoadParam", load.GetID(), exact, "store the load parameters of the " + what);
    if (found == QKLoad::DBS_NOTEXIST)
      m_report.Added(what);
    else
      m_report.Updated(what + ": " + changed);
  }

 private:
  // The parameters whose stored value differs from the row's; "" when none does. A room use without
  // a parameter row has every parameter null.
  std::string Changes(long useId, const ordered_json& row) {
    std::string sql = "SELECT ID";
    for (const ExchangeColumn& c : Parameters()) sql += ", " + c.item;
    const auto stored =
        m_tx.Values(sql + " FROM RULoadParam WHERE RUId = " + std::to_string(useId) + " ORDER BY ID", "read load parameters");
    std::string changed;
    const auto& columns = Parameters();
    for (std::size_t i = 0; i < columns.size(); ++i) {
      const tablekit::FieldValue none;
      const tablekit::FieldValue& value = stored.rows.empty() ? none : stored.rows[0][i + 1];
      if (!SameValue(row[columns[i].item], value)) changed += (changed.empty() ? "" : ", ") + columns[i].item;
    }
    return changed;
  }

  WriteTransaction& m_tx;
  ImportReport& m_report;
  GroupIds<CQKRoomType> m_typeIds;  // the type IDs by name
  std::map<std::wstring, std::string> m_seen;
};

}  // namespace

std::vector<ExchangeColumn> RoomColumns() {
  std::vector<ExchangeColumn> columns = {{kType, "房间类型 / room type", "", Type::Text},
                                         {kUse, "房间功能 / room use", "", Type::Text}};
  for (ExchangeColumn& c : Parameters()) columns.push_back(std::move(c));
  return columns;
}

ExchangeTable ExportRooms() {
  ExchangeTable table("rooms", RoomColumns());
  CQKRoomType reader;
  for (const auto& type : StoredRows(reader, "select ID, Name from RoomType order by ID")) {
    const auto uses = StoredRows(reader, "select ID, Name from RoomUse where RTId = " + type[0] + " order by ID");
    if (uses.empty()) table.Add({{kType, type[1]}});
    for (const auto& use : uses) {
      ordered_json row = {{kType, type[1]}, {kUse, use[1]}};
      CQKRULoadParam load;
      ordered_json items;
      if (load.ReadDataByRUId(std::stoi(use[0]))) {
        if (!RowItems(load, load, items)) throw DataError("cannot read the load parameters of room use " + use[0]);
        // The value holds humidities as fractions: the percent it gives back may be a last bit off.
        for (const char* humidity : kHumidities)
          if (items[humidity].is_number()) items[humidity] = AsStored(items[humidity].get<double>());
        for (const ExchangeColumn& c : Parameters()) row[c.item] = items[c.item];
      }
      table.Add(row);
    }
  }
  return table;
}

void ImportRooms(WriteTransaction& tx, const ExchangeTable& table, ImportReport& report) {
  Importer importer(tx, report);
  for (std::size_t r = 0; r < table.Size(); ++r) importer.Row(table.Row(r), table.Where(r));
}

}  // namespace qkdb
