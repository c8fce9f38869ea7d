#include "foundation/QKLoad.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <system_error>

namespace QKLoad {

namespace {
double g_djCnWd = 0.0;
constexpr int kMaxFractionDigits = 1074;
}  // namespace

void SplitString(const wchar_t* text, CStringArray& parts, wchar_t separator) {
  parts.RemoveAll();
  if (text == nullptr) return;
  const wchar_t* start = text;
  const wchar_t* p = text;
  for (; *p != L'\0'; ++p) {
    if (*p != separator) continue;
    if (p > start) parts.Add(CString(start, static_cast<int>(p - start)));
    start = p + 1;
  }
  if (p > start) parts.Add(CString(start, static_cast<int>(p - start)));
}

CString DblToStr(double value, int decimals) {
  if (decimals < 0) return CString();
  // A double has at most 1074 binary digits after the point, hence at most 1074 non-zero decimal
  // ones: more would only add zeros that are trimmed below, and a huge count would fail the format.
  decimals = std::min(decimals, kMaxFractionDigits);
  CString format;
  format.Format(L"%%.%df", decimals);
  CString text;
  text.Format(format, value);
  // Only a fraction loses its zeros: "100" stays "100".
  if (text.Find(L'.') >= 0) {
    text.TrimRight(L'0');
    text.TrimRight(L'.');
  }
  return text;
}

CString IntToStr(int value) {
  CString text;
  text.Format(L"%d", value);
  return text;
}

double ScaleByPowerOfTen(double value, int exponent) {
  if (!std::isfinite(value) || value == 0.0 || exponent == 0) return value;
  // The shortest scientific form ("5.8e-01" for 0.58), its exponent shifted, read back: the double
  // nearest the shifted decimal.
  char text[64];
  const auto written = std::to_chars(text, text + sizeof text, value, std::chars_format::scientific);
  char* const e = std::find(text, written.ptr, 'e');
  long long shifted = 0;
  std::from_chars(e + 1 + (e[1] == '+'), written.ptr, shifted);
  shifted += exponent;
  const int length = std::snprintf(e + 1, sizeof text - static_cast<std::size_t>(e + 1 - text), "%lld", shifted);
  double result = 0.0;
  const auto read = std::from_chars(text, e + 1 + length, result);
  if (read.ec == std::errc::result_out_of_range)
    return std::copysign(shifted > 0 ? std::numeric_limits<double>::infinity() : 0.0, value);
  return result;
}

void SetDjCnWd(double value) { g_djCnWd = value; }
double GetDjCnWd() { return g_djCnWd; }

// The design-day values were never filled in: nothing stores them, so every getter reads 0.0 and
// every setter below ignores its array.
double GetDjGqWd() { return 0.0; }
double GetDjSqWd() { return 0.0; }
double GetDjXdSd() { return 0.0; }

void SetDjGqWd(double* const) {}
void SetDjSqWd(double* const) {}
void SetXjGqWd(double* const) {}
void SetXjSqWd(double* const) {}
void SetQ(double* const) {}
void SetS(double* const) {}

}  // namespace QKLoad
