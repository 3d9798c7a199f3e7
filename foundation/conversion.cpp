#include "foundation/conversion.h"

#include <cstring>

namespace {

void Convert(tvstring& text, const char* bytes, std::size_t length, u32 codePage) {
    const std::size_t count = platform::BytesToUnits(codePage, bytes, length, nullptr, 0);
    text.clear();
    text.resize(count);
    if (count != 0) platform::BytesToUnits(codePage, bytes, length, text.data(), count);
}

tvstringA ToCodePage(const tvstring& text, u32 codePage) {
    tvstringA bytes;
    bytes.resize(platform::UnitsToBytes(codePage, text.data(), text.size(), nullptr, 0));
    if (!bytes.empty()) {
        platform::UnitsToBytes(codePage, text.data(), text.size(), bytes.data(), bytes.size());
    }
    return bytes;
}

constexpr char16_t Swapped(char16_t unit) {
    return static_cast<char16_t>(unit << 8 | unit >> 8);
}

}  // namespace

void FromCodePage(tvstring& text, const char* bytes, std::size_t length, u32 codePage) {
    if (bytes != nullptr && length == 0) length = std::strlen(bytes);
    Convert(text, bytes, bytes == nullptr ? 0 : length, codePage);
}

void FromUtf16BE(tvstring& text, const char* bytes) {
    text.clear();
    if (bytes == nullptr) return;
    for (; bytes[0] != 0 || bytes[1] != 0; bytes += 2) {
        text += static_cast<char16_t>(static_cast<u8>(bytes[0]) << 8 | static_cast<u8>(bytes[1]));
    }
}

tvstringA ToAnsi(const tvstring& text) {
    return ToCodePage(text, kCodePageAnsi);
}

tvstringA ToUtf8(const tvstring& text) {
    return ToCodePage(text, kCodePageUtf8);
}

tvstring SwapBytes(const tvstring& text) {
    tvstring swapped(text);
    for (char16_t& unit : swapped)
        unit = Swapped(unit);
    return swapped;
}

tvstring FromUtf8(std::string_view bytes) {
    tvstring text;
    Convert(text, bytes.data(), bytes.size(), kCodePageUtf8);
    return text;
}
