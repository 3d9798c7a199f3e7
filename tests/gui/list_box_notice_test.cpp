// When the parent of a list box hears of the selection, and what stays in sight, where much is done at once.
#include "tests/gui/list_box_harness.h"

namespace {

TEST_F(MultiListTest, TellsOfAnInvertedSelectionOfTheSameNumber) {
    AddRows(2);
    Select({0});
    m_List.Send(LB_SETCARETINDEX, 1, FALSE);
    m_List.InvertSelection();
    LetNoticesCome();
    EXPECT_EQ(Selected(), Rows{1});
    EXPECT_EQ(Notices(), 1);
}

TEST_F(MultiListTest, TellsOnceOfAllRowsThatAreFound) {
    AddRows(30);  // letters A to Z, then again from A
    Select({5, 6});
    EXPECT_EQ(m_List.FindItem(u"Row B", FIND_ALL, false), 1);
    LetNoticesCome();
    EXPECT_EQ(Selected(), (Rows{1, 27}));
    EXPECT_EQ(m_List.GetCurSel(), 27);
    EXPECT_EQ(Notices(), 1);
}

TEST_F(MultiListTest, ShowsARowThatIsFound) {
    AddRows(26);
    EXPECT_EQ(m_List.FindItem(u"Row Y", FIND_NEXT, false), 24);
    RECT client{};
    GetClientRect(Window(), &client);
    const RECT row = RowRect(24);
    EXPECT_GE(row.top, client.top);
    EXPECT_LE(row.bottom, client.bottom);
}

TEST_F(MultiListTest, TellsOfASelectionThoughAScrollBarComesAtTheEndOfTheBulk) {
    ASSERT_EQ(m_List.GetCount(), 0);
    {
        const tvMListBox::Bulk bulk(m_List);
        AddRows(100);
        m_List.SetSel(5, true);
    }
    LetNoticesCome();
    EXPECT_EQ(Notices(), 1);
}

TEST_F(MultiListTest, RowsThatComeInABulkAreNoSelecting) {
    AddRows(3);
    Select({1});
    {
        const tvMListBox::Bulk bulk(m_List);
        m_List.AddItem(u"First", 0, 0);
    }
    LetNoticesCome();
    EXPECT_EQ(Notices(), 0);
}

TEST_F(MultiListTest, ABulkInWhichNothingIsSelectedMakesNoNotice) {
    AddRows(3);
    Select({1});
    {
        const tvMListBox::Bulk bulk(m_List);
        m_List.SetSel(1, true);
        m_List.SetSel(99, true);
    }
    LetNoticesCome();
    EXPECT_EQ(Notices(), 0);
}

TEST_F(MultiListTest, TellsOnceOfAResetInABulk) {
    AddRows(3);
    Select({1});
    {
        const tvMListBox::Bulk bulk(m_List);
        m_List.DeleteAll();
        AddRows(3);
    }
    LetNoticesCome();
    EXPECT_EQ(Notices(), 1);
}

TEST_F(MultiListTest, CopiesAnEmptyRowThatIsTheFirst) {
    m_List.AddItem(u"");
    m_List.AddItem(u"b");
    Select({0, 1});
    ASSERT_TRUE(m_List.CopySelection());
    ASSERT_TRUE(OpenClipboard(nullptr));
    const auto* text = static_cast<const wchar_t*>(GlobalLock(GetClipboardData(CF_UNICODETEXT)));
    EXPECT_STREQ(text, L"\r\nb");
    CloseClipboard();
}

// Rows of two heights: a wrong one would show if rows were measured while there is one too many in the queue.
TEST_F(ListTest, MeasuresTheRowsAgainWhenTheScrollBarGoesWithARow) {
    const tvstring longText =
        u"A row that fills its line but for little and needs another one only if there is a bar";
    int rows = 0;
    while ((GetWindowLongPtrW(Window(), GWL_STYLE) & WS_VSCROLL) == 0 && rows < 60) {
        m_List.AddItem(rows % 3 == 1 ? longText : tvstring(u"Short"));
        ++rows;
    }
    ASSERT_NE(GetWindowLongPtrW(Window(), GWL_STYLE) & WS_VSCROLL, 0);
    while ((GetWindowLongPtrW(Window(), GWL_STYLE) & WS_VSCROLL) != 0 && m_List.GetCount() > 0)
        m_List.DeleteItem(0);
    ASSERT_GT(m_List.GetCount(), 2);
    for (int row = 0; row < m_List.GetCount(); ++row)
        EXPECT_EQ(RowHeight(row), m_List.CalcItemHeight(row)) << row;
}

TEST_F(ListTest, ABulkWithoutAWindowIsOverWhenThereIsOne) {
    tvMListBox list;
    list.SelectAll();
    { const tvMListBox::Bulk bulk(list); }
    TestDialog dialog;
    dialog.Add(ATOM_LISTBOX, kListId, 5, 5, 160, 90, kMultiple);
    dialog.Wrap(list, kListId);
    dialog.Open();
    list.AddItem(u"A");
    list.SetSel(0, true);
    EXPECT_NE(list.m_selTimer.m_id, 0U);
}

TEST_F(ListTest, NoRowIsHotAfterAReset) {
    AddRows(3);
    m_List.m_hotIndex = 1;
    m_List.DeleteAll();
    EXPECT_EQ(m_List.m_hotIndex, -1);
}

}  // namespace
