#include "commands/lookup/TreeCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>
#include <vector>

#include "envelope/CQKBSCode.h"
#include "envelope/CQKBSDataAdmin.h"
#include "rooms/CQKRoomUseDataAdmin.h"
#include "tablekit/CADORecordset.h"
#include "text/Output.h"
#include "weather/CQKWeatherDataAdmin.h"

namespace qkdb {

namespace {

// A node of any of the library's trees, as the tool prints it.
struct Branch {
  long id = 0;
  std::string name;
  std::vector<Branch> children;
};

// The children of node, as branches; more(node, branch) may add children of its own to a branch.
template <class Node, class More>
std::vector<Branch> Branches(const Node* node, const More& more) {
  std::vector<Branch> branches;
  if (node == nullptr) return branches;
  for (int i = 0; i < node->arrChild.GetSize(); ++i) {
    const Node* child = node->arrChild[i];
    Branch branch{child->nId, child->strName.ToUtf8(), Branches(child, more)};
    more(child, branch);
    branches.push_back(std::move(branch));
  }
  return branches;
}

template <class Node>
std::vector<Branch> Branches(const Node* node) {
  return Branches(node, [](const Node*, Branch&) {});
}

// The codes of an envelope type, in ID order, as the walls of the type are listed.
void AddCodes(long typeId, Branch& type) {
  CQKBSCode code;
  CString sql;
  sql.Format(L"select * from %s where BSTId = %ld order by Id", code.GetTableName().GetString(), typeId);
  CADORecordset codes;
  if (!code.ExecSql(sql, &codes, nullptr) || codes.GetRecordCount() < 1) return;
  for (; !codes.IsEOF(); codes.MoveNext()) {
    code.MakeObjectFromRS(codes);
    type.children.push_back({code.GetID(), code.Name.ToUtf8(), {}});
  }
}

std::vector<Branch> EnvelopeTree() {
  CQKBSDataAdmin admin;
  using Node = CQKBSDataAdmin::tagBSNode;
  // The library's tree stops at the types; the codes are added under each.
  return Branches<Node>(admin.GetBSNodes(1), [](const Node* node, Branch& branch) {
    // A type is two steps below the root: its parent is a category, whose parent is the root.
    const bool isType = node->pParent && node->pParent->pParent && !node->pParent->pParent->pParent;
    if (isType) AddCodes(node->nId, branch);
  });
}

void PrintText(const std::vector<Branch>& branches, int depth, bool ids) {
  for (const Branch& b : branches) {
    std::cout << std::string(2 * depth, ' ');
    if (ids) std::cout << '[' << b.id << "] ";
    std::cout << b.name << '\n';
    PrintText(b.children, depth + 1, ids);
  }
}

nlohmann::ordered_json Json(const std::vector<Branch>& branches, const std::vector<const char*>& levels,
                            std::size_t depth) {
  nlohmann::ordered_json out = nlohmann::ordered_json::array();
  for (const Branch& b : branches) {
    out.push_back({{"id", b.id},
                   {"name", b.name},
                   {"level", levels[std::min(depth, levels.size() - 1)]},
                   {"children", Json(b.children, levels, depth + 1)}});
  }
  return out;
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
  if (const int status = OpenChosenDatabase(m_db)) return status;
  std::vector<Branch> tree;
  std::vector<const char*> levels;
  if (m_which == "weather") {
    CQKWeatherDataAdmin admin;
    tree = Branches(admin.GetCityNodes(1, m_withWeather));
    levels = {"country", "province", "city"};
  } else if (m_which == "envelope") {
    tree = EnvelopeTree();
    levels = {"category", "type", "code"};
  } else if (m_which == "constructions") {
    CQKBSDataAdmin admin;
    tree = Branches(admin.GetTimbNodes(1));
    levels = {"construction type", "construction"};
  } else {
    CQKRoomUseDataAdmin admin;
    tree = Branches(admin.GetRoomUseNodes(1));
    levels = {"room type", "room use"};
  }
  if (m_json)
    std::cout << Json(tree, levels, 0).dump(2) << '\n';
  else
    PrintText(tree, 0, m_ids);
  return 0;
}

}  // namespace qkdb
