// The envelope catalogue administration, reading side: the envelope tree (categories and their
// types) and the construction tree (construction types and their constructions), the lookups in
// them, how long the trees live and who shares them, the bounding structure of a code, the walls made
// from the codes of a type, and the paths of the demonstration pictures.
//
// Materials of the walls (λ W/(m·K), ρ kg/m³, c kJ/(kg·K)): cement mortar 0.93 / 1800 / 1.05, solid
// clay brick 0.81 / 1800 / 1.05, expanded polystyrene 0.041 / 20 / 1.38. Surface coefficients in
// W/(m²·K): 8.7 inside, 18.6 outside in summer, 23.0 outside in winter unless a test says otherwise.

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

#include "EnvelopeFixture.h"
#include "construction/CQKTimberingData.h"
#include "construction/CQKWallData.h"
#include "envelope/CQKBSDataAdmin.h"
#include "envelope/CQKCrXs.h"
#include "foundation/CLxArray.h"

// The tests' way to the two private builders and the protected release.
struct CQKBSDataAdminProbe {
  static int MakeBSNodes(CQKBSDataAdmin& admin) { return admin.MakeBSNodes(); }
  static int MakeTimbNodes(CQKBSDataAdmin& admin) { return admin.MakeTimbNodes(); }
  static void ReleaseBSNodes(CQKBSDataAdmin& admin, CQKBSDataAdmin::tagBSNode* node) { admin.ReleaseBSNodes(node); }
};

using BSNode = CQKBSDataAdmin::tagBSNode;
using TimbNode = CQKBSDataAdmin::tagTimbNode;
using Probe = CQKBSDataAdminProbe;

namespace {

constexpr unsigned int kErrorIcon = 16;

// "name,name,..." of a node's children, in order.
template <class Node>
CString Names(const Node* node) {
  CString names;
  for (int i = 0; node != nullptr && i < node->arrChild.GetSize(); ++i) {
    if (i > 0) names += L",";
    names += node->arrChild[i]->strName;
  }
  return names;
}

// "id,id,..." of a node's children, in order.
template <class Node>
std::string Ids(const Node* node) {
  std::string ids;
  for (int i = 0; node != nullptr && i < node->arrChild.GetSize(); ++i) {
    if (i > 0) ids += ",";
    ids += std::to_string(node->arrChild[i]->nId);
  }
  return ids;
}

CQKBSCategory CategoryKey(const wchar_t* name, long id) {
  CQKBSCategory c;
  c.Name = name;
  c.SetID(id);
  return c;
}

CQKBSType TypeKey(const wchar_t* name, long id) {
  CQKBSType t;
  t.Name = name;
  t.SetID(id);
  return t;
}

class CQKBSDataAdminTreeTest : public EnvelopeFixture {
 protected:
  // Categories listed by OrderId: 屋面 (2), 外墙 (1), 外窗 (3). Types listed by category, then ID:
  // 外墙 has 砖墙 (3) and 加气混凝土墙 (5), 屋面 has 倒置式屋面 (2), 外窗 has 铝合金窗 (4). Inserted in
  // another order, so that only the queries' ordering gives the tree's.
  void SeedEnvelopes() {
    Seed("INSERT INTO BSCategory (ID, Name, OrderId) VALUES (1, '外墙', 2), (2, '屋面', 1), (3, '外窗', 3);"
         "INSERT INTO BSType (ID, Name, BSDLId) VALUES (5, '加气混凝土墙', 1), (2, '倒置式屋面', 2),"
         " (3, '砖墙', 1), (4, '铝合金窗', 3);"
         "INSERT INTO BSCode (ID, BSTId, Name) VALUES (1, 3, 'WQ-1');");
  }
  // Construction types by ID: 保温材料 (1: 膨胀聚苯板 4, 挤塑聚苯板 7), 空类型 (2: none), 砌体 (3: 粘土实心砖 2,
  // 加气混凝土砌块 9). Construction 5 names a type that does not exist and is in no tree.
  void SeedConstructions() {
    Seed("INSERT INTO TimberingType (ID, Name) VALUES (3, '砌体'), (1, '保温材料'), (2, '空类型');"
         "INSERT INTO Timbering (ID, TTId, Name) VALUES (7, 1, '挤塑聚苯板'), (9, 3, '加气混凝土砌块'),"
         " (4, 1, '膨胀聚苯板'), (2, 3, '粘土实心砖'), (5, 8, '无类型材料');");
  }

  CQKBSDataAdmin admin;
};

}  // namespace

// ---- The envelope tree ----

TEST_P(CQKBSDataAdminTreeTest, TheEnvelopeRootIsNamedForAllTypesWithIdMinusOneAndFlagOne) {
  SeedEnvelopes();
  BSNode* root = admin.GetBSNodes(1);
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(root, admin.m_pBSRoot);
  EXPECT_EQ(root->strName, L"*全部围护结构类型*");
  EXPECT_EQ(root->nId, -1);
  EXPECT_EQ(root->nFlag, 1);
  EXPECT_EQ(root->pParent, nullptr);
}

TEST_P(CQKBSDataAdminTreeTest, CategoriesFollowTheirOrderIdWithTheirIdsAndFlagOne) {
  SeedEnvelopes();
  BSNode* root = admin.GetBSNodes(1);
  EXPECT_EQ(Names(root), L"屋面,外墙,外窗");
  EXPECT_EQ(Ids(root), "2,1,3");
  for (int i = 0; i < root->arrChild.GetSize(); ++i) {
    EXPECT_EQ(root->arrChild[i]->nFlag, 1) << i;
    EXPECT_EQ(root->arrChild[i]->pParent, root) << i;
  }
}

TEST_P(CQKBSDataAdminTreeTest, TypesHangUnderTheirCategoryInIdOrderWithFlagZero) {
  SeedEnvelopes();
  BSNode* root = admin.GetBSNodes(1);
  ASSERT_EQ(root->arrChild.GetSize(), 3);
  BSNode* roofs = root->arrChild[0];
  BSNode* walls = root->arrChild[1];
  BSNode* windows = root->arrChild[2];
  EXPECT_EQ(Names(walls), L"砖墙,加气混凝土墙");
  EXPECT_EQ(Ids(walls), "3,5");
  EXPECT_EQ(Names(roofs), L"倒置式屋面");
  EXPECT_EQ(Ids(roofs), "2");
  EXPECT_EQ(Names(windows), L"铝合金窗");
  for (BSNode* category : {roofs, walls, windows}) {
    for (int i = 0; i < category->arrChild.GetSize(); ++i) {
      BSNode* type = category->arrChild[i];
      EXPECT_EQ(type->nFlag, 0);
      EXPECT_EQ(type->pParent, category);
      EXPECT_EQ(type->arrChild.GetSize(), 0) << "codes are never put into the tree";
    }
  }
  EXPECT_TRUE(messages.empty());
}

TEST_P(CQKBSDataAdminTreeTest, MakeBSNodesReturnsOneForAWholeCatalogue) {
  SeedEnvelopes();
  EXPECT_EQ(Probe::MakeBSNodes(admin), 1);
  EXPECT_EQ(Names(admin.m_pBSRoot), L"屋面,外墙,外窗");
}

