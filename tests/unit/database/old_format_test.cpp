#include "database/old_format.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <limits>
#include <vector>

#include "database/database.h"
#include "foundation/path.h"
#include "platform/clock.h"
#include "platform/error.h"
#include "platform/fault.h"
#include "platform/text.h"
#include "tests/unit/database/old_file_builder.h"
#include "tests/unit/database/wiping.h"
#include "tests/unit/test_files.h"

using namespace old_file;
using platform::FaultPoint;

namespace {

constexpr char kPassword[] = "alt";
constexpr char16_t kPasswordText[] = u"alt";
constexpr u32 kSomeError = 1234;

Item Mail() {
    return {"Mail", "me", "s3cret", "https://mail.example", "a\r\n\r\nb"};
}
Item Shop() {
    return {"Shop", "you", "pwd", "https://shop.example", ""};
}

// Entries as "type:text" with a blank behind each, the way expectations read best.
std::u16string EntriesOf(const ItemElement& item) {
    std::u16string entries;
    for (const EntryElement* entry = item.m_Head; entry != nullptr; entry = entry->m_Next) {
        entries += static_cast<char16_t>(u'0' + entry->m_Type);
        entries += u':';
        entries += entry->m_Text.view();
        entries += u' ';
    }
    return entries;
}

std::u16string NamesOf(const VMRD_DB& database) {
    std::u16string names;
    for (const ItemElement* item = database.m_Head; item != nullptr; item = item->m_Next) {
        names += item->m_Name.view();
        names += u' ';
    }
    return names;
}

class OldFile : public testing::Test {
protected:
    OldFile() : m_File(m_Folder.Path(u"old.vmr")) {}
    ~OldFile() override {
        platform::ClearFaults();
        platform::ClearClock();
        platform::UseAnsiCodePage(0);
    }

    bool Open(const Bytes& bytes, const char16_t* password = kPasswordText) {
        WriteBytes(m_File, bytes);
        platform::SetLastError(kSomeError);
        return m_Database.OpenOld(m_File, password);
    }

    void ExpectRefused(const Bytes& bytes) {
        EXPECT_FALSE(Open(bytes));
        ExpectClosed();
    }

    void ExpectClosed() {
        EXPECT_FALSE(m_Database.m_Opened);
        EXPECT_FALSE(m_Database.m_Changed);
        EXPECT_TRUE(m_Database.m_Name.empty());
        EXPECT_EQ(m_Database.m_Count, 0);
        EXPECT_EQ(platform::LastError(), kSomeError);
    }

