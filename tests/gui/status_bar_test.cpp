// The messages of a status bar.
#include "toolkit/status_bar.h"

#include "tests/gui/status_bar_harness.h"

namespace {

tvStatusRecord Record(const tvstring& text, i32 timeout = 0, u8 flash = 0) {
    tvStatusRecord record;
    record.m_text = text;
    record.m_timeout = timeout;
    record.m_flash = flash;
    return record;
}

}  // namespace

TEST_F(StatusBarTest, ShowsTheStandingTextAtFirst) {
    m_Bar.SetIdle(u"Idle", nullptr, 0);
    EXPECT_EQ(m_Bar.Active().m_text, u"Idle");
}

TEST_F(StatusBarTest, ShowsAMessageInFrontOfTheStandingText) {
    m_Bar.SetIdle(u"Idle", nullptr, 0);
    m_Bar.SetMessage(u"Message", nullptr);
    EXPECT_EQ(m_Bar.Active().m_text, u"Message");
    m_Bar.SetMessage(u"", nullptr);
    EXPECT_EQ(m_Bar.Active().m_text, u"Idle");
}

TEST_F(StatusBarTest, TakesMenuTextsAsMessages) {
    m_Bar.SetMessage(u"Save &As...\tCtrl+S", nullptr);
    EXPECT_EQ(m_Bar.Active().m_text, u"Save As");
    m_Bar.SetIdle(u"Save &As...", nullptr, 0);
    EXPECT_EQ(m_Bar.m_idle.m_text, u"Save &As...") << "the standing text is taken as it is";
}

TEST_F(StatusBarTest, MessageWithoutAnIdleTimeoutStaysUntilReplaced) {
    m_Bar.SetIdle(u"Idle", nullptr, 0);
    m_Bar.SetMessage(u"Message", nullptr);
    EXPECT_FALSE(TimerRuns());
    EXPECT_FALSE(PumpUntil([&] { return m_Bar.Active().m_text != u"Message"; }, 400));
    m_Bar.SetMessage(u"Other", nullptr);
    EXPECT_EQ(m_Bar.Active().m_text, u"Other");
}

TEST_F(StatusBarTest, MessageGoesWhenTheIdleTimeoutIsOver) {
    m_Bar.SetIdle(u"Idle", nullptr, 300);
    const ULONGLONG start = GetTickCount64();
    m_Bar.SetMessage(u"Message", nullptr);
    EXPECT_TRUE(PumpUntil([&] { return m_Bar.Active().m_text == u"Idle"; }));
    EXPECT_NEAR(static_cast<double>(GetTickCount64() - start), 300, 150);
    EXPECT_FALSE(TimerRuns());
    Settle(m_Dialog.Handle());
    EXPECT_EQ(m_Bar.m_text, u"Idle") << "and is painted";
}

TEST_F(StatusBarTest, LaterMessageHasItsWholeTime) {
    m_Bar.SetIdle(u"Idle", nullptr, 300);
    m_Bar.SetMessage(u"First", nullptr);
    EXPECT_FALSE(PumpUntil([] { return false; }, 200));
    m_Bar.SetMessage(u"Second", nullptr);
    EXPECT_FALSE(PumpUntil([&] { return m_Bar.Active().m_text != u"Second"; }, 200));
    EXPECT_TRUE(PumpUntil([&] { return m_Bar.Active().m_text == u"Idle"; }));
}

TEST_F(StatusBarTest, SameMessageAgainHasItsWholeTimeAnew) {
    m_Bar.SetIdle(u"Idle", nullptr, 300);
    m_Bar.SetMessage(u"Message", nullptr);
    EXPECT_FALSE(PumpUntil([] { return false; }, 200));
    m_Bar.SetMessage(u"Message", nullptr);
    EXPECT_FALSE(PumpUntil([&] { return m_Bar.Active().m_text != u"Message"; }, 200));
    EXPECT_TRUE(PumpUntil([&] { return m_Bar.Active().m_text == u"Idle"; }));
}

TEST_F(StatusBarTest, SameMessageAgainIsNotPaintedAnewIfItStays) {
    m_Bar.SetMessage(u"Message", nullptr);
    Settle(m_Dialog.Handle());
    m_Bar.SetMessage(u"Message", nullptr);
    EXPECT_FALSE(IsInvalid());
    m_Bar.SetMessage(u"Other", nullptr);
    EXPECT_TRUE(IsInvalid());
}

