#include <gtest/gtest.h>

#include "tests/gui/rows.h"
#include "toolkit/draw.h"
#include "toolkit/rect.h"

namespace {

constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kNone = 0xFFFFFFFF;
constexpr RECT kWhole{0, 0, 8, 6};

class Fill : public testing::Test {
protected:
    [[nodiscard]] Rows Picture() const {
        return RowsOf(canvas, kWhole, {{kPaper, '.'}, {kInk, '#'}, {kRed, 'r'}});
    }
    [[nodiscard]] bool IsUntouched() const { return canvas.Count(kPaper) == Width(kWhole) * Height(kWhole); }

    Canvas canvas{8, 6};
};

TEST_F(Fill, CoversARectangleWithoutItsRightAndBottom) {
    FillSolid(canvas.Dc(), {1, 1, 4, 3}, kInk);
    EXPECT_EQ(Picture(), (Rows{
                             "........",
                             ".###....",
                             ".###....",
                             "........",
                             "........",
                             "........",
                         }));
}

TEST_F(Fill, OfNoColourOrNoSizePaintsNothing) {
    FillSolid(canvas.Dc(), kWhole, kNone);
    FillSolid(canvas.Dc(), kWhole, 0x1000000);
    FillSolid(canvas.Dc(), {3, 3, 3, 5}, kInk);
    EXPECT_TRUE(IsUntouched());
}

TEST_F(Fill, OfTheGreatestColourPaints) {
    FillSolid(canvas.Dc(), kWhole, kInk);
    FillSolid(canvas.Dc(), kWhole, 0xFFFFFF);
    EXPECT_TRUE(IsUntouched());
}

TEST_F(Fill, EdgesStandInsideTheRectangle) {
    FillEdges(canvas.Dc(), {1, 0, 8, 6}, kInk, EDGE_ALL, 1);
    EXPECT_EQ(Picture(), (Rows{
                             ".#######",
                             ".#.....#",
                             ".#.....#",
                             ".#.....#",
                             ".#.....#",
                             ".#######",
                         }));
}

TEST_F(Fill, EdgesAreChosenBitByBit) {
    FillEdges(canvas.Dc(), {0, 0, 4, 3}, kInk, 1, 1);
    FillEdges(canvas.Dc(), {4, 0, 8, 3}, kInk, 2, 1);
    FillEdges(canvas.Dc(), {0, 3, 4, 6}, kInk, 4, 1);
    FillEdges(canvas.Dc(), {4, 3, 8, 6}, kInk, 8, 1);
    EXPECT_EQ(Picture(), (Rows{
                             "#...####",
                             "#.......",
                             "#.......",
                             "...#....",
                             "...#....",
                             "...#####",
                         }));
}

TEST_F(Fill, EdgesHaveTheirWidth) {
    FillEdges(canvas.Dc(), kWhole, kInk, EDGE_LEFT | EDGE_BOTTOM, 2);
    EXPECT_EQ(Picture(), (Rows{
                             "##......",
                             "##......",
                             "##......",
                             "##......",
                             "########",
                             "########",
                         }));
}

TEST_F(Fill, EachEdgeGrowsInwards) {
    FillEdges(canvas.Dc(), {1, 1, 7, 6}, kInk, EDGE_TOP | EDGE_RIGHT, 2);
    EXPECT_EQ(Picture(), (Rows{
                             "........",
                             ".######.",
                             ".######.",
                             ".....##.",
                             ".....##.",
                             ".....##.",
                         }));
}

TEST_F(Fill, EdgesWiderThanTheRectangleStayInIt) {
    FillEdges(canvas.Dc(), {2, 2, 4, 4}, kInk, EDGE_ALL, 5);
    EXPECT_EQ(canvas.Count(kInk), 4);
}

TEST_F(Fill, EdgesOfNoColourNoWidthOrNoBitPaintNothing) {
    FillEdges(canvas.Dc(), kWhole, kNone, EDGE_ALL, 1);
    FillEdges(canvas.Dc(), kWhole, kInk, EDGE_ALL, 0);
    FillEdges(canvas.Dc(), kWhole, kInk, 0, 1);
    EXPECT_TRUE(IsUntouched());
}

TEST_F(Fill, EdgesPutTheBackgroundColourBack) {
    SetBkColor(canvas.Dc(), kRed);
    FillEdges(canvas.Dc(), kWhole, kInk, EDGE_ALL, 1);
    EXPECT_EQ(GetBkColor(canvas.Dc()), kRed);
}

TEST_F(Fill, BevelHasTheSecondColourInTheCornersThatBothReach) {
    DrawBevel(canvas.Dc(), {0, 0, 6, 5}, kInk, kRed, EDGE_ALL);
    EXPECT_EQ(Picture(), (Rows{
                             "#####r..",
                             "#....r..",
                             "#....r..",
                             "#....r..",
                             "rrrrrr..",
                             "........",
                         }));
}

TEST_F(Fill, BevelDrawsItsChosenEdges) {
    DrawBevel(canvas.Dc(), {0, 0, 6, 5}, kInk, kRed, EDGE_TOP | EDGE_RIGHT);
    EXPECT_EQ(Picture(), (Rows{
                             "#####r..",
                             ".....r..",
                             ".....r..",
                             ".....r..",
                             ".....r..",
                             "........",
                         }));
}

TEST_F(Fill, BevelWithoutOneColourDrawsTheOther) {
    DrawBevel(canvas.Dc(), {0, 0, 6, 5}, kNone, kRed, EDGE_ALL);
    EXPECT_EQ(canvas.Count(kRed), 10);
    EXPECT_EQ(canvas.Count(kPaper), 38);
}

// --- Focus dots ---

TEST_F(Fill, FocusDotsStartAtTheBottomLeftAndGoOnInStepFromSideToSide) {
    DrawFocusDots(canvas.Dc(), {0, 0, 7, 5}, kInk);
    EXPECT_EQ(Picture(), (Rows{
                             "#.#.#.#.",
                             "........",
                             "#.....#.",
                             "........",
                             "#.#.#.#.",
                             "........",
                         }));
}

TEST_F(Fill, FocusDotsKeepTheirStepAroundACornerOfAnEvenSide) {
    DrawFocusDots(canvas.Dc(), {0, 0, 6, 6}, kInk);
    EXPECT_EQ(Picture(), (Rows{
                             ".#.#.#..",
                             "#.......",
                             ".....#..",
                             "#.......",
                             ".....#..",
                             "#.#.#...",
                         }));
}

TEST_F(Fill, FocusDotsOfAnEvenHeightAndAnOddWidth) {
    DrawFocusDots(canvas.Dc(), {1, 1, 6, 5}, kInk);
    EXPECT_EQ(Picture(), (Rows{
                             "........",
                             "..#.#...",
                             ".#...#..",
                             "........",
                             ".#.#.#..",
                             "........",
                         }));
}

TEST_F(Fill, FocusDotsOfALineAreOnEveryOtherPixel) {
    DrawFocusDots(canvas.Dc(), {0, 0, 8, 1}, kInk);
    DrawFocusDots(canvas.Dc(), {0, 2, 1, 6}, kInk);
    DrawFocusDots(canvas.Dc(), {4, 3, 5, 4}, kInk);
    EXPECT_EQ(Picture(), (Rows{
                             "#.#.#.#.",
                             "........",
                             "........",
                             "#...#...",
                             "........",
                             "#.......",
                         }));
}

TEST_F(Fill, FocusDotsOfNoColourOrNoSizePaintNothing) {
    DrawFocusDots(canvas.Dc(), kWhole, kNone);
    DrawFocusDots(canvas.Dc(), {2, 2, 2, 4}, kInk);
    DrawFocusDots(canvas.Dc(), {2, 2, 4, 2}, kInk);
    DrawFocusDots(canvas.Dc(), {4, 2, 2, 4}, kInk);
    EXPECT_TRUE(IsUntouched());
}

// --- Around a client area ---

class NonClient : public testing::Test {
protected:
    static constexpr int kSize = 40;

