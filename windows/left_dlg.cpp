#include "windows/left_dlg.h"

#include <algorithm>

#include "database/database.h"
#include "foundation/language.h"
#include "foundation/textops.h"
#include "shell/app_data.h"
#include "shell/statics.h"
#include "toolkit/rect.h"
#include "windows/command_ids.h"
#include "windows/dialog_layout.h"
#include "windows/list_message.h"
#include "windows/set_control.h"

namespace {

constexpr u16 kSortId = 2003;
constexpr u16 kFilterId = 2004;
constexpr i32 kButtonHeight = 24;
constexpr int kGap = 8;      // between controls of a row, and at the left
constexpr int kRowGap = 10;  // between the rows, and above and below
constexpr int kColumns = 5;  // of which the order takes two

RECT PlaceOnScreen(const tvWnd& window) {
    RECT rect{};
    GetWindowRect(window.Handle(), &rect);
    return rect;
}

}  // namespace

CVMRLeftDlg::CVMRLeftDlg()
    : m_menuBtn(CVMRBaseButton::kKeepWidth, kButtonHeight, 0, GLYPH_DOTS),
      m_upBtn(CVMRBaseButton::kKeepWidth, kButtonHeight, 0, GLYPH_UP),
      m_downBtn(CVMRBaseButton::kKeepWidth, kButtonHeight, 0, GLYPH_DOWN),
      m_removeBtn(CVMRBaseButton::kKeepWidth, kButtonHeight, 0, GLYPH_BIN),
      m_addBtn(CVMRBaseButton::kKeepWidth, kButtonHeight, 0, GLYPH_NONE) {}

CVMRLeftDlg::~CVMRLeftDlg() {
    Detach(Window::Destroy);
}

// --- Opening ---

void CVMRLeftDlg::BuildTemplate() {
    if (HasTemplate()) return;
    TemplateBegin(200, 218, DialogKind::Child, 8);
    AddControl(ATOM_COMBOBOX, kSortId, 7, 7, 69, 68)->style |= CBS_DROPDOWNLIST | WS_TABSTOP;
    AddControl(ATOM_EDIT, kFilterId, 94, 7, 99, 12);
    AddControl(ATOM_LISTBOX, kItemListId, 7, 33, 186, 134)->style |=
        LBS_EXTENDEDSEL | LBS_NOINTEGRALHEIGHT | LBS_OWNERDRAWVARIABLE;
    AddControl(ATOM_BUTTON, CMD_MAIN_MENU, 7, 171, 29, 16);
    AddControl(ATOM_BUTTON, CMD_MOVE_UP, 39, 171, 29, 16);
    AddControl(ATOM_BUTTON, CMD_MOVE_DOWN, 71, 171, 29, 16);
    AddControl(ATOM_BUTTON, CMD_REMOVE, 103, 171, 29, 16);
    AddControl(ATOM_BUTTON, CMD_ADD, 135, 171, 58, 16);
}

void CVMRLeftDlg::OnSubclassControls() {
    m_sortCombo.SubclassDlgItem(m_hWnd, kSortId);
    m_filterEdit.SubclassDlgItem(m_hWnd, kFilterId);
    m_filterEdit.KeepSecret();  // passwords are searched for as well
    m_list.SubclassDlgItem(m_hWnd, kItemListId);
    m_menuBtn.SubclassDlgItem(m_hWnd, CMD_MAIN_MENU);
    m_upBtn.SubclassDlgItem(m_hWnd, CMD_MOVE_UP);
    m_downBtn.SubclassDlgItem(m_hWnd, CMD_MOVE_DOWN);
    m_removeBtn.SubclassDlgItem(m_hWnd, CMD_REMOVE);
    m_addBtn.SubclassDlgItem(m_hWnd, CMD_ADD);
}

bool CVMRLeftDlg::OnInitDialog() {
    CVMRBaseDlg::OnInitDialog();
    const auto sort = static_cast<int>(LoadStoreSort(LoadStore::Load, SortNone));
    m_sortCombo.Send(CB_SETCURSEL, static_cast<WPARAM>(sort));
    ShowDatabase();
    m_list.SetView(&sort, nullptr);
    return true;
}

