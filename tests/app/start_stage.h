// What tests of the start page share: a main window with entries in its recent list.
#pragma once

#include "tests/app/command_stage.h"
#include "tests/app/ink.h"
#include "tests/gui/sizes.h"
#include "toolkit/control_state.h"
#include "toolkit/rect.h"
#include "toolkit/theme.h"

class StartTest : public CommandTest {
protected:
    // Puts entries into the recent list whose files are not there: "C:\gone\1.vmr" with the name "Name 1" and
    // so on, the first at the top.
    static void AddGone(int count) {
        for (int i = count; i >= 1; --i)
            TheAppData().AddRecent(GonePath(i), Numbered(u"Name ", i));
    }
    static tvstring GonePath(int number) { return Numbered(u"C:\\gone\\", number).append(u".vmr"); }

    // The window, in front, with the mouse away.
    void OpenWindow() {
        OpenNoting();
        SetForegroundWindow(Window());
        EXPECT_TRUE(PumpUntil([this] { return GetActiveWindow() == Window(); }));
        MoveMouseAway();
        Settle(Window());
    }
    void OpenWith(int count) {
        AddGone(count);
        OpenWindow();
    }
    void Resize(int width, int height) const {
        MoveWindow(Window(), 10, 10, width, height, TRUE);
        PumpQueue();
        Settle(Window());
    }

    [[nodiscard]] CVMRStartDlg& Page() const { return Main().m_startDlg; }
    [[nodiscard]] CVMRRecentListBox& List() const { return Page().m_recentList; }
    [[nodiscard]] HWND ListWindow() const { return List().Handle(); }
    [[nodiscard]] bool IsListShown() const { return IsWindowVisible(ListWindow()) != FALSE; }

    [[nodiscard]] RECT CreatePlace() const { return PlaceInParent(Page().m_createBtn.Handle()); }
    [[nodiscard]] RECT OpenPlace() const { return PlaceInParent(Page().m_openBtn.Handle()); }
    [[nodiscard]] RECT ListPlace() const { return PlaceInParent(tvScrollBox::OuterOf(ListWindow())); }

    // What is painted on the page between the lower button and the list: the heading.
    [[nodiscard]] RECT HeadingInk() const {
        Settle(Page().Handle());
        const COLORREF ground = TheTheme().Color(&tvColorTheme::m_base, COLOR_BTNFACE);
        const RECT client = ClientOf(Page().Handle());
        return InkIn(Picture(Page().Handle()), ground,
                     {0, OpenPlace().bottom, client.right, ListPlace().top});
    }
    [[nodiscard]] bool HasHeading() const {
        const RECT ink = HeadingInk();
        return IsRectEmpty(&ink) == FALSE;
    }

    [[nodiscard]] RECT RowRect(int row) const {
        RECT rect{};
        EXPECT_GE(List().GetItemRect(row, rect), 0);
        return rect;
    }
    [[nodiscard]] POINT MiddleOf(int row) const {
        const RECT rect = RowRect(row);
        return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
    }
    void PointAt(int row) const {
        const POINT at = MiddleOf(row);
        MoveMouse(ListWindow(), at.x, at.y);
    }
    void ClickRow(int row, MouseButton button = MouseButton::Left) const {
        const POINT at = MiddleOf(row);
        Click(ListWindow(), at.x, at.y, button);
    }
    void FocusList() const {
        SendMessageW(Window(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(ListWindow()), TRUE);
        Settle(Window());
        ASSERT_EQ(GetFocus(), ListWindow());
    }

    // The names in the list, and those that it was filled from, with blanks between.
    [[nodiscard]] std::string ShownNames() const {
        std::string names;
        for (int row = 0; row < List().GetCount(); ++row)
            names.append(names.empty() ? "" : ", ").append(Letters(List().ItemOfRow(row)->m_text));
        return names;
    }
    static std::string KeptNames() {
        std::string names;
        RecentList stored;
        stored.LoadRecent();
        for (const RecentItem& item : stored.recentItems)
            names.append(names.empty() ? "" : ", ").append(Letters(item.name));
        return names;
    }

private:
    static tvstring Numbered(const char16_t* text, int number) {
        return tvstring(text).append(Units(std::to_wstring(number).c_str()));
    }
};
