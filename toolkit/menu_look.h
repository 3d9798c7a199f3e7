// What all menus share for measuring and painting their rows.
#pragma once

#include "toolkit/bitmap.h"

class tvMenuLook {
public:
    // Notes the theme's font.
    tvMenuLook();
    tvMenuLook(const tvMenuLook&) = delete;
    tvMenuLook& operator=(const tvMenuLook&) = delete;

    // The memory context, of this size at least, with the theme's text colour on a transparent background.
    // Null if the system fails.
    HDC Canvas(HDC target, int width, int height);

    // The visual style of menus, opened when it is first asked for; null if there is none.
    HTHEME Style();
    // It is opened anew when it is asked for next.
    void ForgetStyle();
    // For tests: as if there were no style.
    void GoWithoutStyle();

    // Notes the theme's font. True if it is another one than before.
    bool TakeFont();

private:
    tvMemDC m_context;
    tvThemeHandle m_style;
    bool m_styleKnown = false;
    LOGFONTW m_font{};
};

tvMenuLook& TheMenuLook();
