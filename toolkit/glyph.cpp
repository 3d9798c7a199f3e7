#include "toolkit/glyph.h"

#include <initializer_list>

#include "toolkit/draw.h"
#include "toolkit/glyph_shapes.h"
#include "toolkit/rect.h"

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

}  // namespace

void DrawGlyph(HDC dc, const RECT& rect, int glyph, COLORREF color, COLORREF background) {
    if (!IsColor(color)) return;
    const GlyphPlace place{dc, CenteredBox(rect, kGlyphBox, kGlyphBox), color, background};
    switch (glyph) {
        case GLYPH_FOLDER:
            return DrawFolderGlyph(place);
        case GLYPH_PENCIL:
            return DrawPencilGlyph(place);
        case GLYPH_AUTO:
            return DrawAutoGlyph(place);
        case GLYPH_DISK:
            return DrawDiskGlyph(place);
        case GLYPH_BIN:
            return DrawBinGlyph(place);
        case GLYPH_REFRESH:
            return DrawRefreshGlyph(place);
        case GLYPH_DOTS:
            return DrawDotsGlyph(place);
        case GLYPH_UP:
            return DrawUpGlyph(place);
        case GLYPH_DOWN:
            return DrawDownGlyph(place);
        case GLYPH_CLOSE:
            return DrawCloseGlyph(place);
        case GLYPH_PAUSE:
            return DrawPauseGlyph(place);
        case GLYPH_PLAY:
            return DrawPlayGlyph(place);
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
        case GLYPH_HEXAGON:
            return DrawHexagonGlyph(place);
        default:
            return;
    }
}
