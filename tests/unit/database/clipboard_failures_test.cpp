// What comes of a copy or a paste where the system fails.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <vector>

#include "tests/unit/database/clipboard_fixture.h"

using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;
using ::testing::UnorderedElementsAreArray;

namespace {

using platform::FaultPoint;
using Formats = std::vector<u32>;

constexpr u32 kText = platform::kFormatText;
constexpr u32 kUnicode = platform::kFormatUnicodeText;

class FailedCopy : public ClipboardTransfer {
protected:
    FailedCopy() { PutOld(); }

    // The point fails once in a copy of one item, and in a copy of one entry, after it has worked some times.
    void ExpectNothingCopied(FaultPoint point, int after = 0) {
        m_Faults.Fail(point, 8, after);
        EXPECT_FALSE(Copy({m_Item}));
        ExpectOnlyOld();
        m_Faults.Fail(point, 8, after);
        EXPECT_FALSE(CopyOf({m_Item->m_Head}));
        ExpectOnlyOld();
        platform::ClearFaults();
    }
    void ExpectCopied(FaultPoint point, int after, bool stored, const Formats& formats) {
        m_Faults.Fail(point, 8, after);
        EXPECT_EQ(Copy({m_Item}), stored) << after;
        EXPECT_THAT(ClipboardFormats(), UnorderedElementsAreArray(formats)) << after;
        platform::ClearFaults();
    }

    ItemElement* m_Item = PutItem(u"Mail", {Addition(u"note")});
    const u32 m_Items = ItemsClipboardFormat();
    Faults m_Faults;
};

class FailedPaste : public ClipboardTransfer {
protected:
    FailedPaste() {
        EXPECT_TRUE(Copy({m_Item, m_Item}));
        AddItemCopy(m_Carrier, *m_Item, nullptr);
    }

    // The carrier has as many items as told after the failure; without it all goes well.
    void ExpectNothingRead(FaultPoint point, i32 left) {
        m_Faults.Fail(point, 8);
        EXPECT_FALSE(VMRD_DB::ReadClipboard(m_Carrier, ItemsClipboardFormat()));
        EXPECT_EQ(m_Carrier.m_Count, left);
        EXPECT_FALSE(IsOpen());
        EXPECT_TRUE(VMRD_DB::ReadClipboard(m_Carrier, ItemsClipboardFormat()));
        EXPECT_EQ(m_Carrier.m_Count, 2);
    }

