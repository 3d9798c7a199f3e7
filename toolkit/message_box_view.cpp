// The size and the picture of a message box.
#include <algorithm>

#include "toolkit/app.h"
#include "toolkit/draw.h"
#include "toolkit/message_box.h"
#include "toolkit/rect.h"
#include "toolkit/text_draw.h"
#include "toolkit/theme.h"

namespace {

constexpr UINT kTextFlags = DT_WORDBREAK | DT_NOPREFIX | DT_EDITCONTROL | DT_EXPANDTABS;

SIZE ToSize(PixelSize size) {
    return {size.x, size.y};
}

SIZE WrappedSize(HDC dc, HFONT font, const tvstring& text, int width) {
    const tvSelected selected(dc, font);
    RECT rect = {0, 0, width, 0};
    const int height = MeasureText(text, kTextFlags, dc, rect);
    return {Width(rect), height};
}

int CaptionTextWidth(const tvstring& title) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0) == FALSE) return 0;
    const tvFontHandle font(CreateFontIndirectW(&metrics.lfCaptionFont));
    const tvClientDC screen(nullptr);
    const tvSelected selected(screen.Get(), font.Get());
    SIZE size{};
    GetTextExtentPoint32W(screen.Get(), Wide(title.c_str()), static_cast<int>(title.size()), &size);
    return size.cx;
}

int CaptionButtonWidth() {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    return metrics.iCaptionWidth;
}

