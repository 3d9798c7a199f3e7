// Windows code pages by number, on top of ICU's converters.
#pragma once

#include "platform/types.h"

namespace platform {

// As BytesToUnits and UnitsToBytes of platform/text.h, for any code page but UTF-8; 0 is the one that
// UseAnsiCodePage has set. A code page that ICU does not have converts nothing.
std::size_t CodePageToUnits(u32 codePage, const char* bytes, std::size_t length, char16_t* out,
                            std::size_t capacity) noexcept;
std::size_t UnitsToCodePage(u32 codePage, const char16_t* units, std::size_t length, char* out,
                            std::size_t capacity) noexcept;

}  // namespace platform
