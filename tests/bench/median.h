// The median time of some runs, for measuring without the benchmark library.
#pragma once

#include <algorithm>
#include <chrono>
#include <functional>
#include <vector>

// In milliseconds.
inline double MedianOf(int runs, const std::function<void()>& work) {
    using Clock = std::chrono::steady_clock;
    std::vector<double> times;
    for (int i = 0; i < runs; ++i) {
        const Clock::time_point start = Clock::now();
        work();
        times.push_back(std::chrono::duration<double, std::milli>(Clock::now() - start).count());
    }
    std::nth_element(times.begin(), times.begin() + runs / 2, times.end());
    return times[static_cast<std::size_t>(runs / 2)];
}
