#include "toolkit/text_draw.h"

#include <algorithm>
#include <string_view>

#include "toolkit/font.h"
#include "toolkit/rect.h"

namespace {

using View = std::u16string_view;

constexpr View kDots = u"...";

int Draw(HDC dc, View text, RECT& rect, UINT flags) {
    return DrawTextW(dc, Wide(text.data()), static_cast<int>(text.size()), &rect, flags);
}

int WidthOf(HDC dc, View text, UINT flags) {
    RECT rect{};
    Draw(dc, text, rect, flags | DT_CALCRECT);
    return Width(rect);
}

// The longest end of the text that fits; at least its last character. The search begins where that much of a
// text of average letters does.
View TailThatFits(HDC dc, View text, int room, UINT flags) {
    int averageWidth = 0;
    GetFontHeight(dc, &averageWidth);
    const int guess = std::clamp(room / std::max(averageWidth, 1), 1, static_cast<int>(text.size()));
    std::size_t start = text.size() - static_cast<std::size_t>(guess);
    const auto width = [&] { return WidthOf(dc, text.substr(start), flags); };
    const int first = width();
    if (first > room) {
        while (start + 1 < text.size() && width() > room)
            ++start;
    } else if (first < room) {
        while (start > 0 && width() <= room)
            --start;
        if (width() > room) ++start;
    }
    return text.substr(start);
}

}  // namespace

int MeasureText(const tvstring& text, UINT flags, HDC dc, RECT& rect) {
    if (text.empty()) {
        SetRectEmpty(&rect);
        return 0;
    }
    return Draw(dc, text, rect, flags | DT_CALCRECT);
}

int DrawTextPathEllipsis(const tvstring& text, HDC dc, const RECT& rect, UINT format) {
    constexpr UINT kKept =
        DT_VCENTER | DT_BOTTOM | DT_EXPANDTABS | DT_NOCLIP | DT_NOPREFIX | DT_HIDEPREFIX | DT_PREFIXONLY;
    static_assert(kKept == 0x30094C);
    if (text.empty() || Width(rect) < 0) return 0;
    const UINT flags = (format & kKept) | DT_SINGLELINE | DT_RIGHT;
    RECT place = rect;
    const int whole = WidthOf(dc, text, flags);
    if (whole <= Width(rect)) {
        Draw(dc, text, place, flags);
        return whole;
    }
    const int dots = WidthOf(dc, kDots, flags);
    place.left += dots;
    const int room = Width(place);
    const View tail = TailThatFits(dc, text, room, flags);
    // A tail that is wider than the room, as a last character can be, shows as much as there is room for.
    const int used = std::clamp(WidthOf(dc, tail, flags), 0, std::max(room, 0));
    if (used > 0) Draw(dc, tail, place, flags);
    RECT before{rect.left, rect.top, rect.right - used, rect.bottom};
    Draw(dc, kDots, before, flags);
    return dots + used;
}

tvstring CutTextToWidth(const tvstring& text, HDC dc, int width) {
    const int room = std::max(width - WidthOf(dc, kDots, DT_SINGLELINE), 0);
    int count = 0;
    SIZE whole{};
    GetTextExtentExPointW(dc, Wide(text.c_str()), static_cast<int>(text.size()), room, &count, nullptr,
                          &whole);
    if (whole.cx <= width || text.empty()) return text;
    auto kept = static_cast<std::size_t>(count);
    if (kept > 0 && IS_HIGH_SURROGATE(text[kept - 1])) --kept;
    return text.substr(0, kept).append(kDots);
}

void DrawShadowedText(HDC dc, const tvstring& text, const RECT& rect) {
    constexpr UINT kFlags = DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS;
    constexpr BYTE kLight = 160;
    RECT place = rect;
    const COLORREF color = GetTextColor(dc);
    if (GetGValue(color) >= kLight) {
        OffsetRect(&place, 1, 1);
        SetTextColor(dc, RGB(0, 0, 0));
        Draw(dc, text, place, kFlags);
        SetTextColor(dc, color);
        place = rect;
    }
    Draw(dc, text, place, kFlags);
}
