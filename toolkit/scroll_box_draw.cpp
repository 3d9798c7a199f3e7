// How a scroll box is painted.
#include "toolkit/control_state.h"
#include "toolkit/draw.h"
#include "toolkit/rect.h"
#include "toolkit/scroll_box.h"
#include "toolkit/theme.h"

// A thumb that moves must not fade.
void tvScrollBox::PaintBox() {
    const bool moves = IsActive() && m_hasVScroll != 0 && IsUsable();
    PaintWhole(m_hWnd, m_font, nullptr, moves ? Fade::No : Fade::Yes);
}

void tvScrollBox::OnPaintDlg(HDC dc, const RECT& rect) {
    const tvTheme& theme = TheTheme();
    FillSolid(dc, rect,
              m_fillBase != 0 ? theme.Color(&tvColorTheme::m_base, COLOR_BTNFACE)
                              : theme.Color(&tvColorTheme::m_editBg, COLOR_WINDOW));
    if (m_hasBorder != 0) {
        const bool isLit = m_frameFollowsHot != 0 && m_hotPart != SCROLL_NONE;
        FillEdges(dc, rect,
                  isLit ? theme.Color(&tvColorTheme::m_borderActive, COLOR_HOTLIGHT)
                        : theme.Color(&tvColorTheme::m_border, COLOR_BTNSHADOW),
                  EDGE_ALL, 1);
    }
    if (IsRectEmpty(&m_parts[SCROLL_BAR]) != FALSE) return;
    if (!theme.m_isSystemDefault) {
        DrawColored(dc);
    } else if (m_theme) {
        DrawThemed(dc);
    } else {
        DrawClassic(dc);
    }
}

// While it is dragged it is where the mouse has it, not where the position that comes of that would put it.
RECT tvScrollBox::ThumbPlace() const {
    return IsDragging() ? m_drag.thumb : m_parts[SCROLL_THUMB];
}

bool tvScrollBox::IsHeld(int part) const {
    if (part == SCROLL_THUMB) return IsDragging();
    return (m_states[static_cast<std::size_t>(part)] & STATE_SYSTEM_PRESSED) != 0;
}

bool tvScrollBox::IsBarHot() const {
    return m_hotPart != SCROLL_NONE && m_hotPart != SCROLL_HOST;
}

// --- In colours ---

void tvScrollBox::DrawColored(HDC dc) const {
    constexpr int kThumbInset = 2;
    constexpr int kArrowMargins = 8;
    const tvTheme& theme = TheTheme();
    const COLORREF idle = IsBarHot() ? theme.m_border : theme.m_button;
    const COLORREF active = IsUsable() ? theme.m_icon : theme.m_button;
    const RECT& bar = m_parts[SCROLL_BAR];
    FillSolid(dc, Inset(bar, 0, -1), theme.m_base);
    const RECT thumb = Inset(ThumbPlace(), kThumbInset, 0);
    if (IsUsable() && IsRectEmpty(&thumb) == FALSE)
        FillSolid(dc, thumb, IsHeld(SCROLL_THUMB) ? active : idle);
    const auto drawArrow = [&](int part, Heading heading) {
        const COLORREF color = IsHeld(part) ? active : idle;
        DrawTriangle(dc, m_parts[static_cast<std::size_t>(part)], color, color, Width(bar) - kArrowMargins,
                     Axis::Vertical, heading);
    };
    drawArrow(SCROLL_UP, Heading::Backward);
    drawArrow(SCROLL_DOWN, Heading::Forward);
}

// --- As the system does it ---

int tvScrollBox::ThemeState(int part, const ThemeStates& states) const {
    if (!IsUsable()) return states.disabled;
    if (m_hotPart == part || IsHeld(part)) return IsHeld(part) ? states.hot + 1 : states.hot;
    return IsBarHot() ? states.lit : states.usual;
}

void tvScrollBox::DrawThemed(HDC dc) const {
    const auto draw = [&](int part, int state, const RECT& rect) {
        if (IsRectEmpty(&rect) == FALSE) DrawThemeBackground(m_theme.Get(), dc, part, state, &rect, nullptr);
    };
    const auto trackState = [&](int part) {
        if (!IsUsable()) return static_cast<int>(SCRBS_DISABLED);
        return static_cast<int>(m_hotPart == part ? SCRBS_HOT : SCRBS_NORMAL);
    };
    const RECT& up = m_parts[SCROLL_UP];
    const RECT& down = m_parts[SCROLL_DOWN];
    const RECT thumb = ThumbPlace();
    const bool hasThumb = IsUsable() && IsRectEmpty(&thumb) == FALSE;
    // The two pages meet behind the thumb.
    const int middle = static_cast<int>(hasThumb ? thumb.top + thumb.bottom : up.bottom + down.top) / 2;
    draw(SBP_UPPERTRACKVERT, trackState(SCROLL_PAGE_UP), {up.left, up.bottom, up.right, middle});
    draw(SBP_LOWERTRACKVERT, trackState(SCROLL_PAGE_DOWN), {up.left, middle, up.right, down.top});
    if (hasThumb) {
        const int state = ThemeState(SCROLL_THUMB, {SCRBS_NORMAL, SCRBS_HOVER, SCRBS_HOT, SCRBS_DISABLED});
        draw(SBP_THUMBBTNVERT, state, thumb);
        draw(SBP_GRIPPERVERT, state, thumb);
    }
    draw(SBP_ARROWBTN, ThemeState(SCROLL_UP, {ABS_UPNORMAL, ABS_UPHOVER, ABS_UPHOT, ABS_UPDISABLED}), up);
    draw(SBP_ARROWBTN,
         ThemeState(SCROLL_DOWN, {ABS_DOWNNORMAL, ABS_DOWNHOVER, ABS_DOWNHOT, ABS_DOWNDISABLED}), down);
}

void tvScrollBox::DrawClassic(HDC dc) const {
    constexpr UINT kThumb = DFCS_BUTTONPUSH | DFCS_ADJUSTRECT;
    const LRESULT answer = SendMessageW(GetParent(m_hWnd), WM_CTLCOLORSCROLLBAR, reinterpret_cast<WPARAM>(dc),
                                        reinterpret_cast<LPARAM>(m_hWnd));
    auto* ground =
        reinterpret_cast<HBRUSH>(answer);  // NOLINT(performance-no-int-to-ptr): as the message has it
    FillRect(dc, &m_parts[SCROLL_BAR], ground != nullptr ? ground : GetSysColorBrush(COLOR_SCROLLBAR));
    RECT thumb = ThumbPlace();
    if (IsUsable() && IsRectEmpty(&thumb) == FALSE) DrawFrameControl(dc, &thumb, DFC_BUTTON, kThumb);
    const auto drawArrow = [&](int part, UINT which) {
        RECT rect = m_parts[static_cast<std::size_t>(part)];
        UINT state = which | DFCS_ADJUSTRECT;
        if (!IsUsable()) state |= DFCS_INACTIVE;
        if (IsHeld(part)) state |= DFCS_PUSHED;
        DrawFrameControl(dc, &rect, DFC_SCROLL, state);
    };
    drawArrow(SCROLL_UP, DFCS_SCROLLUP);
    drawArrow(SCROLL_DOWN, DFCS_SCROLLDOWN);
}
