// CADataStream: the ordered byte stream values serialise into. Host project files keep these bytes,
// so the byte layout is checked literally, byte by byte, not only by round trips.

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

#include "datakit/ADataDef.h"
#include "datakit/CADataStream.h"
#include "mfc/CString.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

std::uint64_t BitsOf(double value) {
  std::uint64_t bits;
  std::memcpy(&bits, &value, sizeof bits);
  return bits;
}

double DoubleFromBits(std::uint64_t bits) {
  double value;
  std::memcpy(&value, &bits, sizeof value);
  return value;
}

CADataStream StreamOf(const Bytes& bytes) { return CADataStream(bytes.data(), bytes.size()); }

// Values receive streams by value; this stands for such a value writing one item.
void WriteSevenThroughAValueParameter(CADataStream stream) { stream.WriteItem(7); }

}  // namespace

// ---- construction -------------------------------------------------------------------------------

TEST(CADataStream, NewStreamIsEmptyWithTheReadPositionAtZero) {
  CADataStream stream;

  EXPECT_EQ(stream.GetSize(), 0u);
  EXPECT_TRUE(stream.GetBytes().empty());
  EXPECT_EQ(stream.GetPosition(), 0u);
  EXPECT_EQ(stream.GetRemaining(), 0u);
}

TEST(CADataStream, StreamBuiltFromBytesReadsFromTheStart) {
  const Bytes bytes = {0x05, 0x00, 0x00, 0x00, 0xFE, 0xFF, 0xFF, 0xFF};

  CADataStream stream = StreamOf(bytes);
  int first = 0;
  int second = 0;
  ASSERT_EQ(stream.ReadItem(&first), 0);
  ASSERT_EQ(stream.ReadItem(&second), 0);

  EXPECT_EQ(first, 5);
  EXPECT_EQ(second, -2);
  EXPECT_EQ(stream.GetSize(), 8u);
}

TEST(CADataStream, StreamBuiltFromBytesKeepsItsOwnCopyOfThem) {
  Bytes bytes = {0x2A, 0x00, 0x00, 0x00};
  CADataStream stream = StreamOf(bytes);

  bytes[0] = 0x63;  // the caller reuses its buffer
  int value = 0;
  ASSERT_EQ(stream.ReadItem(&value), 0);

  EXPECT_EQ(value, 42);
  EXPECT_EQ(stream.GetBytes(), (Bytes{0x2A, 0x00, 0x00, 0x00}));
}

// ---- int ----------------------------------------------------------------------------------------

TEST(CADataStream, WriteIntOneGivesFourLittleEndianBytes) {
  CADataStream stream;

  EXPECT_EQ(stream.WriteItem(1), 0);

  EXPECT_EQ(stream.GetBytes(), (Bytes{0x01, 0x00, 0x00, 0x00}));
}

TEST(CADataStream, WriteIntPutsTheLowByteFirst) {
  CADataStream stream;

  stream.WriteItem(0x12345678);

  EXPECT_EQ(stream.GetBytes(), (Bytes{0x78, 0x56, 0x34, 0x12}));
}

TEST(CADataStream, WriteNegativeIntGivesTwosComplementBytes) {
  CADataStream stream;

  stream.WriteItem(-2);

  EXPECT_EQ(stream.GetBytes(), (Bytes{0xFE, 0xFF, 0xFF, 0xFF}));
}

TEST(CADataStream, IntRoundTripsIncludingNegativesAndTheExtremes) {
  const int values[] = {0, 1, -1, -123456, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()};
  CADataStream stream;
  for (int v : values) ASSERT_EQ(stream.WriteItem(v), 0);

  for (int expected : values) {
    int read = 99;
    ASSERT_EQ(stream.ReadItem(&read), 0);
    EXPECT_EQ(read, expected);
  }
  EXPECT_EQ(stream.GetRemaining(), 0u);
}

// ---- long ---------------------------------------------------------------------------------------

TEST(CADataStream, LongIsCarriedAsFourBytes) {
  CADataStream stream;

  EXPECT_EQ(stream.WriteItem(-3L), 0);

  EXPECT_EQ(stream.GetBytes(), (Bytes{0xFD, 0xFF, 0xFF, 0xFF}));
}

