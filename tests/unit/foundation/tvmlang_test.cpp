#include "foundation/tvmlang.h"

#include <gtest/gtest.h>

#include <string>

#include "foundation/textfile.h"
#include "tests/unit/test_files.h"

namespace {

// A table with some texts to refer to. The default section is "global".
class TvmlangTest : public testing::Test {
protected:
    TvmlangTest() {
        table.SetConst(u"app_name", u"Vaultmere");
        table.Set(u"global", u"ok", u"OK");
        table.Set(u"global", u"open", u"Open globally");
        table.Set(u"file", u"new", u"Create &New Database...");
        table.Set(u"file", u"open", u"&Open Database...");
        table.Set(u"file", u"save", u"&Save\tCtrl+S");
    }

    // The text that a value in [file] becomes.
    tvstring Expanded(const tvstring& value, const tvstring& section = u"file") {
        table.Set(section, u"expanded", value);
        return table.Get(section, u"expanded");
    }

    tvmlang table{u"global"};
};

// --- SetConst and Set ---

TEST_F(TvmlangTest, SetConstRefusesAnEmptyKey) {
    EXPECT_FALSE(table.SetConst(u"", u"text"));
    EXPECT_TRUE(table.SetConst(u"key", u""));
}

TEST_F(TvmlangTest, SetConstReplacesInAnyCase) {
    EXPECT_TRUE(table.SetConst(u"APP_NAME", u"Other"));
    EXPECT_EQ(Expanded(u"%app_name"), u"Other");
}

TEST_F(TvmlangTest, ConstantsStandOutsideTheSections) {
    EXPECT_EQ(table.Find(u"global", u"app_name"), nullptr);
    table.Clear();
    EXPECT_EQ(Expanded(u"%app_name"), u"Vaultmere");
}

TEST_F(TvmlangTest, SetRefusesAnEmptySectionOrKey) {
    EXPECT_FALSE(table.Set(u"", u"key", u"text"));
    EXPECT_FALSE(table.Set(u"file", u"", u"text"));
}

TEST_F(TvmlangTest, SetStoresANewValueAndReplacesAnOldOne) {
    EXPECT_TRUE(table.Set(u"new section", u"key", u"one"));
    EXPECT_TRUE(table.Set(u"NEW SECTION", u"KEY", u"two"));
    EXPECT_EQ(table.Get(u"new section", u"key"), u"two");
}

TEST_F(TvmlangTest, SetStoresAnEmptyValue) {
    EXPECT_TRUE(table.Set(u"file", u"empty", u""));
    ASSERT_NE(table.Find(u"file", u"empty"), nullptr);
}

// --- Where references are found ---

TEST_F(TvmlangTest, AConstantComesBeforeTheSections) {
    table.SetConst(u"open", u"constant");
    EXPECT_EQ(Expanded(u"%open"), u"constant");
}

TEST_F(TvmlangTest, TheOwnSectionComesBeforeTheDefaultOne) {
    EXPECT_EQ(Expanded(u"%open"), u"&Open Database...");
    EXPECT_EQ(Expanded(u"%open", u"other"), u"Open globally");
}

TEST_F(TvmlangTest, TheDefaultSectionComesLast) {
    EXPECT_EQ(Expanded(u"click %ok to confirm", u"itemdetail"), u"click OK to confirm");
}

TEST_F(TvmlangTest, ANamedSectionIsTheOnlyOne) {
    EXPECT_EQ(Expanded(u"%[file]new", u"start"), u"Create &New Database...");
    EXPECT_EQ(Expanded(u"%[file]ok"), u"%[file]ok");
    EXPECT_EQ(Expanded(u"%[file]app_name"), u"%[file]app_name");
}

TEST_F(TvmlangTest, FindsSectionsAndKeysInAnyCase) {
    EXPECT_EQ(Expanded(u"%[FILE]New"), u"Create &New Database...");
    EXPECT_EQ(Expanded(u"%APP_name"), u"Vaultmere");
}

TEST_F(TvmlangTest, LeavesAnUnknownReferenceAsItStands) {
    EXPECT_EQ(Expanded(u"%unknown"), u"%unknown");
    EXPECT_EQ(Expanded(u"an %unknown one"), u"an %unknown one");
    EXPECT_EQ(Expanded(u"%[nosuch]key"), u"%[nosuch]key");
}

TEST_F(TvmlangTest, LeavesAReferenceToAnEmptyValueAsItStands) {
    table.Set(u"file", u"ok", u"");
    EXPECT_EQ(Expanded(u"%[file]ok"), u"%[file]ok");
    EXPECT_EQ(Expanded(u"%ok"), u"%ok");
}

TEST_F(TvmlangTest, AnEmptyConstantHidesTheSections) {
    table.SetConst(u"open", u"");
    EXPECT_EQ(Expanded(u"%open"), u"%open");
}

TEST_F(TvmlangTest, LeavesAReferenceWithEmptyBracketsAsItStands) {
    EXPECT_EQ(Expanded(u"%[]ok"), u"%[]ok");
}

TEST_F(TvmlangTest, ReferencesPointBackwardOnly) {
    table.Parse(u"[file]\nearly = %late\nlate = text\nafter = %late");
    EXPECT_EQ(table.Get(u"file", u"early"), u"%late");
    EXPECT_EQ(table.Get(u"file", u"after"), u"text");
}

TEST_F(TvmlangTest, AKeyMayReferToItsOwnEarlierValue) {
    table.Parse(u"[file]\na = one\na = %a and two");
    EXPECT_EQ(table.Get(u"file", u"a"), u"one and two");
}

TEST_F(TvmlangTest, AReferenceFindsAKeyWhoseLineCameEarlierInTheSameSectionNamedAgain) {
    table.Parse(u"[file]\na = one\n[other]\nb = 1\n[FILE]\nc = %a");
    EXPECT_EQ(table.Get(u"file", u"c"), u"one");
}

// --- What is a reference ---

TEST_F(TvmlangTest, LeavesAPercentSignAtTheEnd) {
    EXPECT_EQ(Expanded(u"100%"), u"100%");
    EXPECT_EQ(Expanded(u"%"), u"%");
}

TEST_F(TvmlangTest, LeavesDoubledPercentSignsInTheTable) {
    EXPECT_EQ(Expanded(u"%%"), u"%%");
    EXPECT_EQ(Expanded(u"%%ok"), u"%%ok");
    EXPECT_EQ(Expanded(u"%%%ok"), u"%%OK");
}

TEST_F(TvmlangTest, LeavesArgumentsInTheTable) {
    table.SetConst(u"0", u"no");
    table.SetConst(u"9a", u"no");
    EXPECT_EQ(Expanded(u"%0 and %9a"), u"%0 and %9a");
}

TEST_F(TvmlangTest, GoesOnBehindWhatIsNoReference) {
    EXPECT_EQ(Expanded(u"% %ok"), u"% OK");
    EXPECT_EQ(Expanded(u"%-%ok"), u"%-OK");
    EXPECT_EQ(Expanded(u"%[%ok"), u"%[OK");
    EXPECT_EQ(Expanded(u"%[x] %ok"), u"%[x] OK");
    EXPECT_EQ(Expanded(u"%unknown%ok"), u"%unknownOK");
    EXPECT_EQ(Expanded(u"%0%ok"), u"%0OK");
}

TEST_F(TvmlangTest, APercentSignInBracketsIsPartOfTheSection) {
    EXPECT_EQ(Expanded(u"%[%ok]ok"), u"%[%ok]ok");
    EXPECT_EQ(Expanded(u"%[%ok]"), u"%[OK]");
}

TEST_F(TvmlangTest, ANameEndsAtTheFirstOtherUnit) {
    EXPECT_EQ(Expanded(u"%ok."), u"OK.");
    EXPECT_EQ(Expanded(u"%ok\u00E9"), u"OK\u00E9");
    EXPECT_EQ(Expanded(u"(%ok)"), u"(OK)");
    EXPECT_EQ(Expanded(u"%ok%ok"), u"OKOK");
}

TEST_F(TvmlangTest, ANameMayHoldDigitsDashesAndUnderscores) {
    table.SetConst(u"a-1_B", u"text");
    EXPECT_EQ(Expanded(u"%a-1_B"), u"text");
    table.SetConst(u"-x", u"dash");
    EXPECT_EQ(Expanded(u"%-x"), u"dash");
}

TEST_F(TvmlangTest, ADashOrUnderscoreAtTheEndIsNotPartOfTheName) {
    EXPECT_EQ(Expanded(u"%ok-"), u"OK-");
    EXPECT_EQ(Expanded(u"%ok_-_"), u"OK_-_");
    EXPECT_EQ(Expanded(u"%_"), u"%_");
}

TEST_F(TvmlangTest, ANameInASectionMayBeginWithADigit) {
    table.Set(u"file", u"0", u"zero");
    EXPECT_EQ(Expanded(u"%[file]0"), u"zero");
}

TEST_F(TvmlangTest, ASectionIsNotTrimmed) {
    EXPECT_EQ(Expanded(u"%[ file ]new"), u"%[ file ]new");
    EXPECT_EQ(Expanded(u"%[file] new"), u"%[file] new");
}

TEST_F(TvmlangTest, DoesNotExpandWhatAReferenceBrought) {
    table.Set(u"file", u"first", u"%second and %%");
    table.Set(u"file", u"second", u"2");
    EXPECT_EQ(Expanded(u"%first"), u"%second and %%");
    EXPECT_EQ(Expanded(u"x %first %second"), u"x %second and %% 2");
}

// --- The text of a reference ---

TEST_F(TvmlangTest, AWholeValueIsTakenAsItIs) {
    EXPECT_EQ(Expanded(u"%new"), u"Create &New Database...");
    EXPECT_EQ(Expanded(u"%save"), u"&Save\tCtrl+S");
}

TEST_F(TvmlangTest, AnEmbeddedMenuTextIsCleaned) {
    EXPECT_EQ(Expanded(u"Click \"%open\"!"), u"Click \"Open Database\"!");
    EXPECT_EQ(Expanded(u"%save now"), u"Save now");
    EXPECT_EQ(Expanded(u"%open-"), u"Open Database-");
}

TEST_F(TvmlangTest, AnEmbeddedTextWithoutAMarkIsTakenAsItIs) {
    table.Set(u"file", u"plain", u"Wait...\tnow");
    EXPECT_EQ(Expanded(u"%plain!"), u"Wait...\tnow!");
}

TEST_F(TvmlangTest, AReferenceThatIsLeftWhenAnotherBecameNothingIsTheWholeValue) {
    table.Set(u"file", u"mark", u"&");
    EXPECT_EQ(Expanded(u"%mark%open"), u"&Open Database...");
}

TEST(CleanReference, CutsAMarkInBrackets) {
    EXPECT_EQ(CleanReference(u"Open (&O)..."), u"Open ");
    EXPECT_EQ(CleanReference(u"\u6253\u5F00(&O)"), u"\u6253\u5F00");
    EXPECT_EQ(CleanReference(u"\u6253\u5F00[&O]..."), u"\u6253\u5F00");
    EXPECT_EQ(CleanReference(u"(&O)pen"), u"pen");
}

TEST(CleanReference, LeavesTheBracketsOfAShortText) {
    EXPECT_EQ(CleanReference(u"(&O)"), u"(O)");
    EXPECT_EQ(CleanReference(u"a(&O)"), u"a");
}

TEST(CleanReference, LeavesUnequalBrackets) {
    EXPECT_EQ(CleanReference(u"Open(&O]"), u"Open(O]");
    EXPECT_EQ(CleanReference(u"Open[&O)"), u"Open[O)");
    EXPECT_EQ(CleanReference(u"Open(&Op)"), u"Open(Op)");
    EXPECT_EQ(CleanReference(u"Open{&O}"), u"Open{O}");
}

TEST(CleanReference, LeavesAMarkTooCloseToTheEnds) {
    EXPECT_EQ(CleanReference(u"&Open)"), u"Open)");
    EXPECT_EQ(CleanReference(u"Open(&O"), u"Open(O");
}

TEST(CleanReference, LooksForBracketsAtTheFirstMarkOnly) {
    EXPECT_EQ(CleanReference(u"&Open (&O)"), u"Open (O)");
    EXPECT_EQ(CleanReference(u"R&&D (&R)"), u"R&&D (R)");
    EXPECT_EQ(CleanReference(u"Open(&&)"), u"Open(&&)");
}

TEST(CleanReference, CutsTheShortcut) {
    EXPECT_EQ(CleanReference(u"&Copy\tCtrl+C"), u"Copy");
    EXPECT_EQ(CleanReference(u"\t\t&Copy\tCtrl+C"), u"\t\tCopy");
    EXPECT_EQ(CleanReference(u"Copy\tAlt+&C"), u"Copy");
}

TEST(CleanReference, CutsExactlyThreeDots) {
    EXPECT_EQ(CleanReference(u"&Open..."), u"Open");
    EXPECT_EQ(CleanReference(u"&Open.."), u"Open..");
    EXPECT_EQ(CleanReference(u"&Open...."), u"Open....");
    EXPECT_EQ(CleanReference(u"&Open...\tF3"), u"Open");
}

TEST(CleanReference, CutsSingleMarksAndLeavesDoubledOnes) {
    EXPECT_EQ(CleanReference(u"R&&D &Tools"), u"R&&D Tools");
    EXPECT_EQ(CleanReference(u"a&&&b"), u"a&&b");
    EXPECT_EQ(CleanReference(u"end&"), u"end");
}

TEST(CleanReference, LeavesATextWithoutAMark) {
    EXPECT_EQ(CleanReference(u"Wait...\tF3"), u"Wait...\tF3");
    EXPECT_EQ(CleanReference(u""), u"");
}

TEST(ExpandReferences, StaysFastInAValueFullOfOpenBrackets) {
    constexpr std::size_t kMany = 200'000;
    std::u16string open;
    for (std::size_t i = 0; i < kMany; ++i)
        open += u"%[";
    const ReferenceLookup nothing = [](const LanguageReference&) -> const tvstring* { return nullptr; };
    for (const std::u16string& end : {std::u16string(), u"]" + std::u16string(kMany, u'-')}) {
        tvstring value(open + end);
        ExpandReferences(value, nothing);
        EXPECT_EQ(value, std::u16string_view(open + end));
    }
}

// --- Arguments ---

TEST(PutArguments, PutsEachInItsPlace) {
    EXPECT_EQ(PutArguments(u"%5%4%3%2%1%0-%0", {u"a", u"b", u"c", u"d", u"e", u"f"}), u"fedcba-a");
}

TEST(PutArguments, TakesAMissingArgumentForEmpty) {
    EXPECT_EQ(PutArguments(u"[%0|%1]", {u"a"}), u"[a|]");
}

TEST(PutArguments, DoesNotExpandAnArgument) {
    EXPECT_EQ(PutArguments(u"%0 %1", {u"%1%%", u"b"}), u"%1%% b");
}

TEST(PutArguments, TurnsADoubledPercentSignIntoOne) {
    EXPECT_EQ(PutArguments(u"100%% of %%0", {u"a"}), u"100% of %0");
    EXPECT_EQ(PutArguments(u"%%%%", {}), u"%%");
}

TEST(PutArguments, LeavesAPercentSignAtTheEnd) {
    EXPECT_EQ(PutArguments(u"100%", {u"a"}), u"100%");
    EXPECT_EQ(PutArguments(u"%%%", {u"a"}), u"%%");
    EXPECT_EQ(PutArguments(u"", {u"a"}), u"");
}

TEST(PutArguments, LeavesOtherSignsWithTheUnitBehindThem) {
    EXPECT_EQ(PutArguments(u"%6 %9 %x %", {u"a"}), u"%6 %9 %x %");
    EXPECT_EQ(PutArguments(u"%x%0 %/", {u"a"}), u"%xa %/");
}

// --- LoadOverlay ---

class LoadOverlayTest : public TvmlangTest {
protected:
    bool Overlay(const tvstring& text) {
        const tvstring path = folder.Path(u"overlay.ini");
        EXPECT_TRUE(WriteTextFile(text, path, TEXT_UTF8));
        return table.LoadOverlay(path);
    }

