// The modern dialog for files and folders.
#include "toolkit/file_dialog.h"

#include "tests/gui/file_dialog_harness.h"
#include "tests/gui/late_functions_guard.h"

namespace {

constexpr DWORD kTakenOut = 0x40000;
constexpr DWORD kMustExist = 6144;

class ModernFileDialog : public FileDialogTest {};

}  // namespace

// --- What it is told ---

TEST_F(ModernFileDialog, OpensFilesThatExist) {
    FileDialogUnderTest dialog;
    EXPECT_FALSE(dialog.Show());
    EXPECT_EQ(dialog.m_before, 1);
    EXPECT_FALSE(dialog.m_isSave);
    EXPECT_EQ(dialog.m_options & (FOS_FORCEFILESYSTEM | kMustExist), FOS_FORCEFILESYSTEM | kMustExist);
    EXPECT_EQ(dialog.m_options & (kTakenOut | FOS_PICKFOLDERS | FOS_ALLOWMULTISELECT), 0U);
}

TEST_F(ModernFileDialog, SavesWithAQuestionBeforeOverwriting) {
    FileDialogUnderTest dialog;
    dialog.m_save = true;
    dialog.Show();
    EXPECT_TRUE(dialog.m_isSave);
    EXPECT_NE(dialog.m_options & FOS_OVERWRITEPROMPT, 0U);
    EXPECT_NE(dialog.m_options & FOS_FORCEFILESYSTEM, 0U);
    EXPECT_EQ(dialog.m_options & (kTakenOut | FOS_PICKFOLDERS), 0U);
}

TEST_F(ModernFileDialog, PicksFolders) {
    FileDialogUnderTest dialog;
    dialog.m_pickFolder = true;
    dialog.Show();
    EXPECT_FALSE(dialog.m_isSave);
    EXPECT_EQ(dialog.m_options & (FOS_PICKFOLDERS | FOS_FORCEFILESYSTEM | kMustExist),
              FOS_PICKFOLDERS | FOS_FORCEFILESYSTEM | kMustExist);
}

TEST_F(ModernFileDialog, OffersSeveralFilesToOpenOnly) {
    for (const bool save : {false, true}) {
        for (const bool folder : {false, true}) {
            FileDialogUnderTest dialog;
            dialog.m_multiSelect = true;
            dialog.m_save = save;
            dialog.m_pickFolder = folder;
            dialog.Show();
            EXPECT_EQ((dialog.m_options & FOS_ALLOWMULTISELECT) != 0, !save && !folder) << save << folder;
        }
    }
}

TEST_F(ModernFileDialog, StartsInTheFolderWithTheNameOfTheInitialPath) {
    FileDialogUnderTest dialog;
    dialog.m_initialPath = InFolder(u"new.txt");
    dialog.Show();
    EXPECT_TRUE(IsPath(dialog.m_folder, tvFileDialog::FolderOf(m_Folder, false)));
    EXPECT_TRUE(IsPath(dialog.m_shownFolder, dialog.m_folder));
    EXPECT_EQ(dialog.m_name, u"new.txt");
}

TEST_F(ModernFileDialog, InitialPathThatEndsWithABackslashSuggestsNoName) {
    FileDialogUnderTest dialog;
    dialog.m_initialPath = m_Folder;
    dialog.Show();
    EXPECT_TRUE(IsPath(dialog.m_shownFolder, tvFileDialog::FolderOf(m_Folder, false)));
    EXPECT_EQ(dialog.m_name, u"");
}

TEST_F(ModernFileDialog, InitialPathWithoutAFolderIsAName) {
    FileDialogUnderTest dialog;
    dialog.m_initialPath = u"name.txt";
    dialog.Show();
    EXPECT_EQ(dialog.m_folder, u"");
    EXPECT_EQ(dialog.m_name, u"name.txt");
}

TEST_F(ModernFileDialog, FindsItsFolderAlsoWhereTheSystemLacksTheShortWay) {
    const LateFunctionsGuard guard;
    TheLateFunctions().shCreateItemFromParsingName.Replace(nullptr);
    FileDialogUnderTest dialog;
    dialog.m_initialPath = m_Folder;
    dialog.Show();
    EXPECT_TRUE(IsPath(dialog.m_shownFolder, tvFileDialog::FolderOf(m_Folder, false)));
}

TEST_F(ModernFileDialog, TakesAFolderThatIsNotThereForNone) {
    FileDialogUnderTest dialog;
    dialog.m_initialPath = InFolder(u"no such folder\\name.txt");
    dialog.Show();
    EXPECT_EQ(dialog.m_before, 1);
    EXPECT_EQ(dialog.m_name, u"name.txt");
}

TEST_F(ModernFileDialog, StartsWithTheFilterOfTheIndexOrTheNearestOne) {
    constexpr struct {
        int index;
        UINT shown;
    } kCases[] = {{0, 1}, {1, 2}, {2, 3}, {3, 3}, {99, 3}, {-1, 1}, {-99, 1}};
    for (const auto& one : kCases) {
        FileDialogUnderTest dialog;
        for (const char16_t* name : {u"Texts", u"Logs", u"All"})
            dialog.SetFilter(name, u"*.*", false);
        dialog.m_filterIndex = one.index;
        dialog.Show();
        EXPECT_EQ(dialog.m_typeIndex, one.shown) << one.index;
        EXPECT_EQ(dialog.m_filterIndex, one.index) << "nothing was chosen";
    }
}

