// The clock, in 100-nanosecond ticks since the start of 1601.
#pragma once

#include "platform/types.h"

namespace platform {

// The present wall-clock time of this place, counted as if it were UTC (no time zone conversion).
u64 LocalTimeTicks() noexcept;

// The present time in UTC.
u64 SystemTimeTicks() noexcept;

// Whole seconds since the start of 1970, UTC.
u64 UnixSeconds() noexcept;

// A moment broken down into the calendar of the Gregorian proleptic rule.
struct CalendarTime {
    int year, month, day, hour, minute, second;
    u32 ticks;  // of the running second, below 10,000,000
};

// Ticks to calendar and back, without time zones. False for ticks from 2^63 on, and for a calendar time with
// a year outside 1601 to 30827 or any other number that the calendar does not have.
bool TicksToCalendar(u64 ticks, CalendarTime& out) noexcept;
bool CalendarToTicks(const CalendarTime& time, u64& out) noexcept;

}  // namespace platform
