// The bounding structure of an envelope code as a row of the bounding-structure table, found by the
// code's ID (BSCId). Reading a row copies its key into Id and builds the layer arrays; writing one
// stores the texts only. IsExist, AddOrUpdate and the lookup HasBoundingStructure, on real databases
// built from the schema.

#include <gtest/gtest.h>

#include <string>

#include "EnvelopeFixture.h"
#include "datakit/CADataExchange.h"
#include "datakit/CADataStream.h"
#include "datakit/CAMemoryDataProp.h"
#include "envelope/CQKBoundingStructure.h"
#include "tablekit/CADORecordset.h"

using namespace QKLoad;

namespace {

// Three constructions in the construction table: 5 cement mortar, 7 clay brick, 12 rock wool.
class CQKBoundingStructureTest : public EnvelopeFixture {
 protected:
  void SetUp() override {
    EnvelopeFixture::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    Seed("INSERT INTO Timbering (ID, TTId, Name, GMD, DrXs, BRr) VALUES"
         " (5, 1, '水泥砂浆', 1800, 0.93, 1.05),"
         " (7, 1, '黏土砖', 1800, 0.81, 1.05),"
         " (12, 2, '岩棉板', 100, 0.041, 1.22);");
  }

  // Row id as BSCId|TIdS|HouDuS|XzXsS|HaveDemoBMP|TId ("" when there is none).
  std::string Row(int id) const {
    return Query("select BSCId || '|' || TIdS || '|' || HouDuS || '|' || XzXsS || '|' || HaveDemoBMP || '|' || TId"
                 " from BoundingStructure where ID=" + std::to_string(id));
  }
  std::string RowCount() const { return Query("select count(*) from BoundingStructure"); }
};

CQKBoundingStructure Structure(long codeId, const wchar_t* ids, const wchar_t* thicknesses, const wchar_t* factors) {
  CQKBoundingStructure s;
  s.BSCId = codeId;
  s.TIdS = ids;
  s.HouDuS = thicknesses;
  s.XzXsS = factors;
  return s;
}

}  // namespace

// ---- the value side -------------------------------------------------------------------------------

TEST(CQKBoundingStructure, DefaultsAreKeyZeroAndTheValueDefaults) {
  CQKBoundingStructure s;
  EXPECT_EQ(s.GetID(), 0);
  EXPECT_EQ(s.Id, 0);
  EXPECT_EQ(s.BSCId, 0);
  EXPECT_EQ(s.TIdS, L"");
  EXPECT_EQ(s.HaveDemoBMP, 0);
  EXPECT_EQ(s.arrMaterial.GetSize(), 0);
}

TEST(CQKBoundingStructure, InitResetsTheKeyAndTheValueAndLeavesTheExtraText) {
  CQKBoundingStructure s = Structure(4, L"5,7", L"20,240", L"1,1");
  s.SetID(6);
  s.Id = 6;
  s.HaveDemoBMP = 1;
  s.arrHouDu.Add(20.0);
  s.strExtra = L"附注";
  s.Init();
  EXPECT_EQ(s.GetID(), 0);
  EXPECT_EQ(s.Id, 0);
  EXPECT_EQ(s.BSCId, 0);
  EXPECT_EQ(s.TIdS, L"");
  EXPECT_EQ(s.HouDuS, L"");
  EXPECT_EQ(s.XzXsS, L"");
  EXPECT_EQ(s.HaveDemoBMP, 0);
  EXPECT_EQ(s.arrHouDu.GetSize(), 0);
  EXPECT_EQ(s.strExtra, L"附注");
}

TEST(CQKBoundingStructure, CopyTakesTheKeyTheArraysAndTheExtraText) {
  CQKBoundingStructure s = Structure(4, L"5", L"20", L"1.1");
  s.SetID(6);
  s.arrHouDu.Add(20.0);
  s.arrXzXs.Add(1.1);
  s.strExtra = L"附注";
  CQKBoundingStructure copy(s);
  EXPECT_EQ(copy.GetID(), 6);
  EXPECT_EQ(copy.BSCId, 4);
  ASSERT_EQ(copy.arrHouDu.GetSize(), 1);
  EXPECT_EQ(copy.arrXzXs.GetSize(), 1);
  EXPECT_EQ(copy.strExtra, L"附注");
  CQKBoundingStructure assigned;
  assigned = s;
  EXPECT_EQ(assigned.GetID(), 6);
  EXPECT_EQ(assigned.TIdS, L"5");
  EXPECT_EQ(assigned.arrXzXs.GetSize(), 1);
  EXPECT_EQ(assigned.strExtra, L"附注");
}

