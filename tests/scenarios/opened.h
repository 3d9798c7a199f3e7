// Scenarios that go on with a database in the window: its lists, and what they tell of themselves.
#pragma once

#include "database/database.h"
#include "tests/scenarios/program.h"

namespace opened {

inline constexpr int kSearchBox = 2004;
inline constexpr int kList = 2005;
inline constexpr int kModifyHover = 2010;
inline constexpr int kEdit1 = 2014;
inline constexpr int kCreateButton = 32776;
inline constexpr int kSaveButton = 32778;
inline constexpr int kRenameButton = 32783;

// A long list takes its time on a slow machine.
inline constexpr int kLongLimit = 30000;  // milliseconds

inline int Ask(HWND list, UINT message, WPARAM wParam = 0) {
    return static_cast<int>(SendMessageW(list, message, wParam, 0));
}
inline int RowsOf(HWND list) {
    return Ask(list, LB_GETCOUNT);
}
inline int SelectedIn(HWND list) {
    return Ask(list, LB_GETSELCOUNT);
}
inline int TopOf(HWND list) {
    return Ask(list, LB_GETTOPINDEX);
}

inline HWND FocusOf(const Program& program) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(program.Main(), nullptr), &info);
    return info.hwndFocus;
}

// It has taken the mouse after a press, and has not let it go.
inline bool HoldsMouse(const Program& program) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(program.Main(), nullptr), &info);
    return info.hwndCapture != nullptr;
}

// The list of the start page, of the items, and of the additional entries of the item that is shown.
inline HWND RecentListOf(const Program& program) {
    return tvWnd::FindDescendant(GetParent(program.Control(kCreateButton)), kList);
}
inline HWND ItemListOf(const Program& program) {
    return tvWnd::FindDescendant(GetParent(GetParent(program.Control(kSearchBox))), kList);
}
inline HWND DetailPaneOf(const Program& program) {
    return GetParent(program.Control(kModifyHover));
}

inline bool IsSeen(HWND window) {
    return window != nullptr && IsWindowVisible(window) != FALSE;
}

inline bool WaitUntilOpen(const Program& program) {
    return PumpUntil([&] { return program.Sees(kRenameButton) && IsSeen(ItemListOf(program)); }, kLongLimit);
}

// The dialog, once it has a field for texts and the keyboard.
inline HWND WaitForFieldIn(const Program& program) {
    HWND edit = nullptr;
    EXPECT_TRUE(PumpUntil([&] {
        HWND dialog = program.Dialog();
        edit = dialog == nullptr ? nullptr : tvWnd::FindDescendant(dialog, kEdit1);
        return edit != nullptr && GetForegroundWindow() == dialog && FocusOf(program) == edit;
    })) << "no dialog with a field comes";
    return edit;
}

// Answers the question for the master password that is there.
inline void Unlock(const Program& program, std::u16string_view password) {
    ASSERT_NE(WaitForFieldIn(program), nullptr);
    TypeText(password);
    Type(VK_RETURN);
    ASSERT_TRUE(PumpUntil([&] { return program.Dialog() == nullptr; }, kLongLimit));
    ASSERT_TRUE(program.WaitForNoDialog());
}

// The name of the item that is shown, by way of its dialog; the list has the keyboard before and after.
inline tvstring ShownName(const Program& program) {
    Type(VK_RETURN);
    HWND edit = WaitForFieldIn(program);
    if (edit == nullptr) return {};
    const tvstring name = TextOf(edit);
    Type(VK_ESCAPE);
    EXPECT_TRUE(program.WaitForNoDialog());
    return name;
}

}  // namespace opened
