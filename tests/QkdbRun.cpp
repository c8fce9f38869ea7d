#include "QkdbRun.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

std::string Slurp(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

ToolRun Qkdb(const std::string& args, const std::string& env) {
  return RunShell(env + "\"$QKDB\" " + args + " </dev/null");
}

ToolRun RunShell(const std::string& line) {
  const std::string base = testing::TempDir() + "qkdb_run_" + std::to_string(getpid());
  const std::string out = base + ".out";
  const std::string err = base + ".err";
  const std::string command =
      "QKDB='" + std::string(QKDB_PATH) + "'; export QKDB; (" + line + ") >'" + out + "' 2>'" + err + "'";
  const int status = std::system(command.c_str());
  ToolRun run;
  run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  run.out = Slurp(out);
  run.err = Slurp(err);
  std::remove(out.c_str());
  std::remove(err.c_str());
  return run;
}

bool IsOneLine(const std::string& text) {
  return !text.empty() && text.back() == '\n' && text.find('\n') == text.size() - 1;
}
