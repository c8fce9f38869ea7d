#pragma once
// qkdb tree weather [--with-weather] | envelope | constructions | rooms [--db PATH]: one of the
// library's display trees as indented text, two blanks per level, the library's own root left out
// (the first level is the tree's top rows):
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
  // The exit status: 0, or 2 for a command line or a database that cannot be used.
  int Run() const;

 private:
  CLI::App* m_app;
  std::string m_which;
  bool m_withWeather = false;
  std::string m_db;
};

}  // namespace qkdb
