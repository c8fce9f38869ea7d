#include "reference/catalogue/CatalogueLoader.h"

#include <map>
#include <string>
#include <vector>

#include "text/CsvTable.h"
#include "construction/CQKTimbering.h"
#include "reference/catalogue/CatalogueRows.h"
#include "reference/catalogue/ChineseCatalogue.h"

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

std::map<std::string, Material> LoadMaterials(const CsvTable& materials, CatalogueRows& rows) {
  std::map<std::string, Material> byName;
  for (std::size_t r = 0; r < materials.Size(); ++r) {
    const std::string& name = materials.Field(r, "name");
    const long typeId = rows.ConstructionType(TypeOf(name, materials.Field(r, "source_chapter")));
    CQKTimbering construction;
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
    material.id = rows.AddConstruction(construction, typeId, materials.Where(r));
    byName[name] = material;
  }
  return byName;
}

}  // namespace

void LoadCatalogue(const std::filesystem::path& dataDir, CADODatabase& db) {
  CatalogueRows rows(db);
  const auto materials = LoadMaterials(CsvTable(dataDir / "materials_ashrae_hof_2005.csv"), rows);
  const CsvTable layers(dataDir / "constructions_ashrae_hof_2005.csv");

  for (const Placement& p : kPlacements) rows.EnvelopeType(p.type, rows.Category(p.category));

  // The layer rows of one construction follow each other, outside first.
  for (std::size_t r = 0; r < layers.Size();) {
    const std::size_t first = r;
    const std::string construction = layers.Field(r, "construction_name");
    std::vector<CodeLayer> codeLayers;
    for (; r < layers.Size() && layers.Field(r, "construction_name") == construction; ++r) {
      auto material = materials.find(layers.Field(r, "material_name"));
      if (material == materials.end())
        throw DataError(layers.Where(r) + ": no material \"" + layers.Field(r, "material_name") + "\"");
      codeLayers.push_back({material->second.id, material->second.thicknessMm, 1.0});
    }
    // Code names name the demonstration pictures, so they must be usable as file names: "/" becomes "-".
    std::string name = construction;
    for (char& c : name)
      if (c == '/') c = '-';
    const Placement& p = PlacementOf(construction);
    rows.AddCode(name, rows.EnvelopeType(p.type, rows.Category(p.category)), codeLayers, layers.Where(first));
  }

  LoadChineseCatalogue(dataDir, rows);
}

}  // namespace qkdb
