#include "commands/RoomsCommand.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <nlohmann/json.hpp>
#include <vector>

#include "NearNames.h"
#include "Output.h"
#include "RowItems.h"
#include "rooms/CQKRULoadParam.h"
#include "rooms/CQKRoomUseDataAdmin.h"
#include "tablekit/CADORecordset.h"

namespace qkdb {

namespace {

using nlohmann::ordered_json;

struct RoomUse {
  std::string type;
  long id = 0;
  std::string name;
};

// The label "中文 / English" and unit of each load parameter, in the order of the named items.
struct Item {
  const char* name;
  const char* label;
  const char* unit;
};
const Item kItems[] = {
    {"DongJiSNSJWD", "冬季室内设计温度 / winter indoor design temperature", "°C"},
    {"DongJiSNSJXDSD", "冬季室内相对湿度 / winter indoor relative humidity", "%"},
    {"XiaJiSNSJWD", "夏季室内设计温度 / summer indoor design temperature", "°C"},
    {"XiaJiSNSJXDSD", "夏季室内相对湿度 / summer indoor relative humidity", "%"},
    {"RenYuanMD", "人均占有面积 / floor area per person", "m²/person"},
    {"ZhaoMingBZ", "照明功率密度 / lighting power density", "W/m²"},
    {"SheBeiBZ", "设备功率密度 / equipment power density", "W/m²"},
    {"XinFengL", "新风量 / fresh air per person", "m³/(h·person)"},
    {"ZaoYin", "噪声 / noise level", "dB(A)"},
    {"ZongLengZB", "总冷负荷指标 / total cooling load index", "W/m²"},
    {"ZongReZB", "总热负荷指标 / total heating load index", "W/m²"},
    {"WeiHuLZB", "围护结构冷负荷指标 / envelope cooling load index", "W/m²"},
    {"RenYuanLZB", "人员冷负荷指标 / occupant cooling load index", "W/m²"},
    {"XinFengLZB", "新风冷负荷指标 / fresh-air cooling load index", "W/m²"},
    {"QiTaLZB", "其他冷负荷指标 / other cooling load index", "W/m²"},
    {"WeiHuRZB", "围护结构热负荷指标 / envelope heating load index", "W/m²"},
    {"RenYuanRZB", "人员热负荷指标 / occupant heating load index", "W/m²"},
    {"XinFengRZB", "新风热负荷指标 / fresh-air heating load index", "W/m²"},
    {"LaoDongQD", "劳动强度 / labour intensity", ""},
    {"ShenTouL", "渗透风量 / infiltration", "m³/(s·m²) of exterior surface"},
};

std::vector<RoomUse> AllRoomUses(std::vector<std::string>& types) {
  CQKRoomUseDataAdmin admin;
  std::vector<RoomUse> uses;
  const CQKRoomUseDataAdmin::tagRoomUseNode* root = admin.GetRoomUseNodes(1);
  for (int t = 0; root && t < root->arrChild.GetSize(); ++t) {
    const auto* type = root->arrChild[t];
    types.push_back(type->strName.ToUtf8());
    for (int u = 0; u < type->arrChild.GetSize(); ++u)
      uses.push_back({types.back(), type->arrChild[u]->nId, type->arrChild[u]->strName.ToUtf8()});
  }
  return uses;
}

void PrintList(const std::vector<std::string>& types, const std::vector<RoomUse>& uses, bool json) {
  ordered_json out = ordered_json::array();
  for (const std::string& type : types) {
    ordered_json list = ordered_json::array();
    for (const RoomUse& u : uses)
      if (u.type == type) list.push_back({{"ID", u.id}, {"RoomUse", u.name}});
    if (json) {
      out.push_back({{"RoomType", type}, {"RoomUses", std::move(list)}});
    } else {
      std::cout << type << " (" << list.size() << ")\n";
      for (const auto& u : list) std::cout << "  " << u["RoomUse"].get<std::string>() << '\n';
    }
  }
  if (json) std::cout << out.dump(2) << '\n';
}

// The value of an item as text with its unit; "—" for null.
std::string Shown(const Item& item, const ordered_json& value, const std::string& labour) {
  if (value.is_null()) return "—";
  if (std::string(item.name) == "LaoDongQD")
    return std::to_string(value.get<int>()) + (labour.empty() ? "" : " (" + labour + ")");
  const std::string number = value.is_number_integer() ? std::to_string(value.get<long>()) : Number(AsStored(value.get<double>()));
  return *item.unit ? number + " " + item.unit : number;
}

// The hourly schedules of the room use: a table beside the room tables, which the library does not
// read; a database built before it has none, and the answer says so.
bool Schedules(CQKRULoadParam& load, long roomUse, ordered_json& out) {
  CString sql;
  sql.Format(L"select Kind, DayType, Unit, H01, H02, H03, H04, H05, H06, H07, H08, H09, H10, H11, H12, H13, H14, "
             L"H15, H16, H17, H18, H19, H20, H21, H22, H23, H24 from RoomUseSchedule where RUId=%ld order by ID",
             roomUse);
  CADORecordset rs;
  if (!load.ExecSql(sql, &rs, nullptr)) return false;
  out = ordered_json::array();
  for (; !rs.IsEOF(); rs.MoveNext()) {
    CString kind, day, unit;
    rs.GetFieldValue(0, kind);
    rs.GetFieldValue(1, day);
    rs.GetFieldValue(2, unit);
    ordered_json hours = ordered_json::array();
    for (int h = 0; h < 24; ++h) {
      double v = 0.0;
      hours.push_back(rs.GetFieldValue(3 + h, v) ? ordered_json(v) : ordered_json());
    }
    out.push_back({{"kind", kind.ToUtf8()}, {"day_type", day.ToUtf8()}, {"unit", unit.ToUtf8()}, {"hours", std::move(hours)}});
  }
  return true;
}

void PrintSchedules(const ordered_json& schedules) {
  std::vector<std::vector<std::string>> rows{{"Kind", "Day", "Unit"}};
  for (int h = 1; h <= 24; ++h) rows[0].push_back((h < 10 ? "H0" : "H") + std::to_string(h));
  for (const auto& s : schedules) {
    std::vector<std::string> row{s["kind"].get<std::string>(), s["day_type"].get<std::string>(), s["unit"].get<std::string>()};
    for (const auto& v : s["hours"]) row.push_back(v.is_null() ? "—" : Number(AsStored(v.get<double>())));
    rows.push_back(std::move(row));
  }
  PrintColumns(std::cout, rows);
}

// Prints one room use's load parameters (and hourly schedules): the exit status.
int Show(const RoomUse& use, bool withSchedules, bool json) {
  CQKRULoadParam load;
  ordered_json items;
  if (!load.ReadDataByRUId(static_cast<int>(use.id)) || !RowItems(load, load, items))
    return Tell(1, use.type + " " + use.name + " has no load parameters");
  // The value holds humidities as fractions: the percent it writes may be a last bit off the stored
  // decimal (55 % reads back as 55.00000000000001).
  for (const char* humidity : {"DongJiSNSJXDSD", "XiaJiSNSJXDSD"})
    if (items[humidity].is_number()) items[humidity] = AsStored(items[humidity].get<double>());
  std::string labour;
  if (!items["LaoDongQD"].is_null()) {
    CString name;
    if (CQKRULoadParam::LDQDId2Name(static_cast<QKLoad::EQKLdQdType>(items["LaoDongQD"].get<int>()), name))
      labour = name.ToUtf8();
  }
  ordered_json schedules;
  const bool haveSchedules = withSchedules && Schedules(load, use.id, schedules);

  if (json) {
    ordered_json out{{"RoomType", use.type}, {"RoomUse", use.name}};
    for (const auto& [name, value] : items.items()) out[name] = value;
    out["LaoDongQDName"] = labour.empty() ? ordered_json() : ordered_json(labour);
    if (withSchedules) out["Schedules"] = haveSchedules ? schedules : ordered_json();
    std::cout << out.dump(2) << '\n';
    return 0;
  }
  std::cout << use.type << " / " << use.name << "\n\n";
  std::vector<std::vector<std::string>> rows;
  for (const Item& item : kItems) rows.push_back({item.label, Shown(item, items[item.name], labour), item.name});
  PrintColumns(std::cout, rows);
  if (withSchedules) {
    std::cout << '\n';
    if (!haveSchedules)
      std::cout << "This database keeps no hourly schedules.\n";
    else if (schedules.empty())
      std::cout << "No hourly schedules for this room use.\n";
    else
      PrintSchedules(schedules);
  }
  return 0;
}

}  // namespace

RoomsCommand::RoomsCommand(CLI::App& parent) {
  m_app = parent.add_subcommand("rooms", "List the room types and uses, or show one room use's load parameters");
  m_app->add_option("NAME", m_name, "A room use (e.g. 客房); without it, the list");
  m_app->add_option("--type", m_type, "The room type (e.g. 办公建筑): where the name is a room use of several types");
  m_app->add_flag("--schedules", m_schedules, "With NAME: also its hourly schedules, where the database keeps them");
  m_app->add_flag("--json", m_json, "Print JSON instead of text");
  m_app->add_option("--db", m_db, "The reference database (default: $QKDB_DATABASE, else the one \"qkdb init\" built)");
  m_app->footer(
      "The list: each room type with its number of room uses, then the uses two blanks in; --json: [{\"RoomType\",\n"
      "\"RoomUses\": [{\"ID\", \"RoomUse\"}]}]. One room use: each load parameter with its label and unit, \"—\"\n"
      "where the database does not give it; --json: one object keyed by the load-parameter table's item names\n"
      "(null where not given; humidities in %, LaoDongQD the labour intensity's id 0..4) plus \"RoomType\",\n"
      "\"RoomUse\", \"LaoDongQDName\" and with --schedules \"Schedules\": [{\"kind\", \"day_type\", \"unit\",\n"
      "\"hours\": 24 values, hour 1 = 00:00-01:00}]. docs/rooms.md says where every value comes from.\n"
      "Exit status: 1 no room type or room use of that name, or a name of several types without --type;\n"
      "2 a command line or database that cannot be used.");
}

bool RoomsCommand::Chosen() const { return m_app->parsed(); }

int RoomsCommand::Run() const {
  if (m_schedules && m_name.empty()) return Tell(2, "--schedules belongs to one room use: give its name");
  if (const int status = OpenChosenDatabase(m_db)) return status;
  std::vector<std::string> types;
  std::vector<RoomUse> uses = AllRoomUses(types);
  if (!m_type.empty()) {
    bool known = false;
    for (const std::string& t : types) known = known || Folded(CString::FromUtf8(t)) == Folded(CString::FromUtf8(m_type));
    if (!known) return Tell(1, "no room type named \"" + m_type + "\"; \"qkdb rooms\" lists them");
    std::erase_if(uses, [this](const RoomUse& u) {
      return Folded(CString::FromUtf8(u.type)) != Folded(CString::FromUtf8(m_type));
    });
    std::erase_if(types, [this](const std::string& t) {
      return Folded(CString::FromUtf8(t)) != Folded(CString::FromUtf8(m_type));
    });
  }
  if (m_name.empty()) {
    PrintList(types, uses, m_json);
    return 0;
  }

  const std::wstring typed = Folded(CString::FromUtf8(m_name));
  std::vector<RoomUse> found;
  for (const RoomUse& u : uses)
    if (Folded(CString::FromUtf8(u.name)) == typed) found.push_back(u);
  if (found.empty()) {
    std::vector<Candidate> candidates;
    for (const RoomUse& u : uses) candidates.push_back({CString::FromUtf8(u.name), u.name + " (" + u.type + ")"});
    const std::vector<std::string> near = NearestNames(CString::FromUtf8(m_name), candidates);
    std::string message = "no room use named \"" + m_name + "\"" + (m_type.empty() ? "" : " in " + m_type);
    for (std::size_t i = 0; i < near.size(); ++i) message += (i == 0 ? "; did you mean " : ", ") + near[i];
    return Tell(1, near.empty() ? message : message + "?");
  }
  if (found.size() > 1) {
    std::string message = "\"" + m_name + "\" is a room use of several room types:";
    for (std::size_t i = 0; i < found.size(); ++i) message += (i == 0 ? " " : ", ") + found[i].type;
    return Tell(1, message + "; choose one with --type");
  }

  return Show(found.front(), m_schedules, m_json);
}

}  // namespace qkdb
