#include "toolkit/button_link.h"

#include "toolkit/statics.h"
#include "toolkit/system.h"
#include "toolkit/text_draw.h"
#include "toolkit/theme.h"

namespace {

// The start of a range that takes a new length, with its end, its middle or its start where it was.
int KeptPlace(int from, int to, int length, bool keepsEnd, bool keepsMiddle) {
    if (keepsEnd) return to - length;
    return keepsMiddle ? from + (to - from - length) / 2 : from;
}

}  // namespace

tvButton_Link::~tvButton_Link() {
    Detach(Window::Destroy);
}

bool tvButton_Link::UsesSystemLook() {
    return false;
}

void tvButton_Link::GetColors(const DRAWITEMSTRUCT& item, tvButtonColors& colors) {
    tvButton::GetColors(item, colors);
    const tvTheme& theme = TheTheme();
    colors.m_text = colors.m_disabled != 0 ? theme.Color(&tvColorTheme::m_textGray, COLOR_GRAYTEXT)
                                           : theme.Color(&tvColorTheme::m_link, COLOR_HOTLIGHT);
    colors.m_face = theme.Color(&tvColorTheme::m_base, COLOR_BTNFACE);
    colors.m_frame = theme.Color(&tvColorTheme::m_text, COLOR_BTNTEXT);
}

UINT tvButton_Link::TextFlags() const noexcept {
    const UINT flags = DT_SINGLELINE | DT_EXPANDTABS;
    return m_noPrefix != 0 ? flags | DT_NOPREFIX : flags;
}

void tvButton_Link::OnDraw(HDC dc, const RECT& rect, void* paint) {
    const auto& colors = *static_cast<const tvButtonColors*>(paint);
    FillSolid(dc, rect, colors.m_face);
    SetTextColor(dc, colors.m_text);
    SetBkMode(dc, TRANSPARENT);
    RECT text = rect;
    InflateRect(&text, -1, -1);
    UINT flags = TextFlags() | DT_END_ELLIPSIS | AlignFlags();
    if (m_noPrefix == 0) flags |= PrefixFlag(colors);
    DrawTextW(dc, Wide(m_text.c_str()), static_cast<int>(m_text.size()), &text, flags);
    FillEdges(dc, text, colors.m_text, EDGE_BOTTOM, 1);
    if (colors.m_focus != 0) DrawFocusDots(dc, rect, colors.m_frame);
}

LRESULT tvButton_Link::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SETCURSOR) {
        SetHandCursor();
        return TRUE;
    }
    return tvButton::WindowProc(message, wParam, lParam);
}

void tvButton_Link::OnAutoFit() {
    if (m_autoFit == 0 || !IsAttached()) return;
    constexpr int kMuch = 32000;
    RECT text{0, 0, kMuch, kMuch};
    {
        const tvClientDC dc(m_hWnd);
        const tvSelected selected(dc.Get(), m_font);
        MeasureText(m_text, TextFlags(), dc.Get(), text);
    }
    InflateRect(&text, 1, 1);
    const int width = text.right - text.left;
    const int height = text.bottom - text.top;
    RECT now;
    GetWindowRect(m_hWnd, &now);
    MapWindowPoints(nullptr, GetAncestor(m_hWnd, GA_PARENT), reinterpret_cast<POINT*>(&now), 2);
    const UINT align = AlignFlags();
    const int left = KeptPlace(now.left, now.right, width, (align & DT_RIGHT) != 0, (align & DT_CENTER) != 0);
    const int top =
        KeptPlace(now.top, now.bottom, height, (align & DT_BOTTOM) != 0, (align & DT_VCENTER) != 0);
    const RECT wanted{left, top, left + width, top + height};
    if (EqualRect(&now, &wanted)) return;
    SetWindowPos(m_hWnd, nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}
