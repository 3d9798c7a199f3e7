// UTF-8 one character at a time, strictly, for what comes from outside.
#pragma once

#include <string_view>

#include "foundation/tvstring.h"

// Reads the first code point; the number of bytes it takes, or 0 if they are no valid UTF-8 (surrogates and
// overlong forms are not).
std::size_t DecodeUtf8(std::string_view bytes, char32_t& codePoint) noexcept;

// The UTF-8 form of a code point, which may be a surrogate; returns the number of bytes, 1 to 4.
std::size_t EncodeUtf8(char32_t codePoint, char* out4) noexcept;

// True if all of the bytes are valid.
bool IsUtf8(std::string_view bytes) noexcept;

// The next code point of a text, which is the unit itself for a surrogate without its partner; `position`
// must be inside the text and is moved behind it.
char32_t NextCodePoint(std::u16string_view text, std::size_t& position) noexcept;

constexpr bool IsSurrogate(char32_t codePoint) noexcept {
    return codePoint >= 0xD800 && codePoint <= 0xDFFF;
}
