#include "database/clipboard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "tests/unit/database/clipboard_fixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

namespace {

constexpr u32 kText = platform::kFormatText;
constexpr u32 kUnicode = platform::kFormatUnicodeText;

std::string AnsiOnClipboard(const Bytes& bytes) {
    return {bytes.begin(), bytes.end()};
}

std::u16string UnitsOf(const Bytes& bytes) {
    std::u16string units(bytes.size() / sizeof(char16_t), 0);
    std::memcpy(units.data(), bytes.data(), units.size() * sizeof(char16_t));
    return units;
}

class CopiedItems : public ClipboardTransfer {
protected:
    ItemElement* m_Mail = PutItem(u"Mail", {Program(u"https://mail.example"), Username(u"me"),
                                            Password(u"tulip"), Addition(u"a\r\nnote"), Addition(u"")});
    ItemElement* m_Bank = PutItem(u"B\u00E4nk \U0001F511", {Program(u""), Username(u""), Password(u"")});
};

class CopiedEntries : public ClipboardTransfer {
protected:
    ItemElement* m_Item = PutItem(
        u"Mail", {Program(u"p"), Username(u"u"), Password(u"w"), Addition(u"first"), Addition(u"second")});
    std::vector<EntryElement*> m_Entries = ElementsOf<EntryElement>(*m_Item);
};

class ClipboardText : public ClipboardTransfer {
protected:
    // Puts the text on an empty clipboard.
    static bool PutText(const tvstring& text) {
        EXPECT_TRUE(platform::OpenClipboard(nullptr) && platform::EmptyClipboard());
        const bool put = PutClipboardText(text);
        platform::CloseClipboard();
        return put;
    }
};

class Pasting : public ClipboardTransfer {
protected:
    ItemElement* m_Item = PutItem(u"Mail", {Program(u"p")});
    VMRD_DB m_Carrier;
};

// --- Items ---

TEST_F(CopiedItems, ComeBackWithEverythingTheyHave) {
    EXPECT_TRUE(Copy({m_Mail, m_Bank}));
    EXPECT_EQ(PastedItems(), (Tree{u"", TreeOf(db).items}));
}

TEST_F(CopiedItems, StandInTheOrderOfTheArray) {
    EXPECT_TRUE(Copy({m_Bank, m_Mail, m_Bank}));
    const Tree pasted = PastedItems();
    ASSERT_EQ(pasted.items.size(), 3U);
    EXPECT_EQ(pasted.items[0].name, m_Bank->m_Name.view());
    EXPECT_EQ(pasted.items[1].name, u"Mail");
    EXPECT_EQ(pasted.items[2].name, m_Bank->m_Name.view());
}

TEST_F(CopiedItems, KeepTheirDates) {
    m_Mail->m_Date = 1;
    m_Bank->m_Date = 0xFEDC'BA98'7654'3210;
    EXPECT_TRUE(Copy({m_Mail, m_Bank}));
    const Tree pasted = PastedItems();
    EXPECT_EQ(pasted.items[0].date, 1U);
    EXPECT_EQ(pasted.items[1].date, 0xFEDC'BA98'7654'3210);
}

TEST_F(CopiedItems, CarryNoNameOfTheirDatabase) {
    db.m_Name = u"My passwords";
    EXPECT_TRUE(Copy({m_Mail}));
    EXPECT_EQ(PastedItems().name, u"");
}

TEST_F(CopiedItems, OfWhichThereIsOneLeaveThreeFormats) {
    EXPECT_TRUE(Copy({m_Mail}));
    EXPECT_THAT(ClipboardFormats(), UnorderedElementsAre(ItemsClipboardFormat(), kUnicode, kText));
    EXPECT_EQ(UnitsOf(Get(kUnicode)), std::u16string(u"Mail\0", 5));
    EXPECT_EQ(AnsiOnClipboard(Get(kText)), std::string("Mail\0", 5));
}

TEST_F(CopiedItems, OfWhichThereAreTwoLeaveOneFormat) {
    EXPECT_TRUE(Copy({m_Mail, m_Bank}));
    EXPECT_THAT(ClipboardFormats(), ElementsAre(ItemsClipboardFormat()));
}

TEST_F(CopiedItems, ReplaceWhatWasOnTheClipboard) {
    PutOld();
    EXPECT_TRUE(Copy({m_Mail}));
    EXPECT_FALSE(platform::IsFormatAvailable(OldFormat()));
    EXPECT_TRUE(CopyOf({m_Mail->m_Head}));
    EXPECT_FALSE(platform::IsFormatAvailable(ItemsClipboardFormat()));
}

TEST_F(CopiedItems, WorkWithoutAnyText) {
    ItemElement* empty = PutItem(u"", {Program(u""), Username(u""), Password(u"")});
    EXPECT_TRUE(Copy({empty}));
    EXPECT_THAT(ClipboardFormats(), ElementsAre(ItemsClipboardFormat()));
    EXPECT_EQ(PastedItems().items, std::vector{TreeOf(db).items[2]});
    ItemElement* bare = PutItem(u"");
    EXPECT_TRUE(Copy({bare, bare}));
    EXPECT_EQ(PastedItems().items.size(), 2U);
}

TEST_F(CopiedItems, PassOverNullAndEntries) {
    EXPECT_TRUE(Copy({nullptr, m_Mail->m_Head, m_Bank}));
    EXPECT_EQ(PastedItems().items, std::vector{TreeOf(db).items[1]});
    EXPECT_THAT(ClipboardFormats(), ElementsAre(ItemsClipboardFormat()));
}

TEST_F(CopiedItems, OfWhichThereAreNoneLeaveTheClipboard) {
    PutOld();
    EXPECT_FALSE(Copy({}));
    EXPECT_FALSE(Copy({nullptr}));
    EXPECT_FALSE(Copy({nullptr, nullptr}));
    EXPECT_FALSE(Copy({m_Mail->m_Head}));
    ExpectOnlyOld();
}

TEST_F(CopiedItems, LeaveTheirDatabaseAsItIs) {
    const Tree before = TreeOf(db);
    EXPECT_TRUE(Copy({m_Mail, m_Bank}));
    EXPECT_EQ(TreeOf(db), before);
    EXPECT_FALSE(db.m_Changed);
    EXPECT_EQ(db.m_Undo.Count(), 0U);
    EXPECT_EQ(VMRD_DB::Current(), &db);
}

TEST_F(CopiedItems, MayBeMany) {
    ElementArray array;
    for (int i = 0; i < 2000; ++i)
        array.push_back(PutItem(tvstring(static_cast<std::size_t>(i % 90), u'n'), {Addition(u"text")}));
    EXPECT_TRUE(Copy(array));
    EXPECT_EQ(PastedItems().items.size(), 2000U);
}

// --- Entries ---

TEST_F(CopiedEntries, ComeBackInAnItemOfTheirOwn) {
    m_Item->m_Date = kNow;
    EXPECT_TRUE(CopyOf({m_Entries[4], m_Entries[3]}));
    const ItemValues carrier = {
        u"VaultmereItem", 0, {{VMRD_T_ADDITION, u"second"}, {VMRD_T_ADDITION, u"first"}}};
    EXPECT_EQ(PastedEntries(), (Tree{u"", {carrier}}));
}

TEST_F(CopiedEntries, KeepTheirTypes) {
    EXPECT_TRUE(CopyOf({m_Entries[0], m_Entries[1], m_Entries[2], m_Entries[3]}));
    const Tree pasted = PastedEntries();
    ASSERT_EQ(pasted.items.size(), 1U);
    EXPECT_THAT(pasted.items[0].entries,
                ElementsAre(EntryValues{VMRD_T_PROGRAM, u"p"}, EntryValues{VMRD_T_USERNAME, u"u"},
                            EntryValues{VMRD_T_PASSWORD, u"w"}, EntryValues{VMRD_T_ADDITION, u"first"}));
}

TEST_F(CopiedEntries, OfWhichThereIsOneLeaveThreeFormats) {
    EXPECT_TRUE(CopyOf({m_Entries[3]}));
    EXPECT_THAT(ClipboardFormats(), UnorderedElementsAre(EntriesClipboardFormat(), kUnicode, kText));
    EXPECT_EQ(UnitsOf(Get(kUnicode)), std::u16string(u"first\0", 6));
}

TEST_F(CopiedEntries, OfWhichThereAreTwoLeaveOneFormat) {
    EXPECT_TRUE(CopyOf({m_Entries[3], m_Entries[4]}));
    EXPECT_THAT(ClipboardFormats(), ElementsAre(EntriesClipboardFormat()));
}

TEST_F(CopiedEntries, LeaveAPasswordAsPlainTextIfItIsAlone) {
    EXPECT_TRUE(CopyOf({m_Entries[2]}));
    EXPECT_EQ(UnitsOf(Get(kUnicode)), std::u16string(u"w\0", 2));
    EXPECT_EQ(AnsiOnClipboard(Get(kText)), std::string("w\0", 2));
}

TEST_F(CopiedEntries, LeaveTheirOwnTextAndNotItsOneLineForm) {
    EntryElement* entry = AddEntryCopy(*m_Item, Addition(u"one\r\ntwo"), nullptr);
    ElementDisplay(entry);
    EXPECT_TRUE(CopyOf({entry}));
    EXPECT_EQ(UnitsOf(Get(kUnicode)), std::u16string(u"one\r\ntwo\0", 9));
}

TEST_F(CopiedEntries, WorkWithoutAnyText) {
    EntryElement* empty = AddEntryCopy(*m_Item, Addition(u""), nullptr);
    EXPECT_TRUE(CopyOf({empty}));
    EXPECT_THAT(ClipboardFormats(), ElementsAre(EntriesClipboardFormat()));
    EXPECT_THAT(PastedEntries().items.at(0).entries, ElementsAre(EntryValues{VMRD_T_ADDITION, u""}));
}

TEST_F(CopiedEntries, PassOverNullAndItems) {
    EXPECT_TRUE(CopyOf({nullptr, m_Item, m_Entries[3]}));
    EXPECT_THAT(PastedEntries().items.at(0).entries, ElementsAre(EntryValues{VMRD_T_ADDITION, u"first"}));
}

TEST_F(CopiedEntries, OfWhichThereAreNoneLeaveTheClipboard) {
    PutOld();
    EXPECT_FALSE(CopyOf({}));
    EXPECT_FALSE(CopyOf({nullptr}));
    EXPECT_FALSE(CopyOf({m_Item}));
    ExpectOnlyOld();
}

TEST_F(CopiedEntries, LeaveTheirItemAsItIs) {
    const Tree before = TreeOf(db);
    EXPECT_TRUE(CopyOf({m_Entries[3], m_Entries[4]}));
    EXPECT_EQ(TreeOf(db), before);
    EXPECT_FALSE(db.m_Changed);
    EXPECT_EQ(db.m_Undo.Count(), 0U);
}

// --- Plain text ---

TEST_F(ClipboardText, IsThereInBothForms) {
    EXPECT_TRUE(PutText(u"\u00E9t\u00E9 \u20AC \u0416"));
    EXPECT_THAT(ClipboardFormats(), UnorderedElementsAre(kUnicode, kText));
    EXPECT_EQ(UnitsOf(Get(kUnicode)), std::u16string(u"\u00E9t\u00E9 \u20AC \u0416\0", 8));
    EXPECT_EQ(AnsiOnClipboard(Get(kText)), std::string("\xE9t\xE9 \x80 ?\0", 8));
}

TEST_F(ClipboardText, IsInTheSystemsCodePage) {
    ASSERT_TRUE(platform::UseAnsiCodePage(1251));
    EXPECT_TRUE(PutText(u"\u0416"));
    ASSERT_TRUE(platform::UseAnsiCodePage(932));
    EXPECT_EQ(AnsiOnClipboard(Get(kText)), std::string("\xC6\0", 2));
    EXPECT_TRUE(PutText(u"\u30C6"));
    platform::UseAnsiCodePage(0);
    EXPECT_EQ(AnsiOnClipboard(Get(kText)), std::string("\x83\x65\0", 3));
}

TEST_F(ClipboardText, GoesOnBehindAZeroUnit) {
    EXPECT_TRUE(PutText(tvstring(u"a\0b", 3)));
    EXPECT_EQ(UnitsOf(Get(kUnicode)), std::u16string(u"a\0b\0", 4));
    EXPECT_EQ(AnsiOnClipboard(Get(kText)), std::string("a\0b\0", 4));
}

TEST_F(ClipboardText, IsNoneIfItIsEmpty) {
    EXPECT_FALSE(PutText(u""));
    EXPECT_THAT(ClipboardFormats(), IsEmpty());
}

TEST_F(ClipboardText, IsNotTakenByAClipboardThatIsClosed) {
    EXPECT_FALSE(PutClipboardText(u"text"));
    EXPECT_THAT(ClipboardFormats(), IsEmpty());
}

// --- Reading ---

TEST_F(Pasting, ReplacesWhatTheCarrierHad) {
    VMRD_Item old;
    old.m_Name = u"old";
    AddItemCopy(m_Carrier, old, nullptr);
    m_Carrier.m_Name = u"old name";
    m_Carrier.m_Path = u"old path";
    ASSERT_TRUE(Copy({m_Item}));
    EXPECT_TRUE(VMRD_DB::ReadClipboard(m_Carrier, ItemsClipboardFormat()));
    EXPECT_EQ(TreeOf(m_Carrier), (Tree{u"", TreeOf(db).items}));
    EXPECT_TRUE(m_Carrier.m_Path.empty());
}

TEST_F(Pasting, CanBeRepeated) {
    ASSERT_TRUE(Copy({m_Item}));
    EXPECT_EQ(PastedItems().items.size(), 1U);
    EXPECT_EQ(PastedItems().items.size(), 1U);
    EXPECT_THAT(ClipboardFormats(), UnorderedElementsAre(ItemsClipboardFormat(), kUnicode, kText));
}

TEST_F(Pasting, RecordsNothingAndLeavesTheOpenDatabase) {
    const Tree before = TreeOf(db);
    ASSERT_TRUE(Copy({m_Item}));
    EXPECT_TRUE(VMRD_DB::ReadClipboard(m_Carrier, ItemsClipboardFormat()));
    EXPECT_EQ(db.m_Undo.Count(), 0U);
    EXPECT_EQ(m_Carrier.m_Undo.Count(), 0U);
    EXPECT_EQ(TreeOf(db), before);
    EXPECT_FALSE(db.m_Changed);
    EXPECT_EQ(VMRD_DB::Current(), &db);
}

TEST_F(Pasting, GivesItemsToTheOpenDatabase) {
    ASSERT_TRUE(Copy({m_Item}));
    ASSERT_TRUE(VMRD_DB::ReadClipboard(m_Carrier, ItemsClipboardFormat()));
    ElementQueue queue = {m_Carrier.m_Head};
    EXPECT_EQ(db.AddItems(queue, nullptr, &db), 1);
    EXPECT_EQ(TextsOf<ItemElement>(db), "[Mail][Mail]");
    EXPECT_EQ(db.m_Undo.Count(), 1U);
}

TEST_F(Pasting, IsRefusedForNoFormat) {
    ASSERT_TRUE(Copy({m_Item}));
    EXPECT_FALSE(VMRD_DB::ReadClipboard(m_Carrier, 0));
}

TEST_F(Pasting, IsRefusedForAFormatThatIsNotThere) {
    ASSERT_TRUE(Copy({m_Item}));
    EXPECT_FALSE(VMRD_DB::ReadClipboard(m_Carrier, EntriesClipboardFormat()));
    ASSERT_TRUE(CopyOf({m_Item->m_Head}));
    EXPECT_FALSE(VMRD_DB::ReadClipboard(m_Carrier, ItemsClipboardFormat()));
    Clear();
    EXPECT_FALSE(VMRD_DB::ReadClipboard(m_Carrier, ItemsClipboardFormat()));
}

TEST_F(Pasting, LeavesTheCarrierWhereNothingCanBeRead) {
    AddItemCopy(m_Carrier, *m_Item, nullptr);
    EXPECT_FALSE(VMRD_DB::ReadClipboard(m_Carrier, ItemsClipboardFormat()));
    Put(ItemsClipboardFormat(), Bytes(36));
    EXPECT_FALSE(VMRD_DB::ReadClipboard(m_Carrier, ItemsClipboardFormat()));
    EXPECT_EQ(m_Carrier.m_Count, 1);
}

TEST_F(Pasting, LeavesTheCarrierEmptyForABlockThatIsNone) {
    AddItemCopy(m_Carrier, *m_Item, nullptr);
    Put(ItemsClipboardFormat(), Bytes(200, 7));
    EXPECT_FALSE(VMRD_DB::ReadClipboard(m_Carrier, ItemsClipboardFormat()));
    EXPECT_EQ(TreeOf(m_Carrier), Tree());
    EXPECT_THAT(ClipboardFormats(), ElementsAre(ItemsClipboardFormat()));
}

TEST_F(Pasting, ClosesTheClipboardWhateverComesOfIt) {
    ASSERT_TRUE(Copy({m_Item}));
    const u32 absent = EntriesClipboardFormat();
    for (const u32 format : {ItemsClipboardFormat(), absent, 0U}) {
        ASSERT_TRUE(platform::OpenClipboard(nullptr));
        VMRD_DB::ReadClipboard(m_Carrier, format);
        EXPECT_FALSE(IsOpen()) << format;
    }
}

}  // namespace
