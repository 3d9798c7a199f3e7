#include "shell/start.h"

#include "database/database.h"
#include "foundation/language.h"
#include "foundation/path.h"
#include "shell/app.h"
#include "shell/app_data.h"
#include "shell/statics.h"
#include "toolkit/message_box.h"
#include "toolkit/theme.h"
#include "windows/base_dlg.h"

namespace {

constexpr int kIconResource = 101;
constexpr int kLargeIcon = 48;
constexpr int kSmallIcon = 16;

void LoadIcons() {
    const auto load = [](int side) {
        return static_cast<HICON>(
            LoadImageW(TheApp().m_hInstance, MAKEINTRESOURCEW(kIconResource), IMAGE_ICON, side, side, 0));
    };
    TheTheme().m_icons.Add(ICON_APPLICATION, load(kLargeIcon));
    TheTheme().m_icons.Add(ICON_APPLICATION_SMALL, load(kSmallIcon));
}

void TellOtherProcesses(SharedSetting setting) {
    if (WM_VMR == 0) return;
    PostMessageW(HWND_BROADCAST, WM_VMR, static_cast<WPARAM>(setting),
                 reinterpret_cast<LPARAM>(tvApp::MainWindow()));
}

void TellLanguage() {
    NotifyMainWindow(APPN_LANGUAGE);
}

// The only message that is in no language.
void TellNoLanguage() {
    tvMessageBox::Show(nullptr, u"Failed to load language file!\r\n\r\nPlease re-download Vaultmere.",
                       MB_ICONERROR, {});
}

void LoadSettings(CVMRAppData& data) {
    data.LoadStoreHistory(LoadStore::Load, data);
    data.LoadStoreClearClipboard(LoadStore::Load);
    LoadStoreAutoSave(LoadStore::Load, TheDatabase());
    LoadStoreFilterPwd(LoadStore::Load, TheDatabase());
    data.LoadStoreFilterFlag(LoadStore::Load);
    data.LoadStoreAutoOpen(LoadStore::Load);
}

}  // namespace

bool InitializeApplication() {
    CVMRAppData& data = TheAppData();
    TheDatabase().MakeCurrent();
    data.m_Notice = TellOtherProcesses;
    data.m_OnLanguage = TellLanguage;
    LoadIcons();
    TheTheme().LoadThemes(JoinPath(ProgramPath(u"Theme"), u"*.ini"), false);
    data.LoadStoreTheme(LoadStore::Load);
    if (!data.LoadStoreLang(LoadStore::Load)) {
        TellNoLanguage();
        return false;
    }
    data.LoadStoreFont(LoadStore::Load);
    data.BuildMenus();
    data.MakeAccelerators();
    LoadSettings(data);
    return true;
}
