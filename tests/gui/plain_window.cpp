#include "tests/gui/plain_window.h"

#include <algorithm>

namespace {

constexpr const wchar_t* kClassName = L"PlainTestWindow";

PlainWindow* OwnerOf(HWND handle) {
    return reinterpret_cast<PlainWindow*>(GetWindowLongPtrW(handle, GWLP_USERDATA));
}

}  // namespace

PlainWindow::PlainWindow(DWORD style, HWND parent, int id) {
    static const ATOM registered = [] {
        WNDCLASSW windowClass{};
        windowClass.lpfnWndProc = &PlainWindow::Proc;
        windowClass.hInstance = GetModuleHandleW(nullptr);
        windowClass.lpszClassName = kClassName;
        return RegisterClassW(&windowClass);
    }();
    m_Handle = CreateWindowExW(0, MAKEINTATOM(registered), L"", style, 0, 0, 100, 80, parent,
                               reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr),
                               nullptr);
    SetWindowLongPtrW(m_Handle, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

PlainWindow::~PlainWindow() {
    if (IsWindow(m_Handle)) {
        SetWindowLongPtrW(m_Handle, GWLP_USERDATA, 0);
        DestroyWindow(m_Handle);
    }
}

LRESULT CALLBACK PlainWindow::Proc(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    if (PlainWindow* window = OwnerOf(handle)) {
        window->m_Messages.push_back({message, wParam, lParam});
        if (message == window->m_AnswerTo) return window->m_Answer;
    }
    return DefWindowProcW(handle, message, wParam, lParam);
}

bool PlainWindow::WaitFor(UINT message, WPARAM wParam, DWORD milliseconds) {
    const ULONGLONG end = GetTickCount64() + milliseconds;
    const auto came = [&] {
        return std::any_of(m_Messages.begin(), m_Messages.end(),
                           [&](const Message& one) { return one.number == message && one.wParam == wParam; });
    };
    while (!came()) {
        const ULONGLONG now = GetTickCount64();
        if (now >= end) return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT);
        for (MSG msg; PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE);) {
            DispatchMessageW(&msg);
        }
    }
    return true;
}

int PlainWindow::Count(UINT message) const {
    return static_cast<int>(std::count_if(m_Messages.begin(), m_Messages.end(),
                                          [message](const Message& one) { return one.number == message; }));
}
