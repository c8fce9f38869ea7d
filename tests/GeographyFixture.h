#pragma once
// A reference database built from the schema in a temporary folder, with the country, province and
// city records pointed at its tables (S_Init) and a connection of the test's own (db) on it. The
// records' class-wide connections are closed at the end, so the next test opens its own database.

#include <gtest/gtest.h>

#include <string>

#include "TestDatabase.h"
#include "geography/CQKCity.h"
#include "geography/CQKCountry.h"
#include "geography/CQKProvince.h"
#include "tablekit/CADODatabase.h"

// Closes Record's class-wide connection (the library never does) and forgets its table.
template <class Record>
void ForgetClassTable() {
  if (Record::m_pADODatabase) Record::m_pADODatabase->Close();
  Record::S_Init(L"", L"");
}

class GeographyFixture : public ::testing::Test {
 protected:
  void SetUp() override {
    path = CreateReferenceDatabase(dir);
    CQKCountry::S_Init(path, L"Country");
    CQKProvince::S_Init(path, L"Province");
    CQKCity::S_Init(path, L"City");
    ASSERT_TRUE(db.OpenAccess(path, L"", L""));
  }
  void TearDown() override {
    ForgetClassTable<CQKCountry>();
    ForgetClassTable<CQKProvince>();
    ForgetClassTable<CQKCity>();
  }

  // Runs sql on the test's database with SQLite directly.
  void Seed(const std::string& sql) { CreateDatabase(path, sql); }
  std::string Query(const std::string& sql) const { return QueryOne(path, sql); }

  TempDir dir;
  CString path;
  CADODatabase db;
};
