// CList<TYPE, ARG_TYPE>: the framework's linked list, and its archive form over CADataStream.

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

#include "datakit/CADataStream.h"
#include "mfc/CList.h"
#include "mfc/CString.h"

namespace {

using IntList = CList<int, int>;

// One stored record of the host programs: 96 doubles, carried as raw bytes.
struct Record {
  double values[96];
};
static_assert(sizeof(Record) == 768, "a record is 96 doubles");
static_assert(std::is_trivially_copyable_v<Record>);

Record MakeRecord(int id) {
  Record r{};
  for (int i = 0; i < 96; ++i) r.values[i] = id * 1000.0 + i + 0.25;
  return r;
}

// The elements from head to tail, through GetHeadPosition / GetNext.
std::vector<int> Forward(const IntList& list) {
  std::vector<int> out;
  for (POSITION pos = list.GetHeadPosition(); pos != nullptr;) out.push_back(list.GetNext(pos));
  return out;
}

std::vector<std::uint8_t> RawBytes(const void* p, std::size_t n) {
  auto b = static_cast<const std::uint8_t*>(p);
  return std::vector<std::uint8_t>(b, b + n);
}

void Fill(IntList& list, std::initializer_list<int> values) {
  for (int v : values) list.AddTail(v);
}

}  // namespace

// --- adding and walking ---------------------------------------------------------------------------

TEST(CList, NewListIsEmpty) {
  IntList list;

  EXPECT_TRUE(list.IsEmpty());
  EXPECT_EQ(list.GetCount(), 0);
  EXPECT_EQ(list.GetHeadPosition(), nullptr);
  EXPECT_EQ(list.GetTailPosition(), nullptr);
}

TEST(CList, AddHeadAndAddTailOrder) {
  IntList list;

  list.AddTail(2);
  list.AddTail(3);
  list.AddHead(1);
  list.AddHead(0);

  EXPECT_EQ(Forward(list), (std::vector<int>{0, 1, 2, 3}));
  EXPECT_EQ(list.GetCount(), 4);
  EXPECT_EQ(list.GetHead(), 0);
  EXPECT_EQ(list.GetTail(), 3);
}

TEST(CList, AddReturnsPositionOfNewElement) {
  IntList list;

  POSITION tail = list.AddTail(5);
  POSITION head = list.AddHead(4);

  EXPECT_EQ(list.GetAt(tail), 5);
  EXPECT_EQ(list.GetAt(head), 4);
  EXPECT_EQ(list.GetHeadPosition(), head);
  EXPECT_EQ(list.GetTailPosition(), tail);
}

TEST(CList, GetNextWalksHeadToTailThenGivesNull) {
  IntList list;
  Fill(list, {10, 20, 30});
  POSITION pos = list.GetHeadPosition();

  int first = list.GetNext(pos);
  int second = list.GetNext(pos);
  int third = list.GetNext(pos);

  EXPECT_EQ(first, 10);
  EXPECT_EQ(second, 20);
  EXPECT_EQ(third, 30);
  EXPECT_EQ(pos, nullptr);
}

TEST(CList, GetNextGivesWritableElement) {
  CList<CString, const CString&> list;
  list.AddTail(L"城");
  POSITION pos = list.GetHeadPosition();

  list.GetNext(pos) += L"市";

  EXPECT_EQ(list.GetHead().str(), L"城市");
}

TEST(CList, GetPrevWalksTailToHeadThenGivesNull) {
  IntList list;
  Fill(list, {10, 20, 30});
  std::vector<int> backward;

  for (POSITION pos = list.GetTailPosition(); pos != nullptr;) backward.push_back(list.GetPrev(pos));

  EXPECT_EQ(backward, (std::vector<int>{30, 20, 10}));
}

TEST(CList, SetAtReplacesElementAtPosition) {
  IntList list;
  Fill(list, {1, 2, 3});

  list.SetAt(list.FindIndex(1), 20);

  EXPECT_EQ(Forward(list), (std::vector<int>{1, 20, 3}));
}

// --- removing -------------------------------------------------------------------------------------

