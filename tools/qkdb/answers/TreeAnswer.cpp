#include "answers/TreeAnswer.h"

#include <algorithm>
#include <vector>

#include "envelope/CQKBSCode.h"
#include "envelope/CQKBSDataAdmin.h"
#include "rooms/CQKRoomUseDataAdmin.h"
#include "tablekit/CADORecordset.h"
#include "weather/CQKWeatherDataAdmin.h"

namespace qkdb {

namespace {

using Json = nlohmann::ordered_json;
using Levels = std::vector<const char*>;

Json Node(long id, const std::string& name, const char* level) {
  return {{"id", id}, {"name", name}, {"level", level}, {"children", Json::array()}};
}

// The children of node, depth levels below the top; more(node, json) may add children of its own.
template <class TreeNode, class More>
Json Children(const TreeNode* node, const Levels& levels, std::size_t depth, const More& more) {
  Json out = Json::array();
  if (node == nullptr) return out;
  for (int i = 0; i < node->arrChild.GetSize(); ++i) {
    const TreeNode* child = node->arrChild[i];
    Json json = Node(child->nId, child->strName.ToUtf8(), levels[std::min(depth, levels.size() - 1)]);
    json["children"] = Children(child, levels, depth + 1, more);
    more(child, json);
    out.push_back(std::move(json));
  }
  return out;
}

template <class TreeNode>
Json Children(const TreeNode* node, const Levels& levels) {
  return Children(node, levels, 0, [](const TreeNode*, Json&) {});
}

// The codes of an envelope type, in ID order, as the walls of the type are listed.
void AddCodes(long typeId, Json& type) {
  CQKBSCode code;
  CString sql;
  sql.Format(L"select * from %s where BSTId = %ld order by Id", code.GetTableName().GetString(), typeId);
  CADORecordset codes;
  if (!code.ExecSql(sql, &codes, nullptr) || codes.GetRecordCount() < 1) return;
  for (; !codes.IsEOF(); codes.MoveNext()) {
    code.MakeObjectFromRS(codes);
    type["children"].push_back(Node(code.GetID(), code.Name.ToUtf8(), "code"));
  }
}

}  // namespace

Json Tree(const std::string& which, bool weatherOnly) {
  if (which == "weather") {
    CQKWeatherDataAdmin admin;
    return Children(admin.GetCityNodes(1, weatherOnly), {"country", "province", "city"});
  }
  if (which == "envelope") {
    CQKBSDataAdmin admin;
    using BSNode = CQKBSDataAdmin::tagBSNode;
    // The library's tree stops at the types; the codes are added under each.
    return Children(admin.GetBSNodes(1), {"category", "type"}, 0, [](const BSNode* node, Json& json) {
      // A type is two steps below the root: its parent is a category, whose parent is the root.
      const bool isType = node->pParent && node->pParent->pParent && !node->pParent->pParent->pParent;
      if (isType) AddCodes(node->nId, json);
    });
  }
  if (which == "constructions") {
    CQKBSDataAdmin admin;
    return Children(admin.GetTimbNodes(1), {"construction type", "construction"});
  }
  if (which == "rooms") {
    CQKRoomUseDataAdmin admin;
    return Children(admin.GetRoomUseNodes(1), {"room type", "room use"});
  }
  return Json::array();
}

}  // namespace qkdb
