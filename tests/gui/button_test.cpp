// What a button does with its messages.
#include "toolkit/button.h"

#include <utility>

#include "tests/gui/button_stage.h"
#include "toolkit/system.h"
#include "toolkit/tool_tip.h"

namespace {

// A button that counts what it is called with.
class CountingButton : public tvButton {
public:
    void OnAutoFit() override { ++m_fits; }
    void SetSideMask(unsigned mask) override {
        m_mask = mask;
        tvButton::SetSideMask(mask);
    }
    int m_fits = 0;
    unsigned m_mask = 99;
};

bool IsWaitingForPaint(HWND window) {
    return GetUpdateRect(window, nullptr, FALSE) != FALSE;
}

LPARAM ThemeMessage() {
    return reinterpret_cast<LPARAM>(&TheTheme());
}

int ToolCount() {
    return static_cast<int>(TheToolTip().Send(TTM_GETTOOLCOUNT));
}

// The text of a window's tip; empty without one.
tvstring TipOf(HWND window) {
    wchar_t text[200] = {};
    TOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = TTF_IDISHWND;
    tool.hwnd = window;
    tool.uId = reinterpret_cast<UINT_PTR>(window);
    tool.lpszText = text;
    TheToolTip().Send(TTM_GETTEXTW, 200, reinterpret_cast<LPARAM>(&tool));
    return tvstring(platform::Units(text));
}

UNDER_EACH_THEME(ButtonInEachTheme);

TEST_P(ButtonInEachTheme, IsOwnerDrawnUnderAColorThemeAlone) {
    Stage<> stage(GetParam(), BS_DEFPUSHBUTTON | BS_RIGHT);
    EXPECT_EQ(TypeOf(stage.Window()), IsColored() ? BS_OWNERDRAW : BS_DEFPUSHBUTTON);
    EXPECT_EQ(StyleOf(stage.Window()) & BS_CENTER, DWORD{BS_RIGHT});
    EXPECT_EQ(stage.button.m_style & BS_TYPEMASK, u32{BS_DEFPUSHBUTTON});
    EXPECT_EQ(stage.button.UsesSystemLook(), !IsColored());
}

TEST_P(ButtonInEachTheme, SendsOneCommandForAClick) {
    Stage<> stage(GetParam());
    Click(stage.Window());
    EXPECT_TRUE(PumpUntil([&] { return stage.dialog.CountCommands(kButton) == 1; }));
    PumpQueue();
    EXPECT_EQ(stage.dialog.CountCommands(kButton), 1);
}

TEST_P(ButtonInEachTheme, SendsTwoCommandsForADoubleClick) {
    Stage<> stage(GetParam());
    DoubleClick(stage.Window(), 10, 10);
    EXPECT_TRUE(PumpUntil([&] { return stage.dialog.CountCommands(kButton) == 2; }))
        << stage.dialog.CountCommands(kButton);
    PumpQueue();
    EXPECT_EQ(stage.dialog.CountCommands(kButton), 2);
}

TEST_P(ButtonInEachTheme, SendsACommandForTheSpaceBar) {
    Stage<> stage(GetParam());
    Focus(stage.dialog, stage.Window());
    TypeInDialog(stage.dialog, VK_SPACE);
    EXPECT_EQ(stage.dialog.CountCommands(kButton), 1);
}

TEST_P(ButtonInEachTheme, WantsEnterForItself) {
    Stage<> stage(GetParam());
    EXPECT_NE(SendMessageW(stage.Window(), WM_GETDLGCODE, VK_RETURN, 0) & DLGC_WANTALLKEYS, 0);
    EXPECT_EQ(SendMessageW(stage.Window(), WM_GETDLGCODE, VK_TAB, 0) & DLGC_WANTALLKEYS, 0);
    EXPECT_EQ(SendMessageW(stage.Window(), WM_GETDLGCODE, 0, 0) & DLGC_WANTALLKEYS, 0);
}

TEST_P(ButtonInEachTheme, PostsItsCommandForTheCharacterEnter) {
    Stage<> stage(GetParam());
    SendMessageW(stage.Window(), WM_CHAR, 'x', 0);
    PumpQueue();
    EXPECT_EQ(stage.dialog.CountCommands(kButton), 0);
    SendMessageW(stage.Window(), WM_CHAR, VK_RETURN, 0);
    EXPECT_EQ(stage.dialog.CountCommands(kButton), 0);  // posted, not sent
    PumpQueue();
    ASSERT_EQ(stage.dialog.CountCommands(kButton), 1);
    EXPECT_EQ(stage.dialog.m_commands.back().code, BN_CLICKED);
}

TEST_P(ButtonInEachTheme, TellsTheDialogWhatKindOfPushButtonItIs) {
    Stage<> stage(GetParam());
    constexpr LRESULT kKinds = DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON;
    EXPECT_EQ(SendMessageW(stage.Window(), WM_GETDLGCODE, 0, 0) & kKinds, DLGC_UNDEFPUSHBUTTON);
    SendMessageW(stage.Window(), BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
    EXPECT_EQ(SendMessageW(stage.Window(), WM_GETDLGCODE, 0, 0) & kKinds, DLGC_DEFPUSHBUTTON);
}

TEST_P(ButtonInEachTheme, TakesTheCaptionOfItsWindowAndFollowsIt) {
    UseTheme(GetParam());
    const KeepTheme keep;
    tvButton button;
    TestDialog dialog;
    dialog.Open();
    const HWND made = CreateWindowExW(0, L"BUTTON", L"First", WS_CHILD | WS_VISIBLE, 0, 0, 80, 24,
                                      dialog.Handle(), nullptr, nullptr, nullptr);
    button.SubclassWindow(made);
    EXPECT_EQ(button.m_text, u"First");
    SetWindowTextW(made, L"Second");
    EXPECT_EQ(button.m_text, u"Second");
    EXPECT_EQ(TextOf(made), u"Second");
    SendMessageW(made, WM_SETTEXT, 0, 0);
    EXPECT_EQ(button.m_text, u"");
}

TEST_P(ButtonInEachTheme, FitsItselfWhenItIsWrappedAndWhenSizeTextOrFontChanges) {
    Stage<CountingButton> stage(GetParam());
    EXPECT_GE(stage.button.m_fits, 1);
    const auto fitsFor = [&](const auto& change) {
        const int before = stage.button.m_fits;
        change();
        return stage.button.m_fits - before;
    };
    EXPECT_EQ(fitsFor([&] { SetWindowTextW(stage.Window(), L"x"); }), 1);
    EXPECT_EQ(
        fitsFor([&] { SetWindowPos(stage.Window(), nullptr, 0, 0, 50, 50, SWP_NOMOVE | SWP_NOZORDER); }), 1);
    EXPECT_EQ(fitsFor([&] {
                  SendMessageW(stage.Window(), WM_SETFONT,
                               reinterpret_cast<WPARAM>(TheTheme().m_fontBold.Get()), TRUE);
              }),
              1);
    EXPECT_EQ(fitsFor([&] { SendMessageW(stage.Window(), WM_ENABLE, TRUE, 0); }), 0);
}

TEST_P(ButtonInEachTheme, LeavesTheGroundToItsPaintingWhenItPaintsItself) {
    Stage<> stage(GetParam());
    const Canvas canvas(4, 4);
    const auto dc = reinterpret_cast<WPARAM>(canvas.Dc());
    if (IsColored()) {
        EXPECT_EQ(SendMessageW(stage.Window(), WM_ERASEBKGND, dc, 0), 1);
        EXPECT_EQ(canvas.Count(RGB(255, 255, 255)), 16);
    } else {
        // The system's own answer; only that the message is its own counts here.
        EXPECT_EQ(SendMessageW(stage.Window(), WM_ERASEBKGND, dc, 0),
                  CallWindowProcW(stage.button.m_oldProc, stage.Window(), WM_ERASEBKGND, dc, 0));
    }
}

TEST_P(ButtonInEachTheme, ChangesWithTheTheme) {
    Stage<> stage(GetParam(), BS_DEFPUSHBUTTON | BS_BOTTOM);
    for (const std::u16string_view next : {kSystem, kDark, kSystem, kLight}) {
        UseTheme(next, stage.dialog.Handle());
        EXPECT_EQ(TypeOf(stage.Window()), next == kSystem ? BS_DEFPUSHBUTTON : BS_OWNERDRAW);
        EXPECT_EQ(StyleOf(stage.Window()) & BS_VCENTER, DWORD{BS_BOTTOM});
        EXPECT_EQ(TextOf(stage.Window()), u"Caption");
    }
}

TEST(Button, HearsOfTheThemeFromItsOwnMessageAlone) {
    Stage<> stage(kLight);
    ASSERT_TRUE(TheTheme().Apply(TheTheme().FindTheme(tvstring(kSystem))));
    SendMessageW(stage.Window(), WM_SYSCOLORCHANGE, 0, 0);
    EXPECT_EQ(TypeOf(stage.Window()), DWORD{BS_OWNERDRAW});
    EXPECT_EQ(SendMessageW(stage.Window(), WM_SYSCOLORCHANGE, 0, ThemeMessage()), 0);
    EXPECT_EQ(TypeOf(stage.Window()), DWORD{BS_PUSHBUTTON});
}

TEST(Button, ForgetsItsPictureAndIsPaintedAnewWhenTheThemeChanges) {
    Stage<> stage(kLight);
    Settle(stage.Window());
    ASSERT_TRUE(stage.button.m_hasFrame);
    SendMessageW(stage.Window(), WM_SYSCOLORCHANGE, 0, ThemeMessage());
    EXPECT_FALSE(stage.button.m_hasFrame);
    EXPECT_TRUE(IsWaitingForPaint(stage.Window()));
}

TEST(Button, DoesNotFadeFromItsOldTextToANewOne) {
    struct Fading : tvButton {
        bool DrawAnimated(HWND window, HDC dc, const RECT& rect, void* paint) override {
            ++m_fades;
            return tvButton::DrawAnimated(window, dc, rect, paint);
        }
        int m_fades = 0;
    };
    Stage<Fading> stage(kLight);
    Settle(stage.Window());
    InvalidateRect(stage.Window(), nullptr, TRUE);
    Settle(stage.Window());
    const int before = stage.button.m_fades;
    ASSERT_GE(before, 1);  // from one picture to the next
    SetWindowTextW(stage.Window(), L"Other");
    EXPECT_EQ(stage.button.m_fades, before);
}

TEST(Button, KeepsItsTrueTypeWhenTheWindowIsMadeOwnerDrawn) {
    Stage<> stage(kSystem, BS_DEFPUSHBUTTON);
    SetWindowLongPtrW(
        stage.Window(), GWL_STYLE,
        static_cast<LONG_PTR>((StyleOf(stage.Window()) & ~DWORD{BS_TYPEMASK}) | BS_OWNERDRAW | BS_TOP));
    EXPECT_EQ(stage.button.m_style & 0xFFFF, u32{BS_DEFPUSHBUTTON | BS_TOP});
    EXPECT_EQ(TypeOf(stage.Window()), DWORD{BS_DEFPUSHBUTTON});
}

TEST(Button, TakesAChangedStyleAndStaysOwnerDrawn) {
    Stage<> stage(kLight);
    Settle(stage.Window());
    SetWindowLongPtrW(
        stage.Window(), GWL_STYLE,
        static_cast<LONG_PTR>((StyleOf(stage.Window()) & 0xFFFF0000) | BS_DEFPUSHBUTTON | BS_LEFT));
    EXPECT_EQ(stage.button.m_style, u32{BS_DEFPUSHBUTTON | BS_LEFT});
    EXPECT_EQ(StyleOf(stage.Window()) & 0xFFFF, DWORD{BS_OWNERDRAW | BS_LEFT});
    EXPECT_TRUE(IsWaitingForPaint(stage.Window()));
}

TEST(Button, TakesNoNoticeOfAChangedExtendedStyle) {
    Stage<> stage(kLight, BS_DEFPUSHBUTTON);
    const u32 before = stage.button.m_style;
    stage.button.ModifyStyleEx(0, WS_EX_RIGHT | 0x4);
    EXPECT_EQ(stage.button.m_style, before);
}

TEST(Button, StoresNothingOfBmSetStyleButTheType) {
    for (const std::u16string_view theme : {kLight, kSystem}) {
        Stage<> stage(theme, BS_RIGHT);
        SendMessageW(stage.Window(), BM_SETSTYLE, BS_LEFT | BS_MULTILINE | BS_DEFPUSHBUTTON, FALSE);
        EXPECT_EQ(stage.button.m_style, u32{BS_DEFPUSHBUTTON | BS_RIGHT});
        const DWORD type = theme == kLight ? BS_OWNERDRAW : BS_DEFPUSHBUTTON;
        EXPECT_EQ(StyleOf(stage.Window()) & 0xFFFF, type | BS_RIGHT);
    }
}

TEST(Button, IsPaintedAnewForBmSetStyleIfAskedTo) {
    Stage<> stage(kLight);
    Settle(stage.Window());
    SendMessageW(stage.Window(), BM_SETSTYLE, BS_DEFPUSHBUTTON, FALSE);
    EXPECT_FALSE(IsWaitingForPaint(stage.Window()));
    SendMessageW(stage.Window(), BM_SETSTYLE, BS_PUSHBUTTON, TRUE);
    EXPECT_TRUE(IsWaitingForPaint(stage.Window()));
}

TEST(Button, NoticesTheMouseOnlyWhereItPaintsItself) {
    Stage<> stage(kLight);
    EXPECT_EQ(stage.button.m_hover, 0);
    MoveMouseTo(stage.Window());
    EXPECT_TRUE(PumpUntil([&] { return stage.button.m_hover == 1; }));
    MoveMouseAway();
    EXPECT_TRUE(PumpUntil([&] { return stage.button.m_hover == 0; }));
    UseTheme(kSystem, stage.dialog.Handle());
    SendMessageW(stage.Window(), WM_MOUSEMOVE, 0, MAKELPARAM(3, 3));
    EXPECT_EQ(stage.button.m_hover, 0);
}

TEST(Button, NoticesTheMouseAgainAfterItLeftUnderAnotherTheme) {
    Stage<> stage(kLight);
    MoveMouseTo(stage.Window());
    ASSERT_TRUE(PumpUntil([&] { return stage.button.m_hover == 1; }));
    UseTheme(kSystem, stage.dialog.Handle());
    MoveMouseAway();
    EXPECT_TRUE(PumpUntil([&] { return stage.button.m_hover == 0; }));
    UseTheme(kLight, stage.dialog.Handle());
    MoveMouseTo(stage.Window());
    EXPECT_TRUE(PumpUntil([&] { return stage.button.m_hover == 1; }));
}

TEST(Button, IsPaintedAnewOnceWhenTheMouseComesIn) {
    Stage<> stage(kLight);
    Settle(stage.Window());
    SendMessageW(stage.Window(), WM_MOUSEMOVE, 0, MAKELPARAM(3, 3));
    EXPECT_TRUE(IsWaitingForPaint(stage.Window()));
    ValidateRect(stage.Window(), nullptr);
    SendMessageW(stage.Window(), WM_MOUSEMOVE, 0, MAKELPARAM(4, 4));
    EXPECT_FALSE(IsWaitingForPaint(stage.Window()));
    SendMessageW(stage.Window(), WM_MOUSELEAVE, 0, 0);
    EXPECT_TRUE(IsWaitingForPaint(stage.Window()));
}

TEST(Button, PostsThePressForADoubleClick) {
    Stage<> stage(kLight);
    EXPECT_EQ(SendMessageW(stage.Window(), WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(3, 4)), 0);
    MSG message{};
    ASSERT_TRUE(PeekMessageW(&message, stage.Window(), WM_LBUTTONDOWN, WM_LBUTTONDOWN, PM_REMOVE));
    EXPECT_EQ(message.lParam, MAKELPARAM(3, 4));
}

using Arguments = std::vector<WPARAM>;
constexpr WORD kAllCues = UISF_HIDEFOCUS | UISF_HIDEACCEL;

TEST(Button, HandsMessagesAboutCuesOnWithTheFocusHidden) {
    Stage<> stage(kLight);
    stage.button.m_hideFocus = 1;
    const HandedOn handed(stage.button);
    for (const UINT message : {UINT{WM_UPDATEUISTATE}, UINT{WM_CHANGEUISTATE}}) {
        SendMessageW(stage.Window(), message, MAKEWPARAM(UIS_SET, UISF_HIDEACCEL), 0);
        SendMessageW(stage.Window(), message, MAKEWPARAM(UIS_INITIALIZE, 0), 0);
        SendMessageW(stage.Window(), message, MAKEWPARAM(UIS_CLEAR, kAllCues), 0);
        EXPECT_EQ(handed.Of(message),
                  Arguments({MAKEWPARAM(UIS_SET, kAllCues), MAKEWPARAM(UIS_INITIALIZE, UISF_HIDEFOCUS),
                             MAKEWPARAM(UIS_CLEAR, UISF_HIDEACCEL)}));
    }
}

TEST(Button, ThatShowsTheFocusHandsMessagesAboutCuesOnAsTheyAre) {
    Stage<> stage(kLight);
    const HandedOn handed(stage.button);
    SendMessageW(stage.Window(), WM_UPDATEUISTATE, MAKEWPARAM(UIS_SET, UISF_HIDEACCEL), 0);
    SendMessageW(stage.Window(), WM_UPDATEUISTATE, MAKEWPARAM(UIS_CLEAR, kAllCues), 0);
    EXPECT_EQ(handed.Of(WM_UPDATEUISTATE),
              Arguments({MAKEWPARAM(UIS_SET, UISF_HIDEACCEL), MAKEWPARAM(UIS_CLEAR, kAllCues)}));
}

TEST(Button, TellsItsWindowThatTheFocusIsHidden) {
    Stage<> stage(kLight);
    HandedOn handed(stage.button);
    stage.button.SetHideFocus(true);
    EXPECT_EQ(stage.button.m_hideFocus, 1);
    EXPECT_EQ(handed.Of(WM_UPDATEUISTATE), Arguments({MAKEWPARAM(UIS_SET, UISF_HIDEFOCUS)}));
}

TEST(Button, TellsANewWindowThatTheFocusIsHidden) {
    struct Listening : tvButton {
        void OnSubclassed() override {
            const HandedOn handed(*this);
            tvButton::OnSubclassed();
            m_cues = handed.Of(WM_UPDATEUISTATE);
        }
        Arguments m_cues;
    };
    struct Hiding : Listening {
        Hiding() { SetHideFocus(true); }
    };
    const Stage<Listening> plain(kLight);
    EXPECT_TRUE(plain.button.m_cues.empty());
    const Stage<Hiding> hiding(kLight);
    EXPECT_EQ(hiding.button.m_cues, Arguments({MAKEWPARAM(UIS_SET, UISF_HIDEFOCUS)}));
}

TEST(Button, TakesTheCuesOfItsParentWhenTheFocusIsNoLongerHidden) {
    Stage<> stage(kLight);
    LRESULT cuesOfDialog = UISF_HIDEACCEL;
    stage.dialog.m_onMessage = [&](UINT message, WPARAM, LPARAM, LRESULT& result) {
        result = cuesOfDialog;
        return message == WM_QUERYUISTATE;
    };
    stage.button.SetHideFocus(true);
    HandedOn handed(stage.button);
    stage.button.SetHideFocus(false);
    EXPECT_EQ(handed.Of(WM_UPDATEUISTATE),
              Arguments({MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), MAKEWPARAM(UIS_SET, UISF_HIDEACCEL)}));
    handed.Clear();
    cuesOfDialog = kAllCues;
    stage.button.SetHideFocus(false);
    EXPECT_EQ(handed.Of(WM_UPDATEUISTATE), Arguments({MAKEWPARAM(UIS_SET, kAllCues)}));
}

TEST(Button, IsPaintedAnewWhenCuesChange) {
    Stage<> stage(kLight);
    stage.button.m_hideFocus = 1;
    for (const UINT message : {UINT{WM_UPDATEUISTATE}, UINT{WM_CHANGEUISTATE}}) {
        Settle(stage.Window());
        SendMessageW(stage.Window(), message, MAKEWPARAM(UIS_SET, UISF_HIDEACCEL), 0);
        EXPECT_TRUE(IsWaitingForPaint(stage.Window())) << message;
    }
}

TEST(Button, OpensTheVisualStyleOnlyWhereItPaintsItself) {
    Stage<> colored(kLight);
    EXPECT_EQ(static_cast<bool>(colored.button.m_theme), IsVisualStyleActive());
    colored.dialog.Close();
    Stage<> stock(kSystem);
    EXPECT_FALSE(static_cast<bool>(stock.button.m_theme));
}

TEST(Button, ClosesTheVisualStyleWithItsWindow) {
    Stage<> stage(kLight);
    stage.button.m_theme.Reset(OpenThemeData(stage.Window(), L"Button"));
    ASSERT_TRUE(static_cast<bool>(stage.button.m_theme));
    stage.dialog.Close();
    EXPECT_FALSE(static_cast<bool>(stage.button.m_theme));
}

TEST(Button, ClosesTheVisualStyleThatHasChangedAndOpensTheNewOne) {
    Stage<> stage(kLight);
    stage.button.m_theme.Reset(OpenThemeData(stage.Window(), L"Edit"));
    const HTHEME before = stage.button.m_theme.Get();
    ASSERT_NE(before, nullptr);
    SendMessageW(stage.Window(), WM_THEMECHANGED, 0, 0);
    EXPECT_NE(stage.button.m_theme.Get(), before);
    EXPECT_EQ(static_cast<bool>(stage.button.m_theme), IsVisualStyleActive());
}

TEST(Button, SetsItsSidesAsAMask) {
    Stage<CountingButton> stage(kLight);
    EXPECT_EQ(stage.button.m_sides, 15);
    stage.button.SetSides(true, false, false, false);
    EXPECT_EQ(stage.button.m_mask, 1U);
    stage.button.SetSides(false, true, false, false);
    EXPECT_EQ(stage.button.m_mask, 2U);
    stage.button.SetSides(false, false, true, false);
    EXPECT_EQ(stage.button.m_mask, 4U);
    stage.button.SetSides(false, false, false, true);
    EXPECT_EQ(stage.button.m_mask, 8U);
    EXPECT_EQ(stage.button.m_sides, 8);
    EXPECT_TRUE(IsWaitingForPaint(stage.Window()));
}

TEST(Button, WithPartOfAFrameKeepsTheSystemsLookWhereAVisualStyleIsActive) {
    Stage<> stage(kSystem);
    stage.button.SetSideMask(5);
    EXPECT_EQ(stage.button.UsesSystemLook(), IsVisualStyleActive());
    EXPECT_EQ(TypeOf(stage.Window()), IsVisualStyleActive() ? BS_PUSHBUTTON : BS_OWNERDRAW);
}

TEST(Button, SetsTheAlignmentOfItsContent) {
    const struct {
        unsigned mask;
        DWORD style;
    } kCases[] = {{0, BS_LEFT | BS_TOP},      {1, BS_CENTER | BS_TOP},   {2, BS_RIGHT | BS_TOP},
                  {3, BS_CENTER | BS_TOP},    {4, BS_LEFT | BS_VCENTER}, {8, BS_LEFT | BS_BOTTOM},
                  {12, BS_LEFT | BS_VCENTER}, {10, BS_RIGHT | BS_BOTTOM}};
    for (const std::u16string_view theme : {kLight, kSystem}) {
        Stage<> stage(theme);
        for (const auto& one : kCases) {
            stage.button.SetContentAlign(one.mask);
            EXPECT_EQ(stage.button.m_style & 0xF00, one.style) << one.mask;
            EXPECT_EQ(StyleOf(stage.Window()) & 0xF00, one.style) << one.mask;
        }
    }
}

TEST(Button, HasNoTipUnlessItIsGivenOne) {
    const int before = ToolCount();
    Stage<> stage(kLight);
    EXPECT_EQ(ToolCount(), before);
    stage.button.SetTip(u"What it does");
    EXPECT_EQ(ToolCount(), before + 1);
    EXPECT_EQ(TipOf(stage.Window()), u"What it does");
    stage.button.SetTip(u"Another");
    EXPECT_EQ(ToolCount(), before + 1);
    EXPECT_EQ(TipOf(stage.Window()), u"Another");
    stage.button.SetTip(nullptr);
    EXPECT_EQ(ToolCount(), before);
    EXPECT_EQ(stage.button.m_tip, u"");
}

TEST(Button, ShowsItsCaptionForAnEmptyTip) {
    const int before = ToolCount();
    Stage<> stage(kLight);
    stage.button.SetTip(u"");
    EXPECT_EQ(stage.button.m_tip, u"#0");
    EXPECT_EQ(TipOf(stage.Window()), u"Caption");
    SetWindowTextW(stage.Window(), L"New");
    EXPECT_EQ(TipOf(stage.Window()), u"New");
    SetWindowTextW(stage.Window(), L"");
    EXPECT_EQ(ToolCount(), before);
}

TEST(Button, TakesItsTipWithIt) {
    const int before = ToolCount();
    {
        Stage<> stage(kLight);
        stage.button.SetTip(u"Tip");
        EXPECT_EQ(ToolCount(), before + 1);
        stage.dialog.Close();
        EXPECT_EQ(ToolCount(), before);
    }
    // The wrapper goes first, and takes its window with it.
    TestDialog dialog;
    dialog.Open();
    {
        tvButton button;
        button.SubclassWindow(CreateWindowExW(0, L"BUTTON", L"", WS_CHILD, 0, 0, 9, 9, dialog.Handle(),
                                              nullptr, nullptr, nullptr));
        button.SetTip(u"Tip");
        EXPECT_EQ(ToolCount(), before + 1);
    }
    EXPECT_EQ(ToolCount(), before);
}

TEST(Button, RegistersATipThatItWasGivenBeforeItHadItsWindow) {
    struct WithTip : tvButton {
        WithTip() { SetTip(u"Early"); }
    };
    Stage<WithTip> stage(kLight);
    EXPECT_EQ(TipOf(stage.Window()), u"Early");
}

TEST(Button, CanBeUsedAgainForAnotherWindow) {
    Stage<> stage(kLight, BS_DEFPUSHBUTTON);
    MoveMouseTo(stage.Window());
    ASSERT_TRUE(PumpUntil([&] { return stage.button.m_hover == 1; }));
    stage.dialog.Close();
    ASSERT_FALSE(stage.button.IsAttached());
    MoveMouseAway();
    stage.dialog.Open();
    EXPECT_EQ(stage.button.m_hover, 0);
    EXPECT_EQ(TypeOf(stage.Window()), DWORD{BS_OWNERDRAW});
    EXPECT_EQ(stage.button.m_style & BS_TYPEMASK, u32{BS_DEFPUSHBUTTON});
}

TEST(Button, WithoutAWindowTakesItsSettingsQuietly) {
    tvButton button;
    button.SetSideMask(3);
    button.SetContentAlign(ALIGN_RIGHT);
    button.SetHideFocus(true);
    button.SetTip(u"x");
    button.SubclassWindow(nullptr);
    EXPECT_EQ(button.m_sides, 3);
    EXPECT_FALSE(button.IsAttached());
}

}  // namespace