TEST(CList, RemoveHeadReturnsAndRemovesFirst) {
  IntList list;
  Fill(list, {1, 2, 3});

  int removed = list.RemoveHead();

  EXPECT_EQ(removed, 1);
  EXPECT_EQ(Forward(list), (std::vector<int>{2, 3}));
  EXPECT_EQ(list.GetHead(), 2);
}

TEST(CList, RemoveTailReturnsAndRemovesLast) {
  IntList list;
  Fill(list, {1, 2, 3});

  int removed = list.RemoveTail();

  EXPECT_EQ(removed, 3);
  EXPECT_EQ(Forward(list), (std::vector<int>{1, 2}));
  EXPECT_EQ(list.GetTail(), 2);
}

TEST(CList, RemovingTheOnlyElementEmptiesTheList) {
  IntList list;
  list.AddTail(7);

  list.RemoveTail();

  EXPECT_TRUE(list.IsEmpty());
  EXPECT_EQ(list.GetHeadPosition(), nullptr);
  EXPECT_EQ(list.GetTailPosition(), nullptr);
}

TEST(CList, RemoveAtUnlinksThatElementOnly) {
  IntList list;
  POSITION one = list.AddTail(1);
  POSITION two = list.AddTail(2);
  POSITION three = list.AddTail(3);

  list.RemoveAt(two);

  EXPECT_EQ(Forward(list), (std::vector<int>{1, 3}));
  EXPECT_EQ(list.GetCount(), 2);
  // The other positions stay valid.
  EXPECT_EQ(list.GetAt(one), 1);
  EXPECT_EQ(list.GetAt(three), 3);
  std::vector<int> backward;
  for (POSITION pos = list.GetTailPosition(); pos != nullptr;) backward.push_back(list.GetPrev(pos));
  EXPECT_EQ(backward, (std::vector<int>{3, 1}));
}

TEST(CList, RemoveAtHeadAndTailMovesThem) {
  IntList list;
  POSITION head = list.AddTail(1);
  list.AddTail(2);
  POSITION tail = list.AddTail(3);

  list.RemoveAt(head);
  list.RemoveAt(tail);

  EXPECT_EQ(Forward(list), (std::vector<int>{2}));
  EXPECT_EQ(list.GetHead(), 2);
  EXPECT_EQ(list.GetTail(), 2);
}

TEST(CList, RemoveAllEmpties) {
  IntList list;
  Fill(list, {1, 2, 3});

  list.RemoveAll();

  EXPECT_TRUE(list.IsEmpty());
  EXPECT_EQ(list.GetHeadPosition(), nullptr);
}

// --- inserting ------------------------------------------------------------------------------------

TEST(CList, InsertBeforeAndInsertAfterAroundMiddle) {
  IntList list;
  Fill(list, {1, 2, 3});
  POSITION two = list.FindIndex(1);

  list.InsertBefore(two, 10);
  list.InsertAfter(two, 20);

  EXPECT_EQ(Forward(list), (std::vector<int>{1, 10, 2, 20, 3}));
  EXPECT_EQ(list.GetCount(), 5);
}

TEST(CList, InsertBeforeHeadMakesNewHead) {
  IntList list;
  Fill(list, {1, 2});

  POSITION pos = list.InsertBefore(list.GetHeadPosition(), 0);

  EXPECT_EQ(list.GetHeadPosition(), pos);
  EXPECT_EQ(Forward(list), (std::vector<int>{0, 1, 2}));
}

TEST(CList, InsertAfterTailMakesNewTail) {
  IntList list;
  Fill(list, {1, 2});

  POSITION pos = list.InsertAfter(list.GetTailPosition(), 3);

  EXPECT_EQ(list.GetTailPosition(), pos);
  EXPECT_EQ(list.GetTail(), 3);
  EXPECT_EQ(Forward(list), (std::vector<int>{1, 2, 3}));
}

TEST(CList, InsertWithNullPositionGoesToHeadOrTail) {
  IntList list;
  Fill(list, {1, 2});

  list.InsertBefore(nullptr, 0);
  list.InsertAfter(nullptr, 3);

  EXPECT_EQ(Forward(list), (std::vector<int>{0, 1, 2, 3}));
}

// --- finding --------------------------------------------------------------------------------------

