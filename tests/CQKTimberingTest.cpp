// The construction record: a material with a row key and the construction type it belongs to
// (TTId). Its stream and named items (the material's, then TTId), Init and copies, and its database
// verbs, whose natural key is the material name alone whatever the type.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "EnvelopeFixture.h"
#include "construction/CQKTimbering.h"
#include "datakit/ADataDef.h"
#include "datakit/CADataExchange.h"
#include "datakit/CADataStream.h"
#include "datakit/CAMemoryDataProp.h"
#include "envelope/CQKMateralData.h"
#include "foundation/QKLoad.h"
#include "tablekit/CADORecordset.h"

using namespace QKLoad;

namespace {

class CQKTimberingTest : public EnvelopeFixture {
 protected:
  std::string NameOf(int id) const { return Query("select Name from Timbering where ID=" + std::to_string(id)); }
};

// A brick wall construction of type 2, every material value off its default.
CQKTimbering Brick() {
  CQKTimbering t;
  t.SetStuffID(12);
  t.SetStuffName(L"重砂浆黏土砖砌体");
  t.SetGMD(1800.0);
  t.SetDrXs(0.81);
  t.SetBRr(1.05);
  t.SetRoughness(3);
  t.SetTheAbs(0.91);
  t.SetSolAbs(0.62);
  t.SetVisAbs(0.63);
  t.SetSolarT(0.11);
  t.SetSolarRFront(0.12);
  t.SetSolarRBack(0.13);
  t.SetVisibleT(0.14);
  t.SetVisibleRFront(0.15);
  t.SetVisibleRBack(0.16);
  t.SetInfraredT(0.17);
  t.SetInfraredEFront(0.18);
  t.SetInfraredERBack(0.19);
  t.TTId = 2;
  return t;
}

CQKTimbering Named(const wchar_t* name, int ttId) {
  CQKTimbering t;
  t.SetStuffName(name);
  t.TTId = ttId;
  return t;
}

// The brick above as a stored row of type 2.
const char* const kBrickRow =
    "INSERT INTO Timbering (TTId, Name, GMD, DrXs, BRr, Roughness, TheAbs, SolAbs, VisAbs, SolarT,"
    " SolarRFront, SolarRBack, VisibleT, VisibleRFront, VisibleRBack, InfraredT, InfraredEFront,"
    " InfraredEBack) VALUES (2, '重砂浆黏土砖砌体', 1800, 0.81, 1.05, 3, 0.91, 0.62, 0.63, 0.11, 0.12,"
    " 0.13, 0.14, 0.15, 0.16, 0.17, 0.18, 0.19);";

void ExpectBrickMaterial(CQKTimbering& t) {
  EXPECT_EQ(t.GetStuffName(), L"重砂浆黏土砖砌体");
  EXPECT_EQ(t.GetGMD(), 1800.0);
  EXPECT_EQ(t.GetDrXs(), 0.81);
  EXPECT_EQ(t.GetBRr(), 1.05);
  EXPECT_EQ(t.GetRoughness(), 3);
  EXPECT_EQ(t.GetTheAbs(), 0.91);
  EXPECT_EQ(t.GetSolAbs(), 0.62);
  EXPECT_EQ(t.GetVisAbs(), 0.63);
  EXPECT_EQ(t.GetSolarT(), 0.11);
  EXPECT_EQ(t.GetSolarRFront(), 0.12);
  EXPECT_EQ(t.GetSolarRBack(), 0.13);
  EXPECT_EQ(t.GetVisibleT(), 0.14);
  EXPECT_EQ(t.GetVisibleRFront(), 0.15);
  EXPECT_EQ(t.GetVisibleRBack(), 0.16);
  EXPECT_EQ(t.GetInfraredT(), 0.17);
  EXPECT_EQ(t.GetInfraredEFront(), 0.18);
  EXPECT_EQ(t.GetInfraredEBack(), 0.19);
}

// A host's subclass that points the row operations at a table of its own.
struct RedirectedTimbering : CQKTimbering {
  CString GetTableName() override { return L"OtherTimbering"; }
};

}  // namespace

// ---- Init and copies -------------------------------------------------------------------------------

