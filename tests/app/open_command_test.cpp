// Opening a database: what is asked, what is told, and what stays when it fails.
#include <gmock/gmock.h>

#include "database/clipboard.h"
#include "foundation/path.h"
#include "foundation/textfile.h"
#include "tests/app/command_stage.h"

namespace {

using Quiet = CVMRDlg::Quiet;

class OpenCommand : public CommandTest {
protected:
    [[nodiscard]] bool IsShown(const tvWnd& pane) const { return IsWindowVisible(pane.Handle()) != FALSE; }

    // "Failed to open file" with the path and what follows it.
    static std::string Failure(const tvstring& path, const char* code = "") {
        return std::string("STATUS error Failed to open file ").append(Letters(path)).append(code);
    }
};

const Notes kNothing;
const Step kCancelled = PressButton(IDCANCEL);

// --- That succeeds ---

TEST_F(OpenCommand, TellsThePanesInOrder) {
    const tvstring path = MakeFile(u"a.vmr", u"one");
    OpenNoting();
    const FileAnswer file(FileAnswer::Kind::Open, path);
    const DuringModal steps({AnswerWith(u"one")});
    EXPECT_EQ(NotesOf(CMD_OPEN), (Notes{"DBLIST 1 0 0", "DBLIST 0 0 1", "STATUS none", "TOPBAR", "START"}));
    EXPECT_TRUE(TheDatabase().m_Opened);
    EXPECT_FALSE(TheDatabase().m_Changed);
    EXPECT_TRUE(IsShown(Main().m_leftDlg));
    EXPECT_FALSE(IsShown(Main().m_startDlg));
}

TEST_F(OpenCommand, AsksForOneHiddenPasswordUnderThePath) {
    const tvstring path = MakeFile(u"a.vmr", u"one");
    OpenNoting();
    const DuringModal steps({InInput(
        [&](const CVMRInputDlg& dialog) {
            EXPECT_EQ(dialog.m_Title, u"Open Database...");
            EXPECT_TRUE(dialog.m_Info.starts_with(path));
            EXPECT_EQ(dialog.m_Tip, u"Enter master password");
            EXPECT_EQ(dialog.m_PlainText, 0);
            EXPECT_EQ(dialog.m_TwoFields, 0);
            EXPECT_EQ(dialog.m_Icon, TheAppData().hIconNeedPwd.Get());
            EXPECT_EQ(TextOf(dialog.m_edit1.Handle()), u"");
        },
        IDCANCEL)});
    EXPECT_EQ(NotesOfOpening(path, Quiet::No), kNothing);
}

TEST_F(OpenCommand, PutsTheDatabaseInFrontOfTheRecentOnes) {
    const tvstring path = OpenFile();
    ASSERT_EQ(TheAppData().recentItems.size(), 1U);
    EXPECT_EQ(TheAppData().recentItems.front().path, path);
    EXPECT_EQ(TheAppData().recentItems.front().name, u"a.vmr");
}

TEST_F(OpenCommand, LeavesTheRecentOnesAndTheStartPageAloneWithoutHistory) {
    const tvstring path = MakeFile(u"a.vmr", u"one");
    OpenNoting();
    TheAppData().bHistory = 0;
    const DuringModal steps({AnswerWith(u"one")});
    EXPECT_EQ(NotesOfOpening(path, Quiet::No),
              (Notes{"DBLIST 1 0 0", "DBLIST 0 0 1", "STATUS none", "TOPBAR"}));
    EXPECT_TRUE(TheDatabase().m_Opened);
    EXPECT_TRUE(TheAppData().recentItems.empty());
}

TEST_F(OpenCommand, TakesTheMessageAwayThatIsShown) {
    const tvstring path = MakeFile(u"a.vmr", u"one");
    OpenNoting();
    NotesOfOpening(InFolder(u"none.vmr"), Quiet::No);
    const DuringModal steps({AnswerWith(u"one")});
    NotesOfOpening(path, Quiet::No);
    Settle(Window());
    const HWND bar = Main().m_statusBar.Handle();
    EXPECT_EQ(Picture(bar).Count(RGB(255, 192, 0)), 0) << "the ground of an error";
}

// --- The file that is open ---

TEST_F(OpenCommand, LetsTheOpenFileBeChosenAgain) {
    const tvstring path = OpenFile();
    const FileAnswer file(FileAnswer::Kind::Open, path);
    const DuringModal steps({AnswerWith(u"one")});
    EXPECT_EQ(NotesOf(CMD_OPEN).back(), "START");
    EXPECT_TRUE(TheDatabase().m_Opened);
    EXPECT_EQ(TryToHold(path), platform::kErrorSharingViolation);
}

TEST_F(OpenCommand, LetsGoOfTheFileWhileTheUserChoosesAndTakesItBackAfterCancel) {
    const tvstring path = OpenFile();
    ASSERT_EQ(TryToHold(path), platform::kErrorSharingViolation);
    const DuringModal steps({[&] {
        const HWND dialog = FrontDialog(u"#32770");
        if (dialog == nullptr) return false;
        EXPECT_EQ(TryToHold(path), platform::kErrorNone);
        PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        return true;
    }});
    EXPECT_EQ(NotesOf(CMD_OPEN), kNothing);
    EXPECT_EQ(TryToHold(path), platform::kErrorSharingViolation);
    EXPECT_TRUE(TheDatabase().m_Opened);
}

TEST_F(OpenCommand, TakesTheFileBackAfterAFailure) {
    const tvstring path = OpenFile();
    const FileAnswer file(FileAnswer::Kind::Open, InFolder(u"none.vmr"));
    EXPECT_EQ(NotesOf(CMD_OPEN), (Notes{Failure(InFolder(u"none.vmr"), " [0x00000002]")}));
    EXPECT_EQ(TryToHold(path), platform::kErrorSharingViolation);
}

// --- That fails ---

TEST_F(OpenCommand, TellsOfAMissingFileAndKeepsTheDatabase) {
    const tvstring path = OpenFile();
    const tvstring missing = InFolder(u"none.vmr");
    EXPECT_EQ(NotesOfOpening(missing, Quiet::No), (Notes{Failure(missing, " [0x00000002]")}));
    EXPECT_TRUE(TheDatabase().m_Opened);
    EXPECT_EQ(TheDatabase().m_Path, path);
    EXPECT_TRUE(IsShown(Main().m_leftDlg));
}

TEST_F(OpenCommand, TellsOfAFileThatSomebodyElseHolds) {
    const tvstring path = MakeFile(u"a.vmr", u"one");
    OpenNoting();
    const tvhandle held = HoldFile(path);
    EXPECT_EQ(NotesOfOpening(path, Quiet::No), (Notes{Failure(path, " [0x00000020]")}));
}

TEST_F(OpenCommand, QuietlySaysNothingOfAFileThatSomebodyElseHolds) {
    const tvstring path = MakeFile(u"a.vmr", u"one");
    OpenNoting();
    const tvhandle held = HoldFile(path);
    const DuringModal noPrompt({});
    EXPECT_EQ(NotesOfOpening(path, Quiet::Yes), kNothing);
    EXPECT_FALSE(TheDatabase().m_Opened);
}

TEST_F(OpenCommand, TellsOfAFileTooShortForAnyDatabase) {
    OpenNoting();
    const tvstring path = InFolder(u"short.vmr");
    ASSERT_TRUE(WriteTextFile(u"too short", path, TEXT_ANSI));
    EXPECT_EQ(NotesOfOpening(path, Quiet::No), (Notes{Failure(path, " [0x0000000d]")}));
}

TEST_F(OpenCommand, DoesNothingForAFileThatIsNoDatabase) {
    const tvstring path = OpenFile();
    const tvstring other = InFolder(u"letter.vmr");
    ASSERT_TRUE(WriteTextFile(u"A letter to somebody who keeps no passwords.", other, TEXT_ANSI));
    const DuringModal noPrompt({});
    EXPECT_EQ(NotesOfOpening(other, Quiet::No), kNothing);
    EXPECT_TRUE(TheDatabase().m_Opened);
    EXPECT_EQ(TheDatabase().m_Path, path);
    EXPECT_EQ(TryToHold(path), platform::kErrorSharingViolation);
}

TEST_F(OpenCommand, DoesNothingWithoutAPath) {
    OpenNoting();
    const DuringModal noPrompt({});
    Main().OpenDatabase(nullptr, Quiet::No);
    EXPECT_FALSE(TheDatabase().m_Opened);
}

TEST_F(OpenCommand, KeepsTheDatabaseWhenThePasswordIsNotGiven) {
    const tvstring path = OpenFile();
    const tvstring other = InFolder(u"b.vmr");
    ASSERT_TRUE(CopyFileW(Wide(InFolder(u"a.vmr").c_str()), Wide(other.c_str()), TRUE) == FALSE)
        << "it is held";
    TheDatabase().m_File.Close();
    ASSERT_NE(CopyFileW(Wide(path.c_str()), Wide(other.c_str()), TRUE), FALSE);
    const DuringModal steps({kCancelled});
    EXPECT_EQ(NotesOfOpening(other, Quiet::No), kNothing);
    EXPECT_TRUE(TheDatabase().m_Opened);
    EXPECT_EQ(TheDatabase().m_Path, path);
}

// --- A wrong password ---

class WrongPassword : public OpenCommand {
protected:
    // With a database showing, b.VMR is opened with a wrong password.
    void SetUp() override {
        m_Other = MakeFile(u"b.VMR", u"two");
        OpenFile();
        const DuringModal steps({AnswerWith(u"wrong")});
        m_Notes = NotesOfOpening(m_Other, Quiet::No);
    }

