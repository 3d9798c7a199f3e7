#include "windows/input_edit.h"

CVMRInputEdit::~CVMRInputEdit() {
    Detach(Window::Destroy);
}

LRESULT CVMRInputEdit::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = tvEdit::WindowProc(message, wParam, lParam);
    if (message == WM_GETDLGCODE && m_NoAutoSelect != 0) result &= ~static_cast<LRESULT>(DLGC_HASSETSEL);
    return result;
}
