// The catalogue layer: properties and material together. Its accessors (the InfraredEBack setter is
// spelled SetInfraredERBack), Init, the ordered stream (the properties' versioned stream, then the
// material's), an exchange without items of its own, copying and creation by class name.

#include <gtest/gtest.h>

#include <memory>

#include "construction/CQKStuTimeberingName.h"
#include "construction/CQKTimberingData.h"
#include "construction/tagQKTIMBERINGCHARACTER.h"
#include "datakit/ADataDef.h"
#include "datakit/CAData.h"
#include "datakit/CADataExchange.h"
#include "datakit/CADataStream.h"
#include "datakit/CAMemoryDataProp.h"
#include "foundation/QKLoad.h"
#include "mfc/CObject.h"
#include "mfc/CString.h"

namespace {

// A brick layer of a known material, every value differing from the defaults.
CQKTimberingData Brick() {
  CQKTimberingData b;
  b.SetThick(0.24);
  b.SetGMD(1800.0);
  b.SetDrXs(0.81);
  b.SetBRr(1.05);
  b.SetDrXsXz(1.1);
  b.SetRoughness(3);
  b.SetTheAbs(0.91);
  b.SetSolAbs(0.62);
  b.SetVisAbs(0.63);
  b.SetSolarT(0.11);
  b.SetSolarRFront(0.12);
  b.SetSolarRBack(0.13);
  b.SetVisibleT(0.14);
  b.SetVisibleRFront(0.15);
  b.SetVisibleRBack(0.16);
  b.SetInfraredT(0.17);
  b.SetInfraredEFront(0.18);
  b.SetInfraredERBack(0.19);
  b.SetStuffID(12);
  b.SetStuffName(L"重砂浆黏土砖砌体");
  return b;
}

}  // namespace

// ---- identity and whole parts ---------------------------------------------------------------------

TEST(CQKTimberingData, SetStuffIdIsReadByGetStuffId) {
  CQKTimberingData d;

  d.SetStuffID(12);

  EXPECT_EQ(d.GetStuffID(), 12);
}

TEST(CQKTimberingData, SetStuffNameIsReadByGetStuffName) {
  CQKTimberingData d;

  d.SetStuffName(L"岩棉板");

  EXPECT_EQ(d.GetStuffName(), L"岩棉板");
}

TEST(CQKTimberingData, SetStuffIdAndNameFillTheNameStruct) {
  CQKTimberingData d;
  d.SetStuffID(5);
  d.SetStuffName(L"岩棉板");

  const CQKStuTimeberingName name = d.GetTimberNameStruct();

  EXPECT_EQ(name.TimberingID, 5);
  EXPECT_EQ(name.TimberingName, L"岩棉板");
}

TEST(CQKTimberingData, SetTimberNameStructIsReadByIdAndName) {
  CQKTimberingData d;
  CQKStuTimeberingName name;
  name.TimberingID = 8;
  name.TimberingName = L"石灰砂浆";

  d.SetTimberNameStruct(name);

  EXPECT_EQ(d.GetStuffID(), 8);
  EXPECT_EQ(d.GetStuffName(), L"石灰砂浆");
}

TEST(CQKTimberingData, SetTimberDataIsReadByTheFieldGetters) {
  CQKTimberingData d;
  tagQKTIMBERINGCHARACTER t;
  t.Thick = 0.05;
  t.DrXs = 0.04;
  t.InfraredEBack = 0.5;

  d.SetTimberData(t);

  EXPECT_EQ(d.GetThick(), 0.05);
  EXPECT_EQ(d.GetDrXs(), 0.04);
  EXPECT_EQ(d.GetInfraredEBack(), 0.5);
}

TEST(CQKTimberingData, DensityCorrectionTravelsThroughTimberData) {
  // GMCXz has no accessor of its own.
  CQKTimberingData d;
  tagQKTIMBERINGCHARACTER t;
  t.GMCXz = 1.3;

  d.SetTimberData(t);

  EXPECT_EQ(d.GetTimberData().GMCXz, 1.3);
}

TEST(CQKTimberingData, FieldSettersAreSeenInGetTimberData) {
  CQKTimberingData d;
  d.SetThick(0.24);
  d.SetGMD(1800.0);

  const tagQKTIMBERINGCHARACTER t = d.GetTimberData();

  EXPECT_EQ(t.Thick, 0.24);
  EXPECT_EQ(t.GMD, 1800.0);
}

// ---- one getter per setter ------------------------------------------------------------------------

TEST(CQKTimberingData, SetThickIsReadByGetThick) {
  CQKTimberingData d;
  d.SetThick(0.37);
  EXPECT_EQ(d.GetThick(), 0.37);
}

TEST(CQKTimberingData, SetGMDIsReadByGetGMD) {
  CQKTimberingData d;
  d.SetGMD(2500.0);
  EXPECT_EQ(d.GetGMD(), 2500.0);
}

