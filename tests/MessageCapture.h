#pragma once
// Catches the message boxes the library shows while it lives, text and style, instead of the default
// handler's line on stderr; the handler installed before comes back when it goes.

#include <utility>
#include <vector>

#include "mfc/CString.h"
#include "tablekit/RvAfxMessageBox.h"

class MessageCapture {
 public:
  MessageCapture()
      : m_previous(SetRvAfxMessageBoxHandler([this](const wchar_t* text, unsigned int style, HWND) {
          shown.emplace_back(CString(text), style);
          return IDOK;
        })) {}
  ~MessageCapture() { SetRvAfxMessageBoxHandler(m_previous); }
  MessageCapture(const MessageCapture&) = delete;
  MessageCapture& operator=(const MessageCapture&) = delete;

  std::vector<std::pair<CString, unsigned int>> shown;  // in the order shown

 private:
  RvMessageBoxHandler m_previous;
};
