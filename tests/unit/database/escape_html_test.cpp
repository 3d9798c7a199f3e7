#include <gtest/gtest.h>

#include "database/export.h"

namespace {

tvstring Escaped(tvstring text) {
    EscapeHtml(text);
    return text;
}

TEST(EscapeHtml, ReplacesTheFourMarks) {
    EXPECT_EQ(Escaped(u"&"), u"&amp;");
    EXPECT_EQ(Escaped(u"<"), u"&lt;");
    EXPECT_EQ(Escaped(u">"), u"&gt;");
    EXPECT_EQ(Escaped(u"\""), u"&quot;");
}

TEST(EscapeHtml, LeavesTheSingleQuote) {
    EXPECT_EQ(Escaped(u"it's 'so'"), u"it's 'so'");
    EXPECT_EQ(Escaped(u"'<'"), u"'&lt;'");
}

TEST(EscapeHtml, DoesNotSearchAReplacementAgain) {
    EXPECT_EQ(Escaped(u"&amp;"), u"&amp;amp;");
    EXPECT_EQ(Escaped(u"&lt;"), u"&amp;lt;");
    EXPECT_EQ(Escaped(u"&&"), u"&amp;&amp;");
}

TEST(EscapeHtml, ReplacesAtBothEndsAndInBetween) {
    EXPECT_EQ(Escaped(u"<a href=\"x\">b & c</a>"), u"&lt;a href=&quot;x&quot;&gt;b &amp; c&lt;/a&gt;");
}

TEST(EscapeHtml, LeavesATextWithoutMarks) {
    EXPECT_EQ(Escaped(u""), u"");
    EXPECT_EQ(Escaped(u"a\tb\r\nc \u00e4 \U0001F511 \xFFFF"), u"a\tb\r\nc \u00e4 \U0001F511 \xFFFF");
}

TEST(EscapeHtml, KeepsZeroUnits) {
    EXPECT_EQ(Escaped(tvstring(u"a\0<\0b", 5)), tvstring(u"a\0&lt;\0b", 8));
}

}  // namespace
