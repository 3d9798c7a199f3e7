#include "toolkit/glyph.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/gui/harness.h"
#include "tests/gui/rows.h"
#include "toolkit/rect.h"

namespace {

constexpr int kBox = 16;
constexpr int kMargin = 4;
constexpr RECT kRect{0, 0, kBox + 2 * kMargin, kBox + 2 * kMargin};
constexpr RECT kBoxRect{kMargin, kMargin, kMargin + kBox, kMargin + kBox};

// The box of a glyph drawn in the middle of a larger rectangle.
Rows Drawn(int glyph) {
    const Canvas canvas(Width(kRect), Height(kRect));
    DrawGlyph(canvas.Dc(), kRect, glyph, kInk, kPaper);
    return RowsOf(canvas, kBoxRect);
}

COLORREF Middle(int glyph, COLORREF color) {
    const Canvas canvas(Width(kRect), Height(kRect));
    DrawGlyph(canvas.Dc(), kRect, glyph, color, kPaper);
    return canvas.At(Width(kRect) / 2, Height(kRect) / 2);
}

TEST(Glyph, FolderIsItsMaskWithAFilledFlap) {
    const Rows rows = Drawn(GLYPH_FOLDER);
    const Rows mask = {
        "................",  //
        "................",  //
        "................",  //
        ".############...",  //
        ".#..........#...",  //
        ".#..........#...",  //
        ".#...###########",  //
        ".#...###########",  //
        ".#..###########.",  //
        ".#..###########.",  //
        ".#.###########..",  //
        ".#.###########..",  //
        ".############...",  //
        ".############...",  //
        "................",  //
        "................",  //
    };
    for (std::size_t y = 0; y < mask.size(); ++y)
        for (std::size_t x = 0; x < mask[y].size(); ++x)
            EXPECT_TRUE(mask[y][x] == '.' || rows[y][x] == '#') << x << ", " << y;
    // What the flap adds lies at its slanted sides.
    EXPECT_EQ(ExtentOf(rows), (RECT{1, 3, 16, 14}));
    EXPECT_EQ(rows[4], mask[4]);
    EXPECT_EQ(rows[6].substr(0, 3), ".#.");
    EXPECT_EQ(rows[6][4], '#');
    EXPECT_EQ(rows[13], mask[13]);
    EXPECT_LE(CountIn(rows, '#') - CountIn(mask, '#'), 10);
    EXPECT_GT(CountIn(rows, '#'), CountIn(mask, '#'));
}

TEST(Glyph, PencilIsItsMask) {
    EXPECT_EQ(Drawn(GLYPH_PENCIL), (Rows{
                                       "................",
                                       "..........##....",
                                       ".........####...",
                                       "........######..",
                                       ".......#######..",
                                       "......#######...",
                                       ".....#######....",
                                       "....#######.....",
                                       "...#######......",
                                       "...######.......",
                                       ".#..####........",
                                       ".##..##.........",
                                       ".###............",
                                       ".####...........",
                                       "................",
                                       "..#########.....",
                                   }));
}

TEST(Glyph, DiskIsItsMask) {
    EXPECT_EQ(Drawn(GLYPH_DISK), (Rows{
                                     "################",
                                     "#..#........#..#",
                                     "#..#.######.#..#",
                                     "#..#........#..#",
                                     "#..#.######.#..#",
                                     "#..#........#..#",
                                     "#..#........#..#",
                                     "#..##########..#",
                                     "#..............#",
                                     "#..............#",
                                     "#..##########..#",
                                     "#..#........#..#",
                                     "#..#.###....#..#",
                                     "#..#.###....#..#",
                                     ".#.#.###....#..#",
                                     "..##############",
                                 }));
}

TEST(Glyph, PauseIsTwoBars) {
    const Rows rows = Drawn(GLYPH_PAUSE);
    for (std::size_t y = 0; y < rows.size(); ++y)
        EXPECT_EQ(rows[y], y >= 2 && y < 14 ? ".....#.....#...." : "................") << y;
}

TEST(Glyph, MinimiseIsABarOfTenPixels) {
    const Rows rows = Drawn(GLYPH_MINIMISE);
    EXPECT_EQ(ExtentOf(rows), (RECT{3, 7, 13, 8}));
    EXPECT_EQ(rows[7], "...##########...");
}

TEST(Glyph, MaximiseIsAFrameOfTenPixels) {
    EXPECT_EQ(Drawn(GLYPH_MAXIMISE), (Rows{
                                         "................",
                                         "................",
                                         "................",
                                         "...##########...",
                                         "...#........#...",
                                         "...#........#...",
                                         "...#........#...",
                                         "...#........#...",
                                         "...#........#...",
                                         "...#........#...",
                                         "...#........#...",
                                         "...#........#...",
                                         "...##########...",
                                         "................",
                                         "................",
                                         "................",
                                     }));
}

TEST(Glyph, RestoreIsTheUpperOfTwoFramesOverTheLower) {
    EXPECT_EQ(Drawn(GLYPH_RESTORE), (Rows{
                                        "................",
                                        "................",
                                        "....##########..",
                                        "....#........#..",
                                        "..###........#..",
                                        "..#.#........#..",
                                        "..#.#........#..",
                                        "..#.#........#..",
                                        "..#.#........#..",
                                        "..#.#........#..",
                                        "..#.#........#..",
                                        "..#.##########..",
                                        "..#........#....",
                                        "..##########....",
                                        "................",
                                        "................",
                                    }));
}

const Rows kChevron = {
    "................",  //
    "................",  //
    "................",  //
    ".....##.........",  //
    "......##........",  //
    ".......##.......",  //
    "........##......",  //
    ".........##.....",  //
    ".........##.....",  //
    "........##......",  //
    ".......##.......",  //
    "......##........",  //
    ".....##.........",  //
    "................",  //
    "................",  //
    "................",  //
};

TEST(Glyph, ChevronsPointRightAndLeft) {
    EXPECT_EQ(Drawn(GLYPH_CHEVRON_RIGHT), kChevron);
    EXPECT_EQ(Drawn(GLYPH_CHEVRON_LEFT), MirroredLeftRight(kChevron));
}

TEST(Glyph, ChevronsWithABarHaveItWhereTheyPointTo) {
    Rows expected = kChevron;
    for (std::size_t y = 2; y < 14; ++y)
        expected[y][13] = '#';
    EXPECT_EQ(Drawn(GLYPH_CHEVRON_RIGHT_BAR), expected);
    EXPECT_EQ(Drawn(GLYPH_CHEVRON_LEFT_BAR), MirroredLeftRight(expected));
}

TEST(Glyph, TriangleIsSevenPixelsHighAndPointsDown) {
    const Rows rows = Drawn(GLYPH_TRIANGLE);
    EXPECT_EQ(ExtentOf(rows), (RECT{1, 4, 14, 11}));
    for (std::size_t i = 0; i < 7; ++i) {
        const std::string line = std::string(1 + i, '.') + std::string(13 - 2 * i, '#');
        EXPECT_EQ(rows[4 + i], line + std::string(kBox - line.size(), '.'));
    }
}

// --- The close cross ---

class CloseCross : public testing::Test {
protected:
    static constexpr COLORREF kColor = RGB(101, 10, 255);
    static constexpr COLORREF kBackground = RGB(3, 202, 9);
    // Four parts of one and one of the other in five, cut to whole numbers:
    // (404 + 3) / 5, (40 + 202) / 5, (1020 + 9) / 5 and (12 + 101) / 5, (808 + 10) / 5, (36 + 255) / 5.
    static constexpr COLORREF kBeside = RGB(81, 48, 205);
    static constexpr COLORREF kCorner = RGB(22, 163, 58);
};

TEST_F(CloseCross, IsBlendedWithItsBackgroundInTwoTones) {
    const Canvas canvas(kBox, kBox, kBackground);
    DrawGlyph(canvas.Dc(), {0, 0, kBox, kBox}, GLYPH_CLOSE, kColor, kBackground);
    const Rows rows = RowsOf(canvas, {0, 0, kBox, kBox},
                             {{kBackground, '.'}, {kColor, '#'}, {kBeside, '+'}, {kCorner, '-'}});
    EXPECT_EQ(rows, (Rows{
                        "................",
                        "................",
                        "................",
                        "...-+......+-...",
                        "...+#+....+#+...",
                        "....+#+..+#+....",
                        ".....+#++#+.....",
                        "......+##+......",
                        "......+##+......",
                        ".....+#++#+.....",
                        "....+#+..+#+....",
                        "...+#+....+#+...",
                        "...-+......+-...",
                        "................",
                        "................",
                        "................",
                    }));
}

TEST_F(CloseCross, TonesOfEqualColoursAreThatColour) {
    for (int value = 0; value <= 255; ++value) {
        const Canvas canvas(kBox, kBox, kInk);
        const COLORREF gray = RGB(value, value, value);
        DrawGlyph(canvas.Dc(), {0, 0, kBox, kBox}, GLYPH_CLOSE, gray, gray);
        EXPECT_EQ(canvas.At(3, 3), gray);
        EXPECT_EQ(canvas.At(4, 3), gray);
    }
}

TEST_F(CloseCross, WithoutABackgroundHasItsDiagonalsAlone) {
    const Canvas canvas(kBox, kBox);
    DrawGlyph(canvas.Dc(), {0, 0, kBox, kBox}, GLYPH_CLOSE, kColor, 0xFFFFFFFF);
    EXPECT_EQ(canvas.Count(kColor), 20);
    EXPECT_EQ(canvas.Count(kPaper), kBox * kBox - 20);
}

// --- Smooth ones: what they are made of depends on how well the system smooths them ---

TEST(Glyph, DotsAreThreeOfAKindSideBySide) {
    const Rows rows = Drawn(GLYPH_DOTS);
    const RECT extent = ExtentOf(rows);
    EXPECT_GE(extent.top, 6);
    EXPECT_LE(extent.bottom, 10);
    EXPECT_EQ(extent.left, 0);
    EXPECT_EQ(extent.right, 16);
    for (const std::string& row : rows) {
        EXPECT_EQ(row.substr(0, 4), row.substr(6, 4));
        EXPECT_EQ(row.substr(0, 4), row.substr(12, 4));
        EXPECT_EQ(row.substr(4, 2), "..");
        EXPECT_EQ(row.substr(10, 2), "..");
    }
    EXPECT_EQ(rows[8], "####..####..####");
}

TEST(Glyph, ArrowsPointUpAndDown) {
    const Rows up = Drawn(GLYPH_UP);
    const Rows down = Drawn(GLYPH_DOWN);
    for (std::size_t y = 1; y < up.size(); ++y)  // about row 8
        EXPECT_EQ(down[16 - y], up[y]) << y;
    // A point above and two wings below with a notch between.
    const RECT extent = ExtentOf(up);
    EXPECT_LE(extent.top, 3);
    EXPECT_GE(extent.bottom, 13);
    EXPECT_GE(Width(extent), 11);
    EXPECT_EQ(up[4][8], '#');
    EXPECT_EQ(up[4][4], '.');
    EXPECT_EQ(up[11][3], '#');
    EXPECT_EQ(up[11][8], '.');
    EXPECT_EQ(up[11][13], '#');
    for (const std::string& row : up)  // about column 8
        EXPECT_EQ(row.substr(1, 7), std::string(row.rbegin(), row.rbegin() + 7)) << row;
}

TEST(Glyph, PlayIsATriangleThatPointsRight) {
    const Rows rows = Drawn(GLYPH_PLAY);
    const RECT extent = ExtentOf(rows);
    EXPECT_EQ(extent.left, 5);
    EXPECT_GE(extent.top, 2);
    EXPECT_LE(extent.bottom, 15);
    EXPECT_GE(extent.right, 14);
    EXPECT_EQ(rows[8][6], '#');
    EXPECT_EQ(rows[8][13], '#');
    EXPECT_EQ(rows[4][12], '.');
    for (std::size_t i = 1; i <= 5; ++i)  // about row 8
        EXPECT_EQ(rows[8 - i], rows[8 + i]);
    for (std::size_t y = 3; y < 8; ++y)
        EXPECT_LE(CountIn({rows[y]}, '#'), CountIn({rows[y + 1]}, '#'));
}

TEST(Glyph, BinHasALidAHandleAndTwoRibs) {
    const Rows rows = Drawn(GLYPH_BIN);
    EXPECT_EQ(rows, MirroredLeftRight(rows));
    EXPECT_EQ(rows[4], ".##############.");
    EXPECT_EQ(rows[2], ".....#....#.....");
    EXPECT_EQ(rows[8][6], '#');
    EXPECT_EQ(rows[8][7], '.');
    EXPECT_EQ(rows[8][9], '#');
    EXPECT_EQ(rows[15].substr(4, 8), "########");
}

TEST(Glyph, RefreshIsAnOpenCircleWithAnArrowHead) {
    const Rows rows = Drawn(GLYPH_REFRESH);
    EXPECT_EQ(rows[8].substr(4, 8), "........");  // nothing in the middle
    EXPECT_EQ(rows[8].substr(12), "....");        // open at the right
    EXPECT_NE(rows[8].find('#'), std::string::npos);
    EXPECT_NE(rows[1].substr(5, 6).find('#'), std::string::npos);
    EXPECT_NE(rows[15].substr(5, 6).find('#'), std::string::npos);
    // The end of the arc, at the upper right, has more in it than the start below.
    int upper = 0;
    int lower = 0;
    for (std::size_t y = 2; y < 8; ++y)
        upper += CountIn({rows[y].substr(10)}, '#');
    for (std::size_t y = 9; y < 15; ++y)
        lower += CountIn({rows[y].substr(10)}, '#');
    EXPECT_GT(upper, lower + 3);
}

TEST(Glyph, AutoIsALightningBoltBesideALetter) {
    const Rows rows = Drawn(GLYPH_AUTO);
    EXPECT_EQ(ExtentOf(rows), (RECT{0, 0, 16, 16}));
    // The bolt runs from the upper middle to the lower left, the letter stands at the lower right.
    EXPECT_EQ(rows[1].substr(11), ".....");
    EXPECT_NE(rows[0].substr(3, 6).find('#'), std::string::npos);
    EXPECT_NE(rows[13].substr(0, 5).find('#'), std::string::npos);
    EXPECT_NE(rows[13].substr(8, 3).find('#'), std::string::npos);
    EXPECT_NE(rows[13].substr(13, 3).find('#'), std::string::npos);
    EXPECT_EQ(rows[8].substr(14), "..");
}

TEST(Glyph, HexagonHasACircleInIt) {
    const Rows rows = Drawn(GLYPH_HEXAGON);
    const RECT extent = ExtentOf(rows);
    EXPECT_GE(Width(extent), 14);
    EXPECT_GE(Height(extent), 13);
    EXPECT_LT(Height(extent), Width(extent));  // it stands on a side
    EXPECT_EQ(rows[1].substr(0, 3), "...");
    EXPECT_EQ(rows[1].substr(13), "...");
    EXPECT_NE(rows[1].find("######"), std::string::npos);
    EXPECT_EQ(rows[8].substr(6, 4), "....");  // the middle of the circle
    EXPECT_EQ(rows[8].find('#'), 0U);
    EXPECT_NE(rows[8].substr(3, 3).find('#'), std::string::npos);
    EXPECT_NE(rows[8].substr(10, 3).find('#'), std::string::npos);
}

// --- All of them ---

TEST(Glyph, EachOneIsAPictureOfItsOwn) {
    std::vector<Rows> seen;
    for (int glyph = 1; glyph <= kGlyphs; ++glyph) {
        const Rows rows = Drawn(glyph);
        EXPECT_NE(CountIn(rows, '.'), kBox * kBox) << glyph;
        EXPECT_EQ(std::count(seen.begin(), seen.end(), rows), 0) << glyph;
        seen.push_back(rows);
    }
}

TEST(Glyph, StaysInItsBoxButForTheHeadOfAnArrow) {
    for (int glyph = 1; glyph <= kGlyphs; ++glyph) {
        const Canvas canvas(Width(kRect), Height(kRect));
        DrawGlyph(canvas.Dc(), kRect, glyph, kInk, kPaper);
        RECT extent = ExtentOf(RowsOf(canvas, kRect));
        const RECT allowed = glyph == GLYPH_REFRESH ? Inset(kBoxRect, -1, -1) : kBoxRect;
        RECT all;
        UnionRect(&all, &extent, &allowed);
        EXPECT_EQ(all, allowed) << glyph;
    }
}

TEST(Glyph, HasItsColour) {
    constexpr COLORREF kOdd = RGB(0x12, 0x34, 0x56);
    for (const int glyph : {GLYPH_FOLDER, GLYPH_PENCIL, GLYPH_DOTS, GLYPH_UP, GLYPH_DOWN, GLYPH_CLOSE,
                            GLYPH_PLAY, GLYPH_TRIANGLE})
        EXPECT_EQ(Middle(glyph, kOdd), kOdd) << glyph;
    for (int glyph = 1; glyph <= kGlyphs; ++glyph) {
        const Canvas canvas(Width(kRect), Height(kRect));
        DrawGlyph(canvas.Dc(), kRect, glyph, kOdd, kPaper);
        EXPECT_GT(canvas.Count(kOdd), 9) << glyph;
    }
}

TEST(Glyph, ThatIsNoneAndNoColourDrawNothing) {
    const Canvas canvas(Width(kRect), Height(kRect));
    for (const int glyph : {0, -1, kGlyphs + 1, 1000})
        DrawGlyph(canvas.Dc(), kRect, glyph, kInk, kPaper);
    for (int glyph = 1; glyph <= kGlyphs; ++glyph)
        DrawGlyph(canvas.Dc(), kRect, glyph, 0xFFFFFFFF, kPaper);
    EXPECT_EQ(canvas.Count(kPaper), Width(kRect) * Height(kRect));
}

TEST(Glyph, LeavesNothingBehindInTheSystem) {
    const Canvas canvas(Width(kRect), Height(kRect));
    const auto drawAll = [&] {
        for (int glyph = 1; glyph <= kGlyphs; ++glyph)
            DrawGlyph(canvas.Dc(), kRect, glyph, kInk, kPaper);
    };
    drawAll();
    const auto before = WhatIsHeld().gdiObjects;
    for (int i = 0; i < 20; ++i)
        drawAll();
    EXPECT_EQ(WhatIsHeld().gdiObjects, before);
}

}  // namespace
