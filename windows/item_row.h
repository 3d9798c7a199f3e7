// What a row of the item lists shows: the text of its element on one line, on the row and in its tool tip.
#pragma once

#include "foundation/tvstring.h"
#include "toolkit/win32.h"

// Draws the text, with "..." where it is cut off. True if all of it is there.
bool DrawRowText(HDC dc, const RECT& rect, const tvstring& text);

// Cuts a text to what a tool tip can show of it: the width of the screen that the window is on, in the font
// of the context.
void FitTip(tvstring& text, HWND window, HDC dc);

// What an item list says while nothing matches its search, in the language in use.
const tvstring& NoMatchText();
