// Where something is painted on a ground of one colour.
#pragma once

#include <algorithm>

#include "tests/app/app_stage.h"

// The rectangle of all pixels inside `within` that have another colour than the ground; empty if there are
// none.
inline RECT InkIn(const Picture& picture, COLORREF ground, const RECT& within) {
    RECT found{};
    for (int y = within.top; y < within.bottom; ++y) {
        for (int x = within.left; x < within.right; ++x) {
            const RECT pixel{x, y, x + 1, y + 1};
            if (picture.At(x, y) != ground) UnionRect(&found, &found, &pixel);
        }
    }
    return found;
}

// The width of a text in a window's font, in pixels.
inline int WidthIn(HWND window, const tvstring& text) {
    const tvClientDC dc(window);
    const auto font = SendMessageW(window, WM_GETFONT, 0, 0);
    const tvSelected selected(dc.Get(),
                              reinterpret_cast<HGDIOBJ>(font));  // NOLINT(performance-no-int-to-ptr)
    SIZE size{};
    GetTextExtentPoint32W(dc.Get(), Wide(text.c_str()), static_cast<int>(text.size()), &size);
    return static_cast<int>(size.cx);
}

// The width of what a text leaves when it is drawn in a window's font, in pixels.
inline int InkWidthIn(HWND window, const tvstring& text) {
    constexpr COLORREF kGround = RGB(255, 255, 255);
    RECT place{0, 0, 2 * WidthIn(window, text), 60};
    const Canvas canvas(static_cast<int>(place.right), static_cast<int>(place.bottom), kGround);
    const auto font = SendMessageW(window, WM_GETFONT, 0, 0);
    const tvSelected selected(canvas.Dc(),
                              reinterpret_cast<HGDIOBJ>(font));  // NOLINT(performance-no-int-to-ptr)
    DrawTextW(canvas.Dc(), Wide(text.c_str()), static_cast<int>(text.size()), &place, DT_SINGLELINE);
    int first = static_cast<int>(place.right);
    int last = -1;
    for (int x = 0; x < place.right; ++x) {
        for (int y = 0; y < place.bottom; ++y) {
            if (canvas.At(x, y) == kGround) continue;
            first = std::min(first, x);
            last = x;
        }
    }
    return last - first + 1;
}
