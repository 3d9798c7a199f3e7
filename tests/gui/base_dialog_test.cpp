#include "toolkit/base_dialog.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/gui/harness.h"
#include "tests/gui/old_proc.h"
#include "tests/gui/plain_window.h"
#include "tests/gui/test_app.h"
#include "toolkit/statics.h"
#include "toolkit/theme.h"

namespace {

// A themed dialog that notes the order of its hooks.
class HookedDialog : public tvBaseDlg {
public:
    explicit HookedDialog(DialogKind kind = DialogKind::Popup) {
        TemplateBegin(100, 60, kind, 2);
        AddControl(ATOM_BUTTON, 10, 5, 5, 40, 14);
        AddControl(ATOM_EDIT, 11, 5, 25, 40, 14);
    }
    void OnSubclassControls() override { m_Order += "s"; }
    void OnAutoSize() override {
        m_Order += "a";
        m_FontAtFirst = m_font;
        m_WasDoneAtFirst = m_initDone;
    }
    void OnUpdateText() override { m_Order += "t"; }
    void OnUpdateState() override { m_Order += "u"; }
    void OnLayout() override { m_Order += "l"; }
    void OnPaintDlg(HDC dc, const RECT& rect) override {
        m_Order += "p";
        m_Painted = rect;
        m_TextColor = GetTextColor(dc);
    }
    bool OnInitDialog() override {
        const bool result = tvBaseDlg::OnInitDialog();
        m_Order += "i";
        if (m_FixedSize) {
            RECT rect;
            GetWindowRect(m_hWnd, &rect);
            m_minWidth = m_maxWidth = rect.right - rect.left;
            m_minHeight = m_maxHeight = rect.bottom - rect.top;
        }
        return result;
    }
    std::string m_Order;
    HFONT m_FontAtFirst = nullptr;
    bool m_WasDoneAtFirst = true;
    RECT m_Painted{};
    COLORREF m_TextColor = 0;
    bool m_FixedSize = false;
};

class BaseDialog : public testing::Test {
protected:
    ~BaseDialog() override { TestApp::Get().m_activePopup = nullptr; }

