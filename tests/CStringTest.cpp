// CString: the wide string of the interface. Expected texts are compared through str() so that a
// failure prints both strings readably.

#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <stdexcept>
#include <string>

#include "mfc/CString.h"

namespace {

// True iff every character of text is U+FFFD (and there is at least one).
bool AllReplacement(const CString& text) {
  if (text.IsEmpty()) return false;
  for (wchar_t c : text.str()) {
    if (c != L'\uFFFD') return false;
  }
  return true;
}

// Puts LC_NUMERIC back to "C" however a test ends, so that later tests see the usual locale.
// Puts LC_NUMERIC back to "C" afterwards. While it lives, glibc also looks for locales in the folder
// QK_TEST_LOCALES names (scripts/test.sh compiles de_DE there, so no system locale is needed). That
// folder goes into LOCPATH only here and not for the whole test process: with LOCPATH set from the
// start, glibc keeps the path list it builds for the locale lookups that libpq's Kerberos libraries
// make as they load, and never frees it.
struct NumericLocaleRestorer {
  NumericLocaleRestorer() {
    if (const char* folder = std::getenv("QK_TEST_LOCALES")) setenv("LOCPATH", folder, 1);
  }
  ~NumericLocaleRestorer() {
    std::setlocale(LC_NUMERIC, "C");
    unsetenv("LOCPATH");
  }
};

}  // namespace

// --- construction and size ------------------------------------------------------------------------

TEST(CString, ConstructionFromNullPointerGivesEmpty) {
  const wchar_t* none = nullptr;

  CString s(none);

  EXPECT_TRUE(s.IsEmpty());
  EXPECT_EQ(s.GetLength(), 0);
  EXPECT_EQ(s.str(), L"");
}

TEST(CString, AssignmentFromNullPointerGivesEmpty) {
  CString s(L"text");
  const wchar_t* none = nullptr;

  s = none;

  EXPECT_TRUE(s.IsEmpty());
}

TEST(CString, ConstructionFromTextLengthAndRepeatedCharacter) {
  CString prefix(L"abcdef", 3);
  CString stars(L'*', 4);
  CString wide(L'城', 2);

  EXPECT_EQ(prefix.str(), L"abc");
  EXPECT_EQ(stars.str(), L"****");
  EXPECT_EQ(wide.str(), L"城城");
}

TEST(CString, CopiesAreIndependent) {
  CString original(L"北京");

  CString copy = original;
  copy += L"市";

  EXPECT_EQ(original.str(), L"北京");
  EXPECT_EQ(copy.str(), L"北京市");
}

TEST(CString, GetLengthCountsWideCharacters) {
  CString ascii(L"abc");
  CString chinese(L"城市温度");
  CString empty;

  EXPECT_EQ(ascii.GetLength(), 3);
  EXPECT_EQ(chinese.GetLength(), 4);  // characters, not UTF-8 bytes (which would be 12)
  EXPECT_EQ(empty.GetLength(), 0);
}

TEST(CString, IsEmptyOnlyForNoCharacters) {
  CString empty;
  CString space(L" ");
  CString emptied(L"x");

  emptied.Empty();

  EXPECT_TRUE(empty.IsEmpty());
  EXPECT_FALSE(space.IsEmpty());
  EXPECT_TRUE(emptied.IsEmpty());
}

// --- comparison -----------------------------------------------------------------------------------

TEST(CString, EqualityOperators) {
  CString a(L"城市");
  CString same(L"城市");
  CString other(L"城镇");

  EXPECT_TRUE(a == same);
  EXPECT_TRUE(a == L"城市");
  EXPECT_TRUE(L"城市" == a);
  EXPECT_FALSE(a == other);
  EXPECT_TRUE(a != other);
  EXPECT_TRUE(a != L"城");
  EXPECT_FALSE(a != same);
}

TEST(CString, EqualityIsCaseSensitive) {
  CString lower(L"name");

  EXPECT_FALSE(lower == L"Name");
  EXPECT_TRUE(lower != CString(L"NAME"));
}

