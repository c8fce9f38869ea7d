#include "commands/database/ImportEpwCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <numbers>
#include <vector>

#include "text/CsvTable.h"
#include "import/epw/EpwFile.h"
#include "import/epw/EpwPlace.h"
#include "files/ReferenceDatabase.h"
#include "files/SharedConnection.h"
#include "import/WriteTransaction.h"
#include "mfc/CString.h"
#include "weather/CQKWeather.h"

namespace qkdb {

namespace {

namespace fs = std::filesystem;

// The fourteen design-day items the weather table holds, after their "Sum"/"Win" prefix.
const char* const kDesignDayItems[] = {"MaxDryBulbTemp", "DailyTempRange", "HumMaxDryBulb", "BarPress",
                                       "WindSpeed",      "WindDirection",  "SkyClearness",  "RainIndicator",
                                       "SnowIndicator",  "DayOfMonth",     "Month",         "DayType",
                                       "DSTIndicator",   "HumIndType"};

// Standard-atmosphere pressure at an elevation, Pa, rounded to 1 Pa: ASHRAE Fundamentals (2009),
// chapter 1, equation 3, p = 101.325 (1 − 2.25577·10⁻⁵ Z)^5.2559 kPa. A design day is computed at the
// station's standard pressure, as EnergyPlus design-day files are.
double StandardPressure(double elevation) {
  return std::round(101325.0 * std::pow(1.0 - 2.25577e-5 * elevation, 5.2559));
}

// One design day as EnergyPlus's design-day files build it from the ASHRAE conditions: the 21st of
// the month, humidity type 0 (the humidity value is a wet-bulb, °C), no rain, snow or daylight saving.
CQKDesignData DesignDay(int month, int dayType, double dryBulb, double range, double wetBulb, double pressure,
                        double windSpeed, double windDirection, double skyClearness) {
  CQKDesignData d;
  d.Month = month;
  d.DayOfMonth = 21;
  d.DayType = dayType;
  d.MaxDryBulbTemp = dryBulb;
  d.DailyTempRange = range;
  d.HumIndType = 0;
  d.HumMaxDryBulb = wetBulb;
  d.BarPress = pressure;
  d.WindSpeed = windSpeed;
  d.WindDirection = windDirection;
  d.SkyClearness = skyClearness;
  return d;
}

// Summer: the hottest month, the 0.4 % dry-bulb with its daily range and mean coincident wet-bulb, a
// clear sky. Winter: the coldest month, the 99.6 % dry-bulb held all day (range 0, wet-bulb taken
// equal to it), no sun. Day types keep the weather value's own coding: 1 summer, 0 winter.
void FillDesignDays(const EpwFile& epw, CQKWeather& w) {
  const double pressure = StandardPressure(epw.location.elevation);
  if (const auto& c = epw.cooling)
    w.SumDesignDay = DesignDay(c->hottestMonth, 1, c->dryBulb, c->dailyRange, c->wetBulb, pressure, c->windSpeed,
                               c->windDirection, 1.0);
  if (const auto& h = epw.heating)
    w.WinDesignDay = DesignDay(h->coldestMonth, 0, h->dryBulb, 0.0, h->dryBulb, pressure, h->windSpeed,
                               h->windDirection, 0.0);
}

// The weather columns this import writes; every other column keeps what the row held.
std::vector<std::string> ImportedColumns(const EpwFile& epw) {
  std::vector<std::string> columns = {"EpwName", "JD", "WD", "TimeZone", "Elevation"};
  for (const char* item : kDesignDayItems) {
    if (epw.cooling) columns.push_back(std::string("Sum") + item);
    if (epw.heating) columns.push_back(std::string("Win") + item);
  }
  return columns;
}

// The columns of the weather row id that this import does not write, with their values as the
// database holds them, null included: read before the record writes every item of the weather value,
// and put back after it, bit for bit. Reading the row into the record and writing it back instead
// would turn null into Beijing's default and pass percentages through a fraction and back. For a row
// the import adds there is nothing to keep (asNull): its other columns become null, "not given".
tablekit::ColumnValues OtherColumns(WriteTransaction& tx, long id, const std::vector<std::string>& imported,
                                    bool asNull) {
  const tablekit::ResultSet row =
      tx.Values("SELECT * FROM Weather WHERE ID = " + std::to_string(id), "read the weather row");
  tablekit::ColumnValues others;
  if (row.rows.size() != 1) return others;
  for (std::size_t c = 0; c < row.columns.size(); ++c) {
    const std::string name = row.columns[c].ToUtf8();
    const auto same = [&](const std::string& item) { return CString::FromUtf8(item).CompareNoCase(row.columns[c]) == 0; };
    if (!same("ID") && !same("CId") && std::none_of(imported.begin(), imported.end(), same))
      others.emplace_back(name, asNull ? tablekit::FieldValue{} : row.rows[0][c]);
  }
  return others;
}

// The imported file is the city's own from now on: WeatherFileSource says so, with the file's station
// and source, and a distance of 0 (the import moves the city's position onto the station's). A
// database without that table is left without it.
void RecordOwnFile(WriteTransaction& tx, long cityId, const std::string& fileName, const EpwLocation& l) {
  if (!tx.HasTable("WeatherFileSource")) return;
  const std::string what = "record where the imported weather file comes from";
  const std::string city = std::to_string(cityId);
  tx.Execute("DELETE FROM WeatherFileSource WHERE CId = " + city, what);
  tx.Execute("INSERT INTO WeatherFileSource (CId, EpwName, WmoId, Station, Source, DistanceKm, Own) VALUES (" + city +
                 ", " + WriteTransaction::Literal(fileName) + ", " + WriteTransaction::Literal(l.wmo) + ", " +
                 WriteTransaction::Literal(l.city) + ", " + WriteTransaction::Literal(l.source) + ", 0, 1)",
             what);
}

// Adds the city's weather row, or overwrites the one it has, keeping the columns the file does not give.
// Returns the row's key.
long WriteWeather(WriteTransaction& tx, CQKWeather& w, const std::vector<std::string>& imported, bool& added) {
  CADODatabase* db = tx.Database();
  switch (w.IsExist(db)) {
    case QKLoad::DBS_NOTEXIST:
      added = true;
      if (w.AddIfNotExist(db, 0) != QKLoad::DBS_ADDED) throw DataError("cannot add the weather row");
      FaultPoint("weather-written");
      tx.UpdateRow("Weather", w.GetID(), OtherColumns(tx, w.GetID(), imported, true),
                   "leave the weather items the file does not give as not given");
      return w.GetID();
    case QKLoad::DBS_EXIST: {
      added = false;
      if (w.GetID() <= 0) throw DataError("the city has several weather rows; the import cannot tell which to update");
      const tablekit::ColumnValues kept = OtherColumns(tx, w.GetID(), imported, false);
      if (!w.UpdateData(w.GetID(), db)) throw DataError("cannot update the weather row");
      FaultPoint("weather-written");
      tx.UpdateRow("Weather", w.GetID(), kept, "keep the weather items the file does not give");
      return w.GetID();
    }
    default:
      throw DataError("cannot read the weather table");
  }
}

void Report(const EpwFile& epw, const EpwPlace& place, bool added, long id) {
  const EpwLocation& l = epw.location;
  std::printf("%s, %s, %s (city ID %ld), found %s\n", place.city.c_str(), place.province.c_str(),
              place.country.c_str(), place.cityId, place.how.c_str());
  std::printf("Weather row %ld %s: station %s %s, %.4f° %s, %.4f° %s, UTC%+g, %g m\n", id,
              added ? "added" : "updated", l.wmo.c_str(), l.source.c_str(), std::fabs(l.longitude),
              l.longitude < 0 ? "W" : "E", std::fabs(l.latitude), l.latitude < 0 ? "S" : "N", l.timeZone,
              l.elevation);
  if (epw.cooling) {
    const EpwCooling& c = *epw.cooling;
    std::printf("Summer design day %d/21: %g °C dry-bulb, %g K range, %g °C wet-bulb, %.0f Pa, %g m/s from %g°\n",
                c.hottestMonth, c.dryBulb, c.dailyRange, c.wetBulb, StandardPressure(l.elevation), c.windSpeed,
                c.windDirection);
  }
  if (epw.heating) {
    const EpwHeating& h = *epw.heating;
    std::printf("Winter design day %d/21: %g °C dry-bulb, %.0f Pa, %g m/s from %g°\n", h.coldestMonth, h.dryBulb,
                StandardPressure(l.elevation), h.windSpeed, h.windDirection);
  }
  if (!epw.cooling || !epw.heating)
    std::printf("The file gives no %s design conditions: %s kept as %s.\n",
                !epw.cooling && !epw.heating ? "heating or cooling" : (!epw.cooling ? "cooling" : "heating"),
                !epw.cooling && !epw.heating ? "both design days are" : "that design day is",
                added ? "not given (null)" : "they were");
}

}  // namespace

ImportEpwCommand::ImportEpwCommand(CLI::App& parent) {
  m_app = parent.add_subcommand("import-epw",
                                "Add or update a city's position and design days from an EnergyPlus weather file");
  m_app->add_option("file", m_file, "The EPW file")->required();
  m_app->add_option("--db", m_db, "The reference database (default: $QKDB_DATABASE, else " +
                                       DefaultDatabasePath() + ")");
  m_app->add_option("--city", m_city, "Put the station in this city instead of recognising it");
  m_app->add_option("--province", m_province, "With --city: the city's province (default: the file's region)")
      ->needs("--city");
  m_app->add_option("--country", m_country, "With --city: the province's country (default: the file's country)")
      ->needs("--city");
  m_app->add_option("--wait", m_wait, "Seconds to wait while another program is changing the database")
      ->check(CLI::Range(0.0, 3600.0))
      ->default_val(30);
}

bool ImportEpwCommand::Chosen() const { return m_app->parsed(); }

int ImportEpwCommand::Run() const {
  EpwFile epw;
  try {
    epw = EpwFile::Read(m_file);
  } catch (const DataError& e) {
    std::cerr << "qkdb: " << e.what() << "\n";
    return 2;
  }
  const std::string path = ChooseDatabase(m_db);
  try {
    if (const std::string problem = NotADatabase(path); !problem.empty()) throw DataError(problem);
    WriteTransaction tx(path, m_wait);
    RequireReferenceTables(*tx.Database());
    // Every record class reads and writes in the transaction, on its one connection.
    SharedConnection shared(*tx.Database(), path);
    FaultPoint("begun");
    const std::string fileName = fs::path(m_file).filename().string();
    const EpwPlace place = FindOrAddPlace(tx, fileName, epw.location, {m_city, m_province, m_country});
    FaultPoint("place-written");
    CQKWeather weather;
    weather.CId = place.cityId;
    weather.EpwName = CString::FromUtf8(fileName);
    weather.JD = epw.location.longitude * std::numbers::pi / 180.0;  // radians, as the value holds them
    weather.WD = epw.location.latitude * std::numbers::pi / 180.0;
    weather.TimeZone = epw.location.timeZone;
    weather.Elevation = epw.location.elevation;
    FillDesignDays(epw, weather);
    bool added = false;
    const long id = WriteWeather(tx, weather, ImportedColumns(epw), added);
    FaultPoint("weather-kept");
    RecordOwnFile(tx, place.cityId, fileName, epw.location);
    FaultPoint("before-commit");
    tx.Commit();
    std::printf("Imported %s into %s:\n", fileName.c_str(), path.c_str());
    Report(epw, place, added, id);
  } catch (const DataError& e) {
    std::cerr << "qkdb: " << e.what() << "\n";
    return 1;
  }
  return 0;
}

}  // namespace qkdb
