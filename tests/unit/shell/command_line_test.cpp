#include "shell/command_line.h"

#include <gtest/gtest.h>

namespace {

TEST(CommandLine, OfASwitchShowsNoWindow) {
    EXPECT_EQ(StartModeOf(u"/shelladd"), StartMode::RegisterFileType);
    EXPECT_EQ(StartModeOf(u"/shellremove"), StartMode::DeregisterFileType);
    EXPECT_EQ(StartModeOf(u"/extractlang"), StartMode::ExtractLanguage);
}

TEST(CommandLine, TakesASwitchInLettersOfEitherCase) {
    EXPECT_EQ(StartModeOf(u"/ShellAdd"), StartMode::RegisterFileType);
    EXPECT_EQ(StartModeOf(u"/SHELLREMOVE"), StartMode::DeregisterFileType);
    EXPECT_EQ(StartModeOf(u"/extractLANG"), StartMode::ExtractLanguage);
}

TEST(CommandLine, TakesASwitchAnywhere) {
    EXPECT_EQ(StartModeOf(u"  x \"/shelladd\" y"), StartMode::RegisterFileType);
    EXPECT_EQ(StartModeOf(u"C:/shellremove/a.VMR"), StartMode::DeregisterFileType);
    EXPECT_EQ(StartModeOf(u"/extractlanguages"), StartMode::ExtractLanguage);
}

TEST(CommandLine, OfSeveralSwitchesHasAnOrderOfItsOwn) {
    EXPECT_EQ(StartModeOf(u"/shellremove /shelladd"), StartMode::RegisterFileType);
    EXPECT_EQ(StartModeOf(u"/extractlang /shellremove"), StartMode::DeregisterFileType);
}

TEST(CommandLine, WithoutASwitchOpensTheMainWindow) {
    for (const char16_t* text : {u"", u"  ", u"a.VMR", u"-shelladd", u"/shell add"})
        EXPECT_EQ(StartModeOf(text), StartMode::MainWindow);
}

TEST(CommandLine, PathLosesBlanksAndQuotationMarksAtItsEnds) {
    EXPECT_EQ(PathFromArguments(u" \"C:\\my files\\a.VMR\" "), u"C:\\my files\\a.VMR");
    EXPECT_EQ(PathFromArguments(u"'a.VMR'\r\n"), u"a.VMR");
    EXPECT_EQ(PathFromArguments(u"\t\"'a b'\"\t"), u"a b");
}

TEST(CommandLine, OfBlanksAndQuotationMarksIsEmpty) {
    for (const char16_t* text : {u"", u"   ", u"\"\"", u" ' \" \t\r\n"})
        EXPECT_EQ(PathFromArguments(text), u"");
}

TEST(CommandLine, WithMoreBehindTheQuotationMarkIsOnePath) {
    EXPECT_EQ(PathFromArguments(u"\"a.VMR\" b.VMR"), u"a.VMR\" b.VMR");
}

}  // namespace
