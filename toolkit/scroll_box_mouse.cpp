// What the mouse does on the bar of a scroll box. Arrows and pages are left to the control, which has its own
// way of repeating them; the thumb is dragged here.
#include "toolkit/control_state.h"
#include "toolkit/scroll_box.h"

namespace {

POINT PointOf(LPARAM lParam) {
    return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

SCROLLINFO ScrollInfoOf(HWND window) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    if (GetScrollInfo(window, SB_VERT, &info) == FALSE) info = {};
    return info;
}

void TellPosition(HWND window, WORD what, int position) {
    PostMessageW(window, WM_VSCROLL, MAKEWPARAM(what, static_cast<WORD>(position)), 0);
}

}  // namespace

// True if the message is done with.
bool tvScrollBox::OnMouse(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_LBUTTONDOWN:
            OnPressed(PointOf(lParam));
            return false;
        case WM_LBUTTONDBLCLK:
            PostMessageW(m_hWnd, WM_LBUTTONDOWN, wParam, lParam);
            return true;
        case WM_LBUTTONUP:
            if (IsDragging() && GetCapture() == m_hWnd) ReleaseCapture();
            return false;
        case WM_CAPTURECHANGED:
            EndDrag();
            return false;
        case WM_MOUSEMOVE:
            OnMoved(PointOf(lParam));
            return false;
        case WM_MOUSELEAVE:
            OnMouseGone();
            return false;
        default:
            return false;
    }
}

void tvScrollBox::OnPressed(POINT point) {
    Update();
    if (!IsActive() || !IsUsable()) return;
    const int part = HitScrollPart(m_parts, m_states, point);
    if (part == SCROLL_THUMB) {
        BeginDrag(point);
    } else if (part >= SCROLL_UP && part <= SCROLL_DOWN) {
        ClientToScreen(m_hWnd, &point);
        PostMessageW(m_child, WM_NCLBUTTONDOWN, HTVSCROLL, MAKELPARAM(point.x, point.y));
        Redraw(false);
    }
}

void tvScrollBox::OnMoved(POINT point) {
    if (IsDragging()) DragTo(static_cast<int>(point.y));
    if (m_tracking == 0) {
        m_tracking = 1;
        TrackMouseLeaving(m_hWnd);
    }
    if (RenewHotPart()) Redraw(false);
}

void tvScrollBox::OnMouseGone() {
    m_tracking = 0;
    RenewHotPart();
    Redraw(false);
}

// --- Dragging ---

void tvScrollBox::BeginDrag(POINT point) {
    SetCapture(m_hWnd);
    m_drag = {static_cast<int>(m_parts[SCROLL_UP].bottom),
              static_cast<int>(m_parts[SCROLL_DOWN].top),
              m_parts[SCROLL_THUMB],
              static_cast<int>(point.y - m_parts[SCROLL_THUMB].top),
              m_hWnd,
              m_child};
    m_hotPart = SCROLL_THUMB;
    Redraw(false);
}

// The control may ask the system for the position instead of looking at what it is told.
void tvScrollBox::DragTo(int y) {
    if (!DragThumb(m_drag, y)) return;
    Redraw(false);
    SCROLLINFO info = ScrollInfoOf(m_drag.hosted);
    if (info.nMax <= info.nMin) return;
    const int position = DraggedPosition(m_drag, {info.nMin, info.nMax, static_cast<int>(info.nPage)});
    info.fMask = SIF_POS | SIF_TRACKPOS;
    info.nPos = info.nTrackPos = position;
    SetScrollInfo(m_drag.hosted, SB_VERT, &info, FALSE);
    TellPosition(m_drag.hosted, SB_THUMBTRACK, position);
}

void tvScrollBox::EndDrag() {
    if (!IsDragging()) return;
    const HWND hosted = m_drag.hosted;
    m_drag = {};
    TellPosition(hosted, SB_THUMBPOSITION, ScrollInfoOf(hosted).nTrackPos);
    RenewHotPart();
    ResetBuffer(m_hWnd, tvabdraw::Redraw::Yes);
}
