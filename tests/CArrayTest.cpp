// CArray<TYPE, ARG_TYPE> and CStringArray: the framework's growable arrays.

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

#include "mfc/CArray.h"
#include "mfc/CString.h"
#include "mfc/CStringArray.h"

namespace {

using IntArray = CArray<int, int>;
using StringArray = CArray<CString, const CString&>;

// The elements, in order, for whole-array comparisons with readable failures.
template <class TYPE, class ARG_TYPE>
std::vector<TYPE> Elements(const CArray<TYPE, ARG_TYPE>& a) {
  std::vector<TYPE> out;
  for (int i = 0; i < a.GetSize(); ++i) out.push_back(a.GetAt(i));
  return out;
}

std::vector<std::wstring> Texts(const CArray<CString, const CString&>& a) {
  std::vector<std::wstring> out;
  for (int i = 0; i < a.GetSize(); ++i) out.push_back(a.GetAt(i).str());
  return out;
}

void Fill(IntArray& a, std::initializer_list<int> values) {
  for (int v : values) a.Add(v);
}

}  // namespace

// --- CStringArray ---------------------------------------------------------------------------------

TEST(CStringArray, AddReturnsIndexAndGrowsSize) {
  CStringArray names;

  int first = names.Add(L"一");
  int second = names.Add(CString(L"二"));

  EXPECT_EQ(first, 0);
  EXPECT_EQ(second, 1);
  EXPECT_EQ(names.GetSize(), 2);
}

TEST(CStringArray, GetAtReturnsAddedStrings) {
  CStringArray names;
  names.Add(L"北京");
  names.Add(L"上海");

  const CString& second = names.GetAt(1);

  EXPECT_EQ(names.GetAt(0).str(), L"北京");
  EXPECT_EQ(second.str(), L"上海");
}

TEST(CStringArray, RemoveAtShiftsLaterElementsDown) {
  CStringArray names;
  names.Add(L"a");
  names.Add(L"b");
  names.Add(L"c");

  names.RemoveAt(1);

  EXPECT_EQ(names.GetSize(), 2);
  EXPECT_EQ(Texts(names), (std::vector<std::wstring>{L"a", L"c"}));
}

TEST(CStringArray, CopyReplacesContentWithIndependentCopies) {
  CStringArray source;
  source.Add(L"城");
  source.Add(L"市");
  CStringArray target;
  target.Add(L"x");
  target.Add(L"y");
  target.Add(L"z");

  target.Copy(source);
  source.SetAt(0, L"changed");

  EXPECT_EQ(Texts(target), (std::vector<std::wstring>{L"城", L"市"}));
}

// --- size -----------------------------------------------------------------------------------------

TEST(CArray, NewArrayIsEmpty) {
  IntArray a;

  EXPECT_EQ(a.GetSize(), 0);
  EXPECT_TRUE(a.IsEmpty());
  EXPECT_EQ(a.GetUpperBound(), -1);
}

TEST(CArray, GetSizeCountsElements) {
  IntArray a;

  Fill(a, {4, 5, 6});

  EXPECT_EQ(a.GetSize(), 3);
  EXPECT_EQ(a.GetCount(), 3);
  EXPECT_EQ(a.GetUpperBound(), 2);
}

TEST(CArray, SetSizeMakesZeroNumbers) {
  IntArray ints;
  CArray<double, double> doubles;

  ints.SetSize(3);
  doubles.SetSize(2);

  EXPECT_EQ(Elements(ints), (std::vector<int>{0, 0, 0}));
  EXPECT_EQ(Elements(doubles), (std::vector<double>{0.0, 0.0}));
}

TEST(CArray, SetSizeMakesEmptyStrings) {
  StringArray a;

  a.SetSize(2);

  EXPECT_EQ(Texts(a), (std::vector<std::wstring>{L"", L""}));
}

TEST(CArray, SetSizeShrinkingDropsTail) {
  IntArray a;
  Fill(a, {1, 2, 3, 4});

  a.SetSize(2);

  EXPECT_EQ(Elements(a), (std::vector<int>{1, 2}));
  EXPECT_THROW((void)a.GetAt(2), std::invalid_argument);
}

