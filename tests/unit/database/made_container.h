// Record streams and containers put together by hand, to say what a file holds byte for byte.
#pragma once

#include <cstring>
#include <initializer_list>
#include <string_view>
#include <utility>
#include <vector>

#include "database/container.h"
#include "foundation/secret_bytes.h"

inline constexpr char16_t kPassword[] = u"correct horse";

// One record as it is defined: type, number of units, units.
inline std::vector<u8> Record(u16 type, std::u16string_view text) {
    const u16 head[] = {type, static_cast<u16>(text.size())};
    std::vector<u8> bytes(sizeof head + text.size() * sizeof(char16_t));
    std::memcpy(bytes.data(), head, sizeof head);
    if (!text.empty()) std::memcpy(bytes.data() + sizeof head, text.data(), text.size() * sizeof(char16_t));
    return bytes;
}

inline std::vector<u8> Stream(std::initializer_list<std::pair<u16, std::u16string_view>> records) {
    std::vector<u8> stream;
    for (const auto& [type, text] : records) {
        const std::vector<u8> record = Record(type, text);
        stream.insert(stream.end(), record.begin(), record.end());
    }
    return stream;
}

// A container of the stream under a password's hash and a salt of 0, 1, .. 31.
inline std::vector<u8> MadeContainer(const std::vector<u8>& stream, u32 plainSize, const u8* pwdHash32) {
    std::vector<u8> bytes(kHeaderSize);
    std::memcpy(bytes.data(), kMagic, sizeof kMagic);
    std::memcpy(bytes.data() + 4, &plainSize, sizeof plainSize);
    for (u8 i = 0; i < kSaltSize; ++i)
        bytes[8 + i] = i;
    SecretBytes<kKeySize> key;
    DeriveKey(pwdHash32, bytes.data() + 8, key.Data());
    const tvdata cipher = Encrypt(stream.data(), stream.size(), key.Data());
    bytes.insert(bytes.end(), cipher.Data(), cipher.Data() + cipher.Size());
    return bytes;
}

// The same under kPassword.
inline std::vector<u8> MadeContainer(const std::vector<u8>& stream, u32 plainSize) {
    u8 hash[kKeySize];
    HashPassword(kPassword, hash);
    return MadeContainer(stream, plainSize, hash);
}
inline std::vector<u8> MadeContainer(const std::vector<u8>& stream) {
    return MadeContainer(stream, static_cast<u32>(stream.size()));
}
