// Tool tips under test.
#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "tests/gui/harness.h"
#include "toolkit/theme.h"
#include "toolkit/tool_tip.h"

// Notes the messages that its window gets.
class TipUnderTest : public tvToolTipCtrl {
public:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        m_messages.push_back(message);
        return tvToolTipCtrl::WindowProc(message, wParam, lParam);
    }
    [[nodiscard]] int Count(UINT message) const {
        return static_cast<int>(std::count(m_messages.begin(), m_messages.end(), message));
    }
    std::vector<UINT> m_messages;
};

// The text that a tip has for a window; "(none)" if it has none at all.
inline tvstring TipText(const tvToolTipCtrl& tip, HWND window) {
    std::vector<char16_t> text(4096);
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.hwnd = window;
    tool.uId = reinterpret_cast<UINT_PTR>(window);
    tool.lpszText = Wide(text.data());
    if (tip.Send(TTM_GETTOOLINFOW, 0, reinterpret_cast<LPARAM>(&tool)) == 0) return u"(none)";
    return tool.lpszText == LPSTR_TEXTCALLBACKW ? tvstring(u"(asked for)") : tvstring(text.data());
}

inline int TipCount(const tvToolTipCtrl& tip) {
    return static_cast<int>(tip.Send(TTM_GETTOOLCOUNT));
}

inline bool IsUp(const tvToolTipCtrl& tip) {
    return tip.IsAttached() && IsWindowVisible(tip.Handle()) != FALSE;
}

inline constexpr LPARAM kShortDelay = 20;  // milliseconds until a tip shows

// A dialog with two buttons, 51 and 52, in a theme.
class ToolTipTest : public testing::Test {
protected:
    void SetUp() override {
        UseTheme(u"Light");
        m_Dialog.Add(ATOM_BUTTON, 51, 10, 10, 60, 14);
        m_Dialog.Add(ATOM_BUTTON, 52, 10, 60, 60, 14);
        m_Dialog.Open();
        m_First = m_Dialog.Item(51);
        m_Second = m_Dialog.Item(52);
    }
    void TearDown() override {
        MoveMouseAway();
        for (const HWND window : {m_First, m_Second})
            RemoveToolTip(window);
        TheToolTip().Send(TTM_SETDELAYTIME, TTDT_AUTOMATIC, -1);
    }
    // Moves the mouse onto a window and waits for the one tool tip.
    [[nodiscard]] bool HoverShowsTip(HWND window) {
        TheToolTip().Send(TTM_SETDELAYTIME, TTDT_INITIAL, kShortDelay);
        MoveMouseAway();
        MoveMouseTo(window);
        const bool shown = PumpUntil([] { return IsUp(TheToolTip()); });
        if (shown) Settle(TheToolTip().Handle());
        return shown;
    }

    KeepTheme m_Keep;
    TestDialog m_Dialog;
    HWND m_First = nullptr;
    HWND m_Second = nullptr;
};
