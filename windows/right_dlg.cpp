#include "windows/right_dlg.h"

#include <algorithm>

#include "database/database.h"
#include "foundation/language.h"
#include "shell/app_data.h"
#include "shell/statics.h"
#include "toolkit/control_state.h"
#include "toolkit/rect.h"
#include "toolkit/theme.h"
#include "windows/command_ids.h"
#include "windows/dialog_layout.h"
#include "windows/list_message.h"
#include "windows/set_control.h"

namespace {

constexpr u32 kModifyImage = 108;
constexpr u32 kCopyImage = 109;
constexpr u32 kGoImage = 110;
constexpr u32 kShowImage = 111;
constexpr i32 kWholeWidth = 100;

// The list has a menu of its own, which the keyboard means wherever the mouse is.
bool IsMenuOfList(WPARAM wParam, LPARAM lParam, const tvMListBox& list) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): a message's argument
    const auto* window = reinterpret_cast<HWND>(wParam);
    return static_cast<u32>(lParam) == static_cast<u32>(-1) || window == list.Handle() ||
           window == tvScrollBox::OuterOf(list.Handle());
}

bool IsInDatabase(const VMRD_Item* wanted) {
    const ItemElement* item = TheDatabase().m_Head;
    while (item != nullptr && item != wanted)
        item = item->m_Next;
    return item != nullptr;
}

}  // namespace

CVMRRightDlg::CVMRRightDlg()
    : m_modifyHover(kModifyImage),
      m_showHover(kShowImage),
      m_goHover(kGoImage),
      m_copyHover(kCopyImage),
      m_addBtn(kWholeWidth),
      m_removeBtn(kWholeWidth),
      m_modifyBtn(kWholeWidth),
      m_upBtn(kWholeWidth),
      m_downBtn(kWholeWidth) {}

CVMRRightDlg::~CVMRRightDlg() {
    Detach(Window::Destroy);
}

void CVMRRightDlg::OnSubclassed() {
    CVMRBaseDlg::OnSubclassed();
    m_tracking = 0;
    m_Item = nullptr;
    m_hotField = 0;
}

// --- The template ---

void CVMRRightDlg::BuildTemplate() {
    if (HasTemplate()) return;
    TemplateBegin(311, 285, DialogKind::Child, 10);
    AddControl(ATOM_BUTTON, CMD_DETAIL_MODIFY, 209, 38, 29, 16);
    AddControl(ATOM_BUTTON, CMD_DETAIL_COPY, 242, 38, 29, 16);
    AddControl(ATOM_BUTTON, CMD_DETAIL_GO, 275, 38, 29, 16);
    AddControl(ATOM_BUTTON, CMD_DETAIL_SHOW_PASSWORD, 275, 60, 29, 16);
    for (int place = 0; place < 4; ++place)
        Item(place)->style &= ~static_cast<u32>(WS_TABSTOP);
    AddControl(ATOM_LISTBOX, kItemListId, 7, 156, 229, 83)->style |=
        LBS_EXTENDEDSEL | LBS_NOINTEGRALHEIGHT | LBS_OWNERDRAWVARIABLE;
    AddControl(ATOM_BUTTON, CMD_ADD, 246, 157, 58, 16);
    AddControl(ATOM_BUTTON, CMD_REMOVE, 246, 175, 58, 16);
    AddControl(ATOM_BUTTON, CMD_RENAME, 246, 193, 58, 16);
    AddControl(ATOM_BUTTON, CMD_MOVE_UP, 246, 214, 58, 16);
    AddControl(ATOM_BUTTON, CMD_MOVE_DOWN, 246, 234, 58, 16);
}

void CVMRRightDlg::OnSubclassControls() {
    m_modifyHover.SubclassDlgItem(m_hWnd, CMD_DETAIL_MODIFY);
    m_showHover.SubclassDlgItem(m_hWnd, CMD_DETAIL_SHOW_PASSWORD);
    m_goHover.SubclassDlgItem(m_hWnd, CMD_DETAIL_GO);
    m_copyHover.SubclassDlgItem(m_hWnd, CMD_DETAIL_COPY);
    m_list.SubclassDlgItem(m_hWnd, kItemListId);
    m_addBtn.SubclassDlgItem(m_hWnd, CMD_ADD);
    m_removeBtn.SubclassDlgItem(m_hWnd, CMD_REMOVE);
    m_modifyBtn.SubclassDlgItem(m_hWnd, CMD_RENAME);
    m_upBtn.SubclassDlgItem(m_hWnd, CMD_MOVE_UP);
    m_downBtn.SubclassDlgItem(m_hWnd, CMD_MOVE_DOWN);
}

bool CVMRRightDlg::OnInitDialog() {
    const bool result = CVMRBaseDlg::OnInitDialog();
    OnAppNotify(APPN_SHOWITEM, 0, 0, 0);
    return result;
}

void CVMRRightDlg::OnUpdateText() {
    RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE);
    SetText(m_modifyHover, u"global", u"modify");
    SetText(m_copyHover, u"global", u"copy");
    SetText(m_goHover, u"global", u"go");
    UpdateShowHover();
    SetText(m_addBtn, u"global", u"add");
    SetText(m_removeBtn, u"global", u"remove");
    SetText(m_modifyBtn, u"global", u"modify");
    SetText(m_upBtn, u"global", u"moveup");
    SetText(m_downBtn, u"global", u"movedown");
}

