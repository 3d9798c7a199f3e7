// How a push button is painted.
#include <utility>

#include "tests/gui/button_stage.h"
#include "toolkit/draw.h"

namespace {

// A button that paints itself under every theme, without fading.
class Painted : public tvButton {
public:
    Painted() { m_noAnimation = 1; }
    bool UsesSystemLook() override { return false; }
};

bool HasFrame(const Sheet& sheet, COLORREF color) {
    return sheet.At(0, 0) == color && sheet.At(5, 0) == color && sheet.At(0, 5) == color &&
           sheet.AtEnd(0, 0) == color && sheet.AtEnd(5, 0) == color && sheet.AtEnd(0, 5) == color;
}

UNDER_COLOR_THEMES(PushButton);

TEST_P(PushButton, HasFaceFrameAndTextOfTheTheme) {
    const Stage<Painted> stage(GetParam());
    const Sheet sheet(stage.Window(), 0);
    EXPECT_TRUE(HasFrame(sheet, TheTheme().m_border));
    EXPECT_EQ(sheet.At(1, 1), TheTheme().m_button);
    EXPECT_EQ(sheet.AtEnd(1, 1), TheTheme().m_button);
    EXPECT_GT(sheet.Count(TheTheme().m_text), 10);
    EXPECT_EQ(sheet.Count(TheTheme().m_borderActive), 0);
}

TEST_P(PushButton, ShowsOnTheDisplayWhatItPaints) {
    const Stage<Painted> stage(GetParam());
    const Picture picture = stage.Look();
    EXPECT_EQ(picture.At(0, 0), TheTheme().m_border);
    EXPECT_EQ(picture.At(3, 3), TheTheme().m_button);
    EXPECT_GT(picture.Count(TheTheme().m_text), 10);
}

TEST_P(PushButton, ShowsTheMouseOverItAndThatItIsPressed) {
    const Stage<Painted> stage(GetParam());
    MoveMouseTo(stage.Window());
    EXPECT_TRUE(PumpUntil([&] { return stage.Look().At(3, 3) == TheTheme().m_buttonOver; }));
    EXPECT_EQ(stage.Look().At(0, 0), TheTheme().m_borderActive);
    Press();
    EXPECT_TRUE(PumpUntil([&] { return stage.Look().At(3, 3) == TheTheme().m_buttonPush; }));
    EXPECT_EQ(stage.Look().At(0, 0), TheTheme().m_borderActive);
    Release();
    EXPECT_TRUE(PumpUntil([&] { return stage.Look().At(3, 3) == TheTheme().m_buttonOver; }));
    MoveMouseAway();
    EXPECT_TRUE(PumpUntil([&] { return stage.Look().At(3, 3) == TheTheme().m_button; }));
}

TEST_P(PushButton, IsNoLongerLitWhenItIsLetGoElsewhere) {
    const Stage<Painted> stage(GetParam());
    MoveMouseTo(stage.Window());
    Press();
    EXPECT_TRUE(PumpUntil([&] { return stage.Look().At(3, 3) == TheTheme().m_buttonPush; }));
    MoveMouseAway();
    EXPECT_TRUE(PumpUntil([&] { return stage.Look().At(3, 3) == TheTheme().m_buttonOver; }));
    // Not only because the mouse has gone, which may be noticed later.
    EXPECT_TRUE(PumpUntil([&] { return stage.button.m_hover == 0; }));
    Settle(stage.Window());
    Release();
    EXPECT_TRUE(PumpUntil([&] { return stage.Look().At(3, 3) == TheTheme().m_button; }, 1000));
    EXPECT_EQ(stage.dialog.CountCommands(kButton), 0);
}

TEST_P(PushButton, ShowsNoMouseWhileAnotherWindowHasIt) {
    const Stage<Painted> stage(GetParam());
    MoveMouseTo(stage.Window());
    SetCapture(stage.dialog.Item(kEdit));
    EXPECT_EQ(Sheet(stage.Window(), 0).At(3, 3), TheTheme().m_button);
    SetCapture(stage.Window());
    MoveMouseAway();
    EXPECT_EQ(Sheet(stage.Window(), 0).At(3, 3), TheTheme().m_buttonOver);
    ReleaseCapture();
    EXPECT_EQ(Sheet(stage.Window(), 0).At(3, 3), TheTheme().m_button);
}

TEST_P(PushButton, HasDotsAndAnActiveFrameWithTheFocus) {
    Stage<Painted> stage(GetParam());
    Focus(stage.dialog, stage.Window());
    const Picture picture = stage.Look();
    EXPECT_EQ(picture.At(0, 0), TheTheme().m_borderActive);
    // Every other pixel, two from the edge.
    const int bottom = picture.Height() - 3;
    EXPECT_EQ(picture.At(2, bottom), TheTheme().m_text);
    EXPECT_EQ(picture.At(2, bottom - 1), TheTheme().m_button);
    EXPECT_EQ(picture.At(2, bottom - 2), TheTheme().m_text);
}

TEST_P(PushButton, HasNoDotsIfTheFocusIsNotToBeShown) {
    Stage<Painted> stage(GetParam());
    const int dotsAndText = Sheet(stage.Window(), ODS_FOCUS).Count(TheTheme().m_text);
    const int text = Sheet(stage.Window(), 0).Count(TheTheme().m_text);
    EXPECT_GT(dotsAndText, text + 10);
    EXPECT_EQ(Sheet(stage.Window(), ODS_FOCUS | ODS_NOFOCUSRECT).Count(TheTheme().m_text), text);
    stage.button.m_hideFocus = 1;
    const Sheet hidden(stage.Window(), ODS_FOCUS);
    EXPECT_EQ(hidden.Count(TheTheme().m_text), text);
    EXPECT_TRUE(HasFrame(hidden, TheTheme().m_borderActive));
}

TEST_P(PushButton, IsGrayWhenItIsDisabled) {
    const Stage<Painted> stage(GetParam(), BS_DEFPUSHBUTTON);
    EnableWindow(stage.Window(), FALSE);
    MoveMouseTo(stage.Window());
    const Picture picture = stage.Look();
    EXPECT_EQ(picture.At(0, 0), TheTheme().m_border);
    EXPECT_EQ(picture.At(3, 3), TheTheme().m_buttonDisable);
    EXPECT_GT(picture.Count(TheTheme().m_textGray), 10);
    EXPECT_EQ(picture.Count(TheTheme().m_text), 0);
}

TEST_P(PushButton, HasAnActiveFrameAsTheDefault) {
    const Stage<Painted> stage(GetParam(), BS_DEFPUSHBUTTON);
    EXPECT_TRUE(HasFrame(Sheet(stage.Window(), 0), TheTheme().m_borderActive));
}

TEST_P(PushButton, HasAFrameOnItsSidesAlone) {
    Stage<Painted> stage(GetParam());
    const struct {
        bool left, top, right, bottom;
    } kCases[] = {{true, false, false, false},
                  {false, true, false, false},
                  {false, false, true, false},
                  {false, false, false, true},
                  {true, false, true, false}};
    for (const auto& sides : kCases) {
        stage.button.SetSides(sides.left, sides.top, sides.right, sides.bottom);
        const Sheet sheet(stage.Window(), 0);
        const auto expected = [](bool there) { return there ? TheTheme().m_border : TheTheme().m_button; };
        EXPECT_EQ(sheet.At(0, 5), expected(sides.left));
        EXPECT_EQ(sheet.At(5, 0), expected(sides.top));
        EXPECT_EQ(sheet.AtEnd(0, 5), expected(sides.right));
        EXPECT_EQ(sheet.AtEnd(5, 0), expected(sides.bottom));
    }
}

TEST_P(PushButton, WithRoundCornersStandsOnTheBase) {
    Stage<Painted> stage(GetParam());
    stage.button.m_rounded = 1;
    const Sheet sheet(stage.Window(), 0);
    EXPECT_EQ(sheet.At(0, 0), TheTheme().m_base);
    EXPECT_EQ(sheet.AtEnd(0, 0), TheTheme().m_base);
    EXPECT_EQ(sheet.At(12, 4), TheTheme().m_button);
    EXPECT_NE(sheet.At(30, 0), TheTheme().m_base);
    EXPECT_NE(sheet.At(30, 0), TheTheme().m_button);
}

TEST_P(PushButton, HasTheCornersAndThePenOfItsRounding) {
    Stage<Painted> stage(GetParam(), 0, u"");
    stage.button.m_rounded = 1;
    const Sheet expected(stage.Window());
    const RECT all{0, 0, expected.size.cx, expected.size.cy};
    FillSolid(expected.canvas.Dc(), all, TheTheme().m_base);
    RoundRect(expected.canvas.Dc(), all, 10, TheTheme().m_button, TheTheme().m_border, 1.5F);
    EXPECT_TRUE(Sheet(stage.Window(), 0) == expected);
}

TEST_P(PushButton, PlacesItsTextByTheStyle) {
    Stage<Painted> stage(GetParam(), 0, u"n");
    const auto textAt = [&](unsigned align) {
        stage.button.SetContentAlign(align);
        return Sheet(stage.Window(), 0).ExtentOf(TheTheme().m_text);
    };
    const SIZE size = SizeOf(stage.Window());
    const RECT center = textAt(ALIGN_CENTER | ALIGN_MIDDLE);
    EXPECT_NEAR(center.left + center.right, size.cx, 3);
    const RECT left = textAt(ALIGN_MIDDLE);
    EXPECT_GE(left.left, 3);
    EXPECT_LE(left.left, 5);
    EXPECT_EQ(left.top, center.top);
    const RECT right = textAt(ALIGN_RIGHT | ALIGN_MIDDLE);
    EXPECT_LE(right.right, size.cx - 3);
    EXPECT_GE(right.right, size.cx - 5);
    EXPECT_LT(textAt(ALIGN_CENTER).top, center.top);
    EXPECT_GT(textAt(ALIGN_CENTER | ALIGN_BOTTOM).top, center.top);
    EXPECT_EQ(textAt(ALIGN_CENTER | ALIGN_BOTTOM).left, center.left);
}

TEST_P(PushButton, WithoutAlignmentCentersItsText) {
    Stage<Painted> stage(GetParam());
    const Sheet plain(stage.Window(), 0);
    stage.button.SetContentAlign(ALIGN_CENTER | ALIGN_MIDDLE);
    EXPECT_TRUE(plain == Sheet(stage.Window(), 0));
}

// A button that tells what it would paint itself from.
class Telling : public Painted {
public:
    using tvButton::PrefixFlag;
    using tvButton::ThemeState;
    tvButtonColors ColorsFor(UINT state) {
        DRAWITEMSTRUCT item{};
        item.itemState = state;
        tvButtonColors colors;
        GetColors(item, colors);
        return colors;
    }
};

TEST_P(PushButton, UnderlinesItsLetterOnlyWhenCuesAreOn) {
    Stage<Telling> stage(GetParam(), 0, u"&OK");
    const tvButtonColors cues = stage.button.ColorsFor(0);
    const tvButtonColors noCues = stage.button.ColorsFor(ODS_NOACCEL);
    EXPECT_EQ(cues.m_showAccel, 1);
    EXPECT_EQ(noCues.m_showAccel, 0);
    EXPECT_EQ(Telling::PrefixFlag(cues), 0U);
    EXPECT_EQ(Telling::PrefixFlag(noCues), UINT{DT_HIDEPREFIX});
}

// True if the system leaves the underline out when it is told to, as some do not.
bool SystemHidesPrefixes() {
    const Canvas shown(40, 20);
    const Canvas hidden(40, 20);
    RECT rect{0, 0, 40, 20};
    DrawTextW(shown.Dc(), L"&n", 2, &rect, DT_SINGLELINE);
    DrawTextW(hidden.Dc(), L"&n", 2, &rect, DT_SINGLELINE | DT_HIDEPREFIX);
    return shown.Count(RGB(0, 0, 0)) != hidden.Count(RGB(0, 0, 0));
}

TEST_P(PushButton, LooksAsWithoutALetterWhenCuesAreOff) {
    const Stage<Painted> stage(GetParam(), 0, u"&OK");
    const Sheet withCues(stage.Window(), 0);
    const Sheet without(stage.Window(), ODS_NOACCEL);
    SetWindowTextW(stage.Window(), L"OK");
    const Sheet plain(stage.Window(), 0);
    EXPECT_GT(withCues.Count(TheTheme().m_text), plain.Count(TheTheme().m_text));
    EXPECT_EQ(without == plain, SystemHidesPrefixes());
}

TEST(PushButtonTheme, IsTakenAnewAtEachPicture) {
    const Stage<> stage(kLight);
    const COLORREF light = TheTheme().m_button;
    EXPECT_EQ(stage.Look().At(3, 3), light);
    UseTheme(kDark, stage.dialog.Handle());
    EXPECT_NE(TheTheme().m_button, light);
    EXPECT_EQ(stage.Look().At(3, 3), TheTheme().m_button);
}

// --- System Default, without a visual style ---

class Classic : public Painted {
public:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        m_theme.Reset();
        return Painted::WindowProc(message, wParam, lParam);
    }
    void GetColors(const DRAWITEMSTRUCT& item, tvButtonColors& colors) override {
        m_theme.Reset();
        Painted::GetColors(item, colors);
    }
};