TEST(CQKTimberingData, SetDrXsIsReadByGetDrXs) {
  CQKTimberingData d;
  d.SetDrXs(1.74);
  EXPECT_EQ(d.GetDrXs(), 1.74);
}

TEST(CQKTimberingData, SetBRrIsReadByGetBRr) {
  CQKTimberingData d;
  d.SetBRr(0.92);
  EXPECT_EQ(d.GetBRr(), 0.92);
}

TEST(CQKTimberingData, SetDrXsXzIsReadByGetDrXsXz) {
  CQKTimberingData d;
  d.SetDrXsXz(1.2);
  EXPECT_EQ(d.GetDrXsXz(), 1.2);
}

TEST(CQKTimberingData, SetRoughnessIsReadByGetRoughness) {
  CQKTimberingData d;
  d.SetRoughness(4);
  EXPECT_EQ(d.GetRoughness(), 4);
}

TEST(CQKTimberingData, SetTheAbsIsReadByGetTheAbs) {
  CQKTimberingData d;
  d.SetTheAbs(0.45);
  EXPECT_EQ(d.GetTheAbs(), 0.45);
}

TEST(CQKTimberingData, SetSolAbsIsReadByGetSolAbs) {
  CQKTimberingData d;
  d.SetSolAbs(0.46);
  EXPECT_EQ(d.GetSolAbs(), 0.46);
}

TEST(CQKTimberingData, SetVisAbsIsReadByGetVisAbs) {
  CQKTimberingData d;
  d.SetVisAbs(0.47);
  EXPECT_EQ(d.GetVisAbs(), 0.47);
}

TEST(CQKTimberingData, SetSolarTIsReadByGetSolarT) {
  CQKTimberingData d;
  d.SetSolarT(0.48);
  EXPECT_EQ(d.GetSolarT(), 0.48);
}

TEST(CQKTimberingData, SetSolarRFrontIsReadByGetSolarRFront) {
  CQKTimberingData d;
  d.SetSolarRFront(0.049);
  EXPECT_EQ(d.GetSolarRFront(), 0.049);
}

TEST(CQKTimberingData, SetSolarRBackIsReadByGetSolarRBack) {
  CQKTimberingData d;
  d.SetSolarRBack(0.051);
  EXPECT_EQ(d.GetSolarRBack(), 0.051);
}

TEST(CQKTimberingData, SetVisibleTIsReadByGetVisibleT) {
  CQKTimberingData d;
  d.SetVisibleT(0.52);
  EXPECT_EQ(d.GetVisibleT(), 0.52);
}

TEST(CQKTimberingData, SetVisibleRFrontIsReadByGetVisibleRFront) {
  CQKTimberingData d;
  d.SetVisibleRFront(0.053);
  EXPECT_EQ(d.GetVisibleRFront(), 0.053);
}

TEST(CQKTimberingData, SetVisibleRBackIsReadByGetVisibleRBack) {
  CQKTimberingData d;
  d.SetVisibleRBack(0.054);
  EXPECT_EQ(d.GetVisibleRBack(), 0.054);
}

TEST(CQKTimberingData, SetInfraredTIsReadByGetInfraredT) {
  CQKTimberingData d;
  d.SetInfraredT(0.055);
  EXPECT_EQ(d.GetInfraredT(), 0.055);
}

TEST(CQKTimberingData, SetInfraredEFrontIsReadByGetInfraredEFront) {
  CQKTimberingData d;
  d.SetInfraredEFront(0.56);
  EXPECT_EQ(d.GetInfraredEFront(), 0.56);
}

TEST(CQKTimberingData, SetInfraredERBackChangesGetInfraredEBack) {
  CQKTimberingData d;

  d.SetInfraredERBack(0.5);

  EXPECT_EQ(d.GetInfraredEBack(), 0.5);
}

TEST(CQKTimberingData, SetInfraredERBackLeavesTheFrontEmissivity) {
  CQKTimberingData d;

  d.SetInfraredERBack(0.5);

  EXPECT_EQ(d.GetInfraredEFront(), 0.84);
}

// ---- setters accept anything ----------------------------------------------------------------------

