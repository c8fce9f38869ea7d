// What the platform layer costs over doing the same work by hand, side by side on the same data:
//   - a lookup by name through CADORecordset (dialect translation, materialised rows, conversions)
//     against a raw prepared sqlite3 statement, and the same lookup through a record (CQKCity);
//   - writing and reading a value's worth of items through CADataStream against plain memcpy into a
//     byte vector.
// Run: build/default/bench/qk_bench --benchmark_repetitions=3 --benchmark_report_aggregates_only=true

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "datakit/CADataStream.h"
#include "geography/CQKCity.h"
#include "mfc/CString.h"
#include "tablekit/CADODatabase.h"
#include "tablekit/CADORecordset.h"

namespace {

constexpr int kCities = 2000;

// A city table of kCities rows, made once per process.
const std::string& CityDatabase() {
  static const std::string path = [] {
    std::string p = (std::filesystem::temp_directory_path() / "qk_bench_cities.db").string();
    std::filesystem::remove(p);
    sqlite3* db = nullptr;
    sqlite3_open(p.c_str(), &db);
    sqlite3_exec(db,
                 "CREATE TABLE City (ID INTEGER PRIMARY KEY AUTOINCREMENT, PId INTEGER, Name TEXT COLLATE NOCASE);"
                 "CREATE INDEX CityName ON City (Name);",
                 nullptr, nullptr, nullptr);
    sqlite3_exec(db, "BEGIN", nullptr, nullptr, nullptr);
    for (int i = 0; i < kCities; ++i) {
      std::string sql = "INSERT INTO City (PId, Name) VALUES (" + std::to_string(i % 34) + ", '城市" +
                        std::to_string(i) + "')";
      sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr);
    }
    sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
    sqlite3_close(db);
    return p;
  }();
  return path;
}

void BM_LookupByName_Recordset(benchmark::State& state) {
  CADODatabase db;
  db.OpenAccess(CString::FromUtf8(CityDatabase()), L"", L"");
  int i = 0;
  for (auto _ : state) {
    CString sql;
    sql.Format(L"select * from City where PId=%d and Name=\"城市%d\"", i % 34, i);
    CADORecordset rs(&db);
    rs.Open(sql);
    long id = 0;
    CString name;
    rs.GetFieldValue(L"ID", id);
    rs.GetFieldValue(L"Name", name);
    benchmark::DoNotOptimize(id);
    i = (i + 1) % kCities;
  }
}
BENCHMARK(BM_LookupByName_Recordset);

// The same lookup as a host makes it: CQKCity::IsExist, whose row reaches the record through the
// named exchange and the property store.
void BM_LookupByName_CityRecord(benchmark::State& state) {
  CQKCity::S_Init(CString::FromUtf8(CityDatabase()), L"City");
  int i = 0;
  for (auto _ : state) {
    CQKCity city;
    city.PId = i % 34;
    city.Name.Format(L"城市%d", i);
    benchmark::DoNotOptimize(city.IsExist(nullptr));
    i = (i + 1) % kCities;
  }
}
BENCHMARK(BM_LookupByName_CityRecord);

void BM_LookupByName_RawSqlite(benchmark::State& state) {
  sqlite3* db = nullptr;
  sqlite3_open_v2(CityDatabase().c_str(), &db, SQLITE_OPEN_READWRITE, nullptr);
  int i = 0;
  for (auto _ : state) {
    // Formatted text, prepared per call, as the library's queries are.
    std::string sql = "select * from City where PId=" + std::to_string(i % 34) + " and Name='城市" + std::to_string(i) + "'";
    sqlite3_stmt* st = nullptr;
    sqlite3_prepare_v2(db, sql.c_str(), -1, &st, nullptr);
    long id = 0;
    std::string name;
    while (sqlite3_step(st) == SQLITE_ROW) {
      id = static_cast<long>(sqlite3_column_int64(st, 0));
      name = reinterpret_cast<const char*>(sqlite3_column_text(st, 2));
    }
    sqlite3_finalize(st);
    benchmark::DoNotOptimize(id);
    i = (i + 1) % kCities;
  }
  sqlite3_close(db);
}
BENCHMARK(BM_LookupByName_RawSqlite);

// About what one weather value writes: 120 doubles, 20 ints, 6 strings.
void BM_StreamRoundTrip_CADataStream(benchmark::State& state) {
  const CString city = L"北京市";
  for (auto _ : state) {
    CADataStream out;
    for (int k = 0; k < 120; ++k) out.WriteItem(k * 0.5);
    for (int k = 0; k < 20; ++k) out.WriteItem(k);
    for (int k = 0; k < 6; ++k) out.WriteItem(city);
    CADataStream in(out.GetBytes().data(), out.GetSize());
    double d;
    int n;
    CString s;
    for (int k = 0; k < 120; ++k) in.ReadItem(&d);
    for (int k = 0; k < 20; ++k) in.ReadItem(&n);
    for (int k = 0; k < 6; ++k) in.ReadItem(&s);
    benchmark::DoNotOptimize(s);
  }
}
BENCHMARK(BM_StreamRoundTrip_CADataStream);

void BM_StreamRoundTrip_Memcpy(benchmark::State& state) {
  const std::u16string city = u"北京市";
  for (auto _ : state) {
    std::vector<std::uint8_t> out;
    auto put = [&out](const void* p, std::size_t n) {
      auto b = static_cast<const std::uint8_t*>(p);
      out.insert(out.end(), b, b + n);
    };
    for (int k = 0; k < 120; ++k) {
      double v = k * 0.5;
      put(&v, 8);
    }
    for (int k = 0; k < 20; ++k) put(&k, 4);
    for (int k = 0; k < 6; ++k) {
      std::int32_t len = static_cast<std::int32_t>(city.size());
      put(&len, 4);
      put(city.data(), city.size() * 2);
    }
    std::vector<std::uint8_t> in(out);
    std::size_t pos = 0;
    double d;
    std::int32_t n;
    std::u16string s;
    for (int k = 0; k < 120; ++k, pos += 8) std::memcpy(&d, &in[pos], 8);
    for (int k = 0; k < 20; ++k, pos += 4) std::memcpy(&n, &in[pos], 4);
    for (int k = 0; k < 6; ++k) {
      std::memcpy(&n, &in[pos], 4);
      s.assign(reinterpret_cast<const char16_t*>(&in[pos + 4]), static_cast<std::size_t>(n));
      pos += 4 + 2 * static_cast<std::size_t>(n);
    }
    benchmark::DoNotOptimize(s);
  }
}
BENCHMARK(BM_StreamRoundTrip_Memcpy);

}  // namespace

BENCHMARK_MAIN();
