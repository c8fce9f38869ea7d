#include "commands/lookup/WallsCommand.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <nlohmann/json.hpp>
#include <vector>

#include "answers/wall/WallsAnswer.h"
#include "text/Output.h"
#include "files/ReferenceDatabase.h"

namespace qkdb {

namespace {

// The layers outside to inside, "name thickness mm" joined by " + ".
std::string LayersText(CLxArray<CQKTimberingData>& layers) {
  std::string text;
  for (int i = 0; i < layers.GetSize(); ++i) {
    if (i > 0) text += " + ";
    text += layers[i].GetStuffName().ToUtf8() + " " + Number(AsStored(layers[i].GetThick() * 1000.0)) + " mm";
  }
  return text;
}

}  // namespace

WallsCommand::WallsCommand(CLI::App& parent) {
  m_app = parent.add_subcommand("walls", "Compute every code of an envelope type as a wall");
  m_app->add_option("--type", m_type, "The envelope type's name (e.g. ASHRAE外墙)")->required();
  m_app->add_flag("--json", m_json, "Print a JSON array instead of the table");
  m_app->add_option("--db", m_db, "The reference database (default: $QKDB_DATABASE, else the one \"qkdb init\" built)");
  m_app->footer(
      "One line per code, in ID order: U in summer and winter, W/(m²·K); D, the thermal inertia index; the\n"
      "decrement factor f of the daily outside temperature wave (ISO 13786; GB 50176's 衰减倍数 is not 1/f but\n"
      "ν = α_i/(f·U), which \"qkdb wall\" reports); its delay, h; the layers outside to inside with their\n"
      "thicknesses, mm. Surface coefficients: inside 8.7, outside 18.6 (summer) and 23.0 (winter), W/(m²·K).\n"
      "--json: [{\"code\", \"inside\", \"outside\", \"outside_winter\", \"layers\": [{\"name\", \"thickness\" (m),\n"
      "\"conductivity\", \"density\", \"specific_heat\" (kJ/(kg·K)), \"conductivity_correction\",\n"
      "\"density_correction\"}], \"U\", \"U_winter\", \"D\", \"decrement\", \"delay_h\"}]. Each element is a wall\n"
      "as \"qkdb wall\" and \"qkdb thickness\" read it: pass one on as it is.\n"
      "Exit status: 1 no envelope type of that name; 2 a command line or database that cannot be used.");
}

bool WallsCommand::Chosen() const { return m_app->parsed(); }

int WallsCommand::Run() const {
  CommandDatabase db;
  if (const int status = OpenChosenDatabase(m_db, db)) return status;
  WallsAnswer answer = TypeWalls(m_type, true);
  if (!answer.refused.empty()) return Tell(1, answer.refused);

  nlohmann::ordered_json json = nlohmann::ordered_json::array();
  std::vector<std::vector<std::string>> rows{
      {"Code", "U summer", "U winter", "D", "decrement", "delay h", "Layers (outside to inside)"}};
  for (int i = 0; i < answer.walls.GetSize(); ++i) {
    CQKWallData& wall = answer.walls[i];
    const double d = wall.CalD();
    if (m_json) {
      nlohmann::ordered_json element = WallJson(wall);
      element["U"] = wall.CrXs;
      element["U_winter"] = wall.DjCrXs;
      element["D"] = d;
      element["decrement"] = wall.CrSj;
      element["delay_h"] = wall.CrYc;
      json.push_back(std::move(element));
    } else {
      CLxArray<CQKTimberingData> layers = wall.GetTimbering();
      rows.push_back({wall.Name.ToUtf8(), Fixed(wall.CrXs, 3), Fixed(wall.DjCrXs, 3), Fixed(d, 2),
                      Fixed(wall.CrSj, 3), Fixed(wall.CrYc, 1), LayersText(layers)});
    }
  }
  if (m_json) {
    std::cout << json.dump(2) << '\n';
  } else if (answer.walls.GetSize() == 0) {
    std::cout << m_type << ": no codes\n";
  } else {
    PrintColumns(std::cout, rows);
  }
  return 0;
}

}  // namespace qkdb
