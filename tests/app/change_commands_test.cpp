// Creating, renaming and closing a database, its master password, and undo.
#include "tests/app/command_stage.h"

namespace {

const Notes kNothing;

// --- Create ---

using NewCommand = CommandTest;

TEST_F(NewCommand, TellsThePanesInOrderAndWritesNothing) {
    OpenNoting();
    const DuringModal steps({AnswerWith(u"My passwords")});
    EXPECT_EQ(
        NotesOf(CMD_NEW),
        (Notes{"DBLIST 1 0 0", "DBLIST 0 0 1", "TOPBAR",
               "STATUS information A new VMR database has been just created. Do not forget to save it"}));
    EXPECT_TRUE(TheDatabase().m_Opened);
    EXPECT_TRUE(TheDatabase().m_Changed);
    EXPECT_EQ(TheDatabase().m_Path, u"");
    EXPECT_FALSE(TheDatabase().HasMasterPassword());
    EXPECT_TRUE(TheAppData().recentItems.empty());
}

TEST_F(NewCommand, AsksForANameThatCanBeRead) {
    OpenNoting();
    const DuringModal steps({InInput(
        [](const CVMRInputDlg& dialog) {
            EXPECT_EQ(dialog.m_Title, u"Specify Database Name");
            EXPECT_TRUE(dialog.m_Info.starts_with(u"Create a new VMR database."));
            EXPECT_EQ(dialog.m_Tip, u"Enter database name");
            EXPECT_EQ(dialog.m_PlainText, 1);
            EXPECT_EQ(dialog.m_TwoFields, 0);
            EXPECT_EQ(TextOf(dialog.m_edit1.Handle()), u"");
        },
        IDCANCEL)});
    EXPECT_EQ(NotesOf(CMD_NEW), kNothing);
    EXPECT_FALSE(TheDatabase().m_Opened);
}

TEST_F(NewCommand, TakesThePlaceOfTheOpenDatabase) {
    const tvstring path = OpenFile();
    const DuringModal steps({AnswerWith(u"My passwords")});
    Command(CMD_NEW);
    EXPECT_EQ(TheDatabase().m_Name, u"My passwords");
    EXPECT_EQ(TheDatabase().m_Path, u"");
    EXPECT_EQ(TheDatabase().m_Undo.Count(), 0U);
}

// --- Rename ---

using RenameCommand = CommandTest;

TEST_F(RenameCommand, SetsTheName) {
    OpenFile();
    const DuringModal steps({InInput(
        [](const CVMRInputDlg& dialog) {
            EXPECT_EQ(dialog.m_Title, u"Rename Database");
            EXPECT_EQ(dialog.m_Info, u"Set a new name to this database:");
            EXPECT_EQ(dialog.m_Tip, u"Enter database name");
            EXPECT_EQ(dialog.m_PlainText, 1);
            EXPECT_EQ(TextOf(dialog.m_edit1.Handle()), u"a.vmr");
            SetWindowTextW(dialog.m_edit1.Handle(), L"Other");
        },
        IDOK)});
    EXPECT_EQ(NotesOf(CMD_RENAME), (Notes{"TOPBAR", "STATUS repaint"}));
    EXPECT_EQ(TheDatabase().m_Name, u"Other");
    EXPECT_TRUE(TheDatabase().m_Changed);
    EXPECT_EQ(TheDatabase().m_Undo.Count(), 1U);
}

TEST_F(RenameCommand, WithTheSameTextIsNoChange) {
    OpenFile();
    const DuringModal steps({PressButton(IDOK)});
    EXPECT_EQ(NotesOf(CMD_RENAME), (Notes{"TOPBAR", "STATUS repaint"}));
    EXPECT_FALSE(TheDatabase().m_Changed);
    EXPECT_EQ(TheDatabase().m_Undo.Count(), 0U);
}

TEST_F(RenameCommand, ThatIsCancelledChangesNothing) {
    OpenFile();
    const DuringModal steps({InInput(
        [](const CVMRInputDlg& dialog) { SetWindowTextW(dialog.m_edit1.Handle(), L"Other"); }, IDCANCEL)});
    EXPECT_EQ(NotesOf(CMD_RENAME), kNothing);
    EXPECT_EQ(TheDatabase().m_Name, u"a.vmr");
    EXPECT_FALSE(TheDatabase().m_Changed);
}

// --- Master password ---

using PasswordCommand = CommandTest;

TEST_F(PasswordCommand, AsksForItTwiceHidden) {
    OpenFile();
    const DuringModal steps({InInput(
        [](const CVMRInputDlg& dialog) {
            EXPECT_EQ(dialog.m_Title, u"Set Master Password");
            EXPECT_TRUE(dialog.m_Info.starts_with(u"Set a master password to protect this VMR database."));
            EXPECT_EQ(dialog.m_Tip, u"Enter password");
            EXPECT_EQ(dialog.m_Tip2, u"Confirm password");
            EXPECT_EQ(dialog.m_PlainText, 0);
            EXPECT_EQ(dialog.m_TwoFields, 1);
            EXPECT_EQ(dialog.m_Icon, TheAppData().hIconSetPwd.Get());
            EXPECT_EQ(TextOf(dialog.m_edit1.Handle()), u"");
        },
        IDCANCEL)});
    EXPECT_EQ(NotesOf(CMD_SET_PASSWORD), kNothing);
    EXPECT_FALSE(TheDatabase().m_Changed);
}

TEST_F(PasswordCommand, SetsItForTheNextSave) {
    const tvstring path = OpenFile();
    {
        const DuringModal steps({AnswerWith(u"two", u"two")});
        EXPECT_EQ(NotesOf(CMD_SET_PASSWORD),
                  (Notes{"TOPBAR", "STATUS information Master password successfully set"}));
    }
    EXPECT_TRUE(TheDatabase().m_Changed);
    Command(CMD_SAVE);
    Command(CMD_CLOSE);
    EXPECT_TRUE(OpensWith(path, u"two"));
}

TEST_F(PasswordCommand, ThatIsTheSameAgainIsNoChange) {
    OpenFile();
    const DuringModal steps({AnswerWith(u"one", u"one")});
    EXPECT_EQ(NotesOf(CMD_SET_PASSWORD), kNothing);
    EXPECT_FALSE(TheDatabase().m_Changed);
    EXPECT_EQ(TheDatabase().m_Undo.Count(), 0U);
}

TEST_F(PasswordCommand, HasToBeTheSameToTheLetterBothTimesAndIsNotAskedForAgain) {
    OpenFile();
    const DuringModal steps({AnswerWith(u"two", u"Two")});
    EXPECT_EQ(NotesOf(CMD_SET_PASSWORD), Notes{"STATUS error Passwords do not match"});
    EXPECT_FALSE(TheDatabase().m_Changed);
    EXPECT_EQ(TheDatabase().m_Undo.Count(), 0U);
}

// --- Undo ---

using UndoCommand = CommandTest;

TEST_F(UndoCommand, OfNothingTellsNobody) {
    OpenFile();
    EXPECT_EQ(NotesOf(CMD_UNDO), kNothing);
}

TEST_F(UndoCommand, WithoutADatabaseTellsNobody) {
    OpenNoting();
    EXPECT_EQ(NotesOf(CMD_UNDO), kNothing);
}

TEST_F(UndoCommand, FillsTheListAndSelectsTheItemsOfTheChange) {
    OpenFile();
    VMRD_DB& database = TheDatabase();
    ASSERT_NE(database.AddNewItem(&database), nullptr);
    ElementArray items{database.m_Head, database.Tail()};
    ASSERT_EQ(database.RemoveItems(items, &database), 2);
    EXPECT_EQ(NotesOf(CMD_UNDO),
              (Notes{"DBLIST 0 -1 0", "TOPBAR", "STATUS repaint", "ROWSCHANGED database 2 0"}));
    EXPECT_EQ(database.m_Count, 2U);
}

TEST_F(UndoCommand, ShowsTheItemAndSelectsTheEntriesOfTheChange) {
    OpenFile();
    VMRD_DB& database = TheDatabase();
    ItemElement* item = database.m_Head;
    EntryElement* entry = database.AddNewEntry(u"text", item);
    ASSERT_NE(entry, nullptr);
    ASSERT_TRUE(database.ModifyEntry(entry, u"other", item));
    EXPECT_EQ(NotesOf(CMD_UNDO),
              (Notes{"DBLIST 0 -1 0", "TOPBAR", "STATUS repaint", "ROWSCHANGED database 1 0", "SHOWITEM item",
                     "ROWSCHANGED item 1 0"}));
    EXPECT_EQ(entry->m_Text, u"text");
}

TEST_F(UndoCommand, SaysThatTheMasterPasswordHasGoneBack) {
    OpenFile();
    ASSERT_TRUE(TheDatabase().SetMasterPassword(u"two"));
    EXPECT_EQ(NotesOf(CMD_UNDO), (Notes{"DBLIST 0 -1 0", "TOPBAR", "STATUS repaint",
                                        "STATUS warning Master password has been reset to previous value"}));
    EXPECT_FALSE(TheDatabase().m_Changed);
}

TEST_F(UndoCommand, SaysNothingOfPasswordsForOtherChanges) {
    OpenFile();
    TheDatabase().SetName(u"Other");
    EXPECT_EQ(NotesOf(CMD_UNDO), (Notes{"DBLIST 0 -1 0", "TOPBAR", "STATUS repaint"}));
    EXPECT_EQ(TheDatabase().m_Name, u"a.vmr");
}

TEST_F(UndoCommand, BackToTheFileLeavesTheDatabaseUnchanged) {
    OpenFile();
    TheDatabase().SetName(u"Other");
    ASSERT_TRUE(TheDatabase().m_Changed);
    Command(CMD_UNDO);
    EXPECT_FALSE(TheDatabase().m_Changed);
}

// The word of changes in the status bar goes with the last change.
TEST_F(UndoCommand, PaintsTheStatusBarAnew) {
    OpenFile();
    TheDatabase().SetName(u"Other");
    Main().OnAppNotify(APPN_STATUS, STATUS_REPAINT, 0, 0);
    Settle(Window());
    const Picture changed(Main().m_statusBar.Handle());
    Command(CMD_UNDO);
    Settle(Window());
    EXPECT_FALSE(Picture(Main().m_statusBar.Handle()) == changed);
}

// --- Close ---

using CloseCommand = CommandTest;

TEST_F(CloseCommand, LetsGoOfTheFileAndShowsTheStartPage) {
    const tvstring path = OpenFile();
    EXPECT_EQ(NotesOf(CMD_CLOSE), (Notes{"DBLIST 1 0 0", "TOPBAR", "STATUS repaint"}));
    EXPECT_FALSE(TheDatabase().m_Opened);
    EXPECT_EQ(TheDatabase().m_Path, u"");
    EXPECT_FALSE(TheDatabase().HasMasterPassword());
    EXPECT_EQ(TryToHold(path), platform::kErrorNone);
    EXPECT_TRUE(IsWindowVisible(Main().m_startDlg.Handle()));
    EXPECT_FALSE(IsWindowVisible(Main().m_leftDlg.Handle()));
    EXPECT_FALSE(IsWindowVisible(Main().m_rightDlg.Handle()));
    EXPECT_FALSE(IsWindowVisible(Main().m_splitter.Handle()));
}

}  // namespace
