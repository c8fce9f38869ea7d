// The room-use administration: the tree of room types and their uses, and the deletions.

#include <gtest/gtest.h>

#include "RoomsFixture.h"
#include "rooms/CQKRoomUseDataAdmin.h"

using Node = CQKRoomUseDataAdmin::tagRoomUseNode;

namespace {

class CQKRoomUseDataAdminTest : public RoomsFixture {
 protected:
  // 办公建筑 (1: 普通办公室 1, 会议室 3), 医院 (2: 病房 2); load parameters for uses 1, 2 and 3 whose own
  // "Id" is 1, 2, 3 (the deletion matches on that key).
  void SeedRooms() {
    Seed("INSERT INTO RoomType (Name) VALUES ('办公建筑'), ('医院');"
         "INSERT INTO RoomUse (RTId, Name) VALUES (1, '普通办公室'), (2, '病房'), (1, '会议室');"
         "INSERT INTO RULoadParam (RUId) VALUES (1), (2), (3);");
  }
  static CString Children(const Node* node) {
    CString names;
    for (int i = 0; node && i < node->arrChild.GetSize(); ++i) {
      if (i) names += L",";
      names += node->arrChild[i]->strName;
    }
    return names;
  }
  static CQKRoomType TypeRef(const wchar_t* name, long id) {
    CQKRoomType t;
    t.Name = name;
    t.SetID(id);
    return t;
  }

  CQKRoomUseDataAdmin admin;
};

}  // namespace

TEST_P(CQKRoomUseDataAdminTest, TheTreeHoldsTypesThenTheirUsesInIdOrder) {
  SeedRooms();
  Node* root = admin.GetRoomUseNodes(1);
  ASSERT_NE(root, nullptr);
  EXPECT_EQ(root->strName, L"*");
  EXPECT_EQ(root->nId, -1);
  EXPECT_EQ(root->nFlag, 1);
  EXPECT_EQ(root->pParent, nullptr);
  EXPECT_EQ(Children(root), L"办公建筑,医院");
  Node* office = root->arrChild[0];
  EXPECT_EQ(office->nId, 1);
  EXPECT_EQ(office->nFlag, 1);
  EXPECT_EQ(office->pParent, root);
  EXPECT_EQ(Children(office), L"普通办公室,会议室");
  EXPECT_EQ(office->arrChild[1]->nId, 3);
  EXPECT_EQ(office->arrChild[1]->pParent, office);
  EXPECT_EQ(Children(root->arrChild[1]), L"病房");
}

TEST_P(CQKRoomUseDataAdminTest, MakeRoomUseNodesWithoutTheTypeTableGivesZeroAndAnEmptyRoot) {
  SeedRooms();
  CQKRoomType::S_Init(path, L"NoSuchTable");
  EXPECT_EQ(admin.MakeRoomUseNodes(), 0);
  ASSERT_NE(admin.m_pRoomUseRoot, nullptr);
  EXPECT_EQ(admin.m_pRoomUseRoot->arrChild.GetSize(), 0);
}

TEST_P(CQKRoomUseDataAdminTest, WithoutTheUseTableTheTypesHaveNoChildren) {
  SeedRooms();
  CQKRoomUse::S_Init(path, L"NoSuchTable");
  EXPECT_EQ(admin.MakeRoomUseNodes(), 1);
  EXPECT_EQ(Children(admin.m_pRoomUseRoot), L"办公建筑,医院");
  EXPECT_EQ(admin.m_pRoomUseRoot->arrChild[0]->arrChild.GetSize(), 0);
}

TEST_P(CQKRoomUseDataAdminTest, GetRoomUseNodesWithoutRebuildReturnsTheSameTreeWithoutTheDatabase) {
  SeedRooms();
  Node* first = admin.GetRoomUseNodes(0);
  CQKRoomType::S_Init(path, L"NoSuchTable");  // a second build would find no types
  Node* second = admin.GetRoomUseNodes(0);
  EXPECT_EQ(first, second);
  EXPECT_EQ(Children(second), L"办公建筑,医院");
}

TEST_P(CQKRoomUseDataAdminTest, GetRoomUseNodesWithRebuildReadsTheTablesAgain) {
  SeedRooms();
  admin.GetRoomUseNodes(0);
  Seed("INSERT INTO RoomType (Name) VALUES ('学校');");
  EXPECT_EQ(Children(admin.GetRoomUseNodes(1)), L"办公建筑,医院,学校");
}

TEST_P(CQKRoomUseDataAdminTest, ADuplicatedTypeNameFindsTheLowerId) {
  Seed("INSERT INTO RoomType (Name) VALUES ('商场'), ('医院'), ('医院');");
  admin.GetRoomUseNodes(1);
  Node key(L"医院", -1, nullptr, 1);
  Node* found = admin.FindRoomTypeNode(key);
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(found->nId, 2);
}

