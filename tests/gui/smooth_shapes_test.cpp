#include "toolkit/smooth_shapes.h"

#include <gtest/gtest.h>

#include "tests/gui/growth.h"
#include "tests/gui/harness.h"
#include "toolkit/draw.h"
#include "toolkit/rect.h"

namespace {

constexpr int kSize = 40;
constexpr COLORREF kRed = RGB(200, 10, 20);
constexpr RECT kPlace{10, 12, 26, 28};

using Shape = tvSmoothShapes::Shape;

Shape ShapeOf(int detail, int width = 16, int height = 16) {
    return {Shape::Kind::Glyph, {width, height}, detail, 0};
}

class SmoothShapes : public testing::Test {
protected:
    // A bar of the colour and, beside it, a bar that covers its pixels by half.
    void Draw(const Canvas& canvas, COLORREF color, const Shape& shape, const RECT& place = kPlace) {
        shapes.Draw(canvas.Dc(), place, shape, color, [this](HDC dc, const RECT& rect, COLORREF ink) {
            ++painted;
            FillSolid(dc, BoxAt(rect.left, rect.top, 4, Height(rect)), ink);
            const COLORREF half = RGB(GetRValue(ink) / 2, GetGValue(ink) / 2, GetBValue(ink) / 2);
            FillSolid(dc, BoxAt(rect.left + 4, rect.top, 4, Height(rect)), half);
        });
    }

    tvSmoothShapes shapes;
    int painted = 0;
};

TEST_F(SmoothShapes, ShapeIsPaintedOnceAndLooksTheSameAfterwards) {
    const Canvas first(kSize, kSize);
    const Canvas second(kSize, kSize);
    Draw(first, kRed, ShapeOf(1));
    Draw(second, kRed, ShapeOf(1));
    EXPECT_EQ(painted, 1);
    for (int y = 0; y < kSize; ++y)
        for (int x = 0; x < kSize; ++x)
            ASSERT_EQ(first.At(x, y), second.At(x, y)) << x << ", " << y;
    EXPECT_EQ(second.Count(kRed), 4 * 16);
    EXPECT_EQ(second.At(10, 12), kRed);
    EXPECT_EQ(second.At(13, 27), kRed);
    EXPECT_EQ(second.At(9, 12), RGB(255, 255, 255));
}

TEST_F(SmoothShapes, PixelsThatAreCoveredInPartAreBlendedWithTheGround) {
    const Canvas canvas(kSize, kSize, RGB(100, 110, 120));
    Draw(canvas, kRed, ShapeOf(1));
    const COLORREF blended = canvas.At(15, 20);
    EXPECT_NEAR(GetRValue(blended), (200 + 100) / 2, 1);
    EXPECT_NEAR(GetGValue(blended), (10 + 110) / 2, 1);
    EXPECT_NEAR(GetBValue(blended), (20 + 120) / 2, 1);
    EXPECT_EQ(canvas.At(20, 20), RGB(100, 110, 120));
}

TEST_F(SmoothShapes, KnownShapeIsDrawnInAnotherColourAndAtAnotherPlace) {
    const Canvas canvas(kSize, kSize);
    Draw(canvas, kRed, ShapeOf(1));
    const Canvas other(kSize, kSize);
    Draw(other, RGB(0, 90, 0), ShapeOf(1), {2, 3, 18, 19});
    EXPECT_EQ(painted, 1);
    EXPECT_EQ(other.At(2, 3), RGB(0, 90, 0));
    EXPECT_EQ(other.Count(RGB(0, 90, 0)), 4 * 16);
    EXPECT_EQ(other.Count(kRed), 0);
}

TEST_F(SmoothShapes, ShapesDifferByKindSizeDetailAndPen) {
    const Canvas canvas(kSize, kSize);
    const Shape plain = ShapeOf(1);
    Shape kind = plain;
    kind.kind = Shape::Kind::RoundFill;
    Shape width = plain;
    width.size.cx = 15;
    Shape height = plain;
    height.size.cy = 15;
    Shape detail = plain;
    detail.detail = 2;
    Shape pen = plain;
    pen.penWidth = 1.5F;
    for (const Shape& shape : {plain, kind, width, height, detail, pen})
        Draw(canvas, kRed, shape);
    EXPECT_EQ(painted, 6);
}

TEST_F(SmoothShapes, MayReachBeyondTheRectangleByTheMargin) {
    const Canvas canvas(kSize, kSize);
    for (int i = 0; i < 2; ++i) {
        shapes.Draw(canvas.Dc(), kPlace, ShapeOf(1), kRed, [](HDC dc, const RECT& rect, COLORREF ink) {
            constexpr int kMargin = tvSmoothShapes::kMargin;
            FillSolid(dc, Inset(rect, -kMargin, -kMargin), ink);
        });
    }
    EXPECT_EQ(canvas.Count(kRed), 20 * 20);
    EXPECT_EQ(canvas.At(8, 10), kRed);
}

TEST_F(SmoothShapes, WhatIsHeldHasALimit) {
    const Canvas canvas(kSize, kSize);
    constexpr int kSide = 96;
    for (int i = 0; i < 60; ++i) {
        Draw(canvas, kRed, ShapeOf(i, kSide, kSide));
        ASSERT_LE(shapes.Held(), tvSmoothShapes::kMost);
        ASSERT_GT(shapes.Held(), 0U);
    }
    const int before = painted;
    Draw(canvas, kRed, ShapeOf(59, kSide, kSide));
    EXPECT_EQ(painted, before);  // the last one is there
    Draw(canvas, kRed, ShapeOf(0, kSide, kSide));
    EXPECT_EQ(painted, before + 1);  // the first had to go
}

TEST_F(SmoothShapes, ShapeThatIsTooLargeIsPaintedEachTimeAndNotHeld) {
    const Canvas canvas(kSize, kSize);
    const Shape large = ShapeOf(1, 400, 400);
    Draw(canvas, kRed, large);
    Draw(canvas, kRed, large);
    EXPECT_EQ(painted, 2);
    EXPECT_EQ(shapes.Held(), 0U);
    EXPECT_EQ(canvas.At(10, 12), kRed);
}

TEST_F(SmoothShapes, EmptyShapeIsLeftToItsPainter) {
    const Canvas canvas(kSize, kSize);
    Draw(canvas, kRed, ShapeOf(1, 0, 16), {10, 12, 10, 28});
    EXPECT_EQ(painted, 1);
    EXPECT_EQ(shapes.Held(), 0U);
}

TEST_F(SmoothShapes, ClearForgetsAll) {
    const Canvas canvas(kSize, kSize);
    Draw(canvas, kRed, ShapeOf(1));
    shapes.Clear();
    EXPECT_EQ(shapes.Held(), 0U);
    Draw(canvas, kRed, ShapeOf(1));
    EXPECT_EQ(painted, 2);
}

TEST_F(SmoothShapes, DrawingDoesNotHoldMoreAndMore) {
    const Canvas canvas(kSize, kSize);
    const Growth growth = GrowthOver(20, [&] {
        tvSmoothShapes own;
        for (int i = 0; i < 20; ++i)
            own.Draw(canvas.Dc(), kPlace, ShapeOf(i), kRed,
                     [](HDC dc, const RECT& rect, COLORREF ink) { FillSolid(dc, rect, ink); });
    });
    EXPECT_EQ(growth.gdiObjects, 0);
    EXPECT_EQ(growth.userObjects, 0);
    EXPECT_LT(growth.heapBytes, 20 * 400);
}

}  // namespace
