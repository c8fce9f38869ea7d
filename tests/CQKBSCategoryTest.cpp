// The envelope category: the upper level of the envelope catalogue, a name and its row key, read only.
// Its stream and named item, and the row it moves (the "OrderId" column by which the administration
// lists the categories is neither read nor written), on real databases built from the schema.

#include <gtest/gtest.h>

#include <string>

#include "EnvelopeFixture.h"
#include "datakit/CADataExchange.h"
#include "datakit/CADataStream.h"
#include "datakit/CAMemoryDataProp.h"
#include "envelope/CQKBSCategory.h"
#include "tablekit/CADORecordset.h"

namespace {

using CQKBSCategoryTest = EnvelopeFixture;

CQKBSCategory Category(const wchar_t* name) {
  CQKBSCategory c;
  c.Name = name;
  return c;
}

}  // namespace

// ---- the value ------------------------------------------------------------------------------------

TEST(CQKBSCategory, DefaultsAreKeyZeroAndAnEmptyName) {
  CQKBSCategory c;
  EXPECT_EQ(c.GetID(), 0);
  EXPECT_EQ(c.Name, L"");
}

TEST(CQKBSCategory, InitResetsTheKeyAndTheName) {
  CQKBSCategory c = Category(L"外墙");
  c.SetID(4);
  c.Init();
  EXPECT_EQ(c.GetID(), 0);
  EXPECT_EQ(c.Name, L"");
}

TEST(CQKBSCategory, CopyTakesTheKeyAndTheName) {
  CQKBSCategory c = Category(L"屋面");
  c.SetID(3);
  CQKBSCategory copy(c);
  EXPECT_EQ(copy.GetID(), 3);
  EXPECT_EQ(copy.Name, L"屋面");
  CQKBSCategory assigned;
  assigned = c;
  EXPECT_EQ(assigned.GetID(), 3);
  EXPECT_EQ(assigned.Name, L"屋面");
}

TEST(CQKBSCategory, StreamHoldsTheNameAlone) {
  CQKBSCategory c = Category(L"外窗");
  c.SetID(12);  // the key is the table's, not the stream's
  CADataStream stream;
  ASSERT_EQ(c.DataOutPut(stream), ADataDef::AD_OK);
  CString name;
  ASSERT_EQ(stream.ReadItem(&name), 0);
  EXPECT_EQ(name, L"外窗");
  EXPECT_EQ(stream.GetRemaining(), 0u);
  // A 4-byte count and two UTF-16 units: nothing else was written.
  EXPECT_EQ(stream.GetSize(), 4u + 2u * 2u);
}

TEST(CQKBSCategory, StreamReadTakesTheNameAndLeavesTheKey) {
  CADataStream stream;
  stream.WriteItem(CString(L"地面"));
  CQKBSCategory c;
  c.SetID(5);
  ASSERT_EQ(c.DataInPut(stream), ADataDef::AD_OK);
  EXPECT_EQ(c.Name, L"地面");
  EXPECT_EQ(c.GetID(), 5);
}

TEST(CQKBSCategory, ExchangeCarriesTheNameAlone) {
  CQKBSCategory c = Category(L"内墙");
  c.SetID(8);
  CAMemoryDataProp items;
  ASSERT_EQ(c.DataOutPro(CADataExchange(items)), ADataDef::AD_OK);
  ASSERT_EQ(items.GetCount(), 1);
  EXPECT_EQ(items.GetName(0), L"Name");
  EXPECT_FALSE(items.HasItem(L"ID"));
}

TEST(CQKBSCategory, ExchangeReadTakesTheName) {
  CAMemoryDataProp items;
  items.writeString(L"Name", L"楼板");
  CQKBSCategory c;
  ASSERT_EQ(c.DataInPro(CADataExchange(items)), ADataDef::AD_OK);
  EXPECT_EQ(c.Name, L"楼板");
}

// ---- the row --------------------------------------------------------------------------------------

TEST_P(CQKBSCategoryTest, TableAndPathAreThoseGivenToSInit) {
  CQKBSCategory c;
  EXPECT_EQ(c.GetTableName(), L"BSCategory");
  EXPECT_EQ(c.GetDataBasePath(), path);
}

TEST_P(CQKBSCategoryTest, ReadDataLoadsTheNameAndTheKey) {
  Seed("INSERT INTO BSCategory (Name, OrderId) VALUES ('外墙', 2), ('屋面', 1);");
  CQKBSCategory c;
  ASSERT_TRUE(c.ReadData(2, &db));
  EXPECT_EQ(c.GetID(), 2);
  EXPECT_EQ(c.Name, L"屋面");
}

TEST_P(CQKBSCategoryTest, RowReadIgnoresTheOrderColumn) {
  // The whole row, "OrderId" included, loads the two fields the record knows.
  Seed("INSERT INTO BSCategory (Name, OrderId) VALUES ('外窗', 7);");
  CADORecordset rs(&db);
  ASSERT_TRUE(rs.Open(L"select * from BSCategory"));
  CQKBSCategory c;
  EXPECT_EQ(c.MakeObjectFromRS(rs), 1);
  EXPECT_EQ(c.GetID(), 1);
  EXPECT_EQ(c.Name, L"外窗");
}

TEST_P(CQKBSCategoryTest, RowReadNeedsNoOrderColumn) {
  Seed("INSERT INTO BSCategory (Name, OrderId) VALUES ('外窗', 7);");
  CADORecordset rs(&db);
  ASSERT_TRUE(rs.Open(L"select ID, Name from BSCategory"));
  CQKBSCategory c;
  EXPECT_EQ(c.MakeObjectFromRS(rs), 1);
  EXPECT_EQ(c.Name, L"外窗");
}

TEST_P(CQKBSCategoryTest, RowWithoutAKeyIsNotLoaded) {
  Seed("INSERT INTO BSCategory (Name) VALUES ('外窗');");
  CADORecordset rs(&db);
  ASSERT_TRUE(rs.Open(L"select Name from BSCategory"));
  CQKBSCategory c;
  EXPECT_EQ(c.MakeObjectFromRS(rs), 0);
  EXPECT_EQ(c.GetID(), 0);
}

TEST_P(CQKBSCategoryTest, UpdateDataWritesTheNameAndLeavesTheOrder) {
  Seed("INSERT INTO BSCategory (Name, OrderId) VALUES ('外墙', 9);");
  CQKBSCategory c = Category(L"外墙（非透明）");
  ASSERT_TRUE(c.UpdateData(1, &db));
  EXPECT_EQ(Query("select Name from BSCategory where ID=1"), "外墙（非透明）");
  EXPECT_EQ(Query("select OrderId from BSCategory where ID=1"), "9");
}

TEST_P(CQKBSCategoryTest, InsertDataTakesTheNewKeyAndLeavesTheOrderAtItsDefault) {
  Seed("INSERT INTO BSCategory (Name, OrderId) VALUES ('外墙', 3);");
  CQKBSCategory c = Category(L"屋面");
  ASSERT_TRUE(c.InsertData(nullptr));
  EXPECT_EQ(c.GetID(), 2);
  EXPECT_EQ(Query("select Name || '/' || OrderId from BSCategory where ID=2"), "屋面/0");
}

QK_ON_BOTH_BACKENDS(CQKBSCategoryTest);
