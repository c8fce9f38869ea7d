// The display-tree node of the administration classes: children in the order made, freeing a subtree,
// and taking a node out of its parent. Run under ASan, a double free or a leak fails here.

#include <gtest/gtest.h>

#include "envelope/CQKBSDataAdmin.h"
#include "foundation/QKTreeNode.h"
#include "rooms/CQKRoomUseDataAdmin.h"

namespace {

struct CountedNode : QKTreeNode<CountedNode> {
  CountedNode(const wchar_t* name, long id, CountedNode* parent, int flag) : QKTreeNode(name, id, parent, flag) {
    ++alive;
  }
  ~CountedNode() { --alive; }
  static int alive;
};
int CountedNode::alive = 0;

// Admins whose protected release can be called on any node.
struct ReleasingAdmin : CQKBSDataAdmin {
  using CQKBSDataAdmin::ReleaseBSNodes;
};
struct ReleasingRoomsAdmin : CQKRoomUseDataAdmin {
  using CQKRoomUseDataAdmin::ReleaseRoomUseNodes;
};

}  // namespace

TEST(QKTreeNodeTest, ANodeMadeWithAParentJoinsItsChildrenInOrder) {
  CountedNode* root = new CountedNode(L"root", -1, nullptr, 1);
  CountedNode* a = new CountedNode(L"a", 1, root, 1);
  CountedNode* b = new CountedNode(L"b", 2, root, 0);
  ASSERT_EQ(root->arrChild.GetSize(), 2);
  EXPECT_EQ(root->arrChild[0], a);
  EXPECT_EQ(root->arrChild[1], b);
  EXPECT_EQ(b->pParent, root);
  EXPECT_EQ(b->strName, L"b");
  EXPECT_EQ(b->nId, 2);
  EXPECT_EQ(b->nFlag, 0);
  CountedNode::FreeTree(root);
  EXPECT_EQ(CountedNode::alive, 0);
}

TEST(QKTreeNodeTest, FreeTreeFreesEveryNodeBelowAndIgnoresNull) {
  CountedNode* root = new CountedNode(L"root", -1, nullptr, 1);
  CountedNode* a = new CountedNode(L"a", 1, root, 1);
  new CountedNode(L"a1", 3, a, 0);
  new CountedNode(L"a2", 4, a, 0);
  new CountedNode(L"b", 2, root, 1);
  EXPECT_EQ(CountedNode::alive, 5);
  CountedNode::FreeTree(nullptr);
  CountedNode::FreeTree(root);
  EXPECT_EQ(CountedNode::alive, 0);
}

TEST(QKTreeNodeTest, DetachTakesTheNodeOutOfItsParentOnly) {
  CountedNode* root = new CountedNode(L"root", -1, nullptr, 1);
  CountedNode* a = new CountedNode(L"a", 1, root, 1);
  CountedNode* b = new CountedNode(L"b", 2, root, 1);
  CountedNode* c = new CountedNode(L"c", 3, root, 1);
  CountedNode::Detach(b);
  EXPECT_EQ(b->pParent, nullptr);
  ASSERT_EQ(root->arrChild.GetSize(), 2);
  EXPECT_EQ(root->arrChild[0], a);
  EXPECT_EQ(root->arrChild[1], c);
  CountedNode::Detach(root);  // a root stays as it is
  EXPECT_EQ(root->arrChild.GetSize(), 2);
  CountedNode::FreeTree(b);
  CountedNode::FreeTree(root);
  EXPECT_EQ(CountedNode::alive, 0);
}

// Releasing an inner node frees its subtree, leaves the rest of the tree whole and owned, and forgets
// the root; releasing the admin then frees the rest exactly once.
TEST(QKTreeNodeTest, ReleasingAnInnerNodeOfTheEnvelopeTreeKeepsTheRestWhole) {
  ReleasingAdmin admin;
  // A tree of the test's own, shown to an admin that owns none.
  auto* root = new CQKBSDataAdmin::tagBSNode(L"*全部围护结构类型*", -1, nullptr, 1);
  auto* walls = new CQKBSDataAdmin::tagBSNode(L"外墙", 1, root, 1);
  new CQKBSDataAdmin::tagBSNode(L"砖墙", 10, walls, 0);
  auto* roofs = new CQKBSDataAdmin::tagBSNode(L"屋面", 2, root, 1);
  admin.m_pBSRoot = root;
  admin.ReleaseBSNodes(walls);
  EXPECT_EQ(admin.m_pBSRoot, nullptr);
  ASSERT_EQ(root->arrChild.GetSize(), 1);
  EXPECT_EQ(root->arrChild[0], roofs);
  CQKBSDataAdmin::tagBSNode::FreeTree(root);
}

TEST(QKTreeNodeTest, ReleasingAnInnerNodeOfTheRoomTreeKeepsTheRestWhole) {
  using Node = CQKRoomUseDataAdmin::tagRoomUseNode;
  ReleasingRoomsAdmin admin;
  auto* root = new Node(L"*", -1, nullptr, 1);
  auto* office = new Node(L"办公建筑", 1, root, 1);
  new Node(L"会议室", 3, office, 1);
  auto* hospital = new Node(L"医院", 2, root, 1);
  admin.ReleaseRoomUseNodes(office);
  ASSERT_EQ(root->arrChild.GetSize(), 1);
  EXPECT_EQ(root->arrChild[0], hospital);
  Node::FreeTree(root);
}
