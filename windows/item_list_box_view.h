// The rows of CVMRListBox and their selection. A part of item_list_box.cpp.
#pragma once

#include <algorithm>

#include "shell/app_data.h"
#include "shell/statics.h"
#include "windows/base_dlg.h"
#include "windows/item_list_box.h"

// --- Rows ---

template <typename TOwner, typename TElement>
VMRD_Element* CVMRListBox<TOwner, TElement>::ElementOf(int row) const {
    const tvMListItem* item = ItemOfRow(row);
    // NOLINTNEXTLINE(performance-no-int-to-ptr): a row's data is a number
    return item == nullptr ? nullptr : reinterpret_cast<VMRD_Element*>(item->m_data);
}

template <typename TOwner, typename TElement>
void CVMRListBox<TOwner, TElement>::AppendRow(VMRD_Element* element) {
    AddItem({}, 0, -1, false, reinterpret_cast<std::intptr_t>(element));
}

template <typename TOwner, typename TElement>
std::vector<ViewRow> CVMRListBox<TOwner, TElement>::ReadRows() const {
    std::vector<ViewRow> rows(static_cast<std::size_t>(std::max(GetCount(), 0)));
    for (std::size_t i = 0; i < rows.size(); ++i)
        rows[i].m_data = ElementOf(static_cast<int>(i));
    for (const int row : SelectedRows())
        rows[static_cast<std::size_t>(row)].selected = true;
    return rows;
}

// The same elements in another order.
template <typename TOwner, typename TElement>
void CVMRListBox<TOwner, TElement>::WriteRows(const std::vector<ViewRow>& rows) {
    HideTip();
    std::vector<int> selected;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto row = static_cast<int>(i);
        ItemOfRow(row)->m_data = reinterpret_cast<std::intptr_t>(rows[i].m_data);
        if (rows[i].selected) selected.push_back(row);
    }
    SetSel(-1, false);
    SelectRows(selected);
}

// --- The view ---

// Of more rows than the list can hold the last ones are shown.
template <typename TOwner, typename TElement>
bool CVMRListBox<TOwner, TElement>::Refresh() {
    HideTip();
    ElementArray before;
    ReadSelection(nullptr, &before);
    std::vector<ViewRow> selected;
    for (VMRD_Element* element : before)
        selected.push_back({element, true});
    DeleteAll();

    const bool passwords = TheDatabase().bFilterPWD;
    m_View.SetSource(m_Source);
    m_View.SetOptions(TheAppData().filterFlag, passwords ? SearchPasswords::Yes : SearchPasswords::No);
    m_View.SetRows(std::move(selected));
    if (!m_View.Refresh()) return false;
    FillRows();
    m_View.SetRows({});
    if (m_Kind == LIST_ITEMS) TellStatus();
    return true;
}

template <typename TOwner, typename TElement>
void CVMRListBox<TOwner, TElement>::FillRows() {
    const std::vector<ViewRow>& rows = m_View.Rows();
    const std::size_t first = rows.size() > kMostRows ? rows.size() - kMostRows : 0;
    std::vector<int> selected;
    {
        const Bulk bulk(*this);
        for (std::size_t i = first; i < rows.size(); ++i) {
            if (rows[i].selected) selected.push_back(static_cast<int>(i - first));
            AppendRow(rows[i].m_data);
        }
        SelectRows(selected);
    }
    ShowLastOf(selected);
}

template <typename TOwner, typename TElement>
void CVMRListBox<TOwner, TElement>::Resort() {
    m_View.SetRows(ReadRows());
    m_View.Resort();
    TakeOrder();
}

// Appends a row, orders all and selects the new one alone. A full list loses its first row over that.
template <typename TOwner, typename TElement>
void CVMRListBox<TOwner, TElement>::AddRow(VMRD_Element* element) {
    HideTip();
    {
        const Bulk bulk(*this);
        AppendRow(element);
        std::vector<ViewRow> rows = ReadRows();
        if (rows.empty() || rows.back().m_data != element) {
            Refresh();
            return;
        }
        rows.pop_back();
        m_View.SetRows(std::move(rows));
        m_View.AddRow(element);
        WriteRows(m_View.Rows());
    }
    m_View.SetRows({});
    ShowLastOf(SelectedRows());
}

