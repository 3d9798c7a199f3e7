#include <algorithm>

#include "toolkit/draw.h"
#include "toolkit/glyph_shapes.h"
#include "toolkit/rect.h"

namespace {

// Four fifths of one colour and one of the other, each channel cut to a whole number. No colour if either is
// none.
COLORREF Blend(COLORREF most, COLORREF rest) {
    constexpr unsigned kParts = 5;
    if (!IsColor(most) || !IsColor(rest)) return CLR_INVALID;
    const auto channel = [](unsigned a, unsigned b) { return ((kParts - 1) * a + b) / kParts; };
    return RGB(channel(GetRValue(most), GetRValue(rest)), channel(GetGValue(most), GetGValue(rest)),
               channel(GetBValue(most), GetBValue(rest)));
}

// A square with an even number of pixels at each side. Nothing is painted outside of it.
class Square {
public:
    Square(HDC dc, const RECT& rect)
        : m_Dc(dc), m_Left(rect.left), m_Top(rect.top), m_Size(std::min(Width(rect), Height(rect)) & ~1) {}

    [[nodiscard]] int Size() const { return m_Size; }

    void Paint(int x, int y, COLORREF color) const {
        if (!IsColor(color) || x < 0 || y < 0 || x >= m_Size || y >= m_Size) return;
        SetPixel(m_Dc, m_Left + x, m_Top + y, color);
    }

    // The crossings of two columns and the two rows with the same numbers.
    void PaintFour(int first, int second, COLORREF color) const {
        Paint(first, first, color);
        Paint(first, second, color);
        Paint(second, first, color);
        Paint(second, second, color);
    }

private:
    HDC m_Dc;
    int m_Left;
    int m_Top;
    int m_Size;
};

// A pixel of a diagonal with those beside and below it.
void PaintStep(const Square& square, int x, int y, COLORREF color, COLORREF beside) {
    square.Paint(x, y, color);
    square.Paint(x - 1, y, beside);
    square.Paint(x + 1, y, beside);
    square.Paint(x, y + 1, beside);
}

}  // namespace

void DrawCloseGlyph(const GlyphPlace& place) {
    constexpr int kCross = 10;
    const Square square(place.dc, CenteredBox(place.box, kCross, kCross));
    const COLORREF beside = Blend(place.color, place.background);
    const COLORREF corner = Blend(place.background, place.color);
    const int last = square.Size() - 1;
    for (int i = 0; i <= last; ++i) {
        PaintStep(square, i, i, place.color, beside);
        PaintStep(square, last - i, i, place.color, beside);
    }
    // Where the diagonals meet they have painted over each other's pixels.
    const int middle = square.Size() / 2;
    square.PaintFour(middle - 1, middle, place.color);
    square.PaintFour(0, last, corner);
}
