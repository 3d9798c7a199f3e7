#include "toolkit/app.h"

#include <gtest/gtest.h>

#include "foundation/path.h"
#include "tests/gui/old_proc.h"
#include "tests/gui/test_app.h"
#include "toolkit/tool_tip.h"
#include "toolkit/wnd.h"

namespace {

TEST(App, IsFoundWithTheModuleAndTheProgramsName) {
    EXPECT_EQ(tvApp::Get(), &TestApp::Get());
    EXPECT_EQ(tvBaseApp::Get(), &TestApp::Get());
    EXPECT_EQ(TestApp::Get().m_hInstance, GetModuleHandleW(nullptr));
    EXPECT_EQ(TestApp::Get().m_appName, u"Vaultmere");
    EXPECT_EQ(TestApp::Get().m_exitCode, 0U);
}

TEST(App, WithoutANameGoesByThatOfItsFile) {
    EXPECT_EQ(tvApp::NameOr(u"Vault"), u"Vault");
    EXPECT_EQ(tvApp::NameOr(u"") + u".exe", FileNameOf(ProgramPath(u"")));
}

TEST(App, HasTheMainWindowOfItsWrapper) {
    TestApp& app = TestApp::Get();
    EXPECT_EQ(tvApp::MainWindow(), nullptr);
    tvWnd wrapper;
    app.m_mainWnd = &wrapper;
    EXPECT_EQ(tvApp::MainWindow(), nullptr);
    wrapper.Attach(
        CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 5, 5, nullptr, nullptr, nullptr, nullptr));
    EXPECT_NE(tvApp::MainWindow(), nullptr);
    EXPECT_EQ(tvApp::MainWindow(), wrapper.Handle());
    app.m_mainWnd = nullptr;
}

TEST(App, MakesTheCommonControlsReady) {
    WNDCLASSW known{};
    for (const wchar_t* name : {WC_LISTVIEWW, WC_TREEVIEWW, TOOLBARCLASSNAMEW, PROGRESS_CLASSW, UPDOWN_CLASSW,
                                TRACKBAR_CLASSW, HOTKEY_CLASSW, ANIMATE_CLASSW, WC_TABCONTROLW})
        EXPECT_TRUE(GetClassInfoW(nullptr, name, &known)) << reinterpret_cast<const void*>(name);
}

TEST(App, LeavesAllMessagesToTheirWindows) {
    MSG msg{};
    msg.message = WM_MOUSEMOVE;
    EXPECT_FALSE(TestApp::Get().tvApp::PreTranslateAppMsg(&msg));
    EXPECT_FALSE(TestApp::Get().tvBaseApp::PreTranslateAppMsg(&msg));
}

TEST(App, LetsTheToolTipSeeMessagesOfTheMouse) {
    TheToolTip().Create(nullptr, 0);
    const OldProcWatch watch(TheToolTip());
    MSG msg{};
    msg.message = WM_MOUSEMOVE;
    TestApp::Get().PreTranslateAppMsg(&msg);
    EXPECT_EQ(watch.Count(TTM_RELAYEVENT), 1);
    TestApp::Get().tvApp::PreTranslateAppMsg(&msg);
    EXPECT_EQ(watch.Count(TTM_RELAYEVENT), 1);
}

}  // namespace
