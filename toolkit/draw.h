// Rectangles, frames, marks and the like. A colour above 0xFFFFFF means that the step is left out. Rectangles
// are in pixels, right and bottom exclusive.
#pragma once

#include "platform/types.h"
#include "toolkit/win32.h"

constexpr bool IsColor(COLORREF color) {
    return color <= 0xFFFFFF;
}

// Edges of a rectangle, as bits.
enum Edges : unsigned { EDGE_LEFT = 1, EDGE_TOP = 2, EDGE_RIGHT = 4, EDGE_BOTTOM = 8, EDGE_ALL = 15 };

void FillSolid(HDC dc, const RECT& rect, COLORREF color);

// The chosen edges, `width` pixels wide, inside the rectangle.
void FillEdges(HDC dc, const RECT& rect, COLORREF color, unsigned edges, int width);

// One-pixel lines in two colours.
void DrawBevel(HDC dc, const RECT& rect, COLORREF topLeft, COLORREF bottomRight, unsigned edges);

// Every other pixel around the rectangle, from the bottom left up, to the right, down and back, each side in
// step with the one before.
void DrawFocusDots(HDC dc, const RECT& rect, COLORREF color);

// The part of a window around its client area: filled, then framed by one pixel.
void FrameNonClient(HWND window, COLORREF fill, COLORREF frame);

// The same for a window with scroll bars of the system's, which has just painted them: the edges alone.
void FrameAroundBars(HWND window, COLORREF fill, COLORREF frame);

// A rectangle with round corners: `radius` 0 or less is 10. Where the corners do not fit it is a plain one
// with a frame of one pixel.
void RoundRect(HDC dc, const RECT& rect, int radius, COLORREF fill, COLORREF frame, float penWidth);

void FillEllipse(HDC dc, const RECT& rect, COLORREF color);
void DrawEllipse(HDC dc, const RECT& rect, COLORREF color);

// The box of a check box, with what is in it.
enum class MarkKind { None = 0, Tick = 1, Filled = 2 };
void DrawMark(HDC dc, const RECT& rect, COLORREF fill, COLORREF frame, COLORREF mark, MarkKind kind,
              double scale);

enum class Axis { Horizontal, Vertical };
enum class Heading { Forward, Backward };  // right or down; left or up

void DrawChevron(HDC dc, const RECT& rect, COLORREF color, Axis axis, Heading heading, double scale);

// A solid triangle; `size`, its length in pixels, is made odd. Its end pixels take `edge` where that differs.
void DrawTriangle(HDC dc, const RECT& rect, COLORREF color, COLORREF edge, int size, Axis axis,
                  Heading heading);

// Six dots in the bottom right corner: the grip of a status bar.
void DrawGripDots(HDC dc, const RECT& rect, COLORREF color);

// An accent that can be read on this background.
COLORREF ContrastColor(COLORREF background);
