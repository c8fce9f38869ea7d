// QKLoad: splitting texts, formatting numbers and the process-wide design values.

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "foundation/QKLoad.h"
#include "mfc/CStringArray.h"

namespace {

std::vector<std::wstring> Texts(const CStringArray& a) {
  std::vector<std::wstring> out;
  for (int i = 0; i < a.GetSize(); ++i) out.push_back(a.GetAt(i).str());
  return out;
}

}  // namespace

// --- SplitString ----------------------------------------------------------------------------------

TEST(QKLoad, SplitStringDropsEmptyPieces) {
  CStringArray parts;

  QKLoad::SplitString(L"a,,b,", parts, L',');

  EXPECT_EQ(Texts(parts), (std::vector<std::wstring>{L"a", L"b"}));
}

TEST(QKLoad, SplitStringKeepsPiecesInOrder) {
  CStringArray parts;

  QKLoad::SplitString(L"北京;上海;广州", parts, L';');

  EXPECT_EQ(Texts(parts), (std::vector<std::wstring>{L"北京", L"上海", L"广州"}));
}

TEST(QKLoad, SplitStringOfEmptyTextLeavesPartsEmpty) {
  CStringArray parts;
  parts.Add(L"old");

  QKLoad::SplitString(L"", parts, L',');

  EXPECT_EQ(parts.GetSize(), 0);
}

TEST(QKLoad, SplitStringOfOnlySeparatorsLeavesPartsEmpty) {
  CStringArray parts;
  parts.Add(L"old");

  QKLoad::SplitString(L",,,", parts, L',');

  EXPECT_EQ(parts.GetSize(), 0);
}

TEST(QKLoad, SplitStringWithoutSeparatorGivesOneEntry) {
  CStringArray parts;

  QKLoad::SplitString(L"静坐", parts, L',');

  EXPECT_EQ(Texts(parts), (std::vector<std::wstring>{L"静坐"}));
}

TEST(QKLoad, SplitStringReplacesFormerParts) {
  CStringArray parts;
  parts.Add(L"old");

  QKLoad::SplitString(L"x,y", parts, L',');

  EXPECT_EQ(Texts(parts), (std::vector<std::wstring>{L"x", L"y"}));
}

TEST(QKLoad, SplitStringOfNullTextLeavesPartsEmpty) {
  CStringArray parts;
  parts.Add(L"old");

  QKLoad::SplitString(nullptr, parts, L',');

  EXPECT_EQ(parts.GetSize(), 0);
}

// --- DblToStr and IntToStr ------------------------------------------------------------------------

TEST(QKLoad, DblToStrTrimsTrailingZeros) {
  EXPECT_EQ(QKLoad::DblToStr(2.50, 3).str(), L"2.5");
}

TEST(QKLoad, DblToStrTrimsPointAfterZeros) {
  EXPECT_EQ(QKLoad::DblToStr(3.0, 2).str(), L"3");
}

TEST(QKLoad, DblToStrWithNoDecimalsKeepsZerosOfTheWholeNumber) {
  EXPECT_EQ(QKLoad::DblToStr(100.0, 0).str(), L"100");
}

TEST(QKLoad, DblToStrKeepsSignOfNegativeFraction) {
  EXPECT_EQ(QKLoad::DblToStr(-0.5, 1).str(), L"-0.5");
}

TEST(QKLoad, DblToStrRoundsToDecimals) {
  EXPECT_EQ(QKLoad::DblToStr(1.23456, 2).str(), L"1.23");
}

TEST(QKLoad, DblToStrWithNegativeDecimalsIsEmpty) {
  EXPECT_EQ(QKLoad::DblToStr(2.5, -1).str(), L"");
  EXPECT_EQ(QKLoad::DblToStr(0.0, -1).str(), L"");
  EXPECT_EQ(QKLoad::DblToStr(-1234.5, -7).str(), L"");
}

TEST(QKLoad, DblToStrWithAHugeDigitCountGivesTheExactValue) {
  EXPECT_EQ(QKLoad::DblToStr(1.5, std::numeric_limits<int>::max()).str(), L"1.5");
}

TEST(QKLoad, DblToStrOfTheSmallestDoubleKeepsEveryDigit) {
  double tiny = std::numeric_limits<double>::denorm_min();  // 2^-1074: 1074 digits after the point
  CString text = QKLoad::DblToStr(tiny, 5000);
  EXPECT_EQ(text.GetLength(), 2 + 1074);
  EXPECT_EQ(text.Left(6).str(), L"0.0000");
  EXPECT_EQ(text.Right(4).str(), L"5625");  // the digits of 5^1074, which ends in ...5625
}

