#include "database/hash_md5.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/unit/database/digest_of.h"

namespace {

std::string DigestOf(const auto& message) {
    return ::DigestOf<HashMD5>(message);
}

TEST(HashMD5, GivesThePublishedDigests) {
    EXPECT_EQ(DigestOf(""), "d41d8cd98f00b204e9800998ecf8427e");
    EXPECT_EQ(DigestOf("a"), "0cc175b9c0f1b6a831c399e269772661");
    EXPECT_EQ(DigestOf("abc"), "900150983cd24fb0d6963f7d28e17f72");
    EXPECT_EQ(DigestOf("message digest"), "f96b697d7cb7938d525a2f31aaf161d0");
    EXPECT_EQ(DigestOf("abcdefghijklmnopqrstuvwxyz"), "c3fcd3d76192e4007dfb496cca67e13b");
    EXPECT_EQ(DigestOf("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789"),
              "d174ab98d277d9f5a5611c2c9f419d9f");
    EXPECT_EQ(DigestOf("1234567890123456789012345678901234567890"
                       "1234567890123456789012345678901234567890"),
              "57edf4a22be3c955ac49da2e2107b67a");
}

TEST(HashMD5, HashesAMillionBytes) {
    EXPECT_EQ(DigestOf(std::string(1000000, 'a')), "7707d6ae4e027c70eea2a935c2296f21");
}

TEST(HashMD5, PadsMessagesAroundWholeBlocks) {
    EXPECT_EQ(DigestOf(CountingBytes(55)), "6912ee65fff2d9f9ce2508cddf8bcda0");
    EXPECT_EQ(DigestOf(CountingBytes(56)), "51fdd1acda72405dfdfa03fcb85896d7");
    EXPECT_EQ(DigestOf(CountingBytes(57)), "5320ef4c17ef34a0cf2db763338d25eb");
    EXPECT_EQ(DigestOf(CountingBytes(63)), "48a6295221902e8e0938f773a7185e72");
    EXPECT_EQ(DigestOf(CountingBytes(64)), "b2d3f56bc197fd985d5965079b5e7148");
    EXPECT_EQ(DigestOf(CountingBytes(65)), "8bd7053801c768420faf816fadba971c");
    EXPECT_EQ(DigestOf(CountingBytes(119)), "1c772251899a7ff007400b888d6b2042");
    EXPECT_EQ(DigestOf(CountingBytes(120)), "b7ba1efc6022e9ed272f00b8831e26e6");
    EXPECT_EQ(DigestOf(CountingBytes(128)), "37eff01866ba3f538421b30b7cbefcac");
}

}  // namespace
