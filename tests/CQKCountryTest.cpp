// The country: the value class and the record pattern that every stored entity follows, on a real
// reference database built from the schema.

#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>

#include "GeographyFixture.h"
#include "datakit/CAMemoryDataProp.h"
#include "geography/CQKCountry.h"
#include "tablekit/CADORecordset.h"

using namespace QKLoad;

namespace {

class CQKCountryTest : public GeographyFixture {
 protected:
  std::string RowCount() const { return Query("select count(*) from Country"); }
};

// A country record that reads and writes through another table than the class's own.
struct RedirectedCountry : CQKCountry {
  CString GetTableName() override { return L"OtherCountry"; }
};

CQKCountry Country(const wchar_t* name) {
  CQKCountry c;
  c.Name = name;
  return c;
}

}  // namespace

TEST(CQKCountryData, DefaultsAreAnEmptyNameAndTagZero) {
  CQKCountryData c;
  EXPECT_EQ(c.Name, L"");
  EXPECT_EQ(c.m_lTag, 0);
}

TEST(CQKCountryData, InitRestoresTheDefaults) {
  CQKCountryData c;
  c.Name = L"中国";
  c.m_lTag = 9;
  c.Init();
  EXPECT_EQ(c.Name, L"");
  EXPECT_EQ(c.m_lTag, 0);
}

TEST(CQKCountryData, StreamRoundTripCarriesNameAndTag) {
  CQKCountryData out;
  out.Name = L"中国";
  out.m_lTag = -17;
  CADataStream stream;
  ASSERT_EQ(out.DataOutPut(stream), ADataDef::AD_OK);
  CQKCountryData in;
  ASSERT_EQ(in.DataInPut(stream), ADataDef::AD_OK);
  EXPECT_EQ(in.Name, L"中国");
  EXPECT_EQ(in.m_lTag, -17);
  EXPECT_EQ(stream.GetRemaining(), 0u);
}

TEST(CQKCountryData, StreamHoldsTheNameThenTheTag) {
  CQKCountryData out;
  out.Name = L"中国";
  out.m_lTag = 5;
  CADataStream stream;
  out.DataOutPut(stream);
  CString name;
  long tag = 0;
  ASSERT_EQ(stream.ReadItem(&name), 0);
  ASSERT_EQ(stream.ReadItem(&tag), 0);
  EXPECT_EQ(name, L"中国");
  EXPECT_EQ(tag, 5);
  EXPECT_EQ(stream.GetSize(), 4u + 2 * 2 + 4);  // count, two UTF-16 units, 32-bit tag
}

TEST(CQKCountryData, TruncatedStreamKeepsTheFieldsItCouldNotRead) {
  CADataStream stream;
  stream.WriteItem(CString(L"法国"));  // the tag is missing
  CQKCountryData in;
  in.m_lTag = 3;
  EXPECT_EQ(in.DataInPut(stream), ADataDef::AD_OK);
  EXPECT_EQ(in.Name, L"法国");
  EXPECT_EQ(in.m_lTag, 3);
}

TEST(CQKCountryData, ExchangeCarriesOnlyTheName) {
  CQKCountryData out;
  out.Name = L"中国";
  out.m_lTag = 8;
  CAMemoryDataProp store;
  ASSERT_EQ(out.DataOutPro(CADataExchange(store)), ADataDef::AD_OK);
  ASSERT_EQ(store.GetCount(), 1);
  EXPECT_EQ(store.GetName(0), L"Name");
  CQKCountryData in;
  ASSERT_EQ(in.DataInPro(CADataExchange(store)), ADataDef::AD_OK);
  EXPECT_EQ(in.Name, L"中国");
  EXPECT_EQ(in.m_lTag, 0);
}

TEST(CQKCountryData, CopyTakesEveryField) {
  CQKCountryData a;
  a.Name = L"日本";
  a.m_lTag = 4;
  CQKCountryData b;
  ASSERT_EQ(b.Copy(&a), ADataDef::AD_OK);
  EXPECT_EQ(b.Name, L"日本");
  EXPECT_EQ(b.m_lTag, 4);
}

TEST(CQKCountry, CopyAndAssignmentCarryTheKeyAndTheFields) {
  CQKCountry a = Country(L"中国");
  a.SetID(12);
  a.m_lTag = 3;
  CQKCountry copy(a);
  CQKCountry assigned;
  assigned = a;
  for (const CQKCountry* c : {&copy, &assigned}) {
    EXPECT_EQ(c->GetID(), 12);
    EXPECT_EQ(c->Name, L"中国");
    EXPECT_EQ(c->m_lTag, 3);
  }
}

