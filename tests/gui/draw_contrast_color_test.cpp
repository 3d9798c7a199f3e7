#include <gtest/gtest.h>

#include <algorithm>

#include "toolkit/draw.h"

namespace {

// The reference is orange, RGB(204, 102, 0): a hue of 30 degrees and full saturation, so that red, green and
// blue stand at 2, 1 and 0 below a lightness of a half and green stands midway between white and red above.
// `sum` is that of the greatest and the smallest channel, twice the lightness in channel units.
COLORREF OrangeOfLightness(int sum) {
    const int green = (sum + 1) / 2;
    return sum <= 255 ? RGB(sum, green, 0) : RGB(255, green, sum - 255);
}

COLORREF Expected(COLORREF background) {
    const int red = GetRValue(background);
    const int green = GetGValue(background);
    const int blue = GetBValue(background);
    const int sum = std::max({red, green, blue}) + std::min({red, green, blue});
    constexpr int kReference = 204;  // and 0.4 of the whole range
    if (std::abs(sum - kReference) >= kReference) return OrangeOfLightness(kReference);
    return OrangeOfLightness(sum <= 255 ? sum + kReference : sum - kReference);
}

TEST(ContrastColor, IsTheReferenceOnWhatIsFarFromIt) {
    EXPECT_EQ(ContrastColor(RGB(0, 0, 0)), 0x0066CCU);
    EXPECT_EQ(ContrastColor(RGB(255, 255, 255)), 0x0066CCU);
    EXPECT_EQ(ContrastColor(RGB(204, 204, 204)), 0x0066CCU);
}

TEST(ContrastColor, IsLighterOnWhatIsDark) {
    EXPECT_EQ(ContrastColor(RGB(51, 51, 51)), RGB(255, 153, 51));
    EXPECT_EQ(ContrastColor(RGB(1, 1, 1)), RGB(206, 103, 0));
}

TEST(ContrastColor, IsDarkerOnWhatIsLight) {
    EXPECT_EQ(ContrastColor(RGB(178, 178, 178)), RGB(152, 76, 0));
    EXPECT_EQ(ContrastColor(RGB(203, 203, 203)), RGB(202, 101, 0));
}

TEST(ContrastColor, OnAHalfIsLighterAndJustAboveDarker) {
    EXPECT_EQ(ContrastColor(RGB(255, 0, 0)), Expected(RGB(255, 0, 0)));
    EXPECT_EQ(ContrastColor(RGB(255, 0, 0)), RGB(255, 230, 204));
    EXPECT_EQ(ContrastColor(RGB(255, 1, 1)), RGB(52, 26, 0));
}

TEST(ContrastColor, IsRoundedHalfUpForEveryLightness) {
    for (int value = 0; value <= 255; ++value) {
        const COLORREF gray = RGB(value, value, value);
        EXPECT_EQ(ContrastColor(gray), Expected(gray)) << value;
        const COLORREF oddSum = RGB(value, 255, value);
        EXPECT_EQ(ContrastColor(oddSum), Expected(oddSum)) << value;
        const COLORREF dark = RGB(0, value, 0);
        EXPECT_EQ(ContrastColor(dark), Expected(dark)) << value;
    }
}

TEST(ContrastColor, DependsOnTheLightnessAlone) {
    for (const COLORREF color : {RGB(200, 40, 90), RGB(40, 200, 90), RGB(90, 40, 200), RGB(40, 90, 200),
                                 RGB(200, 90, 40), RGB(90, 200, 40)})
        EXPECT_EQ(ContrastColor(color), ContrastColor(RGB(120, 120, 120)));
}

TEST(ContrastColor, IsTheSameWhenAskedAgain) {
    EXPECT_EQ(ContrastColor(RGB(51, 51, 51)), ContrastColor(RGB(51, 51, 51)));
    EXPECT_EQ(ContrastColor(RGB(51, 51, 51)), RGB(255, 153, 51));
}

}  // namespace
