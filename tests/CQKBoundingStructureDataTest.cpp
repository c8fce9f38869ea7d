// The layer build-up of an envelope code as a value: the three comma-separated texts (construction
// IDs, thicknesses in mm, conductivity correction factors), the arrays MakeArray derives from them by
// reading the constructions, the ordered stream (fields, then each layer without element counts, then
// strExtra), the named items, Init and copying.

#include <gtest/gtest.h>

#include <string>

#include "EnvelopeFixture.h"
#include "construction/CQKTimbering.h"
#include "datakit/CADataExchange.h"
#include "datakit/CADataStream.h"
#include "datakit/CAMemoryDataProp.h"
#include "envelope/CQKBoundingStructureData.h"
#include "envelope/CQKMateralData.h"

namespace {

CQKMateralData Material(long id, const wchar_t* name, double conductivity) {
  CQKMateralData m;
  m.SetStuffID(id);
  m.SetStuffName(name);
  m.SetDrXs(conductivity);
  return m;
}

// A brick wall with 20 mm of plaster on both faces, texts and arrays both filled, every field away
// from its default.
CQKBoundingStructureData PlasteredBrickWall() {
  CQKBoundingStructureData s;
  s.Id = 7;
  s.BSCId = 3;
  s.TIdS = L"12,7,40";
  s.HouDuS = L"20,240,20";
  s.XzXsS = L"1,1.25,1";
  s.HaveDemoBMP = 1;
  s.arrMaterial.Add(Material(12, L"石灰砂浆", 0.81));
  s.arrMaterial.Add(Material(7, L"重砂浆黏土砖砌体", 0.81));
  s.arrMaterial.Add(Material(40, L"水泥砂浆", 0.93));
  s.arrHouDu.Add(20.0);
  s.arrHouDu.Add(240.0);
  s.arrHouDu.Add(20.0);
  s.arrXzXs.Add(1.0);
  s.arrXzXs.Add(1.25);
  s.arrXzXs.Add(1.0);
  s.strExtra = L"附注";
  return s;
}

// Reads the six leading fields of a bounding-structure stream and checks them against
// PlasteredBrickWall.
void ExpectPlasteredBrickWallFields(CADataStream& stream) {
  long id = 0, code = 0;
  CString ids, thicknesses, factors;
  int picture = 0;
  ASSERT_EQ(stream.ReadItem(&id), 0);
  ASSERT_EQ(stream.ReadItem(&code), 0);
  ASSERT_EQ(stream.ReadItem(&ids), 0);
  ASSERT_EQ(stream.ReadItem(&thicknesses), 0);
  ASSERT_EQ(stream.ReadItem(&factors), 0);
  ASSERT_EQ(stream.ReadItem(&picture), 0);
  EXPECT_EQ(id, 7);
  EXPECT_EQ(code, 3);
  EXPECT_EQ(ids, L"12,7,40");
  EXPECT_EQ(thicknesses, L"20,240,20");
  EXPECT_EQ(factors, L"1,1.25,1");
  EXPECT_EQ(picture, 1);
}

// Three constructions in the construction table: 5 cement mortar, 7 clay brick, 12 rock wool.
class CQKBoundingStructureDataTest : public EnvelopeFixture {
 protected:
  void SetUp() override {
    EnvelopeFixture::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    Seed("INSERT INTO Timbering (ID, TTId, Name, GMD, DrXs, BRr, SolAbs) VALUES"
         " (5, 1, '水泥砂浆', 1800, 0.93, 1.05, 0.65),"
         " (7, 1, '黏土砖', 1800, 0.81, 1.05, 0.7),"
         " (12, 2, '岩棉板', 100, 0.041, 1.22, 0.5);");
  }