TEST(CString, LessThanIsCodePointOrder) {
  // 'B' (U+0042) precedes 'a' (U+0061); a prefix precedes the longer string; 北 U+5317 < 城 U+57CE.
  EXPECT_TRUE(CString(L"B") < CString(L"a"));
  EXPECT_TRUE(CString(L"ab") < CString(L"abc"));
  EXPECT_TRUE(CString(L"北") < CString(L"城"));
  EXPECT_FALSE(CString(L"abc") < CString(L"abc"));
  EXPECT_FALSE(CString(L"b") < CString(L"a"));
}

TEST(CString, CompareGivesSignOfCodePointOrder) {
  CString s(L"abc");

  EXPECT_EQ(s.Compare(L"abc"), 0);
  EXPECT_LT(s.Compare(L"abd"), 0);
  EXPECT_GT(s.Compare(L"abb"), 0);
  EXPECT_GT(s.Compare(L"ab"), 0);
  EXPECT_LT(s.Compare(L"abcd"), 0);
  EXPECT_LT(CString(L"Z").Compare(L"a"), 0);  // no folding: 'Z' U+005A < 'a' U+0061
}

TEST(CString, CompareNoCaseFoldsAsciiLetters) {
  CString s(L"Hello World");

  EXPECT_EQ(s.CompareNoCase(L"hELLO wORLD"), 0);
  EXPECT_EQ(s.CompareNoCase(L"HELLO WORLD"), 0);
  EXPECT_LT(CString(L"abc").CompareNoCase(L"ABD"), 0);
  EXPECT_GT(CString(L"ABD").CompareNoCase(L"abc"), 0);
}

TEST(CString, CompareNoCaseFoldsToLowerCaseLikeTheDatabase) {
  // '_' (U+005F) lies between 'Z' and 'a'. Folding to lower case, as the database's NOCASE does,
  // puts it before any letter; folding to upper case would put it after.
  CString underscore(L"_");

  EXPECT_LT(underscore.CompareNoCase(L"A"), 0);
  EXPECT_LT(underscore.CompareNoCase(L"a"), 0);
}

TEST(CString, CompareNoCaseComparesChineseExactly) {
  CString city(L"城市");

  EXPECT_EQ(city.CompareNoCase(L"城市"), 0);
  EXPECT_LT(city.CompareNoCase(L"城镇"), 0);  // 市 U+5E02 < 镇 U+9547
  EXPECT_GT(CString(L"城镇").CompareNoCase(L"城市"), 0);
}

TEST(CString, CompareNoCaseLeavesNonAsciiLettersUnfolded) {
  // Only A-Z fold: É/é and the full-width Ａ/ａ stay different.
  EXPECT_NE(CString(L"\u00C9").CompareNoCase(L"\u00E9"), 0);
  EXPECT_NE(CString(L"\uFF21").CompareNoCase(L"\uFF41"), 0);
}

// --- Format ---------------------------------------------------------------------------------------

TEST(CString, FormatTakesWideStringForPercentS) {
  CString s;

  s.Format(L"[%s|%s]", L"名字", L"abc");

  EXPECT_EQ(s.str(), L"[名字|abc]");
}

TEST(CString, FormatReplacesPreviousContent) {
  CString s(L"old text");

  s.Format(L"%d", 1);

  EXPECT_EQ(s.str(), L"1");
}

TEST(CString, FormatPercentD) {
  CString s;

  s.Format(L"%d,%d,%d", 0, -42, std::numeric_limits<int>::max());

  EXPECT_EQ(s.str(), L"0,-42,2147483647");
}

TEST(CString, FormatPercentLdTakesLong) {
  // LONG_MAX as a long; read as an int it would give its low half, and the next argument would be
  // taken from the wrong place.
  const long big = std::numeric_limits<long>::max();
  CString s;

  s.Format(L"%ld/%d", big, 7);

  EXPECT_EQ(s.str(), std::to_wstring(big) + L"/7");
}

