#pragma once
// The few Windows type names that appear in the library's signatures. On Windows they come from
// <windows.h>; elsewhere they are defined here with the same meaning.
#if defined(_WIN32)
#  include <windows.h>
#else
typedef int BOOL;
typedef unsigned int UINT;
typedef long HRESULT;
typedef void* HWND;
#  ifndef TRUE
#    define TRUE 1
#  endif
#  ifndef FALSE
#    define FALSE 0
#  endif
#  define S_OK ((HRESULT)0L)
#  define S_FALSE ((HRESULT)1L)
#endif

// Opaque iterator of CList and CMap, as in the framework: null marks the end.
struct __POSITION {};
typedef __POSITION* POSITION;
