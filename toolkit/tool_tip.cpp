#include "toolkit/tool_tip.h"

#include "foundation/textops.h"
#include "toolkit/draw.h"
#include "toolkit/rect.h"
#include "toolkit/theme.h"

namespace {

// The description of a window's tool, in the oldest form that has all fields used here.
TTTOOLINFOW ToolOf(HWND window, UINT flags) {
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.uFlags = flags;
    tool.hwnd = window;
    tool.uId = reinterpret_cast<UINT_PTR>(window);
    return tool;
}

LPARAM Pointer(void* data) {
    return reinterpret_cast<LPARAM>(data);
}

bool IsRelayed(UINT message) {
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONUP:
        case WM_MBUTTONDOWN:
        case WM_MBUTTONUP:
        case WM_MOUSEMOVE:
        case WM_NCMOUSEMOVE:
        case WM_RBUTTONDOWN:
        case WM_RBUTTONUP:
            return true;
        default:
            return false;
    }
}

}  // namespace

void tvToolTipCtrl::Create(HWND parent, DWORD style) {
    if (IsAttached()) return;
    const HWND window = CreateWindowExW(WS_EX_TRANSPARENT, TOOLTIPS_CLASSW, nullptr, WS_POPUP | style,
                                        CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, parent,
                                        nullptr, GetModuleHandleW(nullptr), nullptr);
    if (window == nullptr) return;
    SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(TheTheme().Font()), FALSE);
    SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE);
    SubclassWindow(window);
}

void tvToolTipCtrl::Relay(MSG* msg) {
    if (!IsAttached() || msg->hwnd == m_hWnd || !IsRelayed(msg->message)) return;
    Send(TTM_RELAYEVENT, 0, Pointer(msg));
}

void tvToolTipCtrl::AddTool(HWND window, const tvstring& text) {
    tvstring plain = text;
    CleanCaption(plain, false, KEEP_DOTS);
    // The control copies texts into buffers whose size it is not told.
    if (plain.size() >= kTextCapacity) plain.resize(kTextCapacity - 1);
    TTTOOLINFOW tool = ToolOf(window, TTF_IDISHWND);
    tool.lpszText = Wide(plain.data());
    Send(TTM_ADDTOOLW, 0, Pointer(&tool));
}

void tvToolTipCtrl::AddCallbackTool(HWND window) {
    TTTOOLINFOW tool = ToolOf(window, TTF_IDISHWND);
    tool.lpszText = LPSTR_TEXTCALLBACKW;
    Send(TTM_ADDTOOLW, 0, Pointer(&tool));
}

void tvToolTipCtrl::RemoveTool(HWND window) {
    TTTOOLINFOW tool = ToolOf(window, 0);
    Send(TTM_DELTOOLW, 0, Pointer(&tool));
}

void tvToolTipCtrl::AddTrackingTool(HWND window) {
    TTTOOLINFOW tool = ToolOf(window, TTF_TRACK | TTF_ABSOLUTE);
    tool.lpszText = LPSTR_TEXTCALLBACKW;
    Send(TTM_ADDTOOLW, 0, Pointer(&tool));
}

void tvToolTipCtrl::Track(HWND window, bool show, int x, int y) {
    if (show) {
        RECT place = {x, y, x, y};
        Send(TTM_ADJUSTRECT, TRUE, Pointer(&place));
        Send(TTM_TRACKPOSITION, 0, MAKELPARAM(place.left, place.top));
    }
    TTTOOLINFOW tool = ToolOf(window, 0);
    Send(TTM_TRACKACTIVATE, show ? TRUE : FALSE, Pointer(&tool));
}

