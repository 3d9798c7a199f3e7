// Puts the main window where it was, or where it does not cover another process's, and notes where it is.
#pragma once

#include "shell/load_store.h"
#include "toolkit/win32.h"

// Load moves the window, which may be hidden still, and sets `spPercent`, the splitter's fraction, if a good
// one is stored. Store keeps both. Nothing is told of failures.
void LoadStorePlacement(LoadStore direction, HWND window, float& spPercent);
