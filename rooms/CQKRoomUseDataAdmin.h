#pragma once
// CQKRoomUseDataAdmin: the room types and their room uses as a two-level tree for display and
// lookup, and the deletion of a room use (with its load parameters) or of a room type (with its room
// uses). Deletions change the tables only: rebuild the tree with GetRoomUseNodes(1) afterwards.
//
// A copy shares the tree of its source, as the interface has it; the tree lives until the last admin
// sharing it rebuilds or is destroyed, so sharing never frees a tree twice. Not safe for concurrent
// use.

#include <memory>

#include "QKExport.h"
#include "foundation/QKTreeNode.h"
#include "mfc/CString.h"
#include "rooms/CQKRoomType.h"
#include "rooms/CQKRoomUse.h"

class QK_EXPORT CQKRoomUseDataAdmin {
 public:
  // One node: the root "*" (id -1), a room type, or a room use; flag 1 at every level.
  struct tagRoomUseNode : QKTreeNode<tagRoomUseNode> {
    using QKTreeNode::QKTreeNode;
  };

  CQKRoomUseDataAdmin() = default;
  CQKRoomUseDataAdmin(const CQKRoomUseDataAdmin&) = default;
  CQKRoomUseDataAdmin& operator=(const CQKRoomUseDataAdmin&) = default;

  // The tree as it is when bRebuild is 0 and one exists; otherwise a new tree, whose root is returned
  // also when building failed.
  virtual tagRoomUseNode* GetRoomUseNodes(int bRebuild);
  virtual ~CQKRoomUseDataAdmin() = default;

  // Builds a new tree: the root "*", the room types by ascending "Id", under each its room uses by
  // ascending "Id". 1, or 0 when the room types cannot be read (the root then has no children).
  int MakeRoomUseNodes();
  // The first room-type node whose name equals key's exactly (case counts); null when none, or no tree.
  tagRoomUseNode* FindRoomTypeNode(tagRoomUseNode& key);
  // The same among typeNode's children; null for a null typeNode.
  tagRoomUseNode* FindRoomUseNode(tagRoomUseNode* typeNode, tagRoomUseNode& key);

  // Deletes the load-parameter row whose "Id" is the room use's ID (its own key, not its "RUId": kept
  // so), then the room use's row, both on the room use's connection. 0 after the message
  // "删除表 \"<table>\" 时出错!" (error icon) naming the table that failed, else 1. The two statements
  // are not one transaction: when the room use's row fails, its load parameters are already gone.
  int DeleteRoomUse(CQKRoomUse& roomUse);
  // Deletes each room use under the type's node in the tree (a failure is shown and the others go on),
  // then the type's row. 0 after the deletion message for the room-type table, else 1. Each statement
  // stands on its own: a room use that fails stays (without its load parameters when those went
  // first) under a type that is then deleted (result 1); when the type's row fails, the room uses
  // deleted before are gone and the type stays (result 0).
  int DeleteRoomType(CQKRoomType& roomType);

  tagRoomUseNode* m_pRoomUseRoot = nullptr;

 protected:
  // Frees node and every node under it, children first; a null node is ignored. An inner node first
  // leaves its parent's children, so the rest of the tree stays whole until it is released in turn.
  void ReleaseRoomUseNodes(tagRoomUseNode* node);

 private:
  std::shared_ptr<tagRoomUseNode> m_tree;  // owns m_pRoomUseRoot's tree, shared with copies
};
