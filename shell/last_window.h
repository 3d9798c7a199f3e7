// The main window that was moved, sized or maximised last, in any process of the program: one word that they
// share. It may be stale.
#pragma once

#include "toolkit/win32.h"

void NoteLastMainWindow(HWND window) noexcept;

// Null if there was none, or if it is gone or hidden.
HWND VisibleLastMainWindow() noexcept;
