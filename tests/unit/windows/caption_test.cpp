#include "windows/caption.h"

#include <gtest/gtest.h>

namespace {

TEST(Caption, LosesItsMarks) {
    EXPECT_EQ(WithoutMarks(u"Rena&me Database"), u"Rename Database");
    EXPECT_EQ(WithoutMarks(u"&Save"), u"Save");
    EXPECT_EQ(WithoutMarks(u"Save&"), u"Save");
    EXPECT_EQ(WithoutMarks(u"&A &B"), u"A B");
}

TEST(Caption, LosesTheBracketsAroundAMark) {
    EXPECT_EQ(WithoutMarks(u"Speichern (&S)"), u"Speichern");
    EXPECT_EQ(WithoutMarks(u"Save[&S]..."), u"Save...");
    EXPECT_EQ(WithoutMarks(u"(&A)(&B)x"), u"x");
}

TEST(Caption, KeepsBracketsThatDoNotMatchOrStandElsewhere) {
    EXPECT_EQ(WithoutMarks(u"a(&S]"), u"a(S]");
    EXPECT_EQ(WithoutMarks(u"a[&S)"), u"a[S)");
    EXPECT_EQ(WithoutMarks(u"a(&Save)"), u"a(Save)");
    EXPECT_EQ(WithoutMarks(u"(&)"), u"()");
    EXPECT_EQ(WithoutMarks(u"&S)"), u"S)");
}

TEST(Caption, KeepsADoubledMark) {
    EXPECT_EQ(WithoutMarks(u"Cut && paste"), u"Cut && paste");
    EXPECT_EQ(WithoutMarks(u"&&&x"), u"&&x");
}

TEST(Caption, IsTrimmedAtBothEnds) {
    EXPECT_EQ(WithoutMarks(u" \t x y\r\n"), u"x y");
    EXPECT_EQ(WithoutMarks(u"  &x "), u"x");
    EXPECT_EQ(WithoutMarks(u""), u"");
}

TEST(Caption, LosesItsShortcut) {
    tvstring text = u"&Save\tCtrl+S\tand more";
    CutShortcut(text);
    EXPECT_EQ(text, u"&Save");
    CutShortcut(text);
    EXPECT_EQ(text, u"&Save");
}

}  // namespace
