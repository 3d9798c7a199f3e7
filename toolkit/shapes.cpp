#include <algorithm>

#include "toolkit/draw.h"
#include "toolkit/gdiplus.h"
#include "toolkit/rect.h"
#include "toolkit/smooth_shapes.h"

namespace {

// A rectangle with round corners. Its lines run through the middle of the rectangle's outermost pixels.
gdiplus::Path RoundPath(const RECT& rect, int diameter) {
    constexpr float kQuarter = 90;
    const int left = rect.left;
    const int top = rect.top;
    const int right = rect.right - 1;
    const int bottom = rect.bottom - 1;
    const int radius = diameter / 2;
    gdiplus::Path path = gdiplus::NewPath();
    const auto line = [&](int x1, int y1, int x2, int y2) {
        gdiplus::GdipAddPathLineI(path.Get(), x1, y1, x2, y2);
    };
    const auto corner = [&](int x, int y, float start) {
        gdiplus::GdipAddPathArcI(path.Get(), x, y, diameter, diameter, start, kQuarter);
    };
    line(left + radius, top, right - radius, top);
    corner(right - diameter, top, 3 * kQuarter);
    line(right, top + radius, right, bottom - radius);
    corner(right - diameter, bottom - diameter, 0);
    line(right - radius, bottom, left + radius, bottom);
    corner(left, bottom - diameter, kQuarter);
    line(left, bottom - radius, left, top + radius);
    corner(left, top, 2 * kQuarter);
    gdiplus::GdipClosePathFigure(path.Get());
    return path;
}

using Shape = tvSmoothShapes::Shape;

Shape ShapeOf(Shape::Kind kind, const RECT& rect) {
    return {kind, {Width(rect), Height(rect)}, 0, 0};
}

void PaintRoundFill(HDC dc, const RECT& rect, int diameter, COLORREF color) {
    const gdiplus::Graphics graphics = gdiplus::SmoothGraphics(dc);
    gdiplus::GdipFillPath(graphics.Get(), gdiplus::SolidBrush(color).Get(), RoundPath(rect, diameter).Get());
}

void PaintRoundFrame(HDC dc, const RECT& rect, int diameter, COLORREF color, float penWidth) {
    const gdiplus::Graphics graphics = gdiplus::SmoothGraphics(dc);
    gdiplus::GdipDrawPath(graphics.Get(), gdiplus::SolidPen(color, penWidth).Get(),
                          RoundPath(rect, diameter).Get());
}

void PaintEllipseFill(HDC dc, const RECT& rect, COLORREF color) {
    gdiplus::GdipFillEllipseI(gdiplus::SmoothGraphics(dc).Get(), gdiplus::SolidBrush(color).Get(), rect.left,
                              rect.top, Width(rect) - 1, Height(rect) - 1);
}

void PaintEllipseFrame(HDC dc, const RECT& rect, COLORREF color) {
    gdiplus::GdipDrawEllipseI(gdiplus::SmoothGraphics(dc).Get(), gdiplus::SolidPen(color, 1).Get(), rect.left,
                              rect.top, Width(rect) - 1, Height(rect) - 1);
}

void DrawRoundFrame(HDC dc, const RECT& rect, int diameter, COLORREF color, float penWidth) {
    Shape shape = ShapeOf(Shape::Kind::RoundFrame, rect);
    shape.detail = diameter;
    shape.penWidth = penWidth;
    TheSmoothShapes().Draw(dc, rect, shape, color, [&](HDC target, const RECT& place, COLORREF ink) {
        PaintRoundFrame(target, place, diameter, ink, penWidth);
    });
}

// The area ends in the middle of the outermost pixels; where there is no frame, a line of its own colour
// takes it through them.
void DrawRoundFill(HDC dc, const RECT& rect, int diameter, COLORREF color) {
    Shape shape = ShapeOf(Shape::Kind::RoundFill, rect);
    shape.detail = diameter;
    TheSmoothShapes().Draw(dc, rect, shape, color, [&](HDC target, const RECT& place, COLORREF ink) {
        PaintRoundFill(target, place, diameter, ink);
    });
}

}  // namespace

void RoundRect(HDC dc, const RECT& rect, int radius, COLORREF fill, COLORREF frame, float penWidth) {
    if (!IsColor(fill) && !IsColor(frame)) return;
    constexpr int kUsualRadius = 10;
    const int diameter = (radius <= 0 ? kUsualRadius : radius) & ~1;
    if (diameter < 2 || diameter > Width(rect) / 2 || diameter > Height(rect) / 2) {
        FillSolid(dc, rect, fill);
        FillEdges(dc, rect, frame, EDGE_ALL, 1);
        return;
    }
    if (IsColor(fill)) {
        DrawRoundFill(dc, rect, diameter, fill);
        if (!IsColor(frame)) {
            frame = fill;
            penWidth = 1;
        }
    }
    DrawRoundFrame(dc, rect, diameter, frame, penWidth);
}

void FillEllipse(HDC dc, const RECT& rect, COLORREF color) {
    if (!IsColor(color)) return;
    TheSmoothShapes().Draw(dc, rect, ShapeOf(Shape::Kind::EllipseFill, rect), color,
                           [](HDC target, const RECT& place, COLORREF ink) {
                               PaintEllipseFill(target, place, ink);
                               PaintEllipseFrame(target, place, ink);  // to the edge, as above
                           });
}

void DrawEllipse(HDC dc, const RECT& rect, COLORREF color) {
    if (!IsColor(color)) return;
    TheSmoothShapes().Draw(dc, rect, ShapeOf(Shape::Kind::EllipseFrame, rect), color, PaintEllipseFrame);
}
