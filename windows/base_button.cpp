#include "windows/base_button.h"

#include <algorithm>

#include "toolkit/image.h"
#include "toolkit/theme.h"
#include "windows/caption.h"

tvIconHandle MakeThemedIcon(u16 resourceId, COLORREF color) {
    return LoadTintedIcon(resourceId, color);
}

// --- CVMRBaseButton ---

CVMRBaseButton::CVMRBaseButton(i32 widthPercent, i32 heightSpec, u32 iconId, int glyph)
    : tvButton_customIcon(glyph), m_widthPercent(widthPercent), m_heightSpec(heightSpec), m_iconId(iconId) {}

CVMRBaseButton::~CVMRBaseButton() {
    Detach(Window::Destroy);
}

COLORREF CVMRBaseButton::GetIconColour() {
    return TheTheme().Color(&tvColorTheme::m_icon, COLOR_3DDKSHADOW);
}

SIZE CVMRBaseButton::StandardSize() {
    constexpr int kUnitsX = 50;
    constexpr int kUnitsY = 14;
    static HFONT measuredFor = nullptr;
    static SIZE size{};
    if (measuredFor != TheTheme().Font()) {
        measuredFor = TheTheme().Font();
        const PixelSize pixels = DialogUnitsToPixels(measuredFor, kUnitsX, kUnitsY);
        size = {pixels.x, pixels.y};
    }
    return size;
}

SIZE CVMRBaseButton::FittingSize(const SIZE& present) const {
    constexpr int kWhole = 100;
    const SIZE usual = StandardSize();
    SIZE size{};
    size.cy = m_heightSpec < 0 ? -m_heightSpec : std::max<LONG>(m_heightSpec, usual.cy);
    switch (m_widthPercent) {
        case kKeepWidth:
            size.cx = present.cx;
            break;
        case kSquare:
            size.cx = size.cy;
            break;
        default:
            size.cx = usual.cx * (m_widthPercent == kUsualWidth ? kWhole : m_widthPercent) / kWhole;
            break;
    }
    return size;
}

void CVMRBaseButton::OnAutoFit() {
    if (!IsAttached()) return;
    RECT rect{};
    GetWindowRect(m_hWnd, &rect);
    const SIZE present{rect.right - rect.left, rect.bottom - rect.top};
    const SIZE size = FittingSize(present);
    if (size.cx == present.cx && size.cy == present.cy) return;
    SetWindowPos(m_hWnd, nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CVMRBaseButton::RenewIcon() {
    tvIconHandle icon = MakeThemedIcon(static_cast<u16>(m_iconId), GetIconColour());
    Send(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(icon.Get()));
    m_hIcon = std::move(icon);
}

void CVMRBaseButton::SetImage(u32 iconId) {
    if (iconId == m_iconId) return;
    m_iconId = iconId;
    if (IsAttached()) RenewIcon();
}

void CVMRBaseButton::OnSubclassed() {
    tvButton_customIcon::OnSubclassed();
    if (m_iconId != 0) RenewIcon();
}

tvstring CVMRBaseButton::CaptionFrom(const char16_t* text) const {
    tvstring caption(text);
    CutShortcut(caption);
    const LONG_PTR style = GetWindowLongPtrW(GetParent(m_hWnd), GWL_STYLE);
    if ((style & WS_CHILD) != 0) RemoveMarks(caption);
    return caption;
}

LRESULT CVMRBaseButton::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SYSCOLORCHANGE && lParam == reinterpret_cast<LPARAM>(&TheTheme()) && m_iconId != 0) {
        RenewIcon();
    } else if (message == WM_SETTEXT && lParam != 0) {
        const tvstring caption = CaptionFrom(reinterpret_cast<const char16_t*>(lParam));
        return tvButton_customIcon::WindowProc(message, wParam, reinterpret_cast<LPARAM>(caption.c_str()));
    }
    return tvButton_customIcon::WindowProc(message, wParam, lParam);
}
