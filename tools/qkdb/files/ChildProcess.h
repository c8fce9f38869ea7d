#pragma once
// ChildProcess: runs a piece of work in a forked copy of qkdb and collects what it says. A crash, an
// abort, an out-of-bounds read or an endless loop inside a C library fed a damaged file then ends
// the copy, and qkdb itself lives on to say so in one line.
//
// The child's standard output is thrown away and its standard error is kept apart (Outcome::
// complaints): such libraries print there, page by page, what they could not read. What the work
// has to say goes through Send. A child that sends nothing, not even Beat, for the silence limit is
// taken to be stuck and killed.

#include <chrono>
#include <functional>
#include <string>
#include <string_view>

namespace qkdb {

class ChildProcess {
 public:
  struct Outcome {
    bool exited = false;      // false when a signal ended the child
    bool silent = false;      // the child was killed for saying nothing for the silence limit
    int status = -1;          // the child's exit status, or the signal that ended it
    std::string words;        // everything the child sent
    std::string complaints;   // the start of what the child wrote on standard error
  };

  // Runs work in a child process and waits for it; work's result is the child's exit status.
  // Standard output is flushed first, so nothing buffered is printed twice.
  static Outcome Run(const std::function<int(ChildProcess&)>& work, std::chrono::seconds silence);

  // In the child: sends text to the parent.
  void Send(std::string_view text);
  // In the child: tells the parent the work goes on. Cheap enough to call for every row: it writes
  // at most once a second.
  void Beat();

 private:
  explicit ChildProcess(int fd) : m_fd(fd) {}
  int m_fd;
  std::chrono::steady_clock::time_point m_lastBeat;
};

}  // namespace qkdb
