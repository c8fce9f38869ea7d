#include "commands/exchange/ImportCommand.h"

#include <CLI/CLI.hpp>
#include <cctype>
#include <filesystem>
#include <iostream>

#include "exchange/kinds/ConstructionsExchange.h"
#include "exchange/kinds/RoomsExchange.h"
#include "exchange/kinds/WallsExchange.h"
#include "files/ReferenceDatabase.h"
#include "files/SharedConnection.h"
#include "import/WriteTransaction.h"
#include "text/BoundedRead.h"

namespace qkdb {

namespace {

namespace fs = std::filesystem;

int Fail(int status, const std::string& message) {
  std::cerr << "qkdb import: " << OneLine(message) << "\n";
  return status;
}

// JSON for a .json file, CSV for a .csv file; any other by its first character that is not a blank.
bool IsJson(const std::string& file, const std::string& text) {
  std::string extension = fs::path(file).extension().string();
  for (char& c : extension) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  if (extension == ".json") return true;
  if (extension == ".csv") return false;
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  return first != std::string::npos && (text[first] == '{' || text[first] == '[');
}

std::vector<ExchangeColumn> Columns(const std::string& kind) {
  if (kind == "constructions") return ConstructionColumns();
  if (kind == "walls") return WallColumns();
  return RoomColumns();
}

void Import(const std::string& kind, WriteTransaction& tx, const ExchangeTable& table, ImportReport& report) {
  if (kind == "constructions") return ImportConstructions(tx, table, report);
  if (kind == "walls") return ImportWalls(tx, table, report);
  ImportRooms(tx, table, report);
}

}  // namespace

ImportCommand::ImportCommand(CLI::App& parent) {
  m_app = parent.add_subcommand("import", "Add or update constructions, walls or rooms from a file \"qkdb export\" wrote");
  m_app->add_option("kind", m_kind, "constructions, walls or rooms")
      ->required()
      ->check(CLI::IsMember({"constructions", "walls", "rooms"}));
  m_app->add_option("file", m_file, "The CSV or JSON file")->required();
  m_app->add_option("--db", m_db, "The reference database (default: $QKDB_DATABASE, else " + DefaultDatabasePath() + ")");
  m_app->add_option("--wait", m_wait, "Seconds to wait while another program is changing the database")
      ->check(CLI::Range(0.0, 3600.0))
      ->default_val(30);
  m_app->footer(
      "Rows are matched by name: a construction, an envelope type and an envelope code by their names over the\n"
      "whole catalogue, a room use by its name within its room type. A row the database lacks is added, one\n"
      "that differs is updated, one that is the same is left alone. A wall layer's construction must be in the\n"
      "database already: import the constructions first.\n"
      "All or nothing: any refused row (its reason is printed) leaves the database unchanged.\n"
      "Output: one line per entry added or updated (or, with refusals, per refused row), then the counts.\n"
      "Exit status: 1 rows refused, or a database that cannot take the change (nothing changed); 2 a command\n"
      "line, or a file that cannot be read as an export of that kind.");
}

bool ImportCommand::Chosen() const { return m_app->parsed(); }

int ImportCommand::Run() const {
  std::string text;
  if (const std::string refused = ReadFile(m_file, kDataFileLimit, m_file, text); !refused.empty())
    return Fail(2, refused);
  const std::string name = fs::path(m_file).filename().string();
  ExchangeTable table("", {});
  try {
    table = ExchangeTable::Read(text, name, IsJson(m_file, text), m_kind, Columns(m_kind));
  } catch (const DataError& e) {
    return Fail(2, e.what());
  }
  const std::string path = ChooseDatabase(m_db);
  ImportReport report;
  try {
    if (const std::string problem = NotADatabase(path); !problem.empty()) throw DataError(problem);
    WriteTransaction tx(path, m_wait);
    RequireReferenceTables(*tx.Database());
    // Every record class reads and writes in the transaction, on its one connection.
    SharedConnection shared(*tx.Database(), path);
    FaultPoint("begun");
    Import(m_kind, tx, table, report);
    if (report.AnyRefused()) {
      std::cout << report.Text();
      return Fail(1, std::to_string(report.RefusedCount()) + " of the rows of " + name +
                         " refused; nothing was changed");
    }
    FaultPoint("before-commit");
    tx.Commit();
  } catch (const DataError& e) {
    return Fail(1, e.what());
  }
  std::cout << report.Text();
  return 0;
}

}  // namespace qkdb