TEST(CQKTimbering, NewConstructionHasTheMaterialDefaultsAndNoKey) {
  CQKTimbering t;
  EXPECT_EQ(t.GetID(), 0);
  EXPECT_EQ(t.GetStuffID(), 0);
  EXPECT_EQ(t.GetStuffName(), L"");
  EXPECT_EQ(t.GetSolarT(), 0.85);
  EXPECT_EQ(t.GetVisibleT(), 0.901);
  EXPECT_EQ(t.GetInfraredEBack(), 0.84);
}

TEST(CQKTimbering, InitRestoresTheMaterialDefaults) {
  CQKTimbering t = Brick();

  t.Init();

  EXPECT_EQ(t.GetStuffID(), 0);
  EXPECT_EQ(t.GetStuffName(), L"");
  EXPECT_EQ(t.GetGMD(), 0.0);
  EXPECT_EQ(t.GetRoughness(), 0);
  EXPECT_EQ(t.GetTheAbs(), 0.8);
  EXPECT_EQ(t.GetSolarRBack(), 0.075);
  EXPECT_EQ(t.GetVisibleRFront(), 0.081);
  EXPECT_EQ(t.GetInfraredT(), 0.0);
  EXPECT_EQ(t.GetInfraredEFront(), 0.84);
}

TEST(CQKTimbering, InitLeavesTheTypeAndTheKey) {
  CQKTimbering t = Brick();
  t.SetID(31);

  t.Init();

  EXPECT_EQ(t.TTId, 2);
  EXPECT_EQ(t.GetID(), 31);
}

TEST(CQKTimbering, CopyConstructionTakesKeyTypeAndMaterial) {
  CQKTimbering source = Brick();
  source.SetID(31);

  CQKTimbering copy(source);

  EXPECT_EQ(copy.GetID(), 31);
  EXPECT_EQ(copy.TTId, 2);
  EXPECT_EQ(copy.GetStuffID(), 12);
  ExpectBrickMaterial(copy);
}

TEST(CQKTimbering, AssignmentTakesKeyTypeAndMaterial) {
  CQKTimbering source = Brick();
  source.SetID(31);
  CQKTimbering copy = Named(L"岩棉板", 9);
  copy.SetID(4);

  copy = source;

  EXPECT_EQ(copy.GetID(), 31);
  EXPECT_EQ(copy.TTId, 2);
  EXPECT_EQ(copy.GetStuffID(), 12);
  ExpectBrickMaterial(copy);
}

TEST(CQKTimbering, CopiesAreIndependentOfTheirSource) {
  CQKTimbering source = Brick();
  CQKTimbering copy(source);

  source.TTId = 7;
  source.SetDrXs(0.04);
  source.SetID(8);

  EXPECT_EQ(copy.TTId, 2);
  EXPECT_EQ(copy.GetDrXs(), 0.81);
  EXPECT_EQ(copy.GetID(), 0);
}

TEST(CQKTimbering, CopyFromAMaterialTakesOnlyTheMaterialPart) {
  CQKMateralData wool;
  wool.SetStuffName(L"岩棉板");
  wool.SetDrXs(0.041);
  CQKTimbering t = Brick();
  t.SetID(31);

  EXPECT_EQ(t.Copy(&wool), ADataDef::AD_OK);

  EXPECT_EQ(t.GetStuffName(), L"岩棉板");
  EXPECT_EQ(t.GetDrXs(), 0.041);
  EXPECT_EQ(t.GetGMD(), 0.0);
  EXPECT_EQ(t.TTId, 2);
  EXPECT_EQ(t.GetID(), 31);
}

TEST(CQKTimbering, CopyFromAConstructionTakesTheWholeRecord) {
  CQKTimbering source = Brick();
  source.SetID(31);
  CQKTimbering t = Named(L"岩棉板", 9);
  t.SetID(4);

  EXPECT_EQ(t.Copy(&source), ADataDef::AD_OK);

  EXPECT_EQ(t.GetID(), 31);
  EXPECT_EQ(t.TTId, 2);
  EXPECT_EQ(t.GetStuffID(), 12);
  ExpectBrickMaterial(t);
}

TEST(CQKTimbering, CopyFromAnUnrelatedClassIsRefusedAndChangesNothing) {
  CAData unrelated;
  CQKTimbering t = Brick();
  t.SetID(31);

  EXPECT_EQ(t.Copy(&unrelated), ADataDef::AD_INCOMPATIBLE);
  EXPECT_EQ(t.Copy(nullptr), ADataDef::AD_INCOMPATIBLE);

  EXPECT_EQ(t.GetID(), 31);
  EXPECT_EQ(t.TTId, 2);
  ExpectBrickMaterial(t);
}

