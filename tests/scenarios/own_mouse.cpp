#include "tests/scenarios/own_mouse.h"

#include <gtest/gtest.h>

namespace {

LRESULT CALLBACK OnMouse(int code, WPARAM message, LPARAM lParam) {
    if (code != HC_ACTION) return CallNextHookEx(nullptr, code, message, lParam);
    const auto& mouse = *reinterpret_cast<const MSLLHOOKSTRUCT*>(lParam);
    constexpr LRESULT kDropped = 1;
    if ((mouse.flags & LLMHF_INJECTED) == 0) return kDropped;
    // With a hook in its way Wine does not take the display's own pointer along.
    if (message == WM_MOUSEMOVE) SetCursorPos(mouse.pt.x, mouse.pt.y);
    return CallNextHookEx(nullptr, code, message, lParam);
}

}  // namespace

OwnMouse::OwnMouse() : m_Hook(SetWindowsHookExW(WH_MOUSE_LL, OnMouse, GetModuleHandleW(nullptr), 0)) {
    EXPECT_NE(m_Hook, nullptr) << "the mouse may be moved by others";
}

OwnMouse::~OwnMouse() {
    UnhookWindowsHookEx(m_Hook);
}
