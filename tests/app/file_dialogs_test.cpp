// The four dialogs in which the user chooses files.
#include "windows/file_dialogs.h"

#include "tests/app/language_stage.h"

namespace {

class FileDialogs : public LanguageTest {
protected:
    // They are new, whatever earlier tests have chosen in them.
    FileDialogs() {
        UseSecond();
        UseEnglish();
    }
};

// The filters of a dialog, one a line.
std::string FiltersOf(const tvFileDialog& dialog) {
    std::string filters;
    for (const tvFileDialog::Filter& filter : dialog.m_filters)
        filters.append(Letters(filter.name)).append("|").append(Letters(filter.pattern)).append("\n");
    return filters;
}

TEST_F(FileDialogs, OpenADatabase) {
    const tvFileDialog& dialog = GetFileDialog(FileDialogUse::OpenDatabase);
    EXPECT_FALSE(dialog.m_save);
    EXPECT_EQ(FiltersOf(dialog), "VMR Databases (*.VMR)|*.VMR\nAll Files (*.*)|*.*\n");
    EXPECT_EQ(dialog.m_defaultExtension, u"VMR");
    EXPECT_EQ(dialog.m_title, u"");
    EXPECT_EQ(dialog.m_filterIndex, 0);
}

TEST_F(FileDialogs, SaveADatabase) {
    const tvFileDialog& dialog = GetFileDialog(FileDialogUse::SaveDatabase);
    EXPECT_TRUE(dialog.m_save);
    EXPECT_EQ(FiltersOf(dialog), "VMR Databases (*.VMR)|*.VMR\nAll Files (*.*)|*.*\n");
    EXPECT_EQ(dialog.m_defaultExtension, u"VMR");
    EXPECT_EQ(dialog.m_title, u"");
    EXPECT_EQ(dialog.m_filterIndex, 0);
}

TEST_F(FileDialogs, ChooseAProgram) {
    const tvFileDialog& dialog = GetFileDialog(FileDialogUse::ChooseProgram);
    EXPECT_FALSE(dialog.m_save);
    EXPECT_EQ(FiltersOf(dialog), "Programs (*.exe)|*.exe\nAll Files (*.*)|*.*\n");
    EXPECT_EQ(dialog.m_defaultExtension, u"exe");
    EXPECT_EQ(dialog.m_filterIndex, 0);
}

// An extension has no dot in front when it is asked for.
TEST_F(FileDialogs, ExportToHtmlAtFirst) {
    const tvFileDialog& dialog = GetFileDialog(FileDialogUse::Export);
    EXPECT_TRUE(dialog.m_save);
    EXPECT_EQ(FiltersOf(dialog), "CSV Files (*.csv)|*.csv\nHTML Table (*.htm)|*.htm\n");
    EXPECT_EQ(dialog.m_defaultExtension, u"htm");
    EXPECT_EQ(dialog.m_title, u"Export...") << "without the mark of its key";
    EXPECT_EQ(dialog.m_filterIndex, 1);
}

TEST_F(FileDialogs, StayTheSameWhileTheLanguageDoes) {
    tvFileDialog& dialog = GetFileDialog(FileDialogUse::OpenDatabase);
    dialog.m_initialPath = u"C:\\here";
    EXPECT_EQ(&GetFileDialog(FileDialogUse::OpenDatabase), &dialog);
    EXPECT_EQ(GetFileDialog(FileDialogUse::OpenDatabase).m_initialPath, u"C:\\here");
    dialog.m_initialPath = u"";
}

TEST_F(FileDialogs, SpeakTheNewLanguageAfterAChange) {
    GetFileDialog(FileDialogUse::OpenDatabase).m_filterIndex = 1;
    UseSecond();
    EXPECT_EQ(FiltersOf(GetFileDialog(FileDialogUse::OpenDatabase)),
              "Tresore (*.VMR)|*.VMR\nAll Files (*.*)|*.*\n");
    EXPECT_EQ(GetFileDialog(FileDialogUse::OpenDatabase).m_filterIndex, 0);
    EXPECT_EQ(FiltersOf(GetFileDialog(FileDialogUse::SaveDatabase)),
              "Tresore (*.VMR)|*.VMR\nAll Files (*.*)|*.*\n");
    EXPECT_EQ(FiltersOf(GetFileDialog(FileDialogUse::ChooseProgram)),
              "Programme (*.exe)|*.exe\nAll Files (*.*)|*.*\n");
    EXPECT_EQ(GetFileDialog(FileDialogUse::Export).m_title, u"Ausgeben...");
    EXPECT_EQ(FiltersOf(GetFileDialog(FileDialogUse::Export)),
              "Tabellen (*.csv)|*.csv\nHTML Table (*.htm)|*.htm\n");
    UseEnglish();
    EXPECT_EQ(FiltersOf(GetFileDialog(FileDialogUse::OpenDatabase)),
              "VMR Databases (*.VMR)|*.VMR\nAll Files (*.*)|*.*\n");
}

// What the commands show is what is set up here.
TEST_F(FileDialogs, AreWhatTheCommandsShow) {
    OpenNoting();
    FileAnswer file(FileAnswer::Kind::Open, {});
    Command(CMD_OPEN);
    ASSERT_FALSE(file.m_fake.m_calls.empty());
    EXPECT_EQ(file.m_fake.m_calls[0], "extension VMR");
    EXPECT_EQ(file.m_fake.m_calls[1], "types VMR Databases (*.VMR)=*.VMR All Files (*.*)=*.*");
}

}  // namespace
