// Theme documents for tests.
#pragma once

#include <string>

#include "toolkit/color_theme.h"

// A document with the name and all roles, each of another colour: 0x000001 and so on in their order. A role
// that is `changed` has the value given; a null value leaves it out.
inline tvstring ThemeText(std::u16string_view name = u"Test", std::u16string_view changed = {},
                          const char16_t* value = nullptr) {
    tvstring text = u"[colortheme]\n_version = TVTHEME_1_0\n";
    text += tvstring(u"_name = ") + name + u"\n";
    char16_t digit = u'1';
    for (const ThemeRole& role : kThemeRoles) {
        const std::u16string color = {u'0', u'x', digit};
        digit = digit == u'9' ? u'a' : static_cast<char16_t>(digit + 1);
        if (role.key == changed && value == nullptr) continue;
        text +=
            tvstring(role.key) + u" = " + (role.key == changed ? std::u16string_view(value) : color) + u"\n";
    }
    return text;
}
