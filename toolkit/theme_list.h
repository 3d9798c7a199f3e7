// The colour themes that the user can choose from.
#pragma once

#include <vector>

#include "toolkit/color_theme.h"

// The entry that leaves all colours to the system.
inline constexpr const char16_t* kSystemDefaultTheme = u"System Default";

class ThemeList {
public:
    // Holds the built-in themes.
    ThemeList() { AddBuiltInThemes(); }

    // Takes the themes of the files that match the pattern, which is a folder and "*.EXT", in the order that
    // the system gives. A theme takes the place of one of the same name (letter case ignored) or else stands
    // behind the others. Files whose name starts with "_", and those that are no theme, are passed over. If
    // there are no files, or nothing is left, the list is that of the built-in themes.
    void LoadThemes(const tvstring& pattern, bool clearFirst);

    // The list is: Light, Dark, Blue, Green and, if allowed, System Default.
    void AddBuiltInThemes();

    // The index of a theme by its name, letter case ignored; -1 if there is none, or for an empty name.
    [[nodiscard]] int FindTheme(const tvstring& name) const;

    // The index for a name from the settings: the theme of that name, or else Dark or Light, as the system
    // prefers.
    [[nodiscard]] int IndexForStored(const tvstring& name) const;

    // The index where nothing was chosen: System Default, or else as the system prefers.
    [[nodiscard]] int DefaultIndex() const;

    // True for the entry System Default.
    [[nodiscard]] bool IsSystemDefault(int index) const;

    // --- Fields, in their order ---

    std::vector<tvColorTheme> m_themes;
    bool m_allowSystemDefault = true;  // the list ends in System Default
};

// True if the user has chosen dark applications in the system's own settings.
bool IsSystemDark();
