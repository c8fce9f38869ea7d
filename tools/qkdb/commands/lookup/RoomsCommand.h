#pragma once
// qkdb rooms [NAME] [--type TYPE] [--schedules] [--json] [--db PATH]: without a name, the room types
// and their room uses; with one, that room use's load parameters with Chinese and English labels and
// units, "—" where the table leaves a parameter NULL (not given), and with --schedules its hourly
// schedules where the database keeps them.

#include <string>

namespace CLI {
class App;
}

namespace qkdb {

class RoomsCommand {
 public:
  explicit RoomsCommand(CLI::App& parent);
  bool Chosen() const;
  // The exit status: 0; 1 when no room type or room use has the name, or the name is a room use of
  // several types and --type does not choose; 2 for a command line or a database that cannot be used.
  int Run() const;

 private:
  CLI::App* m_app;
  std::string m_name;
  std::string m_type;
  bool m_schedules = false;
  bool m_json = false;
  std::string m_db;
};

}  // namespace qkdb
