#include "toolkit/mouse_place.h"

namespace {

LONGLONG Ticks() {
    LARGE_INTEGER ticks{};
    QueryPerformanceCounter(&ticks);
    return ticks.QuadPart;
}

LONGLONG KeptTicks() {
    constexpr LONGLONG kMillisecondsPerSecond = 1000;
    LARGE_INTEGER perSecond{};
    QueryPerformanceFrequency(&perSecond);
    return perSecond.QuadPart * MousePlace::kKeptMilliseconds / kMillisecondsPerSecond;
}

bool IsOfMouse(UINT message) {
    const bool inClient = message >= WM_MOUSEFIRST && message <= WM_MOUSELAST;
    const bool inFrame = message >= WM_NCMOUSEMOVE && message <= WM_NCXBUTTONDBLCLK;
    return inClient || inFrame || message == WM_MOUSELEAVE || message == WM_NCMOUSELEAVE;
}

// What windows are told of, and asked for, while they are painted.
bool IsOfPainting(UINT message) {
    switch (message) {
        case WM_PAINT:
        case WM_NCPAINT:
        case WM_ERASEBKGND:
        case WM_DRAWITEM:
        case WM_GETFONT:
        case WM_QUERYUISTATE:
        case BM_GETSTATE:
            return true;
        default:
            return message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC;
    }
}

}  // namespace

MousePlace& TheMousePlace() noexcept {
    static constinit MousePlace place;
    return place;
}

bool MousePlace::Get(POINT& place) {
    const LONGLONG now = Ticks();
    if (!m_Known || now - m_AskedAt > KeptTicks()) {
        m_Known = GetCursorPos(&m_Place) != FALSE;
        m_AskedAt = now;
    }
    place = m_Place;
    return m_Known;
}

HWND MousePlace::Captured() {
    if (m_Assumed != nullptr) return m_Assumed;
    const LONGLONG now = Ticks();
    if (!m_CaptureKnown || now - m_CaptureAskedAt > KeptTicks()) {
        m_Captured = GetCapture();
        m_CaptureKnown = true;
        m_CaptureAskedAt = now;
    }
    return m_Captured;
}

void MousePlace::Forget() noexcept {
    m_Known = false;
    m_CaptureKnown = false;
}

void MousePlace::ForgetOn(UINT message) noexcept {
    if (IsOfMouse(message)) {
        Forget();
    } else if (!IsOfPainting(message)) {
        m_CaptureKnown = false;
    }
}

// The system is asked which window it is only for one that it can be: that question is slow too.
bool IsUnderMouse(HWND window) {
    if (HWND captured = TheMousePlace().Captured()) return captured == window;
    POINT mouse{};
    RECT rect{};
    if (!TheMousePlace().Get(mouse) || GetWindowRect(window, &rect) == FALSE) return false;
    return PtInRect(&rect, mouse) != FALSE && WindowFromPoint(mouse) == window;
}
