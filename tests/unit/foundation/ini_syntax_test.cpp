#include "foundation/ini_syntax.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

// All logical lines of a document.
std::vector<tvstring> LogicalLines(std::u16string_view text) {
    std::vector<tvstring> lines;
    while (!text.empty())
        GetLogicalLine(text, lines.emplace_back());
    return lines;
}

using Lines = std::vector<tvstring>;

TEST(GetLogicalLine, TakesOnePhysicalLineAndLeavesTheNext) {
    std::u16string_view text = u"a = b\r\nc = d\r\n";
    tvstring line;
    GetLogicalLine(text, line);
    EXPECT_EQ(line, u"a = b");
    EXPECT_EQ(text, u"c = d");
}

TEST(GetLogicalLine, LeavesNoTextAtTheEnd) {
    std::u16string_view text = u"a = b\n \n\t\n";
    tvstring line;
    GetLogicalLine(text, line);
    EXPECT_EQ(line, u"a = b");
    EXPECT_TRUE(text.empty());
}

TEST(GetLogicalLine, GivesAnEmptyLineForAnEmptyText) {
    std::u16string_view text;
    tvstring line(u"old");
    EXPECT_EQ(GetLogicalLine(text, line).data(), nullptr);
    EXPECT_TRUE(line.empty());
}

TEST(GetLogicalLine, TakesATailWithoutALineEnd) {
    EXPECT_EQ(LogicalLines(u"a = b\nc = d"), (Lines{u"a = b", u"c = d"}));
}

TEST(GetLogicalLine, EndsPhysicalLinesAtLineFeedsOnly) {
    EXPECT_EQ(LogicalLines(u"a = b\rc = d"), (Lines{u"a = b\rc = d"}));
}

TEST(GetLogicalLine, TrimsEachLine) {
    EXPECT_EQ(LogicalLines(u" \t a = b \t\r\n\t[c] \n"), (Lines{u"a = b", u"[c]"}));
}

TEST(GetLogicalLine, SkipsEmptyLinesAndComments) {
    EXPECT_EQ(LogicalLines(u"\n ; one\r\n# two = 2\n\na = b\n;c = d"), (Lines{u"a = b"}));
}

TEST(GetLogicalLine, GivesAnEmptyLineForCommentsAlone) {
    EXPECT_EQ(LogicalLines(u"; one\n# two\n"), (Lines{u""}));
}

TEST(GetLogicalLine, JoinsALineWithoutAnEqualsSign) {
    EXPECT_EQ(LogicalLines(u"a = b\nand c\nand d\ne = f"), (Lines{u"a = b and c and d", u"e = f"}));
}

TEST(GetLogicalLine, JoinsBehindASectionHeadToo) {
    EXPECT_EQ(LogicalLines(u"[a]\nb\n[c]"), (Lines{u"[a] b", u"[c]"}));
}

TEST(GetLogicalLine, StopsAtASectionHead) {
    EXPECT_EQ(LogicalLines(u"a = b\n[c]\nd = e"), (Lines{u"a = b", u"[c]", u"d = e"}));
}

TEST(GetLogicalLine, StopsAtAnEmptySectionHead) {
    EXPECT_EQ(LogicalLines(u"a = b\n[]\n"), (Lines{u"a = b", u"[]"}));
}

TEST(GetLogicalLine, StopsAtASectionHeadThatContinues) {
    EXPECT_EQ(LogicalLines(u"a = b\n[c]\\\nd = e"), (Lines{u"a = b", u"[c] d = e"}));
}

TEST(GetLogicalLine, JoinsALoneBracket) {
    EXPECT_EQ(LogicalLines(u"a = b\n[\n]\n[c"), (Lines{u"a = b [ ] [c"}));
}

TEST(GetLogicalLine, PullsInAnyLineBehindAnOddBackslash) {
    EXPECT_EQ(LogicalLines(u"a = b\\\nc = d\\\n[e]\nf = g"), (Lines{u"a = b c = d [e]", u"f = g"}));
}

TEST(GetLogicalLine, EndsAtAnEvenNumberOfBackslashes) {
    EXPECT_EQ(LogicalLines(u"a = b\\\\\nc = d"), (Lines{u"a = b\\\\", u"c = d"}));
}

TEST(GetLogicalLine, CutsOneOfThreeBackslashes) {
    EXPECT_EQ(LogicalLines(u"a = b\\\\\\\nc = d"), (Lines{u"a = b\\\\ c = d"}));
}

