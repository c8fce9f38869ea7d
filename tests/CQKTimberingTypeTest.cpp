// The construction type (walls, roofs, glazing...): a name and its row key. Its value part, the named
// value shared by the small records (stream: Name; item: "Name"), Init, and the database verbs with
// the name as natural key.

#include <gtest/gtest.h>

#include <string>

#include "EnvelopeFixture.h"
#include "construction/CQKTimberingType.h"
#include "datakit/ADataDef.h"
#include "datakit/CADataExchange.h"
#include "datakit/CADataStream.h"
#include "datakit/CAMemoryDataProp.h"
#include "foundation/CQKNamedData.h"
#include "foundation/QKLoad.h"

using namespace QKLoad;

namespace {

class CQKTimberingTypeTest : public EnvelopeFixture {
 protected:
  std::string NameOf(int id) const { return Query("select Name from TimberingType where ID=" + std::to_string(id)); }
};

CQKTimberingType Type(const wchar_t* name) {
  CQKTimberingType t;
  t.Name = name;
  return t;
}

// A host's subclass that points the row operations at a table of its own.
struct RedirectedTimberingType : CQKTimberingType {
  CString GetTableName() override { return L"OtherTimberingType"; }
};

}  // namespace

// ---- the named value ---------------------------------------------------------------------------------

TEST(CQKNamedData, DefaultNameIsEmpty) {
  CQKNamedData n;
  EXPECT_EQ(n.Name, L"");
}

TEST(CQKNamedData, InitEmptiesTheName) {
  CQKNamedData n;
  n.Name = L"外墙";

  n.Init();

  EXPECT_EQ(n.Name, L"");
}

TEST(CQKNamedData, StreamHoldsOnlyTheName) {
  CQKNamedData out;
  out.Name = L"外墙";
  CADataStream stream;

  EXPECT_EQ(out.DataOutPut(stream), ADataDef::AD_OK);

  CString name;
  ASSERT_EQ(stream.ReadItem(&name), 0);
  EXPECT_EQ(name, L"外墙");
  EXPECT_EQ(stream.GetRemaining(), 0u);
}

TEST(CQKNamedData, StreamRoundTripCarriesTheName) {
  CQKNamedData out;
  out.Name = L"屋面";
  CADataStream stream;
  out.DataOutPut(stream);
  CQKNamedData in;

  EXPECT_EQ(in.DataInPut(stream), ADataDef::AD_OK);

  EXPECT_EQ(in.Name, L"屋面");
}

TEST(CQKNamedData, EmptyStreamLeavesTheNameAndReturnsZero) {
  CADataStream stream;
  CQKNamedData in;
  in.Name = L"屋面";

  EXPECT_EQ(in.DataInPut(stream), ADataDef::AD_OK);

  EXPECT_EQ(in.Name, L"屋面");
}

TEST(CQKNamedData, ExchangeWritesOnlyName) {
  CQKNamedData out;
  out.Name = L"外窗";
  CAMemoryDataProp store;

  EXPECT_EQ(out.DataOutPro(CADataExchange(store)), ADataDef::AD_OK);

  ASSERT_EQ(store.GetCount(), 1);
  EXPECT_EQ(store.GetName(0), L"Name");
  CString name;
  ASSERT_EQ(CADataExchange(store).ReadItem(L"Name", &name), 0);
  EXPECT_EQ(name, L"外窗");
}

TEST(CQKNamedData, ExchangeReadsTheName) {
  CAMemoryDataProp store;
  CADataExchange(store).WriteItem(L"Name", CString(L"地面"));
  CQKNamedData in;

  EXPECT_EQ(in.DataInPro(CADataExchange(store)), ADataDef::AD_OK);

  EXPECT_EQ(in.Name, L"地面");
}

TEST(CQKNamedData, ExchangeWithoutNameLeavesIt) {
  CAMemoryDataProp store;
  CQKNamedData in;
  in.Name = L"地面";

  EXPECT_EQ(in.DataInPro(CADataExchange(store)), ADataDef::AD_OK);

  EXPECT_EQ(in.Name, L"地面");
}

// ---- the record's value side -------------------------------------------------------------------------

TEST(CQKTimberingType, NewTypeHasNoKeyAndAnEmptyName) {
  CQKTimberingType t;
  EXPECT_EQ(t.GetID(), 0);
  EXPECT_EQ(t.Name, L"");
}