    tvstring m_Other;
    Notes m_Notes;
};

TEST_F(WrongPassword, IsToldWithoutACodeAndNotAskedForAgain) {
    EXPECT_EQ(m_Notes, (Notes{"DBLIST 1 0 0", Failure(m_Other), "TOPBAR", "START"}));
}

TEST_F(WrongPassword, LeavesNoDatabaseAndThePanesAsTheyWere) {
    EXPECT_FALSE(TheDatabase().m_Opened);
    EXPECT_EQ(TheDatabase().m_Path, u"");
    EXPECT_TRUE(IsShown(Main().m_leftDlg));
    EXPECT_EQ(Main().m_leftDlg.m_list.GetCount(), 0);
    EXPECT_TRUE(IsShown(Main().m_rightDlg));
    EXPECT_EQ(Main().m_rightDlg.m_Item, nullptr);
    EXPECT_FALSE(IsShown(Main().m_startDlg));
}

// The list has the closed database for its source again once the mode of the search is changed.
TEST_F(WrongPassword, LeavesNothingToPasteInto) {
    VMRD_DB other;
    other.m_Opened = true;
    VMRD_Item* item = other.AddNewItem(&other);
    ASSERT_NE(item, nullptr);
    ASSERT_TRUE(CopyItems(Window(), ElementArray{item}));
    Command(CMD_FILTER_ANY);
    ASSERT_EQ(Main().m_leftDlg.m_list.m_Source, &TheDatabase());
    EXPECT_FALSE(Main().m_leftDlg.m_list.PasteFromClipboard());
    EXPECT_FALSE(TheDatabase().m_Changed);
    EXPECT_EQ(Main().m_leftDlg.m_list.GetCount(), 0);
    TheDatabase().m_Opened = true;
    EXPECT_TRUE(Main().m_leftDlg.m_list.PasteFromClipboard()) << "it could be pasted";
    TheDatabase().m_Opened = false;
    TheDatabase().m_Changed = false;
}

TEST_F(WrongPassword, LetsGoOfBothFiles) {
    EXPECT_EQ(TryToHold(m_Other), platform::kErrorNone);
    EXPECT_EQ(TryToHold(InFolder(u"a.vmr")), platform::kErrorNone);
}

TEST_F(WrongPassword, AddsNothingToTheRecentOnes) {
    ASSERT_EQ(TheAppData().recentItems.size(), 1U);
    EXPECT_EQ(TheAppData().recentItems.front().path, InFolder(u"a.vmr"));
}

TEST_F(WrongPassword, IsFollowedByACloseThatAsksNothingAndShowsTheStartPage) {
    const DuringModal noPrompt({});
    EXPECT_EQ(NotesOf(CMD_CLOSE), (Notes{"DBLIST 1 0 0", "TOPBAR", "STATUS repaint"}));
    EXPECT_TRUE(IsShown(Main().m_startDlg));
    EXPECT_FALSE(IsShown(Main().m_leftDlg));
}

// --- The old format ---

class OldFormat : public OpenCommand {
protected:
    // A copy of a file of the old format, whose password is "alt".
    tvstring CopyOld() {
        tvstring path = InFolder(u"old.vmr");
        EXPECT_NE(CopyFileW(L"tests\\data\\database\\old-long.vmr", Wide(path.c_str()), TRUE), FALSE)
            << "tests run in the root of the project";
        return path;
    }
};

TEST_F(OldFormat, IsOpenedWithAWarningAndKeptOutOfTheRecentOnes) {
    const tvstring path = CopyOld();
    OpenNoting();
    const DuringModal steps({AnswerWith(u"alt"), InBox(
                                                     [](const tvMessageBox& box) {
                                                         EXPECT_EQ(box.m_style, u32{MB_ICONWARNING});
                                                         EXPECT_TRUE(TheDatabase().m_Opened);
                                                     },
                                                     IDOK)});
    EXPECT_EQ(NotesOfOpening(path, Quiet::No),
              (Notes{"DBLIST 1 0 0", "DBLIST 0 0 1", "STATUS none", "TOPBAR"}));
    EXPECT_EQ(TheDatabase().m_Name, u"Alt public");
    EXPECT_TRUE(TheDatabase().m_Changed);
    EXPECT_TRUE(TheAppData().recentItems.empty());
    EXPECT_TRUE(IsShown(Main().m_leftDlg));
}

TEST_F(OldFormat, WithAWrongPasswordIsToldAsAFailureWithoutTheWarning) {
    const tvstring path = CopyOld();
    OpenNoting();
    const DuringModal steps({AnswerWith(u"new")});
    EXPECT_EQ(NotesOfOpening(path, Quiet::No), (Notes{"DBLIST 1 0 0", Failure(path), "TOPBAR"}));
    EXPECT_FALSE(TheDatabase().m_Opened);
}

TEST_F(OpenCommand, TellsOfADamagedFileAsOfAWrongPassword) {
    const tvstring path = MakeFile(u"a.vmr", u"one");
    {
        HANDLE file = CreateFileW(Wide(path.c_str()), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
        SetFilePointer(file, -16, nullptr, FILE_END);
        ASSERT_NE(SetEndOfFile(file), FALSE);
        CloseHandle(file);
    }
    OpenNoting();
    const DuringModal steps({AnswerWith(u"one")});
    EXPECT_EQ(NotesOfOpening(path, Quiet::No), (Notes{"DBLIST 1 0 0", Failure(path), "TOPBAR", "START"}));
    EXPECT_FALSE(TheDatabase().m_Opened);
}

}  // namespace