TEST(CQKTimbering, CloneGivesAWholeConstructionOfItsOwnClass) {
  CQKTimbering source = Brick();
  source.SetID(31);

  CAData* clone = source.Clone();

  ASSERT_NE(clone, nullptr);
  auto* construction = dynamic_cast<CQKTimbering*>(clone);
  ASSERT_NE(construction, nullptr);
  EXPECT_EQ(construction->GetID(), 31);
  EXPECT_EQ(construction->TTId, 2);
  ExpectBrickMaterial(*construction);
  delete clone;
}

TEST(CQKTimbering, IsCreatableByItsClassName) {
  const CRuntimeClass* cls = CRuntimeClass::FromName("CQKTimbering");
  ASSERT_NE(cls, nullptr);
  EXPECT_TRUE(cls->IsDerivedFrom(RUNTIME_CLASS(CQKMateralData)));
  CObject* made = cls->CreateObject();
  ASSERT_NE(made, nullptr);
  EXPECT_NE(dynamic_cast<CQKTimbering*>(made), nullptr);
  delete made;
}

// ---- ordered stream --------------------------------------------------------------------------------

TEST(CQKTimbering, StreamIsTheMaterialStreamThenTheType) {
  CQKTimbering out = Brick();
  CADataStream stream;

  EXPECT_EQ(out.DataOutPut(stream), ADataDef::AD_OK);

  CQKMateralData material;
  ASSERT_EQ(material.DataInPut(stream), ADataDef::AD_OK);
  EXPECT_EQ(material.GetStuffID(), 12);
  EXPECT_EQ(material.GetStuffName(), L"重砂浆黏土砖砌体");
  EXPECT_EQ(material.GetInfraredEBack(), 0.19);
  int ttId = 0;
  ASSERT_EQ(stream.ReadItem(&ttId), 0);
  EXPECT_EQ(ttId, 2);
  EXPECT_EQ(stream.GetRemaining(), 0u);
}

TEST(CQKTimbering, StreamBytesAreTheMaterialsFollowedByFourForTheType) {
  CQKTimbering out = Brick();
  CADataStream constructionStream;
  out.DataOutPut(constructionStream);
  CQKMateralData material = Brick();  // the same material part
  CADataStream materialStream;
  material.DataOutPut(materialStream);

  const auto& c = constructionStream.GetBytes();
  const auto& m = materialStream.GetBytes();

  ASSERT_EQ(c.size(), m.size() + 4);
  EXPECT_TRUE(std::equal(m.begin(), m.end(), c.begin()));
}

TEST(CQKTimbering, StreamStartsWithMaterialVersionTwo) {
  CQKTimbering out;
  CADataStream stream;

  out.DataOutPut(stream);

  int version = 0;
  ASSERT_EQ(stream.ReadItem(&version), 0);
  EXPECT_EQ(version, 2);
}

TEST(CQKTimbering, StreamRoundTripRestoresMaterialAndType) {
  CQKTimbering out = Brick();
  CADataStream stream;
  out.DataOutPut(stream);
  CQKTimbering in;

  EXPECT_EQ(in.DataInPut(stream), ADataDef::AD_OK);

  EXPECT_EQ(in.TTId, 2);
  EXPECT_EQ(in.GetStuffID(), 12);
  ExpectBrickMaterial(in);
  EXPECT_EQ(stream.GetRemaining(), 0u);
}

TEST(CQKTimbering, StreamDoesNotCarryTheRowKey) {
  CQKTimbering out = Brick();
  out.SetID(31);
  CADataStream stream;
  out.DataOutPut(stream);
  CQKTimbering in;
  in.SetID(5);

  in.DataInPut(stream);

  EXPECT_EQ(in.GetID(), 5);
}

TEST(CQKTimbering, StreamOfMaterialVersionZeroIsRead) {
  CQKTimbering out = Brick();
  CADataStream written;
  out.DataOutPut(written);
  std::vector<std::uint8_t> bytes = written.GetBytes();
  bytes[0] = 0;  // the version, little-endian: 2 becomes 0
  CADataStream stream(bytes.data(), bytes.size());
  CQKTimbering in;

  EXPECT_EQ(in.DataInPut(stream), ADataDef::AD_OK);

  EXPECT_EQ(in.TTId, 2);
  ExpectBrickMaterial(in);
}

