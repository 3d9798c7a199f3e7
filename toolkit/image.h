// Pictures of the program's resources: PNG masks whose shape is their alpha, to be painted in a colour of the
// theme.
#pragma once

#include "toolkit/bitmap.h"

class tvimage {
public:
    tvimage() = default;
    virtual ~tvimage();
    tvimage(const tvimage&) = delete;
    tvimage& operator=(const tvimage&) = delete;

    // False, with no picture, if there is no such resource or it is none.
    bool LoadPng(u16 resourceId);

    // Gives every pixel this colour and leaves its alpha.
    bool Tint(COLORREF color);

    // A bitmap of the picture, with nothing where it is clear.
    bool ToBitmap(tvBitmap& out) const;

    // A new icon, or null.
    [[nodiscard]] tvIconHandle ToIcon() const;

    // --- Fields, in their order ---

    void* m_bitmap = nullptr;  // of GDI+
    u32 m_width = 0;
    u32 m_height = 0;

private:
    void Reset();
};

// A picture in a colour, or in that of glyphs for one above 0xFFFFFF; null for resource 0 and one that is not
// there.
tvIconHandle LoadTintedIcon(u16 resourceId, COLORREF color);