// --- Texts and states ---

void CVMRLeftDlg::OnUpdateText() {
    SetText(m_upBtn, u"global", u"moveup");
    SetText(m_downBtn, u"global", u"movedown");
    SetText(m_removeBtn, u"global", u"remove");
    tvstring add = LangText(u"global", u"add");
    CleanCaption(add, false, CUT_UNLESS_ONE);
    SetText(m_addBtn, add);

    const LRESULT selected = m_sortCombo.Send(CB_GETCURSEL);
    m_sortCombo.Send(CB_RESETCONTENT);
    const tvstring orders[] = {LangText(u"itemlist", u"sort_none"), LangText(u"itemlist", u"sort_az"),
                               LangText(u"itemlist", u"sort_za"), LangText(u"itemlist", u"sort_newold"),
                               LangText(u"itemlist", u"sort_oldnew")};
    for (const tvstring& order : orders)
        m_sortCombo.Send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(order.c_str()));
    m_sortCombo.Send(CB_SETCURSEL, static_cast<WPARAM>(selected));
    MakeSearchTip();
}

// A search that leaves items out is marked.
void CVMRLeftDlg::MakeSearchTip() {
    tvstring tip = LangText(u"search", u"tip");
    if (TheAppData().filterFlag == FilterWithout) tip.insert(0, u"! ");
    m_filterEdit.SetCue(tip, true);
}

void CVMRLeftDlg::OnUpdateState() {
    const auto [rows, selected] = CountsOf(m_list);
    const bool canMove = selected > 0 && selected < rows;
    EnableListButton(*this, m_list, m_upBtn, canMove);
    EnableListButton(*this, m_list, m_downBtn, canMove);
    EnableListButton(*this, m_list, m_removeBtn, selected >= 1);
}

// --- Layout ---

// The pane ends at the splitter: there is no room at the right.
void CVMRLeftDlg::OnLayout() {
    RECT room{};
    GetClientRect(m_hWnd, &room);
    room = {room.left + kGap, room.top + kRowGap, room.right, room.bottom - kRowGap};

    const int height = Height(PlaceOnScreen(m_sortCombo));
    const int order = Width(room) / kColumns * 2;
    Place(m_sortCombo, BoxAt(room.left, room.top, order - kGap, height));
    Place(m_filterEdit, {room.left + order, room.top, room.right, room.top + height});

    const RECT button = PlaceOnScreen(m_menuBtn);
    LONG left = room.left;
    const LONG top = room.bottom - Height(button);
    for (const CVMRBaseButton* each : {&m_menuBtn, &m_upBtn, &m_downBtn, &m_removeBtn}) {
        Place(*each, BoxAt(left, top, Width(button), Height(button)));
        left += Width(button) + kGap;
    }
    Place(m_addBtn, {left, top, room.right, room.bottom});
    Place(m_list, {room.left, room.top + height + kRowGap, room.right, top - kRowGap});
}

// --- The list ---

void CVMRLeftDlg::ShowDatabase() {
    m_list.m_Source = &TheDatabase();
    m_list.Refresh();
}

void CVMRLeftDlg::DetachList() {
    m_list.m_Source = nullptr;
    m_list.Refresh();
    m_filterEdit.Wipe();  // tells nobody
    SetText(m_filterEdit, {});
}

void CVMRLeftDlg::AttachList(int row, bool focus) {
    ShowDatabase();
    if (row >= 0 && row < m_list.GetCount()) {
        m_list.DeselectAll();
        m_list.SetSel(row, true);
    }
    if (focus) Send(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(m_list.Handle()), TRUE);
}

// Without order and search a row shows its element's new text once it is painted.
void CVMRLeftDlg::OnItemChanged(bool sortOnly) {
    if (SortChoice() == SortNone && SearchText().empty()) {
        RedrawWindow(m_list.Handle(), nullptr, nullptr, RDW_INVALIDATE);
    } else if (sortOnly) {
        m_list.Resort();
    } else {
        ShowDatabase();
    }
}

