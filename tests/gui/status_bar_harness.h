// A status bar at the bottom of a dialog, which shows what is inside and notes what is drawn.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "tests/gui/harness.h"
#include "tests/gui/test_icon.h"
#include "toolkit/status_bar.h"
#include "toolkit/theme.h"

class BarUnderTest : public tvStatusBar {
public:
    using tvStatusBar::Active;
    using tvStatusBar::m_flashInterval;
    using tvStatusBar::m_flashRecord;
    using tvStatusBar::m_flashStep;
    using tvStatusBar::m_flashTicks;
    using tvStatusBar::m_flashTimer;
    using tvStatusBar::m_idle;
    using tvStatusBar::m_message;
    using tvStatusBar::m_messageTimer;
    using tvStatusBar::m_showGrip;
    using tvStatusBar::Show;

    void DrawGrip(HDC dc, const RECT& rect, COLORREF color) override {
        Note("grip", rect);
        m_gripColor = color;
        tvStatusBar::DrawGrip(dc, rect, color);
    }
    void DrawBack(HDC dc, const RECT& rect) override {
        Note("back", rect);
        tvStatusBar::DrawBack(dc, rect);
    }
    void DrawLabel(HDC dc, const RECT& rect, const tvstring& text) override {
        Note("label", rect);
        m_label = rect;
        m_text = text;
        tvStatusBar::DrawLabel(dc, rect, text);
    }
    void DrawIcon(HDC dc, const RECT& rect, HICON icon) override {
        Note("icon", rect);
        m_iconPlace = rect;
        m_icon = icon;
        tvStatusBar::DrawIcon(dc, rect, icon);
    }
    void DrawPanes(HDC dc, const RECT& rect) override {
        Note("panes", rect);
        m_panes = rect;
        m_textColor = GetTextColor(dc);
        tvStatusBar::DrawPanes(dc, rect);
    }

    // What was drawn since the last call, in order.
    std::string TakeDrawn() { return std::exchange(m_drawn, {}); }

    COLORREF m_gripColor = 0;
    COLORREF m_textColor = 0;
    RECT m_grip{};
    RECT m_label{};
    RECT m_iconPlace{};
    RECT m_panes{};
    tvstring m_text;
    HICON m_icon = nullptr;

private:
    void Note(const char* what, const RECT& rect) {
        if (*what == 'g') m_grip = rect;
        m_drawn += m_drawn.empty() ? "" : " ";
        m_drawn += what;
    }
    std::string m_drawn;
};

class StatusBarTest : public testing::Test {
protected:
    void SetUp() override {
        UseTheme(u"Light");
        m_Dialog.Add(ATOM_STATIC, 50, 0, 100, 200, 14);
        m_Dialog.Wrap(m_Bar, 50);
        m_Dialog.Open();
    }

    // Has it painted anew and waits for that.
    void Repaint() {
        InvalidateRect(m_Bar.Handle(), nullptr, FALSE);
        Settle(m_Dialog.Handle());
    }
    [[nodiscard]] bool IsInvalid() const { return GetUpdateRect(m_Bar.Handle(), nullptr, FALSE) != FALSE; }
    [[nodiscard]] bool TimerRuns() const { return m_Bar.m_messageTimer.m_id != 0; }
    [[nodiscard]] RECT Client() const {
        RECT rect;
        GetClientRect(m_Bar.Handle(), &rect);
        return rect;
    }

    KeepTheme m_Keep;
    TestDialog m_Dialog;
    BarUnderTest m_Bar;
};
