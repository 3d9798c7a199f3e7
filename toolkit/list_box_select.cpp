// The selection of a list box: with the right mouse button, by its operations, and its copy.
#include <algorithm>

#include "foundation/textops.h"
#include "platform/clipboard.h"
#include "toolkit/list_box.h"
#include "toolkit/rect.h"

// --- With the right mouse button ---

void tvMListBox::ResetDrag() {
    m_dragStart = -1;
    m_selCountBefore = 0;
    m_curSelBefore = -1;
    m_startX = m_startY = m_lastY = 0;
}

void tvMListBox::BeginDrag(int x, int y) {
    SetFocus(m_hWnd);
    SetCapture(m_hWnd);
    m_dragStart = HitTest(x, y);
    m_startX = x;
    m_startY = m_lastY = y;
    m_selCountBefore = GetSelCount();
    m_curSelBefore = GetCurSel();
}

void tvMListBox::DragTo(int x, int y) {
    constexpr int kLeastWay = 3;  // pixels
    if (std::abs(y - m_lastY) <= kLeastWay) return;
    m_lastY = y;
    if (x == m_startX && y == m_startY) return;
    RECT client{};
    GetClientRect(m_hWnd, &client);
    const int last = GetCount() - 1;
    int row = HitTest(x, std::clamp(y, 0, std::max(Height(client) - 1, 0)));
    if (row < 0 && m_dragStart < 0) return;
    if (row < 0) row = last;
    const int start = m_dragStart < 0 ? last : m_dragStart;
    Send(WM_SETREDRAW, FALSE);
    Send(LB_SELITEMRANGE, FALSE, MAKELPARAM(0, last));
    Send(LB_SELITEMRANGE, TRUE, MAKELPARAM(std::min(start, row), std::max(start, row)));
    Send(WM_SETREDRAW, TRUE);
    InvalidateRect(m_hWnd, nullptr, FALSE);
}

void tvMListBox::EndDrag(int x, int y) {
    const Selection before{m_selCountBefore, m_curSelBefore};
    ReleaseCapture();
    DragTo(x, y);
    if (GetSelection() != before) NotifySelection();
    ResetDrag();
}

void tvMListBox::OnRightUp(int x, int y) {
    const int row = HitTest(x, y);
    if (IsSingleSelect()) {
        SetCurSel(row);
        return;
    }
    if (GetCapture() == m_hWnd) EndDrag(x, y);
    if (row < 0) return;
    if (GetSel(row) <= 0) {
        SetSel(-1, false);
        SetSel(row, true);
    }
    SetCurSel(row);
}

// The system selects the last row for a click below it.
void tvMListBox::UndoEmptyClick(int x, int y) {
    RECT client{};
    GetClientRect(m_hWnd, &client);
    const int last = GetCount() - 1;
    if (GetCapture() != m_hWnd || PtInRect(&client, {x, y}) == FALSE || last < 0) return;
    if (Ask(LB_GETANCHORINDEX) != last || GetSel(last) <= 0 || GetSelCount() > 1 || HitTest(x, y) >= 0)
        return;
    SetSel(last, false);
    SetCurSel(-1);
}

// --- All rows ---

void tvMListBox::SelectAll() {
    SetSel(-1, true);
}

void tvMListBox::DeselectAll() {
    SetSel(-1, false);
}

void tvMListBox::InvertSelection() {
    const int count = GetCount();
    if (count <= 0 || IsSingleSelect()) return;
    const Bulk bulk(*this);
    for (int row = 0; row < count; ++row)
        SetSel(row, GetSel(row) <= 0);
}

// --- Notices ---

void tvMListBox::StartNotice() {
    constexpr UINT kDelay = 100;  // milliseconds
    m_selTimer.Start(m_hWnd, kDelay);
}

void tvMListBox::OnTimer(WPARAM id) {
    if (!m_selTimer.IsMine(m_hWnd, id)) return;
    m_selTimer.Stop();
    NotifySelection();
}

// Of all rows, piece by piece, with the top row going along: the system may walk from there to each row that
// changes.
void tvMListBox::SetAll(bool on) {
    const Bulk bulk(*this);
    const int count = m_items.Count();
    if (GetSelCount() != (on ? count : 0)) m_bulkChanged = true;
    for (int first = 0; first < count; first += kNear) {
        StayNear(first);
        Send(LB_SELITEMRANGE, on ? TRUE : FALSE, MAKELPARAM(first, std::min(first + kNear, count) - 1));
    }
}

