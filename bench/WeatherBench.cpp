// What the weather lookups cost over the same reads done by hand, side by side on the same data: a
// reference database built from the schema with 294 stations (the size of the national table of
// outdoor design conditions), 34 provinces, and every fifth station without a weather file.
//   - a city's climate with its names (CQKWeatherDataAdmin::GetWeatherByCityId) against a raw
//     prepared select of the weather row plus the three name reads, for a city with its own weather
//     file, and for one that borrows its neighbour's (the search square);
//   - the place tree (GetCityNodes) against the same three queries walked by hand into plain nodes;
//   - the unit change of a row's six scaled items (two pressures Pa → hPa, four humidities fraction →
//     percent) by moving the decimal point (QKLoad::ScaleByPowerOfTen) against a plain multiplication.
// Run: build/default/bench/qk_bench --benchmark_filter='Climate|PlaceTree|Scaled' --benchmark_repetitions=5
//        --benchmark_report_aggregates_only=true

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "foundation/QKLoad.h"
#include "geography/CQKCity.h"
#include "geography/CQKCountry.h"
#include "geography/CQKProvince.h"
#include "weather/CQKWeather.h"
#include "weather/CQKWeatherDataAdmin.h"

namespace {

constexpr int kStations = 294;
constexpr int kProvinces = 34;

// Station i: province i % 34, position on a grid 0.01 rad apart; no weather file when i % 5 == 4.
const std::string& WeatherDatabase() {
  static const std::string path = [] {
    std::string p = (std::filesystem::temp_directory_path() / "qk_bench_weather.db").string();
    std::filesystem::remove(p);
    std::ifstream schemaFile(QK_SCHEMA_FILE);
    const std::string schema((std::istreambuf_iterator<char>(schemaFile)), std::istreambuf_iterator<char>());
    sqlite3* db = nullptr;
    sqlite3_open(p.c_str(), &db);
    sqlite3_exec(db, schema.c_str(), nullptr, nullptr, nullptr);
    sqlite3_exec(db, "BEGIN; INSERT INTO Country (Name) VALUES ('中国');", nullptr, nullptr, nullptr);
    for (int i = 0; i < kProvinces; ++i) {
      const std::string sql = "INSERT INTO Province (CId, Name) VALUES (1, '省" + std::to_string(i) + "')";
      sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr);
    }
    for (int i = 0; i < kStations; ++i) {
      const std::string epw = i % 5 == 4 ? "NULL" : "'station" + std::to_string(i) + ".epw'";
      const std::string sql =
          "INSERT INTO City (PId, Name) VALUES (" + std::to_string(i % kProvinces + 1) + ", '城市" + std::to_string(i) +
          "'); INSERT INTO Weather (CId, JD, WD, EpwName, XjKtSwGqWd, DjDqy, ZlYPjXdSd) VALUES (" + std::to_string(i + 1) +
          ", " + std::to_string(1.8 + 0.01 * (i % 20)) + ", " + std::to_string(0.3 + 0.01 * (i / 20)) + ", " + epw +
          ", 33.2, 1020.4, 45)";
      sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr);
    }
    sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
    sqlite3_close(db);
    return p;
  }();
  return path;
}

void InitRecords() {
  const CString path = CString::FromUtf8(WeatherDatabase());
  CQKCountry::S_Init(path, L"Country");
  CQKProvince::S_Init(path, L"Province");
  CQKCity::S_Init(path, L"City");
  CQKWeather::S_Init(path, L"Weather");
}

// The cities with (own) or without (borrowed) a weather file of their own, in turn.
int CityAt(int i, bool own) { return own ? (i % 200) / 4 * 5 + (i % 4) + 1 : (i % 58) * 5 + 5; }

void ClimateThroughAdmin(benchmark::State& state, bool own) {
  InitRecords();
  int i = 0;
  for (auto _ : state) {
    CQKWeather w;
    w.CId = CityAt(i++, own);
    benchmark::DoNotOptimize(CQKWeatherDataAdmin::GetWeatherByCityId(w));
  }
}