TEST_F(StatusBarTest, SameTextWithAnotherIconIsAnotherMessage) {
    const tvIconHandle icon = SolidIcon(16, RGB(250, 1, 2));
    m_Bar.SetMessage(u"Message", nullptr);
    Settle(m_Dialog.Handle());
    m_Bar.SetMessage(u"Message", icon.Get());
    EXPECT_TRUE(IsInvalid());
    EXPECT_EQ(m_Bar.Active().m_icon, icon.Get());
}

TEST_F(StatusBarTest, SameTextWithAnotherTimeIsAnotherMessage) {
    m_Bar.SetIdle(u"Idle", nullptr, -1);
    m_Bar.Show(Record(u"Message"));
    Settle(m_Dialog.Handle());
    m_Bar.Show(Record(u"Message", -1));
    EXPECT_EQ(m_Bar.m_message.m_timeout, -1);
    EXPECT_TRUE(IsInvalid());
}

TEST_F(StatusBarTest, SettingTheStandingTextPaintsAnew) {
    Settle(m_Dialog.Handle());
    m_Bar.SetIdle(u"Idle", nullptr, 0);
    EXPECT_TRUE(IsInvalid());
}

TEST_F(StatusBarTest, NothingIsPaintedWhileItIsHidden) {
    ShowWindow(m_Bar.Handle(), SW_HIDE);
    Settle(m_Dialog.Handle());
    m_Bar.TakeDrawn();
    m_Bar.SetMessage(u"Message", nullptr);
    Settle(m_Dialog.Handle());
    EXPECT_EQ(m_Bar.TakeDrawn(), "");
    EXPECT_EQ(m_Bar.Active().m_text, u"Message");
}

// --- Icons ---

TEST_F(StatusBarTest, MessageWithoutAnIconHasThatOfTheStandingText) {
    const tvIconHandle idle = SolidIcon(20, RGB(250, 1, 2));
    const tvIconHandle own = SolidIcon(12, RGB(1, 250, 2));
    m_Bar.SetIdle(u"Idle", idle.Get(), 0);
    m_Bar.SetMessage(u"Message", nullptr);
    EXPECT_EQ(m_Bar.Active().m_icon, idle.Get());
    EXPECT_EQ(m_Bar.Active().m_iconWidth, 20);
    EXPECT_EQ(m_Bar.Active().m_iconHeight, 20);
    m_Bar.SetMessage(u"Message", own.Get());
    EXPECT_EQ(m_Bar.Active().m_icon, own.Get());
    EXPECT_EQ(m_Bar.Active().m_iconWidth, 12);
}

// --- How long ---

TEST_F(StatusBarTest, RecordsOwnTimeoutGoesBeforeTheIdleOne) {
    m_Bar.SetIdle(u"Idle", nullptr, 60000);
    m_Bar.Show(Record(u"Short", 100));
    EXPECT_TRUE(PumpUntil([&] { return m_Bar.Active().m_text == u"Idle"; }, 2000));
}

TEST_F(StatusBarTest, RecordsOwnTimeoutCountsWithoutAnIdleOne) {
    m_Bar.SetIdle(u"Idle", nullptr, 0);
    m_Bar.Show(Record(u"Short", 100));
    EXPECT_TRUE(PumpUntil([&] { return m_Bar.Active().m_text == u"Idle"; }, 2000));
}

TEST_F(StatusBarTest, TimeoutOfMinusOneIsForEver) {
    m_Bar.SetIdle(u"Idle", nullptr, 300);
    m_Bar.Show(Record(u"Own", -1));
    EXPECT_FALSE(TimerRuns());
    m_Bar.SetIdle(u"Idle", nullptr, -1);
    m_Bar.Show(Record(u"Usual"));
    EXPECT_FALSE(TimerRuns());
}

TEST_F(StatusBarTest, EmptyMessageHasNoTime) {
    m_Bar.SetIdle(u"Idle", nullptr, 300);
    m_Bar.SetMessage(u"Message", nullptr);
    EXPECT_TRUE(TimerRuns());
    m_Bar.SetMessage(u"", nullptr);
    EXPECT_FALSE(TimerRuns());
}

// --- Blinking ---

TEST_F(StatusBarTest, MessagesDoNotBlinkByThemselves) {
    m_Bar.SetIdle(u"Idle", nullptr, 300);
    m_Bar.SetMessage(u"Message", nullptr);
    EXPECT_EQ(m_Bar.m_message.m_flash, 0);
    EXPECT_EQ(m_Bar.m_flashTimer.m_id, 0U);
    EXPECT_EQ(m_Bar.m_flashTicks, 0U);
}

