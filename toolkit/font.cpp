#include "toolkit/font.h"

#include <array>
#include <cstddef>
#include <string_view>

#include "toolkit/rect.h"
#include "toolkit/theme.h"

void tvfont::Set(const LOGFONTW& logfont) {
    m_font.Reset(CreateFontIndirectW(&logfont));
}

LOGFONTW FallbackFont(HDC dc) {
    constexpr int kPoints = 9;
    constexpr int kPointsPerInch = 72;
    constexpr int kUsualDpi = 96;
    constexpr int kUsualHeight = 12;
    constexpr std::wstring_view kFace = L"Segoe UI";
    const int height =
        MulDiv(kPoints, dc == nullptr ? kUsualDpi : GetDeviceCaps(dc, LOGPIXELSY), kPointsPerInch);
    LOGFONTW font{};
    font.lfHeight = -(height == 0 ? kUsualHeight : height);
    font.lfWeight = FW_NORMAL;
    font.lfCharSet = DEFAULT_CHARSET;
    kFace.copy(font.lfFaceName, kFace.size());
    return font;
}

LOGFONTW GetSystemFont() {
    // Without the last field, which was added later, so that all systems know it.
    constexpr UINT kSize = offsetof(NONCLIENTMETRICSW, iPaddedBorderWidth);
    static_assert(kSize == 500);
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = kSize;
    if (SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, kSize, &metrics, 0)) return metrics.lfMenuFont;
    const tvClientDC screen(nullptr);
    return FallbackFont(screen.Get());
}

int GetFontHeight(HDC dc, int* averageWidth) {
    constexpr std::wstring_view kLetters = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    constexpr int kCount = static_cast<int>(kLetters.size());
    RECT rect = BoxAt(0, 0, 1024, 768);
    if (dc == nullptr || DrawTextW(dc, kLetters.data(), kCount, &rect, DT_CALCRECT | DT_SINGLELINE) == 0)
        rect = RECT{};
    if (averageWidth != nullptr) *averageWidth = MulDiv(Width(rect), 1, kCount);
    return Height(rect);
}

PixelSize DialogUnitsToPixels(HFONT font, int x, int y) {
    if (font == nullptr) return {x, y};
    constexpr int kUnitsPerWidth = 4;
    constexpr int kUnitsPerHeight = 8;
    int averageWidth = 0;
    const int height = TheTheme().TextHeight(font, &averageWidth);
    return {MulDiv(x, averageWidth, kUnitsPerWidth), MulDiv(y, height, kUnitsPerHeight)};
}
