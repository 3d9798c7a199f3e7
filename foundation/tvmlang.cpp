#include "foundation/tvmlang.h"

#include <utility>

bool tvmlang::SetConst(const tvstring& key, const tvstring& text) {
    if (key.empty()) return false;
    m_Consts.insert_or_assign(key, text);
    return true;
}

bool tvmlang::Set(const tvstring& section, const tvstring& key, tvstring text) {
    if (section.empty() || key.empty()) return false;
    OnKey(section, key, text);
    m_Sections[section].insert_or_assign(key, std::move(text));
    return Find(section, key) != nullptr;
}

bool tvmlang::LoadOverlay(const tvstring& path) {
    tvstrmap<tvinisection> previous = std::exchange(m_Sections, {});
    const bool loaded = Load(path);
    // A merge moves only what is not there yet.
    for (auto& [name, keys] : previous) {
        const auto present = m_Sections.find(name);
        if (present != m_Sections.end()) present->second.merge(keys);
    }
    m_Sections.merge(previous);
    return loaded;
}

const tvstring* tvmlang::Resolve(std::u16string_view section, const LanguageReference& reference) const {
    if (reference.section) return Find(*reference.section, reference.key);
    const auto constant = m_Consts.find(reference.key);
    if (constant != m_Consts.end()) return &constant->second;
    const tvstring* text = Find(section, reference.key);
    return text != nullptr ? text : Find(m_Default, reference.key);
}

void tvmlang::OnKey(const tvstring& section, const tvstring&, tvstring& value) {
    ExpandReferences(value, [&](const LanguageReference& reference) { return Resolve(section, reference); });
}
