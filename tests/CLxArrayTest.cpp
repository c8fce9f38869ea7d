// CLxArray<T>: the growable array with value copying.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "foundation/CLxArray.h"
#include "mfc/CString.h"

namespace {

// Remembers whether it got its value through assignment or through copy construction.
struct Tracked {
  Tracked() = default;
  explicit Tracked(int v) : value(v) {}
  Tracked(const Tracked& other) : value(other.value) {}
  Tracked& operator=(const Tracked& other) {
    value = other.value;
    assigned = true;
    return *this;
  }
  int value = 0;
  bool assigned = false;
};

std::vector<std::wstring> Texts(const CLxArray<CString>& a) {
  std::vector<std::wstring> out;
  for (int i = 0; i < a.GetSize(); ++i) out.push_back(a.GetAt(i).str());
  return out;
}

CLxArray<CString> ThreeCities() {
  CLxArray<CString> a;
  a.Add(L"北京");
  a.Add(L"上海");
  a.Add(L"广州");
  return a;
}

}  // namespace

TEST(CLxArray, NewArrayIsEmpty) {
  CLxArray<double> a;

  EXPECT_EQ(a.GetSize(), 0);
}

TEST(CLxArray, CopyHoldsTheSourceElementsInOrder) {
  CLxArray<CString> source = ThreeCities();

  CLxArray<CString> copy(source);

  EXPECT_EQ(Texts(copy), (std::vector<std::wstring>{L"北京", L"上海", L"广州"}));
}

TEST(CLxArray, CopyIsIndependentOfTheSource) {
  CLxArray<CString> source = ThreeCities();
  CLxArray<CString> copy(source);

  copy.SetAt(0, L"成都");
  copy.Add(L"深圳");
  source.RemoveAt(1);

  EXPECT_EQ(Texts(source), (std::vector<std::wstring>{L"北京", L"广州"}));
  EXPECT_EQ(Texts(copy), (std::vector<std::wstring>{L"成都", L"上海", L"广州", L"深圳"}));
}

TEST(CLxArray, CopyConstructionCopiesEveryElementThroughAssignment) {
  CLxArray<Tracked> source;
  source.Add(Tracked(1));
  source.Add(Tracked(2));

  CLxArray<Tracked> copy(source);

  ASSERT_EQ(copy.GetSize(), 2);
  EXPECT_EQ(copy[0].value, 1);
  EXPECT_EQ(copy[1].value, 2);
  EXPECT_TRUE(copy[0].assigned);
  EXPECT_TRUE(copy[1].assigned);
}

TEST(CLxArray, CopyOfEmptyArrayIsEmpty) {
  CLxArray<int> source;

  CLxArray<int> copy(source);

  EXPECT_EQ(copy.GetSize(), 0);
}

TEST(CLxArray, AssignmentReplacesEveryElement) {
  CLxArray<CString> source = ThreeCities();
  CLxArray<CString> target;
  target.Add(L"旧");
  target.Add(L"旧");
  target.Add(L"旧");
  target.Add(L"旧");

  target = source;

  EXPECT_EQ(Texts(target), (std::vector<std::wstring>{L"北京", L"上海", L"广州"}));
}

TEST(CLxArray, AssignmentCopiesThroughAssignment) {
  CLxArray<Tracked> source;
  source.Add(Tracked(7));
  CLxArray<Tracked> target;

  target = source;

  ASSERT_EQ(target.GetSize(), 1);
  EXPECT_EQ(target[0].value, 7);
  EXPECT_TRUE(target[0].assigned);
}

TEST(CLxArray, AssignmentToItselfKeepsElements) {
  CLxArray<CString> a = ThreeCities();
  CLxArray<CString>& same = a;

  a = same;

  EXPECT_EQ(Texts(a), (std::vector<std::wstring>{L"北京", L"上海", L"广州"}));
}
