#include "answers/RoomAnswer.h"

#include <vector>

#include "text/NearNames.h"
#include "text/Output.h"
#include "answers/RowItems.h"
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

bool SameName(const std::string& a, const std::string& b) {
  return Folded(CString::FromUtf8(a)) == Folded(CString::FromUtf8(b));
}

// Every room use with its type, in the tree's order; only those of type when it is not "". False when
// no room type has that name.
bool Uses(const std::string& type, std::vector<std::string>& types, std::vector<RoomUse>& uses) {
  CQKRoomUseDataAdmin admin;
  const CQKRoomUseDataAdmin::tagRoomUseNode* root = admin.GetRoomUseNodes(1);
  for (int t = 0; root && t < root->arrChild.GetSize(); ++t) {
    const auto* typeNode = root->arrChild[t];
    const std::string typeName = typeNode->strName.ToUtf8();
    if (!type.empty() && !SameName(typeName, type)) continue;
    types.push_back(typeName);
    for (int u = 0; u < typeNode->arrChild.GetSize(); ++u)
      uses.push_back({typeName, typeNode->arrChild[u]->nId, typeNode->arrChild[u]->strName.ToUtf8()});
  }
  return type.empty() || !types.empty();
}

std::string NoType(const std::string& type) {
  return "no room type named " + Quoted(type) + "; \"qkdb rooms\" lists them";
}

// The hourly schedules of the room use: a table beside the room tables, which the library does not
// read; a database built before it has none (null).
ordered_json Schedules(CQKRULoadParam& load, long roomUse) {
  CString sql;
  sql.Format(L"select Kind, DayType, Unit, H01, H02, H03, H04, H05, H06, H07, H08, H09, H10, H11, H12, H13, H14, "
             L"H15, H16, H17, H18, H19, H20, H21, H22, H23, H24 from RoomUseSchedule where RUId=%ld order by ID",
             roomUse);
  CADORecordset rs;
  if (!load.ExecSql(sql, &rs, nullptr)) return ordered_json();
  ordered_json out = ordered_json::array();
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
  return out;
}

}  // namespace

RoomAnswer RoomUses(const std::string& type) {
  RoomAnswer answer;
  std::vector<std::string> types;
  std::vector<RoomUse> uses;
  if (!Uses(type, types, uses)) {
    answer.refused = NoType(type);
    return answer;
  }
  answer.json = ordered_json::array();
  for (const std::string& t : types) {
    ordered_json list = ordered_json::array();
    for (const RoomUse& u : uses)
      if (u.type == t) list.push_back({{"ID", u.id}, {"RoomUse", u.name}});
    answer.json.push_back({{"RoomType", t}, {"RoomUses", std::move(list)}});
  }
  return answer;
}

RoomAnswer RoomUseParameters(const std::string& name, const std::string& type, bool schedules) {
  RoomAnswer answer;
  std::vector<std::string> types;
  std::vector<RoomUse> uses;
  if (!Uses(type, types, uses)) {
    answer.refused = NoType(type);
    return answer;
  }
  std::vector<RoomUse> found;
  for (const RoomUse& u : uses)
    if (SameName(u.name, name)) found.push_back(u);
  if (found.empty()) {
    std::vector<Candidate> candidates;
    for (const RoomUse& u : uses) candidates.push_back({CString::FromUtf8(u.name), u.name + " (" + u.type + ")"});
    const std::vector<std::string> near = NearestNames(CString::FromUtf8(name), candidates);
    answer.refused = "no room use named " + Quoted(name) + (type.empty() ? "" : " in " + Quoted(type));
    for (std::size_t i = 0; i < near.size(); ++i) answer.refused += (i == 0 ? "; did you mean " : ", ") + near[i];
    if (!near.empty()) answer.refused += "?";
    return answer;
  }
  if (found.size() > 1) {
    answer.refused = Quoted(name) + " is a room use of several room types:";
    for (std::size_t i = 0; i < found.size(); ++i) answer.refused += (i == 0 ? " " : ", ") + found[i].type;
    answer.refused += "; choose one with --type";
    return answer;
  }

  const RoomUse& use = found.front();
  CQKRULoadParam load;
  ordered_json items;
  if (!load.ReadDataByRUId(static_cast<int>(use.id)) || !RowItems(load, load, items)) {
    answer.refused = use.type + " " + use.name + " has no load parameters";
    return answer;
  }
  // The value holds humidities as fractions: the percent it writes may be a last bit off the stored
  // decimal (55 % reads back as 55.00000000000001).
  for (const char* humidity : {"DongJiSNSJXDSD", "XiaJiSNSJXDSD"})
    if (items[humidity].is_number()) items[humidity] = AsStored(items[humidity].get<double>());
  ordered_json labour;
  CString labourName;
  if (!items["LaoDongQD"].is_null() &&
      CQKRULoadParam::LDQDId2Name(static_cast<QKLoad::EQKLdQdType>(items["LaoDongQD"].get<int>()), labourName))
    labour = labourName.ToUtf8();

  answer.json = {{"RoomType", use.type}, {"RoomUse", use.name}};
  for (const auto& [item, value] : items.items()) answer.json[item] = value;
  answer.json["LaoDongQDName"] = labour;
  if (schedules) answer.json["Schedules"] = Schedules(load, use.id);
  return answer;
}

}  // namespace qkdb
