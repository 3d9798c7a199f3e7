// The rows of a list box and their heights.
#include "toolkit/list_box.h"

#include <algorithm>
#include <optional>

#include "toolkit/list_text.h"
#include "toolkit/rect.h"
#include "toolkit/statics.h"
#include "toolkit/text_draw.h"
#include "toolkit/theme.h"

namespace {

constexpr int kError = LB_ERR;

class FlagSet {
public:
    explicit FlagSet(u8& flag) : m_Flag(flag), m_Old(flag) { flag = 1; }
    ~FlagSet() { m_Flag = m_Old; }
    FlagSet(const FlagSet&) = delete;
    FlagSet& operator=(const FlagSet&) = delete;

private:
    u8& m_Flag;
    u8 m_Old;
};

// The list asks its parent for the height of a row.
class Measuring {
public:
    explicit Measuring(tvWnd* list) : m_Old(TheWndMap().m_measured) { TheWndMap().m_measured = list; }
    ~Measuring() { TheWndMap().m_measured = m_Old; }
    Measuring(const Measuring&) = delete;
    Measuring& operator=(const Measuring&) = delete;

private:
    tvWnd* m_Old;
};

std::unique_ptr<tvMListItem> MakeItem(const tvstring& text, u32 icon, std::intptr_t data) {
    auto item = std::make_unique<tvMListItem>();
    item->m_icon = icon;
    item->m_data = data;
    const std::u16string_view whole = text.view();
    const std::size_t tab = whole.rfind(u'\t');
    item->m_text = whole.substr(0, tab);
    if (tab != tvstring::npos) item->m_note = whole.substr(tab + 1);
    return item;
}

}  // namespace

tvMListBox::~tvMListBox() {
    Detach(Window::Destroy);
}

int tvMListBox::Ask(UINT message, WPARAM wParam, LPARAM lParam) const {
    return m_hWnd == nullptr ? kError : static_cast<int>(Send(message, wParam, lParam));
}

int tvMListBox::Change(UINT message, WPARAM wParam, LPARAM lParam) {
    const FlagSet internal(m_internalChange);
    return Ask(message, wParam, lParam);
}

// --- Adding ---

int tvMListBox::AddItem(const tvstring& text, u32 icon, int index, bool makeVisible, std::intptr_t data) {
    if (m_hWnd == nullptr || index > m_items.Count() || !MakeRoom(index)) return kError;
    const int count = m_items.Count();
    const int at = index < 0 ? count : index;
    m_items.Insert(at, MakeItem(text, icon, data));
    m_items.At(at)->m_height = CalcItemHeight(at);
    const int row = m_bottomUp != 0 ? count - at : at;
    if (!InsertRow(row, *m_items.At(at))) {
        m_items.Remove(at);
        return kError;
    }
    if (makeVisible) {
        Send(LB_SETTOPINDEX, static_cast<WPARAM>(row));
        m_bulkTop = -1;
    }
    return row;
}

// Of a full list the row at the other end goes.
bool tvMListBox::MakeRoom(int index) {
    const int count = m_items.Count();
    if (count < kMostRows) return true;
    if (index > 0) return false;
    const int item = index == 0 ? count - 1 : 0;
    return DeleteItem(RowToItem(item, count)) >= 0;
}

// A scroll bar that appears has all rows measured again.
bool tvMListBox::InsertRow(int row, const tvMListItem& item) {
    if (m_bulk > 0) StayNear(row);
    m_newHeight = item.m_height;
    const Measuring measuring(this);
    const bool isAtEnd = row == m_items.Count() - 1;
    const WPARAM where = isAtEnd ? static_cast<WPARAM>(-1) : static_cast<WPARAM>(row);
    const int made = Change(LB_INSERTSTRING, where, reinterpret_cast<LPARAM>(L""));
    m_newHeight = 0;
    if (made < 0) return false;
    if (Ask(LB_GETITEMHEIGHT, static_cast<WPARAM>(made)) != item.m_height)
        Send(LB_SETITEMHEIGHT, static_cast<WPARAM>(made), item.m_height);
    return true;
}

