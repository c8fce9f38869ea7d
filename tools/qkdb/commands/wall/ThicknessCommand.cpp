#include "commands/wall/ThicknessCommand.h"

#include <CLI/CLI.hpp>
#include <cmath>
#include <cstdio>
#include <iomanip>
#include <iostream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "answers/wall/WallAnswer.h"
#include "answers/wall/WallInput.h"

namespace qkdb {

ThicknessCommand::ThicknessCommand(CLI::App& parent) {
  m_app = parent.add_subcommand("thickness", "Find the thickness of one layer that gives a wall a required U");
  m_app->add_option("--target-u", m_targetU, "The U to reach, W/(m²·K)")->required();
  m_app->add_option("--layer", m_layer,
                    "The layer to resize, counting from 0 (the outside layer) as \"layers\" does (default: the "
                    "layer with the smallest λ·a)");
  m_app->add_flag("--winter", m_winter,
                  "Use the winter outside coefficient (outside_winter, 23.0 by default) instead of the summer one: "
                  "the U limits of GB 55015 are winter values");
  m_app->add_flag("--force", m_force, "Take values beyond any building material as given, as \"qkdb wall --force\"");
  m_app->add_option("FILE", m_file, "The wall as JSON, as for \"qkdb wall\"; standard input when absent or \"-\"");
  m_app->footer(
      "Prints {\"layer\": index, \"thickness\": m}. Without --layer the layer resized is the one with the\n"
      "smallest λ·a, a = λ/(ρ·c) its thermal diffusivity: in a usual wall the insulation, the layer one\n"
      "thickens in practice. A mass-less layer (an air gap) cannot be resized: its thickness does not count.\n"
      "U limits such as GB 55015's are winter values, so check a wall against them with --winter. Exit\n"
      "status 1 (with the answer printed) when the thickness comes out negative: the other layers alone\n"
      "already resist more than the target allows.");
}

bool ThicknessCommand::Chosen() const { return m_app->parsed(); }

int ThicknessCommand::Run() const {
  if (!std::isfinite(m_targetU) || !(m_targetU > 0.0)) {
    std::ostringstream got;
    got << std::setprecision(17) << m_targetU;
    return Refuse("thickness", "--target-u must be a positive U in W/(m²·K) (got " + got.str() + ")");
  }
  CQKWallData wall;
  ThicknessAnswer answer;
  try {
    wall = ParseWall(ReadInput(m_file), {m_force, "--force"});
    answer = ThicknessFor(wall, m_targetU, m_layer, m_winter);
  } catch (const InputError& e) {
    return Refuse("thickness", e.what());
  } catch (const ThicknessError& e) {
    return Refuse("thickness", e.what());
  }

  nlohmann::ordered_json out{{"layer", answer.layer}, {"thickness", answer.thickness}};
  std::cout << out.dump(2) << std::endl;
  if (answer.thickness < 0.0) {
    std::fputs("qkdb thickness: the target U cannot be reached: the other layers and the surfaces alone give a lower U\n",
               stderr);
    return 1;
  }
  return 0;
}

}  // namespace qkdb
