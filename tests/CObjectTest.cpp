// CObject and CRuntimeClass: run-time class information, IsKindOf and creation by class name.

#include <gtest/gtest.h>

#include <memory>

#include "mfc/CObject.h"

namespace {

// A small hierarchy of its own, with names no library class uses, so the registry lookups below
// can only find these records.
class CObjectTestShape : public CObject {
  DECLARE_DYNCREATE(CObjectTestShape)
 public:
  virtual int Sides() const { return 0; }
};

class CObjectTestSquare : public CObjectTestShape {
  DECLARE_DYNCREATE(CObjectTestSquare)
 public:
  int Sides() const override { return 4; }
};

// Type test only: without DYNCREATE there is no creation by name.
class CObjectTestDynamicOnly : public CObject {
  DECLARE_DYNAMIC(CObjectTestDynamicOnly)
};

class CObjectTestUnrelated : public CObject {
  DECLARE_DYNCREATE(CObjectTestUnrelated)
};

// Declares nothing: it reports the run-time class of CObjectTestSquare.
class CObjectTestPlainSquare : public CObjectTestSquare {};

IMPLEMENT_DYNCREATE(CObjectTestShape, CObject)
IMPLEMENT_DYNCREATE(CObjectTestSquare, CObjectTestShape)
IMPLEMENT_DYNAMIC(CObjectTestDynamicOnly, CObject)
IMPLEMENT_DYNCREATE(CObjectTestUnrelated, CObject)

}  // namespace

// --- run-time class of an object ------------------------------------------------------------------

TEST(CObject, GetRuntimeClassGivesClassName) {
  CObjectTestSquare square;
  CObjectTestShape shape;

  const CObject& asSquare = square;
  const CObject& asShape = shape;

  EXPECT_STREQ(asSquare.GetRuntimeClass()->m_lpszClassName, "CObjectTestSquare");
  EXPECT_STREQ(asShape.GetRuntimeClass()->m_lpszClassName, "CObjectTestShape");
}

TEST(CObject, RuntimeClassRecordsSizeAndBase) {
  const CRuntimeClass* square = RUNTIME_CLASS(CObjectTestSquare);

  EXPECT_EQ(square->m_nObjectSize, static_cast<int>(sizeof(CObjectTestSquare)));
  EXPECT_EQ(square->m_pBaseClass, RUNTIME_CLASS(CObjectTestShape));
  EXPECT_EQ(RUNTIME_CLASS(CObjectTestShape)->m_pBaseClass, RUNTIME_CLASS(CObject));
}

TEST(CObject, RuntimeClassNamesTheClassRecord) {
  EXPECT_EQ(RUNTIME_CLASS(CObjectTestSquare), &CObjectTestSquare::classCObjectTestSquare);
  EXPECT_EQ(RUNTIME_CLASS(CObjectTestDynamicOnly), &CObjectTestDynamicOnly::classCObjectTestDynamicOnly);
  EXPECT_EQ(RUNTIME_CLASS(CObject), &CObject::classCObject);
  EXPECT_NE(RUNTIME_CLASS(CObjectTestSquare), RUNTIME_CLASS(CObjectTestShape));
}

TEST(CObject, GetRuntimeClassMatchesRuntimeClassMacro) {
  CObjectTestSquare square;

  const CObject& object = square;

  EXPECT_EQ(object.GetRuntimeClass(), RUNTIME_CLASS(CObjectTestSquare));
}

TEST(CObject, DynamicOnlyObjectKnowsItsClass) {
  CObjectTestDynamicOnly dynamicOnly;

  const CObject& object = dynamicOnly;

  EXPECT_STREQ(object.GetRuntimeClass()->m_lpszClassName, "CObjectTestDynamicOnly");
  EXPECT_TRUE(object.IsKindOf(RUNTIME_CLASS(CObject)));
  EXPECT_FALSE(object.IsKindOf(RUNTIME_CLASS(CObjectTestShape)));
}

TEST(CObject, ClassWithoutDeclarationReportsNearestDeclaringBase) {
  CObjectTestPlainSquare plain;

  const CObject& object = plain;

  EXPECT_EQ(object.GetRuntimeClass(), RUNTIME_CLASS(CObjectTestSquare));
}

// --- IsKindOf -------------------------------------------------------------------------------------

TEST(CObject, IsKindOfOwnClassAndEveryBase) {
  CObjectTestSquare square;

  EXPECT_TRUE(square.IsKindOf(RUNTIME_CLASS(CObjectTestSquare)));
  EXPECT_TRUE(square.IsKindOf(RUNTIME_CLASS(CObjectTestShape)));
  EXPECT_TRUE(square.IsKindOf(RUNTIME_CLASS(CObject)));
}

TEST(CObject, BaseObjectIsNotKindOfDerivedClass) {
  CObjectTestShape shape;

  EXPECT_TRUE(shape.IsKindOf(RUNTIME_CLASS(CObjectTestShape)));
  EXPECT_FALSE(shape.IsKindOf(RUNTIME_CLASS(CObjectTestSquare)));
}

TEST(CObject, IsNotKindOfUnrelatedClass) {
  CObjectTestSquare square;
  CObjectTestUnrelated unrelated;

  EXPECT_FALSE(square.IsKindOf(RUNTIME_CLASS(CObjectTestUnrelated)));
  EXPECT_FALSE(square.IsKindOf(RUNTIME_CLASS(CObjectTestDynamicOnly)));
  EXPECT_FALSE(unrelated.IsKindOf(RUNTIME_CLASS(CObjectTestShape)));
}

