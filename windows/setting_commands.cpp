// The commands that change settings.
#include <memory>

#include "database/database.h"
#include "foundation/language.h"
#include "shell/app_data.h"
#include "shell/file_type.h"
#include "shell/statics.h"
#include "toolkit/common_dialog.h"
#include "toolkit/message_box.h"
#include "toolkit/theme.h"
#include "windows/about_dlg.h"
#include "windows/main_dlg.h"

// NOLINTBEGIN(readability-convert-member-functions-to-static): all commands are members, for the one table
void CVMRDlg::ChooseFont(u16) {
    LOGFONTW font{};
    GetObjectW(TheTheme().Font(), sizeof font, &font);
    if (tvCommonDlg::ChooseFont(font)) TheAppData().LoadStoreFont(LoadStore::Store, &font);
}

void CVMRDlg::ShowAbout(u16) {
    std::make_unique<CVMRAboutDlg>()->RunModal();
}

void CVMRDlg::ShowHelp(u16) {
    Send(WM_HELP);
}

void CVMRDlg::ToggleClearClipboard(u16) {
    CVMRAppData& data = TheAppData();
    data.bAutoClearClipboard = data.bAutoClearClipboard == 0 ? 1 : 0;
    data.LoadStoreClearClipboard(LoadStore::Store);
}

void CVMRDlg::ToggleAutoSave(u16) {
    VMRD_DB& database = TheDatabase();
    database.bAutoSave = !database.bAutoSave;
    LoadStoreAutoSave(LoadStore::Store, database);
    RefreshStatus();
}

// Switching the history off clears it: the user is asked first.
void CVMRDlg::ToggleHistory(u16) {
    CVMRAppData& data = TheAppData();
    if (data.bHistory != 0) {
        const tvstring question = LangText(u"moresettings", u"warn_disablerecent");
        constexpr u32 kStyle = MB_YESNO | MB_ICONWARNING | MB_DEFBUTTON2;
        if (tvMessageBox::Show(m_hWnd, question, kStyle, {}) != IDYES) return;
    }
    data.bHistory = data.bHistory == 0 ? 1 : 0;
    data.LoadStoreHistory(LoadStore::Store, data);
    OnAppNotify(APPN_START, 0, 0, 0);
}

void CVMRDlg::ToggleAutoOpen(u16) {
    CVMRAppData& data = TheAppData();
    data.bAutoOpen = data.bAutoOpen == 0 ? 1 : 0;
    data.LoadStoreAutoOpen(LoadStore::Store);
}

void CVMRDlg::ChooseFileType(u16) {
    PromptFileType();
}

void CVMRDlg::ChooseFilter(u16 id) {
    CVMRAppData& data = TheAppData();
    const u32 mode = id - u32{CMD_FILTER_ALL};
    if (data.filterFlag == mode) return;
    data.filterFlag = mode;
    data.LoadStoreFilterFlag(LoadStore::Store);
    OnAppNotify(APPN_FILTERCHANGED, 0, 0, 0);
}

void CVMRDlg::ToggleFilterPasswords(u16) {
    VMRD_DB& database = TheDatabase();
    database.bFilterPWD = !database.bFilterPWD;
    LoadStoreFilterPwd(LoadStore::Store, database);
    RefreshStatus();
    OnAppNotify(APPN_FILTERCHANGED, 0, 0, 0);
}

void CVMRDlg::ChooseTheme(u16 id) {
    const int index = id - CMD_FIRST_THEME;
    if (index < static_cast<int>(TheTheme().m_themes.size()))
        TheAppData().LoadStoreTheme(LoadStore::Store, index);
}

void CVMRDlg::ChooseLanguage(u16 id) {
    const std::size_t index = id - std::size_t{CMD_FIRST_LANGUAGE};
    const auto& languages = Language().Languages();
    if (index < languages.size()) TheAppData().LoadStoreLang(LoadStore::Store, languages[index].m_File);
}
// NOLINTEND(readability-convert-member-functions-to-static)