TEST(CQKCountry, StreamOfARecordIsItsValueStreamWithoutTheKey) {
  CQKCountry out = Country(L"中国");
  out.SetID(12);
  out.m_lTag = 2;
  CADataStream stream;
  ASSERT_EQ(out.DataOutPut(stream), ADataDef::AD_OK);
  CQKCountryData value;
  value.Name = L"中国";
  value.m_lTag = 2;
  CADataStream expected;
  value.DataOutPut(expected);
  EXPECT_EQ(stream.GetBytes(), expected.GetBytes());
  CQKCountry in;
  ASSERT_EQ(in.DataInPut(stream), ADataDef::AD_OK);
  EXPECT_EQ(in.GetID(), 0);
  EXPECT_EQ(in.Name, L"中国");
}

TEST_P(CQKCountryTest, IsExistLoadsTheStoredRowWithItsKey) {
  Seed("INSERT INTO Country (Name) VALUES ('日本'), ('中国');");
  CQKCountry c = Country(L"中国");
  EXPECT_EQ(c.IsExist(&db), DBS_EXIST);
  EXPECT_EQ(c.GetID(), 2);
  EXPECT_EQ(c.Name, L"中国");
}

TEST_P(CQKCountryTest, IsExistOfAnUnstoredNameLeavesTheRecordAlone) {
  Seed("INSERT INTO Country (Name) VALUES ('日本');");
  CQKCountry c = Country(L"中国");
  c.SetID(40);
  EXPECT_EQ(c.IsExist(&db), DBS_NOTEXIST);
  EXPECT_EQ(c.GetID(), 40);
}

TEST_P(CQKCountryTest, IsExistOfANameStoredTwiceTakesTheFirstRow) {
  Seed("INSERT INTO Country (Name) VALUES ('日本'), ('中国'), ('中国');");
  CQKCountry c = Country(L"中国");
  EXPECT_EQ(c.IsExist(&db), DBS_EXIST);
  EXPECT_EQ(c.GetID(), 2);
}

TEST_P(CQKCountryTest, IsExistComparesNamesIgnoringCaseAsAccessDoes) {
  Seed("INSERT INTO Country (Name) VALUES ('China');");
  CQKCountry c = Country(L"CHINA");
  EXPECT_EQ(c.IsExist(&db), DBS_EXIST);
  EXPECT_EQ(c.Name, L"China");
}

TEST_P(CQKCountryTest, IsExistWithoutAConnectionUsesTheClassConnection) {
  Seed("INSERT INTO Country (Name) VALUES ('中国');");
  CQKCountry c = Country(L"中国");
  EXPECT_EQ(c.IsExist(nullptr), DBS_EXIST);
  EXPECT_EQ(c.GetID(), 1);
  ASSERT_NE(CQKCountry::m_pADODatabase, nullptr);
  EXPECT_TRUE(CQKCountry::m_pADODatabase->IsOpen());
}

TEST_P(CQKCountryTest, IsExistLooksInTheClassTableNotTheVirtualOne) {
  Seed("CREATE TABLE OtherCountry (ID INTEGER PRIMARY KEY, Name TEXT);"
       "INSERT INTO Country (Name) VALUES ('中国');");
  RedirectedCountry c;
  c.Name = L"中国";
  EXPECT_EQ(c.IsExist(&db), DBS_EXIST);
}

TEST_P(CQKCountryTest, IsExistOfAMissingTableIsAnError) {
  CQKCountry::S_Init(path, L"NoSuchTable");
  CQKCountry c = Country(L"中国");
  EXPECT_EQ(c.IsExist(&db), DBS_ERROR);
}

TEST_P(CQKCountryTest, AddIfNotExistInsertsAndTakesTheNewKey) {
  Seed("INSERT INTO Country (Name) VALUES ('日本');");
  CQKCountry c = Country(L"中国");
  EXPECT_EQ(c.AddIfNotExist(&db, 0), DBS_ADDED);
  EXPECT_EQ(c.GetID(), 2);
  EXPECT_EQ(Query("select Name from Country where ID=2"), "中国");
}

