#include "toolkit/status_bar.h"

#include <algorithm>

#include "foundation/textops.h"
#include "toolkit/draw.h"
#include "toolkit/icon_size.h"
#include "toolkit/rect.h"
#include "toolkit/system.h"
#include "toolkit/theme.h"

namespace {

constexpr i32 kUsualFlash = 5000;  // milliseconds
constexpr int kUsualGrip = 16;     // pixels

// The visual style, which all status bars share.
tvThemeHandle& SharedStyle() {
    static tvThemeHandle style;
    return style;
}

void OpenStyle(HWND window) {
    SharedStyle().Reset();
    if (IsVisualStyleActive()) SharedStyle().Reset(OpenThemeData(window, L"STATUS"));
}

// What System Default draws with; null where colours do.
HTHEME StyleInForce() {
    return TheTheme().m_isSystemDefault ? SharedStyle().Get() : nullptr;
}

tvStatusRecord MakeRecord(const tvstring& text, HICON icon, i32 timeout) {
    const SIZE size = IconSize(icon);
    return {text, timeout, icon, 0, size.cx, size.cy};
}

// Puts the icon at the left of the area, in the middle of its height, and takes a square for it out of it.
void PlaceIcon(RECT& text, const tvStatusRecord& record, RECT& icon) {
    if (record.m_icon == nullptr) {
        text.left += TheTheme().m_halfMarginX;
        return;
    }
    const RECT place = BoxAt(text.left, text.top, record.m_iconWidth, Height(text));
    icon = CenteredBox(place, record.m_iconWidth, record.m_iconHeight);
    text.left += std::max(Height(place), record.m_iconWidth) + TheTheme().m_borderWidth;
}

SIZE GripSize(HDC dc) {
    SIZE size{};
    const HTHEME style = StyleInForce();
    if (style != nullptr && SUCCEEDED(GetThemePartSize(style, dc, SP_GRIPPER, 0, nullptr, TS_TRUE, &size)) &&
        size.cx > 0 && size.cy > 0) {
        return size;
    }
    return {kUsualGrip, kUsualGrip};
}

}  // namespace

// --- Messages ---

void tvStatusBar::SetMessage(const tvstring& text, HICON icon) {
    tvstring plain = text;
    CleanCaption(plain, false, CUT_UNLESS_ONE);
    Show(MakeRecord(plain, icon, 0));
}

void tvStatusBar::SetIdle(const tvstring& text, HICON icon, i32 timeout) {
    m_idle = MakeRecord(text, icon, timeout);
    Redraw();
}

void tvStatusBar::Show(const tvStatusRecord& record) {
    m_messageTimer.Stop();
    const i32 timeout = TimeoutOf(record);
    const bool same = record.m_text == m_message.m_text && record.m_timeout == m_message.m_timeout &&
                      record.m_icon == m_message.m_icon && record.m_flash == m_message.m_flash;
    if (same && timeout == 0) return;
    m_message = record;
    if (timeout > 0) m_messageTimer.Start(m_hWnd, static_cast<UINT>(timeout));
    if (record.m_flash != 0) StartFlash(record, timeout);
    Redraw();
}

// How long a message is shown, in milliseconds; it stays for 0 and less.
i32 tvStatusBar::TimeoutOf(const tvStatusRecord& record) const {
    const bool flashes = record.m_flash != 0;
    if (record.m_text.empty()) return 0;
    if (m_idle.m_timeout == 0) return flashes && record.m_timeout == 0 ? kUsualFlash : record.m_timeout;
    const i32 timeout = record.m_timeout != 0 ? record.m_timeout : m_idle.m_timeout;
    return timeout == -1 && !flashes ? 0 : timeout;
}

void tvStatusBar::StartFlash(const tvStatusRecord& record, i32 timeout) {
    m_flashRecord = record;
    // As unsigned numbers, for which -1 is as good as for ever.
    const u64 duration = static_cast<u32>(timeout);
    m_flashTicks = static_cast<u32>(duration * 50 / (u64{static_cast<u32>(m_flashInterval)} * 100));
    m_flashStep = 0;
    m_flashTimer.Start(m_hWnd, static_cast<UINT>(m_flashInterval));
}

tvStatusRecord tvStatusBar::Active() const {
    const bool flashes = m_flashTicks != 0 && !m_flashRecord.m_text.empty();
    tvStatusRecord record = flashes ? m_flashRecord : !m_message.m_text.empty() ? m_message : m_idle;
    if (record.m_icon == nullptr) {
        record.m_icon = m_idle.m_icon;
        record.m_iconWidth = m_idle.m_iconWidth;
        record.m_iconHeight = m_idle.m_iconHeight;
    }
    return record;
}

bool tvStatusBar::BlinksAway() const noexcept {
    return m_flashTicks != 0 && (m_flashStep & 1U) != 0;
}

void tvStatusBar::OnTick(UINT_PTR id) {
    if (m_messageTimer.IsMine(m_hWnd, id)) {
        m_messageTimer.Stop();
        SetMessage(tvstring(), nullptr);
    } else if (m_flashTimer.IsMine(m_hWnd, id)) {
        OnFlashTick();
    }
}

