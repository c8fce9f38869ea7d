// The same lookups and tree builds on both backends, side by side in one run: an SQLite file and a
// database on the PostgreSQL server named by QK_PG_URI (its maintenance database; the benchmark
// makes its own "qk_bench" database there). Same schema, same 294 stations in 34 provinces, every
// fifth without a weather file. Without QK_PG_URI the server's rows report an error and are skipped.
// Times are wall-clock: on the server the work happens in another process, which CPU time misses.
// Run: QK_PG_URI=postgresql://user@host:port/postgres build/default/bench/qk_bench
//        --benchmark_filter=Backend --benchmark_repetitions=5 --benchmark_report_aggregates_only=true

#include <benchmark/benchmark.h>
#include <libpq-fe.h>
#include <sqlite3.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "geography/CQKCity.h"
#include "geography/CQKCountry.h"
#include "geography/CQKProvince.h"
#include "tablekit/CADODatabase.h"
#include "tablekit/postgres/PgSchema.h"
#include "weather/CQKWeather.h"
#include "weather/CQKWeatherDataAdmin.h"

namespace {

constexpr int kStations = 294;
constexpr int kProvinces = 34;

std::string Schema() {
  std::ifstream file(QK_SCHEMA_FILE);
  return std::string((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
}

// The rows of both databases: station i in province i % 34, on a grid 0.01 rad apart.
std::string Rows() {
  std::string sql = "INSERT INTO Country (Name) VALUES ('中国');";
  for (int i = 0; i < kProvinces; ++i) sql += "INSERT INTO Province (CId, Name) VALUES (1, '省" + std::to_string(i) + "');";
  for (int i = 0; i < kStations; ++i) {
    const std::string epw = i % 5 == 4 ? "NULL" : "'station" + std::to_string(i) + ".epw'";
    sql += "INSERT INTO City (PId, Name) VALUES (" + std::to_string(i % kProvinces + 1) + ", '城市" +
           std::to_string(i) + "');INSERT INTO Weather (CId, JD, WD, EpwName) VALUES (" + std::to_string(i + 1) +
           ", " + std::to_string(1.8 + 0.01 * (i % 20)) + ", " + std::to_string(0.3 + 0.01 * (i / 20)) + ", " +
           epw + ");";
  }
  return sql;
}

const std::string& SqliteDatabase() {
  static const std::string path = [] {
    std::string p = (std::filesystem::temp_directory_path() / "qk_bench_backend.db").string();
    std::filesystem::remove(p);
    sqlite3* db = nullptr;
    sqlite3_open(p.c_str(), &db);
    sqlite3_exec(db, (Schema() + "BEGIN;" + Rows() + "COMMIT;").c_str(), nullptr, nullptr, nullptr);
    sqlite3_close(db);
    return p;
  }();
  return path;
}

bool Exec(const std::string& uri, const std::string& sql) {
  PGconn* conn = PQconnectdb(uri.c_str());
  PQsetNoticeProcessor(conn, [](void*, const char*) {}, nullptr);
  PGresult* res = PQexec(conn, sql.c_str());
  const bool ok = PQstatus(conn) == CONNECTION_OK && PQresultStatus(res) == PGRES_COMMAND_OK;
  PQclear(res);
  PQfinish(conn);
  return ok;
}

// The URI of the benchmark's database on the server, "" when there is no server.
const std::string& ServerDatabase() {
  static const std::string uri = []() -> std::string {
    const char* server = std::getenv("QK_PG_URI");
    if (server == nullptr || *server == '\0') return "";
    const std::string maintenance = server;
    const std::size_t slash = maintenance.find('/', maintenance.find("://") + 3);
    const std::string base = maintenance.substr(0, slash);
    if (!Exec(maintenance, "DROP DATABASE IF EXISTS qk_bench") ||
        !Exec(maintenance, "CREATE DATABASE qk_bench ENCODING 'UTF8' TEMPLATE template0"))
      return "";
    const std::string db = base + "/qk_bench";
    if (!Exec(db, tablekit::PostgresSchema(Schema()) + "BEGIN;" + Rows() + "COMMIT;")) return "";
    return db;
  }();
  return uri;
}

template <class Record>
void Forget() {
  if (Record::m_pADODatabase) Record::m_pADODatabase->Close();
}

// Points the records at the backend's database; false (and the benchmark skipped) when it has none.
bool Use(benchmark::State& state, bool server) {
  const std::string target = server ? ServerDatabase() : SqliteDatabase();
  if (target.empty()) {
    state.SkipWithError("no PostgreSQL server (QK_PG_URI)");
    return false;
  }
  Forget<CQKCountry>();
  Forget<CQKProvince>();
  Forget<CQKCity>();
  Forget<CQKWeather>();
  const CString path = CString::FromUtf8(target);
  CQKCountry::S_Init(path, L"Country");
  CQKProvince::S_Init(path, L"Province");
  CQKCity::S_Init(path, L"City");
  CQKWeather::S_Init(path, L"Weather");
  return true;
}

void BM_Backend_CityByName(benchmark::State& state) {
  if (!Use(state, state.range(0) == 1)) return;
  int i = 0;
  for (auto _ : state) {
    CQKCity city;
    city.PId = i % kProvinces + 1;
    city.Name.Format(L"城市%d", i);
    benchmark::DoNotOptimize(city.IsExist(nullptr));
    i = (i + 1) % kStations;
  }
}
BENCHMARK(BM_Backend_CityByName)->ArgName("server")->Arg(0)->Arg(1)->UseRealTime();

void BM_Backend_CityClimate(benchmark::State& state) {
  if (!Use(state, state.range(0) == 1)) return;
  int i = 0;
  for (auto _ : state) {
    CQKWeather w;
    w.CId = (i % 200) / 4 * 5 + (i % 4) + 1;  // a station with its own weather file
    benchmark::DoNotOptimize(CQKWeatherDataAdmin::GetWeatherByCityId(w));
    ++i;
  }
}
BENCHMARK(BM_Backend_CityClimate)->ArgName("server")->Arg(0)->Arg(1)->UseRealTime();

void BM_Backend_PlaceTree(benchmark::State& state) {
  if (!Use(state, state.range(0) == 1)) return;
  CQKWeatherDataAdmin admin;
  for (auto _ : state) benchmark::DoNotOptimize(admin.GetCityNodes(1, state.range(1) == 1));
}
BENCHMARK(BM_Backend_PlaceTree)->ArgNames({"server", "weather_only"})->Args({0, 0})->Args({1, 0})->Args({0, 1})->Args({1, 1})->UseRealTime();

}  // namespace
