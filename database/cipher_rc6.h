// RC6-32/20/16, the cipher of the old file format, as published by Rivest, Robshaw, Sidney and Yin: words of
// 32 bits, 20 rounds, a key of 16 bytes. The old format is only read, so there is only decryption.
#pragma once

#include "platform/types.h"

// The key schedule for one key; wiped by the destructor.
class CipherRC6 {
public:
    static constexpr std::size_t kKeySize = 16;
    static constexpr std::size_t kBlockSize = 16;

    // Reads kKeySize bytes and keeps no reference to them.
    explicit CipherRC6(const u8* key) noexcept;
    ~CipherRC6();
    CipherRC6(const CipherRC6&) = delete;
    CipherRC6& operator=(const CipherRC6&) = delete;

    // Decrypts in place, each block by itself (ECB), words little-endian. All or nothing: false and the data
    // untouched if the size is no multiple of kBlockSize or there is no memory. Size 0 is fine, with null
    // too.
    [[nodiscard]] bool Decrypt(u8* data, std::size_t size) const noexcept;

private:
    static constexpr std::size_t kRounds = 20;
    static constexpr std::size_t kScheduleSize = 2 * kRounds + 4;

    void DecryptBlock(const u8* from, u8* to) const noexcept;

    u32 m_Schedule[kScheduleSize];
};
