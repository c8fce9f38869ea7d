#include "commands/wall/WallCommand.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <nlohmann/json.hpp>

#include "answers/wall/WallAnswer.h"
#include "answers/wall/WallInput.h"
#include "commands/wall/WallReport.h"

namespace qkdb {

namespace {

template <std::size_t N>
nlohmann::ordered_json Series(const double (&values)[N]) {
  nlohmann::ordered_json series = nlohmann::ordered_json::array();
  for (double v : values) series.push_back(v);
  return series;
}

// Every figure with every digit: the shortest text that reads back to the same double.
void PrintJson(const CQKWallData& wall) {
  nlohmann::ordered_json out;
  out["U"] = wall.CrXs;
  out["U_winter"] = wall.DjCrXs;
  out["U_internal"] = wall.NCrXs;
  out["D"] = wall.CalD();
  out["decrement"] = wall.CrSj;
  out["delay_h"] = wall.CrYc;
  out["nu"] = Nu(wall);
  nlohmann::ordered_json harmonics = nlohmann::ordered_json::array();
  for (int n = 1; n <= 12; ++n) {
    harmonics.push_back({{"n", n},
                         {"attenuation_multiple", wall.Harmonic1[n - 1]},
                         {"phase", wall.Harmonic2[n - 1]},
                         {"inside_modulus", wall.Harmonic3[n - 1]},
                         {"inside_phase", wall.Harmonic4[n - 1]}});
  }
  out["harmonics"] = std::move(harmonics);
  out["response"] = {{"inside", Series(wall.Response1)},
                     {"through", Series(wall.Response2)},
                     {"inside_ramp", Series(wall.Response3)},
                     {"inside_step", Series(wall.Response4)}};
  std::cout << out.dump(2) << '\n';
}

}  // namespace

WallCommand::WallCommand(CLI::App& parent) {
  m_app = parent.add_subcommand("wall", "Calculate a wall given as JSON: U, D, decrement and delay, 衰减倍数 ν, response terms");
  m_app->add_option("FILE", m_file, "The wall as JSON; standard input when absent or \"-\"");
  m_app->add_flag("--json", m_json, "Print JSON with every digit, the 12 harmonics and the response series");
  m_app->add_flag("--force", m_force,
                  "Take values beyond any building material as given (a layer over 2 m, λ over 500 W/(m·K), ρ over "
                  "25 000 kg/m³, c over 10 kJ/(kg·K)), which are otherwise refused as typed in another unit");
  m_app->footer(
      "Input: {\"inside\": 8.7, \"outside\": 18.6, \"outside_winter\": 23.0, \"layers\": [{\"name\": \"brick\",\n"
      "  \"thickness\": 0.24, \"conductivity\": 0.81, \"density\": 1800, \"specific_heat\": 1.05,\n"
      "  \"conductivity_correction\": 1.0, \"density_correction\": 1.0}]}\n"
      "Units: m, W/(m·K), kg/m³, kJ/(kg·K); surface coefficients W/(m²·K). The coefficients, names and\n"
      "corrections may be left out. A mass-less layer (density or specific heat 0) is an air gap or film:\n"
      "its \"conductivity\" is then its conductance, W/(m²·K). Example: docs/examples/plastered-brick-wall.json.\n"
      "JSON keys: U, U_winter, U_internal (W/(m²·K)), D, decrement (f), delay_h (h), nu (ν = α_i/(f·U)),\n"
      "harmonics, response.");
}

bool WallCommand::Chosen() const { return m_app->parsed(); }

int WallCommand::Run() const {
  CQKWallData wall;
  try {
    wall = ParseWall(ReadInput(m_file), {m_force, "--force"});
  } catch (const InputError& e) {
    return Refuse("wall", e.what());
  }
  CalculateWall(wall);
  if (m_json)
    PrintJson(wall);
  else
    PrintWallReport(std::cout, wall);
  return 0;
}

}  // namespace qkdb
