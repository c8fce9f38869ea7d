#include "ChildProcess.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "CsvTable.h"

namespace qkdb {

ChildProcess::Outcome ChildProcess::Run(const std::function<int(ChildProcess&)>& work) {
  int channel[2];
  if (pipe(channel) != 0) throw DataError(std::string("cannot make a pipe: ") + std::strerror(errno));
  std::fflush(nullptr);
  const pid_t pid = fork();
  if (pid < 0) {
    const int error = errno;
    close(channel[0]);
    close(channel[1]);
    throw DataError(std::string("cannot start a child process: ") + std::strerror(error));
  }
  if (pid == 0) {
    close(channel[0]);
    const int quiet = open("/dev/null", O_WRONLY);
    if (quiet >= 0) dup2(quiet, STDERR_FILENO);
    ChildProcess child(channel[1]);
    int status = 1;
    try {
      status = work(child);
    } catch (const std::exception& e) {
      child.Send(e.what());
    }
    close(channel[1]);
    // exit rather than _exit, so a sanitizer build checks the child's leaks too; the parent's objects
    // live on its stack and are not destroyed here.
    std::exit(status);
  }

  close(channel[1]);
  Outcome outcome;
  char buffer[4096];
  for (;;) {
    const ssize_t n = read(channel[0], buffer, sizeof buffer);
    if (n > 0) {
      outcome.words.append(buffer, n);
    } else if (n == 0 || errno != EINTR) {
      break;
    }
  }
  close(channel[0]);
  int status = 0;
  while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
  }
  outcome.exited = WIFEXITED(status);
  outcome.status = outcome.exited ? WEXITSTATUS(status) : WTERMSIG(status);
  return outcome;
}

void ChildProcess::Send(std::string_view text) {
  while (!text.empty()) {
    const ssize_t n = write(m_fd, text.data(), text.size());
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return;
    text.remove_prefix(n);
  }
}

}  // namespace qkdb
