// The commands of the detail pane.
#include <memory>

#include "database/clipboard.h"
#include "database/database.h"
#include "foundation/language.h"
#include "foundation/textops.h"
#include "platform/error.h"
#include "shell/app_data.h"
#include "shell/statics.h"
#include "toolkit/app.h"
#include "windows/command_ids.h"
#include "windows/database_path.h"
#include "windows/input_dlg.h"
#include "windows/pass_gen_dlg.h"
#include "windows/right_dlg.h"

namespace {

void Repaint(HWND window, UINT further = 0) {
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | further);
}

// The database has changed: what the bars show of that may differ.
void TellBars() {
    NotifyMainWindow(APPN_TOPBAR);
    NotifyMainWindow(APPN_STATUS, STATUS_REPAINT);
}

void Tell(StatusNotification kind, const tvstring& text) {
    NotifyMainWindow(APPN_STATUS, kind, AsArgument(text.c_str()));
}

// What asks for a field's new text.
void SetUpPrompt(CVMRInputDlg& dialog, u16 type) {
    dialog.m_PlainText = 1;
    dialog.m_AllowEmpty = 1;
    switch (type) {
        case VMRD_T_PROGRAM:
            dialog.m_Title = LangText(u"itemdetail", u"modifyapp_title");
            dialog.m_Info = LangText(u"itemdetail", u"modifyapp_info");
            dialog.m_ExtraCaption = LangText(u"global", u"browse");
            dialog.m_ExtraCommand = CMD_BROWSE;
            break;
        case VMRD_T_USERNAME:
            dialog.m_Title = LangText(u"itemdetail", u"modifyuname_title");
            dialog.m_Info = LangText(u"itemdetail", u"modifyuname_info");
            break;
        default:
            dialog.m_Title = LangText(u"itemdetail", u"rename_title");
            CleanCaption(dialog.m_Title, false, CUT_UNLESS_ONE);
            dialog.m_Info = LangText(u"itemdetail", u"rename_info");
            dialog.m_AllowEmpty = 0;
            break;
    }
}

}  // namespace

void CVMRRightDlg::OnCommand(u16 id) {
    switch (id) {
        case CMD_DETAIL_MODIFY:
            ModifyField();
            PlaceHover(true);
            break;
        case CMD_DETAIL_COPY:
            CopyField();
            break;
        case CMD_DETAIL_GO:
            LaunchField();
            PlaceHover(true);
            break;
        case CMD_DETAIL_SHOW_PASSWORD:
            if (m_hotField == VMRD_T_PASSWORD) TogglePasswords();
            break;
        case CMD_ADD:
            ModifyEntry(true);
            break;
        case CMD_RENAME:
            ModifyEntry(false);
            break;
        case CMD_MERGE:
            MergeEntries();
            break;
        default:
            break;
    }
}

// --- The field under the mouse ---

bool CVMRRightDlg::FieldUsable() const {
    if (m_Item == nullptr || m_hotField == 0) return false;
    const auto field = m_fields.find(m_hotField);
    if (field == m_fields.end()) return false;
    return m_hotField == VMRD_T_ITEMNAME || field->second.m_entry != nullptr;
}

// Null for the name, and if there is no such field.
VMRD_Entry* CVMRRightDlg::HotEntry() const {
    const auto field = m_fields.find(m_hotField);
    return field == m_fields.end() ? nullptr : field->second.m_entry;
}

const tvstring& CVMRRightDlg::HotText() const {
    return m_hotField == VMRD_T_ITEMNAME ? ElementText(m_Item) : ElementText(HotEntry());
}

// The field is kept: on its way over the menu the mouse may come to another.
void CVMRRightDlg::OnContextMenu(LPARAM lParam) {
    const POINT point{static_cast<i16>(LOWORD(lParam)), static_cast<i16>(HIWORD(lParam))};
    const CVMRAppData& data = TheAppData();
    if (data.detailMenu.Handle() == nullptr || !FieldUsable()) return;
    const u16 field = m_hotField;
    const bool hasText = !HotText().empty();
    data.detailMenu.SetItemText(
        CMD_DETAIL_SHOW_PASSWORD,
        LangText(u"itemdetail", data.bShowPassword != 0 ? u"hide_pwd" : u"show_pwd").c_str());
    data.detailMenu.EnableItem(CMD_DETAIL_MODIFY, true);
    data.detailMenu.EnableItem(CMD_DETAIL_COPY, field != VMRD_T_ITEMNAME && hasText);
    data.detailMenu.EnableItem(CMD_DETAIL_GO, field == VMRD_T_PROGRAM && hasText);
    data.detailMenu.EnableItem(CMD_DETAIL_SHOW_PASSWORD, field == VMRD_T_PASSWORD && hasText);
    const int id = data.detailMenu.TrackPopup(static_cast<int>(point.x), static_cast<int>(point.y), m_hWnd,
                                              TPM_RETURNCMD);
    if (id == 0) return;
    m_hotField = field;
    Send(WM_COMMAND, static_cast<WPARAM>(id));
}

// --- Modifying a field ---

