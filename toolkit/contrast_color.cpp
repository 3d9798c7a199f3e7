#include <algorithm>
#include <cmath>
#include <map>

#include "toolkit/draw.h"

namespace {

// Hue in sixths of the circle, 0 to 6; the others 0 to 1.
struct Hsl {
    double hue = 0;
    double saturation = 0;
    double lightness = 0;
};

constexpr double kFull = 255;

Hsl ToHsl(COLORREF color) {
    const double red = GetRValue(color) / kFull;
    const double green = GetGValue(color) / kFull;
    const double blue = GetBValue(color) / kFull;
    const double most = std::max({red, green, blue});
    const double least = std::min({red, green, blue});
    const double range = most - least;
    Hsl result;
    result.lightness = (most + least) / 2;
    if (range <= 0) return result;
    result.saturation = range / (1 - std::abs(2 * result.lightness - 1));
    if (most == red) {
        result.hue = std::fmod((green - blue) / range + 6, 6);
    } else if (most == green) {
        result.hue = (blue - red) / range + 2;
    } else {
        result.hue = (red - green) / range + 4;
    }
    return result;
}

// One channel of a colour: red, blue and green stand at 0, 4 and 8 twelfths of the circle.
BYTE Channel(const Hsl& color, int twelfths) {
    const double place = std::fmod(twelfths + 2 * color.hue, 12);
    const double reach = color.saturation * std::min(color.lightness, 1 - color.lightness);
    const double value = color.lightness - reach * std::clamp(std::min(place - 3, 9 - place), -1.0, 1.0);
    // A half is rounded up, also one that the arithmetic has brought a hair below.
    constexpr double kHair = 1e-9;
    return static_cast<BYTE>(std::lround(std::clamp(value * kFull + kHair, 0.0, kFull)));
}

COLORREF FromHsl(const Hsl& color) {
    return RGB(Channel(color, 0), Channel(color, 8), Channel(color, 4));
}

COLORREF Accent(COLORREF background) {
    constexpr COLORREF kReference = 0x0066CC;
    constexpr double kLeastDistance = 0.4;
    constexpr double kMiddle = 0.5;
    Hsl accent = ToHsl(kReference);
    const double lightness = ToHsl(background).lightness;
    if (std::abs(accent.lightness - lightness) < kLeastDistance)
        accent.lightness = lightness + (lightness <= kMiddle ? kLeastDistance : -kLeastDistance);
    return FromHsl(accent);
}

}  // namespace

COLORREF ContrastColor(COLORREF background) {
    static std::map<COLORREF, COLORREF> accents;
    const auto [place, isNew] = accents.try_emplace(background);
    if (isNew) place->second = Accent(background);
    return place->second;
}
