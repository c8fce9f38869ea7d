// The Access field conversions of `qkdb import-access` on arbitrary bytes: the first byte picks the
// conversion, the rest are the field's bytes. Besides never crashing, each result is checked:
//   Currency  the text, read back as ten-thousandths, is the stored count
//   Single    finite bits give a finite value
//   Date      "YYYY-MM-DD HH:MM:SS" between the years 100 and 9999, or a DataError
//   Text      the result is valid UTF-8 (it survives a round trip through CString unchanged)
// mdbtools' own parsing of the file is not fuzzed here: it is not this project's code, and the import
// runs it in a child process so that a damaged file cannot take the tool down.

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "import/access/AccessValues.h"
#include "text/CsvTable.h"
#include "mfc/CString.h"

namespace {

[[noreturn]] void Fail(const std::string& what) {
  std::fprintf(stderr, "%s\n", what.c_str());
  std::abort();
}

template <class T>
T Take(const std::uint8_t* data, std::size_t size) {
  unsigned char raw[sizeof(T)] = {};
  std::memcpy(raw, data, size < sizeof(T) ? size : sizeof(T));
  return std::bit_cast<T>(raw);
}

// The count of ten-thousandths that text "[-]units[.digits]" stands for, wrapped to 64 bits as the
// stored count is.
std::int64_t TenThousandths(const std::string& text) {
  const bool negative = !text.empty() && text[0] == '-';
  std::uint64_t units = 0, fraction = 0;
  std::size_t i = negative ? 1 : 0;
  for (; i < text.size() && text[i] != '.'; ++i) units = units * 10 + static_cast<unsigned>(text[i] - '0');
  std::string digits = i < text.size() ? text.substr(i + 1) : "";
  digits.resize(4, '0');
  for (char c : digits) fraction = fraction * 10 + static_cast<unsigned>(c - '0');
  const std::uint64_t magnitude = units * 10000 + fraction;
  return static_cast<std::int64_t>(negative ? 0 - magnitude : magnitude);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::uint8_t* field = data + 1;
  const std::size_t bytes = size - 1;
  switch (data[0] % 4) {
    case 0: {
      const auto value = Take<std::int64_t>(field, bytes);
      const std::string text = qkdb::CurrencyText(value);
      if (TenThousandths(text) != value) Fail("currency " + std::to_string(value) + " became " + text);
      break;
    }
    case 1: {
      const auto bits = Take<std::uint32_t>(field, bytes);
      if (std::isfinite(std::bit_cast<float>(bits)) && !std::isfinite(qkdb::SingleValue(bits)))
        Fail("a finite single became " + std::to_string(qkdb::SingleValue(bits)));
      break;
    }
    case 2: {
      // Near either end the rounding of the time decides, so only values well inside must be taken.
      const auto value = Take<double>(field, bytes);
      try {
        const std::string text = qkdb::DateText(value, "fuzz");
        if (text.size() != 19 || text < "0100-01-01" || text > "9999-12-31 23:59:59")
          Fail("date " + std::to_string(value) + " became " + text);
      } catch (const qkdb::DataError&) {
        if (value > -657435.0 && value < 2958465.0) Fail("date " + std::to_string(value) + " was refused");
      }
      break;
    }
    default: {
      const std::string text = qkdb::Utf16Text(field, bytes);
      if (CString::FromUtf8(text).ToUtf8() != text) Fail("text decoded to invalid UTF-8");
      break;
    }
  }
  return 0;
}
