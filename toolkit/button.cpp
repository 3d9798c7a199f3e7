#include "toolkit/button.h"

#include "toolkit/control_state.h"
#include "toolkit/statics.h"
#include "toolkit/system.h"
#include "toolkit/theme.h"
#include "toolkit/tool_tip.h"

namespace {

constexpr const char16_t* kTipIsCaption = u"#0";

}  // namespace

// The window goes while the wrapper is still a button, and can clean up.
tvButton::~tvButton() {
    Detach(Window::Destroy);
}

bool tvButton::UsesSystemLook() {
    return TheTheme().m_isSystemDefault && (m_sides == EDGE_ALL || IsVisualStyleActive());
}

void tvButton::OnAutoFit() {}

void tvButton::SetSides(bool left, bool top, bool right, bool bottom) {
    SetSideMask((left ? EDGE_LEFT : 0U) | (top ? EDGE_TOP : 0U) | (right ? EDGE_RIGHT : 0U) |
                (bottom ? EDGE_BOTTOM : 0U));
}

void tvButton::SetSideMask(unsigned mask) {
    m_sides = static_cast<u8>(mask);
    SyncStyle();
    Repaint();
}

void tvButton::SetContentAlign(unsigned mask) {
    u32 align = BS_LEFT;
    if ((mask & ALIGN_CENTER) != 0) {
        align = BS_CENTER;
    } else if ((mask & ALIGN_RIGHT) != 0) {
        align = BS_RIGHT;
    }
    if ((mask & ALIGN_MIDDLE) != 0) {
        align |= BS_VCENTER;
    } else {
        align |= (mask & ALIGN_BOTTOM) != 0 ? UINT{BS_BOTTOM} : UINT{BS_TOP};
    }
    m_style = (m_style & ~static_cast<u32>(BS_CENTER | BS_VCENTER)) | align;
    SyncStyle();
    Repaint();
}

// What the parent shows is shown here too, unless it is hidden here for good.
void tvButton::SetHideFocus(bool on) {
    m_hideFocus = on ? 1 : 0;
    if (!IsAttached()) return;
    const HWND parent = GetAncestor(m_hWnd, GA_PARENT);
    const auto state = static_cast<WORD>(SendMessageW(parent, WM_QUERYUISTATE, 0, 0));
    if (!on && (state & UISF_HIDEFOCUS) == 0) {
        Send(WM_UPDATEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS));
    }
    Send(WM_UPDATEUISTATE, MAKEWPARAM(UIS_SET, state));
}

void tvButton::SetTip(const char16_t* text) {
    if (text == nullptr) {
        m_tip.clear();
    } else {
        m_tip = *text == u'\0' ? tvstring(kTipIsCaption) : tvstring(text);
    }
    RenewTip();
}

void tvButton::RenewTip() const {
    if (!IsAttached()) return;
    RemoveToolTip(m_hWnd);
    const tvstring& tip = m_tip == kTipIsCaption ? m_text : m_tip;
    if (!tip.empty()) AddToolTip(m_hWnd, tip);
}

bool tvButton::IsOwnerDrawn() const {
    return m_hWnd != nullptr && (GetWindowLongPtrW(m_hWnd, GWL_STYLE) & BS_TYPEMASK) == BS_OWNERDRAW;
}

bool tvButton::SyncStyle() {
    if (!IsAttached()) return false;
    const bool isSystems = UsesSystemLook();
    const u32 style = isSystems ? m_style : (m_style & ~static_cast<u32>(BS_TYPEMASK)) | BS_OWNERDRAW;
    const bool changed = ModifyStyle(kStyleMask, style) != 0;
    if (!isSystems && !m_theme && IsVisualStyleActive()) m_theme.Reset(OpenThemeData(m_hWnd, L"Button"));
    return changed;
}

void tvButton::Repaint() {
    if (IsAttached()) ResetBuffer(m_hWnd, Redraw::Yes);
}

void tvButton::OnSubclassed() {
    if (!IsAttached()) return;
    m_hover = 0;
    m_text = TextOfWindow(m_hWnd);
    m_style = static_cast<u32>(GetWindowLongPtrW(m_hWnd, GWL_STYLE)) & kStyleMask;
    SyncStyle();
    if (m_hideFocus != 0) SetHideFocus(true);
    RenewTip();
    OnAutoFit();
}
