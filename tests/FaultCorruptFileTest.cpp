// The reference database's file damaged: cut short (a copy that stopped part-way), or overwritten
// with bytes that are not a database. The open fails, so every operation gives its error value, and
// the library writes nothing into the file: what is left of it stays for the engineer to recover.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "FaultDatabase.h"
#include "FaultOperations.h"

namespace {

enum class Damage { Truncated, Garbage };

class FaultCorruptFile : public FaultFixture, public ::testing::WithParamInterface<Damage> {
 protected:
  void SetUp() override {
    FaultFixture::SetUp();
    const std::string file = path.ToUtf8();
    const auto size = std::filesystem::file_size(file);
    if (GetParam() == Damage::Truncated) {
      std::filesystem::resize_file(file, size / 2);
    } else {
      std::ofstream(file, std::ios::binary | std::ios::trunc) << std::string(size, 'Z');
    }
  }
};

TEST_P(FaultCorruptFile, LookupsGiveTheirErrorValues) { EXPECT_EQ(RunLookups(), kLookupsFailed); }

TEST_P(FaultCorruptFile, WritesGiveTheirErrorValues) { EXPECT_EQ(RunWrites(), kWritesFailed); }

TEST_P(FaultCorruptFile, TreesHaveOnlyTheirRoots) { EXPECT_EQ(RunTrees(), kTreesRootsOnly); }

TEST_P(FaultCorruptFile, DeletionsFailWithTheirMessages) { EXPECT_EQ(RunDeletions(), kDeletionsFailed); }

TEST_P(FaultCorruptFile, TheFileIsLeftAsItWas) {
  const std::string before = FileBytes(path);
  RunWrites();
  RunDeletions();
  EXPECT_EQ(FileBytes(path), before);
}

INSTANTIATE_TEST_SUITE_P(Fault, FaultCorruptFile, ::testing::Values(Damage::Truncated, Damage::Garbage),
                         [](const ::testing::TestParamInfo<Damage>& info) {
                           return info.param == Damage::Truncated ? std::string("Truncated") : std::string("Garbage");
                         });

}  // namespace
