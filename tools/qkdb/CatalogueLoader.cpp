#include "CatalogueLoader.h"

#include <charconv>
#include <cmath>
#include <map>
#include <string>
#include <vector>

#include "CsvTable.h"
#include "RowNulls.h"
#include "construction/CQKTimbering.h"
#include "construction/CQKTimberingType.h"
#include "envelope/CQKBSCategory.h"
#include "envelope/CQKBSCode.h"
#include "envelope/CQKBSType.h"
#include "envelope/CQKBoundingStructure.h"
#include "tablekit/CADODatabase.h"

namespace qkdb {

namespace {

struct Material {
  long id = 0;
  double thicknessMm = 0.0;  // 0 for an air space
};

// The construction type of a material: the handbook's letter groups of its chapter 30 materials, and
// one type for the chapter 25 materials, which carry names instead of codes.
std::string TypeOf(const std::string& name, const std::string& chapter) {
  if (chapter.find("Ch25") != std::string::npos) return "ASHRAE 建筑材料（第25章）";
  switch (name.empty() ? ' ' : name.front()) {
    case 'F': return "ASHRAE F 面层与空气层";
    case 'G': return "ASHRAE G 板材与木材";
    case 'I': return "ASHRAE I 保温材料";
    case 'M': return "ASHRAE M 砌体与混凝土";
    default: throw DataError("material \"" + name + "\" belongs to no letter group");
  }
}

// EnergyPlus's six roughness classes, numbered from the roughest; 0 when the source gives none.
int RoughnessCode(const std::string& roughness) {
  static const std::map<std::string, int> codes = {{"VeryRough", 1},   {"Rough", 2}, {"MediumRough", 3},
                                                   {"MediumSmooth", 4}, {"Smooth", 5}, {"VerySmooth", 6}};
  auto found = codes.find(roughness);
  return found == codes.end() ? 0 : found->second;
}

// The envelope category (in display order) and type of a handbook construction, by its name's ending.
struct Placement {
  const char* ending;
  const char* category;
  const char* type;
};
const Placement kPlacements[] = {{"Exterior Wall", "外墙", "ASHRAE外墙"},
                                 {"Roof/Ceiling", "屋面", "ASHRAE屋面"},
                                 {"Partitions", "内墙", "ASHRAE内墙"},
                                 {"Floor", "楼板", "ASHRAE楼板"},
                                 {"Furnishings", "室内蓄热体", "ASHRAE室内蓄热体"}};

const Placement& PlacementOf(const std::string& construction) {
  for (const Placement& p : kPlacements)
    if (construction.ends_with(p.ending)) return p;
  throw DataError("construction \"" + construction + "\" is no wall, roof, partition, floor or furnishing");
}

// Shortest decimal text of value rounded to 0.01 (mm of a layer), "." as the decimal point.
std::string Decimal(double value) {
  char text[32];
  auto end = std::to_chars(text, text + sizeof text, std::round(value * 100.0) / 100.0).ptr;
  return std::string(text, end);
}

std::map<std::string, Material> LoadMaterials(const CsvTable& materials) {
  std::map<std::string, long> typeIds;
  std::map<std::string, Material> byName;
  for (std::size_t r = 0; r < materials.Size(); ++r) {
    const std::string& name = materials.Field(r, "name");
    const std::string typeName = TypeOf(name, materials.Field(r, "source_chapter"));
    if (!typeIds.count(typeName)) {
      CQKTimberingType type;
      type.Name = CString::FromUtf8(typeName);
      CheckWritten(type.AddIfNotExist(nullptr, 1) != QKLoad::DBS_ERROR, "construction type " + typeName);
      typeIds[typeName] = type.GetID();
    }
    CQKTimbering construction;
    construction.TTId = static_cast<int>(typeIds[typeName]);
    construction.SetStuffName(CString::FromUtf8(name));
    Material material;
    if (materials.Field(r, "material_type") == "AirGap") {
      double resistance = 0.0;
      if (!materials.Number(r, "thermal_resistance_m2k_w", resistance) || resistance <= 0.0)
        throw DataError(materials.Where(r) + ": an air space without a positive thermal resistance");
      construction.SetDrXs(1.0 / resistance);  // conductance, W/(m²·K)
      construction.SetGMD(0.0);
      construction.SetBRr(0.0);
    } else {
      double thickness = 0.0, conductivity = 0.0, density = 0.0, specificHeat = 0.0;
      if (!materials.Number(r, "thickness_m", thickness) || !materials.Number(r, "conductivity_w_mk", conductivity) ||
          !materials.Number(r, "density_kg_m3", density) || !materials.Number(r, "specific_heat_j_kgk", specificHeat))
        throw DataError(materials.Where(r) + ": a material needs thickness, conductivity, density and specific heat");
      construction.SetDrXs(conductivity);
      construction.SetGMD(density);
      construction.SetBRr(specificHeat / 1000.0);  // J/(kg·K) in the source, kJ/(kg·K) in the table
      construction.SetRoughness(RoughnessCode(materials.Field(r, "roughness")));
      material.thicknessMm = thickness * 1000.0;
    }
    CheckWritten(construction.AddIfNotExist(nullptr, 1) != QKLoad::DBS_ERROR, materials.Where(r));
    material.id = construction.GetID();
    byName[name] = material;
  }
  return byName;
}

}  // namespace

void LoadCatalogue(const std::filesystem::path& dataDir, CADODatabase& db) {
  const auto materials = LoadMaterials(CsvTable(dataDir / "materials_ashrae_hof_2005.csv"));
  const CsvTable layers(dataDir / "constructions_ashrae_hof_2005.csv");

  std::map<std::string, long> categoryIds, typeIds;
  int order = 0;
  for (const Placement& p : kPlacements) {
    CQKBSCategory category;
    category.Name = CString::FromUtf8(p.category);
    // The category record has no lookup verbs (hosts only read categories); the build starts from
    // empty tables, so inserting is all it needs.
    CheckWritten(category.InsertData(nullptr) != 0, std::string("category ") + p.category);
    const std::string sql = "UPDATE BSCategory SET OrderId = " + std::to_string(++order) +
                            " WHERE ID = " + std::to_string(category.GetID());
    CheckWritten(db.Execute(CString::FromUtf8(sql)) != 0, std::string("the order of category ") + p.category);
    CQKBSType type;
    type.Name = CString::FromUtf8(p.type);
    type.BSDLId = static_cast<int>(category.GetID());
    CheckWritten(type.AddIfNotExist(nullptr, 1) != QKLoad::DBS_ERROR, std::string("envelope type ") + p.type);
    typeIds[p.type] = type.GetID();
  }

  // The layer rows of one construction follow each other, outside first.
  for (std::size_t r = 0; r < layers.Size();) {
    const std::string construction = layers.Field(r, "construction_name");
    std::string ids, thicknesses, factors;
    for (; r < layers.Size() && layers.Field(r, "construction_name") == construction; ++r) {
      auto material = materials.find(layers.Field(r, "material_name"));
      if (material == materials.end())
        throw DataError(layers.Where(r) + ": no material \"" + layers.Field(r, "material_name") + "\"");
      const char* comma = ids.empty() ? "" : ",";
      ids += comma + std::to_string(material->second.id);
      thicknesses += comma + Decimal(material->second.thicknessMm);
      factors += std::string(comma) + "1";
    }
    CQKBSCode code;
    // Code names name the demonstration pictures, so they must be usable as file names: "/" becomes "-".
    std::string name = construction;
    for (char& c : name)
      if (c == '/') c = '-';
    code.Name = CString::FromUtf8(name);
    code.BSTId = typeIds.at(PlacementOf(construction).type);
    CheckWritten(code.AddIfNotExist(nullptr, 1) != QKLoad::DBS_ERROR, "envelope code " + name);
    CQKBoundingStructure structure;
    structure.BSCId = code.GetID();
    structure.TIdS = CString::FromUtf8(ids);
    structure.HouDuS = CString::FromUtf8(thicknesses);
    structure.XzXsS = CString::FromUtf8(factors);
    CheckWritten(structure.AddOrUpdate(nullptr) != QKLoad::DBS_ERROR, "the bounding structure of " + name);
  }
}

}  // namespace qkdb