    // Two pixels of edge around the client area.
    NonClient()
        : window(CreateWindowExW(WS_EX_CLIENTEDGE | WS_EX_TOPMOST, L"STATIC", nullptr, WS_POPUP | WS_VISIBLE,
                                 20, 20, kSize, kSize, nullptr, nullptr, nullptr, nullptr)) {
        PumpQueue();
        const tvWindowDC dc(window);
        FillSolid(dc.Get(), {0, 0, kSize, kSize}, kPaper);
    }
    ~NonClient() override { DestroyWindow(window); }

    // Of the whole window.
    [[nodiscard]] COLORREF At(int x, int y) const {
        const tvWindowDC dc(window);
        return GetPixel(dc.Get(), x, y);
    }

    HWND window;
};

TEST_F(NonClient, IsFilledAndFramedWhileTheClientAreaIsLeftAlone) {
    FrameNonClient(window, kRed, kInk);
    EXPECT_EQ(At(0, 0), kInk);
    EXPECT_EQ(At(kSize - 1, kSize - 1), kInk);
    EXPECT_EQ(At(20, 0), kInk);
    EXPECT_EQ(At(0, 20), kInk);
    EXPECT_EQ(At(1, 1), kRed);
    EXPECT_EQ(At(20, kSize - 2), kRed);
    EXPECT_EQ(At(kSize - 2, 20), kRed);
    EXPECT_EQ(At(2, 2), kPaper);
    EXPECT_EQ(At(kSize - 3, kSize - 3), kPaper);
}

TEST_F(NonClient, WithoutAFrameIsFilledAlone) {
    FrameNonClient(window, kRed, kNone);
    EXPECT_EQ(At(0, 0), kRed);
    EXPECT_EQ(At(1, 1), kRed);
    EXPECT_EQ(At(2, 2), kPaper);
}

TEST_F(NonClient, WithoutAFillIsFramedAlone) {
    FrameNonClient(window, kNone, kInk);
    EXPECT_EQ(At(0, 0), kInk);
    EXPECT_EQ(At(1, 1), kPaper);
}

TEST_F(NonClient, WithoutAnyColourIsLeftAlone) {
    FrameNonClient(window, kNone, kNone);
    EXPECT_EQ(At(0, 0), kPaper);
}

}  // namespace
