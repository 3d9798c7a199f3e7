// The fonts that were in force when it was made, again.
#pragma once

#include "shell/app_data.h"
#include "shell/statics.h"
#include "toolkit/theme.h"

class KeepFont {
public:
    KeepFont() { GetObjectW(TheTheme().Font(), sizeof m_Regular, &m_Regular); }
    ~KeepFont() {
        constexpr float kUsualLargeFactor = 1.45F;
        TheTheme().SetFont(m_Regular, kUsualLargeFactor);
        TheAppData().LoadStoreFont(LoadStore::Load);  // nothing is stored by now
    }
    KeepFont(const KeepFont&) = delete;
    KeepFont& operator=(const KeepFont&) = delete;

    [[nodiscard]] const LOGFONTW& Regular() const { return m_Regular; }
    // The same font in twice its height.
    [[nodiscard]] LOGFONTW Doubled() const {
        LOGFONTW font = m_Regular;
        font.lfHeight *= 2;
        return font;
    }

private:
    LOGFONTW m_Regular{};
};