TEST(GetLogicalLine, KeepsTheBlankInFrontOfACutBackslash) {
    EXPECT_EQ(LogicalLines(u"a = b \\\nc"), (Lines{u"a = b  c"}));
}

TEST(GetLogicalLine, CutsABackslashAtTheEndOfTheText) {
    EXPECT_EQ(LogicalLines(u"a = b\\"), (Lines{u"a = b"}));
}

TEST(GetLogicalLine, AddsNoBlankForALineOfABackslashAlone) {
    EXPECT_EQ(LogicalLines(u"\\\na = b\n\\\nc = d"), (Lines{u"a = b c = d"}));
}

TEST(GetLogicalLine, ACommentDoesNotEndAContinuedValue) {
    EXPECT_EQ(LogicalLines(u"a = b\\\n; comment\n\n# c = d\ne = f\ng"), (Lines{u"a = b e = f g"}));
}

TEST(GetLogicalLine, ABackslashDoesNotTurnACommentIntoText) {
    EXPECT_EQ(LogicalLines(u"; comment\\\na = b"), (Lines{u"a = b"}));
    EXPECT_EQ(LogicalLines(u"a = b\n; comment\\\nc = d"), (Lines{u"a = b", u"c = d"}));
}

TEST(GetLogicalLine, JoinsWithoutABlankBehindAnEscapedLineFeed) {
    EXPECT_EQ(LogicalLines(u"a = one\\n\ntwo"), (Lines{u"a = one\\ntwo"}));
    EXPECT_EQ(LogicalLines(u"a = one\\n\\\ntwo"), (Lines{u"a = one\\ntwo"}));
}

TEST(GetLogicalLine, JoinsWithoutABlankInFrontOfAnEscapedTab) {
    EXPECT_EQ(LogicalLines(u"a = one\n\\ttwo"), (Lines{u"a = one\\ttwo"}));
}

TEST(GetLogicalLine, JoinsWithABlankInFrontOfOtherEscapes) {
    EXPECT_EQ(LogicalLines(u"a = one\\t\n\\ntwo"), (Lines{u"a = one\\t \\ntwo"}));
}

TEST(GetLogicalLine, TellsWhereTheLineBegins) {
    const std::u16string_view document = u"; comment\n\n  a = b\nc\n[d]";
    std::u16string_view text = document;
    tvstring line;
    const std::u16string_view first = GetLogicalLine(text, line);
    EXPECT_EQ(first, u"a = b");
    EXPECT_EQ(first.data() - document.data(), 13);
    EXPECT_EQ(GetLogicalLine(text, line).data() - document.data(), 21);
}

TEST(GetLogicalLine, ReadsAHugeDocumentInOneGo) {
    constexpr std::size_t kLines = 200'000;
    std::u16string document;
    for (std::size_t i = 0; i < kLines; ++i)
        document += u"key = value\n";
    EXPECT_EQ(LogicalLines(document).size(), kLines);
}

// --- SplitKeyValue ---

// The pair as "key|value", or "none".
std::u16string Pair(std::u16string_view line) {
    tvstring key;
    tvstring value;
    if (!SplitKeyValue(line, key, value)) return u"none";
    return std::u16string(key) + u"|" + std::u16string(value);
}

TEST(SplitKeyValue, PartsAtTheFirstEqualsSign) {
    EXPECT_EQ(Pair(u"a = b"), u"a|b");
    EXPECT_EQ(Pair(u"a=b=c"), u"a|b=c");
    EXPECT_EQ(Pair(u"a b = c d"), u"a b|c d");
}

TEST(SplitKeyValue, TrimsLineKeyAndValue) {
    EXPECT_EQ(Pair(u" \t a \t=\r\n b \r\n"), u"a|b");
}

TEST(SplitKeyValue, TakesAnEmptyValue) {
    EXPECT_EQ(Pair(u"a="), u"a|");
    EXPECT_EQ(Pair(u"a = \t"), u"a|");
}

TEST(SplitKeyValue, GivesNoPairForAnEmptyLine) {
    EXPECT_EQ(Pair(u""), u"none");
    EXPECT_EQ(Pair(u" \t\r\n"), u"none");
}

TEST(SplitKeyValue, GivesNoPairWithoutAnEqualsSign) {
    EXPECT_EQ(Pair(u"a b"), u"none");
}

TEST(SplitKeyValue, GivesNoPairWithoutAKey) {
    EXPECT_EQ(Pair(u"=b"), u"none");
    EXPECT_EQ(Pair(u"  = b"), u"none");
}

