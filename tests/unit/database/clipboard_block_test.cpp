// The block of items and entries on the clipboard, byte for byte, and what comes of damaged ones.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>
#include <span>
#include <vector>

#include "tests/unit/database/clipboard_fixture.h"
#include "tests/unit/database/made_container.h"

namespace {

constexpr std::size_t kCipherPlace = kKeyHashSize + kHeaderSize;

std::span<const u8> Part(const Bytes& block, std::size_t place, std::size_t size) {
    return std::span(block).subspan(place, size);
}

Bytes Copied(std::span<const u8> part) {
    return {part.begin(), part.end()};
}

u32 PlainSizeOf(const Bytes& block) {
    u32 size = 0;
    std::memcpy(&size, block.data() + kKeyHashSize + sizeof kMagic, sizeof size);
    return size;
}

// The record stream of a block, decrypted with the key that stands in front of it.
Bytes StreamOf(const Bytes& block) {
    SecretBytes<kKeySize> key;
    DeriveKey(block.data(), block.data() + kKeyHashSize + 8, key.Data());
    const tvdata plain = Decrypt(block.data() + kCipherPlace, block.size() - kCipherPlace, key.Data());
    EXPECT_EQ(plain.Size(), PlainSizeOf(block));
    return {plain.Data(), plain.Data() + plain.Size()};
}

// A block of a record stream under a key hash of 100, 101, ...
Bytes MadeBlock(const Bytes& stream, u32 plainSize) {
    Bytes block(kKeyHashSize);
    for (std::size_t i = 0; i < block.size(); ++i)
        block[i] = static_cast<u8>(100 + i);
    const Bytes container = MadeContainer(stream, plainSize, block.data());
    block.insert(block.end(), container.begin(), container.end());
    return block;
}
Bytes MadeBlock(const Bytes& stream) {
    return MadeBlock(stream, static_cast<u32>(stream.size()));
}

Bytes OneItem() {
    return Stream({{VMRD_T_ITEMNAME, u"Mail"}, {VMRD_T_DATE, u"0x0000000000000007"}, {VMRD_T_PROGRAM, u"p"}});
}

class ClipboardLayout : public ClipboardTransfer {
protected:
    ItemElement* m_Item = PutItem(u"Mail", {Program(u"p"), Password(u"w"), Addition(u"")});

    Bytes CopyItem() {
        EXPECT_TRUE(Copy({m_Item}));
        return Get(ItemsClipboardFormat());
    }
};

class DamagedBlock : public ClipboardTransfer {
protected:
    // A carrier that has an item already.
    void SetUp() override { Refill(); }
    void Refill() {
        m_Carrier.Reset();
        m_Carrier.m_Name = u"former";
        VMRD_Item item;
        AddItemCopy(m_Carrier, item, nullptr);
    }
    [[nodiscard]] bool IsUntouched() const { return m_Carrier.m_Count == 1 && m_Carrier.m_Name == u"former"; }
    [[nodiscard]] bool IsEmpty() const { return TreeOf(m_Carrier) == Tree(); }

