// The envelope catalogue administration, deleting side: an envelope code with its bounding
// structures, an envelope type with its codes, a construction unless a bounding structure still lists
// it, and a construction type. Each deletion runs one statement at a time, reports a failure by a
// message box naming the table, and leaves the trees as they were.

#include <gtest/gtest.h>

#include <string>

#include "EnvelopeFixture.h"
#include "TestDatabase.h"
#include "envelope/CQKBSDataAdmin.h"

using BSNode = CQKBSDataAdmin::tagBSNode;
using TimbNode = CQKBSDataAdmin::tagTimbNode;

namespace {

constexpr unsigned int kErrorIcon = 16;
constexpr unsigned int kWarningIcon = 48;

CQKBSCode CodeRef(long id) {
  CQKBSCode code;
  code.SetID(id);
  return code;
}

CQKBSType TypeRef(long id) {
  CQKBSType type;
  type.SetID(id);
  return type;
}

CQKTimbering ConstructionRef(long id) {
  CQKTimbering construction;
  construction.SetID(id);
  return construction;
}

class CQKBSDataAdminDeleteTest : public EnvelopeFixture {
 protected:
  // Type 砖墙 (1) has codes WQ-1 (1, two bounding structures) and WQ-2 (2); type 倒置式屋面 (2) has WM-1
  // (3). Type 3 has no code.
  void SeedCodes() {
    Seed("INSERT INTO BSCategory (ID, Name, OrderId) VALUES (1, '外墙', 1), (2, '屋面', 2);"
         "INSERT INTO BSType (ID, Name, BSDLId) VALUES (1, '砖墙', 1), (2, '倒置式屋面', 2), (3, '空类型', 1);"
         "INSERT INTO BSCode (ID, BSTId, Name) VALUES (1, 1, 'WQ-1'), (2, 1, 'WQ-2'), (3, 2, 'WM-1');"
         "INSERT INTO BoundingStructure (ID, BSCId, TIdS, HouDuS, XzXsS) VALUES (1, 1, '1', '20', '1'),"
         " (2, 2, '1', '20', '1'), (3, 3, '1', '20', '1'), (4, 1, '2', '240', '1');");
  }
  // Constructions 2, 5, 12, 21, 22 and 122 of type 砌体 (1); type 保温材料 (2) has none. Envelope code
  // WQ-1 (1) of type 砖墙 (1) exists; which bounding structure names which construction is up to the
  // test.
  void SeedConstructions() {
    Seed("INSERT INTO TimberingType (ID, Name) VALUES (1, '砌体'), (2, '保温材料');"
         "INSERT INTO Timbering (ID, TTId, Name) VALUES (2, 1, '粘土实心砖'), (5, 1, '灰砂砖'), (12, 1, '水泥砂浆'),"
         " (21, 1, '石灰砂浆'), (22, 1, '混合砂浆'), (122, 1, '加气混凝土砌块');"
         "INSERT INTO BSType (ID, Name, BSDLId) VALUES (1, '砖墙', 1);"
         "INSERT INTO BSCode (ID, BSTId, Name) VALUES (1, 1, 'WQ-1');");
  }
  void SeedStructure(const std::string& tids) {
    Seed("INSERT INTO BoundingStructure (BSCId, TIdS, HouDuS, XzXsS) VALUES (1, '" + tids + "', '', '');");
  }
  // The values of column in table, in ID order, comma-separated.
  std::string Column(const std::string& column, const std::string& table) const {
    return Query("select group_concat(" + column + ") from (select " + column + " from " + table +
                 " order by ID) as t");
  }
  // DeleteTimbering of construction 2 refuses while a bounding structure lists it as tids.
  void ExpectConstruction2InUseBy(const std::string& tids) {
    SeedConstructions();
    SeedStructure(tids);
    CQKTimbering construction = ConstructionRef(2);
    CString message = L"untouched";
    EXPECT_EQ(admin.DeleteTimbering(construction, message), 5);
    EXPECT_EQ(message, L"untouched");
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0].first, L"围护结构 [砖墙] - [WQ-1] 用到了该材质！");
    EXPECT_EQ(messages[0].second, kWarningIcon);
    EXPECT_EQ(Column("ID", "Timbering"), "2,5,12,21,22,122");
  }
  // DeleteTimbering of construction 2 deletes it while the only bounding structure lists tids.
  void ExpectConstruction2FreeBeside(const std::string& tids) {
    SeedConstructions();
    SeedStructure(tids);
    CQKTimbering construction = ConstructionRef(2);
    CString message;
    EXPECT_EQ(admin.DeleteTimbering(construction, message), 0);
    EXPECT_TRUE(messages.empty());
    EXPECT_EQ(Column("ID", "Timbering"), "5,12,21,22,122");
  }

  CQKBSDataAdmin admin;
};

}  // namespace

