// tvWndTimer, a timer of a window, and the registry of all of them.
#pragma once

#include "toolkit/win32.h"

class tvWndTimer {
public:
    tvWndTimer() = default;
    tvWndTimer(const tvWndTimer&) = delete;
    tvWndTimer& operator=(const tvWndTimer&) = delete;

    // --- Virtual operations, in slot order ---

    virtual void OnTimer();
    // Stops it.
    virtual ~tvWndTimer();

    // Starts it, or starts it anew; for another window than before, all timers of that window are stopped
    // first. False if no identifier is free (of a thousand), or the system has no timer.
    bool Start(HWND window, UINT milliseconds);
    void Stop();

    // For the window's WM_TIMER: true if the message is this timer's.
    [[nodiscard]] bool IsMine(HWND window, UINT_PTR id) const noexcept;

    // Stops all timers of a window.
    static void StopAll(HWND window);

    // --- Fields, in their order ---

    HWND m_hWnd = nullptr;
    UINT_PTR m_id = 0;
};
