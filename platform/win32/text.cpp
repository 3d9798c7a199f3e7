#include "platform/text.h"

#include <atomic>
#include <limits>

#include "platform/windows_api.h"

// After windows.h, whose types it needs.
#include <shlwapi.h>

namespace platform {
namespace {

constinit std::atomic<u32> g_AnsiCodePage = 0;

constexpr DWORD kNaturalOrder = SORT_DIGITSASNUMBERS | NORM_IGNORECASE;
static_assert(kNaturalOrder == 9);

// Longer texts cannot be handed to the system, which takes their length as an int.
constexpr std::size_t kLongestText = std::numeric_limits<int>::max();

u32 Actual(u32 codePage) noexcept {
    return codePage == kCodePageAnsi ? g_AnsiCodePage.load() : codePage;
}

}  // namespace

bool UseAnsiCodePage(u32 codePage) noexcept {
    if (codePage != 0 && !IsValidCodePage(codePage)) return false;
    g_AnsiCodePage = codePage;
    return true;
}

std::size_t BytesToUnits(u32 codePage, const char* bytes, std::size_t length, char16_t* out,
                         std::size_t capacity) noexcept {
    if (length == 0 || length > kLongestText) return 0;
    return static_cast<std::size_t>(MultiByteToWideChar(Actual(codePage), 0, bytes, static_cast<int>(length),
                                                        Wide(out),
                                                        out == nullptr ? 0 : static_cast<int>(capacity)));
}

std::size_t UnitsToBytes(u32 codePage, const char16_t* units, std::size_t length, char* out,
                         std::size_t capacity) noexcept {
    if (length == 0 || length > kLongestText) return 0;
    return static_cast<std::size_t>(
        WideCharToMultiByte(Actual(codePage), 0, Wide(units), static_cast<int>(length), out,
                            out == nullptr ? 0 : static_cast<int>(capacity), nullptr, nullptr));
}

int CompareOrdinalNoCase(const char16_t* a, std::size_t lengthA, const char16_t* b,
                         std::size_t lengthB) noexcept {
    return CompareStringOrdinal(Wide(a), static_cast<int>(lengthA), Wide(b), static_cast<int>(lengthB),
                                TRUE) -
           CSTR_EQUAL;
}

int CompareNatural(const char16_t* a, std::size_t lengthA, const char16_t* b, std::size_t lengthB) noexcept {
    return CompareStringW(LOCALE_SYSTEM_DEFAULT, kNaturalOrder, Wide(a), static_cast<int>(lengthA), Wide(b),
                          static_cast<int>(lengthB)) -
           CSTR_EQUAL;
}

int CompareForUser(const char16_t* a, const char16_t* b) noexcept {
    const int result = CompareStringW(LOCALE_USER_DEFAULT, kNaturalOrder, Wide(a), -1, Wide(b), -1);
    return result == 0 ? 0 : result - CSTR_EQUAL;
}

std::size_t SortKeyForUser(const char16_t* text, u8* out, std::size_t capacity) noexcept {
    // The key comes as bytes in a buffer of units; with too little room the result is 0.
    const auto map = [text](u8* place, int room) {
        return LCMapStringW(LOCALE_USER_DEFAULT, LCMAP_SORTKEY | kNaturalOrder, Wide(text), -1,
                            reinterpret_cast<wchar_t*>(place), room);
    };
    const int size = map(out, static_cast<int>(capacity));
    return static_cast<std::size_t>(size != 0 ? size : map(nullptr, 0));
}

std::size_t FindNoCase(const char16_t* text, const char16_t* word) noexcept {
    const wchar_t* found = StrStrIW(Wide(text), Wide(word));
    return found == nullptr ? kNotFound : static_cast<std::size_t>(found - Wide(text));
}

}  // namespace platform
