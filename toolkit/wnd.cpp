#include "toolkit/wnd.h"

#include <utility>

#include "toolkit/app.h"
#include "toolkit/statics.h"
#include "toolkit/timer.h"

namespace {

constinit tvWnd* g_Creating = nullptr;

constexpr UINT kStyleChanged = SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED;

WNDPROC ProcOf(HWND handle) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the system keeps procedures as numbers
    return reinterpret_cast<WNDPROC>(GetWindowLongPtrW(handle, GWLP_WNDPROC));
}

void SetProc(HWND handle, WNDPROC proc) {
    SetWindowLongPtrW(handle, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(proc));
}

// The window has no border, no bars and no caption.
bool IsAllClient(HWND handle) {
    RECT rect{};
    RECT client{};
    GetWindowRect(handle, &rect);
    GetClientRect(handle, &client);
    return rect.right - rect.left == client.right && rect.bottom - rect.top == client.bottom;
}

int ChangeStyle(HWND handle, int index, DWORD remove, DWORD add) {
    const auto old = static_cast<DWORD>(GetWindowLongPtrW(handle, index));
    const DWORD style = (old & ~remove) | add;
    if (style == old) return 0;
    SetWindowLongPtrW(handle, index, static_cast<LONG_PTR>(style));
    SetWindowPos(handle, nullptr, 0, 0, 0, 0, kStyleChanged);
    return 1;
}

}  // namespace

LRESULT tvWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_HELP) {
        if (tvApp* app = tvApp::Get()) app->OnHelp();
        return 0;
    }
    if (m_hWnd == nullptr) return 0;
    // There would be nothing to paint, but the system asks the display for the place of it all the same.
    if (message == WM_NCPAINT && IsAllClient(m_hWnd)) return 0;
    if (m_oldProc != nullptr && m_oldProc != &SharedProc) {
        return CallWindowProcW(m_oldProc, m_hWnd, message, wParam, lParam);
    }
    return DefWindowProcW(m_hWnd, message, wParam, lParam);
}

bool tvWnd::IsDialogMsg(MSG*) {
    return false;
}

void tvWnd::OnSubclassed() {}

bool tvWnd::PreTranslateMsg(MSG*) {
    return false;
}

void tvWnd::OnReflectDrawItem(DRAWITEMSTRUCT*) {
    m_drawItemUnhandled = 1;
}

void tvWnd::OnReflectMeasureItem(MEASUREITEMSTRUCT*) {
    m_measureItemUnhandled = 1;
}

int tvWnd::OnReflectCompareItem(COMPAREITEMSTRUCT* item) {
    m_compareItemUnhandled = 1;
    if (item->itemData1 == item->itemData2) return 0;
    return item->itemData1 < item->itemData2 ? -1 : 1;
}

bool tvWnd::OnReflectNotify(NMHDR*, LRESULT* result) {
    *result = 0;
    return false;
}

bool tvWnd::OnReflectCommand(u16) {
    return false;
}

void tvWnd::OnReflectCtlColor(HDC, LRESULT*) {}

tvWnd::~tvWnd() {
    if (g_Creating == this) g_Creating = nullptr;
    Detach(Window::Destroy);
}

void tvWnd::SubclassDlgItem(HWND parent, int id) {
    if (m_hWnd != nullptr || parent == nullptr || id == 0) return;
    if (HWND control = GetDlgItem(parent, id)) SubclassWindow(control);
}

void tvWnd::SubclassWindow(HWND handle) {
    Attach(handle);
    OnSubclassed();
}

bool tvWnd::Attach(HWND handle) {
    if (handle == nullptr) return false;
    if (handle == m_hWnd) return true;
    if (m_hWnd != nullptr || m_oldProc != nullptr) return false;
    if (const LRESULT font = SendMessageW(handle, WM_GETFONT, 0, 0)) {
        m_font = reinterpret_cast<HFONT>(font);  // NOLINT(performance-no-int-to-ptr): as the message has it
    }
    const WNDPROC proc = ProcOf(handle);
    if (proc != &SharedProc) {
        m_oldProc = proc;
        SetProc(handle, &SharedProc);
    }
    m_hWnd = handle;
    TheWndMap().Add(handle, this);
    return true;
}

// Destroying the window may have detached it already.
void tvWnd::Detach(Window then) {
    const HWND handle = m_hWnd;
    if (handle == nullptr) return;
    if (IsWindow(handle) && then == Window::Destroy) DestroyWindow(handle);
    if (m_hWnd == nullptr) return;
    if (IsWindow(handle) && m_oldProc != nullptr && ProcOf(handle) == &SharedProc) SetProc(handle, m_oldProc);
    TheWndMap().Remove(handle);
    m_hWnd = nullptr;
    m_oldProc = nullptr;
    m_minWidth = m_minHeight = 0;
    m_font = nullptr;
}

tvWnd* tvWnd::FromHandle(HWND handle) noexcept {
    return handle == nullptr ? nullptr : TheWndMap().Find(handle);
}

int tvWnd::ModifyStyle(DWORD remove, DWORD add) const {
    return m_hWnd == nullptr ? 0 : ChangeStyle(m_hWnd, GWL_STYLE, remove, add);
}

int tvWnd::ModifyStyleEx(DWORD remove, DWORD add) const {
    return m_hWnd == nullptr ? 0 : ChangeStyle(m_hWnd, GWL_EXSTYLE, remove, add);
}

HWND tvWnd::FindDescendant(HWND parent, int id) {
    if (HWND found = GetDlgItem(parent, id)) {
        const HWND deeper = GetTopWindow(found) == nullptr ? nullptr : FindDescendant(found, id);
        return deeper == nullptr ? found : deeper;
    }
    for (HWND child = GetTopWindow(parent); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        if (HWND found = FindDescendant(child, id)) return found;
    }
    return nullptr;
}

LRESULT tvWnd::Send(UINT message, WPARAM wParam, LPARAM lParam) const {
    return m_hWnd == nullptr ? 0 : SendMessageW(m_hWnd, message, wParam, lParam);
}

void tvWnd::SetCreating(tvWnd* wnd) noexcept {
    g_Creating = wnd;
}

tvWnd* tvWnd::TakeCreated(HWND handle) {
    tvWnd* wnd = std::exchange(g_Creating, nullptr);
    if (wnd == nullptr || wnd->IsAttached() || FromHandle(handle) != nullptr) return nullptr;
    wnd->Attach(handle);
    return wnd;
}

tvWndMap::~tvWndMap() {
    while (!m_Map.empty()) {
        tvWnd* wnd = m_Map.begin()->second;
        m_Map.erase(m_Map.begin());
        wnd->Detach(tvWnd::Window::Keep);
    }
}

tvWnd* tvWndMap::Find(HWND handle) const noexcept {
    const auto found = m_Map.find(handle);
    return found == m_Map.end() ? nullptr : found->second;
}