TEST(CADataStream, LongRoundTripsIncludingNegativesAndThe32BitExtremes) {
  const long values[] = {0L, 77L, -77L, -2147483647L - 1L, 2147483647L};
  CADataStream stream;
  for (long v : values) ASSERT_EQ(stream.WriteItem(v), 0);

  for (long expected : values) {
    long read = 99;
    ASSERT_EQ(stream.ReadItem(&read), 0);
    EXPECT_EQ(read, expected);
  }
}

TEST(CADataStream, LongOutsideThe32BitRangeReturnsOutOfRangeAndStillWritesFourBytes) {
  if constexpr (sizeof(long) <= 4) {
    GTEST_SKIP() << "long has 32 bits here; no long value lies outside the item's range";
  } else {
    CADataStream stream;
    const long tooBig = static_cast<long>((std::int64_t{1} << 32) + 5);  // wraps to 5

    EXPECT_EQ(stream.WriteItem(tooBig), ADataDef::AD_OUTOFRANGE);

    EXPECT_EQ(stream.GetBytes(), (Bytes{0x05, 0x00, 0x00, 0x00}));
  }
}

TEST(CADataStream, LongBelowThe32BitRangeReturnsOutOfRangeAndStillWritesFourBytes) {
  if constexpr (sizeof(long) <= 4) {
    GTEST_SKIP() << "long has 32 bits here; no long value lies outside the item's range";
  } else {
    CADataStream stream;
    const long tooSmall = static_cast<long>(-(std::int64_t{1} << 31) - 1);  // wraps to 0x7FFFFFFF

    EXPECT_EQ(stream.WriteItem(tooSmall), ADataDef::AD_OUTOFRANGE);

    EXPECT_EQ(stream.GetBytes(), (Bytes{0xFF, 0xFF, 0xFF, 0x7F}));
  }
}

// ---- unsigned long ------------------------------------------------------------------------------

TEST(CADataStream, UnsignedLongRoundTripsUpToTheLargest32BitValue) {
  const unsigned long values[] = {0UL, 1UL, 0x80000000UL, 0xFFFFFFFFUL};
  CADataStream stream;
  for (unsigned long v : values) ASSERT_EQ(stream.WriteItem(v), 0);

  for (unsigned long expected : values) {
    unsigned long read = 99;
    ASSERT_EQ(stream.ReadItem(&read), 0);
    EXPECT_EQ(read, expected);
  }
}

TEST(CADataStream, UnsignedLongIsCarriedAsFourLittleEndianBytes) {
  CADataStream stream;

  stream.WriteItem(0xA1B2C3D4UL);

  EXPECT_EQ(stream.GetBytes(), (Bytes{0xD4, 0xC3, 0xB2, 0xA1}));
}

TEST(CADataStream, UnsignedLongAbove32BitsReturnsOutOfRangeAndStillWritesFourBytes) {
  if constexpr (sizeof(unsigned long) <= 4) {
    GTEST_SKIP() << "unsigned long has 32 bits here";
  } else {
    CADataStream stream;
    const unsigned long tooBig = static_cast<unsigned long>((std::uint64_t{3} << 32) | 0x10u);

    EXPECT_EQ(stream.WriteItem(tooBig), ADataDef::AD_OUTOFRANGE);

    EXPECT_EQ(stream.GetBytes(), (Bytes{0x10, 0x00, 0x00, 0x00}));
  }
}

// ---- double -------------------------------------------------------------------------------------

TEST(CADataStream, WriteDoubleOneGivesItsIeeeBytesLittleEndian) {
  CADataStream stream;

  EXPECT_EQ(stream.WriteItem(1.0), 0);

  // 1.0 is 0x3FF0000000000000: sign 0, biased exponent 0x3FF, fraction 0.
  EXPECT_EQ(stream.GetBytes(), (Bytes{0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xF0, 0x3F}));
}