TEST(CQKTimbering, StreamOfMaterialVersionThreeIsRefusedWith23AndChangesNothing) {
  CQKTimbering out = Named(L"岩棉板", 9);
  out.SetDrXs(0.041);
  CADataStream written;
  out.DataOutPut(written);
  std::vector<std::uint8_t> bytes = written.GetBytes();
  bytes[0] = 3;  // the version, little-endian: a newer material format
  CADataStream stream(bytes.data(), bytes.size());
  CQKTimbering in = Brick();

  EXPECT_EQ(in.DataInPut(stream), 23);

  EXPECT_EQ(in.TTId, 2);
  EXPECT_EQ(in.GetStuffID(), 12);
  ExpectBrickMaterial(in);
}

// ---- named items -----------------------------------------------------------------------------------

TEST(CQKTimbering, ExchangeIsTheMaterialItemsThenTTId) {
  CQKTimbering out = Brick();
  CAMemoryDataProp store;

  EXPECT_EQ(out.DataOutPro(CADataExchange(store)), ADataDef::AD_OK);

  CQKMateralData material = Brick();
  CAMemoryDataProp materialStore;
  material.DataOutPro(CADataExchange(materialStore));
  ASSERT_EQ(store.GetCount(), materialStore.GetCount() + 1);
  for (int i = 0; i < materialStore.GetCount(); ++i) EXPECT_EQ(store.GetName(i), materialStore.GetName(i));
  EXPECT_EQ(store.GetName(materialStore.GetCount()), L"TTId");
  int ttId = 0;
  ASSERT_EQ(CADataExchange(store).ReadItem(L"TTId", &ttId), 0);
  EXPECT_EQ(ttId, 2);
}

TEST(CQKTimbering, ExchangeWritesEighteenItemsWithoutAnId) {
  CQKTimbering out = Brick();
  out.SetID(31);
  CAMemoryDataProp store;

  out.DataOutPro(CADataExchange(store));

  EXPECT_EQ(store.GetCount(), 18);
  EXPECT_FALSE(store.HasItem(L"Id"));
}

TEST(CQKTimbering, ExchangeReadsTheTypeAndTakesIdAsTheMaterialIdentity) {
  CAMemoryDataProp store;
  CADataExchange x(store);
  x.WriteItem(L"Id", 44L);
  x.WriteItem(L"TTId", 6);
  x.WriteItem(L"Name", CString(L"岩棉板"));
  CQKTimbering in = Brick();
  in.SetID(31);

  EXPECT_EQ(in.DataInPro(CADataExchange(store)), ADataDef::AD_OK);

  EXPECT_EQ(in.TTId, 6);
  EXPECT_EQ(in.GetStuffID(), 44);
  EXPECT_EQ(in.GetStuffName(), L"岩棉板");
  EXPECT_EQ(in.GetID(), 31);  // the row key moves through the record base, not the items
}

TEST(CQKTimbering, ExchangeWithoutTTIdKeepsTheType) {
  CAMemoryDataProp store;
  CADataExchange(store).WriteItem(L"Name", CString(L"岩棉板"));
  CQKTimbering in = Brick();

  in.DataInPro(CADataExchange(store));

  EXPECT_EQ(in.TTId, 2);
}

// ---- rows ------------------------------------------------------------------------------------------

TEST_P(CQKTimberingTest, IsExistLoadsEveryColumnOfTheRow) {
  Seed(kBrickRow);
  CQKTimbering t = Named(L"重砂浆黏土砖砌体", 0);

  EXPECT_EQ(t.IsExist(&db), DBS_EXIST);

  EXPECT_EQ(t.GetID(), 1);
  EXPECT_EQ(t.TTId, 2);
  ExpectBrickMaterial(t);
}

TEST_P(CQKTimberingTest, ReadingARowMakesItsKeyTheMaterialIdentity) {
  Seed("INSERT INTO Timbering (ID, TTId, Name) VALUES (7, 1, '石灰砂浆');");
  CQKTimbering t = Named(L"石灰砂浆", 0);
  t.SetStuffID(99);

  ASSERT_EQ(t.IsExist(&db), DBS_EXIST);

  EXPECT_EQ(t.GetID(), 7);
  EXPECT_EQ(t.GetStuffID(), 7);
}

