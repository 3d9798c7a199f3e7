// Buttons with a picture: tvButton_Icon with an icon, tvButton_customIcon with one of the toolkit's glyphs,
// too. Neither owns its icon.
#pragma once

#include "toolkit/button.h"
#include "toolkit/glyph.h"

class tvButton_Icon : public tvButton {
public:
    tvButton_Icon() = default;
    ~tvButton_Icon() override;

    bool UsesSystemLook() override;
    void DrawContent(HDC dc, RECT rect, const tvButtonColors& colors) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    // --- Fields, in their order ---

    HICON m_icon = nullptr;
    int m_iconWidth = 0;
    int m_iconHeight = 0;

protected:
    // True if there is something to be shown in place of the text.
    [[nodiscard]] virtual bool HasPicture() const noexcept { return m_icon != nullptr; }
    void DrawIconAt(HDC dc, int x, int y) const;

private:
    LRESULT SetIcon(HICON icon);
};

class tvButton_customIcon : public tvButton_Icon {
public:
    // A glyph has the caption as its tool tip.
    explicit tvButton_customIcon(int glyph = GLYPH_NONE);
    ~tvButton_customIcon() override;

    void DrawContent(HDC dc, RECT rect, const tvButtonColors& colors) override;
    void GetColors(const DRAWITEMSTRUCT& item, tvButtonColors& colors) override;

    // --- Fields, in their order ---

    int m_glyph;  // a number of Glyph

protected:
    [[nodiscard]] bool HasPicture() const noexcept override;
    [[nodiscard]] bool HasGlyph() const noexcept;
};
