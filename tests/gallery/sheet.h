// A control that shows what an operation draws: over a static control, in the colours of the theme.
#pragma once

#include <functional>

#include "toolkit/theme_control.h"
#include "toolkit/wnd.h"

class Sheet : public tvWnd, public tvtheme_control {
public:
    using Drawing = std::function<void(HDC, const RECT&)>;

    explicit Sheet(Drawing draw) : m_Draw(std::move(draw)) {}
    ~Sheet() override { Detach(Window::Destroy); }

    void OnSubclassed() override;
    void OnReflectDrawItem(DRAWITEMSTRUCT* item) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnDraw(HDC dc, const RECT& rect, void* paint) override;

private:
    Drawing m_Draw;
};

// --- What the gallery's sheets show ---

// All glyphs with their numbers.
void DrawGlyphSheet(HDC dc, const RECT& rect);

// The pictures of the program's resources, in the colour of glyphs.
void DrawPictureSheet(HDC dc, const RECT& rect);

// Frames, marks, chevrons, triangles and so on.
void DrawShapeSheet(HDC dc, const RECT& rect);

// Texts that do not fit, in all three fonts.
void DrawTextSheet(HDC dc, const RECT& rect);

// A pane beside the divider.
void DrawPane(HDC dc, const RECT& rect);