TEST(CADataStream, WriteDoubleMaxGivesItsIeeeBytesLittleEndian) {
  CADataStream stream;

  stream.WriteItem(DBL_MAX);

  // DBL_MAX is 0x7FEFFFFFFFFFFFFF: largest finite exponent, all fraction bits set.
  EXPECT_EQ(stream.GetBytes(), (Bytes{0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xEF, 0x7F}));
}

TEST(CADataStream, NegativeZeroKeepsItsSignBitOnTheWireAndBack) {
  CADataStream stream;
  stream.WriteItem(-0.0);
  double read = 1.0;

  ASSERT_EQ(stream.ReadItem(&read), 0);

  EXPECT_EQ(stream.GetBytes(), (Bytes{0, 0, 0, 0, 0, 0, 0, 0x80}));
  EXPECT_EQ(read, 0.0);
  EXPECT_TRUE(std::signbit(read));
}

TEST(CADataStream, DoubleRoundTripsTheExtremes) {
  const double values[] = {DBL_MAX,
                           -DBL_MAX,
                           DBL_MIN,
                           std::numeric_limits<double>::denorm_min(),
                           std::numeric_limits<double>::infinity(),
                           -std::numeric_limits<double>::infinity(),
                           -1234.5678e-200};
  CADataStream stream;
  for (double v : values) ASSERT_EQ(stream.WriteItem(v), 0);

  for (double expected : values) {
    double read = 0.0;
    ASSERT_EQ(stream.ReadItem(&read), 0);
    EXPECT_EQ(BitsOf(read), BitsOf(expected));
  }
}

TEST(CADataStream, NanKeepsItsExactBitPattern) {
  // A quiet NaN with a payload: only a byte-exact copy keeps the payload bits.
  const std::uint64_t nanBits = 0x7FF8000000ABCDEFull;
  CADataStream stream;
  stream.WriteItem(DoubleFromBits(nanBits));
  double read = 0.0;

  ASSERT_EQ(stream.ReadItem(&read), 0);

  EXPECT_TRUE(std::isnan(read));
  EXPECT_EQ(BitsOf(read), nanBits);
  EXPECT_EQ(stream.GetBytes(), (Bytes{0xEF, 0xCD, 0xAB, 0x00, 0x00, 0x00, 0xF8, 0x7F}));
}

// ---- CString ------------------------------------------------------------------------------------

TEST(CADataStream, StringIsACountOfUtf16UnitsThenTheUnitsLittleEndian) {
  CADataStream stream;

  EXPECT_EQ(stream.WriteItem(CString(L"中")), 0);

  // U+4E2D is one UTF-16 unit.
  EXPECT_EQ(stream.GetBytes(), (Bytes{0x01, 0x00, 0x00, 0x00, 0x2D, 0x4E}));
}

TEST(CADataStream, AsciiStringTakesTwoBytesPerCharacter) {
  CADataStream stream;

  stream.WriteItem(CString(L"Ab"));

  EXPECT_EQ(stream.GetBytes(), (Bytes{0x02, 0x00, 0x00, 0x00, 0x41, 0x00, 0x62, 0x00}));
}

TEST(CADataStream, ChineseStringRoundTrips) {
  const CString address(L"北京市朝阳区");
  CADataStream stream;
  stream.WriteItem(address);
  CString read;

  ASSERT_EQ(stream.ReadItem(&read), 0);

  EXPECT_EQ(read, address);
  EXPECT_EQ(stream.GetSize(), 4u + 6u * 2u);  // six BMP characters, one unit each
  EXPECT_EQ(stream.GetRemaining(), 0u);
}

TEST(CADataStream, NonBmpCharacterTakesTwoUtf16UnitsOnTheWire) {
  CADataStream stream;

  stream.WriteItem(CString(L"\U0001F600"));

  // U+1F600 - 0x10000 = 0xF600: high surrogate 0xD800 + (0xF600 >> 10) = 0xD83D,
  // low surrogate 0xDC00 + (0xF600 & 0x3FF) = 0xDE00.
  EXPECT_EQ(stream.GetBytes(), (Bytes{0x02, 0x00, 0x00, 0x00, 0x3D, 0xD8, 0x00, 0xDE}));
}

