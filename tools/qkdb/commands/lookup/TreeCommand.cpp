#include "commands/lookup/TreeCommand.h"

#include <CLI/CLI.hpp>
#include <functional>
#include <iostream>

#include "text/Output.h"
#include "envelope/CQKBSDataAdmin.h"
#include "rooms/CQKRoomUseDataAdmin.h"
#include "weather/CQKWeatherDataAdmin.h"

namespace qkdb {

namespace {

void Indented(int depth, const CString& name) { std::cout << std::string(2 * depth, ' ') << name.ToUtf8() << '\n'; }

// Prints the nodes under node, depth levels in; after each node, more(child, depth) may print lines
// of its own under it.
template <class Node>
void PrintChildren(const Node* node, int depth, const std::function<void(const Node*, int)>& more = {}) {
  if (node == nullptr) return;
  for (int i = 0; i < node->arrChild.GetSize(); ++i) {
    const Node* child = node->arrChild[i];
    Indented(depth, child->strName);
    if (more) more(child, depth);
    PrintChildren(child, depth + 1, more);
  }
}

void PrintEnvelope() {
  CQKBSDataAdmin admin;
  using Node = CQKBSDataAdmin::tagBSNode;
  // The tree stops at the types; the codes of a type are the walls the admin makes of it (named after
  // the codes, in ID order), uncalculated.
  PrintChildren<Node>(admin.GetBSNodes(1), 0, [&admin](const Node* node, int depth) {
    if (depth != 1) return;
    CQKBSType type;
    type.SetID(node->nId);
    CLxArray<CQKWallData> walls;
    admin.GetBSCodeCWallDataAry(type, walls, false, CQKCrXs());
    for (int i = 0; i < walls.GetSize(); ++i) Indented(depth + 1, walls[i].Name);
  });
}

}  // namespace

TreeCommand::TreeCommand(CLI::App& parent) {
  m_app = parent.add_subcommand("tree", "Print one of the reference database's trees as indented text");
  m_app->add_option("WHICH", m_which, "weather, envelope, constructions or rooms")
      ->required()
      ->check(CLI::IsMember({"weather", "envelope", "constructions", "rooms"}));
  m_app->add_flag("--with-weather", m_withWeather, "weather: only the places that have a weather file");
  m_app->add_option("--db", m_db, "The reference database (default: $QKDB_DATABASE, else the one \"qkdb init\" built)");
  m_app->footer(
      "weather: countries > provinces > cities; envelope: categories > types > codes; constructions:\n"
      "construction types > constructions; rooms: room types > room uses. Two blanks per level.");
}

bool TreeCommand::Chosen() const { return m_app->parsed(); }

int TreeCommand::Run() const {
  if (m_withWeather && m_which != "weather") return Tell(2, "--with-weather belongs to the weather tree only");
  if (const int status = OpenChosenDatabase(m_db)) return status;
  if (m_which == "weather") {
    CQKWeatherDataAdmin admin;
    PrintChildren(admin.GetCityNodes(1, m_withWeather), 0);
  } else if (m_which == "envelope") {
    PrintEnvelope();
  } else if (m_which == "constructions") {
    CQKBSDataAdmin admin;
    PrintChildren(admin.GetTimbNodes(1), 0);
  } else {
    CQKRoomUseDataAdmin admin;
    PrintChildren(admin.GetRoomUseNodes(1), 0);
  }
  return 0;
}

}  // namespace qkdb