TEST_P(CQKRoomUseDataAdminTest, FindingComparesNamesExactly) {
  Seed("INSERT INTO RoomType (Name) VALUES ('Office');");
  admin.GetRoomUseNodes(1);
  Node lower(L"office", -1, nullptr, 1);
  EXPECT_EQ(admin.FindRoomTypeNode(lower), nullptr);
}

TEST_P(CQKRoomUseDataAdminTest, FindRoomUseNodeSearchesTheTypesChildren) {
  SeedRooms();
  admin.GetRoomUseNodes(1);
  Node typeKey(L"办公建筑", -1, nullptr, 1);
  Node useKey(L"会议室", -1, nullptr, 1);
  Node* use = admin.FindRoomUseNode(admin.FindRoomTypeNode(typeKey), useKey);
  ASSERT_NE(use, nullptr);
  EXPECT_EQ(use->nId, 3);
  EXPECT_EQ(admin.FindRoomUseNode(nullptr, useKey), nullptr);
}

TEST_P(CQKRoomUseDataAdminTest, FindingWithoutATreeGivesNull) {
  Node key(L"医院", -1, nullptr, 1);
  EXPECT_EQ(admin.FindRoomTypeNode(key), nullptr);
}

TEST_P(CQKRoomUseDataAdminTest, ACopySharesTheTreeAndOutlivesItsSource) {
  SeedRooms();
  auto* source = new CQKRoomUseDataAdmin;
  source->GetRoomUseNodes(1);
  CQKRoomUseDataAdmin copy(*source);
  EXPECT_EQ(copy.m_pRoomUseRoot, source->m_pRoomUseRoot);
  delete source;  // the tree stays for the copy
  EXPECT_EQ(Children(copy.GetRoomUseNodes(0)), L"办公建筑,医院");
}

TEST_P(CQKRoomUseDataAdminTest, ACopyKeepsTheOldTreeWhenItsSourceRebuilds) {
  SeedRooms();
  admin.GetRoomUseNodes(1);
  CQKRoomUseDataAdmin copy(admin);
  Seed("INSERT INTO RoomType (Name) VALUES ('学校');");
  admin.GetRoomUseNodes(1);
  EXPECT_NE(copy.m_pRoomUseRoot, admin.m_pRoomUseRoot);
  EXPECT_EQ(Children(copy.m_pRoomUseRoot), L"办公建筑,医院");
}

TEST_P(CQKRoomUseDataAdminTest, DeleteRoomUseDeletesTheParameterRowOfTheSameIdThenTheUse) {
  SeedRooms();
  Seed("UPDATE RULoadParam SET RUId = 9 WHERE ID = 3;");  // the parameter row 3 now belongs to use 9
  CQKRoomUse use;
  use.SetID(3);
  EXPECT_EQ(admin.DeleteRoomUse(use), 1);
  EXPECT_EQ(Query("select group_concat(ID) from RULoadParam"), "1,2");  // by "Id", not by "RUId"
  EXPECT_EQ(Query("select group_concat(Name) from RoomUse"), "普通办公室,病房");
  EXPECT_TRUE(messages.empty());
}

TEST_P(CQKRoomUseDataAdminTest, DeleteRoomUseWhoseParametersCannotBeDeletedKeepsTheUse) {
  SeedRooms();
  CQKRULoadParam::S_Init(path, L"NoParams");
  CQKRoomUse use;
  use.SetID(3);
  EXPECT_EQ(admin.DeleteRoomUse(use), 0);
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].first, L"删除表 \"NoParams\" 时出错!");
  EXPECT_EQ(messages[0].second, 16u);
  EXPECT_EQ(Query("select count(*) from RoomUse"), "3");
}

TEST_P(CQKRoomUseDataAdminTest, DeleteRoomUseNamesTheUseTableWhenItFails) {
  SeedRooms();
  CQKRoomUse::S_Init(path, L"NoUses");
  CQKRoomUse use;
  use.SetID(3);
  EXPECT_EQ(admin.DeleteRoomUse(use), 0);
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].first, L"删除表 \"NoUses\" 时出错!");
  EXPECT_EQ(messages[0].second, 16u);
  EXPECT_EQ(Query("select group_concat(ID) from RULoadParam"), "1,2");  // the first deletion stands
}

TEST_P(CQKRoomUseDataAdminTest, DeleteRoomTypeCascadesThroughItsUsesInTheTree) {
  SeedRooms();
  admin.GetRoomUseNodes(1);
  CQKRoomType office = TypeRef(L"办公建筑", 1);
  EXPECT_EQ(admin.DeleteRoomType(office), 1);
  EXPECT_EQ(Query("select group_concat(Name) from RoomType"), "医院");
  EXPECT_EQ(Query("select group_concat(Name) from RoomUse"), "病房");
  EXPECT_EQ(Query("select group_concat(ID) from RULoadParam"), "2");
  EXPECT_TRUE(messages.empty());
  // The tree is the caller's to rebuild.
  EXPECT_EQ(Children(admin.GetRoomUseNodes(0)), L"办公建筑,医院");
}

