// tvtheme_control, the second base of all windows in the colours of the theme: it takes part in their
// messages first.
#pragma once

#include "toolkit/abdraw.h"

class tvtheme_control : public tvabdraw {
public:
    // Called first in each WindowProc. True if the message is done with, and `result` its answer.
    bool OnThemeMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
};