  static CQKBoundingStructureData Layers(const wchar_t* ids, const wchar_t* thicknesses, const wchar_t* factors) {
    CQKBoundingStructureData s;
    s.TIdS = ids;
    s.HouDuS = thicknesses;
    s.XzXsS = factors;
    return s;
  }
};

// A default material: what a layer without a stored construction starts from.
void ExpectDefaultMaterial(CQKMateralData& m) {
  EXPECT_EQ(m.GetStuffID(), 0);
  EXPECT_EQ(m.GetStuffName(), L"");
  EXPECT_EQ(m.GetDrXs(), 0.0);
  EXPECT_EQ(m.GetGMD(), 0.0);
  EXPECT_EQ(m.GetSolAbs(), 0.8);
}

}  // namespace

// ---- defaults, Init, copying ----------------------------------------------------------------------

TEST(CQKBoundingStructureData, DefaultsAreZeroEmptyTextsAndNoLayers) {
  CQKBoundingStructureData s;
  EXPECT_EQ(s.Id, 0);
  EXPECT_EQ(s.BSCId, 0);
  EXPECT_EQ(s.TIdS, L"");
  EXPECT_EQ(s.HouDuS, L"");
  EXPECT_EQ(s.XzXsS, L"");
  EXPECT_EQ(s.HaveDemoBMP, 0);
  EXPECT_EQ(s.arrMaterial.GetSize(), 0);
  EXPECT_EQ(s.arrHouDu.GetSize(), 0);
  EXPECT_EQ(s.arrXzXs.GetSize(), 0);
  EXPECT_EQ(s.strExtra, L"");
}

TEST(CQKBoundingStructureData, InitResetsTheFieldsAndEmptiesTheArrays) {
  CQKBoundingStructureData s = PlasteredBrickWall();
  s.Init();
  EXPECT_EQ(s.Id, 0);
  EXPECT_EQ(s.BSCId, 0);
  EXPECT_EQ(s.TIdS, L"");
  EXPECT_EQ(s.HouDuS, L"");
  EXPECT_EQ(s.XzXsS, L"");
  EXPECT_EQ(s.HaveDemoBMP, 0);
  EXPECT_EQ(s.arrMaterial.GetSize(), 0);
  EXPECT_EQ(s.arrHouDu.GetSize(), 0);
  EXPECT_EQ(s.arrXzXs.GetSize(), 0);
}

TEST(CQKBoundingStructureData, InitLeavesTheExtraText) {
  CQKBoundingStructureData s = PlasteredBrickWall();
  s.Init();
  EXPECT_EQ(s.strExtra, L"附注");
}

TEST(CQKBoundingStructureData, CopyConstructionCopiesFieldsArraysAndExtraText) {
  const CQKBoundingStructureData source = PlasteredBrickWall();
  CQKBoundingStructureData copy(source);
  EXPECT_EQ(copy.Id, 7);
  EXPECT_EQ(copy.BSCId, 3);
  EXPECT_EQ(copy.TIdS, L"12,7,40");
  EXPECT_EQ(copy.HouDuS, L"20,240,20");
  EXPECT_EQ(copy.XzXsS, L"1,1.25,1");
  EXPECT_EQ(copy.HaveDemoBMP, 1);
  ASSERT_EQ(copy.arrMaterial.GetSize(), 3);
  EXPECT_EQ(copy.arrMaterial[1].GetStuffID(), 7);
  EXPECT_EQ(copy.arrMaterial[2].GetStuffName(), L"水泥砂浆");
  ASSERT_EQ(copy.arrHouDu.GetSize(), 3);
  EXPECT_EQ(copy.arrHouDu[1], 240.0);
  ASSERT_EQ(copy.arrXzXs.GetSize(), 3);
  EXPECT_EQ(copy.arrXzXs[1], 1.25);
  EXPECT_EQ(copy.strExtra, L"附注");
}