TEST_P(CQKCountryTest, AddIfNotExistOfAStoredNameWithoutTakingLeavesTheRecordAsItWas) {
  Seed("INSERT INTO Country (Name) VALUES ('中国');");
  CQKCountry c = Country(L"中国");
  c.SetID(77);
  c.m_lTag = 5;
  EXPECT_EQ(c.AddIfNotExist(&db, 0), DBS_EXIST);
  EXPECT_EQ(c.GetID(), 77);
  EXPECT_EQ(c.m_lTag, 5);
  EXPECT_EQ(RowCount(), "1");
}

TEST_P(CQKCountryTest, AddIfNotExistOfAStoredNameWithTakingBecomesTheStoredRecord) {
  Seed("INSERT INTO Country (Name) VALUES ('日本'), ('China');");
  CQKCountry c = Country(L"china");
  c.SetID(77);
  c.m_lTag = 5;
  EXPECT_EQ(c.AddIfNotExist(&db, 1), DBS_EXIST);
  EXPECT_EQ(c.GetID(), 2);
  EXPECT_EQ(c.Name, L"China");
  EXPECT_EQ(c.m_lTag, 0);  // the stored record has no tag: it is not a column
  EXPECT_EQ(RowCount(), "2");
}

TEST_P(CQKCountryTest, AddIfNotExistWithoutAConnectionUsesTheClassConnection) {
  CQKCountry c = Country(L"中国");
  EXPECT_EQ(c.AddIfNotExist(nullptr, 0), DBS_ADDED);
  EXPECT_EQ(Query("select Name from Country where ID=1"), "中国");
}

TEST_P(CQKCountryTest, UpdateIfNoOtherOnTheRowThatHoldsTheNameUpdatesIt) {
  Seed("INSERT INTO Country (Name) VALUES ('中国');");
  CQKCountry c = Country(L"中国");
  c.SetID(1);
  EXPECT_EQ(c.UpdateIfNoOther(&db, 0), DBS_UPDATED);
  EXPECT_EQ(Query("select Name from Country where ID=1"), "中国");
  EXPECT_EQ(RowCount(), "1");
}

TEST_P(CQKCountryTest, UpdateIfNoOtherOnANameHeldByAnotherRowWritesNothing) {
  Seed("INSERT INTO Country (Name) VALUES ('中国'), ('日本');");
  CQKCountry c = Country(L"中国");
  c.SetID(2);
  EXPECT_EQ(c.UpdateIfNoOther(&db, 0), DBS_EXIST);
  EXPECT_EQ(Query("select Name from Country where ID=2"), "日本");
  EXPECT_EQ(c.GetID(), 2);
  EXPECT_EQ(c.Name, L"中国");
}

TEST_P(CQKCountryTest, UpdateIfNoOtherWithTakingBecomesTheRowThatHoldsTheName) {
  Seed("INSERT INTO Country (Name) VALUES ('中国'), ('日本');");
  CQKCountry c = Country(L"中国");
  c.SetID(2);
  EXPECT_EQ(c.UpdateIfNoOther(&db, 1), DBS_EXIST);
  EXPECT_EQ(c.GetID(), 1);
  EXPECT_EQ(Query("select Name from Country where ID=2"), "日本");
}

TEST_P(CQKCountryTest, UpdateIfNoOtherWithAFreeNameRenamesTheRowInPlace) {
  Seed("INSERT INTO Country (Name) VALUES ('中国'), ('日本');");
  CQKCountry c = Country(L"韩国");
  c.SetID(2);
  EXPECT_EQ(c.UpdateIfNoOther(&db, 0), DBS_UPDATED);
  EXPECT_EQ(Query("select Name from Country where ID=2"), "韩国");
  EXPECT_EQ(RowCount(), "2");
}

TEST_P(CQKCountryTest, UpdateIfNoOtherOfAnUnstoredKeyIsAnError) {
  CQKCountry c = Country(L"中国");
  c.SetID(9);
  EXPECT_EQ(c.UpdateIfNoOther(&db, 0), DBS_ERROR);
  EXPECT_EQ(RowCount(), "0");
}

TEST_P(CQKCountryTest, UpdateTableDataReadsTheKeyOfTheRowWithTheName) {
  Seed("INSERT INTO Country (Name) VALUES ('日本'), ('中国');");
  CQKCountry c = Country(L"中国");
  c.m_lTag = 6;
  c.UpdateTableData(&db);
  EXPECT_EQ(c.GetID(), 2);
  EXPECT_EQ(c.m_lTag, 6);
}

