#include "windows/recent_list_box.h"

#include "foundation/language.h"
#include "foundation/path.h"
#include "shell/app_data.h"
#include "shell/statics.h"
#include "toolkit/app.h"
#include "toolkit/list_text.h"
#include "toolkit/message_box.h"
#include "toolkit/theme.h"
#include "windows/base_dlg.h"
#include "windows/command_ids.h"

CVMRRecentListBox::~CVMRRecentListBox() {
    Detach(Window::Destroy);
}

// --- Rows ---

void CVMRRecentListBox::Reload() {
    const Bulk bulk(*this);
    DeleteAll();
    for (const RecentItem& item : TheAppData().recentItems) {
        tvstring text = item.name.empty() ? FileNameOf(item.path) : item.name;
        text.append(u"\t").append(item.path);
        AddItem(text);
    }
}

int CVMRRecentListBox::CalcItemHeight(int) {
    const Metrics metrics = GetMetrics();
    return RowHeightFor(metrics.line + 2 * metrics.border);
}

RECT CVMRRecentListBox::ScreenPlace() const {
    RECT place{};
    GetWindowRect(tvScrollBox::OuterOf(m_hWnd), &place);
    return place;
}

// --- Painting ---

void CVMRRecentListBox::DrawItemText(HDC dc, const RECT& rect, tvMListItem& item, const tvMListState&) {
    constexpr UINT kFlags = DT_SINGLELINE | DT_NOPREFIX | DT_EDITCONTROL | DT_END_ELLIPSIS;
    const tvstring& text = item.m_text;
    if (text.empty()) return;
    RECT place = rect;
    DrawTextW(dc, Wide(text.c_str()), static_cast<int>(text.size()), &place, kFlags);
}

COLORREF CVMRRecentListBox::GetBackColor() {
    return TheTheme().Color(&tvColorTheme::m_base, COLOR_BTNFACE);
}

// While the keyboard is elsewhere no row stands out.
void CVMRRecentListBox::GetItemColors(tvMListState& state) {
    tvMListBox::GetItemColors(state);
    if (state.m_hot == 0 && state.m_focused == 0) state.m_background = GetBackColor();
}

// --- Opening ---

// The rows may be made anew while the user is asked, and while the database opens.
bool CVMRRecentListBox::OpenRow(int row) {
    const tvMListItem* item = ItemOfRow(row);
    if (item == nullptr || item->m_note.empty()) return false;
    const tvstring path = item->m_note;
    if (PathKind(path) != PATH_FILE) {
        AskToRemove(row, path);
        return false;
    }
    NotifyMainWindow(APPN_OPENDB, AsArgument(ExpandPath(path).c_str()));
    return true;
}

// The row is the current one before the user is asked: should the rows be made anew meanwhile, no other one
// goes.
void CVMRRecentListBox::AskToRemove(int row, const tvstring& path) {
    constexpr u32 kStyle = MB_YESNO | MB_ICONERROR | MB_DEFBUTTON2;
    if (GetCurSel() != row) SetCurSel(row);
    const tvstring question = LangText(u"start", u"err_invalidrecentitem", path);
    if (tvMessageBox::Show(tvApp::MainWindow(), question, kStyle, {}) == IDYES)
        PostMessageW(m_hWnd, WM_COMMAND, CMD_REMOVE, 0);
}

// --- Commands ---

void CVMRRecentListBox::RemoveCurrent() const {
    CVMRAppData& data = TheAppData();
    const int row = GetCurSel();
    if (row < 0 || row >= GetCount() || row >= static_cast<int>(data.recentItems.size())) return;
    data.RemoveRecent(row);
    NotifyMainWindow(APPN_START);
}

void CVMRRecentListBox::AskToClear() {
    constexpr u32 kStyle = MB_YESNO | MB_ICONWARNING | MB_DEFBUTTON2;
    const tvstring question = LangText(u"start", u"warn_clear");
    if (tvMessageBox::Show(tvApp::MainWindow(), question, kStyle, {}) != IDYES) return;
    TheAppData().ClearRecent();
    NotifyMainWindow(APPN_START);
}

void CVMRRecentListBox::ToggleHistory() {
    if (TheAppData().bHistory != 0) PostMessageW(tvApp::MainWindow(), WM_COMMAND, CMD_HISTORY, 0);
}

// True if the command is one of the list's menu.
bool CVMRRecentListBox::OnCommand(u16 id) {
    switch (id) {
        case CMD_OPEN:
            OpenRow(GetCurSel());
            return true;
        case CMD_REMOVE:
            RemoveCurrent();
            return true;
        case CMD_RECENT_CLEAR:
            AskToClear();
            return true;
        case CMD_HISTORY:
            ToggleHistory();
            return true;
        default:
            return false;
    }
}

// --- The menu ---

void CVMRRecentListBox::UpdateMenu() const {
    constexpr UINT kNone = static_cast<UINT>(-1);
    const tvMenu& menu = TheAppData().recentMenu;
    const bool hasRow = GetCurSel() >= 0;
    menu.EnableItem(CMD_OPEN, hasRow);
    menu.EnableItem(CMD_REMOVE, hasRow);
    menu.EnableItem(CMD_RECENT_CLEAR, GetCount() >= 1);
    SetMenuDefaultItem(menu.Handle(), hasRow ? UINT{CMD_OPEN} : kNone, FALSE);
}

// Where the user points to; for the keyboard too, if the mouse is over the list.
POINT CVMRRecentListBox::MenuPoint(LPARAM lParam) const {
    POINT point{static_cast<i16>(LOWORD(lParam)), static_cast<i16>(HIWORD(lParam))};
    if (point.x != -1 || point.y != -1) return point;
    const RECT place = ScreenPlace();
    GetCursorPos(&point);
    return PtInRect(&place, point) != FALSE ? point : POINT{place.left, place.top};
}

void CVMRRecentListBox::OnContextMenu(LPARAM lParam) {
    const tvMenu& menu = TheAppData().recentMenu;
    if (menu.Handle() == nullptr) return;
    UpdateMenu();
    SendMessageW(tvApp::MainWindow(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(m_hWnd), TRUE);
    const POINT point = MenuPoint(lParam);
    menu.TrackPopup(static_cast<int>(point.x), static_cast<int>(point.y), m_hWnd, 0);
}

// --- Messages ---

// What counts is the row where the button comes up.
void CVMRRecentListBox::OnButtonUp(LPARAM lParam) {
    if (GetCapture() != m_hWnd) return;
    ReleaseCapture();
    OpenRow(HitTest(static_cast<i16>(LOWORD(lParam)), static_cast<i16>(HIWORD(lParam))));
}

// True if the message is done with.
bool CVMRRecentListBox::OnOwnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_KEYDOWN:
            if (wParam == VK_SPACE || wParam == VK_RETURN) OpenRow(GetCurSel());
            return false;
        case WM_LBUTTONDOWN:
            SetCapture(m_hWnd);
            return false;
        case WM_LBUTTONUP:
            OnButtonUp(lParam);
            return false;
        case WM_CONTEXTMENU:
            OnContextMenu(lParam);
            return true;
        case WM_COMMAND:
            return OnCommand(LOWORD(wParam));
        default:
            return false;
    }
}

LRESULT CVMRRecentListBox::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (OnOwnMessage(message, wParam, lParam)) return 0;
    const LRESULT result = tvMListBox::WindowProc(message, wParam, lParam);
    const bool isEnter = message == WM_GETDLGCODE && wParam == VK_RETURN;
    return isEnter ? result | DLGC_WANTMESSAGE : result;
}