TEST(CString, FormatPercentF) {
  CString s;

  s.Format(L"%f %f", 1.5, -0.25);

  EXPECT_EQ(s.str(), L"1.500000 -0.250000");
}

TEST(CString, FormatPercentPoint2FRounds) {
  CString s;

  s.Format(L"%.2f %.2f %.2f", 3.14159, 2.5, 9.999);

  EXPECT_EQ(s.str(), L"3.14 2.50 10.00");
}

TEST(CString, FormatWidthPadsStringOnTheLeft) {
  CString s;

  s.Format(L"[%5s]", L"ab");

  EXPECT_EQ(s.str(), L"[   ab]");
}

TEST(CString, FormatMinusWidthPadsStringOnTheRight) {
  CString s;

  s.Format(L"[%-5s]", L"ab");

  EXPECT_EQ(s.str(), L"[ab   ]");
}

TEST(CString, FormatWidthCountsWideCharactersNotBytes) {
  CString s;

  // One Chinese character is one character of width (three bytes in UTF-8).
  s.Format(L"[%3s][%-3s]", L"城", L"市");

  EXPECT_EQ(s.str(), L"[  城][市  ]");
}

TEST(CString, FormatWidthNeverTruncates) {
  CString s;

  s.Format(L"[%2s]", L"abcd");

  EXPECT_EQ(s.str(), L"[abcd]");
}

TEST(CString, FormatPadsNumbersToWidth) {
  CString s;

  s.Format(L"[%5d][%-5d][%05d]", 42, 42, 42);

  EXPECT_EQ(s.str(), L"[   42][42   ][00042]");
}

TEST(CString, FormatPercentCTakesWideCharacter) {
  CString s;

  s.Format(L"%c%c%c", L'A', L'中', L'z');

  EXPECT_EQ(s.str(), L"A中z");
}

TEST(CString, FormatDoublePercentIsLiteralPercent) {
  CString s;

  s.Format(L"%d%% of 100%%", 50);

  EXPECT_EQ(s.str(), L"50% of 100%");
}

TEST(CString, FormatPercentHsTakesNarrowUtf8String) {
  CString s;

  s.Format(L"[%hs]", "\xE5\x9F\x8E abc");  // 城 in UTF-8, then ASCII

  EXPECT_EQ(s.str(), L"[城 abc]");
}

TEST(CString, FormatPercentLfTakesDouble) {
  CString s;

  s.Format(L"%lf|%.1lf", 2.5, 0.26);

  EXPECT_EQ(s.str(), L"2.500000|0.3");
}

TEST(CString, FormatPercentI64dTakes64BitInteger) {
  const long long big = 1LL << 40;
  CString s;

  s.Format(L"%I64d/%d", big, 3);

  EXPECT_EQ(s.str(), L"1099511627776/3");
}

TEST(CString, FormatNeverWritesThroughPercentN) {
  int written = 42;
  CString s;

  s.Format(L"ab%ncd", &written);

  EXPECT_EQ(written, 42);
  EXPECT_EQ(s.str(), L"abcd");
}

TEST(CString, FormatBuiltFormatThenAppliedToDouble) {
  // Callers build a precision into a format at run time: "%%" gives "%", "%d" gives the digits.
  CString format;
  format.Format(L"%%.%df", 3);
  CString s;

  s.Format(format, 2.0 / 3.0);

  EXPECT_EQ(format.str(), L"%.3f");
  EXPECT_EQ(s.str(), L"0.667");
}

TEST(CString, FormatWithChineseText) {
  CString s;

  s.Format(L"城市 %s 的温度 %.1f", L"北京", 23.46);

  EXPECT_EQ(s.str(), L"城市 北京 的温度 23.5");
}

