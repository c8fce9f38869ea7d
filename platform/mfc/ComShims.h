#pragma once
// CoInitialize / CoUninitialize: there is no COM here, so they only count, per thread, how deeply
// the calling thread has initialised it, with COM's results (S_OK for the first call on a thread,
// S_FALSE for a nested one). The count lets a host or a test see that calls are balanced.

#include "QKExport.h"
#include "mfc/WinTypes.h"

#if !defined(_WIN32)
QK_EXPORT HRESULT CoInitialize(void* reserved);
QK_EXPORT void CoUninitialize();
#endif

// How many CoInitialize calls of this thread are not yet matched by CoUninitialize.
QK_EXPORT int QKComInitDepth();