TEST(CQKBoundingStructure, StreamCarriesTheIdCopyNotTheRowKey) {
  CQKBoundingStructure out = Structure(3, L"5", L"20", L"1");
  out.SetID(9);
  out.Id = 4;
  CADataStream stream;
  ASSERT_EQ(out.DataOutPut(stream), ADataDef::AD_OK);
  long first = 0, second = 0;
  ASSERT_EQ(stream.ReadItem(&first), 0);
  ASSERT_EQ(stream.ReadItem(&second), 0);
  EXPECT_EQ(first, 4);
  EXPECT_EQ(second, 3);
}

TEST(CQKBoundingStructure, StreamReadThroughTheRecordLeavesTheRowKey) {
  CQKBoundingStructure out = Structure(3, L"5", L"20", L"1");
  out.Id = 4;
  out.strExtra = L"附注";
  CADataStream stream;
  out.DataOutPut(stream);
  CQKBoundingStructure in;
  in.SetID(11);
  ASSERT_EQ(in.DataInPut(stream), ADataDef::AD_OK);
  EXPECT_EQ(in.GetID(), 11);
  EXPECT_EQ(in.Id, 4);
  EXPECT_EQ(in.BSCId, 3);
  EXPECT_EQ(in.TIdS, L"5");
  EXPECT_EQ(in.strExtra, L"附注");
}

TEST(CQKBoundingStructure, ExchangeThroughTheRecordHasTheFiveItemsAndNoKey) {
  CQKBoundingStructure s = Structure(3, L"5", L"20", L"1");
  s.SetID(9);
  CAMemoryDataProp items;
  ASSERT_EQ(s.DataOutPro(CADataExchange(items)), ADataDef::AD_OK);
  EXPECT_EQ(items.GetCount(), 5);
  EXPECT_FALSE(items.HasItem(L"ID"));
  CQKBoundingStructure in;
  ASSERT_EQ(in.DataInPro(CADataExchange(items)), ADataDef::AD_OK);
  EXPECT_EQ(in.BSCId, 3);
  EXPECT_EQ(in.XzXsS, L"1");
}

// ---- the row --------------------------------------------------------------------------------------

TEST_P(CQKBoundingStructureTest, TableAndPathAreThoseGivenToSInit) {
  CQKBoundingStructure s;
  EXPECT_EQ(s.GetTableName(), L"BoundingStructure");
  EXPECT_EQ(s.GetDataBasePath(), path);
}

TEST_P(CQKBoundingStructureTest, ReadDataCopiesTheKeyIntoIdAndBuildsTheLayers) {
  Seed("INSERT INTO BoundingStructure (BSCId, TIdS, HouDuS, XzXsS, HaveDemoBMP) VALUES"
       " (1, '5', '20', '1', 0),"
       " (2, '5,7,12', '20,240,50', '1,1,1.2', 1);");
  CQKBoundingStructure s;
  ASSERT_TRUE(s.ReadData(2, &db));
  EXPECT_EQ(s.GetID(), 2);
  EXPECT_EQ(s.Id, 2);
  EXPECT_EQ(s.BSCId, 2);
  EXPECT_EQ(s.TIdS, L"5,7,12");
  EXPECT_EQ(s.HaveDemoBMP, 1);
  ASSERT_EQ(s.arrMaterial.GetSize(), 3);
  EXPECT_EQ(s.arrMaterial[0].GetStuffName(), L"水泥砂浆");
  EXPECT_EQ(s.arrMaterial[1].GetStuffID(), 7);
  EXPECT_EQ(s.arrMaterial[2].GetDrXs(), 0.041);
  ASSERT_EQ(s.arrHouDu.GetSize(), 3);
  EXPECT_EQ(s.arrHouDu[1], 240.0);
  ASSERT_EQ(s.arrXzXs.GetSize(), 3);
  EXPECT_EQ(s.arrXzXs[2], 1.2);
}

TEST_P(CQKBoundingStructureTest, MakeObjectFromRSLoadsTheRowWithItsLayers) {
  Seed("INSERT INTO BoundingStructure (BSCId, TIdS, HouDuS, XzXsS) VALUES (8, '12,7', '50,240', '1.2,1');");
  CADORecordset rs(&db);
  ASSERT_TRUE(rs.Open(L"select * from BoundingStructure where BSCId=8"));
  CQKBoundingStructure s;
  EXPECT_EQ(s.MakeObjectFromRS(rs), 1);
  EXPECT_EQ(s.GetID(), 1);
  EXPECT_EQ(s.Id, 1);
  EXPECT_EQ(s.BSCId, 8);
  ASSERT_EQ(s.arrMaterial.GetSize(), 2);
  EXPECT_EQ(s.arrMaterial[0].GetStuffID(), 12);
  EXPECT_EQ(s.arrMaterial[1].GetStuffID(), 7);
  ASSERT_EQ(s.arrHouDu.GetSize(), 2);
  EXPECT_EQ(s.arrHouDu[0], 50.0);
}

