// What a dialog is expected to paint beside its controls, drawn once more by the test's own hand and compared
// pixel by pixel.
#pragma once

#include "tests/app/app_stage.h"
#include "tests/gui/sizes.h"
#include "toolkit/control_state.h"
#include "toolkit/draw.h"
#include "toolkit/rect.h"
#include "toolkit/theme.h"

class ExpectedPaint {
public:
    // The ground of a dialog's client area.
    explicit ExpectedPaint(HWND dialog)
        : m_Dialog(dialog),
          m_Client(ClientOf(dialog)),
          m_Canvas(Width(m_Client), Height(m_Client),
                   TheTheme().Color(&tvColorTheme::m_base, COLOR_BTNFACE)) {
        SetBkMode(m_Canvas.Dc(), TRANSPARENT);
        SetTextColor(m_Canvas.Dc(), TheTheme().Color(&tvColorTheme::m_text, COLOR_BTNTEXT));
    }

    void Text(HFONT font, const tvstring& text, RECT place, UINT flags) const {
        const tvSelected selected(m_Canvas.Dc(), font);
        DrawTextW(m_Canvas.Dc(), Wide(text.c_str()), static_cast<int>(text.size()), &place, flags);
    }
    void Text(HFONT font, const tvstring& text, const RECT& place, UINT flags, COLORREF color) const {
        const COLORREF before = SetTextColor(m_Canvas.Dc(), color);
        Text(font, text, place, flags);
        SetTextColor(m_Canvas.Dc(), before);
    }
    void Frame(const RECT& place) const {
        RoundRect(m_Canvas.Dc(), place, 14, kNoColor,
                  TheTheme().Color(&tvColorTheme::m_button, COLOR_BTNSHADOW), 1.5F);
    }
    void Fill(const RECT& place, COLORREF color) const { FillSolid(m_Canvas.Dc(), place, color); }

    // How many pixels that belong to no control are otherwise. More than half of the area has to be such.
    [[nodiscard]] int CountDifferent() const {
        GdiFlush();
        const Picture picture(m_Dialog);
        for (HWND child = GetTopWindow(m_Dialog); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
            if (IsWindowVisible(child) != FALSE) Fill(PlaceInParent(child), kOfControl);
        }
        int different = 0;
        int looked = 0;
        for (int y = 0; y < m_Client.bottom; ++y) {
            for (int x = 0; x < m_Client.right; ++x) {
                const COLORREF expected = m_Canvas.At(x, y);
                if (expected == kOfControl) continue;
                ++looked;
                if (picture.At(x, y) != expected) ++different;
            }
        }
        EXPECT_GT(looked, Width(m_Client) * Height(m_Client) / 2);
        return different;
    }

private:
    static constexpr COLORREF kOfControl = RGB(1, 2, 3);  // of no theme

    HWND m_Dialog;
    RECT m_Client;
    Canvas m_Canvas;
};

// No two visible controls of a dialog share a pixel, and all lie inside its margins. Controls that are joined
// overlap by this many.
inline void ExpectTidy(HWND dialog, int joined = 0) {
    const RECT content = Inset(ClientOf(dialog), TheTheme().m_marginX, TheTheme().m_marginY);
    for (HWND one = GetTopWindow(dialog); one != nullptr; one = GetWindow(one, GW_HWNDNEXT)) {
        RECT place = PlaceInParent(one);
        RECT common{};
        EXPECT_TRUE(IntersectRect(&common, &place, &content) != FALSE && EqualRect(&common, &place) != FALSE)
            << GetDlgCtrlID(one) << " is outside";
        place.right -= joined;
        for (HWND other = GetWindow(one, GW_HWNDNEXT); other != nullptr;
             other = GetWindow(other, GW_HWNDNEXT)) {
            const RECT otherPlace = PlaceInParent(other);
            EXPECT_FALSE(IntersectRect(&common, &place, &otherPlace))
                << GetDlgCtrlID(one) << " and " << GetDlgCtrlID(other);
        }
    }
}
