// Size and place of a spin control, its buddy and its mouse.
#include "toolkit/spin.h"

#include "tests/gui/input_stage.h"
#include "toolkit/edit.h"
#include "toolkit/font.h"

namespace {

constexpr u16 kSpin = 40;

class SpinTest : public EachTheme {
protected:
    SpinTest() {
        UseTheme(GetParam());
        MoveMouseAway();
        m_Dialog.Add(ATOM_EDIT, kOther, 5, 5, 80, 12);
        m_Dialog.Add(ATOM_EDIT, kInput, 60, 40, 50, 14);
        m_Dialog.Wrap(m_Edit, kInput);
        m_Dialog.Open();
    }
    // With the dialog's edit box as a buddy.
    void Join(DWORD style) {
        ASSERT_TRUE(m_Spin.Create(m_Dialog.Handle(), kSpin, WS_VISIBLE | UDS_SETBUDDYINT | style));
        m_Spin.Send(UDM_SETBUDDY, reinterpret_cast<WPARAM>(m_Edit.Handle()));
        m_Spin.Send(UDM_SETRANGE32, 0, 100);
        m_Spin.Send(UDM_SETPOS32, 0, 50);
        MoveWindow(m_Edit.Handle(), 100, 60, 80, 24, TRUE);
        m_Spin.OnAutoFit();
        Settle(m_Dialog.Handle());
    }
    [[nodiscard]] HWND Buddy() const { return OuterOf(m_Dialog.Handle(), m_Edit.Handle()); }
    [[nodiscard]] RECT PlaceOf(HWND window) const { return PlaceIn(m_Dialog.Handle(), window); }
    [[nodiscard]] static PixelSize Units() { return DialogUnitsToPixels(TheTheme().Font(), 10, 14); }

    KeepTheme m_Keep;
    tvEdit m_Edit;
    tvSpinCtrl m_Spin;
    TestDialog m_Dialog;
};

class Spin : public SpinTest {};
INSTANTIATE_TEST_SUITE_P(Themes, Spin, testing::Values(kLight, kDark, kSystem), ThemeName);
class ColoredSpin : public SpinTest {};
INSTANTIATE_TEST_SUITE_P(Themes, ColoredSpin, testing::Values(kLight, kDark), ThemeName);

TEST_P(Spin, IsMadeAsAChildThatDoesNotNotifyOfItself) {
    ASSERT_TRUE(m_Spin.Create(m_Dialog.Handle(), kSpin, WS_VISIBLE));
    EXPECT_EQ(GetDlgCtrlID(m_Spin.Handle()), kSpin);
    EXPECT_EQ(GetParent(m_Spin.Handle()), m_Dialog.Handle());
    EXPECT_EQ(GetWindowLongPtrW(m_Spin.Handle(), GWL_EXSTYLE) & 4, 4);
    EXPECT_EQ(m_Spin.m_font, TheTheme().Font());
    EXPECT_FALSE(m_Spin.Create(m_Dialog.Handle(), kSpin, WS_VISIBLE));
    tvSpinCtrl orphan;
    EXPECT_FALSE(orphan.Create(nullptr, kSpin, 0));
}

TEST_P(Spin, WithoutABuddyTakesItsSizeFromTheFont) {
    ASSERT_TRUE(m_Spin.Create(m_Dialog.Handle(), kSpin, WS_VISIBLE));
    MoveWindow(m_Spin.Handle(), 33, 44, 90, 90, TRUE);
    m_Spin.OnAutoFit();
    EXPECT_EQ(PlaceOf(m_Spin.Handle()), BoxAt(33, 44, Units().x, Units().y));
    const HFONT large = TheTheme().m_fontLarge.Get();
    m_Spin.Send(WM_SETFONT, reinterpret_cast<WPARAM>(large), TRUE);
    const PixelSize size = DialogUnitsToPixels(large, 10, 14);
    EXPECT_EQ(PlaceOf(m_Spin.Handle()), BoxAt(33, 44, size.x, size.y));
}

TEST_P(Spin, LiesAtTheRightOfItsBuddy) {
    Join(UDS_ALIGNRIGHT);
    const RECT edit = PlaceOf(Buddy());
    EXPECT_EQ(edit.left, 100);
    EXPECT_EQ(Width(edit), 80);
    EXPECT_EQ(PlaceOf(m_Spin.Handle()), BoxAt(178, 60, Units().x, Height(edit)));
}

TEST_P(Spin, LiesAtTheLeftOfItsBuddyWhichMakesRoom) {
    Join(UDS_ALIGNLEFT);
    const RECT edit = PlaceOf(Buddy());
    EXPECT_EQ(edit.left, 100 + Units().x);
    EXPECT_EQ(Width(edit), 80);
    EXPECT_EQ(PlaceOf(m_Spin.Handle()), BoxAt(102, 60, Units().x, Height(edit)));
}

TEST_P(Spin, CutsItsBuddysFrameWhereTheyTouch) {
    for (const DWORD side : {DWORD{UDS_ALIGNRIGHT}, DWORD{UDS_ALIGNLEFT}}) {
        Join(side);
        const RECT edit = PlaceOf(Buddy());
        RECT box{};
        EXPECT_EQ(GetWindowRgnBox(Buddy(), &box), SIMPLEREGION);
        const bool atLeft = side == UDS_ALIGNLEFT;
        EXPECT_EQ(box, (RECT{atLeft ? 2 : 0, 0, Width(edit) - (atLeft ? 0 : 2), Height(edit)}));
        m_Spin.Detach(tvWnd::Window::Destroy);
    }
}

TEST_P(Spin, ThatIsNotAlignedTakesButItsBuddysHeight) {
    Join(0);
    const RECT edit = PlaceOf(Buddy());
    MoveWindow(m_Spin.Handle(), 7, 8, 90, 90, TRUE);
    m_Spin.OnAutoFit();
    EXPECT_EQ(PlaceOf(m_Spin.Handle()), BoxAt(7, static_cast<int>(edit.top), Units().x, Height(edit)));
    RECT box{};
    EXPECT_EQ(GetWindowRgnBox(Buddy(), &box), ERROR);
}

TEST_P(Spin, LiesAgainstTheWindowThatHoldsItsBuddy) {
    const HWND holder = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 100, 90, 70, 20,
                                        m_Dialog.Handle(), nullptr, nullptr, nullptr);
    Join(UDS_ALIGNRIGHT);
    SetParent(m_Edit.Handle(), holder);
    m_Spin.OnAutoFit();
    EXPECT_EQ(PlaceOf(m_Spin.Handle()), BoxAt(168, 90, Units().x, 20));
    RECT box{};
    GetWindowRgnBox(holder, &box);
    EXPECT_EQ(box, (RECT{0, 0, 68, 20}));
}