TEST(ClassicPushButton, HasTwoBevels) {
    const Stage<Classic> stage(kSystem);
    const Sheet sheet(stage.Window(), 0);
    EXPECT_EQ(sheet.At(0, 0), GetSysColor(COLOR_3DHILIGHT));
    EXPECT_EQ(sheet.At(1, 1), GetSysColor(COLOR_3DLIGHT));
    EXPECT_EQ(sheet.AtEnd(0, 0), GetSysColor(COLOR_3DDKSHADOW));
    EXPECT_EQ(sheet.AtEnd(1, 1), GetSysColor(COLOR_BTNSHADOW));
    EXPECT_EQ(sheet.At(2, 2), GetSysColor(COLOR_BTNFACE));
    EXPECT_GT(sheet.Count(GetSysColor(COLOR_BTNTEXT)), 10);
}

TEST(ClassicPushButton, HasBevelsOnItsSidesAlone) {
    Stage<Classic> stage(kSystem);
    stage.button.SetSides(true, false, false, false);
    const Sheet sheet(stage.Window(), 0);
    EXPECT_EQ(sheet.At(0, 5), GetSysColor(COLOR_3DHILIGHT));
    EXPECT_EQ(sheet.At(5, 0), GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(sheet.AtEnd(0, 5), GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(sheet.AtEnd(5, 0), GetSysColor(COLOR_BTNFACE));
}

TEST(ClassicPushButton, HasAFrameAroundAllAsTheDefault) {
    const Stage<Classic> stage(kSystem, BS_DEFPUSHBUTTON);
    const Sheet sheet(stage.Window(), 0);
    EXPECT_TRUE(HasFrame(sheet, GetSysColor(COLOR_WINDOWFRAME)));
    EXPECT_EQ(sheet.At(1, 1), GetSysColor(COLOR_3DHILIGHT));
    EXPECT_EQ(sheet.AtEnd(1, 1), GetSysColor(COLOR_3DDKSHADOW));
}

TEST(ClassicPushButton, IsFlatAndMovesItsTextWhenItIsPressed) {
    const Stage<Classic> stage(kSystem, 0, u"n");
    const COLORREF color = GetSysColor(COLOR_BTNTEXT);
    const RECT idle = Sheet(stage.Window(), 0).ExtentOf(color);
    const Sheet pressed(stage.Window(), ODS_SELECTED);
    EXPECT_TRUE(HasFrame(pressed, GetSysColor(COLOR_BTNSHADOW)));
    EXPECT_EQ(pressed.At(1, 1), GetSysColor(COLOR_BTNFACE));
    const RECT moved = pressed.ExtentOf(color);
    EXPECT_EQ(moved.left, idle.left + 1);
    EXPECT_EQ(moved.top, idle.top + 1);
}

TEST(ClassicPushButton, HasGrayTextWhenItIsDisabled) {
    const Stage<Classic> stage(kSystem);
    const Sheet sheet(stage.Window(), ODS_DISABLED);
    EXPECT_GT(sheet.Count(GetSysColor(COLOR_GRAYTEXT)), 10);
}

// --- System Default, with a visual style ---

class Styled : public Painted {
public:
    void GetColors(const DRAWITEMSTRUCT& item, tvButtonColors& colors) override {
        if (!m_theme) m_theme.Reset(OpenThemeData(m_hWnd, L"Button"));
        Painted::GetColors(item, colors);
    }
};

// What the visual style paints for a push button in a state.
struct StyledSheet : Sheet {
    StyledSheet(HWND window, int state) : Sheet(window) {
        const RECT all{0, 0, size.cx, size.cy};
        FillSolid(canvas.Dc(), all, GetSysColor(COLOR_BTNFACE));
        const tvThemeHandle theme(OpenThemeData(window, L"Button"));
        DrawThemeBackground(theme.Get(), canvas.Dc(), BP_PUSHBUTTON, state, &all, nullptr);
    }
};

class StyledPushButton : public testing::Test {
protected:
    void SetUp() override { ASSERT_NE(IsAppThemed(), FALSE) << "the system has no visual style"; }
};

TEST_F(StyledPushButton, TakesItsGroundFromTheVisualStyle) {
    Stage<Styled> stage(kSystem, 0, u"");
    const HWND window = stage.Window();
    ASSERT_FALSE(StyledSheet(window, PBS_NORMAL) == StyledSheet(window, PBS_PRESSED));
    ASSERT_FALSE(StyledSheet(window, PBS_NORMAL) == StyledSheet(window, PBS_DISABLED));
    ASSERT_FALSE(StyledSheet(window, PBS_NORMAL) == StyledSheet(window, PBS_DEFAULTED));
    stage.button.m_hideFocus = 1;
    EXPECT_TRUE(Sheet(window, 0) == StyledSheet(window, PBS_NORMAL));
    EXPECT_TRUE(Sheet(window, ODS_SELECTED) == StyledSheet(window, PBS_PRESSED));
    EXPECT_TRUE(Sheet(window, ODS_DISABLED) == StyledSheet(window, PBS_DISABLED));
    EXPECT_TRUE(Sheet(window, ODS_FOCUS) == StyledSheet(window, PBS_DEFAULTED));
    stage.button.m_alwaysDefault = 1;
    EXPECT_TRUE(Sheet(window, ODS_FOCUS) == StyledSheet(window, PBS_HOT));
    EXPECT_TRUE(Sheet(window, 0) == StyledSheet(window, PBS_NORMAL));
    SendMessageW(window, BM_SETSTYLE, BS_DEFPUSHBUTTON, FALSE);
    EXPECT_TRUE(Sheet(window, 0) == StyledSheet(window, PBS_HOT));
    stage.button.m_alwaysDefault = 0;
    EXPECT_TRUE(Sheet(window, 0) == StyledSheet(window, PBS_DEFAULTED));
    MoveMouseTo(window);
    EXPECT_TRUE(Sheet(window, 0) == StyledSheet(window, PBS_HOT));
}

TEST(PushButtonState, InTheVisualStyleIsThatWhichMattersMost) {
    Stage<Telling> stage(kSystem);
    const auto state = [&](const tvButtonColors& colors) { return stage.button.ThemeState(colors); };
    tvButtonColors colors;
    EXPECT_EQ(state(colors), 1);
    colors.m_focused = 1;
    EXPECT_EQ(state(colors), 5);
    stage.button.m_alwaysDefault = 1;
    EXPECT_EQ(state(colors), 2);
    stage.button.m_alwaysDefault = 0;
    colors.m_hot = 1;
    EXPECT_EQ(state(colors), 2);
    colors.m_disabled = 1;
    EXPECT_EQ(state(colors), 4);
    colors.m_pushed = 1;
    EXPECT_EQ(state(colors), 3);
    colors = tvButtonColors();
    SendMessageW(stage.Window(), BM_SETSTYLE, BS_DEFPUSHBUTTON, FALSE);
    EXPECT_EQ(state(colors), 5);
    stage.button.m_alwaysDefault = 1;
    EXPECT_EQ(state(colors), 2);
}

TEST_F(StyledPushButton, TakesTheColorOfItsTextFromTheVisualStyle) {
    const Stage<Styled> stage(kSystem);
    const tvThemeHandle theme(OpenThemeData(stage.Window(), L"Button"));
    COLORREF color = 0;
    const bool known =
        SUCCEEDED(GetThemeColor(theme.Get(), BP_PUSHBUTTON, PBS_DISABLED, TMT_TEXTCOLOR, &color));
    if (!known) color = GetSysColor(COLOR_GRAYTEXT);
    const StyledSheet ground(stage.Window(), PBS_DISABLED);
    EXPECT_GT(Sheet(stage.Window(), ODS_DISABLED).Count(color), ground.Count(color) + 10);
}

// --- Fading ---

template <typename Base>
class Fading : public Base {
public:
    Fading() { this->m_noAnimation = 0; }
    bool DrawAnimated(HWND window, HDC dc, const RECT& rect, void* paint) override {
        ++m_fades;
        return Base::DrawAnimated(window, dc, rect, paint);
    }
    int m_fades = 0;
};

template <typename Wrapper>
int FadesOfOnePicture(Stage<Wrapper>& stage) {
    Settle(stage.Window());
    const int before = stage.button.m_fades;
    InvalidateRect(stage.Window(), nullptr, TRUE);
    Settle(stage.Window());
    return stage.button.m_fades - before;
}

TEST(PushButtonFade, GoesFromOnePictureToTheNext) {
    Stage<Fading<Painted>> stage(kLight);
    EXPECT_EQ(FadesOfOnePicture(stage), 1);
    stage.button.m_noAnimation = 1;
    EXPECT_EQ(FadesOfOnePicture(stage), 0);
}

TEST(PushButtonFade, UnderSystemDefaultNeedsTheVisualStyle) {
    Stage<Fading<Styled>> styled(kSystem);
    EXPECT_EQ(FadesOfOnePicture(styled), 1);
    styled.dialog.Close();
    Stage<Fading<Classic>> classic(kSystem);
    EXPECT_EQ(FadesOfOnePicture(classic), 0);
}

}  // namespace
