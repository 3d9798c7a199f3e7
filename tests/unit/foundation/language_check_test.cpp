#include "foundation/language_check.h"

#include <gtest/gtest.h>

#include <string>

#include "foundation/language.h"
#include "foundation/textops.h"

namespace {

using Kind = LanguageFinding::Kind;

std::u16string_view NameOf(Kind kind) {
    switch (kind) {
        case Kind::BadLine:
            return u"bad";
        case Kind::DuplicateKey:
            return u"duplicate";
        case Kind::UnknownSection:
            return u"unknown section";
        case Kind::UnknownKey:
            return u"unknown key";
        case Kind::UnresolvedReference:
            return u"unresolved";
        case Kind::MissingKey:
            return u"missing";
    }
    return u"?";
}

constexpr const char16_t* kReference =
    u"[.info]\nname = English\ncreatedby = Tolvane\n[global]\nok = OK\nno = &No\n[file]\nopen = &Open\n";
constexpr const char16_t* kComplete = u"[.info]\nname = Test\n[global]\nok=1\nno=2\n[file]\nopen=3\n";

// The findings, a line each: "line kind [section] key: detail".
std::u16string Check(const tvstring& text, const tvstring& reference = kReference) {
    tvstring shown;
    for (const LanguageFinding& finding : CheckLanguage(text, reference)) {
        shown += FormatInt(static_cast<i32>(finding.line)) + u" " + NameOf(finding.kind);
        shown += tvstring(u" [") + finding.section + u"] " + finding.key + u": " + finding.detail + u"\n";
    }
    return std::u16string(shown);
}

// The findings of lines that stand behind a complete file of 7 lines.
std::u16string CheckBehind(const tvstring& lines) {
    return Check(tvstring(kComplete) + lines);
}

TEST(CheckLanguage, FindsNothingInACompleteFile) {
    EXPECT_EQ(Check(kComplete), u"");
}

TEST(CheckLanguage, FindsNothingInTheDefaultText) {
    EXPECT_EQ(Check(CVMRMLang::DefaultText(), CVMRMLang::DefaultText()), u"");
}

TEST(CheckLanguage, TellsMissingKeysInTheOrderOfTheReference) {
    EXPECT_EQ(Check(u"[.info]\nname = Test\n[global]\nok = 1"),
              u"0 missing [global] no: \n0 missing [file] open: \n");
}

TEST(CheckLanguage, TellsAllKeysOfAnEmptyFileOnce) {
    EXPECT_EQ(Check(u"", u"[a]\nx = 1\ny = 2\nX = 3"), u"0 missing [a] x: \n0 missing [a] y: \n");
}

TEST(CheckLanguage, AnEmptyValueIsNotMissing) {
    EXPECT_EQ(Check(u"[.info]\nname=Test\n[global]\nok=\nno=\n[file]\nopen="), u"");
}

TEST(CheckLanguage, FindsSectionsAndKeysInAnyCase) {
    EXPECT_EQ(Check(u"[.INFO]\nNAME=T\n[Global]\nOK=1\nNo=2\n[FILE]\nOpen=3"), u"");
}

TEST(CheckLanguage, WantsTheNameOfTheLanguageButNotItsMaker) {
    EXPECT_EQ(Check(u"[global]\nok=1\nno=2\n[file]\nopen=3"), u"0 missing [.info] name: \n");
}

TEST(CheckLanguage, AcceptsAnyKeyOfTheInfoSection) {
    EXPECT_EQ(CheckBehind(u"[.info]\nwebsite = x"), u"");
    EXPECT_EQ(Check(u"[.info]\nname = x", u"[a]"), u"");
}

TEST(CheckLanguage, TellsAnUnknownKey) {
    EXPECT_EQ(CheckBehind(u"clsoe = Close"), u"8 unknown key [file] clsoe: \n");
}

TEST(CheckLanguage, TellsAnUnknownSectionOnceAndNotItsKeys) {
    EXPECT_EQ(CheckBehind(u"[flie]\na = 1\n[file]\n[FLIE]\nb = 2"), u"8 unknown section [flie] : \n");
}

TEST(CheckLanguage, TellsADuplicateKeyWithTheEarlierValue) {
    EXPECT_EQ(CheckBehind(u"OPEN = again"), u"8 duplicate [file] OPEN: 3\n");
    EXPECT_EQ(CheckBehind(u"[other]\na = 1\na = 2"),
              u"8 unknown section [other] : \n10 duplicate [other] a: 1\n");
}

TEST(CheckLanguage, TellsALineThatIsNoPair) {
    EXPECT_EQ(CheckBehind(u"= value"), u"8 bad [file] : = value\n");
    EXPECT_EQ(CheckBehind(u"\"\" = value"), u"8 bad [file] : \"\" = value\n");
}

TEST(CheckLanguage, TellsLinesOutsideAnySection) {
    EXPECT_EQ(Check(tvstring(u"\n\na = 1\n\n") + kComplete), u"3 bad [] : a = 1\n");
    EXPECT_EQ(Check(tvstring(u"; comment\ntext\n") + kComplete), u"2 bad [] : text\n");
    EXPECT_EQ(CheckBehind(u"[]\nopen = 1"), u"9 bad [] : open = 1\n");
}

TEST(CheckLanguage, TellsAHeadThatIsSpoiltByTheLineBehindIt) {
    EXPECT_EQ(CheckBehind(u"[global]\ntext"), u"8 bad [file] : [global] text\n");
}

TEST(CheckLanguage, CountsPhysicalLines) {
    EXPECT_EQ(CheckBehind(u"\r\n; comment\r\n\r\nx1 = 1\\\r\n x2 = 2\r\nmore\r\n# comment\r\nx3 = 3\r\n"),
              u"11 unknown key [file] x1: \n15 unknown key [file] x3: \n");
}

TEST(CheckLanguage, CountsFromTheLineThatBeginsTheLogicalOne) {
    EXPECT_EQ(Check(tvstring(u"\n\\\n; comment\n[flie]\n") + kComplete), u"2 unknown section [flie] : \n");
}

TEST(CheckLanguage, TellsAnUnresolvedReference) {
    EXPECT_EQ(CheckBehind(u"open2 = %nothing"),
              u"8 unknown key [file] open2: \n8 unresolved [file] open2: %nothing\n");
}

TEST(CheckLanguage, TellsEachUnresolvedReferenceOfAValue) {
    EXPECT_EQ(
        Check(u"[.info]\nname=%a, %[b]c, 100%, %0, %%d\n[global]\nok=1\nno=%ok\n[file]\nopen=%[global]no!"),
        u"2 unresolved [.info] name: %a\n2 unresolved [.info] name: %[b]c\n");
}

TEST(CheckLanguage, AReferenceFindsConstantsTheOwnSectionAndTheDefaultOne) {
    EXPECT_EQ(Check(u"[.info]\nname=%app_name %dev_name\n[global]\nok=1\nno=2\n[file]\nopen=%ok"), u"");
    EXPECT_EQ(Check(u"[.info]\nname=T\ncreatedby=%name\n[global]\nok=1\nno=2\n[file]\nopen=3"), u"");
}

TEST(CheckLanguage, AReferenceDoesNotFindWhatStandsFurtherDown) {
    EXPECT_EQ(Check(u"[.info]\nname=T\n[global]\nno=%ok\nok=1\n[file]\nopen=3"),
              u"4 unresolved [global] no: %ok\n");
}

TEST(CheckLanguage, AReferenceDoesNotFindWhatOnlyTheReferenceTextHas) {
    EXPECT_EQ(Check(u"[.info]\nname=T\n[file]\nopen=%ok"),
              u"4 unresolved [file] open: %ok\n0 missing [global] ok: \n0 missing [global] no: \n");
}

TEST(CheckLanguage, AReferenceDoesNotFindAnEmptyValue) {
    EXPECT_EQ(Check(u"[.info]\nname=T\n[global]\nok=\nno=%ok\n[file]\nopen=3"),
              u"5 unresolved [global] no: %ok\n");
}

// What the checker says of references has to be what a table does with them.
TEST(CheckLanguage, AgreesWithTheTable) {
    const tvstring text = u"[global]\nok=1\n[file]\na=%ok %late %[global]ok %[file]none\nlate=%a";
    tvmlang table(u"global");
    table.Parse(text);
    EXPECT_EQ(table.Get(u"file", u"a"), u"1 %late 1 %[file]none");
    EXPECT_EQ(Check(text, text), u"4 unresolved [file] a: %late\n4 unresolved [file] a: %[file]none\n");
}

}  // namespace