void Move(HWND control, const RECT& place) {
    SetWindowPos(control, nullptr, place.left, place.top, Width(place), Height(place),
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

// --- Size ---

SIZE tvMessageBox::WorkArea() const {
    HWND window = m_parent != nullptr ? m_parent : GetWindow(m_hWnd, GW_OWNER);
    if (window == nullptr) window = tvApp::MainWindow();
    RECT area{};
    MONITORINFO info{};
    info.cbSize = sizeof info;
    if (window != nullptr &&
        GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &info) != FALSE) {
        area = info.rcWork;
    } else {
        SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    }
    return {Width(area), Height(area)};
}

MessageBoxMetrics tvMessageBox::Measure() const {
    constexpr PixelSize kButton = {50, 14};  // dialog units
    constexpr int kGap = 4;
    constexpr int kLimit = 278;
    RECT window;
    RECT client;
    GetWindowRect(m_hWnd, &window);
    GetClientRect(m_hWnd, &client);
    MessageBoxMetrics metrics;
    metrics.marginX = TheTheme().m_marginX;
    metrics.marginY = TheTheme().m_marginY;
    metrics.border = TheTheme().m_borderWidth;
    metrics.button = ToSize(DialogUnitsToPixels(m_font, kButton.x, kButton.y));
    metrics.gap = DialogUnitsToPixels(m_font, kGap, kGap).x;
    metrics.limit = DialogUnitsToPixels(m_font, kLimit, 0).x;
    metrics.frame = {Width(window) - client.right, Height(window) - client.bottom};
    metrics.workArea = WorkArea();
    if ((m_style & MB_ICONMASK) != MESSAGE_ICON_NONE)
        metrics.icon = TheTheme().m_icons.SizeOf(ICON_INFORMATION);
    metrics.buttons = static_cast<int>(MessageButtonSet(m_style).Buttons().size());
    return metrics;
}

SIZE tvMessageBox::ClientSize() {
    const tvClientDC dc(m_hWnd);
    const tvstring body = m_text.empty() ? tvstring(u"hy") : m_text;
    const auto measureBody = [&](int width) { return WrappedSize(dc.Get(), m_font, body, width); };
    TextMeasure measureHeading;
    if (!m_heading.empty()) {
        measureHeading = [&](int width) {
            return WrappedSize(dc.Get(), TheTheme().m_fontLarge.Get(), m_heading, width);
        };
    }
    const SIZE text = MeasureMessage(m_metrics, measureHeading, measureBody);
    return MessageBoxClient(m_metrics, text, m_checkSize);
}

int tvMessageBox::CaptionWidth(int width) const {
    TITLEBARINFO bar{};
    bar.cbSize = sizeof bar;
    RECT window;
    if (GetTitleBarInfo(m_hWnd, &bar) == FALSE || GetWindowRect(m_hWnd, &window) == FALSE) return width;
    return WidthForCaption(
        m_metrics, width,
        {Width(window), Width(bar.rcTitleBar), CaptionButtonWidth(), CaptionTextWidth(m_title)});
}

void tvMessageBox::FitToContent() {
    m_metrics = Measure();
    m_checkSize = {};
    if (m_checkText != nullptr) {
        m_check.FitToText(0, 0, CheckBoxLimit(m_metrics), m_metrics.workArea.cy, false);
        RECT check;
        GetWindowRect(m_check.Handle(), &check);
        m_checkSize = {Width(check), Height(check)};
    }
    const SIZE client = ClientSize();
    RECT window = {0, 0, client.cx, client.cy};
    AdjustWindowRectEx(&window, static_cast<DWORD>(GetWindowLongPtrW(m_hWnd, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongPtrW(m_hWnd, GWL_EXSTYLE)));
    SetWindowPos(m_hWnd, nullptr, 0, 0, CaptionWidth(Width(window)), Height(window),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    RECT real;
    GetClientRect(m_hWnd, &real);
    PlaceControls({real.right, real.bottom});
    CenterWindow();
}

void tvMessageBox::PlaceControls(SIZE client) {
    for (int i = 0; i < m_metrics.buttons; ++i)
        Move(ButtonAt(i).Handle(), ButtonPlace(m_metrics, client, i));
    const POINT check = CheckBoxPlace(m_metrics, client, m_checkSize);
    Move(m_check.Handle(), BoxAt(check.x, check.y, m_checkSize.cx, m_checkSize.cy));
}

// --- Picture ---

void tvMessageBox::OnPaintDlg(HDC dc, const RECT& rect) {
    RECT area = MessageArea(m_metrics, {Width(rect), Height(rect)}, m_checkSize);
    OffsetRect(&area, rect.left, rect.top);
    DrawIconAt(dc, area);
    area.left += m_metrics.IconColumn();
    if (m_heading.empty()) {
        const int height = WrappedSize(dc, m_font, m_text, Width(area)).cy;
        area.top += std::max((static_cast<int>(m_metrics.icon.cy) - height) / 2, 0);
    } else {
        area.top += DrawHeading(dc, area) + m_metrics.border;
    }
    DrawTextW(dc, Wide(m_text.c_str()), static_cast<int>(m_text.size()), &area, kTextFlags);
}

// Draws it in the middle of the icon's height where it is lower. Gives what it takes with what is above it.
int tvMessageBox::DrawHeading(HDC dc, RECT area) const {
    const HFONT font = TheTheme().m_fontLarge.Get();
    const int height = WrappedSize(dc, font, m_heading, Width(area)).cy;
    const int above = std::max((static_cast<int>(m_metrics.icon.cy) - height) / 2, 0);
    area.top += above;
    const tvSelected selected(dc, font);
    DrawTextW(dc, Wide(m_heading.c_str()), static_cast<int>(m_heading.size()), &area, kTextFlags);
    return above + height;
}

void tvMessageBox::DrawIconAt(HDC dc, const RECT& area) const {
    const RECT place = BoxAt(area.left, area.top, m_metrics.icon.cx, m_metrics.icon.cy);
    if ((m_style & MB_ICONMASK) == MESSAGE_ICON_TICK) {
        DrawMark(dc, place, kNoColor, kNoColor,
                 TheTheme().Color(&tvColorTheme::m_borderActive, COLOR_HOTLIGHT), MarkKind::Tick, 1.0);
    } else if (m_icon != nullptr) {
        DrawIconEx(dc, place.left, place.top, m_icon, m_metrics.icon.cx, m_metrics.icon.cy, 0, nullptr,
                   DI_NORMAL);
    }
}
