#include <utility>
#include <vector>

#include "database/database.h"

namespace {

tvstring JoinedText(const ElementArray& array) {
    std::size_t length = 0;
    for (const VMRD_Element* element : array)
        length += ElementText(element).size() + 2;
    tvstring text;
    text.reserve(length);
    for (const VMRD_Element* element : array) {
        const tvstring& part = ElementText(element);
        if (!part.empty()) text.append(part).append(u"\r\n");
    }
    if (text.size() > 2) text.resize(text.size() - 2);
    return text;
}

// Entries that pass for additional ones until this goes.
class AsAdditions {
public:
    void Take(VMRD_Entry& entry) {
        m_Types.emplace_back(&entry, entry.m_Type);
        entry.m_Type = VMRD_T_ADDITION;
    }
    AsAdditions() = default;
    ~AsAdditions() {
        for (auto& [entry, type] : m_Types)
            entry->m_Type = type;
    }
    AsAdditions(const AsAdditions&) = delete;
    AsAdditions& operator=(const AsAdditions&) = delete;

private:
    std::vector<std::pair<VMRD_Entry*, u16>> m_Types;
};

// The non-empty entries of all items but the first.
ElementQueue EntriesToAppend(const ElementArray& items, AsAdditions& additions) {
    ElementQueue queue;
    for (std::size_t i = 1; i < items.size(); ++i) {
        const VMRD_Item* item = AsItem(items[i]);
        for (EntryElement* entry = item == nullptr ? nullptr : item->m_Head; entry != nullptr;
             entry = entry->m_Next) {
            if (entry->m_Text.empty()) continue;
            additions.Take(*entry);
            queue.push_back(entry);
        }
    }
    return queue;
}

}  // namespace

EntryElement* VMRD_DB::MergeEntries(ElementArray& array, const tvstring& text, VMRD_Item* item) {
    if (array.size() < 2 || item == nullptr) return nullptr;
    tvstring merged(text.empty() ? JoinedText(array) : text);
    if (merged.empty() || merged.size() > kLongestText) return nullptr;
    EntryElement* first = LinkedEntry(array.front());
    if (first == nullptr) return nullptr;
    array.erase(array.begin());
    ModifyEntry(first, std::move(merged), item);
    RemoveEntries(array, item);
    return first;
}

ItemElement* VMRD_DB::MergeItems(ElementArray& array) {
    if (array.size() < 2) return nullptr;
    ItemElement* first = LinkedItem(array.front());
    if (first == nullptr) return nullptr;
    {
        AsAdditions additions;
        ElementQueue queue = EntriesToAppend(array, additions);
        if (!queue.empty() && AddEntries(queue, nullptr, first) < 1) return nullptr;
    }
    array.erase(array.begin());
    RemoveItems(array, this);
    Touch(first);
    Changed();
    return first;
}
