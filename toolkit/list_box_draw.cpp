// How the rows of a list box are painted.
#include <algorithm>

#include "toolkit/draw.h"
#include "toolkit/list_box.h"
#include "toolkit/list_text.h"
#include "toolkit/rect.h"
#include "toolkit/text_draw.h"
#include "toolkit/theme.h"

COLORREF tvMListBox::GetBackColor() {
    return TheTheme().Color(&tvColorTheme::m_editBg, COLOR_WINDOW);
}

void tvMListBox::GetItemColors(tvMListState& state) {
    const tvTheme& theme = TheTheme();
    const bool lit = state.m_hot != 0 || state.m_focused != 0;
    if (state.m_selected == 0) {
        const bool shown = state.m_hot != 0 && !theme.m_isSystemDefault;
        state.m_background = shown ? COLORREF{theme.m_buttonOver} : GetBackColor();
        state.m_text = theme.Color(&tvColorTheme::m_text, COLOR_WINDOWTEXT);
        state.m_note = theme.Color(&tvColorTheme::m_icon, COLOR_3DDKSHADOW);
    } else if (lit) {
        state.m_background = theme.Color(&tvColorTheme::m_buttonPush, COLOR_HIGHLIGHT);
        state.m_text = theme.Color(&tvColorTheme::m_text, COLOR_HIGHLIGHTTEXT);
        state.m_note = theme.Color(&tvColorTheme::m_icon, COLOR_HIGHLIGHTTEXT);
    } else {
        state.m_background = theme.Color(&tvColorTheme::m_button, COLOR_BTNFACE);
        state.m_text = theme.Color(&tvColorTheme::m_text, COLOR_BTNTEXT);
        state.m_note = theme.Color(&tvColorTheme::m_icon, COLOR_3DDKSHADOW);
    }
}

void tvMListBox::OnReflectDrawItem(DRAWITEMSTRUCT* item) {
    tvMListState state;
    state.m_index = static_cast<int>(item->itemID);
    state.m_selected = (item->itemState & ODS_SELECTED) != 0 ? 1 : 0;
    state.m_hot = state.m_index >= 0 && state.m_index == m_hotIndex ? 1 : 0;
    state.m_focused = GetFocus() == m_hWnd ? 1 : 0;
    GetItemColors(state);
    PaintBuffered(m_hWnd, item->hDC, item->rcItem, &state, Fade::No);
}

void tvMListBox::OnDraw(HDC dc, const RECT& rect, void* paint) {
    const auto& state = *static_cast<const tvMListState*>(paint);
    FillSolid(dc, rect, state.m_background);
    if (state.m_selected != 0 && state.m_hot != 0) FillEdges(dc, rect, state.m_note, EDGE_ALL, 1);
    tvMListItem* item = ItemOfRow(state.m_index);
    if (item == nullptr) return;
    const auto [border, gap, line] = GetMetrics();
    RECT content = Inset(rect, border, border);
    SetBkMode(dc, TRANSPARENT);
    RECT note = content;
    note.left = note.right - (Width(content) / 2 - gap / 2);
    SetTextColor(dc, state.m_note);
    const int noteWidth = DrawItemNote(dc, note, *item, state);
    if (noteWidth > 0) content.right -= noteWidth + gap;
    if (m_iconWidth > 0) {
        const int top = m_bottomUp != 0 ? content.bottom - m_iconWidth : content.top;
        DrawItemIcon(dc, BoxAt(content.left, top, m_iconWidth, m_iconWidth), item->m_icon, state);
        content.left += m_iconWidth + border;
    }
    SetTextColor(dc, state.m_text);
    DrawItemText(dc, content, *item, state);
}

void tvMListBox::DrawItemIcon(HDC, const RECT&, u32, const tvMListState&) {}

void tvMListBox::DrawItemText(HDC dc, const RECT& rect, tvMListItem& item, const tvMListState&) {
    const std::size_t tabs = TabsInFront(item.m_text);
    const std::u16string_view text = item.m_text.view().substr(tabs);
    if (text.empty()) return;
    const auto [border, gap, line] = GetMetrics();
    RECT place = rect;
    place.left += static_cast<int>(tabs) * (line + 2 * border);
    DrawTextW(dc, Wide(text.data()), static_cast<int>(text.size()), &place, kListTextFlags);
}

int tvMListBox::DrawItemNote(HDC dc, const RECT& rect, tvMListItem& item, const tvMListState&) {
    if (item.m_note.empty()) return 0;
    const UINT flags = kListNoteFlags | DT_RIGHT | (m_bottomUp != 0 ? UINT{DT_BOTTOM} : 0U);
    RECT size{};
    MeasureText(item.m_note, flags, dc, size);
    if (Width(size) > Width(rect)) {
        DrawTextPathEllipsis(item.m_note, dc, rect, flags);
        return std::max(Width(rect), 0);
    }
    RECT place = rect;
    DrawTextW(dc, Wide(item.m_note.c_str()), static_cast<int>(item.m_note.size()), &place, flags);
    return Width(size);
}

// Rows paint all of themselves.
void tvMListBox::EraseBelow(HDC dc) {
    RECT rect{};
    GetClientRect(m_hWnd, &rect);
    RECT last{};
    const int count = GetCount();
    if (count > 0 && GetItemRect(count - 1, last) >= 0) rect.top = std::max(rect.top, last.bottom);
    if (rect.top < rect.bottom) FillSolid(dc, rect, GetBackColor());
}

// The window would fill what is below the rows itself.
void tvMListBox::OnReflectCtlColor(HDC, LRESULT* result) {
    *result = reinterpret_cast<LRESULT>(GetStockObject(HOLLOW_BRUSH));
}