TEST(SplitKeyValue, LeavesTheResultsAloneWithoutAPair) {
    tvstring key(u"k");
    tvstring value(u"v");
    EXPECT_FALSE(SplitKeyValue(u"=b", key, value));
    EXPECT_EQ(key, u"k");
    EXPECT_EQ(value, u"v");
}

TEST(SplitKeyValue, AQuotedKeyMayHoldEqualsSigns) {
    EXPECT_EQ(Pair(u"\"a=b\" = c"), u"a=b|c");
    EXPECT_EQ(Pair(u"'a=b=c'=d=e"), u"a=b=c|d=e");
}

TEST(SplitKeyValue, CutsQuotesOfEitherKind) {
    EXPECT_EQ(Pair(u"'a' = 'b'"), u"a|b");
    EXPECT_EQ(Pair(u"\"a\" = \"b\""), u"a|b");
    EXPECT_EQ(Pair(u"\"a\" = 'b'"), u"a|b");
}

TEST(SplitKeyValue, KeepsBlanksInsideQuotes) {
    EXPECT_EQ(Pair(u"' a ' = \" b \""), u" a | b ");
}

TEST(SplitKeyValue, AKeyMayBeginWithAnEqualsSignInQuotes) {
    EXPECT_EQ(Pair(u"\"=a\" = b"), u"=a|b");
    EXPECT_EQ(Pair(u"\"=\" = b"), u"=|b");
}

TEST(SplitKeyValue, GivesNoPairForAQuoteAlone) {
    EXPECT_EQ(Pair(u"\" = b"), u"none");
    EXPECT_EQ(Pair(u"'="), u"none");
}

TEST(SplitKeyValue, GivesNoPairForAnEmptyQuotedKey) {
    EXPECT_EQ(Pair(u"\"\" = b"), u"none");
    EXPECT_EQ(Pair(u"'' = b='c' = d"), u"none");
}

TEST(SplitKeyValue, AnUnclosedQuoteIsCutFromTheKey) {
    EXPECT_EQ(Pair(u"\"a = b"), u"a|b");
    EXPECT_EQ(Pair(u"\"a' = b"), u"a'|b");
}

TEST(SplitKeyValue, AnUnclosedQuoteTakesTheFirstEqualsSignWithAKey) {
    EXPECT_EQ(Pair(u"\"a = b = c"), u"a|b = c");
    EXPECT_EQ(Pair(u"\" = b = c"), u" = b|c");
}

TEST(SplitKeyValue, AnEscapedQuoteDoesNotCloseTheKey) {
    EXPECT_EQ(Pair(u"\"a\\\" = b\" = c"), u"a\\\" = b|c");
}

TEST(SplitKeyValue, AnEscapedLastQuoteIsCutFromTheKeyIfNoneCloses) {
    EXPECT_EQ(Pair(u"\"a\\\" = b"), u"a\\|b");
    EXPECT_EQ(Pair(u"\"a\\\" = b = c"), u"a\\|b = c");
}

TEST(SplitKeyValue, RemembersTheFirstCandidateOnly) {
    EXPECT_EQ(Pair(u"'a\\' = b\\' = c = d"), u"a\\|b\\' = c = d");
}

TEST(SplitKeyValue, AnEscapedBackslashDoesNotEscapeTheClosingQuote) {
    EXPECT_EQ(Pair(u"\"a\\\\\" = b=\" = c"), u"a\\\\|b=\" = c");
    EXPECT_EQ(Pair(u"a = \"b\\\\\""), u"a|b\\\\");
}

TEST(SplitKeyValue, AKeyMayBeOneEscapedBackslash) {
    EXPECT_EQ(Pair(u"\\\\ = b"), u"\\\\|b");
}

TEST(SplitKeyValue, KeepsASingleQuoteInTheValue) {
    EXPECT_EQ(Pair(u"a = 'b"), u"a|'b");
    EXPECT_EQ(Pair(u"a = b'"), u"a|b'");
    EXPECT_EQ(Pair(u"a = '"), u"a|'");
}

TEST(SplitKeyValue, KeepsUnequalQuotesInTheValue) {
    EXPECT_EQ(Pair(u"a = 'b\""), u"a|'b\"");
}

TEST(SplitKeyValue, KeepsTwoQuotesThatHoldNothing) {
    EXPECT_EQ(Pair(u"a = \"\""), u"a|\"\"");
    EXPECT_EQ(Pair(u"a = ''"), u"a|''");
}

