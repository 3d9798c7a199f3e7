#include "tests/gui/message_box_harness.h"

#include "toolkit/rect.h"

namespace {

void QueueKeyEvent(WORD key, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags;
    EXPECT_EQ(SendInput(1, &input, sizeof input), 1U);
}

void QueueButton(DWORD flags) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    EXPECT_EQ(SendInput(1, &input, sizeof input), 1U);
}

// A place on the cross in the window's title bar, in client coordinates.
bool FindCross(HWND window, POINT& found) {
    RECT rect;
    GetWindowRect(window, &rect);
    for (int y = rect.top + 4; y < rect.top + 40; y += 3) {
        for (int x = rect.right - 4; x > rect.left; x -= 3) {
            if (SendMessageW(window, WM_NCHITTEST, 0, MAKELPARAM(x, y)) != HTCLOSE) continue;
            found = {x - 3, y + 3};
            ScreenToClient(window, &found);
            return true;
        }
    }
    return false;
}

}  // namespace

int BoxUnderTest::Answer(u32 style, std::vector<Step> steps, const tvstring& text, const tvstring& title) {
    const auto inFront = [this] {
        if (m_hWnd == nullptr || GetForegroundWindow() != m_hWnd || GetActiveWindow() != m_hWnd) return false;
        Settle(m_hWnd);
        return true;
    };
    steps.insert(steps.begin(), inFront);
    const DuringModal during(std::move(steps));
    return Run(nullptr, text, style, title);
}

void BoxUnderTest::OnSubclassControls() {
    tvMessageBox::OnSubclassControls();
    if (m_onInit) m_onInit();
}

tvstring BoxUnderTest::ItemText(int id) const {
    return WindowText(Item(id));
}

bool BoxUnderTest::HasVisible(int id) const {
    return Item(id) != nullptr && IsWindowVisible(Item(id)) != FALSE;
}

RECT BoxUnderTest::PlaceOf(HWND control) const {
    RECT rect{};
    GetWindowRect(control, &rect);
    MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

BoxUnderTest::Step Once(const std::function<void()>& action) {
    return [action] {
        action();
        return true;
    };
}

BoxUnderTest::Step Key(WORD key, unsigned held) {
    return Once([=] { QueueKey(key, held); });
}

BoxUnderTest::Step ClickOn(const BoxUnderTest& box, int id) {
    return Once([&box, id] {
        ASSERT_NE(box.Item(id), nullptr) << "no control " << id;
        MoveMouseTo(box.Item(id));
        QueueClick();
    });
}

BoxUnderTest::Step ClickCross(const BoxUnderTest& box) {
    return Once([&box] {
        POINT cross{};
        ASSERT_TRUE(FindCross(box.Handle(), cross)) << "the title bar has no cross";
        MoveMouse(box.Handle(), cross.x, cross.y);
        QueueClick();
    });
}

void QueueKey(WORD key, unsigned held) {
    if ((held & HOLD_CTRL) != 0) QueueKeyEvent(VK_CONTROL, 0);
    QueueKeyEvent(key, 0);
    QueueKeyEvent(key, KEYEVENTF_KEYUP);
    if ((held & HOLD_CTRL) != 0) QueueKeyEvent(VK_CONTROL, KEYEVENTF_KEYUP);
}

void QueueClick() {
    QueueButton(MOUSEEVENTF_LEFTDOWN);
    QueueButton(MOUSEEVENTF_LEFTUP);
}

tvstring WindowText(HWND window) {
    std::vector<char16_t> text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1);
    GetWindowTextW(window, Wide(text.data()), static_cast<int>(text.size()));
    return text.data();
}