TEST(CADataStream, NonBmpCharacterRoundTrips) {
  const CString text(L"a\U0001F600b");
  CADataStream stream;
  stream.WriteItem(text);
  CString read;

  ASSERT_EQ(stream.ReadItem(&read), 0);

  EXPECT_EQ(read, text);
}

TEST(CADataStream, EmptyStringIsAZeroCountAndRoundTrips) {
  CADataStream stream;
  stream.WriteItem(CString());
  CString read(L"previous");

  ASSERT_EQ(stream.ReadItem(&read), 0);

  EXPECT_EQ(stream.GetBytes(), (Bytes{0x00, 0x00, 0x00, 0x00}));
  EXPECT_TRUE(read.IsEmpty());
}

TEST(CADataStream, NullWideStringIsWrittenAsTheEmptyString) {
  CADataStream stream;

  EXPECT_EQ(stream.WriteItem(static_cast<const wchar_t*>(nullptr)), 0);

  EXPECT_EQ(stream.GetBytes(), (Bytes{0x00, 0x00, 0x00, 0x00}));
}

TEST(CADataStream, WideStringPointerIsWrittenLikeACString) {
  CADataStream fromPointer;
  CADataStream fromCString;

  fromPointer.WriteItem(L"朝阳");
  fromCString.WriteItem(CString(L"朝阳"));

  EXPECT_EQ(fromPointer.GetBytes(), fromCString.GetBytes());
}

// ---- order and positions ------------------------------------------------------------------------

TEST(CADataStream, MixedItemsReadBackInWritingOrder) {
  CADataStream stream;
  stream.WriteItem(-9);
  stream.WriteItem(CString(L"名称"));
  stream.WriteItem(2.25);
  stream.WriteItem(40000UL);
  stream.WriteItem(-40000L);
  int i = 0;
  CString s;
  double d = 0;
  unsigned long ul = 0;
  long l = 0;

  ASSERT_EQ(stream.ReadItem(&i), 0);
  ASSERT_EQ(stream.ReadItem(&s), 0);
  ASSERT_EQ(stream.ReadItem(&d), 0);
  ASSERT_EQ(stream.ReadItem(&ul), 0);
  ASSERT_EQ(stream.ReadItem(&l), 0);

  EXPECT_EQ(i, -9);
  EXPECT_EQ(s, CString(L"名称"));
  EXPECT_EQ(d, 2.25);
  EXPECT_EQ(ul, 40000UL);
  EXPECT_EQ(l, -40000L);
  EXPECT_EQ(stream.GetSize(), 4u + (4u + 4u) + 8u + 4u + 4u);
  EXPECT_EQ(stream.GetRemaining(), 0u);
}

TEST(CADataStream, ReadingAdvancesThePositionByTheItemSize) {
  CADataStream stream;
  stream.WriteItem(1);
  stream.WriteItem(1.5);
  stream.WriteItem(CString(L"xyz"));
  int i;
  double d;
  CString s;

  stream.ReadItem(&i);
  EXPECT_EQ(stream.GetPosition(), 4u);
  stream.ReadItem(&d);
  EXPECT_EQ(stream.GetPosition(), 12u);
  stream.ReadItem(&s);
  EXPECT_EQ(stream.GetPosition(), 12u + 4u + 3u * 2u);
}

TEST(CADataStream, WritesAppendAtTheEndWhateverTheReadPosition) {
  CADataStream stream;
  stream.WriteItem(1);
  stream.WriteItem(2);
  int first = 0;
  ASSERT_EQ(stream.ReadItem(&first), 0);

  stream.WriteItem(3);

  EXPECT_EQ(stream.GetPosition(), 4u);
  EXPECT_EQ(stream.GetSize(), 12u);
  int second = 0;
  int third = 0;
  ASSERT_EQ(stream.ReadItem(&second), 0);
  ASSERT_EQ(stream.ReadItem(&third), 0);
  EXPECT_EQ(second, 2);
  EXPECT_EQ(third, 3);
}