TEST_P(CQKTimberingTest, MakeObjectFromRSReadsTheCurrentRow) {
  Seed(kBrickRow);
  CADORecordset rs(&db);
  ASSERT_TRUE(rs.Open(L"select * from Timbering where TTId=2 order by Id"));
  CQKTimbering t;

  EXPECT_TRUE(t.MakeObjectFromRS(rs));

  EXPECT_EQ(t.GetID(), 1);
  EXPECT_EQ(t.GetStuffID(), 1);
  EXPECT_EQ(t.TTId, 2);
  ExpectBrickMaterial(t);
}

TEST_P(CQKTimberingTest, IsExistOfAnUnstoredNameIsNotExistAndChangesNothing) {
  Seed(kBrickRow);
  CQKTimbering t = Named(L"岩棉板", 4);
  t.SetID(9);
  t.SetDrXs(0.041);

  EXPECT_EQ(t.IsExist(&db), DBS_NOTEXIST);

  EXPECT_EQ(t.GetID(), 9);
  EXPECT_EQ(t.TTId, 4);
  EXPECT_EQ(t.GetDrXs(), 0.041);
}

TEST_P(CQKTimberingTest, IsExistOfANameStoredTwiceTakesTheFirstRow) {
  Seed("INSERT INTO Timbering (TTId, Name, GMD) VALUES (1, '岩棉板', 120), (3, '岩棉板', 150);");
  CQKTimbering t = Named(L"岩棉板", 0);

  EXPECT_EQ(t.IsExist(&db), DBS_EXIST);

  EXPECT_EQ(t.GetID(), 1);
  EXPECT_EQ(t.TTId, 1);
  EXPECT_EQ(t.GetGMD(), 120.0);
}

TEST_P(CQKTimberingTest, IsExistFindsTheNameInAnotherType) {
  Seed("INSERT INTO Timbering (TTId, Name) VALUES (1, '岩棉板');");
  CQKTimbering t = Named(L"岩棉板", 5);

  EXPECT_EQ(t.IsExist(&db), DBS_EXIST);

  EXPECT_EQ(t.GetID(), 1);
  EXPECT_EQ(t.TTId, 1);  // the object is now the stored construction
}

TEST_P(CQKTimberingTest, IsExistOfAnEmptyNameFindsTheRowWithAnEmptyName) {
  Seed("INSERT INTO Timbering (TTId, Name) VALUES (1, '岩棉板'), (1, '');");
  CQKTimbering t = Named(L"", 0);

  EXPECT_EQ(t.IsExist(&db), DBS_EXIST);

  EXPECT_EQ(t.GetID(), 2);
}

TEST_P(CQKTimberingTest, IsExistWithoutAConnectionUsesTheClassConnection) {
  Seed(kBrickRow);
  CQKTimbering t = Named(L"重砂浆黏土砖砌体", 0);

  EXPECT_EQ(t.IsExist(nullptr), DBS_EXIST);

  EXPECT_EQ(t.GetID(), 1);
  ASSERT_NE(CQKTimbering::m_pADODatabase, nullptr);
  EXPECT_TRUE(CQKTimbering::m_pADODatabase->IsOpen());
}

TEST_P(CQKTimberingTest, IsExistLooksInTheClassTableNotTheVirtualOne) {
  Seed("CREATE TABLE OtherTimbering (ID INTEGER PRIMARY KEY, TTId INTEGER, Name TEXT, GMD REAL);"
       "INSERT INTO OtherTimbering (ID, TTId, Name, GMD) VALUES (5, 1, '岩棉板', 150);"
       "INSERT INTO Timbering (TTId, Name, GMD) VALUES (1, '岩棉板', 120);");
  RedirectedTimbering t;
  t.SetStuffName(L"岩棉板");

  EXPECT_EQ(t.IsExist(&db), DBS_EXIST);

  EXPECT_EQ(t.GetID(), 1);
  EXPECT_EQ(t.GetGMD(), 120.0);
}

TEST_P(CQKTimberingTest, IsExistOfAMissingTableIsAnError) {
  CQKTimbering::S_Init(path, L"NoSuchTable");
  CQKTimbering t = Named(L"岩棉板", 1);

  EXPECT_EQ(t.IsExist(&db), DBS_ERROR);
}

TEST_P(CQKTimberingTest, IsExistWithoutATableNameIsAnError) {
  CQKTimbering::S_Init(path, L"");
  CQKTimbering t = Named(L"岩棉板", 1);

  EXPECT_EQ(t.IsExist(&db), DBS_ERROR);
}

