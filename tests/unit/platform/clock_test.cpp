#include "platform/clock.h"

#include <gtest/gtest.h>

#include <ctime>
#include <random>
#include <tuple>

#include "platform/fault.h"

namespace {

using platform::CalendarTime;

constexpr u64 kSecond = 10'000'000;
constexpr u64 kDay = 86'400 * kSecond;
constexpr u64 kStartOf1970 = 116'444'736'000'000'000;

auto Fields(const CalendarTime& time) {
    return std::tuple(time.year, time.month, time.day, time.hour, time.minute, time.second, time.ticks);
}

CalendarTime Calendar(u64 ticks) {
    CalendarTime time{};
    EXPECT_TRUE(platform::TicksToCalendar(ticks, time));
    return time;
}

u64 Ticks(const CalendarTime& time) {
    u64 ticks = 0;
    EXPECT_TRUE(platform::CalendarToTicks(time, ticks));
    return ticks;
}

bool Exists(const CalendarTime& time) {
    u64 ticks = 0;
    return platform::CalendarToTicks(time, ticks);
}

TEST(Calendar, StartsWith1601) {
    EXPECT_EQ(Fields(Calendar(0)), std::tuple(1601, 1, 1, 0, 0, 0, 0U));
    EXPECT_EQ(Ticks({1601, 1, 1, 0, 0, 0, 0}), 0U);
}

TEST(Calendar, Knows1970) {
    EXPECT_EQ(Fields(Calendar(kStartOf1970)), std::tuple(1970, 1, 1, 0, 0, 0, 0U));
    EXPECT_EQ(Fields(Calendar(kStartOf1970 - 1)), std::tuple(1969, 12, 31, 23, 59, 59, 9'999'999U));
    EXPECT_EQ(Ticks({1970, 1, 1, 0, 0, 0, 0}), kStartOf1970);
}

TEST(Calendar, KnowsAMomentOfOurTime) {
    // 1,600,000,000 seconds after the start of 1970
    const u64 ticks = kStartOf1970 + 1'600'000'000 * kSecond + 1234;
    EXPECT_EQ(Fields(Calendar(ticks)), std::tuple(2020, 9, 13, 12, 26, 40, 1234U));
    EXPECT_EQ(Ticks({2020, 9, 13, 12, 26, 40, 1234}), ticks);
}

TEST(Calendar, HasLeapYearsByTheGregorianRule) {
    EXPECT_TRUE(Exists({2000, 2, 29, 0, 0, 0, 0}));
    EXPECT_TRUE(Exists({2024, 2, 29, 0, 0, 0, 0}));
    EXPECT_FALSE(Exists({1900, 2, 29, 0, 0, 0, 0}));
    EXPECT_FALSE(Exists({2023, 2, 29, 0, 0, 0, 0}));
    EXPECT_FALSE(Exists({2000, 2, 30, 0, 0, 0, 0}));
    EXPECT_EQ(Ticks({2000, 3, 1, 0, 0, 0, 0}) - Ticks({2000, 2, 28, 0, 0, 0, 0}), 2 * kDay);
    EXPECT_EQ(Ticks({2100, 3, 1, 0, 0, 0, 0}) - Ticks({2100, 2, 28, 0, 0, 0, 0}), kDay);
}

TEST(Calendar, RefusesNumbersThatItDoesNotHave) {
    const CalendarTime good{2020, 6, 15, 12, 30, 30, 5};
    EXPECT_TRUE(Exists(good));
    const auto with = [&](auto CalendarTime::*field, auto value) {
        CalendarTime time = good;
        time.*field = value;
        return Exists(time);
    };
    EXPECT_FALSE(with(&CalendarTime::year, 1600));
    EXPECT_FALSE(with(&CalendarTime::year, 30828));
    EXPECT_FALSE(with(&CalendarTime::month, 0));
    EXPECT_FALSE(with(&CalendarTime::month, 13));
    EXPECT_FALSE(with(&CalendarTime::day, 0));
    EXPECT_FALSE(with(&CalendarTime::day, 31));
    EXPECT_FALSE(with(&CalendarTime::day, 32));
    EXPECT_FALSE(with(&CalendarTime::hour, -1));
    EXPECT_FALSE(with(&CalendarTime::hour, 24));
    EXPECT_FALSE(with(&CalendarTime::minute, 60));
    EXPECT_FALSE(with(&CalendarTime::second, 60));
    EXPECT_FALSE(with(&CalendarTime::ticks, u32{10'000'000}));
}

TEST(Calendar, EndsWithTheSixtyThirdBit) {
    CalendarTime time{};
    EXPECT_TRUE(platform::TicksToCalendar(0x7FFF'FFFF'FFFF'FFFF, time));
    EXPECT_FALSE(platform::TicksToCalendar(0x8000'0000'0000'0000, time));
    EXPECT_FALSE(platform::TicksToCalendar(~u64{0}, time));
    EXPECT_TRUE(Exists({30827, 12, 31, 23, 59, 59, 9'999'999}));
}

TEST(Calendar, GoesThereAndBackAtAnyMoment) {
    std::mt19937_64 random(1);
    const u64 end = Ticks({30827, 12, 31, 23, 59, 59, 9'999'999});
    for (int i = 0; i < 20'000; ++i) {
        const u64 ticks = random() % end;
        ASSERT_EQ(Ticks(Calendar(ticks)), ticks);
    }
}

TEST(Calendar, FollowsDayAfterDay) {
    CalendarTime before = Calendar(0);
    for (u64 day = 1; day < 400 * 366; ++day) {
        const CalendarTime time = Calendar(day * kDay);
        const bool nextDay = time.day == before.day + 1 && time.month == before.month;
        const bool nextMonth = time.day == 1 && before.day >= 28 && time.month == before.month % 12 + 1 &&
                               time.year == before.year + (before.month == 12 ? 1 : 0);
        ASSERT_TRUE(nextDay || nextMonth) << time.year << '-' << time.month << '-' << time.day;
        before = time;
    }
}

TEST(Clock, AgreesWithTheStandardLibrary) {
    const auto before = static_cast<u64>(std::time(nullptr));
    const u64 seconds = platform::UnixSeconds();
    const u64 system = (platform::SystemTimeTicks() - kStartOf1970) / kSecond;
    const auto after = static_cast<u64>(std::time(nullptr));
    EXPECT_LE(before, seconds + 1);
    EXPECT_LE(seconds, after + 1);
    EXPECT_LE(before, system + 1);
    EXPECT_LE(system, after + 1);
}

TEST(Clock, TellsTheTimeOfThisPlace) {
    const std::time_t now = std::time(nullptr);
    const std::tm here = *std::localtime(&now);
    const u64 expected = Ticks({here.tm_year + 1900, here.tm_mon + 1, here.tm_mday, here.tm_hour, here.tm_min,
                                std::min(here.tm_sec, 59), 0});
    const u64 local = platform::LocalTimeTicks();
    EXPECT_GE(local + kSecond, expected);
    EXPECT_LE(local, expected + 10 * kSecond);
}

TEST(Clock, CountsWholeMilliseconds) {
    EXPECT_EQ(platform::SystemTimeTicks() % 10'000, 0U);
    EXPECT_EQ(platform::LocalTimeTicks() % 10'000, 0U);
}

TEST(Clock, StandsWhereATestSetsIt) {
    platform::SetClock(123'456, kStartOf1970 + 5 * kSecond);
    EXPECT_EQ(platform::LocalTimeTicks(), 123'456U);
    EXPECT_EQ(platform::SystemTimeTicks(), kStartOf1970 + 5 * kSecond);
    EXPECT_EQ(platform::UnixSeconds(), 5U);
    platform::ClearClock();
    EXPECT_GT(platform::LocalTimeTicks(), kStartOf1970);
}

}  // namespace
