#include <gtest/gtest.h>

#include "tests/gui/harness.h"
#include "tests/gui/rows.h"
#include "toolkit/draw.h"
#include "toolkit/rect.h"

namespace {

constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kGreen = RGB(0, 128, 0);
constexpr COLORREF kNone = 0xFFFFFFFF;
constexpr int kSize = 44;

class Shapes : public testing::Test {
protected:
    [[nodiscard]] Rows Picture(const RECT& rect = {0, 0, kSize, kSize}) const {
        return RowsOf(canvas, rect, {{kPaper, '.'}, {kInk, '#'}, {kRed, 'r'}, {kGreen, 'g'}});
    }

    Canvas canvas{kSize, kSize};
};

TEST_F(Shapes, RoundRectangleHasRoundCornersAFrameAndAFill) {
    RoundRect(canvas.Dc(), {4, 4, 40, 30}, 10, kRed, kInk, 1);
    for (const auto& [x, y] : {POINT{4, 4}, POINT{39, 4}, POINT{4, 29}, POINT{39, 29}})
        EXPECT_EQ(canvas.At(x, y), kPaper) << x << ", " << y;
    EXPECT_EQ(canvas.At(22, 4), kInk);
    EXPECT_EQ(canvas.At(22, 29), kInk);
    EXPECT_EQ(canvas.At(4, 17), kInk);
    EXPECT_EQ(canvas.At(39, 17), kInk);
    EXPECT_EQ(canvas.At(22, 17), kRed);
    EXPECT_EQ(canvas.At(6, 6), kRed);  // within a corner of this radius
}

TEST_F(Shapes, RoundRectangleStaysInItsRectangle) {
    RoundRect(canvas.Dc(), {4, 4, 40, 30}, 10, kRed, kInk, 1);
    EXPECT_EQ(ExtentOf(Picture()), (RECT{4, 4, 40, 30}));
}

TEST_F(Shapes, FrameOfARoundRectangleOfNoColourIsNotDrawnTheFillIs) {
    RoundRect(canvas.Dc(), {4, 4, 40, 30}, 10, kRed, kNone, 1.5F);
    EXPECT_EQ(canvas.At(22, 17), kRed);
    EXPECT_EQ(canvas.At(4, 4), kPaper);
    EXPECT_EQ(canvas.Count(kInk), 0);
    EXPECT_EQ(canvas.Count(kRed) + canvas.Count(kPaper), kSize * kSize);
    EXPECT_EQ(ExtentOf(Picture()), (RECT{4, 4, 40, 30}));
}

TEST_F(Shapes, FillOfARoundRectangleOfNoColourIsLeftOut) {
    RoundRect(canvas.Dc(), {4, 4, 40, 30}, 10, kNone, kInk, 1);
    EXPECT_EQ(canvas.At(22, 4), kInk);
    EXPECT_EQ(canvas.At(22, 17), kPaper);
}

TEST_F(Shapes, RoundRectangleOfNoColoursIsNothing) {
    RoundRect(canvas.Dc(), {4, 4, 40, 30}, 10, kNone, kNone, 1);
    RoundRect(canvas.Dc(), {4, 4, 10, 10}, 10, kNone, kNone, 1);
    EXPECT_EQ(canvas.Count(kPaper), kSize * kSize);
}

TEST_F(Shapes, RadiusOfZeroOrLessIsTen) {
    Canvas ten(kSize, kSize);
    RoundRect(ten.Dc(), {4, 4, 40, 30}, 10, kRed, kInk, 1);
    RoundRect(canvas.Dc(), {4, 4, 40, 30}, 0, kRed, kInk, 1);
    const Rows expected = RowsOf(ten, {0, 0, kSize, kSize}, {{kPaper, '.'}, {kInk, '#'}, {kRed, 'r'}});
    EXPECT_EQ(Picture(), expected);
    RoundRect(canvas.Dc(), {4, 4, 40, 30}, -3, kRed, kInk, 1);
    EXPECT_EQ(Picture(), expected);
}

TEST_F(Shapes, OddRadiusIsTheEvenOneBelow) {
    Canvas even(kSize, kSize);
    RoundRect(even.Dc(), {4, 4, 40, 30}, 8, kRed, kInk, 1);
    RoundRect(canvas.Dc(), {4, 4, 40, 30}, 9, kRed, kInk, 1);
    EXPECT_EQ(Picture(), RowsOf(even, {0, 0, kSize, kSize}, {{kPaper, '.'}, {kInk, '#'}, {kRed, 'r'}}));
}

const Rows kPlain = {
    "#####",
    "#rrr#",
    "#rrr#",
    "#####",
};

TEST_F(Shapes, RoundRectangleTooSmallForItsCornersIsAPlainOneWithAFrameOfOnePixel) {
    RoundRect(canvas.Dc(), {2, 2, 7, 6}, 4, kRed, kInk, 3);
    EXPECT_EQ(Picture({2, 2, 7, 6}), kPlain);
    EXPECT_EQ(canvas.Count(kPaper), kSize * kSize - 20);
}

TEST_F(Shapes, RadiusOfOneGivesAPlainRectangle) {
    RoundRect(canvas.Dc(), {2, 2, 7, 6}, 1, kRed, kInk, 3);
    EXPECT_EQ(Picture({2, 2, 7, 6}), kPlain);
}

TEST_F(Shapes, CornersFitIfTwiceTheirDiameterDoesInBothDirections) {
    RoundRect(canvas.Dc(), {0, 0, 20, 20}, 10, kRed, kInk, 1);
    EXPECT_EQ(canvas.At(0, 0), kPaper);
    RoundRect(canvas.Dc(), {22, 0, 42, 19}, 10, kRed, kInk, 1);
    EXPECT_EQ(canvas.At(22, 0), kInk);
    RoundRect(canvas.Dc(), {0, 22, 19, 42}, 10, kRed, kInk, 1);
    EXPECT_EQ(canvas.At(0, 22), kInk);
}

TEST_F(Shapes, PlainRectangleWithoutAFrameIsFilledToItsEdges) {
    RoundRect(canvas.Dc(), {2, 2, 7, 6}, 10, kRed, kNone, 1);
    EXPECT_EQ(canvas.Count(kRed), 20);
}

TEST_F(Shapes, FrameOfARoundRectangleIsAsWideAsItsPen) {
    RoundRect(canvas.Dc(), {4, 4, 40, 40}, 10, kRed, kInk, 3);
    EXPECT_EQ(canvas.At(5, 20), kInk);
    EXPECT_EQ(canvas.At(6, 20), kRed);
}

// --- Ellipses ---

TEST_F(Shapes, DiscFillsItsRectangleButNotTheCorners) {
    FillEllipse(canvas.Dc(), {2, 2, 15, 15}, kInk);
    const Rows rows = Picture();
    EXPECT_EQ(ExtentOf(rows), (RECT{2, 2, 15, 15}));
    EXPECT_EQ(canvas.At(8, 8), kInk);
    EXPECT_EQ(canvas.At(2, 2), kPaper);
    EXPECT_EQ(canvas.At(14, 14), kPaper);
}

TEST_F(Shapes, DiscIsAsLargeAsACircleShouldBe) {
    constexpr double kPi = 3.14159265;
    constexpr int kDiameter = 15;
    FillEllipse(canvas.Dc(), {2, 2, 2 + kDiameter, 2 + kDiameter}, kInk);
    const double area = kPi / 4 * kDiameter * kDiameter;
    EXPECT_NEAR(canvas.Count(kInk), area, area * 0.08);
}

TEST_F(Shapes, DiscIsTheSameFromAllSides) {
    FillEllipse(canvas.Dc(), {2, 2, 15, 15}, kInk);
    const Rows rows = Picture({2, 2, 15, 15});
    EXPECT_EQ(rows, MirroredLeftRight(rows));
    EXPECT_EQ(rows, MirroredUpsideDown(rows));
}

TEST_F(Shapes, CircleIsALineWithNothingInIt) {
    DrawEllipse(canvas.Dc(), {2, 2, 15, 15}, kInk);
    const Rows rows = Picture({2, 2, 15, 15});
    EXPECT_EQ(ExtentOf(Picture()), (RECT{2, 2, 15, 15}));
    EXPECT_EQ(rows[6], "#...........#");
    EXPECT_EQ(rows, MirroredLeftRight(rows));
    EXPECT_EQ(rows, MirroredUpsideDown(rows));
}

TEST_F(Shapes, EllipsesOfNoColourAreNothing) {
    FillEllipse(canvas.Dc(), {2, 2, 15, 15}, kNone);
    DrawEllipse(canvas.Dc(), {2, 2, 15, 15}, kNone);
    EXPECT_EQ(canvas.Count(kPaper), kSize * kSize);
}

TEST_F(Shapes, ColoursOfSmoothShapesHaveTheirRedAndBlueInPlace) {
    constexpr COLORREF kOdd = RGB(0x12, 0x34, 0x56);
    FillEllipse(canvas.Dc(), {2, 2, 15, 15}, kOdd);
    EXPECT_EQ(canvas.At(8, 8), kOdd);
    RoundRect(canvas.Dc(), {4, 4, 40, 40}, 10, kOdd, kGreen, 1);
    EXPECT_EQ(canvas.At(20, 20), kOdd);
    EXPECT_EQ(canvas.At(20, 4), kGreen);
}

TEST_F(Shapes, SmoothShapesLeaveNothingBehindInTheSystem) {
    RoundRect(canvas.Dc(), {4, 4, 40, 40}, 10, kRed, kInk, 1);
    const auto before = WhatIsHeld().gdiObjects;
    for (int i = 0; i < 50; ++i) {
        RoundRect(canvas.Dc(), {4, 4, 40, 40}, 10, kRed, kInk, 1);
        FillEllipse(canvas.Dc(), {2, 2, 15, 15}, kInk);
    }
    EXPECT_EQ(WhatIsHeld().gdiObjects, before);
}

}  // namespace