TEST(CString, FormatKeepsDotDecimalUnderCommaLocale) {
  NumericLocaleRestorer restore;
  const char* candidates[] = {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "fr_FR.utf8", "de_DE", "fr_FR"};
  const char* chosen = nullptr;
  for (const char* name : candidates) {
    if (std::setlocale(LC_NUMERIC, name) != nullptr) {
      chosen = name;
      break;
    }
  }
  if (chosen == nullptr) GTEST_SKIP() << "no locale with a comma decimal point is installed";
  // The test only means something if the C library itself now writes a comma.
  char probe[16];
  std::snprintf(probe, sizeof probe, "%.1f", 1.5);
  if (std::string(probe) != "1,5") GTEST_SKIP() << chosen << " does not use a comma decimal point";
  CString s;

  s.Format(L"%.2f|%f|%g|%.1f", 1.25, 0.5, 2.5, 23.46);

  EXPECT_EQ(s.str(), L"1.25|0.500000|2.5|23.5");
}

TEST(CString, AppendFormatAppendsToExistingText) {
  CString s(L"x=");

  s.AppendFormat(L"%d", 5);
  s.AppendFormat(L", %s=%.1f", L"温度", 0.5);

  EXPECT_EQ(s.str(), L"x=5, 温度=0.5");
}

// --- UTF-8 ----------------------------------------------------------------------------------------

TEST(CString, Utf8RoundTripOfChinese) {
  // 中 U+4E2D -> E4 B8 AD, 文 U+6587 -> E6 96 87.
  const std::string bytes = "\xE4\xB8\xAD\xE6\x96\x87";

  CString decoded = CString::FromUtf8(bytes);
  std::string encoded = CString(L"\u4E2D\u6587").ToUtf8();

  EXPECT_EQ(decoded.str(), L"\u4E2D\u6587");
  EXPECT_EQ(encoded, bytes);
  EXPECT_EQ(decoded.ToUtf8(), bytes);
}

TEST(CString, Utf8RoundTripOfNonBmpCharacter) {
  // U+1F600 -> F0 9F 98 80; one wchar_t where wchar_t is 32 bits, a surrogate pair where it is 16.
  const std::string bytes = "\xF0\x9F\x98\x80";

  CString decoded = CString::FromUtf8(bytes);
  std::string encoded = CString(L"\U0001F600").ToUtf8();

  EXPECT_EQ(decoded.str(), L"\U0001F600");
  EXPECT_EQ(decoded.GetLength(), sizeof(wchar_t) == 4 ? 1 : 2);
  EXPECT_EQ(encoded, bytes);
}

TEST(CString, Utf8MixedTextRoundTrips) {
  const CString text(L"a城\U0001F600z");

  CString back = CString::FromUtf8(text.ToUtf8());

  EXPECT_EQ(back.str(), text.str());
  EXPECT_EQ(text.ToUtf8(), "a\xE5\x9F\x8E\xF0\x9F\x98\x80z");  // 城 U+57CE -> E5 9F 8E
}

TEST(CString, InvalidUtf8ByteBecomesReplacementCharacter) {
  CString s = CString::FromUtf8("a\xFF" "b");

  EXPECT_EQ(s.str(), L"a\uFFFDb");
}

TEST(CString, LoneContinuationByteBecomesReplacementCharacter) {
  CString s = CString::FromUtf8("\x80");

  EXPECT_EQ(s.str(), L"\uFFFD");
}

TEST(CString, DecodingResumesAfterInvalidByte) {
  CString s = CString::FromUtf8("\xFF\xE4\xB8\xAD");

  EXPECT_EQ(s.str(), L"\uFFFD\u4E2D");
}

TEST(CString, TruncatedSequenceDoesNotSwallowFollowingCharacter) {
  // E4 starts a three-byte sequence, but 'A' is no continuation byte: only E4 is bad.
  CString s = CString::FromUtf8("\xE4" "A");

  EXPECT_EQ(s.str(), L"\uFFFDA");
}

TEST(CString, TruncatedUtf8SequenceBecomesReplacementCharacters) {
  // The first two bytes of 中 (E4 B8 AD) with the last one missing.
  CString s = CString::FromUtf8("ab\xE4\xB8");

  ASSERT_GE(s.GetLength(), 3);
  EXPECT_EQ(s.Left(2).str(), L"ab");
  EXPECT_TRUE(AllReplacement(s.Mid(2)));
}

