#include "toolkit/theme_control.h"
#include "toolkit/menu.h"

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

class NotingMenu : public tvMenu {
public:
    explicit NotingMenu(UINT item) {
        CreatePopup();
        AddItem(item, u"row");
    }
    void OnMeasureItem(MEASUREITEMSTRUCT*) override { ++m_Measured; }
    void OnDrawItem(DRAWITEMSTRUCT*) override { ++m_Drawn; }

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

TEST_F(ThemeControl, IsAlsoPaintedAnewForAnotherSizeOrFontAndWithoutTheFocus) {
    for (const UINT message : {WM_SIZE, WM_KILLFOCUS, WM_SETFONT}) {
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
    for (const UINT message : {WM_SETFOCUS, WM_MOVE, WM_ENABLE, WM_PAINT, WM_COMMAND, WM_THEMECHANGED})
        EXPECT_FALSE(Send(message));
    EXPECT_TRUE(m_Control.m_hasFrame);
    EXPECT_EQ(g_Stopped, 0);
}

TEST_F(ThemeControl, KnowsThePopupThatIsOpen) {
    const tvMenuHandle menu(CreatePopupMenu());
    const HMENU below = CreatePopupMenu();
    AppendMenuW(menu.Get(), MF_POPUP, reinterpret_cast<UINT_PTR>(below), L"below");
    EXPECT_FALSE(Send(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu.Get())));
    EXPECT_EQ(TestApp::Get().m_activePopup, menu.Get());
    EXPECT_FALSE(Send(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(below)));
    EXPECT_FALSE(Send(WM_UNINITMENUPOPUP, reinterpret_cast<WPARAM>(below)));
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
    // Rows are looked for by numbers that commands do not have.
    static constexpr UINT kRow = 0x10004;
    static constexpr UINT kOtherRow = 0x10005;
    NotingMenu m_Menu{kRow};
    NotingMenu m_OtherMenu{kOtherRow};
};

TEST_F(ThemeMenus, AreMeasuredByThePopupThatIsOpen) {
    TestApp::Get().m_activePopup = m_OtherMenu.Handle();
    EXPECT_TRUE(SendMeasure(ODT_MENU, 4));
    EXPECT_EQ(m_Result, 1);
    EXPECT_EQ(m_OtherMenu.m_Measured, 1);
    EXPECT_EQ(m_Menu.m_Measured, 0);
}

TEST_F(ThemeMenus, AreMeasuredByTheOneThatHasTheRowIfTheOpenOneIsUnknown) {
    const tvMenuHandle unknown(CreatePopupMenu());
    TestApp::Get().m_activePopup = unknown.Get();
    EXPECT_TRUE(SendMeasure(ODT_MENU, kOtherRow));
    EXPECT_EQ(m_OtherMenu.m_Measured, 1);
    EXPECT_EQ(m_Menu.m_Measured, 0);
    SendMeasure(ODT_MENU, kOtherRow + 1);
    SendMeasure(ODT_LISTBOX, kOtherRow);
    EXPECT_EQ(m_OtherMenu.m_Measured, 1);
}

TEST_F(ThemeMenus, AreDrawnByTheirOwnMenu) {
    EXPECT_TRUE(SendDraw(ODT_MENU, m_OtherMenu.Handle()));
    EXPECT_EQ(m_Result, 1);
    EXPECT_EQ(m_OtherMenu.m_Drawn, 1);
    EXPECT_EQ(m_Menu.m_Drawn, 0);
}

TEST_F(ThemeMenus, ThatAreUnknownAndOtherControlsAreLeftToTheWindow) {
    const tvMenuHandle unknown(CreatePopupMenu());
    EXPECT_FALSE(SendDraw(ODT_MENU, unknown.Get()));
    EXPECT_FALSE(SendDraw(ODT_LISTBOX, m_Menu.Handle()));
    EXPECT_EQ(m_Menu.m_Drawn, 0);
    const HMENU gone = m_Menu.Handle();
    m_Menu.Detach(tvMenu::Menu::Destroy);
    EXPECT_FALSE(SendDraw(ODT_MENU, gone));
}

}  // namespace
