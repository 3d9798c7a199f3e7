#include "cli/date_text.h"

#include "platform/clock.h"

namespace {

constexpr std::size_t kFractionDigits = 7;

// Takes exactly `count` decimal digits from the front.
bool TakeNumber(std::u16string_view& text, std::size_t count, int& number) {
    if (text.size() < count) return false;
    number = 0;
    for (const char16_t unit : text.substr(0, count)) {
        if (unit < u'0' || unit > u'9') return false;
        number = number * 10 + (unit - u'0');
    }
    text.remove_prefix(count);
    return true;
}

bool TakeMark(std::u16string_view& text, char16_t mark) {
    if (text.empty() || text.front() != mark) return false;
    text.remove_prefix(1);
    return true;
}

// What may stand behind the seconds.
bool TakeFraction(std::u16string_view& text, u32& ticks) {
    ticks = 0;
    if (text.empty()) return true;
    if (!TakeMark(text, u'.') || text.empty() || text.size() > kFractionDigits) return false;
    const std::size_t digits = text.size();
    int number = 0;
    if (!TakeNumber(text, digits, number)) return false;
    ticks = static_cast<u32>(number);
    for (std::size_t i = digits; i < kFractionDigits; ++i)
        ticks *= 10;
    return true;
}

void AppendNumber(std::string& text, u32 number, std::size_t digits) {
    char reversed[10];
    std::size_t count = 0;
    for (; count < digits || number != 0; number /= 10)
        reversed[count++] = static_cast<char>('0' + number % 10);
    while (count > 0)
        text.push_back(reversed[--count]);
}

// "2024-09-05" and "12:34:56" with the mark between them.
std::string FormatSeconds(const platform::CalendarTime& time, char mark) {
    struct Part {
        std::size_t digits;
        int number;
        char mark;  // behind it
    };
    const Part parts[] = {{4, time.year, '-'}, {2, time.month, '-'},  {2, time.day, mark},
                          {2, time.hour, ':'}, {2, time.minute, ':'}, {2, time.second, '.'}};
    std::string text;
    for (const Part& part : parts) {
        AppendNumber(text, static_cast<u32>(part.number), part.digits);
        text.push_back(part.mark);
    }
    text.pop_back();
    return text;
}

}  // namespace

std::string FormatIsoDate(u64 date) {
    platform::CalendarTime time{};
    if (!platform::TicksToCalendar(date, time)) return {};
    std::string text = FormatSeconds(time, 'T').append(".");
    AppendNumber(text, time.ticks, kFractionDigits);
    return text;
}

std::string FormatPlainDate(u64 date) {
    platform::CalendarTime time{};
    return platform::TicksToCalendar(date, time) ? FormatSeconds(time, ' ') : std::string();
}

bool ParseIsoDate(std::u16string_view text, u64& date) {
    const std::size_t yearEnd = text.find(u'-');
    constexpr std::size_t kShortestYear = 4;
    constexpr std::size_t kLongestYear = 5;
    if (yearEnd != kShortestYear && yearEnd != kLongestYear) return false;
    platform::CalendarTime time{};
    const bool read =
        TakeNumber(text, yearEnd, time.year) && TakeMark(text, u'-') && TakeNumber(text, 2, time.month) &&
        TakeMark(text, u'-') && TakeNumber(text, 2, time.day) && TakeMark(text, u'T') &&
        TakeNumber(text, 2, time.hour) && TakeMark(text, u':') && TakeNumber(text, 2, time.minute) &&
        TakeMark(text, u':') && TakeNumber(text, 2, time.second) && TakeFraction(text, time.ticks);
    u64 ticks = 0;
    if (!read || !platform::CalendarToTicks(time, ticks)) return false;
    date = ticks;
    return true;
}

bool ParseHexDate(std::u16string_view text, u64& date) {
    constexpr std::size_t kMostDigits = 16;
    if (!text.starts_with(u"0x") || text.size() < 3 || text.size() > 2 + kMostDigits) return false;
    u64 value = 0;
    for (const char16_t unit : text.substr(2)) {
        const bool isDigit = unit >= u'0' && unit <= u'9';
        const bool isLetter = (unit | 0x20) >= u'a' && (unit | 0x20) <= u'f';
        if (!isDigit && !isLetter) return false;
        value = value * 16 + static_cast<u64>(isDigit ? unit - u'0' : (unit | 0x20) - u'a' + 10);
    }
    date = value;
    return true;
}
