#include "platform/crypto.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "platform/fault.h"
#include "tests/unit/database/hex.h"

namespace {

using Bytes = std::vector<u8>;
using platform::FaultPoint;

constexpr std::size_t kBlock = 16;

// NIST SP 800-38A, F.2.5 CBC-AES256.Encrypt.
constexpr char kKey[] = "603deb1015ca71be2b73aef0857d77811f352c073b6108d72d9810a30914dff4";
constexpr char kVector[] = "000102030405060708090a0b0c0d0e0f";
constexpr char kPlain[] =
    "6bc1bee22e409f96e93d7e117393172aae2d8a571e03ac9c9eb76fac45af8e51"
    "30c81c46a35ce411e5fbc1191a0a52eff69f2445df4f9b17ad2b417be66c3710";
constexpr char kCipher[] =
    "f58c4c04d6e5f1ba779eabfb5f7bfbd69cfc4e967edb808d679f777bc6702c7d"
    "39f23369a9d9bacfa530e26304231461b2eb05e2c39be9fcda6c19078c6a9d1b";

// The published plain text for a chain that starts from zeros: the vector is added to the first block.
Bytes PlainForZeroVector() {
    Bytes plain = FromHex(kPlain);
    const Bytes vector = FromHex(kVector);
    for (std::size_t i = 0; i < kBlock; ++i)
        plain[i] ^= vector[i];
    return plain;
}

class Aes : public testing::Test {
protected:
    ~Aes() override { platform::ClearFaults(); }

    // A key object is good for one pass.
    struct Key {
        explicit Key(const char* hex = kKey) : object(platform::MakeAesKey(FromHex(hex).data())) {}
        ~Key() { platform::DestroyAesKey(object); }
        Key(const Key&) = delete;
        Key& operator=(const Key&) = delete;
        platform::AesKey object;
    };

    static Bytes Encrypted(const Bytes& plain) {
        const Key key;
        std::size_t size = 0;
        EXPECT_TRUE(platform::AesEncrypt(key.object, plain.data(), plain.size(), nullptr, 0, size));
        EXPECT_EQ(size, (plain.size() / kBlock + 1) * kBlock);
        Bytes out(size);
        std::size_t done = 0;
        EXPECT_TRUE(
            platform::AesEncrypt(key.object, plain.data(), plain.size(), out.data(), out.size(), done));
        EXPECT_EQ(done, size);
        return out;
    }

