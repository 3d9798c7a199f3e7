#include "foundation/ini_lines.h"

#include <gtest/gtest.h>

#include <string>

#include "foundation/textops.h"

namespace {

// The lines, one each: "number [section] what it says {text}".
std::u16string Lines(const tvstring& text) {
    tvstring shown;
    for (const PlacedLine& line : PlacedLines(text)) {
        shown += FormatInt(static_cast<i32>(line.number)) + u" [" + line.section + u"] ";
        switch (line.read.kind) {
            case IniLine::Kind::Head:
                shown += tvstring(u"head ") + line.read.key;
                break;
            case IniLine::Kind::Pair:
                shown += line.read.key + u"=" + line.read.value;
                break;
            case IniLine::Kind::Other:
                shown += u"other";
                break;
        }
        shown += tvstring(u" {") + line.text + u"}\n";
    }
    return std::u16string(shown);
}

TEST(PlacedLines, AreNoneInAnEmptyDocument) {
    EXPECT_EQ(Lines(u""), u"");
    EXPECT_EQ(Lines(u"\n\r\n \t\n"), u"");
    EXPECT_EQ(Lines(u"# comment\n; comment"), u"");
}

TEST(PlacedLines, AreHeadsPairsAndOthersWithTheirSection) {
    EXPECT_EQ(Lines(u"x = 1\n[a]\ny = 2\n= z\n[b]\nz=3"),
              u"1 [] x=1 {x = 1}\n2 [a] head a {[a]}\n3 [a] y=2 {y = 2}\n4 [a] other {= z}\n"
              u"5 [b] head b {[b]}\n6 [b] z=3 {z=3}\n");
}

TEST(PlacedLines, AreInNoSectionBehindAnEmptyHead) {
    EXPECT_EQ(Lines(u"[a]\n[]\nx=1"), u"1 [a] head a {[a]}\n2 [] head  {[]}\n3 [] x=1 {x=1}\n");
}

TEST(PlacedLines, HaveTheirEscapesResolvedInWhatTheySayOnly) {
    EXPECT_EQ(Lines(u"[a\\\\b]\n\"x\\\"y\" = \"1\\\\2\""),
              u"1 [a\\b] head a\\b {[a\\\\b]}\n2 [a\\b] x\"y=1\\2 {\"x\\\"y\" = \"1\\\\2\"}\n");
}

TEST(PlacedLines, CountEmptyLinesAndComments) {
    EXPECT_EQ(Lines(u"\n# one\n\n  x=1\n; two\n\n\ny=2\n\n"), u"4 [] x=1 {x=1}\n8 [] y=2 {y=2}\n");
}

TEST(PlacedLines, CountLineFeedsAlone) {
    EXPECT_EQ(Lines(u"a=1\r\nb=2\r\n\r\nc=3"), u"1 [] a=1 {a=1}\n2 [] b=2 {b=2}\n4 [] c=3 {c=3}\n");
    EXPECT_EQ(Lines(u"a=1\rb=2"), u"1 [] a=1\rb=2 {a=1\rb=2}\n");
}

TEST(PlacedLines, StandWhereTheFirstOfTheirPhysicalLinesStands) {
    EXPECT_EQ(Lines(u"\nx = 1\\\n2\n3\n# comment\n4\ny = 5"),
              u"2 [] x=1 2 3 4 {x = 1 2 3 4}\n7 [] y=5 {y = 5}\n");
}

TEST(PlacedLines, StandOnOneLineInAOneLineDocument) {
    EXPECT_EQ(Lines(u"x=1"), u"1 [] x=1 {x=1}\n");
}

TEST(PlacedLines, AreNoneForALoneContinuation) {
    EXPECT_EQ(Lines(u"\\\n"), u"");
    EXPECT_EQ(Lines(u"\\\nx=1"), u"1 [] x=1 {x=1}\n");
}

}  // namespace
