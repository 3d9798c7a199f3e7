#include "toolkit/color_theme.h"

#include <algorithm>
#include <vector>

#include "foundation/textops.h"

namespace {

constexpr std::u16string_view kDecimalAndPrefix = u"x0123456789abcdef";
constexpr std::u16string_view kHexDigits = u"0123456789abcdef";

bool HoldsOnly(std::u16string_view text, std::u16string_view set) {
    return text.find_first_not_of(set) == std::u16string_view::npos;
}

std::u16string_view Trimmed(std::u16string_view text) {
    return TrimmedView(text, kWhiteSpace, TRIM_BOTH);
}

u32 Number(std::u16string_view text) {
    return static_cast<u32>(ParseU64(tvstring(text)));
}

u32 HexNumber(std::u16string_view digits) {
    return Number(tvstring(u"0x") + digits);
}

// What stands behind "rgb".
u32 ParseRgb(std::u16string_view rest) {
    constexpr std::size_t kShortest = 7;
    if (rest.size() < kShortest || rest.front() != u'(' || rest.back() != u')') return kNoColor;
    rest = rest.substr(1, rest.size() - 2);
    std::array<u32, 3> parts{};
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const std::size_t comma = rest.find(u',');
        if ((comma == rest.npos) != (i + 1 == parts.size())) return kNoColor;
        const std::u16string_view part = Trimmed(rest.substr(0, comma));
        if (part.empty() || !HoldsOnly(part, kDecimalAndPrefix)) return kNoColor;
        parts[i] = Number(part);
        if (comma != rest.npos) rest.remove_prefix(comma + 1);
    }
    return RgbColor(parts[0], parts[1], parts[2]);
}

// What stands behind "#". A single digit is the value of its channel, not half of a doubled one.
u32 ParseHexDigits(std::u16string_view digits) {
    if ((digits.size() != 3 && digits.size() != 6) || !HoldsOnly(digits, kHexDigits)) return kNoColor;
    const std::size_t width = digits.size() / 3;
    return RgbColor(HexNumber(digits.substr(0, width)), HexNumber(digits.substr(width, width)),
                    HexNumber(digits.substr(2 * width)));
}

// Zero counts only where it is written as such: a text that is no number reads as zero too.
u32 ParseBareNumber(std::u16string_view text) {
    const u32 number = Number(text);
    return number == 0 && !HoldsOnly(text, u"x0") ? kNoColor : number;
}

// A role whose colour is that of another one.
struct PendingRole {
    std::size_t role;
    std::size_t target;
};

// Gives the pending roles their colours, in as many passes as it takes; false if one is left over.
bool ResolveRoles(tvColorTheme& theme, std::vector<PendingRole> pending) {
    const auto isPending = [&pending](std::size_t role) {
        return std::any_of(pending.begin(), pending.end(),
                           [role](const PendingRole& other) { return other.role == role; });
    };
    for (bool progress = true; progress && !pending.empty();) {
        progress = false;
        for (std::size_t i = 0; i < pending.size();) {
            const PendingRole next = pending[i];
            if (isPending(next.target)) {
                ++i;
                continue;
            }
            theme.*kThemeRoles[next.role].color = theme.*kThemeRoles[next.target].color;
            pending.erase(pending.begin() + static_cast<std::ptrdiff_t>(i));
            progress = true;
        }
    }
    return pending.empty();
}

bool FillTheme(tvColorTheme& theme, const tvini& document) {
    const auto value = [&document](std::u16string_view key) {
        return document.Get(document.DefaultSection(), key);
    };
    theme.m_name = value(kThemeNameKey);
    if (value(kThemeVersionKey) != kThemeVersion || theme.m_name.empty()) return false;
    std::vector<PendingRole> pending;
    for (std::size_t role = 0; role < kThemeRoles.size(); ++role) {
        const ThemeValue read = ReadThemeValue(value(kThemeRoles[role].key));
        if (read.kind == ThemeValue::Kind::Color) {
            theme.*kThemeRoles[role].color = read.color;
            continue;
        }
        const std::size_t target = FindThemeRole(read.role);
        if (read.kind != ThemeValue::Kind::Reference || target == std::u16string_view::npos) return false;
        pending.push_back({role, target});
    }
    return ResolveRoles(theme, std::move(pending));
}

}  // namespace

u32 ParseColor(const tvstring& text) {
    const tvstring lower = ToLowerAscii(tvstring(Trimmed(text)));
    const std::u16string_view rest = lower;
    if (rest.empty()) return kNoColor;
    if (rest.starts_with(u"rgb")) return ParseRgb(Trimmed(rest.substr(3)));
    if (rest.starts_with(u'#')) return ParseHexDigits(Trimmed(rest.substr(1)));
    return ParseBareNumber(rest);
}

std::size_t FindThemeRole(std::u16string_view key) {
    const auto* found = std::find_if(kThemeRoles.begin(), kThemeRoles.end(),
                                     [key](const ThemeRole& role) { return role.key == key; });
    return found == kThemeRoles.end() ? std::u16string_view::npos
                                      : static_cast<std::size_t>(found - kThemeRoles.begin());
}

ThemeValue ReadThemeValue(const tvstring& value) {
    if (value.empty()) return {};
    if (value.front() == u'%') {
        const std::u16string_view role = Trimmed(value.view().substr(1));
        return {ThemeValue::Kind::Reference, kNoColor, ToLowerAscii(tvstring(role))};
    }
    const u32 color = ParseColor(value);
    if (color > kLargestColor) return {ThemeValue::Kind::Bad, kNoColor, {}};
    return {ThemeValue::Kind::Color, color, {}};
}

bool tvColorTheme::Load(const tvstring& path) {
    Clear();
    tvini document(kThemeSection);
    return document.Load(path) && Take(document);
}

bool tvColorTheme::Take(const tvini& document) {
    Clear();
    if (FillTheme(*this, document)) return true;
    Clear();
    return false;
}