    static bool Decrypt(const Bytes& cipher, Bytes& plain, const char* hexKey = kKey) {
        const Key key(hexKey);
        std::size_t size = 0;
        if (!platform::AesDecrypt(key.object, cipher.data(), cipher.size(), nullptr, 0, size)) return false;
        EXPECT_GE(size + kBlock, cipher.size());
        plain.assign(size, 0);
        std::size_t done = 0;
        if (!platform::AesDecrypt(key.object, cipher.data(), cipher.size(), plain.data(), size, done)) {
            return false;
        }
        EXPECT_LE(done, size);
        plain.resize(done);
        return true;
    }
};

TEST_F(Aes, EncryptsThePublishedVector) {
    const Bytes cipher = Encrypted(PlainForZeroVector());
    ASSERT_EQ(cipher.size(), 80U);
    EXPECT_EQ(ToHex(std::span(cipher).first(64)), kCipher);
}

TEST_F(Aes, DecryptsThePublishedVector) {
    // The filling in a block of its own, made by encrypting on from the vector's last block.
    const Bytes cipher = Encrypted(PlainForZeroVector());
    Bytes known = FromHex(kCipher);
    known.insert(known.end(), cipher.end() - kBlock, cipher.end());
    Bytes plain;
    ASSERT_TRUE(Decrypt(known, plain));
    EXPECT_EQ(plain, PlainForZeroVector());
}

TEST_F(Aes, FillsTheLastBlockByPkcs7) {
    // A text of 13 bytes is filled with three bytes of value 3: the same as the full block without its own
    // filling.
    Bytes text = {'t', 'h', 'i', 'r', 't', 'e', 'e', 'n', ' ', 'b', 'y', 't', 'e'};
    const Bytes filledBySystem = Encrypted(text);
    EXPECT_EQ(filledBySystem.size(), kBlock);
    text.insert(text.end(), {3, 3, 3});
    const Bytes filledByHand = Encrypted(text);
    EXPECT_TRUE(std::equal(filledBySystem.begin(), filledBySystem.end(), filledByHand.begin()));
}

TEST_F(Aes, GoesThereAndBackAtAnySize) {
    for (const std::size_t size : {0, 1, 15, 16, 17, 31, 32, 33, 1000, 100'000}) {
        const Bytes plain = CountingBytes(size);
        Bytes back;
        ASSERT_TRUE(Decrypt(Encrypted(plain), back)) << size;
        EXPECT_EQ(back, plain);
    }
}

TEST_F(Aes, WorksInPlace) {
    const Bytes plain = CountingBytes(40);
    Bytes bytes = plain;
    bytes.resize(48);
    std::size_t done = 0;
    const Key forward;
    ASSERT_TRUE(platform::AesEncrypt(forward.object, bytes.data(), 40, bytes.data(), 48, done));
    EXPECT_EQ(bytes, Encrypted(plain));
    const Key back;
    ASSERT_TRUE(platform::AesDecrypt(back.object, bytes.data(), 48, bytes.data(), 48, done));
    bytes.resize(done);
    EXPECT_EQ(bytes, plain);
}

TEST_F(Aes, RefusesAWrongFilling) {
    // Without the last block the third one is the last; the text in it ends with EF.
    Bytes plain;
    Bytes cipher = FromHex(kCipher);
    cipher.resize(48);
    EXPECT_FALSE(Decrypt(cipher, plain));
}

TEST_F(Aes, RefusesAnotherKey) {
    constexpr char kOther[] = "0000000000000000000000000000000000000000000000000000000000000001";
    Bytes plain;
    const bool good = Decrypt(Encrypted(CountingBytes(40)), plain, kOther);
    EXPECT_FALSE(good && plain == CountingBytes(40));
}

TEST_F(Aes, RefusesASizeThatIsNoWholeNumberOfBlocks) {
    Bytes plain;
    Bytes cipher = Encrypted(CountingBytes(40));
    cipher.pop_back();
    EXPECT_FALSE(Decrypt(cipher, plain));
    const Key key;
    u8 room[kBlock] = {};
    std::size_t done = 0;
    EXPECT_FALSE(platform::AesDecrypt(key.object, room, 0, room, kBlock, done));
}

TEST_F(Aes, RefusesRoomThatIsTooSmall) {
    const Bytes plain = CountingBytes(40);
    Bytes out(48);
    std::size_t done = 0;
    const Key key;
    EXPECT_FALSE(platform::AesEncrypt(key.object, plain.data(), 40, out.data(), 47, done));
}

TEST_F(Aes, FailsWhereTheSystemFails) {
    const Bytes bytes = CountingBytes(16);
    std::size_t done = 0;
    platform::OrderFault(FaultPoint::CipherProvider, 0);
    EXPECT_EQ(platform::MakeAesKey(FromHex(kKey).data()), nullptr);
    const Key key;
    ASSERT_NE(key.object, nullptr);
    platform::OrderFault(FaultPoint::Encrypt, 0);
    EXPECT_FALSE(platform::AesEncrypt(key.object, bytes.data(), 16, nullptr, 0, done));
    platform::OrderFault(FaultPoint::Decrypt, 0);
    EXPECT_FALSE(platform::AesDecrypt(key.object, bytes.data(), 16, nullptr, 0, done));
}

TEST_F(Aes, DestroysNothing) {
    platform::DestroyAesKey(nullptr);
}

TEST(RandomBytes, FillsTheWholeBufferDifferentlyEachTime) {
    Bytes first(64);
    Bytes second(64);
    ASSERT_TRUE(platform::RandomBytes(first.data(), first.size()));
    ASSERT_TRUE(platform::RandomBytes(second.data(), second.size()));
    EXPECT_NE(first, second);
    EXPECT_FALSE(std::all_of(first.begin() + 48, first.end(), [](u8 byte) { return byte == 0; }));
}

TEST(RandomBytes, FailsWhereTheSystemHasNone) {
    u8 byte = 9;
    platform::OrderFault(FaultPoint::RandomBytes, 0);
    EXPECT_FALSE(platform::RandomBytes(&byte, 1));
    platform::ClearFaults();
    EXPECT_EQ(byte, 9);
}

}  // namespace