    VMRD_DB m_Carrier;
};

// --- Layout ---

TEST_F(ClipboardLayout, IsKeyHashMagicPlainSizeSaltAndCipherText) {
    m_Item->m_Date = 0x0123'4567'89AB'CDEF;
    const Bytes block = CopyItem();
    const Bytes stream = Stream({{VMRD_T_ITEMNAME, u"Mail"},
                                 {VMRD_T_DATE, u"0x0123456789abcdef"},
                                 {VMRD_T_PROGRAM, u"p"},
                                 {VMRD_T_PASSWORD, u"w"},
                                 {VMRD_T_ADDITION, u""}});
    ASSERT_GT(block.size(), kCipherPlace);
    EXPECT_EQ(Copied(Part(block, 32, 4)), (Bytes{'V', 'M', 'R', '2'}));
    EXPECT_EQ(PlainSizeOf(block), stream.size());
    EXPECT_EQ(block.size(), kCipherPlace + (stream.size() / 16 + 1) * 16);
    EXPECT_EQ(StreamOf(block), stream);
}

// Without random bytes everything in the block is known.
TEST_F(ClipboardLayout, IsKnownByteForByteFromKeyHashAndSalt) {
    constexpr u32 kSecond = 1'700'000'000;
    Faults faults;
    faults.FixSalt(kSecond);
    m_Item->m_Date = 7;
    const Bytes block = CopyItem();
    std::mt19937 generator(kSecond);
    Bytes salt;
    for (int i = 0; i < 8; ++i) {
        const auto word = static_cast<u32>(generator());
        for (int shift = 0; shift < 32; shift += 8)
            salt.push_back(static_cast<u8>(word >> shift));
    }
    const Bytes stream = Stream({{VMRD_T_ITEMNAME, u"Mail"},
                                 {VMRD_T_DATE, u"0x0000000000000007"},
                                 {VMRD_T_PROGRAM, u"p"},
                                 {VMRD_T_PASSWORD, u"w"},
                                 {VMRD_T_ADDITION, u""}});
    Bytes expected = salt;
    expected.insert(expected.end(), {'V', 'M', 'R', '2', static_cast<u8>(stream.size()), 0, 0, 0});
    expected.insert(expected.end(), salt.begin(), salt.end());
    SecretBytes<kKeySize> key;
    DeriveKey(salt.data(), salt.data(), key.Data());
    const tvdata cipher = Encrypt(stream.data(), stream.size(), key.Data());
    expected.insert(expected.end(), cipher.Data(), cipher.Data() + cipher.Size());
    EXPECT_EQ(block, expected);
}

TEST_F(ClipboardLayout, OfEntriesIsOneItemWithTheNameOfTheFormat) {
    EXPECT_TRUE(CopyOf({m_Item->m_Head->m_Next, m_Item->m_Head}));
    const Bytes block = Get(EntriesClipboardFormat());
    EXPECT_EQ(StreamOf(block), Stream({{VMRD_T_ITEMNAME, u"VaultmereItem"},
                                       {VMRD_T_DATE, u"0x0000000000000000"},
                                       {VMRD_T_PASSWORD, u"w"},
                                       {VMRD_T_PROGRAM, u"p"}}));
}

TEST_F(ClipboardLayout, HasNoRecordOfADatabaseName) {
    db.m_Name = u"My passwords";
    const Bytes stream = StreamOf(CopyItem());
    EXPECT_EQ(stream[0], VMRD_T_ITEMNAME);
}

TEST_F(ClipboardLayout, OfTwoCopiesDiffersInAllButMagicAndPlainSize) {
    const Bytes first = CopyItem();
    const Bytes second = CopyItem();
    ASSERT_EQ(first.size(), second.size());
    EXPECT_EQ(Copied(Part(first, 32, 8)), Copied(Part(second, 32, 8)));
    for (const std::size_t place : {0, 16, 40, 56})  // key hash and salt
        EXPECT_NE(Copied(Part(first, place, 16)), Copied(Part(second, place, 16))) << place;
    for (std::size_t place = kCipherPlace; place < first.size(); place += 16)
        EXPECT_NE(Copied(Part(first, place, 16)), Copied(Part(second, place, 16))) << place;
    EXPECT_NE(Copied(Part(first, 0, 32)), Copied(Part(first, 40, 32)));
}

TEST_F(ClipboardLayout, HasNoPlainTextInIt) {
    m_Item->m_Name = u"a name that stands out";
    const Bytes block = CopyItem();
    const std::u16string_view name = m_Item->m_Name;
    const auto* bytes = reinterpret_cast<const u8*>(name.data());
    EXPECT_EQ(std::search(block.begin(), block.end(), bytes, bytes + 8), block.end());
}

// --- Blocks that are read ---

TEST_F(DamagedBlock, IsNoneIfItIsWhole) {
    EXPECT_TRUE(Reads(m_Carrier, MadeBlock(OneItem())));
    EXPECT_EQ(TreeOf(m_Carrier), (Tree{u"", {{u"Mail", 7, {{VMRD_T_PROGRAM, u"p"}}}}}));
}

TEST_F(DamagedBlock, MayHaveAnyTypeOfRecordInFrontOfItsItems) {
    const Bytes stream = Stream({{VMRD_T_DBNAME, u"name"}, {VMRD_T_ITEMNAME, u"Mail"}});
    EXPECT_TRUE(Reads(m_Carrier, MadeBlock(stream)));
    EXPECT_EQ(TreeOf(m_Carrier), (Tree{u"name", {{u"Mail", 0, {}}}}));
}

TEST_F(DamagedBlock, OfUpTo36BytesLeavesTheCarrier) {
    const Bytes whole = MadeBlock(OneItem());
    for (std::size_t size = 0; size <= 36; ++size) {
        EXPECT_FALSE(
            Reads(m_Carrier, Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size))));
        EXPECT_TRUE(IsUntouched()) << size;
    }
}