TEST_P(Spin, CountsWithTheMouse) {
    Join(UDS_ALIGNRIGHT);
    const SIZE size = SizeOf(m_Spin.Handle());
    const int middle = static_cast<int>(size.cx / 2);
    Click(m_Spin.Handle(), middle, 4);
    EXPECT_TRUE(
        PumpUntil([&] { return TextOf(m_Edit.Handle()) == u"49" || TextOf(m_Edit.Handle()) == u"51"; }));
    const tvstring first = TextOf(m_Edit.Handle());
    Click(m_Spin.Handle(), middle, static_cast<int>(size.cy) - 4);
    EXPECT_TRUE(PumpUntil([&] { return TextOf(m_Edit.Handle()) == u"50"; }));
    EXPECT_NE(first, u"50");
}

TEST_P(Spin, NeverLetsItsGroundBeErased) {
    Join(UDS_ALIGNRIGHT);
    const Canvas canvas(9, 9);
    EXPECT_EQ(m_Spin.Send(WM_ERASEBKGND, reinterpret_cast<WPARAM>(canvas.Dc())), 1);
    EXPECT_EQ(canvas.Count(RGB(255, 255, 255)), 81);
}

// --- The mouse ---

TEST_P(ColoredSpin, KnowsTheHalfUnderTheMouse) {
    Join(UDS_ALIGNRIGHT);
    const int height = static_cast<int>(SizeOf(m_Spin.Handle()).cy);
    const int middle = (height - 1) / 2;  // the last row of the first half
    const struct {
        int y;
        int part;
    } kCases[] = {{2, 1}, {middle, 1}, {middle + 1, 2}, {height - 2, 2}, {3, 1}};
    for (const auto& one : kCases) {
        MoveMouse(m_Spin.Handle(), 5, one.y);
        EXPECT_TRUE(PumpUntil([&] { return m_Spin.m_hotPart == one.part; })) << one.y;
    }
    EXPECT_EQ(m_Spin.m_tracking, 1);
    MoveMouseAway();
    EXPECT_TRUE(PumpUntil([&] { return m_Spin.m_hotPart == 0; }));
    EXPECT_EQ(m_Spin.m_tracking, 0);
}

TEST_P(ColoredSpin, HasItsHalvesSideBySideIfItIsHorizontal) {
    Join(UDS_ALIGNRIGHT | UDS_HORZ);
    const SIZE size = SizeOf(m_Spin.Handle());
    const int middle = (static_cast<int>(size.cx) - 1) / 2;
    for (const int y : {3, static_cast<int>(size.cy) - 3}) {
        MoveMouse(m_Spin.Handle(), middle, y);
        EXPECT_TRUE(PumpUntil([&] { return m_Spin.m_hotPart == 1; }));
        MoveMouse(m_Spin.Handle(), middle + 1, y);
        EXPECT_TRUE(PumpUntil([&] { return m_Spin.m_hotPart == 2; }));
    }
    MoveMouseAway();
}

TEST_P(ColoredSpin, ForgetsTheMouseUnderSystemDefault) {
    Join(UDS_ALIGNRIGHT);
    UseTheme(kSystem, m_Dialog.Handle());
    MoveMouse(m_Spin.Handle(), 5, 3);
    PumpQueue();
    EXPECT_EQ(m_Spin.m_hotPart, 0);
    MoveMouseAway();
}

}  // namespace
