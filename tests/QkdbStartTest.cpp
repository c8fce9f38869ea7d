// What a qkdb process loads: the libraries a command needs and no others. libpq comes with the
// PostgreSQL module, on a postgresql:// URI only; mdbtools and glib with the Access reader's module,
// in import-access only. Without a module, the command that needs it fails in one line and the others
// work on.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "QkdbRun.h"
#include "TestDatabase.h"
#include "tablekit/ModuleLoader.h"

namespace fs = std::filesystem;

namespace {

const std::string kMdb = (fs::path(QK_DATA_DIR).parent_path() / "docs" / "examples" / "DateTestDatabase.mdb").string();

// The shared objects the dynamic loader reported loading (LD_DEBUG=libs) while qkdb args ran, in every
// process of the run, with the run itself.
struct LoadedRun {
  ToolRun run;
  std::string loaded;
};

LoadedRun RunWatchingLoads(const TempDir& dir, const std::string& args) {
  const fs::path log = dir.path() / "ld";
  LoadedRun result;
  result.run = Qkdb(args, "LD_DEBUG=libs LD_DEBUG_OUTPUT='" + log.string() + "' ");
  for (const auto& entry : fs::directory_iterator(dir.path()))
    if (entry.path().filename().string().starts_with("ld.")) result.loaded += Slurp(entry.path().string());
  return result;
}

bool Mentions(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

// A folder holding a copy of the library and nothing beside it (no modules); qkdb run with
// LD_LIBRARY_PATH on it takes that copy, and looks for the modules beside it.
class LibraryWithoutModules {
 public:
  LibraryWithoutModules() {
    const fs::path library = fs::path(tablekit::ModuleFolder()).parent_path() / "libQKModelDataBase.so.0";
    fs::copy_file(library, m_dir.path() / library.filename());
  }
  const fs::path& Folder() const { return m_dir.path(); }
  std::string Env() const { return "LD_LIBRARY_PATH='" + m_dir.path().string() + "' "; }

 private:
  TempDir m_dir;
};

}  // namespace

TEST(QkdbStart, WeatherLoadsNeitherLibpqNorMdbtools) {
  TempDir dir;
  const LoadedRun weather = RunWatchingLoads(dir, "weather 郑州 --json");
  ASSERT_EQ(weather.run.status, 0) << weather.run.err;
  EXPECT_TRUE(Mentions(weather.loaded, "libsqlite3.so")) << "the loader said nothing: " << weather.loaded;
  EXPECT_FALSE(Mentions(weather.loaded, "libpq.so"));
  EXPECT_FALSE(Mentions(weather.loaded, "libmdb.so"));
  EXPECT_FALSE(Mentions(weather.loaded, "libglib-2.0.so"));
}

TEST(QkdbStart, APostgresUriLoadsLibpq) {
  TempDir dir;
  // Port 1: nobody answers, so the open fails after the module and libpq are loaded.
  const LoadedRun run = RunWatchingLoads(dir, "weather 郑州 --db postgresql://qk@127.0.0.1:1/none");
  EXPECT_EQ(run.run.status, 2);
  EXPECT_TRUE(Mentions(run.loaded, "postgresql.so")) << run.loaded;
  EXPECT_TRUE(Mentions(run.loaded, "libpq.so"));
  EXPECT_FALSE(Mentions(run.run.err, "not installed")) << run.run.err;
}

TEST(QkdbStart, ImportAccessLoadsMdbtools) {
  TempDir dir;
  const LoadedRun run = RunWatchingLoads(dir, "import-access '" + kMdb + "' --db '" + (dir.path() / "out.db").string() + "'");
  ASSERT_EQ(run.run.status, 0) << run.run.err;
  EXPECT_TRUE(Mentions(run.loaded, "qkdb-access.so")) << run.loaded;
  EXPECT_TRUE(Mentions(run.loaded, "libmdb.so"));
}

TEST(QkdbStart, WithoutTheModulesAnSqliteDatabaseIsStillRead) {
  LibraryWithoutModules library;
  const ToolRun run = Qkdb("weather 郑州", library.Env());
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_TRUE(Mentions(run.out, "郑州, 河南, 中国")) << run.out;
}

TEST(QkdbStart, APostgresUriWithoutTheModuleFailsInOneLine) {
  LibraryWithoutModules library;
  const ToolRun run = Qkdb("weather 郑州 --db postgresql://qk@127.0.0.1:1/none", library.Env());
  EXPECT_EQ(run.status, 2);
  EXPECT_TRUE(IsOneLine(run.err)) << run.err;
  const std::string module = (library.Folder() / "QKModelDataBase" / "postgresql.so").string();
  EXPECT_TRUE(Mentions(run.err, "PostgreSQL cannot be used: the module " + module + " is not installed")) << run.err;
}

TEST(QkdbStart, AModuleThatCannotBeLoadedFailsInOneLine) {
  LibraryWithoutModules library;
  fs::create_directory(library.Folder() / "QKModelDataBase");
  std::ofstream(library.Folder() / "QKModelDataBase" / "postgresql.so") << "not a shared object\n";
  const ToolRun run = Qkdb("weather 郑州 --db postgresql://qk@127.0.0.1:1/none", library.Env());
  EXPECT_EQ(run.status, 2);
  EXPECT_TRUE(IsOneLine(run.err)) << run.err;
  EXPECT_TRUE(Mentions(run.err, "PostgreSQL cannot be used: cannot load ")) << run.err;
}

// A shared object that is no module of the library (SQLite's, which this test process has loaded),
// put where the PostgreSQL module belongs.
TEST(QkdbStart, ASharedObjectThatIsNoModuleIsRefusedInOneLine) {
  std::string sqlite;
  std::ifstream maps("/proc/self/maps");
  for (std::string line; sqlite.empty() && std::getline(maps, line);)
    if (const std::size_t at = line.find('/'); at != std::string::npos && Mentions(line, "libsqlite3.so"))
      sqlite = line.substr(at);
  ASSERT_FALSE(sqlite.empty());
  LibraryWithoutModules library;
  fs::create_directory(library.Folder() / "QKModelDataBase");
  fs::copy_file(sqlite, library.Folder() / "QKModelDataBase" / "postgresql.so");
  const ToolRun run = Qkdb("weather 郑州 --db postgresql://qk@127.0.0.1:1/none", library.Env());
  EXPECT_EQ(run.status, 2);
  EXPECT_TRUE(IsOneLine(run.err)) << run.err;
  EXPECT_TRUE(Mentions(run.err, "postgresql.so is not a module of this library")) << run.err;
}

TEST(QkdbStart, ImportAccessWithoutItsModuleFailsInOneLineAndWritesNothing) {
  LibraryWithoutModules library;
  TempDir out;
  const ToolRun run = Qkdb("import-access '" + kMdb + "' --db '" + (out.path() / "out.db").string() + "'", library.Env());
  EXPECT_EQ(run.status, 1);
  EXPECT_TRUE(IsOneLine(run.err)) << run.err;
  EXPECT_TRUE(Mentions(run.err, "Access files cannot be read: the module ")) << run.err;
  EXPECT_TRUE(Mentions(run.err, "qkdb-access.so is not installed")) << run.err;
  EXPECT_TRUE(fs::is_empty(out.path()));
}
