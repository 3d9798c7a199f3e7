#include "toolkit/scroll_parts.h"

#include <algorithm>
#include <cmath>

#include "toolkit/rect.h"

namespace {

// A thumb that is too short grows about its middle, and stays in the track.
void Lengthen(RECT& thumb, int length, const RECT& track) {
    thumb.top -= (length - Height(thumb)) / 2;
    thumb.top = std::clamp(thumb.top, track.top, track.bottom - length);
    thumb.bottom = thumb.top + length;
}

bool CanBeUsed(u32 state) {
    return state == 0 || state == STATE_SYSTEM_PRESSED;
}

int ThumbTopFor(const ScrollDrag& drag, int y) {
    const int last = std::max(drag.trackTop, drag.trackEnd - Height(drag.thumb));
    return std::clamp(y - drag.offset, drag.trackTop, last);
}

}  // namespace

void PlaceScrollParts(const ScrollMeasure& measure, ScrollRects& parts) {
    const RECT& bar = measure.bar;
    const int line = std::min(measure.line, Height(bar) / 2);
    RECT track = bar;
    track.top += line;
    track.bottom -= line;
    std::fill_n(parts.begin(), kSystemScrollParts, bar);
    parts[SCROLL_UP].bottom = track.top;
    parts[SCROLL_DOWN].top = track.bottom;
    if (measure.leastThumb > 0 && Height(track) < measure.leastThumb) {
        parts[SCROLL_PAGE_UP] = parts[SCROLL_THUMB] = parts[SCROLL_PAGE_DOWN] = {};
        return;
    }
    RECT& thumb = parts[SCROLL_THUMB];
    thumb.top = std::clamp(bar.top + measure.thumbTop, track.top, track.bottom);
    thumb.bottom = std::min(thumb.top - measure.thumbTop + measure.thumbBottom, track.bottom);
    if (Height(thumb) < measure.leastThumb) Lengthen(thumb, measure.leastThumb, track);
    parts[SCROLL_PAGE_UP].top = track.top;
    parts[SCROLL_PAGE_UP].bottom = thumb.top;
    parts[SCROLL_PAGE_DOWN].top = thumb.bottom;
    parts[SCROLL_PAGE_DOWN].bottom = track.bottom;
}

int HitScrollPart(const ScrollRects& parts, const ScrollStates& states, POINT point) {
    const auto isAt = [&](std::size_t part) {
        return CanBeUsed(states[part]) && PtInRect(&parts[part], point) != FALSE;
    };
    for (std::size_t part = SCROLL_UP; part <= SCROLL_DOWN; ++part)
        if (isAt(part)) return static_cast<int>(part);
    if (isAt(SCROLL_BAR)) return SCROLL_BAR;
    return PtInRect(&parts[SCROLL_HOST], point) != FALSE ? SCROLL_HOST : SCROLL_NONE;
}

bool DragThumb(ScrollDrag& drag, int y) {
    const int moved = ThumbTopFor(drag, y) - static_cast<int>(drag.thumb.top);
    OffsetRect(&drag.thumb, 0, moved);
    return moved != 0;
}

// What is seen at once ends at the last position, so that the thumb's own end stands for the last but a page.
int DraggedPosition(const ScrollDrag& drag, const ScrollRange& range) {
    const int free = drag.trackEnd - drag.trackTop - Height(drag.thumb);
    if (free <= 0) return range.least;
    const double share = static_cast<double>(drag.thumb.top - drag.trackTop) / free;
    const int last = range.most - range.page - range.least + 1;
    const int position = range.least + static_cast<int>(std::lround(share * last));
    return std::max(std::min(position, last), range.least);
}
