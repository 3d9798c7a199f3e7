// The rows of a list box.
#include "tests/gui/list_box_harness.h"

namespace {

tvMListItem* Row(const tvMListBox& list, int row) {
    return list.ItemOfRow(row);
}

std::string Texts(const tvMListBox& list) {
    std::string texts;
    for (int row = 0; row < list.GetCount(); ++row) {
        for (const char16_t unit : Row(list, row)->m_text)
            texts += static_cast<char>(unit);
        texts += ' ';
    }
    return texts;
}

TEST(ListBox, WithoutAWindowAnswersMinusOne) {
    tvMListBox list;
    RECT rect{};
    EXPECT_EQ(list.GetCount(), -1);
    EXPECT_EQ(list.GetItemRect(0, rect), -1);
    EXPECT_EQ(list.GetCurSel(), -1);
    EXPECT_EQ(list.SetCurSel(0), -1);
    EXPECT_EQ(list.SetSel(0, true), -1);
    EXPECT_EQ(list.GetSel(0), -1);
    EXPECT_EQ(list.GetSelCount(), -1);
    EXPECT_EQ(list.GetItemData(0), -1);
    EXPECT_EQ(list.AddItem(u"x"), -1);
    EXPECT_EQ(list.DeleteItem(0), -1);
    EXPECT_EQ(list.HitTest(0, 0), -1);
    EXPECT_EQ(list.FindItem(u"x", FIND_NEXT, false), -1);
    EXPECT_FALSE(list.CopySelection());
    list.DeleteAll();
    list.SelectAll();
    list.InvertSelection();
    list.SubclassWindow(nullptr);
    const tvMListBox::Bulk bulk(list);
    EXPECT_FALSE(list.IsAttached());
}

// --- Adding ---

TEST_F(ListTest, AddsAtTheEndInFrontAndInBetween) {
    EXPECT_EQ(m_List.AddItem(u"B"), 0);
    EXPECT_EQ(m_List.AddItem(u"D", 0, -1), 1);
    EXPECT_EQ(m_List.AddItem(u"A", 0, 0), 0);
    EXPECT_EQ(m_List.AddItem(u"C", 7, 2, false, 4711), 2);
    EXPECT_EQ(Texts(m_List), "A B C D ");
    EXPECT_EQ(m_List.GetCount(), 4);
    EXPECT_EQ(Row(m_List, 2)->m_icon, 7U);
    EXPECT_EQ(m_List.GetItemData(2), 4711);
    EXPECT_EQ(m_List.GetItemData(4), -1);
    EXPECT_EQ(m_List.AddItem(u"x", 0, 5), -1);
    EXPECT_EQ(m_List.GetCount(), 4);
}

TEST_F(ListTest, AddsTheOtherWayRoundIfItIsBottomUp) {
    m_List.m_bottomUp = 1;
    EXPECT_EQ(m_List.AddItem(u"B"), 0);
    EXPECT_EQ(m_List.AddItem(u"D"), 0);
    EXPECT_EQ(m_List.AddItem(u"A", 0, 0), 2);
    EXPECT_EQ(m_List.AddItem(u"C", 0, 2), 1);
    EXPECT_EQ(Texts(m_List), "D C B A ");
    EXPECT_EQ(m_List.m_items.At(0)->m_text, u"A");
    EXPECT_EQ(m_List.DeleteItem(0), 3);
    EXPECT_EQ(Texts(m_List), "C B A ");
}

TEST_F(ListTest, PartsTheNoteAtTheLastTab) {
    const struct {
        const char16_t* given;
        const char16_t* text;
        const char16_t* note;
    } rows[] = {
        {u"name", u"name", u""},
        {u"name\tnote", u"name", u"note"},
        {u"name\tmore\tnote", u"name\tmore", u"note"},
        {u"name\tnote\t", u"name\tnote", u""},
        {u"\tname", u"", u"name"},
        {u"\t\tname\tnote", u"\t\tname", u"note"},
        {u"", u"", u""},
        {u"\t", u"", u""},
    };
    for (const auto& [given, text, note] : rows) {
        const int row = m_List.AddItem(given);
        EXPECT_EQ(Row(m_List, row)->m_text, text);
        EXPECT_EQ(Row(m_List, row)->m_note, note);
    }
}

TEST_F(ListTest, MakesANewRowVisibleIfAskedTo) {
    AddRows(100);
    EXPECT_EQ(m_List.Send(LB_GETTOPINDEX), 0);
    m_List.AddItem(u"x", 0, 50, true);
    EXPECT_EQ(m_List.Send(LB_GETTOPINDEX), 50);
    m_List.AddItem(u"x", 0, 20);
    EXPECT_EQ(m_List.Send(LB_GETTOPINDEX), 50);
}

TEST_F(ListTest, TheOldestRowFallsOutOfAFullList) {
    {
        const tvMListBox::Bulk bulk(m_List);
        for (int i = 0; i < 65530; ++i)
            m_List.AddItem(u"", 0, -1, false, i);
    }
    EXPECT_EQ(m_List.GetCount(), 65530);
    EXPECT_EQ(m_List.AddItem(u"", 0, -1, false, -7), 65529);
    EXPECT_EQ(m_List.GetCount(), 65530);
    EXPECT_EQ(m_List.GetItemData(0), 1);
    EXPECT_EQ(m_List.GetItemData(65529), -7);
    EXPECT_EQ(m_List.AddItem(u"", 0, 0, false, -8), 0);
    EXPECT_EQ(m_List.GetCount(), 65530);
    EXPECT_EQ(m_List.GetItemData(0), -8);
    EXPECT_EQ(m_List.GetItemData(65529), 65529);
    EXPECT_EQ(m_List.AddItem(u"", 0, 1), -1) << "no room in between";
    EXPECT_EQ(m_List.GetCount(), 65530);
    EXPECT_EQ(m_List.GetItemData(1), 1);
}

// --- Refusing ---

TEST_F(ListTest, RefusesWhatWouldChangeTheRowsBehindItsBack) {
    AddRows(3);
    const auto text = reinterpret_cast<LPARAM>(L"x");
    for (const int message : {LB_ADDSTRING, LB_INSERTSTRING, LB_DELETESTRING, LB_RESETCONTENT, LB_DIR,
                              LB_ADDFILE, LB_SETITEMDATA, LB_SETCOUNT}) {
        EXPECT_EQ(SendMessageW(Window(), static_cast<UINT>(message), 0, text), -1) << message;
    }
    EXPECT_EQ(m_List.GetCount(), 3);
    EXPECT_EQ(Texts(m_List).size(), 18U);
    EXPECT_EQ(m_List.m_internalChange, 0);
}

// --- Deleting ---

TEST_F(ListTest, DeletesRows) {
    AddRows(4);
    EXPECT_EQ(m_List.DeleteItem(1), 3);
    EXPECT_EQ(m_List.DeleteItem(3), -1);
    EXPECT_EQ(m_List.DeleteItem(-1), -1);
    EXPECT_EQ(Texts(m_List), "Row A Row C Row D ");
    m_List.DeleteAll();
    EXPECT_EQ(m_List.GetCount(), 0);
    EXPECT_EQ(m_List.m_items.Count(), 0);
    PumpQueue();
    EXPECT_EQ(Notices(), 0) << "nothing was selected";
}

TEST_F(ListTest, TellsOfADeleteWithASelection) {
    AddRows(4);
    m_List.SetCurSel(2);
    ForgetNotices();
    m_List.DeleteItem(0);
    EXPECT_EQ(Notices(), 0) << "it is posted";
    PumpQueue();
    EXPECT_EQ(Notices(), 1);
    m_List.DeleteAll();
    PumpQueue();
    EXPECT_EQ(Notices(), 2);
    m_List.DeleteAll();
    PumpQueue();
    EXPECT_EQ(Notices(), 2);
}

TEST_F(MultiListTest, TellsOnceOfAResetWithASelection) {
    AddRows(4);
    Select({1, 3});
    m_List.DeleteAll();
    LetNoticesCome();
    EXPECT_EQ(Notices(), 1);
}

// --- Places ---

TEST_F(ListTest, FindsRowsByPointAndNoneWhereThereIsNone) {
    AddRows(3);
    for (int row = 0; row < 3; ++row) {
        const RECT rect = RowRect(row);
        EXPECT_EQ(m_List.HitTest(rect.left, rect.top), row);
        EXPECT_EQ(m_List.HitTest(rect.right - 1, rect.bottom - 1), row);
    }
    EXPECT_EQ(m_List.HitTest(5, RowRect(2).bottom), -1);
    EXPECT_EQ(m_List.HitTest(-1, 3), -1);
    EXPECT_EQ(m_List.HitTest(5, -1), -1);
    EXPECT_EQ(m_List.HitTest(5000, 3), -1);
}

TEST_F(ListTest, TurnsRowsRoundIfItIsBottomUp) {
    EXPECT_EQ(m_List.RowToItem(0, 3), 0);
    EXPECT_EQ(m_List.RowToItem(3, 3), -1);
    EXPECT_EQ(m_List.RowToItem(-1, 3), -1);
    m_List.m_bottomUp = 1;
    EXPECT_EQ(m_List.RowToItem(0, 3), 2);
    EXPECT_EQ(m_List.RowToItem(2, 3), 0);
    EXPECT_EQ(m_List.RowToItem(3, 3), -1);
}

TEST_F(ListTest, KnowsThatOneRowCanBeSelected) {
    EXPECT_TRUE(m_List.IsSingleSelect());
}

TEST_F(MultiListTest, KnowsThatManyRowsCanBeSelected) {
    EXPECT_FALSE(m_List.IsSingleSelect());
}

// --- Many at once ---

TEST_F(ListTest, ABulkKeepsTheTopRow) {
    AddRows(200);
    m_List.Send(LB_SETTOPINDEX, 30);
    {
        const tvMListBox::Bulk bulk(m_List);
        const tvMListBox::Bulk inner(m_List);
        AddRows(300);
    }
    EXPECT_EQ(m_List.Send(LB_GETTOPINDEX), 30);
    EXPECT_NE(IsWindowVisible(Window()), FALSE);
    {
        const tvMListBox::Bulk bulk(m_List);
        AddRows(100);
        m_List.AddItem(u"x", 0, 100, true);
        AddRows(10);
    }
    EXPECT_GE(m_List.Send(LB_GETTOPINDEX), 100) << "a row was to be made visible";
}

TEST_F(ListTest, ABulkLeavesAHiddenListHidden) {
    ShowWindow(Window(), SW_HIDE);
    {
        const tvMListBox::Bulk bulk(m_List);
        AddRows(3);
    }
    EXPECT_EQ(IsWindowVisible(Window()), FALSE);
    EXPECT_EQ(m_List.GetCount(), 3);
}

TEST_F(MultiListTest, ABulkTellsOfTheSelectionOnce) {
    AddRows(10);
    ForgetNotices();
    {
        const tvMListBox::Bulk bulk(m_List);
        for (int row = 0; row < 10; row += 2)
            m_List.SetSel(row, true);
    }
    LetNoticesCome();
    EXPECT_EQ(Notices(), 1);
}

// --- Coming and going ---

TEST_F(ListTest, IsEmptyAndCanBeUsedAgainWhenItsWindowIsGone) {
    AddRows(3);
    MoveMouse(Window(), 5, 5);
    m_Dialog.Close();
    EXPECT_FALSE(m_List.IsAttached());
    EXPECT_EQ(m_List.m_items.Count(), 0);
    EXPECT_EQ(m_List.m_hotIndex, -1);
    MoveMouseAway();
    m_Dialog.Open();
    AddRows(2);
    EXPECT_EQ(m_List.GetCount(), 2);
}

TEST(ListBoxHoldings, LosesNothingWhenItIsMadeAndDestroyed500Times) {
    const auto round = [](int times) {
        TestDialog dialog;
        dialog.Open();
        for (int i = 0; i < times; ++i) {
            HWND window = CreateWindowExW(0, L"LISTBOX", L"", WS_CHILD | WS_VISIBLE | kMultiple, 0, 0, 100,
                                          60, dialog.Handle(), nullptr, nullptr, nullptr);
            tvMListBox list;
            list.SubclassWindow(window);
            {
                const tvMListBox::Bulk bulk(list);
                for (int row = 0; row < 10; ++row)
                    list.AddItem(u"A text that is longer than its place\tand a note");
            }
            list.SelectAll();
            UpdateWindow(window);
        }
        PumpQueue();
    };
    round(20);
    const Holdings before = WhatIsHeld();
    round(500);
    const Holdings after = WhatIsHeld();
    EXPECT_EQ(after.gdiObjects, before.gdiObjects);
    EXPECT_EQ(after.userObjects, before.userObjects);
    EXPECT_LE(after.heapBytes, before.heapBytes + 16384);
}

TEST_F(MultiListTest, LosesNothingWhenTheThemeChanges500Times) {
    AddRows(10);
    Select({1, 2});
    const auto rounds = [this](int times) {
        for (int i = 0; i < times; ++i) {
            TheTheme().Apply(i % 5);
            m_List.Send(WM_SYSCOLORCHANGE, 0, reinterpret_cast<LPARAM>(&TheTheme()));
            UpdateWindow(Window());
        }
        TheTheme().Apply(1);
        PumpQueue();
    };
    rounds(20);
    const Holdings before = WhatIsHeld();
    rounds(500);
    const Holdings after = WhatIsHeld();
    EXPECT_EQ(after.gdiObjects, before.gdiObjects);
    EXPECT_EQ(after.userObjects, before.userObjects);
    EXPECT_LE(after.heapBytes, before.heapBytes + 16384);
}

}  // namespace