// ---- DeleteBSCode ----

TEST_P(CQKBSDataAdminDeleteTest, DeleteBSCodeDeletesTheCodeAndItsBoundingStructures) {
  SeedCodes();
  CQKBSCode code = CodeRef(1);
  CString message;
  EXPECT_EQ(admin.DeleteBSCode(code, message), 0);
  EXPECT_EQ(Column("ID", "BSCode"), "2,3");
  EXPECT_EQ(Column("BSCId", "BoundingStructure"), "2,3");
  EXPECT_TRUE(messages.empty());
}

TEST_P(CQKBSDataAdminDeleteTest, DeleteBSCodeOfACodeThatIsNotThereSucceeds) {
  SeedCodes();
  CQKBSCode code = CodeRef(99);
  CString message;
  EXPECT_EQ(admin.DeleteBSCode(code, message), 0);
  EXPECT_EQ(Column("ID", "BSCode"), "1,2,3");
  EXPECT_TRUE(messages.empty());
}

TEST_P(CQKBSDataAdminDeleteTest, DeleteBSCodeFailingOnTheCodeNamesItsTableAndDeletesNothing) {
  SeedCodes();
  CQKBSCode::S_Init(path, L"NoCodes");
  CQKBSCode code = CodeRef(1);
  CString message;
  EXPECT_EQ(admin.DeleteBSCode(code, message), 1);
  EXPECT_EQ(message, L"删除表 \"NoCodes\" 时出错！");
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].first, L"删除表 \"NoCodes\" 时出错！");
  EXPECT_EQ(messages[0].second, kErrorIcon);
  EXPECT_EQ(Column("ID", "BSCode"), "1,2,3");
  EXPECT_EQ(Column("BSCId", "BoundingStructure"), "1,2,3,1");
}

TEST_P(CQKBSDataAdminDeleteTest, DeleteBSCodeFailingOnTheStructuresLeavesTheCodeDeleted) {
  SeedCodes();
  CQKBoundingStructure::S_Init(path, L"NoStructures");
  CQKBSCode code = CodeRef(1);
  CString message;
  EXPECT_EQ(admin.DeleteBSCode(code, message), 1);
  EXPECT_EQ(message, L"删除表 \"NoStructures\" 时出错！");
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].first, L"删除表 \"NoStructures\" 时出错！");
  EXPECT_EQ(messages[0].second, kErrorIcon);
  EXPECT_EQ(Column("ID", "BSCode"), "2,3");                        // the first step stands
  EXPECT_EQ(Column("BSCId", "BoundingStructure"), "1,2,3,1");  // the second did nothing
}

// ---- DeleteBSType ----

TEST_P(CQKBSDataAdminDeleteTest, DeleteBSTypeDeletesTheTypeItsCodesAndTheirStructures) {
  SeedCodes();
  CQKBSType type = TypeRef(1);
  EXPECT_EQ(admin.DeleteBSType(type), 1);
  EXPECT_EQ(Column("ID", "BSType"), "2,3");
  EXPECT_EQ(Column("ID", "BSCode"), "3");
  EXPECT_EQ(Column("BSCId", "BoundingStructure"), "3");
  EXPECT_TRUE(messages.empty());
}

