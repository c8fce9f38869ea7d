#pragma once
// qkdb thickness --target-u U [--winter] [FILE]: which layer of a wall (see WallInput.h for its JSON)
// to make thicker or thinner, and to what thickness, so that the wall reaches U; the library picks
// the layer of the lowest corrected conductivity. Prints {"layer": index, "thickness": m}, the index
// counting from 0 in "layers" (the outside layer is 0).

#include <string>

namespace CLI {
class App;
}

namespace qkdb {

class ThicknessCommand {
 public:
  explicit ThicknessCommand(CLI::App& parent);
  bool Chosen() const;
  // The exit status: 0; 1 when no thickness reaches the target (the answer is still printed); 2 for
  // input that cannot be used.
  int Run() const;

 private:
  CLI::App* m_app;
  std::string m_file;
  double m_targetU = 0.0;
  bool m_winter = false;
};

}  // namespace qkdb
