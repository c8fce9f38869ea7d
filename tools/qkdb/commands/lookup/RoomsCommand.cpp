#include "commands/lookup/RoomsCommand.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <nlohmann/json.hpp>
#include <vector>

#include "text/Output.h"
#include "answers/RoomAnswer.h"
#include "files/ReferenceDatabase.h"

namespace qkdb {

namespace {

using nlohmann::ordered_json;

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

void PrintList(const ordered_json& list) {
  for (const auto& type : list) {
    std::cout << type["RoomType"].get<std::string>() << " (" << type["RoomUses"].size() << ")\n";
    for (const auto& u : type["RoomUses"]) std::cout << "  " << u["RoomUse"].get<std::string>() << '\n';
  }
}

// The value of an item as text with its unit; "—" for null.
std::string Shown(const Item& item, const ordered_json& value, const std::string& labour) {
  if (value.is_null()) return "—";
  if (std::string(item.name) == "LaoDongQD")
    return std::to_string(value.get<int>()) + (labour.empty() ? "" : " (" + labour + ")");
  const std::string number = value.is_number_integer() ? std::to_string(value.get<long>()) : Number(AsStored(value.get<double>()));
  return *item.unit ? number + " " + item.unit : number;
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

// Prints one room use's load parameters (and hourly schedules) as text.
void Show(const ordered_json& room, bool withSchedules) {
  std::cout << room["RoomType"].get<std::string>() << " / " << room["RoomUse"].get<std::string>() << "\n\n";
  const std::string labour = room["LaoDongQDName"].is_null() ? "" : room["LaoDongQDName"].get<std::string>();
  std::vector<std::vector<std::string>> rows;
  for (const Item& item : kItems) rows.push_back({item.label, Shown(item, room[item.name], labour), item.name});
  PrintColumns(std::cout, rows);
  if (!withSchedules) return;
  std::cout << '\n';
  if (room["Schedules"].is_null())
    std::cout << "This database keeps no hourly schedules.\n";
  else if (room["Schedules"].empty())
    std::cout << "No hourly schedules for this room use.\n";
  else
    PrintSchedules(room["Schedules"]);
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
  CommandDatabase db;
  if (const int status = OpenChosenDatabase(m_db, db)) return status;
  const RoomAnswer answer = m_name.empty() ? RoomUses(m_type) : RoomUseParameters(m_name, m_type, m_schedules);
  if (!answer.refused.empty()) return Tell(1, answer.refused);
  if (m_json)
    std::cout << answer.json.dump(2) << '\n';
  else if (m_name.empty())
    PrintList(answer.json);
  else
    Show(answer.json, m_schedules);
  return 0;
}

}  // namespace qkdb