TEST_P(CQKBSDataAdminTreeTest, AnEmptyCategoryTableGivesARootWithoutChildrenAndZero) {
  Seed("INSERT INTO BSType (ID, Name, BSDLId) VALUES (1, '砖墙', 1);");
  EXPECT_EQ(Probe::MakeBSNodes(admin), 0);
  ASSERT_NE(admin.m_pBSRoot, nullptr);
  EXPECT_EQ(admin.m_pBSRoot->strName, L"*全部围护结构类型*");
  EXPECT_EQ(admin.m_pBSRoot->arrChild.GetSize(), 0);
  EXPECT_TRUE(messages.empty()) << "the types are not read at all";
}

TEST_P(CQKBSDataAdminTreeTest, GetBSNodesReturnsTheRootOfAnEmptyCatalogue) {
  BSNode* root = admin.GetBSNodes(1);
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(root->strName, L"*全部围护结构类型*");
  EXPECT_EQ(root->arrChild.GetSize(), 0);
}

TEST_P(CQKBSDataAdminTreeTest, AMissingCategoryTableGivesZeroAndAChildlessRoot) {
  SeedEnvelopes();
  CQKBSCategory::S_Init(path, L"NoCategories");
  EXPECT_EQ(Probe::MakeBSNodes(admin), 0);
  ASSERT_NE(admin.m_pBSRoot, nullptr);
  EXPECT_EQ(admin.m_pBSRoot->arrChild.GetSize(), 0);
}

TEST_P(CQKBSDataAdminTreeTest, AMissingTypeTableGivesZeroAndKeepsTheCategories) {
  SeedEnvelopes();
  CQKBSType::S_Init(path, L"NoTypes");
  EXPECT_EQ(Probe::MakeBSNodes(admin), 0);
  EXPECT_EQ(Names(admin.m_pBSRoot), L"屋面,外墙,外窗");
  EXPECT_EQ(admin.m_pBSRoot->arrChild[1]->arrChild.GetSize(), 0);
}

TEST_P(CQKBSDataAdminTreeTest, CategoriesWithoutTypesGiveOne) {
  Seed("INSERT INTO BSCategory (ID, Name, OrderId) VALUES (1, '外墙', 1);");
  EXPECT_EQ(Probe::MakeBSNodes(admin), 1);
  EXPECT_EQ(Names(admin.m_pBSRoot), L"外墙");
  EXPECT_EQ(admin.m_pBSRoot->arrChild[0]->arrChild.GetSize(), 0);
}

TEST_P(CQKBSDataAdminTreeTest, ATypeOfAMissingCategoryStopsTheTypesAfterOneMessage) {
  // Sorted by category: 砖墙 (1), 倒置式屋面 (2), then 孤立类型 and 另一孤立 of the missing category 3,
  // then 铝合金窗 (5), which is never reached although its category exists.
  Seed("INSERT INTO BSCategory (ID, Name, OrderId) VALUES (1, '外墙', 1), (2, '屋面', 2), (5, '外窗', 3);"
       "INSERT INTO BSType (ID, Name, BSDLId) VALUES (1, '孤立类型', 3), (2, '砖墙', 1), (3, '倒置式屋面', 2),"
       " (4, '铝合金窗', 5), (6, '另一孤立', 3);");
  EXPECT_EQ(Probe::MakeBSNodes(admin), 1);
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].first, L"没找到围护结构的大类？！");
  EXPECT_EQ(messages[0].second, kErrorIcon);
  BSNode* root = admin.m_pBSRoot;
  EXPECT_EQ(Names(root), L"外墙,屋面,外窗");
  EXPECT_EQ(Names(root->arrChild[0]), L"砖墙");
  EXPECT_EQ(Names(root->arrChild[1]), L"倒置式屋面");
  EXPECT_EQ(root->arrChild[2]->arrChild.GetSize(), 0);
}

TEST_P(CQKBSDataAdminTreeTest, ATypeWithoutCategorySortedFirstIsReportedAndGetsNoNode) {
  // Category id 0 comes before every other and names no category: no node may hang under it, and as
  // for any missing category the types after it are not read.
  Seed("INSERT INTO BSCategory (ID, Name, OrderId) VALUES (1, '外墙', 1);"
       "INSERT INTO BSType (ID, Name, BSDLId) VALUES (1, '砖墙', 1), (2, '无类别', 0);");
  EXPECT_EQ(Probe::MakeBSNodes(admin), 1);
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].first, L"没找到围护结构的大类？！");
  EXPECT_EQ(messages[0].second, kErrorIcon);
  EXPECT_EQ(Names(admin.m_pBSRoot), L"外墙");
  EXPECT_EQ(admin.m_pBSRoot->arrChild[0]->arrChild.GetSize(), 0);
}

TEST_P(CQKBSDataAdminTreeTest, TypesFindTheirCategoryByIdThroughANamelessKey) {
  // The build looks a category up with a key that has its id and no name, so a nameless category
  // listed first matches that key by name and takes the types of the category after it.
  Seed("INSERT INTO BSCategory (ID, Name, OrderId) VALUES (1, '', 1), (2, '外墙', 2);"
       "INSERT INTO BSType (ID, Name, BSDLId) VALUES (1, '砖墙', 2);");
  EXPECT_EQ(Probe::MakeBSNodes(admin), 1);
  ASSERT_EQ(admin.m_pBSRoot->arrChild.GetSize(), 2);
  EXPECT_EQ(Names(admin.m_pBSRoot->arrChild[0]), L"砖墙");
  EXPECT_EQ(admin.m_pBSRoot->arrChild[1]->arrChild.GetSize(), 0);
}

// ---- The construction tree ----

TEST_P(CQKBSDataAdminTreeTest, TheConstructionRootIsNamedForAllMaterialTypesWithIdMinusOneAndFlagOne) {
  SeedConstructions();
  TimbNode* root = admin.GetTimbNodes(1);
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(root, admin.m_pTimbRoot);
  EXPECT_EQ(root->strName, L"*全部材质类型*");
  EXPECT_EQ(root->nId, -1);
  EXPECT_EQ(root->nFlag, 1);
  EXPECT_EQ(root->pParent, nullptr);
}

TEST_P(CQKBSDataAdminTreeTest, ConstructionTypesFollowTheirIdWithFlagZero) {
  SeedConstructions();
  TimbNode* root = admin.GetTimbNodes(1);
  EXPECT_EQ(Names(root), L"保温材料,空类型,砌体");
  EXPECT_EQ(Ids(root), "1,2,3");
  for (int i = 0; i < root->arrChild.GetSize(); ++i) {
    EXPECT_EQ(root->arrChild[i]->nFlag, 0) << i;
    EXPECT_EQ(root->arrChild[i]->pParent, root) << i;
  }
}

