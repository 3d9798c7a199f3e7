// The single glyphs, each painted into its box of 16 by 16 pixels.
#pragma once

#include "toolkit/win32.h"

inline constexpr int kGlyphBox = 16;

struct GlyphPlace {
    HDC dc;
    RECT box;
    COLORREF color;
    COLORREF background;  // may be no colour
};

// glyph_masks.cpp: bit by bit.
void DrawFolderMask(const GlyphPlace& place);
void DrawPencilGlyph(const GlyphPlace& place);
void DrawDiskGlyph(const GlyphPlace& place);

// glyph_close.cpp: with edges that are blended by hand.
void DrawCloseGlyph(const GlyphPlace& place);

// glyph_shapes.cpp: smooth lines and areas.
void DrawFolderGlyph(const GlyphPlace& place);
void DrawAutoGlyph(const GlyphPlace& place);
void DrawBinGlyph(const GlyphPlace& place);
void DrawRefreshGlyph(const GlyphPlace& place);
void DrawDotsGlyph(const GlyphPlace& place);
void DrawUpGlyph(const GlyphPlace& place);
void DrawDownGlyph(const GlyphPlace& place);
void DrawPlayGlyph(const GlyphPlace& place);
void DrawHexagonGlyph(const GlyphPlace& place);
