#pragma once
// qkdb weather NAME | --id N | --near LON,LAT [--json] [--db PATH]: the design climate of a city (by
// name or by ID), or of the city with a weather file nearest a point, as the library finds it: a city
// without a weather file of its own borrows the climate of its nearest neighbour that has one, and the
// answer says so, with the distance. Values are shown in the weather table's units; a column the
// table leaves NULL is shown as not given ("—", JSON null), never as the value class's default.

#include <string>

namespace CLI {
class App;
}

namespace qkdb {

class WeatherCommand {
 public:
  explicit WeatherCommand(CLI::App& parent);
  bool Chosen() const;
  // The exit status: 0; 1 when there is no such city or no climate for it; 2 for a command line or a
  // database that cannot be used.
  int Run() const;

 private:
  CLI::App* m_app;
  std::string m_name;
  long m_id = 0;
  std::string m_near;
  bool m_json = false;
  std::string m_db;
};

}  // namespace qkdb
