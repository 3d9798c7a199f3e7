#include "toolkit/button_split.h"

#include <algorithm>

#include "toolkit/statics.h"
#include "toolkit/system.h"
#include "toolkit/theme.h"

namespace {

// The system's cursors IDC_SIZEWE and IDC_SIZENS.
constexpr unsigned kCursorSideways = 32644;
constexpr unsigned kCursorUpAndDown = 32645;

constexpr WPARAM kSystemCommandMask = 0xFFF0;

template <typename Target>
Target& TargetOf(LPARAM lParam) {
    return *reinterpret_cast<Target*>(lParam);  // NOLINT(performance-no-int-to-ptr): a message's argument
}

// The start of something of this length in a range of which the margin is kept free at both ends; where there
// is too little room its start counts.
int Clamped(int place, int length, int extent, int margin) {
    return std::max(std::min(place, extent - margin - length), margin);
}

}  // namespace

tvButton_Split::~tvButton_Split() {
    Detach(Window::Destroy);
}

bool tvButton_Split::UsesSystemLook() {
    return m_asButton != 0 && tvButton::UsesSystemLook();
}

void tvButton_Split::OnSubclassed() {
    if (!IsAttached()) return;
    m_parent = GetParent(m_hWnd);
    m_dragging = false;
    SetWindowTextW(m_hWnd, L"");
    tvButton::OnSubclassed();
    ModifyStyle(WS_TABSTOP, WS_CLIPSIBLINGS);
}

LRESULT tvButton_Split::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (OnOwnMessage(message, wParam, lParam, result)) return result;
    return tvButton::WindowProc(message, wParam, lParam);
}

bool tvButton_Split::OnOwnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case WM_NCHITTEST:
            result = HTCAPTION;
            return true;
        case WM_SETCURSOR:
            SetCursor(LoadSharedCursor(m_vertical != 0 ? kCursorUpAndDown : kCursorSideways));
            result = TRUE;
            return true;
        case WM_SIZING:
        case WM_MOVING:
            LockAxis(TargetOf<RECT>(lParam));
            result = TRUE;
            return true;
        case WM_WINDOWPOSCHANGING:
            KeepInParent(TargetOf<WINDOWPOS>(lParam));
            return false;
        case WM_WINDOWPOSCHANGED:
            TellParent(TargetOf<WINDOWPOS>(lParam));
            return false;
        case WM_SYSCOMMAND:
            if ((wParam & kSystemCommandMask) != SC_MOVE) return false;
            Drag(wParam, lParam, result);
            return true;
        case WM_NCMOUSEMOVE:
            OnMouseOver();
            return false;
        case WM_NCMOUSELEAVE:
            m_hover = 0;
            InvalidateRect(m_hWnd, nullptr, TRUE);
            return false;
        default:
            return false;
    }
}

// All of the divider is a caption, so that the mouse is never in its client area.
void tvButton_Split::OnMouseOver() {
    if (m_hover != 0 || UsesSystemLook()) return;
    m_hover = 1;
    TRACKMOUSEEVENT track{};
    track.cbSize = sizeof track;
    track.dwFlags = TME_LEAVE | TME_NONCLIENT;
    track.hwndTrack = m_hWnd;
    TrackMouseEvent(&track);
    InvalidateRect(m_hWnd, nullptr, TRUE);
}

void tvButton_Split::LockAxis(RECT& rect) const {
    RECT now;
    GetWindowRect(m_hWnd, &now);
    if (m_vertical != 0) {
        rect.left = now.left;
        rect.right = now.right;
    } else {
        rect.top = now.top;
        rect.bottom = now.bottom;
    }
}

void tvButton_Split::KeepInParent(WINDOWPOS& position) const {
    if ((position.flags & SWP_NOMOVE) != 0) return;
    RECT now, room;
    if (!GetWindowRect(m_hWnd, &now) || !GetClientRect(m_parent, &room)) return;
    const bool keepsSize = (position.flags & SWP_NOSIZE) != 0;
    const int width = keepsSize ? now.right - now.left : position.cx;
    const int height = keepsSize ? now.bottom - now.top : position.cy;
    position.x = Clamped(position.x, width, room.right, m_vertical != 0 ? 0 : m_marginLeft);
    position.y = Clamped(position.y, height, room.bottom, m_vertical != 0 ? m_marginTop : 0);
}

// Without full-window dragging the one change of place comes when the mouse is let go, and the capture is
// gone.
void tvButton_Split::TellParent(const WINDOWPOS& position) const {
    constexpr UINT kStays = SWP_NOMOVE | SWP_NOSIZE;
    if ((position.flags & kStays) == kStays) return;
    if (!m_dragging && GetCapture() != m_hWnd) return;
    PostMessageW(m_parent, WM_TVBUTTON_SPLIT, static_cast<WPARAM>(GetDlgCtrlID(m_hWnd)),
                 reinterpret_cast<LPARAM>(m_hWnd));
}

// The system's loop runs until the mouse is let go; the window may be gone by then, and this object with it.
void tvButton_Split::Drag(WPARAM wParam, LPARAM lParam, LRESULT& result) {
    const HWND handle = m_hWnd;
    m_dragging = true;
    result = tvButton::WindowProc(WM_SYSCOMMAND, wParam, lParam);
    if (FromHandle(handle) == this) m_dragging = false;
}

void tvButton_Split::OnDraw(HDC dc, const RECT& rect, void* paint) {
    auto& colors = *static_cast<tvButtonColors*>(paint);
    if (m_asButton != 0) {
        m_text.clear();
        colors.m_focus = 0;
        tvButton::OnDraw(dc, rect, paint);
        return;
    }
    COLORREF fill = m_fill;
    if (fill > kLargestColor) {
        fill = colors.m_hot != 0 ? TheTheme().Color(&tvColorTheme::m_editBg, COLOR_WINDOW)
                                 : TheTheme().Color(&tvColorTheme::m_base, COLOR_BTNFACE);
    }
    FillSolid(dc, rect, fill);
    FillEdges(dc, rect, m_frameColor > kLargestColor ? fill : m_frameColor, m_sides, 1);
}
