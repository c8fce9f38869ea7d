// The Access dialect layer: first what the translation makes of a statement, then what a query in
// the library's own style does on a real SQLite file.

#include <gtest/gtest.h>

#include "TestDatabase.h"
#include "tablekit/AccessDialect.h"
#include "tablekit/CADODatabase.h"
#include "tablekit/CADORecordset.h"

namespace {

std::string Translate(const wchar_t* sql) {
  std::string out, error;
  EXPECT_TRUE(tablekit::TranslateAccessSql(sql, out, error)) << error;
  return out;
}

std::string Refusal(const wchar_t* sql) {
  std::string out, error;
  EXPECT_FALSE(tablekit::TranslateAccessSql(sql, out, error)) << "translated to: " << out;
  return error;
}

}  // namespace

TEST(AccessDialect, DoubleQuotedTextBecomesStringLiteral) {
  EXPECT_EQ(Translate(L"select * from City where Name=\"北京\""), "select * from City where Name='北京'");
}

TEST(AccessDialect, SingleQuoteInsideDoubleQuotedTextIsDoubled) {
  EXPECT_EQ(Translate(L"select * from T where Name=\"O'Brien\""), "select * from T where Name='O''Brien'");
}

TEST(AccessDialect, SingleQuotedTextIsKeptWithItsEscapes) {
  EXPECT_EQ(Translate(L"select * from T where Name='a''b'"), "select * from T where Name='a''b'");
}

TEST(AccessDialect, NameWithDoubleQuoteIsRefused) {
  EXPECT_FALSE(Refusal(L"select * from T where Name=\"引号\"名\"").empty());
}

TEST(AccessDialect, BracketedNameBecomesQuotedIdentifier) {
  EXPECT_EQ(Translate(L"select [My Col] from [Room Use]"), "select \"My Col\" from \"Room Use\"");
}

TEST(AccessDialect, TopBecomesLimitAtTheEnd) {
  EXPECT_EQ(Translate(L"select top 1 * from T where A=1 order by ID"),
            "select * from T where A=1 order by ID LIMIT 1");
}

TEST(AccessDialect, TopAfterDistinctIsTaken) {
  EXPECT_EQ(Translate(L"SELECT DISTINCT TOP 3 Name FROM T"), "SELECT DISTINCT Name FROM T LIMIT 3");
}

TEST(AccessDialect, TopPercentIsRefused) { Refusal(L"select top 10 percent * from T"); }

TEST(AccessDialect, TopWithoutWholeNumberIsRefused) { Refusal(L"select top x * from T"); }

TEST(AccessDialect, OrderByComparisonSortsTrueFirst) {
  EXPECT_EQ(Translate(L"select * from T order by Name='x'"),
            "select * from T order by CASE WHEN Name='x' THEN 0 ELSE 1 END");
}

TEST(AccessDialect, OrderByKeepsDirectionAndPlainTerms) {
  EXPECT_EQ(Translate(L"select * from T order by Name=\"x\" desc, ID"),
            "select * from T order by CASE WHEN Name='x' THEN 0 ELSE 1 END desc, ID");
}

TEST(AccessDialect, OrderByInsideParenthesesIsLeftAlone) {
  EXPECT_EQ(Translate(L"select * from (select * from T order by A=1) order by B"),
            "select * from (select * from T order by A=1) order by B");
}

TEST(AccessDialect, SecondStatementIsRefused) {
  EXPECT_EQ(Refusal(L"select * from T; drop table T"), "more than one statement");
}

TEST(AccessDialect, TrailingSemicolonIsAllowed) { EXPECT_EQ(Translate(L"delete from T where ID=1;  "), "delete from T where ID=1"); }

TEST(AccessDialect, SemicolonInsideTextIsText) {
  EXPECT_EQ(Translate(L"select * from T where Name=\"a;b\""), "select * from T where Name='a;b'");
}

// Found by the dialect fuzzer: SQLite reads `...` as a quoted name. Here the layer saw one bracketed
// name, [` from T; delete from T; `], and made it "...", but SQLite saw `"` as a name and the ";"
// after "from T" as the end of a statement.
TEST(AccessDialect, BackquoteIsRefused) {
  EXPECT_EQ(Refusal(L"select `[` from T; delete from T; `]`"), "a backquote, which Access SQL does not have");
}

// The same with comments: the backends skip them, this layer would read the quote inside as a text.
TEST(AccessDialect, LineCommentIsRefused) {
  EXPECT_EQ(Refusal(L"select 1 -- '\n; delete from T; '"), "a comment, which Access SQL does not have");
}

TEST(AccessDialect, BlockCommentIsRefused) {
  EXPECT_EQ(Refusal(L"/* ' */; delete from T; /* ' */"), "a comment, which Access SQL does not have");
}

TEST(AccessDialect, MinusMinusInsideTextIsText) {
  EXPECT_EQ(Translate(L"select * from T where Name=\"a--b/*c*/`d`\""), "select * from T where Name='a--b/*c*/`d`'");
}

TEST(AccessDialect, EmptyStatementIsRefused) {
  Refusal(L"   ");
  Refusal(nullptr);
}

