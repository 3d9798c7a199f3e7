// The dialogs that ask for texts, and the one that tells what the program is.
#include "tests/app/other_language.h"
#include "tests/golden/picture_stage.h"
#include "windows/command_ids.h"
#include "windows/pass_gen_dlg.h"

namespace {

constexpr int kFirstEdit = 2014;
constexpr int kSecondRadio = 2008;

HWND Inside(HWND dialog, int id) {
    return tvWnd::FindDescendant(dialog, id);
}

}  // namespace

// --- The database ---

TEST_P(WindowPictures, NewDatabase) {
    OpenMain();
    TakeDialogOf(CMD_NEW, "new-database");
}

TEST_P(WindowPictures, RenameDatabase) {
    OpenDatabase();
    TakeDialogOf(CMD_RENAME, "rename-database");
}

TEST_P(WindowPictures, NewPassword) {
    OpenDatabase();
    TakeDialogOf(CMD_SET_PASSWORD, "new-password");
}

TEST_P(WindowPictures, NewPasswordTyped) {
    OpenDatabase();
    TakeDialog(
        "new-password-typed", [this] { Command(CMD_SET_PASSWORD); },
        [](HWND dialog) {
            SetWindowTextW(Inside(dialog, kFirstEdit), L"secret");
            SetWindowTextW(Inside(dialog, kFirstEdit + 1), L"secret");
        });
}

// --- An item ---

TEST_P(WindowPictures, RenameItem) {
    OpenDatabase();
    TakeDialog("rename-item", [this] { ModifyField(VMRD_T_ITEMNAME); });
}

TEST_P(WindowPictures, ModifyProgram) {
    OpenDatabase();
    TakeDialog("modify-program", [this] { ModifyField(VMRD_T_PROGRAM); });
}

TEST_P(WindowPictures, ModifyUserName) {
    OpenDatabase();
    TakeDialog("modify-user-name", [this] { ModifyField(VMRD_T_USERNAME); });
}

TEST_P(WindowPictures, ModifyPassword) {
    OpenDatabase();
    TakeDialog("modify-password", [this] { ModifyField(VMRD_T_PASSWORD); });
}

// As after Generate, with a password that chance has no part in.
TEST_P(WindowPictures, GeneratedPassword) {
    OpenDatabase();
    TakeDialog(
        "generated-password", [this] { ModifyField(VMRD_T_PASSWORD); },
        [](HWND window) {
            auto* dialog = dynamic_cast<CVMRPassGenDlg*>(tvWnd::FromHandle(window));
            ASSERT_NE(dialog, nullptr);
            SetWindowTextW(dialog->m_passwordEdit.Handle(), L"aB3$kQ9?xY7!mN2%");
            dialog->m_LengthLabel = u"L = 16";
            RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE);
        });
}

TEST_P(WindowPictures, AddEntry) {
    OpenDatabase();
    TakeDialog("add-entry", [this] { Main().m_rightDlg.Send(WM_COMMAND, CMD_ADD); });
}

TEST_P(WindowPictures, ModifyEntry) {
    OpenDatabase();
    Main().m_rightDlg.m_list.SetSel(2, true);
    TakeDialog("modify-entry", [this] { Main().m_rightDlg.Send(WM_COMMAND, CMD_RENAME); });
}

TEST_P(WindowPictures, MergeEntries) {
    OpenDatabase();
    for (const int row : {0, 1, 2})
        Main().m_rightDlg.m_list.SetSel(row, true);
    TakeDialog("merge-entries", [this] { Main().m_rightDlg.Send(WM_COMMAND, CMD_MERGE); });
}

TEST_P(WindowPictures, MergeItems) {
    OpenDatabase();
    SelectItems({0, 1});
    TakeDialog("merge-items", [this] { Main().m_leftDlg.Send(WM_COMMAND, CMD_MERGE); });
}

TEST_P(WindowPictures, MergeItemsOfWhichTheSecondIsChosen) {
    OpenDatabase();
    SelectItems({1, 2});
    TakeDialog(
        "merge-items-second", [this] { Main().m_leftDlg.Send(WM_COMMAND, CMD_MERGE); },
        [](HWND dialog) { SendMessageW(Inside(dialog, kSecondRadio), BM_CLICK, 0, 0); });
}

// --- The program ---

// The version changes with each release.
TEST_P(WindowPictures, About) {
    const OtherLanguage language(u"[global]\r\nversion = Version 1.2.3.4\r\n");
    OtherLanguage::Choose();
    OpenMain();
    TakeDialogOf(CMD_ABOUT, "about");
    Close();
}
