// CAData: the serialisable value base. The value classes below stand for the library's own values:
// a declared class, a declared class derived from it, an unrelated declared class with the very same
// stream layout (so only the class check can refuse a copy between them), and two classes that
// declare no run-time class of their own.

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <memory>
#include <typeinfo>
#include <vector>

#include "datakit/ADataDef.h"
#include "datakit/CAData.h"
#include "datakit/CADataExchange.h"
#include "datakit/CADataStream.h"
#include "datakit/CAMemoryDataProp.h"
#include "datakit/CAObject.h"
#include "mfc/CObject.h"
#include "mfc/CString.h"

// A named namespace, not an anonymous one: the run-time class macros define functions that only
// the registry reaches, and the class names must be unique in it anyway.
namespace cadata_test {

using ADataDef::AD_INCOMPATIBLE;
using ADataDef::AD_OK;
using ADataDef::ErrorCode;
using Bytes = std::vector<std::uint8_t>;

// A survey mark: a label and a height in metres.
class CDataTestMark : public CAData {
  DECLARE_DYNCREATE(CDataTestMark)
 public:
  CString m_strLabel;
  double m_dHeight = 0.0;

  ErrorCode DataOutPut(CADataStream stream) override {
    ErrorCode rc = CAData::DataOutPut(stream);
    if (rc != AD_OK) return rc;
    stream.WriteItem(m_strLabel);
    stream.WriteItem(m_dHeight);
    return AD_OK;
  }
  ErrorCode DataInPut(CADataStream stream) override {
    ErrorCode rc = CAData::DataInPut(stream);
    if (rc != AD_OK) return rc;
    if (int r = stream.ReadItem(&m_strLabel)) return static_cast<ErrorCode>(r);
    if (int r = stream.ReadItem(&m_dHeight)) return static_cast<ErrorCode>(r);
    return AD_OK;
  }
  ErrorCode DataOutPro(CADataExchange exchange) override {
    ErrorCode rc = CAData::DataOutPro(exchange);
    if (rc != AD_OK) return rc;
    exchange.WriteItem(L"Label", m_strLabel);
    exchange.WriteItem(L"Height", m_dHeight);
    return AD_OK;
  }
  ErrorCode DataInPro(CADataExchange exchange) override {
    ErrorCode rc = CAData::DataInPro(exchange);
    if (rc != AD_OK) return rc;
    if (int r = exchange.ReadItem(L"Label", &m_strLabel)) return static_cast<ErrorCode>(r);
    if (int r = exchange.ReadItem(L"Height", &m_dHeight)) return static_cast<ErrorCode>(r);
    return AD_OK;
  }
};
IMPLEMENT_DYNCREATE(CDataTestMark, CAData)

// A mark on a building: the mark's items, then the number of floors.
class CDataTestTallMark : public CDataTestMark {
  DECLARE_DYNCREATE(CDataTestTallMark)
 public:
  int m_nFloors = 0;

  ErrorCode DataOutPut(CADataStream stream) override {
    ErrorCode rc = CDataTestMark::DataOutPut(stream);
    if (rc != AD_OK) return rc;
    stream.WriteItem(m_nFloors);
    return AD_OK;
  }
  ErrorCode DataInPut(CADataStream stream) override {
    ErrorCode rc = CDataTestMark::DataInPut(stream);
    if (rc != AD_OK) return rc;
    if (int r = stream.ReadItem(&m_nFloors)) return static_cast<ErrorCode>(r);
    return AD_OK;
  }
};
IMPLEMENT_DYNCREATE(CDataTestTallMark, CDataTestMark)

// Unrelated to the mark, yet its stream has the same layout (a string, then a double).
class CDataTestTag : public CAData {
  DECLARE_DYNCREATE(CDataTestTag)
 public:
  CString m_strText;
  double m_dWeight = 0.0;

