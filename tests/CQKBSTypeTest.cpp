// The envelope type: the middle level of the envelope catalogue, a name and the ID of its category
// (BSDLId, an int). Its stream and named items, and its verbs, which know a type by its name over the
// whole table, whatever its category: on real databases built from the schema.

#include <gtest/gtest.h>

#include <string>

#include "EnvelopeFixture.h"
#include "datakit/CADataExchange.h"
#include "datakit/CADataStream.h"
#include "datakit/CAMemoryDataProp.h"
#include "envelope/CQKBSType.h"
#include "tablekit/CADORecordset.h"

using namespace QKLoad;

namespace {

class CQKBSTypeTest : public EnvelopeFixture {
 protected:
  // Every row as ID:Name:BSDLId, in key order.
  std::string Rows() const {
    return Query("select group_concat(ID || ':' || Name || ':' || BSDLId) from (select * from BSType order by ID) r");
  }
};

CQKBSType Type(const wchar_t* name, int categoryId) {
  CQKBSType t;
  t.Name = name;
  t.BSDLId = categoryId;
  return t;
}

}  // namespace

// ---- the value ------------------------------------------------------------------------------------

TEST(CQKBSType, DefaultsAreKeyZeroAnEmptyNameAndNoCategory) {
  CQKBSType t;
  EXPECT_EQ(t.GetID(), 0);
  EXPECT_EQ(t.Name, L"");
  EXPECT_EQ(t.BSDLId, 0);
}

TEST(CQKBSType, InitResetsEveryField) {
  CQKBSType t = Type(L"砖墙", 3);
  t.SetID(6);
  t.Init();
  EXPECT_EQ(t.GetID(), 0);
  EXPECT_EQ(t.Name, L"");
  EXPECT_EQ(t.BSDLId, 0);
}

TEST(CQKBSType, CopyTakesEveryField) {
  CQKBSType t = Type(L"砖墙", 3);
  t.SetID(6);
  CQKBSType copy(t);
  EXPECT_EQ(copy.GetID(), 6);
  EXPECT_EQ(copy.Name, L"砖墙");
  EXPECT_EQ(copy.BSDLId, 3);
  CQKBSType assigned;
  assigned = t;
  EXPECT_EQ(assigned.GetID(), 6);
  EXPECT_EQ(assigned.Name, L"砖墙");
  EXPECT_EQ(assigned.BSDLId, 3);
}

TEST(CQKBSType, StreamHoldsTheNameThenTheCategoryAsAnInt) {
  CQKBSType t = Type(L"砖墙", 258);
  t.SetID(12);  // the key is the table's, not the stream's
  CADataStream stream;
  ASSERT_EQ(t.DataOutPut(stream), ADataDef::AD_OK);
  CString name;
  int category = 0;
  ASSERT_EQ(stream.ReadItem(&name), 0);
  ASSERT_EQ(stream.ReadItem(&category), 0);
  EXPECT_EQ(name, L"砖墙");
  EXPECT_EQ(category, 258);
  EXPECT_EQ(stream.GetRemaining(), 0u);
  // Name: 4-byte count and two units; the category: 4 bytes. No key anywhere.
  EXPECT_EQ(stream.GetSize(), 4u + 2u * 2u + 4u);
}

TEST(CQKBSType, StreamRoundTripKeepsANegativeCategoryAndLeavesTheKey) {
  CQKBSType out = Type(L"混凝土墙", -2);
  out.SetID(9);
  CADataStream stream;
  out.DataOutPut(stream);
  CQKBSType in;
  in.SetID(4);
  ASSERT_EQ(in.DataInPut(stream), ADataDef::AD_OK);
  EXPECT_EQ(in.Name, L"混凝土墙");
  EXPECT_EQ(in.BSDLId, -2);
  EXPECT_EQ(in.GetID(), 4);
}

TEST(CQKBSType, ExchangeCarriesTheNameThenTheCategory) {
  CQKBSType t = Type(L"砖墙", 3);
  t.SetID(12);
  CAMemoryDataProp items;
  ASSERT_EQ(t.DataOutPro(CADataExchange(items)), ADataDef::AD_OK);
  ASSERT_EQ(items.GetCount(), 2);
  EXPECT_EQ(items.GetName(0), L"Name");
  EXPECT_EQ(items.GetName(1), L"BSDLId");
  int category = 0;
  ASSERT_EQ(items.readInt(L"BSDLId", &category), 0);
  EXPECT_EQ(category, 3);
}

