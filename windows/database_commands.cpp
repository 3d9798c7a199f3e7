// The commands of the database: what is asked, done and told, in its order.
#include "database/container.h"
#include "database/database.h"
#include "database/export.h"
#include "foundation/language.h"
#include "platform/error.h"
#include "shell/app_data.h"
#include "shell/statics.h"
#include "toolkit/message_box.h"
#include "windows/database_path.h"
#include "windows/file_dialogs.h"
#include "windows/main_dlg.h"

// --- Their parts ---

void CVMRDlg::Tell(StatusNotification kind, const tvstring& text) {
    OnAppNotify(APPN_STATUS, kind, AsArgument(text.c_str()), 0);
}

void CVMRDlg::RefreshStatus() {
    OnAppNotify(APPN_STATUS, STATUS_REPAINT, 0, 0);
}

// The rows of the list point into the database: they go before it is replaced.
void CVMRDlg::DetachList() {
    OnAppNotify(APPN_DBLIST, 1, 0, 0);
}

void CVMRDlg::AttachList() {
    OnAppNotify(APPN_DBLIST, 0, 0, 1);
}

void CVMRDlg::AddToRecent() {
    VMRD_DB& database = TheDatabase();
    TheAppData().AddRecent(database.m_Path, database.DisplayName());
}

// --- Create, open, close ---

// Nothing is written before the first Save.
void CVMRDlg::NewDatabase(u16) {
    const tvstring name = PromptDatabaseName(nullptr);
    if (name.empty()) return;
    DetachList();
    TheDatabase().New(name);
    AttachList();
    UpdatePanes();
    OnAppNotify(APPN_TOPBAR, 0, 0, 0);
    Tell(STATUS_INFORMATION, LangText(u"file", u"info_newcreate"));
}

// The file is let go of while the dialog is open, so that the user can choose the same one.
void CVMRDlg::AskAndOpen(u16) {
    VMRD_DB& database = TheDatabase();
    database.m_File.Close();
    tvFileDialog& dialog = GetFileDialog(FileDialogUse::OpenDatabase);
    if (dialog.Show()) OpenDatabase(dialog.GetPath().c_str(), Quiet::No);
    OpenDatabaseFile(database.m_File, database.m_Path, false);
}

void CVMRDlg::OpenDatabase(const char16_t* path, Quiet quiet) {
    if (path == nullptr) return;
    const tvstring file(path);
    tvhandle probe;
    const i32 kind = OpenDatabaseFile(probe, file, false);
    const u32 probeError = platform::LastError();
    probe.Close();
    if (kind == kCannotOpen && quiet == Quiet::No)
        Tell(STATUS_ERROR, WithErrorCode(LangText(u"file", u"err_openfail", file), probeError));
    if (kind == kCannotOpen || kind == kNotDatabase) return;
    const tvstring password = PromptOpenPassword(file);
    if (password.empty()) return;

    const bool isOld = kind == kOldDatabase;
    DetachList();
    TheDatabase().Close();
    const bool isOpen = TheDatabase().Open(file, password);
    const u32 error = platform::LastError();
    if (isOpen) {
        AfterOpened(file, isOld);
    } else {
        // The panes stay as they were; the next command sets them right.
        Tell(STATUS_ERROR, WithErrorCode(LangText(u"file", u"err_openfail", file), error));
    }
    OnAppNotify(APPN_TOPBAR, 0, 0, 0);
    if (TheAppData().bHistory != 0 && !isOld) OnAppNotify(APPN_START, 0, 0, 0);
    if (isOpen && isOld) tvMessageBox::Show(m_hWnd, LangText(u"file", u"warn_oldver"), MB_ICONWARNING, {});
}

void CVMRDlg::AfterOpened(const tvstring& path, bool isOld) {
    AttachList();
    OnAppNotify(APPN_STATUS, STATUS_INFORMATION, 0, 0);
    if (TheAppData().bHistory != 0 && !isOld) TheAppData().AddRecent(path, TheDatabase().DisplayName());
    UpdatePanes();
}

