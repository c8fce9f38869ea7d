#include "files/AtomicFile.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "text/CsvTable.h"

namespace qkdb {

namespace {

// The temporary file, for the signal handler: a fixed buffer, as a handler may not allocate. Empty
// when no file is being made.
char g_temporary[4096];
char g_journal[4096 + 16];

void RemoveTemporary() {
  if (g_temporary[0]) {
    unlink(g_temporary);
    unlink(g_journal);
  }
}

extern "C" void OnSignal(int signal) {
  RemoveTemporary();
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

// Makes the file durable: the record classes and the importers commit without waiting for the disk
// (the temporary file is thrown away unless it gets here), so it is flushed once, before the rename.
void FlushFile(const std::string& path) {
  int fd = open(path.c_str(), O_RDWR);
  if (fd < 0 || fsync(fd) != 0) {
    const int error = errno;
    if (fd >= 0) close(fd);
    throw DataError("cannot write " + path + " to disk: " + std::strerror(error));
  }
  close(fd);
}

// Flushes the folder's entry for the renamed file, so the rename itself survives a power cut.
void SyncFolder(const std::filesystem::path& folder) {
  int fd = open(folder.c_str(), O_RDONLY | O_DIRECTORY);
  if (fd >= 0) {
    fsync(fd);
    close(fd);
  }
}

// The mode the finished file gets: that of the file it replaces, so a database shared with a group stays
// shared; else what a plain create would give under the process's umask (0644 under umask 022).
// mkstemp makes its file 0600 whatever the umask: left so, other users of a shared database would
// read "… is not an SQLite database".
mode_t ModeFor(const std::filesystem::path& target) {
  struct stat existing;
  if (stat(target.c_str(), &existing) == 0) return existing.st_mode & 07777;
  const mode_t mask = umask(0);  // the only way to read the umask; put back at once
  umask(mask);
  return 0666 & ~mask;
}

}  // namespace

AtomicFile::AtomicFile(const std::filesystem::path& target, const std::string& purpose) {
  std::error_code ec;
  m_target = std::filesystem::absolute(target, ec);
  if (!std::filesystem::is_directory(m_target.parent_path(), ec))
    throw DataError("no folder " + m_target.parent_path().string() + " to write " + target.string() + " in");
  const std::string pattern = m_target.string() + "." + purpose + "-XXXXXX";
  if (pattern.size() >= sizeof g_temporary) throw DataError("the path " + target.string() + " is too long");

  // The signals wait while the file is made and named, so the handler never sees it half-named.
  sigset_t signals, previous;
  sigemptyset(&signals);
  for (int signal : {SIGINT, SIGTERM, SIGHUP}) {
    sigaddset(&signals, signal);
    std::signal(signal, OnSignal);
  }
  sigprocmask(SIG_BLOCK, &signals, &previous);
  std::strcpy(g_temporary, pattern.c_str());
  const int fd = mkstemp(g_temporary);
  const int error = errno;
  if (fd < 0)
    g_temporary[0] = '\0';
  else
    std::snprintf(g_journal, sizeof g_journal, "%s-journal", g_temporary);
  m_path = g_temporary;
  sigprocmask(SIG_SETMASK, &previous, nullptr);
  if (fd < 0) throw DataError("cannot create a file beside " + target.string() + ": " + std::strerror(error));
  const bool moded = fchmod(fd, ModeFor(m_target)) == 0;
  const int modeError = errno;
  close(fd);
  if (!moded) throw DataError("cannot set the mode of " + m_path + ": " + std::strerror(modeError));
}

AtomicFile::~AtomicFile() {
  RemoveTemporary();
  g_temporary[0] = '\0';
}

void AtomicFile::Commit() {
  FlushFile(m_path);
  if (std::rename(m_path.c_str(), m_target.c_str()) != 0)
    throw DataError("cannot move " + m_path + " onto " + m_target.string() + ": " + std::strerror(errno));
  g_temporary[0] = '\0';
  SyncFolder(m_target.parent_path());
}

}  // namespace qkdb
