// What the messages of a status bar leave behind.
#include "tests/gui/growth.h"
#include "tests/gui/status_bar_harness.h"

namespace {

constexpr int kRounds = 500;

}  // namespace

TEST_F(StatusBarTest, MessagesThatComeAndGoLeaveNothingBehind) {
    const tvIconHandle icon = SolidIcon(16, RGB(250, 1, 2));
    m_Bar.SetIdle(u"Idle", nullptr, 0);
    int painted = 0;
    const auto show = [&](const tvstring& text, HICON with) {
        m_Bar.SetMessage(text, with);
        Settle(m_Dialog.Handle());
        painted += m_Bar.TakeDrawn().find("label") != std::string::npos ? 1 : 0;
    };
    const Growth growth = GrowthOver(kRounds, [&] {
        show(u"A message that is too long to be kept in place", icon.Get());
        show(u"", nullptr);
    });
    EXPECT_EQ(painted, 2 * (kRounds + kFirstRounds));
    EXPECT_EQ(growth.gdiObjects, 0);
    EXPECT_EQ(growth.userObjects, 0);
    EXPECT_EQ(growth.heapBytes, 0);
}

TEST_F(StatusBarTest, MessagesWhoseTimeIsOverLeaveNothingBehind) {
    m_Bar.SetIdle(u"Idle", nullptr, 60000);
    const Growth growth = GrowthOver(kRounds, [&] {
        tvStatusRecord record;
        record.m_text = u"A message that is too long to be kept in place";
        record.m_flash = 1;
        m_Bar.Show(record);
        ASSERT_TRUE(TimerRuns());
        Settle(m_Dialog.Handle());
        m_Bar.Send(WM_TIMER, m_Bar.m_messageTimer.m_id);
        m_Bar.m_flashStep = m_Bar.m_flashTicks;
        m_Bar.Send(WM_TIMER, m_Bar.m_flashTimer.m_id);
        ASSERT_EQ(m_Bar.Active().m_text, u"Idle");
        Settle(m_Dialog.Handle());
        m_Bar.TakeDrawn();
    });
    EXPECT_EQ(growth.gdiObjects, 0);
    EXPECT_EQ(growth.userObjects, 0);
    EXPECT_EQ(growth.heapBytes, 0);
}

// Wine's static control keeps a few bytes of each font that it is given.
TEST(StatusBar, ThatComesAndGoesLeavesNoMoreThanTheControlItStandsFor) {
    constexpr int kWindows = 50;
    const auto show = [](bool asBar) {
        TestDialog dialog;
        BarUnderTest bar;
        dialog.Add(ATOM_STATIC, 50, 0, 100, 200, 14);
        if (asBar) dialog.Wrap(bar, 50);
        ASSERT_TRUE(dialog.Create(nullptr));
        ShowWindow(dialog.Handle(), SW_SHOWNOACTIVATE);
        if (asBar) {
            bar.SetIdle(u"Idle", nullptr, 60000);
            bar.SetMessage(u"Message", nullptr);
        }
        Settle(dialog.Handle());
    };
    const Growth growth = GrowthOver(kWindows, [&] { show(true); });
    const Growth controls = GrowthOver(kWindows, [&] { show(false); });
    EXPECT_EQ(growth.gdiObjects, 0);
    EXPECT_EQ(growth.userObjects, 0);
    EXPECT_EQ(growth.heapBytes, controls.heapBytes);
}
