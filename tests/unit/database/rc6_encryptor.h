// RC6-32/20/16 encryption, for tests and fuzz seeds that need files in the old format: the program itself
// only decrypts. It is written from the published algorithm alone and shares no code with CipherRC6, so that
// one checks the other.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace rc6_encryptor {

inline constexpr std::size_t kBlockBytes = 16;
inline constexpr std::size_t kRoundCount = 20;

using Schedule = std::array<std::uint32_t, 2 * kRoundCount + 4>;
using Block = std::array<std::uint32_t, 4>;

inline Block ReadBlock(const std::uint8_t* bytes) {
    Block block{};
    for (std::size_t i = 0; i < kBlockBytes; ++i)
        block[i / 4] |= std::uint32_t{bytes[i]} << (i % 4 * 8);
    return block;
}

inline void WriteBlock(std::uint8_t* bytes, const Block& block) {
    for (std::size_t i = 0; i < kBlockBytes; ++i)
        bytes[i] = static_cast<std::uint8_t>(block[i / 4] >> (i % 4 * 8));
}

inline std::uint32_t RotateLeft(std::uint32_t word, std::uint32_t amount) {
    return std::rotl(word, static_cast<int>(amount & 31U));
}

inline Schedule ExpandKey(const std::uint8_t* key16) {
    Schedule s{};
    s[0] = 0xB7E15163U;
    for (std::size_t i = 1; i < s.size(); ++i)
        s[i] = s[i - 1] + 0x9E3779B9U;
    Block l = ReadBlock(key16);
    std::uint32_t a = 0;
    std::uint32_t b = 0;
    std::size_t i = 0;
    std::size_t j = 0;
    for (std::size_t v = 0; v < 3 * s.size(); ++v) {
        a = s[i] = RotateLeft(s[i] + a + b, 3);
        b = l[j] = RotateLeft(l[j] + a + b, a + b);
        i = (i + 1) % s.size();
        j = (j + 1) % l.size();
    }
    return s;
}

inline Block EncryptBlock(const Schedule& s, Block block) {
    auto [a, b, c, d] = block;
    b += s[0];
    d += s[1];
    for (std::size_t i = 1; i <= kRoundCount; ++i) {
        const std::uint32_t t = RotateLeft(b * (2 * b + 1), 5);
        const std::uint32_t u = RotateLeft(d * (2 * d + 1), 5);
        a = RotateLeft(a ^ t, u) + s[2 * i];
        c = RotateLeft(c ^ u, t) + s[2 * i + 1];
        const std::uint32_t first = a;
        a = b;
        b = c;
        c = d;
        d = first;
    }
    return {a + s[2 * kRoundCount + 2], b, c + s[2 * kRoundCount + 3], d};
}

}  // namespace rc6_encryptor

// Each block of 16 bytes by itself. Data that ends within a block is filled with zeros up to its end first.
inline std::vector<std::uint8_t> Rc6EncryptEcb(const std::uint8_t* key16, std::vector<std::uint8_t> data) {
    using namespace rc6_encryptor;
    const Schedule schedule = ExpandKey(key16);
    data.resize((data.size() + kBlockBytes - 1) / kBlockBytes * kBlockBytes);
    for (std::size_t position = 0; position < data.size(); position += kBlockBytes)
        WriteBlock(&data[position], EncryptBlock(schedule, ReadBlock(&data[position])));
    return data;
}
