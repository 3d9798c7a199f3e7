// What a scroll box knows of its control's bar and of the mouse.
#include <algorithm>

#include "toolkit/control_state.h"
#include "toolkit/rect.h"
#include "toolkit/scroll_box.h"

namespace {

// Some systems tell the thumb's length for that of an arrow.
int LineLength(const SCROLLBARINFO& info) {
    const bool isDoubtful = info.dxyLineButton == info.xyThumbBottom - info.xyThumbTop;
    return isDoubtful ? GetSystemMetrics(SM_CYVSCROLL) : static_cast<int>(info.dxyLineButton);
}

bool IsPartOfBar(int part) {
    return part >= SCROLL_UP && part <= SCROLL_DOWN;
}

}  // namespace

void tvScrollBox::Update() {
    if (!IsAttached()) return;
    const bool hasMoved = Measure();
    if (!RenewHotPart() && !hasMoved) return;
    ResetBuffer(m_hWnd, tvabdraw::Redraw::No);
    Redraw(true);
}

void tvScrollBox::Redraw(bool withUpdate) {
    constexpr UINT kAtOnce = RDW_INVALIDATE | RDW_NOCHILDREN | RDW_UPDATENOW;
    RedrawWindow(m_hWnd, nullptr, nullptr, withUpdate ? kAtOnce : UINT{RDW_INVALIDATE});
}

// --- The bar ---

// True if anything is other than before.
bool tvScrollBox::Measure() {
    const ScrollRects parts = m_parts;
    const ScrollStates states = m_states;
    MeasureBar();
    const auto isSame = [](const RECT& one, const RECT& other) { return EqualRect(&one, &other) != FALSE; };
    return states != m_states || !std::equal(parts.begin(), parts.end(), m_parts.begin(), isSame);
}

void tvScrollBox::MeasureBar() {
    m_parts.fill({});
    m_states.fill(STATE_SYSTEM_UNAVAILABLE);
    const RECT client = ClientOf(m_hWnd);
    m_parts[SCROLL_HOST] = client;
    const HWND child = GetWindow(m_hWnd, GW_CHILD);
    SCROLLBARINFO info{};
    info.cbSize = sizeof info;
    if (child == nullptr || !HasStyle(child, WS_VSCROLL)) return;
    if (GetScrollBarInfo(child, OBJID_VSCROLL, &info) == FALSE || IsRectEmpty(&info.rcScrollBar) != FALSE)
        return;
    ScrollMeasure measure;
    measure.bar = info.rcScrollBar;
    MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<POINT*>(&measure.bar), 2);
    OffsetRect(&measure.bar, static_cast<int>(client.right - m_hasBorder - measure.bar.right), 0);
    measure.line = LineLength(info);
    measure.thumbTop = info.xyThumbTop;
    measure.thumbBottom = info.xyThumbBottom;
    measure.leastThumb = GetSystemMetrics(SM_CYVTHUMB);
    PlaceScrollParts(measure, m_parts);
    std::copy_n(std::begin(info.rgstate), kSystemScrollParts, m_states.begin());
}

bool tvScrollBox::IsUsable() const {
    return IsRectEmpty(&m_parts[SCROLL_BAR]) == FALSE &&
           (m_states[SCROLL_BAR] & STATE_SYSTEM_UNAVAILABLE) == 0;
}

// --- The part under the mouse ---

bool tvScrollBox::IsOfBox(HWND window) const {
    return window != nullptr && (window == m_hWnd || window == m_child);
}

// A point of the client area.
int tvScrollBox::HotPartAt(POINT point) const {
    if (HWND captured = GetCapture()) {
        if (!IsOfBox(captured)) return SCROLL_NONE;
        return IsPartOfBar(m_hotPart) ? m_hotPart : HitScrollPart(m_parts, m_states, point);
    }
    POINT onScreen = point;
    ClientToScreen(m_hWnd, &onScreen);
    HWND under = WindowFromPoint(onScreen);
    if (under != nullptr && !IsOfBox(under)) return SCROLL_NONE;
    return HitScrollPart(m_parts, m_states, point);
}

// With the keyboard the box is lit up as with the mouse.
int tvScrollBox::HotPart() const {
    const int part = HotPartAt(MouseIn(m_hWnd));
    return part == SCROLL_NONE && IsOfBox(GetFocus()) ? static_cast<int>(SCROLL_HOST) : part;
}

// True if it is another one than before.
bool tvScrollBox::RenewHotPart() {
    const int before = m_hotPart;
    m_hotPart = HotPart();
    return m_hotPart != before;
}