TEST(CQKBSType, ExchangeReadTakesTheNameAndTheCategory) {
  CAMemoryDataProp items;
  items.writeString(L"Name", L"轻质墙");
  items.writeInt(L"BSDLId", 5);
  CQKBSType t;
  ASSERT_EQ(t.DataInPro(CADataExchange(items)), ADataDef::AD_OK);
  EXPECT_EQ(t.Name, L"轻质墙");
  EXPECT_EQ(t.BSDLId, 5);
}

// ---- the row --------------------------------------------------------------------------------------

TEST_P(CQKBSTypeTest, RowReadTakesKeyNameAndCategory) {
  Seed("INSERT INTO BSType (Name, BSDLId) VALUES ('砖墙', 1), ('混凝土墙', 4);");
  CADORecordset rs(&db);
  ASSERT_TRUE(rs.Open(L"select * from BSType where ID=2"));
  CQKBSType t;
  EXPECT_EQ(t.MakeObjectFromRS(rs), 1);
  EXPECT_EQ(t.GetID(), 2);
  EXPECT_EQ(t.Name, L"混凝土墙");
  EXPECT_EQ(t.BSDLId, 4);
}

TEST_P(CQKBSTypeTest, RowWriteStoresNameAndCategory) {
  CQKBSType t = Type(L"砖墙", 7);
  ASSERT_TRUE(t.InsertData(&db));
  EXPECT_EQ(Rows(), "1:砖墙:7");
}

// ---- IsExist --------------------------------------------------------------------------------------

TEST_P(CQKBSTypeTest, IsExistLoadsTheStoredRowWithItsKey) {
  Seed("INSERT INTO BSType (Name, BSDLId) VALUES ('砖墙', 1), ('混凝土墙', 4);");
  CQKBSType t = Type(L"混凝土墙", 0);
  EXPECT_EQ(t.IsExist(&db), DBS_EXIST);
  EXPECT_EQ(t.GetID(), 2);
  EXPECT_EQ(t.BSDLId, 4);
}

TEST_P(CQKBSTypeTest, IsExistFindsTheNameUnderAnotherCategory) {
  // A type name is unique in the whole catalogue, not only within its category.
  Seed("INSERT INTO BSType (Name, BSDLId) VALUES ('砖墙', 1);");
  CQKBSType t = Type(L"砖墙", 2);
  EXPECT_EQ(t.IsExist(&db), DBS_EXIST);
  EXPECT_EQ(t.GetID(), 1);
  EXPECT_EQ(t.BSDLId, 1);
}

TEST_P(CQKBSTypeTest, IsExistOfAnUnstoredNameLeavesTheRecord) {
  Seed("INSERT INTO BSType (Name, BSDLId) VALUES ('砖墙', 1);");
  CQKBSType t = Type(L"幕墙", 3);
  EXPECT_EQ(t.IsExist(nullptr), DBS_NOTEXIST);
  EXPECT_EQ(t.GetID(), 0);
  EXPECT_EQ(t.BSDLId, 3);
}

TEST_P(CQKBSTypeTest, IsExistOnAMissingTableIsAnError) {
  CQKBSType::S_Init(path, L"NoSuchTable");
  CQKBSType t = Type(L"砖墙", 1);
  EXPECT_EQ(t.IsExist(nullptr), DBS_ERROR);
}

// ---- AddIfNotExist --------------------------------------------------------------------------------

TEST_P(CQKBSTypeTest, AddIfNotExistInsertsANewNameAndTakesTheNewKey) {
  Seed("INSERT INTO BSType (Name, BSDLId) VALUES ('砖墙', 1);");
  CQKBSType t = Type(L"幕墙", 3);
  EXPECT_EQ(t.AddIfNotExist(nullptr, 0), DBS_ADDED);
  EXPECT_EQ(t.GetID(), 2);
  EXPECT_EQ(Rows(), "1:砖墙:1,2:幕墙:3");
}

TEST_P(CQKBSTypeTest, AddIfNotExistOfAStoredNameWithoutTakingLeavesBoth) {
  Seed("INSERT INTO BSType (Name, BSDLId) VALUES ('砖墙', 1);");
  CQKBSType t = Type(L"砖墙", 5);
  EXPECT_EQ(t.AddIfNotExist(&db, 0), DBS_EXIST);
  EXPECT_EQ(t.GetID(), 0);
  EXPECT_EQ(t.BSDLId, 5);
  EXPECT_EQ(Rows(), "1:砖墙:1");
}