TEST(AccessDialect, UnterminatedTextsAreRefused) {
  Refusal(L"select * from T where Name=\"abc");
  Refusal(L"select * from T where Name='abc");
  Refusal(L"select [abc from T");
}

// The same rules, seen through a query on a real database.
class AccessDialectOnDatabase : public ::testing::Test {
 protected:
  void SetUp() override {
    path = dir.File("dialect.db");
    CreateDatabase(path,
                   "CREATE TABLE City (ID INTEGER PRIMARY KEY AUTOINCREMENT, Name TEXT COLLATE NOCASE, PId INTEGER);"
                   "INSERT INTO City (Name, PId) VALUES ('上海', 1), ('北京', 1), ('Beijing', 2), ('Name', 3);");
    ASSERT_TRUE(db.OpenAccess(path, L"", L""));
  }
  // Names of the rows of a query, in order; "<failed>" when the query fails.
  std::vector<std::string> Names(const wchar_t* sql) {
    CADORecordset rs(&db);
    if (!rs.Open(sql)) return {"<failed>"};
    std::vector<std::string> names;
    for (; !rs.IsEOF(); rs.MoveNext()) {
      CString name;
      rs.GetFieldValue(L"Name", name);
      names.push_back(name.ToUtf8());
    }
    return names;
  }

  TempDir dir;
  CString path;
  CADODatabase db;
};

TEST_F(AccessDialectOnDatabase, DoubleQuotedChineseNameMatchesItsRow) {
  EXPECT_EQ(Names(L"select * from City where Name=\"北京\""), std::vector<std::string>{"北京"});
}

TEST_F(AccessDialectOnDatabase, DoubleQuotedTextEqualToAColumnNameIsStillText) {
  // In SQLite "Name" would be the column itself and match every row; as Access text it matches one.
  EXPECT_EQ(Names(L"select * from City where Name=\"Name\""), std::vector<std::string>{"Name"});
}

TEST_F(AccessDialectOnDatabase, NameWithDoubleQuoteFailsTheQuery) {
  CADORecordset rs(&db);
  EXPECT_FALSE(rs.Open(L"select * from City where Name=\"北\"京\""));
  EXPECT_FALSE(rs.IsOpen());
  EXPECT_EQ(rs.GetRecordCount(), 0u);
}

TEST_F(AccessDialectOnDatabase, SelectTopOneReturnsOneRow) {
  CADORecordset rs(&db);
  ASSERT_TRUE(rs.Open(L"select top 1 * from City where PId=1"));
  EXPECT_EQ(rs.GetRecordCount(), 1u);
}

TEST_F(AccessDialectOnDatabase, OrderByComparisonPutsTheMatchingRowFirst) {
  auto names = Names(L"select * from City order by Name='Beijing'");
  ASSERT_EQ(names.size(), 4u);
  EXPECT_EQ(names.front(), "Beijing");
}

TEST_F(AccessDialectOnDatabase, TextEqualityIgnoresCase) {
  EXPECT_EQ(Names(L"select * from City where Name=\"BEIJING\""), std::vector<std::string>{"Beijing"});
}

TEST_F(AccessDialectOnDatabase, SecondStatementIsRefusedAndNotRun) {
  EXPECT_FALSE(db.Execute(L"delete from City where ID=1; drop table City"));
  EXPECT_EQ(QueryOne(path, "SELECT count(*) FROM City"), "4");
  CADORecordset rs(&db);
  EXPECT_FALSE(rs.Open(L"select * from City; drop table City"));
  EXPECT_EQ(QueryOne(path, "SELECT count(*) FROM City"), "4");
}

TEST_F(AccessDialectOnDatabase, ColumnNamedIdReadsTheKey) {
  CADORecordset rs(&db);
  ASSERT_TRUE(rs.Open(L"select * from City where Name=\"北京\""));
  long id = 0;
  ASSERT_TRUE(rs.GetFieldValue(L"Id", id));
  EXPECT_EQ(std::to_string(id), QueryOne(path, "SELECT ID FROM City WHERE Name='北京'"));
}

TEST(AccessDialect, OrderByComparisonAfterCommaWithoutBlank) {
  EXPECT_EQ(Translate(L"select * from T order by ID,Name=\"x\""),
            "select * from T order by ID, CASE WHEN Name='x' THEN 0 ELSE 1 END");
}

TEST(AccessDialect, ForTheServerBracketedNamesFoldToLowerCase) {
  std::string out, error;
  ASSERT_TRUE(tablekit::TranslateAccessSql(L"select * from [City Names] where [PId]=1 and Name=\"Ab\"", out, error,
                                           tablekit::SqlDialect::PostgreSQL))
      << error;
  // Unquoted names fold on the server by themselves; texts keep their case.
  EXPECT_EQ(out, "select * from \"city names\" where \"pid\"=1 and Name='Ab'");
}

TEST(AccessDialect, ForSQLiteBracketedNamesKeepTheirCase) {
  EXPECT_EQ(Translate(L"select * from [City Names]"), "select * from \"City Names\"");
}
