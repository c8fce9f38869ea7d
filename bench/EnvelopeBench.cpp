// What assembling an envelope type's walls costs through the catalogue administration over the same
// reads done by hand, side by side on the same data: a reference database built from the schema with
// one envelope type of 40 codes, each a bounding structure of three layers taken from 30
// constructions. The argument says whether the walls are computed (winter, then summer): with 1 both
// sides do the same calculation, with 0 only the reads and the layer assembly are compared, that is
// what the records add: the dialect layer, the record sets read whole, the named items.
// A third side runs the library's own query texts (select *, each prepared and finalised per call, every
// column of every row read) with the layers made as by hand: what SQLite costs for the queries the
// records make, so that what the records themselves add stands apart.
// Run: build/default/bench/qk_bench --benchmark_filter='TypeWalls' --benchmark_repetitions=5
//        --benchmark_report_aggregates_only=true

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "construction/CQKTimbering.h"
#include "construction/CQKTimberingData.h"
#include "construction/CQKWallData.h"
#include "envelope/CQKBSCode.h"
#include "envelope/CQKBSDataAdmin.h"
#include "envelope/CQKBSType.h"
#include "envelope/CQKBoundingStructure.h"
#include "foundation/CLxArray.h"

namespace {

constexpr int kCodes = 40;
constexpr int kConstructions = 30;

// Construction c: density 600 + 50c kg/m³, conductivity 0.1 + 0.05c W/(m·K), specific heat 0.84
// kJ/(kg·K). Code k: constructions k % 30 + 1, (k + 7) % 30 + 1, (k + 13) % 30 + 1, thicknesses 20,
// 100 + 5k and 20 mm, no correction on the outer layers and 1.1 on the middle one.
const std::string& CatalogueDatabase() {
  static const std::string path = [] {
    std::string p = (std::filesystem::temp_directory_path() / "qk_bench_envelope.db").string();
    std::filesystem::remove(p);
    std::ifstream schemaFile(QK_SCHEMA_FILE);
    const std::string schema((std::istreambuf_iterator<char>(schemaFile)), std::istreambuf_iterator<char>());
    sqlite3* db = nullptr;
    sqlite3_open(p.c_str(), &db);
    sqlite3_exec(db, schema.c_str(), nullptr, nullptr, nullptr);
    std::string sql =
        "BEGIN; INSERT INTO TimberingType (Name) VALUES ('墙体材料'); INSERT INTO BSCategory (Name, OrderId) "
        "VALUES ('外墙', 1); INSERT INTO BSType (Name, BSDLId) VALUES ('砖墙', 1);";
    for (int c = 0; c < kConstructions; ++c) {
      sql += "INSERT INTO Timbering (TTId, Name, GMD, DrXs, BRr) VALUES (1, '材料" + std::to_string(c) + "', " +
             std::to_string(600 + 50 * c) + ", " + std::to_string(0.1 + 0.05 * c) + ", 0.84);";
    }
    for (int k = 0; k < kCodes; ++k) {
      const std::string ids = std::to_string(k % kConstructions + 1) + "," +
                              std::to_string((k + 7) % kConstructions + 1) + "," +
                              std::to_string((k + 13) % kConstructions + 1);
      sql += "INSERT INTO BSCode (BSTId, Name) VALUES (1, '砖墙" + std::to_string(k) + "');";
      sql += "INSERT INTO BoundingStructure (BSCId, TIdS, HouDuS, XzXsS) VALUES (" + std::to_string(k + 1) + ", '" +
             ids + "', '20," + std::to_string(100 + 5 * k) + ",20', '1,1.1,1');";
    }
    sql += "COMMIT;";
    sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr);
    sqlite3_close(db);
    return p;
  }();
  return path;
}

// The numbers of a comma-separated list, as the bounding structure keeps its layers.
std::vector<double> SplitList(const std::string& s) {
  std::vector<double> values;
  for (std::size_t start = 0; start < s.size();) {
    std::size_t end = s.find(',', start);
    if (end == std::string::npos) end = s.size();
    values.push_back(std::stod(s.substr(start, end - start)));
    start = end + 1;
  }
  return values;
}

void BM_TypeWalls_Admin(benchmark::State& state) {
  const CString path = CString::FromUtf8(CatalogueDatabase());
  CQKTimbering::S_Init(path, L"Timbering");
  CQKBSCode::S_Init(path, L"BSCode");
  CQKBoundingStructure::S_Init(path, L"BoundingStructure");
  CQKBSType type;
  type.SetID(1);
  CQKBSDataAdmin admin;
  const CQKCrXs crxs;
  const bool calculate = state.range(0) != 0;
  for (auto _ : state) {
    CLxArray<CQKWallData> walls;
    admin.GetBSCodeCWallDataAry(type, walls, calculate, crxs);
    benchmark::DoNotOptimize(walls.GetSize());
  }
}
BENCHMARK(BM_TypeWalls_Admin)->Arg(0)->Arg(1);

