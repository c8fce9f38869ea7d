// The dialect layer's bound form: which literals leave the text as values, and which stay because
// binding them would change the statement.

#include <gtest/gtest.h>

#include "tablekit/AccessDialect.h"
#include "tablekit/reads/BoundSql.h"

namespace {

tablekit::BoundSql Bound(const wchar_t* sql) {
  tablekit::BoundSql out;
  std::string error;
  EXPECT_TRUE(tablekit::TranslateAccessSqlBound(sql, out, error)) << error;
  return out;
}

// The statement as the plain translation gives it: what the bound form must equal where it binds nothing.
std::string Plain(const wchar_t* sql) {
  std::string out, error;
  EXPECT_TRUE(tablekit::TranslateAccessSql(sql, out, error)) << error;
  return out;
}

}  // namespace

TEST(BoundSql, IdAndNameOfAConditionBecomeValues) {
  const tablekit::BoundSql b = Bound(L"select * from City where PId=3 and Name=\"郑州\"");
  EXPECT_EQ(b.text, "select * from City where PId=? and Name=?");
  ASSERT_EQ(b.values.size(), 2u);
  EXPECT_EQ(b.values[0].kind, tablekit::FieldValue::Kind::Integer);
  EXPECT_EQ(b.values[0].integer, 3);
  EXPECT_EQ(b.values[1].kind, tablekit::FieldValue::Kind::Text);
  EXPECT_EQ(b.values[1].text, CString(L"郑州"));
}

TEST(BoundSql, OneTextServesEveryId) {
  EXPECT_EQ(Bound(L"select * from [City] where ID=1").text, Bound(L"select * from [City] where ID=77").text);
}

TEST(BoundSql, DoubledQuoteOfASingleQuotedTextIsOneQuoteInTheValue) {
  const tablekit::BoundSql b = Bound(L"select ID from T where Name = 'O''Brien'");
  EXPECT_EQ(b.text, "select ID from T where Name = ?");
  ASSERT_EQ(b.values.size(), 1u);
  EXPECT_EQ(b.values[0].text, CString(L"O'Brien"));
}

TEST(BoundSql, ValueMayStandBeforeTheComparison) {
  const tablekit::BoundSql b = Bound(L"select * from [T] where 1=0");
  EXPECT_EQ(b.text, "select * from \"T\" where ?=?");
  ASSERT_EQ(b.values.size(), 2u);
  EXPECT_EQ(b.values[0].integer, 1);
  EXPECT_EQ(b.values[1].integer, 0);
}

// A column is named after its expression, so a literal in the select list stays.
TEST(BoundSql, SelectListKeepsItsLiterals) {
  const tablekit::BoundSql b = Bound(L"select Name=\"x\", 1 from T where ID=2");
  EXPECT_EQ(b.text, "select Name='x', 1 from T where ID=?");
  EXPECT_EQ(b.values.size(), 1u);
}

// A number in order by is a column position; the rewritten comparison keeps its text as well.
TEST(BoundSql, OrderByKeepsItsLiterals) {
  const wchar_t* sql = L"select Id from City where PId=1 order by Name='郑州', 2";
  const tablekit::BoundSql b = Bound(sql);
  std::string plain = Plain(sql);
  plain.replace(plain.find("PId=1"), 5, "PId=?");
  EXPECT_EQ(b.text, plain);
  EXPECT_EQ(b.values.size(), 1u);
}

// SQLite reads a decimal with a conversion of its own; the value stays in the text it reads.
TEST(BoundSql, DecimalsStayInTheText) {
  const wchar_t* sql = L"select * from Weather where JD between 1.994000 and 2.028906 and WD between 0.5 and 0.6";
  const tablekit::BoundSql b = Bound(sql);
  EXPECT_EQ(b.text, Plain(sql));
  EXPECT_TRUE(b.values.empty());
}

TEST(BoundSql, NumberBeyondSixtyFourBitsStaysInTheText) {
  const wchar_t* sql = L"select * from T where ID=12345678901234567890";
  EXPECT_EQ(Bound(sql).text, Plain(sql));
  EXPECT_TRUE(Bound(sql).values.empty());
}

TEST(BoundSql, SubSelectOfAConditionBindsItsOwnCondition) {
  const tablekit::BoundSql b = Bound(L"select Id from P where id in (select pid from C where cid=5) and Name=\"x\"");
  EXPECT_EQ(b.text, "select Id from P where id in (select pid from C where cid=?) and Name=?");
  EXPECT_EQ(b.values.size(), 2u);
}

TEST(BoundSql, TopStaysALimit) {
  const tablekit::BoundSql b = Bound(L"select top 5 * from T where ID=1");
  EXPECT_EQ(b.text, "select * from T where ID=? LIMIT 5");
  EXPECT_EQ(b.values.size(), 1u);
}

TEST(BoundSql, UpdateKeepsTheValuesItSets) {
  const tablekit::BoundSql b = Bound(L"update [T] set ID=7 where ID=3");
  EXPECT_EQ(b.text, "update \"T\" set ID=7 where ID=?");
  ASSERT_EQ(b.values.size(), 1u);
  EXPECT_EQ(b.values[0].integer, 3);
}

// Values of ours would take the places of the statement's own marks.
TEST(BoundSql, StatementWithMarksOfItsOwnKeepsItsLiterals) {
  for (const wchar_t* sql : {L"select * from T where A=? and ID=3", L"select * from T where A=:a and ID=3"}) {
    EXPECT_EQ(Bound(sql).text, Plain(sql));
    EXPECT_TRUE(Bound(sql).values.empty());
  }
}

TEST(BoundSql, NameWithDoubleQuoteIsRefusedAsByThePlainForm) {
  const wchar_t* sql = L"select * from City where Name=\"a\"b\"";
  tablekit::BoundSql b;
  std::string boundError, plain, plainError;
  EXPECT_FALSE(tablekit::TranslateAccessSqlBound(sql, b, boundError));
  EXPECT_FALSE(tablekit::TranslateAccessSql(sql, plain, plainError));
  EXPECT_EQ(boundError, plainError);
}

TEST(BoundSql, SecondStatementIsRefused) {
  tablekit::BoundSql b;
  std::string error;
  EXPECT_FALSE(tablekit::TranslateAccessSqlBound(L"select * from T where ID=1; delete from T", b, error));
  EXPECT_EQ(error, "more than one statement");
  EXPECT_FALSE(tablekit::TranslateAccessSqlBound(nullptr, b, error));
  EXPECT_EQ(error, "no statement");
}
