// Mouse and keyboard of the harness.
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <optional>

#include "tests/gui/harness.h"

namespace {

// In a step of DuringModal the modal loop has to get what is caused, after the step.
void LetItTakeEffect() {
    if (!DuringModal::InStep()) PumpQueue();
}

// PumpUntil, but for steps of DuringModal, where nothing is dispatched. No condition of this file needs that.
bool Await(const std::function<bool()>& condition, int limit = kWaitLimit) {
    if (!DuringModal::InStep()) return PumpUntil(condition, limit);
    const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(limit);
    while (!condition()) {
        if (GetTickCount64() >= end) return false;
        Sleep(1);
    }
    return true;
}

void Send(const INPUT& input) {
    INPUT copy = input;
    ASSERT_EQ(SendInput(1, &copy, sizeof copy), 1U) << "the system takes no input";
}

void SendMouse(DWORD flags, LONG x = 0, LONG y = 0, DWORD data = 0) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = x;
    input.mi.dy = y;
    input.mi.mouseData = data;
    input.mi.dwFlags = flags;
    Send(input);
}

void SendKey(WORD key, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags;
    Send(input);
}

// On a busy machine the display tells Wine late of a window that has gone: the desktop then takes the
// foreground from the window that has it by now, and what is typed goes nowhere. That window gets it back.
void KeepForeground() {
    static HWND last = nullptr;
    HWND front = GetForegroundWindow();
    if (front != nullptr && front != GetDesktopWindow()) {
        last = front;
    } else if (IsWindowVisible(last) != FALSE) {
        SetForegroundWindow(last);
        Await([] { return GetForegroundWindow() == last; });
    }
}

// A pixel of the primary display in the 65536 steps that absolute input counts in, in the middle of the
// pixel's own.
LONG Absolute(int pixel, int extent) {
    return static_cast<LONG>((static_cast<long long>(pixel) * 65536 + 32768) / extent);
}

// Where the mouse was moved last.
std::optional<POINT>& LastPlace() {
    static std::optional<POINT> place;
    return place;
}

// The move and the rest of the event are one: nothing comes between.
void SendMouseAt(POINT point, DWORD flags) {
    SendMouse(flags | MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE,
              Absolute(point.x, GetSystemMetrics(SM_CXSCREEN)),
              Absolute(point.y, GetSystemMetrics(SM_CYSCREEN)));
}

// On a busy machine the display tells a program late of a place where the mouse has been, and Wine takes the
// mouse back there: a button that went down or up then would do so elsewhere, and the click would be lost.
void SendButton(DWORD flags) {
    if (LastPlace()) {
        SendMouseAt(*LastPlace(), flags);
    } else {
        SendMouse(flags);
    }
}

void MoveToScreen(POINT point) {
    LastPlace() = point;
    SendMouseAt(point, 0);
    const auto isThere = [point] {
        POINT now{};
        return GetCursorPos(&now) != FALSE && now.x == point.x && now.y == point.y;
    };
    EXPECT_TRUE(Await(isThere)) << "the mouse does not get to " << point.x << ", " << point.y;
    LetItTakeEffect();
}

// Whether the next press makes a double click of the last one is settled here, and never by how quick a test
// is.
enum class Doubled { No, Yes };
void SetDoubled(Doubled doubled) {
    constexpr UINT kNever = 1;  // milliseconds
    constexpr UINT kUsual = 500;
    SetDoubleClickTime(doubled == Doubled::Yes ? kUsual : kNever);
    const ULONGLONG start = GetTickCount64();
    if (doubled == Doubled::No) Await([start] { return GetTickCount64() > start + kNever; });
}

struct ButtonFlags {
    DWORD down;
    DWORD up;
    int key;
};
ButtonFlags FlagsOf(MouseButton button) {
    switch (button) {
        case MouseButton::Right:
            return {MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP, VK_RBUTTON};
        case MouseButton::Middle:
            return {MOUSEEVENTF_MIDDLEDOWN, MOUSEEVENTF_MIDDLEUP, VK_MBUTTON};
        case MouseButton::Left:
            break;
    }
    return {MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP, VK_LBUTTON};
}

bool IsKeyDown(int key) {
    return (GetAsyncKeyState(key) & 0x8000) != 0;
}

// It is down, or has been since this was asked last.
bool WasKeyDown(int key) {
    return (GetAsyncKeyState(key) & 0x8001) != 0;
}

constexpr struct {
    unsigned bit;
    WORD key;
} kModifierKeys[] = {{HOLD_SHIFT, VK_SHIFT}, {HOLD_CTRL, VK_CONTROL}, {HOLD_ALT, VK_MENU}};

