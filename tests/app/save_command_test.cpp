// Saving a database, under its path and under another.
#include "foundation/path.h"
#include "tests/app/command_stage.h"

namespace {

const Notes kNothing;
const Notes kSaved{"TOPBAR", "START", "STATUS repaint"};

class SaveCommand : public CommandTest {
protected:
    // The window with a new database, which has neither path nor password.
    void OpenNew() {
        OpenNoting();
        const DuringModal steps({AnswerWith(u"My passwords")});
        Command(CMD_NEW);
        ASSERT_TRUE(TheDatabase().m_Changed);
    }

    // The window with a database that was changed since it was opened.
    tvstring OpenChanged() {
        tvstring path = OpenFile();
        TheDatabase().SetName(u"Changed");
        EXPECT_TRUE(TheDatabase().m_Changed);
        return path;
    }
};

TEST_F(SaveCommand, OfANewDatabaseAsksForThePathThenForThePassword) {
    OpenNew();
    const tvstring path = InFolder(u"new.vmr");
    FileAnswer file(FileAnswer::Kind::Save, path);
    const DuringModal steps({InInput(
        [&](const CVMRInputDlg& dialog) {
            EXPECT_EQ(file.Count(), 1) << "the path comes first";
            EXPECT_EQ(dialog.m_TwoFields, 1);
            SetWindowTextW(dialog.m_edit1.Handle(), L"one");
            SetWindowTextW(dialog.m_edit2.Handle(), L"one");
        },
        IDOK)});
    EXPECT_EQ(NotesOf(CMD_SAVE), kSaved);
    EXPECT_EQ(TheDatabase().m_Path, path);
    EXPECT_FALSE(TheDatabase().m_Changed);
    ASSERT_EQ(TheAppData().recentItems.size(), 1U);
    EXPECT_EQ(TheAppData().recentItems.front().path, path);
    EXPECT_EQ(TheAppData().recentItems.front().name, u"My passwords");
}

TEST_F(SaveCommand, KeepsThePathWhenThePasswordIsCancelledAndAsksForThePasswordOnlyNextTime) {
    OpenNew();
    const tvstring path = InFolder(u"new.vmr");
    FileAnswer file(FileAnswer::Kind::Save, path);
    {
        const DuringModal steps({PressButton(IDCANCEL)});
        EXPECT_EQ(NotesOf(CMD_SAVE), kNothing);
    }
    EXPECT_EQ(TheDatabase().m_Path, path);
    EXPECT_TRUE(TheDatabase().m_Changed);
    EXPECT_EQ(PathKind(path), PATH_NONE);

    const DuringModal steps({AnswerWith(u"one", u"one")});
    EXPECT_EQ(NotesOf(CMD_SAVE), kSaved);
    EXPECT_EQ(file.Count(), 1);
    EXPECT_EQ(PathKind(path), PATH_FILE);
}

TEST_F(SaveCommand, ChangesNothingWhenThePathIsCancelled) {
    OpenNew();
    FileAnswer file(FileAnswer::Kind::Save, {});
    const DuringModal noPrompt({});
    EXPECT_EQ(NotesOf(CMD_SAVE), kNothing);
    EXPECT_EQ(file.Count(), 1);
    EXPECT_EQ(TheDatabase().m_Path, u"");
    EXPECT_FALSE(TheDatabase().HasMasterPassword());
    EXPECT_TRUE(TheDatabase().m_Changed);
}

TEST_F(SaveCommand, AsksForThePathOfADatabaseWhoseOwnIsRelative) {
    OpenChanged();
    TheDatabase().m_Path = u"a.vmr";
    FileAnswer file(FileAnswer::Kind::Save, InFolder(u"b.vmr"));
    EXPECT_EQ(NotesOf(CMD_SAVE), kSaved);
    EXPECT_EQ(file.Count(), 1);
    EXPECT_EQ(TheDatabase().m_Path, InFolder(u"b.vmr"));
}

TEST_F(SaveCommand, OfAnOpenedDatabaseAsksNothing) {
    OpenChanged();
    const DuringModal noPrompt({});
    EXPECT_EQ(NotesOf(CMD_SAVE), kSaved);
    EXPECT_FALSE(TheDatabase().m_Changed);
    EXPECT_EQ(TheAppData().recentItems.front().name, u"Changed");
}

TEST_F(SaveCommand, LeavesTheRecentOnesAndTheStartPageAloneWithoutHistory) {
    OpenChanged();
    TheAppData().ClearRecent();
    TheAppData().bHistory = 0;
    EXPECT_EQ(NotesOf(CMD_SAVE), (Notes{"TOPBAR", "STATUS repaint"}));
    EXPECT_FALSE(TheDatabase().m_Changed);
    EXPECT_TRUE(TheAppData().recentItems.empty());
}

TEST_F(SaveCommand, ThatFailsTellsTheCodeAndLeavesTheDatabaseChanged) {
    OpenChanged();
    TheAppData().ClearRecent();
    const tvstring path = InFolder(u"no folder\\a.vmr");
    TheDatabase().m_Path = path;
    const std::string text = "STATUS error Failed to save file " + Letters(path) + " [0x00000003]";
    EXPECT_EQ(NotesOf(CMD_SAVE), Notes{text});
    EXPECT_TRUE(TheDatabase().m_Changed);
    EXPECT_TRUE(TheDatabase().m_Opened);
    EXPECT_EQ(TheDatabase().m_Path, path);
    EXPECT_TRUE(TheAppData().recentItems.empty());
}

TEST_F(SaveCommand, DoesNotSaveUnderPasswordsThatDiffer) {
    OpenNew();
    const tvstring path = InFolder(u"new.vmr");
    const FileAnswer file(FileAnswer::Kind::Save, path);
    const DuringModal steps({AnswerWith(u"one", u"One")});
    EXPECT_EQ(NotesOf(CMD_SAVE), Notes{"STATUS error Passwords do not match"});
    EXPECT_TRUE(TheDatabase().m_Changed);
    EXPECT_FALSE(TheDatabase().HasMasterPassword());
    EXPECT_EQ(PathKind(path), PATH_NONE);
}

// --- Save As ---

using SaveAsCommand = SaveCommand;

TEST_F(SaveAsCommand, AsksForPathAndPasswordAndHasTheSaveCommandPosted) {
    OpenFile();
    const tvstring path = InFolder(u"b.vmr");
    const FileAnswer file(FileAnswer::Kind::Save, path);
    const DuringModal steps({AnswerWith(u"two", u"two")});
    SendMessageW(Window(), WM_COMMAND, CMD_SAVE_AS, 0);
    EXPECT_EQ(TheDatabase().m_Path, path);
    EXPECT_EQ(PathKind(path), PATH_NONE) << "it is saved by the posted command";
    EXPECT_TRUE(TheDatabase().m_Changed);

    Noting().m_notes.clear();
    Noting().m_commands.clear();
    PumpQueue();
    EXPECT_EQ(Noting().CountCommands(CMD_SAVE), 1);
    EXPECT_EQ(Noting().m_notes, kSaved);
    EXPECT_EQ(PathKind(path), PATH_FILE);
    EXPECT_FALSE(TheDatabase().m_Changed);
}

TEST_F(SaveAsCommand, OntoTheOpenFileGivesItTheNewPassword) {
    const tvstring path = OpenFile();
    const FileAnswer file(FileAnswer::Kind::Save, path);
    {
        const DuringModal steps({AnswerWith(u"two", u"two")});
        EXPECT_EQ(NotesOf(CMD_SAVE_AS), kSaved);
    }
    EXPECT_FALSE(TheDatabase().m_Changed);
    EXPECT_EQ(TryToHold(path), platform::kErrorSharingViolation);
    Command(CMD_CLOSE);
    EXPECT_TRUE(OpensWith(path, u"two"));
    EXPECT_FALSE(OpensWith(path, u"one"));
}

TEST_F(SaveAsCommand, ChangesNothingWhenThePathIsCancelled) {
    const tvstring path = OpenFile();
    FileAnswer file(FileAnswer::Kind::Save, {});
    const DuringModal noPrompt({});
    EXPECT_EQ(NotesOf(CMD_SAVE_AS), kNothing);
    EXPECT_EQ(file.Count(), 1);
    EXPECT_EQ(TheDatabase().m_Path, path);
    EXPECT_FALSE(TheDatabase().m_Changed);
}

TEST_F(SaveAsCommand, ChangesNothingWhenThePasswordIsCancelled) {
    const tvstring path = OpenFile();
    const FileAnswer file(FileAnswer::Kind::Save, InFolder(u"b.vmr"));
    const DuringModal steps({PressButton(IDCANCEL)});
    EXPECT_EQ(NotesOf(CMD_SAVE_AS), kNothing);
    EXPECT_EQ(TheDatabase().m_Path, path);
    EXPECT_FALSE(TheDatabase().m_Changed);
    EXPECT_EQ(TheDatabase().m_Undo.Count(), 0U);
    EXPECT_EQ(Noting().CountCommands(CMD_SAVE), 0);
    EXPECT_EQ(PathKind(InFolder(u"b.vmr")), PATH_NONE);
}

TEST_F(SaveAsCommand, ChangesNothingWhenThePasswordsDiffer) {
    const tvstring path = OpenFile();
    const FileAnswer file(FileAnswer::Kind::Save, InFolder(u"b.vmr"));
    const DuringModal steps({AnswerWith(u"two", u"three")});
    EXPECT_EQ(NotesOf(CMD_SAVE_AS), Notes{"STATUS error Passwords do not match"});
    EXPECT_EQ(TheDatabase().m_Path, path);
    EXPECT_FALSE(TheDatabase().m_Changed);
    EXPECT_EQ(Noting().CountCommands(CMD_SAVE), 0);
}

}  // namespace