TEST(QKLoad, ScaleByPowerOfTenMovesTheDecimalPointOfTheShortestForm) {
  EXPECT_EQ(QKLoad::ScaleByPowerOfTen(0.58, 2), 58.0);  // 0.58 * 100 is 57.99999999999999
  EXPECT_NE(0.58 * 100.0, 58.0);
  EXPECT_EQ(QKLoad::ScaleByPowerOfTen(1013.3, 2), 101330.0);
  EXPECT_EQ(QKLoad::ScaleByPowerOfTen(99580.0, -2), 995.8);  // 99580 * 0.01 is 995.8000000000001
  EXPECT_NE(99580.0 * 0.01, 995.8);
  EXPECT_EQ(QKLoad::ScaleByPowerOfTen(102040.0, -2), 1020.4);
  EXPECT_EQ(QKLoad::ScaleByPowerOfTen(58.0, -2), 0.58);
  EXPECT_EQ(QKLoad::ScaleByPowerOfTen(-12.5, 3), -12500.0);
  EXPECT_EQ(QKLoad::ScaleByPowerOfTen(1e-300, 5), 1e-295);
}

TEST(QKLoad, ScaleByPowerOfTenThereAndBackGivesTheSameDouble) {
  for (double v : {0.1, 0.37, 0.45, 0.58, 0.6, 1013.3, 998.6, 0.1 + 0.2, 1.0 / 3.0, 123456.789e-7})
    for (int e : {-4, -2, 2, 4}) EXPECT_EQ(QKLoad::ScaleByPowerOfTen(QKLoad::ScaleByPowerOfTen(v, e), -e), v) << v << " " << e;
}

TEST(QKLoad, ScaleByPowerOfTenKeepsZerosInfinitiesAndNaN) {
  EXPECT_EQ(QKLoad::ScaleByPowerOfTen(0.0, 2), 0.0);
  EXPECT_TRUE(std::signbit(QKLoad::ScaleByPowerOfTen(-0.0, 2)));
  EXPECT_EQ(QKLoad::ScaleByPowerOfTen(std::numeric_limits<double>::infinity(), -2), std::numeric_limits<double>::infinity());
  EXPECT_TRUE(std::isnan(QKLoad::ScaleByPowerOfTen(std::nan(""), 2)));
  EXPECT_EQ(QKLoad::ScaleByPowerOfTen(3.0, 0), 3.0);
}

TEST(QKLoad, ScaleByPowerOfTenBeyondTheRangeOfADoubleIsInfiniteOrZero) {
  EXPECT_EQ(QKLoad::ScaleByPowerOfTen(1e300, 100), std::numeric_limits<double>::infinity());
  EXPECT_EQ(QKLoad::ScaleByPowerOfTen(-1e300, 100), -std::numeric_limits<double>::infinity());
  EXPECT_EQ(QKLoad::ScaleByPowerOfTen(1e-300, -100), 0.0);
  EXPECT_EQ(QKLoad::ScaleByPowerOfTen(2.0, 2147483647), std::numeric_limits<double>::infinity());
}

TEST(QKLoad, IntToStrFormatsDecimal) {
  EXPECT_EQ(QKLoad::IntToStr(-42).str(), L"-42");
}

// --- design values --------------------------------------------------------------------------------

TEST(QKLoad, GetDjCnWdIsZeroUntilSet) {
  EXPECT_EQ(QKLoad::GetDjCnWd(), 0.0);
}

TEST(QKLoad, SetDjCnWdIsReadBackByGetDjCnWd) {
  double before = QKLoad::GetDjCnWd();

  QKLoad::SetDjCnWd(26.5);
  double after = QKLoad::GetDjCnWd();
  QKLoad::SetDjCnWd(before);

  EXPECT_EQ(after, 26.5);
}

TEST(QKLoad, DesignDayGettersReturnZeroEvenAfterTheirSetters) {
  double values[24];
  for (int i = 0; i < 24; ++i) values[i] = 30.0 + i;

  QKLoad::SetDjGqWd(values);
  QKLoad::SetDjSqWd(values);
  QKLoad::SetXjGqWd(values);
  QKLoad::SetXjSqWd(values);
  QKLoad::SetQ(values);
  QKLoad::SetS(values);

  EXPECT_EQ(QKLoad::GetDjGqWd(), 0.0);
  EXPECT_EQ(QKLoad::GetDjSqWd(), 0.0);
  EXPECT_EQ(QKLoad::GetDjXdSd(), 0.0);
}

TEST(QKLoad, DesignDaySettersLeaveTheirArrayUnchanged) {
  double values[3] = {1.0, 2.0, 3.0};

  QKLoad::SetDjGqWd(values);
  QKLoad::SetS(values);

  EXPECT_EQ(values[0], 1.0);
  EXPECT_EQ(values[1], 2.0);
  EXPECT_EQ(values[2], 3.0);
}

TEST(QKLoad, EnumerationsHaveTheirFixedNumbers) {
  EXPECT_EQ(QKLoad::DBS_OK, 0);
  EXPECT_EQ(QKLoad::DBS_ERROR, 1);
  EXPECT_EQ(QKLoad::DBS_EXIST, 2);
  EXPECT_EQ(QKLoad::DBS_UPDATED, 3);
  EXPECT_EQ(QKLoad::DBS_ADDED, 4);
  EXPECT_EQ(QKLoad::DBS_NOTEXIST, 6);
  EXPECT_EQ(QKLoad::ET_OK, 0);
  EXPECT_EQ(QKLoad::ET_NOLAYER, 1);
  EXPECT_EQ(QKLoad::LdQdSitting, 0);
  EXPECT_EQ(QKLoad::LdQdHeavy, 4);
}
