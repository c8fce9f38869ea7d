// CQKReportData: the report tree, its deep copy, its null slots and its navigation.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "foundation/CQKReportData.h"

namespace {

// Makes a new child of parent with the given key and returns it.
CQKReportData* AddKeyed(CQKReportData& parent, const wchar_t* key) {
  auto* child = new CQKReportData;
  child->m_strKey = key;
  parent.AddChild(child);
  return child;
}

// The keys of node's children in slot order, "<null>" for an empty slot.
std::vector<std::wstring> ChildKeys(const CQKReportData& node) {
  std::vector<std::wstring> keys;
  for (int i = 0; i < node.m_arrChildren.GetSize(); ++i) {
    const CQKReportData* child = node.m_arrChildren[i];
    keys.push_back(child ? child->m_strKey.str() : L"<null>");
  }
  return keys;
}

// Hangs a chain of depth nodes under root, one per level; returns the deepest.
CQKReportData* BuildChain(CQKReportData& root, int depth) {
  CQKReportData* node = &root;
  for (int i = 0; i < depth; ++i) {
    auto* child = new CQKReportData;
    node->AddChild(child);
    node = child;
  }
  return node;
}

}  // namespace

// --- construction ---------------------------------------------------------------------------------

TEST(CQKReportData, NewNodeHasItsDefaults) {
  CQKReportData node;

  EXPECT_EQ(node.m_strKey.str(), L"");
  EXPECT_EQ(node.m_strTexts[0].str(), L"");
  EXPECT_EQ(node.m_strTexts[1].str(), L"");
  EXPECT_EQ(node.m_nState, 1);
  for (int state : node.m_nStates) EXPECT_EQ(state, 1);
  EXPECT_EQ(node.m_Detail.strText.str(), L"");
  EXPECT_EQ(node.m_Detail.strTexts[0].str(), L"");
  EXPECT_EQ(node.m_Detail.strTexts[1].str(), L"");
  EXPECT_EQ(node.m_arrChildren.GetSize(), 0);
  EXPECT_EQ(node.GetParent(), nullptr);
}

// --- children -------------------------------------------------------------------------------------

TEST(CQKReportData, AddChildAppendsInOrderAndReturnsOne) {
  CQKReportData root;
  auto* first = new CQKReportData;
  auto* second = new CQKReportData;

  int rcFirst = root.AddChild(first);
  int rcSecond = root.AddChild(second);

  EXPECT_EQ(rcFirst, 1);
  EXPECT_EQ(rcSecond, 1);
  ASSERT_EQ(root.m_arrChildren.GetSize(), 2);
  EXPECT_EQ(root.m_arrChildren[0], first);
  EXPECT_EQ(root.m_arrChildren[1], second);
}

TEST(CQKReportData, AddChildMakesThisNodeTheParent) {
  CQKReportData root;
  auto* child = new CQKReportData;

  root.AddChild(child);

  EXPECT_EQ(child->GetParent(), &root);
}

TEST(CQKReportData, AddChildOfNullReturnsZeroAndChangesNothing) {
  CQKReportData root;
  AddKeyed(root, L"a");

  int rc = root.AddChild(nullptr);

  EXPECT_EQ(rc, 0);
  EXPECT_EQ(ChildKeys(root), (std::vector<std::wstring>{L"a"}));
}

TEST(CQKReportData, AddChildLeavesTheFormerParentsSlot) {
  CQKReportData former;
  CQKReportData next;
  CQKReportData* child = AddKeyed(former, L"a");

  next.AddChild(child);

  EXPECT_EQ(former.m_arrChildren[0], child);
  EXPECT_EQ(next.m_arrChildren[0], child);
  EXPECT_EQ(child->GetParent(), &next);
  former.m_arrChildren[0] = nullptr;  // one owner again, for the clean-up
}

TEST(CQKReportData, RemoveAllLeavesOneNullSlotPerChild) {
  CQKReportData root;
  AddKeyed(root, L"a");
  AddKeyed(*AddKeyed(root, L"b"), L"b1");
  AddKeyed(root, L"c");

  root.RemoveAll();

  EXPECT_EQ(ChildKeys(root), (std::vector<std::wstring>{L"<null>", L"<null>", L"<null>"}));
}

