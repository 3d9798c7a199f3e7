// Fonts and what is measured with them.
#pragma once

#include "toolkit/handle.h"

class tvfont {
public:
    tvfont() = default;
    virtual ~tvfont() = default;
    tvfont(const tvfont&) = delete;
    tvfont& operator=(const tvfont&) = delete;

    // Replaces the font.
    void Set(const LOGFONTW& logfont);
    [[nodiscard]] HFONT Get() const noexcept { return m_font.Get(); }

private:
    tvFontHandle m_font;
};

// The font of the system's menus; where the system does not tell it, Segoe UI at 9 points.
LOGFONTW GetSystemFont();

// Segoe UI at 9 points on this device; of 96 dots per inch for null.
LOGFONTW FallbackFont(HDC dc);

// The height of a line in the context's font and, if asked for, the average width of a letter, in pixels.
int GetFontHeight(HDC dc, int* averageWidth);

struct PixelSize {
    int x = 0;
    int y = 0;
};

// Dialog units of a font as pixels, rounded to nearest; with a null font the numbers come back unchanged.
PixelSize DialogUnitsToPixels(HFONT font, int x, int y);