TEST(CRuntimeClass, IsDerivedFromFollowsBaseChain) {
  const CRuntimeClass* square = RUNTIME_CLASS(CObjectTestSquare);

  EXPECT_TRUE(square->IsDerivedFrom(square));
  EXPECT_TRUE(square->IsDerivedFrom(RUNTIME_CLASS(CObjectTestShape)));
  EXPECT_TRUE(square->IsDerivedFrom(RUNTIME_CLASS(CObject)));
  EXPECT_FALSE(RUNTIME_CLASS(CObjectTestShape)->IsDerivedFrom(square));
  EXPECT_FALSE(square->IsDerivedFrom(RUNTIME_CLASS(CObjectTestUnrelated)));
}

// --- lookup by name -------------------------------------------------------------------------------

TEST(CRuntimeClass, FromNameFindsRegisteredClass) {
  const CRuntimeClass* found = CRuntimeClass::FromName("CObjectTestSquare");

  EXPECT_EQ(found, RUNTIME_CLASS(CObjectTestSquare));
}

TEST(CRuntimeClass, FromNameWideFindsRegisteredClass) {
  const CRuntimeClass* found = CRuntimeClass::FromName(L"CObjectTestShape");

  EXPECT_EQ(found, RUNTIME_CLASS(CObjectTestShape));
}

TEST(CRuntimeClass, FromNameFindsDynamicOnlyClass) {
  // Registered for the type test even though it cannot be created by name.
  const CRuntimeClass* found = CRuntimeClass::FromName("CObjectTestDynamicOnly");

  EXPECT_EQ(found, RUNTIME_CLASS(CObjectTestDynamicOnly));
}

TEST(CRuntimeClass, FromNameFindsCObject) {
  const CRuntimeClass* found = CRuntimeClass::FromName("CObject");

  EXPECT_EQ(found, RUNTIME_CLASS(CObject));
}

TEST(CRuntimeClass, FromNameReturnsNullForUnknownName) {
  EXPECT_EQ(CRuntimeClass::FromName("CObjectTestNoSuchClass"), nullptr);
  EXPECT_EQ(CRuntimeClass::FromName(L"CObjectTestNoSuchClass"), nullptr);
  EXPECT_EQ(CRuntimeClass::FromName(""), nullptr);
  EXPECT_EQ(CRuntimeClass::FromName(L"城市"), nullptr);
}

TEST(CRuntimeClass, FromNameIsCaseSensitive) {
  EXPECT_EQ(CRuntimeClass::FromName("cobjecttestsquare"), nullptr);
  EXPECT_EQ(CRuntimeClass::FromName(L"COBJECTTESTSQUARE"), nullptr);
}

// --- creation by name -----------------------------------------------------------------------------

TEST(CRuntimeClass, CreateObjectByNameMakesTheNamedDynamicType) {
  std::unique_ptr<CObject> object(CRuntimeClass::CreateObject("CObjectTestSquare"));

  ASSERT_NE(object, nullptr);
  EXPECT_EQ(object->GetRuntimeClass(), RUNTIME_CLASS(CObjectTestSquare));
  auto* square = dynamic_cast<CObjectTestSquare*>(object.get());
  ASSERT_NE(square, nullptr);
  EXPECT_EQ(square->Sides(), 4);
}

TEST(CRuntimeClass, CreateObjectByWideNameMakesTheNamedDynamicType) {
  std::unique_ptr<CObject> object(CRuntimeClass::CreateObject(L"CObjectTestShape"));

  ASSERT_NE(object, nullptr);
  EXPECT_EQ(object->GetRuntimeClass(), RUNTIME_CLASS(CObjectTestShape));
  auto* shape = dynamic_cast<CObjectTestShape*>(object.get());
  ASSERT_NE(shape, nullptr);
  EXPECT_EQ(shape->Sides(), 0);  // a shape, not a square
  EXPECT_EQ(dynamic_cast<CObjectTestSquare*>(object.get()), nullptr);
}

TEST(CRuntimeClass, CreateObjectOfRecordMakesNewObjectEachCall) {
  const CRuntimeClass* cls = RUNTIME_CLASS(CObjectTestUnrelated);

  std::unique_ptr<CObject> first(cls->CreateObject());
  std::unique_ptr<CObject> second(cls->CreateObject());

  ASSERT_NE(first, nullptr);
  ASSERT_NE(second, nullptr);
  EXPECT_NE(first.get(), second.get());
  EXPECT_TRUE(first->IsKindOf(RUNTIME_CLASS(CObjectTestUnrelated)));
}

TEST(CRuntimeClass, CreateObjectReturnsNullForDynamicOnlyClass) {
  std::unique_ptr<CObject> byName(CRuntimeClass::CreateObject("CObjectTestDynamicOnly"));
  std::unique_ptr<CObject> byWideName(CRuntimeClass::CreateObject(L"CObjectTestDynamicOnly"));
  std::unique_ptr<CObject> byRecord(RUNTIME_CLASS(CObjectTestDynamicOnly)->CreateObject());

  EXPECT_EQ(byName, nullptr);
  EXPECT_EQ(byWideName, nullptr);
  EXPECT_EQ(byRecord, nullptr);
  EXPECT_TRUE(RUNTIME_CLASS(CObjectTestDynamicOnly)->m_pfnCreateObject == nullptr);
}

TEST(CRuntimeClass, CreateObjectReturnsNullForUnknownName) {
  std::unique_ptr<CObject> narrow(CRuntimeClass::CreateObject("CObjectTestNoSuchClass"));
  std::unique_ptr<CObject> wide(CRuntimeClass::CreateObject(L"CObjectTestNoSuchClass"));

  EXPECT_EQ(narrow, nullptr);
  EXPECT_EQ(wide, nullptr);
}
