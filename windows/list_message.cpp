#include "windows/list_message.h"

#include <algorithm>

#include "shell/app_data.h"
#include "shell/statics.h"
#include "windows/command_ids.h"

ListCounts CountsOf(const tvMListBox& list) {
    return {list.GetCount(), std::max(list.GetSelCount(), 0)};
}

namespace {

void FocusList(const CVMRBaseDlg& pane, const tvMListBox& list) {
    pane.Send(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(list.Handle()), TRUE);
}

}  // namespace

void EnableListButton(const CVMRBaseDlg& pane, const tvMListBox& list, const tvWnd& button, bool enabled) {
    if (!enabled && button.Handle() == GetFocus() && IsWindowVisible(list.Handle()) != FALSE)
        FocusList(pane, list);
    EnableWindow(button.Handle(), enabled ? TRUE : FALSE);
}

bool UpdateItemMenu(const tvMListBox* list, bool isEntryList) {
    const ListCounts counts = CountsOf(*list);
    return TheAppData().UpdateItemMenu({counts.rows, counts.selected, isEntryList});
}

void ForwardListCommand(const CVMRBaseDlg& pane, const tvMListBox& list, NotifyArgument id,
                        NotifyArgument window) {
    if (FromArgument<HWND__>(window) == list.Handle()) PostMessageW(pane.Handle(), WM_COMMAND, LOWORD(id), 0);
}

namespace {

// --- The menu ---

// Frame and scroll bar included.
RECT PlaceOf(const tvMListBox& list) {
    RECT place{};
    GetWindowRect(tvScrollBox::OuterOf(list.Handle()), &place);
    return place;
}

// Where the user points to; for the keyboard too, if the mouse is over the list.
POINT MenuPoint(LPARAM lParam, bool isFromKeyboard, const RECT& place) {
    POINT point{static_cast<i16>(LOWORD(lParam)), static_cast<i16>(HIWORD(lParam))};
    if (!isFromKeyboard) return point;
    GetCursorPos(&point);
    return PtInRect(&place, point) != FALSE ? point : POINT{place.left, place.top};
}

// The item list has a button for its menu, where the keyboard finds it.
void OnContextMenu(const CVMRBaseDlg& pane, LPARAM lParam, const tvMListBox& list, bool isEntryList) {
    if (IsWindowVisible(list.Handle()) == FALSE) return;
    const bool isFromKeyboard = static_cast<u32>(lParam) == static_cast<u32>(-1);
    if (isFromKeyboard && !isEntryList) {
        PostMessageW(pane.Handle(), WM_COMMAND, CMD_MAIN_MENU, 0);
        return;
    }
    const RECT place = PlaceOf(list);
    const POINT point = MenuPoint(lParam, isFromKeyboard, place);
    if (PtInRect(&place, point) == FALSE || !UpdateItemMenu(&list, isEntryList)) return;
    TheAppData().itemMenu.TrackPopup(static_cast<int>(point.x), static_cast<int>(point.y), pane.Handle(), 0);
}

// --- Commands ---

// The other pane follows the selection of the item list.
void OnSelection(CVMRBaseDlg& pane, const CVMRItemListBox& list) {
    pane.OnUpdateState();
    VMRD_Item* item = nullptr;
    list.GetFirstSelected(&item, true);
    NotifyMainWindow(APPN_SHOWITEM, AsArgument(static_cast<VMRD_Element*>(item)));
    list.TellStatus();
}
void OnSelection(CVMRBaseDlg& pane, const CVMREntryListBox&) {
    pane.OnUpdateState();
}

void Modify(const CVMRBaseDlg&, const CVMRItemListBox&) {
    NotifyMainWindow(APPN_RENAMEITEM);
}
// What modifies an entry is the pane's own.
void Modify(const CVMRBaseDlg&, const CVMREntryListBox&) {}

void OnDoubleClick(const CVMRBaseDlg& pane, const CVMRItemListBox& list) {
    Modify(pane, list);
}
void OnDoubleClick(const CVMRBaseDlg& pane, const CVMREntryListBox&) {
    PostMessageW(pane.Handle(), WM_COMMAND, CMD_RENAME, 0);
}

void AddNew(const CVMRBaseDlg& pane, CVMRItemListBox& list) {
    list.AddNew();
    FocusList(pane, list);
}
// What adds an entry is the pane's own.
void AddNew(const CVMRBaseDlg&, CVMREntryListBox&) {}

// The pane of entries lays its content out by the list.
void RepaintPane(const CVMRBaseDlg&, const CVMRItemListBox&) {}
void RepaintPane(const CVMRBaseDlg& pane, const CVMREntryListBox&) {
    RedrawWindow(pane.Handle(), nullptr, nullptr, RDW_INVALIDATE);
}

template <typename List>
void Remove(const CVMRBaseDlg& pane, List& list) {
    list.RemoveSelected();
    RepaintPane(pane, list);
}

template <typename List>
void Paste(const CVMRBaseDlg& pane, List& list) {
    list.PasteFromClipboard();
    RepaintPane(pane, list);
    FocusList(pane, list);
}

template <typename List>
void OnNotice(CVMRBaseDlg& pane, u16 code, const List& list) {
    if (code == LBN_SELCHANGE) OnSelection(pane, list);
    if (code == LBN_DBLCLK) OnDoubleClick(pane, list);
}

template <typename List>
void OnCommand(CVMRBaseDlg& pane, WPARAM wParam, List& list) {
    switch (LOWORD(wParam)) {
        case kItemListId:
            return OnNotice(pane, HIWORD(wParam), list);
        case CMD_MOVE_UP:
        case CMD_MOVE_DOWN:
            return list.MoveSelected(LOWORD(wParam) == CMD_MOVE_UP);
        case CMD_REMOVE:
            return Remove(pane, list);
        case CMD_ADD:
            return AddNew(pane, list);
        case CMD_RENAME:
            return Modify(pane, list);
        case CMD_COPY:
            list.CopySelection();
            return;
        case CMD_CUT:
            if (list.CopySelection()) Remove(pane, list);
            return;
        case CMD_PASTE:
            return Paste(pane, list);
        case CMD_SELECT_ALL:
            return list.SelectAll();
        case CMD_DESELECT_ALL:
            return list.DeselectAll();
        case CMD_INVERT_SELECTION:
            return list.InvertSelection();
        default:
            return;
    }
}

}  // namespace

template <typename TOwner, typename TElement>
bool HandleListMessage(CVMRBaseDlg* pane, UINT message, WPARAM wParam, LPARAM lParam,
                       CVMRListBox<TOwner, TElement>* list, bool isEntryList) {
    if (message == WM_CONTEXTMENU) OnContextMenu(*pane, lParam, *list, isEntryList);
    if (message == WM_COMMAND) OnCommand(*pane, wParam, *list);
    return false;
}

template bool HandleListMessage(CVMRBaseDlg*, UINT, WPARAM, LPARAM, CVMRItemListBox*, bool);
template bool HandleListMessage(CVMRBaseDlg*, UINT, WPARAM, LPARAM, CVMREntryListBox*, bool);