TEST_P(CQKCountryTest, UpdateTableDataOfAnUnstoredNameKeepsTheKey) {
  Seed("INSERT INTO Country (Name) VALUES ('日本');");
  CQKCountry c = Country(L"中国");
  c.SetID(31);
  c.UpdateTableData(&db);
  EXPECT_EQ(c.GetID(), 31);
}

TEST_P(CQKCountryTest, UpdateTableDataLooksInTheVirtualTable) {
  Seed("CREATE TABLE OtherCountry (ID INTEGER PRIMARY KEY, Name TEXT);"
       "INSERT INTO OtherCountry (ID, Name) VALUES (55, '中国');"
       "INSERT INTO Country (Name) VALUES ('中国');");
  RedirectedCountry c;
  c.Name = L"中国";
  c.UpdateTableData(&db);
  EXPECT_EQ(c.GetID(), 55);
}

TEST_P(CQKCountryTest, UpdateTableDataWithoutAConnectionUsesTheClassConnection) {
  Seed("INSERT INTO Country (Name) VALUES ('中国');");
  CQKCountry c = Country(L"中国");
  c.UpdateTableData(nullptr);
  EXPECT_EQ(c.GetID(), 1);
}

TEST_P(CQKCountryTest, AnEmptyNameIsAKeyLikeAnyOther) {
  CQKCountry c;
  EXPECT_EQ(c.IsExist(&db), DBS_NOTEXIST);
  EXPECT_EQ(c.AddIfNotExist(&db, 0), DBS_ADDED);
  CQKCountry again;
  EXPECT_EQ(again.IsExist(&db), DBS_EXIST);
  EXPECT_EQ(again.GetID(), c.GetID());
  EXPECT_EQ(Query("select Name from Country where ID=1"), "");
}

TEST_P(CQKCountryTest, ANameWithADoubleQuoteFailsEveryVerbAndWritesNothing) {
  Seed("INSERT INTO Country (Name) VALUES ('中国');");
  CQKCountry c = Country(L"Côte \"d'Ivoire\"");
  c.SetID(1);
  EXPECT_EQ(c.IsExist(&db), DBS_ERROR);
  EXPECT_EQ(c.AddIfNotExist(&db, 1), DBS_ERROR);
  EXPECT_EQ(c.UpdateIfNoOther(&db, 1), DBS_ERROR);
  c.UpdateTableData(&db);
  EXPECT_EQ(c.GetID(), 1);
  EXPECT_EQ(RowCount(), "1");
  EXPECT_EQ(Query("select Name from Country where ID=1"), "中国");
}

TEST_P(CQKCountryTest, ANameThatLooksLikeSqlIsOnlyAName) {
  CQKCountry c = Country(L"x' or 1=1; delete from Country; --");
  EXPECT_EQ(c.AddIfNotExist(&db, 0), DBS_ADDED);
  EXPECT_EQ(RowCount(), "1");
  CQKCountry probe = Country(L"x' or 1=1; delete from Country; --");
  EXPECT_EQ(probe.IsExist(&db), DBS_EXIST);
}

TEST_P(CQKCountryTest, ChineseNamesRoundTripThroughTheDatabase) {
  CQKCountry c = Country(L"中华人民共和国·𠀀");  // a character beyond the 16-bit plane too
  ASSERT_EQ(c.AddIfNotExist(&db, 0), DBS_ADDED);
  CQKCountry read;
  ASSERT_TRUE(read.ReadData(c.GetID(), &db));
  EXPECT_EQ(read.Name, L"中华人民共和国·𠀀");
  EXPECT_EQ(Query("select Name from Country"), "中华人民共和国·𠀀");
}

TEST_P(CQKCountryTest, MakeObjectFromRSLoadsTheCurrentRow) {
  Seed("INSERT INTO Country (Name) VALUES ('日本'), ('中国');");
  CADORecordset rs(&db);
  ASSERT_TRUE(rs.Open(L"select * from Country order by ID"));
  rs.MoveNext();
  CQKCountry c;
  EXPECT_TRUE(c.MakeObjectFromRS(rs));
  EXPECT_EQ(c.GetID(), 2);
  EXPECT_EQ(c.Name, L"中国");
}

TEST_P(CQKCountryTest, MakeObjectFromRSWithoutARowFails) {
  CADORecordset rs(&db);
  ASSERT_TRUE(rs.Open(L"select * from Country"));
  CQKCountry c = Country(L"中国");
  EXPECT_FALSE(c.MakeObjectFromRS(rs));
  EXPECT_EQ(c.Name, L"中国");
}