TEST_P(CQKBSDataAdminDeleteTest, DeleteBSTypeWithoutCodesDeletesTheTypeOnly) {
  SeedCodes();
  CQKBSType type = TypeRef(3);
  EXPECT_EQ(admin.DeleteBSType(type), 1);
  EXPECT_EQ(Column("ID", "BSType"), "1,2");
  EXPECT_EQ(Column("ID", "BSCode"), "1,2,3");
  EXPECT_EQ(Column("BSCId", "BoundingStructure"), "1,2,3,1");
}

TEST_P(CQKBSDataAdminDeleteTest, DeleteBSTypeFailingOnTheTypeShowsTheMessageAndKeepsTheCodes) {
  SeedCodes();
  CQKBSType::S_Init(path, L"NoTypes");
  CQKBSType type = TypeRef(1);
  EXPECT_EQ(admin.DeleteBSType(type), 0);
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].first, L"删除表 \"NoTypes\" 时出错！");
  EXPECT_EQ(messages[0].second, kErrorIcon);
  EXPECT_EQ(Column("ID", "BSCode"), "1,2,3");
  EXPECT_EQ(Column("BSCId", "BoundingStructure"), "1,2,3,1");
}

TEST_P(CQKBSDataAdminDeleteTest, DeleteBSTypeGoesOnWhenOneCodeCannotBeDeleted) {
  SeedCodes();
  // The row of code 1 refuses to go; that of code 2 does not.
  if (OnSQLite()) {
    Seed("CREATE TRIGGER KeepCode1 BEFORE DELETE ON BSCode WHEN old.ID = 1 "
         "BEGIN SELECT RAISE(ABORT, 'kept'); END;");
  } else {
    Seed("CREATE FUNCTION keep_code_1() RETURNS trigger LANGUAGE plpgsql AS"
         " $$ BEGIN RAISE EXCEPTION 'kept'; END $$;"
         "CREATE TRIGGER KeepCode1 BEFORE DELETE ON BSCode FOR EACH ROW WHEN (old.ID = 1)"
         " EXECUTE FUNCTION keep_code_1();");
  }
  CQKBSType type = TypeRef(1);
  EXPECT_EQ(admin.DeleteBSType(type), 1);
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].first, L"删除表 \"BSCode\" 时出错！");
  EXPECT_EQ(messages[0].second, kErrorIcon);
  EXPECT_EQ(Column("ID", "BSType"), "2,3");
  EXPECT_EQ(Column("ID", "BSCode"), "1,3");
  EXPECT_EQ(Column("BSCId", "BoundingStructure"), "1,3,1");  // code 1 kept its structures
}

TEST_P(CQKBSDataAdminDeleteTest, DeleteBSTypeShowsTheMessageOfEveryCodeWhoseStructuresFail) {
  SeedCodes();
  CQKBoundingStructure::S_Init(path, L"NoStructures");
  CQKBSType type = TypeRef(1);
  EXPECT_EQ(admin.DeleteBSType(type), 1);
  ASSERT_EQ(messages.size(), 2u);
  for (const auto& shown : messages) {
    EXPECT_EQ(shown.first, L"删除表 \"NoStructures\" 时出错！");
    EXPECT_EQ(shown.second, kErrorIcon);
  }
  EXPECT_EQ(Column("ID", "BSCode"), "3");
}

// ---- DeleteTimbering ----

TEST_P(CQKBSDataAdminDeleteTest, DeleteTimberingRefusesAConstructionAtTheEndOfAList) {
  ExpectConstruction2InUseBy("12,2");
}

TEST_P(CQKBSDataAdminDeleteTest, DeleteTimberingRefusesAConstructionThatIsTheWholeList) {
  ExpectConstruction2InUseBy("2");
}

TEST_P(CQKBSDataAdminDeleteTest, DeleteTimberingRefusesAConstructionAtTheStartOfAList) {
  ExpectConstruction2InUseBy("2,5");
}

TEST_P(CQKBSDataAdminDeleteTest, DeleteTimberingRefusesAConstructionInsideAList) {
  ExpectConstruction2InUseBy("5,2,7");
}

TEST_P(CQKBSDataAdminDeleteTest, DeleteTimberingIsNotFooledByALongerIdEndingInTheSameDigit) {
  ExpectConstruction2FreeBeside("12");
}

