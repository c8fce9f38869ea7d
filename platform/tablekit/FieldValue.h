#pragma once
// One value of a result row or of a row being written, and the conversions a record set applies when
// a caller reads it as another type. Internal to the record-access library.

#include <cstdint>
#include <vector>

#include "mfc/CString.h"

namespace tablekit {

struct FieldValue {
  enum class Kind { Null, Integer, Real, Text, Blob };
  Kind kind = Kind::Null;
  long long integer = 0;
  double real = 0.0;
  CString text;
  std::vector<std::uint8_t> blob;

  static FieldValue Int(long long v) { FieldValue f; f.kind = Kind::Integer; f.integer = v; return f; }
  static FieldValue Real(double v) { FieldValue f; f.kind = Kind::Real; f.real = v; return f; }
  static FieldValue Text(const CString& v) { FieldValue f; f.kind = Kind::Text; f.text = v; return f; }

  // Each returns false, leaving out unchanged, when the value has no such reading: null (except as
  // text, where null reads as ""), text that is not wholly a number, a blob, or an integer outside
  // the range asked for. A real read as an integer rounds to nearest, half to even, as the Access
  // engine converts.
  bool AsText(CString& out) const;
  bool AsDouble(double& out) const;
  bool AsInteger(long long lo, long long hi, long long& out) const;
};

}  // namespace tablekit
