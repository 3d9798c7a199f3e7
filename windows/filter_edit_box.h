// CVMRFilterEditBox, the search box of the item list.
#pragma once

#include "toolkit/edit.h"

class CVMRFilterEditBox : public tvEdit {
public:
    CVMRFilterEditBox() { m_autoHeight = -1; }
    ~CVMRFilterEditBox() override;

    // A text by which items are left out stands out.
    bool GetTextColor(COLORREF& color) override;

    // The first click, from another control, selects the whole text.
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    // --- Fields ---

    HWND m_prevFocus = nullptr;  // what had the keyboard when the mouse was pressed last
};
