// The font of pictures that are compared with golden ones: it depends on no settings.
#pragma once

#include "toolkit/win32.h"

inline LOGFONTW PinnedFont() {
    LOGFONTW font{};
    font.lfHeight = -12;
    font.lfWeight = FW_NORMAL;
    font.lfCharSet = DEFAULT_CHARSET;
    font.lfQuality = ANTIALIASED_QUALITY;
    lstrcpyW(font.lfFaceName, L"DejaVu Sans");
    return font;
}
