#include "mfc/CString.h"

#include <clocale>
#include <cstdint>
#include <cstdio>
#include <cwchar>
#include <stdexcept>
#include <string>

#if !defined(_WIN32)
#include <locale.h>
#endif

#include "mfc/Utf.h"

namespace {

wchar_t FoldAscii(wchar_t c) { return (c >= L'A' && c <= L'Z') ? static_cast<wchar_t>(c + 32) : c; }
wchar_t UpperAscii(wchar_t c) { return (c >= L'a' && c <= L'z') ? static_cast<wchar_t>(c - 32) : c; }

bool IsSpace(wchar_t c) { return c == L' ' || (c >= L'\t' && c <= L'\r'); }

// snprintf with the "C" locale, so that a host's setlocale never turns "1.5" into "1,5".
std::string FormatNumber(const char* conversion, ...) {
#if !defined(_WIN32)
  static locale_t cLocale = newlocale(LC_ALL_MASK, "C", static_cast<locale_t>(0));
  locale_t previous = uselocale(cLocale);
#endif
  va_list args;
  va_start(args, conversion);
  va_list again;
  va_copy(again, args);
  char small[128];
  int n = std::vsnprintf(small, sizeof small, conversion, args);
  std::string out;
  if (n >= 0 && static_cast<std::size_t>(n) < sizeof small) {
    out.assign(small, static_cast<std::size_t>(n));
  } else if (n >= 0) {
    out.resize(static_cast<std::size_t>(n) + 1);
    std::vsnprintf(out.data(), out.size(), conversion, again);
    out.resize(static_cast<std::size_t>(n));
  }
  va_end(again);
  va_end(args);
#if !defined(_WIN32)
  uselocale(previous);
#endif
  return out;
}

void AppendPadded(std::wstring& out, std::wstring_view text, int width, bool leftAlign) {
  std::size_t pad = width > 0 && static_cast<std::size_t>(width) > text.size() ? width - text.size() : 0;
  if (!leftAlign) out.append(pad, L' ');
  out.append(text);
  if (leftAlign) out.append(pad, L' ');
}

// The framework's wide printf: see the header for the rules that differ from the C library.
void FormatInto(std::wstring& out, const wchar_t* format, va_list args) {
  if (format == nullptr) return;
  const wchar_t* p = format;
  while (*p) {
    if (*p != L'%') {
      out.push_back(*p++);
      continue;
    }
    const wchar_t* start = p++;
    if (*p == L'%') {
      out.push_back(L'%');
      ++p;
      continue;
    }
    std::string conversion = "%";
    bool leftAlign = false;
    while (*p == L'-' || *p == L'+' || *p == L' ' || *p == L'#' || *p == L'0') {
      if (*p == L'-') leftAlign = true;
      conversion.push_back(static_cast<char>(*p++));
    }
    int width = 0;
    if (*p == L'*') {
      width = va_arg(args, int);
      if (width < 0) {
        leftAlign = true;
        conversion.push_back('-');
        width = -width;
      }
      conversion += std::to_string(width);
      ++p;
    } else {
      while (*p >= L'0' && *p <= L'9') {
        width = width * 10 + (*p - L'0');
        conversion.push_back(static_cast<char>(*p++));
      }
    }
    int precision = -1;
    if (*p == L'.') {
      ++p;
      precision = 0;
      if (*p == L'*') {
        precision = va_arg(args, int);
        ++p;
      } else {
        while (*p >= L'0' && *p <= L'9') precision = precision * 10 + (*p++ - L'0');
      }
      if (precision >= 0) conversion += "." + std::to_string(precision);
    }
    enum class Len { None, Short, Char, Long, LongLong, Size, Max, Ptrdiff, LongDouble } len = Len::None;
    if (*p == L'h') {
      ++p;
      len = Len::Short;
      if (*p == L'h') {
        ++p;
        len = Len::Char;
      }
    } else if (*p == L'l') {
      ++p;
      len = Len::Long;
      if (*p == L'l') {
        ++p;
        len = Len::LongLong;
      }
    } else if (*p == L'L') {
      ++p;
      len = Len::LongDouble;
    } else if (*p == L'z') {
      ++p;
      len = Len::Size;
    } else if (*p == L'j') {
      ++p;
      len = Len::Max;
    } else if (*p == L't') {
      ++p;
      len = Len::Ptrdiff;
    } else if (p[0] == L'I' && p[1] == L'6' && p[2] == L'4') {  // the framework's %I64d
      p += 3;
      len = Len::LongLong;
    }
    wchar_t conv = *p;
    if (conv == 0) {  // a lone "%" at the end: keep it as text
      out.append(start);
      return;
    }
    ++p;
    switch (conv) {
      case L'd':
      case L'i': {
        long long v;
        switch (len) {
          case Len::Long: v = va_arg(args, long); break;
          case Len::LongLong: v = va_arg(args, long long); break;
          case Len::Size: v = static_cast<long long>(va_arg(args, std::size_t)); break;
          case Len::Max: v = va_arg(args, std::intmax_t); break;
          case Len::Ptrdiff: v = va_arg(args, std::ptrdiff_t); break;
          case Len::Short: v = static_cast<short>(va_arg(args, int)); break;
          case Len::Char: v = static_cast<signed char>(va_arg(args, int)); break;
          default: v = va_arg(args, int); break;
        }
        std::string text = FormatNumber((conversion + "lld").c_str(), v);
        out.append(text.begin(), text.end());
        break;
      }
      case L'u':
      case L'o':
      case L'x':
      case L'X': {
        unsigned long long v;
        switch (len) {
          case Len::Long: v = va_arg(args, unsigned long); break;
          case Len::LongLong: v = va_arg(args, unsigned long long); break;
          case Len::Size: v = va_arg(args, std::size_t); break;
          case Len::Max: v = va_arg(args, std::uintmax_t); break;
          case Len::Ptrdiff: v = static_cast<unsigned long long>(va_arg(args, std::ptrdiff_t)); break;
          case Len::Short: v = static_cast<unsigned short>(va_arg(args, unsigned int)); break;
          case Len::Char: v = static_cast<unsigned char>(va_arg(args, unsigned int)); break;
          default: v = va_arg(args, unsigned int); break;
        }
        conversion += "ll";
        conversion.push_back(static_cast<char>(conv));
        std::string text = FormatNumber(conversion.c_str(), v);
        out.append(text.begin(), text.end());
        break;
      }
      case L'f':
      case L'F':
      case L'e':
      case L'E':
      case L'g':
      case L'G':
      case L'a':
      case L'A': {
        std::string text;
        if (len == Len::LongDouble) {
          conversion.push_back('L');
          conversion.push_back(static_cast<char>(conv));
          text = FormatNumber(conversion.c_str(), va_arg(args, long double));
        } else {
          conversion.push_back(static_cast<char>(conv));
          text = FormatNumber(conversion.c_str(), va_arg(args, double));
        }
        out.append(text.begin(), text.end());
        break;
      }
      case L'c':
      case L'C': {
        wchar_t ch = static_cast<wchar_t>(va_arg(args, int));
        AppendPadded(out, std::wstring_view(&ch, 1), width, leftAlign);
        break;
      }
      case L's':
      case L'S': {
        std::wstring text;
        if (len == Len::Short) {  // "%hs": a narrow UTF-8 string
          const char* s = va_arg(args, const char*);
          text = s ? qk::utf::FromUtf8(s) : L"(null)";
        } else {
          const wchar_t* s = va_arg(args, const wchar_t*);
          text = s ? s : L"(null)";
        }
        if (precision >= 0 && static_cast<std::size_t>(precision) < text.size()) text.resize(precision);
        AppendPadded(out, text, width, leftAlign);
        break;
      }
      case L'p': {
        std::string text = FormatNumber("%p", va_arg(args, void*));
        out.append(text.begin(), text.end());
        break;
      }
      case L'n':  // never written through: a format must not store into memory
        (void)va_arg(args, void*);
        break;
      default:  // unknown conversion: copied as text, no argument consumed
        out.append(start, p);
        break;
    }
  }
}

std::wstring::size_type Clamp(int value, std::size_t max) {
  if (value < 0) return 0;
  return static_cast<std::size_t>(value) > max ? max : static_cast<std::size_t>(value);
}

}  // namespace

