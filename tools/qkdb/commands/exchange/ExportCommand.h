#pragma once
// qkdb export weather|constructions|walls|rooms [--format csv|json] [-o FILE] [--db DB]: one kind of
// the reference data as a table an engineer can open, edit and bring back with "qkdb import": every
// column the database column's item name with its meaning and unit, null kept as null, rows named by
// name (ExchangeTable.h). Written to standard output, or to FILE made whole beside it and renamed
// onto it (AtomicFile), so a failed export leaves no half file.

#include <string>

namespace CLI {
class App;
}

namespace qkdb {

class ExportCommand {
 public:
  explicit ExportCommand(CLI::App& parent);
  bool Chosen() const;
  // The exit status: 0 written; 1 the database holds what cannot be exported, or FILE cannot be
  // written (nothing written); 2 unusable arguments or database.
  int Run() const;

 private:
  CLI::App* m_app;
  std::string m_kind;
  std::string m_format = "csv";
  std::string m_output;
  std::string m_db;
};

}  // namespace qkdb
