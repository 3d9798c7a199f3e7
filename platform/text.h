// Conversions and comparisons of text as the system defines them.
#pragma once

#include "platform/types.h"

namespace platform {

inline constexpr u32 kCodePageAnsi = 0;
inline constexpr u32 kCodePageUtf8 = 65001;

inline constexpr std::size_t kNotFound = static_cast<std::size_t>(-1);

// What code page 0 means from now on in this process; 0 puts the default back: the system's ANSI code page
// on Windows, Windows-1252 on Linux. False (and no change) for a code page that is not there.
bool UseAnsiCodePage(u32 codePage) noexcept;

// Converts `length` bytes to UTF-16 units without a terminator. With a null `out` the result is the number
// of units that the conversion gives; otherwise the number written, at most `capacity`. 0 means failure or
// nothing to convert. Bytes that are no text in the code page become U+FFFD (UTF-8) or what the code page
// has for them.
std::size_t BytesToUnits(u32 codePage, const char* bytes, std::size_t length, char16_t* out,
                         std::size_t capacity) noexcept;

// The other way, in the same manner. A unit that the code page lacks becomes '?' (on Windows a similar
// character where the system's table has one, as A for U+0100), a surrogate without its partner EF BF BD in
// UTF-8.
std::size_t UnitsToBytes(u32 codePage, const char16_t* units, std::size_t length, char* out,
                         std::size_t capacity) noexcept;

// Ordinal comparison that ignores case unit by unit, without any locale: -1, 0 or 1.
int CompareOrdinalNoCase(const char16_t* a, std::size_t lengthA, const char16_t* b,
                         std::size_t lengthB) noexcept;

// The order of the system's default locale, ignoring case, with runs of digits compared as numbers:
// -1, 0 or 1.
int CompareNatural(const char16_t* a, std::size_t lengthA, const char16_t* b, std::size_t lengthB) noexcept;

// The order of the user's locale, ignoring case, with runs of digits compared as numbers: -1, 0 or 1. Both
// texts are zero-terminated; a comparison that fails counts as equal.
int CompareForUser(const char16_t* a, const char16_t* b) noexcept;

// Bytes whose plain order, a shorter key before a longer one that starts with it, is that of CompareForUser.
// Returns the size of the key; it is written only if `capacity` is at least that.
std::size_t SortKeyForUser(const char16_t* text, u8* out, std::size_t capacity) noexcept;

// Position in units of the first place where `word` stands in `text`, ignoring case, or kNotFound. Both
// are zero-terminated; what stands behind a zero unit takes no part.
std::size_t FindNoCase(const char16_t* text, const char16_t* word) noexcept;

}  // namespace platform
