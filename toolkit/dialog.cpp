#include "toolkit/dialog.h"

#include <algorithm>

#include "toolkit/app.h"
#include "toolkit/dialog_class.h"

namespace {

constexpr int kClosed = 2;  // the result of a dialog that was just closed
constexpr int kFailed = -1;

HINSTANCE ModuleOfProgram() {
    const tvApp* app = tvApp::Get();
    return app != nullptr && app->m_hInstance != nullptr ? app->m_hInstance : GetModuleHandleW(nullptr);
}

// The window that a dialog is to stand over: what is on top of the main window, out of panes.
HWND OwnerOfNewDialog() {
    const HWND mainWindow = tvApp::MainWindow();
    HWND owner = mainWindow == nullptr ? nullptr : GetLastActivePopup(mainWindow);
    if (owner == nullptr) owner = mainWindow;
    while (owner != nullptr && (GetWindowLongPtrW(owner, GWL_STYLE) & WS_CHILD) != 0)
        owner = GetParent(owner);
    return owner;
}

const void* DialogResource(HINSTANCE module, u16 id) {
    const HRSRC resource = FindResourceW(module, MAKEINTRESOURCEW(id), RT_DIALOG);
    const HGLOBAL data = resource == nullptr ? nullptr : LoadResource(module, resource);
    return data == nullptr ? nullptr : LockResource(data);
}

RECT WorkAreaOf(HWND window) {
    MONITORINFO info{};
    info.cbSize = sizeof info;
    const HMONITOR monitor = window == nullptr ? MonitorFromPoint({0, 0}, MONITOR_DEFAULTTOPRIMARY)
                                               : MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST);
    GetMonitorInfoW(monitor, &info);
    return info.rcWork;
}

// Where something of this length stands in the middle of a range, inside the area as far as it goes.
int Centred(int from, int to, int length, int areaFrom, int areaTo) {
    const int place = (from + to) / 2 - length / 2;
    return std::max(std::min(place, areaTo - length), areaFrom);
}

// The dialog keeps its owner from being used while it runs.
class DisabledOwner {
public:
    explicit DisabledOwner(HWND owner) : m_Owner(owner) {
        if (owner == nullptr || owner == GetDesktopWindow() || !IsWindowEnabled(owner)) return;
        EnableWindow(owner, FALSE);
        m_Disabled = true;
    }
    ~DisabledOwner() { Enable(); }
    DisabledOwner(const DisabledOwner&) = delete;
    DisabledOwner& operator=(const DisabledOwner&) = delete;

    void Enable() {
        if (m_Disabled) EnableWindow(m_Owner, TRUE);
        m_Disabled = false;
    }
    [[nodiscard]] HWND Get() const { return m_Owner; }

private:
    HWND m_Owner;
    bool m_Disabled = false;
};

}  // namespace

void tvDialog::OnSubclassControls() {}

bool tvDialog::OnInitDialog() {
    return true;
}

bool tvDialog::IsMainWindow() const noexcept {
    return m_hWnd != nullptr && m_hWnd == tvApp::MainWindow();
}

bool tvDialog::Create(HWND parent) {
    if (m_hWnd != nullptr) return false;
    const HINSTANCE module = ModuleOfProgram();
    const void* source = m_templateId != 0 ? DialogResource(module, m_templateId) : m_builder.Get();
    if (source == nullptr || !RegisterDialogClass(ClassOfTemplate(source), module)) return false;
    SetCreating(this);
    const HWND made = m_templateId != 0
                          ? CreateDialogParamW(module, MAKEINTRESOURCEW(m_templateId), parent, &DialogProc, 0)
                          : CreateDialogIndirectParamW(module, m_builder.Get(), parent, &DialogProc, 0);
    SetCreating(nullptr);
    return made != nullptr;
}

int tvDialog::DoModal() {
    if (m_hWnd != nullptr) return kFailed;
    DisabledOwner owner(OwnerOfNewDialog());
    m_result = 0;
    if (!Create(owner.Get())) return kFailed;
    ShowWindow(m_hWnd, SW_SHOW);
    Loop();
    owner.Enable();
    if (m_hWnd != nullptr && GetActiveWindow() == m_hWnd && owner.Get() != nullptr)
        SetActiveWindow(owner.Get());
    if (m_hWnd != nullptr) DestroyWindow(m_hWnd);
    return m_result;
}

