#include "commands/MaterialsCommand.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <nlohmann/json.hpp>
#include <vector>

#include "Output.h"
#include "construction/CQKTimbering.h"
#include "construction/tagQKTIMBERINGCHARACTER.h"
#include "envelope/CQKBSDataAdmin.h"

namespace qkdb {

namespace {

// Latin letters in lower case, everything else (Chinese included) as it is: "eps" finds "EPS".
std::string Folded(std::string text) {
  for (char& c : text)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return text;
}

// A construction without heat capacity is an air space: its conductivity field holds the conductance
// 1/R, W/(m²·K), which is how the wall calculation reads it.
bool IsAirSpace(const CQKTimbering& c) { return c.GetGMD() * c.GetBRr() == 0.0; }

// S24 as the wall calculation computes it for a layer of this material without corrections.
double HeatStorage(const CQKTimbering& c) {
  tagQKTIMBERINGCHARACTER layer;
  layer.DrXs = c.GetDrXs();
  layer.GMD = c.GetGMD();
  layer.BRr = c.GetBRr();
  layer.DrXsXz = 1.0;
  layer.GMCXz = 1.0;
  return layer.GetS();
}

}  // namespace

MaterialsCommand::MaterialsCommand(CLI::App& parent) {
  m_app = parent.add_subcommand("materials", "List the catalogue's constructions (materials) with their properties");
  m_app->add_option("--type", m_type, "Only the constructions of this construction type (e.g. \"09J908-3 保温材料\")");
  m_app->add_option("--search", m_search, "Only the constructions whose name holds this text (Latin letters in any case)");
  m_app->add_flag("--json", m_json, "Print a JSON array instead of the table");
  m_app->add_option("--db", m_db, "The reference database (default: $QKDB_DATABASE, else the one \"qkdb init\" built)");
  m_app->footer(
      "One line per construction, by type and then ID: ρ density, kg/m³; λ conductivity, W/(m·K); c specific\n"
      "heat, kJ/(kg·K); S24 the heat-storage coefficient for the daily period, W/(m²·K), computed as the wall\n"
      "calculation does: S24 = √(2π·λ·c·ρ / 86.4). An air space has no mass; it shows its thermal\n"
      "resistance R, m²·K/W, instead of ρ, λ, c and S24. \"qkdb tree constructions\" lists the types.\n"
      "--json: [{\"id\", \"name\", \"type\", \"density_kg_m3\", \"conductivity_w_mk\", \"specific_heat_kj_kgk\",\n"
      "\"s24_w_m2k\", \"thermal_resistance_m2k_w\"}], null where a value does not apply.\n"
      "Exit status: 1 no construction type of that name; 2 a command line or database that cannot be used.");
}

bool MaterialsCommand::Chosen() const { return m_app->parsed(); }

int MaterialsCommand::Run() const {
  if (const int status = OpenChosenDatabase(m_db)) return status;
  CQKBSDataAdmin admin;
  const CQKBSDataAdmin::tagTimbNode* root = admin.GetTimbNodes(1);
  const std::string search = Folded(m_search);

  bool typeFound = m_type.empty();
  nlohmann::ordered_json json = nlohmann::ordered_json::array();
  std::vector<std::vector<std::string>> rows{
      {"ID", "Name", "Type", "ρ kg/m³", "λ W/(m·K)", "c kJ/(kg·K)", "S24 W/(m²·K)", "R m²·K/W"}};
  for (int t = 0; root && t < root->arrChild.GetSize(); ++t) {
    const CQKBSDataAdmin::tagTimbNode* type = root->arrChild[t];
    const std::string typeName = type->strName.ToUtf8();
    if (!m_type.empty() && typeName != m_type) continue;
    typeFound = true;
    for (int i = 0; i < type->arrChild.GetSize(); ++i) {
      const CQKBSDataAdmin::tagTimbNode* node = type->arrChild[i];
      if (!search.empty() && Folded(node->strName.ToUtf8()).find(search) == std::string::npos) continue;
      CQKTimbering c;
      if (!c.ReadData(node->nId)) return Tell(2, "cannot read the construction with ID " + std::to_string(node->nId));
      const bool air = IsAirSpace(c);
      const double s = HeatStorage(c);
      if (m_json) {
        nlohmann::ordered_json item = {{"id", node->nId}, {"name", c.GetStuffName().ToUtf8()}, {"type", typeName}};
        item["density_kg_m3"] = air ? nlohmann::ordered_json() : nlohmann::ordered_json(c.GetGMD());
        item["conductivity_w_mk"] = air ? nlohmann::ordered_json() : nlohmann::ordered_json(c.GetDrXs());
        item["specific_heat_kj_kgk"] = air ? nlohmann::ordered_json() : nlohmann::ordered_json(c.GetBRr());
        item["s24_w_m2k"] = air ? nlohmann::ordered_json() : nlohmann::ordered_json(s);
        item["thermal_resistance_m2k_w"] = air ? nlohmann::ordered_json(1.0 / c.GetDrXs()) : nlohmann::ordered_json();
        json.push_back(std::move(item));
      } else if (air) {
        rows.push_back({std::to_string(node->nId), c.GetStuffName().ToUtf8(), typeName, "", "", "", "",
                        Fixed(1.0 / c.GetDrXs(), 3)});
      } else {
        rows.push_back({std::to_string(node->nId), c.GetStuffName().ToUtf8(), typeName, Number(c.GetGMD()),
                        Number(c.GetDrXs()), Number(c.GetBRr()), Fixed(s, 2), ""});
      }
    }
  }
  if (!typeFound) return Tell(1, "no construction type named \"" + m_type + "\"; \"qkdb tree constructions\" lists them");
  if (m_json)
    std::cout << json.dump(2) << '\n';
  else if (rows.size() == 1)
    std::cout << "no construction matches\n";
  else
    PrintColumns(std::cout, rows);
  return 0;
}

}  // namespace qkdb