TEST_F(DamagedBlock, Of37To72BytesLeavesAnEmptyCarrier) {
    const Bytes whole = MadeBlock(OneItem());
    for (std::size_t size = 37; size <= 72; ++size) {
        Refill();
        EXPECT_FALSE(
            Reads(m_Carrier, Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size))));
        EXPECT_TRUE(IsEmpty()) << size;
    }
}

TEST_F(DamagedBlock, IsRefusedHoweverMuchIsMissing) {
    const Bytes whole = MadeBlock(OneItem());
    for (std::size_t size = 73; size < whole.size(); ++size) {
        Refill();
        EXPECT_FALSE(
            Reads(m_Carrier, Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size))));
        EXPECT_TRUE(IsEmpty()) << size;
    }
}

TEST_F(DamagedBlock, IsRefusedOnTheClipboardToo) {
    const Bytes whole = MadeBlock(OneItem());
    for (const std::ptrdiff_t size : {1, 36, 37, 72, 73}) {
        Refill();
        Put(ItemsClipboardFormat(), Bytes(whole.begin(), whole.begin() + size));
        EXPECT_FALSE(VMRD_DB::ReadClipboard(m_Carrier, ItemsClipboardFormat()));
        EXPECT_EQ(size > 36 ? IsEmpty() : IsUntouched(), true) << size;
    }
    Put(ItemsClipboardFormat(), whole);
    EXPECT_TRUE(VMRD_DB::ReadClipboard(m_Carrier, ItemsClipboardFormat()));
}

TEST_F(DamagedBlock, IsRefusedForAnotherMagic) {
    for (std::size_t place = 32; place < 36; ++place) {
        Bytes block = MadeBlock(OneItem());
        block[place] ^= 1;
        Refill();
        EXPECT_FALSE(Reads(m_Carrier, block));
        EXPECT_TRUE(IsEmpty());
    }
}

TEST_F(DamagedBlock, IsRefusedForAPlainSizeThatIsLargerThanItsText) {
    const Bytes stream = OneItem();
    EXPECT_FALSE(Reads(m_Carrier, MadeBlock(stream, static_cast<u32>(stream.size()) + 1)));
    EXPECT_TRUE(IsEmpty());
    EXPECT_FALSE(Reads(m_Carrier, MadeBlock(stream, 0xFFFF'FFFF)));
}

TEST_F(DamagedBlock, IsRefusedForAnotherKey) {
    for (const std::size_t place : {0, 31}) {  // the first and the last byte of the key hash
        Bytes block = MadeBlock(OneItem());
        block[place] ^= 1;
        Refill();
        EXPECT_FALSE(Reads(m_Carrier, block));
        EXPECT_TRUE(IsEmpty());
    }
    Bytes block = MadeBlock(OneItem());
    block[40] ^= 1;  // the salt
    EXPECT_FALSE(Reads(m_Carrier, block));
}

TEST_F(DamagedBlock, IsRefusedForAKeyOfZeros) {
    Bytes block(kKeyHashSize);
    const Bytes container = MadeContainer(OneItem(), static_cast<u32>(OneItem().size()), block.data());
    block.insert(block.end(), container.begin(), container.end());
    EXPECT_FALSE(Reads(m_Carrier, block));
    EXPECT_TRUE(IsEmpty());
}

TEST_F(DamagedBlock, IsRefusedForACipherTextThatIsChanged) {
    Bytes block = MadeBlock(OneItem());
    block[kCipherPlace] ^= 1;
    EXPECT_FALSE(Reads(m_Carrier, block));
    EXPECT_TRUE(IsEmpty());
}

TEST_F(DamagedBlock, IsRefusedForRecordsThatAreNone) {
    for (const Bytes& stream :
         {Stream({{VMRD_T_PROGRAM, u"p"}}), Stream({{VMRD_T_DATE, u"0x07"}}),
          Stream({{VMRD_T_ITEMNAME, u"Mail"}, {8, u""}}), Stream({{VMRD_T_ITEMNAME, u"Mail"}, {0, u"p"}})}) {
        Refill();
        EXPECT_FALSE(Reads(m_Carrier, MadeBlock(stream)));
        EXPECT_TRUE(IsEmpty());
    }
}

TEST_F(DamagedBlock, IsRefusedWithoutAnItem) {
    EXPECT_FALSE(Reads(m_Carrier, MadeBlock(Stream({{VMRD_T_DBNAME, u"name"}}))));
    EXPECT_EQ(m_Carrier.m_Count, 0);
    EXPECT_FALSE(Reads(m_Carrier, MadeBlock(Stream({{VMRD_T_ITEMNAME, u"Mail"}}), 0)));
    EXPECT_EQ(m_Carrier.m_Count, 0);
}

}  // namespace