CString::CString(const wchar_t* text) : m_text(text ? text : L"") {}

CString::CString(const wchar_t* text, int length) {
  if (text && length > 0) m_text.assign(text, static_cast<std::size_t>(length));
}

CString::CString(wchar_t ch, int repeat) {
  if (repeat > 0) m_text.assign(static_cast<std::size_t>(repeat), ch);
}

CString& CString::operator=(const wchar_t* text) {
  m_text = text ? text : L"";
  return *this;
}

CString& CString::operator=(wchar_t ch) {
  m_text.assign(1, ch);
  return *this;
}

CString CString::FromUtf8(std::string_view utf8) { return CString(qk::utf::FromUtf8(utf8)); }

std::string CString::ToUtf8() const { return qk::utf::ToUtf8(m_text); }

wchar_t CString::GetAt(int index) const {
  if (index < 0 || index >= GetLength()) throw std::invalid_argument("CString::GetAt: index out of range");
  return m_text[static_cast<std::size_t>(index)];
}

void CString::SetAt(int index, wchar_t ch) {
  if (index < 0 || index >= GetLength()) throw std::invalid_argument("CString::SetAt: index out of range");
  m_text[static_cast<std::size_t>(index)] = ch;
}

void CString::Format(const wchar_t* format, ...) {
  va_list args;
  va_start(args, format);
  FormatV(format, args);
  va_end(args);
}