// One prepared query per call, every column of the row read by its type, then the three names.
void ClimateByHand(benchmark::State& state, bool own) {
  sqlite3* db = nullptr;
  sqlite3_open_v2(WeatherDatabase().c_str(), &db, SQLITE_OPEN_READWRITE, nullptr);
  auto run = [db](const std::string& sql, auto&& onRow) {
    sqlite3_stmt* st = nullptr;
    sqlite3_prepare_v2(db, sql.c_str(), -1, &st, nullptr);
    while (sqlite3_step(st) == SQLITE_ROW) onRow(st);
    sqlite3_finalize(st);
  };
  // Every column read by its type; the numbers kept in column order (ID, CId, DistrictCode, WD, JD, ...).
  auto readRow = [](sqlite3_stmt* st, std::vector<double>& values, std::string& epw) {
    values.clear();
    epw.clear();
    for (int c = 0; c < sqlite3_column_count(st); ++c) {
      if (std::strcmp(sqlite3_column_name(st, c), "EpwName") == 0) {
        if (const unsigned char* text = sqlite3_column_text(st, c)) epw = reinterpret_cast<const char*>(text);
      } else {
        values.push_back(sqlite3_column_double(st, c));
      }
    }
  };
  int i = 0;
  for (auto _ : state) {
    const int cityId = CityAt(i++, own);
    std::vector<double> values;
    std::string epw;
    long climateCity = cityId;
    run("select * from Weather where CId=" + std::to_string(cityId), [&](sqlite3_stmt* st) { readRow(st, values, epw); });
    if (epw.empty() && !values.empty()) {  // the nearest station with a file in the square of half-width 1.0
      const double wd = values[3], jd = values[4];
      double best = 1e300;
      std::vector<double> bestRow;
      std::string bestEpw;
      run("select * from Weather where JD between " + std::to_string(jd - 1) + " and " + std::to_string(jd + 1) +
              " and WD between " + std::to_string(wd - 1) + " and " + std::to_string(wd + 1),
          [&](sqlite3_stmt* st) {
            std::vector<double> row;
            std::string rowEpw;
            readRow(st, row, rowEpw);
            if (rowEpw.empty()) return;
            const double d = std::sqrt((row[4] - jd) * (row[4] - jd) + (row[3] - wd) * (row[3] - wd));
            if (d < best) {
              best = d;
              bestRow = std::move(row);
              bestEpw = rowEpw;
            }
          });
      if (!bestRow.empty()) {
        values = bestRow;
        epw = bestEpw;
        climateCity = static_cast<long>(values[1]);
      }
    }
    std::string names;
    long provinceId = 0, countryId = 0;
    run("select * from City where ID=" + std::to_string(climateCity), [&](sqlite3_stmt* st) {
      provinceId = sqlite3_column_int(st, 1);
      names = reinterpret_cast<const char*>(sqlite3_column_text(st, 2));
    });
    run("select * from Province where ID=" + std::to_string(provinceId), [&](sqlite3_stmt* st) {
      countryId = sqlite3_column_int(st, 1);
      names += reinterpret_cast<const char*>(sqlite3_column_text(st, 2));
    });
    run("select * from Country where ID=" + std::to_string(countryId),
        [&](sqlite3_stmt* st) { names += reinterpret_cast<const char*>(sqlite3_column_text(st, 1)); });
    benchmark::DoNotOptimize(names);
    benchmark::DoNotOptimize(values);
  }
  sqlite3_close(db);
}

void BM_CityClimate_Own_Admin(benchmark::State& state) { ClimateThroughAdmin(state, true); }
void BM_CityClimate_Own_RawSqlite(benchmark::State& state) { ClimateByHand(state, true); }
void BM_CityClimate_Borrowed_Admin(benchmark::State& state) { ClimateThroughAdmin(state, false); }
void BM_CityClimate_Borrowed_RawSqlite(benchmark::State& state) { ClimateByHand(state, false); }
BENCHMARK(BM_CityClimate_Own_Admin);
BENCHMARK(BM_CityClimate_Own_RawSqlite);
BENCHMARK(BM_CityClimate_Borrowed_Admin);
BENCHMARK(BM_CityClimate_Borrowed_RawSqlite);

