// What a file dialog makes of texts, without showing anything.
#include <gtest/gtest.h>

#include "toolkit/file_dialog.h"

using Paths = std::vector<tvstring>;
using namespace std::string_view_literals;  // NOLINT(google-build-using-namespace): texts with zeros inside

// --- Paths ---

TEST(FileDialogPaths, AreJoinedWithOneBackslash) {
    EXPECT_EQ(tvFileDialog::JoinPath(u"C:\\x", u"a.txt"), u"C:\\x\\a.txt");
    EXPECT_EQ(tvFileDialog::JoinPath(u"C:\\x\\", u"a.txt"), u"C:\\x\\a.txt");
    EXPECT_EQ(tvFileDialog::JoinPath(u"C:\\x", u"\\a.txt"), u"C:\\x\\a.txt");
    EXPECT_EQ(tvFileDialog::JoinPath(u"C:\\", u"a.txt"), u"C:\\a.txt");
}

TEST(FileDialogPaths, HaveAFolder) {
    EXPECT_EQ(tvFileDialog::FolderOf(u"C:\\x\\a.txt", false), u"C:\\x");
    EXPECT_EQ(tvFileDialog::FolderOf(u"C:\\x\\a.txt", true), u"C:\\x\\");
    EXPECT_EQ(tvFileDialog::FolderOf(u"C:\\x\\", false), u"C:\\x");
    EXPECT_EQ(tvFileDialog::FolderOf(u"C:\\x\\", true), u"C:\\x\\");
}

TEST(FileDialogPaths, KeepTheBackslashOfARoot) {
    EXPECT_EQ(tvFileDialog::FolderOf(u"C:\\a.txt", false), u"C:\\");
    EXPECT_EQ(tvFileDialog::FolderOf(u"\\a.txt", false), u"\\");
}

TEST(FileDialogPaths, WithoutABackslashHaveNoFolder) {
    EXPECT_EQ(tvFileDialog::FolderOf(u"a.txt", true), u"");
    EXPECT_EQ(tvFileDialog::FolderOf(u"", false), u"");
}

// --- Extension and filters ---

TEST(FileDialogExtension, IsStoredWithoutDotsAndWhiteSpace) {
    tvFileDialog dialog;
    for (const char16_t* text : {u"txt", u".txt", u"..txt.", u" \t.txt\r\n "}) {
        dialog.SetDefaultExtension(text);
        EXPECT_EQ(dialog.m_defaultExtension, u"txt");
    }
    dialog.SetDefaultExtension(u".tar.gz");
    EXPECT_EQ(dialog.m_defaultExtension, u"tar.gz");
    dialog.SetDefaultExtension(u" . ");
    EXPECT_EQ(dialog.m_defaultExtension, u"");
}

TEST(FileDialogFilter, IsAddedBehindTheOthersOrAlone) {
    tvFileDialog dialog;
    dialog.SetFilter(u"Texts", u"*.txt", false);
    dialog.SetFilter(u"All", u"*.*", false);
    ASSERT_EQ(dialog.m_filters.size(), 2U);
    EXPECT_EQ(dialog.m_filters[1].name, u"All");
    EXPECT_EQ(dialog.m_filters[1].pattern, u"*.*");
    dialog.SetFilter(u"Logs", u"*.log", true);
    ASSERT_EQ(dialog.m_filters.size(), 1U);
    EXPECT_EQ(dialog.m_filters[0].name, u"Logs");
}

TEST(FileDialogFilter, IsOfPairsThatEndInZeroForOlderDialogs) {
    tvFileDialog dialog;
    EXPECT_EQ(dialog.LegacyFilter(), u"");
    dialog.SetFilter(u"Texts", u"*.txt;*.md", false);
    dialog.SetFilter(u"All", u"*.*", false);
    const tvstring filter = dialog.LegacyFilter();
    EXPECT_EQ(filter.view(), u"Texts\0*.txt;*.md\0All\0*.*\0"sv);
    EXPECT_EQ(filter.c_str()[filter.size()], u'\0') << "and one more at the end";
}

// --- Options of the modern dialog ---

