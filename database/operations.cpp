#include <algorithm>
#include <cstring>
#include <iterator>

#include "database/container.h"
#include "database/database.h"
#include "foundation/language.h"
#include "foundation/secret_bytes.h"
#include "foundation/textops.h"

namespace {

// What the shared operations below know of the list that they work on: whose it is, and how its elements are
// copied and found. One for items of a database, one for entries of an item.
struct ItemsOf {
    using Element = ItemElement;
    static constexpr u32 kKind = UNDO_ITEMS;
    ItemList& list;
    VMRD_Object* owner;
    VMRD_Item* touched = nullptr;
    u64 date = 0;

    explicit ItemsOf(VMRD_DB& database) : list(database), owner(&database) {}
    static Element* Linked(VMRD_Element* element) { return LinkedItem(element); }
    Element* Copy(const VMRD_Element* source, Element* before) const {
        const VMRD_Item* item = AsItem(source);
        return item == nullptr ? nullptr : AddItemCopy(list, *item, before);
    }
};

struct EntriesOf {
    using Element = EntryElement;
    static constexpr u32 kKind = UNDO_ENTRIES;
    EntryList& list;
    VMRD_Object* owner;
    VMRD_Item* touched;
    u64 date;

    explicit EntriesOf(VMRD_Item& item) : list(item), owner(&item), touched(&item), date(item.m_Date) {}
    static Element* Linked(VMRD_Element* element) { return LinkedEntry(element); }
    Element* Copy(const VMRD_Element* source, Element* before) const {
        const VMRD_Entry* entry = AsEntry(source);
        return entry == nullptr ? nullptr : AddEntryCopy(list, *entry, before);
    }
};

i32 CountOf(std::size_t count) {
    return static_cast<i32>(count);
}

// Starts a record. A database records what happens to itself: not to another's items, which may be gone when
// the change is taken back.
template <typename Place>
bool Record(VMRD_DB& database, u32 op, const Place& place, u64 date) {
    if (Place::kKind == UNDO_ITEMS && place.owner != &database) return false;
    return database.m_Undo.Push(op, Place::kKind, place.owner, date);
}

// Backward, each copy in front of the one before, so that the copies stand in the queue's order.
template <typename Place>
i32 Add(VMRD_DB& database, ElementQueue& queue, VMRD_Element* before, const Place& place) {
    if (queue.empty()) return 0;
    const bool recorded = Record(database, UNDO_ADD, place, place.date);
    ElementQueue added;
    typename Place::Element* next = Place::Linked(before);
    for (auto source = queue.rbegin(); source != queue.rend(); ++source) {
        typename Place::Element* copy = place.Copy(*source, next);
        if (copy == nullptr) continue;
        if (recorded) database.m_Undo.AddObject(copy);
        next = copy;
        added.push_front(copy);
    }
    queue = std::move(added);
    if (queue.empty()) return 0;
    if (place.touched != nullptr) Touch(place.touched);
    database.Changed();
    return CountOf(queue.size());
}

// Takes the element out of the list, into the newest undo record if that is of this removal.
template <typename Place>
bool TakeOut(VMRD_DB& database, typename Place::Element* element, bool recorded, const Place& place) {
    if (!place.list.Unlink(element, Unlinked::Keep)) return false;
    if (recorded && database.m_Undo.AddObject(element)) return true;
    delete element;  // a carrier keeps no history, so nobody else owns it
    return false;
}

template <typename Place>
i32 Remove(VMRD_DB& database, ElementArray& array, const Place& place) {
    if (array.empty()) return 0;
    const bool recorded = Record(database, UNDO_REMOVE, place, place.date);
    std::erase_if(array, [&](VMRD_Element* element) {
        return !TakeOut(database, Place::Linked(element), recorded, place);
    });
    if (array.empty()) return 0;
    if (place.touched != nullptr) Touch(place.touched);
    database.Changed();
    return CountOf(array.size());
}

template <typename Element>
bool Step(Element* element, bool up, tvlist<Element>& list) {
    if (element == nullptr || element == (up ? list.m_Head : list.Tail())) return false;
    // An element of no list has no neighbours to step over.
    Element* neighbour = up ? element->m_Prev : element->m_Next;
    if (neighbour == nullptr) return false;
    Element* place = up ? neighbour : neighbour->m_Next;
    return list.Unlink(element, Unlinked::Keep) && list.Insert(element, place);
}

// The record is made before anything is known of the moves, so one that moves nothing leaves a record too.
template <typename Place>
i32 Move(VMRD_DB& database, ElementArray& array, bool up, const Place& place) {
    if (array.empty()) return 0;
    Record(database, UNDO_MOVE, place, 0);
    ElementArray moved;
    for (VMRD_Element* element : array) {
        auto* linked = Place::Linked(element);
        if (linked != nullptr && linked == (up ? place.list.m_Head : place.list.Tail())) break;
        if (Step(linked, up, place.list)) moved.push_back(element);
    }
    array = std::move(moved);
    if (!array.empty()) database.Changed();
    return CountOf(array.size());
}

}  // namespace