    TempFolder m_Folder;
    tvstring m_File;
    VMRD_DB m_Database;
};

Bytes CheckedFile(const CheckBlock& check) {
    Bytes file = NameHead("name");
    Append(file, ItemBlock(KeyOf(kPassword), PlainCheckBlock(check)));
    return file;
}

CheckBlock GoodCheck() {
    CheckBlock check;
    check.keyCopy = KeyOf(kPassword);
    return check;
}

// The opened database.

TEST_F(OldFile, LongFormBecomesItemsAndEntries) {
    ASSERT_TRUE(Open(File("Private", kPassword, {LongBody(Mail()), LongBody(Shop())})));
    EXPECT_EQ(m_Database.m_Name, u"Private");
    EXPECT_EQ(NamesOf(m_Database), u"Mail Shop ");
    EXPECT_EQ(EntriesOf(*m_Database.m_Head), u"3:https://mail.example 4:me 5:s3cret 6:a 6:b ");
    EXPECT_EQ(EntriesOf(*m_Database.m_Tail), u"3:https://shop.example 4:you 5:pwd ");
}

TEST_F(OldFile, ShortFormBecomesItemsAndEntries) {
    ASSERT_TRUE(Open(File("Private", kPassword, {ShortBody(Mail()), LongBody(Shop())})));
    EXPECT_EQ(NamesOf(m_Database), u"Mail Shop ");
    EXPECT_EQ(EntriesOf(*m_Database.m_Head), u"3:https://mail.example 4:me 5:s3cret 6:a 6:b ");
}

TEST_F(OldFile, IsOpenAndChangedWithoutPathPasswordAndFile) {
    ASSERT_TRUE(Open(File("Private", kPassword, {LongBody(Mail())})));
    EXPECT_TRUE(m_Database.m_Opened);
    EXPECT_TRUE(m_Database.m_Changed);
    EXPECT_TRUE(m_Database.m_Path.empty());
    EXPECT_FALSE(m_Database.HasMasterPassword());
    EXPECT_FALSE(m_Database.m_File);
    EXPECT_EQ(m_Database.m_Undo.Count(), 0U);
    EXPECT_EQ(platform::LastError(), kSomeError);
}

TEST_F(OldFile, ForgetsPathAndHistory) {
    m_Database.MakeCurrent();
    m_Database.m_Path = u"before.vmr";
    ASSERT_TRUE(m_Database.m_Undo.Push(UNDO_MODIFY, UNDO_DB_NAME, &m_Database, 0));
    ASSERT_TRUE(Open(File("Private", kPassword, {LongBody(Mail())})));
    EXPECT_TRUE(m_Database.m_Path.empty());
    EXPECT_EQ(m_Database.m_Undo.Count(), 0U);
}

TEST_F(OldFile, LetsGoOfTheFile) {
    ASSERT_TRUE(Open(File("Private", kPassword, {LongBody(Mail())})));
    EXPECT_TRUE(OpenFileHandle(m_File, true));
}

TEST_F(OldFile, CanBeReadWhileAnotherReaderHasIt) {
    WriteBytes(m_File, File("Private", kPassword, {LongBody(Mail())}));
    const tvhandle reader = OpenFileHandle(m_File, false);
    EXPECT_TRUE(m_Database.OpenOld(m_File, kPasswordText));
}

TEST_F(OldFile, CannotBeSavedUntilPathAndMasterPasswordAreSet) {
    ASSERT_TRUE(Open(File("Private", kPassword, {LongBody(Mail())})));
    EXPECT_FALSE(m_Database.Save());
    EXPECT_EQ(platform::LastError(), 0U);

    m_Database.SetPath(m_Folder.Path(u"new.vmr"));
    platform::SetLastError(kSomeError);
    EXPECT_FALSE(m_Database.Save());
    EXPECT_EQ(platform::LastError(), 0U);

    m_Database.SetMasterPassword(u"new");
    EXPECT_TRUE(m_Database.Save());
    VMRD_DB reread;
    m_Database.Close();
    ASSERT_TRUE(reread.Open(m_Folder.Path(u"new.vmr"), u"new"));
    EXPECT_EQ(NamesOf(reread), u"Mail ");
}

TEST_F(OldFile, CannotBeSavedWithAMasterPasswordButNoPath) {
    ASSERT_TRUE(Open(File("Private", kPassword, {LongBody(Mail())})));
    m_Database.SetMasterPassword(u"new");
    EXPECT_FALSE(m_Database.Save());
    EXPECT_EQ(platform::LastError(), 0U);
}

TEST_F(OldFile, DateOfEveryItemIsTheLastWriteInUtc) {
    WriteBytes(m_File, File("Private", kPassword, {LongBody(Mail()), LongBody(Shop())}));
    const auto now = std::filesystem::file_time_type::clock::now();
    std::filesystem::last_write_time(test_files::SystemPath(m_File), now - std::chrono::hours(1000));
    u64 written = 0;
    ASSERT_TRUE(platform::NativeFileWriteTime(OpenFileHandle(m_File, false).Get(), written));
    constexpr u64 kTicksAnHour = 36'000'000'000;
    const u64 expected = platform::SystemTimeTicks() - 1000 * kTicksAnHour;
    EXPECT_NEAR(static_cast<double>(written), static_cast<double>(expected), 60e7);

    // A place five hours ahead of UTC.
    platform::SetClock(expected + 5 * kTicksAnHour, expected);
    ASSERT_TRUE(m_Database.OpenOld(m_File, kPasswordText));
    EXPECT_EQ(m_Database.m_Head->m_Date, written);
    EXPECT_EQ(m_Database.m_Tail->m_Date, written);
}

TEST_F(OldFile, DateIsZeroIfTheSystemDoesNotTellIt) {
    platform::OrderFault(FaultPoint::WriteTime, platform::kErrorIoDevice);
    ASSERT_TRUE(Open(File("Private", kPassword, {LongBody(Mail())})));
    EXPECT_EQ(m_Database.m_Head->m_Date, 0U);
    EXPECT_EQ(platform::LastError(), kSomeError);
}

TEST_F(OldFile, IsOpenedByOpenThatTellsItByItsMagic) {
    WriteBytes(m_File, File("Private", kPassword, {LongBody(Mail())}));
    ASSERT_TRUE(m_Database.Open(m_File, kPasswordText));
    EXPECT_EQ(NamesOf(m_Database), u"Mail ");
    EXPECT_TRUE(m_Database.m_Path.empty());
    EXPECT_EQ(platform::LastError(), 0U);
}

TEST_F(OldFile, OpenedInPlaceOfAnotherDatabaseTakesNothingOver) {
    ASSERT_TRUE(m_Database.New(u"before"));
    m_Database.SetMasterPassword(u"new");
    m_Database.SetPath(m_Folder.Path(u"before.vmr"));
    ASSERT_TRUE(m_Database.Save());
    WriteBytes(m_File, File("Private", kPassword, {LongBody(Mail())}));
    ASSERT_TRUE(m_Database.Open(m_File, kPasswordText));
    EXPECT_EQ(m_Database.DisplayName(), u"Private");
    EXPECT_EQ(NamesOf(m_Database), u"Mail ");
    EXPECT_TRUE(m_Database.m_Path.empty());
    EXPECT_FALSE(m_Database.HasMasterPassword());
    EXPECT_FALSE(m_Database.m_File);
}

TEST_F(OldFile, OfAWrongPasswordLeavesOpenWithNoError) {
    WriteBytes(m_File, File("Private", kPassword, {LongBody(Mail())}));
    EXPECT_FALSE(m_Database.Open(m_File, u"neu"));
    EXPECT_FALSE(m_Database.m_Opened);
    EXPECT_EQ(platform::LastError(), 0U);
}

// Names and texts.

TEST_F(OldFile, WithoutANameIsCalledUnknown) {
    ASSERT_TRUE(Open(File("", kPassword, {LongBody(Mail())})));
    EXPECT_EQ(m_Database.m_Name, u"Unknown");
}

TEST_F(OldFile, NameThatStartsWithAZeroByteIsUnknown) {
    ASSERT_TRUE(Open(File(std::string_view("\0x", 2), kPassword, {})));
    EXPECT_EQ(m_Database.m_Name, u"Unknown");
}

TEST_F(OldFile, NameOf598BytesIsReadWhole) {
    ASSERT_TRUE(Open(File(std::string(598, 'n'), kPassword, {LongBody(Mail())})));
    EXPECT_EQ(m_Database.m_Name, tvstring(598, u'n'));
    EXPECT_EQ(NamesOf(m_Database), u"Mail ");
}

TEST_F(OldFile, NameOf599BytesIsRefused) {
    ExpectRefused(File(std::string(599, 'n'), kPassword, {LongBody(Mail())}));
}

TEST_F(OldFile, ItemWithAnEmptyNameIsCalledUnknown) {
    Item nameless = Mail();
    nameless.name.clear();
    ASSERT_TRUE(Open(File("Private", kPassword, {LongBody(nameless), ShortBody(nameless)})));
    EXPECT_EQ(NamesOf(m_Database), u"Unknown Unknown ");
}

TEST_F(OldFile, EmptyFieldsBecomeEmptyBasicEntries) {
    ASSERT_TRUE(Open(File("Private", kPassword, {LongBody({}), ShortBody({})})));
    EXPECT_EQ(EntriesOf(*m_Database.m_Head), u"3: 4: 5: ");
    EXPECT_EQ(EntriesOf(*m_Database.m_Tail), u"3: 4: 5: ");
}

TEST_F(OldFile, AdditionalTextIsSplitAtLineBreaksAndEmptyLinesAreLost) {
    const char* texts[] = {"a\r\n\r\nb", "\r\na", "a\r\n", "\r\n", "a\nb\rc", "\r\n a \r\n"};
    const std::u16string expected[] = {u"6:a 6:b ", u"6:a ", u"6:a ", u"", u"6:a\nb\rc ", u"6: a  "};
    for (std::size_t i = 0; i < std::size(texts); ++i) {
        m_Database.Close();
        ASSERT_TRUE(Open(File("Private", kPassword, {LongBody({"x", "", "", "", texts[i]})})));
        EXPECT_EQ(EntriesOf(*m_Database.m_Head), u"3: 4: 5: " + expected[i]) << i;
    }
}

TEST_F(OldFile, FieldsOf598BytesAreAccepted) {
    const Item longest = {std::string(598, 'n'), std::string(598, 'u'), std::string(598, 'p'),
                          std::string(598, 'q'), std::string(598, 'r')};
    ASSERT_TRUE(Open(File("Private", kPassword, {LongBody(longest), ShortBody(longest)})));
    ASSERT_EQ(m_Database.m_Count, 2);
    for (const ItemElement* item : {m_Database.m_Head, m_Database.m_Tail}) {
        EXPECT_EQ(item->m_Name, tvstring(598, u'n'));
        EXPECT_EQ(item->m_Head->m_Text, tvstring(598, u'q'));
        EXPECT_EQ(item->m_Head->m_Next->m_Text, tvstring(598, u'u'));
        EXPECT_EQ(item->m_Head->m_Next->m_Next->m_Text, tvstring(598, u'p'));
        EXPECT_EQ(item->m_Tail->m_Text, tvstring(598, u'r'));
    }
}

TEST_F(OldFile, EachFieldOf599BytesDropsItsItem) {
    const auto fields = {&Item::name, &Item::userName, &Item::password, &Item::program, &Item::addition};
    for (const auto field : fields) {
        Item tooLong = Mail();
        tooLong.*field = std::string(599, 'x');
        m_Database.Close();
        ASSERT_TRUE(Open(File("Private", kPassword, {LongBody(tooLong), LongBody(Shop())})));
        EXPECT_EQ(NamesOf(m_Database), u"Shop ");
        m_Database.Close();
        ASSERT_TRUE(Open(File("Private", kPassword, {ShortBody(tooLong), ShortBody(Shop())})));
        EXPECT_EQ(NamesOf(m_Database), u"Shop ");
    }
}

TEST_F(OldFile, FieldEndsAtAZeroByte) {
    Item zero = Mail();
    zero.password = std::string("ab\0cd", 5);
    ASSERT_TRUE(Open(File("Private", kPassword, {LongBody(zero)})));
    EXPECT_EQ(EntriesOf(*m_Database.m_Head), u"3:https://mail.example 4:me 5:ab 6:a 6:b ");
}

TEST_F(OldFile, TextsAreInTheAnsiCodePage) {
    ASSERT_TRUE(platform::UseAnsiCodePage(1252));
    ASSERT_TRUE(
        Open(File("Gr\xFC\xDF"
                  "e",
                  kPassword, {LongBody({"\x80uro", "m\xFC", "", "", "\xE4"})})));
    EXPECT_EQ(m_Database.m_Name, u"Gr\u00fc\u00dfe");
    EXPECT_EQ(NamesOf(m_Database), u"\u20acuro ");
    EXPECT_EQ(EntriesOf(*m_Database.m_Head), u"3: 4:m\u00fc 5: 6:\u00e4 ");
}

TEST_F(OldFile, TextsFollowTheCodePageInUse) {
    ASSERT_TRUE(platform::UseAnsiCodePage(1251));
    ASSERT_TRUE(Open(File("\xCF\xE0\xF0\xEE\xEB\xE8", kPassword, {})));
    EXPECT_EQ(m_Database.m_Name, u"\u041f\u0430\u0440\u043e\u043b\u0438");
}

TEST_F(OldFile, PasswordIsHashedInTheAnsiCodePage) {
    ASSERT_TRUE(platform::UseAnsiCodePage(1252));
    EXPECT_TRUE(Open(File("Private", "p\xE4ss", {LongBody(Mail())}), u"p\u00e4ss"));
}

TEST_F(OldFile, PasswordOutsideTheCodePageIsHashedWithItsReplacements) {
    ASSERT_TRUE(platform::UseAnsiCodePage(1252));
    EXPECT_TRUE(Open(File("Private", "a?b", {LongBody(Mail())}), u"a\u05d0b"));
    m_Database.Close();
    EXPECT_TRUE(Open(File("Private", "??", {LongBody(Mail())}), u"\U0001F511"));
}

TEST_F(OldFile, KeyOfNoPasswordIsThatOfNoBytes) {
    EXPECT_TRUE(Open(File("Private", "", {LongBody(Mail())}), u""));
}

TEST_F(OldFile, PasswordInAnotherCaseIsRefused) {
    EXPECT_FALSE(Open(File("Private", "alt", {LongBody(Mail())}), u"Alt"));
    ExpectClosed();
}

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
