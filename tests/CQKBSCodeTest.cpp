// The envelope code: the lowest level of the envelope catalogue, a name and the ID of its type (BSTId,
// a long). Its stream and named items, its verbs, which know a code by its name over the whole table
// whatever its type, and the name lookup HasBSCode: on real databases built from the schema.

#include <gtest/gtest.h>

#include <string>

#include "EnvelopeFixture.h"
#include "datakit/CADataExchange.h"
#include "datakit/CADataStream.h"
#include "datakit/CAMemoryDataProp.h"
#include "envelope/CQKBSCode.h"
#include "tablekit/CADORecordset.h"

using namespace QKLoad;

namespace {

class CQKBSCodeTest : public EnvelopeFixture {
 protected:
  // Every row as ID:Name:BSTId, in key order.
  std::string Rows() const {
    return Query("select group_concat(ID || ':' || Name || ':' || BSTId) from (select * from BSCode order by ID) r");
  }
};

CQKBSCode Code(const wchar_t* name, long typeId) {
  CQKBSCode c;
  c.Name = name;
  c.BSTId = typeId;
  return c;
}

}  // namespace

// ---- the value ------------------------------------------------------------------------------------

TEST(CQKBSCode, DefaultsAreKeyZeroAnEmptyNameAndNoType) {
  CQKBSCode c;
  EXPECT_EQ(c.GetID(), 0);
  EXPECT_EQ(c.Name, L"");
  EXPECT_EQ(c.BSTId, 0);
}

TEST(CQKBSCode, InitResetsEveryField) {
  CQKBSCode c = Code(L"WQ-240", 3);
  c.SetID(6);
  c.Init();
  EXPECT_EQ(c.GetID(), 0);
  EXPECT_EQ(c.Name, L"");
  EXPECT_EQ(c.BSTId, 0);
}

TEST(CQKBSCode, CopyTakesEveryField) {
  CQKBSCode c = Code(L"WQ-240", 3);
  c.SetID(6);
  CQKBSCode copy(c);
  EXPECT_EQ(copy.GetID(), 6);
  EXPECT_EQ(copy.Name, L"WQ-240");
  EXPECT_EQ(copy.BSTId, 3);
  CQKBSCode assigned;
  assigned = c;
  EXPECT_EQ(assigned.GetID(), 6);
  EXPECT_EQ(assigned.Name, L"WQ-240");
  EXPECT_EQ(assigned.BSTId, 3);
}

TEST(CQKBSCode, StreamHoldsTheNameThenTheTypeAsALong) {
  CQKBSCode c = Code(L"WQ1", 70000);
  c.SetID(12);  // the key is the table's, not the stream's
  CADataStream stream;
  ASSERT_EQ(c.DataOutPut(stream), ADataDef::AD_OK);
  CString name;
  long type = 0;
  ASSERT_EQ(stream.ReadItem(&name), 0);
  ASSERT_EQ(stream.ReadItem(&type), 0);
  EXPECT_EQ(name, L"WQ1");
  EXPECT_EQ(type, 70000);
  EXPECT_EQ(stream.GetRemaining(), 0u);
  // Name: 4-byte count and three units; the type: a 32-bit long. No key anywhere.
  EXPECT_EQ(stream.GetSize(), 4u + 3u * 2u + 4u);
}

TEST(CQKBSCode, StreamRoundTripKeepsANegativeTypeAndLeavesTheKey) {
  CQKBSCode out = Code(L"WQ-370", -5);
  out.SetID(9);
  CADataStream stream;
  out.DataOutPut(stream);
  CQKBSCode in;
  in.SetID(4);
  ASSERT_EQ(in.DataInPut(stream), ADataDef::AD_OK);
  EXPECT_EQ(in.Name, L"WQ-370");
  EXPECT_EQ(in.BSTId, -5);
  EXPECT_EQ(in.GetID(), 4);
}

