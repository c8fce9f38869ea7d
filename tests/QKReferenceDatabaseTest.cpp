// QKReferenceDatabase::Bind: the reference database bound to every record class in one call, on each
// backend; a database it cannot use binds nothing and says why.

#include <gtest/gtest.h>

#include "BackendDatabase.h"
#include "GeographyFixture.h"
#include "binding/QKReferenceDatabase.h"
#include "binding/ReferenceTables.h"

namespace {

class QKReferenceDatabaseTest : public BackendFixture {
 protected:
  void TearDown() override { Forget(); }
  // Each class unbound, as a process starts.
  static void Forget() {
    ForEachRecordClass([]<typename Record>(const wchar_t*) { ForgetClassTable<Record>(); });
  }
};

TEST_P(QKReferenceDatabaseTest, BindGivesEveryRecordClassItsTableOfTheSchema) {
  CString error = L"untouched";
  ASSERT_EQ(QKReferenceDatabase::Bind(path, &error), 1) << error.ToUtf8();
  EXPECT_EQ(error, L"untouched");
  EXPECT_EQ(CQKCountry::s_m_strTableName, L"Country");
  EXPECT_EQ(CQKProvince::s_m_strTableName, L"Province");
  EXPECT_EQ(CQKCity::s_m_strTableName, L"City");
  EXPECT_EQ(CQKWeather::s_m_strTableName, L"Weather");
  EXPECT_EQ(CQKTimberingType::s_m_strTableName, L"TimberingType");
  EXPECT_EQ(CQKTimbering::s_m_strTableName, L"Timbering");
  EXPECT_EQ(CQKBSCategory::s_m_strTableName, L"BSCategory");
  EXPECT_EQ(CQKBSType::s_m_strTableName, L"BSType");
  EXPECT_EQ(CQKBSCode::s_m_strTableName, L"BSCode");
  EXPECT_EQ(CQKBoundingStructure::s_m_strTableName, L"BoundingStructure");
  EXPECT_EQ(CQKRoomType::s_m_strTableName, L"RoomType");
  EXPECT_EQ(CQKRoomUse::s_m_strTableName, L"RoomUse");
  EXPECT_EQ(CQKRULoadParam::s_m_strTableName, L"RULoadParam");
  EXPECT_EQ(CQKRULoadParam::s_m_strDataBasePath, path);
}

TEST_P(QKReferenceDatabaseTest, BoundRecordsReadAndWriteTheDatabase) {
  ASSERT_EQ(QKReferenceDatabase::Bind(path), 1);
  CQKCountry country;
  country.Name = L"中国";
  EXPECT_EQ(country.AddIfNotExist(nullptr, 0), QKLoad::DBS_ADDED);
  EXPECT_EQ(Query("SELECT Name FROM Country"), "中国");
}

TEST_P(QKReferenceDatabaseTest, ADatabaseWithoutATableBindsNothingAndNamesTheTable) {
  Seed("DROP TABLE RoomUse");
  CString error;
  EXPECT_EQ(QKReferenceDatabase::Bind(path, &error), 0);
  EXPECT_NE(error.ToUtf8().find("has no table RoomUse"), std::string::npos) << error.ToUtf8();
  EXPECT_EQ(CQKCountry::s_m_strTableName, L"");  // not even the tables before it
  EXPECT_EQ(CQKRULoadParam::s_m_strTableName, L"");
}

TEST_P(QKReferenceDatabaseTest, ADatabaseThatCannotBeOpenedBindsNothing) {
  const CString missing = OnSQLite() ? dir.File("none.db") : CString(L"postgresql://qk@127.0.0.1:1/none");
  CString error;
  EXPECT_EQ(QKReferenceDatabase::Bind(missing, &error), 0);
  EXPECT_NE(error.ToUtf8().find("cannot open"), std::string::npos) << error.ToUtf8();
  EXPECT_EQ(CQKCity::s_m_strTableName, L"");
}

TEST_P(QKReferenceDatabaseTest, NoPathBindsNothing) {
  CString error;
  EXPECT_EQ(QKReferenceDatabase::Bind(L"", &error), 0);
  EXPECT_EQ(error, L"no database named");
  EXPECT_EQ(QKReferenceDatabase::Bind(nullptr), 0);  // without a place for the reason
  EXPECT_EQ(CQKCity::s_m_strTableName, L"");
}

QK_ON_BOTH_BACKENDS(QKReferenceDatabaseTest);

}  // namespace
