// How long something takes, in milliseconds.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "tests/gui/harness.h"

// By the clock.
inline double ClockTime() {
    LARGE_INTEGER frequency{};
    LARGE_INTEGER ticks{};
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&ticks);
    return static_cast<double>(ticks.QuadPart) * 1000 / static_cast<double>(frequency.QuadPart);
}

// Of the processor for this thread, whatever else the machine does.
inline double ThreadTime() {
    constexpr double kTicks = 10000;  // in a millisecond
    FILETIME unused{};
    FILETIME kernel{};
    FILETIME user{};
    GetThreadTimes(GetCurrentThread(), &unused, &unused, &kernel, &user);
    const auto ticks = [](const FILETIME& time) {
        return (static_cast<u64>(time.dwHighDateTime) << 32) + time.dwLowDateTime;
    };
    return static_cast<double>(ticks(kernel) + ticks(user)) / kTicks;
}

// Does it, prints both times, records that of the clock under this name, and gives that of the thread.
template <typename Work>
double TimeOf(const std::string& what, const Work& work) {
    const double startsAt = ClockTime();
    const double startsWith = ThreadTime();
    work();
    const double milliseconds = ClockTime() - startsAt;
    const double own = ThreadTime() - startsWith;
    testing::Test::RecordProperty(what, std::to_string(milliseconds));
    std::printf("%s: %.1f ms, of the thread %.0f ms\n", what.c_str(), milliseconds, own);
    return own;
}
