// Databases of the old format: what is read from one that is whole.
#include "tests/unit/database/old_file_test.h"

#include <chrono>
#include <filesystem>

#include "foundation/path.h"

using namespace old_file;
using platform::FaultPoint;

namespace {

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

}  // namespace
