// Exporting a database as a table.
#include "foundation/textfile.h"
#include "tests/app/command_stage.h"

namespace {

const Notes kNothing;

using ExportCommand = CommandTest;

TEST_F(ExportCommand, WritesHtmlOrCommaSeparatedValuesByTheExtension) {
    OpenFile();
    struct Case {
        const char16_t* name;
        bool isHtml;
    };
    for (const Case& one : {Case{u"a.htm", true}, {u"b.HTML", true}, {u"c.csv", false}, {u"d.txt", false}}) {
        const tvstring path = InFolder(one.name);
        const FileAnswer file(FileAnswer::Kind::Save, path);
        EXPECT_EQ(NotesOf(CMD_EXPORT), kNothing);
        const tvstring text = ReadTextFile(path);
        EXPECT_FALSE(text.empty());
        EXPECT_EQ(text.find(u"<table") != tvstring::npos, one.isHtml) << Letters(path);
    }
    EXPECT_FALSE(TheDatabase().m_Changed);
}

TEST_F(ExportCommand, WritesNothingWhenThePathIsCancelled) {
    OpenFile();
    FileAnswer file(FileAnswer::Kind::Save, {});
    EXPECT_EQ(NotesOf(CMD_EXPORT), kNothing);
    EXPECT_EQ(file.Count(), 1);
}

TEST_F(ExportCommand, SaysNothingOfAFailure) {
    OpenFile();
    const tvstring path = InFolder(u"a.csv");
    ASSERT_TRUE(WriteTextFile(u"older", path, TEXT_ANSI));
    const FileAnswer file(FileAnswer::Kind::Save, path);
    {
        const tvhandle held = HoldFile(path);
        EXPECT_EQ(NotesOf(CMD_EXPORT), kNothing);
    }
    EXPECT_EQ(ReadTextFile(path), u"older");
}

}  // namespace
