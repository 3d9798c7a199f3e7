// What a button does with its messages.
#include "toolkit/button.h"
#include "toolkit/control_state.h"
#include "toolkit/statics.h"
#include "toolkit/theme.h"
#include "toolkit/tool_tip.h"

namespace {

template <typename Target>
Target* PointerOf(LPARAM lParam) {
    return reinterpret_cast<Target*>(lParam);  // NOLINT(performance-no-int-to-ptr): a message's argument
}

// What a message about cues says, with the focus dots hidden whatever it was.
WPARAM WithHiddenFocus(WPARAM wParam) {
    const WORD flags = HIWORD(wParam);
    const bool clears = LOWORD(wParam) == UIS_CLEAR;
    return MAKEWPARAM(LOWORD(wParam), clears ? flags & ~UISF_HIDEFOCUS : flags | UISF_HIDEFOCUS);
}

}  // namespace

LRESULT tvButton::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (OnThemeMessage(m_hWnd, message, wParam, lParam, result)) return result;
    if (BeforeDefault(message, wParam, lParam, result)) return result;
    result = tvWnd::WindowProc(message, wParam, lParam);
    return AfterDefault(message, wParam, result);
}

// True if the message is done with.
bool tvButton::BeforeDefault(UINT message, WPARAM& wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case WM_DESTROY:
            RemoveToolTip(m_hWnd);
            m_theme.Reset();
            return false;
        case WM_SETTEXT:
            OnTextSet(lParam);
            return false;
        case WM_PAINT:
            if (wParam != 0 || !IsOwnerDrawn()) return false;
            PaintWindow();
            return true;
        case WM_ERASEBKGND:
            result = 1;
            return wParam != 0 && !UsesSystemLook();
        case WM_SYSCOLORCHANGE:
            if (PointerOf<tvTheme>(lParam) != &TheTheme()) return false;
            OnThemeChosen();
            return true;
        case WM_STYLECHANGED:
            if (static_cast<int>(wParam) == GWL_STYLE)
                OnStyleChanged(PointerOf<STYLESTRUCT>(lParam)->styleNew);
            return false;
        case BM_SETSTYLE:
            OnTypeSet(wParam, lParam);
            return true;
        case WM_CHAR:
            if (wParam == VK_RETURN) PostCommand();
            return false;
        case WM_CHANGEUISTATE:
        case WM_UPDATEUISTATE:
            if (m_hideFocus != 0) wParam = WithHiddenFocus(wParam);
            InvalidateRect(m_hWnd, nullptr, TRUE);
            return false;
        case WM_MOUSEMOVE:
            OnMouseInside();
            return false;
        case WM_MOUSELEAVE:
            OnMouseGone();
            return false;
        case WM_CAPTURECHANGED:
            // Only as long as it had the mouse it was lit wherever that was.
            if (!UsesSystemLook()) InvalidateRect(m_hWnd, nullptr, TRUE);
            return false;
        case WM_LBUTTONDBLCLK:
            PostMessageW(m_hWnd, WM_LBUTTONDOWN, wParam, lParam);
            return true;
        case WM_THEMECHANGED:
            m_theme.Reset();
            SyncStyle();
            return false;
        default:
            return false;
    }
}

LRESULT tvButton::AfterDefault(UINT message, WPARAM wParam, LRESULT result) {
    switch (message) {
        case WM_SIZE:
        case WM_SETTEXT:
        case WM_SETFONT:
            OnAutoFit();
            return result;
        case WM_GETDLGCODE:
            return DialogCode(wParam, result);
        default:
            return result;
    }
}

// The button wants Enter for itself. The owner-drawn style would lose what makes a default button.
LRESULT tvButton::DialogCode(WPARAM key, LRESULT code) {
    if (key == VK_RETURN) code |= DLGC_WANTALLKEYS;
    if (UsesSystemLook()) return code;
    if (Type() == BS_PUSHBUTTON) code |= DLGC_UNDEFPUSHBUTTON;
    if (IsDefault()) code |= DLGC_DEFPUSHBUTTON;
    return code;
}

void tvButton::OnTextSet(LPARAM lParam) {
    ResetBuffer(m_hWnd, Redraw::No);
    const auto* text = PointerOf<const char16_t>(lParam);
    m_text = text == nullptr ? tvstring() : tvstring(text);
    RenewTip();
}

void tvButton::OnThemeChosen() {
    SyncStyle();
    if (IsWindowVisible(m_hWnd)) Repaint();
}

void tvButton::OnStyleChanged(DWORD style) {
    const u32 before = m_style;
    const unsigned type = Type();
    m_style = static_cast<u32>(style) & kStyleMask;
    if (Type() == BS_OWNERDRAW) SetType(type);
    const bool changed = SyncStyle();
    if (changed || m_style != before) InvalidateRect(m_hWnd, nullptr, TRUE);
}

// The system's own handling would replace the whole low word.
void tvButton::OnTypeSet(WPARAM wParam, LPARAM lParam) {
    SetType(static_cast<unsigned>(wParam) & BS_TYPEMASK);
    SyncStyle();
    if (LOWORD(lParam) != 0) InvalidateRect(m_hWnd, nullptr, TRUE);
}

void tvButton::OnMouseInside() {
    if (m_hover != 0 || UsesSystemLook()) return;
    m_hover = 1;
    TrackMouseLeaving(m_hWnd);
    InvalidateRect(m_hWnd, nullptr, TRUE);
}

// Also where the system paints by now: the mouse may come back under another theme.
void tvButton::OnMouseGone() {
    m_hover = 0;
    if (!UsesSystemLook()) InvalidateRect(m_hWnd, nullptr, TRUE);
}

// Without the window: as a command of the program, it is not reflected, and Enter does not toggle a check
// box.
void tvButton::PostCommand() const {
    PostMessageW(GetParent(m_hWnd), WM_COMMAND,
                 MAKEWPARAM(static_cast<WORD>(GetDlgCtrlID(m_hWnd)), BN_CLICKED), 0);
}
