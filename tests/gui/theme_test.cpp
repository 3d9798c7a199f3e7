#include "toolkit/theme.h"

#include <gtest/gtest.h>

#include "tests/gui/harness.h"
#include "tests/gui/plain_window.h"
#include "toolkit/app.h"
#include "toolkit/statics.h"
#include "toolkit/tool_tip.h"
#include "toolkit/wnd.h"

namespace {

COLORREF ColorOf(HBRUSH brush) {
    LOGBRUSH logbrush{};
    GetObjectW(brush, sizeof logbrush, &logbrush);
    return logbrush.lbColor;
}

LOGFONTW Logfont(HFONT font) {
    LOGFONTW logfont{};
    GetObjectW(font, sizeof logfont, &logfont);
    return logfont;
}

TEST(Theme, StartsWithTheBuiltInThemesAndSystemDefaultInForce) {
    const tvTheme theme;
    ASSERT_EQ(theme.m_themes.size(), 5U);
    EXPECT_TRUE(theme.m_isSystemDefault);
    EXPECT_TRUE(theme.m_ready);
    EXPECT_EQ(theme.m_base, RgbColor(240, 240, 240));
}

TEST(Theme, PutsAThemeInForceWithItsBrushes) {
    tvTheme theme;
    ASSERT_TRUE(theme.Apply(2));
    EXPECT_EQ(theme.m_name, u"Blue");
    EXPECT_FALSE(theme.m_isSystemDefault);
    EXPECT_EQ(ColorOf(theme.m_baseBrush.Get()), theme.m_base);
    EXPECT_EQ(ColorOf(theme.m_editBrush.Get()), theme.m_editBg);
    EXPECT_EQ(ColorOf(theme.m_borderBrush.Get()), theme.m_border);
}

TEST(Theme, KeepsTheOldThemeForABadIndex) {
    tvTheme theme;
    ASSERT_TRUE(theme.Apply(3));
    EXPECT_FALSE(theme.Apply(5));
    EXPECT_FALSE(theme.Apply(-2));
    EXPECT_EQ(theme.m_name, u"Green");
    EXPECT_FALSE(theme.m_isSystemDefault);
}

TEST(Theme, TakesTheLastEntryForMinusOneIfSystemDefaultIsAllowed) {
    tvTheme theme;
    ASSERT_TRUE(theme.Apply(1));
    ASSERT_TRUE(theme.Apply(-1));
    EXPECT_TRUE(theme.m_isSystemDefault);
    theme.m_allowSystemDefault = false;
    theme.AddBuiltInThemes();
    ASSERT_TRUE(theme.Apply(-1));
    EXPECT_EQ(theme.m_name, theme.IsSystemDark() ? u"Dark" : u"Light");
    EXPECT_FALSE(theme.m_isSystemDefault);
}

TEST(Theme, PostsTheChangeToTheMainWindow) {
    PlainWindow window;
    tvWnd wrapper;
    wrapper.Attach(window.Handle());
    tvApp* app = tvApp::Get();
    ASSERT_NE(app, nullptr);
    tvWnd* before = app->m_mainWnd;
    app->m_mainWnd = &wrapper;
    tvTheme theme;
    theme.Apply(1);
    EXPECT_EQ(window.Count(WM_SYSCOLORCHANGE), 0);
    EXPECT_TRUE(window.WaitFor(WM_SYSCOLORCHANGE, 0));
    EXPECT_EQ(window.m_Messages.back().lParam, reinterpret_cast<LPARAM>(&theme));
    app->m_mainWnd = before;
    wrapper.Detach(tvWnd::Window::Keep);
}

TEST(Theme, ReleasesTheBrushesThatItReplaces) {
    tvTheme theme;
    theme.Apply(1);
    const HBRUSH before[] = {theme.m_baseBrush.Get(), theme.m_editBrush.Get(), theme.m_borderBrush.Get()};
    theme.Apply(2);
    for (HBRUSH brush : before)
        EXPECT_EQ(GetObjectType(brush), 0U);
}

TEST(Theme, GivesTheRolesColourOrTheSystems) {
    tvTheme theme;
    theme.Apply(1);
    EXPECT_EQ(theme.Color(&tvColorTheme::m_text, COLOR_BTNTEXT), theme.m_text);
    theme.Apply(-1);
    EXPECT_EQ(theme.Color(&tvColorTheme::m_text, COLOR_BTNTEXT), GetSysColor(COLOR_BTNTEXT));
}

TEST(ThemeFont, HasABoldAndALargeOneBesideIt) {
    tvTheme theme;
    LOGFONTW logfont = GetSystemFont();
    logfont.lfHeight = -13;
    logfont.lfWeight = 400;
    theme.SetFont(logfont, 1.45F);
    EXPECT_EQ(Logfont(theme.Font()).lfHeight, -13);
    EXPECT_EQ(Logfont(theme.m_fontBold.Get()).lfWeight, 700);
    EXPECT_EQ(Logfont(theme.m_fontBold.Get()).lfHeight, -13);
    EXPECT_EQ(Logfont(theme.m_fontLarge.Get()).lfHeight, -18);
    EXPECT_EQ(Logfont(theme.m_fontLarge.Get()).lfWeight, 400);
}

TEST(ThemeFont, TakesAFactorBelowOneAsOne) {
    tvTheme theme;
    LOGFONTW logfont = GetSystemFont();
    logfont.lfHeight = -20;
    theme.SetFont(logfont, 0.5F);
    EXPECT_EQ(Logfont(theme.m_fontLarge.Get()).lfHeight, -20);
}

TEST(ThemeFont, GivesTheDistances) {
    tvTheme theme;
    LOGFONTW logfont = GetSystemFont();
    logfont.lfHeight = -40;
    theme.SetFont(logfont, 1.45F);
    const PixelSize margin = DialogUnitsToPixels(theme.Font(), 7, 7);
    const PixelSize gap = DialogUnitsToPixels(theme.Font(), 4, 4);
    EXPECT_EQ(theme.m_marginX, margin.x);
    EXPECT_EQ(theme.m_marginY, margin.y);
    EXPECT_EQ(theme.m_halfMarginX, margin.x / 2);
    EXPECT_EQ(theme.m_halfMarginY, margin.y / 2);
    EXPECT_EQ(theme.m_gapX, gap.x);
    EXPECT_EQ(theme.m_gapY, gap.y);
    EXPECT_EQ(theme.m_borderWidth, 2);
}

TEST(ThemeFont, ReachesTheMainWindowAndTheToolTip) {
    PlainWindow window;
    tvWnd wrapper;
    wrapper.Attach(window.Handle());
    tvApp* app = tvApp::Get();
    tvWnd* before = app->m_mainWnd;
    app->m_mainWnd = &wrapper;
    const LOGFONTW old = Logfont(TheTheme().Font());
    LOGFONTW changed = old;
    changed.lfHeight *= 2;
    TheToolTip().Create(nullptr, 0);
    TheTheme().SetFont(changed, 1.45F);
    EXPECT_GE(window.Count(WM_SETFONT), 1);
    EXPECT_EQ(wrapper.m_font, TheTheme().Font());
    // The tool tip makes a copy.
    EXPECT_EQ(Logfont(reinterpret_cast<HFONT>(TheToolTip().Send(WM_GETFONT))).lfHeight, changed.lfHeight);
    TheTheme().SetFont(old, 1.45F);
    app->m_mainWnd = before;
    wrapper.Detach(tvWnd::Window::Keep);
}

TEST(ThemeFont, MeasuresLinesAndRemembersThoseOfItsOwnFonts) {
    tvTheme theme;
    int width = 0;
    const int height = theme.TextHeight(theme.Font(), &width);
    const tvClientDC screen(nullptr);
    const tvSelected selected(screen.Get(), theme.Font());
    int measured = 0;
    EXPECT_EQ(height, GetFontHeight(screen.Get(), &measured));
    EXPECT_EQ(width, measured);
    EXPECT_EQ(theme.m_charCache.size(), 1U);
    theme.TextHeight(static_cast<HFONT>(GetStockObject(SYSTEM_FONT)), nullptr);
    EXPECT_EQ(theme.m_charCache.size(), 1U);
    EXPECT_GT(theme.TextHeight(theme.m_fontLarge.Get(), nullptr), height);
    EXPECT_EQ(theme.m_charCache.size(), 2U);
}

TEST(ThemeFont, ForgetsTheLinesOfTheFontsBefore) {
    tvTheme theme;
    const int before = theme.TextHeight(theme.Font(), nullptr);
    theme.TextHeight(theme.m_fontBold.Get(), nullptr);
    LOGFONTW changed = Logfont(theme.Font());
    changed.lfHeight *= 3;
    theme.SetFont(changed, 1.45F);
    EXPECT_GT(theme.TextHeight(theme.Font(), nullptr), 2 * before);
    EXPECT_EQ(theme.m_charCache.size(), 1U);
}

}  // namespace
