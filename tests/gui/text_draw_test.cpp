#include "toolkit/text_draw.h"

#include <gtest/gtest.h>

#include "tests/gui/rows.h"
#include "toolkit/font.h"
#include "toolkit/rect.h"

namespace {

constexpr int kWidth = 450;
constexpr int kHeight = 40;
constexpr RECT kAll{0, 0, kWidth, kHeight};

// Texts without smooth edges, so that a pixel is ink or paper.
class TextDraw : public testing::Test {
protected:
    TextDraw() {
        LOGFONTW plain = FallbackFont(nullptr);
        plain.lfHeight = -16;
        plain.lfQuality = NONANTIALIASED_QUALITY;
        font.Set(plain);
        Prepare(canvas);
    }

    void Prepare(const Canvas& target) const {
        SelectObject(target.Dc(), font.Get());
        SetBkMode(target.Dc(), TRANSPARENT);
        SetTextColor(target.Dc(), kInk);
    }

    [[nodiscard]] int WidthOf(const tvstring& text) const {
        RECT rect{};
        MeasureText(text, DT_SINGLELINE, canvas.Dc(), rect);
        return ::Width(rect);
    }

    // What plain drawing of a text with its right end at this place looks like.
    [[nodiscard]] Rows Plain(const tvstring& text, int right, UINT flags = 0) const {
        const Canvas other(kWidth, kHeight);
        Prepare(other);
        RECT rect{0, 0, right, kHeight};
        DrawTextW(other.Dc(), Wide(text.c_str()), -1, &rect, DT_SINGLELINE | DT_RIGHT | flags);
        return RowsOf(other, kAll);
    }

    [[nodiscard]] Rows Picture() const { return RowsOf(canvas, kAll); }

    static constexpr std::u16string_view kPath = u"C:\\Users\\Somebody\\Documents\\Passwords.vmr";

