// Reads a theme file, lets the checker judge it, and reads the theme again from a file written from it.
#include <algorithm>

#include "foundation/textops.h"
#include "tests/fuzz/fuzz_text.h"
#include "toolkit/color_theme.h"
#include "toolkit/theme_check.h"

namespace {

using Kind = ThemeFinding::Kind;

bool Take(tvColorTheme& theme, const tvstring& text) {
    tvini document(kThemeSection);
    document.Parse(text);
    return theme.Take(document);
}

bool IsFound(const tvstring& text) {
    bool found = false;
    for (const ThemeFinding& finding : CheckTheme(text)) {
        found = found || finding.kind <= Kind::MissingKey;
    }
    return found;
}

// Only a bare number, which stands for itself, may come out above the largest colour.
void CheckColor(const tvstring& text) {
    const u32 color = ParseColor(text);
    if (color <= kLargestColor || color == kNoColor) return;
    const std::u16string_view trimmed = TrimmedView(text, kWhiteSpace, TRIM_BOTH);
    Require(!trimmed.empty() && trimmed.front() >= u'0' && trimmed.front() <= u'9');
    Require(color == static_cast<u32>(ParseU64(tvstring(trimmed))));
}

// The whole text and each of its lines, both behind "=" and from the start.
void CheckColors(const tvstring& text) {
    CheckColor(text);
    std::u16string_view rest = text;
    while (!rest.empty()) {
        const std::u16string_view line = rest.substr(0, rest.find(u'\n'));
        CheckColor(line);
        if (const std::size_t equals = line.find(u'='); equals != line.npos) {
            CheckColor(line.substr(equals + 1));
        }
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    }
}

// The name is kept out: what a name may hold is a matter of the INI syntax, which has its own fuzzer.
tvstring Document(const tvColorTheme& theme) {
    tvstring text = tvstring(u"[colortheme]\n_version=TVTHEME_1_0\n_name=x\n");
    for (const ThemeRole& role : kThemeRoles) {
        const u32 color = theme.*role.color;
        const u8 channels[] = {static_cast<u8>(color), static_cast<u8>(color >> 8),
                               static_cast<u8>(color >> 16)};
        text += tvstring(role.key) + u"=#" + BytesToHex(channels, sizeof channels) + u"\n";
    }
    return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const u8* data, std::size_t size) {
    const tvstring text = TextOfFile(data, size);
    CheckColors(text);
    tvColorTheme theme;
    const bool taken = Take(theme, text);
    Require(taken != IsFound(text));
    if (!taken) {
        Require(theme == tvColorTheme());
        return 0;
    }
    Require(!theme.m_name.empty());
    for (const ThemeRole& role : kThemeRoles)
        Require(theme.*role.color <= kLargestColor);
    tvColorTheme again;
    Require(Take(again, Document(theme)));
    again.m_name = theme.m_name;
    Require(again == theme);
    return 0;
}
