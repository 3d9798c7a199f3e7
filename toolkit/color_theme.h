// Colour themes: a name and twelve colours, each with a role, from files or built in.
//
// A colour is a number 0x00BBGGRR. Anything above 0xFFFFFF means "no colour": what would be painted with it
// is left out.
//
// A theme file is an INI document with one section, [colortheme]: `_version` is TVTHEME_1_0, `_name` the
// name, and each role key a colour or, as "%role", that of another role.
#pragma once

#include <array>

#include "foundation/tvini.h"
#include "foundation/tvstring.h"

inline constexpr u32 kNoColor = 0xFFFFFFFF;
inline constexpr u32 kLargestColor = 0xFFFFFF;

constexpr u32 RgbColor(u32 red, u32 green, u32 blue) {
    return (red & 0xFFU) | (green & 0xFFU) << 8 | (blue & 0xFFU) << 16;
}

// The colour of a text, or kNoColor. Letter case and white space around the text and its parts make no
// difference. Forms: "rgb(R,G,B)", numbers decimal or with "0x" and cut to eight bits; "#RRGGBB"; "#RGB",
// each digit the whole value of its channel; or the number itself, which may come out above kLargestColor.
u32 ParseColor(const tvstring& text);

class tvColorTheme {
public:
    // Takes the place of what is there. False, with an empty record, on any fault.
    bool Load(const tvstring& path);

    // The same from a document that was read.
    bool Take(const tvini& document);

    // No name and no colours.
    void Clear() { *this = tvColorTheme(); }

    bool operator==(const tvColorTheme&) const = default;

    // --- Fields, in their order ---

    tvstring m_name;
    u32 m_base = kNoColor;           // background of dialogs, panes, status bar and menus
    u32 m_border = kNoColor;         // frame of idle controls
    u32 m_borderActive = kNoColor;   // frame of hovered, pressed, focused and default controls
    u32 m_button = kNoColor;         // face of an idle button
    u32 m_buttonOver = kNoColor;     // face under the mouse, hot menu row
    u32 m_buttonPush = kNoColor;     // face while pushed
    u32 m_buttonDisable = kNoColor;  // face when disabled
    u32 m_text = kNoColor;           // normal text
    u32 m_textGray = kNoColor;       // disabled and secondary text
    u32 m_editBg = kNoColor;         // background of edit, list and check boxes
    u32 m_link = kNoColor;           // link text
    u32 m_icon = kNoColor;           // monochrome glyphs
};

// The roles: the key in a file and the colour it gives.
struct ThemeRole {
    std::u16string_view key;
    u32 tvColorTheme::*color;
};
inline constexpr std::array<ThemeRole, 12> kThemeRoles = {{
    {u"base", &tvColorTheme::m_base},
    {u"border", &tvColorTheme::m_border},
    {u"border_active", &tvColorTheme::m_borderActive},
    {u"button", &tvColorTheme::m_button},
    {u"button_over", &tvColorTheme::m_buttonOver},
    {u"button_push", &tvColorTheme::m_buttonPush},
    {u"button_disable", &tvColorTheme::m_buttonDisable},
    {u"text", &tvColorTheme::m_text},
    {u"text_gray", &tvColorTheme::m_textGray},
    {u"edit_bg", &tvColorTheme::m_editBg},
    {u"link", &tvColorTheme::m_link},
    {u"icon", &tvColorTheme::m_icon},
}};

inline constexpr const char16_t* kThemeSection = u"colortheme";
inline constexpr const char16_t* kThemeVersionKey = u"_version";
inline constexpr const char16_t* kThemeVersion = u"TVTHEME_1_0";
inline constexpr const char16_t* kThemeNameKey = u"_name";

// Where a role stands in kThemeRoles by its key in small letters; npos if there is none.
std::size_t FindThemeRole(std::u16string_view key);

// What a role's value says.
struct ThemeValue {
    enum class Kind {
        Missing,    // no value, or an empty one
        Color,      // `color`
        Reference,  // `role`, the key of another role, in small letters
        Bad,        // neither of them
    };

    Kind kind = Kind::Missing;
    u32 color = kNoColor;
    tvstring role;
};
ThemeValue ReadThemeValue(const tvstring& value);
