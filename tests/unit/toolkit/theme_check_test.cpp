#include "toolkit/theme_check.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "foundation/textops.h"
#include "tests/unit/toolkit/theme_texts.h"

namespace {

using Kind = ThemeFinding::Kind;

std::u16string_view NameOf(Kind kind) {
    switch (kind) {
        case Kind::WrongVersion:
            return u"version";
        case Kind::BadColor:
            return u"color";
        case Kind::UnknownRole:
            return u"role";
        case Kind::Cycle:
            return u"cycle";
        case Kind::MissingKey:
            return u"missing";
        case Kind::BadLine:
            return u"bad";
        case Kind::UnknownSection:
            return u"section";
        case Kind::UnknownKey:
            return u"key";
        case Kind::DuplicateKey:
            return u"duplicate";
    }
    return u"?";
}

// The findings, a line each: "line kind key: detail".
std::u16string Check(const tvstring& text) {
    tvstring shown;
    for (const ThemeFinding& finding : CheckTheme(text)) {
        shown += FormatInt(static_cast<i32>(finding.line)) + u" " + NameOf(finding.kind) + u" ";
        shown += finding.key + u": " + finding.detail + u"\n";
    }
    return std::u16string(shown);
}

// The findings of lines that stand behind a complete theme of 15 lines.
std::u16string CheckBehind(const tvstring& lines) {
    return Check(ThemeText() + lines);
}

bool IsRefused(const tvstring& text) {
    tvini document(kThemeSection);
    document.Parse(text);
    tvColorTheme theme;
    return !theme.Take(document);
}

bool HasFindingOfTheFirstGroup(const tvstring& text) {
    for (const ThemeFinding& finding : CheckTheme(text)) {
        if (finding.kind <= Kind::MissingKey) return true;
    }
    return false;
}

constexpr const char16_t* kAllMissing =
    u"0 missing _version: \n0 missing _name: \n0 missing base: \n0 missing border: \n0 missing "
    u"border_active: \n"
    u"0 missing button: \n0 missing button_over: \n0 missing button_push: \n0 missing button_disable: \n"
    u"0 missing text: \n0 missing text_gray: \n0 missing edit_bg: \n0 missing link: \n0 missing icon: \n";

TEST(CheckTheme, FindsNothingInAGoodTheme) {
    EXPECT_EQ(Check(ThemeText()), u"");
    EXPECT_EQ(Check(ThemeText(u"x", u"button", u"%base")), u"");
}

TEST(CheckTheme, TellsAllKeysOfAnEmptyFile) {
    EXPECT_EQ(Check(u""), kAllMissing);
    EXPECT_EQ(Check(u"[colortheme]"), kAllMissing);
    EXPECT_EQ(Check(u"# nothing\n;\n"), kAllMissing);
}

TEST(CheckTheme, TellsEachMissingKey) {
    for (const ThemeRole& role : kThemeRoles) {
        EXPECT_EQ(Check(ThemeText(u"Test", role.key)),
                  std::u16string(u"0 missing ").append(role.key).append(u": \n"));
    }
}

TEST(CheckTheme, TellsAnEmptyKeyWithItsLine) {
    EXPECT_EQ(Check(ThemeText(u"")), u"3 missing _name: \n");
    EXPECT_EQ(Check(ThemeText(u"Test", u"base", u"")), u"4 missing base: \n");
    EXPECT_EQ(Check(ThemeText(u"Test", u"icon", u"")), u"15 missing icon: \n");
}

TEST(CheckTheme, TellsAnotherVersion) {
    EXPECT_EQ(Check(u"[colortheme]\n_version = tvtheme_1_0" + ThemeText().substr(35)),
              u"2 version _version: tvtheme_1_0\n");
    EXPECT_EQ(Check(u"[colortheme]\n_version =" + ThemeText().substr(35)), u"2 version _version: \n");
}

TEST(CheckTheme, TellsAValueThatIsNoColor) {
    EXPECT_EQ(Check(ThemeText(u"Test", u"base", u"none")), u"4 color base: none\n");
    EXPECT_EQ(Check(ThemeText(u"Test", u"icon", u"rgb(1,2)")), u"15 color icon: rgb(1,2)\n");
    EXPECT_EQ(Check(ThemeText(u"Test", u"icon", u"0x1000000")), u"15 color icon: 0x1000000\n");
    EXPECT_EQ(Check(ThemeText(u"Test", u"icon", u"0xFFFFFF")), u"");
}

TEST(CheckTheme, TellsAReferenceToNoRole) {
    EXPECT_EQ(Check(ThemeText(u"Test", u"base", u"%foo")), u"4 role base: %foo\n");
    EXPECT_EQ(Check(ThemeText(u"Test", u"base", u"%")), u"4 role base: %\n");
    EXPECT_EQ(Check(ThemeText(u"Test", u"base", u"%_name")), u"4 role base: %_name\n");
}

TEST(CheckTheme, TellsACycleAtEachOfItsRoles) {
    EXPECT_EQ(Check(ThemeText(u"Test", u"base", u"%BASE")), u"4 cycle base: %BASE\n");
    EXPECT_EQ(Check(ThemeText(u"Test", u"base", u"%border") + u"border = %base\n"),
              u"4 cycle base: %border\n16 duplicate border: 0x2\n16 cycle border: %base\n");
}

TEST(CheckTheme, DoesNotTellAReferenceThatLeadsIntoACycle) {
    EXPECT_EQ(Check(ThemeText(u"Test", u"base", u"%border") + u"border = %border\n"),
              u"16 duplicate border: 0x2\n16 cycle border: %border\n");
}

TEST(CheckTheme, TellsACycleOfAllRoles) {
    tvstring text = u"[colortheme]\n_version=TVTHEME_1_0\n_name=x\n";
    for (std::size_t i = 0; i < kThemeRoles.size(); ++i)
        text += tvstring(kThemeRoles[i].key) + u"=%" + kThemeRoles[(i + 1) % kThemeRoles.size()].key + u"\n";
    ASSERT_EQ(CheckTheme(text).size(), 12U);
    EXPECT_EQ(CheckTheme(text)[11].kind, Kind::Cycle);
}

TEST(CheckTheme, DoesNotFollowAReferenceThroughAKeyThatIsNoRole) {
    EXPECT_EQ(Check(ThemeText(u"Test", u"base", u"%foo") + u"foo = %icon\nicon = %base\n"),
              u"4 role base: %foo\n16 key foo: \n17 duplicate icon: 0xc\n");
}

TEST(CheckTheme, DoesNotTellAReferenceToABadOrMissingRole) {
    EXPECT_EQ(Check(ThemeText(u"Test", u"icon") + u"base = %icon\n"),
              u"15 duplicate base: 0x1\n0 missing icon: \n");
    EXPECT_EQ(Check(ThemeText(u"Test", u"icon", u"none") + u"base = %icon\n"),
              u"15 color icon: none\n16 duplicate base: 0x1\n");
}

TEST(CheckTheme, TellsALineThatIsNoPair) {
    EXPECT_EQ(CheckBehind(u"= 7\n"), u"16 bad : = 7\n");
    EXPECT_EQ(CheckBehind(u"[other]\n= 7\n"), u"16 section other: \n17 bad : = 7\n");
}

TEST(CheckTheme, TellsLinesOutsideAnySection) {
    EXPECT_EQ(Check(tvstring(u"x = 1\n") + ThemeText()), u"1 bad : x = 1\n");
    EXPECT_EQ(CheckBehind(u"[]\nbase = 1\n"), u"17 bad : base = 1\n");
}

TEST(CheckTheme, TellsAnUnknownSectionOnceAndNotItsKeys) {
    EXPECT_EQ(CheckBehind(u"[other]\na = 1\n[ColorTheme]\n[OTHER]\nb = 1\nb = 2\n"), u"16 section other: \n");
}

TEST(CheckTheme, TellsAnUnknownKeyEachTime) {
    EXPECT_EQ(CheckBehind(u"x = 1\n_author = 2\nX = 3\n"),
              u"16 key x: \n17 key _author: \n18 key X: \n18 duplicate X: 1\n");
}

TEST(CheckTheme, TellsADuplicateKeyAndTakesTheLaterValue) {
    EXPECT_EQ(CheckBehind(u"BASE = none\n"), u"16 duplicate BASE: 0x1\n16 color base: none\n");
    EXPECT_EQ(Check(ThemeText(u"Test", u"base", u"none") + u"base = 1\n"), u"16 duplicate base: none\n");
    EXPECT_EQ(CheckBehind(u"_version = x\n_VERSION = TVTHEME_1_0\n"),
              u"16 duplicate _version: TVTHEME_1_0\n17 duplicate _VERSION: x\n");
    EXPECT_EQ(CheckBehind(u"_name =\n"), u"16 duplicate _name: Test\n16 missing _name: \n");
}

TEST(CheckTheme, TakesSectionsInPiecesAndInAnyCase) {
    const tvstring text = ThemeText();
    const std::size_t middle = text.find(u"text");
    EXPECT_EQ(Check(text.substr(0, middle) + u"[x]\ny=1\n[COLORTHEME]\n" + text.substr(middle)),
              u"11 section x: \n");
}

TEST(CheckTheme, TellsFindingsInTheOrderOfTheFile) {
    EXPECT_EQ(
        Check(u"[colortheme]\nx = 1\nicon = none\n_version = 1\nbase = none\n_name =\ny = 2\n"),
        std::u16string(u"2 key x: \n3 color icon: none\n4 version _version: 1\n5 color base: none\n"
                       u"6 missing _name: \n7 key y: \n"
                       u"0 missing border: \n0 missing border_active: \n0 missing button: \n"
                       u"0 missing button_over: \n0 missing button_push: \n0 missing button_disable: \n"
                       u"0 missing text: \n0 missing text_gray: \n0 missing edit_bg: \n0 missing link: \n"));
}

TEST(CheckTheme, CountsPhysicalLines) {
    EXPECT_EQ(Check(tvstring(u"\r\n# comment\r\n\r\n") + ThemeText() + u"x = \\\r\n 1\r\ny = 2"),
              u"19 key x: \n21 key y: \n");
}

// What the program passes over must be found, and nothing else must be told as if it were passed over.
TEST(CheckTheme, AgreesWithTheProgram) {
    const std::vector<const char16_t*> lines = {
        u"base = none",     u"base = %text", u"text = %base",      u"icon = %link", u"link = %icon",
        u"link = #123",     u"base =",       u"_name =",           u"_version = 1", u"_version = TVTHEME_1_0",
        u"_name = x",       u"[other]",      u"[colortheme]",      u"[]",           u"icon = %foo",
        u"icon = 16777216", u"foo = %base",  u"icon = rgb(1,2,3)", u"base = 3",     u"= x",
        u"text = 0\\",      u"\"text\" = 5", u"text = \" %base\"", u"icon = 5",     u"TEXT = %ICON",
    };
    std::mt19937 random(1);
    int refused = 0;
    for (int round = 0; round < 2000; ++round) {
        tvstring text = ThemeText();
        for (std::size_t count = random() % 5; count > 0; --count)
            text += tvstring(lines[random() % lines.size()]) + u"\n";
        ASSERT_EQ(HasFindingOfTheFirstGroup(text), IsRefused(text)) << round;
        if (IsRefused(text)) ++refused;
    }
    EXPECT_GT(refused, 200);
    EXPECT_LT(refused, 1800);
}

}  // namespace
