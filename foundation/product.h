// What the program is called, and its version.
#pragma once

#include <array>
#include <string_view>

#include "platform/types.h"

inline constexpr std::u16string_view kAppName = u"Vaultmere";
inline constexpr std::u16string_view kDevName = u"Tolvane";
inline constexpr std::array<i32, 3> kVersion = {2, 0, 0};

// Where the program keeps its settings, and the list of databases used last, in the user's settings store.
inline constexpr const char16_t* kSettingsKey = u"Software\\Tolvane\\Vaultmere\\Settings";
inline constexpr const char16_t* kRecentKey = u"Software\\Tolvane\\Vaultmere\\Recent File List";

// The constants of the language tables: key and text.
struct LanguageConstant {
    std::u16string_view key;
    std::u16string_view text;
};
inline constexpr std::array<LanguageConstant, 2> kLanguageConstants = {{
    {u"app_name", kAppName},
    {u"dev_name", kDevName},
}};

inline constexpr const char16_t* kDefaultLanguageSection = u"global";
