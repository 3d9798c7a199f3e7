// What another process tells about settings that all processes share.
#include "shell/app_settings.h"
#include "tests/app/command_stage.h"

namespace {

class SharedSettings : public CommandTest {
protected:
    // What another process would have stored.
    static void StoreClearing(u8 value) {
        AppSettings other;
        other.bAutoClearClipboard = value;
        other.LoadStoreClearClipboard(LoadStore::Store);
    }
    void Tell(WPARAM setting, HWND sender) const {
        SendMessageW(Window(), WM_VMR, setting, reinterpret_cast<LPARAM>(sender));
        PumpQueue();
    }
};

TEST_F(SharedSettings, OfClearingTheClipboardAreReadAgain) {
    OpenNoting();
    StoreClearing(1);
    EXPECT_EQ(TheAppData().bAutoClearClipboard, 0);
    Tell(static_cast<WPARAM>(SharedSetting::ClearClipboard), nullptr);
    EXPECT_EQ(TheAppData().bAutoClearClipboard, 1);
}

TEST_F(SharedSettings, AreTakenByTheLowWordAlone) {
    OpenNoting();
    StoreClearing(1);
    Tell(0x12340000U | static_cast<WPARAM>(SharedSetting::ClearClipboard), nullptr);
    EXPECT_EQ(TheAppData().bAutoClearClipboard, 1);
}

TEST_F(SharedSettings, OfTheWindowItselfAreNoNews) {
    OpenNoting();
    StoreClearing(1);
    Tell(static_cast<WPARAM>(SharedSetting::ClearClipboard), Window());
    EXPECT_EQ(TheAppData().bAutoClearClipboard, 0);
}

TEST_F(SharedSettings, OfTheHistoryAreReadAgain) {
    OpenNoting();
    TheAppData().bHistory = 0;
    AppSettings other;
    RecentList recent;
    other.LoadStoreHistory(LoadStore::Store, recent);
    Tell(static_cast<WPARAM>(SharedSetting::History), nullptr);
    EXPECT_EQ(TheAppData().bHistory, 1);
}

TEST_F(SharedSettings, OfTheHistoryBringTheListAlongAndTakeItAway) {
    OpenNoting();
    AppSettings other;
    RecentList recent;
    recent.AddRecent(u"C:\\a.VMR", u"a");
    other.bHistory = 1;
    other.LoadStoreHistory(LoadStore::Store, recent);
    Tell(static_cast<WPARAM>(SharedSetting::History), nullptr);
    EXPECT_EQ(TheAppData().recentItems.size(), 1U);
    EXPECT_EQ(Main().m_startDlg.m_recentList.GetCount(), 1);

    other.bHistory = 0;
    other.LoadStoreHistory(LoadStore::Store, recent);
    Tell(static_cast<WPARAM>(SharedSetting::History), nullptr);
    EXPECT_TRUE(TheAppData().recentItems.empty());
    EXPECT_EQ(Main().m_startDlg.m_recentList.GetCount(), 0);
}

}  // namespace