TEST_P(CQKBSTypeTest, AddIfNotExistOfAStoredNameWithTakingBecomesTheStoredRow) {
  Seed("INSERT INTO BSType (Name, BSDLId) VALUES ('混凝土墙', 2), ('砖墙', 1);");
  CQKBSType t = Type(L"砖墙", 5);
  EXPECT_EQ(t.AddIfNotExist(&db, 1), DBS_EXIST);
  EXPECT_EQ(t.GetID(), 2);
  EXPECT_EQ(t.BSDLId, 1);
  EXPECT_EQ(Query("select count(*) from BSType"), "2");
}

TEST_P(CQKBSTypeTest, AddIfNotExistOnAMissingTableIsAnError) {
  CQKBSType::S_Init(path, L"NoSuchTable");
  CQKBSType t = Type(L"砖墙", 1);
  EXPECT_EQ(t.AddIfNotExist(nullptr, 0), DBS_ERROR);
}

// ---- UpdateIfNoOther ------------------------------------------------------------------------------

TEST_P(CQKBSTypeTest, UpdateIfNoOtherWithAFreeNameRenamesTheRowInPlace) {
  Seed("INSERT INTO BSType (Name, BSDLId) VALUES ('砖墙', 1), ('幕墙', 2);");
  CQKBSType t = Type(L"实心砖墙", 4);
  t.SetID(1);
  EXPECT_EQ(t.UpdateIfNoOther(nullptr, 0), DBS_UPDATED);
  EXPECT_EQ(Rows(), "1:实心砖墙:4,2:幕墙:2");
}

TEST_P(CQKBSTypeTest, UpdateIfNoOtherOfItsOwnNameWritesTheOtherFields) {
  Seed("INSERT INTO BSType (Name, BSDLId) VALUES ('砖墙', 1);");
  CQKBSType t = Type(L"砖墙", 6);
  t.SetID(1);
  EXPECT_EQ(t.UpdateIfNoOther(&db, 0), DBS_UPDATED);
  EXPECT_EQ(Rows(), "1:砖墙:6");
}

TEST_P(CQKBSTypeTest, UpdateIfNoOtherOnANameHeldByAnotherRowWritesNothing) {
  Seed("INSERT INTO BSType (Name, BSDLId) VALUES ('砖墙', 1), ('幕墙', 2);");
  CQKBSType t = Type(L"幕墙", 9);
  t.SetID(1);
  EXPECT_EQ(t.UpdateIfNoOther(nullptr, 0), DBS_EXIST);
  EXPECT_EQ(t.GetID(), 1);
  EXPECT_EQ(t.BSDLId, 9);
  EXPECT_EQ(Rows(), "1:砖墙:1,2:幕墙:2");
}

TEST_P(CQKBSTypeTest, UpdateIfNoOtherWithTakingBecomesTheOtherRowAndWritesNothing) {
  Seed("INSERT INTO BSType (Name, BSDLId) VALUES ('砖墙', 1), ('幕墙', 2);");
  CQKBSType t = Type(L"幕墙", 9);
  t.SetID(1);
  EXPECT_EQ(t.UpdateIfNoOther(nullptr, 1), DBS_EXIST);
  EXPECT_EQ(t.GetID(), 2);
  EXPECT_EQ(t.BSDLId, 2);
  EXPECT_EQ(Rows(), "1:砖墙:1,2:幕墙:2");
}

TEST_P(CQKBSTypeTest, UpdateIfNoOtherOfAMissingRowFails) {
  CQKBSType t = Type(L"砖墙", 1);
  t.SetID(3);
  EXPECT_EQ(t.UpdateIfNoOther(nullptr, 0), DBS_ERROR);
  EXPECT_EQ(Query("select count(*) from BSType"), "0");
}

// ---- names that cannot go into the query ----------------------------------------------------------

TEST_P(CQKBSTypeTest, ANameWithADoubleQuoteFailsWithoutHarm) {
  Seed("INSERT INTO BSType (Name, BSDLId) VALUES ('砖墙', 1);");
  CQKBSType t = Type(L"x\"; drop table BSType; --", 2);
  EXPECT_EQ(t.IsExist(nullptr), DBS_ERROR);
  EXPECT_EQ(t.AddIfNotExist(nullptr, 0), DBS_ERROR);
  t.SetID(1);
  EXPECT_EQ(t.UpdateIfNoOther(nullptr, 0), DBS_ERROR);
  EXPECT_EQ(Rows(), "1:砖墙:1");
  EXPECT_TRUE(messages.empty());
}

QK_ON_BOTH_BACKENDS(CQKBSTypeTest);
