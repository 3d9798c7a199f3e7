// Items and entries that go from one place to another by the clipboard, within a program and between two.
#include "tests/scenarios/day_stage.h"

namespace {

constexpr const char16_t* kLines = u"one\r\ntwo\r\nthree";

constexpr const wchar_t* kItems = L"Vaultmere";
constexpr const wchar_t* kEntries = L"VaultmereItem";

class Transfer : public DayStage {
protected:
    void SetUp() override {
        DayStage::SetUp();
        ClearClipboard();
    }

    // One below the other, with the first one in front.
    void StartBoth(const Content& first, const Content& second) {
        DayStage::StartWith(m_Program, u"day.VMR", first);
        GiveRoom(m_Program, {0, 0, 900, 445});
        DayStage::StartWith(m_Second, u"second.VMR", second);
        GiveRoom(m_Second, {0, 450, 900, 895});
        m_Program.Activate();
    }
    Content SavedContentOfSecond() { return SavedContent(m_Second, m_Other, u"second.VMR"); }

    Program m_Second;
    User m_Other{m_Second};
};

TEST_P(Transfer, CutItemsArePastedBeforeTheSelectedOne) {
    StartWith({MakeItem(u"a"), MakeItem(u"b", {kLines}), MakeItem(u"c"), MakeItem(u"d")});
    m_User.SelectRange(List::Items, 1, 2);
    m_User.Cut(List::Items, 2);
    m_User.Select(List::Items, 0);
    m_User.Paste(List::Items, 4);
    EXPECT_TRUE(m_User.IsSelected(List::Items, 0) && m_User.IsSelected(List::Items, 1));
    EXPECT_EQ(SavedContent(),
              (Content{MakeItem(u"b", {kLines}), MakeItem(u"c"), MakeItem(u"a"), MakeItem(u"d")}));
}

TEST_P(Transfer, CopiedItemsArePastedAgainAndAgain) {
    StartWith({MakeItem(u"a"), MakeItem(u"b")});
    m_User.Copy(kItems);
    m_User.Select(List::Items, 1);
    m_User.Paste(List::Items, 3);
    m_User.Paste(List::Items, 4);
    m_User.Undo(1);
    m_User.WaitForRows(List::Items, 3);
    EXPECT_EQ(SavedContent(), (Content{MakeItem(u"a"), MakeItem(u"a"), MakeItem(u"b")}));
}

TEST_P(Transfer, CutEntriesArePastedIntoAnotherItem) {
    StartWith({MakeItem(u"a", {u"1", kLines, u"3"}), MakeItem(u"b", {u"4"})});
    m_User.SelectRange(List::Entries, 0, 1);
    m_User.Cut(List::Entries, 1);
    m_User.Select(List::Items, 1);
    m_User.Select(List::Entries, 0);
    m_User.Paste(List::Entries, 3);
    EXPECT_EQ(SavedContent(), (Content{MakeItem(u"a", {u"3"}), MakeItem(u"b", {u"1", kLines, u"4"})}));
}

TEST_P(Transfer, TheMenuOfAListCutsAndPastesToo) {
    StartWith({MakeItem(u"a", {u"1", u"2"}), MakeItem(u"b")});
    m_User.Select(List::Entries, 0);
    m_User.ChooseFromListMenu('T');
    m_User.WaitForRows(List::Entries, 1);
    m_User.Select(List::Entries, 0);
    m_User.ChooseFromListMenu('P');
    m_User.WaitForRows(List::Entries, 2);
    m_User.Select(List::Items, 1);
    m_User.ChooseFromListMenu('T');
    m_User.WaitForRows(List::Items, 1);
    EXPECT_EQ(SavedContent(), (Content{MakeItem(u"a", {u"1", u"2"})}));
}

TEST_P(Transfer, TheKeyboardCopiesCutsAndPastesToo) {
    StartWith({MakeItem(u"a"), MakeItem(u"b"), MakeItem(u"c")});
    m_User.SelectAll(List::Items);
    Require([] { return TypeWithControl('C', [] { return IsOnTheClipboard(kItems); }); },
            "nothing is copied");
    m_User.Select(List::Items, 1);
    Require([this] { return TypeWithControl('X', [this] { return m_User.CountRows(List::Items) == 2; }); },
            "nothing is cut");
    m_User.Select(List::Items, 0);
    Require([this] { return TypeWithControl('V', [this] { return m_User.CountRows(List::Items) == 3; }); },
            "nothing is pasted");
    EXPECT_EQ(SavedContent(), (Content{MakeItem(u"b"), MakeItem(u"a"), MakeItem(u"c")}));
}

TEST_P(Transfer, ASingleElementIsTextToo) {
    StartWith({MakeItem(u"a", {u"1", kLines}), MakeItem(u"b")});
    m_User.Copy(kItems);
    EXPECT_EQ(ClipboardText(), u"a");
    EXPECT_TRUE(IsOnTheClipboard(kItems));
    EXPECT_FALSE(IsOnTheClipboard(kEntries));
    EXPECT_EQ(m_User.RowText(List::Entries, 1), kLines);
    EXPECT_TRUE(IsOnTheClipboard(kEntries));
    EXPECT_FALSE(IsOnTheClipboard(kItems));
    m_User.Cut(List::Entries, 1);
    EXPECT_EQ(ClipboardText(), kLines);
}

TEST_P(Transfer, SeveralElementsAreNoText) {
    StartWith({MakeItem(u"a", {u"1", u"2"}), MakeItem(u"b")});
    m_User.SelectRange(List::Items, 0, 1);
    m_User.Copy(kItems);
    EXPECT_FALSE(IsTextOnTheClipboard());
    m_User.Select(List::Items, 0);
    m_User.SelectRange(List::Entries, 0, 1);
    m_User.Copy(kEntries);
    EXPECT_FALSE(IsTextOnTheClipboard());
}

TEST_P(Transfer, CopiedItemsArePastedInAnotherProgram) {
    StartBoth({MakeItem(u"b"), MakeItem(u"a", {u"1", kLines}), MakeItem(u"c")},
              {MakeItem(u"x"), MakeItem(u"y")});
    m_User.SelectRange(List::Items, 1, 2);
    m_User.Copy(kItems);
    m_Second.Activate();
    m_Other.Select(List::Items, 1);
    m_Other.Paste(List::Items, 4);
    EXPECT_EQ(SavedContentOfSecond(),
              (Content{MakeItem(u"x"), MakeItem(u"a", {u"1", kLines}), MakeItem(u"c"), MakeItem(u"y")}));
    EXPECT_FALSE(m_User.IsChanged());
}

TEST_P(Transfer, CutEntriesArePastedInAnotherProgram) {
    StartBoth({MakeItem(u"a", {kLines, u"1"})}, {MakeItem(u"x", {u"2"})});
    m_User.Select(List::Items, 0);
    m_User.Select(List::Entries, 0);
    m_User.Cut(List::Entries, 1);
    m_Second.Activate();
    m_Other.Select(List::Items, 0);
    m_Other.Select(List::Entries, 0);
    m_Other.Paste(List::Entries, 2);
    EXPECT_EQ(SavedContentOfSecond(), (Content{MakeItem(u"x", {kLines, u"2"})}));
    EXPECT_EQ(SavedContent(), (Content{MakeItem(u"a", {u"1"})}));
}

TEST_P(Transfer, WhatWasCutOutlivesTheProgramItWasCutIn) {
    StartBoth({MakeItem(u"a", {kLines}), MakeItem(u"b")}, {MakeItem(u"x")});
    m_User.Select(List::Items, 0);
    m_User.Cut(List::Items, 1);
    EXPECT_EQ(SavedContent(), (Content{MakeItem(u"b")}));
    m_Second.Activate();
    m_Other.Select(List::Items, 0);
    m_Other.Paste(List::Items, 2);
    EXPECT_EQ(SavedContentOfSecond(), (Content{MakeItem(u"a", {kLines}), MakeItem(u"x")}));
}

INSTANTIATE_TEST_SUITE_P(Themes, Transfer, testing::ValuesIn(kDayThemes), NameOfTheme);

}  // namespace