void tvMListBox::StayNear(int row) {
    if (std::abs(row - m_nearRow) < kNear) return;
    m_nearRow = row;
    Send(LB_SETTOPINDEX, static_cast<WPARAM>(row > 0 ? row - 1 : 0));
}

// --- Deleting ---

bool tvMListBox::HasSelection() const {
    return IsSingleSelect() ? GetCurSel() >= 0 : GetSelCount() > 0;
}

int tvMListBox::DeleteItem(int row) {
    const int item = RowToItem(row, m_items.Count());
    if (m_hWnd == nullptr || item < 0) return kError;
    // A bulk that has changed the selection tells of it at its end. To look for one takes long.
    const bool isToldLater = m_bulk > 0 && m_bulkChanged;
    const bool hadSelection = !isToldLater && HasSelection();
    // The top row stays in front: the system may leave it where there are no rows any more.
    if (m_bulk > 0) StayNear(row - kNear);
    m_deleting = true;
    const int left = Change(LB_DELETESTRING, static_cast<WPARAM>(row), 0);
    m_deleting = false;
    if (left < 0) return kError;
    m_items.Remove(item);
    OnRowsGone();
    if (hadSelection) NotifySelection();
    return left;
}

void tvMListBox::DeleteAll() {
    if (m_hWnd == nullptr) return;
    const bool hadSelection = HasSelection();
    m_deleting = true;
    Change(LB_RESETCONTENT, 0, 0);
    m_deleting = false;
    m_items.Clear();
    OnRowsGone();
    if (hadSelection) NotifySelection();
}

// Which row is under the mouse shows with its next move.
void tvMListBox::OnRowsGone() {
    m_hotIndex = -1;
    if (m_measureLater) MeasureAll();
    m_measureLater = false;
}

void tvMListBox::NotifySelection() const {
    PostMessageW(GetParent(m_hWnd), WM_COMMAND,
                 MAKEWPARAM(static_cast<WORD>(GetDlgCtrlID(m_hWnd)), LBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(m_hWnd));
}

// --- Many at once ---

tvMListBox::Bulk::Bulk(tvMListBox& list) : m_List(list) {
    list.EnterBulk();
}

tvMListBox::Bulk::~Bulk() {
    m_List.LeaveBulk();
}

void tvMListBox::EnterBulk() {
    if (m_bulk++ > 0) return;
    m_bulkTop = m_nearRow = Ask(LB_GETTOPINDEX);
    m_bulkChanged = false;
    Send(WM_SETREDRAW, FALSE);
    m_wasVisible = (GetWindowLongPtrW(m_hWnd, GWL_STYLE) & WS_VISIBLE) != 0;
    if (m_wasVisible) DefWindowProcW(m_hWnd, WM_SETREDRAW, FALSE, 0);
}

void tvMListBox::LeaveBulk() {
    if (m_bulk == 0 || --m_bulk > 0 || m_hWnd == nullptr) return;
    // A scroll bar that comes or goes in what follows has all rows measured, in bulk.
    const bool isNotice = m_bulkChanged;
    const bool wasVisible = m_wasVisible;
    if (m_bulkTop >= 0) Send(LB_SETTOPINDEX, static_cast<WPARAM>(m_bulkTop));
    if (wasVisible) DefWindowProcW(m_hWnd, WM_SETREDRAW, TRUE, 0);
    Send(WM_SETREDRAW, TRUE);
    RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME);
    if (isNotice) StartNotice();
}

// --- The window's ---

int tvMListBox::GetCount() const {
    return Ask(LB_GETCOUNT);
}

int tvMListBox::GetItemRect(int row, RECT& rect) const {
    return Ask(LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&rect));
}

int tvMListBox::GetCurSel() const {
    return Ask(LB_GETCURSEL);
}

int tvMListBox::SetCurSel(int row) const {
    return Ask(LB_SETCURSEL, static_cast<WPARAM>(row));
}

int tvMListBox::SetSel(int row, bool on) const {
    return Ask(LB_SETSEL, on ? TRUE : FALSE, row);
}

int tvMListBox::GetSel(int row) const {
    return Ask(LB_GETSEL, static_cast<WPARAM>(row));
}

int tvMListBox::GetSelCount() const {
    return Ask(LB_GETSELCOUNT);
}

