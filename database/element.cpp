#include "database/element.h"

#include <memory>

#include "database/clipboard.h"
#include "foundation/textops.h"
#include "platform/clock.h"

namespace {

constexpr bool IsBasicType(u16 type) {
    return type == VMRD_T_PROGRAM || type == VMRD_T_USERNAME || type == VMRD_T_PASSWORD;
}

}  // namespace

VMRD_Item::VMRD_Item() {
    RegisterEntriesFormat();
}

const VMRD_Item* AsItem(const VMRD_Element* element) noexcept {
    if (element == nullptr || !element->IsClass(tvclassVMRD_Item)) return nullptr;
    return static_cast<const VMRD_Item*>(element);
}

const VMRD_Entry* AsEntry(const VMRD_Element* element) noexcept {
    if (element == nullptr || !element->IsClass(tvclassVMRD_Entry)) return nullptr;
    return static_cast<const VMRD_Entry*>(element);
}

ItemElement* LinkedItem(VMRD_Element* element) noexcept {
    return AsItem(element) == nullptr ? nullptr : static_cast<ItemElement*>(element);
}

EntryElement* LinkedEntry(VMRD_Element* element) noexcept {
    return AsEntry(element) == nullptr ? nullptr : static_cast<EntryElement*>(element);
}

bool GetBasicEntries(const VMRD_Item* item, VMRD_Entry** program, VMRD_Entry** username,
                     VMRD_Entry** password) {
    if (program != nullptr) *program = nullptr;
    if (username != nullptr) *username = nullptr;
    if (password != nullptr) *password = nullptr;
    if (item == nullptr) return false;
    int passed = 0;
    for (EntryElement* entry = item->m_Head; entry != nullptr && passed < 3; entry = entry->m_Next) {
        VMRD_Entry** output = entry->m_Type == VMRD_T_PROGRAM    ? program
                              : entry->m_Type == VMRD_T_USERNAME ? username
                              : entry->m_Type == VMRD_T_PASSWORD ? password
                                                                 : nullptr;
        if (output != nullptr) *output = entry;
        if (IsBasicType(entry->m_Type)) ++passed;
    }
    return true;
}

const tvstring& ElementText(const VMRD_Element* element) {
    static const tvstring empty;
    if (const VMRD_Entry* entry = AsEntry(element)) return entry->m_Text;
    if (const VMRD_Item* item = AsItem(element)) return item->m_Name;
    return empty;
}

const tvstring& ElementDisplay(VMRD_Element* element) {
    if (element == nullptr) return ElementText(nullptr);
    const bool isEntry = AsEntry(element) != nullptr;
    tvstring& display =
        isEntry ? static_cast<VMRD_Entry*>(element)->m_Display : static_cast<VMRD_Item*>(element)->m_Display;
    if (display.empty()) {
        display = ElementText(element);
        if (isEntry) ReplaceAll(display, u"\r\n", u" ");
    }
    return display;
}

u16 ElementType(const VMRD_Element* element) {
    const VMRD_Entry* entry = AsEntry(element);
    return entry == nullptr ? u16{0} : entry->m_Type;
}

u64 ElementDate(const VMRD_Element* element) {
    const VMRD_Item* item = AsItem(element);
    return item == nullptr ? 0 : item->m_Date;
}

bool IsRemovable(const VMRD_Element* element) {
    const VMRD_Entry* entry = AsEntry(element);
    return entry == nullptr || entry->m_Type == VMRD_T_ADDITION;
}

void Touch(VMRD_Item* item) {
    const u64 now = CurrentTime(true);
    if (item != nullptr && now > item->m_Date) item->m_Date = now;
}

u64 CurrentTime(bool local) {
    return local ? platform::LocalTimeTicks() : platform::SystemTimeTicks();
}

EntryElement* AddEntryCopy(EntryList& list, const VMRD_Entry& source, EntryElement* before) {
    auto copy = std::make_unique<EntryElement>();
    copy->m_Type = source.m_Type;
    copy->m_Text = source.m_Text;
    copy->m_Display = source.m_Display;
    return list.Insert(copy.get(), before) ? copy.release() : nullptr;
}

ItemElement* AddItemCopy(ItemList& list, const VMRD_Item& source, ItemElement* before) {
    auto copy = std::make_unique<ItemElement>();
    for (const EntryElement* entry = source.m_Head; entry != nullptr; entry = entry->m_Next) {
        AddEntryCopy(*copy, *entry, nullptr);
    }
    copy->m_Name = source.m_Name;
    copy->m_Display = source.m_Display;
    copy->m_Date = source.m_Date;
    return list.Insert(copy.get(), before) ? copy.release() : nullptr;
}
