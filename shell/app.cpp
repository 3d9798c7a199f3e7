#include "shell/app.h"

CVMRApp::~CVMRApp() = default;

void CVMRApp::OnHelp() {
    ShellExecuteW(nullptr, nullptr, kHelpPage, nullptr, nullptr, SW_SHOWNORMAL);
}

tvstring CVMRApp::Arguments() {
    return tvstring(Units(PathGetArgsW(GetCommandLineW())));
}