TEST_P(CQKBoundingStructureTest, AStoredRowNamingAMissingConstructionRepeatsThePreviousLayer) {
  Seed("INSERT INTO BoundingStructure (BSCId, TIdS, HouDuS, XzXsS) VALUES (1, '7,31,5', '20,240,20', '1,1,1');");
  CQKBoundingStructure s;
  ASSERT_TRUE(s.ReadData(1, &db));
  ASSERT_EQ(s.arrMaterial.GetSize(), 3);
  EXPECT_EQ(s.arrMaterial[0].GetStuffID(), 7);
  EXPECT_EQ(s.arrMaterial[1].GetStuffID(), 7);
  EXPECT_EQ(s.arrMaterial[1].GetStuffName(), L"黏土砖");
  EXPECT_EQ(s.arrMaterial[2].GetStuffID(), 5);
}

TEST_P(CQKBoundingStructureTest, ARowWithoutAKeyIsNotLoaded) {
  Seed("INSERT INTO BoundingStructure (BSCId, TIdS, HouDuS, XzXsS) VALUES (1, '7', '240', '1');");
  CADORecordset rs(&db);
  ASSERT_TRUE(rs.Open(L"select BSCId, TIdS, HouDuS, XzXsS, HaveDemoBMP from BoundingStructure"));
  CQKBoundingStructure s;
  EXPECT_EQ(s.MakeObjectFromRS(rs), 0);
  EXPECT_EQ(s.Id, 0);
  EXPECT_EQ(s.arrMaterial.GetSize(), 0);
}

TEST_P(CQKBoundingStructureTest, RowWriteStoresTheTextsAndNotTheEditedArrays) {
  CQKBoundingStructure s = Structure(4, L"5", L"20", L"1");
  s.HaveDemoBMP = 1;
  // Layers edited without their texts: not what the row holds.
  s.arrMaterial.SetSize(3);
  s.arrHouDu.Add(20.0);
  s.arrHouDu.Add(240.0);
  s.arrHouDu.Add(20.0);
  ASSERT_TRUE(s.InsertData(&db));
  EXPECT_EQ(Row(static_cast<int>(s.GetID())), "4|5|20|1|1|0");
  CQKBoundingStructure back;
  ASSERT_TRUE(back.ReadData(s.GetID(), &db));
  EXPECT_EQ(back.arrMaterial.GetSize(), 1);
  EXPECT_EQ(back.arrHouDu.GetSize(), 1);
}

TEST_P(CQKBoundingStructureTest, RowWriteLeavesTheConstructionColumn) {
  Seed("INSERT INTO BoundingStructure (BSCId, TIdS, HouDuS, XzXsS, TId) VALUES (1, '7', '240', '1', 7);");
  CQKBoundingStructure s = Structure(1, L"5,7", L"20,240", L"1,1");
  ASSERT_TRUE(s.UpdateData(1, &db));
  EXPECT_EQ(Row(1), "1|5,7|20,240|1,1|0|7");
}

// ---- IsExist --------------------------------------------------------------------------------------

TEST_P(CQKBoundingStructureTest, IsExistOfACodeWithoutAStructureIsNotExist) {
  Seed("INSERT INTO BoundingStructure (BSCId) VALUES (1);");
  CQKBoundingStructure s = Structure(2, L"5", L"20", L"1");
  s.SetID(5);
  EXPECT_EQ(s.IsExist(&db), DBS_NOTEXIST);
  EXPECT_EQ(s.GetID(), 5);
}

TEST_P(CQKBoundingStructureTest, IsExistOfOneRowTakesItsKeyOnly) {
  Seed("INSERT INTO BoundingStructure (BSCId, TIdS) VALUES (1, '7'), (2, '12');");
  CQKBoundingStructure s = Structure(2, L"5", L"20", L"1");
  EXPECT_EQ(s.IsExist(&db), DBS_EXIST);
  EXPECT_EQ(s.GetID(), 2);
  EXPECT_EQ(s.TIdS, L"5");  // only the key is read
  EXPECT_EQ(s.Id, 0);
}

