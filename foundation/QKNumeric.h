#pragma once
// The small numeric helpers of the wall thermal calculation: filling an array, the sum of two
// complex products, and the polar form of a complex number.

#include "QKExport.h"

// Sets values[0] .. values[count - 1] to value; nothing for a count of 0 or less, or a null array.
QK_EXPORT void InitDoubleArray(double* values, double value, int count);

// (a + ib)(c + id) + (e + if)(g + ih) = re + i im.
QK_EXPORT void elm(double a, double b, double c, double d, double e, double f, double g, double h, double& re,
                   double& im);

// The polar form of x + iy: modulus = |x + iy|, scaled = modulus * scale, angle in radians in
// [0, 2pi). The base angle is atan(|y/x|), with an exact test x == 0 for the axis (pi/2 or 1.5pi,
// 0 when |y| <= 1e-9); the quadrant is corrected only when |x| > 1e-9, so a tiny non-zero x with a
// negative y gives an angle near pi/2, not 1.5pi. The calculation depends on exactly this.
QK_EXPORT void vec(double scale, double x, double y, double& modulus, double& scaled, double& angle);