TEST_P(CQKBSDataAdminTreeTest, ConstructionsHangUnderTheirTypeInIdOrderWithFlagOne) {
  SeedConstructions();
  TimbNode* root = admin.GetTimbNodes(1);
  ASSERT_EQ(root->arrChild.GetSize(), 3);
  EXPECT_EQ(Names(root->arrChild[0]), L"膨胀聚苯板,挤塑聚苯板");
  EXPECT_EQ(Ids(root->arrChild[0]), "4,7");
  EXPECT_EQ(root->arrChild[1]->arrChild.GetSize(), 0);
  EXPECT_EQ(Names(root->arrChild[2]), L"粘土实心砖,加气混凝土砌块");
  EXPECT_EQ(Ids(root->arrChild[2]), "2,9");
  for (TimbNode* type : {root->arrChild[0], root->arrChild[2]}) {
    for (int i = 0; i < type->arrChild.GetSize(); ++i) {
      EXPECT_EQ(type->arrChild[i]->nFlag, 1);
      EXPECT_EQ(type->arrChild[i]->pParent, type);
      EXPECT_EQ(type->arrChild[i]->arrChild.GetSize(), 0);
    }
  }
}

TEST_P(CQKBSDataAdminTreeTest, MakeTimbNodesReturnsOneAlsoWithoutConstructionTypes) {
  EXPECT_EQ(Probe::MakeTimbNodes(admin), 1);
  ASSERT_NE(admin.m_pTimbRoot, nullptr);
  EXPECT_EQ(admin.m_pTimbRoot->strName, L"*全部材质类型*");
  EXPECT_EQ(admin.m_pTimbRoot->arrChild.GetSize(), 0);
}

TEST_P(CQKBSDataAdminTreeTest, AMissingConstructionTypeTableGivesZeroAndAChildlessRoot) {
  SeedConstructions();
  CQKTimberingType::S_Init(path, L"NoTimberingTypes");
  EXPECT_EQ(Probe::MakeTimbNodes(admin), 0);
  ASSERT_NE(admin.m_pTimbRoot, nullptr);
  EXPECT_EQ(admin.m_pTimbRoot->arrChild.GetSize(), 0);
}

TEST_P(CQKBSDataAdminTreeTest, AMissingConstructionTableLeavesTheTypesWithoutChildren) {
  SeedConstructions();
  CQKTimbering::S_Init(path, L"NoTimberings");
  EXPECT_EQ(Probe::MakeTimbNodes(admin), 1);
  EXPECT_EQ(Names(admin.m_pTimbRoot), L"保温材料,空类型,砌体");
  EXPECT_EQ(admin.m_pTimbRoot->arrChild[0]->arrChild.GetSize(), 0);
  EXPECT_EQ(admin.m_pTimbRoot->arrChild[2]->arrChild.GetSize(), 0);
}

// ---- Lookups in the envelope tree ----

TEST_P(CQKBSDataAdminTreeTest, FindBSDLNodeFindsACategoryByName) {
  SeedEnvelopes();
  admin.GetBSNodes(1);
  CQKBSCategory key = CategoryKey(L"外墙", 99);
  BSNode* found = admin.FindBSDLNode(key);
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->nId, 1);
}

TEST_P(CQKBSDataAdminTreeTest, FindBSDLNodeFallsBackToTheIdWhenNoNameMatches) {
  SeedEnvelopes();
  admin.GetBSNodes(1);
  CQKBSCategory key = CategoryKey(L"不存在", 3);
  BSNode* found = admin.FindBSDLNode(key);
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->strName, L"外窗");
}

TEST_P(CQKBSDataAdminTreeTest, FindBSDLNodeGivesNullWhenNeitherNameNorIdMatches) {
  SeedEnvelopes();
  admin.GetBSNodes(1);
  CQKBSCategory key = CategoryKey(L"不存在", 99);
  EXPECT_EQ(admin.FindBSDLNode(key), nullptr);
}

TEST_P(CQKBSDataAdminTreeTest, NamesAreComparedWithCase) {
  Seed("INSERT INTO BSCategory (ID, Name, OrderId) VALUES (1, 'Wall', 1);");
  admin.GetBSNodes(1);
  CQKBSCategory key = CategoryKey(L"wall", 99);
  EXPECT_EQ(admin.FindBSDLNode(key), nullptr);
}

TEST_P(CQKBSDataAdminTreeTest, TheFirstChildMatchingByNameOrIdWins) {
  // 屋面 (ID 2) comes first and matches the key's id; 外墙 further on matches its name.
  SeedEnvelopes();
  admin.GetBSNodes(1);
  CQKBSCategory key = CategoryKey(L"外墙", 2);
  BSNode* found = admin.FindBSDLNode(key);
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->strName, L"屋面");
}

TEST_P(CQKBSDataAdminTreeTest, OfTwoCategoriesWithOneNameTheFirstInOrderIdIsFound) {
  Seed("INSERT INTO BSCategory (ID, Name, OrderId) VALUES (1, '外墙', 2), (2, '外墙', 1);");
  admin.GetBSNodes(1);
  CQKBSCategory byName = CategoryKey(L"外墙", 0);
  CQKBSCategory byNameWithTheOtherId = CategoryKey(L"外墙", 1);
  ASSERT_NE(admin.FindBSDLNode(byName), nullptr);
  EXPECT_EQ(admin.FindBSDLNode(byName)->nId, 2);
  ASSERT_NE(admin.FindBSDLNode(byNameWithTheOtherId), nullptr);
  EXPECT_EQ(admin.FindBSDLNode(byNameWithTheOtherId)->nId, 2);
}

TEST_P(CQKBSDataAdminTreeTest, ANamelessCategoryMatchesANamelessKeyBeforeItsIdIsCompared) {
  Seed("INSERT INTO BSCategory (ID, Name, OrderId) VALUES (1, '', 1), (2, '外墙', 2);");
  admin.GetBSNodes(1);
  CQKBSCategory key = CategoryKey(L"", 2);
  BSNode* found = admin.FindBSDLNode(key);
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->nId, 1);
}

TEST_P(CQKBSDataAdminTreeTest, LookupsWithoutATreeGiveNull) {
  SeedEnvelopes();
  CQKBSCategory category = CategoryKey(L"外墙", 1);
  CQKBSType type = TypeKey(L"砖墙", 3);
  EXPECT_EQ(admin.FindBSDLNode(category), nullptr);
  EXPECT_EQ(admin.FindBSTNode(category, type), nullptr);
  TimbNode typeKey(L"砌体", 3, nullptr, 0);
  TimbNode key(L"粘土实心砖", 2, nullptr, 1);
  EXPECT_EQ(admin.FindTimbTypeNode(typeKey), nullptr);
  EXPECT_EQ(admin.FindTimbNode(typeKey, key), nullptr);
}

TEST_P(CQKBSDataAdminTreeTest, FindBSTNodeFindsATypeWithinItsCategoryByNameOrId) {
  SeedEnvelopes();
  admin.GetBSNodes(1);
  CQKBSCategory walls = CategoryKey(L"外墙", 0);
  CQKBSType byName = TypeKey(L"加气混凝土墙", 0);
  CQKBSType byId = TypeKey(L"不存在", 3);
  ASSERT_NE(admin.FindBSTNode(walls, byName), nullptr);
  EXPECT_EQ(admin.FindBSTNode(walls, byName)->nId, 5);
  ASSERT_NE(admin.FindBSTNode(walls, byId), nullptr);
  EXPECT_EQ(admin.FindBSTNode(walls, byId)->strName, L"砖墙");
}

