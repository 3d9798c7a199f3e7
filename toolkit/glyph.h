// The glyphs of buttons: small pictures of one colour, painted as lines and areas or from masks of 16 by 16.
#pragma once

#include "toolkit/win32.h"

enum Glyph : int {
    GLYPH_NONE = 0,
    GLYPH_FOLDER = 1,
    GLYPH_PENCIL = 2,
    GLYPH_AUTO = 3,
    GLYPH_DISK = 4,
    GLYPH_BIN = 5,
    GLYPH_REFRESH = 6,
    GLYPH_DOTS = 7,
    GLYPH_UP = 8,
    GLYPH_DOWN = 9,
    GLYPH_CLOSE = 10,
    GLYPH_PAUSE = 11,
    GLYPH_PLAY = 12,
    GLYPH_MINIMISE = 13,
    GLYPH_MAXIMISE = 14,
    GLYPH_RESTORE = 15,
    GLYPH_CHEVRON_RIGHT = 16,
    GLYPH_CHEVRON_LEFT = 17,
    GLYPH_CHEVRON_RIGHT_BAR = 18,
    GLYPH_CHEVRON_LEFT_BAR = 19,
    GLYPH_TRIANGLE = 20,
    GLYPH_HEXAGON = 21,
};
inline constexpr int kGlyphs = 21;

// Paints a glyph in a box of 16 by 16 in the middle of the rectangle. `background` is what it stands on,
// which one of them blends with. Nothing happens for a number that is no glyph.
void DrawGlyph(HDC dc, const RECT& rect, int glyph, COLORREF color, COLORREF background);
