// Yearly temperature data: a file path and a list of 768-byte daily records. The value's own stream
// and exchange carry neither; the list travels in its archive form (count, then raw blocks).

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

#include "datakit/ADataDef.h"
#include "datakit/CADataExchange.h"
#include "datakit/CADataStream.h"
#include "datakit/CAMemoryDataProp.h"
#include "mfc/CString.h"
#include "weather/CTempDataYear.h"

namespace {

// A record whose 96 values all differ from those of a record made from another seed.
DayTempData Day(double seed) {
  DayTempData d{};
  for (int i = 0; i < 96; ++i) d.Values[i] = seed + i * 0.25;  // °C
  return d;
}

bool SameDay(const DayTempData& a, const DayTempData& b) {
  return std::memcmp(&a, &b, sizeof(DayTempData)) == 0;
}

// The index-th record of the list, for comparisons.
const DayTempData& At(const CTempDataYear& year, int index) {
  return year.DayTempList.GetAt(year.DayTempList.FindIndex(index));
}

// The archive count of three takes two bytes.
constexpr std::size_t kCountBytes = 2;

}  // namespace

TEST(CTempDataYear, FreshObjectHasEmptyPathAndNoRecords) {
  const CTempDataYear year;

  EXPECT_EQ(year.GetFilePath(), L"");
  EXPECT_EQ(year.DayTempList.GetCount(), 0);
}

TEST(CTempDataYear, InitSetsThePathThatGetFilePathReturns) {
  CTempDataYear year;

  year.Init(L"D:\\气象\\北京.tmp");

  EXPECT_EQ(year.GetFilePath(), L"D:\\气象\\北京.tmp");
}

TEST(CTempDataYear, DataOutPutWritesNeitherPathNorRecords) {
  CTempDataYear year;
  year.Init(L"年温度.dat");
  year.DayTempList.AddTail(Day(1.0));
  year.DayTempList.AddTail(Day(2.0));
  CADataStream stream;

  ASSERT_EQ(year.DataOutPut(stream), ADataDef::AD_OK);

  EXPECT_EQ(stream.GetSize(), 0u);
}

TEST(CTempDataYear, DataInPutReadsNeitherPathNorRecords) {
  // A stream that does hold a path and an archived list, as a careless reader might expect.
  CADataStream stream;
  stream.WriteItem(CString(L"别的.dat"));
  CTempDataYear other;
  other.DayTempList.AddTail(Day(5.0));
  other.DayTempList.StoreTo(stream);
  CTempDataYear reader;
  reader.Init(L"原来.dat");
  reader.DayTempList.AddTail(Day(9.0));

  ASSERT_EQ(reader.DataInPut(stream), ADataDef::AD_OK);

  EXPECT_EQ(reader.GetFilePath(), L"原来.dat");
  ASSERT_EQ(reader.DayTempList.GetCount(), 1);
  EXPECT_TRUE(SameDay(At(reader, 0), Day(9.0)));
  EXPECT_EQ(stream.GetPosition(), 0u);
}

TEST(CTempDataYear, DataOutProWritesNoItems) {
  CTempDataYear year;
  year.Init(L"年温度.dat");
  year.DayTempList.AddTail(Day(1.0));
  CAMemoryDataProp store;

  ASSERT_EQ(year.DataOutPro(CADataExchange(store)), ADataDef::AD_OK);

  EXPECT_EQ(store.GetCount(), 0);
}

TEST(CTempDataYear, ArchivedListOfThreeRecordsReadsBackInOrder) {
  CTempDataYear out;
  out.DayTempList.AddTail(Day(1.0));
  out.DayTempList.AddTail(Day(-20.0));
  out.DayTempList.AddTail(Day(300.0));
  CADataStream stream;
  ASSERT_EQ(out.DayTempList.StoreTo(stream), 0);
  CTempDataYear in;

  ASSERT_EQ(in.DayTempList.LoadFrom(stream), 0);

  ASSERT_EQ(in.DayTempList.GetCount(), 3);
  EXPECT_TRUE(SameDay(At(in, 0), Day(1.0)));
  EXPECT_TRUE(SameDay(At(in, 1), Day(-20.0)));
  EXPECT_TRUE(SameDay(At(in, 2), Day(300.0)));
}

