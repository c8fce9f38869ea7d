#pragma once
// QKLoad: what every part of the library shares: the result codes of the record verbs and of the
// value setters, the labour intensity of a room's occupants, and a few string and number helpers.
//
// The numbers of the enumerations are fixed: hosts compare results against them. The design values
// at the end are process-wide; most of their setters are kept as entry points that do nothing (see
// each). Not safe for concurrent use.

#include "QKExport.h"
#include "mfc/CString.h"
#include "mfc/CStringArray.h"

namespace QKLoad {

// Result of IsExist, AddIfNotExist, UpdateIfNoOther and AddOrUpdate. 5 is never produced.
enum DBStatusCode {
  DBS_OK = 0,        // done; a few verbs also use it for "missing" and for a successful insertion
  DBS_ERROR = 1,     // the query or the write failed
  DBS_EXIST = 2,     // a matching record exists (and, for lookups, was loaded)
  DBS_UPDATED = 3,   // an existing record was overwritten
  DBS_ADDED = 4,     // a new record was inserted
  DBS_NOTEXIST = 6,  // no matching record
};

// Result of the value setters and the wall calculations. Setters never reject a value: ET_OK.
enum ErrorType {
  ET_OK = 0,
  ET_NOLAYER = 1,  // a thickness correction asked of a wall without layers
};

// Labour intensity of a room's occupants; it keys a room use's load parameters.
enum EQKLdQdType {
  LdQdSitting = 0,    // 静坐
  LdQdVeryLight = 1,  // 极轻劳动
  LdQdLight = 2,      // 轻度劳动
  LdQdModerate = 3,   // 中等劳动
  LdQdHeavy = 4,      // 重度劳动
};

// Empties parts, then appends each non-empty piece of text between separators: "a,,b," gives "a"
// and "b". A null or empty text gives no pieces.
QK_EXPORT void SplitString(const wchar_t* text, CStringArray& parts, wchar_t separator);
// value with decimals digits after the point, then trailing zeros and a trailing point removed:
// (2.50, 3) gives "2.5", (3.0, 2) gives "3", (100.0, 0) gives "100". Negative decimals give "".
QK_EXPORT CString DblToStr(double value, int decimals);
// value formatted with "%d".
QK_EXPORT CString IntToStr(int value);

// value × 10^exponent, taken as the decimal that value was written as: the point of the shortest
// decimal that reads back as value is moved, and the result is the double nearest that decimal. So
// 0.58 × 10² gives exactly 58 and 99580 × 10⁻² exactly 995.8, where a binary multiplication gives
// 57.99999999999999 and 995.8000000000001; and scaling back by -exponent returns value itself. For
// the unit changes of stored data (Pa and hPa, fractions and percent). Infinities and NaN pass
// through; a result beyond the range of a double is an infinity, one below it zero.
QK_EXPORT double ScaleByPowerOfTen(double value, int exponent);

// The process-wide design indoor temperature, 0.0 until set.
QK_EXPORT void SetDjCnWd(double value);
QK_EXPORT double GetDjCnWd();
// The design-day outdoor dry-bulb and wet-bulb temperatures and relative humidity were never filled
// in by this library: the getters return 0.0, and the setters below neither read nor keep the array
// they are given. All are kept as entry points for the host.
QK_EXPORT double GetDjGqWd();
QK_EXPORT double GetDjSqWd();
QK_EXPORT double GetDjXdSd();
QK_EXPORT void SetDjGqWd(double* const values);
QK_EXPORT void SetDjSqWd(double* const values);
QK_EXPORT void SetXjGqWd(double* const values);
QK_EXPORT void SetXjSqWd(double* const values);
QK_EXPORT void SetQ(double* const values);
QK_EXPORT void SetS(double* const values);

}  // namespace QKLoad
