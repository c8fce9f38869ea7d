#pragma once
// RvAfxMessageBox: the message box through which the library tells the user of a failure. There is no
// window here: it calls a replaceable handler. The default handler writes one line to stderr,
// "[style] text" in UTF-8, and returns IDOK. Hosts with a user interface install their own; tests
// install one to check the exact text and style. Styles used by the library: 0 plain, 16 error
// (MB_ICONERROR), 48 warning (MB_ICONWARNING).

#include <functional>

#include "QKExport.h"
#include "mfc/WinTypes.h"

#ifndef IDOK
#define IDOK 1
#endif

using RvMessageBoxHandler = std::function<int(const wchar_t* text, unsigned int type, HWND owner)>;

QK_EXPORT int RvAfxMessageBox(const wchar_t* text, unsigned int type = 0, HWND owner = nullptr);

// Installs handler (an empty one restores the default) and returns the one it replaces.
QK_EXPORT RvMessageBoxHandler SetRvAfxMessageBoxHandler(RvMessageBoxHandler handler);