TEST(CString, EncodedSurrogateAndOverlongFormAreInvalid) {
  // ED A0 80 would be U+D800 (a surrogate); C0 80 an overlong NUL. Neither may come through.
  CString surrogate = CString::FromUtf8("\xED\xA0\x80");
  CString overlong = CString::FromUtf8(std::string("\xC0\x80", 2));

  EXPECT_TRUE(AllReplacement(surrogate));
  EXPECT_TRUE(AllReplacement(overlong));
}

TEST(CString, LoneSurrogateEncodesAsReplacementCharacter) {
  CString s(static_cast<wchar_t>(0xD800));

  EXPECT_EQ(s.ToUtf8(), "\xEF\xBF\xBD");  // U+FFFD
}

// --- searching and substrings ---------------------------------------------------------------------

TEST(CString, FindCharacterFromStart) {
  CString s(L"abcabc");

  EXPECT_EQ(s.Find(L'c'), 2);
  EXPECT_EQ(s.Find(L'c', 3), 5);
  EXPECT_EQ(s.Find(L'a', 1), 3);
  EXPECT_EQ(s.Find(L'z'), -1);
  EXPECT_EQ(s.Find(L'a', 6), -1);    // start at the end
  EXPECT_EQ(s.Find(L'a', 100), -1);  // start past the end
}

TEST(CString, FindSubstring) {
  CString s(L"城市的温度和城市");

  EXPECT_EQ(s.Find(L"温度"), 3);
  EXPECT_EQ(s.Find(L"城市"), 0);
  EXPECT_EQ(s.Find(L"城市", 1), 6);
  EXPECT_EQ(s.Find(L"湿度"), -1);
  EXPECT_EQ(s.Find(L"城市", 100), -1);
}

TEST(CString, ReverseFindGivesLastOccurrence) {
  CString path(L"a/b/c");

  EXPECT_EQ(path.ReverseFind(L'/'), 3);
  EXPECT_EQ(path.ReverseFind(L'a'), 0);
  EXPECT_EQ(path.ReverseFind(L'\\'), -1);
}

TEST(CString, LeftClampsCount) {
  CString s(L"hello");

  EXPECT_EQ(s.Left(2).str(), L"he");
  EXPECT_EQ(s.Left(5).str(), L"hello");
  EXPECT_EQ(s.Left(10).str(), L"hello");
  EXPECT_EQ(s.Left(0).str(), L"");
  EXPECT_EQ(s.Left(-1).str(), L"");
}

TEST(CString, RightClampsCount) {
  CString s(L"hello");

  EXPECT_EQ(s.Right(3).str(), L"llo");
  EXPECT_EQ(s.Right(99).str(), L"hello");
  EXPECT_EQ(s.Right(0).str(), L"");
  EXPECT_EQ(s.Right(-2).str(), L"");
}

TEST(CString, MidClampsFirstAndCount) {
  CString s(L"hello");

  EXPECT_EQ(s.Mid(1).str(), L"ello");
  EXPECT_EQ(s.Mid(1, 3).str(), L"ell");
  EXPECT_EQ(s.Mid(3, 10).str(), L"lo");
  EXPECT_EQ(s.Mid(5).str(), L"");
  EXPECT_EQ(s.Mid(10).str(), L"");
  EXPECT_EQ(s.Mid(-2, 2).str(), L"he");  // a negative start counts from 0
  EXPECT_EQ(s.Mid(1, -1).str(), L"");
}

// --- editing --------------------------------------------------------------------------------------

TEST(CString, ReplaceSubstringReturnsCount) {
  CString s(L"a-b-c");

  int n = s.Replace(L"-", L"::");

  EXPECT_EQ(n, 2);
  EXPECT_EQ(s.str(), L"a::b::c");
}

TEST(CString, ReplaceDoesNotRescanInsertedText) {
  // The new text contains the old one; each original occurrence is replaced once.
  CString s(L"aa");

  int n = s.Replace(L"a", L"aa");

  EXPECT_EQ(n, 2);
  EXPECT_EQ(s.str(), L"aaaa");
}

