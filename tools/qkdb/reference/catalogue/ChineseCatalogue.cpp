#include "reference/catalogue/ChineseCatalogue.h"

#include <charconv>
#include <map>
#include <string>
#include <vector>

#include "text/CsvTable.h"
#include "construction/CQKTimbering.h"
#include "reference/catalogue/CatalogueRows.h"

namespace qkdb {

namespace {

bool LeftOut(const CsvTable& table, std::size_t r) { return table.Field(r, "decision").starts_with("left out"); }

// A positive number of column, or DataError naming the row: a material without it cannot be computed.
double Positive(const CsvTable& table, std::size_t r, const std::string& column) {
  double value = 0.0;
  if (!table.Number(r, column, value) || !(value > 0.0))
    throw DataError(table.Where(r) + ": " + column + " must be a positive number");
  return value;
}

// A material row as a construction: its name, ρ kg/m³, λ W/(m·K) and c in kJ/(kg·K), which the
// file gives in the unit of column (kJ/(kg·K) when per is 1, J/(kg·K) when per is 1000).
CQKTimbering Material(const CsvTable& materials, std::size_t r, const std::string& column, double per) {
  CQKTimbering construction;
  construction.SetStuffName(CString::FromUtf8(materials.Field(r, "name")));
  construction.SetGMD(Positive(materials, r, "density_kg_m3"));
  construction.SetDrXs(Positive(materials, r, "conductivity_w_mk"));
  construction.SetBRr(Positive(materials, r, column) / per);
  return construction;
}

long AddMaterial(const CsvTable& materials, std::size_t r, CQKTimbering& construction, CatalogueRows& rows) {
  return rows.AddConstruction(construction, rows.ConstructionType(materials.Field(r, "construction_type")),
                              materials.Where(r));
}

void LoadCodeTable(const CsvTable& materials, CatalogueRows& rows) {
  for (std::size_t r = 0; r < materials.Size(); ++r) {
    if (LeftOut(materials, r)) continue;
    CQKTimbering construction = Material(materials, r, "specific_heat_kj_kgk", 1.0);
    AddMaterial(materials, r, construction, rows);
  }
}

// The atlas's materials, by the English name its wall build-ups use: their construction IDs.
std::map<std::string, long> LoadAtlasMaterials(const CsvTable& materials, CatalogueRows& rows) {
  std::map<std::string, long> ids;
  for (std::size_t r = 0; r < materials.Size(); ++r) {
    if (LeftOut(materials, r)) continue;
    CQKTimbering construction = Material(materials, r, "specific_heat_j_kgk", 1000.0);
    construction.SetRoughness(RoughnessCode(materials.Field(r, "roughness")));
    construction.SetTheAbs(Positive(materials, r, "thermal_absorptance"));
    construction.SetSolAbs(Positive(materials, r, "solar_absorptance"));
    ids[materials.Field(r, "material_en_as_in_source")] = AddMaterial(materials, r, construction, rows);
  }
  return ids;
}

// "material|thickness_m; material|thickness_m; …", outside first.
std::vector<CodeLayer> AtlasLayers(const CsvTable& walls, std::size_t r, const std::map<std::string, long>& materials) {
  const std::string& text = walls.Field(r, "layers_outside_first(material|thickness_m)");
  std::vector<CodeLayer> layers;
  for (std::size_t start = 0; start < text.size();) {
    std::size_t end = text.find("; ", start);
    if (end == std::string::npos) end = text.size();
    const std::string layer = text.substr(start, end - start);
    start = end + 2;
    const std::size_t bar = layer.rfind('|');
    auto material = bar == std::string::npos ? materials.end() : materials.find(layer.substr(0, bar));
    if (material == materials.end()) throw DataError(walls.Where(r) + ": no material for the layer \"" + layer + "\"");
    double metres = 0.0;
    const char* first = layer.data() + bar + 1;
    const char* last = layer.data() + layer.size();
    const auto [stop, error] = std::from_chars(first, last, metres);  // "." always, whatever the locale
    if (error != std::errc() || stop != last || !(metres > 0.0))
      throw DataError(walls.Where(r) + ": the layer \"" + layer + "\" has no positive thickness in m");
    layers.push_back({material->second, metres * 1000.0, 1.0});
  }
  if (layers.empty()) throw DataError(walls.Where(r) + ": a wall without layers");
  return layers;
}

}  // namespace

void LoadChineseCatalogue(const std::filesystem::path& dataDir, CatalogueRows& rows) {
  LoadCodeTable(CsvTable(dataDir / "materials_cn_gb50176_93_era.csv"), rows);
  const auto atlas = LoadAtlasMaterials(CsvTable(dataDir / "materials_09j908_3_gudaostudio.csv"), rows);
  const CsvTable walls(dataDir / "constructions_09j908_3_gudaostudio.csv");
  const long exteriorWalls = rows.Category("外墙");
  for (std::size_t r = 0; r < walls.Size(); ++r)
    rows.AddCode(walls.Field(r, "code_name"), rows.EnvelopeType(walls.Field(r, "envelope_type"), exteriorWalls),
                 AtlasLayers(walls, r, atlas), walls.Where(r));
}

}  // namespace qkdb
