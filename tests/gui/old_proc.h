// Notes which messages a wrapper hands on to the procedure that it has replaced, while it lives.
#pragma once

#include <algorithm>
#include <vector>

#include "toolkit/wnd.h"

class OldProcWatch {
public:
    explicit OldProcWatch(tvWnd& wnd) : m_Wnd(wnd), m_Before(wnd.m_oldProc) {
        Current() = this;
        wnd.m_oldProc = &Proc;
    }
    ~OldProcWatch() {
        if (m_Wnd.m_oldProc == &Proc) m_Wnd.m_oldProc = m_Before;
        Current() = nullptr;
    }
    OldProcWatch(const OldProcWatch&) = delete;
    OldProcWatch& operator=(const OldProcWatch&) = delete;

    [[nodiscard]] int Count(UINT message) const {
        return static_cast<int>(std::count(m_Messages.begin(), m_Messages.end(), message));
    }

private:
    static OldProcWatch*& Current() {
        static OldProcWatch* current = nullptr;
        return current;
    }
    static LRESULT CALLBACK Proc(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
        Current()->m_Messages.push_back(message);
        return CallWindowProcW(Current()->m_Before, handle, message, wParam, lParam);
    }

    tvWnd& m_Wnd;
    WNDPROC m_Before;
    std::vector<UINT> m_Messages;
};
