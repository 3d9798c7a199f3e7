// How a button is painted.
#include "toolkit/button.h"
#include "toolkit/control_state.h"
#include "toolkit/mouse_place.h"
#include "toolkit/statics.h"
#include "toolkit/theme.h"

namespace {

constexpr int kInset = 2;  // between the button's edge and its content
constexpr int kRoundRadius = 10;
constexpr float kRoundPen = 1.5F;

}  // namespace

void tvButton::OnReflectDrawItem(DRAWITEMSTRUCT* item) {
    tvButtonColors colors;
    GetColors(*item, colors);
    PaintBuffered(m_hWnd, item->hDC, ClientOf(m_hWnd), &colors, FadeToNext());
}

tvabdraw::Fade tvButton::FadeToNext() const {
    const bool classic = TheTheme().m_isSystemDefault && !m_theme;
    return m_noAnimation != 0 || classic ? Fade::No : Fade::Yes;
}

// In the state that the system would have the parent tell: nothing else of the item counts for the colours.
void tvButton::PaintWindow() {
    DRAWITEMSTRUCT item{};
    const LRESULT state = Send(BM_GETSTATE);
    const LRESULT cues = Send(WM_QUERYUISTATE);
    if ((state & BST_PUSHED) != 0) item.itemState |= ODS_SELECTED;
    if ((state & BST_FOCUS) != 0) item.itemState |= ODS_FOCUS;
    if (HasStyle(m_hWnd, WS_DISABLED)) item.itemState |= ODS_DISABLED;
    if ((cues & UISF_HIDEACCEL) != 0) item.itemState |= ODS_NOACCEL;
    if ((cues & UISF_HIDEFOCUS) != 0) item.itemState |= ODS_NOFOCUSRECT;
    tvButtonColors colors;
    GetColors(item, colors);
    PaintWhole(m_hWnd, m_font, &colors, FadeToNext());
}

void tvButton::GetColors(const DRAWITEMSTRUCT& item, tvButtonColors& colors) {
    const tvTheme& theme = TheTheme();
    colors.m_frame = theme.m_border;
    colors.m_face = theme.m_button;
    colors.m_text = theme.m_text;
    colors.m_hot = IsUnderMouse(m_hWnd) ? 1 : 0;
    colors.m_pushed = (item.itemState & ODS_SELECTED) != 0 ? 1 : 0;
    colors.m_disabled = (item.itemState & ODS_DISABLED) != 0 ? 1 : 0;
    colors.m_focused = (item.itemState & ODS_FOCUS) != 0 ? 1 : 0;
    const bool disabled = colors.m_disabled != 0;
    if (disabled) {
        colors.m_face = theme.m_buttonDisable;
        colors.m_text = theme.m_textGray;
    } else {
        if (colors.m_hot != 0) colors.m_face = theme.m_buttonOver;
        if (colors.m_pushed != 0) colors.m_face = theme.m_buttonPush;
        const bool active = colors.m_pushed != 0 || colors.m_hot != 0 || colors.m_focused != 0;
        if (active || IsDefault()) colors.m_frame = theme.m_borderActive;
    }
    const bool showFocus = (item.itemState & ODS_NOFOCUSRECT) == 0 && m_hideFocus == 0;
    colors.m_focus = colors.m_focused != 0 && showFocus ? 1 : 0;
    colors.m_showAccel = (item.itemState & ODS_NOACCEL) == 0 ? 1 : 0;
    if (theme.m_isSystemDefault) colors.m_text = SystemTextColor(colors);
}

int tvButton::ThemeState(const tvButtonColors& colors) const noexcept {
    if (colors.m_pushed != 0) return PBS_PRESSED;
    if (colors.m_disabled != 0) return PBS_DISABLED;
    if (colors.m_hot != 0) return PBS_HOT;
    if (colors.m_focused == 0 && !IsDefault()) return PBS_NORMAL;
    return m_alwaysDefault != 0 ? PBS_HOT : PBS_DEFAULTED;
}

COLORREF tvButton::SystemTextColor(const tvButtonColors& colors) const {
    COLORREF color = 0;
    if (m_theme &&
        SUCCEEDED(GetThemeColor(m_theme.Get(), BP_PUSHBUTTON, ThemeState(colors), TMT_TEXTCOLOR, &color))) {
        return color;
    }
    return GetSysColor(colors.m_disabled != 0 ? COLOR_GRAYTEXT : COLOR_BTNTEXT);
}

