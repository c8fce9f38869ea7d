#pragma once
// Running the built qkdb tool from a test, as a user runs it from a shell.

#include <string>

struct ToolRun {
  int status = -1;  // the exit status; -1 when the tool did not exit normally (a crash, a signal)
  std::string out;
  std::string err;
};

// Runs "qkdb args" with standard output and standard error kept apart; env is put before the command
// ("NAME=value " for the shell).
ToolRun Qkdb(const std::string& args, const std::string& env = "");
// Runs a shell command line in which $QKDB names the built tool ("yes | \"$QKDB\" wall"), standard
// output and standard error of the whole line kept apart.
ToolRun RunShell(const std::string& line);
// The whole content of a file, "" when it cannot be read.
std::string Slurp(const std::string& path);
// True when text is exactly one line, ending in a line break.
bool IsOneLine(const std::string& text);