std::intptr_t tvMListBox::GetItemData(int row) const {
    const tvMListItem* item = m_hWnd == nullptr ? nullptr : ItemOfRow(row);
    return item == nullptr ? kError : item->m_data;
}

int tvMListBox::RowToItem(int row, int count) const {
    if (row < 0 || row >= count) return -1;
    return m_bottomUp != 0 ? count - 1 - row : row;
}

tvMListItem* tvMListBox::ItemOfRow(int row) const {
    return m_items.At(RowToItem(row, m_items.Count()));
}

// The system names the nearest row where there is none.
int tvMListBox::HitTest(int x, int y) const {
    if (m_hWnd == nullptr) return -1;
    const LRESULT found = Send(LB_ITEMFROMPOINT, 0, MAKELPARAM(x, y));
    constexpr WORD kNone = 0xFFFF;
    const int row = LOWORD(found);
    RECT rect{};
    if (HIWORD(found) != 0 || row == kNone || GetItemRect(row, rect) < 0) return -1;
    return PtInRect(&rect, {x, y}) != FALSE ? row : -1;
}

bool tvMListBox::IsSingleSelect() const {
    return (GetWindowLongPtrW(m_hWnd, GWL_STYLE) & (LBS_MULTIPLESEL | LBS_EXTENDEDSEL)) == 0;
}

// --- Heights ---

tvMListBox::Metrics tvMListBox::GetMetrics() {
    if (m_line == 0) m_line = TheTheme().TextHeight(m_font, nullptr);
    return {TheTheme().m_borderWidth, TheTheme().m_halfMarginX, m_line};
}

int tvMListBox::NoteWidth(const tvMListItem& item, int& height) const {
    RECT rect{};
    height = MeasureText(item.m_note, kListNoteFlags, m_measureDC.m_dc.Get(), rect);
    return Width(rect);
}

// A text that fits on one line is not broken into lines, which takes longer.
int tvMListBox::TextHeight(std::u16string_view text, int width, int line) const {
    if (text.empty()) return line;
    const HDC dc = m_measureDC.m_dc.Get();
    SIZE size{};
    const auto length = static_cast<int>(text.size());
    const bool isOneLine = text.find_first_of(u"\r\n") == std::u16string_view::npos;
    if (isOneLine && GetTextExtentPoint32W(dc, Wide(text.data()), length, &size) != FALSE && size.cx <= width)
        return line;
    RECT rect{0, 0, std::max(width, 1), 0};
    return DrawTextW(dc, Wide(text.data()), length, &rect, kListTextFlags | DT_CALCRECT);
}

int tvMListBox::CalcItemHeight(int index) {
    const auto [border, gap, line] = GetMetrics();
    int height = line;
    if (const tvMListItem* item = m_items.At(index)) {
        int width = m_lastWidth - 2 * border;
        int noteHeight = 0;
        if (!item->m_note.empty()) {
            const int noteWidth = NoteWidth(*item, noteHeight);
            width -= std::min(noteWidth, width / 2 - gap / 2) + gap;
        }
        if (m_iconWidth > 0) width -= border + m_iconWidth;
        const std::size_t tabs = TabsInFront(item->m_text);
        width -= static_cast<int>(tabs) * (line + 2 * border);
        height = std::max(noteHeight, TextHeight(item->m_text.view().substr(tabs), width, line));
    }
    return RowHeightFor(height + 2 * border);
}

// Heights that have not changed are not told: to tell each takes time, and so does it to end a Bulk.
void tvMListBox::MeasureAll() {
    const int count = m_items.Count();
    if (count == 0 || m_hWnd == nullptr) return;
    std::optional<Bulk> bulk;
    for (int row = 0; row < count; ++row) {
        const int index = RowToItem(row, count);
        tvMListItem* item = m_items.At(index);
        const int height = CalcItemHeight(index);
        if (item->m_height == height) continue;
        if (!bulk) bulk.emplace(*this);
        item->m_height = height;
        StayNear(row);
        Send(LB_SETITEMHEIGHT, static_cast<WPARAM>(row), height);
    }
    if (!bulk) InvalidateRect(m_hWnd, nullptr, TRUE);
}