TEST_P(CQKBSDataAdminTreeTest, FindBSTNodeLooksOnlyUnderTheCategoryGiven) {
  SeedEnvelopes();
  admin.GetBSNodes(1);
  CQKBSCategory roofs = CategoryKey(L"屋面", 0);
  CQKBSCategory missing = CategoryKey(L"不存在", 99);
  CQKBSType brick = TypeKey(L"砖墙", 3);
  EXPECT_EQ(admin.FindBSTNode(roofs, brick), nullptr);
  EXPECT_EQ(admin.FindBSTNode(missing, brick), nullptr);
}

TEST_P(CQKBSDataAdminTreeTest, FindBSCNodeFindsNoCodeInABuiltTree) {
  SeedEnvelopes();  // code WQ-1 (1) of 砖墙 is in the table
  admin.GetBSNodes(1);
  CQKBSCategory walls = CategoryKey(L"外墙", 1);
  CQKBSType brick = TypeKey(L"砖墙", 3);
  CQKBSCode code;
  code.Name = L"WQ-1";
  code.SetID(1);
  ASSERT_NE(admin.FindBSTNode(walls, brick), nullptr);
  EXPECT_EQ(admin.FindBSCNode(walls, brick, code), nullptr);
  CQKBSCode nameless;
  EXPECT_EQ(admin.FindBSCNode(walls, brick, nameless), nullptr);
}

// ---- Lookups in the construction tree ----

TEST_P(CQKBSDataAdminTreeTest, FindTimbTypeNodeMatchesTheNameAndIgnoresTheId) {
  SeedConstructions();
  admin.GetTimbNodes(1);
  TimbNode rightName(L"砌体", 999, nullptr, 0);
  TimbNode rightIdOnly(L"不存在", 3, nullptr, 0);
  ASSERT_NE(admin.FindTimbTypeNode(rightName), nullptr);
  EXPECT_EQ(admin.FindTimbTypeNode(rightName)->nId, 3);
  EXPECT_EQ(admin.FindTimbTypeNode(rightIdOnly), nullptr);
}

TEST_P(CQKBSDataAdminTreeTest, FindTimbNodeMatchesTheNameWithinTheTypeAndIgnoresTheId) {
  SeedConstructions();
  admin.GetTimbNodes(1);
  TimbNode masonry(L"砌体", -5, nullptr, 0);
  TimbNode block(L"加气混凝土砌块", 0, nullptr, 1);
  TimbNode rightIdOnly(L"不存在", 9, nullptr, 1);
  TimbNode ofAnotherType(L"挤塑聚苯板", 7, nullptr, 1);
  ASSERT_NE(admin.FindTimbNode(masonry, block), nullptr);
  EXPECT_EQ(admin.FindTimbNode(masonry, block)->nId, 9);
  EXPECT_EQ(admin.FindTimbNode(masonry, rightIdOnly), nullptr);
  EXPECT_EQ(admin.FindTimbNode(masonry, ofAnotherType), nullptr);
}

TEST_P(CQKBSDataAdminTreeTest, FindTimbNodeOfAnUnknownTypeGivesNull) {
  SeedConstructions();
  admin.GetTimbNodes(1);
  TimbNode unknown(L"不存在", 3, nullptr, 0);
  TimbNode brick(L"粘土实心砖", 2, nullptr, 1);
  EXPECT_EQ(admin.FindTimbNode(unknown, brick), nullptr);
}

// ---- Building, rebuilding, sharing and releasing ----

TEST_P(CQKBSDataAdminTreeTest, TheFirstGetBSNodesBuildsTheTreeEvenWithoutRebuild) {
  SeedEnvelopes();
  EXPECT_EQ(Names(admin.GetBSNodes(0)), L"屋面,外墙,外窗");
}

TEST_P(CQKBSDataAdminTreeTest, GetBSNodesWithoutRebuildReturnsTheSameTreeWithoutTheDatabase) {
  SeedEnvelopes();
  BSNode* first = admin.GetBSNodes(1);
  CQKBSCategory::S_Init(path, L"NoCategories");  // a new build would have no categories
  BSNode* second = admin.GetBSNodes(0);
  EXPECT_EQ(second, first);
  EXPECT_EQ(Names(second), L"屋面,外墙,外窗");
}

TEST_P(CQKBSDataAdminTreeTest, GetBSNodesWithRebuildReadsTheTablesAgain) {
  SeedEnvelopes();
  admin.GetBSNodes(1);
  Seed("INSERT INTO BSCategory (ID, Name, OrderId) VALUES (4, '地面', 0);");
  EXPECT_EQ(Names(admin.GetBSNodes(0)), L"屋面,外墙,外窗");
  EXPECT_EQ(Names(admin.GetBSNodes(1)), L"地面,屋面,外墙,外窗");
}

TEST_P(CQKBSDataAdminTreeTest, GetTimbNodesWithoutRebuildReturnsTheSameTreeWithoutTheDatabase) {
  SeedConstructions();
  TimbNode* first = admin.GetTimbNodes(0);
  CQKTimberingType::S_Init(path, L"NoTimberingTypes");
  TimbNode* second = admin.GetTimbNodes(0);
  EXPECT_EQ(second, first);
  EXPECT_EQ(Names(second), L"保温材料,空类型,砌体");
}

TEST_P(CQKBSDataAdminTreeTest, GetTimbNodesWithRebuildReadsTheTablesAgain) {
  SeedConstructions();
  admin.GetTimbNodes(1);
  Seed("INSERT INTO Timbering (ID, TTId, Name) VALUES (11, 2, '岩棉板');");
  EXPECT_EQ(admin.GetTimbNodes(0)->arrChild[1]->arrChild.GetSize(), 0);
  EXPECT_EQ(Names(admin.GetTimbNodes(1)->arrChild[1]), L"岩棉板");
}

TEST_P(CQKBSDataAdminTreeTest, ACopySharesBothTreesAndOutlivesItsSource) {
  SeedEnvelopes();
  SeedConstructions();
  auto* source = new CQKBSDataAdmin;
  source->GetBSNodes(1);
  source->GetTimbNodes(1);
  CQKBSDataAdmin copy(*source);
  EXPECT_EQ(copy.m_pBSRoot, source->m_pBSRoot);
  EXPECT_EQ(copy.m_pTimbRoot, source->m_pTimbRoot);
  delete source;  // the trees stay for the copy (the address sanitizer watches this)
  EXPECT_EQ(Names(copy.GetBSNodes(0)), L"屋面,外墙,外窗");
  EXPECT_EQ(Names(copy.GetBSNodes(0)->arrChild[1]), L"砖墙,加气混凝土墙");
  EXPECT_EQ(Names(copy.GetTimbNodes(0)->arrChild[2]), L"粘土实心砖,加气混凝土砌块");
}

