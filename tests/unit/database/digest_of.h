// Digests as hexadecimal texts.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "platform/types.h"
#include "tests/unit/database/hex.h"

template <typename Hash>
std::string Digest(Hash& hash) {
    std::array<u8, Hash::kDigestSize> digest{};
    hash.Final(digest.data());
    return ToHex(digest);
}

template <typename Hash>
std::string DigestOf(std::string_view message) {
    Hash hash;
    hash.Update(message.data(), message.size());
    return Digest(hash);
}

template <typename Hash>
std::string DigestOf(const std::vector<u8>& message) {
    Hash hash;
    hash.Update(message.data(), message.size());
    return Digest(hash);
}
