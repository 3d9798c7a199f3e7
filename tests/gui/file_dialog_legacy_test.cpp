// The older dialogs for files and folders.
#include <thread>

#include "tests/gui/fake_file_dialog.h"
#include "tests/gui/file_dialog_harness.h"
#include "tests/gui/new_window_places.h"
#include "tests/gui/sizes.h"

namespace {

class LegacyFileDialog : public FileDialogTest {
protected:
    LegacyFileDialog() { m_Dialog.m_legacyOnly = true; }
    void TearDown() override {
        EXPECT_EQ(m_Dialog.m_before, 0) << "the modern dialog was made";
        FileDialogTest::TearDown();
    }
    FileDialogUnderTest m_Dialog;
};

}  // namespace

TEST_F(LegacyFileDialog, GivesNothingWhenTheUserEscapes) {
    m_Dialog.m_results = {u"of an earlier time"};
    const DuringModal during({WaitForDialog(), Key(VK_ESCAPE)});
    EXPECT_FALSE(m_Dialog.Show());
    EXPECT_TRUE(m_Dialog.m_results.empty());
}

TEST_F(LegacyFileDialog, GivesTheFileThatTheUserNames) {
    m_Dialog.m_initialPath = m_Folder;
    const DuringModal during(TypeName(u"a.txt"));
    ASSERT_TRUE(m_Dialog.Show());
    ASSERT_EQ(m_Dialog.m_results.size(), 1U);
    EXPECT_TRUE(IsPath(m_Dialog.GetPath(), InFolder(u"a.txt")));
}

TEST_F(LegacyFileDialog, GivesTheSuggestedFileOnEnter) {
    m_Dialog.m_initialPath = InFolder(u"b.txt");
    const DuringModal during({WaitForDialog(), Key(VK_RETURN)});
    ASSERT_TRUE(m_Dialog.Show());
    EXPECT_TRUE(IsPath(m_Dialog.GetPath(), InFolder(u"b.txt")));
}

TEST_F(LegacyFileDialog, GivesAllFilesThatTheUserNames) {
    m_Dialog.m_multiSelect = true;
    m_Dialog.m_initialPath = m_Folder;
    const DuringModal during(TypeName(u"\"a.txt\" \"b.txt\""));
    ASSERT_TRUE(m_Dialog.Show());
    ASSERT_EQ(m_Dialog.m_results.size(), 2U);
    EXPECT_TRUE(IsPath(m_Dialog.m_results[0], InFolder(u"a.txt")));
    EXPECT_TRUE(IsPath(m_Dialog.m_results[1], InFolder(u"b.txt")));
}

TEST_F(LegacyFileDialog, GivesTheNewFileToSaveWithTheUsualExtension) {
    m_Dialog.m_save = true;
    m_Dialog.m_initialPath = m_Folder;
    m_Dialog.SetDefaultExtension(u".txt");
    const DuringModal during(TypeName(u"new"));
    ASSERT_TRUE(m_Dialog.Show());
    EXPECT_TRUE(IsPath(m_Dialog.GetPath(), InFolder(u"new.txt")));
}

TEST_F(LegacyFileDialog, AsksBeforeItOverwritesAFile) {
    m_Dialog.m_save = true;
    m_Dialog.m_initialPath = InFolder(u"a.txt");
    HWND question = nullptr;
    const auto waitForQuestion = [&] {
        question = FrontDialog(u"#32770");
        return question != nullptr && question != m_Shown && GetForegroundWindow() == question;
    };
    const auto backInDialog = [&] { return GetForegroundWindow() == m_Shown && IsWindowEnabled(m_Shown); };
    const DuringModal during(
        {WaitForDialog(), Key(VK_RETURN), waitForQuestion, Key(VK_ESCAPE), backInDialog, Key(VK_ESCAPE)});
    EXPECT_FALSE(m_Dialog.Show());
}

TEST_F(LegacyFileDialog, StandsOverTheMainWindowWithItsTitle) {
    m_Dialog.m_title = u"Which file?";
    const auto look = Once([&] {
        EXPECT_EQ(WindowText(m_Shown), u"Which file?");
        EXPECT_EQ(GetWindow(m_Shown, GW_OWNER), m_Main.Handle());
    });
    const DuringModal during({WaitForDialog(), look, Key(VK_ESCAPE)});
    EXPECT_FALSE(m_Dialog.Show());
}

TEST_F(LegacyFileDialog, IsPutInTheMiddleOfTheMainWindow) {
    const PlacesOfNewWindows places;
    const DuringModal during({WaitForDialog(), Key(VK_ESCAPE)});
    EXPECT_FALSE(m_Dialog.Show());
    RECT main;
    GetWindowRect(m_Main.Handle(), &main);
    const RECT place = places.Of(m_Shown);
    EXPECT_GT(Width(place), 100);
    EXPECT_EQ(place, CenteredBox(main, Width(place), Height(place)));
}