TEST_P(CQKBSDataAdminTreeTest, AnAssignedAdminSharesTheTreesAndKeepsThemWhenTheSourceReleases) {
  SeedEnvelopes();
  SeedConstructions();
  admin.GetBSNodes(1);
  admin.GetTimbNodes(1);
  CQKBSDataAdmin other;
  other.GetBSNodes(1);  // a tree of its own, given up by the assignment
  other = admin;
  EXPECT_EQ(other.m_pBSRoot, admin.m_pBSRoot);
  EXPECT_EQ(other.m_pTimbRoot, admin.m_pTimbRoot);
  admin.Release();
  EXPECT_EQ(Names(other.GetBSNodes(0)), L"屋面,外墙,外窗");
  EXPECT_EQ(Names(other.GetTimbNodes(0)), L"保温材料,空类型,砌体");
}

TEST_P(CQKBSDataAdminTreeTest, ACopyKeepsTheOldTreeWhenItsSourceRebuilds) {
  SeedEnvelopes();
  admin.GetBSNodes(1);
  CQKBSDataAdmin copy(admin);
  Seed("INSERT INTO BSCategory (ID, Name, OrderId) VALUES (4, '地面', 0);");
  admin.GetBSNodes(1);
  EXPECT_NE(copy.m_pBSRoot, admin.m_pBSRoot);
  EXPECT_EQ(Names(copy.m_pBSRoot), L"屋面,外墙,外窗");
  EXPECT_EQ(Names(admin.m_pBSRoot), L"地面,屋面,外墙,外窗");
}

TEST_P(CQKBSDataAdminTreeTest, ReleaseLetsGoOfBothTreesAndTheNextCallReadsAgain) {
  SeedEnvelopes();
  SeedConstructions();
  admin.GetBSNodes(1);
  admin.GetTimbNodes(1);
  admin.Release();
  EXPECT_EQ(admin.m_pBSRoot, nullptr);
  EXPECT_EQ(admin.m_pTimbRoot, nullptr);
  Seed("INSERT INTO BSCategory (ID, Name, OrderId) VALUES (4, '地面', 0);");
  EXPECT_EQ(Names(admin.GetBSNodes(0)), L"地面,屋面,外墙,外窗");
  EXPECT_EQ(Names(admin.GetTimbNodes(0)), L"保温材料,空类型,砌体");
}

TEST_P(CQKBSDataAdminTreeTest, ReleaseWithoutTreesDoesNothing) {
  admin.Release();
  admin.Release();
  EXPECT_EQ(admin.m_pBSRoot, nullptr);
  EXPECT_EQ(admin.m_pTimbRoot, nullptr);
}

TEST_P(CQKBSDataAdminTreeTest, ReleasingAnInnerNodeAlsoForgetsTheRoot) {
  SeedEnvelopes();
  SeedConstructions();
  BSNode* root = admin.GetBSNodes(1);
  TimbNode* timbRoot = admin.GetTimbNodes(1);
  Probe::ReleaseBSNodes(admin, root->arrChild[1]);
  EXPECT_EQ(admin.m_pBSRoot, nullptr);
  EXPECT_EQ(admin.m_pTimbRoot, timbRoot);
  EXPECT_EQ(Names(admin.GetBSNodes(0)), L"屋面,外墙,外窗");  // read anew
}

// ---- The bounding structure of a code ----

class CQKBSDataAdminReadTest : public CQKBSDataAdminTreeTest {};

TEST_P(CQKBSDataAdminReadTest, GetBSOfACodeWithoutStructureGivesOneAndAnInitialisedObject) {
  Seed("INSERT INTO BoundingStructure (ID, BSCId, TIdS, HouDuS, XzXsS) VALUES (1, 4, '1', '20', '1');");
  CQKBoundingStructure bs;
  bs.SetID(9);
  bs.BSCId = 77;
  bs.TIdS = L"1,2";
  bs.HouDuS = L"20,240";
  bs.XzXsS = L"1,1";
  bs.HaveDemoBMP = 1;
  bs.arrHouDu.Add(20.0);
  bs.arrXzXs.Add(1.0);
  bs.arrMaterial.Add(CQKMateralData());
  long codeId = 5;
  EXPECT_EQ(admin.GetBS(bs, codeId), 1);
  EXPECT_EQ(bs.GetID(), 0);
  EXPECT_EQ(bs.BSCId, 0);
  EXPECT_EQ(bs.TIdS, L"");
  EXPECT_EQ(bs.HouDuS, L"");
  EXPECT_EQ(bs.XzXsS, L"");
  EXPECT_EQ(bs.HaveDemoBMP, 0);
  EXPECT_EQ(bs.arrMaterial.GetSize(), 0);
  EXPECT_EQ(bs.arrHouDu.GetSize(), 0);
  EXPECT_EQ(bs.arrXzXs.GetSize(), 0);
}

TEST_P(CQKBSDataAdminReadTest, GetBSReadsTheStructureWithItsLayers) {
  Seed("INSERT INTO Timbering (ID, TTId, Name) VALUES (1, 1, '水泥砂浆'), (2, 1, '粘土实心砖');"
       "INSERT INTO BoundingStructure (ID, BSCId, TIdS, HouDuS, XzXsS, HaveDemoBMP)"
       " VALUES (3, 4, '1,2,1', '20,240,20', '1,1.25,1', 1);");
  CQKBoundingStructure bs;
  long codeId = 4;
  EXPECT_EQ(admin.GetBS(bs, codeId), 1);
  EXPECT_EQ(bs.GetID(), 3);
  EXPECT_EQ(bs.BSCId, 4);
  EXPECT_EQ(bs.TIdS, L"1,2,1");
  EXPECT_EQ(bs.HaveDemoBMP, 1);
  ASSERT_EQ(bs.arrMaterial.GetSize(), 3);
  EXPECT_EQ(bs.arrMaterial[1].GetStuffName(), L"粘土实心砖");
  ASSERT_EQ(bs.arrHouDu.GetSize(), 3);
  EXPECT_EQ(bs.arrHouDu[1], 240.0);
  ASSERT_EQ(bs.arrXzXs.GetSize(), 3);
  EXPECT_EQ(bs.arrXzXs[1], 1.25);
}

TEST_P(CQKBSDataAdminReadTest, GetBSOfACodeWithTwoStructuresTakesTheFirstRow) {
  Seed("INSERT INTO BoundingStructure (ID, BSCId, TIdS, HouDuS, XzXsS)"
       " VALUES (1, 4, '1', '20', '1'), (2, 4, '2', '240', '1');");
  CQKBoundingStructure bs;
  long codeId = 4;
  EXPECT_EQ(admin.GetBS(bs, codeId), 1);
  EXPECT_EQ(bs.GetID(), 1);
  EXPECT_EQ(bs.TIdS, L"1");
  EXPECT_EQ(bs.HouDuS, L"20");
}

// ---- The walls of a type ----

