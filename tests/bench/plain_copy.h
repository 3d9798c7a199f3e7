// A window with the same children as another, but none of them wrapped: what the system itself takes to have
// windows paint themselves.
#pragma once

#include "toolkit/win32.h"

// The system's controls of the same kinds, styles, places and texts, in a dialog of the same size. What is
// owner-drawn is filled and gets its text, straight; the rest the system paints. Visible, not owned; null if
// it cannot be made.
HWND MakePlainCopy(HWND original);
