// tvButton_Note, a command button with a title and a note below it.
#pragma once

#include "toolkit/button_icon.h"

class tvButton_Note : public tvButton_customIcon {
public:
    explicit tvButton_Note(int glyph = GLYPH_NONE) : tvButton_customIcon(glyph) {}
    ~tvButton_Note() override;

    void SetNote(const tvstring& note);

    void DrawContent(HDC dc, RECT rect, const tvButtonColors& colors) override;
    void GetColors(const DRAWITEMSTRUCT& item, tvButtonColors& colors) override;

    // As high as icon, title and two lines of the note need; the width stays.
    void OnAutoFit() override;

    // --- Fields, in their order ---

    tvstring m_note;
    HFONT m_titleFont = nullptr;  // not owned; null: the large font of the theme

private:
    [[nodiscard]] HFONT TitleFont() const;
    [[nodiscard]] SIZE PictureSize() const noexcept;
    [[nodiscard]] int TitleHeight(HDC dc) const;
    void DrawPicture(HDC dc, RECT rect, const tvButtonColors& colors) const;
};
