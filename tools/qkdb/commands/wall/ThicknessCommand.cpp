#include "commands/wall/ThicknessCommand.h"

#include <CLI/CLI.hpp>
#include <cmath>
#include <cstdio>
#include <iomanip>
#include <iostream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "answers/WallInput.h"

namespace qkdb {

ThicknessCommand::ThicknessCommand(CLI::App& parent) {
  m_app = parent.add_subcommand("thickness", "Find the layer thickness that gives a wall a required U");
  m_app->add_option("--target-u", m_targetU, "The U to reach, W/(m²·K)")->required();
  m_app->add_flag("--winter", m_winter, "Use the winter outside coefficient (default: the summer one)");
  m_app->add_option("FILE", m_file, "The wall as JSON, as for \"qkdb wall\"; standard input when absent or \"-\"");
  m_app->footer(
      "Prints {\"layer\": index, \"thickness\": m}: index counts from 0 in \"layers\". Exit status 1 (with the\n"
      "answer printed) when the thickness comes out negative: the other layers alone already resist more\n"
      "than the target allows.");
}

bool ThicknessCommand::Chosen() const { return m_app->parsed(); }

int ThicknessCommand::Run() const {
  if (!std::isfinite(m_targetU) || !(m_targetU > 0.0)) {
    std::ostringstream got;
    got << std::setprecision(17) << m_targetU;
    return Refuse("thickness", "--target-u must be a positive U in W/(m²·K) (got " + got.str() + ")");
  }
  CQKWallData wall;
  try {
    wall = ParseWall(ReadInput(m_file));
  } catch (const InputError& e) {
    return Refuse("thickness", e.what());
  }
  int index = -1;
  double thickness = 0.0;
  QKLoad::ErrorType result =
      m_winter ? wall.CurrectDjThick(m_targetU, index, thickness) : wall.CurrectThick(m_targetU, index, thickness);
  if (result == QKLoad::ET_NOLAYER) return Refuse("thickness", "the wall has no layers");

  nlohmann::ordered_json out{{"layer", index}, {"thickness", thickness}};
  std::cout << out.dump(2) << std::endl;
  if (thickness < 0.0) {
    std::fputs("qkdb thickness: the target U cannot be reached: the other layers and the surfaces alone give a lower U\n",
               stderr);
    return 1;
  }
  return 0;
}

}  // namespace qkdb
