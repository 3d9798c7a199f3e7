// File names between the program's units and the system's bytes.
#pragma once

#include <string>
#include <string_view>

namespace platform {

// UTF-8 of the units; a lone unit U+DC80 to U+DCFF becomes the byte 80 to FF, any other lone surrogate '?'.
std::string PathBytes(std::u16string_view path);

// The way back, so that PathBytes(PathUnits(b)) == b for every b.
std::u16string PathUnits(std::string_view bytes);

}  // namespace platform
