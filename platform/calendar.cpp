// Calendar arithmetic on ticks: days from civil date and back, after Howard Hinnant's published algorithms
// ("chrono-Compatible Low-Level Date Algorithms").
#include "platform/clock.h"

namespace platform {
namespace {

constexpr u64 kTicksPerSecond = 10'000'000;
constexpr u64 kTicksPerDay = kTicksPerSecond * 86'400;
constexpr std::int64_t kDaysFrom1601To1970 = 134'774;

std::int64_t DaysFromCivil(std::int64_t year, int month, int day) noexcept {
    if (month <= 2) --year;
    const std::int64_t era = (year >= 0 ? year : year - 399) / 400;
    const std::int64_t yearOfEra = year - era * 400;
    const std::int64_t dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    const std::int64_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * 146'097 + dayOfEra - 719'468;
}

void CivilFromDays(std::int64_t days, CalendarTime& out) noexcept {
    days += 719'468;
    const std::int64_t era = (days >= 0 ? days : days - 146'096) / 146'097;
    const std::int64_t dayOfEra = days - era * 146'097;
    const std::int64_t yearOfEra =
        (dayOfEra - dayOfEra / 1460 + dayOfEra / 36'524 - dayOfEra / 146'096) / 365;
    const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const std::int64_t shifted = (5 * dayOfYear + 2) / 153;
    out.day = static_cast<int>(dayOfYear - (153 * shifted + 2) / 5 + 1);
    out.month = static_cast<int>(shifted < 10 ? shifted + 3 : shifted - 9);
    out.year = static_cast<int>(yearOfEra + era * 400 + (out.month <= 2 ? 1 : 0));
}

bool InRange(int value, int low, int high) noexcept {
    return value >= low && value <= high;
}

}  // namespace

bool TicksToCalendar(u64 ticks, CalendarTime& out) noexcept {
    if (ticks >= 0x8000'0000'0000'0000) return false;
    CivilFromDays(static_cast<std::int64_t>(ticks / kTicksPerDay) - kDaysFrom1601To1970, out);
    const u64 rest = ticks % kTicksPerDay;
    const int second = static_cast<int>(rest / kTicksPerSecond);
    out.hour = second / 3600;
    out.minute = second / 60 % 60;
    out.second = second % 60;
    out.ticks = static_cast<u32>(rest % kTicksPerSecond);
    return true;
}

bool CalendarToTicks(const CalendarTime& time, u64& out) noexcept {
    if (!InRange(time.year, 1601, 30827) || !InRange(time.month, 1, 12) || !InRange(time.day, 1, 31) ||
        !InRange(time.hour, 0, 23) || !InRange(time.minute, 0, 59) || !InRange(time.second, 0, 59) ||
        time.ticks >= kTicksPerSecond) {
        return false;
    }
    const std::int64_t days = DaysFromCivil(time.year, time.month, time.day);
    CalendarTime check{};
    CivilFromDays(days, check);
    if (check.day != time.day) return false;  // the month has no such day
    const int seconds = time.hour * 3600 + time.minute * 60 + time.second;
    out = static_cast<u64>(days + kDaysFrom1601To1970) * kTicksPerDay +
          static_cast<u64>(seconds) * kTicksPerSecond + time.ticks;
    return out < 0x8000'0000'0000'0000;
}

}  // namespace platform
