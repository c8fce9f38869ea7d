// The surface heat-transfer coefficients of the envelope catalogue's walls, W/(m²·K): outside in
// summer and in winter, inside, and five spare values that are only kept and copied.

#include <gtest/gtest.h>

#include "envelope/CQKCrXs.h"

namespace {

// Every one of the eight values away from its default and from the others.
CQKCrXs Distinct() {
  CQKCrXs x;
  x.WHrXs = 19.0;
  x.DjWHrXs = 21.5;
  x.NHrXs = 9.1;
  x.Spare1 = 1.5;
  x.Spare2 = -2.5;
  x.Spare3 = 3.25;
  x.Spare4 = 4.75;
  x.Spare5 = 5.125;
  return x;
}

void ExpectDistinct(const CQKCrXs& x) {
  EXPECT_EQ(x.WHrXs, 19.0);
  EXPECT_EQ(x.DjWHrXs, 21.5);
  EXPECT_EQ(x.NHrXs, 9.1);
  EXPECT_EQ(x.Spare1, 1.5);
  EXPECT_EQ(x.Spare2, -2.5);
  EXPECT_EQ(x.Spare3, 3.25);
  EXPECT_EQ(x.Spare4, 4.75);
  EXPECT_EQ(x.Spare5, 5.125);
}

void ExpectDefaults(const CQKCrXs& x) {
  EXPECT_EQ(x.WHrXs, 18.6);
  EXPECT_EQ(x.DjWHrXs, 23.0);
  EXPECT_EQ(x.NHrXs, 8.7);
  EXPECT_EQ(x.Spare1, 0.0);
  EXPECT_EQ(x.Spare2, 0.0);
  EXPECT_EQ(x.Spare3, 0.0);
  EXPECT_EQ(x.Spare4, 0.0);
  EXPECT_EQ(x.Spare5, 0.0);
}

}  // namespace

TEST(CQKCrXs, OutsideSummerDefaultIs18Point6) {
  EXPECT_EQ(CQKCrXs().WHrXs, 18.6);
}

TEST(CQKCrXs, OutsideWinterDefaultIs23) {
  EXPECT_EQ(CQKCrXs().DjWHrXs, 23.0);
}

TEST(CQKCrXs, InsideDefaultIs8Point7) {
  EXPECT_EQ(CQKCrXs().NHrXs, 8.7);
}

TEST(CQKCrXs, TheFiveSpareValuesStartAtZero) {
  CQKCrXs x;
  EXPECT_EQ(x.Spare1, 0.0);
  EXPECT_EQ(x.Spare2, 0.0);
  EXPECT_EQ(x.Spare3, 0.0);
  EXPECT_EQ(x.Spare4, 0.0);
  EXPECT_EQ(x.Spare5, 0.0);
}

TEST(CQKCrXs, InitRestoresAllEightDefaults) {
  CQKCrXs x = Distinct();
  x.Init();
  ExpectDefaults(x);
}

TEST(CQKCrXs, CopyConstructionCopiesAllEight) {
  const CQKCrXs source = Distinct();
  CQKCrXs copy(source);
  ExpectDistinct(copy);
}

TEST(CQKCrXs, AssignmentCopiesAllEight) {
  const CQKCrXs source = Distinct();
  CQKCrXs target;
  target = source;
  ExpectDistinct(target);
}

TEST(CQKCrXs, AssignmentOfDefaultsOverwritesEveryValue) {
  CQKCrXs target = Distinct();
  target = CQKCrXs();
  ExpectDefaults(target);
}

TEST(CQKCrXs, DestroysThroughABasePointer) {
  // The destructor is virtual: a host may derive its own coefficient set and delete it as a CQKCrXs.
  struct Derived : CQKCrXs {
    explicit Derived(bool* destroyed) : m_destroyed(destroyed) {}
    ~Derived() override { *m_destroyed = true; }
    bool* m_destroyed;
  };
  bool destroyed = false;
  CQKCrXs* x = new Derived(&destroyed);
  delete x;
  EXPECT_TRUE(destroyed);
}
