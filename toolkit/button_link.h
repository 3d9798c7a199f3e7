// tvButton_Link, a text that is pressed like a button, in the colour of links.
#pragma once

#include "toolkit/button.h"

class tvButton_Link : public tvButton {
public:
    tvButton_Link() = default;
    ~tvButton_Link() override;

    bool UsesSystemLook() override;
    void GetColors(const DRAWITEMSTRUCT& item, tvButtonColors& colors) override;

    // As large as the text; the edge, or the middle, that it is aligned to stays where it is.
    void OnAutoFit() override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnDraw(HDC dc, const RECT& rect, void* paint) override;

    // --- Fields, in their order ---

    u8 m_autoFit = 1;
    u8 m_noPrefix = 0;  // "&" is a letter like any other

private:
    [[nodiscard]] UINT TextFlags() const noexcept;
};
