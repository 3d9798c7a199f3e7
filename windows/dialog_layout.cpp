#include "windows/dialog_layout.h"

#include <algorithm>

#include "toolkit/control_state.h"
#include "toolkit/draw.h"
#include "toolkit/handle.h"
#include "toolkit/rect.h"
#include "toolkit/scroll_box.h"
#include "toolkit/text_draw.h"
#include "toolkit/theme.h"

RECT ContentOf(const RECT& client) {
    return Inset(client, TheTheme().m_marginX, TheTheme().m_marginY);
}

int FittingContentWidth(int width, int buttonWidth) {
    const int gap = TheTheme().m_gapX;
    return std::clamp(width, 4 * buttonWidth + 3 * gap, 5 * buttonWidth + 4 * gap);
}

int HeightOfText(HWND dialog, HFONT font, const tvstring& text, int width, UINT flags) {
    const tvClientDC dc(dialog);
    const tvSelected selected(dc.Get(), font);
    RECT rect{0, 0, width, 0};
    return MeasureText(text, flags, dc.Get(), rect);
}

SIZE SizeOf(const tvWnd& window) {
    RECT rect{};
    GetWindowRect(tvScrollBox::OuterOf(window.Handle()), &rect);
    return {rect.right - rect.left, rect.bottom - rect.top};
}

RECT PlaceOf(const tvWnd& window) {
    return PlaceInParent(tvScrollBox::OuterOf(window.Handle()));
}

void MoveTo(const tvWnd& window, int x, int y) {
    SetWindowPos(window.Handle(), nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void Place(const tvWnd& window, const RECT& rect) {
    SetWindowPos(window.Handle(), nullptr, static_cast<int>(rect.left), static_cast<int>(rect.top),
                 Width(rect), Height(rect), SWP_NOZORDER | SWP_NOACTIVATE);
}

void PlaceOkAndCancel(const tvWnd& okButton, const tvWnd& cancelButton, int right, int top) {
    const int width = static_cast<int>(SizeOf(okButton).cx);
    MoveTo(cancelButton, right - width, top);
    MoveTo(okButton, right - 2 * width - TheTheme().m_gapX, top);
}

void SizeToContent(HWND dialog, const RECT& content) {
    RECT window = Inset(content, -TheTheme().m_marginX, -TheTheme().m_marginY);
    AdjustWindowRectEx(&window, StyleOfWindow(dialog), FALSE, ExStyleOfWindow(dialog));
    SetWindowPos(dialog, nullptr, 0, 0, Width(window), Height(window),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void DrawGroupFrame(HDC dc, const RECT& rect) {
    constexpr int kRadius = 14;
    constexpr float kPenWidth = 1.5F;
    RoundRect(dc, rect, kRadius, kNoColor, TheTheme().Color(&tvColorTheme::m_button, COLOR_BTNSHADOW),
              kPenWidth);
}

void DrawTextIn(HDC dc, const tvstring& text, RECT rect, UINT flags) {
    DrawTextW(dc, Wide(text.c_str()), static_cast<int>(text.size()), &rect, flags);
}