TEST_P(CQKBoundingStructureTest, IsExistOfTwoRowsOfOneCodeKeepsTheKey) {
  Seed("INSERT INTO BoundingStructure (BSCId, TIdS) VALUES (6, '7'), (6, '12');");
  CQKBoundingStructure s = Structure(6, L"5", L"20", L"1");
  s.SetID(9);
  EXPECT_EQ(s.IsExist(&db), DBS_EXIST);
  EXPECT_EQ(s.GetID(), 9);
}

TEST_P(CQKBoundingStructureTest, IsExistOnAMissingTableIsAnError) {
  CQKBoundingStructure::S_Init(path, L"NoSuchTable");
  CQKBoundingStructure s = Structure(1, L"5", L"20", L"1");
  EXPECT_EQ(s.IsExist(nullptr), DBS_ERROR);
}

// ---- AddOrUpdate ----------------------------------------------------------------------------------

TEST_P(CQKBoundingStructureTest, AddOrUpdateInsertsTheStructureOfANewCode) {
  Seed("INSERT INTO BoundingStructure (BSCId, TIdS, HouDuS, XzXsS) VALUES (1, '7', '240', '1');");
  CQKBoundingStructure s = Structure(2, L"5,7", L"20,240", L"1,1");
  EXPECT_EQ(s.AddOrUpdate(&db), DBS_ADDED);
  EXPECT_EQ(s.GetID(), 2);
  EXPECT_EQ(Row(2), "2|5,7|20,240|1,1|0|0");
  EXPECT_EQ(RowCount(), "2");
}

TEST_P(CQKBoundingStructureTest, AddOrUpdateWithoutAConnectionUsesTheRecordsOwn) {
  CQKBoundingStructure s = Structure(3, L"12", L"50", L"1.2");
  EXPECT_EQ(s.AddOrUpdate(nullptr), DBS_ADDED);
  EXPECT_EQ(Row(static_cast<int>(s.GetID())), "3|12|50|1.2|0|0");
}

TEST_P(CQKBoundingStructureTest, AddOrUpdateRewritesTheRowOfTheCodeInPlace) {
  Seed("INSERT INTO BoundingStructure (BSCId, TIdS, HouDuS, XzXsS) VALUES"
       " (1, '7', '240', '1'), (2, '12', '50', '1');");
  CQKBoundingStructure s = Structure(2, L"5,12", L"20,80", L"1,1.2");
  s.HaveDemoBMP = 1;
  EXPECT_EQ(s.AddOrUpdate(&db), DBS_UPDATED);
  EXPECT_EQ(s.GetID(), 2);
  EXPECT_EQ(Row(2), "2|5,12|20,80|1,1.2|1|0");
  EXPECT_EQ(Row(1), "1|7|240|1|0|0");
  EXPECT_EQ(RowCount(), "2");
}

TEST_P(CQKBoundingStructureTest, AddOrUpdateOfACodeWithTwoRowsWritesTheRowOfTheKeyHeld) {
  // The lookup takes no key from two rows, so the write goes to the row the record already named:
  // here a row of another code, which now belongs to code 6 as well.
  Seed("INSERT INTO BoundingStructure (BSCId, TIdS, HouDuS, XzXsS) VALUES"
       " (6, '7', '240', '1'), (6, '12', '50', '1'), (9, '5', '20', '1');");
  CQKBoundingStructure s = Structure(6, L"5,7", L"20,240", L"1,1");
  s.SetID(3);
  EXPECT_EQ(s.AddOrUpdate(&db), DBS_UPDATED);
  EXPECT_EQ(s.GetID(), 3);
  EXPECT_EQ(Row(1), "6|7|240|1|0|0");
  EXPECT_EQ(Row(2), "6|12|50|1|0|0");
  EXPECT_EQ(Row(3), "6|5,7|20,240|1,1|0|0");
  EXPECT_EQ(RowCount(), "3");
}

TEST_P(CQKBoundingStructureTest, AddOrUpdateOfACodeWithTwoRowsAndNoKeyFailsAndWritesNothing) {
  Seed("INSERT INTO BoundingStructure (BSCId, TIdS, HouDuS, XzXsS) VALUES (6, '7', '240', '1'), (6, '12', '50', '1');");
  CQKBoundingStructure s = Structure(6, L"5,7", L"20,240", L"1,1");
  EXPECT_EQ(s.AddOrUpdate(&db), DBS_ERROR);
  EXPECT_EQ(Row(1), "6|7|240|1|0|0");
  EXPECT_EQ(Row(2), "6|12|50|1|0|0");
  EXPECT_EQ(RowCount(), "2");
}

