#include "tablekit/RvAfxMessageBox.h"

#include <cstdio>

#include "mfc/CString.h"
#include "tablekit/reads/ReadScope.h"

namespace {

int WriteToStderr(const wchar_t* text, unsigned int type, HWND) {
  std::fprintf(stderr, "[%u] %s\n", type, CString(text).ToUtf8().c_str());
  return IDOK;
}

RvMessageBoxHandler& Handler() {
  static RvMessageBoxHandler handler = WriteToStderr;
  return handler;
}

}  // namespace

int RvAfxMessageBox(const wchar_t* text, unsigned int type, HWND owner) {
  tablekit::ReadScope::Pause();  // a host may wait for its user here: hold no lock meanwhile
  return Handler()(text ? text : L"", type, owner);
}

RvMessageBoxHandler SetRvAfxMessageBoxHandler(RvMessageBoxHandler handler) {
  RvMessageBoxHandler previous = std::move(Handler());
  Handler() = handler ? std::move(handler) : RvMessageBoxHandler(WriteToStderr);
  return previous;
}
