// Colours, frame, height and keys of an edit box.
#include "toolkit/edit.h"

#include "tests/gui/input_stage.h"

namespace {

using EditStage = InputStage<tvEdit, ATOM_EDIT>;

constexpr COLORREF kOrange = RGB(255, 140, 0);
constexpr LRESULT kParents = 77;

class FixedColor : public tvEdit {
public:
    bool GetTextColor(COLORREF& color) override {
        color = kOrange;
        return true;
    }
};

struct Colors {
    COLORREF text = 0;
    COLORREF ground = 0;
    LRESULT brush = 0;
    bool operator==(const Colors&) const = default;
};

// What the control makes of the colours that its parent has answered with.
Colors Reflected(tvEdit& edit) {
    const Canvas canvas(4, 4);
    SetTextColor(canvas.Dc(), RGB(1, 1, 1));
    SetBkColor(canvas.Dc(), RGB(2, 2, 2));
    LRESULT result = kParents;
    edit.OnReflectCtlColor(canvas.Dc(), &result);
    return {GetTextColor(canvas.Dc()), GetBkColor(canvas.Dc()), result};
}

LRESULT Number(const tvBrushHandle& brush) {
    return reinterpret_cast<LRESULT>(brush.Get());
}

UNDER_EACH_THEME(Edit);
UNDER_COLOR_THEMES(ColoredEdit);

TEST_P(ColoredEdit, TakesItsColorsFromTheTheme) {
    const tvTheme& theme = TheTheme();
    EditStage plain(GetParam());
    EXPECT_EQ(Reflected(plain.input), (Colors{theme.m_text, theme.m_editBg, Number(theme.m_editBrush)}));
    EXPECT_EQ(plain.Look().At(60, 8), theme.m_editBg);
    EditStage readOnly(GetParam(), ES_READONLY);
    EXPECT_EQ(Reflected(readOnly.input), (Colors{theme.m_text, theme.m_base, Number(theme.m_baseBrush)}));
    EXPECT_EQ(readOnly.Look().At(60, 8), theme.m_base);
    EditStage disabled(GetParam(), WS_DISABLED);
    EXPECT_EQ(Reflected(disabled.input), (Colors{theme.m_textGray, theme.m_base, Number(theme.m_baseBrush)}));
    EXPECT_EQ(disabled.Look().At(60, 8), theme.m_base);
}

TEST_P(ColoredEdit, TakesTheColorThatADerivedClassHasFixed) {
    InputStage<FixedColor, ATOM_EDIT> stage(GetParam());
    EXPECT_EQ(Reflected(stage.input).text, kOrange);
    SetWindowTextW(stage.Window(), L"WWWW");
    EXPECT_GT(stage.Look().Count(kOrange), 0);
}

TEST(SystemEdit, LeavesTheColorsAlone) {
    for (const u32 style : {0U, u32{ES_READONLY}, u32{WS_DISABLED}}) {
        EditStage stage(kSystem, style);
        EXPECT_EQ(Reflected(stage.input), (Colors{RGB(1, 1, 1), RGB(2, 2, 2), kParents})) << style;
    }
}

TEST(SystemEdit, TakesTheColorThatADerivedClassHasFixed) {
    InputStage<FixedColor, ATOM_EDIT> stage(kSystem);
    EXPECT_EQ(Reflected(stage.input), (Colors{kOrange, GetSysColor(COLOR_WINDOW), kParents}));
    InputStage<FixedColor, ATOM_EDIT> readOnly(kSystem, ES_READONLY);
    EXPECT_EQ(Reflected(readOnly.input), (Colors{kOrange, GetSysColor(COLOR_BTNFACE), kParents}));
}

TEST(SystemEdit, TellsTheSystemsColors) {
    const struct {
        u32 style;
        int color;
    } kCases[] = {{0, COLOR_WINDOWTEXT}, {ES_READONLY, COLOR_BTNTEXT}, {WS_DISABLED, COLOR_GRAYTEXT}};
    for (const auto& one : kCases) {
        EditStage stage(kSystem, one.style);
        COLORREF color = 0;
        EXPECT_FALSE(stage.input.GetTextColor(color));
        EXPECT_EQ(color, GetSysColor(one.color)) << one.style;
    }
}

// --- The frame ---

TEST_P(ColoredEdit, HasAFrameThatFollowsTheKeyboard) {
    EditStage stage(GetParam());
    EXPECT_EQ(stage.PixelOfWindow(0, 5), TheTheme().m_border);
    EXPECT_EQ(stage.PixelOfWindow(5, 0), TheTheme().m_border);
    EXPECT_EQ(stage.PixelOfWindow(1, 5), TheTheme().m_editBg);
    Focus(stage.dialog, stage.Window());
    EXPECT_EQ(stage.PixelOfWindow(0, 5), TheTheme().m_borderActive);
    Focus(stage.dialog, stage.dialog.Item(kOther));
    EXPECT_EQ(stage.PixelOfWindow(0, 5), TheTheme().m_border);
}

TEST_P(ColoredEdit, HasAFrameThatFollowsTheMouse) {
    EditStage stage(GetParam());
    MoveMouseTo(stage.Window());
    EXPECT_TRUE(PumpUntil([&] { return stage.PixelOfWindow(0, 5) == TheTheme().m_borderActive; }));
    EXPECT_EQ(stage.input.m_tracking, 1);
    MoveMouseAway();
    EXPECT_TRUE(PumpUntil([&] { return stage.PixelOfWindow(0, 5) == TheTheme().m_border; }));
    EXPECT_EQ(stage.input.m_tracking, 0);
}

TEST_P(ColoredEdit, ShowsNoMouseThatAnotherWindowHasToItself) {
    EditStage stage(GetParam());
    MoveMouseTo(stage.Window());
    EXPECT_TRUE(PumpUntil([&] { return stage.input.m_tracking == 1; }));
    SetCapture(stage.dialog.Handle());
    RedrawWindow(stage.Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_UPDATENOW);
    EXPECT_EQ(stage.PixelOfWindow(0, 5), TheTheme().m_border);
    ReleaseCapture();
    MoveMouseAway();
}

TEST_P(ColoredEdit, KeepsItsScrollBarInsideTheFrame) {
    EditStage stage(GetParam(), ES_MULTILINE | WS_VSCROLL);
    const int width = Width(WindowRectOf(stage.Outer()));
    EXPECT_EQ(stage.PixelOfWindow(width - 1, 8), TheTheme().m_border);
    EXPECT_EQ(stage.PixelOfWindow(width - 2, 8), TheTheme().m_base);
    int others = 0;  // of the bar
    for (int x = width - 12; x < width - 3; ++x)
        others += stage.PixelOfWindow(x, 8) != TheTheme().m_editBg ? 1 : 0;
    EXPECT_GT(others, 0);
}

TEST_P(Edit, TakesTheFrameOfAThemeThatComesLater) {
    EditStage stage(GetParam());
    for (const std::u16string_view theme : {kDark, kSystem, kLight}) {
        UseTheme(theme, stage.dialog.Handle());
        const COLORREF frame = stage.PixelOfWindow(0, 5);
        if (theme == kSystem) continue;
        EXPECT_EQ(frame, TheTheme().m_border);
        EXPECT_EQ(stage.Look().At(60, 8), TheTheme().m_editBg);
    }
}

TEST(EditFrame, IsReadyOnceItWasMeasured) {
    EditStage stage;
    stage.input.m_frameReady = 0;
    SetWindowPos(stage.Window(), nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_FRAMECHANGED);
    EXPECT_EQ(stage.input.m_frameReady, 1);
}

// --- The height ---

// Above and below the client area, that of a scroll box included.
int FrameHeight(const EditStage& stage) {
    HWND window = stage.Window();
    RECT frame{};
    AdjustWindowRectEx(&frame, StyleOf(window), FALSE,
                       static_cast<DWORD>(GetWindowLongPtrW(window, GWL_EXSTYLE)));
    return Height(frame) + (stage.input.m_scrollBox.IsActive() ? 4 : 0);
}

int TextTop(HWND window) {
    RECT text{};
    SendMessageW(window, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&text));
    return static_cast<int>(text.top);
}

