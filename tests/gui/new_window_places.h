// What the hooks of a thread make of the places of new windows.
#pragma once

#include <vector>

#include "toolkit/rect.h"

// Where windows are to stand when all hooks but this one, which was there before them, have had their say.
// Not every system lets a hook change that: Wine puts the window where it was to stand at first.
class PlacesOfNewWindows {
public:
    PlacesOfNewWindows() {
        s_Places = this;
        m_Hook = SetWindowsHookExW(WH_CBT, &Look, nullptr, GetCurrentThreadId());
    }
    ~PlacesOfNewWindows() { UnhookWindowsHookEx(m_Hook); }
    PlacesOfNewWindows(const PlacesOfNewWindows&) = delete;
    PlacesOfNewWindows& operator=(const PlacesOfNewWindows&) = delete;

    struct Place {
        HWND window;
        RECT rect;
    };
    std::vector<Place> m_Places;

    // Empty if it is none of them.
    [[nodiscard]] RECT Of(HWND window) const {
        for (const Place& place : m_Places)
            if (place.window == window) return place.rect;
        return {};
    }

private:
    static LRESULT CALLBACK Look(int code, WPARAM wParam, LPARAM lParam) {
        if (code == HCBT_CREATEWND) {
            const CREATESTRUCTW& made = *reinterpret_cast<CBT_CREATEWNDW*>(lParam)->lpcs;
            s_Places->m_Places.push_back(
                {reinterpret_cast<HWND>(wParam), BoxAt(made.x, made.y, made.cx, made.cy)});
        }
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }
    static inline PlacesOfNewWindows* s_Places = nullptr;
    HHOOK m_Hook = nullptr;
};
