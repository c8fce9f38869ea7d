// The Access field conversions of qkdb import-access, on bytes alone (tools/qkdb/import/access/AccessValues.cpp is
// compiled into the tests). The dates at either end of what Access holds came from fuzzing them.

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <limits>
#include <string>

#include "import/access/AccessValues.h"
#include "text/CsvTable.h"

using qkdb::DateText;

TEST(AccessValues, DateKeepsItsTimeOfDay) { EXPECT_EQ(DateText(45000.25, "T"), "2023-03-15 06:00:00"); }

TEST(AccessValues, NegativeDateCountsItsTimeForward) { EXPECT_EQ(DateText(-1.25, "T"), "1899-12-29 06:00:00"); }

// Was refused as outside the years 100 to 9999: the range was checked on the value, not on its day.
TEST(AccessValues, EveningOfTheFirstDateIsTaken) { EXPECT_EQ(DateText(-657434.9, "T"), "0100-01-01 21:36:00"); }

TEST(AccessValues, LastSecondOfTheLastDateIsTaken) {
  EXPECT_EQ(DateText(2958465.0 + 86399.0 / 86400.0, "T"), "9999-12-31 23:59:59");
}

// Was "10000-01-01 00:00:00": the time rounded to midnight after the last date Access holds.
TEST(AccessValues, DateRoundingPastTheLastDayIsRefused) {
  EXPECT_THROW(DateText(2958465.9999999, "T"), qkdb::DataError);
}

TEST(AccessValues, DateBeforeTheYear100IsRefused) { EXPECT_THROW(DateText(-657435.0, "T"), qkdb::DataError); }

TEST(AccessValues, DateThatIsNotANumberIsRefused) {
  EXPECT_THROW(DateText(std::numeric_limits<double>::quiet_NaN(), "T"), qkdb::DataError);
}

TEST(AccessValues, CurrencyTextIsExactWithoutTrailingZeros) {
  EXPECT_EQ(qkdb::CurrencyText(174500), "17.45");
  EXPECT_EQ(qkdb::CurrencyText(-30000), "-3");
  EXPECT_EQ(qkdb::CurrencyText(1), "0.0001");
}

TEST(AccessValues, SmallestCurrencyKeepsItsSign) {
  EXPECT_EQ(qkdb::CurrencyText(std::numeric_limits<std::int64_t>::min()), "-922337203685477.5808");
}

TEST(AccessValues, SingleIsItsShortestDecimal) { EXPECT_EQ(qkdb::SingleValue(std::bit_cast<std::uint32_t>(0.05f)), 0.05); }

TEST(AccessValues, Utf16TextDecodesSurrogatePairs) {
  const unsigned char bytes[] = {0xd1, 0x90, 0x40, 0xd8, 0x00, 0xdc};  // 郑, U+20000
  EXPECT_EQ(qkdb::Utf16Text(bytes, sizeof bytes), "郑\xf0\xa0\x80\x80");
}

TEST(AccessValues, CompressedTextSwitchesToTwoByteUnitsAfterAZero) {
  const unsigned char bytes[] = {0xff, 0xfe, 'Z', 'z', 0x00, 0xd1, 0x90};
  EXPECT_EQ(qkdb::Utf16Text(bytes, sizeof bytes), "Zz郑");
}

TEST(AccessValues, UnpairedSurrogateBecomesReplacementCharacter) {
  const unsigned char bytes[] = {0x40, 0xd8, 'a', 0x00};
  EXPECT_EQ(qkdb::Utf16Text(bytes, sizeof bytes), "\xef\xbf\xbd" "a");
}