TEST_P(CQKBSDataAdminDeleteTest, DeleteTimberingIsNotFooledByIdsThatBeginWithTheSameDigit) {
  ExpectConstruction2FreeBeside("21,22");
}

TEST_P(CQKBSDataAdminDeleteTest, DeleteTimberingIsNotFooledByAnIdHoldingTheDigitInside) {
  ExpectConstruction2FreeBeside("122");
}

TEST_P(CQKBSDataAdminDeleteTest, DeleteTimberingOfAnUnusedConstructionDeletesOnlyThatOne) {
  SeedConstructions();
  SeedStructure("12,5");
  CQKTimbering construction = ConstructionRef(22);
  CString message;
  EXPECT_EQ(admin.DeleteTimbering(construction, message), 0);
  EXPECT_EQ(Column("ID", "Timbering"), "2,5,12,21,122");
  EXPECT_EQ(Column("TIdS", "BoundingStructure"), "12,5");
}

TEST_P(CQKBSDataAdminDeleteTest, TheUsageTestReadsTheBoundingStructureTableByItsOwnName) {
  // The record's table name is not the one the usage test asks.
  SeedConstructions();
  SeedStructure("12,2");
  CQKBoundingStructure::S_Init(path, L"NoStructures");
  CQKTimbering construction = ConstructionRef(2);
  CString message;
  EXPECT_EQ(admin.DeleteTimbering(construction, message), 5);
  EXPECT_EQ(Column("ID", "Timbering"), "2,5,12,21,22,122");
}

TEST_P(CQKBSDataAdminDeleteTest, DeleteTimberingGivesTwoWhenTheUsageCannotBeAsked) {
  SeedConstructions();
  ASSERT_TRUE(db.Execute(L"DROP TABLE BoundingStructure"));
  CQKTimbering construction = ConstructionRef(2);
  CString message = L"untouched";
  EXPECT_EQ(admin.DeleteTimbering(construction, message), 2);
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].first, L"操作数据库时出错！");
  EXPECT_EQ(messages[0].second, kErrorIcon);
  EXPECT_EQ(message, L"untouched");
  EXPECT_EQ(Column("ID", "Timbering"), "2,5,12,21,22,122");
}

TEST_P(CQKBSDataAdminDeleteTest, DeleteTimberingGivesThreeWhenTheUsingCodeIsMissing) {
  SeedConstructions();
  Seed("INSERT INTO BoundingStructure (BSCId, TIdS) VALUES (99, '12,2');");
  CQKTimbering construction = ConstructionRef(2);
  CString message = L"untouched";
  EXPECT_EQ(admin.DeleteTimbering(construction, message), 3);
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].first, L"操作数据库时出错！");
  EXPECT_EQ(messages[0].second, kErrorIcon);
  EXPECT_EQ(message, L"untouched");
  EXPECT_EQ(Column("ID", "Timbering"), "2,5,12,21,22,122");
}

TEST_P(CQKBSDataAdminDeleteTest, DeleteTimberingGivesFourWithoutMessageWhenTheCodesTypeIsMissing) {
  SeedConstructions();
  Seed("UPDATE BSCode SET BSTId = 99 WHERE ID = 1;");
  SeedStructure("2");
  CQKTimbering construction = ConstructionRef(2);
  CString message = L"untouched";
  EXPECT_EQ(admin.DeleteTimbering(construction, message), 4);
  EXPECT_TRUE(messages.empty());
  EXPECT_EQ(message, L"untouched");
  EXPECT_EQ(Column("ID", "Timbering"), "2,5,12,21,22,122");
}

