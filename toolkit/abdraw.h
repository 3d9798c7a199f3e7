// tvabdraw, painting through a double buffer, with a cross-fade from the last picture where the system can do
// it; and tvPaintDC, the context of a WM_PAINT.
#pragma once

#include "toolkit/bitmap.h"

class tvabdraw {
public:
    tvabdraw();
    tvabdraw(const tvabdraw&) = delete;
    tvabdraw& operator=(const tvabdraw&) = delete;

    // --- Virtual operations, in slot order ---

    // Paints one picture of a fade, or starts one. False if there is none: then the picture is painted as it
    // is.
    virtual bool DrawAnimated(HWND window, HDC dc, const RECT& rect, void* paint);

    // Paints the whole picture into `rect` of the context. `paint` is what PaintBuffered or PaintWhole
    // was given.
    virtual void OnDraw(HDC dc, const RECT& rect, void* paint) = 0;

    virtual ~tvabdraw();

    // Paints into the buffer and copies that to the target; straight to the target if there is no buffer to
    // be had.
    enum class Fade { Yes, No };
    void PaintBuffered(HWND window, HDC dc, const RECT& rect, void* paint, Fade fade);

    // Answers WM_PAINT of a window that has no frame, clips its children if it has any, and the siblings over
    // it if there are any: paints the whole client area in this font, whatever part of it was to be painted.
    // BeginPaint and EndPaint also see to frame, background and caret; with many windows that took most of
    // the time of painting them.
    void PaintWhole(HWND window, HFONT font, void* paint, Fade fade);

    // Ends a fade and forgets the last picture, so that the next one does not fade from it; then, if asked
    // to, has a visible window painted anew.
    enum class Redraw { No, Yes };
    void ResetBuffer(HWND window, Redraw redraw);

    // --- Fields, in their order ---

    tvMemDC m_buffer;
    bool m_hasFrame = false;  // the buffer holds the last complete picture

private:
    // The buffer's context in the size of the rectangle; null if there is none to be had.
    HDC PrepareFrame(HDC dc, HGDIOBJ font, const RECT& rect);
    void PaintPrepared(HWND window, HDC dc, const RECT& rect, void* paint, Fade fade);
};

class tvPaintDC {
public:
    // Asks the window for its font.
    // NOLINTNEXTLINE(performance-no-int-to-ptr): a number that stands for what is no handle
    static inline const HFONT kWindowFont = reinterpret_cast<HFONT>(static_cast<INT_PTR>(-1));

    tvPaintDC(HWND window, HFONT font);
    virtual ~tvPaintDC();
    tvPaintDC(const tvPaintDC&) = delete;
    tvPaintDC& operator=(const tvPaintDC&) = delete;

    // --- Fields, in their order ---

    HWND m_hWnd;
    HDC m_dc;
    PAINTSTRUCT m_paint{};
};
