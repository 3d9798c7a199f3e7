// What differs between the list of a database's items and that of an item's entries: the operations on the
// model. Arrays and queues are those of VMRD_DB.
#pragma once

#include "database/clipboard.h"
#include "shell/statics.h"

template <typename TOwner>
struct ItemListModel;

template <>
struct ItemListModel<VMRD_DB> {
    static ItemElement* Linked(VMRD_Element* element) { return LinkedItem(element); }
    static bool Copy(platform::NativeWindow window, const ElementArray& elements) {
        return CopyItems(window, elements);
    }
    // What a carrier from the clipboard holds for a list of this kind; null if it does not fit.
    static const ItemList* Carried(const VMRD_DB& carrier) { return &carrier; }
    static i32 Add(ElementQueue& queue, VMRD_Element* before, VMRD_DB* owner) {
        return TheDatabase().AddItems(queue, before, owner);
    }
    static i32 Remove(ElementArray& elements, VMRD_DB* owner) {
        return TheDatabase().RemoveItems(elements, owner);
    }
    static i32 Move(ElementArray& elements, bool up, VMRD_DB* owner) {
        return TheDatabase().MoveItems(elements, up, owner);
    }
};

template <>
struct ItemListModel<VMRD_Item> {
    static EntryElement* Linked(VMRD_Element* element) { return LinkedEntry(element); }
    static bool Copy(platform::NativeWindow window, const ElementArray& elements) {
        return CopyEntries(window, elements);
    }
    static const EntryList* Carried(const VMRD_DB& carrier) {
        return carrier.m_Count == 1 ? carrier.m_Head : nullptr;
    }
    static i32 Add(ElementQueue& queue, VMRD_Element* before, VMRD_Item* owner) {
        return TheDatabase().AddEntries(queue, before, owner);
    }
    static i32 Remove(ElementArray& elements, VMRD_Item* owner) {
        return TheDatabase().RemoveEntries(elements, owner);
    }
    static i32 Move(ElementArray& elements, bool up, VMRD_Item* owner) {
        return TheDatabase().MoveEntries(elements, up, owner);
    }
};
