// The numeric helpers of the wall calculation: InitDoubleArray, elm and vec.

#include <gtest/gtest.h>

#include <cmath>

#include "foundation/QKNumeric.h"

namespace {

constexpr double kPi = 3.141592653589793;

struct Polar {
  double modulus = -1.0;
  double scaled = -1.0;
  double angle = -1.0;
};

Polar Vec(double scale, double x, double y) {
  Polar p;
  vec(scale, x, y, p.modulus, p.scaled, p.angle);
  return p;
}

}  // namespace

// --- InitDoubleArray ------------------------------------------------------------------------------

TEST(QKNumeric, InitDoubleArraySetsTheFirstCountElements) {
  double values[4] = {9.0, 9.0, 9.0, 9.0};

  InitDoubleArray(values, 1.5, 3);

  EXPECT_EQ(values[0], 1.5);
  EXPECT_EQ(values[1], 1.5);
  EXPECT_EQ(values[2], 1.5);
  EXPECT_EQ(values[3], 9.0);
}

TEST(QKNumeric, InitDoubleArrayWithCountZeroWritesNothing) {
  double values[2] = {9.0, 9.0};

  InitDoubleArray(values, 1.0, 0);

  EXPECT_EQ(values[0], 9.0);
  EXPECT_EQ(values[1], 9.0);
}

TEST(QKNumeric, InitDoubleArrayWithNegativeCountWritesNothing) {
  double values[2] = {9.0, 9.0};

  InitDoubleArray(values, 1.0, -5);

  EXPECT_EQ(values[0], 9.0);
  EXPECT_EQ(values[1], 9.0);
}

TEST(QKNumeric, InitDoubleArrayOfNullArrayDoesNothing) {
  InitDoubleArray(nullptr, 1.0, 3);

  SUCCEED();  // reaching here without a crash is the behaviour
}

// --- elm ------------------------------------------------------------------------------------------

TEST(QKNumeric, ElmAddsTwoComplexProducts) {
  // (1 + 2i)(3 + 4i) = -5 + 10i and (5 + 6i)(7 + 8i) = -13 + 82i; the sum is -18 + 92i.
  double re = 0.0;
  double im = 0.0;

  elm(1, 2, 3, 4, 5, 6, 7, 8, re, im);

  EXPECT_EQ(re, -18.0);
  EXPECT_EQ(im, 92.0);
}

// --- vec ------------------------------------------------------------------------------------------

TEST(QKNumeric, VecOfOriginIsAllZero) {
  Polar p = Vec(2, 0, 0);

  EXPECT_EQ(p.modulus, 0.0);
  EXPECT_EQ(p.scaled, 0.0);
  EXPECT_EQ(p.angle, 0.0);
}

TEST(QKNumeric, VecScalesTheModulus) {
  Polar p = Vec(2.5, 3, 4);

  EXPECT_DOUBLE_EQ(p.modulus, 5.0);
  EXPECT_DOUBLE_EQ(p.scaled, 12.5);
}

TEST(QKNumeric, VecFirstQuadrantAngleIsTheBaseAngle) {
  Polar p = Vec(1, 1, 1);

  EXPECT_DOUBLE_EQ(p.angle, kPi / 4);
}

TEST(QKNumeric, VecSecondQuadrantAngleIsPiMinusBaseAngle) {
  Polar p = Vec(1, -1, 1);

  EXPECT_DOUBLE_EQ(p.angle, kPi - kPi / 4);
}

TEST(QKNumeric, VecThirdQuadrantAngleIsPiPlusBaseAngle) {
  Polar p = Vec(1, -1, -1);

  EXPECT_DOUBLE_EQ(p.angle, kPi + kPi / 4);
}

TEST(QKNumeric, VecFourthQuadrantAngleIsTwoPiMinusBaseAngle) {
  Polar p = Vec(1, 1, -1);

  EXPECT_DOUBLE_EQ(p.angle, 2 * kPi - kPi / 4);
}

TEST(QKNumeric, VecOnNegativeRealAxisIsPi) {
  Polar p = Vec(1, -1, 0);

  EXPECT_DOUBLE_EQ(p.angle, kPi);
}

TEST(QKNumeric, VecOnPositiveRealAxisIsZero) {
  Polar p = Vec(1, 2, 0);

  EXPECT_EQ(p.angle, 0.0);
}

TEST(QKNumeric, VecOnPositiveImaginaryAxisIsHalfPi) {
  Polar p = Vec(1, 0, 3);

  EXPECT_DOUBLE_EQ(p.angle, kPi / 2);
}

TEST(QKNumeric, VecOnNegativeImaginaryAxisIsOneAndAHalfPi) {
  Polar p = Vec(1, 0, -3);

  EXPECT_DOUBLE_EQ(p.angle, 1.5 * kPi);
  EXPECT_DOUBLE_EQ(p.modulus, 3.0);
}

TEST(QKNumeric, VecOfTinyXWithNegativeYIsNearHalfPiNotOneAndAHalfPi) {
  // x is not exactly 0, so the base angle is atan(|y/x|), and |x| <= 1e-9 skips the quadrant.
  Polar p = Vec(1, 1e-12, -3);

  EXPECT_DOUBLE_EQ(p.angle, std::atan(3 / 1e-12));
  EXPECT_NEAR(p.angle, kPi / 2, 1e-9);
}

TEST(QKNumeric, VecOfTinyNegativeXWithPositiveYIsNearHalfPiNotPi) {
  Polar p = Vec(1, -1e-12, 3);

  EXPECT_NEAR(p.angle, kPi / 2, 1e-9);
}

TEST(QKNumeric, VecOfTinyYOnImaginaryAxisIsZero) {
  Polar p = Vec(1, 0, -1e-10);

  EXPECT_EQ(p.angle, 0.0);
}
