// That the harness does what tests take for granted.
#include "tests/gui/harness.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include "toolkit/app.h"
#include "toolkit/theme.h"

namespace {

constexpr u16 kEdit = 100;
constexpr u16 kButton = 101;

// A dialog with a field and a button of the system, open.
class Harness : public testing::Test {
protected:
    void SetUp() override {
        m_Dialog.Add(ATOM_EDIT, kEdit, 7, 7, 120, 14);
        m_Dialog.Add(ATOM_BUTTON, kButton, 7, 30, 60, 14, WS_TABSTOP);
        m_Dialog.m_keepMessages = true;
        m_Dialog.Open();
    }

    [[nodiscard]] int Count(UINT message) const {
        int count = 0;
        for (const MSG& msg : m_Dialog.m_messages)
            count += msg.message == message ? 1 : 0;
        return count;
    }

    TestDialog m_Dialog{140, 60};
};

tvstring TextOf(HWND window) {
    wchar_t text[64] = {};
    GetWindowTextW(window, text, 64);
    return Units(text);
}

}  // namespace

TEST_F(Harness, MouseGoesExactlyWhereItIsMoved) {
    for (const POINT to : {POINT{0, 0}, {1, 0}, {37, 41}, {199, 59}}) {
        MoveMouse(m_Dialog.Handle(), to.x, to.y);
        POINT now{};
        GetCursorPos(&now);
        ScreenToClient(m_Dialog.Handle(), &now);
        EXPECT_EQ(now.x, to.x);
        EXPECT_EQ(now.y, to.y);
    }
}

TEST_F(Harness, ClicksOfOnePlaceAreNeverADoubleClick) {
    for (int i = 0; i < 5; ++i)
        Click(m_Dialog.Handle(), 3, 3);
    EXPECT_EQ(Count(WM_LBUTTONDOWN), 5);
    EXPECT_EQ(Count(WM_LBUTTONDBLCLK), 0);
}

TEST_F(Harness, DoubleClickIsOneWhateverCameBefore) {
    Click(m_Dialog.Handle(), 3, 3);
    DoubleClick(m_Dialog.Handle(), 3, 3);
    EXPECT_EQ(Count(WM_LBUTTONDOWN), 2);
    EXPECT_EQ(Count(WM_LBUTTONDBLCLK), 1);
    EXPECT_EQ(Count(WM_LBUTTONUP), 3);
}

TEST_F(Harness, ClickOnAButtonIsACommand) {
    Click(m_Dialog.Item(kButton));
    EXPECT_TRUE(PumpUntil([this] { return m_Dialog.CountCommands(kButton) == 1; }));
}

TEST_F(Harness, KeysReachTheFieldThatHasTheFocus) {
    SetFocus(m_Dialog.Item(kEdit));
    Type('A', HOLD_SHIFT);
    Type('B');
    TypeText(u"\u00E9\u20AC");
    EXPECT_TRUE(PumpUntil([this] { return TextOf(m_Dialog.Item(kEdit)) == u"Ab\u00E9\u20AC"; }));
}

TEST_F(Harness, PictureHasThePixelsOfTheWindow) {
    constexpr COLORREF kColor = RGB(1, 2, 200);
    {
        const tvClientDC dc(m_Dialog.Handle());
        SetPixel(dc.Get(), 5, 3, kColor);
    }
    const Picture picture(m_Dialog.Handle());
    EXPECT_EQ(picture.At(5, 3), kColor);
    EXPECT_EQ(picture.Count(kColor), 1);
    EXPECT_EQ(picture.At(-1, 3), CLR_INVALID);
    EXPECT_EQ(picture.At(picture.Width(), 3), CLR_INVALID);
}

TEST_F(Harness, ThemesArePutInForceByName) {
    const KeepTheme keep;
    UseTheme(u"Green", m_Dialog.Handle());
    EXPECT_EQ(PixelAt(m_Dialog.Handle(), 1, 1), TheTheme().m_base);
    EXPECT_FATAL_FAILURE(UseTheme(u"Mauve"), "no theme");
}

TEST_F(Harness, HoldingsGrowWithWhatIsMadeAndShrinkAgain) {
    constexpr std::size_t kBytes = 5000;
    HPEN pen = nullptr;
    HMENU menu = nullptr;
    HICON icon = nullptr;
    std::unique_ptr<char[]> block;
    const auto make = [&] {
        pen = CreatePen(PS_SOLID, 3, RGB(1, 2, 3));
        menu = CreateMenu();
        icon = CreateIcon(nullptr, 1, 1, 1, 1, reinterpret_cast<const BYTE*>("\0\0"),
                          reinterpret_cast<const BYTE*>("\0\0"));
        block = std::make_unique<char[]>(kBytes);
    };
    const auto release = [&] {
        DestroyIcon(icon);
        DestroyMenu(menu);
        DeleteObject(pen);
        block.reset();
    };
    make();
    release();
    const Holdings before = WhatIsHeld();
    make();
    const Holdings meanwhile = WhatIsHeld();
    release();
    const Holdings after = WhatIsHeld();
    EXPECT_GT(meanwhile.gdiObjects, before.gdiObjects);
    EXPECT_EQ(meanwhile.userObjects, before.userObjects + 2);
    EXPECT_GE(meanwhile.heapBytes, before.heapBytes + kBytes);
    EXPECT_EQ(after.gdiObjects, before.gdiObjects);
    EXPECT_EQ(after.userObjects, before.userObjects);
    EXPECT_LT(after.heapBytes, meanwhile.heapBytes);
}

TEST(HarnessModal, InputOfAStepGoesThroughTheModalLoop) {
    TestDialog dialog;
    dialog.Add(ATOM_BUTTON, IDCANCEL, 7, 7, 60, 14, WS_TABSTOP);
    const DuringModal during({[&] { return GetForegroundWindow() == dialog.Handle(); },
                              [] {
                                  Type(VK_ESCAPE);
                                  return true;
                              }});
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST(HarnessModal, StepThatComesToNoEndFailsTheTestAndEndsTheLoop) {
    const auto neverDone = [] {
        TestDialog dialog;
        const DuringModal during({[] { return false; }}, 50);
        dialog.DoModal();
    };
    testing::TestPartResultArray failures;
    {
        const testing::ScopedFakeTestPartResultReporter reporter(
            testing::ScopedFakeTestPartResultReporter::INTERCEPT_ONLY_CURRENT_THREAD, &failures);
        neverDone();
    }
    EXPECT_GE(failures.size(), 1);
}

TEST(HarnessModal, LoopThatGoesOnAfterTheLastStepFailsTheTestAndIsEnded) {
    const auto goesOn = [] {
        TestDialog dialog;
        const DuringModal during({[] { return true; }}, 50);
        dialog.DoModal();
    };
    EXPECT_NONFATAL_FAILURE(goesOn(), "does not end");
}
