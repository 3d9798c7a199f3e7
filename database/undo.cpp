#include "database/undo.h"

#include <cstring>
#include <span>

#include "database/database.h"

namespace {

constexpr std::size_t kHashUnits = kPasswordHashSize / sizeof(char16_t);

template <typename Element>
void SaveOrder(const tvlist<Element>& list, std::vector<VMRD_Element*>& order) {
    order.reserve(static_cast<std::size_t>(list.m_Count));
    for (Element* element = list.m_Head; element != nullptr; element = element->m_Next)
        order.push_back(element);
}

template <typename Element>
void RestoreOrder(tvlist<Element>& list, const std::vector<VMRD_Element*>& order) {
    std::vector<Element*> elements;
    elements.reserve(order.size());
    for (VMRD_Element* element : order)
        elements.push_back(static_cast<Element*>(element));
    list.Relink(elements);
}

ElementArray AsElements(const std::vector<VMRD_Object*>& objects) {
    ElementArray elements;
    elements.reserve(objects.size());
    for (VMRD_Object* object : objects)
        elements.push_back(static_cast<VMRD_Element*>(object));
    return elements;
}

// The objects of a record about lists, which are items or entries by its kind.
void Destroy(VMRD_UndoRecord& record) {
    for (VMRD_Object* object : record.m_Objects) {
        auto* element = static_cast<VMRD_Element*>(object);
        if (record.m_Kind == UNDO_ENTRIES) {
            delete static_cast<EntryElement*>(element);
        } else {
            delete static_cast<ItemElement*>(element);
        }
    }
    record.m_Objects.clear();
}

const tvstring& TextOf(VMRD_Object* object, u32 kind) {
    if (kind == UNDO_DB_NAME) return static_cast<VMRD_DB*>(object)->m_Name;
    if (kind == UNDO_ITEM_NAME) return static_cast<VMRD_Item*>(object)->m_Name;
    return static_cast<VMRD_Entry*>(object)->m_Text;
}

void PutBack(VMRD_Object* object, u32 kind, const tvstring& text) {
    if (kind == UNDO_DB_NAME) {
        auto* database = static_cast<VMRD_DB*>(object);
        database->m_Name = text;
        database->m_Display.clear();
    } else if (kind == UNDO_ITEM_NAME) {
        auto* item = static_cast<VMRD_Item*>(object);
        item->m_Name = text;
        item->m_Display.clear();
    } else {
        auto* entry = static_cast<VMRD_Entry*>(object);
        entry->m_Text = text;
        entry->m_Display.clear();
    }
}

int TakeBackListChange(VMRD_UndoRecord& record, ElementArray* outItems, ElementArray* outEntries) {
    if (record.m_Target == nullptr) return UNDO_NOTHING;
    if (record.m_Kind == UNDO_ITEMS) {
        RestoreOrder<ItemElement>(*static_cast<VMRD_DB*>(record.m_Target), record.m_Order);
        if (outItems != nullptr) *outItems = AsElements(record.m_Objects);
    } else if (record.m_Kind == UNDO_ENTRIES) {
        auto* item = static_cast<VMRD_Item*>(record.m_Target);
        RestoreOrder<EntryElement>(*item, record.m_Order);
        if (outItems != nullptr) outItems->push_back(item);
        if (outEntries != nullptr) *outEntries = AsElements(record.m_Objects);
    } else {
        return UNDO_NOTHING;
    }
    return UNDO_DONE;
}

int TakeBackModification(VMRD_UndoRecord& record, ElementArray* outItems, ElementArray* outEntries) {
    if (record.m_Objects.empty() || record.m_Kind > UNDO_ENTRY_TEXT) return UNDO_NOTHING;
    VMRD_Object* object = record.m_Objects.front();
    PutBack(object, record.m_Kind, record.m_OldText);
    if (record.m_Kind == UNDO_ITEM_NAME && outItems != nullptr) {
        outItems->push_back(static_cast<VMRD_Element*>(object));
    }
    if (record.m_Kind == UNDO_ENTRY_TEXT) {
        if (outItems != nullptr) outItems->push_back(static_cast<VMRD_Item*>(record.m_Target));
        if (outEntries != nullptr) outEntries->push_back(static_cast<VMRD_Element*>(object));
    }
    return UNDO_DONE;
}

void PutBackDate(const VMRD_UndoRecord& record) {
    if (record.m_OldDate == 0 || record.m_Target == nullptr || record.m_Kind == UNDO_ITEMS) return;
    const bool ofObject = record.m_Op == UNDO_MODIFY && record.m_Kind == UNDO_ITEM_NAME;
    static_cast<VMRD_Item*>(ofObject ? record.m_Objects.front() : record.m_Target)->m_Date = record.m_OldDate;
}

int TakeBackMasterPassword(VMRD_UndoRecord& record) {
    if (record.m_Objects.empty() || record.m_OldText.size() != kHashUnits) return UNDO_NOTHING;
    std::memcpy(static_cast<VMRD_DB*>(record.m_Objects.front())->m_PwdHash, record.m_OldText.data(),
                kPasswordHashSize);
    return UNDO_DONE_MASTERPWD;
}

}  // namespace

