// tvCommonDlg, what the system's own dialogs have in common here: their owner, and their place in its middle.
#pragma once

#include "toolkit/win32.h"

class tvCommonDlg {
public:
    // The window that a dialog is to stand over: what is in front of the main window, out of panes.
    static HWND GetOwner();

    // Puts the next window with an owner that this thread makes into the middle of that owner. EndCenter
    // takes it back if no window has come.
    static void CenterNext();
    static void EndCenter();

    // Lets the user choose a font, of 5 to 16 points. False, with `logfont` as it was, if he does not.
    static bool ChooseFont(LOGFONTW& logfont);

private:
    static LRESULT CALLBACK HookProc(int code, WPARAM wParam, LPARAM lParam);
};
