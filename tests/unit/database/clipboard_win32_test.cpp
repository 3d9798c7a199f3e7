// What Windows itself has on the clipboard after a copy.
#include "platform/windows_api.h"

// After windows.h, which sets what its parts need.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/unit/database/clipboard_fixture.h"

using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

namespace {

// All formats in the system's order: those that were put come first, in the order in which they were put.
std::vector<u32> AllFormats() {
    std::vector<u32> formats;
    OpenClipboard(nullptr);
    for (UINT format = EnumClipboardFormats(0); format != 0; format = EnumClipboardFormats(format))
        formats.push_back(format);
    CloseClipboard();
    return formats;
}

std::wstring NameOf(u32 format) {
    wchar_t name[100] = {};
    return {name, static_cast<std::size_t>(GetClipboardFormatNameW(format, name, 100))};
}

class WindowsClipboard : public ClipboardTransfer {
protected:
    ItemElement* m_Item = PutItem(u"\u00E9t\u00E9", {Password(u"w"), Addition(u"note")});
};

TEST_F(WindowsClipboard, KnowsTheFormatsByTheirNames) {
    EXPECT_EQ(NameOf(ItemsClipboardFormat()), L"Vaultmere");
    EXPECT_EQ(NameOf(EntriesClipboardFormat()), L"VaultmereItem");
    EXPECT_EQ(ItemsClipboardFormat(), RegisterClipboardFormatW(L"Vaultmere"));
    EXPECT_EQ(EntriesClipboardFormat(), RegisterClipboardFormatW(L"VaultmereItem"));
}

// Three are put; the locale and the text of the console's code page are made by the system.
TEST_F(WindowsClipboard, HasThreeFormatsOfOneItemAndTwoThatTheSystemMakes) {
    ASSERT_TRUE(Copy({m_Item}));
    EXPECT_THAT(AllFormats(),
                ElementsAre(ItemsClipboardFormat(), CF_UNICODETEXT, CF_TEXT, CF_LOCALE, CF_OEMTEXT));
}

TEST_F(WindowsClipboard, HasThreeFormatsOfOneEntryAndTwoThatTheSystemMakes) {
    ASSERT_TRUE(CopyOf({m_Item->m_Head}));
    EXPECT_THAT(AllFormats(),
                ElementsAre(EntriesClipboardFormat(), CF_UNICODETEXT, CF_TEXT, CF_LOCALE, CF_OEMTEXT));
}

TEST_F(WindowsClipboard, HasOneFormatOfSeveralElementsAndNoneThatTheSystemMakes) {
    ASSERT_TRUE(Copy({m_Item, m_Item}));
    EXPECT_THAT(AllFormats(), ElementsAre(ItemsClipboardFormat()));
    ASSERT_TRUE(CopyOf({m_Item->m_Head, m_Item->m_Head->m_Next}));
    EXPECT_THAT(AllFormats(), ElementsAre(EntriesClipboardFormat()));
}

// The text that the system makes of the other one stands behind the locale.
TEST_F(WindowsClipboard, MakesTheTextThatCouldNotBePut) {
    Faults faults;
    faults.Fail(platform::FaultPoint::PutBlock, 8, 2);
    ASSERT_TRUE(Copy({m_Item}));
    EXPECT_THAT(ClipboardFormats(), UnorderedElementsAre(ItemsClipboardFormat(), CF_UNICODETEXT));
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_TEXT));
}

TEST_F(WindowsClipboard, IsWrittenForAWindowToo) {
    HWND window = CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(CopyItems(window, {m_Item}));
    EXPECT_EQ(GetClipboardOwner(), window);
    EXPECT_EQ(GetOpenClipboardWindow(), nullptr);
    EXPECT_EQ(PastedItems().items, TreeOf(db).items);
    EXPECT_TRUE(CopyEntries(window, {m_Item->m_Head}));
    EXPECT_EQ(GetClipboardOwner(), window);
    DestroyWindow(window);
    EXPECT_EQ(PastedEntries().items.at(0).entries, (std::vector{EntryValues{VMRD_T_PASSWORD, u"w"}}));
}

TEST_F(WindowsClipboard, IsLeftIfTheWindowIsNone) {
    PutOld();
    // NOLINTNEXTLINE(performance-no-int-to-ptr): a number that is no window's
    EXPECT_FALSE(CopyItems(reinterpret_cast<HWND>(0x7FF0), {m_Item}));
    ExpectOnlyOld();
}

TEST_F(WindowsClipboard, IsNotOpenedWhileAnotherWindowHasItOpenButClosed) {
    PutOld();
    HWND window = CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    ASSERT_TRUE(OpenClipboard(window));
    VMRD_DB carrier;
    EXPECT_FALSE(VMRD_DB::ReadClipboard(carrier, OldFormat()));
    EXPECT_EQ(GetOpenClipboardWindow(), nullptr);
    ASSERT_TRUE(OpenClipboard(window));
    EXPECT_FALSE(Copy({m_Item, m_Item}));
    DestroyWindow(window);
    ExpectOnlyOld();
}

}  // namespace