TEST(CArray, SetSizeRegrowingGivesZeroNotOldValues) {
  // The dropped elements are gone: growing again makes fresh zeros in their place.
  IntArray a;
  Fill(a, {7, 7, 7});
  a.SetSize(1);

  a.SetSize(3);

  EXPECT_EQ(Elements(a), (std::vector<int>{7, 0, 0}));
}

TEST(CArray, SetSizeNegativeThrows) {
  IntArray a;
  Fill(a, {1});

  EXPECT_THROW(a.SetSize(-1), std::invalid_argument);
  EXPECT_EQ(Elements(a), (std::vector<int>{1}));
}

TEST(CArray, SetSizeGrowStepReservesRoomForLaterAdds) {
  // A grow step of 100: the first growth reserves room for at least 100 elements, so the storage
  // does not move while the array fills up to 100.
  IntArray a;
  a.SetSize(0, 100);
  a.Add(0);
  const int* storage = a.GetData();

  int moved = 0;
  for (int i = 1; i < 100; ++i) {
    a.Add(i);
    if (a.GetData() != storage) ++moved;
  }

  EXPECT_EQ(moved, 0);
  EXPECT_EQ(a.GetSize(), 100);
  EXPECT_EQ(a.GetAt(99), 99);
}

// --- element access -------------------------------------------------------------------------------

TEST(CArray, GetAtAndSetAt) {
  IntArray a;
  Fill(a, {1, 2, 3});

  a.SetAt(1, 20);

  EXPECT_EQ(a.GetAt(0), 1);
  EXPECT_EQ(a.GetAt(1), 20);
  EXPECT_EQ(a.GetAt(2), 3);
}

TEST(CArray, SubscriptReadsAndWrites) {
  IntArray a;
  Fill(a, {1, 2, 3});

  a[2] = 30;
  const IntArray& view = a;

  EXPECT_EQ(view[0], 1);
  EXPECT_EQ(view[2], 30);
}

TEST(CArray, ElementAtGivesReferenceIntoArray) {
  StringArray a;
  a.Add(L"城");

  a.ElementAt(0) += L"市";

  EXPECT_EQ(a.GetAt(0).str(), L"城市");
}

TEST(CArray, GetDataPointsAtElementsInOrder) {
  IntArray a;
  Fill(a, {5, 6, 7});

  const int* data = a.GetData();

  EXPECT_EQ(data[0], 5);
  EXPECT_EQ(data[1], 6);
  EXPECT_EQ(data[2], 7);
}

TEST(CArray, OutOfRangeGetAtThrowsInvalidArgument) {
  IntArray a;
  Fill(a, {1, 2});
  IntArray empty;

  EXPECT_THROW((void)a.GetAt(2), std::invalid_argument);
  EXPECT_THROW((void)a.GetAt(-1), std::invalid_argument);
  EXPECT_THROW((void)empty.GetAt(0), std::invalid_argument);
}

TEST(CArray, OutOfRangeSetAtSubscriptAndElementAtThrow) {
  IntArray a;
  Fill(a, {1, 2});

  EXPECT_THROW(a.SetAt(2, 9), std::invalid_argument);
  EXPECT_THROW((void)a[2], std::invalid_argument);
  EXPECT_THROW((void)a.ElementAt(-1), std::invalid_argument);
  EXPECT_EQ(Elements(a), (std::vector<int>{1, 2}));
}

// --- adding and inserting -------------------------------------------------------------------------

TEST(CArray, AddReturnsIndex) {
  IntArray a;

  int first = a.Add(10);
  int second = a.Add(20);
  int third = a.Add(30);

  EXPECT_EQ(first, 0);
  EXPECT_EQ(second, 1);
  EXPECT_EQ(third, 2);
  EXPECT_EQ(Elements(a), (std::vector<int>{10, 20, 30}));
}

TEST(CArray, AddOfOwnElementCopiesItFirst) {
  // The argument refers into the array, whose storage the addition may move.
  StringArray a;
  a.Add(L"城市");

  for (int i = 0; i < 20; ++i) a.Add(a.GetAt(0));

  EXPECT_EQ(a.GetSize(), 21);
  EXPECT_EQ(a.GetAt(20).str(), L"城市");
}

