#include "mfc/Utf.h"

namespace qk::utf {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsSurrogate(char32_t c) { return c >= 0xD800 && c <= 0xDFFF; }

void AppendCodePoint(std::wstring& out, char32_t c) {
  if constexpr (sizeof(wchar_t) == 2) {
    if (c >= 0x10000) {
      c -= 0x10000;
      out.push_back(static_cast<wchar_t>(0xD800 + (c >> 10)));
      out.push_back(static_cast<wchar_t>(0xDC00 + (c & 0x3FF)));
      return;
    }
  }
  out.push_back(static_cast<wchar_t>(c));
}

// Reads one code point of a wide string at i (a surrogate pair on 16-bit wchar_t) and advances i.
char32_t NextCodePoint(std::wstring_view text, std::size_t& i) {
  char32_t c = static_cast<char32_t>(text[i++]);
  if constexpr (sizeof(wchar_t) == 2) {
    if (c >= 0xD800 && c <= 0xDBFF && i < text.size()) {
      char32_t low = static_cast<char16_t>(text[i]);
      if (low >= 0xDC00 && low <= 0xDFFF) {
        ++i;
        return 0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00);
      }
    }
  }
  if (IsSurrogate(c) || c > 0x10FFFF) return kReplacement;
  return c;
}

}  // namespace

std::wstring FromUtf8(std::string_view utf8) {
  std::wstring out;
  out.reserve(utf8.size());
  std::size_t i = 0;
  while (i < utf8.size()) {
    unsigned char lead = static_cast<unsigned char>(utf8[i]);
    int extra;
    char32_t c;
    if (lead < 0x80) {
      out.push_back(static_cast<wchar_t>(lead));
      ++i;
      continue;
    } else if (lead >= 0xC2 && lead <= 0xDF) {
      extra = 1;
      c = lead & 0x1F;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
      extra = 2;
      c = lead & 0x0F;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
      extra = 3;
      c = lead & 0x07;
    } else {
      out.push_back(static_cast<wchar_t>(kReplacement));
      ++i;
      continue;
    }
    std::size_t j = i + 1;
    bool ok = true;
    for (int k = 0; k < extra; ++k, ++j) {
      if (j >= utf8.size() || (static_cast<unsigned char>(utf8[j]) & 0xC0) != 0x80) {
        ok = false;
        break;
      }
      c = (c << 6) | (static_cast<unsigned char>(utf8[j]) & 0x3F);
    }
    // Overlong forms, surrogates and values past U+10FFFF are malformed too.
    static constexpr char32_t kMin[] = {0, 0x80, 0x800, 0x10000};
    if (!ok || c < kMin[extra] || IsSurrogate(c) || c > 0x10FFFF) {
      out.push_back(static_cast<wchar_t>(kReplacement));
      i = ok ? j : i + 1;
      continue;
    }
    AppendCodePoint(out, c);
    i = j;
  }
  return out;
}

std::string ToUtf8(std::wstring_view text) {
  std::string out;
  out.reserve(text.size());
  std::size_t i = 0;
  while (i < text.size()) {
    char32_t c = NextCodePoint(text, i);
    if (c < 0x80) {
      out.push_back(static_cast<char>(c));
    } else if (c < 0x800) {
      out.push_back(static_cast<char>(0xC0 | (c >> 6)));
      out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    } else if (c < 0x10000) {
      out.push_back(static_cast<char>(0xE0 | (c >> 12)));
      out.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
      out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    } else {
      out.push_back(static_cast<char>(0xF0 | (c >> 18)));
      out.push_back(static_cast<char>(0x80 | ((c >> 12) & 0x3F)));
      out.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
      out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    }
  }
  return out;
}

std::u16string ToUtf16(std::wstring_view text) {
  std::u16string out;
  out.reserve(text.size());
  std::size_t i = 0;
  while (i < text.size()) {
    char32_t c = NextCodePoint(text, i);
    if (c >= 0x10000) {
      c -= 0x10000;
      out.push_back(static_cast<char16_t>(0xD800 + (c >> 10)));
      out.push_back(static_cast<char16_t>(0xDC00 + (c & 0x3FF)));
    } else {
      out.push_back(static_cast<char16_t>(c));
    }
  }
  return out;
}

std::wstring FromUtf16(std::u16string_view units) {
  std::wstring out;
  out.reserve(units.size());
  for (std::size_t i = 0; i < units.size(); ++i) {
    char32_t c = units[i];
    if (c >= 0xD800 && c <= 0xDBFF && i + 1 < units.size() && units[i + 1] >= 0xDC00 &&
        units[i + 1] <= 0xDFFF) {
      c = 0x10000 + ((c - 0xD800) << 10) + (units[i + 1] - 0xDC00);
      ++i;
    } else if (IsSurrogate(c)) {
      c = kReplacement;
    }
    AppendCodePoint(out, c);
  }
  return out;
}

}  // namespace qk::utf