  ErrorCode DataOutPut(CADataStream stream) override {
    stream.WriteItem(m_strText);
    stream.WriteItem(m_dWeight);
    return AD_OK;
  }
  ErrorCode DataInPut(CADataStream stream) override {
    if (int r = stream.ReadItem(&m_strText)) return static_cast<ErrorCode>(r);
    if (int r = stream.ReadItem(&m_dWeight)) return static_cast<ErrorCode>(r);
    return AD_OK;
  }
};
IMPLEMENT_DYNCREATE(CDataTestTag, CAData)

// Two classes that declare no run-time class: both report CAData's. Same stream layout again.
template <int Kind>
class CDataTestUndeclared : public CAData {
 public:
  CString m_strText;
  double m_dValue = 0.0;

  ErrorCode DataOutPut(CADataStream stream) override {
    stream.WriteItem(m_strText);
    stream.WriteItem(m_dValue);
    return AD_OK;
  }
  ErrorCode DataInPut(CADataStream stream) override {
    if (int r = stream.ReadItem(&m_strText)) return static_cast<ErrorCode>(r);
    if (int r = stream.ReadItem(&m_dValue)) return static_cast<ErrorCode>(r);
    return AD_OK;
  }
};
using CDataTestPlain = CDataTestUndeclared<1>;
using CDataTestPlainOther = CDataTestUndeclared<2>;

// A value with an optional block that only streams of version 4 and later carry.
class CDataTestVersioned : public CAData {
  DECLARE_DYNCREATE(CDataTestVersioned)
 public:
  int m_nBase = 0;
  double m_dExtra = 0.0;  // since version 4

  ErrorCode DataOutPut(CADataStream stream) override {
    stream.WriteItem(m_nBase);
    if (kCurrentVersionNumber >= 4) stream.WriteItem(m_dExtra);
    return AD_OK;
  }
};
IMPLEMENT_DYNCREATE(CDataTestVersioned, CAData)

// Puts the shared stream version back whatever a test does to it.
class VersionGuard {
 public:
  VersionGuard() : m_saved(CAData::kCurrentVersionNumber) {}
  ~VersionGuard() { CAData::kCurrentVersionNumber = m_saved; }
  VersionGuard(const VersionGuard&) = delete;
  VersionGuard& operator=(const VersionGuard&) = delete;

 private:
  unsigned long m_saved;
};

CDataTestMark MakeMark(const wchar_t* label, double height) {
  CDataTestMark mark;
  mark.m_strLabel = label;
  mark.m_dHeight = height;
  return mark;
}

}  // namespace cadata_test

using namespace cadata_test;

// ---- run-time class -----------------------------------------------------------------------------

TEST(CAData, RuntimeClassOfCADataIsNamedCAData) {
  CAData data;

  const CRuntimeClass* cls = data.GetRuntimeClass();

  ASSERT_NE(cls, nullptr);
  EXPECT_STREQ(cls->m_lpszClassName, "CAData");
  EXPECT_EQ(cls, RUNTIME_CLASS(CAData));
}

TEST(CAData, CADataIsKindOfCAObject) {
  CAData data;

  EXPECT_TRUE(data.IsKindOf(RUNTIME_CLASS(CAObject)));
  EXPECT_TRUE(data.IsKindOf(RUNTIME_CLASS(CObject)));
  EXPECT_EQ(RUNTIME_CLASS(CAData)->m_pBaseClass, RUNTIME_CLASS(CAObject));
}

TEST(CAData, CADataCanBeCreatedByName) {
  std::unique_ptr<CObject> created(CRuntimeClass::CreateObject("CAData"));

  ASSERT_NE(created, nullptr);
  EXPECT_EQ(typeid(*created), typeid(CAData));
}

TEST(CAData, UndeclaredClassReportsTheRuntimeClassOfCAData) {
  CDataTestPlain plain;

  EXPECT_EQ(plain.GetRuntimeClass(), RUNTIME_CLASS(CAData));
}

// ---- CAData's own verbs -------------------------------------------------------------------------

TEST(CAData, OwnDataOutPutWritesNothingAndReturnsZero) {
  CAData data;
  CADataStream stream;

  EXPECT_EQ(data.CAData::DataOutPut(stream), AD_OK);

  EXPECT_EQ(stream.GetSize(), 0u);
}

