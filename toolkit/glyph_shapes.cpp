#include "toolkit/glyph_shapes.h"

#include <cmath>
#include <initializer_list>
#include <vector>

#include "toolkit/gdiplus.h"
#include "toolkit/rect.h"

namespace {

using gdiplus::SmoothGraphics;
using gdiplus::SolidBrush;
using gdiplus::SolidPen;

// Relative to the box.
using Point = Gdiplus::PointF;
using Points = std::vector<Point>;

Points InBox(const GlyphPlace& place, std::initializer_list<Point> points) {
    const Point corner(static_cast<float>(place.box.left), static_cast<float>(place.box.top));
    Points result;
    for (const Point& point : points)
        result.push_back(corner + point);
    return result;
}

// All draw on one graphics object with one pen or brush.
class Shapes {
public:
    Shapes(const GlyphPlace& place, float penWidth)
        : m_Place(place),
          m_Graphics(SmoothGraphics(place.dc)),
          m_Pen(SolidPen(place.color, penWidth)),
          m_Brush(SolidBrush(place.color)) {}
    explicit Shapes(const GlyphPlace& place) : Shapes(place, 1) {}

    [[nodiscard]] Gdiplus::GpPen* Pen() const { return m_Pen.Get(); }
    [[nodiscard]] Gdiplus::GpGraphics* Graphics() const { return m_Graphics.Get(); }

    void Lines(std::initializer_list<Point> points) const {
        const Points places = InBox(m_Place, points);
        gdiplus::GdipDrawLines(m_Graphics.Get(), m_Pen.Get(), places.data(), Count(places));
    }
    void Outline(std::initializer_list<Point> points) const {
        const Points places = InBox(m_Place, points);
        gdiplus::GdipDrawPolygon(m_Graphics.Get(), m_Pen.Get(), places.data(), Count(places));
    }
    void Area(std::initializer_list<Point> points) const {
        const Points places = InBox(m_Place, points);
        gdiplus::GdipFillPolygon(m_Graphics.Get(), m_Brush.Get(), places.data(), Count(places),
                                 Gdiplus::FillModeAlternate);
    }
    void Circle(float x, float y, float diameter) const {
        gdiplus::GdipDrawEllipse(m_Graphics.Get(), m_Pen.Get(), static_cast<float>(m_Place.box.left) + x,
                                 static_cast<float>(m_Place.box.top) + y, diameter, diameter);
    }

private:
    static int Count(const Points& points) { return static_cast<int>(points.size()); }

    const GlyphPlace& m_Place;
    gdiplus::Graphics m_Graphics;
    gdiplus::Pen m_Pen;
    gdiplus::Brush m_Brush;
};

// An open arrow head.
gdiplus::LineCap ArrowCap() {
    constexpr float kReach = 1.6F;
    const gdiplus::Path path = gdiplus::NewPath();
    gdiplus::GdipAddPathLine(path.Get(), kReach, -kReach, 0, 0);
    gdiplus::GdipAddPathLine(path.Get(), 0, 0, -kReach, -kReach);
    Gdiplus::GpCustomLineCap* cap = nullptr;
    gdiplus::GdipCreateCustomLineCap(nullptr, path.Get(), Gdiplus::LineCapFlat, 0, &cap);
    return gdiplus::LineCap(cap);
}

constexpr float kLine = 1.5F;

}  // namespace

void DrawFolderGlyph(const GlyphPlace& place) {
    DrawFolderMask(place);
    Shapes(place).Area({{1, 13}, {12, 13}, {16, 6}, {4, 6}});
}

void DrawAutoGlyph(const GlyphPlace& place) {
    const Shapes shapes(place, kLine);
    shapes.Outline({{3, 1}, {0, 7}, {4, 7}, {2, 14}, {11, 4}, {6, 4}, {8, 1}, {3, 1}});
    shapes.Lines({{12, 7}, {9, 14}});
    shapes.Lines({{12, 7}, {15, 14}});
    shapes.Lines({{10, 12}, {13, 12}});
}

void DrawBinGlyph(const GlyphPlace& place) {
    constexpr float kThinLine = 1.2F;
    const Shapes shapes(place, kThinLine);
    // The lid with its handle.
    shapes.Lines({{1, 4}, {14, 4}});
    shapes.Lines({{5, 4}, {5, 1}});
    shapes.Lines({{5, 1}, {10, 1}});
    shapes.Lines({{10, 1}, {10, 4}});
    // The bin, and its ribs.
    shapes.Lines({{3, 4}, {4, 15}});
    shapes.Lines({{4, 15}, {11, 15}});
    shapes.Lines({{11, 15}, {12, 4}});
    shapes.Lines({{6, 7}, {6, 12}});
    shapes.Lines({{9, 7}, {9, 12}});
}

void DrawRefreshGlyph(const GlyphPlace& place) {
    constexpr int kCircle = 14;
    constexpr float kStart = 20;
    constexpr float kSweep = 320;
    const RECT box = CenteredBox(place.box, kCircle, kCircle);
    const Shapes shapes(place, kLine);
    const gdiplus::LineCap cap = ArrowCap();
    gdiplus::GdipSetPenCustomEndCap(shapes.Pen(), cap.Get());
    gdiplus::GdipDrawArcI(shapes.Graphics(), shapes.Pen(), box.left, box.top, kCircle, kCircle, kStart,
                          kSweep);
}

void DrawDotsGlyph(const GlyphPlace& place) {
    constexpr int kUnit = kGlyphBox / 8;
    constexpr int kDiameter = 2 * kUnit;
    const RECT row = CenteredBox(place.box, kGlyphBox, kDiameter);
    const gdiplus::Graphics graphics = SmoothGraphics(place.dc);
    const gdiplus::Brush brush = SolidBrush(place.color);
    // Coordinates are the edges of pixels, not their middles: three dots fill the box exactly.
    gdiplus::GdipSetPixelOffsetMode(graphics.Get(), Gdiplus::PixelOffsetModeHalf);
    for (const int x : {0, 3 * kUnit, 6 * kUnit})
        gdiplus::GdipFillEllipseI(graphics.Get(), brush.Get(), row.left + x, row.top, kDiameter, kDiameter);
}

void DrawUpGlyph(const GlyphPlace& place) {
    Shapes(place).Area({{8, 2}, {15, 14}, {8, 10}, {1, 14}, {8, 2}});
}

void DrawDownGlyph(const GlyphPlace& place) {
    Shapes(place).Area({{8, 14}, {15, 2}, {8, 6}, {1, 2}, {8, 14}});
}

void DrawPlayGlyph(const GlyphPlace& place) {
    Shapes(place).Area({{5, 2}, {15, 8}, {5, 14}});
}

void DrawHexagonGlyph(const GlyphPlace& place) {
    constexpr float kMiddle = kGlyphBox / 2.0F;
    constexpr float kSide = kMiddle - 1;  // leaves room for the line
    constexpr float kHole = kMiddle - 1;
    const float height = kSide * std::sqrt(3.0F) / 2;
    const Shapes shapes(place, kLine);
    shapes.Outline({{kMiddle - kSide, kMiddle},
                    {kMiddle - kSide / 2, kMiddle - height},
                    {kMiddle + kSide / 2, kMiddle - height},
                    {kMiddle + kSide, kMiddle},
                    {kMiddle + kSide / 2, kMiddle + height},
                    {kMiddle - kSide / 2, kMiddle + height}});
    shapes.Circle(kMiddle - kHole / 2, kMiddle - kHole / 2, kHole);
}
