#pragma once
// qkdb wall [FILE]: the thermal characteristics of one wall (see WallInput.h for its JSON), as JSON on
// standard output: U in summer, in winter and between two rooms, the inertia index, the decrement and
// delay, the 12 harmonics of the daily period and the four 24-hour response series.

#include <string>

namespace CLI {
class App;
}

namespace qkdb {

class WallCommand {
 public:
  explicit WallCommand(CLI::App& parent);
  bool Chosen() const;
  // The exit status: 0, or 2 for input that cannot be used.
  int Run() const;

 private:
  CLI::App* m_app;
  std::string m_file;
};

}  // namespace qkdb