TEST_P(CQKTimberingTest, AddIfNotExistInsertsEveryColumnAndTakesTheNewKey) {
  Seed("INSERT INTO Timbering (TTId, Name) VALUES (1, '石灰砂浆');");
  CQKTimbering t = Brick();

  EXPECT_EQ(t.AddIfNotExist(&db, 0), DBS_ADDED);

  EXPECT_EQ(t.GetID(), 2);
  EXPECT_EQ(Query("select Name from Timbering where ID=2"), "重砂浆黏土砖砌体");
  EXPECT_EQ(Query("select TTId from Timbering where ID=2"), "2");
  EXPECT_EQ(Query("select GMD from Timbering where ID=2"), "1800.0");
  EXPECT_EQ(Query("select DrXs from Timbering where ID=2"), "0.81");
  EXPECT_EQ(Query("select BRr from Timbering where ID=2"), "1.05");
  EXPECT_EQ(Query("select Roughness from Timbering where ID=2"), "3");
  EXPECT_EQ(Query("select TheAbs from Timbering where ID=2"), "0.91");
  EXPECT_EQ(Query("select SolAbs from Timbering where ID=2"), "0.62");
  EXPECT_EQ(Query("select VisAbs from Timbering where ID=2"), "0.63");
  EXPECT_EQ(Query("select SolarT from Timbering where ID=2"), "0.11");
  EXPECT_EQ(Query("select SolarRFront from Timbering where ID=2"), "0.12");
  EXPECT_EQ(Query("select SolarRBack from Timbering where ID=2"), "0.13");
  EXPECT_EQ(Query("select VisibleT from Timbering where ID=2"), "0.14");
  EXPECT_EQ(Query("select VisibleRFront from Timbering where ID=2"), "0.15");
  EXPECT_EQ(Query("select VisibleRBack from Timbering where ID=2"), "0.16");
  EXPECT_EQ(Query("select InfraredT from Timbering where ID=2"), "0.17");
  EXPECT_EQ(Query("select InfraredEFront from Timbering where ID=2"), "0.18");
  EXPECT_EQ(Query("select InfraredEBack from Timbering where ID=2"), "0.19");
}

TEST_P(CQKTimberingTest, AddIfNotExistDoesNotUseTheMaterialIdentityAsTheKey) {
  CQKTimbering t = Brick();  // StuffID 12

  ASSERT_EQ(t.AddIfNotExist(nullptr, 0), DBS_ADDED);

  EXPECT_EQ(Query("select group_concat(ID) from Timbering"), "1");
}

TEST_P(CQKTimberingTest, AddIfNotExistWithoutAConnectionUsesTheClassConnection) {
  CQKTimbering t = Named(L"岩棉板", 4);

  EXPECT_EQ(t.AddIfNotExist(nullptr, 0), DBS_ADDED);

  EXPECT_EQ(Query("select TTId || ':' || Name from Timbering"), "4:岩棉板");
}

TEST_P(CQKTimberingTest, AddIfNotExistOfANameInAnotherTypeLeavesEverything) {
  Seed("INSERT INTO Timbering (TTId, Name, GMD) VALUES (1, '岩棉板', 120);");
  CQKTimbering t = Named(L"岩棉板", 5);
  t.SetGMD(150.0);
  t.SetID(9);

  EXPECT_EQ(t.AddIfNotExist(&db, 0), DBS_EXIST);

  EXPECT_EQ(t.GetID(), 9);
  EXPECT_EQ(t.TTId, 5);
  EXPECT_EQ(t.GetGMD(), 150.0);
  EXPECT_EQ(Query("select count(*) from Timbering"), "1");
  EXPECT_EQ(Query("select TTId from Timbering"), "1");
}

TEST_P(CQKTimberingTest, AddIfNotExistOfANameInAnotherTypeTakesTheStoredConstruction) {
  Seed("INSERT INTO Timbering (TTId, Name, GMD) VALUES (1, '岩棉板', 120);");
  CQKTimbering t = Named(L"岩棉板", 5);
  t.SetGMD(150.0);

  EXPECT_EQ(t.AddIfNotExist(&db, 1), DBS_EXIST);

  EXPECT_EQ(t.GetID(), 1);
  EXPECT_EQ(t.GetStuffID(), 1);
  EXPECT_EQ(t.TTId, 1);
  EXPECT_EQ(t.GetGMD(), 120.0);
  EXPECT_EQ(Query("select count(*) from Timbering"), "1");
}

