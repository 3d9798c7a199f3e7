// What is done again and again holds no more after hundreds of times than after the first ones.
#include <gtest/gtest.h>

#include <functional>

#include "tests/gui/harness.h"
#include "toolkit/button.h"
#include "toolkit/check_box.h"
#include "toolkit/statics.h"
#include "toolkit/status_bar.h"
#include "toolkit/theme.h"

namespace {

constexpr int kFirst = 10;  // times after which the system has made what it keeps for later
constexpr int kTimes = 500;

void ExpectNothingIsKept(const std::function<void(int)>& action) {
    for (int i = 0; i < kFirst; ++i)
        action(i);
    const Holdings before = WhatIsHeld();
    for (int i = kFirst; i < kTimes; ++i)
        action(i);
    const Holdings after = WhatIsHeld();
    EXPECT_EQ(after.gdiObjects, before.gdiObjects);
    EXPECT_EQ(after.userObjects, before.userObjects);
    EXPECT_EQ(after.heapBytes, before.heapBytes);
}

TEST(Leaks, OfDialogsThatAreOpenedAndClosedThereAreNone) {
    class PlainDialog : public tvDialog {
    public:
        PlainDialog() {
            TemplateBegin(120, 60, DialogKind::Popup, 3);
            AddControl(ATOM_BUTTON, IDOK, 5, 40, 30, 14);
            AddControl(ATOM_EDIT, 100, 5, 5, 60, 14);
            AddControl(ATOM_LISTBOX, 101, 70, 5, 40, 30);
        }
        bool OnInitDialog() override {
            PostMessageW(m_hWnd, WM_CLOSE, 0, 0);
            return true;
        }
    };
    ExpectNothingIsKept([](int) {
        PlainDialog dialog;
        EXPECT_EQ(dialog.DoModal(), 2);
    });
}

TEST(Leaks, OfOneDialogThatIsOpenedAgainAndAgainThereAreNone) {
    TestDialog dialog;
    dialog.Add(ATOM_BUTTON, IDCANCEL, 5, 40, 30, 14);
    tvButton button;
    dialog.Wrap(button, IDCANCEL);
    dialog.m_onInit = [&] { PostMessageW(dialog.Handle(), WM_CLOSE, 0, 0); };
    ExpectNothingIsKept([&dialog](int) { EXPECT_EQ(dialog.DoModal(), 2); });
}

class ThemeLeaks : public testing::Test {
protected:
    ThemeLeaks() {
        m_Dialog.Add(ATOM_BUTTON, 10, 5, 5, 60, 14);
        m_Dialog.Add(ATOM_BUTTON, 11, 5, 25, 60, 14, BS_AUTOCHECKBOX);
        m_Dialog.Add(ATOM_EDIT, 12, 5, 45, 60, 14);
        m_Dialog.Add(ATOM_LISTBOX, 13, 70, 5, 60, 40);
        m_Dialog.Wrap(m_Button, 10);
        m_Dialog.Add(ATOM_STATIC, 14, 5, 100, 190, 15);
        m_Dialog.Wrap(m_Check, 11);
        m_Dialog.Wrap(m_Bar, 14);
        m_Dialog.m_onPaint = [this](HDC, const RECT&) { ++m_Painted; };
    }
    KeepTheme m_KeepTheme;
    tvButton m_Button;
    tvCheckBox m_Check;
    tvStatusBar m_Bar;
    int m_Painted = 0;
    TestDialog m_Dialog;
};

TEST_F(ThemeLeaks, OfSwitchesAmongAllThemesThereAreNone) {
    m_Dialog.Open();
    m_Dialog.BeMain();
    const auto themes = static_cast<int>(TheTheme().m_themes.size());
    ASSERT_EQ(themes, 5);
    ExpectNothingIsKept([themes, this](int i) {
        ASSERT_TRUE(TheTheme().Apply(i % themes));
        PumpQueue();
        Settle(m_Dialog.Handle());
    });
    EXPECT_GE(m_Painted, kTimes / 5 * 4);  // System Default paints nothing of its own
}

}  // namespace
