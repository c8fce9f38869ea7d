// The layer array: a plain growable array of layers whose new elements are default layers and
// whose copies share nothing with their source.

#include <gtest/gtest.h>

#include <stdexcept>

#include "construction/CQKTheroyArray.h"
#include "construction/tagQKTIMBERINGCHARACTER.h"

namespace {

using Layers = CQKTheroyArray<tagQKTIMBERINGCHARACTER>;

tagQKTIMBERINGCHARACTER Layer(double thick, double conductivity) {
  tagQKTIMBERINGCHARACTER t;
  t.Thick = thick;
  t.DrXs = conductivity;
  return t;
}

}  // namespace

TEST(CQKTheroyArray, NewArrayIsEmpty) {
  Layers a;

  EXPECT_EQ(a.GetSize(), 0);
}

TEST(CQKTheroyArray, SetSizeGrowsWithDefaultLayers) {
  Layers a;

  a.SetSize(2);

  ASSERT_EQ(a.GetSize(), 2);
  EXPECT_EQ(a[1].Roughness, 1);
  EXPECT_EQ(a[1].DrXsXz, 1.0);
  EXPECT_EQ(a[1].GMCXz, 1.0);
  EXPECT_EQ(a[1].TheAbs, 0.9);
}

TEST(CQKTheroyArray, SetAtGrowFillsTheGapWithDefaultLayers) {
  Layers a;

  a.SetAtGrow(2, Layer(0.24, 0.81));

  ASSERT_EQ(a.GetSize(), 3);
  EXPECT_EQ(a[0].Roughness, 1);
  EXPECT_EQ(a[0].DrXsXz, 1.0);
  EXPECT_EQ(a[0].GMCXz, 1.0);
  EXPECT_EQ(a[2].Thick, 0.24);
}

TEST(CQKTheroyArray, SetSizeWithGrowStepMinusOneKeepsTheEarlierStep) {
  // A step of 100 reserves room for 100 more on the next growth; -1 must not throw that away, so
  // the storage stays put while the array fills to 100.
  Layers a;
  a.SetSize(0, 100);
  a.SetSize(1, -1);
  const tagQKTIMBERINGCHARACTER* storage = a.GetData();

  int moved = 0;
  for (int i = 1; i < 100; ++i) {
    a.Add(Layer(0.01 * i, 1.0));
    if (a.GetData() != storage) ++moved;
  }

  EXPECT_EQ(moved, 0);
  EXPECT_EQ(a.GetSize(), 100);
}

TEST(CQKTheroyArray, AddAppendsAtTheEnd) {
  Layers a;
  a.Add(Layer(0.24, 0.81));

  const int index = a.Add(Layer(0.05, 0.04));

  EXPECT_EQ(index, 1);
  EXPECT_EQ(a[1].Thick, 0.05);
}

TEST(CQKTheroyArray, InsertAtInsertsCountCopiesBeforeIndex) {
  Layers a;
  a.Add(Layer(0.24, 0.81));
  a.Add(Layer(0.02, 0.87));

  a.InsertAt(1, Layer(0.05, 0.04), 2);

  ASSERT_EQ(a.GetSize(), 4);
  EXPECT_EQ(a[0].Thick, 0.24);
  EXPECT_EQ(a[1].Thick, 0.05);
  EXPECT_EQ(a[2].Thick, 0.05);
  EXPECT_EQ(a[3].Thick, 0.02);
}

TEST(CQKTheroyArray, InsertAtNegativeIndexThrowsInvalidArgument) {
  Layers a;
  a.Add(Layer(0.24, 0.81));

  EXPECT_THROW(a.InsertAt(-1, Layer(0.05, 0.04)), std::invalid_argument);
}

TEST(CQKTheroyArray, InsertAtCountBelowOneThrowsInvalidArgument) {
  Layers a;
  a.Add(Layer(0.24, 0.81));

  EXPECT_THROW(a.InsertAt(0, Layer(0.05, 0.04), 0), std::invalid_argument);
}

TEST(CQKTheroyArray, RemoveAtRemovesTheElement) {
  Layers a;
  a.Add(Layer(0.24, 0.81));
  a.Add(Layer(0.05, 0.04));
  a.Add(Layer(0.02, 0.87));

  a.RemoveAt(1);

  ASSERT_EQ(a.GetSize(), 2);
  EXPECT_EQ(a[0].Thick, 0.24);
  EXPECT_EQ(a[1].Thick, 0.02);
}

TEST(CQKTheroyArray, CopyAssignmentCopiesEveryElement) {
  Layers source;
  source.Add(Layer(0.24, 0.81));
  source.Add(Layer(0.05, 0.04));
  Layers target;
  target.Add(Layer(0.5, 2.0));
  target.Add(Layer(0.6, 2.0));
  target.Add(Layer(0.7, 2.0));

  target = source;

  ASSERT_EQ(target.GetSize(), 2);
  EXPECT_EQ(target[0].Thick, 0.24);
  EXPECT_EQ(target[0].DrXs, 0.81);
  EXPECT_EQ(target[1].Thick, 0.05);
  EXPECT_EQ(target[1].DrXs, 0.04);
}

TEST(CQKTheroyArray, CopyAssignmentIsIndependentOfItsSource) {
  Layers source;
  source.Add(Layer(0.24, 0.81));
  Layers target;
  target = source;

  source[0].Thick = 0.37;
  source.Add(Layer(0.05, 0.04));

  ASSERT_EQ(target.GetSize(), 1);
  EXPECT_EQ(target[0].Thick, 0.24);
}

TEST(CQKTheroyArray, CopyConstructionIsIndependentOfItsSource) {
  Layers source;
  source.Add(Layer(0.24, 0.81));
  Layers copy(source);

  source[0].DrXs = 1.74;

  ASSERT_EQ(copy.GetSize(), 1);
  EXPECT_EQ(copy[0].DrXs, 0.81);
}

TEST(CQKTheroyArray, SelfAssignmentKeepsTheElements) {
  Layers a;
  a.Add(Layer(0.24, 0.81));
  Layers& same = a;

  a = same;

  ASSERT_EQ(a.GetSize(), 1);
  EXPECT_EQ(a[0].Thick, 0.24);
}
