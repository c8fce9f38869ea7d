// What one wall calculation costs: CQKWallData's Cal(1) then Cal(0), the pair the tool and the
// catalogue run after every change (winter U, then the whole summer calculation: U, harmonics,
// decrement and delay, the four response series), for three walls from light to heavy:
//   - light:  a steel sandwich panel, 0.6 mm steel / 100 mm polyurethane / 0.6 mm steel;
//   - medium: 20 mm cement mortar / 240 mm brick / 20 mm lime plaster;
//   - heavy:  20 mm cement mortar / 600 mm reinforced concrete / 20 mm lime plaster;
// and tagQKWALLCHARACTER::K alone (the steady U, 1/ΣR) on the same layers, as the floor under it.
//
// The Time column is ns per wall (one iteration is one wall); items_per_second is walls per second;
// allocs_per_wall counts the heap allocations (operator new) one wall makes. That count comes from the
// replacement of the global operator new/delete below, which covers the whole qk_bench program
// (a thread-local increment, too cheap to move the other benchmarks).
// Run: build/default/bench/qk_bench --benchmark_filter=Wall --benchmark_repetitions=5
//        --benchmark_report_aggregates_only=true

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdlib>
#include <initializer_list>
#include <new>

#include "construction/CQKTimberingData.h"
#include "construction/CQKWallData.h"
#include "construction/tagQKWALLCHARACTER.h"

namespace {

// Allocations made on this thread; benchmarks run on one thread, so this is the benchmark's count.
thread_local std::size_t t_allocations = 0;

void* CountedAllocation(std::size_t size) {
  ++t_allocations;
  if (void* p = std::malloc(size == 0 ? 1 : size)) return p;
  throw std::bad_alloc();
}

}  // namespace

// The nothrow forms of the C++ library call these, so they are counted too. Aligned allocations (of
// over-aligned types) are not.
void* operator new(std::size_t size) { return CountedAllocation(size); }
void* operator new[](std::size_t size) { return CountedAllocation(size); }
void operator delete(void* p) noexcept { std::free(p); }
void operator delete[](void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }
void operator delete[](void* p, std::size_t) noexcept { std::free(p); }

namespace {

struct Layer {
  double thick;         // m
  double conductivity;  // W/(m·K)
  double density;       // kg/m³
  double specificHeat;  // kJ/(kg·K)
};

CQKWallData MakeWall(std::initializer_list<Layer> layers) {
  CQKWallData wall;
  wall.SetNHrXsData(8.7, false);
  wall.SetWHrXsData(18.6, false);
  wall.SetDjWHrXsData(23.0, false);
  for (const Layer& l : layers) {
    CQKTimberingData layer;
    layer.SetThick(l.thick);
    layer.SetDrXs(l.conductivity);
    layer.SetGMD(l.density);
    layer.SetBRr(l.specificHeat);
    layer.SetDrXsXz(1.0);
    wall.AddTimberingData(layer, false);
  }
  return wall;
}

CQKWallData Light() {
  return MakeWall({{0.0006, 58.2, 7850, 0.48}, {0.100, 0.033, 40, 1.38}, {0.0006, 58.2, 7850, 0.48}});
}
CQKWallData Medium() {
  return MakeWall({{0.020, 0.93, 1800, 1.05}, {0.240, 0.81, 1800, 1.05}, {0.020, 0.81, 1600, 1.05}});
}
CQKWallData Heavy() {
  return MakeWall({{0.020, 0.93, 1800, 1.05}, {0.600, 1.74, 2500, 0.92}, {0.020, 0.81, 1600, 1.05}});
}

void ReportPerWall(benchmark::State& state, std::size_t allocations) {
  state.SetItemsProcessed(state.iterations());
  state.counters["allocs_per_wall"] =
      benchmark::Counter(static_cast<double>(allocations), benchmark::Counter::kAvgIterations);
}

void BM_WallCalculation(benchmark::State& state, CQKWallData (*make)()) {
  CQKWallData wall = make();
  std::size_t allocations = 0;
  for (auto _ : state) {
    std::size_t before = t_allocations;
    wall.Cal(1);
    wall.Cal(0);
    allocations += t_allocations - before;
    benchmark::DoNotOptimize(wall.CrXs);
    benchmark::DoNotOptimize(wall.Response4);
    benchmark::ClobberMemory();
  }
  ReportPerWall(state, allocations);
}

void BM_WallK(benchmark::State& state, CQKWallData (*make)()) {
  const CQKLayerArray layers = make().GetTimberingData();
  std::size_t allocations = 0;
  for (auto _ : state) {
    std::size_t before = t_allocations;
    double u = tagQKWALLCHARACTER::K(layers, 18.6, 8.7);
    allocations += t_allocations - before;
    benchmark::DoNotOptimize(u);
  }
  ReportPerWall(state, allocations);
}

}  // namespace

BENCHMARK_CAPTURE(BM_WallCalculation, light_steel_sandwich, &Light)->Unit(benchmark::kNanosecond);
BENCHMARK_CAPTURE(BM_WallCalculation, medium_brick_240, &Medium)->Unit(benchmark::kNanosecond);
BENCHMARK_CAPTURE(BM_WallCalculation, heavy_concrete_600, &Heavy)->Unit(benchmark::kNanosecond);
BENCHMARK_CAPTURE(BM_WallK, light_steel_sandwich, &Light)->Unit(benchmark::kNanosecond);
BENCHMARK_CAPTURE(BM_WallK, medium_brick_240, &Medium)->Unit(benchmark::kNanosecond);
BENCHMARK_CAPTURE(BM_WallK, heavy_concrete_600, &Heavy)->Unit(benchmark::kNanosecond);
