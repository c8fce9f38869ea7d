#include "mfc/ComShims.h"

namespace {
thread_local int g_depth = 0;
}

#if !defined(_WIN32)
HRESULT CoInitialize(void*) { return g_depth++ == 0 ? S_OK : S_FALSE; }

// An unmatched call is harmless: the depth never goes below zero.
void CoUninitialize() {
  if (g_depth > 0) --g_depth;
}
#endif

int QKComInitDepth() { return g_depth; }