TEST(FileDialogOptions, FollowFromTheMode) {
    tvFileDialog open;
    EXPECT_EQ(open.ModernOptions(0), 0x40U | 6144U);
    tvFileDialog several;
    several.m_multiSelect = true;
    EXPECT_EQ(several.ModernOptions(0), 0x40U | 6144U | 0x200U);
    tvFileDialog save;
    save.m_save = true;
    save.m_multiSelect = true;
    EXPECT_EQ(save.ModernOptions(0), 0x40U | 2U);
    tvFileDialog folder;
    folder.m_pickFolder = true;
    folder.m_multiSelect = true;
    EXPECT_EQ(folder.ModernOptions(0), 0x40U | 0x20U | 6144U);
}

TEST(FileDialogOptions, KeepTheDialogsOwnButForTwo) {
    const tvFileDialog dialog;
    constexpr u32 kAll = 0xFFFFFFFF;
    EXPECT_EQ(dialog.ModernOptions(kAll), kAll & ~(0x40000U | 0x20U));
    tvFileDialog folder;
    folder.m_pickFolder = true;
    EXPECT_EQ(folder.ModernOptions(kAll), kAll & ~0x40000U);
}

TEST(FileDialogOptions, OfOlderDialogsFollowFromTheMode) {
    tvFileDialog open;
    EXPECT_EQ(open.LegacyOptions(), 0x281804U);
    tvFileDialog several;
    several.m_multiSelect = true;
    EXPECT_EQ(several.LegacyOptions(), 0x281804U | 0x200U);
    tvFileDialog save;
    save.m_save = true;
    save.m_multiSelect = true;
    EXPECT_EQ(save.LegacyOptions(), 0x280006U) << "one file only";
}

// --- Results of older dialogs ---

TEST(FileDialogResults, AreOnePathWithoutAZeroInFrontOfTheName) {
    EXPECT_EQ(tvFileDialog::LegacyResults(u"C:\\x\\a.txt\0\0\0"sv, 5), (Paths{u"C:\\x\\a.txt"}));
    EXPECT_EQ(tvFileDialog::LegacyResults(u"C:\\a.txt\0\0"sv, 3), (Paths{u"C:\\a.txt"}));
}

TEST(FileDialogResults, AreTheFolderWithEachNameAfterAZero) {
    EXPECT_EQ(tvFileDialog::LegacyResults(u"C:\\x\0a.txt\0b c.txt\0\0"sv, 5),
              (Paths{u"C:\\x\\a.txt", u"C:\\x\\b c.txt"}));
    EXPECT_EQ(tvFileDialog::LegacyResults(u"C:\\\0a\0b\0c\0\0"sv, 4), (Paths{u"C:\\a", u"C:\\b", u"C:\\c"}));
}

TEST(FileDialogResults, MayBeOneNameAfterAZero) {
    EXPECT_EQ(tvFileDialog::LegacyResults(u"C:\\x\0a.txt\0\0"sv, 5), (Paths{u"C:\\x\\a.txt"}));
}

TEST(FileDialogResults, EndWithTheBuffer) {
    EXPECT_EQ(tvFileDialog::LegacyResults(u"C:\\x\0a.txt\0b.txt"sv, 5),
              (Paths{u"C:\\x\\a.txt", u"C:\\x\\b.txt"}));
    EXPECT_EQ(tvFileDialog::LegacyResults(u"C:\\x\\a.txt"sv, 5), (Paths{u"C:\\x\\a.txt"}));
}

TEST(FileDialogResults, OfAnEmptyBufferAreNone) {
    EXPECT_EQ(tvFileDialog::LegacyResults(u"\0\0\0"sv, 0), Paths{});
    EXPECT_EQ(tvFileDialog::LegacyResults(u""sv, 0), Paths{});
}

TEST(FileDialogResults, AreOnePathIfTheNameIsSaidToStandNowhere) {
    EXPECT_EQ(tvFileDialog::LegacyResults(u"C:\\x\0a.txt\0\0"sv, 0), (Paths{u"C:\\x"}));
    EXPECT_EQ(tvFileDialog::LegacyResults(u"C:\\x\0a.txt\0\0"sv, 500), (Paths{u"C:\\x"}));
}

TEST(FileDialogResults, GiveTheFirstAsThePath) {
    tvFileDialog dialog;
    EXPECT_EQ(dialog.GetPath(), u"");
    dialog.m_results = {u"C:\\first", u"C:\\second"};
    EXPECT_EQ(dialog.GetPath(), u"C:\\first");
}
