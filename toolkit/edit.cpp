#include "toolkit/edit.h"

#include <algorithm>

#include "toolkit/control_state.h"
#include "toolkit/draw.h"
#include "toolkit/rect.h"
#include "toolkit/theme.h"

namespace {

constexpr DWORD kScrollBars = WS_VSCROLL | WS_HSCROLL;
constexpr DWORD kEdges = WS_EX_WINDOWEDGE | WS_EX_CLIENTEDGE | WS_EX_STATICEDGE;

bool IsSelectAll(WPARAM key) {
    return key == 'A' && GetKeyState(VK_CONTROL) < 0 && GetKeyState(VK_MENU) >= 0;
}

}  // namespace

// The window goes while the wrapper is still an edit box, and can clean up.
tvEdit::~tvEdit() {
    Detach(Window::Destroy);
}

void tvEdit::OnSubclassed() {
    if (!IsAttached()) return;
    m_frameReady = 0;
    m_tracking = 0;
    m_longest = 0;
    m_baseHeight = Height(ClientOf(m_hWnd));
    if (HasStyle(m_hWnd, ES_PASSWORD)) KeepSecret();
    NoteLength();
    if (!ActiveCue().text.empty()) SendCue();
    FitHeight();
    AttachScrollBox();
}

void tvEdit::AttachScrollBox() {
    if (m_useScrollBox == 0 || !TheTheme().m_ready || TheTheme().m_isSystemDefault) return;
    const bool hasFrame =
        HasStyle(m_hWnd, kScrollBars | WS_BORDER) || (ExStyleOfWindow(m_hWnd) & kEdges) != 0;
    if (!hasFrame) return;
    m_scrollBox.m_frameFollowsHot = 1;
    m_scrollBox.Attach(m_hWnd);
}

// --- Messages ---

LRESULT tvEdit::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (OnThemeMessage(m_hWnd, message, wParam, lParam, result)) return result;
    if (message == WM_NCCALCSIZE) m_frameReady = 1;
    if (m_scrollBox.BeforeControl(message, wParam, lParam, result)) return result;
    if (BeforeDefault(message, wParam, lParam, result)) return result;
    result = tvWnd::WindowProc(message, wParam, lParam);
    AfterDefault(message);
    m_scrollBox.AfterControl(message);
    return result;
}

// True if the message is done with.
bool tvEdit::BeforeDefault(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case WM_DESTROY:
            if (m_secret) Wipe();
            return false;
        case WM_PAINT:
            if (!ShouldShowCue()) return false;
            PaintCue();
            return true;
        case WM_NCPAINT:
            return OnFramePaint(wParam, lParam);
        case WM_MOUSEMOVE:
            OnMouseInside();
            return false;
        case WM_MOUSELEAVE:
            OnMouseGone();
            return false;
        case WM_KEYDOWN:
            if (!IsSelectAll(wParam)) return false;
            Send(EM_SETSEL, 0, -1);
            return true;
        case WM_SYSCOLORCHANGE:
            if (lParam != reinterpret_cast<LPARAM>(&TheTheme())) return false;
            RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME);
            return true;
        case EM_SETCUEBANNER:
            result = TRUE;
            return TakeCue(wParam, lParam);
        case EM_SETPASSWORDCHAR:
            if (wParam != 0) KeepSecret();
            return false;
        default:
            return false;
    }
}

void tvEdit::AfterDefault(UINT message) {
    switch (message) {
        case WM_SIZE:
        case WM_SETFONT:
            FitHeight();
            break;
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            RefreshFrame();
            InvalidateCue();
            break;
        case WM_SETTEXT:
        case WM_CHAR:
        case WM_KEYDOWN:
        case WM_PASTE:
        case WM_UNDO:
        case EM_UNDO:
        case EM_REPLACESEL:
            NoteLength();
            break;
        default:
            break;
    }
}

// --- Colours ---

bool tvEdit::IsGray() const {
    return HasStyle(m_hWnd, WS_DISABLED | ES_READONLY);
}

bool tvEdit::GetTextColor(COLORREF& color) {
    const tvTheme& theme = TheTheme();
    if (HasStyle(m_hWnd, WS_DISABLED)) {
        color = theme.Color(&tvColorTheme::m_textGray, COLOR_GRAYTEXT);
    } else {
        const bool readOnly = HasStyle(m_hWnd, ES_READONLY);
        color = theme.Color(&tvColorTheme::m_text, readOnly ? COLOR_BTNTEXT : COLOR_WINDOWTEXT);
    }
    return false;
}

