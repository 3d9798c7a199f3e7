// Databases of the old format: what is refused, and what is skipped.
#include "tests/unit/database/old_file_test.h"

#include <limits>

using namespace old_file;
using platform::FaultPoint;

namespace {

// Refusals at the head.

TEST_F(OldFile, ThatCannotBeOpenedIsRefused) {
    platform::SetLastError(kSomeError);
    EXPECT_FALSE(m_Database.OpenOld(m_Folder.Path(u"missing.vmr"), kPasswordText));
    ExpectClosed();
    EXPECT_FALSE(m_Database.OpenOld(u"", kPasswordText));
    ExpectClosed();
}

TEST_F(OldFile, ThatTheSystemRefusesToOpenIsRefused) {
    for (const FaultPoint point : {FaultPoint::OpenFile, FaultPoint::FileSize, FaultPoint::SeekFile}) {
        platform::OrderFault(point, platform::kErrorAccessDenied);
        ExpectRefused(File("Private", kPassword, {LongBody(Mail())}));
    }
}

TEST_F(OldFile, WithAFailingOrShortReadInItsHeadIsRefused) {
    constexpr int kReadsOfTheHead = 5;  // magic, name length, name, block length, block
    for (const FaultPoint point : {FaultPoint::ReadFile, FaultPoint::ShortRead}) {
        for (int after = 0; after < kReadsOfTheHead; ++after) {
            platform::OrderFault(point, platform::kErrorIoDevice, after);
            ExpectRefused(File("Private", kPassword, {LongBody(Mail())}));
        }
    }
}

TEST_F(OldFile, WithoutMemoryForTheCheckBlockIsRefused) {
    platform::OrderFault(FaultPoint::AllocateZeroed, platform::kErrorNotEnoughMemory);
    ExpectRefused(File("Private", kPassword, {LongBody(Mail())}));
}

TEST_F(OldFile, WithTheWrongPasswordIsRefused) {
    ExpectRefused(File("Private", "neu", {LongBody(Mail())}));
}

TEST_F(OldFile, WhoseKeyCopyDiffersInOneBitIsRefused) {
    for (std::size_t i = 0; i < HashMD5::kDigestSize; ++i) {
        CheckBlock check = GoodCheck();
        check.keyCopy[i] ^= 0x80;
        ExpectRefused(CheckedFile(check));
    }
    EXPECT_TRUE(Open(CheckedFile(GoodCheck())));
}

TEST_F(OldFile, WithoutTheMagicIsRefused) {
    for (std::size_t i = 0; i < 6; ++i) {
        Bytes file = File("Private", kPassword, {LongBody(Mail())});
        file[i] ^= 1;
        ExpectRefused(file);
    }
}

TEST_F(OldFile, CutOffAnywhereInItsHeadIsRefused) {
    const Bytes head = Head("name", kPassword, 0);
    for (std::size_t size = 0; size < head.size(); ++size)
        ExpectRefused(Bytes(head.begin(), head.begin() + static_cast<std::ptrdiff_t>(size)));
    EXPECT_TRUE(Open(head));
}

TEST_F(OldFile, WithAHugeNameLengthIsRefused) {
    for (const u32 length : {599U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
        Bytes file = File("", kPassword, {});
        for (std::size_t i = 0; i < 4; ++i)
            file[6 + i] = static_cast<u8>(length >> (8 * i));
        ExpectRefused(file);
    }
}

TEST_F(OldFile, CheckBlockOutsideTheRangeOrOfNoWholeBlocksIsRefused) {
    const Bytes whole = PlainCheckBlock(GoodCheck());
    const Bytes cipher = Rc6EncryptEcb(KeyOf(kPassword).data(), whole);
    for (const std::size_t size : {0U, 16U, 19U, 20U, 31U, 33U, 36U, 37U, 48U, 64U}) {
        Bytes block = cipher;
        block.resize(size);
        Bytes file = NameHead("name");
        Append(file, Block(block));
        Append(file, Bytes(64, 0));
        ExpectRefused(file);
    }
}

TEST_F(OldFile, CheckBlockOfAHugeLengthIsRefused) {
    for (const u32 length : {0x7FFFFFF0U, 0xFFFFFFF0U}) {
        Bytes file = NameHead("name");
        AppendWord(file, length);
        Append(file, Bytes(64, 0));
        ExpectRefused(file);
    }
}

TEST_F(OldFile, CheckBlockWithWrongSizesIsRefused) {
    const u32 wrong[][3] = {
        {21, 16, 4},           // the sum is wrong
        {19, 15, 4},           // the key size is wrong
        {22, 16, 6},           // the count size is wrong
        {20, 12, 8},           // both are, and the sum is right
        {20, 0xFFFFFFFF, 21},  // the sum wraps around
        {0, 0, 0},
    };
    for (const auto& sizes : wrong) {
        CheckBlock check = GoodCheck();
        check.total = sizes[0];
        check.keySize = sizes[1];
        check.countSize = sizes[2];
        ExpectRefused(CheckedFile(check));
    }
}

// Bad items.

// A file with a block between two good items, with a count of three.
Bytes WithBlockBetween(const Bytes& block) {
    const Key key = KeyOf(kPassword);
    Bytes file = Head("Private", kPassword, 3);
    Append(file, ItemBlock(key, LongBody(Mail())));
    Append(file, block);
    Append(file, ItemBlock(key, LongBody(Shop())));
    return file;
}

TEST_F(OldFile, ItemShorterThanABlockIsSkipped) {
    // Reading goes on behind the length word alone.
    for (const u32 length : {0U, 1U, 15U}) {
        Bytes block;
        AppendWord(block, length);
        m_Database.Close();
        ASSERT_TRUE(Open(WithBlockBetween(block)));
        EXPECT_EQ(NamesOf(m_Database), u"Mail Shop ");
        EXPECT_EQ(platform::LastError(), kSomeError);
    }
}

TEST_F(OldFile, ItemOfNoWholeBlocksIsSkipped) {
    for (const std::size_t size : {17U, 47U, 3055U, 3057U, 10001U}) {
        Bytes body = Rc6EncryptEcb(KeyOf(kPassword).data(), LongBody(Mail()));
        body.resize(size);
        m_Database.Close();
        ASSERT_TRUE(Open(WithBlockBetween(Block(body))));
        EXPECT_EQ(NamesOf(m_Database), u"Mail Shop ");
    }
}

TEST_F(OldFile, ItemOfOneBlockIsSkipped) {
    // Words 0 to 3 are zero and sum up, but the others are not there.
    ASSERT_TRUE(Open(WithBlockBetween(ItemBlock(KeyOf(kPassword), Bytes(16, 0)))));
    EXPECT_EQ(NamesOf(m_Database), u"Mail Shop ");
}

TEST_F(OldFile, ItemWhoseLengthsDoNotSumUpIsSkipped) {
    for (Bytes body : {LongBody(Mail()), ShortBody(Mail())}) {
        PutWord(body, 0, WordAt(body, 0) + 1);
        m_Database.Close();
        ASSERT_TRUE(Open(WithBlockBetween(ItemBlock(KeyOf(kPassword), body))));
        EXPECT_EQ(NamesOf(m_Database), u"Mail Shop ");
    }
}

TEST_F(OldFile, ItemWhoseTextsRunPastItsBodyIsSkipped) {
    for (Bytes body : {LongBody(Mail()), ShortBody(Mail())}) {
        PutWord(body, 0, WordAt(body, 0) + 500);
        PutWord(body, 5, WordAt(body, 5) + 500);
        m_Database.Close();
        ASSERT_TRUE(Open(WithBlockBetween(ItemBlock(KeyOf(kPassword), body))));
        EXPECT_EQ(NamesOf(m_Database), u"Mail Shop ");
    }
}

TEST_F(OldFile, ItemsBehindABadOneKeepNothingOfIt) {
    Item tooLong = {"leftover", "leftover", "leftover", "leftover", std::string(599, 'x')};
    ASSERT_TRUE(Open(File("Private", kPassword, {LongBody(tooLong), LongBody({"x", "", "", "", ""})})));
    EXPECT_EQ(NamesOf(m_Database), u"x ");
    EXPECT_EQ(EntriesOf(*m_Database.m_Head), u"3: 4: 5: ");
}

TEST_F(OldFile, FillerOfAnyLengthIsIgnored) {
    for (const std::size_t filler : {16U, 3056U, 200'000U}) {
        Bytes body = LongBody(Mail());
        body.resize((body.size() + 15) / 16 * 16 + filler / 16 * 16, 0xEE);
        m_Database.Close();
        ASSERT_TRUE(Open(WithBlockBetween(ItemBlock(KeyOf(kPassword), body))));
        EXPECT_EQ(NamesOf(m_Database), u"Mail Mail Shop ");
    }
}

TEST_F(OldFile, MissingBlocksAreSkipped) {
    Bytes file = Head("Private", kPassword, 5);
    Append(file, ItemBlock(KeyOf(kPassword), LongBody(Mail())));
    ASSERT_TRUE(Open(file));
    EXPECT_EQ(NamesOf(m_Database), u"Mail ");
}

TEST_F(OldFile, LastBlockCutOffAnywhereIsSkipped) {
    const Bytes file = File("Private", kPassword, {LongBody(Mail()), LongBody(Shop())});
    const std::size_t last = ItemBlock(KeyOf(kPassword), LongBody(Shop())).size();
    for (std::size_t cut = 1; cut <= last; ++cut) {
        m_Database.Close();
        ASSERT_TRUE(Open(Bytes(file.begin(), file.end() - static_cast<std::ptrdiff_t>(cut))));
        EXPECT_EQ(NamesOf(m_Database), u"Mail ");
    }
}

TEST_F(OldFile, CountBeyondTheEndOfTheFileEndsAtOnce) {
    Bytes file = Head("Private", kPassword, std::numeric_limits<i32>::max());
    ASSERT_TRUE(Open(file));
    EXPECT_EQ(m_Database.m_Count, 0);
    m_Database.Close();
    Append(file, ItemBlock(KeyOf(kPassword), LongBody(Mail())));
    ASSERT_TRUE(Open(file));
    EXPECT_EQ(NamesOf(m_Database), u"Mail ");
}

TEST_F(OldFile, CountBeyondTheEndOfAFileThatCannotBeReadEndsAtOnce) {
    constexpr int kReadsOfTheHead = 5;
    Bytes file = Head("Private", kPassword, std::numeric_limits<i32>::max());
    Append(file, ItemBlock(KeyOf(kPassword), LongBody(Mail())));
    platform::OrderFault(FaultPoint::ReadFile, platform::kErrorIoDevice, kReadsOfTheHead,
                         std::numeric_limits<int>::max());
    ASSERT_TRUE(Open(file));
    EXPECT_EQ(m_Database.m_Count, 0);
}

TEST_F(OldFile, CountOfZeroOrLessMeansNoItems) {
    for (const i32 count : {0, -1, std::numeric_limits<i32>::min()}) {
        Bytes file = Head("Private", kPassword, count);
        Append(file, ItemBlock(KeyOf(kPassword), LongBody(Mail())));
        m_Database.Close();
        ASSERT_TRUE(Open(file));
        EXPECT_EQ(m_Database.m_Count, 0);
        EXPECT_TRUE(m_Database.m_Opened);
    }
}

TEST_F(OldFile, BlocksBeyondTheCountAreNotRead) {
    Bytes file = Head("Private", kPassword, 1);
    Append(file, ItemBlock(KeyOf(kPassword), LongBody(Mail())));
    Append(file, ItemBlock(KeyOf(kPassword), LongBody(Shop())));
    ASSERT_TRUE(Open(file));
    EXPECT_EQ(NamesOf(m_Database), u"Mail ");
}

TEST_F(OldFile, HugeBlockLengthTakesTheRestOfTheFile) {
    for (const u32 length : {0x7FFFFFF0U, 0xFFFFFFF0U, 0xFFFFFFFFU}) {
        Bytes block;
        AppendWord(block, length);
        m_Database.Close();
        ASSERT_TRUE(Open(WithBlockBetween(block)));
        EXPECT_EQ(NamesOf(m_Database), u"Mail ");
    }
}

TEST_F(OldFile, ReadingGoesOnBehindAFailingRead) {
    constexpr int kReadsOfTheHead = 5;
    platform::OrderFault(FaultPoint::ReadFile, platform::kErrorIoDevice, kReadsOfTheHead + 2);
    // The length of the second block cannot be read at the first try; the third try finds it where it was.
    ASSERT_TRUE(Open(WithBlockBetween(ItemBlock(KeyOf(kPassword), LongBody(Mail())))));
    EXPECT_EQ(NamesOf(m_Database), u"Mail Mail ");
    EXPECT_EQ(platform::LastError(), kSomeError);
}

TEST_F(OldFile, ItemWithAShortReadIsSkipped) {
    constexpr int kReadsOfTheHead = 5;
    Bytes file = File("Private", kPassword, {LongBody(Shop()), LongBody(Mail())});
    platform::OrderFault(FaultPoint::ShortRead, 0, kReadsOfTheHead + 3);
    ASSERT_TRUE(Open(file));
    EXPECT_EQ(NamesOf(m_Database), u"Shop ");
}

TEST_F(OldFile, ItemWithAShortReadInItsFillerIsSkipped) {
    constexpr int kReadsOfTheHead = 5;
    Bytes filled = LongBody(Mail());
    filled.resize(8192);
    platform::OrderFault(FaultPoint::ShortRead, 0, kReadsOfTheHead + 4);
    ASSERT_TRUE(Open(File("Private", kPassword, {LongBody(Shop()), filled})));
    EXPECT_EQ(NamesOf(m_Database), u"Shop ");
}

TEST_F(OldFile, ItemWithoutMemoryToDecryptIsSkipped) {
    platform::OrderFault(FaultPoint::AllocateZeroed, platform::kErrorNotEnoughMemory, 1);
    ASSERT_TRUE(Open(File("Private", kPassword, {LongBody(Mail()), LongBody(Shop())})));
    EXPECT_EQ(NamesOf(m_Database), u"Shop ");
}

}  // namespace