bool VMRD_Undo::Push(u32 op, u32 kind, VMRD_Object* target, u64 date) {
    if (m_Owner == nullptr || m_Owner != VMRD_DB::Current()) return false;
    while (m_Records.size() >= static_cast<std::size_t>(m_MaxDepth))
        DropOldest();
    VMRD_UndoRecord& record = m_Records.emplace_front();
    record.m_Op = op;
    record.m_Kind = kind;
    record.m_Target = target;
    record.m_OldDate = date;
    if (op == UNDO_MODIFY || target == nullptr) return true;
    if (kind == UNDO_ITEMS) SaveOrder<ItemElement>(*static_cast<VMRD_DB*>(target), record.m_Order);
    if (kind == UNDO_ENTRIES) SaveOrder<EntryElement>(*static_cast<VMRD_Item*>(target), record.m_Order);
    return true;
}

// What a removal has taken out can come back by this record alone, so it goes with it. Whatever an addition
// has put in stands in a list, or belongs to a newer removal.
void VMRD_Undo::DropOldest() {
    if (m_Records.back().m_Op == UNDO_REMOVE) Destroy(m_Records.back());
    m_Records.pop_back();
    if (m_SavedPos >= 0) --m_SavedPos;
}

bool VMRD_Undo::AddObject(VMRD_Object* object) {
    if (m_Records.empty()) return false;
    VMRD_UndoRecord& record = m_Records.front();
    if (object != nullptr) record.m_Objects.push_back(object);
    if (record.m_Op == UNDO_MODIFY) {
        if (object == nullptr || record.m_Kind > UNDO_ENTRY_TEXT) return false;
        record.m_OldText = TextOf(object, record.m_Kind);
    } else if (record.m_Op == UNDO_MASTERPWD) {
        if (object == nullptr || record.m_Kind != UNDO_DB_NAME) return false;
        record.m_OldText.resize(kHashUnits);
        std::memcpy(record.m_OldText.data(), static_cast<VMRD_DB*>(object)->m_PwdHash, kPasswordHashSize);
    }
    return true;
}

int VMRD_Undo::TakeBack(VMRD_UndoRecord& record, ElementArray* outItems, ElementArray* outEntries) {
    int result = UNDO_NOTHING;
    switch (record.m_Op) {
        case UNDO_ADD:
        case UNDO_REMOVE:
        case UNDO_MOVE:
            result = TakeBackListChange(record, outItems, outEntries);
            break;
        case UNDO_MODIFY:
            result = TakeBackModification(record, outItems, outEntries);
            break;
        case UNDO_MASTERPWD:
            return TakeBackMasterPassword(record);
        default:
            break;
    }
    if (result != UNDO_NOTHING) PutBackDate(record);
    return result;
}

int VMRD_Undo::Undo(ElementArray* outItems, ElementArray* outEntries) {
    if (outItems != nullptr) outItems->clear();
    if (outEntries != nullptr) outEntries->clear();
    if (m_Records.empty()) return UNDO_NOTHING;
    const int result = TakeBack(m_Records.front(), outItems, outEntries);
    const bool backAtSaved = m_SavedPos == static_cast<i32>(m_Records.size()) - 1;
    m_Owner->m_Changed = !backAtSaved;
    if (backAtSaved && m_Records.size() > 1) m_SavedPos = -1;
    DiscardFront();
    return result;
}

void VMRD_Undo::MarkSaved() noexcept {
    m_SavedPos = m_Owner->m_Changed ? -1 : static_cast<i32>(m_Records.size());
}

void VMRD_Undo::Clear() noexcept {
    for (; !m_Records.empty(); m_Records.pop_front()) {
        if (m_Records.front().m_Op == UNDO_REMOVE) Destroy(m_Records.front());
    }
    m_SavedPos = 0;
}

// The elements of an addition that was taken back are in no list any more; those of any other change are back
// in theirs.
void VMRD_Undo::DiscardFront() noexcept {
    if (m_Records.empty()) return;
    if (m_Records.front().m_Op == UNDO_ADD) Destroy(m_Records.front());
    m_Records.pop_front();
}
