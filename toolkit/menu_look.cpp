#include "toolkit/menu_look.h"

#include <algorithm>
#include <cstring>

#include "toolkit/theme.h"

tvMenuLook::tvMenuLook() {
    TakeFont();
}

HDC tvMenuLook::Canvas(HDC target, int width, int height) {
    constexpr int kUsualWidth = 1024;
    constexpr int kUsualHeight = 768;
    const HDC dc = m_context.Prepare(target, std::max(width, kUsualWidth), std::max(height, kUsualHeight));
    if (dc != nullptr) SetTextColor(dc, TheTheme().m_text);
    return dc;
}

HTHEME tvMenuLook::Style() {
    if (!m_styleKnown) m_style.Reset(OpenThemeData(nullptr, L"Menu"));
    m_styleKnown = true;
    return m_style.Get();
}

void tvMenuLook::ForgetStyle() {
    m_style.Reset();
    m_styleKnown = false;
}

void tvMenuLook::GoWithoutStyle() {
    m_style.Reset();
    m_styleKnown = true;
}

bool tvMenuLook::TakeFont() {
    LOGFONTW font{};
    GetObjectW(TheTheme().Font(), sizeof font, &font);
    if (std::memcmp(&font, &m_font, sizeof font) == 0) return false;
    m_font = font;
    return true;
}
