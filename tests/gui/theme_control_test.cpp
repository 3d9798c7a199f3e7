#include "toolkit/theme_control.h"

#include <gtest/gtest.h>

#include "tests/gui/harness.h"
#include "tests/gui/late_functions_guard.h"
#include "tests/gui/plain_window.h"
#include "tests/gui/test_app.h"

namespace {

int g_Stopped = 0;

HRESULT WINAPI CountStop(HWND) {
    ++g_Stopped;
    return S_OK;
}

class PaintedControl : public tvtheme_control {
public:
    void OnDraw(HDC, const RECT&, void*) override {}
};

class NotingPainter : public MenuPainter {
public:
    explicit NotingPainter(UINT item) : m_Item(item) {}
    void OnMeasureItem(MEASUREITEMSTRUCT*) override { ++m_Measured; }
    void OnDrawItem(DRAWITEMSTRUCT*) override { ++m_Drawn; }
    [[nodiscard]] bool HasItem(UINT id) const override { return id == m_Item; }

    UINT m_Item;
    int m_Measured = 0;
    int m_Drawn = 0;
};

class ThemeControl : public testing::Test {
protected:
    ThemeControl() {
        TheLateFunctions().bufferedPaintStopAllAnimations.Replace(CountStop);
        g_Stopped = 0;
        ShowWindow(m_Window.Handle(), SW_SHOW);
        Settle(m_Window.Handle());
    }
    ~ThemeControl() override { TestApp::Get().m_activePopup = nullptr; }

    bool Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        m_Result = 0;
        return m_Control.OnThemeMessage(m_Window.Handle(), message, wParam, lParam, m_Result);
    }
    bool SendMeasure(UINT type, UINT item) {
        MEASUREITEMSTRUCT measured{};
        measured.CtlType = type;
        measured.itemID = item;
        return Send(WM_MEASUREITEM, 0, reinterpret_cast<LPARAM>(&measured));
    }
    bool SendDraw(UINT type, HMENU menu) {
        DRAWITEMSTRUCT drawn{};
        drawn.CtlType = type;
        drawn.hwndItem = reinterpret_cast<HWND>(menu);
        return Send(WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&drawn));
    }
    bool NeedsPaint() { return GetUpdateRect(m_Window.Handle(), nullptr, FALSE) != FALSE; }

    LateFunctionsGuard m_Guard;
    PlainWindow m_Window;
    PaintedControl m_Control;
    LRESULT m_Result = 0;
};

TEST_F(ThemeControl, StopsFadesAndForgetsItsPictureWhenItIsDestroyed) {
    m_Control.m_hasFrame = true;
    EXPECT_FALSE(Send(WM_DESTROY));
    EXPECT_EQ(g_Stopped, 1);
    EXPECT_FALSE(m_Control.m_hasFrame);
    EXPECT_FALSE(NeedsPaint());
}

TEST_F(ThemeControl, IsAlsoPaintedAnewWhenItsSizeOrTheFocusChanges) {
    for (const UINT message : {WM_SIZE, WM_KILLFOCUS, WM_SETFOCUS}) {
        Settle(m_Window.Handle());
        m_Control.m_hasFrame = true;
        g_Stopped = 0;
        EXPECT_FALSE(Send(message));
        EXPECT_EQ(g_Stopped, 1);
        EXPECT_FALSE(m_Control.m_hasFrame);
        EXPECT_TRUE(NeedsPaint());
    }
}

TEST_F(ThemeControl, LeavesOtherMessagesAlone) {
    m_Control.m_hasFrame = true;
    for (const UINT message : {WM_MOVE, WM_ENABLE, WM_PAINT, WM_COMMAND, WM_THEMECHANGED})
        EXPECT_FALSE(Send(message));
    EXPECT_TRUE(m_Control.m_hasFrame);
    EXPECT_EQ(g_Stopped, 0);
}

TEST_F(ThemeControl, KnowsThePopupThatIsOpen) {
    const tvMenuHandle menu(CreatePopupMenu());
    const tvMenuHandle other(CreatePopupMenu());
    EXPECT_FALSE(Send(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu.Get())));
    EXPECT_EQ(TestApp::Get().m_activePopup, menu.Get());
    EXPECT_FALSE(Send(WM_UNINITMENUPOPUP, reinterpret_cast<WPARAM>(other.Get())));
    EXPECT_EQ(TestApp::Get().m_activePopup, menu.Get());
    EXPECT_FALSE(Send(WM_UNINITMENUPOPUP, reinterpret_cast<WPARAM>(menu.Get())));
    EXPECT_EQ(TestApp::Get().m_activePopup, nullptr);
}

TEST_F(ThemeControl, AnswersEveryMeasureWithOne) {
    for (const UINT type : {ODT_MENU, ODT_LISTBOX, ODT_COMBOBOX}) {
        EXPECT_TRUE(SendMeasure(type, 4));
        EXPECT_EQ(m_Result, 1);
    }
}

class ThemeMenus : public ThemeControl {
protected:
    ThemeMenus() {
        MenuPainter::Register(m_Menu.Get(), &m_Painter);
        MenuPainter::Register(m_OtherMenu.Get(), &m_OtherPainter);
    }
    ~ThemeMenus() override {
        MenuPainter::Unregister(m_Menu.Get());
        MenuPainter::Unregister(m_OtherMenu.Get());
    }
    tvMenuHandle m_Menu{CreatePopupMenu()};
    tvMenuHandle m_OtherMenu{CreatePopupMenu()};
    NotingPainter m_Painter{4};
    NotingPainter m_OtherPainter{5};
};

TEST_F(ThemeMenus, AreMeasuredByThePopupThatIsOpen) {
    TestApp::Get().m_activePopup = m_OtherMenu.Get();
    EXPECT_TRUE(SendMeasure(ODT_MENU, 4));
    EXPECT_EQ(m_Result, 1);
    EXPECT_EQ(m_OtherPainter.m_Measured, 1);
    EXPECT_EQ(m_Painter.m_Measured, 0);
}

TEST_F(ThemeMenus, AreMeasuredByTheOneThatHasTheRowIfTheOpenOneIsUnknown) {
    const tvMenuHandle unknown(CreatePopupMenu());
    TestApp::Get().m_activePopup = unknown.Get();
    EXPECT_TRUE(SendMeasure(ODT_MENU, 5));
    EXPECT_EQ(m_OtherPainter.m_Measured, 1);
    EXPECT_EQ(m_Painter.m_Measured, 0);
    SendMeasure(ODT_MENU, 6);
    SendMeasure(ODT_LISTBOX, 5);
    EXPECT_EQ(m_OtherPainter.m_Measured, 1);
}

TEST_F(ThemeMenus, AreDrawnByTheirOwnPainter) {
    EXPECT_TRUE(SendDraw(ODT_MENU, m_OtherMenu.Get()));
    EXPECT_EQ(m_Result, 1);
    EXPECT_EQ(m_OtherPainter.m_Drawn, 1);
    EXPECT_EQ(m_Painter.m_Drawn, 0);
}

TEST_F(ThemeMenus, ThatAreUnknownAndOtherControlsAreLeftToTheWindow) {
    const tvMenuHandle unknown(CreatePopupMenu());
    EXPECT_FALSE(SendDraw(ODT_MENU, unknown.Get()));
    EXPECT_FALSE(SendDraw(ODT_LISTBOX, m_Menu.Get()));
    EXPECT_EQ(m_Painter.m_Drawn, 0);
    MenuPainter::Unregister(m_Menu.Get());
    EXPECT_FALSE(SendDraw(ODT_MENU, m_Menu.Get()));
}

}  // namespace
