#pragma once
// The room types and room uses, and one room use's load parameters, as "qkdb rooms" and the Python
// package answer them. The record classes must be bound to the database.

#include <nlohmann/json.hpp>
#include <string>

namespace qkdb {

struct RoomAnswer {
  std::string refused;  // "" when answered, else one line saying why not
  nlohmann::ordered_json json;
};

// [{"RoomType", "RoomUses": [{"ID", "RoomUse"}]}], in ID order; of the room type named type only when
// it is not "" (refused when no room type has that name; Latin letters in any case).
RoomAnswer RoomUses(const std::string& type);

// The load parameters of the room use of that name (of the room type named type when it is not ""):
// {"RoomType", "RoomUse", the load-parameter table's items (null where the table gives none;
// humidities in percent; LaoDongQD the labour intensity's id), "LaoDongQDName"}, and with schedules
// "Schedules": [{"kind", "day_type", "unit", "hours": 24 values}] or null when the database keeps
// none. Refused, naming the nearest names, when no room use has the name, and naming the types when
// several have it and type does not choose.
RoomAnswer RoomUseParameters(const std::string& name, const std::string& type, bool schedules);

}  // namespace qkdb