TEST(CQKTimberingType, InitClearsKeyAndName) {
  CQKTimberingType t = Type(L"外墙");
  t.SetID(6);

  t.Init();

  EXPECT_EQ(t.GetID(), 0);
  EXPECT_EQ(t.Name, L"");
}

TEST(CQKTimberingType, CopiesTakeKeyAndName) {
  CQKTimberingType source = Type(L"外墙");
  source.SetID(6);

  CQKTimberingType copy(source);
  CQKTimberingType assigned;
  assigned = source;

  EXPECT_EQ(copy.GetID(), 6);
  EXPECT_EQ(copy.Name, L"外墙");
  EXPECT_EQ(assigned.GetID(), 6);
  EXPECT_EQ(assigned.Name, L"外墙");
}

TEST(CQKTimberingType, StreamHoldsOnlyTheNameNotTheKey) {
  CQKTimberingType out = Type(L"屋面");
  out.SetID(6);
  CADataStream stream;

  out.DataOutPut(stream);

  CString name;
  ASSERT_EQ(stream.ReadItem(&name), 0);
  EXPECT_EQ(name, L"屋面");
  EXPECT_EQ(stream.GetRemaining(), 0u);
}

TEST(CQKTimberingType, ExchangeHoldsOnlyName) {
  CQKTimberingType out = Type(L"屋面");
  out.SetID(6);
  CAMemoryDataProp store;

  out.DataOutPro(CADataExchange(store));

  ASSERT_EQ(store.GetCount(), 1);
  EXPECT_EQ(store.GetName(0), L"Name");
}

// ---- rows ------------------------------------------------------------------------------------------

TEST_P(CQKTimberingTypeTest, IsExistLoadsTheStoredRowWithItsKey) {
  Seed("INSERT INTO TimberingType (Name) VALUES ('外墙'), ('屋面');");
  CQKTimberingType t = Type(L"屋面");

  EXPECT_EQ(t.IsExist(&db), DBS_EXIST);

  EXPECT_EQ(t.GetID(), 2);
  EXPECT_EQ(t.Name, L"屋面");
}

TEST_P(CQKTimberingTypeTest, IsExistOfAnUnstoredNameIsNotExistAndKeepsTheKey) {
  Seed("INSERT INTO TimberingType (Name) VALUES ('外墙');");
  CQKTimberingType t = Type(L"外窗");
  t.SetID(9);

  EXPECT_EQ(t.IsExist(&db), DBS_NOTEXIST);

  EXPECT_EQ(t.GetID(), 9);
}

TEST_P(CQKTimberingTypeTest, IsExistOfANameStoredTwiceTakesTheFirstRow) {
  Seed("INSERT INTO TimberingType (Name) VALUES ('外墙'), ('屋面'), ('屋面');");
  CQKTimberingType t = Type(L"屋面");

  EXPECT_EQ(t.IsExist(&db), DBS_EXIST);

  EXPECT_EQ(t.GetID(), 2);
}

TEST_P(CQKTimberingTypeTest, IsExistWithoutAConnectionUsesTheClassConnection) {
  Seed("INSERT INTO TimberingType (Name) VALUES ('外墙');");
  CQKTimberingType t = Type(L"外墙");

  EXPECT_EQ(t.IsExist(nullptr), DBS_EXIST);

  EXPECT_EQ(t.GetID(), 1);
}

TEST_P(CQKTimberingTypeTest, IsExistLooksInTheClassTableNotTheVirtualOne) {
  Seed("CREATE TABLE OtherTimberingType (ID INTEGER PRIMARY KEY, Name TEXT);"
       "INSERT INTO OtherTimberingType (ID, Name) VALUES (40, '屋面');"
       "INSERT INTO TimberingType (Name) VALUES ('外墙'), ('屋面');");
  RedirectedTimberingType t;
  t.Name = L"屋面";

  EXPECT_EQ(t.IsExist(&db), DBS_EXIST);

  EXPECT_EQ(t.GetID(), 2);
}

TEST_P(CQKTimberingTypeTest, IsExistOfAMissingTableIsAnError) {
  CQKTimberingType::S_Init(path, L"NoSuchTable");
  CQKTimberingType t = Type(L"外墙");

  EXPECT_EQ(t.IsExist(&db), DBS_ERROR);
}

