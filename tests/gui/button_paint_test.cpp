// How an owner-drawn button answers WM_PAINT: by itself, in the state that its window has.
#include "tests/gui/button_stage.h"
#include "toolkit/button_icon.h"
#include "toolkit/draw.h"

namespace {

// Keeps the state of the keyboard's cues as windows do: Wine's windows have none.
class Still : public tvButton {
public:
    Still() { m_noAnimation = 1; }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_QUERYUISTATE) return m_hidden;
        if (message == WM_UPDATEUISTATE && LOWORD(wParam) == UIS_SET) m_hidden |= HIWORD(wParam);
        if (message == WM_UPDATEUISTATE && LOWORD(wParam) == UIS_CLEAR) m_hidden &= ~HIWORD(wParam);
        return tvButton::WindowProc(message, wParam, lParam);
    }
    void DrawContent(HDC dc, RECT rect, const tvButtonColors& colors) override {
        m_isUnderlined = colors.m_showAccel != 0;
        tvButton::DrawContent(dc, rect, colors);
    }

    bool m_isUnderlined = false;  // in the last picture

private:
    int m_hidden = 0;
};

// What is painted of a button in a state that is handed to it.
bool ShowsState(const Stage<Still>& stage, UINT state) {
    const Picture shown = stage.Look();
    const Sheet wanted(stage.Window(), state);
    for (int y = 0; y < wanted.size.cy; ++y)
        for (int x = 0; x < wanted.size.cx; ++x)
            if (shown.At(x, y) != wanted.At(x, y)) return false;
    return true;
}

void SetCues(const Stage<Still>& stage, WORD action, WORD cues) {
    SendMessageW(stage.Window(), WM_UPDATEUISTATE, MAKEWPARAM(action, cues), 0);
}

UNDER_COLOR_THEMES(PaintedButton);

// Painted anew, since the system asks for some changes by way of the parent.
TEST_P(PaintedButton, ShowsTheStateThatItsWindowHas) {
    Stage<Still> stage(GetParam());
    const auto shows = [&stage](UINT state) {
        Settle(stage.Window());
        InvalidateRect(stage.Window(), nullptr, FALSE);
        return ShowsState(stage, state);
    };
    EXPECT_TRUE(shows(0));
    SendMessageW(stage.Window(), BM_SETSTATE, TRUE, 0);
    EXPECT_TRUE(shows(ODS_SELECTED));
    EXPECT_FALSE(shows(0));
    SendMessageW(stage.Window(), BM_SETSTATE, FALSE, 0);
    Focus(stage.dialog, stage.Window());
    EXPECT_TRUE(shows(ODS_FOCUS));
    EXPECT_FALSE(shows(0));
    Focus(stage.dialog, stage.dialog.Item(kEdit));
    EnableWindow(stage.Window(), FALSE);
    EXPECT_TRUE(shows(ODS_DISABLED));
    EXPECT_FALSE(shows(0));
}

// Wine underlines the letter whatever it is told.
TEST_P(PaintedButton, UnderlinesTheLetterOfItsShortCutOnlyWhileCuesAreShown) {
    const Stage<Still> stage(GetParam(), 0, u"&OK");
    Settle(stage.Window());
    EXPECT_TRUE(stage.button.m_isUnderlined);
    for (const bool isShown : {false, true}) {
        SetCues(stage, isShown ? UIS_CLEAR : UIS_SET, UISF_HIDEACCEL);
        Settle(stage.Window());
        EXPECT_EQ(stage.button.m_isUnderlined, isShown);
    }
}

TEST_P(PaintedButton, HasTheDotsOfTheKeyboardOnlyWhileCuesAreShown) {
    Stage<Still> stage(GetParam());
    Focus(stage.dialog, stage.Window());
    SetCues(stage, UIS_SET, UISF_HIDEFOCUS);
    EXPECT_TRUE(ShowsState(stage, ODS_FOCUS | ODS_NOFOCUSRECT));
    SetCues(stage, UIS_CLEAR, UISF_HIDEFOCUS);
    EXPECT_TRUE(ShowsState(stage, ODS_FOCUS));
}

TEST_P(PaintedButton, IsPaintedWholeWhateverPartWasToBe) {
    const Stage<Still> stage(GetParam());
    Settle(stage.Window());
    {
        const tvClientDC dc(stage.Window());
        FillSolid(dc.Get(), {0, 0, 40, 20}, RGB(255, 0, 255));
    }
    constexpr RECT kCorner{0, 0, 1, 1};
    InvalidateRect(stage.Window(), &kCorner, FALSE);
    EXPECT_TRUE(ShowsState(stage, 0));
}

TEST_P(PaintedButton, IsNotAskedAgainOnceItIsPainted) {
    const Stage<Still> stage(GetParam());
    InvalidateRect(stage.Window(), nullptr, TRUE);
    EXPECT_NE(GetUpdateRect(stage.Window(), nullptr, FALSE), FALSE);
    SendMessageW(stage.Window(), WM_PAINT, 0, 0);
    EXPECT_EQ(GetUpdateRect(stage.Window(), nullptr, FALSE), FALSE);
    EXPECT_TRUE(ShowsState(stage, 0));
}

TEST_P(PaintedButton, WithoutItsPictureShowsItsCaption) {
    const Stage<tvButton_customIcon> stage(GetParam());
    SendMessageW(stage.Window(), BM_SETIMAGE, IMAGE_ICON, 0);
    EXPECT_GT(stage.Look().Count(TheTheme().m_text), 10);
}

}  // namespace
