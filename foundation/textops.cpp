#include "foundation/textops.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

#include "platform/text.h"

bool Equal(const tvstring& a, const tvstring& b) {
    return a == b;
}

bool EqualNoCase(const tvstring& a, const tvstring& b) {
    return a.size() == b.size() && CompareNoCase(a, b) == 0;
}

int CompareNoCase(const tvstring& a, const tvstring& b) {
    return platform::CompareOrdinalNoCase(a.data(), a.size(), b.data(), b.size());
}

int CompareNatural(const tvstring& a, const tvstring& b) {
    return platform::CompareNatural(a.data(), a.size(), b.data(), b.size());
}

std::size_t FindNoCase(const tvstring& text, const tvstring& word) {
    if (text.empty() || word.empty()) return kNoPosition;
    return platform::FindNoCase(text.c_str(), word.c_str());
}

tvstring ToLowerAscii(const tvstring& text) {
    tvstring lower(text);
    for (char16_t& unit : lower) {
        if (unit >= u'A' && unit <= u'Z') unit = static_cast<char16_t>(unit + (u'a' - u'A'));
    }
    return lower;
}

std::u16string_view TrimmedView(std::u16string_view text, std::u16string_view set, unsigned flags) {
    if (set.empty()) return text;
    if ((flags & TRIM_START) != 0) text.remove_prefix(std::min(text.find_first_not_of(set), text.size()));
    if ((flags & TRIM_END) != 0) text = text.substr(0, text.find_last_not_of(set) + 1);
    return text;
}

void Trim(tvstring& text, std::u16string_view set, unsigned flags) {
    const std::u16string_view kept = TrimmedView(text, set, flags);
    if (kept.size() != text.size()) text.assign(kept);
}

void ReplaceAll(tvstring& text, std::u16string_view find, const char16_t* replace) {
    ReplaceAll(text, find, replace == nullptr ? std::u16string_view() : std::u16string_view(replace));
}

void ReplaceAll(tvstring& text, std::u16string_view find, std::u16string_view replace) {
    if (find.empty()) return;
    std::size_t place = text.find(find);
    if (place == kNoPosition) return;
    tvstring result;
    result.reserve(text.size());
    std::size_t done = 0;
    for (; place != kNoPosition; place = text.find(find, done)) {
        result.append(text.view().substr(done, place - done)).append(replace);
        done = place + find.size();
    }
    result.append(text.view().substr(done));
    text = std::move(result);
}

void Split(const tvstring& text, std::u16string_view separator, std::vector<tvstring>& out) {
    out.clear();
    std::u16string_view rest = text;
    while (!rest.empty()) {
        const std::size_t place = separator.empty() ? kNoPosition : rest.find(separator);
        const std::u16string_view piece = rest.substr(0, place);
        if (!piece.empty()) out.emplace_back(piece);
        if (place == kNoPosition) break;
        rest.remove_prefix(place + separator.size());
    }
}

namespace {

void CutShortcut(tvstring& text) {
    const std::size_t first = text.view().find_first_not_of(u'\t');
    const std::size_t tab = text.find(u'\t', first == kNoPosition ? text.size() : first);
    if (tab != kNoPosition) text.resize(tab);
}

void CutDots(tvstring& text, int dots) {
    const std::size_t count = text.size() - (text.view().find_last_not_of(u'.') + 1);
    const bool cut = dots == CUT_UNLESS_ONE ? count != 1 : dots == CUT_THREE && count == 3;
    if (cut) text.resize(text.size() - count);
}

void CutMarks(tvstring& text) {
    std::size_t kept = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'&') {
            if (i + 1 == text.size() || text[i + 1] != u'&') continue;
            text[kept++] = text[i++];
        }
        text[kept++] = text[i];
    }
    text.resize(kept);
}

}  // namespace

void CleanCaption(tvstring& text, bool keepMarks, int dots) {
    if (text.empty()) return;
    CutShortcut(text);
    CutDots(text, dots);
    if (!keepMarks) CutMarks(text);
}

namespace {

tvstring FromAscii(const char* text) {
    tvstring units;
    for (; *text != 0; ++text)
        units += static_cast<char16_t>(*text);
    return units;
}

constexpr char16_t kDigits[] = u"0123456789abcdef";

// The value of a digit in base 16, or 16 for any other unit.
constexpr unsigned DigitValue(char16_t unit) {
    if (unit >= u'0' && unit <= u'9') return unit - u'0';
    if (unit >= u'a' && unit <= u'f') return unit - u'a' + 10U;
    if (unit >= u'A' && unit <= u'F') return unit - u'A' + 10U;
    return 16;
}

}  // namespace

tvstring FormatInt(i32 value) {
    char text[16];
    std::snprintf(text, sizeof text, "%d", value);
    return FromAscii(text);
}

void WriteHexU64(u64 value, char16_t* out) {
    out[0] = u'0';
    out[1] = u'x';
    for (std::size_t i = kHexU64Length; i-- > 2; value >>= 4)
        out[i] = kDigits[value & 15];
}

tvstring FormatU64(u64 value, U64Format format) {
    char16_t text[24];
    if (format == U64Format::Hex) {
        WriteHexU64(value, text);
        return {text, kHexU64Length};
    }
    char16_t* const end = std::end(text);
    char16_t* start = end;
    do {
        *--start = kDigits[value % 10];
        value /= 10;
    } while (value != 0);
    return {start, static_cast<std::size_t>(end - start)};
}

u64 ParseU64(const tvstring& text) {
    std::u16string_view digits = text;
    const bool hex = digits.starts_with(u"0x") || digits.starts_with(u"0X");
    if (hex) digits.remove_prefix(2);
    const unsigned base = hex ? 16 : 10;
    u64 value = 0;
    for (const char16_t unit : digits) {
        const unsigned digit = DigitValue(unit);
        if (digit >= base) break;
        value = value * base + digit;
    }
    return value;
}

tvstring BytesToHex(const u8* bytes, std::size_t size) {
    tvstring text;
    if (bytes == nullptr) return text;
    text.reserve(size * 2);
    for (std::size_t i = 0; i < size; ++i) {
        text += kDigits[bytes[i] >> 4];
        text += kDigits[bytes[i] & 15];
    }
    return text;
}

std::size_t HexToBytes(const tvstring& text, u8* out, std::size_t capacity, ByteOrder order) {
    if (text.empty() || out == nullptr) return 0;
    tvstring digits = ToLowerAscii(text);
    ReplaceAll(digits, u"0x", u"");
    digits.resize(static_cast<std::size_t>(
        std::remove_if(digits.begin(), digits.end(), [](char16_t unit) { return DigitValue(unit) == 16; }) -
        digits.begin()));
    if (digits.size() % 2 != 0) digits.insert(0, u"0");
    const std::size_t count = digits.size() / 2;
    if (count > capacity) return 0;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t place = order == ByteOrder::Reversed ? count - 1 - i : i;
        out[place] = static_cast<u8>(DigitValue(digits[2 * i]) << 4 | DigitValue(digits[2 * i + 1]));
    }
    return count;
}
