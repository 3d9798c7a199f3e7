// tvTheme, what all controls share: the colours in force with their brushes, the fonts and the distances that
// follow from them, the stock icons and the themes to choose from. There is one, TheTheme().
#pragma once

#include <map>

#include "toolkit/font.h"
#include "toolkit/sys_icon.h"
#include "toolkit/theme_list.h"

class tvTheme : public tvColorTheme, public ThemeList {
public:
    // The built-in themes, the default one in force, the system's font.
    tvTheme();
    tvTheme(const tvTheme&) = delete;
    tvTheme& operator=(const tvTheme&) = delete;

    // Puts a theme of the list in force and posts the main window WM_SYSCOLORCHANGE with this object, which
    // travels to all windows below it. -1 means the default. False, with nothing changed, for an index that
    // is out of range.
    bool Apply(int index);

    // Takes a font for all windows; the large one is higher by the factor, which is at least 1.
    void SetFont(const LOGFONTW& logfont, float largeFactor);

    // The height of a line in a font and, if asked for, the average width of a letter.
    int TextHeight(HFONT font, int* averageWidth);

    [[nodiscard]] HFONT Font() const noexcept { return m_fontRegular.Get(); }

    // A colour of the theme, or the system's under System Default.
    [[nodiscard]] COLORREF Color(u32 tvColorTheme::*role, int systemColor) const {
        return m_isSystemDefault ? GetSysColor(systemColor) : this->*role;
    }

    static u32 ParseColor(const tvstring& text) { return ::ParseColor(text); }
    static bool IsSystemDark() { return ::IsSystemDark(); }

    // --- Fields, in their order ---

    tvBrushHandle m_baseBrush;
    tvBrushHandle m_editBrush;
    tvBrushHandle m_borderBrush;
    tvfont m_fontRegular;
    tvfont m_fontBold;   // weight 700
    tvfont m_fontLarge;  // higher
    int m_marginX = 12;  // page margin in pixels: 7 by 7 dialog units
    int m_marginY = 13;
    int m_halfMarginX = 6;
    int m_halfMarginY = 6;
    int m_gapX = 7;  // between controls: 4 by 4 dialog units
    int m_gapY = 8;
    int m_borderWidth = 2;
    bool m_ready = false;
    tvsysicon m_icons;
    struct LineSize {
        int height = 0;
        int averageWidth = 0;
    };
    std::map<HFONT, LineSize> m_charCache;
    HFONT m_cachedFor = nullptr;  // the regular font that the cache was filled under
    bool m_isSystemDefault = false;

private:
    // Tells the tool tip, the menus and the main window, which hands it on, of the new font.
    void AnnounceFont() const;
};

tvTheme& TheTheme();