TEST(CArray, InsertAtInsertsCountCopiesAtIndex) {
  IntArray a;
  Fill(a, {1, 2, 3});

  a.InsertAt(1, 9, 3);

  EXPECT_EQ(Elements(a), (std::vector<int>{1, 9, 9, 9, 2, 3}));
}

TEST(CArray, InsertAtDefaultsToOneCopy) {
  IntArray a;
  Fill(a, {1, 2});

  a.InsertAt(0, 5);

  EXPECT_EQ(Elements(a), (std::vector<int>{5, 1, 2}));
}

TEST(CArray, InsertAtEndAppends) {
  IntArray a;
  Fill(a, {1, 2});

  a.InsertAt(2, 5, 2);

  EXPECT_EQ(Elements(a), (std::vector<int>{1, 2, 5, 5}));
}

TEST(CArray, InsertAtPastEndGrowsWithZeros) {
  IntArray a;
  Fill(a, {1, 2});

  a.InsertAt(4, 7, 2);

  EXPECT_EQ(Elements(a), (std::vector<int>{1, 2, 0, 0, 7, 7}));
}

TEST(CArray, InsertAtOfOwnElementCopiesItFirst) {
  CArray<int, const int&> a;
  a.Add(1);
  a.Add(2);
  a.Add(3);

  a.InsertAt(0, a.GetAt(2), 2);

  EXPECT_EQ(Elements(a), (std::vector<int>{3, 3, 1, 2, 3}));
}

TEST(CArray, InsertAtNegativeIndexThrows) {
  IntArray a;
  Fill(a, {1, 2});

  EXPECT_THROW(a.InsertAt(-1, 9), std::invalid_argument);
  EXPECT_EQ(Elements(a), (std::vector<int>{1, 2}));
}

TEST(CArray, InsertAtCountZeroThrowsAndLeavesArrayUnchanged) {
  IntArray a;
  Fill(a, {1, 2});

  EXPECT_THROW(a.InsertAt(1, 9, 0), std::invalid_argument);
  EXPECT_THROW(a.InsertAt(5, 9, 0), std::invalid_argument);  // nor grows it towards index 5
  EXPECT_EQ(Elements(a), (std::vector<int>{1, 2}));
}

TEST(CArray, InsertAtCountMinusOneThrowsAndLeavesArrayUnchanged) {
  IntArray a;
  Fill(a, {1, 2});

  EXPECT_THROW(a.InsertAt(0, 9, -1), std::invalid_argument);
  EXPECT_THROW(a.InsertAt(4, 9, -1), std::invalid_argument);
  EXPECT_EQ(Elements(a), (std::vector<int>{1, 2}));
}

TEST(CArray, InsertAtArrayInsertsAllItsElements) {
  IntArray a;
  Fill(a, {1, 4});
  IntArray middle;
  Fill(middle, {2, 3});

  a.InsertAt(1, &middle);

  EXPECT_EQ(Elements(a), (std::vector<int>{1, 2, 3, 4}));
  EXPECT_EQ(Elements(middle), (std::vector<int>{2, 3}));
}

// --- removing -------------------------------------------------------------------------------------

TEST(CArray, RemoveAtRemovesOneElement) {
  IntArray a;
  Fill(a, {0, 1, 2});

  a.RemoveAt(0);

  EXPECT_EQ(Elements(a), (std::vector<int>{1, 2}));
}

TEST(CArray, RemoveAtRemovesCountElements) {
  IntArray a;
  Fill(a, {0, 1, 2, 3, 4});

  a.RemoveAt(1, 3);

  EXPECT_EQ(Elements(a), (std::vector<int>{0, 4}));
}

TEST(CArray, RemoveAtOutOfRangeThrowsAndLeavesArrayUnchanged) {
  IntArray a;
  Fill(a, {1, 2});

  EXPECT_THROW(a.RemoveAt(2), std::invalid_argument);
  EXPECT_THROW(a.RemoveAt(-1), std::invalid_argument);
  EXPECT_THROW(a.RemoveAt(1, 2), std::invalid_argument);  // the range runs past the end
  EXPECT_EQ(Elements(a), (std::vector<int>{1, 2}));
}

