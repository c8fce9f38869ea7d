#pragma once
// qkdb import-epw FILE.epw [--db DB] [--city NAME [--province NAME] [--country NAME]]: brings the
// station of an EnergyPlus weather file into the reference database: its place (country, province,
// city) and its weather row (EpwName, position, time zone, elevation, and the summer and winter design
// days from the file's ASHRAE design conditions), through the library's record classes.
//
// The database is changed as a whole or not at all: the import works on a copy beside it and renames
// the copy onto it at the end. A program writing the database at the same moment loses its change.

#include <string>

namespace CLI {
class App;
}

namespace qkdb {

class ImportEpwCommand {
 public:
  explicit ImportEpwCommand(CLI::App& parent);
  bool Chosen() const;
  // The exit status: 0 imported; 1 the database cannot take it (nothing changed); 2 unusable arguments
  // or an EPW file that cannot be read (the message names the line).
  int Run() const;

 private:
  CLI::App* m_app;
  std::string m_file;
  std::string m_db;
  std::string m_city;
  std::string m_province;
  std::string m_country;
};

}  // namespace qkdb