void CVMRDlg::CloseDatabase(u16) {
    DetachList();
    TheDatabase().Reset();
    TheDatabase().m_File.Close();
    UpdatePanes();
    OnAppNotify(APPN_TOPBAR, 0, 0, 0);
    RefreshStatus();
}

// --- Save ---

void CVMRDlg::SaveDatabase(u16) {
    VMRD_DB& database = TheDatabase();
    if (!IsAbsolutePath(database.m_Path)) {
        const tvstring path = AskForSavePath();
        if (path.empty()) return;
        database.SetPath(path);
    }
    if (!database.HasMasterPassword()) {
        const tvstring password = PromptNewPassword();
        if (password.empty()) return;
        database.SetMasterPassword(password);
    }
    if (!database.Save()) {
        const u32 error = platform::LastError();
        Tell(STATUS_ERROR, WithErrorCode(LangText(u"file", u"err_savefail", database.m_Path), error));
        return;
    }
    const bool isRecorded = TheAppData().bHistory != 0;
    if (isRecorded) AddToRecent();
    OnAppNotify(APPN_TOPBAR, 0, 0, 0);
    if (isRecorded) OnAppNotify(APPN_START, 0, 0, 0);
    RefreshStatus();
}

// Always asks for a master password. Nothing has changed before both are there.
void CVMRDlg::SaveDatabaseAs(u16) {
    const tvstring path = AskForSavePath();
    if (path.empty()) return;
    const tvstring password = PromptNewPassword();
    if (password.empty()) return;
    TheDatabase().SetPath(path);
    TheDatabase().SetMasterPassword(password);
    PostMessageW(m_hWnd, WM_COMMAND, CMD_SAVE, 0);
}

// Nothing is said of the result.
// NOLINTNEXTLINE(readability-convert-member-functions-to-static): all commands are members, for the one table
void CVMRDlg::ExportDatabase(u16) {
    tvFileDialog& dialog = GetFileDialog(FileDialogUse::Export);
    if (!dialog.Show()) return;
    const tvstring path = dialog.GetPath();
    TheDatabase().Export(path, IsHtmlPath(path));
}

// --- Change ---

void CVMRDlg::RenameDatabase(u16) {
    const tvstring name = PromptDatabaseName(&TheDatabase().m_Name);
    if (name.empty()) return;
    TheDatabase().SetName(name);
    OnAppNotify(APPN_TOPBAR, 0, 0, 0);
    RefreshStatus();
}

// The same master password again is no change, and nothing is said.
void CVMRDlg::ChangePassword(u16) {
    const tvstring password = PromptNewPassword();
    if (password.empty() || !TheDatabase().SetMasterPassword(password)) return;
    OnAppNotify(APPN_TOPBAR, 0, 0, 0);
    Tell(STATUS_INFORMATION, LangText(u"file", u"info_pwdset"));
}

// What was taken back is selected, so that the user sees what it was.
void CVMRDlg::UndoChange(u16) {
    VMRD_DB& database = TheDatabase();
    ElementArray changed;
    ElementArray below;
    const int result = database.Undo(&changed, &below);
    if (result > UNDO_NOTHING) {
        OnAppNotify(APPN_DBLIST, 0, -1, 0);
        OnAppNotify(APPN_TOPBAR, 0, 0, 0);
        RefreshStatus();
    }
    if (!changed.empty()) {
        OnAppNotify(APPN_ROWSCHANGED, AsArgument(static_cast<VMRD_Object*>(&database)), AsArgument(&changed),
                    0);
    }
    if (!changed.empty() && !below.empty()) {
        VMRD_Element* owner = changed.front();
        OnAppNotify(APPN_SHOWITEM, AsArgument(owner), 0, 0);
        OnAppNotify(APPN_ROWSCHANGED, AsArgument(static_cast<VMRD_Object*>(owner)), AsArgument(&below), 0);
    }
    if (result == UNDO_DONE_MASTERPWD) Tell(STATUS_WARNING, LangText(u"file", u"warn_pwdundo"));
}