void tvButton::OnDraw(HDC dc, const RECT& rect, void* paint) {
    const auto& colors = *static_cast<const tvButtonColors*>(paint);
    RECT content = rect;
    DrawGround(dc, content, colors);
    SetTextColor(dc, colors.m_text);
    SetBkMode(dc, TRANSPARENT);
    DrawContent(dc, content, colors);
}

void tvButton::DrawGround(HDC dc, RECT& rect, const tvButtonColors& colors) {
    const bool colored = !TheTheme().m_isSystemDefault;
    if (colored) {
        DrawColored(dc, rect, colors);
    } else if (m_theme) {
        DrawThemed(dc, rect, colors);
    } else {
        DrawClassic(dc, rect, colors);
    }
    if (colors.m_focus != 0) DrawFocusDots(dc, rect, colors.m_text);
    if (!colored && m_theme) return;
    InflateRect(&rect, -1, colored ? -1 : 0);
    if (!colored && colors.m_pushed != 0) OffsetRect(&rect, 1, 1);
}

void tvButton::DrawThemed(HDC dc, RECT& rect, const tvButtonColors& colors) const {
    const int state = ThemeState(colors);
    FillSolid(dc, rect, GetSysColor(COLOR_BTNFACE));
    DrawThemeBackground(m_theme.Get(), dc, BP_PUSHBUTTON, state, &rect, nullptr);
    RECT content;
    if (SUCCEEDED(GetThemeBackgroundContentRect(m_theme.Get(), dc, BP_PUSHBUTTON, state, &rect, &content))) {
        rect = content;
    }
}

void tvButton::DrawClassic(HDC dc, RECT& rect, const tvButtonColors& colors) const {
    FillSolid(dc, rect, GetSysColor(COLOR_BTNFACE));
    if (IsDefault()) {
        FillEdges(dc, rect, GetSysColor(COLOR_WINDOWFRAME), EDGE_ALL, 1);
        InflateRect(&rect, -1, -1);
    }
    if (colors.m_pushed != 0) {
        FillEdges(dc, rect, GetSysColor(COLOR_BTNSHADOW), EDGE_ALL, 1);
        InflateRect(&rect, -1, -1);
    } else {
        RECT inner = rect;
        InflateRect(&inner, -1, -1);
        DrawBevel(dc, rect, GetSysColor(COLOR_3DHILIGHT), GetSysColor(COLOR_3DDKSHADOW), m_sides);
        DrawBevel(dc, inner, GetSysColor(COLOR_3DLIGHT), GetSysColor(COLOR_BTNSHADOW), m_sides);
    }
    InflateRect(&rect, -kInset, -kInset);
}

void tvButton::DrawColored(HDC dc, RECT& rect, const tvButtonColors& colors) const {
    if (m_rounded != 0) {
        FillSolid(dc, rect, TheTheme().m_base);
        ::RoundRect(dc, rect, kRoundRadius, colors.m_face, colors.m_frame, kRoundPen);
    } else {
        FillSolid(dc, rect, colors.m_face);
        FillEdges(dc, rect, colors.m_frame, m_sides, 1);
    }
    InflateRect(&rect, -kInset, -kInset);
}

UINT tvButton::AlignFlags() const noexcept {
    UINT flags = DT_CENTER;
    const u32 across = m_style & BS_CENTER;
    if (across == BS_LEFT) flags = DT_LEFT;
    if (across == BS_RIGHT) flags = DT_RIGHT;
    const u32 down = m_style & BS_VCENTER;
    if (down == BS_TOP) return flags | DT_TOP;
    return flags | (down == BS_BOTTOM ? DT_BOTTOM : DT_VCENTER);
}

void tvButton::DrawContent(HDC dc, RECT rect, const tvButtonColors& colors) {
    const UINT flags = DT_SINGLELINE | DT_EXPANDTABS | AlignFlags() | PrefixFlag(colors);
    DrawTextW(dc, Wide(m_text.c_str()), static_cast<int>(m_text.size()), &rect, flags);
}
