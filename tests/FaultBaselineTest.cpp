// The seeded database with nothing wrong: each family of operations does what it says, so that the
// error values the fault tests see come from their faults and not from the operations themselves.

#include <gtest/gtest.h>

#include "FaultDatabase.h"
#include "FaultOperations.h"

namespace {

class FaultBaseline : public FaultFixture {};

TEST_F(FaultBaseline, LookupsFindTheRows) { EXPECT_EQ(RunLookups(), kLookupsFound); }

TEST_F(FaultBaseline, WritesAreDone) { EXPECT_EQ(RunWrites(), kWritesDone); }

TEST_F(FaultBaseline, TreesAreWhole) { EXPECT_EQ(RunTrees(), kTreesWhole); }

TEST_F(FaultBaseline, DeletionsSucceed) { EXPECT_EQ(RunDeletions(), kDeletionsDone); }

}  // namespace