namespace {

constexpr double kInside = 8.7;
constexpr double kOutsideSummer = 18.6;
constexpr double kOutsideWinter = 23.0;

// The layer as the test knows it, from the material table at the top of this file.
CQKTimberingData Layer(int id, const wchar_t* name, double thickM, double lambda, double rho, double c,
                       double correction) {
  CQKTimberingData layer;
  layer.SetStuffID(id);
  layer.SetStuffName(name);
  layer.SetThick(thickM);
  layer.SetDrXs(lambda);
  layer.SetGMD(rho);
  layer.SetBRr(c);
  layer.SetDrXsXz(correction);
  return layer;
}
CQKTimberingData Mortar(double t) { return Layer(1, L"水泥砂浆", t, 0.93, 1800.0, 1.05, 1.0); }
CQKTimberingData Brick(double t) { return Layer(2, L"粘土实心砖", t, 0.81, 1800.0, 1.05, 1.0); }
CQKTimberingData Eps(double t, double correction) {
  return Layer(3, L"膨胀聚苯板", t, 0.041, 20.0, 1.38, correction);
}

// A wall put together by hand from layers, with the coefficients of crxs, calculated for winter and
// then summer.
CQKWallData HandWall(std::initializer_list<CQKTimberingData> layers, const CQKCrXs& crxs) {
  CLxArray<CQKTimberingData> list;
  for (const CQKTimberingData& layer : layers) list.Add(layer);
  CQKWallData wall;
  wall.SetTimbering(list, false);
  wall.SetDjWHrXsData(crxs.DjWHrXs, false);
  wall.SetWHrXsData(crxs.WHrXs, false);
  wall.SetNHrXsData(crxs.NHrXs, false);
  wall.Cal(1);
  wall.Cal(0);
  return wall;
}

// Σ d/(λ·k) of the two walls of type 1, m²·K/W.
constexpr double kPlainBrickR = 0.02 / 0.93 + 0.24 / 0.81 + 0.02 / 0.93;
constexpr double kInsulatedR = 0.02 / 0.93 + 0.05 / (0.041 * 1.2) + 0.24 / 0.81 + 0.02 / 0.93;

}  // namespace

class CQKBSDataAdminWallTest : public CQKBSDataAdminTreeTest {
 protected:
  // Type 1 外墙类型 has code WQ-1 (4): mortar 20, brick 240, mortar 20 mm; and code WQ-2 (7): mortar 20,
  // polystyrene 50 (conductivity × 1.2), brick 240, mortar 20 mm. Code 7 is inserted first, so only
  // the ordering by ID puts WQ-1 first. Type 2 has no code; code 6 belongs to type 3.
  void SeedWalls() {
    Seed("INSERT INTO Timbering (ID, TTId, Name, GMD, DrXs, BRr) VALUES (1, 1, '水泥砂浆', 1800, 0.93, 1.05),"
         " (2, 1, '粘土实心砖', 1800, 0.81, 1.05), (3, 2, '膨胀聚苯板', 20, 0.041, 1.38);"
         "INSERT INTO BSType (ID, Name, BSDLId) VALUES (1, '外墙类型', 1), (2, '空类型', 1), (3, '屋面类型', 2);"
         "INSERT INTO BSCode (ID, BSTId, Name) VALUES (7, 1, 'WQ-2'), (4, 1, 'WQ-1'), (6, 3, 'WM-1');"
         "INSERT INTO BoundingStructure (ID, BSCId, TIdS, HouDuS, XzXsS) VALUES"
         " (1, 7, '1,3,2,1', '20,50,240,20', '1,1.2,1,1'), (2, 4, '1,2,1', '20,240,20', '1,1,1'),"
         " (3, 6, '2', '240', '1');");
  }
  CLxArray<CQKWallData> WallsOf(long typeId, bool bCal, const CQKCrXs& crxs) {
    CQKBSType type = TypeKey(L"", typeId);
    CLxArray<CQKWallData> out;
    admin.GetBSCodeCWallDataAry(type, out, bCal, crxs);
    return out;
  }
};

TEST_P(CQKBSDataAdminWallTest, ATypeWithoutCodesGivesAnEmptiedArray) {
  SeedWalls();
  CLxArray<CQKWallData> out;
  out.Add(CQKWallData());  // from an earlier call: must go
  CQKBSType empty = TypeKey(L"空类型", 2);
  admin.GetBSCodeCWallDataAry(empty, out, true, CQKCrXs());
  EXPECT_EQ(out.GetSize(), 0);
}

TEST_P(CQKBSDataAdminWallTest, AnUnreadableCodeTableGivesAnEmptiedArray) {
  SeedWalls();
  CQKBSCode::S_Init(path, L"NoCodes");
  CLxArray<CQKWallData> out;
  out.Add(CQKWallData());
  CQKBSType type = TypeKey(L"外墙类型", 1);
  admin.GetBSCodeCWallDataAry(type, out, true, CQKCrXs());
  EXPECT_EQ(out.GetSize(), 0);
}

TEST_P(CQKBSDataAdminWallTest, OneWallPerCodeInIdOrderNamedAfterTheCode) {
  SeedWalls();
  CLxArray<CQKWallData> out = WallsOf(1, false, CQKCrXs());
  ASSERT_EQ(out.GetSize(), 2);
  EXPECT_EQ(out[0].Name, L"WQ-1");
  EXPECT_EQ(out[1].Name, L"WQ-2");
  EXPECT_EQ(out[0].GetTimbering().GetSize(), 3);
  EXPECT_EQ(out[1].GetTimbering().GetSize(), 4);
}

TEST_P(CQKBSDataAdminWallTest, WithoutCalculationTheWallsCarryLayersButNoResults) {
  SeedWalls();
  CQKCrXs crxs;
  crxs.WHrXs = 20.0;
  crxs.DjWHrXs = 25.0;
  crxs.NHrXs = 9.0;
  CLxArray<CQKWallData> out = WallsOf(1, false, crxs);
  ASSERT_EQ(out.GetSize(), 2);
  for (int i = 0; i < 2; ++i) {
    EXPECT_GT(out[i].GetTimbering().GetSize(), 0) << i;
    EXPECT_EQ(out[i].CrXs, 0.0) << i;
    EXPECT_EQ(out[i].CrSj, 0.0) << i;
    EXPECT_EQ(out[i].CrYc, 0.0) << i;
    EXPECT_EQ(out[i].DjCrXs, 0.0) << i;
    EXPECT_EQ(out[i].NCrXs, 0.0) << i;
    // The coefficients are handed over only to be calculated with.
    EXPECT_EQ(out[i].GetWHrXsData(), kOutsideSummer) << i;
    EXPECT_EQ(out[i].GetDjWHrXsData(), kOutsideWinter) << i;
    EXPECT_EQ(out[i].GetNHrXsData(), kInside) << i;
  }
}

TEST_P(CQKBSDataAdminWallTest, AThicknessOf240MillimetresGivesALayerOf024Metres) {
  SeedWalls();
  CLxArray<CQKWallData> out = WallsOf(1, false, CQKCrXs());
  ASSERT_EQ(out.GetSize(), 2);
  CLxArray<CQKTimberingData> layers = out[0].GetTimbering();
  ASSERT_EQ(layers.GetSize(), 3);
  EXPECT_DOUBLE_EQ(layers[0].GetThick(), 0.02);
  EXPECT_DOUBLE_EQ(layers[1].GetThick(), 0.24);
  EXPECT_DOUBLE_EQ(layers[2].GetThick(), 0.02);
}

