#include "toolkit/theme_check.h"

#include <algorithm>

#include "foundation/ini_lines.h"
#include "foundation/textops.h"
#include "foundation/tvstrmap.h"
#include "toolkit/color_theme.h"

namespace {

using Kind = ThemeFinding::Kind;

// A key's value that counts, and where it stands.
struct PlacedValue {
    std::size_t line = 0;
    tvstring value;
};

bool IsWanted(const tvstring& key) {
    return EqualNoCase(key, kThemeVersionKey) || EqualNoCase(key, kThemeNameKey) ||
           FindThemeRole(ToLowerAscii(key)) != tvstring::npos;
}

class ThemeChecker {
public:
    void TakeLine(const PlacedLine& line) {
        const bool isPair = line.read.kind == IniLine::Kind::Pair && !line.section.empty();
        if (line.read.kind == IniLine::Kind::Head) {
            TakeHead(line);
        } else if (!isPair) {
            Find(line.number, Kind::BadLine, {}, line.text);
        } else if (EqualNoCase(line.section, kThemeSection)) {
            TakePair(line.number, line.read.key, line.read.value);
        }
    }

    std::vector<ThemeFinding> Finish() {
        CheckVersion();
        if (const PlacedValue* name = ValueOf(kThemeNameKey); name != nullptr && name->value.empty()) {
            Find(name->line, Kind::MissingKey, kThemeNameKey, {});
        }
        for (const ThemeRole& role : kThemeRoles)
            CheckRole(role.key);
        std::stable_sort(m_Findings.begin(), m_Findings.end(),
                         [](const ThemeFinding& a, const ThemeFinding& b) { return a.line < b.line; });
        FindAbsent(kThemeVersionKey);
        FindAbsent(kThemeNameKey);
        for (const ThemeRole& role : kThemeRoles)
            FindAbsent(role.key);
        return std::move(m_Findings);
    }

private:
    void Find(std::size_t line, Kind kind, std::u16string_view key, std::u16string_view detail) {
        m_Findings.push_back({line, kind, key, detail});
    }

    [[nodiscard]] const PlacedValue* ValueOf(std::u16string_view key) const {
        const auto found = m_Values.find(key);
        return found == m_Values.end() ? nullptr : &found->second;
    }

    void TakeHead(const PlacedLine& line) {
        if (line.section.empty() || EqualNoCase(line.section, kThemeSection)) return;
        if (m_UnknownSections.try_emplace(line.section).second) {
            Find(line.number, Kind::UnknownSection, line.section, {});
        }
    }

    void TakePair(std::size_t number, const tvstring& key, const tvstring& value) {
        if (!IsWanted(key)) Find(number, Kind::UnknownKey, key, {});
        if (const PlacedValue* earlier = ValueOf(key)) Find(number, Kind::DuplicateKey, key, earlier->value);
        m_Values.insert_or_assign(key, PlacedValue{number, value});
    }

    void CheckVersion() {
        const PlacedValue* version = ValueOf(kThemeVersionKey);
        if (version == nullptr || version->value == kThemeVersion) return;
        Find(version->line, Kind::WrongVersion, kThemeVersionKey, version->value);
    }

    void CheckRole(std::u16string_view key) {
        const PlacedValue* placed = ValueOf(key);
        if (placed == nullptr) return;
        const ThemeValue read = ReadThemeValue(placed->value);
        switch (read.kind) {
            case ThemeValue::Kind::Color:
                break;
            case ThemeValue::Kind::Missing:
                Find(placed->line, Kind::MissingKey, key, {});
                break;
            case ThemeValue::Kind::Bad:
                Find(placed->line, Kind::BadColor, key, placed->value);
                break;
            case ThemeValue::Kind::Reference:
                if (FindThemeRole(read.role) == tvstring::npos) {
                    Find(placed->line, Kind::UnknownRole, key, placed->value);
                } else if (LeadsBack(key)) {
                    Find(placed->line, Kind::Cycle, key, placed->value);
                }
                break;
        }
    }

    // True if the references that start at a role come to it again.
    [[nodiscard]] bool LeadsBack(std::u16string_view start) const {
        tvstring role = start;
        for (std::size_t step = 0; step < kThemeRoles.size(); ++step) {
            const PlacedValue* placed = ValueOf(role);
            if (placed == nullptr || FindThemeRole(role) == tvstring::npos) return false;
            const ThemeValue read = ReadThemeValue(placed->value);
            if (read.kind != ThemeValue::Kind::Reference) return false;
            role = read.role;
            if (role == start) return true;
        }
        return false;
    }

    void FindAbsent(std::u16string_view key) {
        if (ValueOf(key) == nullptr) Find(0, Kind::MissingKey, key, {});
    }

    tvstrmap<PlacedValue> m_Values;
    tvstrmap<bool> m_UnknownSections;
    std::vector<ThemeFinding> m_Findings;
};

}  // namespace

std::vector<ThemeFinding> CheckTheme(const tvstring& text) {
    ThemeChecker checker;
    for (const PlacedLine& line : PlacedLines(text))
        checker.TakeLine(line);
    return checker.Finish();
}