TEST_F(ModernFileDialog, IsNotShownIfTheCallerHoldsItBack) {
    FileDialogUnderTest dialog;
    dialog.m_results = {u"of an earlier time"};
    EXPECT_FALSE(dialog.Show());
    EXPECT_EQ(FrontDialog(u"#32770"), nullptr);
    EXPECT_EQ(dialog.m_after, 0);
    EXPECT_TRUE(dialog.m_results.empty());
}

// --- What the user does ---

TEST_F(ModernFileDialog, GivesNothingWhenTheUserEscapes) {
    FileDialogUnderTest dialog;
    dialog.m_goOn = true;
    dialog.m_results = {u"of an earlier time"};
    const DuringModal during({WaitForDialog(), Key(VK_ESCAPE)});
    EXPECT_FALSE(dialog.Show());
    EXPECT_TRUE(dialog.m_results.empty());
    EXPECT_EQ(dialog.GetPath(), u"");
    EXPECT_EQ(dialog.m_after, 0);
}

TEST_F(ModernFileDialog, GivesTheFileThatTheUserNames) {
    FileDialogUnderTest dialog;
    dialog.m_goOn = true;
    dialog.m_initialPath = m_Folder;
    const DuringModal during(TypeName(u"a.txt"));
    ASSERT_TRUE(dialog.Show());
    ASSERT_EQ(dialog.m_results.size(), 1U);
    EXPECT_TRUE(IsPath(dialog.GetPath(), InFolder(u"a.txt")));
    EXPECT_EQ(dialog.m_after, 1);
    EXPECT_EQ(dialog.m_resultsAfter, 0U) << "results are taken after the caller had his look";
}

TEST_F(ModernFileDialog, StandsOverTheMainWindowWithItsTitle) {
    FileDialogUnderTest dialog;
    dialog.m_goOn = true;
    dialog.m_title = u"Which file?";
    const auto look = Once([&] {
        EXPECT_EQ(WindowText(m_Shown), u"Which file?");
        EXPECT_EQ(GetWindow(m_Shown, GW_OWNER), m_Main.Handle());
    });
    const DuringModal during({WaitForDialog(), look, Key(VK_ESCAPE)});
    EXPECT_FALSE(dialog.Show());
}

TEST_F(ModernFileDialog, GivesTheNewFileToSaveWithTheUsualExtension) {
    FileDialogUnderTest dialog;
    dialog.m_goOn = true;
    dialog.m_save = true;
    dialog.m_multiSelect = true;
    dialog.m_initialPath = InFolder(u"suggested.txt");
    dialog.SetDefaultExtension(u".txt");
    const DuringModal during(TypeName(u"new"));
    ASSERT_TRUE(dialog.Show());
    EXPECT_TRUE(IsPath(dialog.GetPath(), InFolder(u"new.txt")));
}

TEST_F(ModernFileDialog, GivesTheSuggestedFileOnEnter) {
    FileDialogUnderTest dialog;
    dialog.m_goOn = true;
    dialog.m_save = true;
    dialog.m_initialPath = InFolder(u"suggested.txt");
    const DuringModal during({WaitForDialog(), Key(VK_RETURN)});
    ASSERT_TRUE(dialog.Show());
    EXPECT_TRUE(IsPath(dialog.GetPath(), InFolder(u"suggested.txt")));
}

TEST_F(ModernFileDialog, GivesAllFilesThatTheUserNames) {
    FileDialogUnderTest dialog;
    dialog.m_goOn = true;
    dialog.m_multiSelect = true;
    dialog.m_initialPath = m_Folder;
    const DuringModal during(TypeName(u"\"a.txt\" \"b.txt\""));
    ASSERT_TRUE(dialog.Show());
    ASSERT_EQ(dialog.m_results.size(), 2U);
    EXPECT_TRUE(IsPath(dialog.m_results[0], InFolder(u"a.txt")));
    EXPECT_TRUE(IsPath(dialog.m_results[1], InFolder(u"b.txt")));
}

TEST_F(ModernFileDialog, GivesTheFolderThatTheUserNames) {
    FileDialogUnderTest dialog;
    dialog.m_goOn = true;
    dialog.m_pickFolder = true;
    dialog.m_initialPath = m_Folder;
    const DuringModal during(TypeName(u"inner"));
    ASSERT_TRUE(dialog.Show());
    EXPECT_TRUE(IsPath(dialog.GetPath(), InFolder(u"inner")));
}

TEST_F(ModernFileDialog, RemembersTheFilterThatTheUserChose) {
    FileDialogUnderTest dialog;
    dialog.m_goOn = true;
    dialog.m_initialPath = m_Folder;
    dialog.SetFilter(u"Texts", u"*.txt", false);
    dialog.SetFilter(u"All", u"*.*", false);
    dialog.m_filterIndex = 1;
    const DuringModal during(TypeName(u"a.txt"));
    ASSERT_TRUE(dialog.Show());
    EXPECT_EQ(dialog.m_filterIndex, 1);
}

TEST_F(ModernFileDialog, KeepsTheIndexWithoutFilters) {
    FileDialogUnderTest dialog;
    dialog.m_goOn = true;
    dialog.m_initialPath = m_Folder;
    dialog.m_filterIndex = 4;
    const DuringModal during(TypeName(u"a.txt"));
    ASSERT_TRUE(dialog.Show());
    EXPECT_EQ(dialog.m_filterIndex, 4);
}