TEST_P(CQKRoomUseDataAdminTest, DeleteRoomTypeGoesOnWhenOneParameterDeletionFails) {
  SeedRooms();
  // The parameter row of use 1 refuses to go; that of use 3 does not.
  if (OnSQLite()) {
    Seed("CREATE TRIGGER KeepParams1 BEFORE DELETE ON RULoadParam WHEN old.ID = 1 "
         "BEGIN SELECT RAISE(ABORT, 'kept'); END;");
  } else {
    Seed("CREATE FUNCTION keep_params_1() RETURNS trigger LANGUAGE plpgsql AS"
         " $$ BEGIN RAISE EXCEPTION 'kept'; END $$;"
         "CREATE TRIGGER KeepParams1 BEFORE DELETE ON RULoadParam FOR EACH ROW WHEN (old.ID = 1)"
         " EXECUTE FUNCTION keep_params_1();");
  }
  admin.GetRoomUseNodes(1);
  CQKRoomType office = TypeRef(L"办公建筑", 1);
  EXPECT_EQ(admin.DeleteRoomType(office), 1);
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].first, L"删除表 \"RULoadParam\" 时出错!");
  EXPECT_EQ(Query("select group_concat(Name) from RoomUse"), "普通办公室,病房");  // use 1 stays, use 3 went
  EXPECT_EQ(Query("select group_concat(ID) from RULoadParam"), "1,2");
  EXPECT_EQ(Query("select group_concat(Name) from RoomType"), "医院");
}

TEST_P(CQKRoomUseDataAdminTest, DeleteRoomTypeNotInTheTreeDeletesOnlyTheTypeRow) {
  admin.GetRoomUseNodes(1);  // built before the rooms were added
  SeedRooms();
  CQKRoomType office = TypeRef(L"办公建筑", 1);
  EXPECT_EQ(admin.DeleteRoomType(office), 1);
  EXPECT_EQ(Query("select group_concat(Name) from RoomType"), "医院");
  EXPECT_EQ(Query("select count(*) from RoomUse"), "3");
  EXPECT_EQ(Query("select count(*) from RULoadParam"), "3");
}

TEST_P(CQKRoomUseDataAdminTest, DeleteRoomTypeFailureShowsTheTypeTable) {
  CQKRoomType::S_Init(path, L"NoTypes");
  CQKRoomType office = TypeRef(L"办公建筑", 1);
  EXPECT_EQ(admin.DeleteRoomType(office), 0);
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].first, L"删除表 \"NoTypes\" 时出错!");
  EXPECT_EQ(messages[0].second, 16u);
}

TEST_P(CQKRoomUseDataAdminTest, DeletionsOnAReadOnlyDatabaseFailAndKeepEveryRow) {
  const CString readOnly = CreateReadOnlyDatabase(
      dir, "readonly.db",
      "CREATE TABLE RoomType (ID INTEGER PRIMARY KEY AUTOINCREMENT, Name TEXT);"
      "CREATE TABLE RoomUse (ID INTEGER PRIMARY KEY AUTOINCREMENT, RTId INTEGER, Name TEXT);"
      "CREATE TABLE RULoadParam (ID INTEGER PRIMARY KEY AUTOINCREMENT, RUId INTEGER);"
      "INSERT INTO RoomType (Name) VALUES ('办公建筑'); INSERT INTO RoomUse (RTId, Name) VALUES (1, '会议室');"
      "INSERT INTO RULoadParam (RUId) VALUES (1);");
  const int result = RunUnprivileged([&] {
    ForgetClassTable<CQKRoomType>();
    ForgetClassTable<CQKRoomUse>();
    CQKRoomType::S_Init(readOnly, L"RoomType");
    CQKRoomUse::S_Init(readOnly, L"RoomUse");
    CQKRULoadParam::S_Init(readOnly, L"RULoadParam");
    CQKRoomUseDataAdmin ro;
    if (ro.GetRoomUseNodes(1)->arrChild.GetSize() != 1) return 10;
    CQKRoomType office = TypeRef(L"办公建筑", 1);
    if (ro.DeleteRoomType(office) != 0) return 11;
    return 0;
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(QueryOne(readOnly, "select count(*) from RoomType"), "1");
  EXPECT_EQ(QueryOne(readOnly, "select count(*) from RoomUse"), "1");
  EXPECT_EQ(QueryOne(readOnly, "select count(*) from RULoadParam"), "1");
}

QK_ON_BOTH_BACKENDS(CQKRoomUseDataAdminTest);
