#include "platform/posix/path_bytes.h"

#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include "platform/types.h"

namespace platform {
namespace {

constexpr char16_t kEscapeBase = 0xDC00;  // + byte: an escaped byte, 80 to FF

bool IsEscapedByte(UChar32 c) {
    return c >= kEscapeBase + 0x80 && c <= kEscapeBase + 0xFF;
}

void AppendUtf8(std::string& out, UChar32 c) {
    u8 buffer[U8_MAX_LENGTH];
    std::size_t length = 0;
    U8_APPEND_UNSAFE(buffer, length, c);
    out.append(reinterpret_cast<const char*>(buffer), length);
}

}  // namespace

std::string PathBytes(std::u16string_view path) {
    std::string bytes;
    bytes.reserve(path.size());
    for (std::size_t i = 0; i < path.size();) {
        UChar32 c = 0;
        U16_NEXT(path, i, path.size(), c);
        if (IsEscapedByte(c)) {
            bytes.push_back(static_cast<char>(c - kEscapeBase));
        } else {
            AppendUtf8(bytes, U16_IS_SURROGATE(c) ? '?' : c);
        }
    }
    return bytes;
}

std::u16string PathUnits(std::string_view bytes) {
    const auto* octets = reinterpret_cast<const u8*>(bytes.data());
    std::u16string path;
    path.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size();) {
        const std::size_t start = i;
        UChar32 c = 0;
        U8_NEXT(octets, i, bytes.size(), c);
        if (c < 0) {
            i = start + 1;
            path.push_back(static_cast<char16_t>(kEscapeBase + octets[start]));
        } else if (c > 0xFFFF) {
            path.push_back(static_cast<char16_t>(U16_LEAD(c)));
            path.push_back(static_cast<char16_t>(U16_TRAIL(c)));
        } else {
            path.push_back(static_cast<char16_t>(c));
        }
    }
    return path;
}

}  // namespace platform
