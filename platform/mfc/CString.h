#pragma once
// CString: the wide-character string of the library's interface (wchar_t, UTF-32 on Linux, UTF-16 on
// Windows). It is a plain value: copies are independent. At every byte boundary (files, SQLite, the
// terminal) it is converted to and from UTF-8 with FromUtf8 / ToUtf8.
//
// Format follows the framework's wide printf rules, not the C library's: "%s" takes a wide string
// (const wchar_t*), "%c" a wide character; numbers are always written with a "." as decimal point,
// whatever locale the host has set, because the texts built here end up in SQL. Pass a CString to
// "%s" as str.GetString(): the object itself cannot travel through "..." (the build refuses it).
//
// Case-insensitive comparison folds the ASCII letters only, exactly as the database's NOCASE
// collation does, so that a comparison made here and one made by a query agree.

#include <cstdarg>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "QKExport.h"

class QK_EXPORT CString {
 public:
  CString() = default;
  CString(const wchar_t* text);  // null gives the empty string
  CString(const wchar_t* text, int length);
  CString(wchar_t ch, int repeat = 1);
  CString(std::wstring text) : m_text(std::move(text)) {}
  CString(const CString&) = default;
  CString(CString&&) noexcept = default;
  CString& operator=(const CString&) = default;
  CString& operator=(CString&&) noexcept = default;
  CString& operator=(const wchar_t* text);
  CString& operator=(wchar_t ch);

  // Decodes UTF-8; an invalid sequence becomes U+FFFD, so no input makes it fail.
  static CString FromUtf8(std::string_view utf8);
  std::string ToUtf8() const;

  int GetLength() const { return static_cast<int>(m_text.size()); }
  bool IsEmpty() const { return m_text.empty(); }
  void Empty() { m_text.clear(); }
  const wchar_t* GetString() const { return m_text.c_str(); }
  operator const wchar_t*() const { return m_text.c_str(); }
  const std::wstring& str() const { return m_text; }

  // Index outside 0..GetLength()-1 throws std::invalid_argument, as the framework does.
  wchar_t GetAt(int index) const;
  void SetAt(int index, wchar_t ch);
  wchar_t operator[](int index) const { return GetAt(index); }

  // printf-style formatting with the wide rules above. Returns nothing; the string holds the result.
  void Format(const wchar_t* format, ...);
  void FormatV(const wchar_t* format, va_list args);
  void AppendFormat(const wchar_t* format, ...);

  CString& operator+=(const CString& other);
  CString& operator+=(const wchar_t* text);
  CString& operator+=(wchar_t ch);

  // <0, 0, >0 like wcscmp (code-point order).
  int Compare(const wchar_t* other) const;
  // The same after folding ASCII letters to lower case.
  int CompareNoCase(const wchar_t* other) const;

  // Index of the first match at or after start, or -1.
  int Find(wchar_t ch, int start = 0) const;
  int Find(const wchar_t* sub, int start = 0) const;
  int ReverseFind(wchar_t ch) const;

  // Substrings; counts are clamped to the string, as the framework does.
  CString Left(int count) const;
  CString Right(int count) const;
  CString Mid(int first) const;
  CString Mid(int first, int count) const;

  // Returns the number of replacements / removals.
  int Replace(const wchar_t* oldText, const wchar_t* newText);
  int Replace(wchar_t oldCh, wchar_t newCh);
  int Remove(wchar_t ch);
  int Insert(int index, const wchar_t* text);  // returns the new length
  int Delete(int index, int count = 1);        // returns the new length

  // Without argument they trim white space; with one, every character of the set.
  CString& Trim();
  CString& TrimLeft();
  CString& TrimRight();
  CString& Trim(const wchar_t* set);
  CString& TrimLeft(const wchar_t* set);
  CString& TrimRight(const wchar_t* set);
  CString& TrimLeft(wchar_t ch);
  CString& TrimRight(wchar_t ch);

  CString& MakeUpper();  // ASCII letters only (see the header comment)
  CString& MakeLower();

 private:
  std::wstring m_text;
};

QK_EXPORT CString operator+(const CString& a, const CString& b);
QK_EXPORT CString operator+(const CString& a, const wchar_t* b);
QK_EXPORT CString operator+(const wchar_t* a, const CString& b);
QK_EXPORT CString operator+(const CString& a, wchar_t b);

inline bool operator==(const CString& a, const CString& b) { return a.str() == b.str(); }
inline bool operator==(const CString& a, const wchar_t* b) { return a.Compare(b) == 0; }
inline bool operator==(const wchar_t* a, const CString& b) { return b.Compare(a) == 0; }
inline bool operator!=(const CString& a, const CString& b) { return !(a == b); }
inline bool operator!=(const CString& a, const wchar_t* b) { return !(a == b); }
inline bool operator!=(const wchar_t* a, const CString& b) { return !(a == b); }
inline bool operator<(const CString& a, const CString& b) { return a.str() < b.str(); }
inline bool operator>(const CString& a, const CString& b) { return b < a; }
inline bool operator<=(const CString& a, const CString& b) { return !(b < a); }
inline bool operator>=(const CString& a, const CString& b) { return !(a < b); }

template <>
struct std::hash<CString> {
  std::size_t operator()(const CString& s) const noexcept { return std::hash<std::wstring>()(s.str()); }
};