TEST_F(LegacyFileDialog, RemembersTheFilter) {
    m_Dialog.m_initialPath = m_Folder;
    m_Dialog.SetFilter(u"Texts", u"*.txt", false);
    m_Dialog.SetFilter(u"All", u"*.*", false);
    m_Dialog.m_filterIndex = 7;
    const DuringModal during(TypeName(u"a.txt"));
    ASSERT_TRUE(m_Dialog.Show());
    EXPECT_EQ(m_Dialog.m_filterIndex, 1) << "the nearest one was shown";
}

TEST_F(LegacyFileDialog, InitialPathThatEndsWithABackslashSuggestsNoName) {
    m_Dialog.m_initialPath = m_Folder;
    const auto look = Once([&] { EXPECT_EQ(WindowText(NameField()), u""); });
    const DuringModal during({WaitForDialog(), [&] { return NameField() != nullptr; }, look, Key(VK_ESCAPE)});
    EXPECT_FALSE(m_Dialog.Show());
}

TEST_F(LegacyFileDialog, StartsWithoutANameIfThatIsLongerThanItsRoom) {
    m_Dialog.m_initialPath = tvstring(20000, u'x');
    const auto look = Once([&] { EXPECT_EQ(WindowText(NameField()), u""); });
    const DuringModal during({WaitForDialog(), [&] { return NameField() != nullptr; }, look, Key(VK_ESCAPE)});
    EXPECT_FALSE(m_Dialog.Show());
}

// --- Folders ---

TEST_F(LegacyFileDialog, PicksTheFolderThatItStartsWithOnEnter) {
    m_Dialog.m_pickFolder = true;
    m_Dialog.m_initialPath = InFolder(u"inner");
    m_Dialog.m_title = u"Which folder?";
    bool hasTitle = false;
    const auto look = Once([&] {
        for (HWND child = GetTopWindow(m_Shown); child != nullptr; child = GetWindow(child, GW_HWNDNEXT))
            hasTitle = hasTitle || WindowText(child) == u"Which folder?";
    });
    const DuringModal during({WaitForDialog(), look, Key(VK_RETURN)});
    ASSERT_TRUE(m_Dialog.Show());
    EXPECT_TRUE(hasTitle);
    EXPECT_TRUE(IsPath(m_Dialog.GetPath(), InFolder(u"inner")));
}

TEST_F(LegacyFileDialog, GivesNoFolderWhenTheUserEscapes) {
    m_Dialog.m_pickFolder = true;
    m_Dialog.m_initialPath = m_Folder;
    const DuringModal during({WaitForDialog(), Key(VK_ESCAPE)});
    EXPECT_FALSE(m_Dialog.Show());
    EXPECT_TRUE(m_Dialog.m_results.empty());
}

TEST_F(LegacyFileDialog, FolderDialogStandsInTheMiddleOfTheMainWindow) {
    m_Dialog.m_pickFolder = true;
    m_Dialog.m_initialPath = m_Folder;
    const auto look = Once([&] {
        RECT outer;
        RECT inner;
        GetWindowRect(m_Main.Handle(), &outer);
        GetWindowRect(m_Shown, &inner);
        EXPECT_NEAR(inner.left + inner.right, outer.left + outer.right, 1);
        EXPECT_NEAR(inner.top + inner.bottom, outer.top + outer.bottom, 1);
    });
    const DuringModal during({WaitForDialog(), look, Key(VK_ESCAPE)});
    EXPECT_FALSE(m_Dialog.Show());
}

TEST_F(LegacyFileDialog, FolderDialogStaysForAFolderThatIsNone) {
    EXPECT_EQ(tvFileDialog::BrowseProc(nullptr, BFFM_VALIDATEFAILEDW, 0, 0), 1);
    EXPECT_EQ(tvFileDialog::BrowseProc(nullptr, BFFM_SELCHANGED, 0, 0), 0);
}

// --- In place of the modern dialog ---

namespace {

// Whether the calling thread has an apartment that was made for it.
bool HasApartment() {
    APTTYPE type{};
    APTTYPEQUALIFIER qualifier{};
    return SUCCEEDED(CoGetApartmentType(&type, &qualifier)) && type != APTTYPE_MTA;
}

}  // namespace

TEST_F(LegacyFileDialog, TakesThePlaceOfTheModernOneWhereThatCannotBeMade) {
    m_Dialog.m_legacyOnly = false;
    m_Dialog.m_initialPath = m_Folder;
    const ModernDialogClass none(CLSID_FileOpenDialog, nullptr);
    const DuringModal during(TypeName(u"a.txt"));
    ASSERT_TRUE(m_Dialog.Show());
    EXPECT_EQ(none.m_asked, 1);
    EXPECT_TRUE(IsPath(m_Dialog.GetPath(), InFolder(u"a.txt")));
}

TEST(FileDialog, KeepsComForItsWholeLife) {
    std::thread([] {  // one of its own: windows of the main one may have started COM, as input methods do
        ASSERT_FALSE(HasApartment());
        {
            const tvFileDialog dialog;
            EXPECT_TRUE(HasApartment());
            { const tvFileDialog second; }
            EXPECT_TRUE(HasApartment());
        }
        EXPECT_FALSE(HasApartment());
    })
        .join();
}