void CVMRRightDlg::OnUpdateState() {
    const auto [rows, selected] = CountsOf(m_list);
    const bool canMove = selected > 0 && selected < rows;
    EnableListButton(*this, m_list, m_removeBtn, selected >= 1);
    EnableListButton(*this, m_list, m_modifyBtn, selected == 1);
    EnableListButton(*this, m_list, m_upBtn, canMove);
    EnableListButton(*this, m_list, m_downBtn, canMove);
}

// --- Layout ---

// Below what is painted, of whole rows.
void CVMRRightDlg::PlaceList(const RECT& room, LONG top) {
    const int row = m_list.CalcItemHeight(0);
    const int rows = std::max(static_cast<int>(room.bottom - top) / row, 1);
    const int button = Width(PlaceInParent(m_addBtn.Handle()));
    Place(m_list, BoxAt(room.left, top, Width(room) - button - TheTheme().m_gapX, rows * row));
}

// Where the list begins is known from painting.
void CVMRRightDlg::OnLayout() {
    if (m_Item == nullptr) return;
    if (!m_fields.contains(VMRD_T_ADDITION)) MeasureFields();
    const RECT room = ContentOf(ClientOf(m_hWnd));
    LONG top = m_fields[VMRD_T_ADDITION].m_hitRect.bottom + TheTheme().m_borderWidth;
    PlaceList(room, top);
    const RECT size = ClientOf(m_addBtn.Handle());
    for (const tvWnd* button : {&m_addBtn, &m_removeBtn, &m_modifyBtn, &m_upBtn, &m_downBtn}) {
        Place(*button, BoxAt(room.right - Width(size), top, Width(size), Height(size)));
        top += Height(size) + TheTheme().m_gapY;
    }
}

// --- Notifications ---

void CVMRRightDlg::OnAppNotify(i32 code, NotifyArgument a, NotifyArgument b, NotifyArgument c) {
    if (!IsAttached()) return;
    switch (code) {
        case APPN_LANGUAGE:
            OnUpdateText();
            break;
        case APPN_SHOWITEM:
            ShowItem(LinkedItem(FromArgument<VMRD_Element>(a)));
            break;
        case APPN_DBLIST:
            DropLostItem(a != 0);
            break;
        case APPN_RENAMEITEM:
            if (m_Item == nullptr) break;
            m_hotField = VMRD_T_ITEMNAME;
            PostMessageW(m_hWnd, WM_COMMAND, CMD_DETAIL_MODIFY, 0);
            break;
        case APPN_FORWARDCMD:
            ForwardListCommand(*this, m_list, a, b);
            break;
        case APPN_ROWSCHANGED:
            OnRowsChanged(a, b, c);
            break;
        default:
            break;
    }
}

void CVMRRightDlg::RepaintNow() const {
    RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
}

// The fields of the item before are forgotten even if nothing can be painted now: their entries may be gone.
void CVMRRightDlg::ShowItem(VMRD_Item* item) {
    m_Item = item;
    m_fields.clear();
    m_list.m_Source = item;
    m_list.Refresh();
    PlaceHover(true);
    RepaintNow();
    ShowList();
    OnUpdateState();
    OnLayout();
}

// The list comes last: if it has the keyboard and goes, that is not given to a button that goes as well.
void CVMRRightDlg::ShowList() const {
    const tvWnd* const windows[] = {&m_addBtn, &m_removeBtn, &m_modifyBtn, &m_upBtn, &m_downBtn, &m_list};
    for (const tvWnd* window : windows)
        ShowIf(*window, m_Item != nullptr);
}

// The database is about to be replaced, or its items have changed: the one shown may be destroyed before the
// item list tells of another.
void CVMRRightDlg::DropLostItem(bool isDetached) {
    if (m_Item != nullptr && (isDetached || !IsInDatabase(m_Item))) ShowItem(nullptr);
}

void CVMRRightDlg::OnRowsChanged(NotifyArgument owner, NotifyArgument elements, NotifyArgument adds) {
    if (m_Item == nullptr || FromArgument<VMRD_Object>(owner) != static_cast<VMRD_Object*>(m_Item)) return;
    m_list.SelectElements(FromArgument<ElementArray>(elements), adds == 0);
}

// --- Messages ---

LRESULT CVMRRightDlg::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    HandleListMessage(this, message, wParam, lParam, &m_list, true);
    switch (message) {
        case WM_MOUSEMOVE:
            OnMouseMove();
            break;
        case WM_MOUSELEAVE:
            m_tracking = 0;
            PlaceHover(false);
            break;
        case WM_LBUTTONDBLCLK:
            if (m_Item != nullptr && m_fields.contains(m_hotField))
                PostMessageW(m_hWnd, WM_COMMAND, CMD_DETAIL_MODIFY, 0);
            break;
        case WM_CONTEXTMENU:
            if (!IsMenuOfList(wParam, lParam, m_list)) OnContextMenu(lParam);
            return 0;
        case WM_COMMAND:
            OnCommand(LOWORD(wParam));
            break;
        default:
            break;
    }
    const LRESULT result = CVMRBaseDlg::WindowProc(message, wParam, lParam);
    if (message == WM_SETFONT && m_initDone) {
        RepaintNow();
        OnLayout();
    }
    return result;
}
