// How CVMRListBox paints its rows, and the tool tip of a row that is cut off. A part of item_list_box.cpp.
#pragma once

#include "toolkit/draw.h"
#include "toolkit/list_text.h"
#include "toolkit/rect.h"
#include "toolkit/text_draw.h"
#include "toolkit/theme.h"
#include "toolkit/tool_tip.h"
#include "windows/item_list_box.h"
#include "windows/item_row.h"

// --- Rows ---

template <typename TOwner, typename TElement>
int CVMRListBox<TOwner, TElement>::CalcItemHeight(int) {
    const Metrics metrics = GetMetrics();
    return RowHeightFor(metrics.line + 2 * metrics.border);
}

template <typename TOwner, typename TElement>
void CVMRListBox<TOwner, TElement>::DrawItemText(HDC dc, const RECT& rect, tvMListItem& item,
                                                 const tvMListState&) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): a row's data is a number
    auto* element = reinterpret_cast<VMRD_Element*>(item.m_data);
    if (element != nullptr) item.m_icon = DrawRowText(dc, rect, ElementDisplay(element)) ? 0 : 1;
}

template <typename TOwner, typename TElement>
int CVMRListBox<TOwner, TElement>::DrawItemNote(HDC, const RECT&, tvMListItem&, const tvMListState&) {
    return 0;
}

// --- Nothing matches ---

template <typename TOwner, typename TElement>
bool CVMRListBox<TOwner, TElement>::HasHint() const {
    return m_Kind == LIST_ITEMS && GetCount() == 0 && !FilterText().empty() && TheDatabase().m_Count > 0;
}

template <typename TOwner, typename TElement>
void CVMRListBox<TOwner, TElement>::DrawHint(HDC dc) {
    RECT client{};
    GetClientRect(m_hWnd, &client);
    const tvSelected font(dc, m_font);
    const HDC buffer = m_measureDC.Prepare(dc, client.right, client.bottom);
    if (buffer == nullptr) return;
    FillSolid(buffer, client, GetBackColor());
    SetTextColor(buffer, TheTheme().Color(&tvColorTheme::m_textGray, COLOR_GRAYTEXT));
    RECT place = Inset(client, TheTheme().m_marginX, TheTheme().m_marginY);
    const tvstring& text = NoMatchText();
    DrawTextW(buffer, Wide(text.c_str()), static_cast<int>(text.size()), &place, DT_CENTER | DT_SINGLELINE);
    BitBlt(dc, 0, 0, client.right, client.bottom, buffer, 0, 0, SRCCOPY);
}

// The system marks where the first row would be, in colours of its own, while the list has the keyboard.
template <typename TOwner, typename TElement>
void CVMRListBox<TOwner, TElement>::PaintEmpty() {
    if (GetCount() != 0) return;
    const tvClientDC dc(m_hWnd);
    RECT client{};
    GetClientRect(m_hWnd, &client);
    if (HasHint()) {
        DrawHint(dc.Get());
    } else if (!TheTheme().m_isSystemDefault) {
        FillSolid(dc.Get(), client, GetBackColor());
    }
}

// --- Tool tips ---

template <typename TOwner, typename TElement>
void CVMRListBox<TOwner, TElement>::HideTip() {
    if (m_HoverRow < 0) return;
    tvMListItem* item = HoverItem();
    m_HoverRow = -1;
    TheToolTip().Track(m_hWnd, false, 0, 0);
    if (item != nullptr) item->m_note = {};  // may be a secret, and is wiped
}

template <typename TOwner, typename TElement>
void CVMRListBox<TOwner, TElement>::OnHover() {
    if (!TheToolTip().IsAttached() || GetCapture() == m_hWnd) return;
    const tvMListItem* item = ItemOfRow(m_hotIndex);
    if (item == nullptr || item->m_data == 0 || item->m_icon == 0) {
        HideTip();
        return;
    }
    if (m_hotIndex == m_HoverRow) return;
    // A tip that is up keeps its text.
    HideTip();
    m_HoverRow = m_hotIndex;
    RECT rect{};
    GetItemRect(m_HoverRow, rect);
    MapWindowPoints(m_hWnd, nullptr, reinterpret_cast<POINT*>(&rect), 2);
    const int border = TheTheme().m_borderWidth;
    TheToolTip().Track(m_hWnd, true, static_cast<int>(rect.left) + border,
                       static_cast<int>(rect.top) + border);
}

template <typename TOwner, typename TElement>
tvMListItem* CVMRListBox<TOwner, TElement>::HoverItem() const {
    tvMListItem* item = ItemOfRow(m_HoverRow);
    return item == nullptr || item->m_data == 0 ? nullptr : item;
}

template <typename TOwner, typename TElement>
void CVMRListBox<TOwner, TElement>::OnTipText(NMTTDISPINFOW& info) {
    tvMListItem* item = HoverItem();
    if (item == nullptr) return;
    item->m_note = ElementDisplay(ElementOf(m_HoverRow));
    FitTip(item->m_note, m_hWnd, m_measureDC.m_dc.Get());
    info.lpszText = Wide(item->m_note.data());
}

// The tip covers the row.
template <typename TOwner, typename TElement>
void CVMRListBox<TOwner, TElement>::OnTipShown() {
    constexpr LONG kWidest = 32000;
    const tvMListItem* item = HoverItem();
    if (item == nullptr || item->m_note.empty()) return;
    RECT size{0, 0, kWidest, kWidest};
    MeasureText(item->m_note, DT_SINGLELINE | DT_NOPREFIX, m_measureDC.m_dc.Get(), size);
    RECT row{};
    GetItemRect(m_HoverRow, row);
    TheToolTip().SetSize(m_hWnd, Width(size), Height(row));
}

template <typename TOwner, typename TElement>
bool CVMRListBox<TOwner, TElement>::OnTipNotice(NMHDR* header, LRESULT& result) {
    if (header == nullptr || !TheToolTip().IsAttached() || header->hwndFrom != TheToolTip().Handle())
        return false;
    result = 0;
    switch (header->code) {
        case TTN_GETDISPINFOW:
            OnTipText(*reinterpret_cast<NMTTDISPINFOW*>(header));
            return true;
        case TTN_SHOW:
            OnTipShown();
            return true;
        default:
            return false;
    }
}

template <typename TOwner, typename TElement>
void CVMRListBox<TOwner, TElement>::TakeTipFont() const {
    const tvToolTipCtrl& tip = TheToolTip();
    const auto font = reinterpret_cast<WPARAM>(m_font);
    if (tip.IsAttached() && static_cast<WPARAM>(tip.Send(WM_GETFONT)) != font) tip.Send(WM_SETFONT, font);
}