// A window that comes to the front late takes over which keys are held on the display itself: none. They are
// held once more then.
void HoldKeys(unsigned held) {
    const auto areHeld = [held] {
        return std::all_of(std::begin(kModifierKeys), std::end(kModifierKeys), [held](const auto& modifier) {
            return (held & modifier.bit) == 0 || IsKeyDown(modifier.key);
        });
    };
    const auto hold = [&] {
        for (const auto& modifier : kModifierKeys)
            if ((held & modifier.bit) != 0 && !IsKeyDown(modifier.key)) KeyDown(modifier.key);
        LetItTakeEffect();
        return areHeld();
    };
    EXPECT_TRUE(hold() || Await(hold)) << "the keys to be held are lost";
}

void LetKeysGo(unsigned held) {
    for (const auto& modifier : kModifierKeys)
        if ((held & modifier.bit) != 0) KeyUp(modifier.key);
}

}  // namespace

void MoveMouse(HWND window, int x, int y) {
    POINT point{x, y};
    ClientToScreen(window, &point);
    MoveToScreen(point);
}

void MoveMouseTo(HWND window) {
    RECT rect{};
    GetClientRect(window, &rect);
    MoveMouse(window, rect.right / 2, rect.bottom / 2);
}

void MoveMouseAway() {
    MoveToScreen({GetSystemMetrics(SM_CXSCREEN) - 1, GetSystemMetrics(SM_CYSCREEN) - 1});
}

void Press(MouseButton button) {
    SetDoubled(Doubled::No);
    const ButtonFlags flags = FlagsOf(button);
    SendButton(flags.down);
    EXPECT_TRUE(Await([flags] { return IsKeyDown(flags.key); })) << "the mouse button is not taken";
    LetItTakeEffect();
}

void Release(MouseButton button) {
    const ButtonFlags flags = FlagsOf(button);
    SendButton(flags.up);
    EXPECT_TRUE(Await([flags] { return !IsKeyDown(flags.key); })) << "the mouse button is not let go";
    LetItTakeEffect();
}

void Click(HWND window, int x, int y, MouseButton button, unsigned held) {
    MoveMouse(window, x, y);
    HoldKeys(held);
    Press(button);
    Release(button);
    LetKeysGo(held);
}

void Click(HWND window) {
    MoveMouseTo(window);
    Press();
    Release();
}

void DoubleClick(HWND window, int x, int y) {
    MoveMouse(window, x, y);
    Press();
    Release();
    SetDoubled(Doubled::Yes);
    SendButton(MOUSEEVENTF_LEFTDOWN);
    SendButton(MOUSEEVENTF_LEFTUP);
    EXPECT_TRUE(Await([] { return !IsKeyDown(VK_LBUTTON); })) << "the mouse button is not let go";
    LetItTakeEffect();
    SetDoubled(Doubled::No);
}

void RollWheel(HWND window, int x, int y, int notches) {
    MoveMouse(window, x, y);
    SendMouse(MOUSEEVENTF_WHEEL, 0, 0, static_cast<DWORD>(notches * WHEEL_DELTA));
    LetItTakeEffect();
}

// A window that the key brings to the front may let go of it at once, see HoldKeys: the key has been taken
// all the same, and must not come again.
void KeyDown(WORD key) {
    constexpr int kSoon = 1000;
    const auto isTaken = [key] { return WasKeyDown(key); };
    KeepForeground();
    WasKeyDown(key);  // what was before is forgotten
    SendKey(key, 0);
    if (!Await(isTaken, kSoon)) {
        KeepForeground();
        SendKey(key, 0);
        EXPECT_TRUE(Await(isTaken)) << "key " << key << " is not taken";
    }
    LetItTakeEffect();
}

void KeyUp(WORD key) {
    SendKey(key, KEYEVENTF_KEYUP);
    EXPECT_TRUE(Await([key] { return !IsKeyDown(key); })) << "key " << key << " is not let go";
    LetItTakeEffect();
}

void Type(WORD key, unsigned held) {
    HoldKeys(held);
    KeyDown(key);
    KeyUp(key);
    LetKeysGo(held);
}

void TypeText(std::u16string_view text) {
    for (const char16_t unit : text) {
        KeepForeground();
        INPUT input{};
        input.type = INPUT_KEYBOARD;
        input.ki.wScan = unit;
        for (const DWORD flags : {0UL, static_cast<DWORD>(KEYEVENTF_KEYUP)}) {
            input.ki.dwFlags = KEYEVENTF_UNICODE | flags;
            Send(input);
        }
        LetItTakeEffect();
    }
}