TEST(CQKBSCode, ExchangeCarriesTheNameThenTheType) {
  CQKBSCode c = Code(L"WQ1", 3);
  c.SetID(12);
  CAMemoryDataProp items;
  ASSERT_EQ(c.DataOutPro(CADataExchange(items)), ADataDef::AD_OK);
  ASSERT_EQ(items.GetCount(), 2);
  EXPECT_EQ(items.GetName(0), L"Name");
  EXPECT_EQ(items.GetName(1), L"BSTId");
  long type = 0;
  ASSERT_EQ(items.readInt32(L"BSTId", &type), 0);
  EXPECT_EQ(type, 3);
}

TEST(CQKBSCode, ExchangeReadTakesTheNameAndTheType) {
  CAMemoryDataProp items;
  items.writeString(L"Name", L"WQ2");
  items.writeInt32(L"BSTId", 8);
  CQKBSCode c;
  ASSERT_EQ(c.DataInPro(CADataExchange(items)), ADataDef::AD_OK);
  EXPECT_EQ(c.Name, L"WQ2");
  EXPECT_EQ(c.BSTId, 8);
}

// ---- the row --------------------------------------------------------------------------------------

TEST_P(CQKBSCodeTest, RowReadTakesKeyNameAndType) {
  Seed("INSERT INTO BSCode (BSTId, Name) VALUES (1, 'WQ1'), (4, 'WQ2');");
  CQKBSCode c;
  ASSERT_TRUE(c.ReadData(2, &db));
  EXPECT_EQ(c.GetID(), 2);
  EXPECT_EQ(c.Name, L"WQ2");
  EXPECT_EQ(c.BSTId, 4);
}

TEST_P(CQKBSCodeTest, RowWriteStoresNameAndType) {
  CQKBSCode c = Code(L"WQ1", 7);
  ASSERT_TRUE(c.InsertData(&db));
  EXPECT_EQ(c.GetID(), 1);
  EXPECT_EQ(Rows(), "1:WQ1:7");
}

// ---- IsExist and AddIfNotExist --------------------------------------------------------------------

TEST_P(CQKBSCodeTest, IsExistLoadsTheStoredRowWithItsKey) {
  Seed("INSERT INTO BSCode (BSTId, Name) VALUES (1, 'WQ1'), (4, 'WQ2');");
  CQKBSCode c = Code(L"WQ2", 0);
  EXPECT_EQ(c.IsExist(&db), DBS_EXIST);
  EXPECT_EQ(c.GetID(), 2);
  EXPECT_EQ(c.BSTId, 4);
}

TEST_P(CQKBSCodeTest, IsExistOfTheSameNameUnderAnotherTypeFindsTheFirstCode) {
  // A code name is unique in the whole catalogue: the second code is the first one to the lookup.
  Seed("INSERT INTO BSCode (BSTId, Name) VALUES (1, 'WQ1');");
  CQKBSCode second = Code(L"WQ1", 2);
  EXPECT_EQ(second.IsExist(&db), DBS_EXIST);
  EXPECT_EQ(second.GetID(), 1);
  EXPECT_EQ(second.BSTId, 1);
}

TEST_P(CQKBSCodeTest, AddIfNotExistOfTheSameNameUnderAnotherTypeInsertsNothing) {
  Seed("INSERT INTO BSCode (BSTId, Name) VALUES (1, 'WQ1');");
  CQKBSCode second = Code(L"WQ1", 2);
  EXPECT_EQ(second.AddIfNotExist(nullptr, 0), DBS_EXIST);
  EXPECT_EQ(second.GetID(), 0);
  EXPECT_EQ(second.BSTId, 2);
  EXPECT_EQ(Rows(), "1:WQ1:1");
}

TEST_P(CQKBSCodeTest, IsExistOfAnUnstoredNameLeavesTheRecord) {
  Seed("INSERT INTO BSCode (BSTId, Name) VALUES (1, 'WQ1');");
  CQKBSCode c = Code(L"WQ9", 3);
  EXPECT_EQ(c.IsExist(nullptr), DBS_NOTEXIST);
  EXPECT_EQ(c.GetID(), 0);
  EXPECT_EQ(c.BSTId, 3);
}

