// qkdb: the command-line tool over QKModelDataBase, for engineers and host developers. Each command
// lives in its own file; this one only wires them up.
//
// Exit status: 0 done; 1 the command ran but has no usable answer (it says why on stderr); 2 the
// command line or the input cannot be used.

#include <CLI/CLI.hpp>
#include <cstdio>
#include <iostream>
#include <string>

#include "ThicknessCommand.h"
#include "WallCommand.h"

int main(int argc, char** argv) {
  CLI::App app("The reference database of a building thermal-load design system, from the command line.", "qkdb");
  app.set_version_flag("--version", std::string("qkdb ") + QKDB_VERSION,
                       "show the version (the tool and the library are released together)");
  qkdb::WallCommand wall(app);
  qkdb::ThicknessCommand thickness(app);

  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& e) {
    return app.exit(e);  // --help or --version, printed on standard output
  } catch (const CLI::ParseError& e) {
    std::string line = std::string("qkdb: ") + e.what() + "\nRun \"qkdb --help\" for the commands.\n";
    std::fputs(line.c_str(), stderr);
    return 2;
  }

  if (wall.Chosen()) return wall.Run();
  if (thickness.Chosen()) return thickness.Run();
  std::cerr << app.help();
  return 2;
}
