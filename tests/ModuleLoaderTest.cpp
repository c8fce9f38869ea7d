// Modules loaded when first needed (tablekit/ModuleLoader.h): where they are looked for, and the one
// line a caller gets when one cannot be used.

#include "tablekit/ModuleLoader.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tablekit/CADODatabase.h"

namespace fs = std::filesystem;

TEST(ModuleLoader, ModulesAreLookedForInAFolderBesideTheLibrary) {
  const fs::path folder = tablekit::ModuleFolder();
  EXPECT_EQ(folder.filename(), "QKModelDataBase");
  EXPECT_TRUE(fs::exists(folder.parent_path() / "libQKModelDataBase.so.0")) << folder;
  // The build puts both modules there, as an install does.
  EXPECT_TRUE(fs::is_regular_file(folder / "postgresql.so"));
  EXPECT_TRUE(fs::is_regular_file(folder / "qkdb-access.so"));
}

TEST(ModuleLoader, AMissingModuleIsNamedInOneLine) {
  std::string error;
  EXPECT_EQ(tablekit::ModuleSymbol("no-such-module", "Anything", error), nullptr);
  EXPECT_EQ(error, "the module " + (fs::path(tablekit::ModuleFolder()) / "no-such-module.so").string() +
                       " is not installed");
}

TEST(ModuleLoader, ASecondAskForAMissingModuleSaysTheSame) {
  std::string first, second;
  tablekit::ModuleSymbol("no-such-module", "Anything", first);
  EXPECT_EQ(tablekit::ModuleSymbol("no-such-module", "Anything", second), nullptr);
  EXPECT_EQ(second, first);
}

TEST(ModuleLoader, AModuleWithoutTheSymbolAskedForSaysSo) {
  std::string error;
  EXPECT_EQ(tablekit::ModuleSymbol("postgresql", "NoSuchEntry", error), nullptr);
  EXPECT_EQ(error, "the module postgresql has no NoSuchEntry");
}

TEST(ModuleLoader, TheModulesOfThisBuildAreTaken) {
  std::string error;
  EXPECT_NE(tablekit::ModuleSymbol("postgresql", "QKOpenPostgres", error), nullptr) << error;
  EXPECT_NE(tablekit::ModuleSymbol("qkdb-access", "QKOpenAccessFile", error), nullptr) << error;
}

// The server's own reason, not the module's: the backend was loaded and asked.
TEST(ModuleLoader, APostgresUriReachesTheServerThroughTheModule) {
  CADODatabase db;
  EXPECT_EQ(db.OpenAccess(L"postgresql://qk@127.0.0.1:1/none", L"", L""), 0);
  const std::string error = db.GetLastError().ToUtf8();
  EXPECT_NE(error.find("127.0.0.1"), std::string::npos) << error;
  EXPECT_EQ(error.find("cannot be used"), std::string::npos) << error;
}