TEST_P(CQKBSCodeTest, IsExistOnAMissingTableIsAnError) {
  CQKBSCode::S_Init(path, L"NoSuchTable");
  CQKBSCode c = Code(L"WQ1", 1);
  EXPECT_EQ(c.IsExist(nullptr), DBS_ERROR);
}

TEST_P(CQKBSCodeTest, AddIfNotExistInsertsANewNameAndTakesTheNewKey) {
  Seed("INSERT INTO BSCode (BSTId, Name) VALUES (1, 'WQ1');");
  CQKBSCode c = Code(L"WQ2", 3);
  EXPECT_EQ(c.AddIfNotExist(nullptr, 0), DBS_ADDED);
  EXPECT_EQ(c.GetID(), 2);
  EXPECT_EQ(Rows(), "1:WQ1:1,2:WQ2:3");
}

TEST_P(CQKBSCodeTest, AddIfNotExistOfAStoredNameWithTakingBecomesTheStoredRow) {
  Seed("INSERT INTO BSCode (BSTId, Name) VALUES (2, 'WQ2'), (1, 'WQ1');");
  CQKBSCode c = Code(L"WQ1", 5);
  EXPECT_EQ(c.AddIfNotExist(&db, 1), DBS_EXIST);
  EXPECT_EQ(c.GetID(), 2);
  EXPECT_EQ(c.BSTId, 1);
  EXPECT_EQ(Query("select count(*) from BSCode"), "2");
}

TEST_P(CQKBSCodeTest, AddIfNotExistOnAMissingTableIsAnError) {
  CQKBSCode::S_Init(path, L"NoSuchTable");
  CQKBSCode c = Code(L"WQ1", 1);
  EXPECT_EQ(c.AddIfNotExist(nullptr, 0), DBS_ERROR);
}

// ---- UpdateIfNoOther ------------------------------------------------------------------------------

TEST_P(CQKBSCodeTest, UpdateIfNoOtherWithAFreeNameRenamesTheRowInPlace) {
  Seed("INSERT INTO BSCode (BSTId, Name) VALUES (1, 'WQ1'), (1, 'WQ2');");
  CQKBSCode c = Code(L"WQ1-改", 4);
  c.SetID(1);
  EXPECT_EQ(c.UpdateIfNoOther(nullptr, 0), DBS_UPDATED);
  EXPECT_EQ(Rows(), "1:WQ1-改:4,2:WQ2:1");
}

TEST_P(CQKBSCodeTest, UpdateIfNoOtherOfItsOwnNameMovesItToAnotherType) {
  Seed("INSERT INTO BSCode (BSTId, Name) VALUES (1, 'WQ1');");
  CQKBSCode c = Code(L"WQ1", 6);
  c.SetID(1);
  EXPECT_EQ(c.UpdateIfNoOther(&db, 0), DBS_UPDATED);
  EXPECT_EQ(Rows(), "1:WQ1:6");
}

TEST_P(CQKBSCodeTest, UpdateIfNoOtherOnANameHeldByAnotherRowWritesNothing) {
  Seed("INSERT INTO BSCode (BSTId, Name) VALUES (1, 'WQ1'), (2, 'WQ2');");
  CQKBSCode c = Code(L"WQ2", 9);
  c.SetID(1);
  EXPECT_EQ(c.UpdateIfNoOther(nullptr, 0), DBS_EXIST);
  EXPECT_EQ(c.GetID(), 1);
  EXPECT_EQ(c.BSTId, 9);
  EXPECT_EQ(Rows(), "1:WQ1:1,2:WQ2:2");
}

TEST_P(CQKBSCodeTest, UpdateIfNoOtherWithTakingBecomesTheOtherRowAndWritesNothing) {
  Seed("INSERT INTO BSCode (BSTId, Name) VALUES (1, 'WQ1'), (2, 'WQ2');");
  CQKBSCode c = Code(L"WQ2", 9);
  c.SetID(1);
  EXPECT_EQ(c.UpdateIfNoOther(nullptr, 1), DBS_EXIST);
  EXPECT_EQ(c.GetID(), 2);
  EXPECT_EQ(c.BSTId, 2);
  EXPECT_EQ(Rows(), "1:WQ1:1,2:WQ2:2");
}