bool VMRD_DB::New(const tvstring& name) {
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): it may be m_Name, which goes with Close
    const tvstring newName(name);
    Close();
    m_Opened = true;
    m_Changed = true;
    m_Name = newName;
    AddNewItem(this);
    m_Undo.Clear();
    m_Undo.MarkSaved();
    return true;
}

ItemElement* VMRD_DB::AddNewItem(VMRD_DB* db) {
    if (!m_Opened) return nullptr;
    VMRD_Item item;
    item.m_Name = DefaultItemName();
    Touch(&item);
    for (const u16 type : {VMRD_T_PROGRAM, VMRD_T_USERNAME, VMRD_T_PASSWORD}) {
        AddEntryCopy(item, VMRD_Entry(type, tvstring()), nullptr);
    }
    ElementQueue queue{&item};
    return AddItems(queue, nullptr, db) < 1 ? nullptr : LinkedItem(queue.front());
}

EntryElement* VMRD_DB::AddNewEntry(const tvstring& text, VMRD_Item* item) {
    if (!m_Opened || text.empty()) return nullptr;
    VMRD_Entry entry(VMRD_T_ADDITION, text);
    ElementQueue queue{&entry};
    return AddEntries(queue, nullptr, item) < 1 ? nullptr : LinkedEntry(queue.front());
}

i32 VMRD_DB::AddItems(ElementQueue& queue, VMRD_Element* before, VMRD_DB* db) {
    if (db != nullptr) return Add(*this, queue, before, ItemsOf(*db));
    queue.clear();
    return 0;
}

i32 VMRD_DB::AddEntries(ElementQueue& queue, VMRD_Element* before, VMRD_Item* item) {
    if (item != nullptr) return Add(*this, queue, before, EntriesOf(*item));
    queue.clear();
    return 0;
}

i32 VMRD_DB::RemoveItems(ElementArray& array, VMRD_DB* db) {
    if (db != nullptr) return Remove(*this, array, ItemsOf(*db));
    array.clear();
    return 0;
}

i32 VMRD_DB::RemoveEntries(ElementArray& array, VMRD_Item* item) {
    if (item != nullptr) return Remove(*this, array, EntriesOf(*item));
    array.clear();
    return 0;
}

i32 VMRD_DB::MoveItems(ElementArray& array, bool up, VMRD_DB* db) {
    if (db != nullptr) return Move(*this, array, up, ItemsOf(*db));
    array.clear();
    return 0;
}

i32 VMRD_DB::MoveEntries(ElementArray& array, bool up, VMRD_Item* item) {
    if (item != nullptr) return Move(*this, array, up, EntriesOf(*item));
    array.clear();
    return 0;
}

// Sets the text of either class; the item that the change touches, or null if there is none.
bool VMRD_DB::Modify(VMRD_Element* element, tvstring& text, VMRD_Object* parent) {
    VMRD_Item* touched = nullptr;
    if (EntryElement* entry = LinkedEntry(element)) {
        if (parent == nullptr) return false;
        Trim(text, u"\r\n", TRIM_BOTH);
        if (text == entry->m_Text) return false;
        touched = static_cast<VMRD_Item*>(parent);
        if (m_Undo.Push(UNDO_MODIFY, UNDO_ENTRY_TEXT, parent, touched->m_Date)) m_Undo.AddObject(element);
        entry->m_Text = std::move(text);
        entry->m_Display.clear();
    } else if (ItemElement* item = LinkedItem(element)) {
        if (text.empty() || text == item->m_Name) return false;
        touched = item;
        if (m_Undo.Push(UNDO_MODIFY, UNDO_ITEM_NAME, parent, item->m_Date)) m_Undo.AddObject(element);
        item->m_Name = std::move(text);
        item->m_Display.clear();
    } else {
        return false;
    }
    Touch(touched);
    return true;
}

bool VMRD_DB::ModifyItem(VMRD_Element* element, tvstring text, VMRD_Object* parent) {
    if (!Modify(element, text, parent)) return false;
    Changed();
    return true;
}

bool VMRD_DB::ModifyEntry(VMRD_Element* element, tvstring text, VMRD_Object* parent) {
    return ModifyItem(element, std::move(text), parent);
}

void VMRD_DB::SetName(const tvstring& name) {
    if (name == m_Name) return;
    if (m_Undo.Push(UNDO_MODIFY, UNDO_DB_NAME, this, 0)) m_Undo.AddObject(this);
    m_Name = name;
    m_Display.clear();
    Changed();
}

void VMRD_DB::SetPath(const tvstring& path) {
    if (CompareNoCase(path, m_Path) == 0) return;
    m_Path = path;
    m_Display.clear();
    Changed();
}

bool VMRD_DB::SetMasterPassword(const tvstring& text) {
    SecretBytes<kPasswordHashSize> hash;
    if (!text.empty()) HashPassword(text, hash.Data());
    if (std::memcmp(hash.Data(), m_PwdHash, kPasswordHashSize) == 0) return false;
    if (m_Undo.Push(UNDO_MASTERPWD, UNDO_DB_NAME, this, 0)) m_Undo.AddObject(this);
    std::memcpy(m_PwdHash, hash.Data(), kPasswordHashSize);
    Changed();
    return true;
}

int VMRD_DB::Undo(ElementArray* outItems, ElementArray* outEntries) {
    return m_Undo.Undo(outItems, outEntries);
}