TEST(CAData, OwnDataInPutReadsNothingAndReturnsZero) {
  CAData data;
  const Bytes bytes = {0x01, 0x00, 0x00, 0x00};
  CADataStream stream(bytes.data(), bytes.size());

  EXPECT_EQ(data.CAData::DataInPut(stream), AD_OK);

  EXPECT_EQ(stream.GetPosition(), 0u);
}

TEST(CAData, OwnDataOutProWritesNoItemAndReturnsZero) {
  CAData data;
  CAMemoryDataProp store;

  EXPECT_EQ(data.CAData::DataOutPro(CADataExchange(store)), AD_OK);

  EXPECT_EQ(store.GetCount(), 0);
}

TEST(CAData, OwnDataInProChangesNoItemAndReturnsZero) {
  CAData data;
  CAMemoryDataProp store;
  store.writeInt(L"Width", 5);

  EXPECT_EQ(data.CAData::DataInPro(CADataExchange(store)), AD_OK);

  EXPECT_EQ(store.GetCount(), 1);
}

TEST(CAData, DerivedStreamBeginsDirectlyWithTheDerivedItems) {
  CDataTestMark mark = MakeMark(L"中", 1.0);
  CADataStream stream;

  ASSERT_EQ(mark.DataOutPut(stream), AD_OK);

  // The label (count 1, U+4E2D), then the height 1.0 as IEEE bytes; nothing from CAData before them.
  EXPECT_EQ(stream.GetBytes(), (Bytes{0x01, 0x00, 0x00, 0x00, 0x2D, 0x4E,  //
                                      0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xF0, 0x3F}));
}

TEST(CAData, DerivedValueRoundTripsThroughTheStream) {
  CDataTestMark written = MakeMark(L"北京市朝阳区", -12.75);
  CADataStream stream;
  ASSERT_EQ(written.DataOutPut(stream), AD_OK);
  CDataTestMark read;

  ASSERT_EQ(read.DataInPut(stream), AD_OK);

  EXPECT_EQ(read.m_strLabel, CString(L"北京市朝阳区"));
  EXPECT_EQ(read.m_dHeight, -12.75);
  EXPECT_EQ(stream.GetRemaining(), 0u);
}

TEST(CAData, DerivedValueRoundTripsThroughANamedExchange) {
  CDataTestMark written = MakeMark(L"井盖", 3.5);
  CAMemoryDataProp store;
  ASSERT_EQ(written.DataOutPro(CADataExchange(store)), AD_OK);
  CDataTestMark read;

  ASSERT_EQ(read.DataInPro(CADataExchange(store)), AD_OK);

  EXPECT_EQ(read.m_strLabel, CString(L"井盖"));
  EXPECT_EQ(read.m_dHeight, 3.5);
  ASSERT_EQ(store.GetCount(), 2);
  EXPECT_EQ(store.GetName(0), CString(L"Label"));
  EXPECT_EQ(store.GetName(1), CString(L"Height"));
}

// ---- Copy ---------------------------------------------------------------------------------------

TEST(CAData, CopyCopiesTheFieldsThroughTheStream) {
  CDataTestMark source = MakeMark(L"\U0001F600 标志", 1.0e300);
  CDataTestMark target = MakeMark(L"old", 1.0);

  EXPECT_EQ(target.Copy(&source), AD_OK);

  EXPECT_EQ(target.m_strLabel, CString(L"\U0001F600 标志"));
  EXPECT_EQ(target.m_dHeight, 1.0e300);
}

TEST(CAData, CopyLeavesTheSourceUnchanged) {
  CDataTestMark source = MakeMark(L"source", 2.0);
  CDataTestMark target = MakeMark(L"target", 3.0);

  ASSERT_EQ(target.Copy(&source), AD_OK);

  EXPECT_EQ(source.m_strLabel, CString(L"source"));
  EXPECT_EQ(source.m_dHeight, 2.0);
}

TEST(CAData, CopyFromItselfKeepsTheFields) {
  CDataTestMark mark = MakeMark(L"self", 4.0);

  EXPECT_EQ(mark.Copy(&mark), AD_OK);

  EXPECT_EQ(mark.m_strLabel, CString(L"self"));
  EXPECT_EQ(mark.m_dHeight, 4.0);
}