    KeepTheme m_KeepTheme;
    HookedDialog m_Dialog;
};

TEST_F(BaseDialog, RunsItsHooksInOrder) {
    ASSERT_TRUE(m_Dialog.Create(nullptr));
    EXPECT_EQ(m_Dialog.m_Order, "satuli");
    EXPECT_TRUE(m_Dialog.m_initDone);
}

TEST_F(BaseDialog, HasTheThemesFontButIsNotReadyWhenTheFirstHookRuns) {
    ASSERT_TRUE(m_Dialog.Create(nullptr));
    EXPECT_EQ(m_Dialog.m_FontAtFirst, TheTheme().Font());
    EXPECT_FALSE(m_Dialog.m_WasDoneAtFirst);
}

TEST_F(BaseDialog, StartsAgainWithoutTheLimitsOfItsFormerWindow) {
    m_Dialog.m_builder.Header()->style |= WS_THICKFRAME;
    m_Dialog.m_minWidth = m_Dialog.m_minHeight = m_Dialog.m_maxWidth = m_Dialog.m_maxHeight = 50;
    ASSERT_TRUE(m_Dialog.Create(nullptr));
    EXPECT_EQ(m_Dialog.m_minWidth, 0);
    EXPECT_EQ(m_Dialog.m_minHeight, 0);
    EXPECT_EQ(m_Dialog.m_maxWidth, 0);
    EXPECT_EQ(m_Dialog.m_maxHeight, 0);
}

TEST_F(BaseDialog, WithoutControlsIsNotLaidOut) {
    ASSERT_TRUE(m_Dialog.Create(nullptr));
    DestroyWindow(GetDlgItem(m_Dialog.Handle(), 10));
    DestroyWindow(GetDlgItem(m_Dialog.Handle(), 11));
    m_Dialog.m_Order.clear();
    SetWindowPos(m_Dialog.Handle(), nullptr, 0, 0, 300, 200, SWP_NOMOVE | SWP_NOZORDER);
    m_Dialog.Send(WM_SETFONT, reinterpret_cast<WPARAM>(TheTheme().m_fontLarge.Get()));
    EXPECT_EQ(m_Dialog.m_Order, "");
}

TEST_F(BaseDialog, HasTheFontOfTheThemeAndSoHaveItsControls) {
    ASSERT_TRUE(m_Dialog.Create(nullptr));
    EXPECT_EQ(m_Dialog.m_font, TheTheme().Font());
    EXPECT_EQ(SendMessageW(GetDlgItem(m_Dialog.Handle(), 11), WM_GETFONT, 0, 0),
              reinterpret_cast<LRESULT>(TheTheme().Font()));
}

TEST_F(BaseDialog, LaysItselfOutWhenSizeOrFontChangeOnceItIsReady) {
    ASSERT_TRUE(m_Dialog.Create(nullptr));
    m_Dialog.m_Order.clear();
    SetWindowPos(m_Dialog.Handle(), nullptr, 0, 0, 300, 200, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(m_Dialog.m_Order, "l");
    m_Dialog.Send(WM_SETFONT, reinterpret_cast<WPARAM>(TheTheme().m_fontLarge.Get()));
    EXPECT_EQ(m_Dialog.m_Order, "ll");
    m_Dialog.Send(WM_SIZE, SIZE_MINIMIZED, 0);
    EXPECT_EQ(m_Dialog.m_Order, "ll");
}

TEST_F(BaseDialog, OfAPaneLeavesItsLayoutForFontsToTheWindowAround) {
    PlainWindow parent;
    HookedDialog pane(DialogKind::Child);
    ASSERT_TRUE(pane.Create(parent.Handle()));
    pane.m_Order.clear();
    pane.Send(WM_SETFONT, reinterpret_cast<WPARAM>(TheTheme().m_fontLarge.Get()));
    EXPECT_EQ(pane.m_Order, "");
    SetWindowPos(pane.Handle(), nullptr, 0, 0, 77, 55, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(pane.m_Order, "l");
}

TEST_F(BaseDialog, IsPaintedInTheColoursOfTheTheme) {
    ASSERT_TRUE(m_Dialog.Create(nullptr));
    ShowWindow(m_Dialog.Handle(), SW_SHOW);
    for (const char16_t* name : {u"Light", u"Dark", u"Blue", u"Green"}) {
        UseTheme(name, m_Dialog.Handle());
        RECT client;
        GetClientRect(m_Dialog.Handle(), &client);
        EXPECT_EQ(PixelAt(m_Dialog.Handle(), client.right - 2, client.bottom - 2), TheTheme().m_base);
        EXPECT_EQ(m_Dialog.m_TextColor, TheTheme().m_text);
        EXPECT_EQ(m_Dialog.m_Painted.right, client.right);
    }
}

TEST_F(BaseDialog, IsPaintedByTheSystemUnderSystemDefault) {
    ASSERT_TRUE(m_Dialog.Create(nullptr));
    ShowWindow(m_Dialog.Handle(), SW_SHOW);
    UseTheme(kSystemDefaultTheme, m_Dialog.Handle());
    m_Dialog.m_Order.clear();
    InvalidateRect(m_Dialog.Handle(), nullptr, TRUE);
    Settle(m_Dialog.Handle());
    EXPECT_EQ(m_Dialog.m_Order, "");
    RECT client;
    GetClientRect(m_Dialog.Handle(), &client);
    EXPECT_EQ(PixelAt(m_Dialog.Handle(), client.right - 2, client.bottom - 2), GetSysColor(COLOR_BTNFACE));
}

TEST_F(BaseDialog, DrawsItsBackgroundAndSetsTheColourOfText) {
    ASSERT_TRUE(m_Dialog.Create(nullptr));
    for (const char16_t* name : {u"Blue", kSystemDefaultTheme}) {
        UseTheme(name);
        const Canvas canvas(6, 6, RGB(1, 2, 3));
        m_Dialog.OnDraw(canvas.Dc(), {1, 1, 5, 5}, nullptr);
        EXPECT_EQ(canvas.Count(TheTheme().Color(&tvColorTheme::m_base, COLOR_BTNFACE)), 16);
        EXPECT_EQ(canvas.Count(RGB(1, 2, 3)), 20);
        EXPECT_EQ(m_Dialog.m_TextColor, TheTheme().Color(&tvColorTheme::m_text, COLOR_BTNTEXT));
        EXPECT_EQ(m_Dialog.m_Painted.right, 5);
    }
}

TEST_F(BaseDialog, LeavesNothingToEraseUnderAColourTheme) {
    ASSERT_TRUE(m_Dialog.Create(nullptr));
    const Canvas canvas(4, 4);
    const auto dc = reinterpret_cast<WPARAM>(canvas.Dc());
    const OldProcWatch watch(m_Dialog);
    UseTheme(u"Dark");
    EXPECT_EQ(m_Dialog.Send(WM_ERASEBKGND, dc), 1);
    EXPECT_EQ(watch.Count(WM_ERASEBKGND), 0);
    m_Dialog.Send(WM_ERASEBKGND, 0);
    EXPECT_EQ(watch.Count(WM_ERASEBKGND), 1);
    UseTheme(kSystemDefaultTheme);
    m_Dialog.Send(WM_ERASEBKGND, dc);
    EXPECT_EQ(watch.Count(WM_ERASEBKGND), 2);
}

TEST_F(BaseDialog, WithNothingToPaintLeavesThatToTheSystem) {
    ASSERT_TRUE(m_Dialog.Create(nullptr));
    ShowWindow(m_Dialog.Handle(), SW_SHOW);
    UseTheme(u"Dark", m_Dialog.Handle());
    const OldProcWatch watch(m_Dialog);
    m_Dialog.m_Order.clear();
    m_Dialog.Send(WM_PAINT);
    EXPECT_EQ(watch.Count(WM_PAINT), 1);
    EXPECT_EQ(m_Dialog.m_Order, "");
    InvalidateRect(m_Dialog.Handle(), nullptr, FALSE);
    m_Dialog.Send(WM_PAINT);
    EXPECT_EQ(watch.Count(WM_PAINT), 1);
    EXPECT_EQ(m_Dialog.m_Order, "p");
}

TEST_F(BaseDialog, GivesItsControlsTheColoursOfTheTheme) {
    ASSERT_TRUE(m_Dialog.Create(nullptr));
    UseTheme(u"Dark");
    const Canvas canvas(4, 4);
    for (const UINT message : {WM_CTLCOLORBTN, WM_CTLCOLORDLG, WM_CTLCOLORSTATIC}) {
        EXPECT_EQ(m_Dialog.Send(message, reinterpret_cast<WPARAM>(canvas.Dc())),
                  reinterpret_cast<LRESULT>(TheTheme().m_baseBrush.Get()));
        EXPECT_EQ(GetTextColor(canvas.Dc()), TheTheme().m_text);
        EXPECT_EQ(GetBkColor(canvas.Dc()), TheTheme().m_base);
    }
    const OldProcWatch watch(m_Dialog);
    for (const UINT message : {WM_CTLCOLOREDIT, WM_CTLCOLORLISTBOX, WM_CTLCOLORSCROLLBAR}) {
        m_Dialog.Send(message, reinterpret_cast<WPARAM>(canvas.Dc()));
        EXPECT_EQ(watch.Count(message), 1);
    }
    EXPECT_EQ(watch.Count(WM_CTLCOLORBTN), 0);
    UseTheme(kSystemDefaultTheme);
    EXPECT_NE(m_Dialog.Send(WM_CTLCOLORDLG, reinterpret_cast<WPARAM>(canvas.Dc())),
              reinterpret_cast<LRESULT>(TheTheme().m_baseBrush.Get()));
}

TEST_F(BaseDialog, HandsAChangeOfThemeToItsChildren) {
    ASSERT_TRUE(m_Dialog.Create(nullptr));
    PlainWindow child(WS_CHILD, m_Dialog.Handle(), 50);
    PlainWindow grandchild(WS_CHILD, child.Handle(), 51);
    m_Dialog.Send(WM_SYSCOLORCHANGE, 0, reinterpret_cast<LPARAM>(&TheTheme()));
    EXPECT_TRUE(child.WaitFor(WM_SYSCOLORCHANGE, 0));
    EXPECT_EQ(child.m_Messages.back().lParam, reinterpret_cast<LPARAM>(&TheTheme()));
    EXPECT_EQ(grandchild.Count(WM_SYSCOLORCHANGE), 0);
}

TEST_F(BaseDialog, ForgetsItsLastPictureAndIsPaintedAnewWhenTheThemeChanges) {
    ASSERT_TRUE(m_Dialog.Create(nullptr));
    ShowWindow(m_Dialog.Handle(), SW_SHOW);
    UseTheme(u"Dark", m_Dialog.Handle());
    ASSERT_TRUE(m_Dialog.m_hasFrame);
    const auto theme = reinterpret_cast<LPARAM>(&TheTheme());
    {
        const OldProcWatch watch(m_Dialog);
        m_Dialog.Send(WM_SYSCOLORCHANGE, 0, theme + 1);
        EXPECT_EQ(watch.Count(WM_SYSCOLORCHANGE), 1);
        EXPECT_TRUE(m_Dialog.m_hasFrame);
        m_Dialog.Send(WM_SYSCOLORCHANGE, 0, theme);
        EXPECT_EQ(watch.Count(WM_SYSCOLORCHANGE), 1);
    }
    EXPECT_FALSE(m_Dialog.m_hasFrame);
    EXPECT_TRUE(GetUpdateRect(m_Dialog.Handle(), nullptr, FALSE));
    Settle(m_Dialog.Handle());
    ShowWindow(m_Dialog.Handle(), SW_HIDE);
    ASSERT_TRUE(m_Dialog.m_hasFrame);
    m_Dialog.Send(WM_SYSCOLORCHANGE, 0, theme);
    EXPECT_TRUE(m_Dialog.m_hasFrame);
}

TEST_F(BaseDialog, DoesNotRescaleItself) {
    ASSERT_TRUE(m_Dialog.Create(nullptr));
    m_Dialog.m_Order.clear();
    RECT suggested{5, 5, 900, 700};
    const OldProcWatch watch(m_Dialog);
    EXPECT_EQ(m_Dialog.Send(WM_DPICHANGED, MAKEWPARAM(192, 192), reinterpret_cast<LPARAM>(&suggested)), 0);
    EXPECT_EQ(m_Dialog.m_Order, "");
    EXPECT_EQ(watch.Count(WM_DPICHANGED), 0);
}

class FixedSizeDialog : public BaseDialog {
protected:
    FixedSizeDialog() {
        m_Dialog.m_builder.Header()->style |= WS_THICKFRAME;
        m_Dialog.m_FixedSize = true;
    }
};

TEST_F(FixedSizeDialog, LooksSizableAndAnswersBorder) {
    ASSERT_TRUE(m_Dialog.Create(nullptr));
    RECT rect;
    GetWindowRect(m_Dialog.Handle(), &rect);
    const auto hit = [&](int x, int y) { return m_Dialog.Send(WM_NCHITTEST, 0, MAKELPARAM(x, y)); };
    EXPECT_EQ(hit(rect.left, (rect.top + rect.bottom) / 2), HTBORDER);
    EXPECT_EQ(hit(rect.right - 1, rect.bottom - 1), HTBORDER);
    EXPECT_EQ(hit((rect.left + rect.right) / 2, rect.bottom - 1), HTBORDER);
    EXPECT_EQ(hit((rect.left + rect.right) / 2, rect.bottom - 12), HTCLIENT);
}

TEST_F(FixedSizeDialog, HasSizeGrayedInItsSystemMenu) {
    ASSERT_TRUE(m_Dialog.Create(nullptr));
    const HMENU menu = GetSystemMenu(m_Dialog.Handle(), FALSE);
    const OldProcWatch watch(m_Dialog);
    m_Dialog.Send(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), MAKELPARAM(0, 0));
    EXPECT_EQ(GetMenuState(menu, SC_SIZE, MF_BYCOMMAND) & MF_GRAYED, 0U);
    m_Dialog.Send(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), MAKELPARAM(0, 1));
    EXPECT_EQ(watch.Count(WM_INITMENUPOPUP), 2);
    EXPECT_NE(GetMenuState(menu, SC_SIZE, MF_BYCOMMAND) & MF_GRAYED, 0U);
}

TEST_F(FixedSizeDialog, CannotBeMadeLargerOrSmaller) {
    ASSERT_TRUE(m_Dialog.Create(nullptr));
    MINMAXINFO info{};
    m_Dialog.Send(WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info));
    EXPECT_EQ(info.ptMinTrackSize.x, m_Dialog.m_minWidth);
    EXPECT_EQ(info.ptMaxTrackSize.x, m_Dialog.m_maxWidth);
    EXPECT_EQ(info.ptMaxTrackSize.y, m_Dialog.m_maxHeight);
}