TEST(CQKBoundingStructureData, AssignmentReplacesFieldsArraysAndExtraText) {
  CQKBoundingStructureData target;
  target.arrHouDu.Add(99.0);  // replaced, not appended to
  target.strExtra = L"旧";
  target = PlasteredBrickWall();
  EXPECT_EQ(target.Id, 7);
  EXPECT_EQ(target.TIdS, L"12,7,40");
  ASSERT_EQ(target.arrMaterial.GetSize(), 3);
  EXPECT_EQ(target.arrMaterial[0].GetStuffID(), 12);
  ASSERT_EQ(target.arrHouDu.GetSize(), 3);
  EXPECT_EQ(target.arrHouDu[0], 20.0);
  ASSERT_EQ(target.arrXzXs.GetSize(), 3);
  EXPECT_EQ(target.strExtra, L"附注");
}

// ---- the ordered stream ---------------------------------------------------------------------------

TEST(CQKBoundingStructureData, StreamHoldsTheFieldsThenEachLayerThenTheExtraText) {
  CQKBoundingStructureData s = PlasteredBrickWall();
  CADataStream stream;
  ASSERT_EQ(s.DataOutPut(stream), ADataDef::AD_OK);

  ExpectPlasteredBrickWallFields(stream);
  const long ids[] = {12, 7, 40};
  const wchar_t* names[] = {L"石灰砂浆", L"重砂浆黏土砖砌体", L"水泥砂浆"};
  for (int i = 0; i < 3; ++i) {
    CQKMateralData m;
    ASSERT_EQ(m.DataInPut(stream), ADataDef::AD_OK) << "layer " << i;
    EXPECT_EQ(m.GetStuffID(), ids[i]);
    EXPECT_EQ(m.GetStuffName(), names[i]);
  }
  const double thicknesses[] = {20.0, 240.0, 20.0};
  for (double expected : thicknesses) {
    double value = 0.0;
    ASSERT_EQ(stream.ReadItem(&value), 0);
    EXPECT_EQ(value, expected);
  }
  const double factors[] = {1.0, 1.25, 1.0};
  for (double expected : factors) {
    double value = 0.0;
    ASSERT_EQ(stream.ReadItem(&value), 0);
    EXPECT_EQ(value, expected);
  }
  CString extra;
  ASSERT_EQ(stream.ReadItem(&extra), 0);
  EXPECT_EQ(extra, L"附注");
  EXPECT_EQ(stream.GetRemaining(), 0u);
}

TEST(CQKBoundingStructureData, NoLayerCountPrecedesTheMaterials) {
  // Three layers: a count would read 3; the first item is the first material's format version, 2.
  CQKBoundingStructureData s = PlasteredBrickWall();
  CADataStream stream;
  s.DataOutPut(stream);
  ExpectPlasteredBrickWallFields(stream);
  int next = 0;
  ASSERT_EQ(stream.ReadItem(&next), 0);
  EXPECT_EQ(next, 2);
}

TEST(CQKBoundingStructureData, ThicknessesFollowTheFieldsWithoutACount) {
  CQKBoundingStructureData s;
  s.arrHouDu.Add(20.0);
  s.arrHouDu.Add(240.0);
  s.strExtra = L"x";
  CADataStream stream;
  s.DataOutPut(stream);
  // Id, BSCId (4 bytes each), three empty texts (a 4-byte count each), HaveDemoBMP (4 bytes).
  ASSERT_TRUE(stream.Seek(4 + 4 + 3 * 4 + 4));
  double first = 0.0, second = 0.0;
  ASSERT_EQ(stream.ReadItem(&first), 0);
  ASSERT_EQ(stream.ReadItem(&second), 0);
  EXPECT_EQ(first, 20.0);
  EXPECT_EQ(second, 240.0);
  CString extra;
  ASSERT_EQ(stream.ReadItem(&extra), 0);
  EXPECT_EQ(extra, L"x");
  EXPECT_EQ(stream.GetRemaining(), 0u);
}