TEST_F(StatusBarTest, BlinksForHalfOfItsTime) {
    EXPECT_EQ(m_Bar.m_flashInterval, 150);
    m_Bar.Show(Record(u"Blinking", 3000, 1));
    EXPECT_EQ(m_Bar.m_flashTicks, 10U);
    m_Bar.Show(Record(u"Blinking on", 0, 1));
    EXPECT_EQ(m_Bar.m_flashTicks, 16U) << "without a time it is 5 seconds";
    EXPECT_TRUE(TimerRuns());
}

TEST_F(StatusBarTest, BlinkingForEverNeverGoes) {
    m_Bar.SetIdle(u"Idle", nullptr, 300);
    m_Bar.Show(Record(u"Blinking", -1, 1));
    EXPECT_FALSE(TimerRuns());
    EXPECT_GT(m_Bar.m_flashTicks, 1000000U);
}

TEST_F(StatusBarTest, TextIsGoneAtEverySecondTickAndThereAtTheEnd) {
    m_Bar.m_flashInterval = 20;
    m_Bar.SetIdle(u"Idle", nullptr, 0);
    m_Bar.Show(Record(u"Blinking", 200, 1));
    EXPECT_EQ(m_Bar.m_flashTicks, 5U);
    bool wasGone = false;
    bool wasThere = false;
    const auto look = [&] {
        const std::string drawn = m_Bar.TakeDrawn();
        if (drawn == "back grip") wasGone = true;
        if (drawn.find("label") != std::string::npos) wasThere = true;
        return m_Bar.m_flashTicks == 0;
    };
    EXPECT_TRUE(PumpUntil(look));
    EXPECT_TRUE(wasGone);
    EXPECT_TRUE(wasThere);
    EXPECT_EQ(m_Bar.m_flashTimer.m_id, 0U);
    Repaint();
    EXPECT_NE(m_Bar.TakeDrawn().find("label"), std::string::npos);
}

TEST_F(StatusBarTest, BlinkingTextStaysInFrontOfLaterMessages) {
    m_Bar.Show(Record(u"Blinking", 60000, 1));
    m_Bar.SetMessage(u"Later", nullptr);
    EXPECT_EQ(m_Bar.Active().m_text, u"Blinking");
    m_Bar.m_flashTicks = 0;
    EXPECT_EQ(m_Bar.Active().m_text, u"Later");
}

TEST_F(StatusBarTest, BlinkingWithoutATextStandsInFrontOfNothing) {
    m_Bar.SetMessage(u"Message", nullptr);
    m_Bar.m_flashTicks = 5;
    EXPECT_EQ(m_Bar.Active().m_text, u"Message");
}

// --- The window ---

TEST_F(StatusBarTest, MakesItsControlOwnerDrawn) {
    EXPECT_EQ(GetWindowLongPtrW(m_Bar.Handle(), GWL_STYLE) & 0x1F, SS_OWNERDRAW);
    EXPECT_NE(GetWindowLongPtrW(m_Bar.Handle(), GWL_STYLE) & WS_CHILD, 0);
}

TEST_F(StatusBarTest, ErasesNothing) {
    EXPECT_EQ(m_Bar.Send(WM_ERASEBKGND, reinterpret_cast<WPARAM>(tvClientDC(m_Bar.Handle()).Get())), 1);
}

TEST_F(StatusBarTest, IsPaintedAnewForAnotherTheme) {
    Settle(m_Dialog.Handle());
    m_Bar.Send(WM_SYSCOLORCHANGE, 0, 0);
    EXPECT_FALSE(IsInvalid());
    m_Bar.Send(WM_SYSCOLORCHANGE, 0, reinterpret_cast<LPARAM>(&TheTheme()));
    EXPECT_TRUE(IsInvalid());
}

TEST_F(StatusBarTest, FitsItsHeightToTheFontAndKeepsItsWidth) {
    for (const HFONT font : {TheTheme().Font(), TheTheme().m_fontLarge.Get()}) {
        const LONG width = Client().right;
        m_Bar.Send(WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
        const int content = std::max(TheTheme().TextHeight(font, nullptr), GetSystemMetrics(SM_CYSMICON));
        EXPECT_EQ(Client().bottom, content + 2 * 2 + TheTheme().m_halfMarginY);
        EXPECT_EQ(Client().right, width);
    }
}

TEST_F(StatusBarTest, TimersEndWithTheWindow) {
    m_Bar.SetIdle(u"Idle", nullptr, 100);
    m_Bar.SetMessage(u"Message", nullptr);
    m_Dialog.Close();
    EXPECT_EQ(m_Bar.m_messageTimer.m_id, 0U);
}
