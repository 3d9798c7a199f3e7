#include "platform/text.h"

#include <unicode/uchar.h>
#include <unicode/ucol.h>
#include <unicode/uloc.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <string_view>

#include "platform/posix/code_page.h"
#include "platform/posix/sort_key.h"

namespace platform {
namespace {

constexpr UChar32 kReplacement = 0xFFFD;

std::size_t Utf8ToUnits(const char* bytes, std::size_t length, char16_t* out, std::size_t capacity) noexcept {
    const auto* octets = reinterpret_cast<const u8*>(bytes);
    std::size_t count = 0;
    for (std::size_t i = 0; i < length;) {
        UChar32 c = 0;
        U8_NEXT_OR_FFFD(octets, i, length, c);
        const std::size_t needed = U16_LENGTH(c);
        if (out != nullptr) {
            if (count + needed > capacity) break;
            U16_APPEND_UNSAFE(out, count, c);
        } else {
            count += needed;
        }
    }
    return count;
}

std::size_t UnitsToUtf8(const char16_t* units, std::size_t length, char* out, std::size_t capacity) noexcept {
    std::size_t count = 0;
    for (std::size_t i = 0; i < length;) {
        UChar32 c = 0;
        U16_NEXT(units, i, length, c);
        if (U16_IS_SURROGATE(c)) c = kReplacement;
        const auto needed = static_cast<std::size_t>(U8_LENGTH(c));
        if (out != nullptr) {
            if (count + needed > capacity) break;
            auto* bytes = reinterpret_cast<u8*>(out);
            U8_APPEND_UNSAFE(bytes, count, c);
        } else {
            count += needed;
        }
    }
    return count;
}

// The upper-case form that ordinal comparison uses: one unit to one unit, and only where the way back leads
// to the same unit. So a dotless i is no I, a final sigma no sigma; this is the table that Windows has.
char16_t OrdinalUpper(char16_t unit) noexcept {
    if (unit < 0x80) return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 0x20) : unit;
    const UChar32 upper = u_toupper(unit);
    return upper > 0xFFFF || u_tolower(upper) != unit ? unit : static_cast<char16_t>(upper);
}

// The order of the locale "C" is that of code points, in which case counts; a user without a locale gets the
// order that all languages start from.
const char* CollationLocale() noexcept {
    const char* locale = uloc_getDefault();
    return std::string_view(locale) == "en_US_POSIX" ? "" : locale;
}

UCollator* NaturalCollator() noexcept {
    static UCollator* const collator = [] {
        UErrorCode status = U_ZERO_ERROR;
        UCollator* made = ucol_open(CollationLocale(), &status);
        ucol_setStrength(made, UCOL_SECONDARY);
        ucol_setAttribute(made, UCOL_NUMERIC_COLLATION, UCOL_ON, &status);
        return U_SUCCESS(status) ? made : nullptr;
    }();
    return collator;
}

}  // namespace

std::size_t BytesToUnits(u32 codePage, const char* bytes, std::size_t length, char16_t* out,
                         std::size_t capacity) noexcept {
    if (codePage == kCodePageUtf8) return Utf8ToUnits(bytes, length, out, capacity);
    return CodePageToUnits(codePage, bytes, length, out, capacity);
}

std::size_t UnitsToBytes(u32 codePage, const char16_t* units, std::size_t length, char* out,
                         std::size_t capacity) noexcept {
    if (codePage == kCodePageUtf8) return UnitsToUtf8(units, length, out, capacity);
    return UnitsToCodePage(codePage, units, length, out, capacity);
}

int CompareOrdinalNoCase(const char16_t* a, std::size_t lengthA, const char16_t* b,
                         std::size_t lengthB) noexcept {
    const std::size_t common = std::min(lengthA, lengthB);
    for (std::size_t i = 0; i < common; ++i) {
        if (a[i] == b[i]) continue;
        const char16_t upperA = OrdinalUpper(a[i]);
        const char16_t upperB = OrdinalUpper(b[i]);
        if (upperA != upperB) return upperA < upperB ? -1 : 1;
    }
    return lengthA == lengthB ? 0 : lengthA < lengthB ? -1 : 1;
}

int CompareNatural(const char16_t* a, std::size_t lengthA, const char16_t* b, std::size_t lengthB) noexcept {
    const UCollator* collator = NaturalCollator();
    if (collator == nullptr) return CompareOrdinalNoCase(a, lengthA, b, lengthB);
    return ucol_strcoll(collator, a, static_cast<std::int32_t>(lengthA), b,
                        static_cast<std::int32_t>(lengthB));
}

int CompareForUser(const char16_t* a, const char16_t* b) noexcept {
    const UCollator* collator = NaturalCollator();
    return collator == nullptr ? 0 : ucol_strcoll(collator, a, -1, b, -1);
}

std::size_t SortKeyForUser(const char16_t* text, u8* out, std::size_t capacity) noexcept {
    const UCollator* collator = NaturalCollator();
    if (collator == nullptr) return 0;
    static const PlainSortKeys plain(collator);
    if (const std::size_t size = plain.Key(text, out, capacity); size != 0) return size;
    return static_cast<std::size_t>(
        ucol_getSortKey(collator, text, -1, out, static_cast<std::int32_t>(capacity)));
}

std::size_t FindNoCase(const char16_t* text, const char16_t* word) noexcept {
    if (*text == 0 || *word == 0) return kNotFound;
    for (std::size_t start = 0; text[start] != 0; ++start) {
        std::size_t i = 0;
        while (word[i] != 0 && OrdinalUpper(text[start + i]) == OrdinalUpper(word[i]))
            ++i;
        if (word[i] == 0) return start;
        if (text[start + i] == 0) return kNotFound;
    }
    return kNotFound;
}

}  // namespace platform
