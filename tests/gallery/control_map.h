// The controls of a dialog by their ids. To look for each would be a walk along all of them every time.
#pragma once

#include <map>

#include "toolkit/win32.h"

class ControlMap {
public:
    ControlMap() = default;
    explicit ControlMap(HWND dialog) {
        for (HWND child = GetTopWindow(dialog); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
            m_Controls.try_emplace(GetDlgCtrlID(child), child);
    }

    // Null if there is none.
    HWND operator[](int id) const {
        const auto found = m_Controls.find(id);
        return found == m_Controls.end() ? nullptr : found->second;
    }

private:
    std::map<int, HWND> m_Controls;
};