TEST(CQKBoundingStructureData, WithoutLayersTheExtraTextFollowsThePictureFlag) {
  CQKBoundingStructureData s;
  s.HaveDemoBMP = 1;
  s.strExtra = L"附注";
  CADataStream stream;
  s.DataOutPut(stream);
  // 4 + 4 + three empty texts + 4, then the text: a 4-byte count and two units.
  EXPECT_EQ(stream.GetSize(), 4u + 4u + 3u * 4u + 4u + 4u + 2u * 2u);
  CQKBoundingStructureData in;
  ASSERT_EQ(in.DataInPut(stream), ADataDef::AD_OK);
  EXPECT_EQ(in.HaveDemoBMP, 1);
  EXPECT_EQ(in.strExtra, L"附注");
}

TEST(CQKBoundingStructureData, AFreshReaderRestoresTheFieldsButNoLayers) {
  CADataStream stream;
  PlasteredBrickWall().DataOutPut(stream);
  CQKBoundingStructureData in;
  ASSERT_EQ(in.DataInPut(stream), ADataDef::AD_OK);
  EXPECT_EQ(in.Id, 7);
  EXPECT_EQ(in.BSCId, 3);
  EXPECT_EQ(in.TIdS, L"12,7,40");
  EXPECT_EQ(in.HouDuS, L"20,240,20");
  EXPECT_EQ(in.XzXsS, L"1,1.25,1");
  EXPECT_EQ(in.HaveDemoBMP, 1);
  EXPECT_EQ(in.arrMaterial.GetSize(), 0);
  EXPECT_EQ(in.arrHouDu.GetSize(), 0);
  EXPECT_EQ(in.arrXzXs.GetSize(), 0);
  EXPECT_GT(stream.GetRemaining(), 0u);  // the layers and the real extra text are left unread
}

TEST(CQKBoundingStructureData, AFreshReaderTakesTheFirstMaterialsHeadAsTheExtraText) {
  // The reader expects the extra text where the first material begins: its format version (2) is
  // taken as a count of two UTF-16 units, and those are the four bytes of the material's ID. An ID
  // of 0x00420041 holds, little-endian, the units 'A' and 'B'.
  CQKBoundingStructureData out = PlasteredBrickWall();
  out.arrMaterial[0].SetStuffID(0x00420041);
  CADataStream stream;
  out.DataOutPut(stream);
  CQKBoundingStructureData in;
  in.strExtra = L"读者自己的";
  in.DataInPut(stream);
  EXPECT_EQ(in.strExtra, L"AB");
}

TEST(CQKBoundingStructureData, AReaderWhoseArraysHoldThreeElementsRestoresEverything) {
  CADataStream stream;
  PlasteredBrickWall().DataOutPut(stream);
  CQKBoundingStructureData in;
  in.arrMaterial.SetSize(3);
  in.arrHouDu.SetSize(3);
  in.arrXzXs.SetSize(3);
  ASSERT_EQ(in.DataInPut(stream), ADataDef::AD_OK);
  ASSERT_EQ(in.arrMaterial.GetSize(), 3);
  EXPECT_EQ(in.arrMaterial[0].GetStuffID(), 12);
  EXPECT_EQ(in.arrMaterial[1].GetStuffName(), L"重砂浆黏土砖砌体");
  EXPECT_EQ(in.arrMaterial[2].GetDrXs(), 0.93);
  ASSERT_EQ(in.arrHouDu.GetSize(), 3);
  EXPECT_EQ(in.arrHouDu[0], 20.0);
  EXPECT_EQ(in.arrHouDu[1], 240.0);
  EXPECT_EQ(in.arrHouDu[2], 20.0);
  ASSERT_EQ(in.arrXzXs.GetSize(), 3);
  EXPECT_EQ(in.arrXzXs[1], 1.25);
  EXPECT_EQ(in.strExtra, L"附注");
  EXPECT_EQ(stream.GetRemaining(), 0u);
}

