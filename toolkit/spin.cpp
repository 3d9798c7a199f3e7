#include "toolkit/spin.h"

#include <algorithm>
#include <array>
#include <utility>

#include "toolkit/control_state.h"
#include "toolkit/draw.h"
#include "toolkit/font.h"
#include "toolkit/handle.h"
#include "toolkit/rect.h"
#include "toolkit/theme.h"

namespace {

constexpr int kOverlap = 2;  // of spin and buddy, whose frames meet there

// The middle pixel belongs to the first half.
std::array<RECT, 2> Halves(const RECT& rect, bool horizontal) {
    std::array<RECT, 2> halves{rect, rect};
    if (horizontal) {
        halves[0].right = halves[1].left = (rect.left + rect.right - 1) / 2 + 1;
    } else {
        halves[0].bottom = halves[1].top = (rect.top + rect.bottom - 1) / 2 + 1;
    }
    return halves;
}

// Cuts the window off at the side where the spin is.
void CutFrame(HWND window, const RECT& place, bool atLeft) {
    tvRegionHandle region(
        CreateRectRgn(atLeft ? kOverlap : 0, 0, Width(place) - (atLeft ? 0 : kOverlap), Height(place)));
    // The system owns the region from then on.
    if (SetWindowRgn(window, region.Get(), TRUE) != 0) static_cast<void>(region.Detach());
}

}  // namespace

tvSpinCtrl::~tvSpinCtrl() {
    Detach(Window::Destroy);
}

bool tvSpinCtrl::Create(HWND parent, int id, DWORD style) {
    if (IsAttached()) return false;
    const HWND window = CreateWindowExW(WS_EX_NOPARENTNOTIFY, UPDOWN_CLASSW, nullptr, WS_CHILD | style, 0, 0,
                                        0, 0, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                                        GetModuleHandleW(nullptr), nullptr);
    if (window == nullptr) return false;
    const auto font = reinterpret_cast<WPARAM>(TheTheme().Font());
    SendMessageW(window, WM_SETFONT, font, FALSE);
    SubclassWindow(window);
    // The control keeps no font, so that only the wrapper can.
    if (m_font == nullptr) Send(WM_SETFONT, font);
    return true;
}

void tvSpinCtrl::OnSubclassed() {
    m_tracking = 0;
    m_hotPart = 0;
    OnAutoFit();
}

// --- Messages ---

LRESULT tvSpinCtrl::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (OnThemeMessage(m_hWnd, message, wParam, lParam, result)) return result;
    if (BeforeDefault(message, lParam, result)) return result;
    result = tvWnd::WindowProc(message, wParam, lParam);
    AfterDefault(message);
    return result;
}

// True if the message is done with.
bool tvSpinCtrl::BeforeDefault(UINT message, LPARAM lParam, LRESULT& result) {
    const bool colored = !TheTheme().m_isSystemDefault;
    switch (message) {
        case WM_ERASEBKGND:
            result = 1;
            return true;
        case WM_PAINT:
            if (colored) PaintWindow();
            return colored;
        case WM_SYSCOLORCHANGE:
            if (lParam != reinterpret_cast<LPARAM>(&TheTheme())) return false;
            OnThemeChosen();
            return true;
        case WM_MOUSEMOVE:
            if (colored) OnMouseInside();
            return false;
        case WM_MOUSELEAVE:
            m_tracking = 0;
            HitPart();
            return false;
        default:
            return false;
    }
}

void tvSpinCtrl::AfterDefault(UINT message) {
    switch (message) {
        case WM_SETFONT:
            OnAutoFit();
            break;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONUP:
        case WM_CAPTURECHANGED:
        case WM_ENABLE:
            if (!TheTheme().m_isSystemDefault) InvalidateRect(m_hWnd, nullptr, FALSE);
            break;
        default:
            break;
    }
}

// The system paints its buttons alone, and the ground is never erased.
void tvSpinCtrl::OnThemeChosen() {
    if (TheTheme().m_isSystemDefault) {
        const bool joined = BuddySide() != Side::None;
        const tvClientDC dc(m_hWnd);
        FillSolid(dc.Get(), ClientOf(m_hWnd), GetSysColor(joined ? COLOR_WINDOW : COLOR_BTNFACE));
    }
    ResetBuffer(m_hWnd, Redraw::Yes);
}

void tvSpinCtrl::OnMouseInside() {
    HitPart();
    if (m_tracking != 0) return;
    m_tracking = 1;
    TrackMouseLeaving(m_hWnd);
}