TEST(SplitKeyValue, KeepsQuotesWhoseLastIsEscaped) {
    EXPECT_EQ(Pair(u"a = \"b\\\""), u"a|\"b\\\"");
}

TEST(SplitKeyValue, CutsTheOutermostQuotesOnly) {
    EXPECT_EQ(Pair(u"a = ''b''"), u"a|'b'");
    EXPECT_EQ(Pair(u"a = \"b\" and \"c\""), u"a|b\" and \"c");
}

TEST(SplitKeyValue, LeavesEscapesInPlace) {
    EXPECT_EQ(Pair(u"a\\t = \\n\\\\\\x"), u"a\\t|\\n\\\\\\x");
}

// --- Unescape ---

TEST(Unescape, ResolvesLineEndsAndTabs) {
    EXPECT_EQ(Unescape(u"a\\r\\nb\\tc"), u"a\r\nb\tc");
}

TEST(Unescape, CutsTheBackslashInFrontOfAQuote) {
    EXPECT_EQ(Unescape(u"\\\"a\\'"), u"\"a'");
}

TEST(Unescape, TurnsTwoBackslashesIntoOne) {
    EXPECT_EQ(Unescape(u"a\\\\b\\\\\\\\c"), u"a\\b\\\\c");
}

TEST(Unescape, AnEscapedBackslashStartsNoEscape) {
    EXPECT_EQ(Unescape(u"\\\\n"), u"\\n");
    EXPECT_EQ(Unescape(u"\\\\\\n"), u"\\\n");
}

TEST(Unescape, LeavesAnUnknownEscapeAsItStands) {
    EXPECT_EQ(Unescape(u"\\x\\N\\0\\ \\["), u"\\x\\N\\0\\ \\[");
}

TEST(Unescape, LeavesABackslashAtTheEnd) {
    EXPECT_EQ(Unescape(u"a\\"), u"a\\");
    EXPECT_EQ(Unescape(u"\\"), u"\\");
    EXPECT_EQ(Unescape(u"a\\\\\\"), u"a\\\\");
}

TEST(Unescape, DoesNotResolveItsOwnResult) {
    EXPECT_EQ(Unescape(u"\\\\\\\\n"), u"\\\\n");
}

TEST(Unescape, LeavesOtherTextAlone) {
    EXPECT_EQ(Unescape(u""), u"");
    EXPECT_EQ(Unescape(u"plain \"text\" 100%"), u"plain \"text\" 100%");
}

// --- ReadIniLine ---

TEST(ReadIniLine, TellsASectionHead) {
    const IniLine line = ReadIniLine(u"[a=\\tb]");
    EXPECT_EQ(line.kind, IniLine::Kind::Head);
    EXPECT_EQ(line.key, u"a=\tb");
}

TEST(ReadIniLine, KeepsBlanksInTheNameOfASection) {
    EXPECT_EQ(ReadIniLine(u"[ a ]").key, u" a ");
}

TEST(ReadIniLine, TellsAHeadWithoutAName) {
    const IniLine line = ReadIniLine(u"[]");
    EXPECT_EQ(line.kind, IniLine::Kind::Head);
    EXPECT_TRUE(line.key.empty());
}

TEST(ReadIniLine, UnescapesKeyAndValueOfAPair) {
    const IniLine line = ReadIniLine(u"\"a\\\"b\" = \\tc");
    EXPECT_EQ(line.kind, IniLine::Kind::Pair);
    EXPECT_EQ(line.key, u"a\"b");
    EXPECT_EQ(line.value, u"\tc");
}

TEST(ReadIniLine, CutsTheBackslashInFrontOfACommentMark) {
    EXPECT_EQ(ReadIniLine(u"\\;x = 1").key, u";x");
    EXPECT_EQ(ReadIniLine(u"\\#x = 1").key, u"#x");
    EXPECT_EQ(ReadIniLine(u"\\x = 1").key, u"\\x");
}

TEST(ReadIniLine, TellsALineThatIsNeither) {
    EXPECT_EQ(ReadIniLine(u"text").kind, IniLine::Kind::Other);
    EXPECT_EQ(ReadIniLine(u"=b").kind, IniLine::Kind::Other);
    EXPECT_EQ(ReadIniLine(u"[").kind, IniLine::Kind::Other);
    EXPECT_EQ(ReadIniLine(u"").kind, IniLine::Kind::Other);
}

}  // namespace