TEST_P(CQKBSDataAdminWallTest, TheCorrectionFactorOfALayerGoesToItsConductivityCorrection) {
  SeedWalls();
  CLxArray<CQKWallData> out = WallsOf(1, false, CQKCrXs());
  ASSERT_EQ(out.GetSize(), 2);
  CLxArray<CQKTimberingData> layers = out[1].GetTimbering();
  ASSERT_EQ(layers.GetSize(), 4);
  EXPECT_EQ(layers[1].GetStuffName(), L"膨胀聚苯板");
  EXPECT_DOUBLE_EQ(layers[1].GetDrXsXz(), 1.2);
  EXPECT_DOUBLE_EQ(layers[1].GetThick(), 0.05);
  EXPECT_DOUBLE_EQ(layers[0].GetDrXsXz(), 1.0);
}

TEST_P(CQKBSDataAdminWallTest, EveryMaterialPropertyReachesTheLayer) {
  Seed("INSERT INTO Timbering (ID, TTId, Name, GMD, DrXs, BRr, Roughness, TheAbs, SolAbs, VisAbs, SolarT,"
       " SolarRFront, SolarRBack, VisibleT, VisibleRFront, VisibleRBack, InfraredT, InfraredEFront, InfraredEBack)"
       " VALUES (12, 1, '镀膜玻璃', 2500, 0.76, 0.84, 3, 0.61, 0.62, 0.63, 0.11, 0.12, 0.13, 0.21, 0.22, 0.23,"
       " 0.31, 0.32, 0.33);"
       "INSERT INTO BSType (ID, Name, BSDLId) VALUES (1, '外窗类型', 1);"
       "INSERT INTO BSCode (ID, BSTId, Name) VALUES (1, 1, 'C-1');"
       "INSERT INTO BoundingStructure (ID, BSCId, TIdS, HouDuS, XzXsS) VALUES (1, 1, '12', '6', '1.1');");
  CLxArray<CQKWallData> out = WallsOf(1, false, CQKCrXs());
  ASSERT_EQ(out.GetSize(), 1);
  CLxArray<CQKTimberingData> layers = out[0].GetTimbering();
  ASSERT_EQ(layers.GetSize(), 1);
  const CQKTimberingData& glass = layers[0];
  EXPECT_EQ(glass.GetStuffID(), 12);
  EXPECT_EQ(glass.GetStuffName(), L"镀膜玻璃");
  EXPECT_DOUBLE_EQ(glass.GetGMD(), 2500.0);
  EXPECT_DOUBLE_EQ(glass.GetDrXs(), 0.76);
  EXPECT_DOUBLE_EQ(glass.GetBRr(), 0.84);
  EXPECT_DOUBLE_EQ(glass.GetThick(), 0.006);
  EXPECT_DOUBLE_EQ(glass.GetDrXsXz(), 1.1);
  EXPECT_EQ(glass.GetRoughness(), 3);
  EXPECT_DOUBLE_EQ(glass.GetTheAbs(), 0.61);
  EXPECT_DOUBLE_EQ(glass.GetSolAbs(), 0.62);
  EXPECT_DOUBLE_EQ(glass.GetVisAbs(), 0.63);
  EXPECT_DOUBLE_EQ(glass.GetSolarT(), 0.11);
  EXPECT_DOUBLE_EQ(glass.GetSolarRFront(), 0.12);
  EXPECT_DOUBLE_EQ(glass.GetSolarRBack(), 0.13);
  EXPECT_DOUBLE_EQ(glass.GetVisibleT(), 0.21);
  EXPECT_DOUBLE_EQ(glass.GetVisibleRFront(), 0.22);
  EXPECT_DOUBLE_EQ(glass.GetVisibleRBack(), 0.23);
  EXPECT_DOUBLE_EQ(glass.GetInfraredT(), 0.31);
  EXPECT_DOUBLE_EQ(glass.GetInfraredEFront(), 0.32);
  EXPECT_DOUBLE_EQ(glass.GetInfraredEBack(), 0.33);
}

TEST_P(CQKBSDataAdminWallTest, EachCalculatedWallEqualsTheSameWallBuiltByHand) {
  SeedWalls();
  const CQKCrXs crxs;
  CLxArray<CQKWallData> out = WallsOf(1, true, crxs);
  ASSERT_EQ(out.GetSize(), 2);
  const CQKWallData hand[2] = {HandWall({Mortar(0.02), Brick(0.24), Mortar(0.02)}, crxs),
                               HandWall({Mortar(0.02), Eps(0.05, 1.2), Brick(0.24), Mortar(0.02)}, crxs)};
  for (int i = 0; i < 2; ++i) {
    SCOPED_TRACE(i);
    EXPECT_DOUBLE_EQ(out[i].CrXs, hand[i].CrXs);
    EXPECT_DOUBLE_EQ(out[i].DjCrXs, hand[i].DjCrXs);
    EXPECT_DOUBLE_EQ(out[i].NCrXs, hand[i].NCrXs);
    EXPECT_DOUBLE_EQ(out[i].CalD(), hand[i].CalD());
    EXPECT_DOUBLE_EQ(out[i].CrSj, hand[i].CrSj);
    EXPECT_DOUBLE_EQ(out[i].CrYc, hand[i].CrYc);
    EXPECT_GT(out[i].CalD(), 0.0);
  }
}

TEST_P(CQKBSDataAdminWallTest, TheCalculatedUIsThatOfTheSummedResistances) {
  SeedWalls();
  CLxArray<CQKWallData> out = WallsOf(1, true, CQKCrXs());
  ASSERT_EQ(out.GetSize(), 2);
  const double summer = 1.0 / (1.0 / kInside + kPlainBrickR + 1.0 / kOutsideSummer);
  const double winter = 1.0 / (1.0 / kInside + kPlainBrickR + 1.0 / kOutsideWinter);
  const double insulated = 1.0 / (1.0 / kInside + kInsulatedR + 1.0 / kOutsideSummer);
  EXPECT_NEAR(out[0].CrXs, summer, 1e-9 * summer);
  EXPECT_NEAR(out[0].DjCrXs, winter, 1e-9 * winter);
  EXPECT_NEAR(out[1].CrXs, insulated, 1e-9 * insulated);
}

TEST_P(CQKBSDataAdminWallTest, TheCoefficientsGivenReachTheWall) {
  SeedWalls();
  CQKCrXs crxs;
  crxs.WHrXs = 20.0;
  crxs.DjWHrXs = 25.0;
  crxs.NHrXs = 9.0;
  CLxArray<CQKWallData> out = WallsOf(1, true, crxs);
  ASSERT_EQ(out.GetSize(), 2);
  EXPECT_EQ(out[0].GetWHrXsData(), 20.0);
  EXPECT_EQ(out[0].GetDjWHrXsData(), 25.0);
  EXPECT_EQ(out[0].GetNHrXsData(), 9.0);
  // Summer is calculated last, so the wall's own coefficients are the summer ones.
  EXPECT_EQ(out[0].GetWHrXs(), 20.0);
  EXPECT_EQ(out[0].GetNHrXs(), 9.0);
  const double summer = 1.0 / (1.0 / 9.0 + kPlainBrickR + 1.0 / 20.0);
  const double winter = 1.0 / (1.0 / 9.0 + kPlainBrickR + 1.0 / 25.0);
  const double between = 1.0 / (2.0 / 9.0 + kPlainBrickR);
  EXPECT_NEAR(out[0].CrXs, summer, 1e-9 * summer);
  EXPECT_NEAR(out[0].DjCrXs, winter, 1e-9 * winter);
  EXPECT_NEAR(out[0].NCrXs, between, 1e-9 * between);
}

