// Where something is painted on a ground of one colour.
#pragma once

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
