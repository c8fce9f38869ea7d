// CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>: the framework's hashed map, its bucket order and its archive
// form over CADataStream.

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <map>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "datakit/CADataStream.h"
#include "mfc/CMap.h"
#include "mfc/CString.h"

namespace {

using IntMap = CMap<int, int, int, int>;
using NameMap = CMap<int, int, CString, const CString&>;

// The keys in walk (bucket) order.
template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
std::vector<KEY> WalkKeys(const CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>& map) {
  std::vector<KEY> keys;
  for (POSITION pos = map.GetStartPosition(); pos != nullptr;) {
    KEY key{};
    VALUE value{};
    map.GetNextAssoc(pos, key, value);
    keys.push_back(key);
  }
  return keys;
}

std::vector<std::uint8_t> RawBytes(const void* p, std::size_t n) {
  auto b = static_cast<const std::uint8_t*>(p);
  return std::vector<std::uint8_t>(b, b + n);
}

}  // namespace

// --- insertion and lookup -------------------------------------------------------------------------

TEST(CMap, NewMapIsEmpty) {
  IntMap map;
  int value = -1;

  EXPECT_EQ(map.GetCount(), 0);
  EXPECT_TRUE(map.IsEmpty());
  EXPECT_EQ(map.GetStartPosition(), nullptr);
  EXPECT_FALSE(map.Lookup(0, value));
}

TEST(CMap, SetAtThenLookupFindsValue) {
  NameMap map;

  map.SetAt(1, L"一");
  map.SetAt(2, L"二");
  CString one;
  CString two;
  bool foundOne = map.Lookup(1, one);
  bool foundTwo = map.Lookup(2, two);

  EXPECT_TRUE(foundOne);
  EXPECT_TRUE(foundTwo);
  EXPECT_EQ(one.str(), L"一");
  EXPECT_EQ(two.str(), L"二");
}

TEST(CMap, LookupOfAbsentKeyIsFalseAndLeavesValue) {
  NameMap map;
  map.SetAt(1, L"一");
  CString value(L"untouched");

  bool found = map.Lookup(2, value);

  EXPECT_FALSE(found);
  EXPECT_EQ(value.str(), L"untouched");
}

TEST(CMap, SetAtOnExistingKeyReplacesValue) {
  NameMap map;
  map.SetAt(7, L"旧");

  map.SetAt(7, L"新");
  CString value;

  ASSERT_TRUE(map.Lookup(7, value));
  EXPECT_EQ(value.str(), L"新");
  EXPECT_EQ(map.GetCount(), 1);
}

TEST(CMap, GetCountCountsDistinctKeys) {
  IntMap map;

  for (int k = 0; k < 50; ++k) map.SetAt(k * 7, k);
  map.SetAt(0, 100);  // an existing key

  EXPECT_EQ(map.GetCount(), 50);
  EXPECT_EQ(map.GetSize(), 50);
}

TEST(CMap, SubscriptInsertsZeroForAbsentKey) {
  IntMap map;

  int& slot = map[5];

  EXPECT_EQ(slot, 0);
  EXPECT_EQ(map.GetCount(), 1);
}

TEST(CMap, SubscriptWritesAndReadsValue) {
  NameMap map;

  map[3] = L"三";
  map[3] += L"号";
  CString value;

  ASSERT_TRUE(map.Lookup(3, value));
  EXPECT_EQ(value.str(), L"三号");
  EXPECT_EQ(map[3].str(), L"三号");
  EXPECT_EQ(map.GetCount(), 1);
}

TEST(CMap, StringKeysLookUpByValue) {
  CMap<CString, const CString&, int, int> map;
  map.SetAt(L"北京", 1);
  map.SetAt(L"上海", 2);
  int value = 0;

  bool found = map.Lookup(CString(L"上海"), value);

  EXPECT_TRUE(found);
  EXPECT_EQ(value, 2);
  EXPECT_FALSE(map.Lookup(L"广州", value));
}

// --- removal --------------------------------------------------------------------------------------

TEST(CMap, RemoveKeyRemovesOnlyThatKey) {
  IntMap map;
  map.SetAt(1, 10);
  map.SetAt(2, 20);
  map.SetAt(3, 30);

  bool removed = map.RemoveKey(2);
  int value = 0;

  EXPECT_TRUE(removed);
  EXPECT_EQ(map.GetCount(), 2);
  EXPECT_FALSE(map.Lookup(2, value));
  EXPECT_TRUE(map.Lookup(1, value));
  EXPECT_EQ(value, 10);
  EXPECT_TRUE(map.Lookup(3, value));
  EXPECT_EQ(value, 30);
}