void tvEdit::OnReflectCtlColor(HDC dc, LRESULT* result) {
    const tvTheme& theme = TheTheme();
    COLORREF color = 0;
    const bool fixed = GetTextColor(color);
    if (theme.m_isSystemDefault && !fixed) return;
    const bool gray = IsGray();
    SetTextColor(dc, color);
    SetBkColor(dc, gray ? theme.Color(&tvColorTheme::m_base, COLOR_BTNFACE)
                        : theme.Color(&tvColorTheme::m_editBg, COLOR_WINDOW));
    if (theme.m_isSystemDefault) return;
    *result = reinterpret_cast<LRESULT>(gray ? theme.m_baseBrush.Get() : theme.m_editBrush.Get());
}

// --- The frame ---

bool tvEdit::IsFrameActive() const {
    return GetFocus() == m_hWnd || IsMouseInside(m_hWnd);
}

// True if the frame is painted. In a scroll box there is none; what the system makes of the first request
// then still is to be taken from it.
bool tvEdit::OnFramePaint(WPARAM wParam, LPARAM lParam) {
    constexpr UINT kRefresh = SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED;
    if (m_scrollBox.IsActive()) {
        if (m_frameReady == 0) SetWindowPos(m_hWnd, nullptr, 0, 0, 0, 0, kRefresh);
        return true;
    }
    if (TheTheme().m_isSystemDefault) return false;
    if (HasStyle(m_hWnd, kScrollBars)) tvWnd::WindowProc(WM_NCPAINT, wParam, lParam);
    PaintFrame();
    return true;
}

// Mouse or keyboard have come or gone. A scroll box looks when the control is painted, however little of it.
void tvEdit::RefreshFrame() {
    constexpr RECT kPixel{0, 0, 1, 1};
    if (m_scrollBox.IsActive()) {
        InvalidateRect(m_hWnd, &kPixel, FALSE);
    } else if (!TheTheme().m_isSystemDefault) {
        PaintFrame();
    }
}

void tvEdit::PaintFrame() const {
    const tvTheme& theme = TheTheme();
    const COLORREF frame = IsFrameActive() ? theme.m_borderActive : theme.m_border;
    if (HasStyle(m_hWnd, kScrollBars)) {
        FrameAroundBars(m_hWnd, theme.m_editBg, frame);
    } else {
        FrameNonClient(m_hWnd, theme.m_editBg, frame);
    }
}

void tvEdit::OnMouseInside() {
    if (m_tracking != 0) return;
    m_tracking = 1;
    TrackMouseLeaving(m_hWnd);
    RefreshFrame();
}

void tvEdit::OnMouseGone() {
    m_tracking = 0;
    RefreshFrame();
}

void tvEdit::FitHeight() {
    if (!IsAttached() || m_autoHeight < 0 || HasStyle(m_hWnd, ES_MULTILINE)) return;
    const HWND outer = m_scrollBox.IsActive() ? m_scrollBox.Handle() : m_hWnd;
    RECT now{};
    GetWindowRect(outer, &now);
    RECT frame{};
    AdjustWindowRectEx(&frame, StyleOfWindow(m_hWnd), FALSE, ExStyleOfWindow(m_hWnd));
    RECT boxFrame{};
    if (m_scrollBox.IsActive()) m_scrollBox.GetFrame(boxFrame);
    const int height = WantedHeight() + Height(frame) + static_cast<int>(boxFrame.top + boxFrame.bottom);
    if (height == Height(now)) return;
    SetWindowPos(outer, nullptr, 0, 0, Width(now), height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// Of the client area.
int tvEdit::WantedHeight() const {
    constexpr int kExact = 1;
    constexpr int kMost = 2;
    RECT text{};
    Send(EM_GETRECT, 0, reinterpret_cast<LPARAM>(&text));
    const int margin = std::min(static_cast<int>(text.top), kMost) + 2;
    const int height = TheTheme().TextHeight(m_font, nullptr) + 2 * margin;
    return m_autoHeight == kExact ? height : std::max(height, m_baseHeight + static_cast<int>(text.top));
}
