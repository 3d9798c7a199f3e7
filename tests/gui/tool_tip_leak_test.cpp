// What tool tips leave behind.
#include "tests/gui/growth.h"
#include "tests/gui/tool_tip_harness.h"

namespace {

constexpr int kRounds = 500;

}  // namespace

TEST_F(ToolTipTest, TipsThatComeAndGoLeaveNothingBehind) {
    m_Dialog.m_onMessage = [](UINT message, WPARAM, LPARAM lParam, LRESULT&) {
        if (message != WM_NOTIFY) return false;
        auto* info = reinterpret_cast<NMTTDISPINFOW*>(lParam);
        if (info->hdr.code != TTN_GETDISPINFOW) return false;
        info->lpszText = const_cast<wchar_t*>(L"A tip that is shown and hidden");
        return true;
    };
    for (const DWORD style : {DWORD{0}, DWORD{TTS_BALLOON}}) {
        TipUnderTest tip;
        tip.Create(m_Dialog.Handle(), style);
        const Growth growth = GrowthOver(kRounds, [&] {
            tip.AddTrackingTool(m_Dialog.Handle());
            tip.AddTool(m_First, u"Another tip with a text of some length");
            tip.Track(m_Dialog.Handle(), true, 300, 200);
            ASSERT_TRUE(IsUp(tip));
            Settle(tip.Handle());
            ASSERT_GT(tip.Count(WM_PAINT), 0);
            tip.Track(m_Dialog.Handle(), false, 0, 0);
            ASSERT_FALSE(IsUp(tip));
            tip.RemoveTool(m_First);
            tip.RemoveTool(m_Dialog.Handle());
            std::vector<UINT>().swap(tip.m_messages);
        });
        EXPECT_EQ(growth.gdiObjects, 0) << style;
        EXPECT_EQ(growth.userObjects, 0) << style;
        EXPECT_EQ(growth.heapBytes, 0) << style;
    }
}

// Fewer, since each waits for the mouse to rest.
TEST_F(ToolTipTest, TipsUnderTheMouseLeaveNothingBehind) {
    constexpr int kHovers = 100;
    TheToolTip().Create(nullptr, 0);
    const Growth growth = GrowthOver(kHovers, [&] {
        AddToolTip(m_First, u"A tip with a text of some length");
        ASSERT_TRUE(HoverShowsTip(m_First));
        RemoveToolTip(m_First);
        ASSERT_FALSE(IsUp(TheToolTip()));
    });
    EXPECT_EQ(growth.gdiObjects, 0);
    EXPECT_EQ(growth.userObjects, 0);
    EXPECT_EQ(growth.heapBytes, 0);
}

TEST_F(ToolTipTest, WindowThatComesAndGoesLeavesNothingBehind) {
    const Growth growth = GrowthOver(kRounds, [&] {
        tvToolTipCtrl tip;
        tip.Create(nullptr, 0);
        tip.AddTool(m_First, u"A tip with a text of some length");
    });
    EXPECT_EQ(growth.gdiObjects, 0);
    EXPECT_EQ(growth.userObjects, 0);
    EXPECT_EQ(growth.heapBytes, 0);
}
