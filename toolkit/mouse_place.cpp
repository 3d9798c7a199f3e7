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

void MousePlace::ForgetOn(UINT message) noexcept {
    const bool inClient = message >= WM_MOUSEFIRST && message <= WM_MOUSELAST;
    const bool inFrame = message >= WM_NCMOUSEMOVE && message <= WM_NCXBUTTONDBLCLK;
    if (inClient || inFrame || message == WM_MOUSELEAVE || message == WM_NCMOUSELEAVE) Forget();
}

// The system is asked which window it is only for one that it can be: that question is slow too.
bool IsUnderMouse(HWND window) {
    if (HWND captured = GetCapture()) return captured == window;
    POINT mouse{};
    RECT rect{};
    if (!TheMousePlace().Get(mouse) || GetWindowRect(window, &rect) == FALSE) return false;
    return PtInRect(&rect, mouse) != FALSE && WindowFromPoint(mouse) == window;
}
