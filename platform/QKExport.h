#pragma once
// The one export macro. The library is built with hidden visibility; every exported class and
// function carries QK_EXPORT. QK_BUILDING_LIBRARY is defined only while the library itself compiles.
#if defined(_WIN32)
#  if defined(QK_BUILDING_LIBRARY)
#    define QK_EXPORT __declspec(dllexport)
#  else
#    define QK_EXPORT __declspec(dllimport)
#  endif
#else
#  define QK_EXPORT __attribute__((visibility("default")))
#endif
