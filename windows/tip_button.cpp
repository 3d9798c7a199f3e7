#include "windows/tip_button.h"

#include "toolkit/tool_tip.h"

CVMRDynTipIconButton::CVMRDynTipIconButton(u32 iconId) : CVMRAutoHideButton(iconId) {}

CVMRDynTipIconButton::~CVMRDynTipIconButton() {
    Detach(Window::Destroy);
}

void CVMRDynTipIconButton::RegisterTip() const {
    TheToolTip().Create(nullptr, 0);
    TheToolTip().RemoveTool(m_hWnd);
    TheToolTip().AddCallbackTool(m_hWnd);
}

void CVMRDynTipIconButton::OnSubclassed() {
    CVMRAutoHideButton::OnSubclassed();
    RegisterTip();
}

bool CVMRDynTipIconButton::GiveTip(LPARAM lParam) {
    auto* info = reinterpret_cast<NMTTDISPINFOW*>(lParam);  // NOLINT(performance-no-int-to-ptr)
    if (info->hdr.code != TTN_GETDISPINFOW || info->hdr.hwndFrom != TheToolTip().Handle()) return false;
    info->lpszText = Wide(m_tipText.data());
    return true;
}

LRESULT CVMRDynTipIconButton::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SETTEXT: {
            // NOLINTNEXTLINE(performance-no-int-to-ptr): a message's argument
            const auto* text = reinterpret_cast<const char16_t*>(lParam);
            m_tipText = text == nullptr ? tvstring() : tvstring(text);
            m_text.clear();
            return 0;
        }
        case WM_NOTIFY:
            if (GiveTip(lParam)) return 0;
            break;
        // With a new picture, which a change of the theme brings too, a button renews its tip in its own way.
        case BM_SETIMAGE: {
            const LRESULT result = CVMRAutoHideButton::WindowProc(message, wParam, lParam);
            RegisterTip();
            return result;
        }
        default:
            break;
    }
    return CVMRAutoHideButton::WindowProc(message, wParam, lParam);
}
