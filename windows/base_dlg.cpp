#include "windows/base_dlg.h"

#include "toolkit/app.h"

void CVMRBaseDlg::BuildTemplate() {}

void CVMRBaseDlg::OnAppNotify(i32 code, NotifyArgument, NotifyArgument, NotifyArgument) {
    if (IsAttached() && code == APPN_LANGUAGE) OnUpdateText();
}

bool CVMRBaseDlg::OnInitDialog() {
    const bool result = tvBaseDlg::OnInitDialog();
    if ((GetWindowLongPtrW(m_hWnd, GWL_STYLE) & WS_CHILD) == 0) {
        RECT rect{};
        GetWindowRect(m_hWnd, &rect);
        m_minWidth = static_cast<int>(rect.right - rect.left);
        m_minHeight = static_cast<int>(rect.bottom - rect.top);
    }
    return result;
}

LRESULT CVMRBaseDlg::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (AnswerPaint(message, wParam, result)) return result;
    return tvBaseDlg::WindowProc(message, wParam, lParam);
}

int CVMRBaseDlg::RunModal() {
    BuildTemplate();
    return DoModal();
}

void NotifyMainWindow(AppNotification code, NotifyArgument a, NotifyArgument b, NotifyArgument c) {
    const tvApp* app = tvApp::Get();
    auto* window = app == nullptr ? nullptr : dynamic_cast<CVMRBaseDlg*>(app->m_mainWnd);
    if (window != nullptr) window->OnAppNotify(code, a, b, c);
}
