// The median time of some runs, for measuring without the benchmark library.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

inline double Median(std::vector<double> times) {
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

// All in milliseconds.

inline double TimeOf(const std::function<void()>& work) {
    using Clock = std::chrono::steady_clock;
    const Clock::time_point start = Clock::now();
    work();
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

inline double MedianOf(int runs, const std::function<void()>& work) {
    std::vector<double> times;
    for (int i = 0; i < runs; ++i)
        times.push_back(TimeOf(work));
    return Median(std::move(times));
}

struct Medians {
    double first;
    double second;
};

// In turn, so that what else the machine does slows down both.
inline Medians MediansOf(int runs, const std::function<void()>& first, const std::function<void()>& second) {
    std::vector<double> ofFirst;
    std::vector<double> ofSecond;
    for (int i = 0; i < runs; ++i) {
        ofFirst.push_back(TimeOf(first));
        ofSecond.push_back(TimeOf(second));
    }
    return {Median(std::move(ofFirst)), Median(std::move(ofSecond))};
}
