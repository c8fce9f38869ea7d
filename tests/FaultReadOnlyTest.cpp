// The reference database as an engineer without write access meets it: the file read-only, or the
// folder read-only so that SQLite cannot create the rollback journal beside the file. Reading works;
// every write and deletion gives its error value, and the committed rows stay as they were. The
// library runs in a child process as "nobody", since root may write anything.

#include <gtest/gtest.h>

#include <string>

#include "FaultDatabase.h"
#include "FaultOperations.h"

namespace {

enum class ReadOnly { File, Folder };

class FaultReadOnly : public FaultFixture, public ::testing::WithParamInterface<ReadOnly> {
 protected:
  void SetUp() override {
    FaultFixture::SetUp();
    if (GetParam() == ReadOnly::File) {
      OpenToOthers(0444, 0755);
    } else {
      OpenToOthers(0666, 0555);
    }
  }
};

TEST_P(FaultReadOnly, LookupsStillFindTheRows) { EXPECT_EQ(UnprivilegedText(RunLookups), kLookupsFound); }

TEST_P(FaultReadOnly, WritesGiveTheirErrorValues) { EXPECT_EQ(UnprivilegedText(RunWrites), kWritesRefused); }

TEST_P(FaultReadOnly, TreesStillBuild) { EXPECT_EQ(UnprivilegedText(RunTrees), kTreesWhole); }

TEST_P(FaultReadOnly, DeletionsFailWithTheirMessages) { EXPECT_EQ(UnprivilegedText(RunDeletions), kDeletionsFailed); }

TEST_P(FaultReadOnly, CommittedRowsStayWhole) {
  const std::string before = StoredRows(path);
  UnprivilegedText([] {
    RunWrites();
    return RunDeletions();
  });
  EXPECT_EQ(StoredRows(path), before);
  EXPECT_EQ(IntegrityCheck(path), "ok");
}

INSTANTIATE_TEST_SUITE_P(Fault, FaultReadOnly, ::testing::Values(ReadOnly::File, ReadOnly::Folder),
                         [](const ::testing::TestParamInfo<ReadOnly>& info) {
                           return info.param == ReadOnly::File ? std::string("File") : std::string("Folder");
                         });

}  // namespace
