#pragma once
// ChildProcess: runs a piece of work in a forked copy of qkdb and collects what it says. A crash, an
// abort or an out-of-bounds read inside a C library fed a damaged file then ends the copy, and qkdb
// itself lives on to say so in one line. The child's standard error is thrown away, as such libraries
// print page-by-page complaints there; what it has to say goes through Send.

#include <functional>
#include <string>
#include <string_view>

namespace qkdb {

class ChildProcess {
 public:
  struct Outcome {
    bool exited = false;  // false when a signal ended the child
    int status = -1;      // the child's exit status, or the signal that ended it
    std::string words;    // everything the child sent
  };

  // Runs work in a child process and waits for it; work's result is the child's exit status.
  // Standard output is flushed first, so nothing buffered is printed twice.
  static Outcome Run(const std::function<int(ChildProcess&)>& work);

  // In the child: sends text to the parent.
  void Send(std::string_view text);

 private:
  explicit ChildProcess(int fd) : m_fd(fd) {}
  int m_fd;
};

}  // namespace qkdb