TEST_F(BaseDialog, WithoutLimitsKeepsSizeInItsMenuAndItsBorder) {
    m_Dialog.m_builder.Header()->style |= WS_THICKFRAME;
    ASSERT_TRUE(m_Dialog.Create(nullptr));
    const HMENU menu = GetSystemMenu(m_Dialog.Handle(), FALSE);
    m_Dialog.Send(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), MAKELPARAM(0, 1));
    EXPECT_EQ(GetMenuState(menu, SC_SIZE, MF_BYCOMMAND) & MF_GRAYED, 0U);
    RECT rect;
    GetWindowRect(m_Dialog.Handle(), &rect);
    EXPECT_EQ(m_Dialog.Send(WM_NCHITTEST, 0, MAKELPARAM(rect.left, (rect.top + rect.bottom) / 2)), HTLEFT);
}

TEST_F(BaseDialog, OfAPaneHandsTheFocusToItsFirstTabStop) {
    TestDialog parent;
    parent.Open();
    HookedDialog pane(DialogKind::Child);
    ASSERT_TRUE(pane.Create(parent.Handle()));
    ShowWindow(pane.Handle(), SW_SHOW);
    SetFocus(pane.Handle());
    EXPECT_TRUE(PumpUntil([&] { return GetFocus() == GetDlgItem(pane.Handle(), 10); }));
}

