// The encrypted container of a database, in a file or in memory:
//
//   offset 0   4 bytes   "VMR2"
//   offset 4   u32       plain size: bytes of the record stream before encryption
//   offset 8   32 bytes  salt, new at each write
//   offset 40  to the end: the record stream, AES-256-CBC with PKCS#7 filling, chained from zeros
//
// The key is SHA3-256 over the master password's hash and the salt. Nothing authenticates the content: a
// wrong password shows by what decryption yields. All numbers are little-endian.
#pragma once

#include "foundation/tvbuffer.h"
#include "foundation/tvdata.h"
#include "foundation/tvhandle.h"
#include "foundation/tvstring.h"

inline constexpr std::size_t kHeaderSize = 40;
inline constexpr std::size_t kSaltSize = 32;
inline constexpr std::size_t kKeySize = 32;

struct ContainerHeader {
    u8 magic[4];
    u32 plainSize;
    u8 salt[kSaltSize];
};
static_assert(sizeof(ContainerHeader) == kHeaderSize);

inline constexpr u8 kMagic[4] = {'V', 'M', 'R', '2'};
inline constexpr u8 kOldMagic[6] = {'V', 'T', 'M', 'R', '0', '1'};  // see old_format.h

// SHA3-256 over the UTF-8 form of the master password.
void HashPassword(const tvstring& text, u8* out32);

// SHA3-256 over the 32 bytes of the password's hash followed by the salt.
void DeriveKey(const u8* pwdHash32, const u8* salt32, u8* out32);

// 32 random bytes; should the system have none, a generator seeded with the time fills in.
void GenerateSalt(u8* out32);

// A new block with the result; empty on failure, for no data or a null key.
tvdata Encrypt(const u8* data, std::size_t size, const u8* key32);
tvdata Decrypt(const u8* data, std::size_t size, const u8* key32);

// The room that Encrypt's result takes beyond the data, at most.
inline constexpr std::size_t kCipherBlockSize = 16;

// The same as Encrypt where a container is built: encrypts what stands behind the first kHeaderSize bytes of
// `stream` in its own memory and makes a block of it, header and all. Wants kCipherBlockSize bytes of free
// capacity; the stream is empty afterwards.
tvdata EncryptContainer(tvbuffer<u8>& stream, const u8* key32);

// Results of OpenDatabaseFile below 1.
inline constexpr i32 kNotDatabase = 0;
inline constexpr i32 kOldDatabase = -1;
inline constexpr i32 kCannotOpen = -2;

// Opens a file exclusively into `handle`, whose old content is closed first, and tells what it is: the size
// of a database file, or one of the results above, with the handle closed. For writing the file is made anew
// and the result is 1. The last error is 2 for an empty path, the system's code where it fails, 13 for a file
// that is too small, too large (2 GiB) or no database.
i32 OpenDatabaseFile(tvhandle& handle, const tvstring& path, bool forWrite);

// `size` bytes from the file pointer on, in one read; empty for a size below 1, an empty handle or if fewer
// bytes come.
tvdata ReadWholeFile(const tvhandle& handle, i32 size);