    ItemElement* m_Item = PutItem(u"Mail", {Addition(u"note")});
    VMRD_DB m_Carrier;
    Faults m_Faults;
};

// --- Copies ---

TEST_F(FailedCopy, LeavesTheClipboardWhereNothingIsEncrypted) {
    ExpectNothingCopied(FaultPoint::CipherProvider);
    ExpectNothingCopied(FaultPoint::Encrypt);
    ExpectNothingCopied(FaultPoint::Encrypt, 1);
}

TEST_F(FailedCopy, LeavesTheClipboardWithoutMemoryForItsBlock) {
    ExpectNothingCopied(FaultPoint::AllocateBlock);
}

TEST_F(FailedCopy, LeavesTheClipboardIfItsBlockCannotBeLocked) {
    ExpectNothingCopied(FaultPoint::LockBlock);
}

TEST_F(FailedCopy, LeavesTheClipboardIfItCannotBeOpened) {
    ExpectNothingCopied(FaultPoint::OpenClipboard);
}

// As long as the clipboard is open, a single element's text is put there all the same.
TEST_F(FailedCopy, LeavesTheTextAloneIfTheClipboardCannotBeEmptied) {
    m_Faults.Fail(FaultPoint::EmptyClipboard, 8);
    EXPECT_FALSE(Copy({m_Item}));
    ExpectOldAnd({kUnicode, kText});
}

TEST_F(FailedCopy, OfTwoLeavesTheClipboardIfItCannotBeEmptied) {
    m_Faults.Fail(FaultPoint::EmptyClipboard, 8);
    EXPECT_FALSE(Copy({m_Item, m_Item}));
    ExpectOnlyOld();
}

TEST_F(FailedCopy, LeavesTheTextAloneIfItsBlockIsNotTaken) {
    ExpectCopied(FaultPoint::PutBlock, 0, false, {kUnicode, kText});
}

TEST_F(FailedCopy, OfTwoLeavesAnEmptyClipboardIfItsBlockIsNotTaken) {
    m_Faults.Fail(FaultPoint::PutBlock, 8);
    EXPECT_FALSE(Copy({m_Item, m_Item}));
    EXPECT_THAT(ClipboardFormats(), IsEmpty());
}

TEST_F(FailedCopy, IsNoneIfOnlyATextIsNotTaken) {
    for (const FaultPoint point : {FaultPoint::AllocateBlock, FaultPoint::LockBlock, FaultPoint::PutBlock}) {
        ExpectCopied(point, 1, true, {m_Items, kText});
        ExpectCopied(point, 2, true, {m_Items, kUnicode});
        ExpectCopied(point, 3, true, {m_Items, kUnicode, kText});
    }
}

TEST_F(FailedCopy, IsNoneIfNoTextIsTaken) {
    platform::OrderFault(FaultPoint::PutBlock, 8, 1, 2);
    EXPECT_TRUE(Copy({m_Item}));
    EXPECT_THAT(ClipboardFormats(), UnorderedElementsAre(m_Items));
}

TEST_F(FailedCopy, LeavesAnEmptyClipboardIfNothingIsTaken) {
    platform::OrderFault(FaultPoint::PutBlock, 8, 0, 3);
    EXPECT_FALSE(Copy({m_Item}));
    EXPECT_THAT(ClipboardFormats(), IsEmpty());
}

TEST_F(FailedCopy, IsNoneWithoutRandomBytes) {
    m_Faults.FixSalt(1'700'000'000);
    EXPECT_TRUE(Copy({m_Item}));
    EXPECT_EQ(PastedItems().items, TreeOf(db).items);
}

// Whoever had opened it before.
TEST_F(FailedCopy, ClosesTheClipboardEvenIfItCouldNotBeOpened) {
    ASSERT_TRUE(platform::OpenClipboard(nullptr));
    m_Faults.Fail(FaultPoint::OpenClipboard, 5);
    EXPECT_FALSE(Copy({m_Item, m_Item}));
    EXPECT_FALSE(IsOpen());
    ExpectOnlyOld();
}

TEST_F(FailedCopy, LeavesTheClipboardAloneBeforeItIsThereToBePut) {
    for (const FaultPoint point : {FaultPoint::Encrypt, FaultPoint::AllocateBlock, FaultPoint::LockBlock}) {
        ASSERT_TRUE(platform::OpenClipboard(nullptr));
        m_Faults.Fail(point, 8);
        EXPECT_FALSE(Copy({m_Item}));
        platform::CloseClipboard();
        ExpectOnlyOld();
    }
}

// --- Plain text ---

class FailedText : public ClipboardTransfer {
protected:
    FailedText() { EXPECT_TRUE(platform::OpenClipboard(nullptr) && platform::EmptyClipboard()); }

    void ExpectPut(FaultPoint point, int after, int times, bool put, const Formats& formats) {
        platform::EmptyClipboard();
        platform::OrderFault(point, 8, after, times);
        EXPECT_EQ(PutClipboardText(u"text"), put);
        platform::ClearFaults();
        platform::CloseClipboard();
        EXPECT_THAT(ClipboardFormats(), UnorderedElementsAreArray(formats));
        platform::OpenClipboard(nullptr);
    }
    void TearDown() override { platform::CloseClipboard(); }
};

TEST_F(FailedText, IsPutInOneFormIfTheOtherFails) {
    for (const FaultPoint point : {FaultPoint::AllocateBlock, FaultPoint::LockBlock, FaultPoint::PutBlock}) {
        ExpectPut(point, 0, 1, true, {kText});
        ExpectPut(point, 1, 1, true, {kUnicode});
        ExpectPut(point, 2, 1, true, {kUnicode, kText});
    }
}

TEST_F(FailedText, IsNotPutIfBothFormsFail) {
    for (const FaultPoint point : {FaultPoint::AllocateBlock, FaultPoint::LockBlock, FaultPoint::PutBlock})
        ExpectPut(point, 0, 2, false, {});
}

// --- Pastes ---

TEST_F(FailedPaste, LeavesTheCarrierIfTheClipboardCannotBeOpened) {
    ExpectNothingRead(FaultPoint::OpenClipboard, 1);
}

TEST_F(FailedPaste, LeavesTheCarrierIfTheClipboardGivesNoBlock) {
    ExpectNothingRead(FaultPoint::GetBlock, 1);
}

TEST_F(FailedPaste, LeavesTheCarrierIfTheBlockCannotBeLocked) {
    ExpectNothingRead(FaultPoint::LockBlock, 1);
}

TEST_F(FailedPaste, LeavesAnEmptyCarrierIfNothingIsDecrypted) {
    ExpectNothingRead(FaultPoint::CipherProvider, 0);
    ExpectNothingRead(FaultPoint::Decrypt, 0);
}

// --- Formats ---

// Each of these runs in a process of its own, in which no format has been registered.
class ClipboardFormatDeathTest : public testing::Test {
protected:
    ClipboardFormatDeathTest() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

// Ends the process: with 0, or with the number of the first check that does not hold.
[[noreturn]] void EndWith(std::initializer_list<bool> checks) {
    int number = 1;
    for (const bool check : checks) {
        if (!check) std::_Exit(number);
        ++number;
    }
    std::_Exit(0);
}

#define EXPECT_CHECKS(function) EXPECT_EXIT(function(), testing::ExitedWithCode(0), "")

void RegisterWithTheFirstObjects() {
    const bool noneAtFirst = ItemsClipboardFormat() == 0 && EntriesClipboardFormat() == 0;
    const VMRD_DB database;
    const u32 items = ItemsClipboardFormat();
    const bool noEntriesYet = EntriesClipboardFormat() == 0;
    const VMRD_Item item;
    const u32 entries = EntriesClipboardFormat();
    const VMRD_DB another;
    EndWith({noneAtFirst, items != 0, noEntriesYet, entries != 0, items != entries,
             items == platform::RegisterFormat(u"Vaultmere"),
             entries == platform::RegisterFormat(u"VaultmereItem"), ItemsClipboardFormat() == items,
             EntriesClipboardFormat() == entries});
}

TEST_F(ClipboardFormatDeathTest, IsRegisteredWithTheFirstObjectOfItsClass) {
    EXPECT_CHECKS(RegisterWithTheFirstObjects);
}

// Both registrations fail once and are not tried again.
void CopyWithoutFormats() {
    platform::OrderFault(FaultPoint::RegisterFormat, 8, 0, 2);
    VMRD_DB database;
    VMRD_Item item;
    item.m_Name = u"name";
    AddEntryCopy(item, Addition(u"text"), nullptr);
    const VMRD_DB another;
    const VMRD_Item anotherItem;
    VMRD_Entry entry = Addition(u"text");
    const bool opened = platform::OpenClipboard(nullptr) && platform::EmptyClipboard();
    const bool itemsCopied = CopyItems(nullptr, {&item});
    const bool entriesCopied = CopyEntries(nullptr, {&entry});
    const bool leftOpen = platform::EmptyClipboard();
    platform::CloseClipboard();
    EndWith({opened, ItemsClipboardFormat() == 0, EntriesClipboardFormat() == 0, !itemsCopied, !entriesCopied,
             leftOpen, ClipboardFormats().empty(), !VMRD_DB::ReadClipboard(database, ItemsClipboardFormat()),
             platform::RegisterFormat(u"Vaultmere") != 0});
}

TEST_F(ClipboardFormatDeathTest, IsNoneForeverIfTheSystemHasNone) {
    EXPECT_CHECKS(CopyWithoutFormats);
}

}  // namespace