TEST_P(CQKBSDataAdminDeleteTest, DeleteTimberingOnAReadOnlyDatabaseGivesOneAndNamesTheTable) {
  QK_SQLITE_ONLY();
  const CString readOnly = CreateReadOnlyDatabase(
      dir, "readonly.db",
      "CREATE TABLE Timbering (ID INTEGER PRIMARY KEY AUTOINCREMENT, TTId INTEGER, Name TEXT);"
      "CREATE TABLE BoundingStructure (ID INTEGER PRIMARY KEY AUTOINCREMENT, BSCId INTEGER, TIdS TEXT);"
      "INSERT INTO Timbering (ID, TTId, Name) VALUES (2, 1, '粘土实心砖');"
      "INSERT INTO BoundingStructure (BSCId, TIdS) VALUES (1, '12');");
  const int result = RunUnprivileged([&] {
    ForgetClassTable<CQKTimbering>();
    CQKTimbering::S_Init(readOnly, L"Timbering");
    CQKTimbering construction = ConstructionRef(2);
    CString message;
    if (admin.DeleteTimbering(construction, message) != 1) return 10;
    if (message != L"删除表 \"Timbering\" 时出错！") return 11;
    if (messages.size() != 1u) return 12;
    if (messages[0].first != L"删除表 \"Timbering\" 时出错！") return 13;
    if (messages[0].second != kErrorIcon) return 14;
    return 0;
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(QueryOne(readOnly, "select count(*) from Timbering"), "1");
}

// ---- DeleteTimberingType ----

TEST_P(CQKBSDataAdminDeleteTest, DeleteTimberingTypeDeletesTheTypeAndLeavesItsConstructions) {
  SeedConstructions();
  CQKTimberingType type;
  type.SetID(1);
  EXPECT_EQ(admin.DeleteTimberingType(type), 1);
  EXPECT_EQ(Column("ID", "TimberingType"), "2");
  EXPECT_EQ(Column("ID", "Timbering"), "2,5,12,21,22,122");
  EXPECT_TRUE(messages.empty());
}

TEST_P(CQKBSDataAdminDeleteTest, DeleteTimberingTypeFailingShowsTheMessageAndGivesZero) {
  SeedConstructions();
  CQKTimberingType::S_Init(path, L"NoTimberingTypes");
  CQKTimberingType type;
  type.SetID(1);
  EXPECT_EQ(admin.DeleteTimberingType(type), 0);
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages[0].first, L"删除表 \"NoTimberingTypes\" 时出错！");
  EXPECT_EQ(messages[0].second, kErrorIcon);
  EXPECT_EQ(Column("ID", "TimberingType"), "1,2");
}

// ---- The trees ----

TEST_P(CQKBSDataAdminDeleteTest, DeletionsLeaveBothTreesAsTheyWere) {
  SeedCodes();
  Seed("INSERT INTO TimberingType (ID, Name) VALUES (1, '砌体'), (2, '保温材料');"
       "INSERT INTO Timbering (ID, TTId, Name) VALUES (2, 1, '粘土实心砖'), (5, 1, '灰砂砖');");
  BSNode* bsRoot = admin.GetBSNodes(1);
  TimbNode* timbRoot = admin.GetTimbNodes(1);
  CQKBSCode code = CodeRef(3);
  CQKBSType type = TypeRef(1);
  CQKTimbering construction = ConstructionRef(5);
  CQKTimberingType constructionType;
  constructionType.SetID(2);
  CString message;
  ASSERT_EQ(admin.DeleteBSCode(code, message), 0);
  ASSERT_EQ(admin.DeleteBSType(type), 1);
  ASSERT_EQ(admin.DeleteTimbering(construction, message), 0);
  ASSERT_EQ(admin.DeleteTimberingType(constructionType), 1);

  EXPECT_EQ(admin.GetBSNodes(0), bsRoot);
  EXPECT_EQ(admin.GetTimbNodes(0), timbRoot);
  ASSERT_EQ(bsRoot->arrChild.GetSize(), 2);
  ASSERT_EQ(bsRoot->arrChild[0]->arrChild.GetSize(), 2);  // 砖墙 and 空类型 of 外墙
  EXPECT_EQ(bsRoot->arrChild[0]->arrChild[0]->strName, L"砖墙");
  ASSERT_EQ(timbRoot->arrChild.GetSize(), 2);
  EXPECT_EQ(timbRoot->arrChild[1]->strName, L"保温材料");
  ASSERT_EQ(timbRoot->arrChild[0]->arrChild.GetSize(), 2);
  EXPECT_EQ(timbRoot->arrChild[0]->arrChild[1]->strName, L"灰砂砖");
}

QK_ON_BOTH_BACKENDS(CQKBSDataAdminDeleteTest);
