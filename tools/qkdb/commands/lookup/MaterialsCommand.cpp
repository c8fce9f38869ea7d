#include "commands/lookup/MaterialsCommand.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <nlohmann/json.hpp>
#include <vector>

#include "answers/MaterialsAnswer.h"
#include "text/Output.h"
#include "files/ReferenceDatabase.h"

namespace qkdb {

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
  CommandDatabase db;
  if (const int status = OpenChosenDatabase(m_db, db)) return status;
  const MaterialsAnswer answer = Materials(m_type, m_search);
  if (!answer.refused.empty()) return Tell(1, answer.refused);
  if (m_json) {
    std::cout << answer.json.dump(2) << '\n';
    return 0;
  }
  if (answer.json.empty()) {
    std::cout << "no construction matches\n";
    return 0;
  }
  std::vector<std::vector<std::string>> rows{
      {"ID", "Name", "Type", "ρ kg/m³", "λ W/(m·K)", "c kJ/(kg·K)", "S24 W/(m²·K)", "R m²·K/W"}};
  for (const auto& m : answer.json) {
    std::vector<std::string> row{std::to_string(m["id"].get<long>()), m["name"].get<std::string>(),
                                 m["type"].get<std::string>()};
    if (m["thermal_resistance_m2k_w"].is_null())
      row.insert(row.end(), {Number(m["density_kg_m3"].get<double>()), Number(m["conductivity_w_mk"].get<double>()),
                             Number(m["specific_heat_kj_kgk"].get<double>()), Fixed(m["s24_w_m2k"].get<double>(), 2), ""});
    else
      row.insert(row.end(), {"", "", "", "", Fixed(m["thermal_resistance_m2k_w"].get<double>(), 3)});
    rows.push_back(std::move(row));
  }
  PrintColumns(std::cout, rows);
  return 0;
}

}  // namespace qkdb
