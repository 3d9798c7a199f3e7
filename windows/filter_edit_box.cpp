#include "windows/filter_edit_box.h"

#include "shell/app_data.h"
#include "shell/statics.h"
#include "toolkit/draw.h"
#include "toolkit/theme.h"
#include "windows/search.h"

CVMRFilterEditBox::~CVMRFilterEditBox() {
    Detach(Window::Destroy);
}

bool CVMRFilterEditBox::GetTextColor(COLORREF& color) {
    const bool isFixed = tvEdit::GetTextColor(color);
    if (TheAppData().filterFlag != FilterWithout) return isFixed;
    color = ContrastColor(TheTheme().Color(&tvColorTheme::m_editBg, COLOR_WINDOW));
    return true;
}

LRESULT CVMRFilterEditBox::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    const LRESULT result = tvEdit::WindowProc(message, wParam, lParam);
    if (message == WM_MOUSEACTIVATE) m_prevFocus = GetFocus();
    const bool isFromElsewhere = m_prevFocus != nullptr && m_prevFocus != m_hWnd;
    if (message == WM_LBUTTONDOWN && isFromElsewhere) Send(EM_SETSEL, 0, -1);
    return result;
}
