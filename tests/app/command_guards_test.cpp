// What has to hold before a command is carried out: an open database, or no changes that would be lost.
#include "foundation/path.h"
#include "tests/app/command_stage.h"

namespace {

const Notes kNothing;

// --- Commands that need a database ---

class NeedsADatabase : public CommandTest, public testing::WithParamInterface<u16> {};

INSTANTIATE_TEST_SUITE_P(Commands, NeedsADatabase,
                         testing::Values(CMD_SAVE, CMD_SAVE_AS, CMD_RENAME, CMD_SET_PASSWORD));

TEST_P(NeedsADatabase, AndDoesNothingWithoutOne) {
    OpenNoting();
    FileAnswer file(FileAnswer::Kind::Save, InFolder(u"a.vmr"));
    const DuringModal noPrompt({});
    EXPECT_EQ(NotesOf(GetParam()), kNothing);
    EXPECT_EQ(file.Count(), 0);
    EXPECT_FALSE(TheDatabase().m_Opened);
    EXPECT_FALSE(TheDatabase().HasMasterPassword());
    EXPECT_EQ(PathKind(InFolder(u"a.vmr")), PATH_NONE);
}

// --- Commands that would lose changes ---

// 0 stands for closing the window.
class LosesChanges : public CommandTest, public testing::WithParamInterface<u16> {
protected:
    void SetUp() override {
        m_Path = OpenFile();
        TheDatabase().SetName(u"Other");
    }

    void Run() {
        if (GetParam() == 0) {
            SendMessageW(Window(), WM_CLOSE, 0, 0);
            PumpQueue();
        } else {
            m_Notes = NotesOf(GetParam());
        }
    }

    void ExpectAllKept() {
        EXPECT_TRUE(TheDatabase().m_Opened);
        EXPECT_TRUE(TheDatabase().m_Changed);
        EXPECT_EQ(TheDatabase().m_Name, u"Other");
        EXPECT_EQ(TheDatabase().m_Path, m_Path);
        EXPECT_EQ(TryToHold(m_Path), platform::kErrorSharingViolation);
        EXPECT_TRUE(IsWindowVisible(Main().m_leftDlg.Handle()));
        EXPECT_EQ(m_Notes, kNothing);
    }

    tvstring m_Path;
    Notes m_Notes;
};

INSTANTIATE_TEST_SUITE_P(Commands, LosesChanges, testing::Values(CMD_NEW, CMD_OPEN, CMD_CLOSE, 0));

TEST_P(LosesChanges, AndAsksWhetherItMayWithNoForEnter) {
    FileAnswer file(FileAnswer::Kind::Open, m_Path);
    const auto look = [] {
        const auto* box = dynamic_cast<const tvMessageBox*>(tvWnd::FromHandle(FrontDialog()));
        if (box == nullptr) return false;
        EXPECT_EQ(box->m_style, u32{MB_YESNO | MB_ICONWARNING | MB_DEFBUTTON2});
        EXPECT_EQ(box->m_text,
                  u"There are unsaved changes in current database. Do you want to discard those changes "
                  u"and continue?");
        Type(VK_RETURN);
        return true;
    };
    const DuringModal steps({look});
    Run();
    EXPECT_EQ(file.Count(), 0);
    ExpectAllKept();
    EXPECT_TRUE(IsWindow(Window()));
}

// A box of Yes and No is not closed by Escape; what counts is that only Yes goes on.
TEST_P(LosesChanges, AndGoesOnAfterYes) {
    FileAnswer file(FileAnswer::Kind::Open, {});
    const HWND window = Window();
    std::vector<Step> steps{AnswerBox(IDYES)};
    if (GetParam() == CMD_NEW) steps.push_back(PressButton(IDCANCEL));
    const DuringModal during(std::move(steps));
    Run();
    EXPECT_EQ(file.Count(), GetParam() == CMD_OPEN ? 1 : 0);
    EXPECT_EQ(TheDatabase().m_Opened, GetParam() != CMD_CLOSE);
    EXPECT_EQ(IsWindow(window) == FALSE, GetParam() == 0);
}

TEST_P(LosesChanges, ButAsksNothingWhereThereAreNone) {
    TheDatabase().m_Changed = false;
    FileAnswer file(FileAnswer::Kind::Open, {});
    const HWND window = Window();
    std::vector<Step> steps;
    if (GetParam() == CMD_NEW) steps.push_back(InInput([](const CVMRInputDlg&) {}, IDCANCEL));
    const DuringModal during(std::move(steps));
    Run();
    EXPECT_EQ(IsWindow(window) == FALSE, GetParam() == 0);
}

}  // namespace
