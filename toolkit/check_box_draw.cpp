// How a check box is painted, and what it measures for that.
#include <algorithm>

#include "toolkit/check_box.h"
#include "toolkit/statics.h"
#include "toolkit/text_draw.h"
#include "toolkit/theme.h"

namespace {

constexpr int kUsualSide = 13;  // of the box, at 96 pixels an inch
constexpr int kUsualDpi = 96;

// The room that the box is placed in.
RECT InnerOf(RECT client) {
    constexpr int kAcross = 2;
    constexpr int kDown = 3;
    InflateRect(&client, -kAcross, -kDown);
    return client;
}

// Where something of this size lies in a range: at its start, its end or in the middle.
int PlaceDown(const RECT& range, int height, UINT flags) {
    if ((flags & DT_BOTTOM) != 0) return range.bottom - height;
    if ((flags & DT_VCENTER) == 0) return range.top;
    return range.top + (range.bottom - range.top - height) / 2;
}

int PlaceAcross(const RECT& range, int width, UINT flags) {
    if ((flags & DT_RIGHT) != 0) return range.right - width;
    if ((flags & DT_CENTER) == 0) return range.left;
    return range.left + (range.right - range.left - width) / 2;
}

}  // namespace

const tvCheckBox::Box& tvCheckBox::BoxSize() {
    if (m_boxKnown && m_boxFont == m_font) return m_box;
    const tvClientDC dc(m_hWnd);
    const tvSelected selected(dc.Get(), m_font);
    RECT zero{};
    MeasureText(u"0", DT_SINGLELINE, dc.Get(), zero);
    m_box.gap = (zero.right - zero.left) / 2;
    m_box.lineHeight = TheTheme().TextHeight(m_font, nullptr);
    m_box.side = BoxSide(dc.Get(), m_box.lineHeight);
    m_boxFont = m_font;
    m_boxKnown = true;
    return m_box;
}

int tvCheckBox::BoxSide(HDC dc, int lineHeight) const {
    if (!TheTheme().m_isSystemDefault) return std::max(kUsualSide, lineHeight);
    const tvThemeHandle theme(OpenThemeData(m_hWnd, L"Button"));
    SIZE size{};
    if (theme && SUCCEEDED(GetThemePartSize(theme.Get(), dc, BP_CHECKBOX, CBS_UNCHECKEDNORMAL, nullptr,
                                            TS_DRAW, &size))) {
        return size.cx;
    }
    return kUsualSide * GetDeviceCaps(dc, LOGPIXELSX) / kUsualDpi;
}

void tvCheckBox::GetColors(const DRAWITEMSTRUCT& item, tvButtonColors& colors) {
    tvButton::GetColors(item, colors);
    if (!IsInFamily()) return;
    const tvTheme& theme = TheTheme();
    const bool disabled = colors.m_disabled != 0;
    colors.m_face = theme.m_base;
    colors.m_markFill = disabled ? theme.m_button : theme.m_editBg;
    colors.m_mark = disabled || colors.m_hot != 0 ? colors.m_frame : theme.m_icon;
}

void tvCheckBox::OnDraw(HDC dc, const RECT& rect, void* paint) {
    if (!IsInFamily()) {
        tvButton::OnDraw(dc, rect, paint);
        return;
    }
    const auto& colors = *static_cast<const tvButtonColors*>(paint);
    FillSolid(dc, rect, colors.m_face);
    SetTextColor(dc, colors.m_text);
    SetBkMode(dc, TRANSPARENT);
    const Box& size = BoxSize();
    const RECT inner = InnerOf(rect);
    const RECT box = BoxRect(inner, size.side);
    DrawBox(dc, box, colors);
    RECT label = inner;
    if (IsBoxAtRight()) {
        label.right = box.left - size.gap;
    } else {
        label.left = box.right + size.gap;
    }
    DrawLabel(dc, rect, label, colors);
}

bool tvCheckBox::IsBoxAtRight() const {
    return (m_style & BS_LEFTTEXT) != 0 || (GetWindowLongPtrW(m_hWnd, GWL_EXSTYLE) & WS_EX_RIGHT) != 0;
}

RECT tvCheckBox::BoxRect(const RECT& inner, int side) const {
    const int left = IsBoxAtRight() ? inner.right - side : inner.left;
    const int top = PlaceDown(inner, side, m_drawFlags);
    return {left, top, left + side, top + side};
}

void tvCheckBox::DrawBox(HDC dc, const RECT& box, const tvButtonColors& colors) const {
    if (!IsRadio()) {
        constexpr MarkKind kKinds[] = {MarkKind::None, MarkKind::Tick, MarkKind::Filled};
        const MarkKind kind = m_check < std::size(kKinds) ? kKinds[m_check] : MarkKind::None;
        DrawMark(dc, box, colors.m_markFill, colors.m_mark, colors.m_mark, kind, 1.0);
        return;
    }
    FillEllipse(dc, box, colors.m_markFill);
    DrawEllipse(dc, box, colors.m_mark);
    if (m_check != BST_CHECKED) return;
    RECT dot = box;
    const int inset = (box.right - box.left) / 4;
    InflateRect(&dot, -inset, -inset);
    FillEllipse(dc, dot, colors.m_mark);
}

// Aligned to the bottom or the middle, the system would count from the top of the rectangle.
void tvCheckBox::MeasureLabel(HDC dc, RECT& rect) const {
    constexpr UINT kAlign = DT_CENTER | DT_RIGHT | DT_VCENTER | DT_BOTTOM;
    MeasureText(m_text, m_drawFlags & ~kAlign, dc, rect);
}

// What the text covers of its room.
RECT tvCheckBox::TextRect(HDC dc, const RECT& label) const {
    RECT text = label;
    MeasureLabel(dc, text);
    const int width = std::min(text.right - text.left, label.right - label.left);
    const int height = text.bottom - text.top;
    const int left = PlaceAcross(label, width, m_drawFlags);
    const int top = PlaceDown(label, height, m_drawFlags);
    return {left, top, left + width, top + height};
}

// The system centres one line, but not several.
void tvCheckBox::DrawLabel(HDC dc, const RECT& client, const RECT& label,
                           const tvButtonColors& colors) const {
    if (m_text.empty()) return;
    const UINT flags = m_drawFlags | PrefixFlag(colors);
    const RECT text = TextRect(dc, label);
    RECT room{label.left, text.top, label.right, std::min(text.bottom, label.bottom)};
    if ((flags & DT_SINGLELINE) != 0) room = label;
    DrawTextW(dc, Wide(m_text.c_str()), static_cast<int>(m_text.size()), &room, flags);
    if (colors.m_focus == 0) return;
    RECT around = text;
    InflateRect(&around, 1, 1);
    RECT limit = client;
    InflateRect(&limit, -1, -1);
    RECT dots;
    if (IntersectRect(&dots, &around, &limit)) DrawFocusDots(dc, dots, colors.m_text);
}