TEST(CString, ReplaceWithEmptyTextDeletes) {
  CString s(L"北京abc北京");

  int n = s.Replace(L"北京", L"");

  EXPECT_EQ(n, 2);
  EXPECT_EQ(s.str(), L"abc");
}

TEST(CString, ReplaceCharacter) {
  CString s(L"1.5.2");

  int n = s.Replace(L'.', L',');
  int none = s.Replace(L'x', L'y');

  EXPECT_EQ(n, 2);
  EXPECT_EQ(none, 0);
  EXPECT_EQ(s.str(), L"1,5,2");
}

TEST(CString, RemoveDeletesEveryOccurrence) {
  CString s(L" a b  c ");

  int n = s.Remove(L' ');

  EXPECT_EQ(n, 5);
  EXPECT_EQ(s.str(), L"abc");
}

TEST(CString, InsertReturnsNewLength) {
  CString s(L"ace");

  int len = s.Insert(1, L"b");
  s.Insert(3, L"d");

  EXPECT_EQ(len, 4);
  EXPECT_EQ(s.str(), L"abcde");
}

TEST(CString, InsertPastEndAppends) {
  CString s(L"abc");

  int len = s.Insert(100, L"!");

  EXPECT_EQ(len, 4);
  EXPECT_EQ(s.str(), L"abc!");
}

TEST(CString, DeleteReturnsNewLength) {
  CString s(L"abcdef");

  int len = s.Delete(1, 2);

  EXPECT_EQ(len, 4);
  EXPECT_EQ(s.str(), L"adef");
}

TEST(CString, DeleteDefaultsToOneCharacter) {
  CString s(L"abc");

  s.Delete(0);

  EXPECT_EQ(s.str(), L"bc");
}

TEST(CString, DeleteClampsCountToTheEnd) {
  CString s(L"abcdef");

  int len = s.Delete(4, 100);

  EXPECT_EQ(len, 4);
  EXPECT_EQ(s.str(), L"abcd");
}

TEST(CString, TrimRemovesWhiteSpaceBothEnds) {
  CString s(L" \t a b \r\n");

  s.Trim();

  EXPECT_EQ(s.str(), L"a b");
}

TEST(CString, TrimLeftRemovesLeadingWhiteSpaceOnly) {
  CString s(L" \t a b \r\n");

  s.TrimLeft();

  EXPECT_EQ(s.str(), L"a b \r\n");
}

TEST(CString, TrimRightRemovesTrailingWhiteSpaceOnly) {
  CString s(L" \t a b \r\n");

  s.TrimRight();

  EXPECT_EQ(s.str(), L" \t a b");
}

TEST(CString, TrimWithSetRemovesEveryCharacterOfTheSet) {
  CString both(L"xyxhixy");
  CString left(L"xyxhixy");
  CString right(L"xyxhixy");

  both.Trim(L"xy");
  left.TrimLeft(L"xy");
  right.TrimRight(L"yx");

  EXPECT_EQ(both.str(), L"hi");
  EXPECT_EQ(left.str(), L"hixy");
  EXPECT_EQ(right.str(), L"xyxhi");
}

TEST(CString, TrimWithSetKeepsWhiteSpaceNotInTheSet) {
  CString s(L"* a *");

  s.Trim(L"*");

  EXPECT_EQ(s.str(), L" a ");
}

TEST(CString, TrimEverythingGivesEmpty) {
  CString blanks(L" \t ");
  CString xs(L"xxx");

  blanks.Trim();
  xs.TrimRight(L"x");

  EXPECT_TRUE(blanks.IsEmpty());
  EXPECT_TRUE(xs.IsEmpty());
}