// The six scaled items of Beijing's row, in memory units.
const double kScaledItems[6] = {102170.0, 100020.0, 0.44, 0.78, 0.58, 0.44};
const int kScaleExponents[6] = {-2, -2, 2, 2, 2, 2};
const double kScaleFactors[6] = {0.01, 0.01, 100.0, 100.0, 100.0, 100.0};

void BM_ScaledItems_DecimalPoint(benchmark::State& state) {
  for (auto _ : state)
    for (int i = 0; i < 6; ++i) benchmark::DoNotOptimize(QKLoad::ScaleByPowerOfTen(kScaledItems[i], kScaleExponents[i]));
}
void BM_ScaledItems_Multiply(benchmark::State& state) {
  for (auto _ : state)
    for (int i = 0; i < 6; ++i) {
      double v = kScaledItems[i];
      benchmark::DoNotOptimize(v);
      benchmark::DoNotOptimize(v * kScaleFactors[i]);
    }
}
BENCHMARK(BM_ScaledItems_DecimalPoint);
BENCHMARK(BM_ScaledItems_Multiply);

void BM_PlaceTree_Admin(benchmark::State& state) {
  InitRecords();
  CQKWeatherDataAdmin admin;
  for (auto _ : state) benchmark::DoNotOptimize(admin.GetCityNodes(1, false));
}
BENCHMARK(BM_PlaceTree_Admin);

// The same three ordered queries, each row made a node under its parent found by id.
void BM_PlaceTree_RawSqlite(benchmark::State& state) {
  struct Node {
    std::string name;
    long id;
    std::vector<std::unique_ptr<Node>> children;
  };
  sqlite3* db = nullptr;
  sqlite3_open_v2(WeatherDatabase().c_str(), &db, SQLITE_OPEN_READWRITE, nullptr);
  for (auto _ : state) {
    Node root{"*", -1, {}};
    auto level = [db](const char* sql, auto&& add) {
      sqlite3_stmt* st = nullptr;
      sqlite3_prepare_v2(db, sql, -1, &st, nullptr);
      while (sqlite3_step(st) == SQLITE_ROW) add(st);
      sqlite3_finalize(st);
    };
    auto childById = [](Node& parent, long id) -> Node* {
      for (auto& c : parent.children) {
        if (c->id == id) return c.get();
      }
      return nullptr;
    };
    level("select Id,Name from Country order by Id", [&](sqlite3_stmt* st) {
      root.children.push_back(std::make_unique<Node>(
          Node{reinterpret_cast<const char*>(sqlite3_column_text(st, 1)), sqlite3_column_int(st, 0), {}}));
    });
    level("select Id,CId,Name from Province order by CId,Id", [&](sqlite3_stmt* st) {
      if (Node* country = childById(root, sqlite3_column_int(st, 1))) {
        country->children.push_back(std::make_unique<Node>(
            Node{reinterpret_cast<const char*>(sqlite3_column_text(st, 2)), sqlite3_column_int(st, 0), {}}));
      }
    });
    level("select Id,PId,Name from City order by PId,Id", [&](sqlite3_stmt* st) {
      for (auto& country : root.children) {
        if (Node* province = childById(*country, sqlite3_column_int(st, 1))) {
          province->children.push_back(std::make_unique<Node>(
              Node{reinterpret_cast<const char*>(sqlite3_column_text(st, 2)), sqlite3_column_int(st, 0), {}}));
          break;
        }
      }
    });
    benchmark::DoNotOptimize(root);
  }
  sqlite3_close(db);
}
BENCHMARK(BM_PlaceTree_RawSqlite);

}  // namespace
