// Running message boxes and answering them with real input while their own loops run.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/gui/harness.h"
#include "toolkit/message_box.h"

// A message box that shows what is inside, with steps that answer it.
class BoxUnderTest : public tvMessageBox {
public:
    using Step = std::function<bool()>;

    // Runs it; the steps begin when it stands in front with nothing left to paint.
    int Answer(u32 style, std::vector<Step> steps, const tvstring& text = u"The question.",
               const tvstring& title = u"Title");

    [[nodiscard]] HWND Item(int id) const { return GetDlgItem(m_hWnd, id); }
    [[nodiscard]] tvstring ItemText(int id) const;
    [[nodiscard]] bool HasVisible(int id) const;

    // A control's place in the client area.
    [[nodiscard]] RECT PlaceOf(HWND control) const;

    // What is done when the box is about to measure itself.
    std::function<void()> m_onInit;
    void OnSubclassControls() override;
};

// A step that does something once.
BoxUnderTest::Step Once(const std::function<void()>& action);

// Steps that put a key, or a click, into the input queue and leave it to the loop of the box to take it out:
// its keys mean nothing to any other loop.
BoxUnderTest::Step Key(WORD key, unsigned held = HOLD_NOTHING);
BoxUnderTest::Step ClickOn(const BoxUnderTest& box, int id);
BoxUnderTest::Step ClickCross(const BoxUnderTest& box);

// The same at once.
void QueueKey(WORD key, unsigned held = HOLD_NOTHING);
void QueueClick();

tvstring WindowText(HWND window);

inline constexpr const char16_t* kTestedThemes[] = {u"Light", u"Dark", u"System Default"};

// For the names of tests.
inline std::string NameOfTheme(const testing::TestParamInfo<const char16_t*>& tested) {
    return tested.index == 0 ? "Light" : tested.index == 1 ? "Dark" : "SystemDefault";
}