// The one message loop. WM_QUIT is for all loops that run: a dialog's own hands it on to the main window's.
// By then either window may be gone, so what tells them apart is the wrapper.
void tvDialog::Loop() {
    MSG msg;
    for (;;) {
        const BOOL got = GetMessageW(&msg, nullptr, 0, 0);
        const bool isMain = tvApp::Get() != nullptr && tvApp::Get()->m_mainWnd == this;
        if (got == 0 && !isMain) PostQuitMessage(static_cast<int>(msg.wParam));
        if (got == 0 || got == -1) return;
        tvApp* app = tvApp::Get();
        if (app != nullptr && app->PreTranslateAppMsg(&msg)) continue;
        if (PreTranslateMsg(&msg)) continue;
        if (!IsDialogMsg(&msg)) {
            TranslateMessage(&msg);
            DispatchMessageW(&msg);
        }
        if (m_result != 0) return;
    }
}

void tvDialog::EndDialog(int result) {
    if (m_hWnd == nullptr) return;
    m_result = result == 0 ? kClosed : result;
    PostMessageW(m_hWnd, WM_NULL, 0, 0);
}

void tvDialog::CenterWindow() {
    if (m_hWnd == nullptr || (GetWindowLongPtrW(m_hWnd, GWL_STYLE) & WS_CHILD) != 0) return;
    HWND owner = GetWindow(m_hWnd, GW_OWNER);
    if (owner == nullptr && !IsMainWindow()) owner = tvApp::MainWindow();
    const LONG_PTR style = owner == nullptr ? 0 : GetWindowLongPtrW(owner, GWL_STYLE);
    const bool overOwner = (style & WS_VISIBLE) != 0 && (style & WS_MINIMIZE) == 0;
    const RECT area = WorkAreaOf(overOwner ? owner : nullptr);
    RECT middle = area;
    if (overOwner) GetWindowRect(owner, &middle);
    RECT rect;
    GetWindowRect(m_hWnd, &rect);
    const int x = Centred(middle.left, middle.right, rect.right - rect.left, area.left, area.right);
    const int y = Centred(middle.top, middle.bottom, rect.bottom - rect.top, area.top, area.bottom);
    SetWindowPos(m_hWnd, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

INT_PTR CALLBACK tvDialog::DialogProc(HWND handle, UINT message, WPARAM, LPARAM) {
    switch (message) {
        case WM_VKEYTOITEM:
        case WM_CHARTOITEM:
            return -1;
        case WM_INITDIALOG: {
            auto* dialog = static_cast<tvDialog*>(TakeCreated(handle));
            return dialog == nullptr || dialog->OnInit() ? 1 : 0;
        }
        default:
            return 0;
    }
}

// A dialog that has moved or sized itself stays where it is.
bool tvDialog::OnInit() {
    m_result = 0;
    RECT before;
    GetWindowRect(m_hWnd, &before);
    if ((GetWindowLongPtrW(m_hWnd, GWL_STYLE) & WS_THICKFRAME) != 0) {
        m_minWidth = before.right - before.left;
        m_minHeight = before.bottom - before.top;
        if (Send(WM_GETICON, ICON_SMALL) == 0) ModifyStyleEx(0, WS_EX_DLGMODALFRAME);
    }
    OnSubclassControls();
    GetWindowRect(m_hWnd, &before);
    const bool focusIsFree = OnInitDialog();
    RECT after{};
    GetWindowRect(m_hWnd, &after);
    if (EqualRect(&before, &after)) CenterWindow();
    return focusIsFree;
}

LRESULT tvDialog::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CLOSE:
            if (IsMainWindow()) {
                DestroyWindow(m_hWnd);
            } else {
                EndDialog(kClosed);
            }
            break;
        case WM_GETFONT:
            return reinterpret_cast<LRESULT>(m_font);
        case WM_COMMAND:
            OnOkOrCancel(LOWORD(wParam));
            break;
        default:
            break;
    }
    const LRESULT result = tvWnd::WindowProc(message, wParam, lParam);
    if (message == WM_GETMINMAXINFO && m_minWidth != 0 && m_minHeight != 0) {
        // NOLINTNEXTLINE(performance-no-int-to-ptr): a message's argument
        reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {m_minWidth, m_minHeight};
    }
    return result;
}

void tvDialog::OnOkOrCancel(int id) {
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(m_hWnd, GWL_STYLE));
    if ((id != IDOK && id != IDCANCEL) || (style & WS_CHILD) != 0) return;
    const bool isMain = IsMainWindow();
    const HWND button = GetDlgItem(m_hWnd, id);
    const bool usable = button != nullptr && (GetWindowLongPtrW(button, GWL_STYLE) & WS_VISIBLE) != 0 &&
                        IsWindowEnabled(button) != FALSE;
    if (usable) {
        EndDialog(id);
    } else if (id == IDCANCEL && !isMain && (style & WS_SYSMENU) != 0) {
        EndDialog(kClosed);
    } else {
        return;
    }
    if (isMain) DestroyWindow(m_hWnd);
}

bool tvDialog::IsDialogMsg(MSG* msg) {
    return m_hWnd != nullptr && IsDialogMessageW(m_hWnd, msg) != FALSE;
}
