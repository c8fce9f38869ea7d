#pragma once
// qkdb walls --type NAME [--json] [--db PATH]: every code of an envelope type computed as a wall with
// the library's standard surface coefficients (inside 8.7, outside 18.6 in summer and 23.0 in winter,
// W/(m²·K)): its layers with their thicknesses, U in summer and in winter, the thermal inertia index
// D, the decrement factor and the delay of the daily outside temperature wave.

#include <string>

namespace CLI {
class App;
}

namespace qkdb {

class WallsCommand {
 public:
  explicit WallsCommand(CLI::App& parent);
  bool Chosen() const;
  // The exit status: 0; 1 when no envelope type has the name; 2 for a command line or a database that
  // cannot be used.
  int Run() const;

 private:
  CLI::App* m_app;
  std::string m_type;
  bool m_json = false;
  std::string m_db;
};

}  // namespace qkdb