int ExactHeight(const EditStage& stage) {
    const int margin = std::min(TextTop(stage.Window()), 2) + 2;
    return TheTheme().TextHeight(stage.input.m_font, nullptr) + 2 * margin + FrameHeight(stage);
}

void Resize(HWND window, int width, int height) {
    SetWindowPos(window, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

TEST_P(Edit, FitsItsHeightToTheFontExactly) {
    EditStage stage(GetParam(), 0, [](tvEdit& edit) { edit.m_autoHeight = 1; });
    for (const int height : {10, 90}) {
        Resize(stage.Window(), 111, height);
        const RECT rect = WindowRectOf(stage.Outer());
        EXPECT_EQ(Height(rect), ExactHeight(stage));
        EXPECT_EQ(Width(rect), 111);
    }
}

TEST_P(Edit, FitsItsHeightToALargerFont) {
    EditStage stage(GetParam(), 0, [](tvEdit& edit) { edit.m_autoHeight = 1; });
    const int before = Height(WindowRectOf(stage.Outer()));
    stage.input.Send(WM_SETFONT, reinterpret_cast<WPARAM>(TheTheme().m_fontLarge.Get()), TRUE);
    EXPECT_GT(Height(WindowRectOf(stage.Outer())), before);
    EXPECT_EQ(Height(WindowRectOf(stage.Outer())), ExactHeight(stage));
}

TEST_P(Edit, IsNotLowerThanItWasAtFirst) {
    EditStage stage(GetParam());
    stage.input.m_baseHeight = 60;
    Resize(stage.Window(), 100, 10);
    EXPECT_EQ(Height(WindowRectOf(stage.Outer())), 60 + TextTop(stage.Window()) + FrameHeight(stage));
    stage.input.m_baseHeight = 1;
    Resize(stage.Window(), 100, 10);
    EXPECT_EQ(Height(WindowRectOf(stage.Outer())), ExactHeight(stage));
}

TEST_P(Edit, KeepsTheHeightThatItIsGivenIfItIsNotToFit) {
    EditStage stage(GetParam(), 0, [](tvEdit& edit) { edit.m_autoHeight = -1; });
    Resize(stage.Window(), 100, 51);
    EXPECT_EQ(Height(WindowRectOf(stage.Outer())), 51);
    EditStage lines(GetParam(), ES_MULTILINE, [](tvEdit& edit) { edit.m_autoHeight = 1; });
    Resize(lines.Window(), 100, 51);
    EXPECT_EQ(Height(WindowRectOf(lines.Outer())), 51);
}

TEST(EditHeight, AtFirstIsThatOfTheClientArea) {
    EditStage stage(kLight, ES_MULTILINE);
    EXPECT_EQ(stage.input.m_baseHeight, SizeOf(stage.Window()).cy);
}

// --- Keys ---

TEST_P(Edit, SelectsAllWithCtrlA) {
    EditStage stage(GetParam());
    SetWindowTextW(stage.Window(), L"Some text");
    Focus(stage.dialog, stage.Window());
    SendMessageW(stage.Window(), EM_SETSEL, 3, 3);
    Type('A', HOLD_CTRL);
    DWORD start = 0;
    DWORD end = 0;
    EXPECT_TRUE(PumpUntil([&] {
        SendMessageW(stage.Window(), EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                     reinterpret_cast<LPARAM>(&end));
        return start == 0 && end == 9;
    }));
    EXPECT_EQ(TextOf(stage.Window()), u"Some text");
}

TEST_P(Edit, TakesTheLetterAWithoutCtrlOrWithAlt) {
    EditStage stage(GetParam());
    SetWindowTextW(stage.Window(), L"Some text");
    Focus(stage.dialog, stage.Window());
    SendMessageW(stage.Window(), EM_SETSEL, 9, 9);
    Type('A', HOLD_CTRL | HOLD_ALT);
    Type('A');
    EXPECT_TRUE(PumpUntil([&] { return TextOf(stage.Window()) == u"Some texta"; }));
}

}  // namespace