    TempFolder folder;
};

TEST_F(LoadOverlayTest, TheFileComesFirst) {
    EXPECT_TRUE(Overlay(u"[file]\nOPEN = \u00D6ffnen"));
    EXPECT_EQ(table.Get(u"file", u"open"), u"\u00D6ffnen");
}

TEST_F(LoadOverlayTest, KeysThatTheFileLacksKeepTheirTexts) {
    EXPECT_TRUE(Overlay(u"[file]\nopen = x"));
    EXPECT_EQ(table.Get(u"file", u"new"), u"Create &New Database...");
}

TEST_F(LoadOverlayTest, SectionsThatTheFileLacksAreAddedWhole) {
    EXPECT_TRUE(Overlay(u"[file]\nopen = x\n[other]\nkey = y"));
    EXPECT_EQ(table.Get(u"global", u"ok"), u"OK");
    EXPECT_EQ(table.Get(u"other", u"key"), u"y");
    EXPECT_EQ(table.Sections().size(), 3U);
}

TEST_F(LoadOverlayTest, AnEmptyValueInTheFileCounts) {
    EXPECT_TRUE(Overlay(u"[file]\nopen ="));
    EXPECT_EQ(table.Get(u"file", u"open"), u"");
}

TEST_F(LoadOverlayTest, ReferencesDoNotReachTheTableBeneath) {
    EXPECT_TRUE(Overlay(u"[file]\na = %open\nb = %ok\nc = %[file]new"));
    EXPECT_EQ(table.Get(u"file", u"a"), u"%open");
    EXPECT_EQ(table.Get(u"file", u"b"), u"%ok");
    EXPECT_EQ(table.Get(u"file", u"c"), u"%[file]new");
}

TEST_F(LoadOverlayTest, ReferencesReachTheFileItselfAndTheConstants) {
    EXPECT_TRUE(Overlay(u"[global]\nok = Gut\n[file]\na = %ok, %app_name!"));
    EXPECT_EQ(table.Get(u"file", u"a"), u"Gut, Vaultmere!");
}

TEST_F(LoadOverlayTest, TextsPutBackAreNotExpandedAgain) {
    table.Set(u"file", u"late", u"%more");
    EXPECT_TRUE(Overlay(u"[file]\nmore = text"));
    EXPECT_EQ(table.Get(u"file", u"late"), u"%more");
}

TEST_F(LoadOverlayTest, AFileThatCannotBeReadLeavesTheTableAsItWas) {
    EXPECT_FALSE(table.LoadOverlay(folder.Path(u"none.ini")));
    EXPECT_EQ(table.Sections().size(), 2U);
    EXPECT_EQ(table.Get(u"file", u"open"), u"&Open Database...");
    EXPECT_EQ(table.DefaultSection(), u"global");
}

TEST_F(LoadOverlayTest, AFileWithoutAKeyLeavesTheTableAsItWas) {
    EXPECT_FALSE(Overlay(u"[file]\n; nothing"));
    EXPECT_EQ(table.Get(u"file", u"open"), u"&Open Database...");
}

}  // namespace