TEST_F(BaseDialog, OfAPaneWithoutTabStopsHandsTheFocusToTheFirstOfTheWindowAround) {
    TestDialog parent;
    parent.Add(ATOM_BUTTON, 20, 80, 80, 40, 14);
    parent.Open();
    TestDialog pane(50, 30, DialogKind::Child);
    ASSERT_TRUE(pane.Create(parent.Handle()));
    ShowWindow(pane.Handle(), SW_SHOW);
    SetFocus(pane.Handle());
    EXPECT_TRUE(PumpUntil([&] { return GetFocus() == parent.Item(20); }));
}

TEST_F(BaseDialog, KeepsTheFocusIfItIsNoPane) {
    TestDialog dialog;
    dialog.Add(ATOM_BUTTON, 20, 80, 80, 40, 14);
    dialog.Open();
    SetFocus(nullptr);
    const OldProcWatch watch(dialog);
    dialog.Send(WM_SETFOCUS);
    PumpQueue();
    EXPECT_EQ(watch.Count(WM_NEXTDLGCTL), 0);
}

TEST_F(BaseDialog, ForgetsThatItIsReadyWhenItsWindowGoes) {
    ASSERT_TRUE(m_Dialog.Create(nullptr));
    DestroyWindow(m_Dialog.Handle());
    EXPECT_FALSE(m_Dialog.m_initDone);
}

}  // namespace
