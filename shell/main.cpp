// The entry of the program.
#include <new>

#include "foundation/language.h"
#include "foundation/path.h"
#include "shell/app.h"
#include "shell/app_data.h"
#include "shell/command_line.h"
#include "shell/file_type.h"
#include "shell/process_mutex.h"
#include "shell/start.h"
#include "shell/statics.h"
#include "windows/main_dlg.h"

namespace {

// The window lives for this one call.
void RunMainWindow() {
    alignas(CVMRDlg) static unsigned char storage[sizeof(CVMRDlg)];  // of zeros
    auto* window = new (storage) CVMRDlg;
    TheApp().m_mainWnd = window;
    window->BuildTemplate();
    window->DoModal();
    window->~CVMRDlg();
}

void ClearClipboardAtTheEnd() {
    if (TheAppData().bAutoClearClipboard == 0 || !TheMutex().IsLastProcess()) return;
    OpenClipboard(nullptr);
    EmptyClipboard();
    CloseClipboard();
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    if (!InitializeApplication()) return 0;
    switch (StartModeOf(CVMRApp::Arguments())) {
        case StartMode::RegisterFileType:
            RegisterFileType(FileType::Add);
            break;
        case StartMode::DeregisterFileType:
            RegisterFileType(FileType::Remove);
            break;
        case StartMode::ExtractLanguage:
            CVMRMLang::ExtractDefault(JoinPath(ProgramPath(u"Lang"), u"english.ini"));
            break;
        case StartMode::MainWindow:
            RunMainWindow();
            ClearClipboardAtTheEnd();
            break;
    }
    return static_cast<int>(TheApp().m_exitCode);
}
