#pragma once
// The catalogue's constructions (each a material) as "qkdb materials" and the Python package list
// them: id, name, type, density kg/m³, conductivity W/(m·K), specific heat kJ/(kg·K), the heat-storage
// coefficient S24 W/(m²·K) the wall calculation derives from them, and for an air space (no mass) its
// thermal resistance m²·K/W instead. The record classes must be bound to the database.

#include <nlohmann/json.hpp>
#include <string>

namespace qkdb {

struct MaterialsAnswer {
  std::string refused;  // "" when answered, else one line saying why not
  // [{"id", "name", "type", "density_kg_m3", "conductivity_w_mk", "specific_heat_kj_kgk", "s24_w_m2k",
  //   "thermal_resistance_m2k_w"}], null where a value does not apply, by type and then ID.
  nlohmann::ordered_json json = nlohmann::ordered_json::array();
};

// The constructions of the construction type named type ("" for all) whose name holds search ("" for
// any; Latin letters in any case). Refused when no construction type has that name.
MaterialsAnswer Materials(const std::string& type, const std::string& search);

}  // namespace qkdb
