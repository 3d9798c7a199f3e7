#include "toolkit/base_dialog.h"

#include "toolkit/app.h"
#include "toolkit/control_state.h"
#include "toolkit/draw.h"
#include "toolkit/menu_look.h"
#include "toolkit/statics.h"
#include "toolkit/theme.h"

namespace {

// What a message's numbers are where it says so.
template <typename Target>
Target* PointerOf(LPARAM lParam) {
    return reinterpret_cast<Target*>(lParam);  // NOLINT(performance-no-int-to-ptr)
}

HDC ContextOf(WPARAM wParam) {
    return reinterpret_cast<HDC>(wParam);  // NOLINT(performance-no-int-to-ptr)
}

LRESULT BaseColors(HDC dc) {
    SetTextColor(dc, TheTheme().m_text);
    SetBkColor(dc, TheTheme().m_base);
    return reinterpret_cast<LRESULT>(TheTheme().m_baseBrush.Get());
}

// Gives the focus to the first control that takes it: of a pane, or else of the windows around it.
void FocusFirstTabStop(HWND pane) {
    HWND stop = GetNextDlgTabItem(pane, nullptr, FALSE);
    for (HWND around = pane; stop == nullptr && HasStyle(around, WS_CHILD);) {
        around = GetParent(around);
        stop = GetNextDlgTabItem(around, nullptr, FALSE);
    }
    if (stop != nullptr && stop != pane) {
        PostMessageW(pane, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(stop), TRUE);
    }
}

void PassThemeOn(HWND parent, LPARAM theme) {
    for (HWND child = GetTopWindow(parent); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
        PostMessageW(child, WM_SYSCOLORCHANGE, 0, theme);
}

}  // namespace

void tvBaseDlg::OnAutoSize() {}
void tvBaseDlg::OnLayout() {}
void tvBaseDlg::OnUpdateState() {}
void tvBaseDlg::OnUpdateText() {}
void tvBaseDlg::OnPaintDlg(HDC, const RECT&) {}

bool tvBaseDlg::OnInitDialog() {
    m_minWidth = m_minHeight = m_maxWidth = m_maxHeight = 0;
    m_initDone = false;
    Send(WM_SETFONT, reinterpret_cast<WPARAM>(TheTheme().Font()));
    OnAutoSize();
    OnUpdateText();
    OnUpdateState();
    OnLayout();
    m_initDone = true;
    return true;
}

LRESULT tvBaseDlg::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (OnThemeMessage(m_hWnd, message, wParam, lParam, result)) return result;
    if (OnOwnMessage(message, wParam, lParam, result)) return result;
    result = tvDialog::WindowProc(message, wParam, lParam);
    AfterMessage(message, wParam, lParam, result);
    return result;
}

bool tvBaseDlg::OnOwnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    const bool colored = !TheTheme().m_isSystemDefault;
    switch (message) {
        case WM_THEMECHANGED:
            if (m_hWnd == tvApp::MainWindow()) TheMenuLook().ForgetStyle();
            return false;
        case WM_INITMENUPOPUP:
            if (HIWORD(lParam) != 0) GraySizeItem(wParam);
            return false;
        case WM_CTLCOLORBTN:
        case WM_CTLCOLORDLG:
        case WM_CTLCOLORSTATIC:
            if (colored) result = BaseColors(ContextOf(wParam));
            return colored;
        case WM_DPICHANGED:
            return true;
        case WM_ERASEBKGND:
        case WM_PAINT:
            return colored && AnswerPaint(message, wParam, result);
        case WM_SYSCOLORCHANGE:
            if (PointerOf<tvTheme>(lParam) != &TheTheme()) return false;
            OnThemeChanged(lParam);
            return true;
        case WM_NCDESTROY:
            m_initDone = false;
            return false;
        default:
            return false;
    }
}

// A window that cannot be sized says so.
void tvBaseDlg::GraySizeItem(WPARAM menu) const {
    if (HasFixedSize()) {
        // NOLINTNEXTLINE(performance-no-int-to-ptr): a message's argument
        EnableMenuItem(reinterpret_cast<HMENU>(menu), SC_SIZE, MF_BYCOMMAND | MF_GRAYED);
    }
}

bool tvBaseDlg::HasFixedSize() const noexcept {
    return m_minWidth != 0 && m_minHeight != 0 && m_minWidth == m_maxWidth && m_minHeight == m_maxHeight;
}

bool tvBaseDlg::PaintWindow(Fade fade) {
    if (!GetUpdateRect(m_hWnd, nullptr, FALSE)) return false;
    const tvPaintDC paint(m_hWnd, m_font);
    RECT rect;
    GetClientRect(m_hWnd, &rect);
    PaintBuffered(m_hWnd, paint.m_dc, rect, nullptr, fade);
    return true;
}

bool tvBaseDlg::AnswerPaint(UINT message, WPARAM wParam, LRESULT& result) {
    result = message == WM_ERASEBKGND ? 1 : 0;
    return message == WM_ERASEBKGND ? wParam != 0 : message == WM_PAINT && PaintWindow();
}

void tvBaseDlg::OnThemeChanged(LPARAM theme) {
    PassThemeOn(m_hWnd, theme);
    if (!IsWindowVisible(m_hWnd)) return;
    ResetBuffer(m_hWnd, Redraw::No);
    RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE);
}

void tvBaseDlg::AfterMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    const bool isChild = (GetWindowLongPtrW(m_hWnd, GWL_STYLE) & WS_CHILD) != 0;
    switch (message) {
        case WM_GETMINMAXINFO:
            if (m_maxWidth != 0 && m_maxHeight != 0) {
                PointerOf<MINMAXINFO>(lParam)->ptMaxTrackSize = {m_maxWidth, m_maxHeight};
            }
            break;
        case WM_SIZE:
            if (wParam != SIZE_MINIMIZED && GetTopWindow(m_hWnd) != nullptr) OnLayout();
            break;
        case WM_SETFONT:
            if (m_initDone && !isChild && GetTopWindow(m_hWnd) != nullptr) OnLayout();
            break;
        case WM_SETFOCUS:
            if (isChild) FocusFirstTabStop(m_hWnd);
            break;
        case WM_NCHITTEST:
            if (HasFixedSize() && result >= HTLEFT && result <= HTBOTTOMRIGHT) result = HTBORDER;
            break;
        default:
            break;
    }
}

void tvBaseDlg::OnDraw(HDC dc, const RECT& rect, void*) {
    FillSolid(dc, rect, TheTheme().Color(&tvColorTheme::m_base, COLOR_BTNFACE));
    SetTextColor(dc, TheTheme().Color(&tvColorTheme::m_text, COLOR_BTNTEXT));
    OnPaintDlg(dc, rect);
}