// Fields are made anew while a dialog is open, by every paint.
void CVMRRightDlg::ModifyField() {
    if (!FieldUsable()) return;
    if (m_hotField == VMRD_T_PASSWORD) {
        ModifyPassword(HotEntry());
    } else {
        ModifyText(m_hotField, HotEntry());
    }
}

// While a dialog is open, a selection that the item list tells of late may bring another item into the pane:
// what is entered belongs to the one that was there. No row of the item list shows a password.
void CVMRRightDlg::ModifyPassword(VMRD_Entry* entry) {
    VMRD_Item* const item = m_Item;
    const auto dialog = std::make_unique<CVMRPassGenDlg>();
    dialog->m_Password = ElementText(entry);
    if (dialog->RunModal() != IDOK) return;
    TheDatabase().ModifyEntry(entry, dialog->m_Password, item);
    Repaint(m_hWnd);
    TellBars();
}

void CVMRRightDlg::ModifyText(u16 type, VMRD_Entry* entry) {
    const bool isName = type == VMRD_T_ITEMNAME;
    VMRD_Item* const item = m_Item;
    const auto dialog = std::make_unique<CVMRInputDlg>();
    SetUpPrompt(*dialog, type);
    dialog->m_Text = isName ? ElementText(item) : ElementText(entry);
    if (dialog->RunModal() != IDOK) return;
    VMRD_DB& database = TheDatabase();
    const bool isChanged = isName ? database.ModifyItem(item, dialog->m_Text, &database)
                                  : database.ModifyEntry(entry, dialog->m_Text, item);
    Repaint(m_hWnd);
    if (isChanged) NotifyMainWindow(APPN_ITEMCHANGED, 1);
    TellBars();
}

// --- The other commands of a field ---

// A clipboard that is not to be had is nothing to tell of.
void CVMRRightDlg::CopyField() const {
    if (!FieldUsable() || HotText().empty()) return;
    if (!platform::OpenClipboard(tvApp::MainWindow())) return;
    const bool isCopied = platform::EmptyClipboard() && PutClipboardText(HotText());
    platform::CloseClipboard();
    if (isCopied && m_hotField == VMRD_T_PASSWORD)
        Tell(STATUS_WARNING, LangText(u"itemdetail", u"warn_pwdcopied"));
}

// Whether it is a program, a document or an address is the shell's to find out. Only a program has the
// button, which keeps the keyboard though the mouse has gone on to another field.
void CVMRRightDlg::LaunchField() const {
    constexpr INT_PTR kLastFailure = 32;
    if (!FieldUsable() || m_hotField != VMRD_T_PROGRAM) return;
    const tvstring text = ElementText(HotEntry());
    if (text.empty()) return;
    platform::SetLastError(platform::kErrorNone);
    const HINSTANCE result =
        ShellExecuteW(nullptr, nullptr, Wide(text.c_str()), nullptr, nullptr, SW_SHOWNORMAL);
    const u32 error = platform::LastError();
    if (reinterpret_cast<INT_PTR>(result) > kLastFailure) return;
    Tell(STATUS_ERROR, WithErrorCode(LangText(u"itemdetail", u"err_launch", text), error));
}

// Of all items, for as long as the program runs.
void CVMRRightDlg::TogglePasswords() {
    u8& isShown = TheAppData().bShowPassword;
    isShown = isShown != 0 ? 0 : 1;
    RepaintNow();
    UpdateShowHover();
    PlaceHover(false);
}

// --- Additional entries ---

// False if the text is the one that was there.
bool CVMRRightDlg::TakeEntryText(VMRD_Entry* entry, const tvstring& text, VMRD_Item* item) {
    if (!TheDatabase().ModifyEntry(entry, text, item)) return false;
    Repaint(m_hWnd);
    NotifyMainWindow(APPN_STATUS, STATUS_REPAINT);
    NotifyMainWindow(APPN_TOPBAR);
    return true;
}

void CVMRRightDlg::ModifyEntry(bool add) {
    VMRD_Item* const item = m_Item;
    if (item == nullptr) return;
    VMRD_Entry* entry = nullptr;
    if (!add && (m_list.GetFirstSelected(&entry, true) < 0 || !IsRemovable(entry))) return;
    const auto dialog = std::make_unique<CVMRInputDlg>();
    dialog->m_PlainText = 1;
    dialog->m_MultiLine = 1;
    dialog->m_Title = LangText(u"itemdetail", u"modifyentry_title");
    dialog->m_Info = LangText(u"itemdetail", u"modifyentry_info");
    dialog->m_Text = ElementText(entry);
    if (dialog->RunModal() == 0 || dialog->m_Text.empty()) return;
    if (add && m_list.m_Source == item) {
        m_list.AddNew(dialog->m_Text);
    } else if (add) {
        TheDatabase().AddNewEntry(dialog->m_Text, item);
    } else if (!TakeEntryText(entry, dialog->m_Text, item)) {
        return;
    }
    NotifyMainWindow(APPN_ITEMCHANGED, 1);
    Send(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(m_list.Handle()), TRUE);
    Repaint(m_hWnd, RDW_ALLCHILDREN);
}