TEST(CList, FindGivesFirstMatchingPosition) {
  IntList list;
  POSITION first = list.AddTail(5);
  list.AddTail(6);
  POSITION second = list.AddTail(5);

  POSITION found = list.Find(5);
  POSITION next = list.Find(5, found);
  POSITION none = list.Find(5, second);

  EXPECT_EQ(found, first);
  EXPECT_EQ(next, second);
  EXPECT_EQ(none, nullptr);
}

TEST(CList, FindOfAbsentValueGivesNull) {
  IntList list;
  Fill(list, {1, 2});

  EXPECT_EQ(list.Find(7), nullptr);
}

TEST(CList, FindComparesStringsByValue) {
  CList<CString, const CString&> list;
  list.AddTail(L"北京");
  POSITION shanghai = list.AddTail(L"上海");

  POSITION found = list.Find(CString(L"上海"));

  EXPECT_EQ(found, shanghai);
}

TEST(CList, FindIndexCountsFromHead) {
  IntList list;
  Fill(list, {10, 20, 30});

  POSITION first = list.FindIndex(0);
  POSITION last = list.FindIndex(2);

  ASSERT_NE(first, nullptr);
  ASSERT_NE(last, nullptr);
  EXPECT_EQ(list.GetAt(first), 10);
  EXPECT_EQ(list.GetAt(last), 30);
  EXPECT_EQ(list.FindIndex(3), nullptr);
  EXPECT_EQ(list.FindIndex(-1), nullptr);
}

// --- empty list -----------------------------------------------------------------------------------

TEST(CList, GetHeadOnEmptyThrows) {
  IntList list;

  EXPECT_THROW((void)list.GetHead(), std::invalid_argument);
}

TEST(CList, GetTailAndRemovesOnEmptyThrow) {
  IntList list;

  EXPECT_THROW((void)list.GetTail(), std::invalid_argument);
  EXPECT_THROW(list.RemoveHead(), std::invalid_argument);
  EXPECT_THROW(list.RemoveTail(), std::invalid_argument);
  EXPECT_EQ(list.GetCount(), 0);
}

// --- archive form ---------------------------------------------------------------------------------

TEST(CList, StoreToWritesCountThenEachElement) {
  IntList list;
  Fill(list, {7, -1, 300});
  CADataStream stream;

  int rc = list.StoreTo(stream);

  ASSERT_EQ(rc, 0);
  // Count 3 in two little-endian bytes, then each int as its raw bytes, head first.
  std::vector<std::uint8_t> expected = {0x03, 0x00};
  for (int v : {7, -1, 300}) {
    auto raw = RawBytes(&v, sizeof v);
    expected.insert(expected.end(), raw.begin(), raw.end());
  }
  EXPECT_EQ(stream.GetBytes(), expected);
}

TEST(CList, StoreToWritesStringsAsStreamStrings) {
  CList<CString, const CString&> list;
  list.AddTail(L"中");
  list.AddTail(L"ab");
  CADataStream stream;

  int rc = list.StoreTo(stream);

  ASSERT_EQ(rc, 0);
  // Count 2; then per string a 4-byte count of UTF-16 units and the units (中 is U+4E2D).
  const std::vector<std::uint8_t> expected = {0x02, 0x00,                                    //
                                              0x01, 0x00, 0x00, 0x00, 0x2D, 0x4E,            //
                                              0x02, 0x00, 0x00, 0x00, 0x61, 0x00, 0x62, 0x00};
  EXPECT_EQ(stream.GetBytes(), expected);
}

TEST(CList, EmptyListStoresZeroCount) {
  IntList list;
  CADataStream stream;

  int rc = list.StoreTo(stream);

  ASSERT_EQ(rc, 0);
  EXPECT_EQ(stream.GetBytes(), (std::vector<std::uint8_t>{0x00, 0x00}));
}

TEST(CList, StringListRoundTrips) {
  CList<CString, const CString&> source;
  source.AddTail(L"城市");
  source.AddTail(L"");
  source.AddTail(L"\U0001F600");
  CADataStream stream;
  ASSERT_EQ(source.StoreTo(stream), 0);
  CList<CString, const CString&> target;

  int rc = target.LoadFrom(stream);

  ASSERT_EQ(rc, 0);
  ASSERT_EQ(target.GetCount(), 3);
  POSITION pos = target.GetHeadPosition();
  EXPECT_EQ(target.GetNext(pos).str(), L"城市");
  EXPECT_EQ(target.GetNext(pos).str(), L"");
  EXPECT_EQ(target.GetNext(pos).str(), L"\U0001F600");
}

