#include "commands/exchange/ExportCommand.h"

#include <CLI/CLI.hpp>
#include <fstream>
#include <iostream>
#include <sstream>

#include "exchange/kinds/ConstructionsExchange.h"
#include "exchange/kinds/RoomsExchange.h"
#include "exchange/kinds/WallsExchange.h"
#include "exchange/kinds/WeatherExchange.h"
#include "files/AtomicFile.h"
#include "files/ReferenceDatabase.h"
#include "text/CsvTable.h"

namespace qkdb {

namespace {

int Fail(int status, const std::string& message) {
  std::cerr << "qkdb export: " << OneLine(message) << "\n";
  return status;
}

ExchangeTable Export(const std::string& kind) {
  if (kind == "weather") return ExportWeather();
  if (kind == "constructions") return ExportConstructions();
  if (kind == "walls") return ExportWalls();
  return ExportRooms();
}

}  // namespace

ExportCommand::ExportCommand(CLI::App& parent) {
  m_app = parent.add_subcommand("export", "Write the weather, constructions, walls or rooms of the database as CSV or JSON");
  m_app->add_option("kind", m_kind, "weather, constructions, walls or rooms")
      ->required()
      ->check(CLI::IsMember({"weather", "constructions", "walls", "rooms"}));
  m_app->add_option("--format", m_format, "csv (the default) or json")->check(CLI::IsMember({"csv", "json"}));
  m_app->add_option("-o,--output", m_output, "Write this file (replaced whole) instead of standard output");
  m_app->add_option("--db", m_db, "The reference database (default: $QKDB_DATABASE, else the one \"qkdb init\" built)");
  m_app->footer(
      "Every column is a database column (or Table.Name, the name of the row it belongs to) followed by its\n"
      "meaning and unit: \"GMD (密度 / density, kg/m³)\". Values are as the table keeps them; a NULL is an\n"
      "empty CSV field or JSON null. Rows name each other by name, never by ID.\n"
      "  weather        one row per city with a weather row; JD_deg/WD_deg give the position in degrees\n"
      "  constructions  one row per construction, with its construction type\n"
      "  walls          one row per layer of each envelope code, outside first, the construction by name\n"
      "  rooms          one row per room use, with its room type and load parameters\n"
      "CSV: RFC 4180 quoting, UTF-8. JSON: {\"kind\", \"columns\": [{\"item\", \"label\", \"unit\"}], \"rows\"}.\n"
      "\"qkdb import\" reads either back (constructions, walls and rooms). docs/exchange.md tells more.\n"
      "Exit status: 1 the database holds what cannot be exported, or the file cannot be written; 2 a command\n"
      "line or database that cannot be used.");
}

bool ExportCommand::Chosen() const { return m_app->parsed(); }

int ExportCommand::Run() const {
  const std::string path = ChooseDatabase(m_db);
  CommandDatabase db;
  if (const std::string problem = db.Open(path); !problem.empty()) return Fail(2, problem);
  std::ostringstream text;
  try {
    const ExchangeTable table = Export(m_kind);
    if (m_format == "json")
      table.WriteJson(text);
    else
      table.WriteCsv(text);
  } catch (const DataError& e) {
    return Fail(1, e.what());
  }
  if (m_output.empty()) {
    std::cout << text.str() << std::flush;
    return std::cout ? 0 : Fail(1, "cannot write to standard output");
  }
  try {
    AtomicFile file(m_output, "export");
    std::ofstream out(file.Path(), std::ios::binary | std::ios::trunc);
    out << text.str();
    out.close();
    if (!out) throw DataError("cannot write " + m_output);
    file.Commit();
  } catch (const DataError& e) {
    return Fail(1, e.what());
  }
  return 0;
}

}  // namespace qkdb
