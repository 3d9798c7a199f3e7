// The commands of CVMRListBox on its elements. A part of item_list_box.cpp.
#pragma once

#include <algorithm>
#include <memory>

#include "windows/item_list_box_view.h"

// --- Copy and add ---

template <typename TOwner, typename TElement>
bool CVMRListBox<TOwner, TElement>::CopySelection() {
    ElementArray elements;
    if (m_Source == nullptr || ReadSelection(nullptr, &elements) < 1) return false;
    return Model::Copy(m_hWnd, elements);
}

template <typename TOwner, typename TElement>
void CVMRListBox<TOwner, TElement>::ShowNew(VMRD_Element* element) {
    if (element == nullptr) return;
    AddRow(element);
    NotifyMainWindow(APPN_TOPBAR);
    NotifyMainWindow(APPN_STATUS, STATUS_REPAINT);
    if (m_Kind == LIST_ITEMS) TellStatus();
}

// --- Remove ---

template <typename TOwner, typename TElement>
auto CVMRListBox<TOwner, TElement>::Choose(From end) const -> Chosen {
    Chosen chosen;
    ReadSelection(&chosen.rows, &chosen.elements);
    if (end == From::Last) {
        std::reverse(chosen.rows.begin(), chosen.rows.end());
        std::reverse(chosen.elements.begin(), chosen.elements.end());
    }
    return chosen;
}

template <typename TOwner, typename TElement>
void CVMRListBox<TOwner, TElement>::RemoveSelected() {
    if (m_Source == nullptr) return;
    Chosen chosen = Choose(From::Last);
    if (chosen.rows.empty()) return;
    HideTip();
    {
        const Bulk bulk(*this);
        const i32 removed = Model::Remove(chosen.elements, m_Source);
        if (removed == static_cast<i32>(chosen.rows.size())) {
            DeleteRows(chosen.rows);
        } else {
            Refresh();
        }
    }
    TellChange();
}

// With nothing selected any more the list does not give notice for each row.
template <typename TOwner, typename TElement>
void CVMRListBox<TOwner, TElement>::DeleteRows(const std::vector<int>& rows) {
    SetSel(-1, false);
    for (const int row : rows) {
        if (DeleteItem(row) < 0) {
            Refresh();
            break;
        }
    }
    NotifySelection();
}

// --- Move ---

// Neighbours in the list are neighbours in the source. Beyond the ends of the list there may be elements that
// have no row.
template <typename TOwner, typename TElement>
bool CVMRListBox<TOwner, TElement>::IsInStep(int row) const {
    const auto* element = Model::Linked(ElementOf(row));
    if (element == nullptr) return false;
    const auto* next = element->m_Next;
    const auto* previous = element->m_Prev;
    const bool hasNext = row + 1 < GetCount();
    const bool hasPrevious = row > 0;
    if (hasNext && (next == nullptr || next != ElementOf(row + 1) || next->m_Prev != element)) return false;
    if (hasPrevious && (previous == nullptr || previous != ElementOf(row - 1) || previous->m_Next != element))
        return false;
    const bool isLast = hasNext || next == nullptr || !IsRemovable(next);
    const bool isFirst = hasPrevious || previous == nullptr || !IsRemovable(previous);
    return isLast && isFirst;
}

template <typename TOwner, typename TElement>
bool CVMRListBox<TOwner, TElement>::CanMove(const std::vector<int>& rows, bool up) const {
    if (m_Source == nullptr || !m_View.CanMove() || rows.empty()) return false;
    if (up ? rows.front() == 0 : rows.back() == GetCount() - 1) return false;
    return std::all_of(rows.begin(), rows.end(), [this](int row) { return IsInStep(row); });
}

template <typename TOwner, typename TElement>
void CVMRListBox<TOwner, TElement>::MoveSelected(bool up) {
    if (!CanMove(SelectedRows(), up)) return;
    HideTip();
    Chosen chosen = Choose(up ? From::First : From::Last);
    {
        const Bulk bulk(*this);
        const i32 moved = Model::Move(chosen.elements, up, m_Source);
        if (moved == static_cast<i32>(chosen.rows.size())) {
            SwapRows(chosen.rows, up ? -1 : 1);
        } else {
            Refresh();
        }
    }
    TellChange();
}

template <typename TOwner, typename TElement>
void CVMRListBox<TOwner, TElement>::SwapRows(const std::vector<int>& rows, int step) {
    for (const int row : rows) {
        std::swap(ItemOfRow(row)->m_data, ItemOfRow(row + step)->m_data);
        SetSel(row + step, true);
        SetSel(row, false);
    }
}

// --- Paste ---

// The carrier owns what is in the queue. Entries that a list of entries does not show stay out.
template <typename TOwner, typename TElement>
ElementQueue CVMRListBox<TOwner, TElement>::ReadCarrier(VMRD_DB& carrier) const {
    ElementQueue queue;
    if (m_Kind > LIST_ENTRIES) return queue;
    const u32 format = m_Kind == LIST_ITEMS ? ItemsClipboardFormat() : EntriesClipboardFormat();
    if (!VMRD_DB::ReadClipboard(carrier, format)) return queue;
    const auto* children = Model::Carried(carrier);
    if (children == nullptr) return queue;
    for (auto* child = children->m_Head; child != nullptr; child = child->m_Next) {
        if (IsRemovable(child)) queue.push_back(child);
    }
    return queue;
}

template <typename TOwner, typename TElement>
bool CVMRListBox<TOwner, TElement>::PasteFromClipboard() {
    if (m_Source == nullptr || !TheDatabase().m_Opened) return false;
    const auto carrier = std::make_unique<VMRD_DB>();
    ElementQueue queue = ReadCarrier(*carrier);
    if (queue.empty()) return false;
    HideTip();
    TElement* before = nullptr;
    const int row = GetFirstSelected(&before, false);
    {
        const Bulk bulk(*this);
        const auto asked = static_cast<i32>(queue.size());
        if (Model::Add(queue, before, m_Source) == asked) {
            SetSel(-1, false);
            InsertPasted(queue, row);
        } else {
            Refresh();  // no copy is ever refused; if one were, the rows would not tell
        }
    }
    TellChange();
    return true;
}

// From the last to the first, each in front of the one before; the first is brought into sight.
template <typename TOwner, typename TElement>
void CVMRListBox<TOwner, TElement>::InsertPasted(const ElementQueue& elements, int row) {
    for (std::size_t i = elements.size(); i-- > 0;) {
        row = AddItem({}, 0, row, i == 0, reinterpret_cast<std::intptr_t>(elements[i]));
        if (row < 0) {
            Refresh();
            return;
        }
        SetSel(row, true);
    }
}
