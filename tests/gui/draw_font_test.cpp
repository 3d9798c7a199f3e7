#include <gtest/gtest.h>

#include <cmath>

#include "tests/gui/harness.h"
#include "toolkit/font.h"

namespace {

LOGFONTW Tall() {
    LOGFONTW font = FallbackFont(nullptr);
    font.lfHeight = -40;
    return font;
}

TEST(Font, TakesThePlaceOfTheOneBefore) {
    tvfont font;
    EXPECT_EQ(font.Get(), nullptr);
    font.Set(FallbackFont(nullptr));
    const HFONT first = font.Get();
    EXPECT_EQ(GetObjectType(first), static_cast<DWORD>(OBJ_FONT));
    font.Set(Tall());
    EXPECT_NE(font.Get(), first);
    EXPECT_EQ(GetObjectType(first), 0U);
    LOGFONTW read{};
    GetObjectW(font.Get(), sizeof read, &read);
    EXPECT_EQ(read.lfHeight, -40);
}

TEST(Font, IsGoneWithItsOwner) {
    HFONT handle = nullptr;
    {
        tvfont font;
        font.Set(Tall());
        handle = font.Get();
    }
    EXPECT_EQ(GetObjectType(handle), 0U);
}

TEST(Font, OfTheSystemIsThatOfItsMenus) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    ASSERT_TRUE(SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0));
    const LOGFONTW font = GetSystemFont();
    EXPECT_STREQ(font.lfFaceName, metrics.lfMenuFont.lfFaceName);
    EXPECT_EQ(font.lfHeight, metrics.lfMenuFont.lfHeight);
    EXPECT_EQ(font.lfWeight, metrics.lfMenuFont.lfWeight);
}

TEST(Font, WhereTheSystemTellsNoneIsSegoeUiAtNinePoints) {
    const LOGFONTW font = FallbackFont(nullptr);
    EXPECT_STREQ(font.lfFaceName, L"Segoe UI");
    EXPECT_EQ(font.lfHeight, -12);  // at 96 dots per inch
    EXPECT_EQ(font.lfWeight, 400);
    EXPECT_EQ(font.lfCharSet, 1);
    EXPECT_EQ(font.lfWidth, 0);
    EXPECT_EQ(font.lfItalic, 0);
    const tvClientDC screen(nullptr);
    EXPECT_EQ(FallbackFont(screen.Get()).lfHeight,
              -static_cast<LONG>(std::lround(GetDeviceCaps(screen.Get(), LOGPIXELSY) / 8.0)));
}

TEST(Font, HeightIsThatOfALineAndTheWidthThatOfAnAverageLetter) {
    const Canvas canvas(1, 1);
    tvfont font;
    font.Set(Tall());
    const tvSelected selected(canvas.Dc(), font.Get());
    TEXTMETRICW metrics{};
    GetTextMetricsW(canvas.Dc(), &metrics);
    int averageWidth = 0;
    EXPECT_EQ(GetFontHeight(canvas.Dc(), &averageWidth), metrics.tmHeight);
    SIZE size{};
    GetTextExtentPoint32W(canvas.Dc(), L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz", 52, &size);
    EXPECT_EQ(averageWidth, std::lround(size.cx / 52.0));
    EXPECT_EQ(GetFontHeight(canvas.Dc(), nullptr), metrics.tmHeight);
}

TEST(Font, WithoutAContextHasNoHeight) {
    int averageWidth = 5;
    EXPECT_EQ(GetFontHeight(nullptr, &averageWidth), 0);
    EXPECT_EQ(averageWidth, 0);
}

TEST(Font, DialogUnitsAreQuartersOfTheWidthAndEighthsOfTheHeight) {
    tvfont font;
    font.Set(Tall());
    const tvClientDC screen(nullptr);
    int averageWidth = 0;
    int height = 0;
    {
        const tvSelected selected(screen.Get(), font.Get());
        height = GetFontHeight(screen.Get(), &averageWidth);
    }
    for (const int units : {0, 1, 2, 3, 4, 7, 8, 50, -1, -2, -3, -7}) {
        const PixelSize size = DialogUnitsToPixels(font.Get(), units, units);
        EXPECT_EQ(size.x, std::lround(units * averageWidth / 4.0)) << units;
        EXPECT_EQ(size.y, std::lround(units * height / 8.0)) << units;
    }
    const PixelSize both = DialogUnitsToPixels(font.Get(), 4, 8);
    EXPECT_EQ(both.x, averageWidth);
    EXPECT_EQ(both.y, height);
}

TEST(Font, DialogUnitsOfNoFontStayAsTheyAre) {
    const PixelSize size = DialogUnitsToPixels(nullptr, 7, -3);
    EXPECT_EQ(size.x, 7);
    EXPECT_EQ(size.y, -3);
}

}  // namespace
