// A dialog with one list box, of one column of rows, and an edit control that has the keyboard at first.
#pragma once

#include <gtest/gtest.h>

#include "tests/gui/harness.h"
#include "tests/gui/sizes.h"
#include "toolkit/list_box.h"
#include "toolkit/rect.h"
#include "toolkit/statics.h"
#include "toolkit/theme.h"

inline constexpr u16 kListId = 2005;
inline constexpr u16 kOtherId = 10;
inline constexpr u32 kVariable = LBS_OWNERDRAWVARIABLE | LBS_NOINTEGRALHEIGHT | WS_VSCROLL;
inline constexpr u32 kMultiple = kVariable | LBS_EXTENDEDSEL;

class ListTest : public testing::Test {
protected:
    explicit ListTest(u32 styles = kVariable) {
        UseTheme(u"Dark");
        MoveMouseAway();
        m_Dialog.Add(ATOM_EDIT, kOtherId, 5, 100, 80, 12);
        m_Dialog.Add(ATOM_LISTBOX, kListId, 5, 5, 160, 90, styles);
        m_Dialog.Wrap(m_List, kListId);
        m_Dialog.Open();
    }

    [[nodiscard]] HWND Window() const { return m_List.Handle(); }
    void AddRows(int count) {
        for (int i = 0; i < count; ++i) {
            tvstring text = u"Row ";
            text += static_cast<char16_t>(u'A' + i % 26);
            m_List.AddItem(text);
        }
    }
    [[nodiscard]] RECT RowRect(int row) const {
        RECT rect{};
        EXPECT_GE(m_List.GetItemRect(row, rect), 0);
        return rect;
    }
    [[nodiscard]] int RowHeight(int row) const { return Height(RowRect(row)); }
    [[nodiscard]] POINT MiddleOf(int row) const {
        const RECT rect = RowRect(row);
        return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
    }
    void ClickRow(int row, MouseButton button = MouseButton::Left, unsigned held = HOLD_NOTHING) {
        const POINT at = MiddleOf(row);
        Click(Window(), at.x, at.y, button, held);
    }
    [[nodiscard]] int Notices() const {
        int count = 0;
        for (const TestDialog::Command& command : m_Dialog.m_commands)
            count += command == TestDialog::Command{kListId, LBN_SELCHANGE} ? 1 : 0;
        return count;
    }
    // Waits until the delayed notice of what was done before has come, or cannot come any more.
    void LetNoticesCome() {
        EXPECT_TRUE(PumpUntil([this] { return m_List.m_selTimer.m_id == 0; }));
        PumpQueue();
    }
    void ForgetNotices() {
        LetNoticesCome();
        m_Dialog.m_commands.clear();
    }
    [[nodiscard]] std::vector<int> Selected() const {
        std::vector<int> rows;
        for (int row = 0; row < m_List.GetCount(); ++row)
            if (m_List.GetSel(row) > 0) rows.push_back(row);
        return rows;
    }
    [[nodiscard]] Picture Look() const {
        Settle(Window());
        return Picture(Window());
    }
    void FocusList() {
        m_Dialog.Send(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Window()), TRUE);
        Settle(m_Dialog.Handle());
        ASSERT_EQ(GetFocus(), Window());
    }

    KeepTheme m_Keep;
    tvMListBox m_List;
    TestDialog m_Dialog;
};

class MultiListTest : public ListTest {
protected:
    MultiListTest() : ListTest(kMultiple) {}
    void Select(std::initializer_list<int> rows) {
        m_List.SetSel(-1, false);
        for (const int row : rows)
            m_List.SetSel(row, true);
        ForgetNotices();
    }
    using Rows = std::vector<int>;
};
