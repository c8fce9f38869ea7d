// The qkdb tool, run as a user runs it.

#include <gtest/gtest.h>

#include <cstdio>
#include <regex>
#include <string>
#include <sys/wait.h>

namespace {

struct ToolRun {
  int status;
  std::string out;
};

ToolRun Qkdb(const std::string& args) {
  std::string command = std::string(QKDB_PATH) + " " + args + " 2>/dev/null";
  ToolRun run{-1, ""};
  FILE* pipe = popen(command.c_str(), "r");
  if (!pipe) return run;
  char buffer[4096];
  std::size_t n;
  while ((n = fread(buffer, 1, sizeof buffer, pipe)) > 0) run.out.append(buffer, n);
  int status = pclose(pipe);
  run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return run;
}

}  // namespace

TEST(QkdbTool, VersionPrintsTheVersionAndSucceeds) {
  ToolRun run = Qkdb("--version");
  EXPECT_EQ(run.status, 0);
  EXPECT_TRUE(std::regex_match(run.out, std::regex("qkdb [0-9]+\\.[0-9]+\\.[0-9]+\n"))) << run.out;
}

TEST(QkdbTool, HelpListsTheCommands) {
  ToolRun run = Qkdb("--help");
  EXPECT_EQ(run.status, 0);
  EXPECT_NE(run.out.find("--version"), std::string::npos);
  EXPECT_NE(run.out.find("wall"), std::string::npos);
  EXPECT_NE(run.out.find("thickness"), std::string::npos);
}

TEST(QkdbTool, UnknownCommandFailsWithUsage) {
  EXPECT_EQ(Qkdb("frobnicate").status, 2);
  EXPECT_EQ(Qkdb("").status, 2);
}
