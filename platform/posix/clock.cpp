#include "platform/clock.h"

#include <ctime>

#include "platform/fault.h"

namespace platform {
namespace {

constexpr u64 kSecondsFrom1601To1970 = 11'644'473'600;
constexpr u64 kTicksPerSecond = 10'000'000;

// Whole milliseconds, as the system's calendar on Windows tells them.
u64 TicksOf(std::time_t seconds, long nanoseconds) noexcept {
    return (static_cast<u64>(seconds) + kSecondsFrom1601To1970) * kTicksPerSecond +
           static_cast<u64>(nanoseconds) / 1'000'000 * 10'000;
}

std::timespec Now() noexcept {
    std::timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return now;
}

}  // namespace

u64 LocalTimeTicks() noexcept {
    u64 local = 0;
    u64 system = 0;
    if (ClockIsSet(local, system)) return local;
    const std::timespec now = Now();
    std::tm calendar{};
    localtime_r(&now.tv_sec, &calendar);
    return TicksOf(now.tv_sec + calendar.tm_gmtoff, now.tv_nsec);
}

u64 SystemTimeTicks() noexcept {
    u64 local = 0;
    u64 system = 0;
    if (ClockIsSet(local, system)) return system;
    const std::timespec now = Now();
    return TicksOf(now.tv_sec, now.tv_nsec);
}

u64 UnixSeconds() noexcept {
    return SystemTimeTicks() / kTicksPerSecond - kSecondsFrom1601To1970;
}

}  // namespace platform