TEST(CTempDataYear, ArchiveIsTheCountThenEachRecordAsA768ByteBlock) {
  CTempDataYear out;
  out.DayTempList.AddTail(Day(1.0));
  out.DayTempList.AddTail(Day(2.0));
  out.DayTempList.AddTail(Day(3.0));
  CADataStream stream;

  ASSERT_EQ(out.DayTempList.StoreTo(stream), 0);

  ASSERT_EQ(stream.GetSize(), kCountBytes + 3 * 768u);
  const std::uint8_t* bytes = stream.GetBytes().data();
  EXPECT_EQ(bytes[0], 3);
  EXPECT_EQ(bytes[1], 0);
  const DayTempData second = Day(2.0);
  EXPECT_EQ(std::memcmp(bytes + kCountBytes + 768, &second, 768), 0);
}

TEST(CTempDataYear, LoadingAppendsToTheRecordsAlreadyThere) {
  CTempDataYear out;
  out.DayTempList.AddTail(Day(1.0));
  out.DayTempList.AddTail(Day(2.0));
  CADataStream stream;
  ASSERT_EQ(out.DayTempList.StoreTo(stream), 0);
  CTempDataYear in;
  in.DayTempList.AddTail(Day(7.0));

  ASSERT_EQ(in.DayTempList.LoadFrom(stream), 0);

  ASSERT_EQ(in.DayTempList.GetCount(), 3);
  EXPECT_TRUE(SameDay(At(in, 0), Day(7.0)));
  EXPECT_TRUE(SameDay(At(in, 1), Day(1.0)));
  EXPECT_TRUE(SameDay(At(in, 2), Day(2.0)));
}

TEST(CTempDataYear, CountLargerThanTheBytesThatRemainIsRefusedWithNoRecordAdded) {
  // Three records announced, two present.
  CADataStream stream;
  stream.WriteCount(3);
  const DayTempData a = Day(1.0), b = Day(2.0);
  stream.WriteRaw(&a, sizeof a);
  stream.WriteRaw(&b, sizeof b);
  CTempDataYear in;
  in.DayTempList.AddTail(Day(7.0));

  const int rc = in.DayTempList.LoadFrom(stream);

  EXPECT_NE(rc, 0);
  ASSERT_EQ(in.DayTempList.GetCount(), 1);
  EXPECT_TRUE(SameDay(At(in, 0), Day(7.0)));
}

TEST(CTempDataYear, CopyConstructorCopiesPathAndRecords) {
  CTempDataYear source;
  source.Init(L"源.dat");
  source.DayTempList.AddTail(Day(1.0));
  source.DayTempList.AddTail(Day(2.0));

  const CTempDataYear copy(source);

  EXPECT_EQ(copy.GetFilePath(), L"源.dat");
  ASSERT_EQ(copy.DayTempList.GetCount(), 2);
  EXPECT_TRUE(SameDay(At(copy, 0), Day(1.0)));
  EXPECT_TRUE(SameDay(At(copy, 1), Day(2.0)));
}

TEST(CTempDataYear, ChangingACopyLeavesItsSourceUnchanged) {
  CTempDataYear source;
  source.Init(L"源.dat");
  source.DayTempList.AddTail(Day(1.0));
  CTempDataYear copy(source);

  copy.Init(L"副本.dat");
  copy.DayTempList.GetHead().Values[0] = -99.0;
  copy.DayTempList.AddTail(Day(3.0));

  EXPECT_EQ(source.GetFilePath(), L"源.dat");
  ASSERT_EQ(source.DayTempList.GetCount(), 1);
  EXPECT_TRUE(SameDay(At(source, 0), Day(1.0)));
}

TEST(CTempDataYear, AssignmentReplacesPathAndRecords) {
  CTempDataYear source;
  source.Init(L"源.dat");
  source.DayTempList.AddTail(Day(1.0));
  source.DayTempList.AddTail(Day(2.0));
  CTempDataYear target;
  target.Init(L"目标.dat");
  target.DayTempList.AddTail(Day(8.0));

  target = source;

  EXPECT_EQ(target.GetFilePath(), L"源.dat");
  ASSERT_EQ(target.DayTempList.GetCount(), 2);
  EXPECT_TRUE(SameDay(At(target, 0), Day(1.0)));
  EXPECT_TRUE(SameDay(At(target, 1), Day(2.0)));
}

TEST(CTempDataYear, ChangingAnAssignedCopyLeavesItsSourceUnchanged) {
  CTempDataYear source;
  source.Init(L"源.dat");
  source.DayTempList.AddTail(Day(1.0));
  CTempDataYear target;
  target = source;

  target.Init(L"目标.dat");
  target.DayTempList.GetHead().Values[95] = 123.0;
  target.DayTempList.RemoveAll();

  EXPECT_EQ(source.GetFilePath(), L"源.dat");
  ASSERT_EQ(source.DayTempList.GetCount(), 1);
  EXPECT_TRUE(SameDay(At(source, 0), Day(1.0)));
}