TEST(CQKReportData, RemoveChildReturnsOneAndLeavesNullSlots) {
  CQKReportData root;
  AddKeyed(root, L"a");
  AddKeyed(root, L"b");

  int rc = root.RemoveChild();

  EXPECT_EQ(rc, 1);
  EXPECT_EQ(ChildKeys(root), (std::vector<std::wstring>{L"<null>", L"<null>"}));
}

TEST(CQKReportData, AddChildAfterRemoveAllFollowsTheNullSlots) {
  CQKReportData root;
  AddKeyed(root, L"a");
  root.RemoveAll();

  AddKeyed(root, L"b");

  EXPECT_EQ(ChildKeys(root), (std::vector<std::wstring>{L"<null>", L"b"}));
}

// --- navigation -----------------------------------------------------------------------------------

TEST(CQKReportData, GetRootOfNodeThreeLevelsDeepIsTheTop) {
  CQKReportData top;
  CQKReportData* deep = AddKeyed(*AddKeyed(*AddKeyed(top, L"1"), L"2"), L"3");

  CQKReportData* root = deep->GetRoot();

  EXPECT_EQ(root, &top);
}

TEST(CQKReportData, GetRootOfNodeWithoutParentIsItself) {
  CQKReportData node;

  EXPECT_EQ(node.GetRoot(), &node);
}

// --- assignment -----------------------------------------------------------------------------------

TEST(CQKReportData, AssignmentCopiesTextsAndState) {
  CQKReportData source;
  source.m_strKey = L"外墙";
  source.m_strTexts[0] = L"传热系数";
  source.m_strTexts[1] = L"0.45";
  source.m_nState = 3;
  source.m_Detail.strText = L"详情";
  source.m_Detail.strTexts[0] = L"甲";
  source.m_Detail.strTexts[1] = L"乙";
  CQKReportData target;

  target = source;

  EXPECT_EQ(target.m_strKey.str(), L"外墙");
  EXPECT_EQ(target.m_strTexts[0].str(), L"传热系数");
  EXPECT_EQ(target.m_strTexts[1].str(), L"0.45");
  EXPECT_EQ(target.m_nState, 3);
  EXPECT_EQ(target.m_Detail.strText.str(), L"详情");
  EXPECT_EQ(target.m_Detail.strTexts[0].str(), L"甲");
  EXPECT_EQ(target.m_Detail.strTexts[1].str(), L"乙");
}

TEST(CQKReportData, AssignmentDoesNotCopyStates) {
  CQKReportData source;
  for (int& state : source.m_nStates) state = 9;
  CQKReportData target;
  target.m_nStates[2] = 7;

  target = source;

  EXPECT_EQ(target.m_nStates[0], 1);
  EXPECT_EQ(target.m_nStates[1], 1);
  EXPECT_EQ(target.m_nStates[2], 7);
  EXPECT_EQ(target.m_nStates[3], 1);
  EXPECT_EQ(target.m_nStates[4], 1);
}

TEST(CQKReportData, AssignmentCopiesTheSubtreeIntoNewNodes) {
  CQKReportData source;
  CQKReportData* a = AddKeyed(source, L"a");
  AddKeyed(*a, L"a1");
  AddKeyed(*a, L"a2");
  AddKeyed(source, L"b");
  CQKReportData target;

  target = source;

  ASSERT_EQ(ChildKeys(target), (std::vector<std::wstring>{L"a", L"b"}));
  CQKReportData* copyOfA = target.m_arrChildren[0];
  EXPECT_NE(copyOfA, a);
  EXPECT_EQ(copyOfA->GetParent(), &target);
  EXPECT_EQ(ChildKeys(*copyOfA), (std::vector<std::wstring>{L"a1", L"a2"}));
  EXPECT_EQ(copyOfA->m_arrChildren[1]->GetParent(), copyOfA);
}

TEST(CQKReportData, AssignedSubtreeIsIndependentOfTheSource) {
  CQKReportData source;
  AddKeyed(*AddKeyed(source, L"a"), L"a1");
  CQKReportData target;
  target = source;

  source.m_arrChildren[0]->m_arrChildren[0]->m_strKey = L"changed";
  source.RemoveAll();

  ASSERT_EQ(ChildKeys(target), (std::vector<std::wstring>{L"a"}));
  EXPECT_EQ(ChildKeys(*target.m_arrChildren[0]), (std::vector<std::wstring>{L"a1"}));
}

