#include "toolkit/control_state.h"

#include "toolkit/mouse_place.h"

DWORD StyleOfWindow(HWND window) {
    return static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE));
}

DWORD ExStyleOfWindow(HWND window) {
    return static_cast<DWORD>(GetWindowLongPtrW(window, GWL_EXSTYLE));
}

RECT ClientOf(HWND window) {
    RECT rect{};
    GetClientRect(window, &rect);
    return rect;
}

RECT PlaceInParent(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    MapWindowPoints(nullptr, GetAncestor(window, GA_PARENT), reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

POINT MouseIn(HWND window) {
    POINT mouse{};
    TheMousePlace().Get(mouse);
    ScreenToClient(window, &mouse);
    return mouse;
}

bool IsMouseInside(HWND window) {
    const auto isPartOf = [window](HWND other) { return other == window || IsChild(window, other) != FALSE; };
    const RECT client = ClientOf(window);
    if (PtInRect(&client, MouseIn(window)) == FALSE) return false;
    if (HWND captured = TheMousePlace().Captured()) return isPartOf(captured);
    POINT mouse{};
    return TheMousePlace().Get(mouse) && isPartOf(WindowFromPoint(mouse));
}

void TrackMouseLeaving(HWND window) {
    TRACKMOUSEEVENT track{};
    track.cbSize = sizeof track;
    track.dwFlags = TME_LEAVE;
    track.hwndTrack = window;
    TrackMouseEvent(&track);
}

tvstring TextOfWindow(HWND window) {
    const int length = GetWindowTextLengthW(window);
    if (length <= 0) return {};
    tvstring text(static_cast<std::size_t>(length), u' ');
    const int taken = GetWindowTextW(window, Wide(text.data()), length + 1);
    text.resize(static_cast<std::size_t>(taken));
    return text;
}
