#pragma once
// How one element of a CList or CMap travels in the containers' archive form: a CString as a stream
// string, anything else trivially copyable as its raw bytes. Stream is CADataStream or any type with
// the same WriteItem / ReadItem / WriteRaw / ReadRaw calls.

#include <cstdint>
#include <type_traits>

#include "mfc/CString.h"

namespace qk::archive {

// One element of a container's archive form. Returns 0 on success, the stream's error otherwise.
template <class Stream, class T>
int StoreElement(Stream& s, const T& e) {
  if constexpr (std::is_same_v<T, CString>) {
    return s.WriteItem(e);
  } else {
    static_assert(std::is_trivially_copyable_v<T>, "archive elements are strings or plain records");
    return s.WriteRaw(&e, sizeof(T));
  }
}

template <class Stream, class T>
int LoadElement(Stream& s, T& e) {
  if constexpr (std::is_same_v<T, CString>) {
    return s.ReadItem(&e);
  } else {
    static_assert(std::is_trivially_copyable_v<T>, "archive elements are strings or plain records");
    return s.ReadRaw(&e, sizeof(T));
  }
}

// The smallest number of stream bytes one element can take, to refuse counts the stream cannot hold.
template <class T>
constexpr std::uint64_t MinElementBytes() {
  if constexpr (std::is_same_v<T, CString>) {
    return 4;
  } else {
    return sizeof(T);
  }
}

}  // namespace qk::archive
