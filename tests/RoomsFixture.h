#pragma once
// A reference database built from the schema with the room-type, room-use and load-parameter records
// pointed at its tables, a connection of the test's own on it, and the message boxes shown meanwhile.
// The records' class-wide connections are closed at the end.

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "GeographyFixture.h"
#include "TestDatabase.h"
#include "rooms/CQKRULoadParam.h"
#include "rooms/CQKRoomType.h"
#include "rooms/CQKRoomUse.h"
#include "tablekit/CADODatabase.h"
#include "tablekit/RvAfxMessageBox.h"

class RoomsFixture : public ::testing::Test {
 protected:
  void SetUp() override {
    path = CreateReferenceDatabase(dir);
    CQKRoomType::S_Init(path, L"RoomType");
    CQKRoomUse::S_Init(path, L"RoomUse");
    CQKRULoadParam::S_Init(path, L"RULoadParam");
    ASSERT_TRUE(db.OpenAccess(path, L"", L""));
    previousHandler = SetRvAfxMessageBoxHandler([this](const wchar_t* text, unsigned int style, HWND) {
      messages.emplace_back(CString(text), style);
      return IDOK;
    });
  }
  void TearDown() override {
    SetRvAfxMessageBoxHandler(previousHandler);
    ForgetClassTable<CQKRoomType>();
    ForgetClassTable<CQKRoomUse>();
    ForgetClassTable<CQKRULoadParam>();
  }

  void Seed(const std::string& sql) { CreateDatabase(path, sql); }
  std::string Query(const std::string& sql) const { return QueryOne(path, sql); }

  TempDir dir;
  CString path;
  CADODatabase db;
  RvMessageBoxHandler previousHandler;
  std::vector<std::pair<CString, unsigned int>> messages;
};
