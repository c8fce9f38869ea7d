// CLxMapBase and CLxMap: the hashed map with value copying that keeps the bucket count and the walk.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "datakit/CADataStream.h"
#include "foundation/CLxMap.h"
#include "foundation/QKLoad.h"
#include "mfc/CString.h"

namespace {

using NameMap = CLxMap<QKLoad::EQKLdQdType, CString>;
using IntMap = CLxMap<int, int>;

// The entries in walk (bucket) order.
template <class K, class ARG_K, class V, class ARG_V>
std::vector<std::pair<K, V>> Walk(const CMap<K, ARG_K, V, ARG_V>& map) {
  std::vector<std::pair<K, V>> out;
  for (POSITION pos = map.GetStartPosition(); pos != nullptr;) {
    std::pair<K, V> entry{};
    map.GetNextAssoc(pos, entry.first, entry.second);
    out.push_back(entry);
  }
  return out;
}

std::vector<std::pair<int, std::wstring>> WalkNames(const NameMap& map) {
  std::vector<std::pair<int, std::wstring>> out;
  for (const auto& [key, value] : Walk(map)) out.emplace_back(key, value.str());
  return out;
}

// The labour intensities with their display names, inserted from sitting to heavy.
NameMap LabourNames() {
  NameMap map;
  map.SetAt(QKLoad::LdQdSitting, L"静坐");
  map.SetAt(QKLoad::LdQdVeryLight, L"极轻劳动");
  map.SetAt(QKLoad::LdQdLight, L"轻度劳动");
  map.SetAt(QKLoad::LdQdModerate, L"中等劳动");
  map.SetAt(QKLoad::LdQdHeavy, L"重度劳动");
  return map;
}

}  // namespace

TEST(CLxMap, CopyKeepsTheWalkOrderWithinABucket) {
  // Keys 0..4 share bucket 0, newest first: the walk is heavy .. sitting.
  NameMap source = LabourNames();

  NameMap copy(source);

  EXPECT_EQ(WalkNames(copy), WalkNames(source));
  EXPECT_EQ(WalkNames(copy).front().first, static_cast<int>(QKLoad::LdQdHeavy));
}

TEST(CLxMap, CopyKeepsTheWalkOrderAcrossBuckets) {
  // With 17 buckets, 272 and 0 share bucket 0 (272 newer); 288 and 16 share bucket 1 (288 newer).
  IntMap source;
  source.SetAt(0, 1);
  source.SetAt(16, 2);
  source.SetAt(272, 3);
  source.SetAt(288, 4);

  IntMap copy(source);

  EXPECT_EQ(Walk(copy), (std::vector<std::pair<int, int>>{{272, 3}, {0, 1}, {288, 4}, {16, 2}}));
}

TEST(CLxMap, CopyKeepsTheBucketCount) {
  // With 31 buckets, 0 and 272 sit in buckets 0 and 17; with the default 17 they would share one.
  IntMap source;
  source.InitHashTable(31);
  source.SetAt(0, 0);
  source.SetAt(272, 0);

  IntMap copy(source);

  EXPECT_EQ(copy.GetHashTableSize(), 31u);
  EXPECT_EQ(Walk(copy), (std::vector<std::pair<int, int>>{{0, 0}, {272, 0}}));
}

TEST(CLxMap, CopyIsIndependentOfTheSource) {
  NameMap source = LabourNames();
  NameMap copy(source);

  copy.SetAt(QKLoad::LdQdSitting, L"坐");
  source.RemoveKey(QKLoad::LdQdHeavy);
  CString sitting;
  CString heavy;

  ASSERT_TRUE(source.Lookup(QKLoad::LdQdSitting, sitting));
  EXPECT_EQ(sitting.str(), L"静坐");
  EXPECT_TRUE(copy.Lookup(QKLoad::LdQdHeavy, heavy));
  EXPECT_EQ(copy.GetCount(), 5);
  EXPECT_EQ(source.GetCount(), 4);
}

TEST(CLxMap, CopyOfEmptyMapIsEmpty) {
  NameMap source;

  NameMap copy(source);

  EXPECT_TRUE(copy.IsEmpty());
  EXPECT_EQ(copy.GetStartPosition(), nullptr);
}

TEST(CLxMap, AssignmentReplacesEntriesAndTakesTheSourceBucketCount) {
  IntMap source;
  source.SetAt(0, 1);
  source.SetAt(272, 2);
  IntMap target;
  target.InitHashTable(31);
  target.SetAt(5, 5);

  target = source;

  EXPECT_EQ(target.GetHashTableSize(), 17u);
  EXPECT_EQ(Walk(target), (std::vector<std::pair<int, int>>{{272, 2}, {0, 1}}));
}

TEST(CLxMap, AssignmentToItselfKeepsEntries) {
  NameMap map = LabourNames();
  const auto before = WalkNames(map);
  NameMap& same = map;

  map = same;

  EXPECT_EQ(WalkNames(map), before);
}

TEST(CLxMap, CopyWritesTheSameArchiveBytesAsTheSource) {
  NameMap source = LabourNames();
  NameMap copy(source);
  CADataStream sourceStream;
  CADataStream copyStream;

  ASSERT_EQ(source.StoreTo(sourceStream), 0);
  ASSERT_EQ(copy.StoreTo(copyStream), 0);

  EXPECT_EQ(copyStream.GetBytes(), sourceStream.GetBytes());
}

TEST(CLxMap, NameMapArchiveRoundTripGivesSameEntries) {
  NameMap source = LabourNames();
  CADataStream stream;
  ASSERT_EQ(source.StoreTo(stream), 0);
  NameMap target;

  int rc = target.LoadFrom(stream);

  // Loading inserts in walk order, so a bucket comes back reversed: compare the entries, not the walk.
  ASSERT_EQ(rc, 0);
  auto loaded = WalkNames(target);
  auto stored = WalkNames(source);
  std::sort(loaded.begin(), loaded.end());
  std::sort(stored.begin(), stored.end());
  EXPECT_EQ(loaded, stored);
  EXPECT_EQ(stream.GetRemaining(), 0u);
}

TEST(CLxMapBase, CopyWithValueArgumentTypesKeepsTheWalk) {
  CLxMapBase<int, int, CString, const CString&> source;
  source.SetAt(1, L"一");
  source.SetAt(2, L"二");

  CLxMapBase<int, int, CString, const CString&> copy(source);

  ASSERT_EQ(copy.GetCount(), 2);
  POSITION pos = copy.GetStartPosition();
  int key = 0;
  CString value;
  copy.GetNextAssoc(pos, key, value);
  EXPECT_EQ(key, 2);
  EXPECT_EQ(value.str(), L"二");
}
