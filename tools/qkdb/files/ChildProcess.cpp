#include "files/ChildProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "text/CsvTable.h"

namespace qkdb {

namespace {

// A beat is a NUL byte on the channel; the words are text and never hold one.
constexpr char kBeat = '\0';
// Enough of standard error to quote the first complaints; a library stuck in a loop can print
// without end, and the rest is read and dropped.
constexpr std::size_t kComplaintsKept = 4096;

void Pipe(int fds[2]) {
  if (pipe(fds) != 0) throw DataError(std::string("cannot make a pipe: ") + std::strerror(errno));
}

// Reads what fd has; false at its end.
bool Drain(int fd, std::string& into, std::size_t keep) {
  char buffer[4096];
  const ssize_t n = read(fd, buffer, sizeof buffer);
  if (n < 0) return errno == EINTR || errno == EAGAIN;
  if (n == 0) return false;
  into.append(buffer, std::min<std::size_t>(n, keep - std::min(keep, into.size())));
  return true;
}

}  // namespace

ChildProcess::Outcome ChildProcess::Run(const std::function<int(ChildProcess&)>& work, std::chrono::seconds silence) {
  int channel[2];
  int complaints[2];
  Pipe(channel);
  Pipe(complaints);
  std::fflush(nullptr);
  const pid_t pid = fork();
  if (pid < 0) {
    const int error = errno;
    for (int fd : {channel[0], channel[1], complaints[0], complaints[1]}) close(fd);
    throw DataError(std::string("cannot start a child process: ") + std::strerror(error));
  }
  if (pid == 0) {
    close(channel[0]);
    close(complaints[0]);
    const int nowhere = open("/dev/null", O_WRONLY);
    if (nowhere >= 0) dup2(nowhere, STDOUT_FILENO);
    dup2(complaints[1], STDERR_FILENO);
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
  close(complaints[1]);
  Outcome outcome;
  pollfd fds[2] = {{channel[0], POLLIN, 0}, {complaints[0], POLLIN, 0}};
  bool talking = true;
  bool complaining = true;
  auto heard = std::chrono::steady_clock::now();
  while (talking || complaining) {
    const auto left = silence - (std::chrono::steady_clock::now() - heard);
    if (left <= std::chrono::steady_clock::duration::zero()) {
      outcome.silent = true;
      kill(pid, SIGKILL);
      break;
    }
    fds[0].fd = talking ? channel[0] : -1;
    fds[1].fd = complaining ? complaints[0] : -1;
    const int ready = poll(fds, 2, static_cast<int>(std::chrono::ceil<std::chrono::milliseconds>(left).count()));
    if (ready < 0 && errno != EINTR) break;
    if (talking && fds[0].revents) {
      talking = Drain(channel[0], outcome.words, std::string::npos);
      heard = std::chrono::steady_clock::now();
    }
    // Standard error is no sign of progress: a library stuck in a loop may print there without end.
    if (complaining && fds[1].revents) complaining = Drain(complaints[0], outcome.complaints, kComplaintsKept);
  }
  close(channel[0]);
  close(complaints[0]);
  int status = 0;
  while (waitpid(pid, &status, 0) < 0 && errno == EINTR) {
  }
  outcome.words.erase(std::remove(outcome.words.begin(), outcome.words.end(), kBeat), outcome.words.end());
  outcome.exited = !outcome.silent && WIFEXITED(status);
  outcome.status = WIFEXITED(status) ? WEXITSTATUS(status) : WTERMSIG(status);
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

void ChildProcess::Beat() {
  const auto now = std::chrono::steady_clock::now();
  if (now - m_lastBeat < std::chrono::seconds(1)) return;
  m_lastBeat = now;
  Send(std::string_view(&kBeat, 1));
}

}  // namespace qkdb
