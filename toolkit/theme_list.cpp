#include "toolkit/theme_list.h"

#include <algorithm>
#include <cstring>

#include "foundation/path.h"
#include "foundation/registry.h"
#include "foundation/textops.h"
#include "platform/file.h"

namespace {

constexpr int kLightIndex = 0;
constexpr int kDarkIndex = 1;

constexpr const char16_t* kPersonalizeKey =
    u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize";

struct BuiltInTheme {
    const char16_t* name;
    std::array<u32, kThemeRoles.size()> colors;  // in the order of kThemeRoles
};

constexpr BuiltInTheme kBuiltInThemes[] = {
    {u"Light",
     {RgbColor(240, 240, 240), RgbColor(173, 173, 173), RgbColor(0, 122, 204), RgbColor(222, 222, 222),
      RgbColor(209, 231, 248), RgbColor(147, 197, 238), RgbColor(204, 204, 204), RgbColor(0, 0, 0),
      RgbColor(128, 128, 128), RgbColor(255, 255, 255), RgbColor(0, 0, 204), RgbColor(128, 128, 128)}},
    {u"Dark",
     {RgbColor(37, 37, 37), RgbColor(133, 133, 133), RgbColor(0, 122, 204), RgbColor(51, 51, 51),
      RgbColor(77, 77, 77), RgbColor(104, 104, 104), RgbColor(51, 51, 51), RgbColor(218, 218, 218),
      RgbColor(133, 133, 133), RgbColor(30, 30, 30), RgbColor(0, 122, 204), RgbColor(218, 218, 218)}},
    {u"Blue",
     {RgbColor(0, 60, 108), RgbColor(128, 177, 216), RgbColor(53, 183, 53), RgbColor(0, 77, 138),
      RgbColor(0, 85, 155), RgbColor(0, 117, 213), RgbColor(0, 60, 108), RgbColor(255, 255, 255),
      RgbColor(128, 128, 128), RgbColor(0, 45, 79), RgbColor(53, 183, 53), RgbColor(159, 196, 225)}},
    {u"Green",
     {RgbColor(12, 92, 12), RgbColor(136, 190, 136), RgbColor(255, 255, 255), RgbColor(16, 124, 16),
      RgbColor(40, 137, 40), RgbColor(46, 158, 46), RgbColor(12, 92, 12), RgbColor(255, 255, 255),
      RgbColor(136, 190, 136), RgbColor(9, 66, 9), RgbColor(255, 255, 255), RgbColor(186, 218, 186)}},
};

tvColorTheme ThemeOf(const BuiltInTheme& builtIn) {
    tvColorTheme theme;
    theme.m_name = builtIn.name;
    for (std::size_t i = 0; i < kThemeRoles.size(); ++i)
        theme.*kThemeRoles[i].color = builtIn.colors[i];
    return theme;
}

int SystemPreference() {
    return IsSystemDark() ? kDarkIndex : kLightIndex;
}

tvColorTheme SystemDefaultTheme() {
    tvColorTheme theme = ThemeOf(kBuiltInThemes[kLightIndex]);
    theme.m_name = kSystemDefaultTheme;
    return theme;
}

std::vector<tvstring> MatchingFiles(const tvstring& pattern) {
    std::vector<tvstring> files;
    const tvstring folder = ParentFolder(pattern);
    const tvstring extension = ExtensionOf(pattern).substr(1);
    const auto names = platform::ListNames(folder.c_str(), extension.c_str());
    if (!names) return files;
    for (const std::u16string& name : *names) {
        const tvstring path = JoinPath(folder, name);
        const bool passedOver = IsDotName(name) || name.starts_with(u'_');
        if (!passedOver && PathKind(path) == PATH_FILE) files.push_back(path);
    }
    return files;
}

}  // namespace

void ThemeList::LoadThemes(const tvstring& pattern, bool clearFirst) {
    if (clearFirst) {
        m_themes.clear();
    } else if (!m_themes.empty() && EqualNoCase(m_themes.back().m_name, kSystemDefaultTheme)) {
        m_themes.pop_back();
    }
    const std::vector<tvstring> files = MatchingFiles(pattern);
    for (const tvstring& file : files) {
        tvColorTheme theme;
        if (!theme.Load(file)) continue;
        const int present = FindTheme(theme.m_name);
        if (present >= 0) {
            m_themes[static_cast<std::size_t>(present)] = std::move(theme);
        } else {
            m_themes.push_back(std::move(theme));
        }
    }
    if (files.empty() || m_themes.empty()) {
        AddBuiltInThemes();
    } else if (m_allowSystemDefault) {
        m_themes.push_back(SystemDefaultTheme());
    }
}

void ThemeList::AddBuiltInThemes() {
    m_themes.clear();
    for (const BuiltInTheme& builtIn : kBuiltInThemes)
        m_themes.push_back(ThemeOf(builtIn));
    if (m_allowSystemDefault) m_themes.push_back(SystemDefaultTheme());
}

int ThemeList::FindTheme(const tvstring& name) const {
    if (name.empty()) return -1;
    const auto found = std::find_if(m_themes.begin(), m_themes.end(), [&name](const tvColorTheme& theme) {
        return EqualNoCase(theme.m_name, name);
    });
    return found == m_themes.end() ? -1 : static_cast<int>(found - m_themes.begin());
}

int ThemeList::IndexForStored(const tvstring& name) const {
    const int found = FindTheme(name);
    return found >= 0 ? found : SystemPreference();
}

int ThemeList::DefaultIndex() const {
    const bool hasSystemDefault = m_allowSystemDefault && !m_themes.empty();
    return hasSystemDefault ? static_cast<int>(m_themes.size()) - 1 : SystemPreference();
}

bool ThemeList::IsSystemDefault(int index) const {
    return m_allowSystemDefault && index >= 0 && static_cast<std::size_t>(index) + 1 == m_themes.size();
}

bool IsSystemDark() {
    u32 type = 0;
    const tvdata data = RegReadUserValue(kPersonalizeKey, u"AppsUseLightTheme", &type);
    u32 light = 1;
    if (type != kRegWord || data.Size() != sizeof light) return false;
    std::memcpy(&light, data.Data(), sizeof light);
    return light == 0;
}
