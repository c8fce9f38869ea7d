#include "foundation/QKNumeric.h"

#include <cmath>

namespace {
constexpr double kPi = 3.141592653589793;
// Below this |x| the quadrant is not corrected, and below this |y| an axis angle is 0.
constexpr double kTiny = 1e-9;
}  // namespace

void InitDoubleArray(double* values, double value, int count) {
  if (values == nullptr) return;
  for (int i = 0; i < count; ++i) values[i] = value;
}

void elm(double a, double b, double c, double d, double e, double f, double g, double h, double& re, double& im) {
  re = a * c - b * d + e * g - f * h;
  im = b * c + a * d + f * g + e * h;
}

void vec(double scale, double x, double y, double& modulus, double& scaled, double& angle) {
  double phi = 0.0;
  if (x == 0.0) {
    if (std::fabs(y) > kTiny) phi = y > 0.0 ? kPi / 2.0 : 1.5 * kPi;
  } else {
    phi = std::atan(std::fabs(y / x));
  }
  modulus = std::sqrt(x * x + y * y);
  scaled = modulus * scale;
  // No quadrant correction for a tiny x: with a negative y the angle stays near pi/2.
  if (std::fabs(x) <= kTiny || (y >= 0.0 && x > 0.0)) {
    angle = phi;
  } else if (y >= 0.0 && x < 0.0) {
    angle = kPi - phi;
  } else if (y <= 0.0 && x < 0.0) {
    angle = kPi + phi;
  } else {
    angle = 2.0 * kPi - phi;
  }
}
