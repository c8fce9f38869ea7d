#pragma once
// qkdb schema [--postgres] [--data DIR]: prints the DDL of the reference database: data/schema.sql as
// it stands (SQLite), or with --postgres the script that makes the same tables on a PostgreSQL server
// (PostgresSchema), for "qkdb schema --postgres | psql" where a database administrator makes them.

#include <string>

namespace CLI {
class App;
}

namespace qkdb {

class SchemaCommand {
 public:
  explicit SchemaCommand(CLI::App& parent);
  bool Chosen() const;
  // The exit status: 0 printed; 1 schema.sql cannot be read.
  int Run() const;

 private:
  CLI::App* m_app;
  std::string m_data;
  bool m_postgres = false;
};

}  // namespace qkdb