TEST(CList, RecordListStoresExactByteSize) {
  CList<Record, const Record&> list;
  for (int id = 1; id <= 3; ++id) list.AddTail(MakeRecord(id));
  CADataStream stream;

  int rc = list.StoreTo(stream);

  ASSERT_EQ(rc, 0);
  EXPECT_EQ(stream.GetSize(), 2u + 3u * 768u);  // the count, then three raw records
  EXPECT_EQ(stream.GetBytes()[0], 0x03);
  EXPECT_EQ(stream.GetBytes()[1], 0x00);
}

TEST(CList, RecordListReadsBackInOrder) {
  CList<Record, const Record&> source;
  for (int id = 1; id <= 3; ++id) source.AddTail(MakeRecord(id));
  CADataStream stream;
  ASSERT_EQ(source.StoreTo(stream), 0);
  CList<Record, const Record&> target;

  int rc = target.LoadFrom(stream);

  ASSERT_EQ(rc, 0);
  ASSERT_EQ(target.GetCount(), 3);
  POSITION pos = target.GetHeadPosition();
  for (int id = 1; id <= 3; ++id) {
    const Record expected = MakeRecord(id);
    const Record& got = target.GetNext(pos);
    EXPECT_EQ(std::memcmp(&got, &expected, sizeof(Record)), 0) << "record " << id;
  }
  EXPECT_EQ(stream.GetRemaining(), 0u);
}

TEST(CList, LoadFromAppendsToTheEnd) {
  IntList source;
  Fill(source, {3, 4});
  CADataStream stream;
  ASSERT_EQ(source.StoreTo(stream), 0);
  IntList target;
  Fill(target, {1, 2});

  int rc = target.LoadFrom(stream);

  ASSERT_EQ(rc, 0);
  EXPECT_EQ(Forward(target), (std::vector<int>{1, 2, 3, 4}));
}

TEST(CList, RecordLoadFromAppendsAfterExistingRecords) {
  CList<Record, const Record&> source;
  for (int id = 1; id <= 3; ++id) source.AddTail(MakeRecord(id));
  CADataStream stream;
  ASSERT_EQ(source.StoreTo(stream), 0);
  CList<Record, const Record&> target;
  target.AddTail(MakeRecord(0));

  int rc = target.LoadFrom(stream);

  ASSERT_EQ(rc, 0);
  ASSERT_EQ(target.GetCount(), 4);
  POSITION pos = target.GetHeadPosition();
  for (int id = 0; id <= 3; ++id) {
    const Record expected = MakeRecord(id);
    EXPECT_EQ(std::memcmp(&target.GetNext(pos), &expected, sizeof(Record)), 0) << "record " << id;
  }
}

TEST(CList, LoadFromCountBeyondRemainingBytesFailsAndAddsNothing) {
  // The count claims five records but only one record's bytes follow.
  CADataStream stream;
  stream.WriteCount(5);
  const Record one = MakeRecord(9);
  stream.WriteRaw(&one, sizeof one);
  CList<Record, const Record&> list;
  list.AddTail(MakeRecord(1));

  int rc = list.LoadFrom(stream);

  EXPECT_NE(rc, 0);
  EXPECT_EQ(list.GetCount(), 1);
}

TEST(CList, LoadFromIntCountBeyondRemainingBytesFailsAndAddsNothing) {
  // Three ints claimed, two present (8 bytes).
  CADataStream stream;
  stream.WriteCount(3);
  for (int v : {1, 2}) stream.WriteRaw(&v, sizeof v);
  IntList list;

  int rc = list.LoadFrom(stream);

  EXPECT_NE(rc, 0);
  EXPECT_TRUE(list.IsEmpty());
}

TEST(CList, LoadFromEmptyStreamFails) {
  CADataStream stream;
  IntList list;

  int rc = list.LoadFrom(stream);

  EXPECT_NE(rc, 0);
  EXPECT_TRUE(list.IsEmpty());
}
