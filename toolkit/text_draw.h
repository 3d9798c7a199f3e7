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

// Centred, with a shadow under a light text.
void DrawShadowedText(HDC dc, const tvstring& text, const RECT& rect);
