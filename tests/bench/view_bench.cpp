// The view of a list on each keystroke, and the order of names beside the platform's plain comparison.
#include <benchmark/benchmark.h>

#include "tests/bench/sample_view.h"

namespace {

// Match and order.
void Refresh(benchmark::State& state) {
    ItemView view;
    StartSampleView(view, static_cast<u32>(state.range(0)), static_cast<int>(state.range(1)));
    for (auto _ : state)
        view.Refresh();
    state.counters["rows"] = static_cast<double>(view.Rows().size());
}

void SortNames(benchmark::State& state) {
    const std::vector<ViewRow> unsorted = SampleRows();
    for (auto _ : state) {
        std::vector<ViewRow> rows = unsorted;
        SortRows(SortAZ, rows);
        benchmark::DoNotOptimize(rows.data());
    }
}

void SortNamesPlainly(benchmark::State& state) {
    const std::vector<ViewRow> unsorted = SampleRows();
    for (auto _ : state) {
        std::vector<ViewRow> rows = unsorted;
        SortPlainly(rows);
        benchmark::DoNotOptimize(rows.data());
    }
}

BENCHMARK(Refresh)
    ->ArgsProduct({{FilterAll, FilterExact, FilterAny, FilterWithout}, {SortNone, SortAZ, SortNewOld}})
    ->ArgNames({"mode", "sort"})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(SortNames)->Unit(benchmark::kMillisecond);
BENCHMARK(SortNamesPlainly)->Unit(benchmark::kMillisecond);

}  // namespace
