// A control that shows what an operation draws: over a static control, in the colours of the theme.
#pragma once

#include <array>
#include <functional>

#include "toolkit/handle.h"
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

// The pictures of the program's resources, in the colour of glyphs.
class PictureSheet : public Sheet {
public:
    PictureSheet() : Sheet([this](HDC dc, const RECT& rect) { DrawPictures(dc, rect); }) {}

    void OnSubclassed() override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    static constexpr int kCount = 11;

    void LoadPictures();
    void DrawPictures(HDC dc, const RECT& rect) const;

    std::array<tvIconHandle, kCount> m_Pictures;
};

// --- What the gallery's other sheets show ---

// All glyphs with their numbers.
void DrawGlyphSheet(HDC dc, const RECT& rect);

// Frames, marks, chevrons, triangles and so on.
void DrawShapeSheet(HDC dc, const RECT& rect);

// Texts that do not fit, in all three fonts.
void DrawTextSheet(HDC dc, const RECT& rect);

// A pane beside the divider.
void DrawPane(HDC dc, const RECT& rect);
