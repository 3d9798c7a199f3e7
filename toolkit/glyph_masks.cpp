#include <array>

#include "platform/types.h"
#include "toolkit/glyph_shapes.h"

namespace {

// Rows from the top, each with its leftmost pixel in the highest bit.
using Mask = std::array<u16, kGlyphBox>;

constexpr Mask kFolder = {0x0000, 0x0000, 0x0000, 0x7FF8, 0x4008, 0x4008, 0x47FF, 0x47FF,
                          0x4FFE, 0x4FFE, 0x5FFC, 0x5FFC, 0x7FF8, 0x7FF8, 0x0000, 0x0000};
constexpr Mask kPencil = {0x0000, 0x0030, 0x0078, 0x00FC, 0x01FC, 0x03F8, 0x07F0, 0x0FE0,
                          0x1FC0, 0x1F80, 0x4F00, 0x6600, 0x7000, 0x7800, 0x0000, 0x3FE0};
constexpr Mask kDisk = {0xFFFF, 0x9009, 0x97E9, 0x9009, 0x97E9, 0x9009, 0x9009, 0x9FF9,
                        0x8001, 0x8001, 0x9FF9, 0x9009, 0x9709, 0x9709, 0x5709, 0x3FFF};

void DrawMask(const GlyphPlace& place, const Mask& mask) {
    constexpr unsigned kLeftmost = 0x8000;
    int y = place.box.top;
    for (const unsigned row : mask) {
        for (int x = 0; x < kGlyphBox; ++x)
            if (row & kLeftmost >> x) SetPixel(place.dc, place.box.left + x, y, place.color);
        ++y;
    }
}

}  // namespace

void DrawFolderMask(const GlyphPlace& place) {
    DrawMask(place, kFolder);
}

void DrawPencilGlyph(const GlyphPlace& place) {
    DrawMask(place, kPencil);
}

void DrawDiskGlyph(const GlyphPlace& place) {
    DrawMask(place, kDisk);
}