TEST(CMap, RemoveKeyOfAbsentKeyIsFalse) {
  IntMap map;
  IntMap empty;
  map.SetAt(1, 10);

  EXPECT_FALSE(map.RemoveKey(2));
  EXPECT_FALSE(empty.RemoveKey(1));
  EXPECT_TRUE(map.RemoveKey(1));
  EXPECT_FALSE(map.RemoveKey(1));  // already gone
  EXPECT_EQ(map.GetCount(), 0);
}

TEST(CMap, RemoveAllEmptiesAndMapStaysUsable) {
  NameMap map;
  for (int k = 0; k < 40; ++k) map.SetAt(k, L"x");

  map.RemoveAll();
  CString value;

  EXPECT_EQ(map.GetCount(), 0);
  EXPECT_TRUE(map.IsEmpty());
  EXPECT_EQ(map.GetStartPosition(), nullptr);
  EXPECT_FALSE(map.Lookup(0, value));
  map.SetAt(5, L"五");
  EXPECT_TRUE(map.Lookup(5, value));
  EXPECT_EQ(value.str(), L"五");
  EXPECT_EQ(map.GetCount(), 1);
}

// --- walking --------------------------------------------------------------------------------------

TEST(CMap, IterationVisitsEveryEntryOnce) {
  // Keys spread over many buckets (key >> 4 varies) and several per bucket.
  IntMap map;
  for (int k = 0; k < 300; k += 3) map.SetAt(k, k * 2);
  std::map<int, int> visits;

  for (POSITION pos = map.GetStartPosition(); pos != nullptr;) {
    int key = -1;
    int value = -1;
    map.GetNextAssoc(pos, key, value);
    ++visits[key];
    EXPECT_EQ(value, key * 2) << "key " << key;
  }

  EXPECT_EQ(static_cast<int>(visits.size()), map.GetCount());
  for (int k = 0; k < 300; k += 3) EXPECT_EQ(visits[k], 1) << "key " << k;
}

TEST(CMap, IterationOverStringKeysVisitsEveryEntryOnce) {
  CMap<CString, const CString&, int, int> map;
  const wchar_t* cities[] = {L"北京", L"上海", L"广州", L"深圳", L"成都", L"a", L"b", L"ab"};
  for (int i = 0; i < 8; ++i) map.SetAt(cities[i], i);
  std::map<std::wstring, int> visits;

  for (POSITION pos = map.GetStartPosition(); pos != nullptr;) {
    CString key;
    int value = -1;
    map.GetNextAssoc(pos, key, value);
    ++visits[key.str()];
  }

  ASSERT_EQ(visits.size(), 8u);
  for (const wchar_t* city : cities) EXPECT_EQ(visits[city], 1);
}

TEST(CMap, BucketOrderSmallKeysShareBucketZeroNewestFirst) {
  // Integer keys hash to key >> 4, so 0..4 all land in bucket 0, where the newest comes first.
  IntMap map;
  for (int k = 0; k <= 4; ++k) map.SetAt(k, k);

  std::vector<int> keys = WalkKeys(map);

  EXPECT_EQ(keys, (std::vector<int>{4, 3, 2, 1, 0}));
}

TEST(CMap, BucketOrderVisitsBucketsInIndexOrder) {
  // 32 -> hash 2 -> bucket 2, 16 -> bucket 1, 0 -> bucket 0, 272 -> hash 17 -> bucket 17 % 17 = 0.
  // Bucket 0 holds 272 then 0 (272 is newer), then bucket 1, then bucket 2.
  IntMap map;
  map.SetAt(32, 0);
  map.SetAt(16, 0);
  map.SetAt(0, 0);
  map.SetAt(272, 0);

  std::vector<int> keys = WalkKeys(map);

  EXPECT_EQ(keys, (std::vector<int>{272, 0, 16, 32}));
}

TEST(CMap, ReplacingValueKeepsBucketPosition) {
  IntMap map;
  for (int k = 0; k <= 2; ++k) map.SetAt(k, k);

  map.SetAt(0, 99);  // an existing key: replaced in place, not moved to the front

  EXPECT_EQ(WalkKeys(map), (std::vector<int>{2, 1, 0}));
}

// --- hash table size ------------------------------------------------------------------------------

TEST(CMap, DefaultHashTableHas17Buckets) {
  IntMap map;

  EXPECT_EQ(map.GetHashTableSize(), 17u);
}

TEST(CMap, InitHashTableWhileEmptyChangesBucketCount) {
  // With 31 buckets, 272 (hash 17) no longer shares bucket 0 with 0: it sits in bucket 17.
  IntMap map;

  map.InitHashTable(31);
  map.SetAt(0, 0);
  map.SetAt(272, 0);

  EXPECT_EQ(map.GetHashTableSize(), 31u);
  EXPECT_EQ(WalkKeys(map), (std::vector<int>{0, 272}));
}