TEST_P(CQKBoundingStructureTest, AddOrUpdateOnAMissingTableIsAnError) {
  CQKBoundingStructure::S_Init(path, L"NoSuchTable");
  CQKBoundingStructure s = Structure(1, L"5", L"20", L"1");
  EXPECT_EQ(s.AddOrUpdate(nullptr), DBS_ERROR);
  EXPECT_TRUE(messages.empty());
}

// ---- HasBoundingStructure -------------------------------------------------------------------------

TEST_P(CQKBoundingStructureTest, HasBoundingStructureOfAStoredPairIsItsKey) {
  Seed("INSERT INTO BoundingStructure (BSCId, TId) VALUES (1, 7), (2, 7), (2, 12);");
  EXPECT_EQ(CQKBoundingStructure::HasBoundingStructure(2, 12, &db), 3);
}

TEST_P(CQKBoundingStructureTest, HasBoundingStructureOfAPairStoredTwiceIsTheFirstKey) {
  Seed("INSERT INTO BoundingStructure (BSCId, TId) VALUES (1, 7), (2, 12), (2, 12);");
  EXPECT_EQ(CQKBoundingStructure::HasBoundingStructure(2, 12, &db), 2);
}

TEST_P(CQKBoundingStructureTest, HasBoundingStructureWithoutARowIsZero) {
  EXPECT_EQ(CQKBoundingStructure::HasBoundingStructure(2, 12, &db), 0);
}

TEST_P(CQKBoundingStructureTest, HasBoundingStructureNeedsBothTheCodeAndTheConstruction) {
  Seed("INSERT INTO BoundingStructure (BSCId, TId) VALUES (2, 7), (3, 12);");
  EXPECT_EQ(CQKBoundingStructure::HasBoundingStructure(2, 12, &db), 0);
}

TEST_P(CQKBoundingStructureTest, HasBoundingStructureOnAMissingTableIsMinusOne) {
  CQKBoundingStructure::S_Init(path, L"NoSuchTable");
  EXPECT_EQ(CQKBoundingStructure::HasBoundingStructure(2, 12, &db), -1);
}

TEST_P(CQKBoundingStructureTest, HasBoundingStructureOnATableWithoutTheConstructionColumnIsMinusOne) {
  // Every column the record moves, but not "TId".
  Seed("CREATE TABLE OldBoundingStructure (ID INTEGER PRIMARY KEY AUTOINCREMENT, BSCId INTEGER,"
       " TIdS TEXT, HouDuS TEXT, XzXsS TEXT, HaveDemoBMP INTEGER);"
       "INSERT INTO OldBoundingStructure (BSCId, TIdS, HouDuS, XzXsS, HaveDemoBMP) VALUES (2, '12', '50', '1', 0);");
  CQKBoundingStructure::S_Init(path, L"OldBoundingStructure");
  EXPECT_EQ(CQKBoundingStructure::HasBoundingStructure(2, 12, &db), -1);
  // The record itself works on that table.
  CQKBoundingStructure s = Structure(2, L"", L"", L"");
  EXPECT_EQ(s.IsExist(&db), DBS_EXIST);
  EXPECT_EQ(s.GetID(), 1);
}

TEST_P(CQKBoundingStructureTest, HasBoundingStructureWithoutAConnectionUsesTheClassOneAsItStands) {
  Seed("INSERT INTO BoundingStructure (BSCId, TId) VALUES (2, 12);");
  ForgetClassTable<CQKBoundingStructure>();  // closed: the lookup does not open it
  CQKBoundingStructure::S_Init(path, L"BoundingStructure");
  EXPECT_EQ(CQKBoundingStructure::HasBoundingStructure(2, 12, nullptr), -1);
  CQKBoundingStructure().GetUserDatabase();  // any use of the class opens it
  EXPECT_EQ(CQKBoundingStructure::HasBoundingStructure(2, 12, nullptr), 1);
}

TEST_P(CQKBoundingStructureTest, UpdateBoundingStructureTableDataChangesNeitherDatabase) {
  Seed("INSERT INTO BoundingStructure (BSCId, TIdS) VALUES (1, '7');");
  auto other = Another("other.db");
  ASSERT_TRUE(other->Available());
  CADODatabase to;
  ASSERT_TRUE(to.OpenAccess(other->Path(), L"", L""));
  CQKBoundingStructure::UpdateBoundingStructureTableData(&db, &to);
  EXPECT_EQ(RowCount(), "1");
  EXPECT_EQ(other->Query("select count(*) from BoundingStructure"), "0");
}

QK_ON_BOTH_BACKENDS(CQKBoundingStructureTest);