void CVMRLeftDlg::OnFilterChanged() {
    MakeSearchTip();
    InvalidateRect(m_filterEdit.Handle(), nullptr, TRUE);
    ShowDatabase();
}

void CVMRLeftDlg::OnAppNotify(i32 code, NotifyArgument a, NotifyArgument b, NotifyArgument c) {
    if (!IsAttached()) return;
    switch (code) {
        case APPN_LANGUAGE:
            OnUpdateText();
            if (m_list.GetCount() == 0)
                RedrawWindow(m_list.Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE);
            break;
        case APPN_ITEMCHANGED:
            OnItemChanged(a != 0);
            break;
        case APPN_FILTERCHANGED:
            OnFilterChanged();
            break;
        case APPN_FORWARDCMD:
            ForwardListCommand(*this, m_list, a, b);
            break;
        case APPN_DBLIST:
            if (a != 0) {
                DetachList();
            } else {
                AttachList(static_cast<int>(b), c != 0);
            }
            break;
        case APPN_ROWSCHANGED:
            if (FromArgument<VMRD_Object>(a) == static_cast<VMRD_Object*>(&TheDatabase()))
                m_list.SelectElements(FromArgument<ElementArray>(b), c == 0);
            break;
        default:
            break;
    }
}

// --- Messages ---

int CVMRLeftDlg::SortChoice() const {
    return static_cast<int>(m_sortCombo.Send(CB_GETCURSEL));
}

tvstring CVMRLeftDlg::SearchText() const {
    tvstring text(static_cast<std::size_t>(GetWindowTextLengthW(m_filterEdit.Handle())), u'\0');
    const int length =
        GetWindowTextW(m_filterEdit.Handle(), Wide(text.data()), static_cast<int>(text.size()) + 1);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

bool CVMRLeftDlg::RefusesMove() const {
    if (SortChoice() == SortNone && SearchText().empty()) return false;
    const tvstring text = LangText(u"itemlist", u"err_hassortsearch");
    NotifyMainWindow(APPN_STATUS, STATUS_ERROR, AsArgument(text.c_str()));
    return true;
}

void CVMRLeftDlg::OpenMenu() {
    if (!UpdateItemMenu(&m_list, false)) return;
    const RECT button = PlaceOnScreen(m_menuBtn);
    TheAppData().itemMenu.TrackPopup(static_cast<int>(button.left), static_cast<int>(button.top), m_hWnd,
                                     TPM_BOTTOMALIGN);
}

void CVMRLeftDlg::StoreSort() const {
    LoadStoreSort(LoadStore::Store, static_cast<u32>(std::max(SortChoice(), 0)));
}

void CVMRLeftDlg::OnCommand(WPARAM wParam) {
    const WORD code = HIWORD(wParam);
    switch (LOWORD(wParam)) {
        case kSortId:
            if (code == CBN_SELCHANGE) {
                const int sort = SortModeOf(SortChoice());
                m_list.SetView(&sort, nullptr);
            }
            break;
        case kFilterId:
            if (code == EN_CHANGE) {
                const tvstring text = SearchText();
                m_list.SetView(nullptr, &text);
            }
            break;
        case CMD_MAIN_MENU:
            OpenMenu();
            break;
        case CMD_MERGE:
            MergeItems();
            break;
        default:
            break;
    }
}

LRESULT CVMRLeftDlg::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    // The combo box has another window, which stands nowhere yet.
    if (message == WM_TVCOMBOBOX_RECREATED()) {
        OnLayout();
        return 0;
    }
    const bool isMove =
        message == WM_COMMAND && (LOWORD(wParam) == CMD_MOVE_UP || LOWORD(wParam) == CMD_MOVE_DOWN);
    if (isMove && RefusesMove()) return CVMRBaseDlg::WindowProc(message, wParam, lParam);
    HandleListMessage(this, message, wParam, lParam, &m_list, false);
    if (message == WM_DESTROY) StoreSort();
    if (message == WM_COMMAND) OnCommand(wParam);
    return CVMRBaseDlg::WindowProc(message, wParam, lParam);
}
