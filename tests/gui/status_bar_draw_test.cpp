// What a status bar looks like.
#include "tests/gui/late_functions_guard.h"
#include "tests/gui/message_box_harness.h"
#include "tests/gui/sizes.h"
#include "tests/gui/status_bar_harness.h"
#include "toolkit/rect.h"
#include "toolkit/theme.h"

namespace {

class StatusBarDraw : public StatusBarTest, public testing::WithParamInterface<const char16_t*> {
protected:
    void SetUp() override {
        StatusBarTest::SetUp();
        UseTheme(GetParam(), m_Dialog.Handle());
        m_Bar.Send(WM_SETFONT, reinterpret_cast<WPARAM>(TheTheme().Font()), TRUE);
    }
    Picture Paint() {
        m_Bar.TakeDrawn();
        Repaint();
        return Picture(m_Bar.Handle());
    }
    [[nodiscard]] static bool IsSystemDefault() { return TheTheme().m_isSystemDefault; }
    [[nodiscard]] static COLORREF Face() { return TheTheme().Color(&tvColorTheme::m_button, COLOR_BTNFACE); }
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Themes, StatusBarDraw, testing::ValuesIn(kTestedThemes), NameOfTheme);

TEST_P(StatusBarDraw, GoesFromTheBackToTheText) {
    Paint();
    EXPECT_EQ(m_Bar.TakeDrawn(), "back grip panes label");
    const tvIconHandle icon = SolidIcon(16, RGB(250, 1, 2));
    m_Bar.SetIdle(u"Idle", icon.Get(), 0);
    Paint();
    EXPECT_EQ(m_Bar.TakeDrawn(), "back grip panes icon label");
}

TEST_P(StatusBarDraw, IsPaintedThroughTheBuffer) {
    Paint();
    EXPECT_TRUE(m_Bar.m_hasFrame);
}

TEST_P(StatusBarDraw, DoesNotFade) {
    static int asked;
    asked = 0;
    const LateFunctionsGuard guard;
    TheLateFunctions().bufferedPaintRenderAnimation.Replace([](HWND, HDC) -> BOOL {
        ++asked;
        return FALSE;
    });
    Paint();
    m_Bar.SetIdle(u"Another text", nullptr, 0);
    Paint();
    EXPECT_EQ(asked, 0);
}

TEST_P(StatusBarDraw, HasTheFaceOfAButtonAndALineAbove) {
    const Picture picture = Paint();
    if (IsSystemDefault()) {
        EXPECT_GT(picture.Count(picture.At(2, 3)), picture.Width() * picture.Height() / 2);
        return;
    }
    EXPECT_EQ(picture.At(5, 3), Face());
    EXPECT_EQ(picture.At(0, picture.Height() - 1), Face());
    EXPECT_EQ(picture.Count(BoxAt(0, 0, picture.Width(), 1), TheTheme().m_border), picture.Width());
    EXPECT_EQ(picture.At(5, 1), Face());
}

TEST_P(StatusBarDraw, HasItsGripAtTheBottomRight) {
    Paint();
    EXPECT_EQ(m_Bar.m_grip.right, Client().right);
    EXPECT_EQ(m_Bar.m_grip.bottom, Client().bottom);
    EXPECT_EQ(m_Bar.m_gripColor, TheTheme().Color(&tvColorTheme::m_border, COLOR_BTNSHADOW));
    if (!IsSystemDefault()) {
        EXPECT_EQ(Width(m_Bar.m_grip), 16);
        EXPECT_EQ(Picture(m_Bar.Handle()).Count(m_Bar.m_grip, TheTheme().m_border), 6 * 4);
    }
}

TEST_P(StatusBarDraw, HasNoGripWhileTheDialogIsMaximised) {
    ShowWindow(m_Dialog.Handle(), SW_MAXIMIZE);
    Paint();
    EXPECT_EQ(m_Bar.TakeDrawn(), "back panes label");
    EXPECT_EQ(m_Bar.m_panes.right, Client().right);
    ShowWindow(m_Dialog.Handle(), SW_RESTORE);
}

TEST_P(StatusBarDraw, HasNoGripIfItIsNotToBeShown) {
    m_Bar.m_showGrip = false;
    Paint();
    EXPECT_EQ(m_Bar.TakeDrawn(), "back panes label");
}

TEST_P(StatusBarDraw, LeavesTheTextTheRestWithinTwoPixels) {
    m_Bar.SetIdle(u"Idle", nullptr, 0);
    Paint();
    const RECT expected = {2, 2, m_Bar.m_grip.left, Client().bottom - 2};
    EXPECT_EQ(m_Bar.m_panes, expected);
    EXPECT_EQ(m_Bar.m_label, (RECT{2 + TheTheme().m_halfMarginX, 2, expected.right, expected.bottom}));
}

TEST_P(StatusBarDraw, PutsTheIconAtTheLeftAndKeepsASquareForItInFrontOfTheText) {
    const COLORREF color = RGB(250, 1, 2);
    const tvIconHandle icon = SolidIcon(8, color);
    m_Bar.SetIdle(u"", icon.Get(), 0);
    const Picture picture = Paint();
    const int side = Client().bottom - 4;
    EXPECT_EQ(m_Bar.m_iconPlace, CenteredBox(BoxAt(2, 2, 8, side), 8, 8));
    EXPECT_EQ(m_Bar.m_label.left, 2 + side + 2);
    EXPECT_EQ(picture.Count(m_Bar.m_iconPlace, color), 64);
    EXPECT_EQ(picture.Count(color), 64);
}

TEST_P(StatusBarDraw, GivesAWideIconItsWidth) {
    const tvIconHandle icon = SolidIcon(60, RGB(250, 1, 2));
    m_Bar.SetIdle(u"", icon.Get(), 0);
    Paint();
    EXPECT_EQ(m_Bar.m_iconPlace.left, 2);
    EXPECT_EQ(Width(m_Bar.m_iconPlace), 60);
    EXPECT_EQ(m_Bar.m_label.left, 2 + 60 + 2);
}

TEST_P(StatusBarDraw, PaintsTheTextInTheMiddleInItsColour) {
    const COLORREF text = TheTheme().Color(&tvColorTheme::m_text, COLOR_BTNTEXT);
    m_Bar.m_showGrip = false;
    m_Bar.SetIdle(u"HHHH", nullptr, 0);
    const Picture picture = Paint();
    EXPECT_EQ(m_Bar.m_textColor, text);
    int top = picture.Height();
    int bottom = 0;
    for (int y = 1; y < picture.Height(); ++y) {
        if (picture.Count(BoxAt(0, y, 60, 1), text) == 0) continue;
        top = std::min(top, y);
        bottom = std::max(bottom, y + 1);
    }
    ASSERT_LT(top, bottom) << "there is no text";
    EXPECT_NEAR((top + bottom) / 2, picture.Height() / 2, 2);
}

// Some systems underline the letter all the same.
TEST_P(StatusBarDraw, PaintsNoMarksOfTheStandingText) {
    m_Bar.m_showGrip = false;
    const auto lastColumn = [&](const tvstring& text) {
        m_Bar.SetIdle(text, nullptr, 0);
        const Picture picture = Paint();
        int last = 0;
        for (int x = 0; x < picture.Width(); ++x) {
            const RECT column = BoxAt(x, 2, 1, picture.Height() - 2);
            if (picture.Count(column, m_Bar.m_textColor) != 0) last = x;
        }
        return last;
    };
    EXPECT_EQ(lastColumn(u"&HH"), lastColumn(u"HH"));
    EXPECT_GT(lastColumn(u"&&HH"), lastColumn(u"HH"));
}

TEST_P(StatusBarDraw, PaintsTheTextAsTheSystemDoesWithTabsAndOnOneLine) {
    for (const char16_t* text : {u"Text", u"&Te&&xt", u"A\tB", u"A\nB"}) {
        const Canvas label(200, 40);
        m_Bar.tvStatusBar::DrawLabel(label.Dc(), BoxAt(3, 1, 180, 31), text);
        const Canvas plain(200, 40);
        RECT rect = BoxAt(3, 1, 180, 31);
        DrawTextW(plain.Dc(), Wide(text), -1, &rect,
                  DT_VCENTER | DT_SINGLELINE | DT_EXPANDTABS | DT_HIDEPREFIX);
        EXPECT_GT(label.Count(RGB(0, 0, 0)), 0);
        for (int y = 0; y < 40; ++y) {
            for (int x = 0; x < 200; ++x)
                ASSERT_EQ(label.At(x, y), plain.At(x, y)) << x << ", " << y;
        }
    }
}

TEST_P(StatusBarDraw, LooksTheSameAfterTheSystemsStyleHasChanged) {
    m_Bar.SetIdle(u"Idle", nullptr, 0);
    const Picture before = Paint();
    m_Bar.Send(WM_THEMECHANGED);
    EXPECT_EQ(before, Paint());
}

TEST_P(StatusBarDraw, UsesTheFontThatItWasGiven) {
    m_Bar.m_showGrip = false;
    m_Bar.SetIdle(u"HHHH", nullptr, 0);
    const COLORREF text = TheTheme().Color(&tvColorTheme::m_text, COLOR_BTNTEXT);
    const int regular = Paint().Count(text);
    m_Bar.Send(WM_SETFONT, reinterpret_cast<WPARAM>(TheTheme().m_fontBold.Get()), TRUE);
    EXPECT_GT(Paint().Count(text), regular);
}

TEST_P(StatusBarDraw, TakesItsFontToWhateverContextItIsDrawnOn) {
    m_Bar.m_showGrip = false;
    m_Bar.Send(WM_SETFONT, reinterpret_cast<WPARAM>(TheTheme().m_fontBold.Get()), TRUE);
    m_Bar.SetIdle(u"HHHH", nullptr, 0);
    const int expected = Paint().Count(m_Bar.m_textColor);
    const Canvas canvas(Client().right, Client().bottom);
    const tvSelected other(canvas.Dc(), TheTheme().m_fontLarge.Get());
    DRAWITEMSTRUCT item{};
    item.hDC = canvas.Dc();
    m_Bar.OnReflectDrawItem(&item);
    EXPECT_EQ(canvas.Count(m_Bar.m_textColor), expected);
}
