// Where the mouse is, for controls that look for it whenever they are painted. To ask the system is slow
// where the display is another process, and a window is painted with all its controls at once: so the answer
// is kept for the moment that takes.
#pragma once

#include "toolkit/win32.h"

class MousePlace {
public:
    // In screen coordinates; what the system said at most kKeptMilliseconds ago, if it has not been forgotten
    // since. False if the system does not say.
    bool Get(POINT& place);

    // The window of this thread that has captured the mouse, or null; kept as long, but only while windows
    // are told of nothing but painting: what else they are told of can change it.
    HWND Captured();

    // As if this window had captured the mouse, until another is named or null: for its picture.
    void AssumeCaptured(HWND window) noexcept { m_Assumed = window; }

    // The next answer is the system's. Every window with a wrapper calls for that when it is told of the
    // mouse, so that what is painted thereupon shows the mouse where it is.
    void Forget() noexcept;
    void ForgetOn(UINT message) noexcept;

    static constexpr int kKeptMilliseconds = 5;

private:
    POINT m_Place{};
    HWND m_Captured = nullptr;
    HWND m_Assumed = nullptr;
    LONGLONG m_AskedAt = 0;
    LONGLONG m_CaptureAskedAt = 0;
    bool m_Known = false;
    bool m_CaptureKnown = false;
};

MousePlace& TheMousePlace() noexcept;

// The mouse acts upon this window: it has captured it, or the mouse is over it and nobody else's.
bool IsUnderMouse(HWND window);
