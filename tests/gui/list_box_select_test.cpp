// The selection of a list box: mouse, keyboard, notices, copying and finding.
#include "tests/gui/list_box_harness.h"
#include "tests/gui/plain_window.h"
#include "toolkit/control_state.h"

namespace {

tvstring ClipboardText() {
    tvstring text;
    EXPECT_NE(OpenClipboard(nullptr), FALSE);
    if (HANDLE data = GetClipboardData(CF_UNICODETEXT)) {
        text = Units(static_cast<const wchar_t*>(GlobalLock(data)));
        GlobalUnlock(data);
    }
    CloseClipboard();
    return text;
}

// --- Notices ---

TEST_F(MultiListTest, ASeriesOfCallsMakesOneNoticeAfterAWhile) {
    AddRows(10);
    for (int row = 0; row < 5; ++row)
        m_List.SetSel(row, true);
    EXPECT_NE(m_List.m_selTimer.m_id, 0U);
    PumpQueue();
    EXPECT_EQ(Notices(), 0);
    LetNoticesCome();
    EXPECT_EQ(Notices(), 1);
}

TEST_F(MultiListTest, ACallThatChangesNothingMakesNoNotice) {
    AddRows(10);
    Select({2, 3});
    m_List.SetSel(3, true);
    EXPECT_EQ(m_List.m_selTimer.m_id, 0U);
    m_List.SetSel(5, false);
    m_List.SetSel(99, true);
    EXPECT_EQ(m_List.m_selTimer.m_id, 0U);
    m_List.SetSel(2, false);
    EXPECT_NE(m_List.m_selTimer.m_id, 0U);
}

TEST_F(MultiListTest, SettingAllRowsMakesANoticeIfThatChangesAny) {
    AddRows(200);
    EXPECT_EQ(m_List.SetSel(-1, true), LB_OKAY);
    EXPECT_EQ(m_List.GetSelCount(), 200);
    LetNoticesCome();
    EXPECT_EQ(Notices(), 1);
    m_List.SelectAll();
    EXPECT_EQ(m_List.m_selTimer.m_id, 0U);
    m_List.DeselectAll();
    EXPECT_EQ(m_List.GetSelCount(), 0);
    LetNoticesCome();
    EXPECT_EQ(Notices(), 2);
}

TEST_F(ListTest, ANewCurrentRowMakesANotice) {
    AddRows(3);
    m_List.SetCurSel(1);
    LetNoticesCome();
    EXPECT_EQ(Notices(), 1);
    m_List.SetCurSel(1);
    EXPECT_EQ(m_List.m_selTimer.m_id, 0U);
}

TEST_F(ListTest, AClickIsToldOfAtOnce) {
    AddRows(3);
    ClickRow(1);
    EXPECT_TRUE(PumpUntil([this] { return Notices() == 1; }));
    EXPECT_EQ(m_List.m_selTimer.m_id, 0U);
    EXPECT_EQ(m_List.GetCurSel(), 1);
}

// --- Clicking below the rows ---

// Some systems have the last row selected by a click below it; the end of such a click is played here.
LRESULT EndClickAt(HWND list, int x, int y) {
    SetCapture(list);
    const LRESULT result = SendMessageW(list, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
    ReleaseCapture();
    return result;
}

TEST_F(ListTest, AClickBelowTheRowsSelectsNone) {
    AddRows(3);
    ClickRow(2);
    EXPECT_TRUE(PumpUntil([this] { return m_List.GetCurSel() == 2; }));
    EndClickAt(Window(), 5, static_cast<int>(RowRect(2).bottom) + 5);
    EXPECT_EQ(m_List.GetCurSel(), -1);
}

TEST_F(MultiListTest, AClickBelowTheRowsSelectsNone) {
    AddRows(3);
    ClickRow(2);
    EXPECT_TRUE(PumpUntil([this] { return Selected() == Rows{2}; }));
    EndClickAt(Window(), 5, static_cast<int>(RowRect(2).bottom) + 5);
    EXPECT_EQ(Selected(), Rows{});
}

TEST_F(MultiListTest, OnlyAClickBelowTheRowsIsUndone) {
    AddRows(3);
    ClickRow(2);
    EXPECT_TRUE(PumpUntil([this] { return Selected() == Rows{2}; }));
    const int below = static_cast<int>(RowRect(2).bottom) + 5;
    EndClickAt(Window(), 5, below - 8);
    EXPECT_EQ(Selected(), Rows{2}) << "on the row";
    EndClickAt(Window(), 5, 5000);
    EXPECT_EQ(Selected(), Rows{2}) << "outside the window";
    m_List.Send(WM_LBUTTONUP, 0, MAKELPARAM(5, below));
    EXPECT_EQ(Selected(), Rows{2}) << "the button was pressed elsewhere";
    m_List.SetSel(0, true);
    m_List.Send(LB_SETANCHORINDEX, 2);
    EndClickAt(Window(), 5, below);
    EXPECT_EQ(Selected(), (Rows{0, 2})) << "more than one row is selected";
    Select({2});
    m_List.Send(LB_SETANCHORINDEX, 0);
    EndClickAt(Window(), 5, below);
    EXPECT_EQ(Selected(), Rows{2}) << "the click began on another row";
}

TEST_F(MultiListTest, AClickOnTheLastRowItselfSelectsIt) {
    AddRows(3);
    ClickRow(2);
    PumpQueue();
    EXPECT_EQ(Selected(), Rows{2});
}

TEST_F(ListTest, ABarListTakesAClick) {
    Click(Window(), 5, 5);
    PumpQueue();
    EXPECT_EQ(m_List.GetCurSel(), -1);
}

// --- The right button ---

TEST_F(MultiListTest, ARightClickKeepsASelectionThatItHits) {
    AddRows(5);
    Select({1, 2, 3});
    ClickRow(2, MouseButton::Right);
    PumpQueue();
    EXPECT_EQ(Selected(), (Rows{1, 2, 3}));
    LetNoticesCome();
    EXPECT_EQ(Notices(), 0);
}

TEST_F(MultiListTest, ARightClickOnAnotherRowSelectsOnlyThat) {
    AddRows(5);
    Select({1, 2, 3});
    ClickRow(4, MouseButton::Right);
    PumpQueue();
    EXPECT_EQ(Selected(), Rows{4});
    EXPECT_EQ(GetFocus(), Window());
    LetNoticesCome();
    EXPECT_EQ(Notices(), 1);
}

TEST_F(MultiListTest, ARightClickBelowTheRowsChangesNothing) {
    AddRows(3);
    Select({1});
    Click(Window(), 5, static_cast<int>(RowRect(2).bottom) + 5, MouseButton::Right);
    PumpQueue();
    EXPECT_EQ(Selected(), Rows{1});
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(MultiListTest, ARightClickAsksForTheMenu) {
    AddRows(3);
    m_Dialog.m_keepMessages = true;
    ClickRow(1, MouseButton::Right);
    const auto asked = [this] {
        return std::any_of(m_Dialog.m_messages.begin(), m_Dialog.m_messages.end(),
                           [](const MSG& message) { return message.message == WM_CONTEXTMENU; });
    };
    EXPECT_TRUE(PumpUntil(asked));
}

TEST_F(ListTest, ARightClickMovesTheCurrentRow) {
    AddRows(3);
    ClickRow(1, MouseButton::Right);
    PumpQueue();
    EXPECT_EQ(m_List.GetCurSel(), 1);
    Click(Window(), 5, static_cast<int>(RowRect(2).bottom) + 5, MouseButton::Right);
    PumpQueue();
    EXPECT_EQ(m_List.GetCurSel(), -1);
}

class RightDrag : public MultiListTest {
protected:
    void PressAt(POINT at) {
        MoveMouse(Window(), at.x, at.y);
        Press(MouseButton::Right);
        ASSERT_TRUE(PumpUntil([this] { return GetCapture() == Window(); }));
    }
    void ReleaseButton() {
        Release(MouseButton::Right);
        EXPECT_TRUE(PumpUntil([] { return GetCapture() == nullptr; }));
        PumpQueue();
    }
    void DragTo(POINT at) { MoveMouse(Window(), at.x, at.y); }
    [[nodiscard]] POINT Below() const { return {5, RowRect(m_List.GetCount() - 1).bottom + 8}; }
};

TEST_F(RightDrag, SelectsTheRowsThatItPasses) {
    AddRows(6);
    Select({5});
    PressAt(MiddleOf(1));
    DragTo(MiddleOf(3));
    EXPECT_EQ(Selected(), (Rows{1, 2, 3}));
    DragTo(MiddleOf(2));
    EXPECT_EQ(Selected(), (Rows{1, 2}));
    DragTo(MiddleOf(0));
    EXPECT_EQ(Selected(), (Rows{0, 1}));
    EXPECT_EQ(Notices(), 0);
    ReleaseButton();
    EXPECT_EQ(Selected(), (Rows{0, 1}));
    EXPECT_GE(Notices(), 1);
    EXPECT_EQ(m_List.m_dragStart, -1);
    EXPECT_EQ(m_List.m_curSelBefore, -1);
}

TEST_F(RightDrag, AFewPixelsAreNoDrag) {
    AddRows(6);
    Select({5});
    const RECT rect = RowRect(1);
    PressAt({5, rect.bottom - 2});
    DragTo({5, rect.bottom + 1});
    EXPECT_EQ(Selected(), Rows{5});
    ReleaseButton();
    EXPECT_EQ(Selected(), Rows{2}) << "a click";
}

TEST_F(RightDrag, FromBelowTheRowsBeginsWithTheLast) {
    AddRows(4);
    PressAt(Below());
    DragTo(MiddleOf(2));
    EXPECT_EQ(Selected(), (Rows{2, 3}));
    ReleaseButton();
}

TEST_F(RightDrag, ToBelowTheRowsEndsWithTheLast) {
    AddRows(4);
    PressAt(MiddleOf(1));
    DragTo(Below());
    EXPECT_EQ(Selected(), (Rows{1, 2, 3}));
    ReleaseButton();
    EXPECT_EQ(Selected(), (Rows{1, 2, 3}));
}

TEST_F(RightDrag, BelowTheRowsOnlySelectsNothing) {
    AddRows(3);
    PressAt(Below());
    DragTo({5, Below().y + 10});
    EXPECT_EQ(Selected(), Rows{});
    ReleaseButton();
    EXPECT_EQ(Selected(), Rows{});
}

TEST_F(RightDrag, AboveTheWindowTakesTheRowAtItsTop) {
    AddRows(4);
    PressAt(MiddleOf(2));
    DragTo({5, -20});
    EXPECT_EQ(Selected(), (Rows{0, 1, 2}));
    DragTo(MiddleOf(0));  // over the title bar the window's own menu would open
    ReleaseButton();
    EXPECT_EQ(Selected(), (Rows{0, 1, 2}));
}

// Beside the list there is no row, as there is none below it.
TEST_F(RightDrag, ToTheSideOfTheListEndsWithTheLast) {
    AddRows(5);
    const LONG width = ClientOf(Window()).right;
    for (const LONG x : {-4L, width + 20}) {
        Select({0});
        PressAt(MiddleOf(1));
        DragTo(MiddleOf(2));
        EXPECT_EQ(Selected(), (Rows{1, 2}));
        DragTo({x, MiddleOf(3).y});
        EXPECT_EQ(Selected(), (Rows{1, 2, 3, 4})) << x;
        DragTo(MiddleOf(0));
        EXPECT_EQ(Selected(), (Rows{0, 1})) << "it can come back";
        DragTo({x, MiddleOf(2).y});
        ReleaseButton();
        EXPECT_EQ(Selected(), (Rows{1, 2, 3, 4})) << x;
        EXPECT_GE(Notices(), 1);
        ForgetNotices();
    }
}

// Only the way up or down counts.
TEST_F(RightDrag, StraightToTheSideIsNoDrag) {
    AddRows(5);
    Select({4});
    PressAt(MiddleOf(1));
    DragTo({ClientOf(Window()).right + 20, MiddleOf(1).y});
    EXPECT_EQ(Selected(), Rows{4});
    ReleaseButton();
    EXPECT_EQ(Selected(), Rows{4});
    EXPECT_EQ(Notices(), 0);
}

// --- Keyboard ---

TEST_F(MultiListTest, ControlASelectsAll) {
    AddRows(3);
    FocusList();
    Type('A', HOLD_CTRL);
    EXPECT_TRUE(PumpUntil([this] { return m_List.GetSelCount() == 3; }));
    Type('A');
    PumpQueue();
}

TEST_F(MultiListTest, ControlCCopiesTheSelectedRows) {
    m_List.AddItem(u"One\tNote");
    m_List.AddItem(u"Two");
    m_List.AddItem(u"\tindented\t");
    Select({0, 2});
    FocusList();
    Type('C', HOLD_CTRL);
    EXPECT_TRUE(PumpUntil([] { return ClipboardText() == u"One\tNote\r\n\tindented"; }));
}

TEST_F(MultiListTest, SpaceDoesNothingWithoutASelection) {
    AddRows(3);
    FocusList();
    Type(VK_SPACE);
    PumpQueue();
    EXPECT_EQ(Selected(), Rows{});
    EXPECT_EQ(m_List.Send(WM_KEYDOWN, VK_SPACE), 0);
    EXPECT_EQ(Selected(), Rows{});
}

TEST_F(ListTest, ArrowsMoveTheCurrentRow) {
    AddRows(3);
    m_List.SetCurSel(0);
    FocusList();
    Type(VK_DOWN);
    EXPECT_TRUE(PumpUntil([this] { return m_List.GetCurSel() == 1; }));
}

// --- Copying ---

TEST_F(ListTest, CopiesTheCurrentRow) {
    EXPECT_FALSE(m_List.CopySelection()) << "there are no rows";
    m_List.AddItem(u"One\tNote");
    m_List.AddItem(u"");
    EXPECT_FALSE(m_List.CopySelection()) << "none is selected";
    m_List.SetCurSel(0);
    EXPECT_TRUE(m_List.CopySelection());
    EXPECT_EQ(ClipboardText(), u"One\tNote");
    m_List.SetCurSel(1);
    EXPECT_FALSE(m_List.CopySelection()) << "there is no text";
}

TEST_F(MultiListTest, RowsAreOneALineWithoutAnEndAtTheLast) {
    m_List.AddItem(u"One");
    m_List.AddItem(u"");
    m_List.AddItem(u"Three\tNote");
    Select({0, 1, 2});
    EXPECT_TRUE(m_List.CopySelection());
    EXPECT_EQ(ClipboardText(), u"One\r\n\r\nThree\tNote");
    Select({});
    EXPECT_FALSE(m_List.CopySelection());
}

TEST_F(ListTest, GivesTheTextOfARowForTheClipboard) {
    m_List.AddItem(u"\tText\tNote");
    m_List.AddItem(u"Text");
    tvstring out = u"before";
    m_List.GetItemClipText(out, 0, u" - ");
    EXPECT_EQ(out, u"\tText - Note");
    m_List.GetItemClipText(out, 1, u" - ");
    EXPECT_EQ(out, u"Text");
    m_List.GetItemClipText(out, 2, u" - ");
    EXPECT_TRUE(out.empty());
}

// --- Inverting ---

TEST_F(MultiListTest, InvertsTheSelectionAndKeepsTheTopRow) {
    AddRows(100);
    Select({0, 50});
    m_List.Send(LB_SETTOPINDEX, 20);
    m_List.InvertSelection();
    EXPECT_EQ(m_List.GetSelCount(), 98);
    EXPECT_EQ(m_List.GetSel(50), 0);
    EXPECT_EQ(m_List.Send(LB_GETTOPINDEX), 20);
    m_List.InvertSelection();
    EXPECT_EQ(Selected(), (Rows{0, 50}));
}

// --- Finding ---

class ListFind : public MultiListTest {
protected:
    ListFind() {
        for (const char16_t* text : {u"apple", u"Banana", u"apricot", u"cherry\tapple", u"date"})
            m_List.AddItem(text);
    }
};

TEST_F(ListFind, FindsTheNextRowAndGoesRound) {
    EXPECT_EQ(m_List.FindItem(u"ap", FIND_NEXT, false), 0);
    EXPECT_EQ(Selected(), Rows{0});
    EXPECT_EQ(m_List.FindItem(u"ap", FIND_NEXT, false), 2);
    EXPECT_EQ(Selected(), Rows{2});
    EXPECT_EQ(m_List.FindItem(u"ap", FIND_NEXT, false), 3) << "in its note";
    EXPECT_EQ(m_List.FindItem(u"ap", FIND_NEXT, false), 0);
}

TEST_F(ListFind, FindsThePreviousRowAndGoesRound) {
    EXPECT_EQ(m_List.FindItem(u"ap", FIND_PREVIOUS, false), 3) << "from the last row";
    EXPECT_EQ(m_List.FindItem(u"ap", FIND_PREVIOUS, false), 2);
    EXPECT_EQ(m_List.FindItem(u"ap", FIND_PREVIOUS, false), 0);
    EXPECT_EQ(m_List.FindItem(u"ap", FIND_PREVIOUS, false), 3);
}

TEST_F(ListFind, BeginsAtTheFirstOfTheSelectedRows) {
    Select({1, 3});
    EXPECT_EQ(m_List.FindItem(u"ap", FIND_NEXT, false), 2);
    Select({1, 3});
    EXPECT_EQ(m_List.FindItem(u"ap", FIND_PREVIOUS, false), 0);
    Select({4});
    EXPECT_EQ(m_List.FindItem(u"date", FIND_NEXT, false), 4) << "itself, when it has come round";
}

TEST_F(ListFind, FindsAllRows) {
    Select({4});
    EXPECT_EQ(m_List.FindItem(u"ap", FIND_ALL, false), 0);
    EXPECT_EQ(Selected(), (Rows{0, 2, 3}));
}

TEST_F(ListFind, LetterCaseCountsUnlessItIsToBeIgnored) {
    EXPECT_EQ(m_List.FindItem(u"banana", FIND_NEXT, false), -1);
    EXPECT_EQ(m_List.FindItem(u"banana", FIND_NEXT, true), 1);
    EXPECT_EQ(m_List.FindItem(u"y\tA", FIND_NEXT, true), 3) << "text and note with a tab";
}

TEST_F(ListFind, SelectsNothingIfItFindsNothing) {
    Select({1, 2});
    EXPECT_EQ(m_List.FindItem(u"zzz", FIND_ALL, true), -1);
    EXPECT_EQ(Selected(), Rows{});
    EXPECT_EQ(m_List.FindItem(u"", FIND_NEXT, false), -1);
    m_List.DeleteAll();
    EXPECT_EQ(m_List.FindItem(u"a", FIND_NEXT, false), -1);
}

TEST_F(ListTest, ASingleSelectionFindsOneRowForAll) {
    for (const char16_t* text : {u"one", u"two", u"three"})
        m_List.AddItem(text);
    EXPECT_EQ(m_List.FindItem(u"t", FIND_ALL, false), 1);
    EXPECT_EQ(m_List.GetCurSel(), 1);
    EXPECT_EQ(m_List.FindItem(u"t", FIND_ALL, false), 2);
    EXPECT_EQ(m_List.FindItem(u"zzz", FIND_NEXT, false), -1);
    EXPECT_EQ(m_List.GetCurSel(), -1);
}

}  // namespace
