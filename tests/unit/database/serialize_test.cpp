// Databases as containers in memory: Serialize and Deserialize.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "database/record.h"
#include "tests/unit/database/database_file_fixture.h"
#include "tests/unit/database/faults.h"
#include "tests/unit/database/hex.h"

namespace {

using platform::FaultPoint;
using platform::LastError;

// --- Serialize ---

class SerializeTest : public ::testing::Test {
protected:
    void SetUp() override {
        Fill(m_Database, kOneEmptyItem);
        SetPassword(m_Database);
    }
    [[nodiscard]] std::string SerializedHex() const {
        const tvdata data = m_Database.Serialize();
        return ToHex({data.Data(), data.Size()});
    }

    VMRD_DB m_Database;
};

TEST_F(SerializeTest, WritesAnItemWithThreeEmptyEntriesAsFiftyEightBytes) {
    Faults faults;
    faults.FixSalt(kSecond);
    EXPECT_EQ(SerializedHex(),
              "564d5232"
              "3a000000"
              "76b7aa3b30771ae3f6dca15c140180ddc5ad6eac484608eff919fab674185b61"
              "74b1504fe84508a8ff21fa91dec8fb05452c6b65331c4a678b0a6c6b80ae226b"
              "dd5e3cd5078ec3bedf252c907b812d4dcbed8400e41d0b5c758972ffa36c60a1");
}

TEST_F(SerializeTest, WritesNameItemsDatesAndEntriesInTheirOrder) {
    Faults faults;
    faults.FixSalt(kSecond);
    m_Database.Clear();
    Fill(m_Database,
         {u"Gold",
          {{u"Gr\u00f6\u00dfe", 1, {{3, u"a"}, {6, u"\U0001f600"}}}, {u"", 0xffff'ffff'ffff'ffff, {}}}});
    EXPECT_EQ(SerializedHex(),
              "564d5232"
              "7c000000"
              "76b7aa3b30771ae3f6dca15c140180ddc5ad6eac484608eff919fab674185b61"
              "3e5484261ecbcfbf8dcf8836eb4a9235fc4bb1014aad0c9940260172eda3cf5f"
              "309df4a07dfb869a6aa4ef073586d5f9f290371c227b005b451074e213f13c95"
              "be0982422ddababf4e735f3aff5f9794b4207dc6d84df21c12db0f54f969f269"
              "157d6cb21cfbfe772bd00bd9dd5172427f5d8c4d054caf7da225003502ddac9d");
}

TEST_F(SerializeTest, GivesOtherBytesEachTime) {
    EXPECT_NE(SerializedHex(), SerializedHex());
}

TEST_F(SerializeTest, IsEmptyWithoutAMasterPassword) {
    std::ranges::fill(m_Database.m_PwdHash, u8{0});
    EXPECT_TRUE(m_Database.Serialize().Empty());
}

TEST_F(SerializeTest, IsEmptyWithNeitherNameNorItems) {
    m_Database.Clear();
    EXPECT_TRUE(m_Database.Serialize().Empty());
    m_Database.m_Name = u"n";
    EXPECT_FALSE(m_Database.Serialize().Empty());
}

TEST_F(SerializeTest, IsEmptyForAnEntryOfNoRecordType) {
    m_Database.m_Head->m_Tail->m_Type = 8;
    EXPECT_TRUE(m_Database.Serialize().Empty());
    m_Database.m_Head->m_Tail->m_Type = 0;
    EXPECT_TRUE(m_Database.Serialize().Empty());
}

TEST_F(SerializeTest, IsEmptyWithoutMemory) {
    Faults faults;
    faults.Fail(FaultPoint::AllocateZeroed, 8);
    EXPECT_TRUE(m_Database.Serialize().Empty());
}

TEST_F(SerializeTest, IsEmptyWhenTheCipherFails) {
    Faults faults;
    EXPECT_TRUE((faults.Fail(FaultPoint::CipherProvider, 0), m_Database.Serialize().Empty()));
    EXPECT_TRUE((faults.Fail(FaultPoint::Encrypt, 0), m_Database.Serialize().Empty()));
    EXPECT_TRUE((faults.Fail(FaultPoint::Encrypt, 0, 1), m_Database.Serialize().Empty()));
    EXPECT_FALSE(m_Database.Serialize().Empty());
}

TEST_F(SerializeTest, FillsWholeBlocksAtEverySize) {
    for (std::size_t length = 0; length < 20; ++length) {
        m_Database.m_Head->m_Name = tvstring(length, u'n');
        const tvdata data = m_Database.Serialize();
        const std::size_t plain = 56 + 2 * length;
        EXPECT_EQ(data.Size(), kHeaderSize + (plain / 16 + 1) * 16);
        VMRD_DB copy;
        SetPassword(copy);
        EXPECT_TRUE(copy.Deserialize(data.Data(), data.Size()));
        EXPECT_EQ(TreeOf(copy), TreeOf(m_Database));
    }
}

// --- Deserialize ---

class DeserializeTest : public ::testing::Test {
protected:
    void SetUp() override { SetPassword(m_Database); }
    bool Take(const std::vector<u8>& container) {
        return m_Database.Deserialize(container.data(), container.size());
    }
    bool TakeStream(const std::vector<u8>& stream) { return Take(MadeContainer(stream)); }

    VMRD_DB m_Database;
};

TEST_F(DeserializeTest, TakesTheKnownContainer) {
    ASSERT_TRUE(
        Take(FromHex("564d52323a000000"
                     "76b7aa3b30771ae3f6dca15c140180ddc5ad6eac484608eff919fab674185b61"
                     "74b1504fe84508a8ff21fa91dec8fb05452c6b65331c4a678b0a6c6b80ae226b"
                     "dd5e3cd5078ec3bedf252c907b812d4dcbed8400e41d0b5c758972ffa36c60a1")));
    EXPECT_EQ(TreeOf(m_Database), kOneEmptyItem);
}

TEST_F(DeserializeTest, RefusesNull) {
    EXPECT_FALSE(m_Database.Deserialize(nullptr, 100));
}

TEST_F(DeserializeTest, RefusesUpToFortyBytes) {
    const std::vector<u8> good = MadeContainer(Stream({{1, u"n"}}));
    for (const std::size_t size : {0, 1, 39, 40}) {
        EXPECT_FALSE(m_Database.Deserialize(good.data(), size)) << size;
    }
}

TEST_F(DeserializeTest, RefusesFortyOneBytesAtDecryption) {
    std::vector<u8> bytes = MadeContainer(Stream({{1, u"n"}}), 0);
    bytes.resize(41);
    EXPECT_FALSE(Take(bytes));
}

TEST_F(DeserializeTest, RefusesWithoutAMasterPasswordEvenWhatWouldDecrypt) {
    std::ranges::fill(m_Database.m_PwdHash, u8{0});
    const std::vector<u8> stream = Stream({{1, u"n"}});
    EXPECT_FALSE(Take(MadeContainer(stream, static_cast<u32>(stream.size()), m_Database.m_PwdHash)));
    EXPECT_FALSE(TakeStream(stream));
}

TEST_F(DeserializeTest, RefusesAnotherMagic) {
    for (const std::size_t place : {0, 1, 2, 3}) {
        std::vector<u8> bytes = MadeContainer(Stream({{1, u"n"}}));
        bytes[place] ^= 0x20;
        EXPECT_FALSE(Take(bytes)) << place;
    }
}

TEST_F(DeserializeTest, RefusesAPlainSizeAboveWhatFollowsTheHeader) {
    const std::vector<u8> stream = Stream({{1, u"name of 14"}});
    ASSERT_EQ(stream.size(), 24U);
    EXPECT_FALSE(Take(MadeContainer(stream, 33)));
    EXPECT_FALSE(Take(MadeContainer(stream, 0x8000'0000)));
    EXPECT_FALSE(Take(MadeContainer(stream, 0xffff'ffff)));
}

TEST_F(DeserializeTest, RefusesAPlainSizeAboveWhatIsDecrypted) {
    const std::vector<u8> stream = Stream({{1, u"name of 14"}});
    EXPECT_FALSE(Take(MadeContainer(stream, 32)));
    EXPECT_FALSE(Take(MadeContainer(stream, 25)));
    EXPECT_TRUE(Take(MadeContainer(stream, 24)));
}

TEST_F(DeserializeTest, LeavesTheDatabaseAloneWhenItRefusesBeforeReading) {
    Fill(m_Database, kOneEmptyItem);
    std::vector<u8> bytes = MadeContainer(Stream({{1, u"n"}}));
    bytes[0] = 'X';
    EXPECT_FALSE(Take(bytes));
    EXPECT_EQ(TreeOf(m_Database), kOneEmptyItem);
    EXPECT_TRUE(m_Database.HasMasterPassword());
}

TEST_F(DeserializeTest, ResetsTheDatabaseWhenARecordDoesNotParse) {
    EXPECT_FALSE(TakeStream(Stream({{1, u"n"}, {2, u"item"}, {6, u"text"}, {8, u""}})));
    EXPECT_EQ(TreeOf(m_Database), Tree());
    EXPECT_FALSE(m_Database.HasMasterPassword());
}

TEST_F(DeserializeTest, RefusesWhenTheCipherFails) {
    Faults faults;
    for (const int after : {0, 1}) {
        faults.Fail(FaultPoint::Decrypt, 0, after);
        EXPECT_FALSE(TakeStream(Stream({{1, u"n"}})));
    }
    const std::vector<u8> good = MadeContainer(Stream({{1, u"n"}}));
    faults.Fail(FaultPoint::CipherProvider, 0);
    EXPECT_FALSE(Take(good));
    faults.Fail(FaultPoint::AllocateZeroed, 8);
    EXPECT_FALSE(Take(good));
    EXPECT_TRUE(Take(good));
}

TEST_F(DeserializeTest, IgnoresDecryptedBytesBeyondThePlainSize) {
    std::vector<u8> stream = Stream({{2, u"a"}, {4, u"u"}});
    const auto size = static_cast<u32>(stream.size());
    stream.insert(stream.end(), 40, 0xff);
    EXPECT_TRUE(Take(MadeContainer(stream, size)));
    EXPECT_EQ(TreeOf(m_Database), (Tree{u"", {{u"a", 0, {{4, u"u"}}}}}));
}

TEST_F(DeserializeTest, TakesAPlainSizeOfZeroAsAnEmptyDatabase) {
    EXPECT_TRUE(Take(MadeContainer(std::vector<u8>(5, 0xff), 0)));
    EXPECT_EQ(TreeOf(m_Database), Tree());
    EXPECT_TRUE(m_Database.HasMasterPassword());
}

TEST_F(DeserializeTest, TakesALastRecordThatRunsPastThePlainSizeWithinTheDecryptedBytes) {
    const std::vector<u8> stream = Stream({{2, u"a"}, {6, u"abcd"}});
    EXPECT_TRUE(Take(MadeContainer(stream, static_cast<u32>(stream.size() - 4))));
    EXPECT_EQ(TreeOf(m_Database), (Tree{u"", {{u"a", 0, {{6, u"abcd"}}}}}));
}

TEST_F(DeserializeTest, CutsALastRecordThatRunsPastTheDecryptedBytes) {
    std::vector<u8> stream = Stream({{2, u"a"}, {6, u"abcd"}});
    stream[8] = 0xff;  // the length of the last record
    EXPECT_TRUE(TakeStream(stream));
    EXPECT_EQ(TreeOf(m_Database), (Tree{u"", {{u"a", 0, {{6, u"abcd"}}}}}));
}

TEST_F(DeserializeTest, RefusesFewerThanFourBytesAtTheEnd) {
    for (const std::size_t rest : {1, 2, 3}) {
        SetPassword(m_Database);
        std::vector<u8> stream = Stream({{2, u"a"}});
        stream.insert(stream.end(), rest, 0);
        EXPECT_FALSE(TakeStream(stream)) << rest;
    }
}

TEST_F(DeserializeTest, RefusesTypesOutsideOneToSeven) {
    for (const u16 type : {u16{0}, u16{8}, u16{0x300}, u16{0xffff}}) {
        SetPassword(m_Database);
        EXPECT_FALSE(TakeStream(Stream({{2, u"a"}, {type, u"text"}}))) << type;
    }
}

TEST_F(DeserializeTest, RefusesAnEntryOrDateBeforeAnyItem) {
    for (u16 type = 3; type <= 7; ++type) {
        SetPassword(m_Database);
        EXPECT_FALSE(TakeStream(Stream({{1, u"n"}, {type, u"text"}, {2, u"a"}}))) << type;
    }
}

TEST_F(DeserializeTest, TakesNamesInAnyPlaceAndKeepsTheLast) {
    EXPECT_TRUE(TakeStream(Stream({{1, u"first"}, {2, u"a"}, {1, u"middle"}, {6, u"t"}, {1, u"last"}})));
    EXPECT_EQ(TreeOf(m_Database), (Tree{u"last", {{u"a", 0, {{6, u"t"}}}}}));
}

TEST_F(DeserializeTest, GivesAnItemWithoutDateTheDateZero) {
    EXPECT_TRUE(TakeStream(Stream({{2, u"a"}, {2, u"b"}, {7, u"5"}})));
    EXPECT_EQ(TreeOf(m_Database), (Tree{u"", {{u"a", 0, {}}, {u"b", 5, {}}}}));
}

TEST_F(DeserializeTest, KeepsTheLastDateOfAnItem) {
    EXPECT_TRUE(TakeStream(Stream({{2, u"a"}, {7, u"0x5"}, {6, u"t"}, {7, u"0x6"}})));
    EXPECT_EQ(TreeOf(m_Database), (Tree{u"", {{u"a", 6, {{6, u"t"}}}}}));
}

TEST_F(DeserializeTest, TakesDatesInDecimalInEitherHexadecimalFormOrEmpty) {
    EXPECT_TRUE(TakeStream(
        Stream({{2, u"a"}, {7, u"255"}, {2, u"b"}, {7, u"0XfF"}, {2, u"c"}, {7, u"9"}, {7, u""}})));
    EXPECT_EQ(TreeOf(m_Database), (Tree{u"", {{u"a", 255, {}}, {u"b", 255, {}}, {u"c", 0, {}}}}));
}

TEST_F(DeserializeTest, KeepsEntriesOfAnyTypeInTheirOrder) {
    const Tree tree{u"", {{u"", 0, {{6, u"1"}, {5, u""}, {5, u"2"}, {3, u"3"}, {4, u"4"}, {6, u""}}}}};
    EXPECT_TRUE(
        TakeStream(Stream({{2, u""}, {6, u"1"}, {5, u""}, {5, u"2"}, {3, u"3"}, {4, u"4"}, {6, u""}})));
    EXPECT_EQ(TreeOf(m_Database), tree);
}

TEST_F(DeserializeTest, GetsTheLongestTextBackWhole) {
    Tree tree = kOneEmptyItem;
    tree.items[0].entries.push_back({6, std::u16string(65535, u'z')});
    Fill(m_Database, tree);
    const tvdata data = m_Database.Serialize();
    VMRD_DB copy;
    SetPassword(copy);
    EXPECT_TRUE(copy.Deserialize(data.Data(), data.Size()));
    EXPECT_EQ(TreeOf(copy), tree);
}

TEST_F(DeserializeTest, TakesTheLastUnitOfATooLongTextForTheNextType) {
    std::u16string text(65536, u'z');
    text.back() = 4;
    Fill(m_Database, {u"", {{u"a", 0, {{6, text}, {3, u"xyz"}}}}});
    const tvdata data = m_Database.Serialize();
    VMRD_DB copy;
    SetPassword(copy);
    // Type 4 and, for a length, type 3: the length of the next record and two of its three units.
    ASSERT_FALSE(copy.Deserialize(data.Data(), data.Size()));
    m_Database.m_Head->m_Tail->m_Text = u"xy";
    const tvdata fitting = m_Database.Serialize();
    SetPassword(copy);
    ASSERT_TRUE(copy.Deserialize(fitting.Data(), fitting.Size()));
    text.pop_back();
    EXPECT_EQ(TreeOf(copy), (Tree{u"", {{u"a", 0, {{6, text}, {4, u"\u0002xy"}}}}}));
}

}  // namespace