TEST_P(CQKCountryTest, UpdateCountryTableDataDoesNothing) {
  Seed("INSERT INTO Country (Name) VALUES ('中国');");
  TempDir other;
  CString otherPath = CreateReferenceDatabase(other);
  CADODatabase to;
  ASSERT_TRUE(to.OpenAccess(otherPath, L"", L""));
  CQKCountry::UpdateCountryTableData(&db, &to);
  CQKCountry::UpdateCountryTableData(nullptr, nullptr);
  EXPECT_EQ(QueryOne(otherPath, "select count(*) from Country"), "0");
  EXPECT_EQ(RowCount(), "1");
}

TEST_P(CQKCountryTest, TableAndPathComeFromSInit) {
  CQKCountry c;
  EXPECT_EQ(c.GetTableName(), L"Country");
  EXPECT_EQ(c.GetDataBasePath(), path);
  CQKCountry::S_Init(L"/elsewhere.db", L"国家");
  EXPECT_EQ(c.GetTableName(), L"国家");
  EXPECT_EQ(c.GetDataBasePath(), L"/elsewhere.db");
}

TEST_P(CQKCountryTest, TheClassConnectionIsSharedAndKeptOnItsFirstPath) {
  CQKCountry a;
  CADODatabase* first = a.GetUserDatabase();
  ASSERT_NE(first, nullptr);
  ASSERT_TRUE(first->IsOpen());
  TempDir other;
  CQKCountry::S_Init(CreateReferenceDatabase(other), L"Country");
  CQKCountry b;
  EXPECT_EQ(b.GetUserDatabase(), first);
  EXPECT_EQ(first->GetPath(), path);
}

TEST_P(CQKCountryTest, AClosedClassConnectionReopensOnTheCurrentPath) {
  CQKCountry c;
  CADODatabase* connection = c.GetUserDatabase();
  connection->Close();
  TempDir other;
  CString otherPath = CreateReferenceDatabase(other);
  CQKCountry::S_Init(otherPath, L"Country");
  EXPECT_EQ(c.GetUserDatabase(), connection);
  EXPECT_TRUE(connection->IsOpen());
  EXPECT_EQ(connection->GetPath(), otherPath);
}

TEST_P(CQKCountryTest, AMissingFileGivesAnUnopenedConnectionAndErrors) {
  CString missing = dir.File("missing.db");
  CQKCountry::S_Init(missing, L"Country");
  CQKCountry c = Country(L"中国");
  CADODatabase* connection = c.GetUserDatabase();
  ASSERT_NE(connection, nullptr);
  EXPECT_FALSE(connection->IsOpen());
  EXPECT_EQ(c.IsExist(nullptr), DBS_ERROR);
  EXPECT_EQ(c.AddIfNotExist(nullptr, 1), DBS_ERROR);
  EXPECT_EQ(c.UpdateIfNoOther(nullptr, 1), DBS_ERROR);
  c.SetID(4);
  c.UpdateTableData(nullptr);
  EXPECT_EQ(c.GetID(), 4);
  EXPECT_FALSE(std::filesystem::exists(missing.ToUtf8()));
}

TEST_P(CQKCountryTest, AReadOnlyDatabaseRefusesWritesAndKeepsItsRows) {
  CString readOnly = CreateReadOnlyDatabase(dir, "readonly.db",
                                            "CREATE TABLE Country (ID INTEGER PRIMARY KEY AUTOINCREMENT, Name TEXT);"
                                            "INSERT INTO Country (Name) VALUES ('中国');");
  int result = RunUnprivileged([&] {
    CADODatabase ro;
    if (!ro.OpenAccess(readOnly, L"", L"")) return 10;
    CQKCountry found = Country(L"中国");
    if (found.IsExist(&ro) != DBS_EXIST) return 11;
    CQKCountry added = Country(L"日本");
    if (added.AddIfNotExist(&ro, 0) != DBS_ERROR) return 12;
    found.Name = L"韩国";
    if (found.UpdateIfNoOther(&ro, 0) != DBS_ERROR) return 13;
    return 0;
  });
  EXPECT_EQ(result, 0);
  EXPECT_EQ(QueryOne(readOnly, "select group_concat(Name) from Country"), "中国");
}

QK_ON_BOTH_BACKENDS(CQKCountryTest);