void tvStatusBar::OnFlashTick() {
    if (m_flashStep < m_flashTicks) {
        ++m_flashStep;
    } else {
        m_flashTimer.Stop();
        m_flashTicks = 0;
    }
    Redraw();
}

void tvStatusBar::Redraw() {
    if (IsAttached() && IsWindowVisible(m_hWnd)) InvalidateRect(m_hWnd, nullptr, FALSE);
}

// --- The window ---

void tvStatusBar::OnSubclassed() {
    ModifyStyle(SS_TYPEMASK, SS_OWNERDRAW);
    if (!SharedStyle()) OpenStyle(m_hWnd);
}

LRESULT tvStatusBar::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (OnThemeMessage(m_hWnd, message, wParam, lParam, result)) return result;
    switch (message) {
        case WM_ERASEBKGND:
            return 1;
        case WM_TIMER:
            OnTick(wParam);
            break;
        case WM_SYSCOLORCHANGE:
            if (lParam == reinterpret_cast<LPARAM>(&TheTheme())) Redraw();
            break;
        case WM_THEMECHANGED:
            OpenStyle(m_hWnd);
            break;
        default:
            break;
    }
    result = tvWnd::WindowProc(message, wParam, lParam);
    if (message == WM_SETFONT) FitToFont();
    return result;
}

void tvStatusBar::FitToFont() {
    const int line = TheTheme().TextHeight(m_font, nullptr);
    const int icon = TheTheme().m_icons.SizeOf(ICON_INFORMATION_SMALL).cy;
    const int height = std::max(line, icon) + 2 * TheTheme().m_borderWidth + TheTheme().m_halfMarginY;
    RECT rect;
    GetWindowRect(m_hWnd, &rect);
    SetWindowPos(m_hWnd, nullptr, 0, 0, Width(rect), height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// --- Drawing ---

void tvStatusBar::OnReflectDrawItem(DRAWITEMSTRUCT* item) {
    const tvSelected font(item->hDC, m_font);
    RECT client;
    GetClientRect(m_hWnd, &client);
    PaintBuffered(m_hWnd, item->hDC, client, nullptr, Fade::No);
}

void tvStatusBar::OnDraw(HDC dc, const RECT& rect, void* /*paint*/) {
    const int border = TheTheme().m_borderWidth;
    DrawBack(dc, rect);
    RECT text = {rect.left + border, rect.top + border, rect.right, rect.bottom - border};
    if (m_showGrip && IsZoomed(GetParent(m_hWnd)) == FALSE) {
        const SIZE size = GripSize(dc);
        const RECT grip = {rect.right - size.cx, rect.bottom - size.cy, rect.right, rect.bottom};
        DrawGrip(dc, grip, TheTheme().Color(&tvColorTheme::m_border, COLOR_BTNSHADOW));
        text.right -= size.cx;
    }
    if (BlinksAway()) return;
    SetTextColor(dc, TheTheme().Color(&tvColorTheme::m_text, COLOR_BTNTEXT));
    SetBkMode(dc, TRANSPARENT);
    DrawPanes(dc, text);
    const tvStatusRecord record = Active();
    RECT icon{};
    PlaceIcon(text, record, icon);
    if (record.m_icon != nullptr) DrawIcon(dc, icon, record.m_icon);
    DrawLabel(dc, text, record.m_text);
}

void tvStatusBar::DrawGrip(HDC dc, const RECT& rect, COLORREF color) {
    if (StyleInForce() == nullptr) {
        DrawGripDots(dc, rect, color);
    } else {
        DrawThemeBackground(StyleInForce(), dc, SP_GRIPPER, 0, &rect, nullptr);
    }
}

void tvStatusBar::DrawBack(HDC dc, const RECT& rect) {
    if (const HTHEME style = StyleInForce()) {
        RECT parents = rect;
        if (IsThemeBackgroundPartiallyTransparent(style, 0, 0) != FALSE)
            DrawThemeParentBackground(m_hWnd, dc, &parents);
        DrawThemeBackground(style, dc, 0, 0, &rect, nullptr);
        return;
    }
    FillSolid(dc, rect, TheTheme().Color(&tvColorTheme::m_button, COLOR_BTNFACE));
    FillEdges(dc, rect, TheTheme().Color(&tvColorTheme::m_border, COLOR_BTNSHADOW), EDGE_TOP, 1);
}

void tvStatusBar::DrawLabel(HDC dc, const RECT& rect, const tvstring& text) {
    RECT place = rect;
    DrawTextW(dc, Wide(text.c_str()), static_cast<int>(text.size()), &place,
              DT_VCENTER | DT_SINGLELINE | DT_EXPANDTABS | DT_HIDEPREFIX);
}

void tvStatusBar::DrawIcon(HDC dc, const RECT& rect, HICON icon) {
    DrawIconEx(dc, rect.left, rect.top, icon, Width(rect), Height(rect), 0, nullptr, DI_NORMAL);
}

void tvStatusBar::DrawPanes(HDC /*dc*/, const RECT& /*rect*/) {}
