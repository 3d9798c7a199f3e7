// The times of view_bench without the benchmark library, so that they can be measured in a Windows program
// too: medians in milliseconds of one run, one line each.
#include <cstdio>

#include "tests/bench/median.h"
#include "tests/bench/sample_view.h"

namespace {

constexpr const char* kModeNames[] = {"all", "exact", "any", "without"};
constexpr const char* kSortNames[] = {"none", "az", "za", "newold", "oldnew"};

}  // namespace

int main() {
    constexpr int kRuns = 11;
    for (const int sort : {SortNone, SortAZ, SortNewOld}) {
        for (const u32 mode : {FilterAll, FilterExact, FilterAny, FilterWithout}) {
            ItemView view;
            StartSampleView(view, mode, sort);
            const double time = MedianOf(kRuns, [&view] { view.Refresh(); });
            std::printf("refresh, mode %-8s sort %-7s %8.2f ms  %6zu rows\n", kModeNames[mode],
                        kSortNames[sort], time, view.Rows().size());
        }
    }
    const std::vector<ViewRow> unsorted = SampleRows();
    std::vector<ViewRow> rows;
    const auto sorted = [&](const std::function<void()>& sort) {
        return MedianOf(kRuns, [&] {
            rows = unsorted;
            sort();
        });
    };
    const double ours = sorted([&] { SortRows(SortAZ, rows); });
    const double plain = sorted([&] { SortPlainly(rows); });
    std::printf("sort of %zu names %22.2f ms, by plain comparisons %8.2f ms: a share of %.2f\n", rows.size(),
                ours, plain, ours / plain);
    return 0;
}
