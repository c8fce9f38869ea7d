#pragma once
// A reference database on the test's backend (BackendDatabase.h) with the country, province and city
// records pointed at its tables (S_Init) and a connection of the test's own (db) on it. The records'
// class-wide connections are closed at the end, so the next test opens its own database.

#include <gtest/gtest.h>

#include <string>

#include "BackendDatabase.h"
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

class GeographyFixture : public BackendFixture {
 protected:
  void SetUp() override {
    BackendFixture::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    CQKCountry::S_Init(path, L"Country");
    CQKProvince::S_Init(path, L"Province");
    CQKCity::S_Init(path, L"City");
  }
  void TearDown() override {
    ForgetClassTable<CQKCountry>();
    ForgetClassTable<CQKProvince>();
    ForgetClassTable<CQKCity>();
  }
};