// ---- shared handles -----------------------------------------------------------------------------

TEST(CADataStream, WriteThroughACopyReadThroughTheOriginal) {
  CADataStream original;
  CADataStream copy(original);

  copy.WriteItem(1234);
  int read = 0;

  ASSERT_EQ(original.ReadItem(&read), 0);
  EXPECT_EQ(read, 1234);
  EXPECT_EQ(original.GetSize(), 4u);
}

TEST(CADataStream, ReadThroughACopyAdvancesTheOriginal) {
  CADataStream original;
  original.WriteItem(10);
  original.WriteItem(20);
  CADataStream copy(original);

  int first = 0;
  ASSERT_EQ(copy.ReadItem(&first), 0);

  EXPECT_EQ(original.GetPosition(), 4u);
  int second = 0;
  ASSERT_EQ(original.ReadItem(&second), 0);
  EXPECT_EQ(first, 10);
  EXPECT_EQ(second, 20);
}

TEST(CADataStream, AssignedStreamSharesTheBufferAndThePosition) {
  CADataStream original;
  original.WriteItem(5);
  CADataStream other;
  other.WriteItem(6);

  other = original;
  other.WriteItem(7);
  int read = 0;
  ASSERT_EQ(other.ReadItem(&read), 0);

  EXPECT_EQ(read, 5);
  EXPECT_EQ(original.GetSize(), 8u);
  EXPECT_EQ(original.GetPosition(), 4u);
}

TEST(CADataStream, StreamPassedByValueWritesIntoTheCallersStream) {
  CADataStream stream;

  WriteSevenThroughAValueParameter(stream);

  EXPECT_EQ(stream.GetBytes(), (Bytes{0x07, 0x00, 0x00, 0x00}));
}

// ---- failed reads -------------------------------------------------------------------------------

TEST(CADataStream, ReadingIntPastTheEndFailsAndChangesNothing) {
  CADataStream stream;
  stream.WriteItem(8);
  int consumed = 0;
  ASSERT_EQ(stream.ReadItem(&consumed), 0);
  int target = 55;

  EXPECT_NE(stream.ReadItem(&target), 0);

  EXPECT_EQ(target, 55);
  EXPECT_EQ(stream.GetPosition(), 4u);
}

TEST(CADataStream, ReadingLongPastTheEndFailsAndChangesNothing) {
  CADataStream stream;
  long target = -55;

  EXPECT_NE(stream.ReadItem(&target), 0);

  EXPECT_EQ(target, -55);
  EXPECT_EQ(stream.GetPosition(), 0u);
}

TEST(CADataStream, ReadingUnsignedLongPastTheEndFailsAndChangesNothing) {
  CADataStream stream;
  unsigned long target = 55;

  EXPECT_NE(stream.ReadItem(&target), 0);

  EXPECT_EQ(target, 55u);
  EXPECT_EQ(stream.GetPosition(), 0u);
}

TEST(CADataStream, ReadingDoublePastTheEndFailsAndChangesNothing) {
  CADataStream stream;
  stream.WriteItem(1);
  int consumed = 0;
  ASSERT_EQ(stream.ReadItem(&consumed), 0);
  double target = 5.5;

  EXPECT_NE(stream.ReadItem(&target), 0);

  EXPECT_EQ(target, 5.5);
  EXPECT_EQ(stream.GetPosition(), 4u);
}

TEST(CADataStream, ReadingStringPastTheEndFailsAndChangesNothing) {
  CADataStream stream;
  CString target(L"kept");

  EXPECT_NE(stream.ReadItem(&target), 0);

  EXPECT_EQ(target, CString(L"kept"));
  EXPECT_EQ(stream.GetPosition(), 0u);
}

TEST(CADataStream, TruncatedIntFailsCleanly) {
  CADataStream stream = StreamOf({0x01, 0x02, 0x03});
  int target = 17;

  EXPECT_EQ(stream.ReadItem(&target), ADataDef::AD_ENDOFSTREAM);

  EXPECT_EQ(target, 17);
  EXPECT_EQ(stream.GetPosition(), 0u);
  EXPECT_EQ(stream.GetRemaining(), 3u);
}

