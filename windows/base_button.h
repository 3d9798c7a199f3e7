// CVMRBaseButton, what all tool buttons of the program have in common, and CVMRAutoHideButton, which is seen
// only while its owner wants it.
#pragma once

#include "toolkit/button_icon.h"
#include "toolkit/handle.h"

// A picture of the program's resources in a colour, or in that of icons for one above 0xFFFFFF; null for
// resource 0.
tvIconHandle MakeThemedIcon(u16 resourceId, COLORREF color);

class CVMRBaseButton : public tvButton_customIcon {
public:
    // Widths other than percent of the usual one, and the usual one itself.
    static constexpr i32 kUsualWidth = 0;
    static constexpr i32 kKeepWidth = -1;
    static constexpr i32 kSquare = -2;
    static constexpr i32 kUsualHeight = 0;

    explicit CVMRBaseButton(i32 widthPercent = kKeepWidth, i32 heightSpec = kUsualHeight, u32 iconId = 0,
                            int glyph = GLYPH_NONE);
    ~CVMRBaseButton() override;

    // --- Virtual operations after those of tvButton ---

    virtual COLORREF GetIconColour();

    void OnAutoFit() override;
    void OnSubclassed() override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    // Another picture in place of the one that the button has.
    void SetImage(u32 iconId);

    // The usual size of a button with the font that dialogs have now, in pixels.
    static SIZE StandardSize();

    // --- Fields, in their order ---

    i32 m_widthPercent;  // of the usual width, or one of the constants above
    i32 m_heightSpec;    // above 0: at least so many pixels; below 0: exactly so many
    u32 m_iconId;        // a resource; 0: no picture
    tvIconHandle m_hIcon;

private:
    void RenewIcon();
    [[nodiscard]] SIZE FittingSize(const SIZE& present) const;
    [[nodiscard]] tvstring CaptionFrom(const char16_t* text) const;
};

class CVMRAutoHideButton : public CVMRBaseButton {
public:
    explicit CVMRAutoHideButton(u32 iconId);
    ~CVMRAutoHideButton() override;

    // Shows or hides the button, at `position` in its parent's client area if one is given. Without one a
    // button that is hidden goes out of its parent.
    void Show(bool visible, const POINT* position);

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void DrawContent(HDC dc, RECT rect, const tvButtonColors& colors) override;
    void GetColors(const DRAWITEMSTRUCT& item, tvButtonColors& colors) override;
    void OnSubclassed() override;

    // --- Fields ---

    u8 m_shown = 0;
};
