#include "cli/utf8.h"

std::size_t DecodeUtf8(std::string_view bytes, char32_t& codePoint) noexcept {
    constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const auto lead = bytes.empty() ? 0xFFU : static_cast<unsigned char>(bytes[0]);
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xC0 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (length == 0 || lead > 0xF4 || bytes.size() < length) return 0;
    codePoint = length == 1 ? lead : lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        if ((byte & 0xC0) != 0x80) return 0;
        codePoint = (codePoint << 6) | (byte & 0x3FU);
    }
    const bool valid = codePoint >= kSmallest[length] && codePoint <= 0x10FFFF && !IsSurrogate(codePoint);
    return valid ? length : 0;
}

bool IsUtf8(std::string_view bytes) noexcept {
    while (!bytes.empty()) {
        char32_t codePoint = 0;
        const std::size_t length = DecodeUtf8(bytes, codePoint);
        if (length == 0) return false;
        bytes.remove_prefix(length);
    }
    return true;
}

std::size_t EncodeUtf8(char32_t codePoint, char* out4) noexcept {
    const auto tail = [codePoint](unsigned shift) {
        return static_cast<char>(0x80 | ((codePoint >> shift) & 0x3F));
    };
    if (codePoint < 0x80) {
        out4[0] = static_cast<char>(codePoint);
        return 1;
    }
    if (codePoint < 0x800) {
        out4[0] = static_cast<char>(0xC0 | (codePoint >> 6));
        out4[1] = tail(0);
        return 2;
    }
    if (codePoint < 0x10000) {
        out4[0] = static_cast<char>(0xE0 | (codePoint >> 12));
        out4[1] = tail(6);
        out4[2] = tail(0);
        return 3;
    }
    out4[0] = static_cast<char>(0xF0 | (codePoint >> 18));
    out4[1] = tail(12);
    out4[2] = tail(6);
    out4[3] = tail(0);
    return 4;
}

char32_t NextCodePoint(std::u16string_view text, std::size_t& position) noexcept {
    const char16_t unit = text[position++];
    if (unit < 0xD800 || unit > 0xDBFF || position == text.size()) return unit;
    const char16_t next = text[position];
    if (next < 0xDC00 || next > 0xDFFF) return unit;
    ++position;
    return 0x10000 + ((char32_t{unit} - 0xD800) << 10) + (char32_t{next} - 0xDC00);
}