TEST(CQKBoundingStructureData, ReadingNeverResizesTheArrays) {
  // A reader with room for one layer reads one material, one thickness and one factor, whatever the
  // stream holds after the first material: no count tells it otherwise.
  CADataStream stream;
  PlasteredBrickWall().DataOutPut(stream);
  CQKBoundingStructureData in;
  in.arrMaterial.SetSize(1);
  in.arrHouDu.SetSize(1);
  in.arrXzXs.SetSize(1);
  in.DataInPut(stream);
  EXPECT_EQ(in.arrMaterial.GetSize(), 1);
  EXPECT_EQ(in.arrMaterial[0].GetStuffID(), 12);
  EXPECT_EQ(in.arrHouDu.GetSize(), 1);
  EXPECT_EQ(in.arrXzXs.GetSize(), 1);
}

// ---- the named items ------------------------------------------------------------------------------

TEST(CQKBoundingStructureData, ExchangeCarriesTheFiveStoredFieldsInOrder) {
  CQKBoundingStructureData s = PlasteredBrickWall();
  CAMemoryDataProp items;
  ASSERT_EQ(s.DataOutPro(CADataExchange(items)), ADataDef::AD_OK);
  ASSERT_EQ(items.GetCount(), 5);
  EXPECT_EQ(items.GetName(0), L"BSCId");
  EXPECT_EQ(items.GetName(1), L"TIdS");
  EXPECT_EQ(items.GetName(2), L"HouDuS");
  EXPECT_EQ(items.GetName(3), L"XzXsS");
  EXPECT_EQ(items.GetName(4), L"HaveDemoBMP");
  long code = 0;
  ASSERT_EQ(items.readInt32(L"BSCId", &code), 0);
  EXPECT_EQ(code, 3);
}

TEST(CQKBoundingStructureData, ExchangeReadTakesTheFieldsButBuildsNoLayers) {
  CAMemoryDataProp items;
  items.writeInt32(L"BSCId", 4);
  items.writeString(L"TIdS", L"5,7");
  items.writeString(L"HouDuS", L"20,240");
  items.writeString(L"XzXsS", L"1,1");
  items.writeInt(L"HaveDemoBMP", 1);
  items.writeInt32(L"Id", 9);  // the key is the table's: not a named item
  CQKBoundingStructureData s;
  ASSERT_EQ(s.DataInPro(CADataExchange(items)), ADataDef::AD_OK);
  EXPECT_EQ(s.BSCId, 4);
  EXPECT_EQ(s.TIdS, L"5,7");
  EXPECT_EQ(s.HouDuS, L"20,240");
  EXPECT_EQ(s.XzXsS, L"1,1");
  EXPECT_EQ(s.HaveDemoBMP, 1);
  EXPECT_EQ(s.Id, 0);
  EXPECT_EQ(s.arrMaterial.GetSize(), 0);
  EXPECT_EQ(s.arrHouDu.GetSize(), 0);
}

// ---- MakeArray ------------------------------------------------------------------------------------

TEST_P(CQKBoundingStructureDataTest, EmptyTextsGiveEmptyArrays) {
  CQKBoundingStructureData s = PlasteredBrickWall();  // arrays filled by hand
  s.TIdS = L"";
  s.HouDuS = L"";
  s.XzXsS = L"";
  s.MakeArray();
  EXPECT_EQ(s.arrMaterial.GetSize(), 0);
  EXPECT_EQ(s.arrHouDu.GetSize(), 0);
  EXPECT_EQ(s.arrXzXs.GetSize(), 0);
}

TEST_P(CQKBoundingStructureDataTest, OneConstructionWithTwoThicknessesIsNotTrimmed) {
  CQKBoundingStructureData s = Layers(L"5", L"20,240", L"");
  s.MakeArray();
  ASSERT_EQ(s.arrMaterial.GetSize(), 1);
  EXPECT_EQ(s.arrMaterial[0].GetStuffID(), 5);
  EXPECT_EQ(s.arrMaterial[0].GetStuffName(), L"水泥砂浆");
  ASSERT_EQ(s.arrHouDu.GetSize(), 2);
  EXPECT_EQ(s.arrHouDu[0], 20.0);
  EXPECT_EQ(s.arrHouDu[1], 240.0);
  EXPECT_EQ(s.arrXzXs.GetSize(), 0);
}

