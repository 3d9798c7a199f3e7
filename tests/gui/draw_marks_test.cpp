#include <gtest/gtest.h>

#include "tests/gui/rows.h"
#include "toolkit/draw.h"
#include "toolkit/rect.h"

namespace {

constexpr COLORREF kFill = RGB(200, 200, 255);
constexpr COLORREF kMark = RGB(255, 0, 0);
constexpr COLORREF kNone = 0xFFFFFFFF;
constexpr int kSize = 40;

class Marks : public testing::Test {
protected:
    [[nodiscard]] Rows Picture(const RECT& rect = {0, 0, kSize, kSize}) const {
        return RowsOf(canvas, rect, {{kPaper, '.'}, {kInk, '#'}, {kFill, ' '}, {kMark, 'x'}});
    }

    Canvas canvas{kSize, kSize};
};

TEST_F(Marks, TickStandsInTheBox) {
    DrawMark(canvas.Dc(), {0, 0, 13, 13}, kFill, kInk, kMark, MarkKind::Tick, 1);
    EXPECT_EQ(Picture({0, 0, 14, 14}), (Rows{
                                           "#############.",
                                           "#           #.",
                                           "#           #.",
                                           "#        x  #.",
                                           "#       xx  #.",
                                           "#  x   xxx  #.",
                                           "#  xx xxx   #.",
                                           "#  xxxxx    #.",
                                           "#   xxx     #.",
                                           "#    x      #.",
                                           "#           #.",
                                           "#           #.",
                                           "#############.",
                                           "..............",
                                       }));
}

TEST_F(Marks, ArmsOfTheTickGrowWithTheBox) {
    DrawMark(canvas.Dc(), {0, 0, 19, 19}, kFill, kInk, kMark, MarkKind::Tick, 1);
    // Padding round(0.15 * 19) = 3 and 1 more; inside 11, the short arm round(0.4 * 11) = 4.
    EXPECT_EQ(Picture({4, 4, 15, 15}), (Rows{
                                           "          x",
                                           "         xx",
                                           "        xxx",
                                           "       xxx ",
                                           "x     xxx  ",
                                           "xx   xxx   ",
                                           "xxx xxx    ",
                                           " xxxxx     ",
                                           "  xxx      ",
                                           "   x       ",
                                           "           ",
                                       }));
}

TEST_F(Marks, UndecidedBoxIsFilledWithinItsPadding) {
    DrawMark(canvas.Dc(), {0, 0, 9, 9}, kFill, kInk, kMark, MarkKind::Filled, 1);
    EXPECT_EQ(Picture({0, 0, 10, 10}), (Rows{
                                           "#########.",
                                           "#       #.",
                                           "#       #.",
                                           "#  xxx  #.",
                                           "#  xxx  #.",
                                           "#  xxx  #.",
                                           "#       #.",
                                           "#       #.",
                                           "#########.",
                                           "..........",
                                       }));
}

TEST_F(Marks, PaddingGrowsFromTwoPixelsWithTheWidth) {
    DrawMark(canvas.Dc(), {0, 0, 15, 15}, kNone, kNone, kMark, MarkKind::Filled, 1);  // 0.15 * 15 = 2.25
    EXPECT_EQ(ExtentOf(Picture()), (RECT{3, 3, 12, 12}));
    DrawMark(canvas.Dc(), {0, 0, 40, 40}, kInk, kInk, kNone, MarkKind::None, 1);
    DrawMark(canvas.Dc(), {0, 0, 30, 30}, kNone, kNone, kMark, MarkKind::Filled, 1);  // 0.15 * 29 = 4.35
    EXPECT_EQ(canvas.At(4, 4), kInk);
    EXPECT_EQ(canvas.At(5, 5), kMark);
}

TEST_F(Marks, BoxIsMadeOddInBothDirections) {
    DrawMark(canvas.Dc(), {0, 0, 14, 12}, kFill, kInk, kMark, MarkKind::None, 1);
    EXPECT_EQ(ExtentOf(Picture()), (RECT{0, 0, 13, 11}));
    EXPECT_EQ(canvas.Count(kMark), 0);
}

TEST_F(Marks, ScaleShrinksTheBoxAboutItsMiddle) {
    DrawMark(canvas.Dc(), {0, 0, 19, 19}, kFill, kInk, kMark, MarkKind::None, 0.7);  // 19 * 0.3 / 2 = 2.85
    EXPECT_EQ(ExtentOf(Picture()), (RECT{3, 3, 16, 16}));
}

TEST_F(Marks, ScaleThatIsNotBetweenZeroAndOneIsLeftOut) {
    for (const double scale : {0.0, 1.0, 1.5, -0.5}) {
        Canvas one(kSize, kSize);
        DrawMark(one.Dc(), {0, 0, 19, 19}, kInk, kInk, kMark, MarkKind::None, scale);
        EXPECT_EQ(one.Count(kInk), 19 * 19) << scale;
    }
}

TEST_F(Marks, FrameOfNoColourIsNotDrawnTheFillIs) {
    DrawMark(canvas.Dc(), {0, 0, 13, 13}, kFill, kNone, kMark, MarkKind::None, 1);
    EXPECT_EQ(canvas.Count(kFill), 13 * 13);
}

TEST_F(Marks, TickAloneNeedsNeitherFillNorFrame) {
    DrawMark(canvas.Dc(), {0, 0, 13, 13}, kNone, kNone, kMark, MarkKind::Tick, 1);
    EXPECT_EQ(canvas.Count(kMark), 7 * 3);
    EXPECT_EQ(ExtentOf(Picture()), (RECT{3, 3, 10, 10}));
}

TEST_F(Marks, MarkOfNoColourIsLeftOut) {
    DrawMark(canvas.Dc(), {0, 0, 13, 13}, kFill, kInk, kNone, MarkKind::Tick, 1);
    DrawMark(canvas.Dc(), {0, 20, 13, 33}, kFill, kInk, kNone, MarkKind::Filled, 1);
    EXPECT_EQ(canvas.Count(kFill), 2 * 11 * 11);
}

TEST_F(Marks, BoxWithNoRoomInsideHasNoMark) {
    DrawMark(canvas.Dc(), {10, 10, 15, 15}, kFill, kInk, kMark, MarkKind::Filled, 1);
    DrawMark(canvas.Dc(), {20, 20, 25, 25}, kFill, kInk, kMark, MarkKind::Tick, 1);
    EXPECT_EQ(canvas.Count(kMark), 0);
    EXPECT_EQ(canvas.Count(kInk), 2 * 16);
}

// --- Chevrons ---

const Rows kChevron = {
    "..##......", "...##.....", "....##....", ".....##...", "......##..",
    "......##..", ".....##...", "....##....", "...##.....", "..##......",
};

TEST_F(Marks, ChevronHasTwoStrokesThatMeetAtThePoint) {
    DrawChevron(canvas.Dc(), {0, 0, 10, 10}, kInk, Axis::Horizontal, Heading::Forward, 1);
    EXPECT_EQ(Picture({0, 0, 10, 10}), kChevron);
}

TEST_F(Marks, ChevronPointsToEachSide) {
    DrawChevron(canvas.Dc(), {10, 0, 20, 10}, kInk, Axis::Horizontal, Heading::Backward, 1);
    EXPECT_EQ(Picture({10, 0, 20, 10}), MirroredLeftRight(kChevron));
    DrawChevron(canvas.Dc(), {0, 10, 10, 20}, kInk, Axis::Vertical, Heading::Forward, 1);
    EXPECT_EQ(Picture({0, 10, 10, 20}), Transposed(kChevron));
    DrawChevron(canvas.Dc(), {10, 10, 20, 20}, kInk, Axis::Vertical, Heading::Backward, 1);
    EXPECT_EQ(Picture({10, 10, 20, 20}), MirroredUpsideDown(Transposed(kChevron)));
}

TEST_F(Marks, ChevronOfAnOddSizeHasAPointOfOneRow) {
    DrawChevron(canvas.Dc(), {0, 0, 5, 5}, kInk, Axis::Horizontal, Heading::Forward, 1);
    EXPECT_EQ(Picture({0, 0, 5, 5}), (Rows{
                                         "##...",
                                         ".##..",
                                         "..##.",
                                         ".##..",
                                         "##...",
                                     }));
}

TEST_F(Marks, ChevronTakesTheSquareInTheMiddle) {
    DrawChevron(canvas.Dc(), {0, 0, 14, 8}, kInk, Axis::Vertical, Heading::Forward, 1);
    EXPECT_EQ(Picture({0, 0, 14, 8}), (Rows{
                                          "..............",
                                          "...#......#...",
                                          "...##....##...",
                                          "....##..##....",
                                          ".....####.....",
                                          "......##......",
                                          "..............",
                                          "..............",
                                      }));
}

TEST_F(Marks, ScaleShrinksTheChevronAboutItsMiddle) {
    DrawChevron(canvas.Dc(), {0, 0, 16, 16}, kInk, Axis::Horizontal, Heading::Forward, 0.6);
    EXPECT_EQ(Picture({3, 3, 13, 13}), kChevron);
    EXPECT_EQ(canvas.Count(kInk), 20);
}

// --- Triangles ---

const Rows kTriangle = {
    "#...", "##..", "###.", "####", "###.", "##..", "#...",
};

TEST_F(Marks, TriangleIsStackedFromLines) {
    DrawTriangle(canvas.Dc(), {0, 0, 4, 7}, kInk, kInk, 7, Axis::Horizontal, Heading::Forward);
    EXPECT_EQ(Picture({0, 0, 4, 7}), kTriangle);
}

TEST_F(Marks, TrianglePointsToEachSide) {
    DrawTriangle(canvas.Dc(), {0, 10, 4, 17}, kInk, kInk, 7, Axis::Horizontal, Heading::Backward);
    EXPECT_EQ(Picture({0, 10, 4, 17}), MirroredLeftRight(kTriangle));
    DrawTriangle(canvas.Dc(), {10, 0, 17, 4}, kInk, kInk, 7, Axis::Vertical, Heading::Forward);
    EXPECT_EQ(Picture({10, 0, 17, 4}), Transposed(kTriangle));
    DrawTriangle(canvas.Dc(), {20, 0, 27, 4}, kInk, kInk, 7, Axis::Vertical, Heading::Backward);
    EXPECT_EQ(Picture({20, 0, 27, 4}), MirroredUpsideDown(Transposed(kTriangle)));
}

TEST_F(Marks, SizeOfATriangleIsMadeOdd) {
    DrawTriangle(canvas.Dc(), {0, 0, 4, 7}, kInk, kInk, 6, Axis::Horizontal, Heading::Forward);
    EXPECT_EQ(Picture({0, 0, 4, 7}), kTriangle);
}

TEST_F(Marks, TriangleStandsInTheMiddle) {
    DrawTriangle(canvas.Dc(), {0, 0, 12, 17}, kInk, kInk, 7, Axis::Horizontal, Heading::Forward);
    EXPECT_EQ(ExtentOf(Picture()), (RECT{4, 5, 8, 12}));
}

TEST_F(Marks, EndsOfTheTriangleTakeTheEdgeColour) {
    DrawTriangle(canvas.Dc(), {0, 0, 7, 4}, kInk, kMark, 7, Axis::Vertical, Heading::Forward);
    EXPECT_EQ(Picture({0, 0, 7, 4}), (Rows{
                                         "x#####x",
                                         ".x###x.",
                                         "..x#x..",
                                         "...x...",
                                     }));
}

TEST_F(Marks, TriangleWithoutAnEdgeColourIsOfOneColour) {
    DrawTriangle(canvas.Dc(), {0, 0, 4, 7}, kInk, kNone, 7, Axis::Horizontal, Heading::Forward);
    EXPECT_EQ(Picture({0, 0, 4, 7}), kTriangle);
}

// --- The grip ---

TEST_F(Marks, GripIsSixDotsInTheBottomRightCorner) {
    DrawGripDots(canvas.Dc(), {0, 0, 10, 10}, kInk);
    EXPECT_EQ(Picture({0, 0, 11, 11}), (Rows{
                                           "...........",
                                           "...........",
                                           "........##.",
                                           "........##.",
                                           "...........",
                                           ".....##.##.",
                                           ".....##.##.",
                                           "...........",
                                           "..##.##.##.",
                                           "..##.##.##.",
                                           "...........",
                                       }));
}

TEST_F(Marks, SymbolsOfNoColourAreNothing) {
    DrawChevron(canvas.Dc(), {0, 0, 10, 10}, kNone, Axis::Horizontal, Heading::Forward, 1);
    DrawTriangle(canvas.Dc(), {0, 0, 10, 10}, kNone, kNone, 7, Axis::Horizontal, Heading::Forward);
    DrawGripDots(canvas.Dc(), {0, 0, 10, 10}, kNone);
    EXPECT_EQ(canvas.Count(kPaper), kSize * kSize);
}

}  // namespace