TEST_P(CQKTimberingTypeTest, AddIfNotExistInsertsAndTakesTheNewKey) {
  Seed("INSERT INTO TimberingType (Name) VALUES ('外墙');");
  CQKTimberingType t = Type(L"外窗");

  EXPECT_EQ(t.AddIfNotExist(nullptr, 0), DBS_ADDED);

  EXPECT_EQ(t.GetID(), 2);
  EXPECT_EQ(Query("select Name from TimberingType where ID=2"), "外窗");
}

TEST_P(CQKTimberingTypeTest, AddIfNotExistOfAStoredNameLeavesTheObject) {
  Seed("INSERT INTO TimberingType (Name) VALUES ('外墙'), ('屋面');");
  CQKTimberingType t = Type(L"屋面");
  t.SetID(9);

  EXPECT_EQ(t.AddIfNotExist(&db, 0), DBS_EXIST);

  EXPECT_EQ(t.GetID(), 9);
  EXPECT_EQ(Query("select count(*) from TimberingType"), "2");
}

TEST_P(CQKTimberingTypeTest, AddIfNotExistOfAStoredNameCanTakeTheStoredRecord) {
  Seed("INSERT INTO TimberingType (Name) VALUES ('外墙'), ('屋面');");
  CQKTimberingType t = Type(L"屋面");
  t.SetID(9);

  EXPECT_EQ(t.AddIfNotExist(&db, 1), DBS_EXIST);

  EXPECT_EQ(t.GetID(), 2);
  EXPECT_EQ(Query("select count(*) from TimberingType"), "2");
}

TEST_P(CQKTimberingTypeTest, AddIfNotExistOnAMissingTableIsAnError) {
  CQKTimberingType::S_Init(path, L"NoSuchTable");
  CQKTimberingType t = Type(L"外墙");

  EXPECT_EQ(t.AddIfNotExist(&db, 0), DBS_ERROR);
}

TEST_P(CQKTimberingTypeTest, UpdateIfNoOtherWithAFreeNameRenamesTheRowInPlace) {
  Seed("INSERT INTO TimberingType (Name) VALUES ('外墙'), ('屋面');");
  CQKTimberingType t = Type(L"外墙体");
  t.SetID(1);

  EXPECT_EQ(t.UpdateIfNoOther(nullptr, 0), DBS_UPDATED);

  EXPECT_EQ(NameOf(1), "外墙体");
  EXPECT_EQ(NameOf(2), "屋面");
}

TEST_P(CQKTimberingTypeTest, UpdateIfNoOtherOnItsOwnRowIsUpdated) {
  Seed("INSERT INTO TimberingType (Name) VALUES ('外墙'), ('屋面');");
  CQKTimberingType t = Type(L"屋面");
  t.SetID(2);

  EXPECT_EQ(t.UpdateIfNoOther(&db, 0), DBS_UPDATED);

  EXPECT_EQ(NameOf(1), "外墙");
  EXPECT_EQ(NameOf(2), "屋面");
}

TEST_P(CQKTimberingTypeTest, UpdateIfNoOtherOnANameHeldByAnotherRowIsRefused) {
  Seed("INSERT INTO TimberingType (Name) VALUES ('外墙'), ('屋面');");
  CQKTimberingType t = Type(L"屋面");
  t.SetID(1);

  EXPECT_EQ(t.UpdateIfNoOther(&db, 0), DBS_EXIST);

  EXPECT_EQ(t.GetID(), 1);
  EXPECT_EQ(NameOf(1), "外墙");
  EXPECT_EQ(NameOf(2), "屋面");
}

TEST_P(CQKTimberingTypeTest, UpdateIfNoOtherOnANameHeldByAnotherRowCanTakeThatRow) {
  Seed("INSERT INTO TimberingType (Name) VALUES ('外墙'), ('屋面');");
  CQKTimberingType t = Type(L"屋面");
  t.SetID(1);

  EXPECT_EQ(t.UpdateIfNoOther(&db, 1), DBS_EXIST);

  EXPECT_EQ(t.GetID(), 2);
  EXPECT_EQ(NameOf(1), "外墙");
  EXPECT_EQ(NameOf(2), "屋面");
}

