// tvButton, a push button in the colours of the theme, and what check boxes, links, splitters and the like
// have in common with it.
//
// The window is a standard button. Under a colour theme it is owner-drawn and paints itself; under System
// Default it gets its true style back, and the system paints it. The true style is kept in m_style meanwhile.
#pragma once

#include "foundation/tvstring.h"
#include "toolkit/color_theme.h"
#include "toolkit/draw.h"
#include "toolkit/theme_control.h"
#include "toolkit/wnd.h"

// What one picture of a button is painted from.
struct tvButtonColors {
    COLORREF m_face = kNoColor;
    COLORREF m_text = kNoColor;
    COLORREF m_frame = kNoColor;
    u8 m_focus = 0;      // the focus dots are painted
    u8 m_showAccel = 0;  // the letter to press is underlined
    u8 m_hot = 0;
    u8 m_pushed = 0;
    u8 m_focused = 0;
    u8 m_disabled = 0;
    COLORREF m_markFill = kNoColor;
    COLORREF m_mark = kNoColor;
};

// Alignment of a button's content, as bits; without one of each direction: left, top.
enum ContentAlign : unsigned { ALIGN_CENTER = 1, ALIGN_RIGHT = 2, ALIGN_MIDDLE = 4, ALIGN_BOTTOM = 8 };

class tvButton : public tvWnd, public tvtheme_control {
public:
    tvButton() = default;
    ~tvButton() override;

    // --- Virtual operations after those of tvWnd, in slot order ---

    // True if the system paints the button.
    virtual bool UsesSystemLook();
    virtual void DrawContent(HDC dc, RECT rect, const tvButtonColors& colors);
    virtual void GetColors(const DRAWITEMSTRUCT& item, tvButtonColors& colors);

    // Text, size or font have changed.
    virtual void OnAutoFit();

    // Which sides have a frame; as a mask: of EDGE_LEFT and so on.
    virtual void SetSides(bool left, bool top, bool right, bool bottom);
    virtual void SetSideMask(unsigned mask);

    // Bits of ContentAlign.
    virtual void SetContentAlign(unsigned mask);
    virtual void SetHideFocus(bool on);

    // The tool tip: null for none, an empty text for the caption.
    virtual void SetTip(const char16_t* text);

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnSubclassed() override;
    void OnReflectDrawItem(DRAWITEMSTRUCT* item) override;
    void OnDraw(HDC dc, const RECT& rect, void* paint) override;

    // --- Fields, in their order ---

    u8 m_hover = 0;          // the mouse is inside
    u32 m_style = 0;         // the low word of the style, with the true type in the low 4 bits
    u8 m_sides = 15;         // with a frame: bits of EDGE_LEFT and so on
    tvstring m_text;         // the caption
    tvstring m_tip;          // "#0": the caption
    u8 m_hideFocus = 0;      // the focus dots are never painted
    u8 m_noAnimation = 0;    // no cross-fade from one picture to the next
    u8 m_rounded = 0;        // with round corners
    u8 m_alwaysDefault = 0;  // as a default button or with the focus it looks as if the mouse were over it
    tvThemeHandle m_theme;   // the visual style of buttons

protected:
    static constexpr u32 kStyleMask = 0xFFFF;  // what m_style holds of a window's style

    [[nodiscard]] unsigned Type() const noexcept { return m_style & BS_TYPEMASK; }
    [[nodiscard]] bool IsDefault() const noexcept { return Type() == BS_DEFPUSHBUTTON; }

    // The window has the owner-drawn style at present.
    [[nodiscard]] bool IsOwnerDrawn() const;

    // Gives the window the style that it has to have now, and opens the visual style if it is needed. True if
    // that changed the window's style.
    bool SyncStyle();
    void SetType(unsigned type) noexcept { m_style = (m_style & ~static_cast<u32>(BS_TYPEMASK)) | type; }

    // The next picture does not fade from the last one.
    void Repaint();

    // The flags of DrawTextW for the alignment in m_style, centred where it says nothing.
    [[nodiscard]] UINT AlignFlags() const noexcept;
    [[nodiscard]] static UINT PrefixFlag(const tvButtonColors& colors) noexcept {
        return colors.m_showAccel != 0 ? 0U : UINT{DT_HIDEPREFIX};
    }

    // The state of a push button in the visual style.
    [[nodiscard]] int ThemeState(const tvButtonColors& colors) const noexcept;

    // Paints the button's ground; `rect` becomes what is left for the content.
    void DrawGround(HDC dc, RECT& rect, const tvButtonColors& colors);

private:
    bool BeforeDefault(UINT message, WPARAM& wParam, LPARAM lParam, LRESULT& result);
    LRESULT AfterDefault(UINT message, WPARAM wParam, LRESULT result);
    void OnTextSet(LPARAM lParam);
    void OnThemeChosen();
    void OnStyleChanged(DWORD style);
    void OnTypeSet(WPARAM wParam, LPARAM lParam);
    void OnMouseInside();
    void OnMouseGone();
    void PostCommand() const;
    void RenewTip() const;
    // Answers WM_PAINT of an owner-drawn button.
    void PaintWindow();
    [[nodiscard]] Fade FadeToNext() const;
    [[nodiscard]] LRESULT DialogCode(WPARAM key, LRESULT code);
    [[nodiscard]] COLORREF SystemTextColor(const tvButtonColors& colors) const;
    void DrawThemed(HDC dc, RECT& rect, const tvButtonColors& colors) const;
    void DrawClassic(HDC dc, RECT& rect, const tvButtonColors& colors) const;
    void DrawColored(HDC dc, RECT& rect, const tvButtonColors& colors) const;
};