TEST_P(CQKTimberingTest, AddIfNotExistOnAMissingTableIsAnError) {
  CQKTimbering::S_Init(path, L"NoSuchTable");
  CQKTimbering t = Named(L"岩棉板", 1);

  EXPECT_EQ(t.AddIfNotExist(&db, 0), DBS_ERROR);
}

TEST_P(CQKTimberingTest, UpdateIfNoOtherWithAFreeNameRenamesTheRowInPlace) {
  Seed("INSERT INTO Timbering (TTId, Name) VALUES (1, '岩棉板'), (1, '石灰砂浆');");
  CQKTimbering t = Brick();
  t.SetID(1);

  EXPECT_EQ(t.UpdateIfNoOther(&db, 0), DBS_UPDATED);

  EXPECT_EQ(NameOf(1), "重砂浆黏土砖砌体");
  EXPECT_EQ(NameOf(2), "石灰砂浆");
  EXPECT_EQ(Query("select TTId from Timbering where ID=1"), "2");
  EXPECT_EQ(Query("select DrXs from Timbering where ID=1"), "0.81");
}

TEST_P(CQKTimberingTest, UpdateIfNoOtherOnItsOwnRowWritesTheValues) {
  Seed("INSERT INTO Timbering (TTId, Name, GMD) VALUES (1, '岩棉板', 120);");
  CQKTimbering t = Named(L"岩棉板", 3);
  t.SetID(1);
  t.SetGMD(140.0);

  EXPECT_EQ(t.UpdateIfNoOther(nullptr, 0), DBS_UPDATED);

  EXPECT_EQ(Query("select GMD from Timbering where ID=1"), "140.0");
  EXPECT_EQ(Query("select TTId from Timbering where ID=1"), "3");
}

TEST_P(CQKTimberingTest, UpdateIfNoOtherOnANameHeldInAnotherTypeWritesNothing) {
  Seed("INSERT INTO Timbering (TTId, Name, GMD) VALUES (1, '岩棉板', 120), (2, '石灰砂浆', 1600);");
  CQKTimbering t = Named(L"岩棉板", 2);  // the second row, renamed to the first one's name
  t.SetID(2);
  t.SetGMD(999.0);

  EXPECT_EQ(t.UpdateIfNoOther(&db, 0), DBS_EXIST);

  EXPECT_EQ(t.GetID(), 2);
  EXPECT_EQ(t.GetGMD(), 999.0);
  EXPECT_EQ(NameOf(1), "岩棉板");
  EXPECT_EQ(NameOf(2), "石灰砂浆");
  EXPECT_EQ(Query("select GMD from Timbering where ID=2"), "1600.0");
}

TEST_P(CQKTimberingTest, UpdateIfNoOtherOnANameHeldInAnotherTypeCanTakeThatRow) {
  Seed("INSERT INTO Timbering (TTId, Name, GMD) VALUES (1, '岩棉板', 120), (2, '石灰砂浆', 1600);");
  CQKTimbering t = Named(L"岩棉板", 2);
  t.SetID(2);

  EXPECT_EQ(t.UpdateIfNoOther(&db, 1), DBS_EXIST);

  EXPECT_EQ(t.GetID(), 1);
  EXPECT_EQ(t.TTId, 1);
  EXPECT_EQ(t.GetGMD(), 120.0);
  EXPECT_EQ(NameOf(1), "岩棉板");
  EXPECT_EQ(NameOf(2), "石灰砂浆");
}

TEST_P(CQKTimberingTest, UpdateIfNoOtherOfAKeyNoRowHasIsAnError) {
  CQKTimbering t = Named(L"岩棉板", 1);
  t.SetID(5);

  EXPECT_EQ(t.UpdateIfNoOther(&db, 0), DBS_ERROR);

  EXPECT_EQ(Query("select count(*) from Timbering"), "0");
}

// ---- HasTimbering ------------------------------------------------------------------------------------

TEST_P(CQKTimberingTest, HasTimberingGivesTheKeyOfTheStoredName) {
  Seed("INSERT INTO Timbering (TTId, Name) VALUES (1, '石灰砂浆'), (2, '岩棉板');");

  EXPECT_EQ(CQKTimbering::HasTimbering(L"岩棉板", &db), 2);
}

