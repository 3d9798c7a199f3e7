// Bytes as hexadecimal digits, so that tests can show published values as they were published.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/types.h"

// Lower case, without separators.
inline std::string ToHex(std::span<const u8> bytes) {
    static constexpr char kDigits[] = "0123456789abcdef";
    std::string text;
    for (const u8 byte : bytes) {
        text += kDigits[byte / 16];
        text += kDigits[byte % 16];
    }
    return text;
}

// Pairs of lower-case digits; spaces are skipped.
inline std::vector<u8> FromHex(std::string_view text) {
    std::vector<u8> bytes;
    bool upperHalf = true;
    for (const char digit : text) {
        if (digit == ' ') continue;
        const int value = digit >= 'a' ? digit - 'a' + 10 : digit - '0';
        if (upperHalf)
            bytes.push_back(static_cast<u8>(value * 16));
        else
            bytes.back() = static_cast<u8>(bytes.back() + value);
        upperHalf = !upperHalf;
    }
    return bytes;
}

// The bytes 0, 1, .. 250, 0, 1, ..: a message in which every block of a hash or cipher differs.
inline std::vector<u8> CountingBytes(std::size_t size) {
    std::vector<u8> bytes(size);
    for (std::size_t i = 0; i < size; ++i)
        bytes[i] = static_cast<u8>(i % 251);
    return bytes;
}
