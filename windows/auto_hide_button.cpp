#include "toolkit/theme.h"
#include "windows/base_button.h"

namespace {

constexpr i32 kExactSide = -38;

}  // namespace

CVMRAutoHideButton::CVMRAutoHideButton(u32 iconId) : CVMRBaseButton(kSquare, kExactSide, iconId) {
    SetSideMask(0);
    SetHideFocus(true);
}

CVMRAutoHideButton::~CVMRAutoHideButton() {
    Detach(Window::Destroy);
}

void CVMRAutoHideButton::Show(bool visible, const POINT* position) {
    constexpr UINT kMove = SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE;
    constexpr LONG kBeyond = 10;  // pixels further than its own size
    if (position != nullptr) SetWindowPos(m_hWnd, nullptr, position->x, position->y, 0, 0, kMove);
    const u8 shown = visible ? 1 : 0;
    const bool isChanged = m_shown != shown;
    m_shown = shown;
    if (isChanged && IsWindowVisible(m_hWnd) != FALSE) Repaint();
    if (position != nullptr || visible) return;
    RECT rect{};
    GetWindowRect(m_hWnd, &rect);
    SetWindowPos(m_hWnd, nullptr, -(rect.right - rect.left) - kBeyond, -(rect.bottom - rect.top) - kBeyond, 0,
                 0, kMove);
}

LRESULT CVMRAutoHideButton::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SETCURSOR:
            SetCursor(LoadCursorW(nullptr, IDC_HAND));
            return TRUE;
        case WM_NCHITTEST:
            if (m_shown == 0) return HTTRANSPARENT;
            break;
        case WM_MOUSELEAVE:
            PostMessageW(GetParent(m_hWnd), message, wParam, lParam);
            break;
        default:
            break;
    }
    return CVMRBaseButton::WindowProc(message, wParam, lParam);
}

void CVMRAutoHideButton::DrawContent(HDC dc, RECT rect, const tvButtonColors& colors) {
    if (m_shown != 0) CVMRBaseButton::DrawContent(dc, rect, colors);
}

void CVMRAutoHideButton::GetColors(const DRAWITEMSTRUCT& item, tvButtonColors& colors) {
    CVMRBaseButton::GetColors(item, colors);
    colors.m_face = TheTheme().Color(&tvColorTheme::m_base, COLOR_BTNFACE);
}

void CVMRAutoHideButton::OnSubclassed() {
    CVMRBaseButton::OnSubclassed();
    ModifyStyle(WS_TABSTOP, 0);
}
