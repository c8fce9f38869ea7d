#pragma once
// Reading what the tool is given without letting the input decide how much memory it takes: a file
// must be a regular file no larger than the limit of its kind, and a stream (standard input) is read
// up to that limit and refused past it. /dev/zero, a folder or a FIFO given as a file is refused
// before a byte is read; an endless pipe after limit + 1 bytes.

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>

namespace qkdb {

// The limits, bytes: a wall's JSON is a few kB (64 KiB holds some 500 layers); an EPW file of a
// leap year is 1.8 MB; a data file of the reference database a few hundred kB; an Access file at
// most 2 GiB, the format's own limit (it is read page by page, never whole).
constexpr std::uintmax_t kWallInputLimit = 64 * 1024;
constexpr std::uintmax_t kEpwFileLimit = 3 * 1024 * 1024;
constexpr std::uintmax_t kDataFileLimit = 16 * 1024 * 1024;
constexpr std::uintmax_t kAccessFileLimit = std::uintmax_t{2} * 1024 * 1024 * 1024;

// Why path cannot be read within limit ("" when it can): missing, not a regular file, or larger than
// limit. what names the file in the message.
std::string RefusedFile(const std::filesystem::path& path, std::uintmax_t limit, const std::string& what);

// The whole of path into text; "" on success, else the one-line reason.
std::string ReadFile(const std::filesystem::path& path, std::uintmax_t limit, const std::string& what,
                     std::string& text);

// The whole of an open stream into text, refused past limit bytes; "" on success, else the reason. A
// stream that is a character device (/dev/zero as standard input) is refused before reading.
std::string ReadStream(std::FILE* from, std::uintmax_t limit, const std::string& what, std::string& text);

}  // namespace qkdb