TEST_P(CQKTimberingTest, HasTimberingOfANameStoredInTwoTypesGivesTheFirstKey) {
  Seed("INSERT INTO Timbering (TTId, Name) VALUES (1, '石灰砂浆'), (3, '岩棉板'), (1, '岩棉板');");

  EXPECT_EQ(CQKTimbering::HasTimbering(L"岩棉板", &db), 2);
}

TEST_P(CQKTimberingTest, HasTimberingOfAnUnknownNameIsZero) {
  Seed("INSERT INTO Timbering (TTId, Name) VALUES (1, '石灰砂浆');");

  EXPECT_EQ(CQKTimbering::HasTimbering(L"岩棉板", &db), 0);
}

TEST_P(CQKTimberingTest, HasTimberingOnAMissingTableIsMinusOne) {
  CQKTimbering::S_Init(path, L"NoSuchTable");

  EXPECT_EQ(CQKTimbering::HasTimbering(L"岩棉板", &db), -1);
}

TEST_P(CQKTimberingTest, HasTimberingWithoutATableNameIsMinusOne) {
  CQKTimbering::S_Init(path, L"");

  EXPECT_EQ(CQKTimbering::HasTimbering(L"岩棉板", &db), -1);
}

TEST_P(CQKTimberingTest, HasTimberingWithoutAConnectionUsesTheClassOneAsItStands) {
  Seed("INSERT INTO Timbering (TTId, Name) VALUES (1, '岩棉板');");
  ForgetClassTable<CQKTimbering>();  // closed: the lookup does not open it
  CQKTimbering::S_Init(path, L"Timbering");
  EXPECT_EQ(CQKTimbering::HasTimbering(L"岩棉板", nullptr), -1);

  CQKTimbering().GetUserDatabase();  // any use of the class opens it

  EXPECT_EQ(CQKTimbering::HasTimbering(L"岩棉板", nullptr), 1);
}

TEST_P(CQKTimberingTest, HasTimberingWithoutAnyClassConnectionIsMinusOne) {
  Seed("INSERT INTO Timbering (TTId, Name) VALUES (1, '岩棉板');");
  CADODatabase* const kept = CQKTimbering::m_pADODatabase;
  CQKTimbering::m_pADODatabase = nullptr;  // as before the first use of the class

  const int found = CQKTimbering::HasTimbering(L"岩棉板", nullptr);

  EXPECT_EQ(CQKTimbering::m_pADODatabase, nullptr);  // not created here either
  CQKTimbering::m_pADODatabase = kept;
  EXPECT_EQ(found, -1);
}

// ---- names the SQL cannot hold -----------------------------------------------------------------------

TEST_P(CQKTimberingTest, ANameWithADoubleQuoteFailsWithoutHarm) {
  Seed(kBrickRow);
  CQKTimbering t = Named(L"x\"; drop table Timbering; --", 1);
  t.SetID(1);

  EXPECT_EQ(t.IsExist(&db), DBS_ERROR);
  EXPECT_EQ(t.AddIfNotExist(&db, 0), DBS_ERROR);
  EXPECT_EQ(t.UpdateIfNoOther(&db, 0), DBS_ERROR);
  EXPECT_EQ(CQKTimbering::HasTimbering(t.GetStuffName(), &db), -1);

  EXPECT_EQ(Query("select count(*) from Timbering"), "1");
  EXPECT_EQ(Query("select Name from Timbering"), "重砂浆黏土砖砌体");
  EXPECT_TRUE(messages.empty());
}

TEST_P(CQKTimberingTest, ANameWithASingleQuoteIsOnlyAName) {
  CQKTimbering t = Named(L"O'Neil 板", 1);

  EXPECT_EQ(t.AddIfNotExist(&db, 0), DBS_ADDED);

  EXPECT_EQ(CQKTimbering::HasTimbering(L"O'Neil 板", &db), 1);
  EXPECT_EQ(Query("select Name from Timbering"), "O'Neil 板");
}

TEST_P(CQKTimberingTest, UpdateTimberingTableDataLeavesBothDatabases) {
  Seed(kBrickRow);

  CQKTimbering::UpdateTimberingTableData(&db, &db);

  EXPECT_EQ(Query("select count(*) from Timbering"), "1");
  EXPECT_EQ(Query("select GMD from Timbering"), "1800.0");
}

QK_ON_BOTH_BACKENDS(CQKTimberingTest);
