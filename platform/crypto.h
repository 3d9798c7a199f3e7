// AES-256-CBC with PKCS#7 block filling, chained from sixteen zero bytes, and random bytes.
#pragma once

#include "platform/types.h"

namespace platform {

// A key object for one encryption or one decryption.
using AesKey = void*;

// Makes a key object from 32 bytes, or null if the system has no AES. Release with DestroyAesKey.
AesKey MakeAesKey(const u8* key32) noexcept;
void DestroyAesKey(AesKey key) noexcept;

// Both are called twice. With a null `out`, `done` takes the number of bytes to provide: exact for an
// encryption, an upper bound for a decryption. Then, with that much room, the work is done and `done` takes
// the bytes written. False if the system reports a failure, as for a wrong block filling or a size that is
// not a whole number of blocks. `out` may be `data` itself.
bool AesEncrypt(AesKey key, const u8* data, std::size_t size, u8* out, std::size_t capacity,
                std::size_t& done) noexcept;
bool AesDecrypt(AesKey key, const u8* data, std::size_t size, u8* out, std::size_t capacity,
                std::size_t& done) noexcept;

// Fills a buffer with random bytes fit for keys; false if the system has none to give.
bool RandomBytes(u8* out, std::size_t size) noexcept;

}  // namespace platform
