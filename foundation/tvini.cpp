#include "foundation/tvini.h"

#include <utility>

#include "foundation/ini_syntax.h"
#include "foundation/textfile.h"

tvini::tvini(const char16_t* defaultSection) {
    if (defaultSection != nullptr) m_Default = defaultSection;
}

void tvini::OnKey(const tvstring&, const tvstring&, tvstring&) {}

bool tvini::Load(const tvstring& path) {
    Clear();
    return Parse(ReadTextFile(path));
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the text may be one of the values that Clear frees
bool tvini::Parse(tvstring text) {
    Clear();
    auto current = m_Sections.end();
    tvstring logical;
    for (std::u16string_view rest = text; !rest.empty();) {
        GetLogicalLine(rest, logical);
        IniLine line = ReadIniLine(logical);
        if (line.kind == IniLine::Kind::Head) {
            current = line.key.empty() ? m_Sections.end() : m_Sections.try_emplace(std::move(line.key)).first;
        } else if (line.kind == IniLine::Kind::Pair && current != m_Sections.end()) {
            OnKey(current->first, line.key, line.value);
            current->second.insert_or_assign(std::move(line.key), std::move(line.value));
        }
    }
    std::erase_if(m_Sections, [](const auto& section) { return section.second.empty(); });
    return !m_Sections.empty();
}

tvstring tvini::Get(std::u16string_view section, std::u16string_view key) const {
    const tvstring* value = Find(section, key);
    return value == nullptr ? tvstring() : *value;
}

const tvstring* tvini::Find(std::u16string_view section, std::u16string_view key) const {
    if (section.empty() || key.empty()) return nullptr;
    const auto keys = m_Sections.find(section);
    if (keys == m_Sections.end()) return nullptr;
    const auto found = keys->second.find(key);
    return found == keys->second.end() ? nullptr : &found->second;
}