TEST_P(CQKBoundingStructureDataTest, LayersKeepTheOrderOfTheTexts) {
  CQKBoundingStructureData s = Layers(L"12,7,5", L"50,240,20", L"1.2,1,1.05");
  s.MakeArray();
  ASSERT_EQ(s.arrMaterial.GetSize(), 3);
  EXPECT_EQ(s.arrMaterial[0].GetStuffName(), L"岩棉板");
  EXPECT_EQ(s.arrMaterial[0].GetDrXs(), 0.041);
  EXPECT_EQ(s.arrMaterial[0].GetGMD(), 100.0);
  EXPECT_EQ(s.arrMaterial[1].GetStuffName(), L"黏土砖");
  EXPECT_EQ(s.arrMaterial[1].GetSolAbs(), 0.7);
  EXPECT_EQ(s.arrMaterial[2].GetStuffID(), 5);
  EXPECT_EQ(s.arrMaterial[2].GetBRr(), 1.05);
  ASSERT_EQ(s.arrHouDu.GetSize(), 3);
  EXPECT_EQ(s.arrHouDu[0], 50.0);
  EXPECT_EQ(s.arrHouDu[1], 240.0);
  EXPECT_EQ(s.arrHouDu[2], 20.0);
  ASSERT_EQ(s.arrXzXs.GetSize(), 3);
  EXPECT_EQ(s.arrXzXs[0], 1.2);
  EXPECT_EQ(s.arrXzXs[1], 1.0);
  EXPECT_EQ(s.arrXzXs[2], 1.05);
}

TEST_P(CQKBoundingStructureDataTest, TheSameConstructionMayBeTwoLayers) {
  CQKBoundingStructureData s = Layers(L"5,7,5", L"", L"");
  s.MakeArray();
  ASSERT_EQ(s.arrMaterial.GetSize(), 3);
  EXPECT_EQ(s.arrMaterial[0].GetStuffID(), 5);
  EXPECT_EQ(s.arrMaterial[1].GetStuffID(), 7);
  EXPECT_EQ(s.arrMaterial[2].GetStuffID(), 5);
}

TEST_P(CQKBoundingStructureDataTest, AMissingConstructionRepeatsThePreviousLayer) {
  CQKBoundingStructureData s = Layers(L"12,99,5", L"50,240,20", L"1,1,1");
  s.MakeArray();
  ASSERT_EQ(s.arrMaterial.GetSize(), 3);
  EXPECT_EQ(s.arrMaterial[0].GetStuffID(), 12);
  EXPECT_EQ(s.arrMaterial[1].GetStuffID(), 12);
  EXPECT_EQ(s.arrMaterial[1].GetStuffName(), L"岩棉板");
  EXPECT_EQ(s.arrMaterial[1].GetDrXs(), 0.041);
  EXPECT_EQ(s.arrMaterial[2].GetStuffID(), 5);
}

TEST_P(CQKBoundingStructureDataTest, AMissingFirstConstructionIsTheDefaultMaterial) {
  CQKBoundingStructureData s = Layers(L"99,7", L"20,240", L"1,1");
  s.MakeArray();
  ASSERT_EQ(s.arrMaterial.GetSize(), 2);
  ExpectDefaultMaterial(s.arrMaterial[0]);
  EXPECT_EQ(s.arrMaterial[1].GetStuffID(), 7);
}

TEST_P(CQKBoundingStructureDataTest, WithoutAConstructionTableEveryLayerIsTheDefaultMaterial) {
  CQKTimbering::S_Init(path, L"NoSuchTable");
  CQKBoundingStructureData s = Layers(L"5,7", L"20,240", L"1,1");
  s.MakeArray();
  ASSERT_EQ(s.arrMaterial.GetSize(), 2);
  ExpectDefaultMaterial(s.arrMaterial[0]);
  ExpectDefaultMaterial(s.arrMaterial[1]);
  EXPECT_EQ(s.arrHouDu.GetSize(), 2);
}

