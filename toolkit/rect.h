// Sizes and places of rectangles.
#pragma once

#include "toolkit/win32.h"

constexpr int Width(const RECT& rect) {
    return rect.right - rect.left;
}
constexpr int Height(const RECT& rect) {
    return rect.bottom - rect.top;
}

constexpr RECT BoxAt(int left, int top, int width, int height) {
    return {left, top, left + width, top + height};
}

// A box of this size in the middle of a rectangle; where a pixel is left over it is at the right or below.
constexpr RECT CenteredBox(const RECT& rect, int width, int height) {
    return BoxAt(rect.left + (Width(rect) - width) / 2, rect.top + (Height(rect) - height) / 2, width,
                 height);
}

// Smaller by this many pixels at each side.
constexpr RECT Inset(const RECT& rect, int x, int y) {
    return {rect.left + x, rect.top + y, rect.right - x, rect.bottom - y};
}
