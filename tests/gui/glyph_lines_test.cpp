// The smooth glyphs against the same lines and areas drawn one by one, so that each end of a line counts
// however well the system smooths them.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "tests/gui/rows.h"
#include "toolkit/gdiplus.h"
#include "toolkit/glyph.h"

namespace {

constexpr RECT kBox{0, 0, 16, 16};

using Points = std::vector<Gdiplus::PointF>;

class GlyphLines : public testing::Test {
protected:
    GlyphLines() : graphics(gdiplus::SmoothGraphics(canvas.Dc())), brush(gdiplus::SolidBrush(kInk)) {}

    // With a pen of this width; drawn in order.
    void Lines(float width, const std::vector<Points>& lines) {
        const gdiplus::Pen pen = gdiplus::SolidPen(kInk, width);
        for (const Points& line : lines)
            gdiplus::GdipDrawLines(graphics.Get(), pen.Get(), line.data(), static_cast<int>(line.size()));
    }
    void Outline(float width, const Points& points) {
        const gdiplus::Pen pen = gdiplus::SolidPen(kInk, width);
        gdiplus::GdipDrawPolygon(graphics.Get(), pen.Get(), points.data(), static_cast<int>(points.size()));
    }
    void Area(const Points& points) {
        gdiplus::GdipFillPolygon(graphics.Get(), brush.Get(), points.data(), static_cast<int>(points.size()),
                                 Gdiplus::FillModeAlternate);
    }
    void ExpectIs(int glyph) const {
        const Canvas drawn(16, 16);
        DrawGlyph(drawn.Dc(), kBox, glyph, kInk, kPaper);
        for (int y = 0; y < 16; ++y) {
            for (int x = 0; x < 16; ++x)
                EXPECT_EQ(drawn.At(x, y), canvas.At(x, y)) << x << ", " << y;
        }
    }

    Canvas canvas{16, 16};
    gdiplus::Graphics graphics;
    gdiplus::Brush brush;
};

TEST_F(GlyphLines, OfTheBoltAndItsLetter) {
    Outline(1.5F, {{3, 1}, {0, 7}, {4, 7}, {2, 14}, {11, 4}, {6, 4}, {8, 1}, {3, 1}});
    Lines(1.5F, {{{12, 7}, {9, 14}}, {{12, 7}, {15, 14}}, {{10, 12}, {13, 12}}});
    ExpectIs(GLYPH_AUTO);
}

TEST_F(GlyphLines, OfTheFolderAreItsMaskAndItsFlap) {
    constexpr unsigned kMask[] = {0x7FF8, 0x4008, 0x4008, 0x47FF, 0x47FF, 0x4FFE,
                                  0x4FFE, 0x5FFC, 0x5FFC, 0x7FF8, 0x7FF8};
    int y = 3;
    for (const unsigned row : kMask) {
        for (int x = 0; x < 16; ++x)
            if ((row >> (15 - x) & 1) != 0) SetPixel(canvas.Dc(), x, y, kInk);
        ++y;
    }
    Area({{1, 13}, {12, 13}, {16, 6}, {4, 6}});
    ExpectIs(GLYPH_FOLDER);
}

TEST_F(GlyphLines, OfRefreshAreAnArcWithAnOpenArrowHead) {
    gdiplus::Path head = gdiplus::NewPath();
    gdiplus::GdipAddPathLine(head.Get(), 1.6F, -1.6F, 0, 0);
    gdiplus::GdipAddPathLine(head.Get(), 0, 0, -1.6F, -1.6F);
    Gdiplus::GpCustomLineCap* made = nullptr;
    gdiplus::GdipCreateCustomLineCap(nullptr, head.Get(), Gdiplus::LineCapFlat, 0, &made);
    const gdiplus::LineCap cap(made);
    const gdiplus::Pen pen = gdiplus::SolidPen(kInk, 1.5F);
    gdiplus::GdipSetPenCustomEndCap(pen.Get(), cap.Get());
    gdiplus::GdipDrawArcI(graphics.Get(), pen.Get(), 1, 1, 14, 14, 20, 320);
    ExpectIs(GLYPH_REFRESH);
}

TEST_F(GlyphLines, OfPlayAreATriangle) {
    Area({{5, 2}, {15, 8}, {5, 14}});
    ExpectIs(GLYPH_PLAY);
}

TEST_F(GlyphLines, OfTheHexagonAreSixSidesAndACircleOfHalfItsWidth) {
    const float height = 7 * std::sqrt(3.0F) / 2;
    Outline(
        1.5F,
        {{1, 8}, {4.5F, 8 - height}, {11.5F, 8 - height}, {15, 8}, {11.5F, 8 + height}, {4.5F, 8 + height}});
    const gdiplus::Pen pen = gdiplus::SolidPen(kInk, 1.5F);
    gdiplus::GdipDrawEllipse(graphics.Get(), pen.Get(), 4.5F, 4.5F, 7, 7);
    ExpectIs(GLYPH_HEXAGON);
}

}  // namespace