template <typename TOwner, typename TElement>
void CVMRListBox<TOwner, TElement>::TakeOrder() {
    {
        const Bulk bulk(*this);
        WriteRows(m_View.Rows());
    }
    m_View.SetRows({});
    ShowLastOf(SelectedRows());
}

template <typename TOwner, typename TElement>
void CVMRListBox<TOwner, TElement>::SetView(const int* sort, const tvstring* text) {
    if (m_View.TakeView(sort, text)) Refresh();
}

// --- Selection ---

template <typename TOwner, typename TElement>
std::vector<int> CVMRListBox<TOwner, TElement>::SelectedRows() const {
    const int count = GetSelCount();
    if (count <= 0) return {};
    std::vector<int> rows(static_cast<std::size_t>(count));
    const LRESULT got = Send(LB_GETSELITEMS, rows.size(), reinterpret_cast<LPARAM>(rows.data()));
    rows.resize(static_cast<std::size_t>(std::max<LRESULT>(got, 0)));
    return rows;
}

template <typename TOwner, typename TElement>
int CVMRListBox<TOwner, TElement>::ReadSelection(std::vector<int>* rows, ElementArray* elements) const {
    const std::vector<int> selected = SelectedRows();
    if (rows != nullptr) rows->insert(rows->end(), selected.begin(), selected.end());
    if (elements != nullptr) {
        for (const int row : selected) {
            if (VMRD_Element* element = ElementOf(row)) elements->push_back(element);
        }
    }
    return static_cast<int>(selected.size());
}

template <typename TOwner, typename TElement>
int CVMRListBox<TOwner, TElement>::GetFirstSelected(TElement** element, bool exactlyOne) const {
    if (element != nullptr) *element = nullptr;
    const int count = GetSelCount();
    int row = -1;
    if (count < 1 || (exactlyOne && count != 1)) return -1;
    if (Send(LB_GETSELITEMS, 1, reinterpret_cast<LPARAM>(&row)) < 1) return -1;
    TElement* found = Model::Linked(ElementOf(row));
    if (element != nullptr) *element = found;
    return found == nullptr ? -1 : row;
}

template <typename TOwner, typename TElement>
void CVMRListBox<TOwner, TElement>::SelectRows(const std::vector<int>& rows) {
    for (const int row : rows)
        SetSel(row, true);
}

// Rows that are selected are brought into sight.
template <typename TOwner, typename TElement>
void CVMRListBox<TOwner, TElement>::ShowLastOf(const std::vector<int>& rows) const {
    if (!rows.empty()) Send(LB_SETCARETINDEX, static_cast<WPARAM>(rows.back()), FALSE);
}

template <typename TOwner, typename TElement>
void CVMRListBox<TOwner, TElement>::SelectElements(const ElementArray* elements, bool clear) {
    if (clear) SetSel(-1, false);
    if (elements == nullptr) return;
    std::vector<VMRD_Element*> wanted(*elements);
    std::sort(wanted.begin(), wanted.end(), std::less<>());
    std::vector<int> rows;
    for (int row = 0; row < GetCount(); ++row) {
        if (std::binary_search(wanted.begin(), wanted.end(), ElementOf(row), std::less<>()))
            rows.push_back(row);
    }
    {
        const Bulk bulk(*this);
        SelectRows(rows);
    }
    ShowLastOf(rows);
}

// --- What the main window is told ---

template <typename TOwner, typename TElement>
void CVMRListBox<TOwner, TElement>::TellStatus() const {
    if (m_Kind == LIST_ITEMS) {
        NotifyMainWindow(APPN_STATUS, STATUS_COUNTS, GetCount(), GetSelCount());
    } else {
        NotifyMainWindow(APPN_STATUS, STATUS_REPAINT);
    }
}

template <typename TOwner, typename TElement>
void CVMRListBox<TOwner, TElement>::TellChange() const {
    NotifyMainWindow(APPN_TOPBAR);
    TellStatus();
}