TEST(CAData, CopyFromAnUnrelatedClassReturnsIncompatibleAndChangesNothing) {
  // The tag's stream would read as a mark without error; only the class check stops it.
  CDataTestTag tag;
  tag.m_strText = L"tag";
  tag.m_dWeight = 9.0;
  CDataTestMark mark = MakeMark(L"mark", 1.0);

  EXPECT_EQ(mark.Copy(&tag), AD_INCOMPATIBLE);

  EXPECT_EQ(mark.m_strLabel, CString(L"mark"));
  EXPECT_EQ(mark.m_dHeight, 1.0);
}

TEST(CAData, CopyFromNullReturnsIncompatibleAndChangesNothing) {
  CDataTestMark mark = MakeMark(L"mark", 1.0);

  // 23 is the number host programs test for.
  EXPECT_EQ(mark.Copy(nullptr), 23);

  EXPECT_EQ(mark.m_strLabel, CString(L"mark"));
  EXPECT_EQ(mark.m_dHeight, 1.0);
}

TEST(CAData, CopyFromAnObjectOfADerivedClassIsAccepted) {
  CDataTestTallMark tall;
  tall.m_strLabel = L"tower";
  tall.m_dHeight = 120.0;
  tall.m_nFloors = 30;
  CDataTestMark mark = MakeMark(L"mark", 1.0);

  EXPECT_EQ(mark.Copy(&tall), AD_OK);

  EXPECT_EQ(mark.m_strLabel, CString(L"tower"));
  EXPECT_EQ(mark.m_dHeight, 120.0);
}

TEST(CAData, CopyFromAnObjectOfABaseClassIsRefused) {
  // A plain mark is not a tall mark: its run-time class does not derive from the target's.
  CDataTestMark mark = MakeMark(L"mark", 1.0);
  CDataTestTallMark tall;
  tall.m_strLabel = L"tower";
  tall.m_nFloors = 30;

  EXPECT_EQ(tall.Copy(&mark), AD_INCOMPATIBLE);

  EXPECT_EQ(tall.m_strLabel, CString(L"tower"));
  EXPECT_EQ(tall.m_nFloors, 30);
}

TEST(CAData, UndeclaredClassRefusesCopyFromAnotherUndeclaredClass) {
  // Both report CAData's run-time class, so only their C++ types tell them apart.
  CDataTestPlainOther other;
  other.m_strText = L"other";
  other.m_dValue = 8.0;
  CDataTestPlain plain;
  plain.m_strText = L"plain";
  plain.m_dValue = 2.0;

  EXPECT_EQ(plain.Copy(&other), AD_INCOMPATIBLE);

  EXPECT_EQ(plain.m_strText, CString(L"plain"));
  EXPECT_EQ(plain.m_dValue, 2.0);
}

TEST(CAData, UndeclaredClassRefusesCopyFromADeclaredClass) {
  CDataTestTag tag;
  tag.m_strText = L"tag";
  CDataTestPlain plain;
  plain.m_strText = L"plain";

  EXPECT_EQ(plain.Copy(&tag), AD_INCOMPATIBLE);

  EXPECT_EQ(plain.m_strText, CString(L"plain"));
}

TEST(CAData, UndeclaredClassAcceptsCopyFromItsOwnClass) {
  CDataTestPlain source;
  source.m_strText = L"朝阳";
  source.m_dValue = -0.5;
  CDataTestPlain target;

  EXPECT_EQ(target.Copy(&source), AD_OK);

  EXPECT_EQ(target.m_strText, CString(L"朝阳"));
  EXPECT_EQ(target.m_dValue, -0.5);
}

// A mark that declares no run-time class of its own: it reports CDataTestMark's.
class CDataTestUndeclaredMark : public CDataTestMark {
 public:
  int m_nExtra = 0;
  ErrorCode DataInPut(CADataStream stream) override {
    ErrorCode rc = CDataTestMark::DataInPut(stream);
    if (rc != AD_OK) return rc;
    return static_cast<ErrorCode>(stream.ReadItem(&m_nExtra));
  }
  ErrorCode DataOutPut(CADataStream stream) override {
    ErrorCode rc = CDataTestMark::DataOutPut(stream);
    if (rc != AD_OK) return rc;
    stream.WriteItem(m_nExtra);
    return AD_OK;
  }
};