TEST(CMap, InitHashTableIgnoredOnceMapHasEntries) {
  IntMap map;
  map.SetAt(0, 0);

  map.InitHashTable(31);
  map.SetAt(272, 0);

  EXPECT_EQ(map.GetHashTableSize(), 17u);
  EXPECT_EQ(WalkKeys(map), (std::vector<int>{272, 0}));  // still sharing bucket 0 of 17
}

TEST(CMap, InitHashTableHonouredAgainAfterRemoveAll) {
  IntMap map;
  map.SetAt(1, 1);
  map.RemoveAll();

  map.InitHashTable(31);

  EXPECT_EQ(map.GetHashTableSize(), 31u);
}

// --- archive form ---------------------------------------------------------------------------------

TEST(CMap, ArchiveRoundTripGivesSameEntries) {
  NameMap source;
  source.SetAt(1, L"北京");
  source.SetAt(2, L"上海");
  source.SetAt(40, L"广州");
  source.SetAt(3, L"");
  CADataStream stream;
  ASSERT_EQ(source.StoreTo(stream), 0);
  NameMap target;

  int rc = target.LoadFrom(stream);

  ASSERT_EQ(rc, 0);
  EXPECT_EQ(target.GetCount(), 4);
  const std::pair<int, const wchar_t*> expected[] = {{1, L"北京"}, {2, L"上海"}, {40, L"广州"}, {3, L""}};
  for (const auto& [key, text] : expected) {
    CString value(L"missing");
    EXPECT_TRUE(target.Lookup(key, value)) << "key " << key;
    EXPECT_EQ(value.str(), text) << "key " << key;
  }
  EXPECT_EQ(stream.GetRemaining(), 0u);
}

TEST(CMap, ArchiveStartsWithCountThenFirstKeyOfTheWalk) {
  // Keys 1, 2, 3 share bucket 0, newest first: the walk, and so the archive, starts with key 3.
  NameMap map;
  map.SetAt(1, L"一");
  map.SetAt(2, L"二");
  map.SetAt(3, L"三");
  CADataStream stream;

  int rc = map.StoreTo(stream);

  ASSERT_EQ(rc, 0);
  ASSERT_EQ(WalkKeys(map).front(), 3);
  const int firstKey = 3;
  std::vector<std::uint8_t> expected = {0x03, 0x00};  // count 3, two bytes little-endian
  auto keyBytes = RawBytes(&firstKey, sizeof firstKey);
  expected.insert(expected.end(), keyBytes.begin(), keyBytes.end());
  // Then its value, a stream string: one UTF-16 unit, 三 U+4E09.
  for (std::uint8_t b : {0x01, 0x00, 0x00, 0x00, 0x09, 0x4E}) expected.push_back(b);
  const auto& bytes = stream.GetBytes();
  ASSERT_GE(bytes.size(), expected.size());
  EXPECT_EQ(std::vector<std::uint8_t>(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(expected.size())),
            expected);
}

TEST(CMap, ArchiveHoldsAllPairsInWalkOrder) {
  // Each pair is the key's raw bytes then the value's raw bytes, in walk order: bucket 0 (1 newer
  // than 0), then bucket 1 (16).
  IntMap map;
  map.SetAt(16, 160);  // bucket 1
  map.SetAt(0, 0);     // bucket 0
  map.SetAt(1, 10);    // bucket 0, newer than 0
  CADataStream stream;

  int rc = map.StoreTo(stream);

  ASSERT_EQ(rc, 0);
  std::vector<std::uint8_t> expected = {0x03, 0x00};
  for (int v : {1, 10, 0, 0, 16, 160}) {
    auto raw = RawBytes(&v, sizeof v);
    expected.insert(expected.end(), raw.begin(), raw.end());
  }
  EXPECT_EQ(stream.GetBytes(), expected);
}

TEST(CMap, LoadFromReplacesExistingKeys) {
  IntMap source;
  source.SetAt(1, 100);
  CADataStream stream;
  ASSERT_EQ(source.StoreTo(stream), 0);
  IntMap target;
  target.SetAt(1, 1);
  target.SetAt(2, 2);

  int rc = target.LoadFrom(stream);
  int one = 0;
  int two = 0;

  ASSERT_EQ(rc, 0);
  EXPECT_EQ(target.GetCount(), 2);
  ASSERT_TRUE(target.Lookup(1, one));
  ASSERT_TRUE(target.Lookup(2, two));
  EXPECT_EQ(one, 100);
  EXPECT_EQ(two, 2);
}

TEST(CMap, LoadFromCountBeyondRemainingBytesFailsAndAddsNothing) {
  // Ten pairs claimed, one present.
  CADataStream stream;
  stream.WriteCount(10);
  const int key = 1;
  stream.WriteRaw(&key, sizeof key);
  stream.WriteItem(CString(L"一"));
  NameMap map;

  int rc = map.LoadFrom(stream);

  EXPECT_NE(rc, 0);
  EXPECT_TRUE(map.IsEmpty());
}