void CString::FormatV(const wchar_t* format, va_list args) {
  std::wstring out;
  FormatInto(out, format, args);
  m_text = std::move(out);
}

void CString::AppendFormat(const wchar_t* format, ...) {
  // Formatted aside, then appended: the format may point into this string, whose buffer appending
  // in place would move while the format is still being read.
  std::wstring out;
  va_list args;
  va_start(args, format);
  FormatInto(out, format, args);
  va_end(args);
  m_text += out;
}

CString& CString::operator+=(const CString& other) {
  m_text += other.m_text;
  return *this;
}

CString& CString::operator+=(const wchar_t* text) {
  if (text) m_text += text;
  return *this;
}

CString& CString::operator+=(wchar_t ch) {
  m_text.push_back(ch);
  return *this;
}

int CString::Compare(const wchar_t* other) const {
  int r = m_text.compare(other ? other : L"");
  return r < 0 ? -1 : (r > 0 ? 1 : 0);
}

int CString::CompareNoCase(const wchar_t* other) const {
  if (other == nullptr) other = L"";
  const wchar_t* a = m_text.c_str();
  for (;; ++a, ++other) {
    wchar_t x = FoldAscii(*a);
    wchar_t y = FoldAscii(*other);
    if (x != y) return x < y ? -1 : 1;
    if (x == 0) return 0;
  }
}

int CString::Find(wchar_t ch, int start) const {
  if (start < 0 || start >= GetLength()) return -1;
  auto pos = m_text.find(ch, static_cast<std::size_t>(start));
  return pos == std::wstring::npos ? -1 : static_cast<int>(pos);
}

int CString::Find(const wchar_t* sub, int start) const {
  if (sub == nullptr || start < 0 || start > GetLength()) return -1;
  auto pos = m_text.find(sub, static_cast<std::size_t>(start));
  return pos == std::wstring::npos ? -1 : static_cast<int>(pos);
}

