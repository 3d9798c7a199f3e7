// Where the parts of a vertical scroll bar are, and what a drag of its thumb means: from numbers alone.
// Rectangles are in pixels of the window that paints the bar.
#pragma once

#include <array>

#include "platform/types.h"
#include "toolkit/win32.h"

// The first six are the system's, in its order.
enum ScrollPart : int {
    SCROLL_NONE = -1,
    SCROLL_BAR = 0,  // all of it
    SCROLL_UP = 1,
    SCROLL_PAGE_UP = 2,
    SCROLL_THUMB = 3,
    SCROLL_PAGE_DOWN = 4,
    SCROLL_DOWN = 5,
    SCROLL_HOST = 6,  // the client area around the bar, with what scrolls
};
inline constexpr std::size_t kScrollParts = 7;
inline constexpr std::size_t kSystemScrollParts = 6;

using ScrollRects = std::array<RECT, kScrollParts>;
using ScrollStates = std::array<u32, kScrollParts>;  // bits STATE_SYSTEM_...

// A bar as the system tells it.
struct ScrollMeasure {
    RECT bar{};
    int line = 0;      // the length of an arrow
    int thumbTop = 0;  // from the bar's top
    int thumbBottom = 0;
    int leastThumb = 0;  // 0: of any length
};

// Finds all parts but the last, which stays as it is. Arrows never take more than their halves of the bar.
// Without room for a thumb of the least length there are arrows only.
void PlaceScrollParts(const ScrollMeasure& measure, ScrollRects& parts);

// The part at a point, among those that can be used: SCROLL_UP to SCROLL_DOWN, else SCROLL_BAR, else
// SCROLL_HOST.
int HitScrollPart(const ScrollRects& parts, const ScrollStates& states, POINT point);

// What a drag of the thumb has begun with.
struct ScrollDrag {
    int trackTop = 0;
    int trackEnd = 0;
    RECT thumb{};               // as it is dragged
    int offset = 0;             // where it was taken hold of, from its top
    HWND capturedBy = nullptr;  // null while nothing is dragged
    HWND hosted = nullptr;      // what scrolls
};

// Moves the thumb to where the mouse has it, inside the track. True if that is another place.
bool DragThumb(ScrollDrag& drag, int y);

// What there is to scroll: the positions, and how many of them are seen at once.
struct ScrollRange {
    int least = 0;
    int most = 0;
    int page = 0;
};

// The position that a dragged thumb stands for.
int DraggedPosition(const ScrollDrag& drag, const ScrollRange& range);
