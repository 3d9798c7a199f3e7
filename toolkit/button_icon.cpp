#include "toolkit/button_icon.h"

#include <utility>

#include "toolkit/icon_size.h"
#include "toolkit/statics.h"
#include "toolkit/theme.h"

tvButton_Icon::~tvButton_Icon() {
    Detach(Window::Destroy);
}

bool tvButton_Icon::UsesSystemLook() {
    return !HasPicture() && tvButton::UsesSystemLook();
}

LRESULT tvButton_Icon::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == BM_SETIMAGE && wParam == IMAGE_ICON) {
        return SetIcon(reinterpret_cast<HICON>(lParam));  // NOLINT(performance-no-int-to-ptr)
    }
    if (message == BM_GETIMAGE && wParam == IMAGE_ICON) return reinterpret_cast<LRESULT>(m_icon);
    return tvButton::WindowProc(message, wParam, lParam);
}

// Gives the icon before.
LRESULT tvButton_Icon::SetIcon(HICON icon) {
    const HICON old = std::exchange(m_icon, icon);
    const SIZE size = IconSize(icon);
    m_iconWidth = size.cx;
    m_iconHeight = size.cy;
    SyncStyle();
    SetTip(HasPicture() ? u"" : nullptr);
    OnAutoFit();
    Repaint();
    return reinterpret_cast<LRESULT>(old);
}

void tvButton_Icon::DrawIconAt(HDC dc, int x, int y) const {
    DrawIconEx(dc, x, y, m_icon, m_iconWidth, m_iconHeight, 0, nullptr, DI_NORMAL);
}

void tvButton_Icon::DrawContent(HDC dc, RECT rect, const tvButtonColors& colors) {
    if (m_icon == nullptr) {
        tvButton::DrawContent(dc, rect, colors);
        return;
    }
    DrawIconAt(dc, rect.left + (rect.right - rect.left - m_iconWidth) / 2,
               rect.top + (rect.bottom - rect.top - m_iconHeight) / 2);
}

tvButton_customIcon::tvButton_customIcon(int glyph) : m_glyph(glyph) {
    if (glyph != GLYPH_NONE) tvButton::SetTip(u"");
}

tvButton_customIcon::~tvButton_customIcon() {
    Detach(Window::Destroy);
}

bool tvButton_customIcon::HasPicture() const noexcept {
    return m_glyph != GLYPH_NONE || m_icon != nullptr;
}

bool tvButton_customIcon::HasGlyph() const noexcept {
    return m_glyph > GLYPH_NONE && m_glyph <= kGlyphs;
}

void tvButton_customIcon::GetColors(const DRAWITEMSTRUCT& item, tvButtonColors& colors) {
    tvButton_Icon::GetColors(item, colors);
    if (m_glyph == GLYPH_NONE) return;
    if (colors.m_disabled == 0) {
        colors.m_text = TheTheme().Color(&tvColorTheme::m_icon, COLOR_3DDKSHADOW);
    } else if (TheTheme().m_isSystemDefault) {
        colors.m_text = GetSysColor(COLOR_BTNSHADOW);
    }
}

void tvButton_customIcon::DrawContent(HDC dc, RECT rect, const tvButtonColors& colors) {
    if (HasGlyph()) {
        const COLORREF background = TheTheme().m_isSystemDefault ? GetSysColor(COLOR_BTNFACE) : colors.m_face;
        DrawGlyph(dc, rect, m_glyph, colors.m_text, background);
    } else {
        tvButton_Icon::DrawContent(dc, rect, colors);
    }
}
