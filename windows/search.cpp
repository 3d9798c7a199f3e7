#include "windows/search.h"

#include <algorithm>

#include "foundation/textops.h"

namespace {

std::vector<tvstring> WordsOf(const tvstring& text, u8 mode) {
    if (text.empty()) return {};
    if (mode == FilterExact) return {text};
    std::vector<tvstring> words;
    Split(text, u" ", words);
    std::sort(words.begin(), words.end());
    words.erase(std::unique(words.begin(), words.end()), words.end());
    return words;
}

}  // namespace

ItemFilter::ItemFilter(const tvstring& text, u8 mode, SearchPasswords passwords)
    : m_Mode(mode), m_Passwords(passwords) {
    for (tvstring& word : WordsOf(text, mode))
        m_Words.emplace_back(std::move(word));
}

bool ItemFilter::Matches(const VMRD_Element* element) const {
    if (m_Words.empty() || element == nullptr) return true;
    std::size_t hits = 0;
    const VMRD_Item* item = AsItem(element);
    const Verdict verdict = item != nullptr ? TakeFields(*item, hits) : TakeField(ElementText(element), hits);
    return verdict == Verdict::Open ? m_Mode == FilterWithout : verdict == Verdict::In;
}

ItemFilter::Verdict ItemFilter::TakeFields(const VMRD_Item& item, std::size_t& hits) const {
    Verdict verdict = TakeField(item.m_Name, hits);
    for (const EntryElement* entry = item.m_Head; entry != nullptr && verdict == Verdict::Open;
         entry = entry->m_Next) {
        const bool passedOver = entry->m_Type == VMRD_T_PASSWORD && m_Passwords == SearchPasswords::No;
        if (!entry->m_Text.empty() && !passedOver) verdict = TakeField(entry->m_Text, hits);
    }
    return verdict;
}

ItemFilter::Verdict ItemFilter::TakeField(const tvstring& field, std::size_t& hits) const {
    for (const TextFinder& word : m_Words) {
        if (!field.empty() && word.IsIn(field)) ++hits;
        switch (m_Mode) {
            case FilterExact:
            case FilterAny:
                if (hits > 0) return Verdict::In;
                break;
            case FilterWithout:
                if (hits > 0) return Verdict::Out;
                break;
            default:
                if (hits >= m_Words.size()) return Verdict::In;
                break;
        }
    }
    return Verdict::Open;
}

bool MatchesFilter(const VMRD_Element* element, const tvstring& text, u8 mode, SearchPasswords passwords) {
    return ItemFilter(text, mode, passwords).Matches(element);
}
