// The reference database's file is gone (moved, or never copied): every operation gives its error
// value, the deletions show their messages, and no empty database is made in the file's place.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "FaultDatabase.h"
#include "FaultOperations.h"

namespace {

class FaultMissingFile : public FaultFixture {
 protected:
  void SetUp() override {
    FaultFixture::SetUp();
    std::filesystem::rename(path.ToUtf8(), aside);
  }

  const std::string aside = (dir.path() / "aside.db").string();  // where the file went
};

TEST_F(FaultMissingFile, LookupsGiveTheirErrorValues) { EXPECT_EQ(RunLookups(), kLookupsFailed); }

TEST_F(FaultMissingFile, WritesGiveTheirErrorValues) { EXPECT_EQ(RunWrites(), kWritesFailed); }

TEST_F(FaultMissingFile, TreesHaveOnlyTheirRoots) { EXPECT_EQ(RunTrees(), kTreesRootsOnly); }

TEST_F(FaultMissingFile, DeletionsFailWithTheirMessages) { EXPECT_EQ(RunDeletions(), kDeletionsFailed); }

TEST_F(FaultMissingFile, NoFileIsMadeInItsPlace) {
  RunWrites();
  RunDeletions();
  EXPECT_FALSE(std::filesystem::exists(path.ToUtf8()));
}

TEST_F(FaultMissingFile, TheFileIsOpenedOnceItIsBack) {
  ASSERT_EQ(RunLookups(), kLookupsFailed);
  std::filesystem::rename(aside, path.ToUtf8());
  EXPECT_EQ(RunLookups(), kLookupsFound);
}

}  // namespace
