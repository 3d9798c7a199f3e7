#include <algorithm>
#include <cmath>

#include "toolkit/draw.h"
#include "toolkit/rect.h"

namespace {

// A scale between 0 and 1 takes the same from both sides, so that the size stays odd or even.
RECT Shrunk(const RECT& rect, double scale) {
    if (!(scale > 0 && scale < 1)) return rect;
    const auto cut = [scale](int size) { return static_cast<int>(std::lround(size * (1 - scale) / 2)); };
    return Inset(rect, cut(Width(rect)), cut(Height(rect)));
}

RECT OddSized(RECT rect) {
    if (Width(rect) % 2 == 0) --rect.right;
    if (Height(rect) % 2 == 0) --rect.bottom;
    return rect;
}

RECT SquareIn(const RECT& rect) {
    const int side = std::min(Width(rect), Height(rect));
    return CenteredBox(rect, side, side);
}

// Columns of three pixels: down to the point with each step, then up as far as the width goes.
void DrawTick(HDC dc, const RECT& rect, COLORREF color) {
    constexpr double kShortArm = 0.4;
    constexpr int kThickness = 3;
    const int width = Width(rect);
    const int shortArm = static_cast<int>(std::lround(kShortArm * width));
    const int longArm = width - shortArm;
    const int point = CenteredBox(rect, width, longArm + kThickness).bottom - kThickness;
    for (int i = 0; i < width; ++i) {
        const int up = std::abs(i - (shortArm - 1));
        FillSolid(dc, BoxAt(rect.left + i, point - up, 1, kThickness), color);
    }
}

// A figure that is drawn pointing right, in a box whose corner is the origin: turned to where it shall point.
class Turned {
public:
    Turned(HDC dc, const RECT& rect, Axis axis, Heading heading)
        : m_Dc(dc), m_Rect(rect), m_Vertical(axis == Axis::Vertical), m_Back(heading == Heading::Backward) {}

    // How far it is from the back of the rectangle to its front, and across.
    [[nodiscard]] int Length() const { return m_Vertical ? Height(m_Rect) : Width(m_Rect); }
    [[nodiscard]] int Breadth() const { return m_Vertical ? Width(m_Rect) : Height(m_Rect); }

    void Fill(int along, int across, int length, int breadth, COLORREF color) const {
        if (m_Back) along = Length() - along - length;
        const RECT rect = m_Vertical ? BoxAt(m_Rect.left + across, m_Rect.top + along, breadth, length)
                                     : BoxAt(m_Rect.left + along, m_Rect.top + across, length, breadth);
        FillSolid(m_Dc, rect, color);
    }

private:
    HDC m_Dc;
    RECT m_Rect;
    bool m_Vertical;
    bool m_Back;
};

}  // namespace

void DrawMark(HDC dc, const RECT& rect, COLORREF fill, COLORREF frame, COLORREF mark, MarkKind kind,
              double scale) {
    constexpr double kPadding = 0.15;
    constexpr int kLeastPadding = 2;
    const RECT box = Shrunk(OddSized(rect), scale);
    FillSolid(dc, box, fill);
    FillEdges(dc, box, frame, EDGE_ALL, 1);
    const int inset = std::max(static_cast<int>(std::lround(kPadding * Width(box))), kLeastPadding) + 1;
    const RECT inner = Inset(box, inset, inset);
    if (!IsColor(mark) || Width(inner) < 1 || Height(inner) < 1) return;
    if (kind == MarkKind::Filled) FillSolid(dc, inner, mark);
    if (kind == MarkKind::Tick) DrawTick(dc, inner, mark);
}

void DrawChevron(HDC dc, const RECT& rect, COLORREF color, Axis axis, Heading heading, double scale) {
    constexpr int kStroke = 2;
    const Turned figure(dc, Shrunk(SquareIn(rect), scale), axis, heading);
    const int side = figure.Breadth();
    const int depth = (side - 1) / 2;  // from the ends of the strokes to the point
    const int back = (side - depth - kStroke) / 2;
    for (int i = 0; i < side; ++i)
        figure.Fill(back + std::min(i, side - 1 - i), i, kStroke, 1, color);
}

void DrawTriangle(HDC dc, const RECT& rect, COLORREF color, COLORREF edge, int size, Axis axis,
                  Heading heading) {
    const Turned figure(dc, rect, axis, heading);
    const int base = size | 1;
    const int lines = (base + 1) / 2;
    const int back = (figure.Length() - lines) / 2;
    const int middle = (figure.Breadth() - base) / 2;
    for (int i = 0; i < lines; ++i) {
        const int length = base - 2 * i;
        figure.Fill(back + i, middle + i, 1, length, color);
        if (edge == color) continue;
        figure.Fill(back + i, middle + i, 1, 1, edge);
        figure.Fill(back + i, middle + i + length - 1, 1, 1, edge);
    }
}

void DrawGripDots(HDC dc, const RECT& rect, COLORREF color) {
    constexpr int kDot = 2;
    constexpr int kStep = 3;
    constexpr int kRows = 3;
    for (int up = 0; up < kRows; ++up) {
        for (int back = 0; back < kRows - up; ++back) {
            FillSolid(dc,
                      BoxAt(rect.right - kDot - back * kStep, rect.bottom - kDot - up * kStep, kDot, kDot),
                      color);
        }
    }
}
