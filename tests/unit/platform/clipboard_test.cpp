#include "platform/clipboard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "platform/fault.h"
#include "tests/unit/clipboard_formats.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

namespace {

using platform::ClipboardBlock;
using platform::ClipboardView;
using platform::FaultPoint;
using platform::RegisterFormat;
using Bytes = std::vector<u8>;

// An empty clipboard before and after each test.
class Clipboard : public testing::Test {
protected:
    Clipboard() { Clear(); }
    ~Clipboard() override {
        platform::ClearFaults();
        platform::CloseClipboard();
        Clear();
    }

    static void Clear() {
        platform::OpenClipboard(nullptr);
        platform::EmptyClipboard();
        platform::CloseClipboard();
    }
    static void OpenEmpty() {
        ASSERT_TRUE(platform::OpenClipboard(nullptr));
        ASSERT_TRUE(platform::EmptyClipboard());
    }
    static bool Put(u32 format, const Bytes& bytes) {
        return ClipboardBlock(bytes.size(), bytes).Put(format);
    }
    static Bytes Get(u32 format) {
        const ClipboardView view(format);
        return {view.Bytes().begin(), view.Bytes().end()};
    }

    const u32 m_Format = RegisterFormat(u"Vaultmere test");
    const u32 m_Other = RegisterFormat(u"Vaultmere test, another");
};

// --- Formats ---

TEST_F(Clipboard, NumbersFormatsByTheirNames) {
    EXPECT_GE(m_Format, 0xC000U);
    EXPECT_LE(m_Format, 0xFFFFU);
    EXPECT_NE(m_Format, m_Other);
    EXPECT_EQ(RegisterFormat(u"Vaultmere test"), m_Format);
    EXPECT_EQ(RegisterFormat(u"Vaultmere test, another"), m_Other);
}

TEST_F(Clipboard, IgnoresCaseInNamesOfFormats) {
    EXPECT_EQ(RegisterFormat(u"VAULTMERE Test"), m_Format);
}

TEST_F(Clipboard, HasNoNumberWhereTheSystemHasNone) {
    platform::OrderFault(FaultPoint::RegisterFormat, 8);
    EXPECT_EQ(RegisterFormat(u"Vaultmere test"), 0U);
    EXPECT_EQ(RegisterFormat(u"Vaultmere test"), m_Format);
}

// --- Blocks ---

TEST_F(Clipboard, GivesBackWhatWasPut) {
    OpenEmpty();
    EXPECT_TRUE(Put(m_Format, {1, 2, 3, 0, 255}));
    EXPECT_THAT(Get(m_Format), ElementsAre(1, 2, 3, 0, 255));
    platform::CloseClipboard();
    ASSERT_TRUE(platform::OpenClipboard(nullptr));
    EXPECT_THAT(Get(m_Format), ElementsAre(1, 2, 3, 0, 255));
}

TEST_F(Clipboard, TellsWhichFormatsAreThere) {
    OpenEmpty();
    EXPECT_FALSE(platform::IsFormatAvailable(m_Format));
    EXPECT_TRUE(Put(m_Format, {1}));
    EXPECT_TRUE(platform::IsFormatAvailable(m_Format));
    EXPECT_FALSE(platform::IsFormatAvailable(m_Other));
    platform::CloseClipboard();
    EXPECT_TRUE(platform::IsFormatAvailable(m_Format));
    EXPECT_FALSE(platform::IsFormatAvailable(0));
    EXPECT_THAT(ClipboardFormats(), ElementsAre(m_Format));
}

TEST_F(Clipboard, HoldsOneBlockOfEachFormat) {
    OpenEmpty();
    EXPECT_TRUE(Put(m_Format, {1}));
    EXPECT_TRUE(Put(m_Other, {2, 2}));
    EXPECT_TRUE(Put(m_Format, {3, 3, 3}));
    EXPECT_THAT(Get(m_Format), ElementsAre(3, 3, 3));
    EXPECT_THAT(Get(m_Other), ElementsAre(2, 2));
    platform::CloseClipboard();
    EXPECT_THAT(ClipboardFormats(), UnorderedElementsAre(m_Format, m_Other));
}

TEST_F(Clipboard, LosesItsBlocksWhenItIsEmptied) {
    OpenEmpty();
    Put(m_Format, {1});
    EXPECT_TRUE(platform::EmptyClipboard());
    EXPECT_FALSE(platform::IsFormatAvailable(m_Format));
    EXPECT_THAT(Get(m_Format), IsEmpty());
}

TEST_F(Clipboard, TakesABlockOfPartsWithZerosBehindThem) {
    OpenEmpty();
    EXPECT_TRUE(ClipboardBlock(6, Bytes{1, 2}, Bytes{3}).Put(m_Format));
    EXPECT_THAT(Get(m_Format), ElementsAre(1, 2, 3, 0, 0, 0));
}

// Where memory that was used before comes back, too.
TEST_F(Clipboard, HasZerosInABlockWhereNothingWasPut) {
    for (const std::size_t size : {16U, 40U, 200U, 5000U}) {
        for (int i = 0; i < 50; ++i)
            const ClipboardBlock used(size, Bytes(size, 0xAA));
        OpenEmpty();
        EXPECT_TRUE(ClipboardBlock(size, {}).Put(m_Format));
        EXPECT_EQ(Get(m_Format), Bytes(size)) << size;
        platform::CloseClipboard();
    }
}

TEST_F(Clipboard, TakesALargeBlock) {
    Bytes large(3'000'000);
    for (std::size_t i = 0; i < large.size(); ++i)
        large[i] = static_cast<u8>(i % 251);
    OpenEmpty();
    EXPECT_TRUE(Put(m_Format, large));
    EXPECT_EQ(Get(m_Format), large);
}

TEST_F(Clipboard, TakesABlockOnce) {
    OpenEmpty();
    ClipboardBlock block(1, Bytes{7});
    EXPECT_TRUE(static_cast<bool>(block));
    EXPECT_TRUE(block.Put(m_Format));
    EXPECT_FALSE(static_cast<bool>(block));
    EXPECT_FALSE(block.Put(m_Other));
    EXPECT_FALSE(platform::IsFormatAvailable(m_Other));
}

TEST_F(Clipboard, AddsToWhatIsThereIfItIsNotEmptied) {
    OpenEmpty();
    Put(m_Format, {1});
    platform::CloseClipboard();
    ASSERT_TRUE(platform::OpenClipboard(nullptr));
    EXPECT_TRUE(Put(m_Other, {2}));
    platform::CloseClipboard();
    EXPECT_THAT(ClipboardFormats(), UnorderedElementsAre(m_Format, m_Other));
}

// --- Open and closed ---

TEST_F(Clipboard, ThatIsClosedTakesAndGivesNothing) {
    OpenEmpty();
    Put(m_Format, {1});
    platform::CloseClipboard();
    EXPECT_FALSE(platform::EmptyClipboard());
    EXPECT_FALSE(Put(m_Other, {2}));
    EXPECT_THAT(Get(m_Format), IsEmpty());
    EXPECT_THAT(ClipboardFormats(), ElementsAre(m_Format));
}

TEST_F(Clipboard, CanBeClosedTwice) {
    platform::CloseClipboard();
    platform::CloseClipboard();
    EXPECT_TRUE(platform::OpenClipboard(nullptr));
}

TEST_F(Clipboard, GivesNothingForAFormatThatIsNotThere) {
    OpenEmpty();
    Put(m_Format, {1});
    EXPECT_THAT(Get(m_Other), IsEmpty());
    EXPECT_THAT(Get(0), IsEmpty());
}

// --- Failures ---

TEST_F(Clipboard, StaysClosedWhereTheSystemDoesNotOpenIt) {
    platform::OrderFault(FaultPoint::OpenClipboard, 5);
    EXPECT_FALSE(platform::OpenClipboard(nullptr));
    EXPECT_FALSE(platform::EmptyClipboard());
    EXPECT_TRUE(platform::OpenClipboard(nullptr));
}

TEST_F(Clipboard, KeepsItsBlocksWhereTheSystemDoesNotEmptyIt) {
    OpenEmpty();
    Put(m_Format, {1});
    platform::OrderFault(FaultPoint::EmptyClipboard, 5);
    EXPECT_FALSE(platform::EmptyClipboard());
    EXPECT_THAT(Get(m_Format), ElementsAre(1));
}

TEST_F(Clipboard, TakesNoBlockThatThereWasNoMemoryFor) {
    OpenEmpty();
    platform::OrderFault(FaultPoint::AllocateBlock, 8);
    ClipboardBlock block(1, Bytes{1});
    EXPECT_FALSE(static_cast<bool>(block));
    EXPECT_FALSE(block.Put(m_Format));
    EXPECT_THAT(Get(m_Format), IsEmpty());
}

TEST_F(Clipboard, TakesNoBlockThatCouldNotBeLocked) {
    OpenEmpty();
    platform::OrderFault(FaultPoint::LockBlock, 8);
    ClipboardBlock block(1, Bytes{1});
    EXPECT_FALSE(static_cast<bool>(block));
    EXPECT_FALSE(block.Put(m_Format));
}

TEST_F(Clipboard, LeavesABlockThatItDoesNotTake) {
    OpenEmpty();
    ClipboardBlock block(1, Bytes{9});
    platform::OrderFault(FaultPoint::PutBlock, 8);
    EXPECT_FALSE(block.Put(m_Format));
    EXPECT_TRUE(static_cast<bool>(block));
    EXPECT_TRUE(block.Put(m_Format));
    EXPECT_THAT(Get(m_Format), ElementsAre(9));
}

TEST_F(Clipboard, GivesNothingWhereTheSystemGivesNothing) {
    OpenEmpty();
    Put(m_Format, {1});
    for (const FaultPoint point : {FaultPoint::GetBlock, FaultPoint::LockBlock}) {
        platform::OrderFault(point, 8);
        EXPECT_THAT(Get(m_Format), IsEmpty());
        EXPECT_THAT(Get(m_Format), ElementsAre(1));
    }
}

}  // namespace