TEST(CQKTimberingData, EverySetterReturnsOk) {
  CQKTimberingData d;

  EXPECT_EQ(d.SetTimberData(tagQKTIMBERINGCHARACTER()), QKLoad::ET_OK);
  EXPECT_EQ(d.SetTimberNameStruct(CQKStuTimeberingName()), QKLoad::ET_OK);
  EXPECT_EQ(d.SetStuffID(1), QKLoad::ET_OK);
  EXPECT_EQ(d.SetStuffName(L"x"), QKLoad::ET_OK);
  EXPECT_EQ(d.SetThick(1), QKLoad::ET_OK);
  EXPECT_EQ(d.SetGMD(1), QKLoad::ET_OK);
  EXPECT_EQ(d.SetDrXs(1), QKLoad::ET_OK);
  EXPECT_EQ(d.SetBRr(1), QKLoad::ET_OK);
  EXPECT_EQ(d.SetDrXsXz(1), QKLoad::ET_OK);
  EXPECT_EQ(d.SetRoughness(1), QKLoad::ET_OK);
  EXPECT_EQ(d.SetTheAbs(1), QKLoad::ET_OK);
  EXPECT_EQ(d.SetSolAbs(1), QKLoad::ET_OK);
  EXPECT_EQ(d.SetVisAbs(1), QKLoad::ET_OK);
  EXPECT_EQ(d.SetSolarT(1), QKLoad::ET_OK);
  EXPECT_EQ(d.SetSolarRFront(1), QKLoad::ET_OK);
  EXPECT_EQ(d.SetSolarRBack(1), QKLoad::ET_OK);
  EXPECT_EQ(d.SetVisibleT(1), QKLoad::ET_OK);
  EXPECT_EQ(d.SetVisibleRFront(1), QKLoad::ET_OK);
  EXPECT_EQ(d.SetVisibleRBack(1), QKLoad::ET_OK);
  EXPECT_EQ(d.SetInfraredT(1), QKLoad::ET_OK);
  EXPECT_EQ(d.SetInfraredEFront(1), QKLoad::ET_OK);
  EXPECT_EQ(d.SetInfraredERBack(1), QKLoad::ET_OK);
}

TEST(CQKTimberingData, SetThickStoresANegativeThickness) {
  CQKTimberingData d;

  const QKLoad::ErrorType rc = d.SetThick(-0.1);

  EXPECT_EQ(rc, QKLoad::ET_OK);
  EXPECT_EQ(d.GetThick(), -0.1);
}

TEST(CQKTimberingData, SetSolarTStoresATransmittanceAboveOne) {
  CQKTimberingData d;

  const QKLoad::ErrorType rc = d.SetSolarT(1.5);

  EXPECT_EQ(rc, QKLoad::ET_OK);
  EXPECT_EQ(d.GetSolarT(), 1.5);
}

TEST(CQKTimberingData, SetRoughnessStoresANegativeClass) {
  CQKTimberingData d;

  const QKLoad::ErrorType rc = d.SetRoughness(-7);

  EXPECT_EQ(rc, QKLoad::ET_OK);
  EXPECT_EQ(d.GetRoughness(), -7);
}

// ---- Init -----------------------------------------------------------------------------------------

TEST(CQKTimberingData, InitResetsTheLayerProperties) {
  CQKTimberingData d = Brick();

  d.Init();

  EXPECT_EQ(d.GetThick(), 0.0);
  EXPECT_EQ(d.GetGMD(), 0.0);
  EXPECT_EQ(d.GetDrXs(), 0.0);
  EXPECT_EQ(d.GetBRr(), 0.0);
  EXPECT_EQ(d.GetDrXsXz(), 1.0);
  EXPECT_EQ(d.GetRoughness(), 1);
  EXPECT_EQ(d.GetTheAbs(), 0.9);
  EXPECT_EQ(d.GetInfraredEBack(), 0.84);
}

TEST(CQKTimberingData, InitResetsTheMaterial) {
  CQKTimberingData d = Brick();

  d.Init();

  EXPECT_EQ(d.GetStuffID(), -1);
  EXPECT_TRUE(d.GetStuffName().IsEmpty());
}

// ---- ordered stream -------------------------------------------------------------------------------

TEST(CQKTimberingData, StreamIsTheLayerStreamThenTheMaterialStream) {
  CQKTimberingData out = Brick();
  CADataStream stream;

  out.DataOutPut(stream);

  int version = 0;
  ASSERT_EQ(stream.ReadItem(&version), 0);
  EXPECT_EQ(version, 2);
  double thick = 0.0;
  ASSERT_EQ(stream.ReadItem(&thick), 0);
  EXPECT_EQ(thick, 0.24);
  // the other 5 doubles, the roughness int and the 12 optical doubles of the layer
  ASSERT_TRUE(stream.Seek(stream.GetPosition() + 5 * 8 + 4 + 12 * 8));
  int id = 0;
  CString name;
  ASSERT_EQ(stream.ReadItem(&id), 0);
  ASSERT_EQ(stream.ReadItem(&name), 0);
  EXPECT_EQ(id, 12);
  EXPECT_EQ(name, L"重砂浆黏土砖砌体");
  EXPECT_EQ(stream.GetRemaining(), 0u);
}

