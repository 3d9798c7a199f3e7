// MD5 as published in RFC 1321. It makes the key of the old file format and has no other use.
#pragma once

#include "platform/types.h"

// An incremental hash: the digest depends on the bytes alone, not on how Update calls split them. A new
// object is ready for Update. The state is wiped by Final and by the destructor.
class HashMD5 {
public:
    static constexpr std::size_t kDigestSize = 16;

    HashMD5() noexcept { Init(); }
    ~HashMD5();
    HashMD5(const HashMD5&) = delete;
    HashMD5& operator=(const HashMD5&) = delete;

    // Starts a new digest and forgets what was fed so far.
    void Init() noexcept;

    // Null with size 0 is fine.
    void Update(const void* bytes, std::size_t size) noexcept;

    // Writes kDigestSize bytes. Afterwards the object has to be given an Init before it is used again.
    void Final(u8* digest) noexcept;

private:
    static constexpr std::size_t kBlockSize = 64;

    void MixBlock(const u8* block) noexcept;
    void Wipe() noexcept;

    u64 m_Size;              // bytes fed since Init
    u32 m_Words[4];          // A, B, C, D
    u8 m_Block[kBlockSize];  // the first m_Size % kBlockSize bytes wait for the rest of their block
};
