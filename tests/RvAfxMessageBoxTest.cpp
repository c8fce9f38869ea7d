// The message box stands behind a replaceable handler.

#include <gtest/gtest.h>

#include "mfc/CString.h"
#include "tablekit/RvAfxMessageBox.h"

TEST(RvAfxMessageBox, InstalledHandlerReceivesTextStyleAndOwner) {
  CString text;
  unsigned int style = 0;
  HWND owner = nullptr;
  int marker = 0;
  auto previous = SetRvAfxMessageBoxHandler([&](const wchar_t* t, unsigned int s, HWND o) {
    text = t;
    style = s;
    owner = o;
    return 6;
  });
  int result = RvAfxMessageBox(L"删除表 \"城市\" 时出错!", 16, &marker);
  SetRvAfxMessageBoxHandler(previous);
  EXPECT_EQ(result, 6);
  EXPECT_EQ(text, L"删除表 \"城市\" 时出错!");
  EXPECT_EQ(style, 16u);
  EXPECT_EQ(owner, &marker);
}

TEST(RvAfxMessageBox, SettingAHandlerReturnsTheOneItReplaces) {
  int calls = 0;
  auto first = SetRvAfxMessageBoxHandler([&](const wchar_t*, unsigned int, HWND) { return ++calls, 1; });
  auto mine = SetRvAfxMessageBoxHandler(first);
  ASSERT_TRUE(mine);
  mine(L"x", 0, nullptr);
  EXPECT_EQ(calls, 1);
}

TEST(RvAfxMessageBox, DefaultHandlerWritesOneLineToStderrAndReturnsOk) {
  auto previous = SetRvAfxMessageBoxHandler(nullptr);  // back to the default
  testing::internal::CaptureStderr();
  int result = RvAfxMessageBox(L"省份丢失？！", 48);
  std::string written = testing::internal::GetCapturedStderr();
  SetRvAfxMessageBoxHandler(previous);
  EXPECT_EQ(result, IDOK);
  EXPECT_EQ(written, "[48] 省份丢失？！\n");
}

TEST(RvAfxMessageBox, NullTextReachesTheHandlerAsEmpty) {
  CString text = L"not called";
  auto previous = SetRvAfxMessageBoxHandler([&](const wchar_t* t, unsigned int, HWND) {
    text = t;
    return 1;
  });
  RvAfxMessageBox(nullptr);
  SetRvAfxMessageBoxHandler(previous);
  EXPECT_TRUE(text.IsEmpty());
}
