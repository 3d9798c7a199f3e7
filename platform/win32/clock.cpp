#include "platform/clock.h"

#include "platform/fault.h"
#include "platform/windows_api.h"

namespace platform {
namespace {

constexpr u64 kSecondsFrom1601To1970 = 11'644'473'600;
constexpr u64 kTicksPerSecond = 10'000'000;

u64 TicksOf(const SYSTEMTIME& calendar) noexcept {
    FILETIME time{};
    SystemTimeToFileTime(&calendar, &time);
    return static_cast<u64>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
}

}  // namespace

u64 LocalTimeTicks() noexcept {
    u64 local = 0;
    u64 system = 0;
    if (ClockIsSet(local, system)) return local;
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return TicksOf(now);
}

u64 SystemTimeTicks() noexcept {
    u64 local = 0;
    u64 system = 0;
    if (ClockIsSet(local, system)) return system;
    SYSTEMTIME now{};
    GetSystemTime(&now);
    return TicksOf(now);
}

u64 UnixSeconds() noexcept {
    return SystemTimeTicks() / kTicksPerSecond - kSecondsFrom1601To1970;
}

}  // namespace platform
