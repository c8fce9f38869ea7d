#pragma once
// qkdb thickness --target-u U [--layer N] [--winter] [FILE]: the thickness of one layer of a wall (see
// answers/wall/WallInput.h for its JSON) that makes the wall reach U. Without --layer the library
// picks the layer (answers/wall/WallAnswer.h says which). Prints {"layer": index, "thickness": m}, the
// index counting from 0 in "layers" (the outside layer is 0).

#include <optional>
#include <string>

namespace CLI {
class App;
}

namespace qkdb {

class ThicknessCommand {
 public:
  explicit ThicknessCommand(CLI::App& parent);
  bool Chosen() const;
  // The exit status: 0; 1 when the target cannot be reached (the answer is still printed); 2 for
  // input that cannot be used.
  int Run() const;

 private:
  CLI::App* m_app;
  std::string m_file;
  double m_targetU = 0.0;
  std::optional<int> m_layer;
  bool m_winter = false;
  bool m_force = false;
};

}  // namespace qkdb