    tvfont font;
    Canvas canvas{kWidth, kHeight};
};

// --- Measuring ---

TEST_F(TextDraw, MeasuringGivesTheHeightAndTheRectangle) {
    RECT rect{10, 20, 1000, 20};
    TEXTMETRICW metrics{};
    GetTextMetricsW(canvas.Dc(), &metrics);
    EXPECT_EQ(MeasureText(u"Word", DT_SINGLELINE, canvas.Dc(), rect), metrics.tmHeight);
    SIZE size{};
    GetTextExtentPoint32W(canvas.Dc(), L"Word", 4, &size);
    EXPECT_EQ(rect, (RECT{10, 20, 10 + size.cx, 20 + size.cy}));
}

TEST_F(TextDraw, MeasuringWrapsInTheWidthIfAskedTo) {
    TEXTMETRICW metrics{};
    GetTextMetricsW(canvas.Dc(), &metrics);
    RECT rect{0, 0, WidthOf(u"some words some"), 0};
    EXPECT_EQ(MeasureText(u"some words some words", DT_WORDBREAK, canvas.Dc(), rect), 2 * metrics.tmHeight);
    EXPECT_EQ(rect.bottom, 2 * metrics.tmHeight);
}

TEST_F(TextDraw, MeasuringDrawsNothing) {
    RECT rect = kAll;
    MeasureText(u"Word", DT_SINGLELINE, canvas.Dc(), rect);
    EXPECT_EQ(canvas.Count(kPaper), kWidth * kHeight);
}

TEST_F(TextDraw, MeasuringAnEmptyTextEmptiesTheRectangle) {
    RECT rect{10, 20, 30, 40};
    EXPECT_EQ(MeasureText(u"", DT_SINGLELINE, canvas.Dc(), rect), 0);
    EXPECT_EQ(rect, RECT{});
}

// --- The ellipsis in front ---

TEST_F(TextDraw, TextThatFitsIsDrawnAtTheRight) {
    const int width = WidthOf(kPath);
    ASSERT_LT(width + 1, kWidth);
    EXPECT_EQ(DrawTextPathEllipsis(kPath, canvas.Dc(), kAll, 0), width);
    EXPECT_EQ(Picture(), Plain(kPath, kWidth));
}

TEST_F(TextDraw, TextThatJustFitsIsDrawnWhole) {
    const int width = WidthOf(kPath);
    EXPECT_EQ(DrawTextPathEllipsis(kPath, canvas.Dc(), {0, 0, width, kHeight}, 0), width);
    EXPECT_EQ(Picture(), Plain(kPath, width));
}

// The longest end of the path that has room beside the dots, found in the plainest way.
TEST_F(TextDraw, TextThatDoesNotFitKeepsAsMuchOfItsEndAsHasRoomBesideTheDots) {
    const int whole = WidthOf(kPath);
    const int dots = WidthOf(u"...");
    constexpr int kStep = 3;
    for (int width = dots + WidthOf(u"r"); width < whole; width += kStep) {
        tvstring tail;
        for (std::size_t start = 0; start < kPath.size(); ++start) {
            tail = kPath.substr(start);
            if (WidthOf(tail) <= width - dots) break;
        }
        const Canvas mine(kWidth, kHeight);
        Prepare(mine);
        EXPECT_EQ(DrawTextPathEllipsis(kPath, mine.Dc(), {0, 0, width, kHeight}, 0), dots + WidthOf(tail));
        const Rows tailRows = Plain(tail, width);
        const Rows dotRows = Plain(u"...", width - WidthOf(tail));
        Rows expected = tailRows;
        for (std::size_t y = 0; y < expected.size(); ++y)
            for (std::size_t x = 0; x < expected[y].size(); ++x)
                if (dotRows[y][x] == '#') expected[y][x] = '#';
        ASSERT_EQ(RowsOf(mine, kAll), expected) << width;
    }
}

TEST_F(TextDraw, TextOfWideOrNarrowLettersIsCutWhereItMustBe) {
    const int dots = WidthOf(u"...");
    for (const char16_t letter : {u'i', u'W', u'.'}) {
        const tvstring text(60, letter);
        const int room = 100;
        const int letters = room / WidthOf(tvstring(1, letter));
        ASSERT_LT(letters, 60);
        const int used = DrawTextPathEllipsis(text, canvas.Dc(), {0, 0, dots + room, kHeight}, 0);
        EXPECT_EQ(used, dots + WidthOf(tvstring(static_cast<std::size_t>(letters), letter)));
    }
}

TEST_F(TextDraw, RectangleNarrowerThanTheDotsShowsDotsAndNoTail) {
    const int dots = WidthOf(u"...");
    for (int width = 0; width <= dots; ++width) {
        const Canvas mine(kWidth, kHeight);
        Prepare(mine);
        DrawTextPathEllipsis(kPath, mine.Dc(), {50, 0, 50 + width, kHeight}, 0);
        const Canvas plain(kWidth, kHeight);
        Prepare(plain);
        RECT rect{50, 0, 50 + width, kHeight};
        DrawTextW(plain.Dc(), L"...", 3, &rect, DT_SINGLELINE | DT_RIGHT);
        EXPECT_EQ(RowsOf(mine, kAll), RowsOf(plain, kAll)) << width;
    }
}

TEST_F(TextDraw, RectangleOfTheDotsAloneShowsThemWhole) {
    const int dots = WidthOf(u"...");
    EXPECT_EQ(DrawTextPathEllipsis(kPath, canvas.Dc(), {0, 0, dots, kHeight}, 0), dots);
    EXPECT_EQ(Picture(), Plain(u"...", dots));
    EXPECT_GT(canvas.Count(kInk), 0);
}

TEST_F(TextDraw, RoomForPartOfACharacterShowsAtMostThat) {
    const tvstring text(20, u'W');
    const int width = WidthOf(u"...") + WidthOf(u"W") / 2;
    EXPECT_EQ(DrawTextPathEllipsis(text, canvas.Dc(), {0, 0, width, kHeight}, 0), width);
    const RECT extent = ExtentOf(Picture());
    EXPECT_LE(extent.right, width);
    const Rows dots = Plain(u"...", WidthOf(u"..."));
    for (std::size_t y = 0; y < dots.size(); ++y) {
        const auto room = static_cast<std::size_t>(WidthOf(u"..."));
        EXPECT_EQ(Picture()[y].substr(0, room), dots[y].substr(0, room));
    }
}

TEST_F(TextDraw, EmptyTextAndNegativeWidthDrawNothing) {
    EXPECT_EQ(DrawTextPathEllipsis(u"", canvas.Dc(), kAll, 0), 0);
    EXPECT_EQ(DrawTextPathEllipsis(kPath, canvas.Dc(), {50, 0, 49, kHeight}, 0), 0);
    EXPECT_EQ(canvas.Count(kPaper), kWidth * kHeight);
}

TEST_F(TextDraw, FlagsOfPlaceAndPrefixCount) {
    for (const UINT flag :
         {DT_VCENTER, DT_BOTTOM, DT_EXPANDTABS, DT_NOPREFIX, DT_HIDEPREFIX, DT_PREFIXONLY}) {
        for (const char16_t* text : {u"A &B", u"A\tB"}) {
            const Canvas mine(kWidth, kHeight);
            Prepare(mine);
            DrawTextPathEllipsis(text, mine.Dc(), kAll, flag);
            EXPECT_EQ(RowsOf(mine, kAll), Plain(text, kWidth, flag)) << flag;
        }
    }
}

TEST_F(TextDraw, FlagsThatWouldWrapMoveOrOnlyMeasureDoNotCount) {
    for (const UINT flag : {DT_CENTER, DT_WORDBREAK, DT_CALCRECT, DT_END_ELLIPSIS, DT_EDITCONTROL}) {
        const Canvas mine(kWidth, kHeight);
        Prepare(mine);
        DrawTextPathEllipsis(u"A &B", mine.Dc(), kAll, flag);
        EXPECT_EQ(RowsOf(mine, kAll), Plain(u"A &B", kWidth)) << flag;
    }
}

// --- The ellipsis behind ---

TEST_F(TextDraw, TextIsKeptWholeWhereItFits) {
    const int width = WidthOf(kPath);
    EXPECT_EQ(CutTextToWidth(kPath, canvas.Dc(), width), kPath);
    EXPECT_EQ(CutTextToWidth(u"", canvas.Dc(), -1), u"");
}

// The longest beginning that has room beside the dots, found in the plainest way.
TEST_F(TextDraw, TextIsCutBehindAsMuchOfItsBeginningAsHasRoomBesideTheDots) {
    const tvstring text(kPath);
    for (int width = WidthOf(u"..."); width < WidthOf(kPath); ++width) {
        std::size_t kept = 0;
        while (WidthOf(text.substr(0, kept + 1)) + WidthOf(u"...") <= width)
            ++kept;
        EXPECT_EQ(CutTextToWidth(text, canvas.Dc(), width), text.substr(0, kept) + u"...") << width;
    }
}

TEST_F(TextDraw, TextWithoutRoomForTheDotsBecomesTheDots) {
    for (const int width : {-1, 0, 1})
        EXPECT_EQ(CutTextToWidth(kPath, canvas.Dc(), width), u"...");
}

TEST_F(TextDraw, TextIsNotCutWithinACharacterOfTwoUnits) {
    const tvstring text = u"\U0001F511\U0001F511\U0001F511\U0001F511";
    for (int width = 0; width < WidthOf(text); ++width) {
        const tvstring cut = CutTextToWidth(text, canvas.Dc(), width);
        EXPECT_EQ((cut.size() - 3) % 2, 0U) << width;
    }
}

// --- The shadow ---

TEST_F(TextDraw, DarkTextHasNoShadow) {
    for (const COLORREF color : {RGB(255, 159, 255), RGB(0, 0, 0)}) {
        const Canvas mine(kWidth, kHeight);
        Prepare(mine);
        SetTextColor(mine.Dc(), color);
        DrawShadowedText(mine.Dc(), u"About", kAll);
        EXPECT_GT(mine.Count(color), 0);
        EXPECT_EQ(mine.Count(color) + mine.Count(kPaper), kWidth * kHeight);
    }
}

TEST_F(TextDraw, LightTextHasABlackShadowOnePixelBelowAndRight) {
    constexpr COLORREF kLight = RGB(0, 160, 0);
    SetTextColor(canvas.Dc(), kLight);
    DrawShadowedText(canvas.Dc(), u"About", kAll);
    EXPECT_EQ(GetTextColor(canvas.Dc()), kLight);
    const Rows rows = RowsOf(canvas, kAll, {{kPaper, '.'}, {kLight, 'o'}, {kInk, '#'}});
    const Canvas plain(kWidth, kHeight);
    Prepare(plain);
    RECT rect = kAll;
    DrawTextW(plain.Dc(), L"About", 5, &rect, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    const Rows text = RowsOf(plain, kAll);
    for (std::size_t y = 1; y < rows.size(); ++y) {
        for (std::size_t x = 1; x < rows[y].size(); ++x) {
            const char expected = text[y][x] == '#' ? 'o' : text[y - 1][x - 1] == '#' ? '#' : '.';
            ASSERT_EQ(rows[y][x], expected) << x << ", " << y;
        }
    }
}

TEST_F(TextDraw, ShadowedTextThatIsTooLongEndsInDots) {
    DrawShadowedText(canvas.Dc(), tvstring(200, u'W'), kAll);
    const Canvas plain(kWidth, kHeight);
    Prepare(plain);
    RECT rect = kAll;
    DrawTextW(plain.Dc(), std::wstring(200, L'W').c_str(), -1, &rect,
              DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS);
    EXPECT_EQ(Picture(), RowsOf(plain, kAll));
}

}  // namespace