TEST(CADataStream, TruncatedDoubleFailsCleanly) {
  CADataStream stream = StreamOf({0, 0, 0, 0, 0, 0, 0xF0});  // 1.0 without its last byte
  double target = -4.0;

  EXPECT_EQ(stream.ReadItem(&target), ADataDef::AD_ENDOFSTREAM);

  EXPECT_EQ(target, -4.0);
  EXPECT_EQ(stream.GetPosition(), 0u);
}

TEST(CADataStream, StringWithATruncatedCountFailsCleanly) {
  CADataStream stream = StreamOf({0x01, 0x00});
  CString target(L"kept");

  EXPECT_NE(stream.ReadItem(&target), 0);

  EXPECT_EQ(target, CString(L"kept"));
  EXPECT_EQ(stream.GetPosition(), 0u);
}

TEST(CADataStream, StringWithTruncatedUnitsFailsCleanly) {
  // Count 3 announces 6 bytes of units; only 4 follow.
  CADataStream stream = StreamOf({0x03, 0x00, 0x00, 0x00, 0x41, 0x00, 0x42, 0x00});
  CString target(L"kept");

  EXPECT_NE(stream.ReadItem(&target), 0);

  EXPECT_EQ(target, CString(L"kept"));
  EXPECT_EQ(stream.GetPosition(), 0u);
}

TEST(CADataStream, NegativeStringCountFailsWithoutMovingTheReadPosition) {
  CADataStream stream = StreamOf({0xFF, 0xFF, 0xFF, 0xFF, 0x41, 0x00});  // count -1
  CString target(L"kept");

  EXPECT_EQ(stream.ReadItem(&target), ADataDef::AD_BADCOUNT);

  EXPECT_EQ(target, CString(L"kept"));
  EXPECT_EQ(stream.GetPosition(), 0u);
}

TEST(CADataStream, StringCountLargerThanTheRemainingBytesFailsWithoutAllocating) {
  // 0x7FFFFFFF units would be 4 GiB; only 4 bytes follow. Honouring the count would either exhaust
  // memory or read far beyond the buffer.
  CADataStream stream = StreamOf({0xFF, 0xFF, 0xFF, 0x7F, 0x41, 0x00, 0x42, 0x00});
  CString target(L"kept");

  EXPECT_EQ(stream.ReadItem(&target), ADataDef::AD_BADCOUNT);

  EXPECT_EQ(target, CString(L"kept"));
  EXPECT_EQ(stream.GetPosition(), 0u);
  EXPECT_EQ(stream.GetRemaining(), 8u);
}

TEST(CADataStream, FailedReadLeavesTheStreamUsableForOtherItems) {
  // Count 2 needs 4 bytes of units but only 2 follow; the same 4+2 bytes still read as an int.
  CADataStream stream = StreamOf({0x02, 0x00, 0x00, 0x00, 0x41, 0x00});
  CString text;
  ASSERT_NE(stream.ReadItem(&text), 0);

  int count = 0;
  ASSERT_EQ(stream.ReadItem(&count), 0);

  EXPECT_EQ(count, 2);
  EXPECT_EQ(stream.GetRemaining(), 2u);
}

// ---- raw blocks ---------------------------------------------------------------------------------

TEST(CADataStream, RawBlockIsWrittenAsGivenWithoutACount) {
  const std::uint8_t block[] = {0xDE, 0xAD, 0xBE};
  CADataStream stream;

  EXPECT_EQ(stream.WriteRaw(block, sizeof block), 0);

  EXPECT_EQ(stream.GetBytes(), (Bytes{0xDE, 0xAD, 0xBE}));
}

TEST(CADataStream, RawBlockRoundTrips) {
  const std::uint8_t block[] = {1, 2, 3, 4, 5};
  CADataStream stream;
  stream.WriteRaw(block, sizeof block);
  std::uint8_t read[5] = {};

  ASSERT_EQ(stream.ReadRaw(read, sizeof read), 0);

  EXPECT_EQ(std::memcmp(read, block, sizeof block), 0);
  EXPECT_EQ(stream.GetPosition(), 5u);
}

