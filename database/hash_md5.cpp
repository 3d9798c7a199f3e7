#include "database/hash_md5.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <iterator>

#include "platform/memory.h"

namespace {

// The integer part of 2^32 * |sin(i + 1)|.
constexpr u32 kSines[64] = {
    0xD76AA478, 0xE8C7B756, 0x242070DB, 0xC1BDCEEE, 0xF57C0FAF, 0x4787C62A, 0xA8304613, 0xFD469501,
    0x698098D8, 0x8B44F7AF, 0xFFFF5BB1, 0x895CD7BE, 0x6B901122, 0xFD987193, 0xA679438E, 0x49B40821,
    0xF61E2562, 0xC040B340, 0x265E5A51, 0xE9B6C7AA, 0xD62F105D, 0x02441453, 0xD8A1E681, 0xE7D3FBC8,
    0x21E1CDE6, 0xC33707D6, 0xF4D50D87, 0x455A14ED, 0xA9E3E905, 0xFCEFA3F8, 0x676F02D9, 0x8D2A4C8A,
    0xFFFA3942, 0x8771F681, 0x6D9D6122, 0xFDE5380C, 0xA4BEEA44, 0x4BDECFA9, 0xF6BB4B60, 0xBEBFBC70,
    0x289B7EC6, 0xEAA127FA, 0xD4EF3085, 0x04881D05, 0xD9D4D039, 0xE6DB99E5, 0x1FA27CF8, 0xC4AC5665,
    0xF4292244, 0x432AFF97, 0xAB9423A7, 0xFC93A039, 0x655B59C3, 0x8F0CCC92, 0xFFEFF47D, 0x85845DD1,
    0x6FA87E4F, 0xFE2CE6E0, 0xA3014314, 0x4E0811A1, 0xF7537E82, 0xBD3AF235, 0x2AD7D2BB, 0xEB86D391,
};

constexpr u8 kRotations[4][4] = {{7, 12, 17, 22}, {5, 9, 14, 20}, {4, 11, 16, 23}, {6, 10, 15, 21}};

// Each round reads the sixteen words of the block in its own order: word (m_Factor * i + m_Offset) % 16.
struct WordOrder {
    u8 m_Factor;
    u8 m_Offset;
};
constexpr WordOrder kWordOrders[4] = {{1, 0}, {5, 1}, {3, 5}, {7, 0}};

constexpr std::size_t kLengthSize = 8;

u32 LoadWord(const u8* bytes) noexcept {
    return static_cast<u32>(bytes[0]) | static_cast<u32>(bytes[1]) << 8 | static_cast<u32>(bytes[2]) << 16 |
           static_cast<u32>(bytes[3]) << 24;
}

// One round of sixteen steps. The block is read where it lies, so that no second copy of it is left behind.
template <std::size_t kRound, typename Function>
void MixRound(u32 (&words)[4], const u8* block, Function function) noexcept {
    auto& [a, b, c, d] = words;
    for (std::size_t i = 0; i < 16; ++i) {
        const std::size_t index = (kWordOrders[kRound].m_Factor * i + kWordOrders[kRound].m_Offset) % 16;
        const u32 sum = a + function(b, c, d) + LoadWord(block + 4 * index) + kSines[16 * kRound + i];
        a = d;
        d = c;
        c = b;
        b += std::rotl(sum, kRotations[kRound][i % 4]);
    }
}

}  // namespace

HashMD5::~HashMD5() {
    Wipe();
}

void HashMD5::Init() noexcept {
    Wipe();
    m_Words[0] = 0x67452301;
    m_Words[1] = 0xEFCDAB89;
    m_Words[2] = 0x98BADCFE;
    m_Words[3] = 0x10325476;
}

void HashMD5::Update(const void* bytes, std::size_t size) noexcept {
    const u8* next = static_cast<const u8*>(bytes);
    while (size != 0) {
        const std::size_t waiting = static_cast<std::size_t>(m_Size % kBlockSize);
        const std::size_t step = std::min(size, kBlockSize - waiting);
        if (step == kBlockSize) {
            MixBlock(next);
        } else {
            std::memcpy(m_Block + waiting, next, step);
            if (waiting + step == kBlockSize) MixBlock(m_Block);
        }
        m_Size += step;
        next += step;
        size -= step;
    }
}

void HashMD5::Final(u8* digest) noexcept {
    static constexpr u8 kPadding[kBlockSize] = {0x80};
    u8 length[kLengthSize];  // in bits, modulo 2^64
    for (std::size_t i = 0; i < kLengthSize; ++i)
        length[i] = static_cast<u8>(m_Size * 8 >> (8 * i));

    // Always at least one byte, up to where only the length is missing from a block.
    const std::size_t tail = static_cast<std::size_t>((m_Size + kLengthSize) % kBlockSize);
    Update(kPadding, kBlockSize - tail);
    Update(length, kLengthSize);
    for (std::size_t i = 0; i < kDigestSize; ++i)
        digest[i] = static_cast<u8>(m_Words[i / 4] >> (8 * (i % 4)));
    Wipe();
}

void HashMD5::MixBlock(const u8* block) noexcept {
    u32 words[4];
    std::copy(std::begin(m_Words), std::end(m_Words), words);
    MixRound<0>(words, block, [](u32 b, u32 c, u32 d) { return (b & c) | (~b & d); });
    MixRound<1>(words, block, [](u32 b, u32 c, u32 d) { return (b & d) | (c & ~d); });
    MixRound<2>(words, block, [](u32 b, u32 c, u32 d) { return b ^ c ^ d; });
    MixRound<3>(words, block, [](u32 b, u32 c, u32 d) { return c ^ (b | ~d); });
    for (std::size_t i = 0; i < 4; ++i)
        m_Words[i] += words[i];
}

void HashMD5::Wipe() noexcept {
    platform::WipeMemory(this, sizeof(*this));
}
