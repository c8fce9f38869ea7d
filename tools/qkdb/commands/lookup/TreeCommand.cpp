#include "commands/lookup/TreeCommand.h"

#include <CLI/CLI.hpp>
#include <iostream>
#include <nlohmann/json.hpp>

#include "answers/TreeAnswer.h"
#include "text/Output.h"
#include "files/ReferenceDatabase.h"

namespace qkdb {

namespace {

void PrintText(const nlohmann::ordered_json& nodes, int depth, bool ids) {
  for (const auto& node : nodes) {
    std::cout << std::string(2 * depth, ' ');
    if (ids) std::cout << '[' << node["id"].get<long>() << "] ";
    std::cout << node["name"].get<std::string>() << '\n';
    PrintText(node["children"], depth + 1, ids);
  }
}

}  // namespace

TreeCommand::TreeCommand(CLI::App& parent) {
  m_app = parent.add_subcommand("tree", "Print the place, envelope, construction or room tree, with ids on request");
  m_app->add_option("WHICH", m_which, "weather, envelope, constructions or rooms")
      ->required()
      ->check(CLI::IsMember({"weather", "envelope", "constructions", "rooms"}));
  m_app->add_flag("--with-weather", m_withWeather, "weather: only the places that have a weather file");
  m_app->add_flag("--ids", m_ids, "Put each row's ID before its name: [12] 北京");
  m_app->add_flag("--json", m_json, "Print JSON: [{\"id\", \"name\", \"level\", \"children\": [...]}]");
  m_app->add_option("--db", m_db, "The reference database (default: $QKDB_DATABASE, else the one \"qkdb init\" built)");
  m_app->footer(
      "weather: countries > provinces > cities; envelope: categories > types > codes; constructions:\n"
      "construction types > constructions; rooms: room types > room uses. Two blanks per level. The IDs\n"
      "are those --id and the record classes take; \"level\" in the JSON names what a node is (country,\n"
      "province, city; category, type, code; construction type, construction; room type, room use).");
}

bool TreeCommand::Chosen() const { return m_app->parsed(); }

int TreeCommand::Run() const {
  if (m_withWeather && m_which != "weather") return Tell(2, "--with-weather belongs to the weather tree only");
  if (m_ids && m_json) return Tell(2, "--ids is for the text; the JSON always has the IDs");
  CommandDatabase db;
  if (const int status = OpenChosenDatabase(m_db, db)) return status;
  const nlohmann::ordered_json tree = Tree(m_which, m_withWeather);
  if (m_json)
    std::cout << tree.dump(2) << '\n';
  else
    PrintText(tree, 0, m_ids);
  return 0;
}

}  // namespace qkdb
