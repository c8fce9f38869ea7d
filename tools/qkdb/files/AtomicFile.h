#pragma once
// AtomicFile: a file made in full beside its target and renamed onto it only when complete, so an
// interrupted command (a crash, a kill, a full disk) never leaves a half-written file at the target.
// The temporary file is named "<target>.<purpose>-XXXXXX" in the target's folder, so the rename stays
// on one file system. Ctrl-C, SIGHUP and SIGTERM remove it (and its SQLite journal) before the process
// ends; a SIGKILL cannot be caught and leaves it beside the target, whose name says what it is.
//
// The file keeps the mode of the file it replaces; a new one gets the mode the umask gives.
//
// One AtomicFile at a time per process: the signal handler knows a single temporary file.

#include <filesystem>
#include <string>

namespace qkdb {

class AtomicFile {
 public:
  // Creates the empty temporary file beside target. Throws DataError when the folder is missing or the
  // file cannot be created.
  AtomicFile(const std::filesystem::path& target, const std::string& purpose);
  // Removes the temporary file unless Commit has moved it onto the target.
  ~AtomicFile();
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;

  const std::string& Path() const { return m_path; }
  // Flushes the temporary file to disk, renames it onto the target and flushes the folder, so the new
  // file survives a power cut. Throws DataError; the target is then as it was.
  void Commit();

 private:
  std::filesystem::path m_target;
  std::string m_path;
};

}  // namespace qkdb