TEST_P(CQKBSCodeTest, UpdateIfNoOtherOnAMissingTableIsAnError) {
  CQKBSCode::S_Init(path, L"NoSuchTable");
  CQKBSCode c = Code(L"WQ1", 1);
  c.SetID(1);
  EXPECT_EQ(c.UpdateIfNoOther(nullptr, 0), DBS_ERROR);
}

// ---- HasBSCode ------------------------------------------------------------------------------------

TEST_P(CQKBSCodeTest, HasBSCodeOfAStoredNameIsItsKey) {
  Seed("INSERT INTO BSCode (BSTId, Name) VALUES (1, 'WQ1'), (1, 'WQ2');");
  EXPECT_EQ(CQKBSCode::HasBSCode(L"WQ2", &db), 2);
}

TEST_P(CQKBSCodeTest, HasBSCodeOfANameStoredTwiceIsTheFirstKey) {
  Seed("INSERT INTO BSCode (BSTId, Name) VALUES (1, 'WQ0'), (1, 'WQ1'), (2, 'WQ1');");
  EXPECT_EQ(CQKBSCode::HasBSCode(L"WQ1", &db), 2);
}

TEST_P(CQKBSCodeTest, HasBSCodeOfAnUnknownNameIsZero) {
  Seed("INSERT INTO BSCode (BSTId, Name) VALUES (1, 'WQ1');");
  EXPECT_EQ(CQKBSCode::HasBSCode(L"WQ9", &db), 0);
}

TEST_P(CQKBSCodeTest, HasBSCodeOnAMissingTableIsMinusOne) {
  CQKBSCode::S_Init(path, L"NoSuchTable");
  EXPECT_EQ(CQKBSCode::HasBSCode(L"WQ1", &db), -1);
}

TEST_P(CQKBSCodeTest, HasBSCodeWithoutAConnectionUsesTheClassOneAsItStands) {
  Seed("INSERT INTO BSCode (BSTId, Name) VALUES (1, 'WQ1');");
  ForgetClassTable<CQKBSCode>();  // closed: the lookup does not open it
  CQKBSCode::S_Init(path, L"BSCode");
  EXPECT_EQ(CQKBSCode::HasBSCode(L"WQ1", nullptr), -1);
  CQKBSCode().GetUserDatabase();  // any use of the class opens it
  EXPECT_EQ(CQKBSCode::HasBSCode(L"WQ1", nullptr), 1);
}

// ---- names that cannot go into the query ----------------------------------------------------------

TEST_P(CQKBSCodeTest, ANameWithADoubleQuoteFailsWithoutHarm) {
  Seed("INSERT INTO BSCode (BSTId, Name) VALUES (1, 'WQ1');");
  CQKBSCode c = Code(L"x\"; drop table BSCode; --", 2);
  EXPECT_EQ(c.IsExist(nullptr), DBS_ERROR);
  EXPECT_EQ(c.AddIfNotExist(nullptr, 0), DBS_ERROR);
  c.SetID(1);
  EXPECT_EQ(c.UpdateIfNoOther(nullptr, 0), DBS_ERROR);
  EXPECT_EQ(CQKBSCode::HasBSCode(c.Name, &db), -1);
  EXPECT_EQ(Rows(), "1:WQ1:1");
  EXPECT_TRUE(messages.empty());
}

TEST_P(CQKBSCodeTest, UpdateBSCodeTableDataChangesNeitherDatabase) {
  Seed("INSERT INTO BSCode (BSTId, Name) VALUES (1, 'WQ1');");
  auto other = Another("other.db");
  ASSERT_TRUE(other->Available());
  CADODatabase to;
  ASSERT_TRUE(to.OpenAccess(other->Path(), L"", L""));
  CQKBSCode::UpdateBSCodeTableData(&db, &to);
  EXPECT_EQ(Rows(), "1:WQ1:1");
  EXPECT_EQ(other->Query("select count(*) from BSCode"), "0");
}

QK_ON_BOTH_BACKENDS(CQKBSCodeTest);
