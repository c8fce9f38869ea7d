#include "commands/lookup/WallsCommand.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <nlohmann/json.hpp>
#include <vector>

#include "text/Output.h"
#include "envelope/CQKBSDataAdmin.h"

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
  if (const int status = OpenChosenDatabase(m_db)) return status;
  CQKBSType type;
  type.Name = CString::FromUtf8(m_type);
  // A name holding a double quote cannot be looked up (the query fails): no type has it either.
  if (type.IsExist(nullptr) != QKLoad::DBS_EXIST) return Tell(1, "no envelope type named " + Quoted(m_type));

  CQKBSDataAdmin admin;
  CLxArray<CQKWallData> walls;
  const CQKCrXs coefficients;  // inside 8.7, outside 18.6 and 23.0 in winter, W/(m²·K)
  admin.GetBSCodeCWallDataAry(type, walls, true, coefficients);

  nlohmann::ordered_json json = nlohmann::ordered_json::array();
  std::vector<std::vector<std::string>> rows{
      {"Code", "U summer", "U winter", "D", "decrement", "delay h", "Layers (outside to inside)"}};
  for (int i = 0; i < walls.GetSize(); ++i) {
    CQKWallData& wall = walls[i];
    CLxArray<CQKTimberingData> layers = wall.GetTimbering();
    const double d = wall.CalD();
    if (m_json) {
      nlohmann::ordered_json layerList = nlohmann::ordered_json::array();
      for (int k = 0; k < layers.GetSize(); ++k) {
        CQKTimberingData& layer = layers[k];
        layerList.push_back({{"name", layer.GetStuffName().ToUtf8()},
                             {"thickness", layer.GetThick()},
                             {"conductivity", layer.GetDrXs()},
                             {"density", layer.GetGMD()},
                             {"specific_heat", layer.GetBRr()},
                             {"conductivity_correction", layer.GetDrXsXz()},
                             {"density_correction", layer.GetTimberData().GMCXz}});
      }
      json.push_back({{"code", wall.Name.ToUtf8()},
                      {"inside", coefficients.NHrXs},
                      {"outside", coefficients.WHrXs},
                      {"outside_winter", coefficients.DjWHrXs},
                      {"layers", std::move(layerList)},
                      {"U", wall.CrXs},
                      {"U_winter", wall.DjCrXs},
                      {"D", d},
                      {"decrement", wall.CrSj},
                      {"delay_h", wall.CrYc}});
    } else {
      rows.push_back({wall.Name.ToUtf8(), Fixed(wall.CrXs, 3), Fixed(wall.DjCrXs, 3), Fixed(d, 2),
                      Fixed(wall.CrSj, 3), Fixed(wall.CrYc, 1), LayersText(layers)});
    }
  }
  if (m_json) {
    std::cout << json.dump(2) << '\n';
  } else if (walls.GetSize() == 0) {
    std::cout << m_type << ": no codes\n";
  } else {
    PrintColumns(std::cout, rows);
  }
  return 0;
}

}  // namespace qkdb
