#include "database/cipher_rc6.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

#include "platform/fault.h"
#include "tests/unit/database/hex.h"
#include "tests/unit/database/rc6_encryptor.h"
#include "tests/unit/database/wiping.h"

namespace {

using Bytes = std::vector<u8>;

struct Vector {
    const char* key;
    const char* plain;
    const char* cipher;
};

// The vectors for keys of 16 bytes from the cipher's publication.
constexpr Vector kPublished[] = {
    {"00000000000000000000000000000000", "00000000000000000000000000000000",
     "8fc3a53656b1f778c129df4e9848a41e"},
    {"0123456789abcdef0112233445566778", "02132435465768798a9bacbdcedfe0f1",
     "524e192f4715c6231f51f6367ea43f18"},
};

const Bytes& Key() {
    static const Bytes key = FromHex("0123456789abcdef0112233445566778");
    return key;
}

Bytes RandomBytes(std::mt19937& random, std::size_t size) {
    Bytes bytes(size);
    for (u8& byte : bytes)
        byte = static_cast<u8>(random());
    return bytes;
}

TEST(CipherRC6, DecryptsThePublishedVectors) {
    for (const Vector& vector : kPublished) {
        Bytes data = FromHex(vector.cipher);
        EXPECT_TRUE(CipherRC6(FromHex(vector.key).data()).Decrypt(data.data(), data.size()));
        EXPECT_EQ(ToHex(data), vector.plain);
    }
}

TEST(Rc6Encryptor, EncryptsThePublishedVectors) {
    for (const Vector& vector : kPublished)
        EXPECT_EQ(ToHex(Rc6EncryptEcb(FromHex(vector.key).data(), FromHex(vector.plain))), vector.cipher);
}

TEST(Rc6Encryptor, FillsTheLastBlockWithZeros) {
    EXPECT_EQ(Rc6EncryptEcb(Key().data(), Bytes(17, 0)), Rc6EncryptEcb(Key().data(), Bytes(32, 0)));
}

TEST(CipherRC6, GivesBackWhatWasEncrypted) {
    std::mt19937 random(20);
    for (std::size_t blocks = 1; blocks <= 100; ++blocks) {
        const Bytes key = RandomBytes(random, CipherRC6::kKeySize);
        const Bytes plain = RandomBytes(random, blocks * CipherRC6::kBlockSize);
        Bytes data = Rc6EncryptEcb(key.data(), plain);
        EXPECT_NE(data, plain);
        EXPECT_TRUE(CipherRC6(key.data()).Decrypt(data.data(), data.size()));
        EXPECT_EQ(data, plain);
    }
}

TEST(CipherRC6, DecryptsEqualBlocksToEqualBlocks) {
    Bytes data = FromHex("524e192f4715c6231f51f6367ea43f18 524e192f4715c6231f51f6367ea43f18");
    EXPECT_TRUE(CipherRC6(Key().data()).Decrypt(data.data(), data.size()));
    EXPECT_EQ(ToHex(data), "02132435465768798a9bacbdcedfe0f102132435465768798a9bacbdcedfe0f1");
}

TEST(CipherRC6, LetsADamagedBlockSpoilNoOther) {
    const Bytes plain = CountingBytes(48);
    Bytes data = Rc6EncryptEcb(Key().data(), plain);
    data[20] ^= 1;
    EXPECT_TRUE(CipherRC6(Key().data()).Decrypt(data.data(), data.size()));
    EXPECT_TRUE(std::equal(plain.begin(), plain.begin() + 16, data.begin()));
    EXPECT_FALSE(std::equal(plain.begin() + 16, plain.begin() + 32, data.begin() + 16));
    EXPECT_TRUE(std::equal(plain.begin() + 32, plain.end(), data.begin() + 32));
}

TEST(CipherRC6, IsUsableForSeveralStreams) {
    const CipherRC6 cipher(Key().data());
    for (int i = 0; i < 2; ++i) {
        Bytes data = FromHex("524e192f4715c6231f51f6367ea43f18");
        EXPECT_TRUE(cipher.Decrypt(data.data(), data.size()));
        EXPECT_EQ(ToHex(data), "02132435465768798a9bacbdcedfe0f1");
    }
}

TEST(CipherRC6, RefusesASizeThatIsNoMultipleOfABlockAndLeavesTheData) {
    const CipherRC6 cipher(Key().data());
    for (const std::size_t size : {1U, 4U, 8U, 15U, 17U, 20U, 31U, 33U}) {
        Bytes data = CountingBytes(48);
        EXPECT_FALSE(cipher.Decrypt(data.data(), size)) << size;
        EXPECT_EQ(data, CountingBytes(48)) << size;
    }
}

TEST(CipherRC6, TouchesOnlyTheSizeGiven) {
    Bytes data = CountingBytes(48);
    EXPECT_TRUE(CipherRC6(Key().data()).Decrypt(data.data(), 32));
    EXPECT_EQ(Bytes(data.begin() + 32, data.end()),
              Bytes({32, 33, 34, 35, 36, 37, 38, 39, 40, 41, 42, 43, 44, 45, 46, 47}));
}

TEST(CipherRC6, AcceptsSizeZeroWithNull) {
    EXPECT_TRUE(CipherRC6(Key().data()).Decrypt(nullptr, 0));
}

TEST(CipherRC6, LeavesTheDataWhenThereIsNoMemory) {
    Bytes data = CountingBytes(16);
    platform::OrderFault(platform::FaultPoint::AllocateZeroed, 0);
    EXPECT_FALSE(CipherRC6(Key().data()).Decrypt(data.data(), data.size()));
    platform::ClearFaults();
    EXPECT_EQ(data, CountingBytes(16));
}

TEST(CipherRC6, LeavesTheKeyAlone) {
    const Bytes key = Key();
    const CipherRC6 cipher(key.data());
    EXPECT_EQ(ToHex(key), "0123456789abcdef0112233445566778");
}

TEST(CipherRC6, IsWipedByItsDestructor) {
    ObservedPlace<CipherRC6> place;
    const CipherRC6* cipher = place.Construct(Key().data());
    EXPECT_FALSE(place.AllZero());
    cipher->~CipherRC6();
    EXPECT_TRUE(place.AllZero());
}

}  // namespace
