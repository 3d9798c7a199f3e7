#include "toolkit/color_theme.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "foundation/textfile.h"
#include "tests/unit/test_files.h"
#include "tests/unit/toolkit/theme_texts.h"

namespace {

// --- ParseColor ---

TEST(ParseColor, FailsForAnEmptyText) {
    EXPECT_EQ(ParseColor(u""), kNoColor);
    EXPECT_EQ(ParseColor(u" \t\r\n"), kNoColor);
    EXPECT_EQ(kNoColor, 0xFFFFFFFF);
}

TEST(ParseColor, ReadsThreeNumbers) {
    EXPECT_EQ(ParseColor(u"rgb(1,2,3)"), 0x030201U);
    EXPECT_EQ(ParseColor(u"rgb(255,128,0)"), 0x0080FFU);
    EXPECT_EQ(ParseColor(u"rgb(0,0,0)"), 0U);
    EXPECT_EQ(ParseColor(u"rgb(0xFF,0x10,10)"), 0x0A10FFU);
}

TEST(ParseColor, TakesThreeNumbersInAnyCaseWithBlanksAroundTheParts) {
    EXPECT_EQ(ParseColor(u"RGB( 0x10 , 2 ,3 )"), 0x030210U);
    EXPECT_EQ(ParseColor(u"\t\r\n Rgb \t\r\n(\t1\r,\n2 , 0XaB\t) "), 0xAB0201U);
}

TEST(ParseColor, CutsEachNumberToEightBits) {
    EXPECT_EQ(ParseColor(u"rgb(300,256,511)"), 0xFF002CU);
    EXPECT_EQ(ParseColor(u"rgb(0x1FF,4294967297,1)"), 0x0101FFU);
}

TEST(ParseColor, WantsExactlyThreeParts) {
    for (const char16_t* text : {u"rgb(1,2)", u"rgb(11,222)", u"rgb(12345)", u"rgb(1,2,3,4)", u"rgb(1,2,3,)",
                                 u"rgb(,1,2,3)", u"rgb(1,,2,3)", u"rgb(1, ,3,4)", u"rgb(11,,22)",
                                 u"rgb(11, ,22)", u"rgb(,11,22)", u"rgb(11,22,)", u"rgb(,,,,,)"}) {
        EXPECT_EQ(ParseColor(text), kNoColor) << std::string(text, text + 8);
    }
}

TEST(ParseColor, WantsBracketsAroundThreeNumbers) {
    for (const char16_t* text :
         {u"rgb 1,2,3", u"rgb", u"rgb()", u"rgb(1,2,3", u"rgb1,2,3)", u"rgb[1,2,3]", u"rgb((1,2,3))",
          u"rgb(1,2,3) x", u"x rgb(1,2,3)", u"r gb(1,2,3)", u"argb(1,2,3)", u"rgba(1,2,3)", u"rgb(1,2,3);"}) {
        EXPECT_EQ(ParseColor(text), kNoColor) << std::string(text, text + 4);
    }
}

TEST(ParseColor, WantsSevenUnitsBehindRgb) {
    EXPECT_EQ(ParseColor(u"rgb(1,2,3)"), 0x030201U);
    EXPECT_EQ(ParseColor(u"rgb(1,2,)"), kNoColor);
    EXPECT_EQ(ParseColor(u"rgb(1,,2)"), kNoColor);
}

TEST(ParseColor, WantsDigitsAndTheMarkOfBase16InEachNumber) {
    for (const char16_t* text :
         {u"rgb(-1,2,3)", u"rgb(1,+2,3)", u"rgb(1,2,3.0)", u"rgb(1,2 2,3)", u"rgb(g,2,3)", u"rgb(1,2,h)",
          u"rgb(10%,2,3)", u"rgb(#1,2,3)", u"rgb(\uFF11,2,3)"}) {
        EXPECT_EQ(ParseColor(text), kNoColor);
    }
}

// Reading a number ends at the first digit that its base doesn't have.
TEST(ParseColor, TakesAnyMixtureOfDigitsForANumber) {
    EXPECT_EQ(ParseColor(u"rgb(x,1x2,0x)"), 0x000100U);
    EXPECT_EQ(ParseColor(u"rgb(ff,12abc,00x5)"), 0x000C00U);
    EXPECT_EQ(ParseColor(u"rgb(0x1x,007,0xg)"), kNoColor);
}

TEST(ParseColor, ReadsSixDigitsInTheOrderRedGreenBlue) {
    EXPECT_EQ(ParseColor(u"#123456"), 0x563412U);
    EXPECT_EQ(ParseColor(u"#FFfFfF"), 0xFFFFFFU);
    EXPECT_EQ(ParseColor(u"#000000"), 0U);
    EXPECT_EQ(ParseColor(u" # aBcDeF\t"), 0xEFCDABU);
}

TEST(ParseColor, TakesEachOfThreeDigitsForTheWholeValueOfItsChannel) {
    EXPECT_EQ(ParseColor(u"#abc"), 0x0C0B0AU);
    EXPECT_EQ(ParseColor(u"#FfF"), 0x0F0F0FU);
    EXPECT_EQ(ParseColor(u"#\t102 "), 0x020001U);
}

TEST(ParseColor, WantsThreeOrSixHexadecimalDigits) {
    for (const char16_t* text :
         {u"#", u"#1", u"#12", u"#1234", u"#12345", u"#1234567", u"#12345678", u"##123", u"#12g", u"#0x1",
          u"#0x1234", u"#1 2", u"#-12", u"#+12", u"#12345g"}) {
        EXPECT_EQ(ParseColor(text), kNoColor);
    }
}

TEST(ParseColor, TakesABareNumberForTheValueWithBlueOnTop) {
    EXPECT_EQ(ParseColor(u"255"), 0xFFU);
    EXPECT_EQ(ParseColor(u"0xFF0000"), 0xFF0000U);
    EXPECT_EQ(ParseColor(u" 0XFf\t"), 0xFFU);
    EXPECT_EQ(ParseColor(u"16777215"), 0xFFFFFFU);
}

TEST(ParseColor, MayGiveABareNumberBeyondAllColors) {
    EXPECT_EQ(ParseColor(u"16777216"), 0x1000000U);
    EXPECT_EQ(ParseColor(u"0xFFFFFFFF"), 0xFFFFFFFFU);
    EXPECT_EQ(ParseColor(u"0x80000000"), 0x80000000U);
}

TEST(ParseColor, TakesTheNumberThatATextBeginsWith) {
    EXPECT_EQ(ParseColor(u"12abc"), 12U);
    EXPECT_EQ(ParseColor(u"0x12g"), 0x12U);
    EXPECT_EQ(ParseColor(u"7,8,9"), 7U);
    EXPECT_EQ(ParseColor(u"5 5"), 5U);
}

TEST(ParseColor, TakesZeroOnlyWhereItIsWrittenAsSuch) {
    for (const char16_t* text : {u"0", u"0x0", u"00", u"0X00", u"x", u"0x", u"x0x"}) {
        EXPECT_EQ(ParseColor(text), 0U);
    }
    for (const char16_t* text : {u"none", u"red", u"0g", u"0 0", u"-0", u"0a", u"0.5", u"-1", u"%base",
                                 u"abc", u"0x0g", u"4294967296", u"0x100000000", u"(1,2,3)", u"r", u"rg"}) {
        EXPECT_EQ(ParseColor(text), kNoColor);
    }
}

// --- RgbColor ---

TEST(RgbColor, PutsRedBelowAndBlueOnTop) {
    EXPECT_EQ(RgbColor(1, 2, 3), 0x030201U);
    EXPECT_EQ(RgbColor(0x1FF, 0x200, 0x3FF), 0xFF00FFU);
}

// --- Roles ---

TEST(ThemeRoles, AreTwelveInTheOrderOfTheFields) {
    const std::vector<std::u16string_view> keys = {
        u"base",           u"border", u"border_active", u"button",  u"button_over", u"button_push",
        u"button_disable", u"text",   u"text_gray",     u"edit_bg", u"link",        u"icon"};
    ASSERT_EQ(kThemeRoles.size(), keys.size());
    tvColorTheme theme;
    const std::array<u32*, 12> fields = {&theme.m_base,          &theme.m_border,     &theme.m_borderActive,
                                         &theme.m_button,        &theme.m_buttonOver, &theme.m_buttonPush,
                                         &theme.m_buttonDisable, &theme.m_text,       &theme.m_textGray,
                                         &theme.m_editBg,        &theme.m_link,       &theme.m_icon};
    for (std::size_t i = 0; i < keys.size(); ++i) {
        EXPECT_EQ(kThemeRoles[i].key, keys[i]);
        EXPECT_EQ(&(theme.*kThemeRoles[i].color), fields[i]);
        EXPECT_EQ(FindThemeRole(keys[i]), i);
    }
}

TEST(ThemeRoles, AreFoundBySmallLettersOnly) {
    EXPECT_EQ(FindThemeRole(u"Base"), std::u16string_view::npos);
    EXPECT_EQ(FindThemeRole(u""), std::u16string_view::npos);
    EXPECT_EQ(FindThemeRole(u"_name"), std::u16string_view::npos);
}

// --- tvColorTheme ---

bool Take(tvColorTheme& theme, const tvstring& text) {
    tvini document(kThemeSection);
    document.Parse(text);
    return theme.Take(document);
}

// The theme of a document that must be a good one.
tvColorTheme Taken(const tvstring& text) {
    tvColorTheme theme;
    EXPECT_TRUE(Take(theme, text));
    return theme;
}

// The same of the usual document with another value for a role.
tvColorTheme TakenWith(std::u16string_view role, const char16_t* value) {
    return Taken(ThemeText(u"Test", role, value));
}

// A document that is refused, and leaves nothing of what the theme held.
void ExpectRefused(const tvstring& text) {
    tvColorTheme theme = Taken(ThemeText());
    EXPECT_FALSE(Take(theme, text));
    EXPECT_EQ(theme, tvColorTheme());
}
void ExpectRefusedWith(std::u16string_view role, const char16_t* value) {
    ExpectRefused(ThemeText(u"Test", role, value));
}

TEST(ColorTheme, HasNoNameAndNoColorsWhenCleared) {
    tvColorTheme theme = Taken(ThemeText());
    theme.Clear();
    EXPECT_TRUE(theme.m_name.empty());
    for (const ThemeRole& role : kThemeRoles)
        EXPECT_EQ(theme.*role.color, 0xFFFFFFFFU);
}

TEST(ColorTheme, TakesNameAndColorsOfADocument) {
    const tvColorTheme theme = Taken(ThemeText(u"My Theme"));
    EXPECT_EQ(theme.m_name, u"My Theme");
    for (std::size_t i = 0; i < kThemeRoles.size(); ++i)
        EXPECT_EQ(theme.*kThemeRoles[i].color, i + 1);
    EXPECT_EQ(theme.m_base, 1U);
    EXPECT_EQ(theme.m_icon, 12U);
}

TEST(ColorTheme, TakesEveryFormOfAColor) {
    EXPECT_EQ(TakenWith(u"link", u"rgb( 300, 0x10, 3)").m_link, 0x03102CU);
    EXPECT_EQ(TakenWith(u"link", u"#123456").m_link, 0x563412U);
    EXPECT_EQ(TakenWith(u"link", u"#abc").m_link, 0x0C0B0AU);
    EXPECT_EQ(TakenWith(u"link", u"0xFFFFFF").m_link, 0xFFFFFFU);
    EXPECT_EQ(TakenWith(u"link", u"0").m_link, 0U);
    EXPECT_EQ(TakenWith(u"link", u"\"  7  \"").m_link, 7U);
}

TEST(ColorTheme, FindsKeysInAnyCaseAndOrder) {
    tvstring text = u"[ColorTheme]\nICON = 5\n";
    text += ThemeText(u"Test", u"icon").view().substr(13);
    EXPECT_EQ(Taken(text).m_icon, 5U);
}

TEST(ColorTheme, PassesOverOtherSectionsAndKeys) {
    const tvstring text = ThemeText() + u"unknown = none\n[other]\nbase = none\n_version = x\n";
    EXPECT_EQ(Taken(text), Taken(ThemeText()));
}

TEST(ColorTheme, WantsItsSection) {
    ExpectRefused(u"");
    ExpectRefused(ThemeText().view().substr(13));
    ExpectRefused(tvstring(u"[theme]\n") + ThemeText().view().substr(13));
}

TEST(ColorTheme, WantsItsVersionToTheLetter) {
    for (const char16_t* version :
         {u"TVTHEME_1_1", u"tvtheme_1_0", u"TVTHEME_1_0 x", u"", u"\"TVTHEME_1_0 \""}) {
        ExpectRefused(ThemeText() + u"_version = " + version + u"\n");
    }
    ExpectRefused(u"[colortheme]\n" + ThemeText().substr(ThemeText().find(u"_name")));
}

TEST(ColorTheme, WantsAName) {
    ExpectRefused(ThemeText(u""));
    ExpectRefused(
        ThemeText().replace(0, ThemeText().find(u"base"), u"[colortheme]\n_version = TVTHEME_1_0\n"));
    EXPECT_EQ(Taken(ThemeText(u"\" \"")).m_name, u" ");
}

TEST(ColorTheme, WantsEveryRole) {
    for (const ThemeRole& role : kThemeRoles) {
        ExpectRefusedWith(role.key, nullptr);
        ExpectRefusedWith(role.key, u"");
    }
}

TEST(ColorTheme, RefusesWhatIsNoColor) {
    for (const char16_t* value :
         {u"none", u"rgb(1,2)", u"rgb 1,2,3", u"#12", u"16777216", u"0xFFFFFFFF", u"\" %base\"", u"\"  \""}) {
        ExpectRefusedWith(u"text", value);
    }
    EXPECT_EQ(TakenWith(u"text", u"16777215").m_text, 0xFFFFFFU);
}

TEST(ColorTheme, TakesTheColorOfAnotherRoleWhereverThatStands) {
    EXPECT_EQ(TakenWith(u"button", u"%base").m_button, 1U);
    EXPECT_EQ(TakenWith(u"base", u"%button").m_base, 4U);
    const tvstring before = u"[colortheme]\nbutton = %base\n";
    EXPECT_EQ(Taken(before + ThemeText(u"Test", u"button").view().substr(13)).m_button, 1U);
}

TEST(ColorTheme, TakesAReferenceInAnyCaseWithBlanks) {
    EXPECT_EQ(TakenWith(u"button", u"% \t Text_GRAY").m_button, 9U);
}

TEST(ColorTheme, FollowsReferencesToReferencesInAnyOrder) {
    tvstring forward = u"[colortheme]\n_version=TVTHEME_1_0\n_name=x\n";
    tvstring backward = forward;
    for (std::size_t i = 0; i + 1 < kThemeRoles.size(); ++i) {
        forward += tvstring(kThemeRoles[i].key) + u"=%" + kThemeRoles[i + 1].key + u"\n";
        backward += tvstring(kThemeRoles[i + 1].key) + u"=%" + kThemeRoles[i].key + u"\n";
    }
    for (const tvColorTheme& theme : {Taken(forward + u"icon=77\n"), Taken(backward + u"base=77\n")}) {
        for (const ThemeRole& role : kThemeRoles)
            EXPECT_EQ(theme.*role.color, 77U);
    }
}

TEST(ColorTheme, RefusesACycle) {
    ExpectRefusedWith(u"button", u"%button");
    ExpectRefused(ThemeText(u"Test", u"base", u"%icon") + u"icon = %base\n");
    ExpectRefused(ThemeText(u"Test", u"base", u"%icon") + u"icon = %link\nlink = %text\ntext = %icon\n");
}

TEST(ColorTheme, RefusesAReferenceToNoRole) {
    for (const char16_t* value : {u"%foo", u"%", u"%_name", u"%%base", u"%base %text", u"%base2"}) {
        ExpectRefused(ThemeText(u"Test", u"button", value) + u"foo = 1\n");
    }
}

TEST(ColorTheme, RefusesAReferenceToABadRole) {
    ExpectRefused(ThemeText(u"Test", u"button", u"%base") + u"base = none\n");
}

// --- Load ---

class ThemeFile : public testing::Test {
protected:
    TempFolder m_Folder;
    tvstring m_Path = m_Folder.Path(u"theme.ini");
};

TEST_F(ThemeFile, IsLoadedInAnyUnicodeEncoding) {
    for (const int encoding : {TEXT_UTF16LE, TEXT_UTF16BE, TEXT_UTF8}) {
        ASSERT_TRUE(WriteTextFile(ThemeText(u"東京"), m_Path, encoding));
        tvColorTheme theme;
        EXPECT_TRUE(theme.Load(m_Path));
        EXPECT_EQ(theme, Taken(ThemeText(u"東京")));
    }
}

TEST_F(ThemeFile, ThatIsMissingLeavesAnEmptyTheme) {
    tvColorTheme theme = Taken(ThemeText());
    EXPECT_FALSE(theme.Load(m_Path));
    EXPECT_EQ(theme, tvColorTheme());
    EXPECT_FALSE(theme.Load(u""));
}

TEST_F(ThemeFile, ThatIsBadLeavesAnEmptyTheme) {
    WriteTextFile(ThemeText(u"Test", u"icon", u"none"), m_Path, TEXT_UTF8);
    tvColorTheme theme = Taken(ThemeText());
    EXPECT_FALSE(theme.Load(m_Path));
    EXPECT_EQ(theme, tvColorTheme());
}

TEST_F(ThemeFile, ThatIsEmptyLeavesAnEmptyTheme) {
    WriteBytes(m_Path, "");
    tvColorTheme theme = Taken(ThemeText());
    EXPECT_FALSE(theme.Load(m_Path));
    EXPECT_EQ(theme, tvColorTheme());
}

}  // namespace