TEST_P(CQKBoundingStructureDataTest, MakeArrayReplacesWhatTheArraysHeld) {
  CQKBoundingStructureData s = PlasteredBrickWall();  // three layers by hand
  s.TIdS = L"7";
  s.HouDuS = L"240";
  s.XzXsS = L"1.1";
  s.MakeArray();
  ASSERT_EQ(s.arrMaterial.GetSize(), 1);
  EXPECT_EQ(s.arrMaterial[0].GetStuffID(), 7);
  ASSERT_EQ(s.arrHouDu.GetSize(), 1);
  EXPECT_EQ(s.arrHouDu[0], 240.0);
  ASSERT_EQ(s.arrXzXs.GetSize(), 1);
  EXPECT_EQ(s.arrXzXs[0], 1.1);
}

TEST_P(CQKBoundingStructureDataTest, AConstructionIdReadsItsLeadingDigits) {
  // "7x" is construction 7, " 12" construction 12.
  CQKBoundingStructureData s = Layers(L"7x, 12", L"", L"");
  s.MakeArray();
  ASSERT_EQ(s.arrMaterial.GetSize(), 2);
  EXPECT_EQ(s.arrMaterial[0].GetStuffID(), 7);
  EXPECT_EQ(s.arrMaterial[1].GetStuffID(), 12);
}

TEST_P(CQKBoundingStructureDataTest, AConstructionIdWithoutDigitsIsZeroAndSoMissing) {
  // No construction has the key 0: the layer repeats the one before it.
  CQKBoundingStructureData s = Layers(L"5,abc", L"", L"");
  s.MakeArray();
  ASSERT_EQ(s.arrMaterial.GetSize(), 2);
  EXPECT_EQ(s.arrMaterial[1].GetStuffID(), 5);
  EXPECT_EQ(s.arrMaterial[1].GetStuffName(), L"水泥砂浆");
}

TEST_P(CQKBoundingStructureDataTest, MalformedThicknessesBecomeZero) {
  CQKBoundingStructureData s = Layers(L"", L"20,abc,3x, 7,2.5", L"");
  s.MakeArray();
  ASSERT_EQ(s.arrHouDu.GetSize(), 5);
  EXPECT_EQ(s.arrHouDu[0], 20.0);
  EXPECT_EQ(s.arrHouDu[1], 0.0);
  EXPECT_EQ(s.arrHouDu[2], 3.0);
  EXPECT_EQ(s.arrHouDu[3], 7.0);
  EXPECT_EQ(s.arrHouDu[4], 2.5);
}

TEST_P(CQKBoundingStructureDataTest, MalformedFactorsBecomeZero) {
  CQKBoundingStructureData s = Layers(L"", L"", L"1.25,x,.5");
  s.MakeArray();
  ASSERT_EQ(s.arrXzXs.GetSize(), 3);
  EXPECT_EQ(s.arrXzXs[0], 1.25);
  EXPECT_EQ(s.arrXzXs[1], 0.0);
  EXPECT_EQ(s.arrXzXs[2], 0.5);
}

TEST_P(CQKBoundingStructureDataTest, EmptyPiecesBetweenCommasAreDropped) {
  // A doubled comma adds no layer of zero thickness.
  CQKBoundingStructureData s = Layers(L"5,,7", L"20,,240,", L",1,1");
  s.MakeArray();
  EXPECT_EQ(s.arrMaterial.GetSize(), 2);
  ASSERT_EQ(s.arrHouDu.GetSize(), 2);
  EXPECT_EQ(s.arrHouDu[1], 240.0);
  EXPECT_EQ(s.arrXzXs.GetSize(), 2);
}

QK_ON_BOTH_BACKENDS(CQKBoundingStructureDataTest);