TEST(CQKReportData, AssignmentCopiesChildrenWithDefaultStates) {
  CQKReportData source;
  AddKeyed(source, L"a")->m_nStates[0] = 5;
  CQKReportData target;

  target = source;

  ASSERT_EQ(target.m_arrChildren.GetSize(), 1);
  EXPECT_EQ(target.m_arrChildren[0]->m_nStates[0], 1);
}

TEST(CQKReportData, AssignmentToNodeWithChildrenLeavesNullSlotsBeforeTheNewChildren) {
  CQKReportData source;
  AddKeyed(source, L"x");
  AddKeyed(source, L"y");
  CQKReportData target;
  AddKeyed(target, L"old1");
  AddKeyed(target, L"old2");
  AddKeyed(target, L"old3");

  target = source;

  EXPECT_EQ(ChildKeys(target), (std::vector<std::wstring>{L"<null>", L"<null>", L"<null>", L"x", L"y"}));
}

TEST(CQKReportData, AssignmentSkipsNullSlotsOfTheSource) {
  CQKReportData source;
  AddKeyed(source, L"gone");
  source.RemoveAll();
  AddKeyed(source, L"kept");
  CQKReportData target;

  target = source;

  EXPECT_EQ(ChildKeys(target), (std::vector<std::wstring>{L"kept"}));
}

TEST(CQKReportData, AssignmentKeepsTheTargetsParent) {
  CQKReportData top;
  CQKReportData* target = AddKeyed(top, L"t");
  CQKReportData source;

  *target = source;

  EXPECT_EQ(target->GetParent(), &top);
}

TEST(CQKReportData, AssignmentToItselfDoesNothing) {
  CQKReportData node;
  node.m_strKey = L"k";
  CQKReportData* child = AddKeyed(node, L"a");
  CQKReportData& same = node;

  node = same;

  EXPECT_EQ(node.m_strKey.str(), L"k");
  ASSERT_EQ(node.m_arrChildren.GetSize(), 1);
  EXPECT_EQ(node.m_arrChildren[0], child);
}

TEST(CQKReportData, AssignmentFromOwnDescendantCopiesIt) {
  CQKReportData root;
  CQKReportData* a = AddKeyed(root, L"a");
  a->m_strTexts[0] = L"文本";
  AddKeyed(*a, L"a1");

  root = *a;  // a is destroyed by the assignment; its copy replaces it

  EXPECT_EQ(root.m_strKey.str(), L"a");
  EXPECT_EQ(root.m_strTexts[0].str(), L"文本");
  EXPECT_EQ(ChildKeys(root), (std::vector<std::wstring>{L"<null>", L"a1"}));
}

// --- copy construction ----------------------------------------------------------------------------

TEST(CQKReportData, CopyConstructorCopiesTheSubtree) {
  CQKReportData source;
  source.m_strKey = L"root";
  AddKeyed(*AddKeyed(source, L"a"), L"a1");

  CQKReportData copy(source);

  EXPECT_EQ(copy.m_strKey.str(), L"root");
  ASSERT_EQ(ChildKeys(copy), (std::vector<std::wstring>{L"a"}));
  EXPECT_NE(copy.m_arrChildren[0], source.m_arrChildren[0]);
  EXPECT_EQ(ChildKeys(*copy.m_arrChildren[0]), (std::vector<std::wstring>{L"a1"}));
}

TEST(CQKReportData, CopyConstructorGivesNoParentAndDefaultStates) {
  CQKReportData top;
  CQKReportData* source = AddKeyed(top, L"a");
  source->m_nStates[4] = 8;

  CQKReportData copy(*source);

  EXPECT_EQ(copy.GetParent(), nullptr);
  EXPECT_EQ(copy.m_nStates[4], 1);
}

// --- very deep trees ------------------------------------------------------------------------------

TEST(CQKReportData, TreeOfAMillionLevelsIsDestroyedWithoutOverflow) {
  auto* root = new CQKReportData;
  BuildChain(*root, 1000000);

  delete root;

  SUCCEED();  // a recursive destruction would have overflowed the stack before this line
}

TEST(CQKReportData, TreeOfAMillionLevelsIsCopied) {
  CQKReportData source;
  BuildChain(source, 1000000)->m_strKey = L"deepest";

  CQKReportData copy(source);

  int depth = 0;
  const CQKReportData* deepest = &copy;
  for (; deepest->m_arrChildren.GetSize() > 0; deepest = deepest->m_arrChildren[0]) ++depth;
  EXPECT_EQ(depth, 1000000);
  EXPECT_EQ(deepest->m_strKey.str(), L"deepest");
}
