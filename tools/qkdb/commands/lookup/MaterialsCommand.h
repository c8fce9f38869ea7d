#pragma once
// qkdb materials [--type NAME] [--search TEXT] [--json] [--db PATH]: the constructions of the
// catalogue (each a material) with their type, density ρ (kg/m³), conductivity λ (W/(m·K)), specific
// heat c (kJ/(kg·K)) and the heat-storage coefficient S24 (W/(m²·K), the daily period) that the wall
// calculation derives from them. An air space (no mass) shows its thermal resistance instead.

#include <string>

namespace CLI {
class App;
}

namespace qkdb {

class MaterialsCommand {
 public:
  explicit MaterialsCommand(CLI::App& parent);
  bool Chosen() const;
  // The exit status: 0 (also when nothing matches the search); 1 when no construction type has the
  // name given by --type; 2 for a command line or a database that cannot be used.
  int Run() const;

 private:
  CLI::App* m_app;
  std::string m_type;
  std::string m_search;
  bool m_json = false;
  std::string m_db;
};

}  // namespace qkdb
