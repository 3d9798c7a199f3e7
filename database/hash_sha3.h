// SHA3-256 as published in FIPS 202: Keccak-f[1600] with 24 rounds, a rate of 136 bytes, suffix byte 0x06.
#pragma once

#include "foundation/tvstring.h"
#include "platform/types.h"

// An incremental hash: the digest depends on the bytes alone, not on how Update calls split them. A new
// object is ready for Update. The state is wiped by Final and by the destructor.
class HashSHA3 {
public:
    static constexpr std::size_t kDigestSize = 32;

    HashSHA3() noexcept { Init(); }
    ~HashSHA3();
    HashSHA3(const HashSHA3&) = delete;
    HashSHA3& operator=(const HashSHA3&) = delete;

    // Starts a new digest and forgets what was fed so far.
    void Init() noexcept;

    // Null with size 0 is fine.
    void Update(const void* bytes, std::size_t size) noexcept;

    // Feeds the UTF-8 form of the text, without a terminator.
    void UpdateText(const tvstring& text);

    // Writes kDigestSize bytes. Afterwards the object has to be given an Init before it is used again.
    void Final(u8* digest) noexcept;

private:
    static constexpr std::size_t kRate = 136;
    static constexpr std::size_t kLanes = 25;

    void MixByte(std::size_t position, u8 byte) noexcept;
    void Permute() noexcept;
    void Wipe() noexcept;

    u64 m_Lanes[kLanes];     // lane x, y at x + 5 * y
    std::size_t m_Position;  // bytes already mixed into the block at hand, below kRate
};