TEST(CString, TrimRightZeroDropsTrailingZeros) {
  CString decimals(L"12.5000");
  CString hundred(L"100");
  CString leading(L"0.50");

  decimals.TrimRight(L'0');
  hundred.TrimRight(L'0');
  leading.TrimRight(L'0');

  EXPECT_EQ(decimals.str(), L"12.5");
  EXPECT_EQ(hundred.str(), L"1");
  EXPECT_EQ(leading.str(), L"0.5");  // leading zeros stay
}

TEST(CString, TrimCallsChain) {
  // The usual way to print a number without superfluous decimals.
  CString s(L"3.000");

  s.TrimRight(L'0').TrimRight(L'.');

  EXPECT_EQ(s.str(), L"3");
}

TEST(CString, TrimLeftCharacter) {
  CString s(L"00120");

  s.TrimLeft(L'0');

  EXPECT_EQ(s.str(), L"120");
}

TEST(CString, MakeUpperChangesAsciiLettersOnly) {
  CString s(L"abcXYZ 城 \u00E9");

  CString& result = s.MakeUpper();

  EXPECT_EQ(&result, &s);
  EXPECT_EQ(s.str(), L"ABCXYZ 城 \u00E9");
}

TEST(CString, MakeLowerChangesAsciiLettersOnly) {
  CString s(L"ABCxyz 城 \u00C9");

  s.MakeLower();

  EXPECT_EQ(s.str(), L"abcxyz 城 \u00C9");
}

// --- element access -------------------------------------------------------------------------------

TEST(CString, GetAtReturnsCharacterAtIndex) {
  CString s(L"a城c");

  EXPECT_EQ(s.GetAt(0), L'a');
  EXPECT_EQ(s.GetAt(1), L'城');
  EXPECT_EQ(s[2], L'c');
}

TEST(CString, GetAtOutOfRangeThrowsInvalidArgument) {
  CString s(L"abc");
  CString empty;

  EXPECT_THROW((void)s.GetAt(3), std::invalid_argument);
  EXPECT_THROW((void)s.GetAt(-1), std::invalid_argument);
  EXPECT_THROW((void)s[3], std::invalid_argument);
  EXPECT_THROW((void)empty.GetAt(0), std::invalid_argument);
}

TEST(CString, SetAtReplacesCharacterAndChecksIndex) {
  CString s(L"abc");

  s.SetAt(1, L'城');

  EXPECT_EQ(s.str(), L"a城c");
  EXPECT_THROW(s.SetAt(3, L'x'), std::invalid_argument);
  EXPECT_EQ(s.str(), L"a城c");
}

// --- concatenation --------------------------------------------------------------------------------

TEST(CString, ConcatenationOperators) {
  CString a(L"城");

  CString joined = a + L"市" + CString(L"的") + L'温';
  CString front = L"<" + a;
  a += L'!';

  EXPECT_EQ(joined.str(), L"城市的温");
  EXPECT_EQ(front.str(), L"<城");
  EXPECT_EQ(a.str(), L"城!");
}

// --- a string used on itself ----------------------------------------------------------------------

TEST(CString, ReplaceWithItsOwnTextAsReplacement) {
  // The replacement points into the string being edited; every occurrence gets the original text.
  CString s(L"a0123456789a");

  int n = s.Replace(L"a", s);

  EXPECT_EQ(n, 2);
  EXPECT_EQ(s.str(), L"a0123456789a0123456789a0123456789a");
}

TEST(CString, AppendFormatWithItsOwnTextAsFormat) {
  // The format points into the string being appended to.
  CString s(L"0123456789 %d|");

  s.AppendFormat(s, 5);

  EXPECT_EQ(s.str(), L"0123456789 %d|0123456789 5|");
}

TEST(CString, ReplaceWithItsOwnTextAsSearchedText) {
  CString s(L"0123456789abcdef");

  int n = s.Replace(s, L"x");

  EXPECT_EQ(n, 1);
  EXPECT_EQ(s.str(), L"x");
}

TEST(CString, InsertOfItsOwnText) {
  CString s(L"0123456789abcdef");

  s.Insert(4, s);

  EXPECT_EQ(s.str(), L"01230123456789abcdef456789abcdef");
}
