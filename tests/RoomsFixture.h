#pragma once
// A reference database on the test's backend (BackendDatabase.h) with the room-type, room-use and load-parameter records
// pointed at its tables, a connection of the test's own on it, and the message boxes shown meanwhile.
// The records' class-wide connections are closed at the end.

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "GeographyFixture.h"
#include "rooms/CQKRULoadParam.h"
#include "rooms/CQKRoomType.h"
#include "rooms/CQKRoomUse.h"
#include "tablekit/CADODatabase.h"
#include "MessageCapture.h"

class RoomsFixture : public BackendFixture {
 protected:
  void SetUp() override {
    BackendFixture::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    CQKRoomType::S_Init(path, L"RoomType");
    CQKRoomUse::S_Init(path, L"RoomUse");
    CQKRULoadParam::S_Init(path, L"RULoadParam");
  }
  void TearDown() override {
    ForgetClassTable<CQKRoomType>();
    ForgetClassTable<CQKRoomUse>();
    ForgetClassTable<CQKRULoadParam>();
  }

  MessageCapture capture;
  const std::vector<std::pair<CString, unsigned int>>& messages = capture.shown;
};
