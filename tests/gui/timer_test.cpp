#include "toolkit/timer.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "tests/gui/plain_window.h"
#include "toolkit/wnd.h"

namespace {

constexpr UINT kSoon = 10;
constexpr UINT kNever = 1'000'000;

TEST(WndTimer, TicksInTheWindowItWasStartedFor) {
    PlainWindow window;
    tvWndTimer timer;
    ASSERT_TRUE(timer.Start(window.Handle(), kSoon));
    EXPECT_TRUE(window.WaitFor(WM_TIMER, timer.m_id));
}

TEST(WndTimer, IsTheOneOfItsWindowAndIdentifierAlone) {
    PlainWindow window;
    PlainWindow other;
    tvWndTimer timer;
    EXPECT_FALSE(timer.IsMine(nullptr, 0));
    ASSERT_TRUE(timer.Start(window.Handle(), kNever));
    EXPECT_TRUE(timer.IsMine(window.Handle(), timer.m_id));
    EXPECT_FALSE(timer.IsMine(other.Handle(), timer.m_id));
    EXPECT_FALSE(timer.IsMine(window.Handle(), timer.m_id + 1));
    EXPECT_FALSE(timer.IsMine(window.Handle(), 0));
}

TEST(WndTimer, IdentifiersStartAt1314AndAreTheLowestFreeOnesOfTheWindow) {
    PlainWindow window;
    tvWndTimer first, third;
    ASSERT_TRUE(first.Start(window.Handle(), kNever));
    EXPECT_EQ(first.m_id, 1314U);
    {
        tvWndTimer second;
        ASSERT_TRUE(second.Start(window.Handle(), kNever));
        EXPECT_EQ(second.m_id, 1315U);
    }
    ASSERT_TRUE(third.Start(window.Handle(), kNever));
    EXPECT_EQ(third.m_id, 1315U);
}

TEST(WndTimer, KeepsItsIdentifierWhenItIsStartedAnew) {
    PlainWindow window;
    tvWndTimer timer;
    ASSERT_TRUE(timer.Start(window.Handle(), kNever));
    const UINT_PTR id = timer.m_id;
    ASSERT_TRUE(timer.Start(window.Handle(), kSoon));
    EXPECT_EQ(timer.m_id, id);
    EXPECT_TRUE(window.WaitFor(WM_TIMER, id));
}

TEST(WndTimer, ForgetsWindowAndIdentifierWhenItStops) {
    PlainWindow window;
    tvWndTimer timer;
    ASSERT_TRUE(timer.Start(window.Handle(), kSoon));
    timer.Stop();
    EXPECT_EQ(timer.m_hWnd, nullptr);
    EXPECT_EQ(timer.m_id, 0U);
    EXPECT_FALSE(window.WaitFor(WM_TIMER, 1314, 100));
}

TEST(WndTimer, StartedForAnotherWindowStopsAllTimersOfTheFormer) {
    PlainWindow window;
    PlainWindow next;
    tvWndTimer timer, sibling;
    ASSERT_TRUE(timer.Start(window.Handle(), kNever));
    ASSERT_TRUE(sibling.Start(window.Handle(), kNever));
    ASSERT_TRUE(timer.Start(next.Handle(), kNever));
    EXPECT_TRUE(timer.IsMine(next.Handle(), timer.m_id));
    EXPECT_EQ(sibling.m_hWnd, nullptr);
}

TEST(WndTimer, The1001stOfOneWindowFails) {
    PlainWindow window;
    PlainWindow other;
    std::vector<std::unique_ptr<tvWndTimer>> timers;
    for (int i = 0; i < 1000; ++i) {
        timers.push_back(std::make_unique<tvWndTimer>());
        ASSERT_TRUE(timers.back()->Start(window.Handle(), kNever)) << i;
    }
    tvWndTimer oneMore;
    EXPECT_FALSE(oneMore.Start(window.Handle(), kNever));
    EXPECT_EQ(oneMore.m_hWnd, nullptr);
    EXPECT_TRUE(oneMore.Start(other.Handle(), kNever));
}

TEST(WndTimer, IsStoppedByTheEndOfItsWindow) {
    tvWndTimer timer;
    tvWnd wrapper;
    {
        PlainWindow window;
        wrapper.SubclassWindow(window.Handle());
        ASSERT_TRUE(timer.Start(window.Handle(), kNever));
    }
    EXPECT_EQ(timer.m_hWnd, nullptr);
    EXPECT_FALSE(wrapper.IsAttached());
}

TEST(WndTimer, IsNoneOfTheSystemsOwnWhoseIdentifiersAreLarge) {
    PlainWindow window;
    tvWndTimer timer;
    timer.m_hWnd = window.Handle();
    for (const UINT_PTR large : {UINT_PTR{0x8000'0000}, UINT_PTR{0x8000'0001}}) {
        timer.m_id = large;
        EXPECT_FALSE(timer.IsMine(window.Handle(), large));
    }
    timer.m_id = 0x7FFF'FFFF;
    EXPECT_TRUE(timer.IsMine(window.Handle(), 0x7FFF'FFFF));
    timer.m_id = 0;
}

TEST(WndTimer, IsRefusedUnderAnIdentifierThatAnotherHas) {
    PlainWindow window;
    tvWndTimer first;
    ASSERT_TRUE(first.Start(window.Handle(), kNever));
    tvWndTimer second;
    second.m_hWnd = window.Handle();
    second.m_id = first.m_id;
    EXPECT_FALSE(second.Start(window.Handle(), kNever));
    second.m_id = 0;
    ASSERT_TRUE(second.Start(window.Handle(), kNever));
    EXPECT_EQ(second.m_id, first.m_id + 1);
}

TEST(WndTimer, IsStoppedByItsOwnEnd) {
    PlainWindow window;
    {
        tvWndTimer timer;
        ASSERT_TRUE(timer.Start(window.Handle(), kSoon));
    }
    EXPECT_FALSE(window.WaitFor(WM_TIMER, 1314, 100));
    tvWndTimer next;
    ASSERT_TRUE(next.Start(window.Handle(), kNever));
    EXPECT_EQ(next.m_id, 1314U);
}

TEST(WndTimer, FailsForAWindowThatIsNone) {
    tvWndTimer timer;
    // NOLINTNEXTLINE(performance-no-int-to-ptr): a handle that nobody has
    EXPECT_FALSE(timer.Start(reinterpret_cast<HWND>(static_cast<INT_PTR>(0x7FFFFFF0)), kNever));
    EXPECT_EQ(timer.m_id, 0U);
}

}  // namespace
