#pragma once
// A reference database on the test's backend (BackendDatabase.h) with the construction and envelope
// records pointed at its tables, a connection of the test's own on it, and the message boxes shown
// meanwhile. The records' class-wide connections are closed at the end.

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "GeographyFixture.h"
#include "MessageCapture.h"
#include "construction/CQKTimbering.h"
#include "construction/CQKTimberingType.h"
#include "envelope/CQKBSCategory.h"
#include "envelope/CQKBSCode.h"
#include "envelope/CQKBSType.h"
#include "envelope/CQKBoundingStructure.h"

class EnvelopeFixture : public BackendFixture {
 protected:
  void SetUp() override {
    BackendFixture::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    CQKTimberingType::S_Init(path, L"TimberingType");
    CQKTimbering::S_Init(path, L"Timbering");
    CQKBSCategory::S_Init(path, L"BSCategory");
    CQKBSType::S_Init(path, L"BSType");
    CQKBSCode::S_Init(path, L"BSCode");
    CQKBoundingStructure::S_Init(path, L"BoundingStructure");
  }
  void TearDown() override {
    ForgetClassTable<CQKTimberingType>();
    ForgetClassTable<CQKTimbering>();
    ForgetClassTable<CQKBSCategory>();
    ForgetClassTable<CQKBSType>();
    ForgetClassTable<CQKBSCode>();
    ForgetClassTable<CQKBoundingStructure>();
  }

  MessageCapture capture;
  const std::vector<std::pair<CString, unsigned int>>& messages = capture.shown;
};