// The same reads with prepared statements: the codes in Id order, each code's bounding structure, each
// layer's construction by key; the lists split by hand.
void BM_TypeWalls_RawSqlite(benchmark::State& state) {
  sqlite3* db = nullptr;
  sqlite3_open_v2(CatalogueDatabase().c_str(), &db, SQLITE_OPEN_READWRITE, nullptr);
  sqlite3_stmt* codes = nullptr;
  sqlite3_stmt* structure = nullptr;
  sqlite3_stmt* construction = nullptr;
  sqlite3_prepare_v2(db, "select ID, Name from BSCode where BSTId = ?1 order by Id", -1, &codes, nullptr);
  sqlite3_prepare_v2(db, "select TIdS, HouDuS, XzXsS from BoundingStructure where BSCId = ?1", -1, &structure,
                     nullptr);
  sqlite3_prepare_v2(db, "select Name, GMD, DrXs, BRr from Timbering where ID = ?1", -1, &construction, nullptr);
  auto split = [](const unsigned char* text) { return SplitList(text ? reinterpret_cast<const char*>(text) : ""); };
  const bool calculate = state.range(0) != 0;
  for (auto _ : state) {
    CLxArray<CQKWallData> walls;
    sqlite3_bind_int(codes, 1, 1);
    while (sqlite3_step(codes) == SQLITE_ROW) {
      CQKWallData wall;
      wall.Name = CString::FromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(codes, 1)));
      sqlite3_bind_int(structure, 1, sqlite3_column_int(codes, 0));
      CLxArray<CQKTimberingData> layers;
      if (sqlite3_step(structure) == SQLITE_ROW) {
        const std::vector<double> ids = split(sqlite3_column_text(structure, 0));
        const std::vector<double> mm = split(sqlite3_column_text(structure, 1));
        const std::vector<double> factors = split(sqlite3_column_text(structure, 2));
        for (std::size_t i = 0; i < ids.size(); ++i) {
          sqlite3_bind_int(construction, 1, static_cast<int>(ids[i]));
          CQKTimberingData layer;
          if (sqlite3_step(construction) == SQLITE_ROW) {
            layer.SetStuffName(CString::FromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(construction, 0))));
            layer.SetGMD(sqlite3_column_double(construction, 1));
            layer.SetDrXs(sqlite3_column_double(construction, 2));
            layer.SetBRr(sqlite3_column_double(construction, 3));
          }
          sqlite3_reset(construction);
          layer.SetThick(mm[i] / 1000.0);
          layer.SetDrXsXz(factors[i]);
          layers.Add(layer);
        }
      }
      sqlite3_reset(structure);
      wall.SetTimbering(layers, false);
      if (calculate) {
        wall.Cal(1);
        wall.Cal(0);
      }
      walls.Add(wall);
    }
    sqlite3_reset(codes);
    benchmark::DoNotOptimize(walls.GetSize());
  }
  sqlite3_finalize(codes);
  sqlite3_finalize(structure);
  sqlite3_finalize(construction);
  sqlite3_close(db);
}
BENCHMARK(BM_TypeWalls_RawSqlite)->Arg(0)->Arg(1);

// Every column of every row of sql, each read as the type it is stored with, as the records read them.
struct Row {
  std::vector<double> numbers;
  std::vector<std::string> texts;
};
std::vector<Row> SelectEvery(sqlite3* db, const std::string& sql) {
  std::vector<Row> rows;
  sqlite3_stmt* st = nullptr;
  sqlite3_prepare_v2(db, sql.c_str(), -1, &st, nullptr);
  while (sqlite3_step(st) == SQLITE_ROW) {
    Row& row = rows.emplace_back();
    for (int c = 0; c < sqlite3_column_count(st); ++c) {
      if (sqlite3_column_type(st, c) == SQLITE_TEXT) {
        row.texts.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(st, c)));
      } else {
        row.numbers.push_back(sqlite3_column_double(st, c));
      }
    }
  }
  sqlite3_finalize(st);
  return rows;
}

// The library's queries by hand: the codes of the type, each code's bounding structure, each layer's
// construction by key, with the texts the records send (after the dialect layer). Columns by position
// in the schema: BSCode (ID, BSTId, Name, ...), BoundingStructure (ID, BSCId, TIdS, HouDuS, XzXsS, ...),
// Timbering (ID, TTId, Name, GMD, DrXs, BRr, ...).
void BM_TypeWalls_RawLibraryQueries(benchmark::State& state) {
  sqlite3* db = nullptr;
  sqlite3_open_v2(CatalogueDatabase().c_str(), &db, SQLITE_OPEN_READWRITE, nullptr);
  const auto split = SplitList;
  for (auto _ : state) {
    CLxArray<CQKWallData> walls;
    for (const Row& code : SelectEvery(db, "select * from BSCode where BSTId = 1 order by Id")) {
      CQKWallData wall;
      wall.Name = CString::FromUtf8(code.texts.at(0));
      CLxArray<CQKTimberingData> layers;
      const std::vector<Row> structure =
          SelectEvery(db, "select * from BoundingStructure where BSCId=" + std::to_string(static_cast<int>(code.numbers.at(0))));
      if (!structure.empty()) {
        const std::vector<double> ids = split(structure[0].texts.at(0));
        const std::vector<double> mm = split(structure[0].texts.at(1));
        const std::vector<double> factors = split(structure[0].texts.at(2));
        for (std::size_t i = 0; i < ids.size(); ++i) {
          CQKTimberingData layer;
          for (const Row& c : SelectEvery(db, "select * from \"Timbering\" where ID=" + std::to_string(static_cast<long>(ids[i])))) {
            layer.SetStuffName(CString::FromUtf8(c.texts.at(0)));
            layer.SetGMD(c.numbers.at(2));
            layer.SetDrXs(c.numbers.at(3));
            layer.SetBRr(c.numbers.at(4));
          }
          layer.SetThick(mm[i] / 1000.0);
          layer.SetDrXsXz(factors[i]);
          layers.Add(layer);
        }
      }
      wall.SetTimbering(layers, false);
      walls.Add(wall);
    }
    benchmark::DoNotOptimize(walls.GetSize());
  }
  sqlite3_close(db);
}
BENCHMARK(BM_TypeWalls_RawLibraryQueries);

}  // namespace
