// The window procedure that all wrapped windows share.
#include "toolkit/app.h"
#include "toolkit/mouse_place.h"
#include "toolkit/statics.h"
#include "toolkit/timer.h"
#include "toolkit/wnd.h"

namespace {

void PassFontOn(HWND parent, WPARAM font, LPARAM redraw) {
    for (HWND child = GetTopWindow(parent); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
        SendMessageW(child, WM_SETFONT, font, redraw);
}

// Each of the following gives true if the control's wrapper has handled what its parent was sent; `result`
// then is the message's.

bool ReflectDrawItem(LPARAM lParam, LRESULT& result) {
    auto* item =
        reinterpret_cast<DRAWITEMSTRUCT*>(lParam);  // NOLINT(performance-no-int-to-ptr): a message's argument
    tvWnd* wnd = item->CtlType == ODT_MENU ? nullptr : tvWnd::FromHandle(item->hwndItem);
    if (wnd == nullptr) return false;
    wnd->m_drawItemUnhandled = 0;
    wnd->OnReflectDrawItem(item);
    result = 1;
    return wnd->m_drawItemUnhandled == 0;
}

tvWnd* MeasuredControl(HWND parent, int id) {
    tvWnd* known = TheWndMap().m_measured;
    if (known != nullptr && GetDlgCtrlID(known->Handle()) == id && IsChild(parent, known->Handle()))
        return known;
    return tvWnd::FromHandle(tvWnd::FindDescendant(parent, id));
}

bool ReflectMeasureItem(HWND parent, LPARAM lParam, LRESULT& result) {
    auto* item = reinterpret_cast<MEASUREITEMSTRUCT*>(lParam);  // NOLINT(performance-no-int-to-ptr)
    if (item->CtlType == ODT_MENU || item->CtlID == 0) return false;
    tvWnd* wnd = MeasuredControl(parent, static_cast<int>(item->CtlID));
    if (wnd == nullptr) return false;
    wnd->m_measureItemUnhandled = 0;
    wnd->OnReflectMeasureItem(item);
    result = 1;
    return wnd->m_measureItemUnhandled == 0;
}

bool ReflectCompareItem(LPARAM lParam, LRESULT& result) {
    auto* item = reinterpret_cast<COMPAREITEMSTRUCT*>(lParam);  // NOLINT(performance-no-int-to-ptr)
    tvWnd* wnd = tvWnd::FromHandle(item->hwndItem);
    if (wnd == nullptr) return false;
    wnd->m_compareItemUnhandled = 0;
    result = wnd->OnReflectCompareItem(item);
    return wnd->m_compareItemUnhandled == 0;
}

bool ReflectNotify(LPARAM lParam, LRESULT& result) {
    auto* header = reinterpret_cast<NMHDR*>(lParam);  // NOLINT(performance-no-int-to-ptr)
    if (header->idFrom == 0) return false;
    tvWnd* wnd = tvWnd::FromHandle(header->hwndFrom);
    return wnd != nullptr && wnd->OnReflectNotify(header, &result);
}

bool ReflectCommand(WPARAM wParam, LPARAM lParam) {
    if (LOWORD(wParam) == 0) return false;
    tvWnd* wnd = tvWnd::FromHandle(reinterpret_cast<HWND>(lParam));  // NOLINT(performance-no-int-to-ptr)
    return wnd != nullptr && wnd->OnReflectCommand(HIWORD(wParam));
}

bool Reflect(HWND handle, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case WM_DRAWITEM:
            return ReflectDrawItem(lParam, result);
        case WM_MEASUREITEM:
            return ReflectMeasureItem(handle, lParam, result);
        case WM_COMPAREITEM:
            return ReflectCompareItem(lParam, result);
        case WM_NOTIFY:
            return ReflectNotify(lParam, result);
        case WM_COMMAND:
            return ReflectCommand(wParam, lParam);
        default:
            return false;
    }
}

void ReflectColors(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORLISTBOX:
        case WM_CTLCOLORBTN:
        case WM_CTLCOLORSCROLLBAR:
        case WM_CTLCOLORSTATIC:
            // NOLINTNEXTLINE(performance-no-int-to-ptr): a message's arguments
            if (tvWnd* wnd = tvWnd::FromHandle(reinterpret_cast<HWND>(lParam))) {
                wnd->OnReflectCtlColor(reinterpret_cast<HDC>(wParam),
                                       &result);  // NOLINT(performance-no-int-to-ptr)
            }
            break;
        default:
            break;
    }
}

// The wrapper may be gone by now.
void Finish(HWND handle, UINT message) {
    if (message == WM_DESTROY && handle == tvApp::MainWindow()) PostQuitMessage(0);
    if (message != WM_NCDESTROY) return;
    tvWndTimer::StopAll(handle);
    if (tvWnd* wnd = tvWnd::FromHandle(handle)) wnd->Detach(tvWnd::Window::Keep);
}

}  // namespace

LRESULT CALLBACK tvWnd::SharedProc(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    if (handle == nullptr) return 0;
    // A list box tells of each row that goes: nobody wants to know, and with many rows it takes long.
    if (message == WM_DELETEITEM) return TRUE;
    TheMousePlace().ForgetOn(message);
    tvWnd* wnd = FromHandle(handle);
    if (wnd == nullptr && (message == WM_CREATE || message == WM_NCCREATE)) wnd = TakeCreated(handle);
    if (wnd == nullptr) return DefWindowProcW(handle, message, wParam, lParam);
    if (message == WM_SETFONT) {
        wnd->m_font =
            reinterpret_cast<HFONT>(wParam);  // NOLINT(performance-no-int-to-ptr): as the message has it
        PassFontOn(handle, wParam, lParam);
    }
    LRESULT result = 0;
    if (!Reflect(handle, message, wParam, lParam, result)) result = wnd->WindowProc(message, wParam, lParam);
    ReflectColors(message, wParam, lParam, result);
    Finish(handle, message);
    return result;
}
