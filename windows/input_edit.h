// CVMRInputEdit, the edit box of the input dialog.
#pragma once

#include "toolkit/edit.h"

class CVMRInputEdit : public tvEdit {
public:
    ~CVMRInputEdit() override;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    // --- Fields ---

    u8 m_NoAutoSelect = 0;  // its text is not selected when the focus comes by Tab
};
