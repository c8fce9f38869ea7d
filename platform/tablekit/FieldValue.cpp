#include "tablekit/FieldValue.h"

#include <charconv>
#include <cmath>
#include <string>

namespace tablekit {
namespace {

// Shortest text that reads back as the same double ("0.1", not "0.10000000000000001").
CString RealToText(double v) {
  char buf[64];
  auto res = std::to_chars(buf, buf + sizeof buf, v);
  return CString::FromUtf8(std::string_view(buf, static_cast<std::size_t>(res.ptr - buf)));
}

bool ParseReal(const CString& text, double& out) {
  std::string s = CString(text).Trim().ToUtf8();
  if (s.empty()) return false;
  const char* first = s.data() + (s[0] == '+' ? 1 : 0);
  auto res = std::from_chars(first, s.data() + s.size(), out);
  return res.ec == std::errc() && res.ptr == s.data() + s.size();
}

}  // namespace

bool FieldValue::AsText(CString& out) const {
  switch (kind) {
    case Kind::Null: out.Empty(); return true;
    case Kind::Integer: out = CString::FromUtf8(std::to_string(integer)); return true;
    case Kind::Real: out = RealToText(real); return true;
    case Kind::Text: out = text; return true;
    case Kind::Blob: return false;
  }
  return false;
}

bool FieldValue::AsDouble(double& out) const {
  switch (kind) {
    case Kind::Integer: out = static_cast<double>(integer); return true;
    case Kind::Real: out = real; return true;
    case Kind::Text: return ParseReal(text, out);
    default: return false;
  }
}

bool FieldValue::AsInteger(long long lo, long long hi, long long& out) const {
  double d;
  long long v;
  if (kind == Kind::Integer) {
    v = integer;
  } else if (AsDouble(d)) {
    d = std::nearbyint(d);
    // The bounds as doubles round outward near 2^63; the magnitude test keeps the cast defined.
    if (!(d >= static_cast<double>(lo) && d <= static_cast<double>(hi)) || std::fabs(d) >= 9.2e18) return false;
    v = static_cast<long long>(d);
  } else {
    return false;
  }
  if (v < lo || v > hi) return false;
  out = v;
  return true;
}

}  // namespace tablekit