TEST(CAData, UndeclaredSubclassOfADeclaredClassRefusesCopyFromItsBase) {
  CDataTestMark mark = MakeMark(L"base", 1.0);
  CDataTestUndeclaredMark sub;
  sub.m_strLabel = L"sub";

  EXPECT_EQ(sub.Copy(&mark), AD_INCOMPATIBLE);

  EXPECT_EQ(sub.m_strLabel, CString(L"sub"));
}

TEST(CAData, CloneOfUndeclaredSubclassOfADeclaredClassIsNull) {
  CDataTestUndeclaredMark sub;
  std::unique_ptr<CAData> clone(sub.Clone());
  EXPECT_EQ(clone, nullptr);
}

// ---- Clone --------------------------------------------------------------------------------------

TEST(CAData, CloneReturnsAnObjectOfTheSameDynamicClassWithEqualFields) {
  CDataTestMark mark = MakeMark(L"北京", 44.25);

  std::unique_ptr<CAData> clone(mark.Clone());

  ASSERT_NE(clone, nullptr);
  EXPECT_EQ(typeid(*clone), typeid(CDataTestMark));
  EXPECT_EQ(clone->GetRuntimeClass(), RUNTIME_CLASS(CDataTestMark));
  auto* copy = static_cast<CDataTestMark*>(clone.get());
  EXPECT_EQ(copy->m_strLabel, CString(L"北京"));
  EXPECT_EQ(copy->m_dHeight, 44.25);
}

TEST(CAData, CloneThroughABasePointerKeepsTheDerivedClassAndFields) {
  CDataTestTallMark tall;
  tall.m_strLabel = L"tower";
  tall.m_dHeight = 99.0;
  tall.m_nFloors = 25;
  const CAData& asBase = tall;

  std::unique_ptr<CAData> clone(asBase.Clone());

  ASSERT_NE(clone, nullptr);
  auto* copy = dynamic_cast<CDataTestTallMark*>(clone.get());
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(copy->m_strLabel, CString(L"tower"));
  EXPECT_EQ(copy->m_dHeight, 99.0);
  EXPECT_EQ(copy->m_nFloors, 25);
}

TEST(CAData, CloneIsASeparateObject) {
  CDataTestMark mark = MakeMark(L"original", 1.0);

  std::unique_ptr<CAData> clone(mark.Clone());
  ASSERT_NE(clone, nullptr);
  static_cast<CDataTestMark*>(clone.get())->m_strLabel = L"changed";

  EXPECT_NE(clone.get(), &mark);
  EXPECT_EQ(mark.m_strLabel, CString(L"original"));
}

TEST(CAData, CloneOfAnUndeclaredClassReturnsNull) {
  // Its run-time class is CAData's, so Clone makes a CAData, which refuses to copy another C++ type.
  CDataTestPlain plain;
  plain.m_strText = L"plain";

  std::unique_ptr<CAData> clone(plain.Clone());

  EXPECT_EQ(clone, nullptr);
}

TEST(CAData, CloneOfCADataIsACAData) {
  CAData data;

  std::unique_ptr<CAData> clone(data.Clone());

  ASSERT_NE(clone, nullptr);
  EXPECT_EQ(typeid(*clone), typeid(CAData));
}

// ---- the shared stream version ------------------------------------------------------------------

TEST(CAData, CurrentVersionNumberIsFourByDefault) {
  EXPECT_EQ(CAData::kCurrentVersionNumber, 4u);
}

TEST(CAData, CurrentVersionNumberCanBeChangedAndValueClassesFollowIt) {
  VersionGuard guard;
  CDataTestVersioned value;
  value.m_nBase = 1;
  value.m_dExtra = 2.0;
  CADataStream older;
  CADataStream current;

  CAData::kCurrentVersionNumber = 3;
  value.DataOutPut(older);
  CAData::kCurrentVersionNumber = 4;
  value.DataOutPut(current);

  EXPECT_EQ(older.GetSize(), 4u);         // the int only
  EXPECT_EQ(current.GetSize(), 4u + 8u);  // the int and the version-4 double
}
