// Texts in a device context's own font and colour. Flags are those of DrawTextW.
#pragma once

#include "foundation/tvstring.h"
#include "toolkit/win32.h"

// The height that the text takes in the rectangle's width; `rect` takes its size, or becomes empty for an
// empty text.
int MeasureText(const tvstring& text, UINT flags, HDC dc, RECT& rect);

// Draws a text on one line at the right, as much of its end as fits, with "..." in front. Gives the width
// used.
int DrawTextPathEllipsis(const tvstring& text, HDC dc, const RECT& rect, UINT format);

// A text of one line that is wider than `width` pixels: as much of its beginning as fits with "..." behind
// it; the dots alone where nothing does. Any other as it is.
tvstring CutTextToWidth(const tvstring& text, HDC dc, int width);

// Centred, with a shadow under a light text.
void DrawShadowedText(HDC dc, const tvstring& text, const RECT& rect);