TEST(CADataStream, ZeroByteRawBlockWritesNothing) {
  CADataStream stream;

  EXPECT_EQ(stream.WriteRaw(nullptr, 0), 0);

  EXPECT_EQ(stream.GetSize(), 0u);
}

TEST(CADataStream, RawReadLongerThanTheRemainingBytesFailsAndChangesNothing) {
  CADataStream stream = StreamOf({9, 8, 7});
  std::uint8_t read[4] = {0x11, 0x22, 0x33, 0x44};

  EXPECT_NE(stream.ReadRaw(read, sizeof read), 0);

  EXPECT_EQ(read[0], 0x11);
  EXPECT_EQ(read[1], 0x22);
  EXPECT_EQ(read[2], 0x33);
  EXPECT_EQ(read[3], 0x44);
  EXPECT_EQ(stream.GetPosition(), 0u);
}

// ---- archive counts -----------------------------------------------------------------------------

TEST(CADataStream, CountZeroTakesTwoBytes) {
  CADataStream stream;

  EXPECT_EQ(stream.WriteCount(0), 0);

  EXPECT_EQ(stream.GetBytes(), (Bytes{0x00, 0x00}));
  std::uint64_t read = 99;
  ASSERT_EQ(stream.ReadCount(&read), 0);
  EXPECT_EQ(read, 0u);
  EXPECT_EQ(stream.GetPosition(), 2u);
}

TEST(CADataStream, CountFFFETakesTwoBytes) {
  CADataStream stream;

  stream.WriteCount(0xFFFE);

  EXPECT_EQ(stream.GetBytes(), (Bytes{0xFE, 0xFF}));
}

TEST(CADataStream, CountFFFERoundTripsWhenItsElementsFollow) {
  CADataStream stream;
  stream.WriteCount(0xFFFE);
  const std::vector<std::uint8_t> elements(0xFFFE, 0xAB);  // one byte per element
  stream.WriteRaw(elements.data(), elements.size());
  std::uint64_t read = 0;

  ASSERT_EQ(stream.ReadCount(&read), 0);

  EXPECT_EQ(read, 0xFFFEu);
  EXPECT_EQ(stream.GetPosition(), 2u);
}

TEST(CADataStream, CountFFFFTakesTwoPlusFourBytes) {
  CADataStream stream;
  stream.WriteCount(0xFFFF);
  std::uint64_t read = 0;

  // Elements of zero bytes always fit, so the count alone can be read back.
  ASSERT_EQ(stream.ReadCount(&read, 0), 0);

  EXPECT_EQ(stream.GetBytes(), (Bytes{0xFF, 0xFF, 0xFF, 0xFF, 0x00, 0x00}));
  EXPECT_EQ(read, 0xFFFFu);
  EXPECT_EQ(stream.GetPosition(), 6u);
}

TEST(CADataStream, CountFFFFFFFFTakesTwoPlusFourPlusEightBytes) {
  CADataStream stream;
  stream.WriteCount(0xFFFFFFFFull);
  std::uint64_t read = 0;

  ASSERT_EQ(stream.ReadCount(&read, 0), 0);

  EXPECT_EQ(stream.GetBytes(), (Bytes{0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF,  // 2 + 4 markers
                                      0xFF, 0xFF, 0xFF, 0xFF, 0x00, 0x00, 0x00, 0x00}));
  EXPECT_EQ(read, 0xFFFFFFFFull);
  EXPECT_EQ(stream.GetPosition(), 14u);
}

TEST(CADataStream, CountBeyond32BitsRoundTripsInTheEightByteForm) {
  const std::uint64_t count = 0x0123456789ABCDEFull;
  CADataStream stream;
  stream.WriteCount(count);
  std::uint64_t read = 0;

  ASSERT_EQ(stream.ReadCount(&read, 0), 0);

  EXPECT_EQ(read, count);
  EXPECT_EQ(stream.GetSize(), 14u);
}