void tvToolTipCtrl::SetSize(HWND /*window*/, int width, int height) {
    RECT place = {0, 0, width, height};
    Send(TTM_ADJUSTRECT, TRUE, Pointer(&place));
    SetWindowPos(m_hWnd, nullptr, 0, 0, Width(place), Height(place),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

LRESULT tvToolTipCtrl::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (OnThemeMessage(m_hWnd, message, wParam, lParam, result)) return result;
    const bool systemDefault = TheTheme().m_isSystemDefault;
    switch (message) {
        case WM_NCHITTEST:
            return HTTRANSPARENT;
        case WM_ERASEBKGND:
            if (systemDefault && wParam != 0) return 1;
            break;
        case WM_PAINT:
            if (systemDefault) break;
            OnPaint();
            return 0;
        default:
            break;
    }
    return tvWnd::WindowProc(message, wParam, lParam);
}

void tvToolTipCtrl::OnPaint() {
    const tvPaintDC paint(m_hWnd, tvPaintDC::kWindowFont);
    RECT client;
    GetClientRect(m_hWnd, &client);
    PaintBuffered(m_hWnd, paint.m_dc, client, nullptr, Fade::No);
}

void tvToolTipCtrl::OnDraw(HDC dc, const RECT& rect, void* /*paint*/) {
    SetTextColor(dc, TheTheme().m_text);
    FillSolid(dc, rect, TheTheme().m_base);
    DrawFrame(dc, rect);
    DrawTip(dc, rect);
}

void tvToolTipCtrl::DrawFrame(HDC dc, const RECT& rect) {
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(m_hWnd, GWL_STYLE));
    if ((style & TTS_BALLOON) == 0) {
        FillEdges(dc, rect, TheTheme().m_border, EDGE_ALL, 1);
        return;
    }
    const tvRegionHandle region(CreateRectRgn(0, 0, 0, 0));
    if (GetWindowRgn(m_hWnd, region.Get()) != ERROR)
        FrameRgn(dc, region.Get(), TheTheme().m_borderBrush.Get(), 1, 1);
}

// The text stands where the system would put it: in the window's rectangle less the margins of the control.
void tvToolTipCtrl::DrawTip(HDC dc, const RECT& rect) {
    const tvstring text = CurrentText();
    if (text.empty()) return;
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(m_hWnd, GWL_STYLE));
    RECT place = TextPlace(rect, style);
    const UINT prefix = (style & TTS_NOPREFIX) != 0 ? DT_NOPREFIX : DT_HIDEPREFIX;
    DrawTextW(dc, Wide(text.c_str()), static_cast<int>(text.size()), &place,
              DT_WORDBREAK | DT_EDITCONTROL | prefix);
}

RECT tvToolTipCtrl::TextPlace(const RECT& client, DWORD style) const {
    constexpr int kUsualMargin = 2;
    RECT place = client;
    AdjustWindowRectEx(&place, style, FALSE, static_cast<DWORD>(GetWindowLongPtrW(m_hWnd, GWL_EXSTYLE)));
    const RECT window = place;
    Send(TTM_ADJUSTRECT, FALSE, Pointer(&place));
    // Some controls do not tell their margins.
    return EqualRect(&place, &window) ? Inset(client, kUsualMargin, kUsualMargin) : place;
}

tvstring tvToolTipCtrl::CurrentText() const {
    tvstring text(kTextCapacity, u'\0');  // may be a secret, and is wiped
    TTTOOLINFOW tool = ToolOf(nullptr, 0);
    tool.lpszText = Wide(text.data());
    if (Send(TTM_GETCURRENTTOOLW, 0, Pointer(&tool)) == 0) {
        // A tip that is tracked need not count as the current one.
        GetWindowTextW(m_hWnd, Wide(text.data()), static_cast<int>(text.size()));
    } else if (tool.lpszText == LPSTR_TEXTCALLBACKW) {
        tool.lpszText = Wide(text.data());
        Send(TTM_GETTEXTW, text.size(), Pointer(&tool));
    }
    text.resize(std::u16string_view(text.c_str()).size());
    return text;
}

void AddToolTip(HWND window, const tvstring& text) {
    TheToolTip().Create(nullptr, 0);
    TheToolTip().AddTool(window, text);
}

void RemoveToolTip(HWND window) {
    TheToolTip().RemoveTool(window);
}
