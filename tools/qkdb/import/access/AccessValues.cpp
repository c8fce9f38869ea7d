#include "import/access/AccessValues.h"

#include <bit>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <utility>
#include <vector>

#include "text/CsvTable.h"
#include "mfc/CString.h"

namespace qkdb {

void Damaged(const std::string& table, const std::string& what) {
  throw DataError("table \"" + table + "\": " + what + " (the file is damaged)");
}

// Currency is a 64-bit count of ten-thousandths; its text is exact, without trailing zeros.
std::string CurrencyText(std::int64_t value) {
  const std::uint64_t magnitude = value < 0 ? 0 - static_cast<std::uint64_t>(value) : value;
  std::string text = (value < 0 ? "-" : "") + std::to_string(magnitude / 10000);
  if (const unsigned fraction = magnitude % 10000) {
    char digits[8];
    std::snprintf(digits, sizeof digits, ".%04u", fraction);
    std::string decimals = digits;
    decimals.erase(decimals.find_last_not_of('0') + 1);
    text += decimals;
  }
  return text;
}

// A Single as the double of its shortest decimal text: what Access shows, not the binary float's
// exact expansion.
double SingleValue(std::uint32_t bits) {
  char text[32];
  const auto end = std::to_chars(text, text + sizeof text - 1, std::bit_cast<float>(bits)).ptr;
  *end = '\0';
  return std::strtod(text, nullptr);
}

// Access keeps a date as days since 1899-12-30 in a double: the whole part counts days (negative
// before that date) and the fraction, taken without its sign, is the time of day, so -1.25 is
// 1899-12-29 06:00. mdbtools' own formatting drops dates before 1899-12-30 and after about 2700, so
// the text is made here. Times round to the second; 23:59:59.6 becomes midnight of the next day.
std::string DateText(double value, const std::string& table) {
  // Days -657434 and 2958465 are 0100-01-01 and 9999-12-31, the first and last dates Access can
  // hold. The range is checked on the day once the time is rounded: -657434.9 is still 0100-01-01
  // (21:36), while 2958465.99999999 would round into the year 10000. The first test also keeps the
  // conversion to long long defined.
  if (!(value > -657435.0 && value < 2958466.0)) Damaged(table, "a date outside the years 100 to 9999");
  const double whole = std::trunc(value);
  long long seconds = std::llround(std::fabs(value - whole) * 86400.0);
  long long day = static_cast<long long>(whole);
  if (seconds == 86400) {
    seconds = 0;
    ++day;
  }
  if (day < -657434 || day > 2958465) Damaged(table, "a date outside the years 100 to 9999");
  using namespace std::chrono;
  const year_month_day date{sys_days{year{1899} / December / 30} + days{day}};
  char text[64];
  std::snprintf(text, sizeof text, "%04d-%02u-%02u %02lld:%02lld:%02lld", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()), seconds / 3600,
                seconds / 60 % 60, seconds % 60);
  return text;
}

// Jet 4 and later store text as UTF-16LE, or "compressed": after the marker FF FE, each byte is a
// character below U+0100 until a 00 byte switches to two-byte units (and the next 00 back). Decoded
// here rather than by mdbtools, whose UCS-2 conversion turns characters beyond U+FFFF (surrogate
// pairs, e.g. rarer Chinese characters) into '?'. An unpaired surrogate becomes U+FFFD.
std::string Utf16Text(const unsigned char* p, std::size_t size) {
  std::vector<std::uint16_t> units;
  if (size >= 2 && p[0] == 0xff && p[1] == 0xfe) {
    bool compressed = true;
    for (std::size_t i = 2; i < size;) {
      if (p[i] == 0) {
        compressed = !compressed;
        ++i;
      } else if (compressed) {
        units.push_back(p[i++]);
      } else if (i + 1 < size) {
        units.push_back(static_cast<std::uint16_t>(p[i] | p[i + 1] << 8));
        i += 2;
      } else {
        break;
      }
    }
  } else {
    for (std::size_t i = 0; i + 1 < size; i += 2) units.push_back(static_cast<std::uint16_t>(p[i] | p[i + 1] << 8));
  }
  // Code points in a wide string (wchar_t is 32 bits on the systems this tool runs on), which CString
  // then writes as UTF-8, NULs included.
  std::wstring text;
  text.reserve(units.size());
  for (std::size_t i = 0; i < units.size(); ++i) {
    std::uint32_t code = units[i];
    if (code >= 0xd800 && code < 0xdc00 && i + 1 < units.size() && units[i + 1] >= 0xdc00 && units[i + 1] < 0xe000)
      code = 0x10000 + ((code - 0xd800) << 10) + (units[++i] - 0xdc00);
    else if (code >= 0xd800 && code < 0xe000)
      code = 0xfffd;
    text += static_cast<wchar_t>(code);
  }
  return CString(std::move(text)).ToUtf8();
}

}  // namespace qkdb
