#include "toolkit/smooth_shapes.h"

#include <algorithm>
#include <tuple>

#include "toolkit/rect.h"

namespace {

constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr u32 kFull = 255;

std::size_t PixelsOf(const SIZE& size) {
    return static_cast<std::size_t>(size.cx) * static_cast<std::size_t>(size.cy);
}

// A channel of a colour that is weighed with how much of the pixel it covers.
u32 Weighed(u32 channel, u32 cover) {
    return (channel * cover + kFull / 2) / kFull;
}

u32 WeighedPixel(COLORREF color, u32 cover) {
    return cover << 24 | Weighed(GetRValue(color), cover) << 16 | Weighed(GetGValue(color), cover) << 8 |
           Weighed(GetBValue(color), cover);
}

}  // namespace

std::partial_ordering operator<=>(const tvSmoothShapes::Shape& a, const tvSmoothShapes::Shape& b) {
    return std::tie(a.kind, a.size.cx, a.size.cy, a.detail, a.penWidth) <=>
           std::tie(b.kind, b.size.cx, b.size.cy, b.detail, b.penWidth);
}

void tvSmoothShapes::Clear() {
    m_Masks.clear();
    m_Held = 0;
}

void tvSmoothShapes::Draw(HDC dc, const RECT& rect, const Shape& shape, COLORREF color,
                          const Painter& paint) {
    const SIZE size{shape.size.cx + 2 * kMargin, shape.size.cy + 2 * kMargin};
    const bool isShape = shape.size.cx > 0 && shape.size.cy > 0;
    if (!isShape || PixelsOf(size) > kLargest || !Prepare(size)) {
        paint(dc, rect, color);
        return;
    }
    auto found = m_Masks.find(shape);
    if (found == m_Masks.end()) {
        if (m_Held + PixelsOf(size) > kMost) Clear();
        found = m_Masks.emplace(shape, MakeMask(size, paint)).first;
        m_Held += found->second.size();
    }
    Blend(dc, rect.left - kMargin, rect.top - kMargin, size, found->second, color);
}

bool tvSmoothShapes::Prepare(const SIZE& size) {
    const bool fits = size.cx <= m_Canvas.m_bitmap.m_width && size.cy <= m_Canvas.m_bitmap.m_height;
    if (fits) return true;
    m_Canvas.m_useDib = true;
    const tvClientDC screen(nullptr);
    return m_Canvas.Prepare(screen.Get(), size.cx, size.cy) != nullptr;
}

tvSmoothShapes::Mask tvSmoothShapes::MakeMask(const SIZE& size, const Painter& paint) const {
    const RECT all = BoxAt(0, 0, size.cx, size.cy);
    PatBlt(m_Canvas.m_dc.Get(), 0, 0, size.cx, size.cy, BLACKNESS);
    paint(m_Canvas.m_dc.Get(), Inset(all, kMargin, kMargin), kWhite);
    GdiFlush();
    Mask mask;
    mask.reserve(PixelsOf(size));
    for (int y = 0; y < size.cy; ++y) {
        const u32* row = m_Canvas.m_bitmap.Row(y);
        std::transform(row, row + size.cx, std::back_inserter(mask),
                       [](u32 pixel) { return static_cast<u8>(pixel); });
    }
    return mask;
}

void tvSmoothShapes::Blend(HDC dc, int x, int y, const SIZE& size, const Mask& mask, COLORREF color) const {
    const u32 whole = WeighedPixel(color, kFull);
    GdiFlush();
    const u8* cover = mask.data();
    for (int i = 0; i < size.cy; ++i) {
        u32* row = m_Canvas.m_bitmap.Row(i);
        std::transform(cover, cover + size.cx, row,
                       [&](u8 part) { return part == kFull ? whole : WeighedPixel(color, part); });
        cover += size.cx;
    }
    constexpr BLENDFUNCTION kOver{AC_SRC_OVER, 0, kFull, AC_SRC_ALPHA};
    GdiAlphaBlend(dc, x, y, size.cx, size.cy, m_Canvas.m_dc.Get(), 0, 0, size.cx, size.cy, kOver);
}
