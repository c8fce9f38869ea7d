// The qkdb tool, run as a user runs it.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include "QkdbRun.h"
#include "TestDatabase.h"

namespace fs = std::filesystem;

// The build tree is laid out as an install is: qkdb in tools/qkdb, its database and data two folders
// up in share/QKModelDataBase.
TEST(QkdbTool, VersionSaysTheVersionAndTheDatabaseAndDataItUses) {
  ToolRun run = Qkdb("--version", "env -u QKDB_DATABASE ");
  EXPECT_EQ(run.status, 0);
  const std::string share = fs::weakly_canonical(fs::path(QKDB_PATH).parent_path() / ".." / ".." / "share" /
                                                 "QKModelDataBase").string();
  EXPECT_EQ(run.out, "qkdb 0.2.0\ndatabase: " + share + "/reference.db\ndata: " + share + "/data\n");
  EXPECT_TRUE(fs::is_regular_file(share + "/reference.db"));  // the build made it
  EXPECT_TRUE(fs::is_regular_file(share + "/data/schema.sql"));
}

TEST(QkdbTool, VersionSaysWhenTheDatabaseComesFromTheEnvironment) {
  ToolRun run = Qkdb("--version", "QKDB_DATABASE=/some/where.db ");
  EXPECT_NE(run.out.find("\ndatabase: /some/where.db (from QKDB_DATABASE)\n"), std::string::npos) << run.out;
}

// A qkdb copied elsewhere looks beside itself, in ../share/QKModelDataBase, and says where it looked;
// once the database is there, it answers from it. No path of the build machine is used.
TEST(QkdbTool, ACopiedToolFindsTheDatabaseBesideItself) {
  TempDir dir;
  fs::create_directories(dir.path() / "bin");
  fs::copy_file(QKDB_PATH, dir.path() / "bin" / "qkdb");
  const std::string copy = (dir.path() / "bin" / "qkdb").string();
  ToolRun missing = RunShell("env -u QKDB_DATABASE '" + copy + "' weather 郑州");
  EXPECT_EQ(missing.status, 2);  // as for any missing database
  EXPECT_NE(missing.err.find("no reference database at " + fs::weakly_canonical(dir.path()).string() +
                             "/share/QKModelDataBase/reference.db"),
            std::string::npos)
      << missing.err;
  const fs::path shipped = fs::path(QKDB_PATH).parent_path() / ".." / ".." / "share" / "QKModelDataBase" / "reference.db";
  fs::create_directories(dir.path() / "share" / "QKModelDataBase");
  fs::copy_file(shipped, dir.path() / "share" / "QKModelDataBase" / "reference.db");
  ToolRun found = RunShell("env -u QKDB_DATABASE '" + copy + "' weather 郑州");
  EXPECT_EQ(found.status, 0) << found.err;
  EXPECT_NE(found.out.find("郑州, 河南, 中国"), std::string::npos) << found.out;
}

// Every command on a line of its own with what it does, and nothing else in the list.
TEST(QkdbTool, HelpListsEveryCommandWithOneLineEach) {
  ToolRun run = Qkdb("--help");
  EXPECT_EQ(run.status, 0);
  EXPECT_NE(run.out.find("--version"), std::string::npos);
  const std::size_t list = run.out.find("Subcommands:\n");
  ASSERT_NE(list, std::string::npos) << run.out;
  std::istringstream lines(run.out.substr(list + std::string("Subcommands:\n").size()));
  std::set<std::string> listed;
  std::string line;
  while (std::getline(lines, line) && !line.empty()) {
    std::istringstream words(line);
    std::string name, first;
    words >> name >> first;
    EXPECT_FALSE(first.empty()) << "no description: " << line;
    EXPECT_TRUE(listed.insert(name).second) << "twice: " << name;
  }
  EXPECT_EQ(listed, (std::set<std::string>{"wall", "thickness", "init", "schema", "weather", "tree", "walls",
                                           "materials", "rooms", "import-epw", "import-access", "export", "import"}));
}

TEST(QkdbTool, UnknownCommandFailsWithUsage) {
  EXPECT_EQ(Qkdb("frobnicate").status, 2);
  EXPECT_EQ(Qkdb("").status, 2);
}

// Every file a README example hands to qkdb is shipped, or written by an example before it (after
// -o or --db): a user can run the lines as printed, in order.
TEST(QkdbTool, EveryFileTheReadmesExamplesReadIsShipped) {
  const fs::path root = fs::path(QK_DATA_DIR).parent_path();
  std::ifstream readme(root / "README.md");
  ASSERT_TRUE(readme) << "no README.md in " << root;
  const std::regex file(R"((^|\s)(-o |--db )?([^\s'"]+\.(json|epw|mdb|accdb|csv|db)))");
  std::set<std::string> written;
  int read = 0;
  std::string line;
  while (std::getline(readme, line)) {
    if (line.rfind("build/default/tools/qkdb/qkdb ", 0) != 0) continue;
    const std::string command = line.substr(0, line.find('#'));
    for (std::sregex_iterator it(command.begin(), command.end(), file), end; it != end; ++it) {
      if ((*it)[2].matched) {
        written.insert((*it)[3].str());
        continue;
      }
      if (written.count((*it)[3].str())) continue;
      ++read;
      EXPECT_TRUE(fs::is_regular_file(root / (*it)[3].str())) << (*it)[3].str() << " in: " << line;
    }
  }
  EXPECT_GE(read, 4);  // the wall, thickness, EPW and Access examples at least
}
