// How a scroll box is painted.
#include <gmock/gmock.h>

#include <algorithm>

#include "tests/gui/import_slot.h"
#include "tests/gui/late_functions_guard.h"
#include "tests/gui/scroll_box_stage.h"
#include "toolkit/system.h"

using testing::ElementsAre;

namespace {

UNDER_COLOR_THEMES(ColoredScrollBox);

constexpr int kTriangle = 9 + 7 + 5 + 3 + 1;  // pixels of an arrow whose base is 9

int Across(const RECT& rect) {
    return static_cast<int>(rect.left + rect.right) / 2;
}
int Down(const RECT& rect) {
    return static_cast<int>(rect.top + rect.bottom) / 2;
}
COLORREF At(const Picture& picture, LONG x, LONG y) {
    return picture.At(static_cast<int>(x), static_cast<int>(y));
}

TEST_P(ColoredScrollBox, HasTheFrameAndTheGroundOfTheControl) {
    LinesStage stage(GetParam());
    const Picture look = stage.Look();
    const tvTheme& theme = TheTheme();
    const int right = look.Width() - 1;
    const int bottom = look.Height() - 1;
    EXPECT_EQ(look.Count({0, 0, right + 1, 1}, theme.m_border), right + 1);
    EXPECT_EQ(look.Count({0, bottom, right + 1, bottom + 1}, theme.m_border), right + 1);
    EXPECT_EQ(look.Count({0, 0, 1, bottom + 1}, theme.m_border), bottom + 1);
    EXPECT_EQ(look.Count({right, 0, right + 1, bottom + 1}, theme.m_border), bottom + 1);
    EXPECT_EQ(look.At(1, 20), theme.m_editBg);
    EXPECT_EQ(look.At(20, 1), theme.m_editBg);
    stage.Box().m_fillBase = 1;
    stage.Box().Redraw(true);
    EXPECT_EQ(stage.Look().At(1, 20), theme.m_base);
}

TEST_P(ColoredScrollBox, HasABarFromFrameToFrame) {
    LinesStage stage(GetParam());
    const Picture look = stage.Look();
    const RECT bar = stage.Part(SCROLL_BAR);
    const COLORREF base = TheTheme().m_base;
    EXPECT_EQ(bar.right, look.Width() - 1);
    for (const LONG y : {LONG{1}, bar.top, bar.bottom - 1, LONG{look.Height() - 2}}) {
        EXPECT_EQ(At(look, bar.left, y), base) << y;
        EXPECT_EQ(At(look, bar.right - 1, y), base) << y;
    }
    const RECT page = stage.Part(SCROLL_PAGE_DOWN);
    EXPECT_EQ(look.Count(page, base), Width(page) * Height(page));
}

TEST_P(ColoredScrollBox, HasAThumbThatIsSetIn) {
    LinesStage stage(GetParam());
    const Picture look = stage.Look();
    const RECT thumb = stage.Part(SCROLL_THUMB);
    ASSERT_GE(Height(thumb), GetSystemMetrics(SM_CYVTHUMB));
    const RECT inner = Inset(thumb, 2, 0);
    EXPECT_EQ(look.Count(inner, TheTheme().m_button), Width(inner) * Height(inner));
    EXPECT_EQ(look.Count(thumb, TheTheme().m_base), 4 * Height(thumb));
}

TEST_P(ColoredScrollBox, HasArrowsThatPointUpAndDown) {
    LinesStage stage(GetParam());
    const Picture look = stage.Look();
    const COLORREF color = TheTheme().m_button;
    for (const int part : {SCROLL_UP, SCROLL_DOWN}) {
        const RECT arrow = stage.Part(part);
        EXPECT_EQ(look.Count(arrow, color), kTriangle);
        const RECT ink = ExtentOfOthers(look, TheTheme().m_base, arrow);
        EXPECT_EQ(Width(ink), Width(arrow) - 8);
        EXPECT_EQ(Across(ink), Across(arrow));
        const LONG point = part == SCROLL_UP ? ink.top : ink.bottom - 1;
        const LONG foot = part == SCROLL_UP ? ink.bottom - 1 : ink.top;
        EXPECT_EQ(look.Count({ink.left, point, ink.right, point + 1}, color), 1);
        EXPECT_EQ(look.Count({ink.left, foot, ink.right, foot + 1}, color), Width(ink));
    }
}

TEST_P(ColoredScrollBox, IsLitUpUnderTheMouse) {
    LinesStage stage(GetParam());
    const RECT thumb = stage.Part(SCROLL_THUMB);
    MoveMouse(stage.Host(), Across(thumb), Down(thumb));
    ASSERT_TRUE(PumpUntil([&] { return stage.Box().m_hotPart == SCROLL_THUMB; }));
    const Picture look = stage.Look();
    EXPECT_EQ(look.At(Across(thumb), Down(thumb)), TheTheme().m_border);
    EXPECT_EQ(look.Count(stage.Part(SCROLL_UP), TheTheme().m_border), kTriangle);
    EXPECT_EQ(look.At(0, 20), TheTheme().m_borderActive);
}

TEST_P(ColoredScrollBox, ShowsTheThumbThatIsHeldWhereTheMouseHasIt) {
    LinesStage stage(GetParam());
    const RECT thumb = stage.Part(SCROLL_THUMB);
    MoveMouse(stage.Host(), Across(thumb), Down(thumb));
    Press();
    MoveMouse(stage.Host(), Across(thumb), Down(thumb) + 1);
    const Picture look = stage.Look();
    ASSERT_EQ(stage.Part(SCROLL_THUMB), thumb) << "the control is where it was";
    const RECT inner = Inset(thumb, 2, 0);
    EXPECT_EQ(At(look, inner.left, thumb.top), TheTheme().m_base);
    EXPECT_EQ(At(look, inner.left, thumb.top + 1), TheTheme().m_icon);
    EXPECT_EQ(At(look, inner.left, thumb.bottom), TheTheme().m_icon);
    Release();
}

TEST_P(ColoredScrollBox, HasNoBrightArrowWhereThereIsNothingToScroll) {
    LinesStage stage(GetParam());
    SetWindowTextW(stage.Control(), L"One line");
    Settle(stage.dialog.Handle());
    stage.Box().m_states[SCROLL_UP] |= STATE_SYSTEM_PRESSED;
    const Sheet sheet(stage.Host());
    SendMessageW(stage.Host(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(sheet.canvas.Dc()), PRF_CLIENT);
    const RECT arrow = stage.Part(SCROLL_UP);
    EXPECT_EQ(sheet.At(Across(arrow), Down(arrow)), TheTheme().m_button);
}

TEST_P(ColoredScrollBox, HasNoThumbWhereThereIsNothingToScroll) {
    LinesStage stage(GetParam());
    SetWindowTextW(stage.Control(), L"One line");
    const Picture look = stage.Look();
    const RECT bar = stage.Part(SCROLL_BAR);
    ASSERT_FALSE(IsRectEmpty(&bar));
    EXPECT_EQ(look.Count(bar, TheTheme().m_button), 2 * kTriangle);
    EXPECT_EQ(look.Count(bar, TheTheme().m_base), Width(bar) * Height(bar) - 2 * kTriangle);
}

TEST_P(ColoredScrollBox, HasArrowsAloneWhereItIsTooLowForAThumb) {
    LinesStage stage(GetParam(), kLinesStyle, 26);
    const RECT bar = stage.Part(SCROLL_BAR);
    ASSERT_FALSE(IsRectEmpty(&bar));
    ASSERT_LT(Height(bar), 2 * GetSystemMetrics(SM_CYVSCROLL) + GetSystemMetrics(SM_CYVTHUMB));
    ASSERT_EQ(stage.Box().m_states[SCROLL_BAR] & STATE_SYSTEM_UNAVAILABLE, 0U);
    EXPECT_TRUE(IsRectEmpty(&stage.Box().m_parts[SCROLL_THUMB]));
    EXPECT_EQ(stage.Look().Count(bar, TheTheme().m_button), 2 * kTriangle);
}

TEST_P(ColoredScrollBox, IsAFrameOnlyAroundAListWhoseRowsFit) {
    RowsStage stage(GetParam(), 3);
    const Picture look = stage.Look();
    const int right = look.Width() - 1;
    EXPECT_EQ(look.At(right, 20), TheTheme().m_border);
    EXPECT_EQ(look.At(right - 1, 20), TheTheme().m_editBg);
    EXPECT_EQ(look.Count({right - 20, 1, right, look.Height() - 1}, TheTheme().m_base), 0);
}

TEST_P(ColoredScrollBox, HasAnActiveFrameAroundAnEditBoxWithTheKeyboard) {
    LinesStage edit(GetParam());
    Focus(edit.dialog, edit.Control());
    EXPECT_EQ(edit.Look().At(0, 20), TheTheme().m_borderActive);
    Focus(edit.dialog, edit.dialog.Item(kBefore));
    EXPECT_EQ(edit.Look().At(0, 20), TheTheme().m_border);
    RowsStage list(GetParam());
    Focus(list.dialog, list.Control());
    EXPECT_EQ(list.Look().At(0, 20), TheTheme().m_border);
}

TEST_P(ColoredScrollBox, MovesTheThumbWithTheControl) {
    LinesStage stage(GetParam());
    const RECT before = stage.Part(SCROLL_THUMB);
    stage.control.Send(WM_VSCROLL, SB_BOTTOM);
    const RECT after = stage.Part(SCROLL_THUMB);
    EXPECT_GT(after.top, before.top);
    EXPECT_EQ(after.bottom, stage.Part(SCROLL_DOWN).top);
    const Picture look = stage.Look();
    EXPECT_EQ(At(look, Across(after), after.bottom - 1), TheTheme().m_button);
    EXPECT_EQ(At(look, Across(before), before.top), TheTheme().m_base);
}

TEST_P(ColoredScrollBox, PaintsIntoAContextThatItIsGiven) {
    LinesStage stage(GetParam());
    const Sheet sheet(stage.Host());
    SendMessageW(stage.Host(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(sheet.canvas.Dc()), PRF_CLIENT);
    EXPECT_EQ(sheet.At(0, 20), TheTheme().m_border);
    const RECT thumb = stage.Part(SCROLL_THUMB);
    EXPECT_EQ(sheet.At(Across(thumb), Down(thumb)), TheTheme().m_button);
}

TEST_P(ColoredScrollBox, LooksTheSameAfterSystemDefault) {
    LinesStage stage(GetParam());
    const Picture before = stage.Look();
    UseTheme(kSystem, stage.dialog.Handle());
    EXPECT_FALSE(stage.Look() == before);
    UseTheme(GetParam(), stage.dialog.Handle());
    EXPECT_TRUE(stage.Look() == before);
}

TEST_P(ColoredScrollBox, TakesTheColorsOfAnotherTheme) {
    LinesStage stage(GetParam());
    UseTheme(u"Blue", stage.dialog.Handle());
    const RECT thumb = stage.Part(SCROLL_THUMB);
    EXPECT_EQ(stage.Look().At(Across(thumb), Down(thumb)), TheTheme().m_button);
    EXPECT_EQ(stage.Look().At(0, 20), TheTheme().m_border);
}

// --- Fades ---

// Counts the fades that the system is asked for; none comes about.
class FadeCount {
public:
    FadeCount() {
        s_Asked = 0;
        TheLateFunctions().bufferedPaintRenderAnimation.Replace(RenderNone);
        TheLateFunctions().beginBufferedAnimation.Replace(BeginNone);
    }
    // Asked for by a box that is painted twice.
    static int Of(tvScrollBox& box) {
        box.Redraw(true);
        s_Asked = 0;
        box.Redraw(true);
        return s_Asked;
    }

private:
    static BOOL WINAPI RenderNone(HWND, HDC) { return FALSE; }
    static HANIMATIONBUFFER WINAPI BeginNone(HWND, HDC, const RECT*, BP_BUFFERFORMAT, BP_PAINTPARAMS*,
                                             BP_ANIMATIONPARAMS*, HDC*, HDC*) {
        ++s_Asked;
        return nullptr;
    }
    static inline int s_Asked = 0;
    LateFunctionsGuard m_Guard;
};

// A thumb that moves would leave traces.
TEST(ScrollBoxFade, IsThereUnlessTheBarCanBeUsed) {
    LinesStage stage;
    const FadeCount fades;
    EXPECT_EQ(FadeCount::Of(stage.Box()), 0);
    SetWindowTextW(stage.Control(), L"One line");
    Settle(stage.dialog.Handle());
    EXPECT_EQ(FadeCount::Of(stage.Box()), 1) << "there is nothing to scroll";
    ShowScrollBar(stage.Control(), SB_VERT, FALSE);
    Settle(stage.dialog.Handle());
    EXPECT_EQ(FadeCount::Of(stage.Box()), 1) << "there is no bar";
}

// --- As the system does it ---

class SystemScrollBox : public testing::Test {
protected:
    SystemScrollBox() {
        m_Stage.dialog.m_onMessage = [this](UINT message, WPARAM, LPARAM lParam, LRESULT& result) {
            if (message != WM_CTLCOLORSCROLLBAR || reinterpret_cast<HWND>(lParam) != m_Stage.Host())
                return false;
            result = reinterpret_cast<LRESULT>(m_Ground.Get());
            return true;
        };
        UseTheme(kSystem, m_Stage.dialog.Handle());
    }
    // What DrawFrameControl makes of a part.
    [[nodiscard]] bool IsFrameControl(int part, UINT type, UINT state) const {
        const RECT rect = m_Stage.Part(part);
        const Picture look = m_Stage.Look();
        const Canvas canvas(Width(rect), Height(rect), kGround);
        RECT all{0, 0, Width(rect), Height(rect)};
        DrawFrameControl(canvas.Dc(), &all, type, state);
        return IsSame(look, rect, canvas);
    }
    static bool IsSame(const Picture& look, const RECT& rect, const Canvas& canvas) {
        for (int y = 0; y < Height(rect); ++y)
            for (int x = 0; x < Width(rect); ++x)
                if (At(look, rect.left + x, rect.top + y) != canvas.At(x, y)) return false;
        return true;
    }

    static constexpr COLORREF kGround = RGB(200, 100, 50);
    tvBrushHandle m_Ground{CreateSolidBrush(kGround)};
    LinesStage m_Stage{kDark};
};

TEST_F(SystemScrollBox, HasAClassicBarWithoutAVisualStyle) {
    m_Stage.Box().m_theme.Reset();
    m_Stage.Box().Redraw(true);
    const RECT page = m_Stage.Part(SCROLL_PAGE_DOWN);
    EXPECT_EQ(m_Stage.Look().Count(page, kGround), Width(page) * Height(page));
    EXPECT_TRUE(IsFrameControl(SCROLL_THUMB, DFC_BUTTON, 8208));
    EXPECT_TRUE(IsFrameControl(SCROLL_UP, DFC_SCROLL, DFCS_SCROLLUP | 0x2000));
    EXPECT_TRUE(IsFrameControl(SCROLL_DOWN, DFC_SCROLL, DFCS_SCROLLDOWN | 0x2000));
    EXPECT_EQ(m_Stage.Look().At(0, 20), GetSysColor(COLOR_BTNSHADOW));
    EXPECT_EQ(m_Stage.Look().At(1, 20), GetSysColor(COLOR_WINDOW));
}

TEST_F(SystemScrollBox, HasClassicArrowsThatAreGrayWhereThereIsNothingToScroll) {
    m_Stage.Box().m_theme.Reset();
    SetWindowTextW(m_Stage.Control(), L"One line");
    Settle(m_Stage.dialog.Handle());
    EXPECT_TRUE(IsFrameControl(SCROLL_UP, DFC_SCROLL, DFCS_SCROLLUP | DFCS_INACTIVE | 0x2000));
    const RECT bar = m_Stage.Part(SCROLL_BAR);
    EXPECT_EQ(m_Stage.Look().At(Across(bar), Down(bar)), kGround) << "there is no thumb";
}

TEST_F(SystemScrollBox, HasAClassicArrowThatIsPushedWhileItIsHeld) {
    m_Stage.Box().m_theme.Reset();
    const auto isDrawn = [this](int part, UINT state) {
        const Sheet sheet(m_Stage.Host());
        SendMessageW(m_Stage.Host(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(sheet.canvas.Dc()), PRF_CLIENT);
        const RECT rect = m_Stage.Part(part);
        const Canvas expected(Width(rect), Height(rect), kGround);
        RECT all{0, 0, Width(rect), Height(rect)};
        DrawFrameControl(expected.Dc(), &all, DFC_SCROLL, state | 0x2000);
        for (int y = 0; y < Height(rect); ++y)
            for (int x = 0; x < Width(rect); ++x)
                if (sheet.At(static_cast<int>(rect.left) + x, static_cast<int>(rect.top) + y) !=
                    expected.At(x, y))
                    return false;
        return true;
    };
    m_Stage.Box().m_states[SCROLL_UP] |= STATE_SYSTEM_PRESSED;
    EXPECT_TRUE(isDrawn(SCROLL_UP, DFCS_SCROLLUP | DFCS_PUSHED));
    EXPECT_FALSE(isDrawn(SCROLL_UP, DFCS_SCROLLUP));
    EXPECT_TRUE(isDrawn(SCROLL_DOWN, DFCS_SCROLLDOWN));
    m_Stage.Box().m_states[SCROLL_UP] = 0;
    m_Stage.Box().m_states[SCROLL_DOWN] |= STATE_SYSTEM_PRESSED;
    EXPECT_TRUE(isDrawn(SCROLL_UP, DFCS_SCROLLUP));
    EXPECT_TRUE(isDrawn(SCROLL_DOWN, DFCS_SCROLLDOWN | DFCS_PUSHED));
}

TEST_F(SystemScrollBox, HasAnActiveFrameWithTheKeyboard) {
    Focus(m_Stage.dialog, m_Stage.Control());
    EXPECT_EQ(m_Stage.Look().At(0, 20), GetSysColor(COLOR_HOTLIGHT));
}

TEST_F(SystemScrollBox, OpensTheVisualStyleAnewWhenThatChangesAndClosesItWithItsWindow) {
    tvScrollBox& box = m_Stage.Box();
    box.m_theme.Reset(IsVisualStyleActive() ? nullptr : OpenThemeData(box.Handle(), L"ScrollBar"));
    SendMessageW(box.Handle(), WM_THEMECHANGED, 0, 0);
    EXPECT_EQ(static_cast<bool>(box.m_theme), IsVisualStyleActive());
    box.m_theme.Reset(OpenThemeData(box.Handle(), L"ScrollBar"));
    ASSERT_TRUE(box.m_theme);
    m_Stage.dialog.Close();
    EXPECT_FALSE(m_Stage.Box().m_theme);
}

TEST_F(SystemScrollBox, IsDrawnByTheVisualStyle) {
    m_Stage.Box().m_theme.Reset(OpenThemeData(m_Stage.Host(), L"ScrollBar"));
    ASSERT_TRUE(m_Stage.Box().m_theme);
    const auto isDrawn = [&](int part, int themePart, int state) {
        m_Stage.Box().Redraw(true);
        const RECT rect = m_Stage.Part(part);
        const Canvas canvas(Width(rect), Height(rect), GetSysColor(COLOR_WINDOW));
        const RECT all{0, 0, Width(rect), Height(rect)};
        DrawThemeBackground(m_Stage.Box().m_theme.Get(), canvas.Dc(), themePart, state, &all, nullptr);
        return IsSame(m_Stage.Look(), rect, canvas);
    };
    EXPECT_TRUE(isDrawn(SCROLL_UP, 1, 1));
    EXPECT_TRUE(isDrawn(SCROLL_DOWN, 1, 5));
    const RECT thumb = m_Stage.Part(SCROLL_THUMB);
    EXPECT_FALSE(isDrawn(SCROLL_UP, 1, 4)) << "looks as if there were nothing to scroll";
    MoveMouse(m_Stage.Host(), Across(thumb), Down(thumb));
    ASSERT_TRUE(PumpUntil([&] { return m_Stage.Box().m_hotPart == SCROLL_THUMB; }));
    EXPECT_TRUE(isDrawn(SCROLL_UP, 1, 17));
    SetWindowTextW(m_Stage.Control(), L"One line");
    Settle(m_Stage.dialog.Handle());
    EXPECT_TRUE(isDrawn(SCROLL_UP, 1, 4));
    EXPECT_TRUE(isDrawn(SCROLL_DOWN, 1, 8));
}

// --- What the visual style is asked for ---

// Notes the parts of a scroll bar that a visual style is to draw, which it does not.
class StyleCalls {
public:
    struct Call {
        int part;
        int state;
        bool operator==(const Call&) const = default;
        friend void PrintTo(const Call& call, std::ostream* out) {
            *out << "part " << call.part << " state " << call.state;
        }
    };

    // Of a bar as it is painted into a context.
    static std::vector<Call> Of(HWND host) {
        const Sheet sheet(host);
        s_Calls.clear();
        s_Places.clear();
        const ImportSlot slot(L"uxtheme.dll", "DrawThemeBackground", reinterpret_cast<ULONG_PTR>(&Note));
        SendMessageW(host, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(sheet.canvas.Dc()), PRF_CLIENT);
        return s_Calls;
    }
    // Where the part was to be drawn, by the notes of the last bar.
    static RECT PlaceOf(int part) {
        for (std::size_t i = 0; i < s_Calls.size(); ++i)
            if (s_Calls[i].part == part) return s_Places[i];
        return {};
    }

private:
    static HRESULT WINAPI Note(HTHEME, HDC, int part, int state, const RECT* place, const RECT*) {
        s_Calls.push_back({part, state});
        s_Places.push_back(*place);
        return S_OK;
    }
    static inline std::vector<Call> s_Calls;
    static inline std::vector<RECT> s_Places;
};

class StyledScrollBox : public SystemScrollBox {
protected:
    StyledScrollBox() {
        m_Stage.Box().m_theme.Reset(OpenThemeData(m_Stage.Host(), L"ScrollBar"));
        EXPECT_TRUE(m_Stage.Box().m_theme);
    }
    // With the mouse over this part.
    std::vector<StyleCalls::Call> Lit(int part) {
        m_Stage.Box().m_hotPart = part;
        return StyleCalls::Of(m_Stage.Host());
    }
    using Call = StyleCalls::Call;
};

TEST_F(StyledScrollBox, IsTrackThumbGripAndArrows) {
    EXPECT_THAT(Lit(SCROLL_NONE),
                ElementsAre(Call{7, 1}, Call{6, 1}, Call{3, 1}, Call{9, 1}, Call{1, 1}, Call{1, 5}));
    EXPECT_EQ(StyleCalls::PlaceOf(3), m_Stage.Part(SCROLL_THUMB));
    EXPECT_EQ(StyleCalls::PlaceOf(9), m_Stage.Part(SCROLL_THUMB));
    EXPECT_EQ(StyleCalls::PlaceOf(7).top, m_Stage.Part(SCROLL_UP).bottom);
    EXPECT_EQ(StyleCalls::PlaceOf(7).bottom, StyleCalls::PlaceOf(6).top);
    EXPECT_EQ(StyleCalls::PlaceOf(6).bottom, m_Stage.Part(SCROLL_DOWN).top);
    EXPECT_THAT(Lit(SCROLL_HOST),
                ElementsAre(Call{7, 1}, Call{6, 1}, Call{3, 1}, Call{9, 1}, Call{1, 1}, Call{1, 5}));
}

TEST_F(StyledScrollBox, IsLitUpWithThePartUnderTheMouse) {
    EXPECT_THAT(Lit(SCROLL_THUMB),
                ElementsAre(Call{7, 1}, Call{6, 1}, Call{3, 2}, Call{9, 2}, Call{1, 17}, Call{1, 18}));
    EXPECT_THAT(Lit(SCROLL_PAGE_UP),
                ElementsAre(Call{7, 2}, Call{6, 1}, Call{3, 5}, Call{9, 5}, Call{1, 17}, Call{1, 18}));
    EXPECT_THAT(Lit(SCROLL_PAGE_DOWN),
                ElementsAre(Call{7, 1}, Call{6, 2}, Call{3, 5}, Call{9, 5}, Call{1, 17}, Call{1, 18}));
    EXPECT_THAT(Lit(SCROLL_UP),
                ElementsAre(Call{7, 1}, Call{6, 1}, Call{3, 5}, Call{9, 5}, Call{1, 2}, Call{1, 18}));
    EXPECT_THAT(Lit(SCROLL_DOWN),
                ElementsAre(Call{7, 1}, Call{6, 1}, Call{3, 5}, Call{9, 5}, Call{1, 17}, Call{1, 6}));
}

TEST_F(StyledScrollBox, ShowsAnArrowThatIsHeld) {
    m_Stage.Box().m_states[SCROLL_UP] |= STATE_SYSTEM_PRESSED;
    EXPECT_EQ(Lit(SCROLL_UP)[4], (Call{1, 3}));
    m_Stage.Box().m_states[SCROLL_UP] = 0;
    m_Stage.Box().m_states[SCROLL_DOWN] |= STATE_SYSTEM_PRESSED;
    EXPECT_EQ(Lit(SCROLL_DOWN)[5], (Call{1, 7}));
}

TEST_F(StyledScrollBox, ShowsAThumbThatIsHeldWhereTheMouseHasIt) {
    const RECT thumb = m_Stage.Part(SCROLL_THUMB);
    MoveMouse(m_Stage.Host(), Across(thumb), Down(thumb));
    Press();
    MoveMouse(m_Stage.Host(), Across(thumb), Down(thumb) + 1);
    EXPECT_TRUE(PumpUntil([&] { return m_Stage.Box().m_drag.thumb.top == thumb.top + 1; }));
    EXPECT_THAT(StyleCalls::Of(m_Stage.Host()),
                ElementsAre(Call{7, 1}, Call{6, 1}, Call{3, 3}, Call{9, 3}, Call{1, 17}, Call{1, 18}));
    EXPECT_EQ(StyleCalls::PlaceOf(3).top, thumb.top + 1);
    Release();
}

TEST_F(StyledScrollBox, IsGrayAndHasNoThumbWhereThereIsNothingToScroll) {
    SetWindowTextW(m_Stage.Control(), L"One line");
    Settle(m_Stage.dialog.Handle());
    EXPECT_THAT(Lit(SCROLL_NONE), ElementsAre(Call{7, 4}, Call{6, 4}, Call{1, 4}, Call{1, 8}));
}

// The control is told to paint itself by its own message.
TEST(ScrollBoxPaint, LeavesTheControlToBePainted) {
    const LinesStage stage;
    RedrawWindow(stage.Host(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
    SendMessageW(stage.Host(), WM_PAINT, 0, 0);
    EXPECT_EQ(GetUpdateRect(stage.Host(), nullptr, FALSE), FALSE);
    EXPECT_NE(GetUpdateRect(stage.Control(), nullptr, FALSE), FALSE);
}

}  // namespace
