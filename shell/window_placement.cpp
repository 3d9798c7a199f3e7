#include "shell/window_placement.h"

#include "shell/last_window.h"
#include "shell/placement.h"

namespace {

ScreenRect FromRect(const RECT& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

RECT ToRect(const ScreenRect& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

// Of the monitor that the window, or most of it, is on.
ScreenRect WorkAreaOf(HWND window) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    if (GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor) == FALSE)
        GetWindowRect(GetDesktopWindow(), &monitor.rcWork);
    return FromRect(monitor.rcWork);
}

ScreenRect PresentRect(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    return FromRect(rect);
}

WINDOWPLACEMENT PlacementOf(HWND window, bool& isKnown) {
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    isKnown = GetWindowPlacement(window, &placement) != FALSE;
    return placement;
}

// The height of a frame with a caption.
i32 FrameHeight() {
    RECT frame{};
    AdjustWindowRect(&frame, WS_POPUP | WS_CAPTION | WS_SYSMENU, FALSE);
    return static_cast<i32>(frame.bottom - frame.top);
}

// Takes a place beside the window that was moved last, if there is one to be seen.
bool TakePlaceBeside(StoredPlacement& stored) {
    bool isKnown = false;
    const WINDOWPLACEMENT other = PlacementOf(VisibleLastMainWindow(), isKnown);
    const ScreenRect rect = FromRect(other.rcNormalPosition);
    if (!isKnown || rect.IsEmpty()) return false;
    stored.position = Shifted(rect, FrameHeight());
    stored.maximised = stored.maximised && other.showCmd == SW_SHOWMAXIMIZED;
    return true;
}

void PutNormally(HWND window, const StoredPlacement& stored) {
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    if (stored.maximised) {
        placement.showCmd = SW_SHOWMAXIMIZED;
    } else if (IsWindowVisible(window) != FALSE) {
        bool isKnown = false;
        placement.showCmd = PlacementOf(window, isKnown).showCmd;
    }
    placement.rcNormalPosition = ToRect(IntoWorkArea(stored.position, WorkAreaOf(window)));
    SetWindowPlacement(window, &placement);
}

void Load(HWND window, float& spPercent) {
    StoredPlacement stored;
    stored.spPercent = spPercent;
    LoadPlacement(stored);
    spPercent = stored.spPercent;
    const bool isFirstRun = stored.position.IsEmpty();
    if (isFirstRun) stored.position = FirstRunRect(WorkAreaOf(window), PresentRect(window));
    if (TakePlaceBeside(stored) || !isFirstRun) {
        PutNormally(window, stored);
        return;
    }
    const ScreenRect& rect = stored.position;
    SetWindowPos(window, nullptr, rect.left, rect.top, rect.Width(), rect.Height(),
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOSENDCHANGING);
}

void Store(HWND window, float spPercent) {
    bool isKnown = false;
    const WINDOWPLACEMENT placement = PlacementOf(window, isKnown);
    if (!isKnown) return;
    StoredPlacement stored;
    stored.position = FromRect(placement.rcNormalPosition);
    stored.maximised =
        placement.showCmd == SW_SHOWMAXIMIZED ||
        (placement.showCmd == SW_SHOWMINIMIZED && (placement.flags & WPF_RESTORETOMAXIMIZED) != 0);
    stored.spPercent = spPercent;
    StorePlacement(stored);
}

}  // namespace

void LoadStorePlacement(LoadStore direction, HWND window, float& spPercent) {
    if (direction == LoadStore::Load) {
        Load(window, spPercent);
    } else {
        Store(window, spPercent);
    }
}
