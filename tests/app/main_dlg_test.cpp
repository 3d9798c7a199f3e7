// The main window as a whole.
#include "tests/app/app_stage.h"
#include "windows/command_ids.h"

namespace {

constexpr int kMenuButton = 2006;

using MainWindow = AppTest;

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

}  // namespace
