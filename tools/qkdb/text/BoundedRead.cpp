#include "text/BoundedRead.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <memory>

namespace qkdb {

namespace {

std::string Size(std::uintmax_t bytes) {
  return bytes % (1024 * 1024) == 0 ? std::to_string(bytes / (1024 * 1024)) + " MiB"
                                    : std::to_string(bytes / 1024) + " KiB";
}

}  // namespace

std::string RefusedFile(const std::filesystem::path& path, std::uintmax_t limit, const std::string& what) {
  std::error_code ec;
  const auto status = std::filesystem::status(path, ec);
  if (ec || !std::filesystem::exists(status)) return "cannot read " + what + ": " + std::strerror(ENOENT);
  if (std::filesystem::is_directory(status)) return "cannot read " + what + ": " + std::strerror(EISDIR);
  if (!std::filesystem::is_regular_file(status)) return what + " is not a regular file";
  const std::uintmax_t size = std::filesystem::file_size(path, ec);
  if (ec) return "cannot read " + what + ": " + ec.message();
  if (size > limit) return what + " is larger than " + Size(limit) + " (" + std::to_string(size) + " bytes)";
  return "";
}

std::string ReadFile(const std::filesystem::path& path, std::uintmax_t limit, const std::string& what,
                     std::string& text) {
  if (std::string refused = RefusedFile(path, limit, what); !refused.empty()) return refused;
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"), &std::fclose);
  if (!file) return "cannot read " + what + ": " + std::strerror(errno);
  // The size was checked, but the file may grow meanwhile: the stream's own bound still holds.
  return ReadStream(file.get(), limit, what, text);
}

std::string ReadStream(std::FILE* from, std::uintmax_t limit, const std::string& what, std::string& text) {
  struct stat info {};
  // A terminal is a character device too: someone typing the input, which the bound still holds.
  if (fstat(fileno(from), &info) == 0 && S_ISCHR(info.st_mode) && !isatty(fileno(from)))
    return what + " is a device, not a file";
  text.clear();
  char buffer[65536];
  std::size_t n;
  while ((n = std::fread(buffer, 1, sizeof buffer, from)) > 0) {
    if (text.size() + n > limit) return what + " holds more than " + Size(limit);
    text.append(buffer, n);
  }
  // A directory opens fine on Linux and only fails here, with EISDIR.
  if (std::ferror(from)) return "cannot read " + what + ": " + std::strerror(errno);
  return "";
}

}  // namespace qkdb
