// What the fuzzers of text parsers share.
#pragma once

#include <string>

#include "foundation/tvstream.h"
#include "foundation/tvstring.h"

// Ends the run if a property does not hold.
inline void Require(bool holds) {
    if (!holds) __builtin_trap();
}

// The text of a file of these bytes, in any of the encodings.
inline tvstring TextOfFile(const u8* data, std::size_t size) {
    std::string bytes(reinterpret_cast<const char*>(data), size);
    bytes.append(3, '\0');
    tvstream stream;
    Require(stream.SetText(bytes.c_str()));
    return {reinterpret_cast<const char16_t*>(stream.Memory().Data()),
            static_cast<std::size_t>(stream.Size() / sizeof(char16_t))};
}
