#include "database/cipher_rc6.h"

#include <bit>
#include <cstring>

#include "platform/memory.h"

namespace {

constexpr u32 kP32 = 0xB7E15163;  // from e - 2
constexpr u32 kQ32 = 0x9E3779B9;  // from the golden ratio - 1
constexpr int kLog2WordBits = 5;

u32 LoadWord(const u8* bytes) noexcept {
    return static_cast<u32>(bytes[0]) | static_cast<u32>(bytes[1]) << 8 | static_cast<u32>(bytes[2]) << 16 |
           static_cast<u32>(bytes[3]) << 24;
}

void StoreWord(u8* bytes, u32 word) noexcept {
    for (std::size_t i = 0; i < 4; ++i)
        bytes[i] = static_cast<u8>(word >> (8 * i));
}

// A rotation counts only the low five bits of its amount.
int Amount(u32 word) noexcept {
    return static_cast<int>(word % 32);
}

u32 Quadratic(u32 word) noexcept {
    return std::rotl(word * (2 * word + 1), kLog2WordBits);
}

}  // namespace

CipherRC6::CipherRC6(const u8* key) noexcept {
    constexpr std::size_t kKeyWords = kKeySize / 4;
    u32 keyWords[kKeyWords];
    for (std::size_t i = 0; i < kKeyWords; ++i)
        keyWords[i] = LoadWord(key + 4 * i);

    u32 constant = kP32;
    for (u32& word : m_Schedule) {
        word = constant;
        constant += kQ32;
    }

    u32 a = 0;
    u32 b = 0;
    for (std::size_t step = 0; step < 3 * kScheduleSize; ++step) {
        u32& word = m_Schedule[step % kScheduleSize];
        u32& keyWord = keyWords[step % kKeyWords];
        a = word = std::rotl(word + a + b, 3);
        b = keyWord = std::rotl(keyWord + a + b, Amount(a + b));
    }
    platform::WipeMemory(keyWords, sizeof(keyWords));
}

CipherRC6::~CipherRC6() {
    platform::WipeMemory(m_Schedule, sizeof(m_Schedule));
}

bool CipherRC6::Decrypt(u8* data, std::size_t size) const noexcept {
    if (size % kBlockSize != 0) return false;
    if (size == 0) return true;
    u8* plain = static_cast<u8*>(platform::AllocateZeroed(size));
    if (plain == nullptr) return false;
    for (std::size_t position = 0; position < size; position += kBlockSize)
        DecryptBlock(data + position, plain + position);
    std::memcpy(data, plain, size);
    platform::WipeAndFree(plain, size);
    return true;
}

void CipherRC6::DecryptBlock(const u8* from, u8* to) const noexcept {
    u32 a = LoadWord(from) - m_Schedule[kScheduleSize - 2];
    u32 b = LoadWord(from + 4);
    u32 c = LoadWord(from + 8) - m_Schedule[kScheduleSize - 1];
    u32 d = LoadWord(from + 12);
    for (std::size_t round = kRounds; round > 0; --round) {
        const u32 last = d;
        d = c;
        c = b;
        b = a;
        a = last;
        const u32 t = Quadratic(b);
        const u32 u = Quadratic(d);
        c = std::rotr(c - m_Schedule[2 * round + 1], Amount(t)) ^ u;
        a = std::rotr(a - m_Schedule[2 * round], Amount(u)) ^ t;
    }
    StoreWord(to, a);
    StoreWord(to + 4, b - m_Schedule[0]);
    StoreWord(to + 8, c);
    StoreWord(to + 12, d - m_Schedule[1]);
}
