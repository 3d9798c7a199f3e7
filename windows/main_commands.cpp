// The main window's commands, one row each.
#include "database/database.h"
#include "shell/statics.h"
#include "windows/main_dlg.h"

const CVMRDlg::Command CVMRDlg::kCommands[] = {
    {CMD_FONT, CMD_FONT, Guard::None, &CVMRDlg::ChooseFont},
    {CMD_ABOUT, CMD_ABOUT, Guard::None, &CVMRDlg::ShowAbout},
    {CMD_HELP, CMD_HELP, Guard::None, &CVMRDlg::ShowHelp},
    {CMD_NEW, CMD_NEW, Guard::Discard, &CVMRDlg::NewDatabase},
    {CMD_OPEN, CMD_OPEN, Guard::Discard, &CVMRDlg::AskAndOpen},
    {CMD_SAVE, CMD_SAVE, Guard::Opened, &CVMRDlg::SaveDatabase},
    {CMD_SAVE_AS, CMD_SAVE_AS, Guard::Opened, &CVMRDlg::SaveDatabaseAs},
    {CMD_EXPORT, CMD_EXPORT, Guard::None, &CVMRDlg::ExportDatabase},
    {CMD_CLOSE, CMD_CLOSE, Guard::Discard, &CVMRDlg::CloseDatabase},
    {CMD_RENAME, CMD_RENAME, Guard::Opened, &CVMRDlg::RenameDatabase},
    {CMD_SET_PASSWORD, CMD_SET_PASSWORD, Guard::Opened, &CVMRDlg::ChangePassword},
    {CMD_CLEAR_CLIPBOARD, CMD_CLEAR_CLIPBOARD, Guard::None, &CVMRDlg::ToggleClearClipboard},
    {CMD_AUTO_SAVE, CMD_AUTO_SAVE, Guard::None, &CVMRDlg::ToggleAutoSave},
    {CMD_HISTORY, CMD_HISTORY, Guard::None, &CVMRDlg::ToggleHistory},
    {CMD_AUTO_OPEN, CMD_AUTO_OPEN, Guard::None, &CVMRDlg::ToggleAutoOpen},
    {CMD_FILTER_ALL, CMD_FILTER_WITHOUT, Guard::None, &CVMRDlg::ChooseFilter},
    {CMD_FILTER_PASSWORDS, CMD_FILTER_PASSWORDS, Guard::None, &CVMRDlg::ToggleFilterPasswords},
    {CMD_FILE_TYPE, CMD_FILE_TYPE, Guard::None, &CVMRDlg::ChooseFileType},
    {CMD_UNDO, CMD_UNDO, Guard::None, &CVMRDlg::UndoChange},
    {CMD_FIRST_THEME, CMD_LAST_THEME, Guard::None, &CVMRDlg::ChooseTheme},
    {CMD_FIRST_LANGUAGE, CMD_LAST_LANGUAGE, Guard::None, &CVMRDlg::ChooseLanguage},
};

void CVMRDlg::OnCommand(u16 id) {
    for (const Command& command : kCommands) {
        if (id < command.first || id > command.last) continue;
        if (Passes(command.guard)) (this->*command.run)(id);
        return;
    }
}

bool CVMRDlg::Passes(Guard guard) {
    switch (guard) {
        case Guard::Discard:
            return DiscardPrompt();
        case Guard::Opened:
            return TheDatabase().m_Opened;
        case Guard::None:
            break;
    }
    return true;
}