TEST(CQKTimberingData, StreamRoundTripKeepsLayerAndMaterial) {
  CQKTimberingData out = Brick();
  CADataStream stream;
  out.DataOutPut(stream);
  CQKTimberingData in;

  const ADataDef::ErrorCode rc = in.DataInPut(stream);

  EXPECT_EQ(rc, ADataDef::AD_OK);
  EXPECT_EQ(in.GetThick(), 0.24);
  EXPECT_EQ(in.GetDrXs(), 0.81);
  EXPECT_EQ(in.GetRoughness(), 3);
  EXPECT_EQ(in.GetInfraredEBack(), 0.19);
  EXPECT_EQ(in.GetStuffID(), 12);
  EXPECT_EQ(in.GetStuffName(), L"重砂浆黏土砖砌体");
}

TEST(CQKTimberingData, StreamWithALayerOfVersionThreeIsRefusedWith23) {
  CADataStream stream;
  stream.WriteItem(3);  // the layer's version, newer than this library reads
  for (int i = 0; i < 6; ++i) stream.WriteItem(0.5);
  stream.WriteItem(1);
  for (int i = 0; i < 12; ++i) stream.WriteItem(0.5);
  stream.WriteItem(4);
  stream.WriteItem(CString(L"木材"));
  CQKTimberingData in;

  const ADataDef::ErrorCode rc = in.DataInPut(stream);

  EXPECT_EQ(rc, 23);
}

// ---- named exchange -------------------------------------------------------------------------------

TEST(CQKTimberingData, ExchangeWritesNoItems) {
  CQKTimberingData out = Brick();
  CAMemoryDataProp store;

  out.DataOutPro(CADataExchange(store));

  EXPECT_EQ(store.GetCount(), 0);
}

TEST(CQKTimberingData, ExchangeReadsNoLayerItems) {
  CAMemoryDataProp store;
  CADataExchange exchange(store);
  exchange.WriteItem(L"Thick", 0.5);
  exchange.WriteItem(L"TimberingID", 3);
  CQKTimberingData in = Brick();

  in.DataInPro(exchange);

  EXPECT_EQ(in.GetThick(), 0.24);
  EXPECT_EQ(in.GetStuffID(), 12);
}

// ---- copies and creation by name ------------------------------------------------------------------

TEST(CQKTimberingData, CopyTakesBothParts) {
  CQKTimberingData source = Brick();
  CQKTimberingData target;

  const ADataDef::ErrorCode rc = target.Copy(&source);

  EXPECT_EQ(rc, ADataDef::AD_OK);
  EXPECT_EQ(target.GetThick(), 0.24);
  EXPECT_EQ(target.GetInfraredEBack(), 0.19);
  EXPECT_EQ(target.GetStuffID(), 12);
  EXPECT_EQ(target.GetStuffName(), L"重砂浆黏土砖砌体");
}

TEST(CQKTimberingData, CloneIsATimberingDataWithBothParts) {
  CQKTimberingData source = Brick();

  std::unique_ptr<CAData> clone(source.Clone());

  auto* layer = dynamic_cast<CQKTimberingData*>(clone.get());
  ASSERT_NE(layer, nullptr);
  EXPECT_EQ(layer->GetDrXs(), 0.81);
  EXPECT_EQ(layer->GetStuffName(), L"重砂浆黏土砖砌体");
}

TEST(CQKTimberingData, IsCreatedByClassName) {
  std::unique_ptr<CObject> created(CRuntimeClass::CreateObject("CQKTimberingData"));

  auto* layer = dynamic_cast<CQKTimberingData*>(created.get());
  ASSERT_NE(layer, nullptr);
  EXPECT_EQ(layer->GetStuffID(), -1);
  EXPECT_EQ(layer->GetRoughness(), 1);
}

TEST(CQKTimberingData, CopyConstructedLayerIsIndependentOfItsSource) {
  CQKTimberingData source = Brick();
  CQKTimberingData copy(source);

  source.SetThick(0.5);
  source.SetStuffName(L"别的");

  EXPECT_EQ(copy.GetThick(), 0.24);
  EXPECT_EQ(copy.GetStuffName(), L"重砂浆黏土砖砌体");
}

TEST(CQKTimberingData, AssignedLayerIsIndependentOfItsSource) {
  CQKTimberingData source = Brick();
  CQKTimberingData copy;
  copy = source;

  source.SetDrXs(2.0);
  source.SetStuffID(99);

  EXPECT_EQ(copy.GetDrXs(), 0.81);
  EXPECT_EQ(copy.GetStuffID(), 12);
}

TEST(CQKTimberingData, CloneIsIndependentOfItsSource) {
  CQKTimberingData source = Brick();
  std::unique_ptr<CAData> clone(source.Clone());
  ASSERT_NE(clone, nullptr);

  source.SetThick(0.5);

  EXPECT_EQ(static_cast<CQKTimberingData*>(clone.get())->GetThick(), 0.24);
}
