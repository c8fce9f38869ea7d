#include "commands/database/SchemaCommand.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <filesystem>
#include <iostream>

#include "files/ReferenceDatabase.h"
#include "tablekit/postgres/PgSchema.h"
#include "text/BoundedRead.h"
#include "text/CsvTable.h"

namespace qkdb {

SchemaCommand::SchemaCommand(CLI::App& parent) {
  m_app = parent.add_subcommand("schema", "Print the tables of the reference database as SQL (--postgres: for a server)");
  m_app->add_flag("--postgres", m_postgres, "Print the script that makes the tables on a PostgreSQL server");
  m_app->add_option("--data", m_data, "The folder of schema.sql")->default_str(DefaultDataFolder());
}

bool SchemaCommand::Chosen() const { return m_app->parsed(); }

int SchemaCommand::Run() const {
  const std::filesystem::path data = m_data.empty() ? std::filesystem::path(DefaultDataFolder()) : std::filesystem::path(m_data);
  try {
    const std::string schema = ReadWhole(data / "schema.sql", kDataFileLimit);
    const std::string text = m_postgres ? tablekit::PostgresSchema(schema) : schema;
    std::fwrite(text.data(), 1, text.size(), stdout);
  } catch (const DataError& e) {
    std::cerr << "qkdb: " << e.what() << "\n";
    return 1;
  }
  return 0;
}

}  // namespace qkdb
