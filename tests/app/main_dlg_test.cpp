// The main window as a whole.
#include "shell/app.h"
#include "tests/app/command_stage.h"

namespace {

constexpr int kMenuButton = 2006;

using MainWindow = CommandTest;

TEST_F(MainWindow, ShowsOnlyTheStartPaneAtFirst) {
    Open();
    EXPECT_TRUE(IsWindowVisible(Control(kMenuButton)));
    EXPECT_TRUE(IsWindowVisible(Main().m_startDlg.Handle()));
    EXPECT_FALSE(IsWindowVisible(Main().m_leftDlg.Handle()));
    EXPECT_FALSE(IsWindowVisible(Main().m_rightDlg.Handle()));
    EXPECT_FALSE(IsWindowVisible(Main().m_splitter.Handle()));
}

TEST_F(MainWindow, ShowsThePanesOfANewDatabase) {
    Open();
    DuringModal steps({AnswerWith(u"My passwords")});
    Command(CMD_NEW);
    EXPECT_EQ(TheDatabase().m_Name, u"My passwords");
    EXPECT_FALSE(IsWindowVisible(Main().m_startDlg.Handle()));
    EXPECT_TRUE(IsWindowVisible(Main().m_leftDlg.Handle()));
    EXPECT_TRUE(IsWindowVisible(Main().m_rightDlg.Handle()));
    EXPECT_TRUE(IsWindowVisible(Main().m_splitter.Handle()));
}

TEST_F(MainWindow, OpensAFileItIsTold) {
    const tvstring path = MakeFile(u"a.vmr", u"secret");
    Open();
    DuringModal steps({AnswerWith(u"secret")});
    Main().OpenDatabase(path.c_str(), CVMRDlg::Quiet::No);
    EXPECT_TRUE(TheDatabase().m_Opened);
    EXPECT_EQ(TheDatabase().m_Path, path);
}

TEST_F(MainWindow, IsCalledAsTheProgramWhateverIsOpen) {
    OpenFile();
    EXPECT_EQ(TextOf(Window()), u"Vaultmere");
}

// --- Notifications ---

TEST_F(MainWindow, TakesNoNotificationsWithoutAWindow) {
    const tvstring path = MakeFile(u"a.vmr", u"secret");
    const DuringModal noPrompt({});
    CVMRDlg dialog;
    const auto notifyAll = [&] {
        for (i32 code = -1; code <= APPN_ROWSCHANGED + 1; ++code)
            dialog.OnAppNotify(code, AsArgument(path.c_str()), 1, 0);
    };
    notifyAll();
    TheApp().m_mainWnd = &dialog;
    dialog.BuildTemplate();
    ASSERT_TRUE(dialog.Create(nullptr));
    DestroyWindow(dialog.Handle());
    ASSERT_EQ(dialog.Handle(), nullptr);
    notifyAll();
    TheApp().m_mainWnd = nullptr;
    EXPECT_FALSE(TheDatabase().m_Opened);
}

class StatusMessage : public CommandTest {
protected:
    static constexpr COLORREF kGround = RGB(0, 144, 0);  // of a message that is no error

    void Show(i32 code) const {
        constexpr const char16_t* kText = u"Something to tell";
        Main().OnAppNotify(code, STATUS_INFORMATION, AsArgument(kText), 0);
        Settle(Window());
    }
    [[nodiscard]] bool IsShown() const {
        const HWND bar = Main().m_statusBar.Handle();
        RECT rect{};
        GetClientRect(bar, &rect);
        return Picture(bar).Count(kGround) > rect.right * rect.bottom / 2;
    }
};

TEST_F(StatusMessage, IsShownForTheCodeOfTheStatusBarOnly) {
    OpenNoting();
    for (const i32 code : {-1, 0, APPN_ROWSCHANGED + 1, 1000}) {
        Show(code);
        EXPECT_FALSE(IsShown()) << code;
    }
    Show(APPN_STATUS);
    EXPECT_TRUE(IsShown());
}

TEST_F(StatusMessage, GoesAwayByAClickOnTheStatusBar) {
    OpenNoting();
    SetForegroundWindow(Window());
    Show(APPN_STATUS);
    ASSERT_TRUE(IsShown());
    Click(Main().m_statusBar.Handle());
    Settle(Window());
    EXPECT_TRUE(PumpUntil([&] { return !IsShown(); }, kWaitLimit / 2))
        << "it stays for five seconds by itself";
}

TEST_F(StatusMessage, StaysAfterAClickElsewhere) {
    OpenNoting();
    SetForegroundWindow(Window());
    Show(APPN_STATUS);
    MoveMouseTo(Main().m_startDlg.Handle());
    SendMessageW(Window(), WM_LBUTTONDOWN, MK_LBUTTON, 0);
    Settle(Window());
    EXPECT_TRUE(IsShown());
}

TEST_F(StatusMessage, IsNotMissedByAClickWhileThereIsNone) {
    OpenNoting();
    const Picture before(Main().m_statusBar.Handle());
    MoveMouseTo(Main().m_statusBar.Handle());
    SendMessageW(Window(), WM_LBUTTONDOWN, MK_LBUTTON, 0);
    Settle(Window());
    EXPECT_TRUE(Picture(Main().m_statusBar.Handle()) == before);
}

// --- Panes without a window ---

template <typename Pane>
void TellAll(Pane& pane) {
    for (i32 code = APPN_LANGUAGE; code <= APPN_ROWSCHANGED; ++code)
        pane.OnAppNotify(code, 0, 0, 0);
}

TEST_F(MainWindow, HasPanesThatHearNothingWithoutAWindow) {
    CVMRTopDlg top;
    CVMRLeftDlg left;
    CVMRRightDlg right;
    CVMRStartDlg start;
    CVMRStatusBar bar;
    TellAll(top);
    TellAll(left);
    TellAll(right);
    TellAll(start);
    TellAll(bar);
    VMRD_Item item;
    right.OnAppNotify(APPN_SHOWITEM, reinterpret_cast<NotifyArgument>(&item), 0, 0);
    bar.OnAppNotify(APPN_STATUS, STATUS_COUNTS, 3, 2);
    EXPECT_EQ(left.m_list.m_Source, nullptr);
    EXPECT_EQ(right.m_Item, nullptr);
    EXPECT_EQ(bar.m_total, 0);
}

}  // namespace
