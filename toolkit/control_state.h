// What controls ask about their windows.
#pragma once

#include "foundation/tvstring.h"
#include "toolkit/win32.h"

DWORD StyleOfWindow(HWND window);
inline bool HasStyle(HWND window, DWORD anyOf) {
    return (StyleOfWindow(window) & anyOf) != 0;
}
DWORD ExStyleOfWindow(HWND window);

RECT ClientOf(HWND window);

// A child window's place in its parent's client area.
RECT PlaceInParent(HWND window);

// The mouse is in the window's client area or over a child in it, nothing covers it there, and the mouse is
// not another window's for the time being.
bool IsMouseInside(HWND window);

// Where the mouse is, in the window's client coordinates.
POINT MouseIn(HWND window);

// The window is sent WM_MOUSELEAVE, once, when the mouse goes.
void TrackMouseLeaving(HWND window);

tvstring TextOfWindow(HWND window);
