// qkdb: the command-line tool over QKModelDataBase, for engineers and host developers. Each command
// lives in its own file; this one only wires them up.
//
// Exit status: 0 done; 1 the command ran but has no usable answer (it says why on stderr); 2 the
// command line or the input cannot be used.

#include <CLI/CLI.hpp>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>

#include "commands/database/ImportEpwCommand.h"
#include "commands/database/ImportAccessCommand.h"
#include "commands/database/InitCommand.h"
#include "commands/database/SchemaCommand.h"
#include "commands/exchange/ExportCommand.h"
#include "commands/exchange/ImportCommand.h"
#include "files/ReferenceDatabase.h"
#include "commands/wall/ThicknessCommand.h"
#include "commands/lookup/TreeCommand.h"
#include "commands/wall/WallCommand.h"
#include "commands/lookup/WallsCommand.h"
#include "commands/lookup/WeatherCommand.h"
#include "commands/lookup/MaterialsCommand.h"
#include "commands/lookup/RoomsCommand.h"

int main(int argc, char** argv) {
  CLI::App app("The reference database of a building thermal-load design system, from the command line.", "qkdb");
  // The version, and which database and data the commands use when told nothing else: the first
  // thing to look at when an installed or copied qkdb answers from files other than expected. Made
  // only when asked for: finding the shipped folder costs every other command a few dozen system calls.
  app.set_version_flag(
      "--version",
      [] {
        const char* env = std::getenv("QKDB_DATABASE");
        return std::string("qkdb ") + QKDB_VERSION + "\ndatabase: " + qkdb::ChooseDatabase("") +
               (env && *env ? " (from QKDB_DATABASE)" : "") + "\ndata: " + qkdb::DefaultDataFolder();
      },
      "Print the version, the database and the data folder used, and exit (the tool and the library are "
      "released together)");
  qkdb::WallCommand wall(app);
  qkdb::ThicknessCommand thickness(app);
  qkdb::InitCommand init(app);
  qkdb::SchemaCommand schema(app);
  qkdb::WeatherCommand weather(app);
  qkdb::TreeCommand tree(app);
  qkdb::WallsCommand walls(app);
  qkdb::MaterialsCommand materials(app);
  qkdb::RoomsCommand rooms(app);
  qkdb::ImportEpwCommand importEpw(app);
  qkdb::ImportAccessCommand importAccess(app);
  qkdb::ExportCommand exportCommand(app);
  qkdb::ImportCommand importCommand(app);

  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& e) {
    return app.exit(e);  // --help or --version, printed on standard output
  } catch (const CLI::ParseError& e) {
    std::string message = e.what();
    // A word CLI11 could not place, with no command chosen, is a command or option the tool does not
    // have; say which, rather than CLI11's "not expected".
    if (dynamic_cast<const CLI::ExtrasError*>(&e) && app.get_subcommands().empty() && !app.remaining().empty()) {
      const std::string word = app.remaining().front();  // remaining() is a fresh vector
      message = (word.starts_with('-') ? "unknown option \"" : "unknown command \"") + word + "\"";
    }
    std::string text = "qkdb: " + message + "\nRun \"qkdb --help\" for the commands.\n";
    std::fputs(text.c_str(), stderr);
    return 2;
  }

  if (wall.Chosen()) return wall.Run();
  if (thickness.Chosen()) return thickness.Run();
  if (init.Chosen()) return init.Run();
  if (schema.Chosen()) return schema.Run();
  if (weather.Chosen()) return weather.Run();
  if (tree.Chosen()) return tree.Run();
  if (walls.Chosen()) return walls.Run();
  if (materials.Chosen()) return materials.Run();
  if (rooms.Chosen()) return rooms.Run();
  if (importEpw.Chosen()) return importEpw.Run();
  if (importAccess.Chosen()) return importAccess.Run();
  if (exportCommand.Chosen()) return exportCommand.Run();
  if (importCommand.Chosen()) return importCommand.Run();
  std::cerr << app.help();
  return 2;
}