TEST_P(CQKBSDataAdminWallTest, AConstructionListLongerThanTheThicknessesLeavesTheLayersDefaults) {
  Seed("INSERT INTO Timbering (ID, TTId, Name, GMD, DrXs, BRr) VALUES (1, 1, '水泥砂浆', 1800, 0.93, 1.05),"
       " (2, 1, '粘土实心砖', 1800, 0.81, 1.05);"
       "INSERT INTO BSType (ID, Name, BSDLId) VALUES (1, '外墙类型', 1);"
       "INSERT INTO BSCode (ID, BSTId, Name) VALUES (1, 1, 'WQ-1');"
       "INSERT INTO BoundingStructure (ID, BSCId, TIdS, HouDuS, XzXsS) VALUES (1, 1, '1,2', '20', '1.5');");
  CLxArray<CQKWallData> out = WallsOf(1, true, CQKCrXs());
  ASSERT_EQ(out.GetSize(), 1);
  CLxArray<CQKTimberingData> layers = out[0].GetTimbering();
  ASSERT_EQ(layers.GetSize(), 2);
  EXPECT_DOUBLE_EQ(layers[0].GetThick(), 0.02);
  EXPECT_DOUBLE_EQ(layers[0].GetDrXsXz(), 1.5);
  EXPECT_EQ(layers[1].GetStuffName(), L"粘土实心砖");
  EXPECT_DOUBLE_EQ(layers[1].GetDrXs(), 0.81);
  EXPECT_EQ(layers[1].GetThick(), 0.0);     // a fresh layer's thickness
  EXPECT_EQ(layers[1].GetDrXsXz(), 1.0);    // and correction
  const double u = 1.0 / (1.0 / kInside + 0.02 / (0.93 * 1.5) + 1.0 / kOutsideSummer);
  EXPECT_NEAR(out[0].CrXs, u, 1e-9 * u);
}

TEST_P(CQKBSDataAdminWallTest, AThicknessListLongerThanTheConstructionsGivesOneLayerPerConstruction) {
  Seed("INSERT INTO Timbering (ID, TTId, Name, GMD, DrXs, BRr) VALUES (2, 1, '粘土实心砖', 1800, 0.81, 1.05);"
       "INSERT INTO BSType (ID, Name, BSDLId) VALUES (1, '外墙类型', 1);"
       "INSERT INTO BSCode (ID, BSTId, Name) VALUES (1, 1, 'WQ-1');"
       "INSERT INTO BoundingStructure (ID, BSCId, TIdS, HouDuS, XzXsS) VALUES (1, 1, '2', '240,20', '1,1');");
  CLxArray<CQKWallData> out = WallsOf(1, false, CQKCrXs());
  ASSERT_EQ(out.GetSize(), 1);
  CLxArray<CQKTimberingData> layers = out[0].GetTimbering();
  ASSERT_EQ(layers.GetSize(), 1);
  EXPECT_DOUBLE_EQ(layers[0].GetThick(), 0.24);
}

TEST_P(CQKBSDataAdminWallTest, ACodeWithoutStructureGivesAWallWithoutLayers) {
  Seed("INSERT INTO BSType (ID, Name, BSDLId) VALUES (1, '外墙类型', 1);"
       "INSERT INTO BSCode (ID, BSTId, Name) VALUES (1, 1, 'WQ-1');");
  CLxArray<CQKWallData> out = WallsOf(1, false, CQKCrXs());
  ASSERT_EQ(out.GetSize(), 1);
  EXPECT_EQ(out[0].Name, L"WQ-1");
  EXPECT_EQ(out[0].GetTimbering().GetSize(), 0);
}

QK_ON_BOTH_BACKENDS(CQKBSDataAdminTreeTest);
QK_ON_BOTH_BACKENDS(CQKBSDataAdminReadTest);
QK_ON_BOTH_BACKENDS(CQKBSDataAdminWallTest);

// ---- Demonstration pictures (no database) ----

namespace {

class CQKBSDataAdminPictureTest : public ::testing::Test {
 protected:
  void TearDown() override { CQKBSDataAdmin::SetBMPDirPath(L""); }  // the folder is every admin's

  CQKBSDataAdmin admin;
  CQKBSType brick = TypeKey(L"砖墙", 3);
};

CQKBSCode CodeKey(const wchar_t* name) {
  CQKBSCode code;
  code.Name = name;
  return code;
}

}  // namespace

TEST_F(CQKBSDataAdminPictureTest, TheTypePictureIsInTheFolderUnderTheTypeName) {
  CQKBSDataAdmin::SetBMPDirPath(L"D:\\QKLoad\\图片");
  EXPECT_EQ(admin.GetBSTDemoBMPPath(brick), L"D:\\QKLoad\\图片\\砖墙.jpg");
}

TEST_F(CQKBSDataAdminPictureTest, AFolderEndingInABackslashGivesADoubledSeparator) {
  CQKBSDataAdmin::SetBMPDirPath(L"D:\\QKLoad\\图片\\");
  EXPECT_EQ(admin.GetBSTDemoBMPPath(brick), L"D:\\QKLoad\\图片\\\\砖墙.jpg");
}

TEST_F(CQKBSDataAdminPictureTest, WithoutAFolderTheTypePictureBeginsWithABackslash) {
  ASSERT_EQ(CQKBSDataAdmin::s_m_strBMPDir, L"");  // nothing set it (every test resets it)
  EXPECT_EQ(admin.GetBSTDemoBMPPath(brick), L"\\砖墙.jpg");
}

TEST_F(CQKBSDataAdminPictureTest, TheCodePictureIsTypeBackslashCodeWithoutTheFolder) {
  CQKBSDataAdmin::SetBMPDirPath(L"D:\\QKLoad\\图片");
  CQKBSCode code = CodeKey(L"WQ-1");
  EXPECT_EQ(admin.GetBSDemoBMPPath(brick, code), L"砖墙\\WQ-1.jpg");
}

TEST_F(CQKBSDataAdminPictureTest, SetBMPDirPathStoresTheFolderUnchanged) {
  const CString folder = L" /srv/qk/图片\\ ";
  CQKBSDataAdmin::SetBMPDirPath(folder);
  EXPECT_EQ(CQKBSDataAdmin::s_m_strBMPDir, folder);
  CQKBSDataAdmin another;
  EXPECT_EQ(another.GetBSTDemoBMPPath(brick), L" /srv/qk/图片\\ \\砖墙.jpg");
}
