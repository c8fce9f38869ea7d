// qkdb's commands open their database once (files/ReferenceDatabase.h, CommandDatabase): while a
// command runs, every record class reads and writes through the command's one connection; afterwards
// each has its own back. On each backend.

#include <gtest/gtest.h>

#include <vector>

#include "BackendDatabase.h"
#include "GeographyFixture.h"
#include "binding/ReferenceTables.h"
#include "files/ReferenceDatabase.h"

namespace {

class CommandDatabaseTest : public BackendFixture {
 protected:
  void TearDown() override {
    ForEachRecordClass([]<typename Record>(const wchar_t*) { ForgetClassTable<Record>(); });
  }
  // Each class's connection pointer, in the order of ForEachRecordClass.
  static std::vector<CADODatabase*> Connections() {
    std::vector<CADODatabase*> all;
    ForEachRecordClass([&]<typename Record>(const wchar_t*) { all.push_back(Record::m_pADODatabase); });
    return all;
  }
};

TEST_P(CommandDatabaseTest, EveryRecordClassUsesTheOneOpenConnection) {
  qkdb::CommandDatabase command;
  ASSERT_EQ(command.Open(path.ToUtf8()), "");
  CADODatabase* shared = CQKCountry::m_pADODatabase;
  ASSERT_NE(shared, nullptr);
  EXPECT_TRUE(shared->IsOpen());
  for (CADODatabase* connection : Connections()) EXPECT_EQ(connection, shared);
  CQKCity city;
  EXPECT_EQ(city.GetUserDatabase(), shared);  // found open: not opened again
  EXPECT_EQ(CQKRULoadParam::s_m_strTableName, L"RULoadParam");
  EXPECT_EQ(CQKRULoadParam::s_m_strDataBasePath, path);
}

TEST_P(CommandDatabaseTest, RecordsReadAndWriteThroughIt) {
  qkdb::CommandDatabase command;
  ASSERT_EQ(command.Open(path.ToUtf8()), "");
  CQKCountry country;
  country.Name = L"中国";
  ASSERT_EQ(country.AddIfNotExist(nullptr, 0), QKLoad::DBS_ADDED);
  CQKCountry found;
  found.Name = L"中国";
  EXPECT_EQ(found.IsExist(nullptr), QKLoad::DBS_EXIST);
  EXPECT_EQ(Query("SELECT Name FROM Country"), "中国");
}

TEST_P(CommandDatabaseTest, AfterTheCommandEachClassHasItsOwnConnectionBack) {
  CQKCity::S_Init(L"before.db", L"Town");
  const std::vector<CADODatabase*> before = Connections();
  {
    qkdb::CommandDatabase command;
    ASSERT_EQ(command.Open(path.ToUtf8()), "");
  }
  EXPECT_EQ(Connections(), before);
  EXPECT_EQ(CQKCity::s_m_strDataBasePath, L"before.db");
  EXPECT_EQ(CQKCity::s_m_strTableName, L"Town");
}

TEST_P(CommandDatabaseTest, ADatabaseWithoutATableIsOneLineAndBindsNothing) {
  Seed("DROP TABLE RoomUse");
  const std::vector<CADODatabase*> before = Connections();
  qkdb::CommandDatabase command;
  const std::string problem = command.Open(path.ToUtf8());
  EXPECT_NE(problem.find("has no table RoomUse"), std::string::npos) << problem;
  EXPECT_EQ(problem.find('\n'), std::string::npos) << problem;
  EXPECT_EQ(Connections(), before);
  EXPECT_EQ(CQKCountry::s_m_strTableName, L"");
}

TEST_P(CommandDatabaseTest, ADatabaseThatCannotBeOpenedIsOneLineAndBindsNothing) {
  const std::string missing = OnSQLite() ? dir.File("none.db").ToUtf8() : "postgresql://qk@127.0.0.1:1/none";
  qkdb::CommandDatabase command;
  const std::string problem = command.Open(missing);
  EXPECT_NE(problem.find(OnSQLite() ? "no reference database at" : "cannot open"), std::string::npos) << problem;
  EXPECT_EQ(problem.find('\n'), std::string::npos) << problem;
  EXPECT_EQ(CQKCity::s_m_strTableName, L"");
}

QK_ON_BOTH_BACKENDS(CommandDatabaseTest);

}  // namespace
