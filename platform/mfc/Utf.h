#pragma once
// Conversions between the wide strings of the interface and the byte encodings at its boundaries.
// Internal to the library. wchar_t holds UTF-32 on Linux and UTF-16 on Windows; both are handled.
// Malformed input never fails: each bad sequence or lone surrogate becomes U+FFFD.

#include <string>
#include <string_view>

namespace qk::utf {

std::wstring FromUtf8(std::string_view utf8);
std::string ToUtf8(std::wstring_view text);
std::u16string ToUtf16(std::wstring_view text);
std::wstring FromUtf16(std::u16string_view units);

}  // namespace qk::utf