TEST(CArray, RemoveAtHugeCountThrows) {
  // index + count does not fit an int: still a range outside the array, not a wrapped one.
  IntArray a;
  Fill(a, {1, 2, 3});

  EXPECT_THROW(a.RemoveAt(1, std::numeric_limits<int>::max()), std::invalid_argument);
  EXPECT_EQ(Elements(a), (std::vector<int>{1, 2, 3}));
}

TEST(CArray, RemoveAllEmpties) {
  IntArray a;
  Fill(a, {1, 2, 3});

  a.RemoveAll();

  EXPECT_EQ(a.GetSize(), 0);
  EXPECT_TRUE(a.IsEmpty());
}

// --- copying and appending ------------------------------------------------------------------------

TEST(CArray, CannotBeCopiedImplicitly) {
  // Copy and Append are the only ways to copy, as in the framework.
  EXPECT_FALSE((std::is_copy_constructible_v<IntArray>));
  EXPECT_FALSE((std::is_copy_assignable_v<IntArray>));
}

TEST(CArray, CopyReplacesContent) {
  IntArray source;
  Fill(source, {1, 2, 3});
  IntArray target;
  Fill(target, {9, 9, 9, 9, 9});

  target.Copy(source);

  EXPECT_EQ(Elements(target), (std::vector<int>{1, 2, 3}));
  EXPECT_EQ(Elements(source), (std::vector<int>{1, 2, 3}));
}

TEST(CArray, CopyIsIndependentOfSource) {
  IntArray source;
  Fill(source, {1, 2});
  IntArray target;
  target.Copy(source);

  source.SetAt(0, 100);
  target.Add(3);

  EXPECT_EQ(Elements(source), (std::vector<int>{100, 2}));
  EXPECT_EQ(Elements(target), (std::vector<int>{1, 2, 3}));
}

TEST(CArray, CopyFromItselfKeepsContent) {
  StringArray a;
  a.Add(L"城");
  a.Add(L"市");

  a.Copy(a);

  EXPECT_EQ(Texts(a), (std::vector<std::wstring>{L"城", L"市"}));
}

TEST(CArray, AppendAddsElementsAndReturnsFirstNewIndex) {
  IntArray a;
  Fill(a, {1, 2});
  IntArray more;
  Fill(more, {3, 4});

  int first = a.Append(more);

  EXPECT_EQ(first, 2);
  EXPECT_EQ(Elements(a), (std::vector<int>{1, 2, 3, 4}));
  EXPECT_EQ(Elements(more), (std::vector<int>{3, 4}));
}

TEST(CArray, AppendArrayToItselfDoublesIt) {
  StringArray a;
  a.Add(L"一");
  a.Add(L"二");
  a.Add(L"三");

  int first = a.Append(a);

  EXPECT_EQ(first, 3);
  EXPECT_EQ(Texts(a), (std::vector<std::wstring>{L"一", L"二", L"三", L"一", L"二", L"三"}));
}

TEST(CArray, AppendEmptyArrayChangesNothing) {
  IntArray a;
  Fill(a, {1});
  IntArray empty;

  int first = a.Append(empty);

  EXPECT_EQ(first, 1);
  EXPECT_EQ(Elements(a), (std::vector<int>{1}));
}

// --- SetAtGrow ------------------------------------------------------------------------------------

TEST(CArray, SetAtGrowInsideArraySets) {
  IntArray a;
  Fill(a, {1, 2, 3});

  a.SetAtGrow(1, 20);

  EXPECT_EQ(Elements(a), (std::vector<int>{1, 20, 3}));
}

TEST(CArray, SetAtGrowPastEndGrowsWithZeros) {
  IntArray a;
  Fill(a, {1});

  a.SetAtGrow(3, 8);

  EXPECT_EQ(Elements(a), (std::vector<int>{1, 0, 0, 8}));
}

TEST(CArray, SetAtGrowNegativeIndexThrows) {
  IntArray a;
  Fill(a, {1});

  EXPECT_THROW(a.SetAtGrow(-1, 8), std::invalid_argument);
  EXPECT_EQ(Elements(a), (std::vector<int>{1}));
}

TEST(CArray, SetAtGrowAtTheLargestIndexThrows) {
  CArray<int, int> a;
  a.Add(1);
  EXPECT_THROW(a.SetAtGrow(std::numeric_limits<int>::max(), 8), std::invalid_argument);
  EXPECT_EQ(a.GetSize(), 1);
}