int CString::ReverseFind(wchar_t ch) const {
  auto pos = m_text.rfind(ch);
  return pos == std::wstring::npos ? -1 : static_cast<int>(pos);
}

CString CString::Left(int count) const { return CString(m_text.substr(0, Clamp(count, m_text.size()))); }

CString CString::Right(int count) const {
  auto n = Clamp(count, m_text.size());
  return CString(m_text.substr(m_text.size() - n));
}

CString CString::Mid(int first) const { return Mid(first, GetLength()); }

CString CString::Mid(int first, int count) const {
  auto from = Clamp(first, m_text.size());
  return CString(m_text.substr(from, Clamp(count, m_text.size() - from)));
}

int CString::Replace(const wchar_t* oldText, const wchar_t* newText) {
  if (oldText == nullptr || *oldText == 0) return 0;
  // Copies, not views: either text may point into this string (a CString converts to its own
  // buffer), which the first replacement can move or overwrite.
  const std::wstring from(oldText);
  const std::wstring to(newText ? newText : L"");
  int count = 0;
  for (std::size_t pos = m_text.find(from); pos != std::wstring::npos; pos = m_text.find(from, pos + to.size())) {
    m_text.replace(pos, from.size(), to);
    ++count;
  }
  return count;
}

int CString::Replace(wchar_t oldCh, wchar_t newCh) {
  int count = 0;
  for (auto& c : m_text) {
    if (c == oldCh) {
      c = newCh;
      ++count;
    }
  }
  return count;
}

int CString::Remove(wchar_t ch) {
  auto before = m_text.size();
  std::erase(m_text, ch);
  return static_cast<int>(before - m_text.size());
}

int CString::Insert(int index, const wchar_t* text) {
  if (text) m_text.insert(Clamp(index, m_text.size()), text);
  return GetLength();
}

int CString::Delete(int index, int count) {
  auto from = Clamp(index, m_text.size());
  m_text.erase(from, Clamp(count, m_text.size() - from));
  return GetLength();
}

CString& CString::Trim() { return TrimRight().TrimLeft(); }

CString& CString::TrimLeft() {
  std::size_t i = 0;
  while (i < m_text.size() && IsSpace(m_text[i])) ++i;
  m_text.erase(0, i);
  return *this;
}

CString& CString::TrimRight() {
  while (!m_text.empty() && IsSpace(m_text.back())) m_text.pop_back();
  return *this;
}

CString& CString::Trim(const wchar_t* set) { return TrimRight(set).TrimLeft(set); }

CString& CString::TrimLeft(const wchar_t* set) {
  if (set) m_text.erase(0, std::min(m_text.find_first_not_of(set), m_text.size()));
  return *this;
}

CString& CString::TrimRight(const wchar_t* set) {
  if (set) {
    auto last = m_text.find_last_not_of(set);
    m_text.erase(last == std::wstring::npos ? 0 : last + 1);
  }
  return *this;
}

CString& CString::TrimLeft(wchar_t ch) {
  const wchar_t set[2] = {ch, 0};
  return TrimLeft(set);
}

CString& CString::TrimRight(wchar_t ch) {
  const wchar_t set[2] = {ch, 0};
  return TrimRight(set);
}

CString& CString::MakeUpper() {
  for (auto& c : m_text) c = UpperAscii(c);
  return *this;
}

CString& CString::MakeLower() {
  for (auto& c : m_text) c = FoldAscii(c);
  return *this;
}

CString operator+(const CString& a, const CString& b) { return CString(a.str() + b.str()); }
CString operator+(const CString& a, const wchar_t* b) { return CString(a.str() + (b ? b : L"")); }
CString operator+(const wchar_t* a, const CString& b) { return CString((a ? a : L"") + b.str()); }
CString operator+(const CString& a, wchar_t b) { return CString(a.str() + b); }
