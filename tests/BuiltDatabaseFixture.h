#pragma once
// A test suite on one reference database that `qkdb init` builds from data/ for the whole suite, with
// every record class bound to it for each test and forgotten after it.

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "GeographyFixture.h"
#include "QkdbRun.h"
#include "TestDatabase.h"
#include "binding/ReferenceTables.h"

class BuiltDatabaseFixture : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    s_dir = std::make_unique<TempDir>();
    s_path = (s_dir->path() / "reference.db").string();
    s_init = Qkdb("init --db '" + s_path + "'");
  }
  static void TearDownTestSuite() { s_dir.reset(); }

  void SetUp() override {
    ASSERT_EQ(s_init.status, 0) << s_init.err;
    const CString path = CString::FromUtf8(s_path);
    ForEachRecordClass([&path]<typename Record>(const wchar_t* table) { Record::S_Init(path, table); });
  }
  void TearDown() override {
    ForEachRecordClass([]<typename Record>(const wchar_t*) { ForgetClassTable<Record>(); });
  }

  static std::string Query(const std::string& sql) { return QueryOne(CString::FromUtf8(s_path), sql); }
  static ToolRun Run(const std::string& args) { return Qkdb(args + " --db '" + s_path + "'"); }

  inline static std::unique_ptr<TempDir> s_dir;
  inline static std::string s_path;
  inline static ToolRun s_init;
};
