#include "answers/wall/WallInput.h"

#include <cmath>
#include <cstdio>
#include <initializer_list>
#include <nlohmann/json.hpp>
#include <string_view>

#include "text/BoundedRead.h"
#include "text/Output.h"
#include "construction/CQKTimberingData.h"
#include "construction/tagQKTIMBERINGCHARACTER.h"
#include "mfc/CString.h"

namespace qkdb {

namespace {

using nlohmann::json;

// The message of a JSON library error without its "[json.exception.parse_error.101] " tag, which
// means nothing to the engineer reading it.
std::string WithoutTag(const char* what) {
  std::string_view text = what;
  if (!text.empty() && text.front() == '[') {
    std::size_t close = text.find("] ");
    if (close != std::string_view::npos) text.remove_prefix(close + 2);
  }
  return std::string(text);
}

enum class Sign { kPositive, kNotNegative };

// The value under key, or null when the key is absent.
const json* Member(const json& object, std::string_view key) {
  auto it = object.find(key);
  return it == object.end() ? nullptr : &*it;
}

// value as a number of the sign asked; where prefixes the message: "", "layer 2: " or
// "layer 2 \"brick\": ".
double Number(const json& value, const std::string& where, std::string_view key, Sign sign) {
  if (!value.is_number()) throw InputError(where + Quoted(key) + " is not a number (got " + value.dump() + ")");
  double number = value.get<double>();
  if (!std::isfinite(number)) throw InputError(where + Quoted(key) + " is not a finite number");
  if (sign == Sign::kPositive && !(number > 0.0))
    throw InputError(where + Quoted(key) + " must be positive (got " + value.dump() + ")");
  if (sign == Sign::kNotNegative && number < 0.0)
    throw InputError(where + Quoted(key) + " must not be negative (got " + value.dump() + ")");
  return number;
}

double Required(const json& object, const std::string& where, std::string_view key, Sign sign) {
  const json* value = Member(object, key);
  if (!value) throw InputError(where + Quoted(key) + " is missing");
  return Number(*value, where, key, sign);
}

double Optional(const json& object, const std::string& where, std::string_view key, Sign sign, double otherwise) {
  const json* value = Member(object, key);
  return value ? Number(*value, where, key, sign) : otherwise;
}

void RefuseUnknownKeys(const json& object, const std::string& where, std::initializer_list<std::string_view> known) {
  for (auto it = object.begin(); it != object.end(); ++it) {
    bool found = false;
    for (std::string_view k : known) found = found || it.key() == k;
    if (!found) throw InputError(where + "unknown key " + Quoted(it.key()));
  }
}

// force names the way the caller's user takes such a value as given ("--force", "force=True").
void RefuseImplausible(const std::string& where, std::string_view key, Quantity quantity, double value,
                       std::string_view force) {
  if (const char* hint = UnitHint(quantity, value))
    throw InputError(where + Quoted(key) + " " + qkdb::Number(value) + " is implausible: " + hint + " (" +
                     std::string(force) + " takes it as given)");
}

// One layer; number counts from 1 (the first, outside layer is "layer 1"), as a person counts them.
CQKTimberingData ParseLayer(const json& item, std::size_t number, const Plausibility& plausibility) {
  std::string where = "layer " + std::to_string(number) + ": ";
  if (!item.is_object()) throw InputError(where + "not a JSON object");

  CString name;
  if (const json* value = Member(item, "name")) {
    if (!value->is_string()) throw InputError(where + "\"name\" is not a string");
    name = CString::FromUtf8(value->get_ref<const std::string&>());
  }
  // In a wall of many layers the name finds the layer faster than its number.
  if (!name.IsEmpty()) where = "layer " + std::to_string(number) + " " + Quoted(name.ToUtf8()) + ": ";
  RefuseUnknownKeys(item, where,
                    {"name", "thickness", "conductivity", "density", "specific_heat", "conductivity_correction",
                     "density_correction"});
  // Thickness 0 is allowed: an air gap or a film has no mass and its thickness is ignored. Density or
  // specific heat 0 is what makes a layer mass-less, and its conductivity is then a conductance.
  double thick = Required(item, where, "thickness", Sign::kNotNegative);
  double conductivity = Required(item, where, "conductivity", Sign::kPositive);
  double density = Required(item, where, "density", Sign::kNotNegative);
  double specificHeat = Required(item, where, "specific_heat", Sign::kNotNegative);
  double conductivityCorrection = Optional(item, where, "conductivity_correction", Sign::kPositive, 1.0);
  double densityCorrection = Optional(item, where, "density_correction", Sign::kPositive, 1.0);
  if (!plausibility.accept) {
    RefuseImplausible(where, "thickness", Quantity::kThickness, thick, plausibility.force);
    RefuseImplausible(where, "conductivity", Quantity::kConductivity, conductivity, plausibility.force);
    RefuseImplausible(where, "density", Quantity::kDensity, density, plausibility.force);
    RefuseImplausible(where, "specific_heat", Quantity::kSpecificHeat, specificHeat, plausibility.force);
  }

  CQKTimberingData layer;
  layer.SetThick(thick);
  layer.SetDrXs(conductivity);
  layer.SetGMD(density);
  layer.SetBRr(specificHeat);
  layer.SetDrXsXz(conductivityCorrection);
  // The density correction has no setter of its own on the catalogue layer.
  tagQKTIMBERINGCHARACTER timber = layer.GetTimberData();
  timber.GMCXz = densityCorrection;
  layer.SetTimberData(timber);
  layer.SetStuffName(name.GetString());
  return layer;
}

}  // namespace

const char* UnitHint(Quantity quantity, double value) {
  // A value far beyond any building material is almost always typed in another unit: a thickness in
  // mm (200 for 0.2 m) gives U = 0.0025, a specific heat in J/(kg·K) (1050 for 1.05) D = 104860. The
  // limits sit well above the real extremes (a 2 m rammed-earth wall; water's 4.2 kJ/(kg·K); copper's
  // 400 W/(m·K); lead's 11 340 and osmium's 22 590 kg/m³).
  switch (quantity) {
    case Quantity::kThickness: return value > 2.0 ? "thickness is in metres" : nullptr;
    case Quantity::kConductivity: return value > 500.0 ? "conductivity is in W/(m·K)" : nullptr;
    case Quantity::kDensity: return value > 25000.0 ? "density is in kg/m³" : nullptr;
    case Quantity::kSpecificHeat: return value > 10.0 ? "specific heat is in kJ/(kg·K)" : nullptr;
  }
  return nullptr;
}

std::string ReadInput(const std::string& file) {
  std::string text;
  const std::string refused = file.empty() || file == "-"
                                  ? ReadStream(stdin, kWallInputLimit, "standard input", text)
                                  : ReadFile(file, kWallInputLimit, Quoted(file), text);
  if (!refused.empty()) throw InputError(refused);
  return text;
}

CQKWallData ParseWall(const std::string& text, const Plausibility& plausibility) {
  json root;
  try {
    root = json::parse(text);
  } catch (const json::exception& e) {
    throw InputError("the input is not valid JSON: " + WithoutTag(e.what()));
  }
  if (!root.is_object()) throw InputError("the input is not a JSON object");
  // A wall printed by "qkdb walls --json" comes with its code and its results; the code names it, and
  // the results are computed anew rather than read.
  RefuseUnknownKeys(root, "",
                    {"inside", "outside", "outside_winter", "layers", "code", "U", "U_winter", "D", "decrement", "delay_h"});
  if (const json* code = Member(root, "code"); code && !code->is_string())
    throw InputError("\"code\" is not a string");

  CQKWallData wall;
  // The wall itself refuses a coefficient ≤ 0 (it would be an infinite surface resistance); Number
  // refuses the same first, so the message can name the key.
  struct Coefficient {
    const char* key;
    bool (CQKWallData::*set)(double, bool);
    double otherwise;
  };
  for (const Coefficient& c : {Coefficient{"inside", &CQKWallData::SetNHrXsData, 8.7},
                               Coefficient{"outside", &CQKWallData::SetWHrXsData, 18.6},
                               Coefficient{"outside_winter", &CQKWallData::SetDjWHrXsData, 23.0}}) {
    double value = Optional(root, "", c.key, Sign::kPositive, c.otherwise);
    if (!(wall.*c.set)(value, false)) throw InputError(Quoted(c.key) + " was refused by the wall");
  }

  const json* layers = Member(root, "layers");
  if (!layers) throw InputError("\"layers\" is missing");
  if (!layers->is_array()) throw InputError("\"layers\" is not an array");
  if (layers->empty()) throw InputError("\"layers\" is empty: a wall needs at least one layer");
  for (std::size_t i = 0; i < layers->size(); ++i) wall.AddTimberingData(ParseLayer((*layers)[i], i + 1, plausibility), false);
  if (const json* code = Member(root, "code")) wall.Name = CString::FromUtf8(code->get_ref<const std::string&>());
  return wall;
}

int Refuse(std::string_view command, std::string_view message) {
  std::string line = "qkdb " + std::string(command) + ": " + std::string(message) + "\n";
  std::fputs(line.c_str(), stderr);
  return 2;
}

}  // namespace qkdb