// What sets one row cannot change the number of others, which takes long to count.
LRESULT tvMListBox::SetSelection(UINT message, WPARAM wParam, LPARAM lParam) {
    const int row = message == LB_SETSEL ? static_cast<int>(lParam) : -1;
    if (message == LB_SETSEL && row == -1 && !IsSingleSelect()) {
        SetAll(wParam != FALSE);
        return LB_OKAY;
    }
    if (m_bulk > 0) return SetInBulk(message, wParam, lParam, row);
    const auto look = [&] { return Selection{row >= 0 ? GetSel(row) : GetSelCount(), GetCurSel()}; };
    const Selection before = look();
    const LRESULT result = tvWnd::WindowProc(message, wParam, lParam);
    if (look() != before) StartNotice();
    return result;
}

// Once a change is known nothing is asked any more.
LRESULT tvMListBox::SetInBulk(UINT message, WPARAM wParam, LPARAM lParam, int row) {
    if (row >= 0) StayNear(row);
    const auto look = [&] { return Selection{row >= 0 ? GetSel(row) : 0, GetCurSel()}; };
    if (m_bulkChanged) return tvWnd::WindowProc(message, wParam, lParam);
    const Selection before = look();
    const LRESULT result = tvWnd::WindowProc(message, wParam, lParam);
    m_bulkChanged = look() != before;
    return result;
}

// --- Texts ---

void tvMListBox::GetItemClipText(tvstring& out, int index, std::u16string_view separator) {
    out.clear();
    const tvMListItem* item = ItemOfRow(index);
    if (item == nullptr) return;
    out += item->m_text.view();
    if (item->m_note.empty()) return;
    out += separator;
    out += item->m_note.view();
}

bool tvMListBox::CopySelection() {
    tvstring all;
    tvstring line;
    bool isFirst = true;
    const bool isSingle = IsSingleSelect();
    const int count = GetCount();
    for (int row = 0; row < count; ++row) {
        if (isSingle ? row != GetCurSel() : GetSel(row) <= 0) continue;
        if (!isFirst) all += u"\r\n";
        isFirst = false;
        GetItemClipText(line, row, u"\t");
        all += line.view();
    }
    if (all.empty()) return false;
    const auto* bytes = reinterpret_cast<const u8*>(all.c_str());
    const std::size_t size = (all.size() + 1) * sizeof(char16_t);
    platform::ClipboardBlock block(size, {bytes, size});
    if (!block || !platform::OpenClipboard(m_hWnd)) return false;
    const bool copied = platform::EmptyClipboard() && block.Put(platform::kFormatUnicodeText);
    platform::CloseClipboard();
    return copied;
}

// --- Finding ---

int tvMListBox::FirstSelected() const {
    if (IsSingleSelect()) return GetCurSel();
    int row = -1;
    return Ask(LB_GETSELITEMS, 1, reinterpret_cast<LPARAM>(&row)) > 0 ? row : -1;
}

bool tvMListBox::IsMatch(int row, const tvstring& wanted, bool ignoreCase, tvstring& buffer) {
    GetItemClipText(buffer, row, u"\t");
    if (wanted.empty()) return false;
    return ignoreCase ? FindNoCase(buffer, wanted) != kNoPosition : buffer.find(wanted) != tvstring::npos;
}

int tvMListBox::FindItem(const tvstring& text, int direction, bool ignoreCase) {
    const int count = GetCount();
    if (count <= 0) return -1;
    const bool isSingle = IsSingleSelect();
    if (isSingle && direction == FIND_ALL) direction = FIND_NEXT;
    const int step = direction == FIND_PREVIOUS ? count - 1 : 1;
    const int selected = direction == FIND_ALL ? -1 : FirstSelected();
    int row = direction == FIND_PREVIOUS ? count - 1 : 0;
    if (selected >= 0) row = (selected + step) % count;
    const Bulk bulk(*this);
    SetSel(-1, false);
    SetCurSel(-1);
    int found = -1;
    tvstring buffer;
    for (int i = 0; i < count; ++i, row = (row + step) % count) {
        if (!IsMatch(row, text, ignoreCase, buffer)) continue;
        SetSel(row, true);
        SetCurSel(row);
        if (found < 0) found = row;
        if (direction != FIND_ALL) break;
    }
    // What was found stays in sight.
    if (found >= 0) {
        m_bulkTop = -1;
        Send(LB_SETTOPINDEX, static_cast<WPARAM>(found));
    }
    return found;
}