TEST(CADataStream, ReadCountRefusesACountWhoseElementsCannotFit) {
  CADataStream stream;
  stream.WriteCount(10);
  const std::uint8_t nine[9] = {};
  stream.WriteRaw(nine, sizeof nine);
  std::uint64_t read = 77;

  EXPECT_EQ(stream.ReadCount(&read), ADataDef::AD_BADCOUNT);

  EXPECT_EQ(read, 77u);
  EXPECT_EQ(stream.GetPosition(), 0u);
}

TEST(CADataStream, ReadCountAcceptsACountWhoseElementsExactlyFit) {
  CADataStream stream;
  stream.WriteCount(10);
  const std::uint8_t ten[10] = {};
  stream.WriteRaw(ten, sizeof ten);
  std::uint64_t read = 0;

  ASSERT_EQ(stream.ReadCount(&read), 0);

  EXPECT_EQ(read, 10u);
}

TEST(CADataStream, ReadCountWeighsEachElementAtMinElementBytes) {
  // Three strings need at least 3 * 4 bytes (their counts) after the archive count.
  CADataStream shortStream;
  shortStream.WriteCount(3);
  const std::uint8_t eleven[11] = {};
  shortStream.WriteRaw(eleven, sizeof eleven);
  CADataStream fullStream;
  fullStream.WriteCount(3);
  const std::uint8_t twelve[12] = {};
  fullStream.WriteRaw(twelve, sizeof twelve);
  std::uint64_t refused = 5;
  std::uint64_t accepted = 0;

  EXPECT_EQ(shortStream.ReadCount(&refused, 4), ADataDef::AD_BADCOUNT);
  EXPECT_EQ(fullStream.ReadCount(&accepted, 4), 0);

  EXPECT_EQ(refused, 5u);
  EXPECT_EQ(shortStream.GetPosition(), 0u);
  EXPECT_EQ(accepted, 3u);
}

TEST(CADataStream, ReadCountRefusesAHugeEightByteCountWithoutMoving) {
  CADataStream stream;
  stream.WriteCount(0xFFFFFFFFull);
  const std::uint8_t some[64] = {};
  stream.WriteRaw(some, sizeof some);
  std::uint64_t read = 3;

  EXPECT_EQ(stream.ReadCount(&read), ADataDef::AD_BADCOUNT);

  EXPECT_EQ(read, 3u);
  EXPECT_EQ(stream.GetPosition(), 0u);
}

TEST(CADataStream, TruncatedCountFailsWithoutMoving) {
  // The 0xFFFF marker promises 4 more bytes; only 2 follow.
  CADataStream stream = StreamOf({0xFF, 0xFF, 0x01, 0x00});
  std::uint64_t read = 3;

  EXPECT_NE(stream.ReadCount(&read, 0), 0);

  EXPECT_EQ(read, 3u);
  EXPECT_EQ(stream.GetPosition(), 0u);
}

// ---- seeking ------------------------------------------------------------------------------------

TEST(CADataStream, SeekPastTheEndReturnsFalseAndDoesNotMove) {
  CADataStream stream;
  stream.WriteItem(1);
  stream.WriteItem(2);
  int consumed = 0;
  ASSERT_EQ(stream.ReadItem(&consumed), 0);

  EXPECT_FALSE(stream.Seek(9));

  EXPECT_EQ(stream.GetPosition(), 4u);
}

TEST(CADataStream, SeekToTheEndIsAllowed) {
  CADataStream stream;
  stream.WriteItem(1);

  EXPECT_TRUE(stream.Seek(4));

  EXPECT_EQ(stream.GetRemaining(), 0u);
}

TEST(CADataStream, SeekBackRereadsAnItem) {
  CADataStream stream;
  stream.WriteItem(11);
  stream.WriteItem(22);
  int first = 0;
  int second = 0;
  ASSERT_EQ(stream.ReadItem(&first), 0);
  ASSERT_EQ(stream.ReadItem(&second), 0);

  ASSERT_TRUE(stream.Seek(4));
  int again = 0;
  ASSERT_EQ(stream.ReadItem(&again), 0);

  EXPECT_EQ(again, 22);
}
