#include <utility>

#include "toolkit/theme.h"
#include "windows/base_button.h"
#include "windows/start_dlg.h"

CVMRStartButton::~CVMRStartButton() {
    Detach(Window::Destroy);
}

// The button lets go of the old picture before that is destroyed.
void CVMRStartButton::RenewIcon() {
    tvIconHandle icon = MakeThemedIcon(static_cast<u16>(m_imageId), kNoColor);
    Send(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon.Get()));
    m_hIcon = std::move(icon);
}

void CVMRStartButton::OnSubclassed() {
    tvButton_Note::OnSubclassed();
    RenewIcon();
}

LRESULT CVMRStartButton::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SYSCOLORCHANGE && lParam == reinterpret_cast<LPARAM>(&TheTheme())) RenewIcon();
    return tvButton_Note::WindowProc(message, wParam, lParam);
}
