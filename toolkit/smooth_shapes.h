// tvSmoothShapes, what GDI+ has drawn with smooth edges, kept to be drawn again.
//
// GDI+ takes its time for a glyph or a round corner, and a window has the same few of them over and over. So
// each is drawn by it once, in white on black, which tells how much of every pixel it covers. From this mask
// it is blended into place in whatever colour is wanted. Neither the theme nor the font makes a mask wrong.
// There is one such object, TheSmoothShapes(); it is for the interface thread.
#pragma once

#include <compare>
#include <functional>
#include <map>
#include <vector>

#include "toolkit/bitmap.h"

class tvSmoothShapes {
public:
    tvSmoothShapes() = default;
    tvSmoothShapes(const tvSmoothShapes&) = delete;
    tvSmoothShapes& operator=(const tvSmoothShapes&) = delete;

    // What tells one shape from all others, apart from its place and its colour.
    struct Shape {
        enum class Kind { RoundFill, RoundFrame, EllipseFill, EllipseFrame, Glyph };
        Kind kind{};
        SIZE size{};
        int detail = 0;  // the diameter of corners, or the glyph
        float penWidth = 0;

        friend std::partial_ordering operator<=>(const Shape& a, const Shape& b);
    };

    // Paints a shape into a rectangle of its size, in this colour alone. It may reach kMargin pixels beyond.
    using Painter = std::function<void(HDC dc, const RECT& rect, COLORREF color)>;
    static constexpr int kMargin = 2;

    // Draws the shape with its corner at that of `rect`. The painter is called for a shape that is not known;
    // and for one with more pixels than kLargest, and if the system fails, straight with the target.
    void Draw(HDC dc, const RECT& rect, const Shape& shape, COLORREF color, const Painter& paint);

    // How many bytes the masks take: at most kMost. A new one that has no room is kept alone.
    [[nodiscard]] std::size_t Held() const noexcept { return m_Held; }

    void Clear();

    static constexpr std::size_t kLargest = 65'536;  // a mask has a byte for each pixel
    static constexpr std::size_t kMost = 262'144;

private:
    using Mask = std::vector<u8>;  // rows from the top; 255 is a pixel that is covered

    // A canvas of at least this size; false if there is none to be had.
    bool Prepare(const SIZE& size);
    Mask MakeMask(const SIZE& size, const Painter& paint) const;
    void Blend(HDC dc, int x, int y, const SIZE& size, const Mask& mask, COLORREF color) const;

    std::map<Shape, Mask> m_Masks;
    std::size_t m_Held = 0;
    tvMemDC m_Canvas;
};

tvSmoothShapes& TheSmoothShapes();