TEST_P(CQKTimberingTypeTest, UpdateIfNoOtherOfAKeyNoRowHasIsAnError) {
  CQKTimberingType t = Type(L"外墙");
  t.SetID(3);

  EXPECT_EQ(t.UpdateIfNoOther(&db, 0), DBS_ERROR);

  EXPECT_EQ(Query("select count(*) from TimberingType"), "0");
}

// ---- HasTimberingType --------------------------------------------------------------------------------

TEST_P(CQKTimberingTypeTest, HasTimberingTypeGivesTheFirstKeyOfTheName) {
  Seed("INSERT INTO TimberingType (Name) VALUES ('外墙'), ('屋面'), ('屋面');");

  EXPECT_EQ(CQKTimberingType::HasTimberingType(L"屋面", &db), 2);
}

TEST_P(CQKTimberingTypeTest, HasTimberingTypeOfAnUnknownNameIsZero) {
  Seed("INSERT INTO TimberingType (Name) VALUES ('外墙');");

  EXPECT_EQ(CQKTimberingType::HasTimberingType(L"屋面", &db), 0);
}

TEST_P(CQKTimberingTypeTest, HasTimberingTypeOnAMissingTableIsMinusOne) {
  CQKTimberingType::S_Init(path, L"NoSuchTable");

  EXPECT_EQ(CQKTimberingType::HasTimberingType(L"外墙", &db), -1);
}

TEST_P(CQKTimberingTypeTest, HasTimberingTypeWithoutATableNameIsMinusOne) {
  CQKTimberingType::S_Init(path, L"");

  EXPECT_EQ(CQKTimberingType::HasTimberingType(L"外墙", &db), -1);
}

TEST_P(CQKTimberingTypeTest, HasTimberingTypeWithoutAConnectionUsesTheClassOneAsItStands) {
  Seed("INSERT INTO TimberingType (Name) VALUES ('外墙');");
  ForgetClassTable<CQKTimberingType>();  // closed: the lookup does not open it
  CQKTimberingType::S_Init(path, L"TimberingType");
  EXPECT_EQ(CQKTimberingType::HasTimberingType(L"外墙", nullptr), -1);

  CQKTimberingType().GetUserDatabase();  // any use of the class opens it

  EXPECT_EQ(CQKTimberingType::HasTimberingType(L"外墙", nullptr), 1);
}

TEST_P(CQKTimberingTypeTest, HasTimberingTypeWithoutAnyClassConnectionIsMinusOne) {
  Seed("INSERT INTO TimberingType (Name) VALUES ('外墙');");
  CADODatabase* const kept = CQKTimberingType::m_pADODatabase;
  CQKTimberingType::m_pADODatabase = nullptr;  // as before the first use of the class

  const int found = CQKTimberingType::HasTimberingType(L"外墙", nullptr);

  EXPECT_EQ(CQKTimberingType::m_pADODatabase, nullptr);  // not created here either
  CQKTimberingType::m_pADODatabase = kept;
  EXPECT_EQ(found, -1);
}

TEST_P(CQKTimberingTypeTest, ANameWithADoubleQuoteFailsWithoutHarm) {
  Seed("INSERT INTO TimberingType (Name) VALUES ('外墙');");
  CQKTimberingType t = Type(L"x\"; drop table TimberingType; --");
  t.SetID(1);

  EXPECT_EQ(t.IsExist(&db), DBS_ERROR);
  EXPECT_EQ(t.AddIfNotExist(&db, 0), DBS_ERROR);
  EXPECT_EQ(t.UpdateIfNoOther(&db, 0), DBS_ERROR);
  EXPECT_EQ(CQKTimberingType::HasTimberingType(t.Name, &db), -1);

  EXPECT_EQ(Query("select group_concat(Name) from TimberingType"), "外墙");
  EXPECT_TRUE(messages.empty());
}

TEST_P(CQKTimberingTypeTest, UpdateTimberingTypeTableDataLeavesBothDatabases) {
  Seed("INSERT INTO TimberingType (Name) VALUES ('外墙');");

  CQKTimberingType::UpdateTimberingTypeTableData(&db, &db);

  EXPECT_EQ(Query("select group_concat(Name) from TimberingType"), "外墙");
}

QK_ON_BOTH_BACKENDS(CQKTimberingTypeTest);