void tvSpinCtrl::HitPart() {
    u8 part = 0;
    if (IsMouseInside(m_hWnd)) {
        const RECT first = Halves(ClientOf(m_hWnd), IsHorizontal())[0];
        part = PtInRect(&first, MouseIn(m_hWnd)) != FALSE ? 1 : 2;
    }
    if (part != std::exchange(m_hotPart, part)) InvalidateRect(m_hWnd, nullptr, FALSE);
}

// --- The buddy ---

bool tvSpinCtrl::IsHorizontal() const {
    return HasStyle(m_hWnd, UDS_HORZ);
}

tvSpinCtrl::Side tvSpinCtrl::BuddySide() const {
    if (Send(UDM_GETBUDDY) == 0) return Side::None;
    if (HasStyle(m_hWnd, UDS_ALIGNLEFT)) return Side::Left;
    return HasStyle(m_hWnd, UDS_ALIGNRIGHT) ? Side::Right : Side::None;
}

HWND tvSpinCtrl::BuddyFrame() const {
    const HWND parent = GetAncestor(m_hWnd, GA_PARENT);
    auto* window = reinterpret_cast<HWND>(Send(UDM_GETBUDDY));
    while (window != nullptr && GetAncestor(window, GA_PARENT) != parent)
        window = GetAncestor(window, GA_PARENT);
    return window;
}

void tvSpinCtrl::OnAutoFit() {
    constexpr UINT kMoved = SWP_NOZORDER | SWP_NOACTIVATE;
    constexpr PixelSize kUnits{10, 14};
    if (!IsAttached() || m_font == nullptr) return;
    const PixelSize size = DialogUnitsToPixels(m_font, kUnits.x, kUnits.y);
    const RECT now = PlaceInParent(m_hWnd);
    const HWND buddy = BuddyFrame();
    if (buddy == nullptr) {
        SetWindowPos(m_hWnd, nullptr, now.left, now.top, size.x, size.y, kMoved);
        return;
    }
    const RECT place = PlaceInParent(buddy);
    const Side side = BuddySide();
    int left = now.left;
    if (side == Side::Left) {
        left = place.left + kOverlap;
        SetWindowPos(buddy, nullptr, place.left + size.x, place.top, 0, 0, kMoved | SWP_NOSIZE);
    } else if (side == Side::Right) {
        left = place.right - kOverlap;
    }
    if (side != Side::None) CutFrame(buddy, place, side == Side::Left);
    SetWindowPos(m_hWnd, nullptr, left, place.top, size.x, Height(place), kMoved);
}

// --- Drawing ---

void tvSpinCtrl::PaintWindow() {
    PaintWhole(m_hWnd, m_font, nullptr, Fade::Yes);
}

bool tvSpinCtrl::IsPushed(int part) const {
    return m_hotPart == part && GetCapture() == m_hWnd && GetKeyState(VK_LBUTTON) < 0;
}

void tvSpinCtrl::OnDraw(HDC dc, const RECT& rect, void* /*paint*/) {
    const bool horizontal = IsHorizontal();
    const Side side = BuddySide();
    RECT inner = Inset(rect, 1, 1);
    if (side == Side::None) {
        DrawBack(dc, rect);
    } else {
        DrawBuddyEdge(dc, rect, side == Side::Left);
        inner = Inset(rect, kOverlap, kOverlap);
    }
    const auto halves = Halves(inner, horizontal);
    DrawPart(dc, halves[0], false, IsPushed(1), horizontal);
    DrawPart(dc, halves[1], true, IsPushed(2), horizontal);
}

void tvSpinCtrl::DrawBack(HDC dc, const RECT& rect) {
    FillSolid(dc, rect, TheTheme().m_base);
}

void tvSpinCtrl::DrawBuddyEdge(HDC dc, const RECT& rect, bool left) {
    const unsigned open = left ? EDGE_RIGHT : EDGE_LEFT;
    FillSolid(dc, rect, TheTheme().m_editBg);
    FillEdges(dc, rect, TheTheme().m_border, EDGE_ALL & ~open, 1);
}

void tvSpinCtrl::DrawPart(HDC dc, const RECT& rect, bool second, bool pushed, bool horizontal) {
    constexpr int kLeastTriangle = 5;
    const tvTheme& theme = TheTheme();
    const bool hot = m_hotPart == (second ? 2 : 1);
    COLORREF face = theme.m_button;
    if (hot) face = pushed ? theme.m_buttonPush : theme.m_buttonOver;
    FillSolid(dc, rect, face);
    FillEdges(dc, rect, hot ? theme.m_borderActive : theme.m_border, EDGE_ALL, 1);
    DrawTriangle(dc, rect, theme.m_text, theme.m_text, std::max(Width(rect) / 3, kLeastTriangle),
                 horizontal ? Axis::Horizontal : Axis::Vertical,
                 second ? Heading::Forward : Heading::Backward);
}
