#pragma once
// qkdb import-epw FILE.epw [--db DB] [--city NAME [--province NAME] [--country NAME]] [--wait S]: brings the
// station of an EnergyPlus weather file into the reference database: its place (country, province,
// city) and its weather row (EpwName, position, time zone, elevation, and the summer and winter design
// days from the file's ASHRAE design conditions), through the library's record classes.
//
// The database (an SQLite file or a PostgreSQL database) is changed in place, in one transaction that
// holds its write lock (WriteTransaction): as a whole or not at all, and without losing what other
// programs write before or after. A database locked by another writer is waited for --wait seconds
// (30 unless told), then the import gives up with status 1, nothing changed.

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
  double m_wait = 30;
};

}  // namespace qkdb
