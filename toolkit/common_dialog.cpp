#include "toolkit/common_dialog.h"

#include <atomic>

#include "platform/types.h"
#include "toolkit/app.h"
#include "toolkit/rect.h"

namespace {

// Atomic, since the hook runs inside the message pumps of other windows.
constinit std::atomic<u64> g_Hook = 0;

bool IsChildStyle(LONG style) {
    return (static_cast<DWORD>(style) & WS_CHILD) != 0;
}

void CenterOnOwner(CREATESTRUCTW& window) {
    RECT owner;
    if (GetWindowRect(window.hwndParent, &owner) == FALSE) return;
    const RECT place = CenteredBox(owner, window.cx, window.cy);
    window.x = place.left;
    window.y = place.top;
}

}  // namespace

HWND tvCommonDlg::GetOwner() {
    HWND owner = tvApp::MainWindow();
    if (owner != nullptr) owner = GetLastActivePopup(owner);
    while (owner != nullptr && IsChildStyle(GetWindowLongW(owner, GWL_STYLE)))
        owner = GetParent(owner);
    return owner;
}

void tvCommonDlg::CenterNext() {
    EndCenter();
    const HHOOK hook = SetWindowsHookExW(WH_CBT, &HookProc, nullptr, GetCurrentThreadId());
    g_Hook = reinterpret_cast<UINT_PTR>(hook);
}

void tvCommonDlg::EndCenter() {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): as CenterNext has put it there
    const auto hook = reinterpret_cast<HHOOK>(static_cast<UINT_PTR>(g_Hook.exchange(0)));
    if (hook != nullptr) UnhookWindowsHookEx(hook);
}

LRESULT CALLBACK tvCommonDlg::HookProc(int code, WPARAM wParam, LPARAM lParam) {
    if (code != HCBT_CREATEWND) return CallNextHookEx(nullptr, code, wParam, lParam);
    // NOLINTNEXTLINE(performance-no-int-to-ptr): a message's argument
    CREATESTRUCTW& window = *reinterpret_cast<CBT_CREATEWNDW*>(lParam)->lpcs;
    const bool isDialog = !IsChildStyle(window.style) && window.hwndParent != nullptr;
    if (isDialog) CenterOnOwner(window);
    const LRESULT result = CallNextHookEx(nullptr, code, wParam, lParam);
    if (isDialog) EndCenter();
    return result;
}

bool tvCommonDlg::ChooseFont(LOGFONTW& logfont) {
    constexpr DWORD kFlags = CF_SCREENFONTS | CF_INITTOLOGFONTSTRUCT | CF_LIMITSIZE | CF_FORCEFONTEXIST;
    static_assert(kFlags == 73793);
    LOGFONTW chosen = logfont;
    CHOOSEFONTW choice{};
    choice.lStructSize = sizeof choice;
    choice.hwndOwner = GetOwner();
    choice.lpLogFont = &chosen;
    choice.Flags = kFlags;
    choice.nSizeMin = 5;
    choice.nSizeMax = 16;
    CenterNext();
    const bool done = ::ChooseFontW(&choice) != FALSE;
    EndCenter();
    if (done) logfont = chosen;
    return done;
}
