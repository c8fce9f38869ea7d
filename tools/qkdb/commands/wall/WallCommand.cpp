#include "commands/wall/WallCommand.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <nlohmann/json.hpp>

#include "answers/WallInput.h"

namespace qkdb {

namespace {

template <std::size_t N>
nlohmann::ordered_json Series(const double (&values)[N]) {
  nlohmann::ordered_json series = nlohmann::ordered_json::array();
  for (double v : values) series.push_back(v);
  return series;
}

}  // namespace

WallCommand::WallCommand(CLI::App& parent) {
  m_app = parent.add_subcommand("wall", "Calculate a wall given as JSON (layers from the outside face inwards)");
  m_app->add_option("FILE", m_file, "The wall as JSON; standard input when absent or \"-\"");
  m_app->footer(
      "Input: {\"inside\": 8.7, \"outside\": 18.6, \"outside_winter\": 23.0, \"layers\": [{\"name\": \"brick\",\n"
      "  \"thickness\": 0.24, \"conductivity\": 0.81, \"density\": 1800, \"specific_heat\": 1.05,\n"
      "  \"conductivity_correction\": 1.0, \"density_correction\": 1.0}]}\n"
      "Units: m, W/(m·K), kg/m³, kJ/(kg·K); surface coefficients W/(m²·K). The coefficients, names and\n"
      "corrections may be left out. A mass-less layer (density or specific heat 0) is an air gap or film:\n"
      "its \"conductivity\" is then its conductance, W/(m²·K).");
}

bool WallCommand::Chosen() const { return m_app->parsed(); }

int WallCommand::Run() const {
  CQKWallData wall;
  try {
    wall = ParseWall(ReadInput(m_file));
  } catch (const InputError& e) {
    return Refuse("wall", e.what());
  }
  // Winter first: Cal(1) fills DjCrXs only, and Cal(0) then does the whole summer calculation, which
  // leaves the harmonics and responses of the summer outside coefficient.
  wall.Cal(1);
  wall.Cal(0);

  nlohmann::ordered_json out;
  out["U"] = wall.CrXs;
  out["U_winter"] = wall.DjCrXs;
  out["U_internal"] = wall.NCrXs;
  out["D"] = wall.CalD();
  out["decrement"] = wall.CrSj;
  out["delay_h"] = wall.CrYc;
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
  // The library's dump writes the shortest text that reads back to the same double.
  std::cout << out.dump(2) << '\n';
  return 0;
}

}  // namespace qkdb
