#include "toolkit/app.h"

#include <clocale>

#include "foundation/path.h"
#include "foundation/product.h"
#include "toolkit/statics.h"
#include "toolkit/tool_tip.h"
#include "toolkit/wnd.h"

namespace {

constinit tvApp* g_App = nullptr;
constinit tvBaseApp* g_BaseApp = nullptr;

void StartCommonControls() {
    constexpr DWORD kClasses = 255;
    const INITCOMMONCONTROLSEX controls{sizeof controls, kClasses};
    InitCommonControlsEx(&controls);
}

}  // namespace

tvApp::tvApp() : m_hInstance(GetModuleHandleW(nullptr)), m_appName(NameOr(kAppName)) {
    g_App = this;
    StartCommonControls();
}

tvApp::~tvApp() {
    if (g_App == this) g_App = nullptr;
}

bool tvApp::PreTranslateAppMsg(MSG*) {
    return false;
}

void tvApp::OnHelp() {}

tvstring tvApp::NameOr(std::u16string_view given) {
    if (!given.empty()) return tvstring(given);
    const tvstring file = FileNameOf(ProgramPath(u""));
    return file.substr(0, file.size() - ExtensionOf(file).size());
}

tvApp* tvApp::Get() noexcept {
    return g_App;
}

HWND tvApp::MainWindow() noexcept {
    return g_App == nullptr || g_App->m_mainWnd == nullptr ? nullptr : g_App->m_mainWnd->Handle();
}

tvBaseApp::tvBaseApp() {
    g_BaseApp = this;
    std::setlocale(LC_ALL, "");
}

tvBaseApp::~tvBaseApp() {
    if (g_BaseApp == this) g_BaseApp = nullptr;
}

bool tvBaseApp::PreTranslateAppMsg(MSG* msg) {
    TheToolTip().Relay(msg);
    return false;
}

tvBaseApp* tvBaseApp::Get() noexcept {
    return g_BaseApp;
}
