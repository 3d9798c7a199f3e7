#include "toolkit/glyph.h"

#include <algorithm>
#include <array>
#include <initializer_list>

#include "toolkit/draw.h"
#include "toolkit/glyph_shapes.h"
#include "toolkit/rect.h"
#include "toolkit/smooth_shapes.h"

namespace {

constexpr int kSymbol = 10;  // the side of the window symbols

void DrawPauseGlyph(const GlyphPlace& place) {
    constexpr int kFirstBar = 5;
    constexpr int kSecondBar = 11;
    constexpr int kTop = 2;
    constexpr int kLength = 12;
    for (const int x : {kFirstBar, kSecondBar})
        FillSolid(place.dc, BoxAt(place.box.left + x, place.box.top + kTop, 1, kLength), place.color);
}

void DrawMinimiseGlyph(const GlyphPlace& place) {
    FillSolid(place.dc, CenteredBox(place.box, kSymbol, 1), place.color);
}

void DrawMaximiseGlyph(const GlyphPlace& place) {
    FillEdges(place.dc, CenteredBox(place.box, kSymbol, kSymbol), place.color, EDGE_ALL, 1);
}

// Of the lower window, at the left, only what the upper one does not cover can be seen.
void DrawRestoreGlyph(const GlyphPlace& place) {
    constexpr int kOffset = kSymbol / 5;
    const RECT both = CenteredBox(place.box, kSymbol + kOffset, kSymbol + kOffset);
    const RECT upper = BoxAt(both.left + kOffset, both.top, kSymbol, kSymbol);
    const RECT lower = BoxAt(both.left, both.top + kOffset, kSymbol, kSymbol);
    FillEdges(place.dc, upper, place.color, EDGE_ALL, 1);
    FillEdges(place.dc, lower, place.color, EDGE_LEFT | EDGE_BOTTOM, 1);
    FillSolid(place.dc, BoxAt(lower.left, lower.top, kOffset, 1), place.color);
    FillSolid(place.dc, BoxAt(lower.right - 1, upper.bottom, 1, kOffset), place.color);
}

void DrawChevronGlyph(const GlyphPlace& place, Heading heading) {
    constexpr double kScale = 0.6;
    DrawChevron(place.dc, place.box, place.color, Axis::Horizontal, heading, kScale);
}

// The bar stands where the chevron points to.
void DrawChevronBarGlyph(const GlyphPlace& place, Heading heading) {
    constexpr int kBox = 12;
    DrawChevronGlyph(place, heading);
    const RECT box = CenteredBox(place.box, kBox, kBox);
    FillEdges(place.dc, box, place.color, heading == Heading::Forward ? EDGE_RIGHT : EDGE_LEFT, 1);
}

void DrawTriangleGlyph(const GlyphPlace& place) {
    constexpr int kHeight = 7;
    DrawTriangle(place.dc, place.box, place.color, place.color, 2 * kHeight - 1, Axis::Vertical,
                 Heading::Forward);
}

// The glyphs that take long: of smooth lines and areas, or of many single pixels. They are of one colour.
struct SlowGlyph {
    int glyph;
    void (*paint)(const GlyphPlace& place);
};
constexpr std::array<SlowGlyph, 11> kSlowGlyphs = {{
    {GLYPH_FOLDER, DrawFolderGlyph},
    {GLYPH_PENCIL, DrawPencilGlyph},
    {GLYPH_AUTO, DrawAutoGlyph},
    {GLYPH_DISK, DrawDiskGlyph},
    {GLYPH_BIN, DrawBinGlyph},
    {GLYPH_REFRESH, DrawRefreshGlyph},
    {GLYPH_DOTS, DrawDotsGlyph},
    {GLYPH_UP, DrawUpGlyph},
    {GLYPH_DOWN, DrawDownGlyph},
    {GLYPH_PLAY, DrawPlayGlyph},
    {GLYPH_HEXAGON, DrawHexagonGlyph},
}};

bool DrawSlowGlyph(const GlyphPlace& place, int glyph) {
    const auto* found = std::find_if(kSlowGlyphs.begin(), kSlowGlyphs.end(),
                                     [glyph](const SlowGlyph& slow) { return slow.glyph == glyph; });
    if (found == kSlowGlyphs.end()) return false;
    const tvSmoothShapes::Shape shape{tvSmoothShapes::Shape::Kind::Glyph, {kGlyphBox, kGlyphBox}, glyph, 0};
    TheSmoothShapes().Draw(place.dc, place.box, shape, place.color,
                           [found](HDC dc, const RECT& box, COLORREF color) {
                               found->paint({dc, box, color, CLR_INVALID});
                           });
    return true;
}

}  // namespace

void DrawGlyph(HDC dc, const RECT& rect, int glyph, COLORREF color, COLORREF background) {
    if (!IsColor(color)) return;
    const GlyphPlace place{dc, CenteredBox(rect, kGlyphBox, kGlyphBox), color, background};
    if (DrawSlowGlyph(place, glyph)) return;
    switch (glyph) {
        case GLYPH_CLOSE:
            return DrawCloseGlyph(place);
        case GLYPH_PAUSE:
            return DrawPauseGlyph(place);
        case GLYPH_MINIMISE:
            return DrawMinimiseGlyph(place);
        case GLYPH_MAXIMISE:
            return DrawMaximiseGlyph(place);
        case GLYPH_RESTORE:
            return DrawRestoreGlyph(place);
        case GLYPH_CHEVRON_RIGHT:
            return DrawChevronGlyph(place, Heading::Forward);
        case GLYPH_CHEVRON_LEFT:
            return DrawChevronGlyph(place, Heading::Backward);
        case GLYPH_CHEVRON_RIGHT_BAR:
            return DrawChevronBarGlyph(place, Heading::Forward);
        case GLYPH_CHEVRON_LEFT_BAR:
            return DrawChevronBarGlyph(place, Heading::Backward);
        case GLYPH_TRIANGLE:
            return DrawTriangleGlyph(place);
        default:
            return;
    }
}
