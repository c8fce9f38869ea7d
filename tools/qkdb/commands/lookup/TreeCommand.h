#pragma once
// qkdb tree weather [--with-weather] | envelope | constructions | rooms [--ids] [--json] [--db PATH]:
// one of the library's display trees, the library's own root left out (the first level is the tree's
// top rows). As indented text, two blanks per level, each name after its row's ID with --ids; or as
// JSON, each node {"id", "name", "level", "children"}:
//   weather        countries > provinces > cities (--with-weather: only places with a weather file)
//   envelope       envelope categories > types > codes
//   constructions  construction types > constructions
//   rooms          room types > room uses

#include <string>

namespace CLI {
class App;
}

namespace qkdb {

class TreeCommand {
 public:
  explicit TreeCommand(CLI::App& parent);
  bool Chosen() const;
  // The exit status: 0, or 2 when the database cannot be used.
  int Run() const;

 private:
  CLI::App* m_app;
  std::string m_which;
  std::string m_db;
  bool m_withWeather = false;
  bool m_ids = false;
  bool m_json = false;
};

}  // namespace qkdb
