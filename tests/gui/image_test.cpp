#include "toolkit/image.h"

#include <gtest/gtest.h>

#include "tests/gui/rows.h"
#include "toolkit/gdiplus.h"
#include "toolkit/theme.h"

namespace {

// Pictures of test_images.rc, and a number that none has.
constexpr u16 kAlpha = 901;
constexpr u16 kGray = 902;
constexpr u16 kNoPicture = 903;
constexpr u16 kMissing = 904;

constexpr COLORREF kNone = 0xFFFFFFFF;

using Pixels = std::vector<u32>;

Pixels PixelsOf(const tvimage& image) {
    tvBitmap bitmap;
    EXPECT_TRUE(image.ToBitmap(bitmap));
    Pixels pixels;
    for (int y = 0; y < bitmap.m_height; ++y)
        pixels.insert(pixels.end(), bitmap.Row(y), bitmap.Row(y) + bitmap.m_width);
    return pixels;
}

TEST(Image, IsReadFromAPngOfTheResources) {
    tvimage image;
    ASSERT_TRUE(image.LoadPng(kAlpha));
    EXPECT_EQ(image.m_width, 4U);
    EXPECT_EQ(image.m_height, 2U);
    EXPECT_NE(image.m_bitmap, nullptr);
}

TEST(Image, GivesItsPixelsFromTheTopWithNothingWhereItIsClear) {
    tvimage image;
    ASSERT_TRUE(image.LoadPng(kAlpha));
    EXPECT_EQ(PixelsOf(image), (Pixels{0xFFFF0000, 0x8000FF00, 0x00000000, 0x010A141E,  //
                                       0xFF000000, 0x40FFFFFF, 0xFE010203, 0x00000000}));
}

TEST(Image, WithoutAlphaIsOpaque) {
    tvimage image;
    ASSERT_TRUE(image.LoadPng(kGray));
    EXPECT_EQ(PixelsOf(image), (Pixels{0xFF000000, 0xFF808080, 0xFFFFFFFF}));
}

TEST(Image, TintTakesTheColourAndLeavesTheAlpha) {
    tvimage image;
    ASSERT_TRUE(image.LoadPng(kAlpha));
    ASSERT_TRUE(image.Tint(RGB(0x12, 0x34, 0x56)));
    EXPECT_EQ(PixelsOf(image), (Pixels{0xFF123456, 0x80123456, 0x00000000, 0x01123456,  //
                                       0xFF123456, 0x40123456, 0xFE123456, 0x00000000}));
}

TEST(Image, CanBeTintedAgain) {
    tvimage image;
    ASSERT_TRUE(image.LoadPng(kAlpha));
    ASSERT_TRUE(image.Tint(RGB(1, 2, 3)));
    ASSERT_TRUE(image.Tint(RGB(255, 0, 0)));
    EXPECT_EQ(PixelsOf(image)[1], 0x80FF0000U);
}

TEST(Image, ThatCannotBeFoundOrReadIsEmpty) {
    for (const u16 id : {kMissing, kNoPicture, u16{0}}) {
        tvimage image;
        ASSERT_TRUE(image.LoadPng(kAlpha));
        EXPECT_FALSE(image.LoadPng(id)) << id;
        EXPECT_EQ(image.m_bitmap, nullptr) << id;
        EXPECT_EQ(image.m_width, 0U) << id;
        EXPECT_EQ(image.m_height, 0U) << id;
    }
}

TEST(Image, ThatIsEmptyGivesNothing) {
    tvimage image;
    EXPECT_FALSE(image.Tint(kInk));
    tvBitmap bitmap;
    ASSERT_TRUE(bitmap.CreateDib(1, 1));
    EXPECT_FALSE(image.ToBitmap(bitmap));
    EXPECT_EQ(bitmap.Get(), nullptr);
    EXPECT_FALSE(image.ToIcon());
}

TEST(Image, CanBeReadAnew) {
    tvimage image;
    ASSERT_TRUE(image.LoadPng(kGray));
    ASSERT_TRUE(image.LoadPng(kAlpha));
    EXPECT_EQ(PixelsOf(image)[0], 0xFFFF0000U);
}

// --- Icons ---

TEST(Icon, OfAnImageIsAnIconOfItsSize) {
    tvimage image;
    ASSERT_TRUE(image.LoadPng(kAlpha));
    const tvIconHandle icon = image.ToIcon();
    ASSERT_TRUE(icon);
    ICONINFO info{};
    ASSERT_TRUE(GetIconInfo(icon.Get(), &info));
    const tvBitmapHandle mask(info.hbmMask);
    const tvBitmapHandle color(info.hbmColor);
    EXPECT_TRUE(info.fIcon);
    BITMAP bitmap{};
    GetObjectW(color.Get(), sizeof bitmap, &bitmap);
    EXPECT_EQ(bitmap.bmWidth, 4);
    EXPECT_EQ(bitmap.bmHeight, 2);
}

TEST(Icon, LetsShowThroughWhatItsAlphaSays) {
    tvimage image;
    ASSERT_TRUE(image.LoadPng(kAlpha));
    ASSERT_TRUE(image.Tint(RGB(200, 0, 100)));
    const tvIconHandle icon = image.ToIcon();
    const Canvas canvas(4, 2, RGB(0, 100, 0));
    DrawIconEx(canvas.Dc(), 0, 0, icon.Get(), 4, 2, 0, nullptr, DI_NORMAL);
    EXPECT_EQ(canvas.At(0, 0), RGB(200, 0, 100));
    EXPECT_EQ(canvas.At(0, 1), RGB(200, 0, 100));
    EXPECT_EQ(canvas.At(2, 0), RGB(0, 100, 0));
    EXPECT_EQ(canvas.At(3, 1), RGB(0, 100, 0));
    // A pixel of one half stays one.
    EXPECT_NEAR(GetRValue(canvas.At(1, 0)), 100, 1);
    EXPECT_NEAR(GetGValue(canvas.At(1, 0)), 50, 1);
    EXPECT_NEAR(GetBValue(canvas.At(1, 0)), 50, 1);
}

// The colour of an icon's opaque pixel.
COLORREF ColorOf(const tvIconHandle& icon) {
    const Canvas canvas(4, 2);
    DrawIconEx(canvas.Dc(), 0, 0, icon.Get(), 4, 2, 0, nullptr, DI_NORMAL);
    return canvas.At(0, 0);
}

TEST(Icon, OfAPngThatCannotBeFoundIsNull) {
    EXPECT_FALSE(LoadTintedIcon(0, kInk));
    EXPECT_FALSE(LoadTintedIcon(kMissing, kInk));
    EXPECT_FALSE(LoadTintedIcon(kNoPicture, kInk));
}

TEST(Icon, IsLoadedInAColour) {
    EXPECT_EQ(ColorOf(LoadTintedIcon(kAlpha, RGB(3, 2, 1))), RGB(3, 2, 1));
}

TEST(Icon, OfNoColourHasThatOfTheThemesGlyphs) {
    const KeepTheme keep;
    UseTheme(u"Dark");
    EXPECT_EQ(ColorOf(LoadTintedIcon(kAlpha, kNone)), TheTheme().m_icon);
    UseTheme(u"System Default");
    EXPECT_EQ(ColorOf(LoadTintedIcon(kAlpha, kNone)), GetSysColor(21));
}

TEST(Icon, LeavesNothingBehindInTheSystem) {
    LoadTintedIcon(kAlpha, kInk);
    const Holdings before = WhatIsHeld();
    for (int i = 0; i < 20; ++i)
        LoadTintedIcon(kAlpha, kInk);
    EXPECT_EQ(WhatIsHeld().gdiObjects, before.gdiObjects);
    EXPECT_EQ(WhatIsHeld().userObjects, before.userObjects);
}

TEST(Pictures, OfTheProgramAreSquareMasksWithSomethingInThem) {
    for (u16 id = 102; id <= 112; ++id) {
        tvimage image;
        ASSERT_TRUE(image.LoadPng(id)) << id;
        EXPECT_EQ(image.m_width, image.m_height) << id;
        EXPECT_GE(image.m_width, 16U) << id;
        EXPECT_LE(image.m_width, 32U) << id;
        const Pixels pixels = PixelsOf(image);
        const auto opaque = std::count_if(pixels.begin(), pixels.end(), [](u32 p) { return p >> 24 == 255; });
        const auto clear = std::count(pixels.begin(), pixels.end(), 0U);
        EXPECT_GT(opaque, 10) << id;
        EXPECT_GT(clear, 10) << id;
    }
}

}  // namespace
