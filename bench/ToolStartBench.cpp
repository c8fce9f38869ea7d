// qkdb as a user meets it: the whole process of `qkdb weather 郑州 --json`, from spawn to exit, beside
// the sqlite3 shell answering the same question from the same file with one query (`sqlite3 -json`).
// Both run in one benchmark run, so their ratio is measured on the same machine at the same moment.
// The time is wall-clock (the work is in the child); loading shared libraries, opening the database
// and printing are all counted, as they are for the user. Output goes to /dev/null for both.
// Run: build/default/bench/qk_bench --benchmark_filter=ToolStart --benchmark_repetitions=5
//        --benchmark_report_aggregates_only=true --benchmark_enable_random_interleaving=true

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <vector>

extern char** environ;

namespace {

// What the tool reads for a city asked by name, in one statement: the city, its province and
// country, its weather row, and where its hourly file comes from.
constexpr const char* kSameQuery =
    "SELECT w.*, c.Name AS CityName, p.Name AS ProvinceName, n.Name AS CountryName, s.Own AS EpwOwn, "
    "s.Station AS EpwStation, s.DistanceKm AS EpwDistanceKm FROM City c JOIN Province p ON p.ID = c.PId "
    "JOIN Country n ON n.ID = p.CId JOIN Weather w ON w.CId = c.ID "
    "LEFT JOIN WeatherFileSource s ON s.CId = c.ID AND s.EpwName = w.EpwName WHERE c.Name = '郑州'";

// Runs argv[0] (searched on PATH) with standard output and error on /dev/null; its exit status, or
// -1 when it cannot be started or did not exit.
int Run(const std::vector<std::string>& args) {
  std::vector<char*> argv;
  for (const std::string& arg : args) argv.push_back(const_cast<char*>(arg.c_str()));
  argv.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  pid_t pid = 0;
  const int spawned = posix_spawnp(&pid, argv[0], &actions, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (spawned != 0) return -1;
  int status = 0;
  if (waitpid(pid, &status, 0) != pid || !WIFEXITED(status)) return -1;
  return WEXITSTATUS(status);
}

void RunWhole(benchmark::State& state, const std::vector<std::string>& args) {
  if (Run(args) != 0) {  // also warms the page cache, as a user's second run finds it
    state.SkipWithError(("cannot run " + args[0]).c_str());
    return;
  }
  for (auto _ : state)
    if (Run(args) != 0) state.SkipWithError(("a run of " + args[0] + " failed").c_str());
}

void ToolStart_QkdbWeather(benchmark::State& state) {
  RunWhole(state, {QKDB_PATH, "weather", "郑州", "--json", "--db", QK_REFERENCE_DB});
}
BENCHMARK(ToolStart_QkdbWeather)->UseRealTime()->Unit(benchmark::kMillisecond);

void ToolStart_Sqlite3Weather(benchmark::State& state) {
  RunWhole(state, {"sqlite3", "-json", QK_REFERENCE_DB, kSameQuery});
}
BENCHMARK(ToolStart_Sqlite3Weather)->UseRealTime()->Unit(benchmark::kMillisecond);

}  // namespace
